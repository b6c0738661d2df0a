// The main window driven as an operator drives it: keys into the fields, Enter, the
// navigator, the closing roads. Fake services answer every message and question.
#include "core/rules/Validacion.h"
#include "gui/main/Form1.h"
#include "gui/main/Form18.h"
#include "gui/platform/DialogosQt.h"
#include "support/ContextoPrueba.h"
#include "support/Hecho.h"
#include "support/Modales.h"
#include "support/Semilla.h"

#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QHash>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
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
    // The files are written to the program folder before the start, as a former run left them.
    explicit Ventana(bool conConfig = true, const QMap<QString, QByteArray> &archivos = {})
    {
        if (conConfig)
            p.Escribir(QStringLiteral("config.ini"), ConfigPrueba);
        for (auto a = archivos.begin(); a != archivos.end(); ++a)
            p.Escribir(a.key(), a.value());
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

// What a screen reader's bridge does to the keys of the window system: it holds each one
// while it asks the reader whether it wants it, then hands a copy to the same widget.
class PuenteLector : public QObject
{
protected:
    bool eventFilter(QObject *destino, QEvent *evento) override
    {
        if ((evento->type() != QEvent::KeyPress && evento->type() != QEvent::KeyRelease) ||
            !evento->spontaneous() || !destino->isWidgetType())
            return false;
        const auto *k = static_cast<QKeyEvent *>(evento);
        auto copia = std::make_shared<QKeyEvent>(k->type(), k->key(), k->modifiers(), k->text(),
                                                 k->isAutoRepeat(), k->count());
        copia->setTimestamp(k->timestamp());
        QTimer::singleShot(0, this, [d = QPointer<QObject>(destino), copia] {
            if (d)
                QCoreApplication::sendEvent(d, copia.get());
        });
        return true;
    }
};

// Every message comes as a real modal box, answered from inside its own loop by a key or a
// click sent through the window system, as the operator answers it.
void CajasDeVerdad(DialogosFalso &d, const QString &respuesta)
{
    d.alLlegar = [&d, respuesta](const LlamadaDialogo &l) {
        if (d.llamadas.size() > 6) // a box that keeps coming back: enough to tell
            return;
        CuandoAparezcaModal([respuesta](QWidget *caja) {
            QWindow *ventana = caja->windowHandle();
            if (respuesta == QLatin1String("clic")) {
                QPushButton *aceptar = qobject_cast<QPushButton *>(
                    qobject_cast<QMessageBox *>(caja)->buttons().value(0));
                QTest::mouseClick(ventana, Qt::LeftButton, {},
                                  aceptar->mapTo(caja, aceptar->rect().center()));
            } else {
                const Qt::Key tecla = respuesta == QLatin1String("espacio") ? Qt::Key_Space
                                      : respuesta == QLatin1String("Esc")   ? Qt::Key_Escape
                                                                            : Qt::Key_Return;
                QTest::keyClick(ventana, tecla);
            }
        });
        DialogosQt real;
        if (l.tipo == LlamadaDialogo::Tipo::Alto)
            real.Alto(l.texto);
        else
            real.Exclamacion(l.texto);
    };
}

} // namespace

class TestForm1 : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void arranque();
    void qsoConElTecladoSolo();
    void horaManualEnHoraLocal();
    void fechaMalaConElRaton();
    void unClicUnaVez();
    void caminoDelEnter_data();
    void caminoDelEnter();
    void cajaDelEnterUnaVez_data();
    void cajaDelEnterUnaVez();
    void nombresParaElLector_data();
    void nombresParaElLector();
    void ordenDelTab_data();
    void ordenDelTab();
    void clicEnMhz_data();
    void clicEnMhz();
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
    void arranqueConMemoria_data();
    void arranqueConMemoria();
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

void TestForm1::unClicUnaVez()
{
    Ventana v;
    v.f->Check1->click();
    QWindow *ventana = v.f->windowHandle();
    const auto centro = [&](QWidget *w) { return w->mapTo(v.f.get(), w->rect().center()); };
    // Through the window, as the pointer arrives: one click is one change of base.
    QTest::mouseClick(ventana, Qt::LeftButton, {}, centro(v.f->Label11));
    QCOMPARE(v.f->Label11->text(), QStringLiteral("UTC"));
    QCOMPARE(v.f->Hora->text(), QStringLiteral("17:30"));
    QTest::qWait(QApplication::doubleClickInterval() + 50);
    QTest::mouseClick(ventana, Qt::LeftButton, {}, centro(v.f->Label11));
    QCOMPARE(v.f->Label11->text(), QStringLiteral("LU"));
    QCOMPARE(v.f->Hora->text(), QStringLiteral("14:30"));
    // One double click on the logo opens the site once.
    QTest::mouseDClick(ventana, Qt::LeftButton, {}, centro(v.f->Image1));
    QCOMPARE(v.p.falsos.escritorio->abiertos, QStringList{v.p->direcciones().Sitio});
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

void TestForm1::cajaDelEnterUnaVez_data()
{
    QTest::addColumn<QString>("corresponsal");
    QTest::addColumn<QString>("rse");
    QTest::addColumn<QString>("respuesta");
    QTest::addColumn<bool>("lector");
    QTest::addColumn<QString>("mensaje");
    for (const bool lector : {false, true}) {
        for (const char *respuesta : {"Enter", "espacio", "Esc", "clic"})
            QTest::addRow("falta, %s%s", respuesta, lector ? ", con lector" : "")
                << ""
                << "59" << respuesta << lector << "Falta el Corresponsal!";
        QTest::addRow("propia%s", lector ? ", con lector" : "")
            << "LU1AAA"
            << "59"
            << "Enter" << lector << "QSO con la propia estación???";
        QTest::addRow("operador%s", lector ? ", con lector" : "")
            << "LU2BBB"
            << "59"
            << "Enter" << lector << "QSO con el Operador???";
        QTest::addRow("reporte%s", lector ? ", con lector" : "")
            << "LU9ZZ"
            << ""
            << "Enter" << lector << "Reporte Enviado no válido!";
    }
}

void TestForm1::cajaDelEnterUnaVez()
{
    QFETCH(QString, corresponsal);
    QFETCH(QString, rse);
    QFETCH(QString, respuesta);
    QFETCH(bool, lector);
    QFETCH(QString, mensaje);
    PuenteLector puente;
    if (lector) // the bridge is there before any window, as the desktop's is
        qApp->installEventFilter(&puente);
    Ventana v;
    CajasDeVerdad(v.d(), respuesta);
    v.f->RSE->setText(rse);
    v.f->Corresponsal->setText(corresponsal);
    QWindow *ventana = v.f->windowHandle();
    // Twice: a box that only comes back from the second refusal on is caught too.
    for (int vez = 1; vez <= 2; ++vez) {
        QTest::keyClick(ventana, Qt::Key_Return);
        QTest::qWait(60);
        QCOMPARE(v.d().Textos(), QStringList(vez, mensaje));
        // The window manager gives the window back its activation once the box is gone.
        QApplication::setActiveWindow(v.f.get());
        QVERIFY(QTest::qWaitForWindowActive(v.f.get()));
    }
    QVERIFY(!QApplication::activeModalWidget());
    QCOMPARE(v.p->almacen().CantidadQSOs(QStringLiteral("Pruebas")), 0);
}

void TestForm1::nombresParaElLector_data()
{
    QTest::addColumn<QString>("ventana");
    QTest::addColumn<QString>("control");
    QTest::addColumn<QString>("nombre"); // empty: a value, read as what it shows
    const auto valor = [](const char *ventana, const char *control) {
        QTest::addRow("%s.%s", ventana, control) << ventana << control << QString();
    };
    const auto campo = [](const char *ventana, const char *control, const QString &rotulo) {
        QTest::addRow("%s.%s", ventana, control) << ventana << control << rotulo;
    };
    for (const char *v : {"Label2", "Label3", "Label8", "Label7", "Label11", "Label6", "Label4",
                          "txt_pagina", "txt_total", "Subida", "Bajada", "Modo", "Subtono"})
        valor("Form1", v);
    valor("Form2", "Label3");
    valor("Form2", "Label6");
    campo("Form1", "Corresponsal", "Corresponsal");
    campo("Form1", "Fecha", "Fecha");
    campo("Form1", "Hora", "Hora");
    campo("Form1", "RSE", "RS(e)");
    campo("Form1", "Combo1", "Modo");
    campo("Form1", "mhz", "MHz");
    campo("Form1", "Text1", "KHz");
    campo("Form1", "Text2", "GridLoc");
    campo("Form1", "Obs", "Observaciones");
    campo("Form1", "Check1", "QTR manual");
    campo("Form2", "Text1", "Señal Distintiva de la  Estación");
    campo("Form2", "Text3", "Diferencia UTC");
    campo("Form2", "Text4", "Grid Locator");
    campo("Form2", "user_lbn", "Usuario (email):");
}

void TestForm1::nombresParaElLector()
{
    QFETCH(QString, ventana);
    QFETCH(QString, control);
    QFETCH(QString, nombre);
    Ventana v;
    QWidget *raiz = ventana == QLatin1String("Form1") ? static_cast<QWidget *>(v.f.get())
                                                      : v.f->findChild<QWidget *>(ventana);
    QVERIFY(raiz);
    auto *w = raiz->findChild<QWidget *>(control);
    QVERIFY(w);
    QAccessibleInterface *lector = QAccessible::queryAccessibleInterface(w);
    QVERIFY(lector);
    if (!nombre.isEmpty()) {
        // A field is read by its caption, the label whose buddy it is. A list says its
        // choice as its name and the caption as its label.
        QStringList rotulos;
        for (const auto &[otro, relacion] : lector->relations(QAccessible::Label))
            rotulos << otro->text(QAccessible::Name);
        if (qobject_cast<QComboBox *>(w))
            QCOMPARE(rotulos.value(0), nombre); // then the frame around it
        else
            QCOMPARE(lector->text(QAccessible::Name), nombre);
        return;
    }
    // A value: whatever it shows now is what the operator hears.
    auto *etiqueta = qobject_cast<QLabel *>(w);
    QVERIFY(etiqueta);
    etiqueta->setText(QStringLiteral("LU7ABC 40m 12"));
    QVERIFY2(w->accessibleName().isEmpty(), qPrintable(w->accessibleName()));
    QCOMPARE(lector->text(QAccessible::Name), QStringLiteral("LU7ABC 40m 12"));
    for (const QLabel *rotulo : raiz->findChildren<QLabel *>())
        QVERIFY2(rotulo->buddy() != w, qPrintable(rotulo->text()));
}

void TestForm1::ordenDelTab_data()
{
    QTest::addColumn<bool>("manual");
    QTest::addColumn<QStringList>("orden");
    const QStringList resto{"Obs",    "Combo1", "mhz",   "Combo2",
                            "Check1", "Check3", "Text3", "Corresponsal"};
    // The date and time are the clock's and disabled: Tab passes them by.
    QTest::newRow("reloj") << false
                           << QStringList{"Corresponsal", "RSE", "RSR", "Text1", "Text2"} + resto;
    QTest::newRow("QTR manual") << true
                                << QStringList{"Corresponsal", "Fecha", "Hora", "RSE",
                                               "RSR",          "Text1", "Text2"} +
                                       resto;
}

void TestForm1::ordenDelTab()
{
    QFETCH(bool, manual);
    QFETCH(QStringList, orden);
    Ventana v;
    if (manual)
        v.f->Check1->click();
    v.f->Corresponsal->setFocus();
    QApplication::processEvents();
    QStringList visto{v.Foco()->objectName()};
    while (visto.size() < orden.size()) {
        QTest::keyClick(v.f->windowHandle(), Qt::Key_Tab);
        QWidget *foco = v.Foco();
        QVERIFY(foco);
        visto << foco->objectName();
        // Nothing the operator cannot see takes the focus: not a hidden control, nor one
        // that lies beyond the edge of a frame holding it.
        QVERIFY2(foco->isVisible(), qPrintable(foco->objectName()));
        for (QWidget *marco = foco->parentWidget(); marco != v.f.get();
             marco = marco->parentWidget()) {
            const QRect donde(foco->mapTo(marco, QPoint(0, 0)), foco->size());
            QVERIFY2(marco->rect().contains(donde),
                     qPrintable(foco->objectName() + " fuera de " + marco->objectName()));
        }
    }
    QCOMPARE(visto, orden);
    QVERIFY(v.d().llamadas.isEmpty());
}

void TestForm1::clicEnMhz_data()
{
    QTest::addColumn<QString>("mhz");
    QTest::addColumn<QString>("khz");
    QTest::addColumn<QString>("banda");
    QTest::addColumn<int>("avisos");
    QTest::addColumn<QString>("foco");
    // With no kHz the click does nothing at all: no band, no warning, the focus stays.
    QTest::newRow("kHz vacío") << "7"
                               << ""
                               << "80m" << 0 << "mhz";
    QTest::newRow("kHz vacío, 80 m") << "3"
                                     << ""
                                     << "80m" << 0 << "mhz";
    QTest::newRow("en banda") << "7"
                              << "100"
                              << "40m" << 0 << "Corresponsal";
    QTest::newRow("fuera de banda") << "3"
                                    << "100"
                                    << "80m" << 1 << "Corresponsal";
}

void TestForm1::clicEnMhz()
{
    QFETCH(QString, mhz);
    QFETCH(QString, khz);
    QFETCH(QString, banda);
    QFETCH(int, avisos);
    QFETCH(QString, foco);
    Ventana v;
    v.f->Text1->setText(khz);
    v.f->mhz->setFocus();
    QApplication::processEvents();
    const int elegido = v.f->mhz->findText(mhz);
    v.f->mhz->setCurrentIndex(elegido);
    Q_EMIT v.f->mhz->activated(elegido);
    QApplication::processEvents();
    QCOMPARE(v.f->Label7->text(), banda);
    QCOMPARE(v.d().Cantidad(Tipo::Exclamacion), avisos);
    QCOMPARE(v.Foco()->objectName(), foco);
    QCOMPARE(v.f->Text1->text(), khz);
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

void TestForm1::arranqueConMemoria_data()
{
    QTest::addColumn<QString>("archivo");
    QTest::addColumn<QByteArray>("contenido");
    QTest::addColumn<bool>("manual");
    QTest::addColumn<QString>("horaGuardada");
    // The clock runs at 14:30 local, three hours west of UTC.
    QTest::newRow("nada") << "" << QByteArray() << false << "17:30:00";
    QTest::newRow("QTR manual: 14:30 local es 17:30 UTC")
        << "mem.ini" << QByteArray("7.100\r\n40m\r\n1\r\n\r\n") << true << "17:30:00";
    QTest::newRow("QTR manual apagado")
        << "mem.ini" << QByteArray("7.100\r\n40m\r\n0\r\n\r\n") << false << "17:30:00";
    // Satellite mode is not there to choose a satellite: the tick must not hold the entry.
    QTest::newRow("Vía Satélite") << "memqSat.cfg" << QByteArray("1\r\n") << false << "17:30:00";
}

void TestForm1::arranqueConMemoria()
{
    QFETCH(QString, archivo);
    QFETCH(QByteArray, contenido);
    QFETCH(bool, manual);
    QFETCH(QString, horaGuardada);
    QMap<QString, QByteArray> archivos;
    if (!archivo.isEmpty())
        archivos.insert(archivo, contenido);
    Ventana v(true, archivos);
    // As if the box had been ticked by hand: the base shows, "QTR manual" blinks.
    QCOMPARE(v.f->Check1->isChecked(), manual);
    QCOMPARE(v.f->Label11->isVisible(), manual);
    QCOMPARE(v.f->Timer3->isActive(), manual);
    QCOMPARE(v.f->Fecha->isEnabled(), manual);

    // A whole QSO from the keyboard, the time typed when it is the operator's.
    v.Escribir(QStringLiteral("lu5ff"));
    v.Tecla(Qt::Key_Return);
    if (manual) {
        QCOMPARE(v.Foco(), v.f->Fecha);
        v.Tecla(Qt::Key_Return);
        QCOMPARE(v.Foco(), v.f->Hora);
        v.f->Hora->selectAll();
        v.Escribir(QStringLiteral("14:30"));
        v.Tecla(Qt::Key_Return);
    }
    for (QLineEdit *siguiente : {v.f->RSR, v.f->Text1, v.f->Text2, v.f->Obs}) {
        v.Tecla(Qt::Key_Return);
        QCOMPARE(v.Foco(), siguiente);
    }
    v.Tecla(Qt::Key_Return);
    QVERIFY2(v.d().llamadas.isEmpty(), qPrintable(v.d().Textos().join(" / ")));
    const auto q = v.p->almacen().UltimoQSO(QStringLiteral("Pruebas"));
    QVERIFY(q);
    QCOMPARE(q->Estacion, QStringLiteral("LU5FF"));
    QCOMPARE(q->Fecha, QStringLiteral("15/05/2024"));
    QCOMPARE(q->Hora, horaGuardada);
    QVERIFY(q->Nombre_Sat.isEmpty());
    QVERIFY(!v.f->ModoSatelite);
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
    // Now and then a whole right value typed over the field, as after a refusal: without it
    // a date the random keys spoilt would hold the entry for the rest of the run.
    const QHash<QString, QString> correctos{
        {QStringLiteral("Corresponsal"), QStringLiteral("lu5ff")},
        {QStringLiteral("Fecha"), QStringLiteral("15/05/2024")},
        {QStringLiteral("Hora"), QStringLiteral("14:30")},
        {QStringLiteral("RSE"), QStringLiteral("59")},
        {QStringLiteral("RSR"), QStringLiteral("59")},
        {QStringLiteral("Text2"), QStringLiteral("ff78")},
        {QStringLiteral("Obs"), QStringLiteral("73")}};
    // The kilohertz right for every band but one each: 30 m refuses the first, 80 m and
    // 12 m the second.
    const QStringList khzCorrectos{QStringLiteral("900"), QStringLiteral("120")};
    QRandomGenerator azar(Semilla());
    for (int i = 0; i < 1500; ++i) {
        QWidget *foco = v.Foco() ? v.Foco() : v.f.get();
        const int suerte = azar.bounded(6);
        auto *campo = qobject_cast<QLineEdit *>(foco);
        const bool conValor =
            campo && (campo == v.f->Text1 || correctos.contains(campo->objectName()));
        if (suerte < 2) // mostly Enter, so that QSOs do go in now and then
            QTest::keyClick(foco, Qt::Key_Return);
        else if (suerte == 2)
            QTest::keyClick(foco, teclas.at(azar.bounded(int(teclas.size()))));
        else if (suerte == 3 && conValor) {
            campo->selectAll();
            QTest::keyClicks(campo, campo == v.f->Text1
                                        ? khzCorrectos.at(azar.bounded(int(khzCorrectos.size())))
                                        : correctos.value(campo->objectName()));
        } else
            QTest::keyClicks(foco, QString(caracteres.at(azar.bounded(int(caracteres.size())))));
        // What the window system has queued (a list's popup closing, the window active
        // again) comes between two keys, as it does for the operator.
        QApplication::processEvents();
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
