// The main window driven as an operator drives it: keys into the fields, Enter, the
// navigator, the mouse. Fake services answer every message and question.
#include "core/rules/Validacion.h"
#include "gui/main/Form1.h"
#include "gui/platform/DialogosQt.h"
#include "support/ContextoPrueba.h"
#include "support/Hecho.h"
#include "support/Modales.h"
#include "support/Semilla.h"

#include <QTest>
#include <QtWidgets>

using Tipo = LlamadaDialogo::Tipo;

namespace {

const QByteArray ConfigPrueba = "Estacion=LU1AAA\r\nOperador=LU2BBB\r\nDiferUTC=-3\r\n"
                                "LogenUso=Pruebas\r\nGridLoca=FF78AB\r\nPantalla=1\r\n";
const QString Log = QStringLiteral("Pruebas");

// One line for the columns of a table: Columnas<QString, int>("campo", "cantidad").
template<typename... T, typename... N> void Columnas(N... nombres)
{
    (QTest::addColumn<T>(nombres), ...);
}

// A value of the row under test, read as QFETCH reads it, where it is used.
template<typename T = QString> const T &Dato(const char *columna)
{
    return *static_cast<T *>(QTest::qData(columna, qMetaTypeId<T>()));
}

// A main window over a fresh folder, past its start-up, with the timers held so that the
// test decides when each one ticks. The clock reads 15/05/2024 14:30 local.
struct Ventana
{
    // memoria is "file=contents", written to the program folder as a former run left it.
    explicit Ventana(bool conConfig = true, const QString &memoria = {})
    {
        if (conConfig)
            p.Escribir(QStringLiteral("config.ini"), ConfigPrueba);
        if (const qsizetype igual = memoria.indexOf(u'='); igual > 0)
            p.Escribir(memoria.left(igual), memoria.mid(igual + 1).toUtf8());
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
    void Tecla(Qt::Key k)
    {
        QTest::keyClick(Foco(), k);
        QApplication::processEvents();
    }
    void LlenarLog(int cantidad) // LU0XX on 01/01/2024, one a day after it
    {
        RegistroQSO q;
        q.Modo = QStringLiteral("SSB");
        q.Banda = QStringLiteral("40m");
        q.Hora = QStringLiteral("10:00:00");
        for (int i = 0; i < cantidad; ++i) {
            q.Estacion = QStringLiteral("LU%1XX").arg(i);
            q.Fecha = QDate(2024, 1, 1).addDays(i).toString(QStringLiteral("dd/MM/yyyy"));
            Hecho(p->almacen().AgregarQSO(q, Log));
        }
        f->ListView2->clear();
        f->CargarLog(1);
    }
    QString Primera() const { return f->ListView2->topLevelItem(0)->text(2); }
    qint64 Cantidad() { return p->almacen().CantidadQSOs(Log); }
    DialogosFalso &d() { return *p.falsos.dialogos; }

    ContextoPrueba p;
    std::unique_ptr<Form1> f;
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
void CajasDeVerdad(DialogosFalso &d, int tecla) // no key: a click on the button
{
    d.alLlegar = [&d, tecla](const LlamadaDialogo &l) {
        if (d.llamadas.size() > 6) // a box that keeps coming back: enough to tell
            return;
        CuandoAparezcaModal([tecla](QWidget *caja) {
            QWidget *aceptar = qobject_cast<QMessageBox *>(caja)->buttons().value(0);
            if (tecla)
                QTest::keyClick(caja->windowHandle(), Qt::Key(tecla));
            else
                QTest::mouseClick(caja->windowHandle(), Qt::LeftButton, {},
                                  aceptar->mapTo(caja, aceptar->rect().center()));
        });
        DialogosQt real;
        l.tipo == Tipo::Alto ? real.Alto(l.texto) : real.Exclamacion(l.texto);
    };
}

} // namespace

class TestForm1 : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void caminoDelEnter_data();
    void caminoDelEnter();
    void cajaDelEnterUnaVez_data();
    void cajaDelEnterUnaVez();
    void ingresoFallido_data();
    void ingresoFallido();
    void ratonUnaVez();
    void nombresParaElLector_data();
    void nombresParaElLector();
    void ordenDelTab_data();
    void ordenDelTab();
    void clicEnMhz_data();
    void clicEnMhz();
    void paginas_data();
    void paginas();
    void primerInicioFundaElLog();
    void ajustesDelContexto();
    void llamadorConF1YEsc_data();
    void llamadorConF1YEsc();
    void tecleoAlAzarNoRompeNiPierde();
};

void TestForm1::caminoDelEnter_data()
{
    // pasos: "typed>focus" for each Enter, the text typed over the field before it and where
    // it leaves the focus; avisos: the boxes in order, "Alto: " for the stop sign.
    Columnas<QString, QString, QString, QString>("memoria", "pasos", "avisos", "guardado");
    const auto fila = [](const char *nombre, const char *memoria, const char *pasos,
                         const char *avisos, const char *guardado) {
        QTest::newRow(nombre) << memoria << pasos << avisos << guardado;
    };
    const char *const manual = "mem.ini=7.100\r\n40m\r\n1\r\n\r\n";
    fila("teclado solo", "", "lu0xx>RSE|>RSR|>Text1|>Text2|ff78>Obs|it's ok>Corresponsal", "",
         "LU0XX|15/05/2024|17:30:00|80m|3.650|SSB|59|59|FF78|it's ok|Santa Cruz|");
    fila("negativas en orden, luego entra", "",
         ">Corresponsal|lu1aaa>Corresponsal|lu2bbb>Corresponsal|lu5ff>RSE|>RSR|>Text1|>Text2|"
         ">Obs|>Corresponsal",
         "Falta el Corresponsal! / Alto: QSO con la propia estación??? / "
         "Alto: QSO con el Operador???",
         "LU5FF|15/05/2024|17:30:00|80m|3.650|SSB|59|59|||Santa Fe|");
    // The remembered mode comes back with the reports of the phone modes: both refused.
    fila("CW recordado: reportes", "memModo.cfg=CW\r\n",
         "lu9zz>RSR|999>RSR|579>RSE|599>RSR|>Text1|>Text2|>Obs|>Corresponsal",
         "Reporte Recibido no válido! / Reporte Recibido no válido! / Reporte Enviado no válido!",
         "LU9ZZ|15/05/2024|17:30:00|80m|3.650|CW|599|579|||Antártida|");
    // Manual time remembered comes back as the ticked box: a local time goes in as UTC.
    fila("QTR manual recordado: 14:30 local es 17:30 UTC", manual,
         "lu5ff>Fecha|>Hora|14:30>RSE|>RSR|>Text1|>Text2|>Obs|>Corresponsal", "",
         "LU5FF|15/05/2024|17:30:00|40m|7.100|SSB|59|59|||Santa Fe|");
    // There is no satellite to choose yet: the remembered tick must not hold the entry.
    fila("Vía Satélite recordado", "memqSat.cfg=1\r\n",
         "lu5ff>RSE|>RSR|>Text1|>Text2|>Obs|>Corresponsal", "",
         "LU5FF|15/05/2024|17:30:00|80m|3.650|SSB|59|59|||Santa Fe|");
}

void TestForm1::caminoDelEnter()
{
    Ventana v(true, Dato("memoria"));
    QCOMPARE(v.f->Label11->isVisible(), v.f->Check1->isChecked());
    QStringList vistos, cajas;
    for (const QString &paso : Dato("pasos").split(u'|')) {
        if (!paso.startsWith(u'>')) {
            qobject_cast<QLineEdit *>(v.Foco())->selectAll();
            QTest::keyClicks(v.Foco(), paso.section(u'>', 0, 0));
        }
        v.Tecla(Qt::Key_Return);
        vistos << paso.section(u'>', 0, 0) + u'>' + v.Foco()->objectName();
    }
    QCOMPARE(vistos.join(u'|'), Dato("pasos"));
    for (const LlamadaDialogo &l : v.d().llamadas)
        cajas << (l.tipo == Tipo::Alto ? QStringLiteral("Alto: ") : QString()) + l.texto;
    QCOMPARE(cajas.join(QStringLiteral(" / ")), Dato("avisos"));
    const auto q = v.p->almacen().UltimoQSO(Log);
    // What changes from row to row; the settings' station and grid, and the LbN mark of a QSO
    // typed here, are the same in every one.
    QCOMPARE(q ? QStringList({q->Estacion, q->Fecha, q->Hora, q->Banda, q->Frecuencia, q->Modo,
                              q->RSE, q->RSR, q->SuGrid, q->Obs, q->Argento, q->Nombre_Sat})
                     .join(u'|')
               : QString(),
             Dato("guardado"));
    QCOMPARE(q->MyCall + ' ' + q->Operador + ' ' + q->MiGrid + ' ' + q->LbN,
             QStringLiteral("LU1AAA LU2BBB FF78AB 1"));
    // Ready for the next one: the callsign field empty, the row counted and in view.
    QCOMPARE(v.f->Corresponsal->text() + v.f->Label6->text() + ' ' + v.Primera() + ' ' +
                 v.f->Label4->text(),
             "Log: Pruebas, con 1 QSOs " + q->Estacion + ' ' + QString::number(q->id));
}

void TestForm1::cajaDelEnterUnaVez_data()
{
    Columnas<QString, int, bool, QString>("corresponsal", "tecla", "lector", "mensaje");
    const auto fila = [](const char *nombre, const char *c, int tecla, bool lector,
                         const char *mensaje) {
        QTest::newRow(nombre) << c << tecla << lector << mensaje;
    };
    for (int tecla : {int(Qt::Key_Return), int(Qt::Key_Space), int(Qt::Key_Escape), 0})
        fila(qPrintable(QStringLiteral("falta, tecla %1").arg(tecla)), "", tecla, false,
             "Falta el Corresponsal!");
    fila("falta, con lector", "", Qt::Key_Return, true, "Falta el Corresponsal!");
    fila("propia, con lector", "LU1AAA", Qt::Key_Return, true, "QSO con la propia estación???");
}

void TestForm1::cajaDelEnterUnaVez()
{
    PuenteLector puente;
    if (Dato<bool>("lector")) // the bridge is there before any window, as the desktop's is
        qApp->installEventFilter(&puente);
    Ventana v;
    CajasDeVerdad(v.d(), Dato<int>("tecla"));
    v.f->Corresponsal->setText(Dato("corresponsal"));
    // Twice: a box that only comes back from the second refusal on is caught too.
    for (int vez = 1; vez <= 2; ++vez) {
        QTest::keyClick(v.f->windowHandle(), Qt::Key_Return);
        QTest::qWait(60);
        QCOMPARE(v.d().Textos(), QStringList(vez, Dato("mensaje")));
        // The window manager gives the window back its activation once the box is gone.
        QApplication::setActiveWindow(v.f.get());
        QVERIFY(QTest::qWaitForWindowActive(v.f.get()));
    }
    QVERIFY(!QApplication::activeModalWidget());
    QCOMPARE(v.Cantidad(), 0);
}

void TestForm1::ingresoFallido_data()
{
    Columnas<bool, QString>("fechaMala", "mensaje"); // else the store fails the write
    QTest::newRow("fecha imposible") << true << MensajeFecha(QStringLiteral("31/02/2024"));
    QTest::newRow("almacén que falla") << false << QStringLiteral("No se pudo guardar el QSO");
}

void TestForm1::ingresoFallido()
{
    Ventana v;
    v.f->Check1->click();
    if (Dato<bool>("fechaMala"))
        v.f->Fecha->setText(QStringLiteral("31/02/2024"));
    else
        v.p->almacen().Cerrar();
    v.f->Corresponsal->setText(QStringLiteral("LU5FF"));
    v.f->Text2->setText(QStringLiteral("FF78"));
    v.f->Obs->setText(QStringLiteral("nota"));
    v.f->Command2->click();
    QVERIFY2(v.d().Textos().value(0).startsWith(Dato("mensaje")), qPrintable(v.d().UltimoTexto()));
    // Nothing typed is lost: the fields hold it for another try.
    QCOMPARE(v.f->Corresponsal->text() + ' ' + v.f->Text2->text() + ' ' + v.f->Obs->text(),
             QStringLiteral("LU5FF FF78 nota"));
    QCOMPARE(v.Cantidad(), 0);
}

void TestForm1::ratonUnaVez()
{
    Ventana v;
    v.f->Check1->click();
    QWindow *ventana = v.f->windowHandle();
    const auto centro = [&](QWidget *w) { return w->mapTo(v.f.get(), w->rect().center()); };
    // Through the window, as the pointer arrives: one click is one change of base.
    QTest::mouseClick(ventana, Qt::LeftButton, {}, centro(v.f->Label11));
    QCOMPARE(v.f->Label11->text() + ' ' + v.f->Hora->text(), QStringLiteral("UTC 17:30"));
    QTest::qWait(QApplication::doubleClickInterval() + 50);
    QTest::mouseClick(ventana, Qt::LeftButton, {}, centro(v.f->Label11));
    QCOMPARE(v.f->Label11->text() + ' ' + v.f->Hora->text(), QStringLiteral("LU 14:30"));
    // One double click on the logo opens the site once.
    QTest::mouseDClick(ventana, Qt::LeftButton, {}, centro(v.f->Image1));
    QCOMPARE(v.p.falsos.escritorio->abiertos, QStringList{v.p->direcciones().Sitio});
    QStringList editados;
    v.f->abrirEdicion = [&](const FilaQSO &f, bool) { editados << f.Estacion; };
    v.LlenarLog(3);
    // Sorted by callsign, the top row is LU0XX: a double click opens that row, found by its
    // id, not the one at its place in the store. F5 opens the newest, LU2XX.
    Q_EMIT v.f->ListView2->header()->sectionClicked(2);
    const QRect fila = v.f->ListView2->visualItemRect(v.f->ListView2->topLevelItem(0));
    QTest::mouseDClick(ventana, Qt::LeftButton, {},
                       v.f->ListView2->viewport()->mapTo(v.f.get(), fila.center()));
    v.f->Corresponsal->setFocus();
    v.Tecla(Qt::Key_F5);
    // Entered now with an older date: F5 edits the one just entered, not the newest.
    v.f->Fecha->setText(QStringLiteral("01/01/2000"));
    v.f->Corresponsal->setText(QStringLiteral("LU7DD"));
    v.f->Command2->click();
    v.Tecla(Qt::Key_F5);
    QCOMPARE(editados, (QStringList{"LU0XX", "LU2XX", "LU7DD"}));
}

void TestForm1::nombresParaElLector_data()
{
    // window.control=caption; a value, with no caption, is read as what it shows.
    Columnas<QString, QString, QString>("ventana", "control", "nombre");
    for (const QString &c :
         QStringLiteral("Form1.Label2=|Form1.Label3=|Form1.Label8=|Form1.Label7=|Form1.Label11=|"
                        "Form1.Label6=|Form1.Label4=|Form1.txt_pagina=|Form1.txt_total=|"
                        "Form1.Subida=|Form1.Bajada=|Form1.Modo=|Form1.Subtono=|Form2.Label3=|"
                        "Form2.Label6=|Form1.Corresponsal=Corresponsal|Form1.Fecha=Fecha|"
                        "Form1.Hora=Hora|Form1.RSE=RS(e)|Form1.Combo1=Modo|Form1.mhz=MHz|"
                        "Form1.Text1=KHz|Form1.Text2=GridLoc|Form1.Obs=Observaciones|"
                        "Form1.Check1=QTR manual|Form2.Text1=Señal Distintiva de la  Estación|"
                        "Form2.Text3=Diferencia UTC|Form2.Text4=Grid Locator|"
                        "Form2.user_lbn=Usuario (email):")
             .split(u'|'))
        QTest::newRow(qPrintable(c.section(u'=', 0, 0)))
            << c.section(u'.', 0, 0) << c.section(u'.', 1).section(u'=', 0, 0)
            << c.section(u'=', 1);
}

void TestForm1::nombresParaElLector()
{
    const QString &nombre = Dato("nombre");
    Ventana v;
    QWidget *raiz = Dato("ventana") == QLatin1String("Form1")
                        ? static_cast<QWidget *>(v.f.get())
                        : v.f->findChild<QWidget *>(Dato("ventana"));
    auto *w = raiz->findChild<QWidget *>(Dato("control"));
    QVERIFY(w);
    QAccessibleInterface *lector = QAccessible::queryAccessibleInterface(w);
    if (!nombre.isEmpty()) {
        // A field is read by its caption, the label whose buddy it is. A list says its
        // choice as its name and the caption as its label.
        QStringList rotulos;
        for (const auto &[otro, relacion] : lector->relations(QAccessible::Label))
            rotulos << otro->text(QAccessible::Name);
        QCOMPARE(qobject_cast<QComboBox *>(w) ? rotulos.value(0) : lector->text(QAccessible::Name),
                 nombre);
        return;
    }
    // A value: whatever it shows now is what the operator hears.
    qobject_cast<QLabel *>(w)->setText(QStringLiteral("LU7ABC 40m 12"));
    QVERIFY2(w->accessibleName().isEmpty(), qPrintable(w->accessibleName()));
    QCOMPARE(lector->text(QAccessible::Name), QStringLiteral("LU7ABC 40m 12"));
    for (const QLabel *rotulo : raiz->findChildren<QLabel *>())
        QVERIFY2(rotulo->buddy() != w, qPrintable(rotulo->text()));
}

void TestForm1::ordenDelTab_data()
{
    Columnas<bool, QString>("manual", "orden");
    // The date and time are the clock's and disabled: Tab passes them by.
    const QString resto = QStringLiteral("Obs Combo1 mhz Combo2 Check1 Check3 Text3 Corresponsal");
    QTest::newRow("reloj") << false << "Corresponsal RSE RSR Text1 Text2 " + resto;
    QTest::newRow("QTR manual") << true << "Corresponsal Fecha Hora RSE RSR Text1 Text2 " + resto;
}

void TestForm1::ordenDelTab()
{
    const QString &orden = Dato("orden");
    Ventana v;
    if (Dato<bool>("manual"))
        v.f->Check1->click();
    QStringList visto{v.Foco()->objectName()};
    while (visto.size() <= orden.count(u' ')) {
        QTest::keyClick(v.f->windowHandle(), Qt::Key_Tab);
        QWidget *foco = v.Foco();
        QVERIFY(foco);
        visto << foco->objectName();
        // Nothing the operator cannot see takes the focus: not a hidden control, nor one
        // that lies beyond the edge of a frame holding it.
        QVERIFY2(foco->isVisible(), qPrintable(foco->objectName()));
        for (QWidget *marco = foco->parentWidget(); marco != v.f.get();
             marco = marco->parentWidget())
            QVERIFY2(marco->rect().contains(QRect(foco->mapTo(marco, QPoint()), foco->size())),
                     qPrintable(foco->objectName() + " fuera de " + marco->objectName()));
    }
    QCOMPARE(visto.join(u' '), orden);
    QVERIFY(v.d().llamadas.isEmpty());
}

void TestForm1::clicEnMhz_data()
{
    Columnas<QString, QString, QString>("mhz", "khz", "queda"); // band, warnings, focus, kHz
    // With no kHz the click does nothing at all: no band, no warning, the focus stays.
    QTest::newRow("kHz vacío") << "7" << QString() << "80m 0 mhz";
    QTest::newRow("kHz vacío, 80 m") << "3" << QString() << "80m 0 mhz";
    QTest::newRow("en banda") << "7" << QStringLiteral("100") << "40m 0 Corresponsal 100";
    // Judged once on the click: leaving the kHz for the callsign is not a second warning.
    QTest::newRow("fuera de banda") << "3" << QStringLiteral("100") << "80m 1 Corresponsal 100";
}

void TestForm1::clicEnMhz()
{
    Ventana v;
    v.f->Text1->setText(Dato("khz"));
    v.f->mhz->setFocus();
    QApplication::processEvents();
    v.f->mhz->setCurrentText(Dato("mhz"));
    Q_EMIT v.f->mhz->activated(v.f->mhz->currentIndex());
    QApplication::processEvents();
    QCOMPARE(QStringList({v.f->Label7->text(), QString::number(v.d().Cantidad(Tipo::Exclamacion)),
                          v.Foco()->objectName(), v.f->Text1->text()})
                 .join(u' ')
                 .trimmed(),
             Dato("queda"));
}

void TestForm1::paginas_data()
{
    // Page, pages, rows, the top row, and how many of the back and forth buttons lead
    // anywhere: at the start, then after End.
    Columnas<int, QString, QString>("cantidad", "inicio", "fin");
    QTest::newRow("vacío") << 0 << "1 1 0  0 0" << QString();
    QTest::newRow("20") << 20 << "1 1 20 LU19XX 0 0" << QString();
    QTest::newRow("21") << 21 << "1 2 20 LU20XX 0 2" << QStringLiteral("2 2 1 LU0XX 2 0");
    QTest::newRow("45") << 45 << "1 3 20 LU44XX 0 2" << QStringLiteral("3 3 5 LU4XX 2 0");
}

void TestForm1::paginas()
{
    const int cantidad = Dato<int>("cantidad");
    Ventana v;
    v.LlenarLog(cantidad);
    const auto estado = [&] {
        const int filas = v.f->ListView2->topLevelItemCount();
        return QStringLiteral("%1 %2 %3 %4 %5 %6")
            .arg(v.f->txt_pagina->text(), v.f->txt_total->text(), QString::number(filas),
                 filas ? v.Primera() : QString(),
                 QString::number(v.f->anterior->isEnabled() + v.f->menos->isEnabled()),
                 QString::number(v.f->mas->isEnabled() + v.f->ultima->isEnabled()));
    };
    QCOMPARE(v.f->Label6->text(), QStringLiteral("Log: Pruebas, con %1 QSOs").arg(cantidad));
    QCOMPARE(estado(), Dato("inicio"));
    if (Dato("fin").isEmpty())
        return;
    v.Tecla(Qt::Key_End); // End and Home reach the pages from any field
    QCOMPARE(estado(), Dato("fin"));
    v.Tecla(Qt::Key_Home);
    QCOMPARE(estado(), Dato("inicio"));
}

void TestForm1::primerInicioFundaElLog()
{
    Ventana v(false);
    CuandoAparezcaModal([](QWidget *form2) {
        QTest::keyClicks(form2->findChild<QLineEdit *>(QStringLiteral("Text1")),
                         QStringLiteral("lu1abc"));
        form2->findChild<QPushButton *>(QStringLiteral("Command1"))->click();
    });
    v.f->Timer2_Timer();
    QVERIFY(!v.p->ConfigInicial);
    QCOMPARE(v.f->Label2->text() + ' ' + v.f->Frame1->title(),
             QStringLiteral("LU1ABC Log inicial"));
    // The first log is offered by the list of logs before its first QSO.
    QCOMPARE(v.p->almacen().Logs(), QStringList{QStringLiteral("Log inicial")});
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
    v.p->LogenUso = Log;
    v.f->AplicarConfiguracion();
    v.f->Timer1_Timer();
    QCOMPARE(v.f->Label2->text() + ' ' + v.f->Hora->text(), QStringLiteral("LU3CC 12:30"));
    v.f->Corresponsal->setText(QStringLiteral("LU5FF"));
    v.f->Command2->click();
    const auto q = v.p->almacen().UltimoQSO(Log);
    QCOMPARE(q->MyCall + ' ' + q->MiGrid + ' ' + q->Hora, QStringLiteral("LU3CC GF05 12:30:00"));
}

void TestForm1::llamadorConF1YEsc_data()
{
    // The player's orders on F1, and the PTT line after F1, then after Esc.
    Columnas<int, QString, QString, QString>("pin", "archivo", "ordenes", "linea");
    const QString suena = QStringLiteral("Cerrar Abrir Rebobinar Reproducir");
    QTest::newRow("pin 1: RTS") << 1 << "bueno" << suena << QStringLiteral("RTS1 RTS0");
    QTest::newRow("pin 0: DTR") << 0 << "bueno" << suena << QStringLiteral("DTR1 DTR0");
    QTest::newRow("pin 2: DTR") << 2 << "bueno" << suena << QStringLiteral("DTR1 DTR0");
    // Nothing to play keys nothing, but Esc lets the line go all the same.
    QTest::newRow("no abre") << 1 << "falla" << QStringLiteral("Cerrar Abrir") << "RTS0";
    QTest::newRow("largo 0") << 0 << "vacio" << QStringLiteral("Cerrar Abrir Rebobinar") << "DTR0";
}

void TestForm1::llamadorConF1YEsc()
{
    const QString &archivo = Dato("archivo"), &ordenes = Dato("ordenes"), &linea = Dato("linea");
    Ventana v;
    LineaSerieFalsa &ptt = *v.p.falsos.puertoPTT;
    ReproductorFalso &reproductor = *v.p.falsos.reproductor;
    QVERIFY(ptt.Abrir(QStringLiteral("COM3")));
    const QString audio = QStringLiteral("/cq/llamada.wav");
    v.p->config().ArcAudio = audio;
    v.p->config().PinPTT = Dato<int>("pin");
    if (archivo == QLatin1String("falla"))
        reproductor.archivosQueFallan << audio;
    if (archivo == QLatin1String("vacio"))
        reproductor.longitud = 0;
    v.Tecla(Qt::Key_F1);
    QCOMPARE(reproductor.ordenes.join(u' '), QString(ordenes).replace("Abrir", "Abrir " + audio));
    // The end of the file keeps the transmitter keyed: only Esc lets it go.
    if (ordenes.endsWith(QLatin1String("Reproducir")))
        reproductor.Terminar();
    QCOMPARE(ptt.historial.join(u' '), linea.section(u' ', 0, -2));
    v.Tecla(Qt::Key_Escape);
    QCOMPARE(ptt.historial.join(u' '), linea);
    QCOMPARE(reproductor.ordenes.mid(ordenes.count(u' ') + 1), (QStringList{"Detener", "Cerrar"}));
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
    // a date the random keys spoilt would hold the entry for the rest of the run. The kHz
    // are right for every band but one each: 30 m refuses 900, 80 m and 12 m refuse 120.
    QHash<QString, QStringList> correctos;
    for (const QString &c : QStringLiteral("Corresponsal=lu5ff|Fecha=15/05/2024|Hora=14:30|RSE=59|"
                                           "RSR=59|Text1=900,120|Text2=ff78|Obs=73")
                                .split(u'|'))
        correctos.insert(c.section(u'=', 0, 0), c.section(u'=', 1).split(u','));
    QRandomGenerator azar(Semilla());
    for (int i = 0; i < 1500; ++i) {
        QWidget *foco = v.Foco() ? v.Foco() : v.f.get();
        const int suerte = azar.bounded(6);
        auto *campo = qobject_cast<QLineEdit *>(foco);
        const QStringList valores = campo ? correctos.value(campo->objectName()) : QStringList();
        if (suerte < 2) // mostly Enter, so that QSOs do go in now and then
            QTest::keyClick(foco, Qt::Key_Return);
        else if (suerte == 2)
            QTest::keyClick(foco, teclas.at(azar.bounded(int(teclas.size()))));
        else if (suerte == 3 && !valores.isEmpty()) {
            campo->selectAll();
            QTest::keyClicks(campo, valores.at(azar.bounded(int(valores.size()))));
        } else
            QTest::keyClicks(foco, QString(caracteres.at(azar.bounded(int(caracteres.size())))));
        // What the window system has queued (a list's popup closing, the window active
        // again) comes between two keys, as it does for the operator.
        QApplication::processEvents();
    }
    // Whatever was refused or entered, the stored QSOs are all still there and the view
    // counts them all.
    QVERIFY2(v.Cantidad() > 25, "el tecleo no llegó a ingresar ningún QSO");
    QCOMPARE(v.f->Label6->text(), QStringLiteral("Log: Pruebas, con %1 QSOs").arg(v.Cantidad()));
}

QTEST_MAIN(TestForm1)
#include "test_form1.moc"
