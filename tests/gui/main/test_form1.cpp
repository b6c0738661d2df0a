// The main window driven as an operator drives it: keys into the fields, Enter, the
// navigator, the closing roads. Fake services answer every message and question.
#include "core/rules/Validacion.h"
#include "gui/main/Form1.h"
#include "gui/main/Form18.h"
#include "support/ContextoPrueba.h"
#include "support/Hecho.h"
#include "support/Modales.h"
#include "support/Semilla.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QRandomGenerator>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>

using Tipo = LlamadaDialogo::Tipo;

namespace {

const QByteArray ConfigPrueba = "Estacion=LU1AAA\r\n"
                                "Operador=LU2BBB\r\n"
                                "DiferUTC=-3\r\n"
                                "LogenUso=Pruebas\r\n"
                                "GridLoca=FF78AB\r\n"
                                "Pantalla=1\r\n";

// A main window over a fresh folder, past its start-up, with the timers held so that the
// test decides when each one ticks.
struct Ventana
{
    explicit Ventana(bool conConfig = true)
    {
        if (conConfig)
            p.Escribir(QStringLiteral("config.ini"), ConfigPrueba);
        p->Terminar = [this](int codigo) { terminado = codigo; };
        f = std::make_unique<Form1>(p.ctx());
        for (QTimer *t : {f->Timer1, f->Timer2, f->Timer7})
            t->stop();
        f->show();
        QApplication::setActiveWindow(f.get());
        if (!QTest::qWaitForWindowActive(f.get()))
            qWarning("la ventana no quedó activa");
        if (conConfig)
            f->Timer2_Timer();
        f->Timer1_Timer();
        f->Corresponsal->setFocus();
        QApplication::processEvents();
    }

    QWidget *Foco() const { return QApplication::focusWidget(); }
    void Tecla(Qt::Key k, Qt::KeyboardModifiers m = Qt::NoModifier)
    {
        QTest::keyClick(Foco(), k, m);
        QApplication::processEvents();
    }
    void Escribir(const QString &texto)
    {
        QTest::keyClicks(Foco(), texto);
        QApplication::processEvents();
    }
    void LlenarLog(int cantidad, const QString &log = QStringLiteral("Pruebas"))
    {
        for (int i = 0; i < cantidad; ++i) {
            RegistroQSO q;
            q.Estacion = QStringLiteral("LU%1XX").arg(i);
            q.Modo = QStringLiteral("SSB");
            q.Banda = QStringLiteral("40m");
            q.Fecha = QDate(2024, 1, 1).addDays(i).toString(QStringLiteral("dd/MM/yyyy"));
            q.Hora = QStringLiteral("10:00:00");
            Hecho(p->almacen().AgregarQSO(q, log));
        }
        f->ListView2->clear();
        f->CargarLog(1);
    }
    DialogosFalso &d() { return *p.falsos.dialogos; }

    ContextoPrueba p;
    std::unique_ptr<Form1> f;
    int terminado = -1;
};

} // namespace

class TestForm1 : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void arranque();
    void qsoConElTecladoSolo();
    void horaManualEnHoraLocal();
    void fechaMalaConElRaton();
    void caminoDelEnter_data();
    void caminoDelEnter();
    void filtrosDeTeclas_data();
    void filtrosDeTeclas();
    void paginas_data();
    void paginas();
    void saltoDePagina();
    void ordenDeColumnas();
    void f5SinQSOsYTrasIngresar();
    void ctrlDejaLaWComoComando();
    void cierres_data();
    void cierres();
    void presencia_data();
    void presencia();
    void elSiguienteArranqueSigueDondeQuedo();
    void primerInicioEligeElPrimerLog();
    void ajustesDelContexto();
    void llamadorConF1YEsc_data();
    void llamadorConF1YEsc();
    void tecleoAlAzarNoRompeNiPierde();
};

void TestForm1::arranque()
{
    Ventana v;
    QCOMPARE(v.f->windowTitle(), QStringLiteral("Carancho Radiolog V2.1.03 (Beta)"));
    QCOMPARE(v.f->Label2->text(), QStringLiteral("LU1AAA"));
    QCOMPARE(v.f->Label3->text(), QStringLiteral("LU2BBB"));
    QCOMPARE(v.f->Label8->text(), QStringLiteral("FF78AB"));
    QCOMPARE(v.f->Frame1->title(), QStringLiteral("Pruebas"));
    QCOMPARE(v.f->Label6->text(), QStringLiteral("Log: Pruebas, con 0 QSOs"));
    QCOMPARE(v.f->mhz->currentText(), QStringLiteral("3"));
    QCOMPARE(v.f->Text1->text(), QStringLiteral("650"));
    QCOMPARE(v.f->Label7->text(), QStringLiteral("80m"));
    QCOMPARE(v.f->Combo1->currentText(), QStringLiteral("SSB"));
    QCOMPARE(v.f->txt_total->text(), QStringLiteral("1"));
    QVERIFY(v.f->archivo->menuAction()->isEnabled());
    // The clock shows UTC: 14:30 local at three hours west.
    QCOMPARE(v.f->Fecha->text(), QStringLiteral("15/05/2024"));
    QCOMPARE(v.f->Hora->text(), QStringLiteral("17:30"));
    QVERIFY(!v.f->Fecha->isEnabled());
    QCOMPARE(v.f->ListView2->columnCount(), 18);
    QCOMPARE(v.f->ListView2->headerItem()->text(17), QStringLiteral("Argentina"));
    QVERIFY(v.d().llamadas.isEmpty());
}

void TestForm1::qsoConElTecladoSolo()
{
    Ventana v;
    v.Escribir(QStringLiteral("lu0xx"));
    QCOMPARE(v.f->Corresponsal->text(), QStringLiteral("LU0XX"));
    v.Tecla(Qt::Key_Return); // the clock runs: past date and time to the report
    QCOMPARE(v.Foco(), v.f->RSE);
    v.Tecla(Qt::Key_Return);
    QCOMPARE(v.Foco(), v.f->RSR);
    v.Tecla(Qt::Key_Return);
    QCOMPARE(v.Foco(), v.f->Text1);
    v.Tecla(Qt::Key_Return);
    QCOMPARE(v.Foco(), v.f->Text2);
    v.Escribir(QStringLiteral("ff78"));
    v.Tecla(Qt::Key_Return);
    QCOMPARE(v.Foco(), v.f->Obs);
    v.Escribir(QStringLiteral("it's ok"));
    v.Tecla(Qt::Key_Return);

    QVERIFY2(v.d().llamadas.isEmpty(), qPrintable(v.d().UltimoTexto()));
    const auto filas = v.p->almacen().PaginaLog(QStringLiteral("Pruebas"), 1);
    QCOMPARE(filas.size(), 1);
    const FilaQSO &q = filas.first();
    QCOMPARE(q.Estacion, QStringLiteral("LU0XX"));
    QCOMPARE(q.Fecha, QStringLiteral("15/05/2024"));
    QCOMPARE(q.Hora, QStringLiteral("17:30:00"));
    QCOMPARE(q.Banda, QStringLiteral("80m"));
    QCOMPARE(q.Frecuencia, QStringLiteral("3.650"));
    QCOMPARE(q.Modo, QStringLiteral("SSB"));
    QCOMPARE(q.SuGrid, QStringLiteral("FF78"));
    QCOMPARE(q.MiGrid, QStringLiteral("FF78AB"));
    QCOMPARE(q.MyCall, QStringLiteral("LU1AAA"));
    QCOMPARE(q.Operador, QStringLiteral("LU2BBB"));
    QCOMPARE(q.Obs, QStringLiteral("it's ok"));
    QCOMPARE(q.Argento, QStringLiteral("Santa Cruz"));
    QCOMPARE(q.LbN, QStringLiteral("1"));
    // Ready for the next one: fields cleared, view on page 1, focus on the callsign.
    QVERIFY(v.f->Corresponsal->text().isEmpty());
    QVERIFY(v.f->Obs->text().isEmpty());
    QCOMPARE(v.Foco(), v.f->Corresponsal);
    QCOMPARE(v.f->Label6->text(), QStringLiteral("Log: Pruebas, con 1 QSOs"));
    QCOMPARE(v.f->ListView2->topLevelItem(0)->text(2), QStringLiteral("LU0XX"));
    QCOMPARE(v.f->Label4->text(), QString::number(q.id));
    // An empty callsign on the next Enter is refused.
    v.Tecla(Qt::Key_Return);
    QCOMPARE(v.d().UltimoTexto(), QStringLiteral("Falta el Corresponsal!"));
}

void TestForm1::horaManualEnHoraLocal()
{
    Ventana v;
    v.f->Check1->click();
    QVERIFY(!v.f->Label11->isHidden());
    QCOMPARE(v.f->Label11->text(), QStringLiteral("LU"));
    v.f->Fecha->setText(QStringLiteral("31/12/2024"));
    v.f->Hora->setText(QStringLiteral("21:30"));
    v.f->Corresponsal->setText(QStringLiteral("LU5FF"));
    v.f->Check3->setChecked(true);
    v.f->Obs->setText(QStringLiteral("queda"));
    v.f->Command2->click();
    const auto q = v.p->almacen().UltimoQSO(QStringLiteral("Pruebas"));
    QVERIFY(q);
    QCOMPARE(q->Fecha, QStringLiteral("01/01/2025"));
    QCOMPARE(q->Hora, QStringLiteral("00:30:00"));
    QCOMPARE(v.f->Obs->text(), QStringLiteral("queda"));
    QCOMPARE(v.p.Leer(QStringLiteral("mem.ini")).split('\r').value(2).trimmed(), QByteArray("1"));
}

void TestForm1::fechaMalaConElRaton()
{
    Ventana v;
    v.f->Check1->click();
    v.f->Fecha->setText(QStringLiteral("31/02/2024"));
    v.f->Corresponsal->setText(QStringLiteral("LU5FF"));
    v.f->Command2->click();
    QCOMPARE(v.d().UltimoTexto(), MensajeFecha(QStringLiteral("31/02/2024")));
    QCOMPARE(v.p->almacen().CantidadQSOs(QStringLiteral("Pruebas")), 0);
    QCOMPARE(v.f->Corresponsal->text(), QStringLiteral("LU5FF"));
}

void TestForm1::caminoDelEnter_data()
{
    QTest::addColumn<QString>("corresponsal");
    QTest::addColumn<QString>("rse");
    QTest::addColumn<QString>("rsr");
    QTest::addColumn<QString>("modo");
    QTest::addColumn<QString>("mensaje");
    QTest::addColumn<QString>("campo");
    QTest::addColumn<bool>("alto");
    QTest::newRow("sin corresponsal") << ""
                                      << "59"
                                      << "59"
                                      << "SSB"
                                      << "Falta el Corresponsal!"
                                      << "Corresponsal" << false;
    QTest::newRow("recibido corto en CW") << "LU9ZZ"
                                          << "599"
                                          << "59"
                                          << "CW"
                                          << "Reporte Recibido no válido!"
                                          << "RSR" << false;
    QTest::newRow("recibido 999") << "LU9ZZ"
                                  << "599"
                                  << "999"
                                  << "CW"
                                  << "Reporte Recibido no válido!"
                                  << "RSR" << false;
    QTest::newRow("enviado vacío") << "LU9ZZ"
                                   << ""
                                   << "59"
                                   << "SSB"
                                   << "Reporte Enviado no válido!"
                                   << "RSE" << false;
    QTest::newRow("la propia estación") << "LU1AAA"
                                        << "59"
                                        << "59"
                                        << "SSB"
                                        << "QSO con la propia estación???"
                                        << "Corresponsal" << true;
    QTest::newRow("el operador") << "LU2BBB"
                                 << "59"
                                 << "59"
                                 << "SSB"
                                 << "QSO con el Operador???"
                                 << "Corresponsal" << true;
}

void TestForm1::caminoDelEnter()
{
    QFETCH(QString, corresponsal);
    QFETCH(QString, rse);
    QFETCH(QString, rsr);
    QFETCH(QString, modo);
    QFETCH(QString, mensaje);
    QFETCH(QString, campo);
    QFETCH(bool, alto);
    Ventana v;
    v.f->Combo1->setCurrentText(modo);
    v.f->RSE->setText(rse);
    v.f->RSR->setText(rsr);
    v.f->Obs->setFocus();
    QApplication::processEvents();
    v.f->Corresponsal->setText(corresponsal);
    v.Tecla(Qt::Key_Return);
    QCOMPARE(v.d().UltimoTexto(), mensaje);
    QCOMPARE(v.d().llamadas.last().tipo, alto ? Tipo::Alto : Tipo::Exclamacion);
    QCOMPARE(v.Foco()->objectName(), campo);
    QCOMPARE(v.p->almacen().CantidadQSOs(QStringLiteral("Pruebas")), 0);
}

void TestForm1::filtrosDeTeclas_data()
{
    QTest::addColumn<QString>("campo");
    QTest::addColumn<QString>("tecleado");
    QTest::addColumn<QString>("queda");
    QTest::newRow("señal en mayúsculas, sin coma, con ?") << "Corresponsal"
                                                          << "lu0,x?/p"
                                                          << "LU0X?/P";
    QTest::newRow("fecha") << "Fecha"
                           << "1a2/-3"
                           << "12/3";
    QTest::newRow("hora") << "Hora"
                          << "1:2a3"
                          << "1:23";
    QTest::newRow("kHz solo dígitos") << "Text1"
                                      << "1a2"
                                      << "12";
    QTest::newRow("grilla sin barra") << "Text2"
                                      << "f/f7"
                                      << "FF7";
    QTest::newRow("grilla corta lo que no es forma") << "Text2"
                                                     << "1f"
                                                     << "F";
    QTest::newRow("observaciones todo") << "Obs"
                                        << "a,b'c"
                                        << "a,b'c";
}

void TestForm1::filtrosDeTeclas()
{
    QFETCH(QString, campo);
    QFETCH(QString, tecleado);
    QFETCH(QString, queda);
    Ventana v;
    v.f->Check1->click(); // date and time editable
    auto *e = v.f->findChild<QLineEdit *>(campo);
    QVERIFY(e);
    e->clear();
    e->setFocus();
    QApplication::processEvents();
    QTest::keyClicks(e, tecleado);
    QCOMPARE(e->text(), queda);
}

void TestForm1::paginas_data()
{
    QTest::addColumn<int>("cantidad");
    QTest::addColumn<QString>("total");
    QTest::addColumn<bool>("hayMas");
    QTest::addColumn<int>("filasUltima");
    QTest::newRow("vacío") << 0 << "1" << false << 0;
    QTest::newRow("20") << 20 << "1" << false << 20;
    QTest::newRow("21") << 21 << "2" << true << 1;
    QTest::newRow("45") << 45 << "3" << true << 5;
}

void TestForm1::paginas()
{
    QFETCH(int, cantidad);
    QFETCH(QString, total);
    QFETCH(bool, hayMas);
    QFETCH(int, filasUltima);
    Ventana v;
    v.LlenarLog(cantidad);
    QCOMPARE(v.f->Label6->text(), QStringLiteral("Log: Pruebas, con %1 QSOs").arg(cantidad));
    QCOMPARE(v.f->txt_total->text(), total);
    QCOMPARE(v.f->txt_pagina->text(), QStringLiteral("1"));
    QCOMPARE(v.f->mas->isEnabled(), hayMas);
    QCOMPARE(v.f->ultima->isEnabled(), hayMas);
    QVERIFY(!v.f->anterior->isEnabled());
    QVERIFY(!v.f->menos->isEnabled());
    QCOMPARE(v.f->ListView2->topLevelItemCount(), qMin(cantidad, 20));
    if (cantidad > 0) // newest first
        QCOMPARE(v.f->ListView2->topLevelItem(0)->text(2),
                 QStringLiteral("LU%1XX").arg(cantidad - 1));
    if (!hayMas)
        return;
    v.Tecla(Qt::Key_End); // End reaches the last page from any field
    QCOMPARE(v.f->ListView2->topLevelItemCount(), filasUltima);
    QCOMPARE(v.f->txt_pagina->text(), total);
    QVERIFY(!v.f->mas->isEnabled());
    QVERIFY(v.f->anterior->isEnabled());
    QCOMPARE(v.f->ListView2->topLevelItem(filasUltima - 1)->text(2), QStringLiteral("LU0XX"));
    v.Tecla(Qt::Key_PageUp);
    QCOMPARE(v.f->ListView2->topLevelItemCount(), 20);
    v.Tecla(Qt::Key_Home);
    QCOMPARE(v.f->txt_pagina->text(), QStringLiteral("1"));
    QCOMPARE(v.f->ListView2->topLevelItem(0)->text(2), QStringLiteral("LU%1XX").arg(cantidad - 1));
}

void TestForm1::saltoDePagina()
{
    Ventana v;
    v.LlenarLog(45);
    v.f->Text3->setText(QStringLiteral("9999"));
    v.f->Command8->click();
    QCOMPARE(v.f->Text3->text(), QStringLiteral("3"));
    QCOMPARE(v.f->txt_pagina->text(), QStringLiteral("3"));
    QCOMPARE(v.f->ListView2->topLevelItemCount(), 5);
    v.f->Text3->setText(QStringLiteral("0"));
    v.f->Command8->click();
    QCOMPARE(v.f->Text3->text(), QStringLiteral("1"));
    QCOMPARE(v.f->txt_pagina->text(), QStringLiteral("1"));
    QCOMPARE(v.f->ListView2->topLevelItem(0)->text(2), QStringLiteral("LU44XX"));
    v.f->Text3->setText(QStringLiteral("2"));
    v.f->Command8->click();
    QCOMPARE(v.f->ListView2->topLevelItem(0)->text(2), QStringLiteral("LU24XX"));
    // After an entry the view is back on page 1.
    v.f->Corresponsal->setText(QStringLiteral("LU7DD"));
    v.f->Command2->click();
    QCOMPARE(v.f->txt_pagina->text(), QStringLiteral("1"));
    QCOMPARE(v.f->ListView2->topLevelItem(0)->text(2), QStringLiteral("LU7DD"));
}

void TestForm1::ordenDeColumnas()
{
    Ventana v;
    v.LlenarLog(3);
    auto *cabecera = v.f->ListView2->header();
    auto primera = [&] { return v.f->ListView2->topLevelItem(0)->text(2); };
    Q_EMIT cabecera->sectionClicked(2);
    QCOMPARE(primera(), QStringLiteral("LU0XX"));
    Q_EMIT cabecera->sectionClicked(2);
    QCOMPARE(primera(), QStringLiteral("LU2XX"));
    // The store is not touched: a reload gives the date order.
    v.f->Command11_Click();
    QCOMPARE(primera(), QStringLiteral("LU2XX"));
}

void TestForm1::f5SinQSOsYTrasIngresar()
{
    Ventana v;
    QList<qint64> editados;
    v.f->abrirEdicion = [&](const FilaQSO &f, bool) { editados << f.id; };
    v.Tecla(Qt::Key_F5);
    QCOMPARE(v.d().UltimoTexto(), QStringLiteral("No hay QSOs para Editar!"));
    QVERIFY(editados.isEmpty());

    v.LlenarLog(3); // newest is the third, dated 03/01/2024
    v.Tecla(Qt::Key_F5);
    QCOMPARE(editados.size(), 1);
    const qint64 masNuevo = editados.last();
    // Entered now with an older date: F5 still edits the one just entered.
    v.f->Check1->click();
    v.f->Fecha->setText(QStringLiteral("01/01/2000"));
    v.f->Corresponsal->setText(QStringLiteral("LU7DD"));
    v.f->Command2->click();
    v.Tecla(Qt::Key_F5);
    QCOMPARE(editados.size(), 2);
    QVERIFY(editados.last() != masNuevo);
    QCOMPARE(QString::number(editados.last()), v.f->Label4->text());
}

void TestForm1::ctrlDejaLaWComoComando()
{
    Ventana v;
    v.Escribir(QStringLiteral("lu1w"));
    QCOMPARE(v.f->Corresponsal->text(), QStringLiteral("LU1W")); // no Ctrl yet
    v.f->Obs->setText(QStringLiteral("nota"));
    v.Tecla(Qt::Key_Control);
    v.Escribir(QStringLiteral("x"));
    QCOMPARE(v.f->Corresponsal->text(), QStringLiteral("LU1WX"));
    v.Escribir(QStringLiteral("w"));
    QCOMPARE(v.f->Corresponsal->text(), QStringLiteral("W"));
    QVERIFY(v.f->Obs->text().isEmpty());
}

void TestForm1::cierres_data()
{
    QTest::addColumn<bool>("porMenu");
    QTest::addColumn<bool>("respuesta");
    QTest::newRow("cruz, sí") << false << true;
    QTest::newRow("cruz, no") << false << false;
    QTest::newRow("Salir, sí") << true << true;
    QTest::newRow("Salir, no") << true << false;
}

void TestForm1::cierres()
{
    QFETCH(bool, porMenu);
    QFETCH(bool, respuesta);
    Ventana v;
    QFile::remove(v.p.Archivo(QStringLiteral("config.ini")));
    v.f->Timer6->setInterval(1);
    v.d().respuestasSiNo.enqueue(respuesta);
    if (porMenu)
        v.f->salir->trigger();
    else
        v.f->close();
    QCOMPARE(v.d().Textos(Tipo::PreguntaSiNo),
             QStringList{QStringLiteral("Sale de Carancho Radiolog?")});
    auto *f18 = v.f->findChild<Form18 *>();
    if (!respuesta) {
        QCOMPARE(v.terminado, -1);
        QVERIFY(!f18->isVisible());
        QVERIFY(v.f->isVisible());
        return;
    }
    QCOMPARE(v.terminado, 0);
    QCOMPARE(v.p->TicksCierre, 25);
    QCOMPARE(f18->Label1->text(), QStringLiteral("Aguarde, cerrando Carancho Radiolog2 ...25/25"));
    // Only the close box writes config.ini; both leave the memory files.
    QCOMPARE(QFile::exists(v.p.Archivo(QStringLiteral("config.ini"))), !porMenu);
    QCOMPARE(v.p.Leer(QStringLiteral("memKhz.cfg")).trimmed(), QByteArray("650"));
    QVERIFY(v.p.falsos.web->Direcciones().last().endsWith(QLatin1String("&comando=off")));
}

void TestForm1::presencia_data()
{
    QTest::addColumn<QString>("estacion");
    QTest::newRow("con señal") << "LU1AAA";
    QTest::newRow("sin señal") << "";
}

void TestForm1::presencia()
{
    QFETCH(QString, estacion);
    Ventana v;
    v.p->config().Estacion = estacion;
    const QString titulo = v.f->windowTitle();
    v.f->Timer7_Timer();
    QVERIFY(!v.f->Timer7->isActive());
    QVERIFY(v.f->Timer5->isActive());
    v.f->Timer5_Timer();
    const QString sitio = v.p->direcciones().Sitio;
    const QString presencia =
        sitio +
        QStringLiteral(
            "/carancho.php?qrz=LU1AAA&prog=Carancho Radiolog 2&ver=2.1.03 (Beta)&comando=on");
    const QStringList pedidas = v.p.falsos.web->Direcciones();
    QCOMPARE(pedidas.first(), sitio + QLatin1Char('/'));
    if (estacion.isEmpty()) {
        QVERIFY(!pedidas.join(QLatin1Char(' ')).contains(QLatin1String("carancho.php")));
        QCOMPARE(v.f->windowTitle(), titulo);
    } else {
        QCOMPARE(QUrl(pedidas.last()), QUrl(presencia));
        QCOMPARE(v.f->windowTitle(), titulo + QLatin1Char('*'));
    }
}

void TestForm1::elSiguienteArranqueSigueDondeQuedo()
{
    ContextoPrueba p;
    p.Escribir(QStringLiteral("config.ini"), ConfigPrueba);
    p->Terminar = [](int) {};
    {
        Form1 f(p.ctx());
        f.Timer2_Timer();
        f.Timer1_Timer();
        f.mhz->setCurrentText(QStringLiteral("7"));
        f.Text1->setText(QStringLiteral("150"));
        f.Combo1->setCurrentText(QStringLiteral("CW"));
        f.Check1->click(); // manual time, saved at once in mem.ini
        f.Check3->setChecked(true);
        f.Timer6->setInterval(1);
        p.falsos.dialogos->respuestasSiNo.enqueue(true);
        f.close(); // the close box also saves config.ini with "No Borrar"
    }
    p->CierreListo = false;
    p->TicksCierre = 0;
    Form1 f(p.ctx());
    f.Timer2_Timer();
    QCOMPARE(f.mhz->currentText(), QStringLiteral("7"));
    QCOMPARE(f.Text1->text(), QStringLiteral("150"));
    QCOMPARE(f.Combo1->currentText(), QStringLiteral("CW"));
    QVERIFY(f.Check1->isChecked());
    QVERIFY(f.Check3->isChecked());
    QCOMPARE(f.Frame1->title(), QStringLiteral("Pruebas"));
}

void TestForm1::primerInicioEligeElPrimerLog()
{
    Ventana v(false);
    QVERIFY(v.p->almacen().Logs().isEmpty());
    CuandoAparezcaModal([](QWidget *form2) {
        QTest::keyClicks(form2->findChild<QLineEdit *>(QStringLiteral("Text1")),
                         QStringLiteral("lu1abc"));
        form2->findChild<QPushButton *>(QStringLiteral("Command1"))->click();
    });
    v.f->Timer2_Timer();
    QVERIFY(!v.p->ConfigInicial);
    QCOMPARE(v.f->Label2->text(), QStringLiteral("LU1ABC"));
    QCOMPARE(v.f->Frame1->title(), QStringLiteral("Log inicial"));
    // The first log is offered by the list of logs before its first QSO.
    QCOMPARE(v.p->almacen().Logs(), QStringList{QStringLiteral("Log inicial")});
    QVERIFY(v.f->Timer7->isActive()); // the presence messages are on their way
    QVERIFY(v.f->archivo->menuAction()->isEnabled());
}

void TestForm1::ajustesDelContexto()
{
    // Settings put straight into the context, with no config.ini and no configuration
    // window: the main window shows and uses them.
    Ventana v(false);
    Configuracion &cfg = v.p->config();
    cfg.Estacion = QStringLiteral("lu3cc");
    cfg.DiferUTC = QStringLiteral("+2");
    cfg.GridLoca = QStringLiteral("GF05");
    cfg.NoBorrar = 7;
    v.p->LogenUso = QStringLiteral("Pruebas");
    v.f->AplicarConfiguracion();
    v.f->Timer1_Timer();
    QCOMPARE(v.f->Label2->text(), QStringLiteral("LU3CC"));
    QCOMPARE(v.f->Hora->text(), QStringLiteral("12:30")); // 14:30 local, two hours east
    // The box holds 0 or 1, and the settings follow the box.
    QVERIFY(v.f->Check3->isChecked());
    QCOMPARE(cfg.NoBorrar, 1);
    v.f->Check3->click();
    QCOMPARE(cfg.NoBorrar, 0);

    v.f->Corresponsal->setText(QStringLiteral("LU5FF"));
    v.f->Command2->click();
    const auto q = v.p->almacen().UltimoQSO(QStringLiteral("Pruebas"));
    QVERIFY(q);
    QCOMPARE(q->MyCall + ' ' + q->MiGrid + ' ' + q->Hora, QStringLiteral("LU3CC GF05 12:30:00"));
    v.f->Timer7_Timer();
    v.f->Timer5_Timer();
    QVERIFY(v.p.falsos.web->Direcciones().last().contains(QLatin1String("qrz=lu3cc&")));
}

void TestForm1::llamadorConF1YEsc_data()
{
    QTest::addColumn<int>("pin");
    QTest::addColumn<QString>("archivo");   // "bueno", "falla" (does not open), "vacio"
    QTest::addColumn<QStringList>("linea"); // the PTT line after F1, then Esc
    const QStringList conRTS{"RTS1", "RTS0"}, conDTR{"DTR1", "DTR0"};
    QTest::newRow("pin 1: RTS") << 1 << "bueno" << conRTS;
    QTest::newRow("pin 0: DTR") << 0 << "bueno" << conDTR;
    QTest::newRow("pin 2: DTR") << 2 << "bueno" << conDTR;
    // Nothing to play keys nothing, but Esc lets the line go all the same.
    QTest::newRow("archivo que no abre") << 1 << "falla" << QStringList{"RTS0"};
    QTest::newRow("archivo de largo 0") << 0 << "vacio" << QStringList{"DTR0"};
}

void TestForm1::llamadorConF1YEsc()
{
    QFETCH(int, pin);
    QFETCH(QString, archivo);
    QFETCH(QStringList, linea);
    Ventana v;
    LineaSerieFalsa &ptt = *v.p.falsos.puertoPTT;
    ReproductorFalso &reproductor = *v.p.falsos.reproductor;
    QVERIFY(ptt.Abrir(QStringLiteral("COM3")));
    const QString audio = QStringLiteral("/cq/llamada.wav");
    v.p->config().ArcAudio = audio;
    v.p->config().PinPTT = pin;
    if (archivo == QLatin1String("falla"))
        reproductor.archivosQueFallan << audio;
    if (archivo == QLatin1String("vacio"))
        reproductor.longitud = 0;
    const bool suena = archivo == QLatin1String("bueno");

    v.Tecla(Qt::Key_F1);
    QStringList ordenes{"Cerrar", "Abrir " + audio};
    if (archivo != QLatin1String("falla"))
        ordenes << "Rebobinar";
    if (suena)
        ordenes << "Reproducir";
    QCOMPARE(reproductor.ordenes, ordenes);
    // The end of the file keeps the transmitter keyed: only Esc lets it go.
    if (suena)
        reproductor.Terminar();
    QCOMPARE(ptt.historial, linea.mid(0, linea.size() - 1));
    v.Tecla(Qt::Key_Escape);
    QCOMPARE(ptt.historial, linea);
    QCOMPARE(reproductor.ordenes.mid(ordenes.size()), (QStringList{"Detener", "Cerrar"}));
}

void TestForm1::tecleoAlAzarNoRompeNiPierde()
{
    Ventana v;
    v.LlenarLog(25);
    v.f->Check1->click(); // date and time open to typing too
    const QList<Qt::Key> teclas{Qt::Key_Return, Qt::Key_Tab,    Qt::Key_Backtab,
                                Qt::Key_F5,     Qt::Key_PageUp, Qt::Key_PageDown,
                                Qt::Key_Home,   Qt::Key_End,    Qt::Key_Backspace,
                                Qt::Key_Escape, Qt::Key_F1,     Qt::Key_Delete};
    const QString caracteres = QStringLiteral("lu0123456789abcxyzW/:,.'?- ");
    QRandomGenerator azar(Semilla());
    for (int i = 0; i < 1500; ++i) {
        QWidget *foco = v.Foco() ? v.Foco() : v.f.get();
        const int suerte = azar.bounded(6);
        if (suerte < 2) // mostly Enter, so that QSOs do go in now and then
            QTest::keyClick(foco, Qt::Key_Return);
        else if (suerte == 2)
            QTest::keyClick(foco, teclas.at(azar.bounded(int(teclas.size()))));
        else
            QTest::keyClicks(foco, QString(caracteres.at(azar.bounded(int(caracteres.size())))));
    }
    QApplication::processEvents();
    // Whatever was refused or entered, the stored QSOs are all still there and the view
    // counts them all.
    const qint64 n = v.p->almacen().CantidadQSOs(QStringLiteral("Pruebas"));
    QVERIFY2(n > 25, "el tecleo no llegó a ingresar ningún QSO");
    QCOMPARE(v.f->Label6->text(), QStringLiteral("Log: Pruebas, con %1 QSOs").arg(n));
}

QTEST_MAIN(TestForm1)
#include "test_form1.moc"
