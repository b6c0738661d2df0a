// The named logs and the callsign history as the operator meets them in the main
// window: "Abrir Log ..." by mouse and by keyboard, "Nuevo Log" with its refusals,
// "Borrar Log" down to "Base 1", and Form17 reached by Ctrl+X and left with Esc.
#include "gui/main/Form1.h"
#include "gui/main/Form17.h"
#include "gui/main/Form3.h"
#include "support/ContextoPrueba.h"
#include "support/Hecho.h"
#include "support/Modales.h"

#include <QAction>
#include <QApplication>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>

using Tipo = LlamadaDialogo::Tipo;

namespace {

RegistroQSO Qso(const QString &estacion, const QString &fecha, const QString &hora = "10:00:00")
{
    RegistroQSO q;
    q.Estacion = estacion, q.Fecha = fecha, q.Hora = hora;
    q.Banda = QStringLiteral("40m"), q.Modo = QStringLiteral("SSB");
    q.MyCall = QStringLiteral("LU1AAA");
    return q;
}

// A main window over a fresh folder, past its start-up on the log "Pruebas", with the
// timers held. The logs of the store are made before the window loads its view.
struct Ventana
{
    explicit Ventana(const std::function<void(Almacen &)> &preparar)
    {
        p.Escribir(QStringLiteral("config.ini"), "Estacion=LU1AAA\r\nOperador=LU2BBB\r\n"
                                                 "LogenUso=Pruebas\r\nPantalla=1\r\n");
        p->Terminar = [](int) {};
        preparar(p->almacen());
        f = std::make_unique<Form1>(p.ctx());
        for (QTimer *t : {f->Timer1, f->Timer2, f->Timer7})
            t->stop();
        f->show();
        QApplication::setActiveWindow(f.get());
        [[maybe_unused]] const bool activa = QTest::qWaitForWindowActive(f.get());
        f->Timer2_Timer();
        f->Timer1_Timer();
        f->Corresponsal->setFocus();
        config = p.Leer(QStringLiteral("config.ini"));
    }

    DialogosFalso &d() { return *p.falsos.dialogos; }
    // The log in use everywhere it shows: the context, its caption and count, the frame
    // and config.ini, which is left untouched when the log in use did not change.
    void EnUso(const QString &log, int qsos)
    {
        QCOMPARE(p->LogenUso, log);
        QCOMPARE(f->Label6->text(), QStringLiteral("Log: %1, con %2 QSOs").arg(log).arg(qsos));
        QCOMPARE(f->Frame1->title(), log);
        QCOMPARE(f->ListView2->topLevelItemCount(), qsos);
        const QByteArray linea = "\r\nLogenUso=" + log.toLatin1() + "\r\n";
        const QByteArray ahora = p.Leer(QStringLiteral("config.ini"));
        QVERIFY2(ahora.contains(linea), ahora.constData());
        if (config.contains(linea))
            QCOMPARE(ahora, config);
    }

    ContextoPrueba p;
    std::unique_ptr<Form1> f;
    QByteArray config; // as it was after the start
};

void TresLogs(Almacen &a)
{
    Hecho(a.AgregarLogVacio(QStringLiteral("Zeta")));
    Hecho(a.AgregarQSO(Qso(QStringLiteral("LU5DX"), QStringLiteral("05/05/2020")),
                       QStringLiteral("O'Brien")));
    for (const char *s : {"LU1XX", "LU2XX", "LU3XX"})
        Hecho(a.AgregarQSO(Qso(QString::fromLatin1(s), QStringLiteral("01/01/2024")),
                           QStringLiteral("Pruebas")));
}

QStringList Entradas(const QListWidget *lista)
{
    QStringList textos;
    for (int i = 0; i < lista->count(); ++i)
        textos << lista->item(i)->text();
    return textos;
}

} // namespace

class TestLogsVentanas : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void abrirLog_data();
    void abrirLog();
    void nuevoLog_data();
    void nuevoLog();
    void borrarLog();
    void historial();
};

void TestLogsVentanas::abrirLog_data()
{
    QTest::addColumn<QList<int>>("teclas"); // empty: a click on "O'Brien"
    QTest::addColumn<QString>("log");
    QTest::addColumn<int>("qsos");
    QTest::newRow("clic") << QList<int>() << "O'Brien" << 1;
    // From the log in use, up once to "O'Brien": moving alone opens nothing.
    QTest::newRow("flechas y Enter") << QList<int>({Qt::Key_Up, Qt::Key_Return}) << "O'Brien" << 1;
    QTest::newRow("flecha y Esc") << QList<int>({Qt::Key_Up, Qt::Key_Escape}) << "Pruebas" << 3;
}

void TestLogsVentanas::abrirLog()
{
    QFETCH(QList<int>, teclas);
    QFETCH(QString, log);
    QFETCH(int, qsos);
    Ventana v(TresLogs);
    QStringList vistas;
    QString titulo, actual;
    CuandoAparezcaModal([&](QWidget *w) {
        auto *form3 = qobject_cast<Form3 *>(w);
        if (!form3)
            return;
        titulo = form3->windowTitle();
        vistas = Entradas(form3->List1);
        actual = form3->List1->currentItem() ? form3->List1->currentItem()->text() : QString();
        for (int tecla : teclas)
            QTest::keyClick(form3->List1, Qt::Key(tecla));
        if (teclas.isEmpty())
            QTest::mouseClick(form3->List1->viewport(), Qt::LeftButton, {},
                              form3->List1->visualItemRect(form3->List1->item(0)).center());
        // A choice that did not close the window fails the checks below, not the clock.
        if (form3->isVisible())
            form3->reject();
    });
    v.f->alog->trigger();

    QCOMPARE(titulo, QStringLiteral("Abrir Log ..."));
    QCOMPARE(vistas, QStringList({"O'Brien (1 QSOs)", "Pruebas (3 QSOs)", "Zeta (0 QSOs)"}));
    QCOMPARE(actual, QStringLiteral("Pruebas (3 QSOs)"));
    v.EnUso(log, qsos);
    QVERIFY(!QApplication::activeModalWidget());
    QVERIFY(v.d().llamadas.isEmpty());
}

void TestLogsVentanas::nuevoLog_data()
{
    using Respuestas = QList<std::optional<QString>>;
    QTest::addColumn<Respuestas>("respuestas");
    QTest::addColumn<QStringList>("avisos");
    QTest::addColumn<QString>("logEnUso");
    QTest::newRow("con apóstrofo")
        << Respuestas{QStringLiteral("Log d'Ana")} << QStringList() << "Log d'Ana";
    QTest::newRow("tomado en otro caso, y otra vez")
        << Respuestas{QStringLiteral("pruebas"), QStringLiteral("o'BRIEN"), QStringLiteral("Otro")}
        << QStringList({"El log pruebas ya existe!", "El log o'BRIEN ya existe!"}) << "Otro";
    QTest::newRow("tomado y luego cancelar")
        << Respuestas{QStringLiteral("ZETA"), std::nullopt}
        << QStringList({"El log ZETA ya existe!"}) << "Pruebas";
}

void TestLogsVentanas::nuevoLog()
{
    using Respuestas = QList<std::optional<QString>>;
    QFETCH(Respuestas, respuestas);
    QFETCH(QStringList, avisos);
    QFETCH(QString, logEnUso);
    Ventana v(TresLogs);
    for (const auto &r : respuestas)
        v.d().entradas.enqueue(r);

    v.f->nuevo->trigger();

    // Asked once per answer given, the same question every time.
    QCOMPARE(v.d().Textos(Tipo::Entrada),
             QStringList(QList<QString>(respuestas.size(),
                                        QStringLiteral("Ingrese el nombre del nuevo Log"))));
    QCOMPARE(v.d().Textos(Tipo::Exclamacion), avisos);
    const bool nuevo = logEnUso != QLatin1String("Pruebas");
    QCOMPARE(v.p->almacen().Logs().size(), nuevo ? 4 : 3);
    QVERIFY(v.p->almacen().Logs().contains(logEnUso));
    v.EnUso(logEnUso, nuevo ? 0 : 3);
}

void TestLogsVentanas::borrarLog()
{
    Ventana v([](Almacen &a) {
        for (const char *log : {"Pruebas", "O'Brien", "alfa"}) {
            Hecho(a.AgregarQSO(Qso("LU1XX", "01/01/2024"), QString::fromLatin1(log)));
            Hecho(a.AgregarQSO(Qso("LU2XX", "02/01/2024"), QString::fromLatin1(log)));
        }
    });
    // Each step deletes the log in use, after opening another if named; the one that
    // takes over is the first left, "alfa" whatever the case of its letters.
    const struct
    {
        const char *abrir;
        bool si;
        const char *despues;
        QStringList logs;
    } pasos[] = {{"", false, "Pruebas", {"alfa", "O'Brien", "Pruebas"}},
                 {"O'Brien", true, "alfa", {"alfa", "Pruebas"}},
                 {"", true, "Pruebas", {"Pruebas"}},
                 {"", true, "Base 1", {}}};
    for (const auto &paso : pasos) {
        if (*paso.abrir)
            v.f->AbrirLog(QString::fromLatin1(paso.abrir));
        const QString enUso = v.p->LogenUso;
        v.config = v.p.Leer(QStringLiteral("config.ini"));
        v.d().Limpiar();
        v.d().respuestasSiNo.enqueue(paso.si);
        v.f->borralog->trigger();
        QCOMPARE(v.d().Textos(), QStringList{QStringLiteral("Esta seguro de borrar Log: %1, con 2 "
                                                            "QSOs\r\n\r\nlos QSOs no podrán "
                                                            "recuperarse!")
                                                 .arg(enUso)});
        QCOMPARE(v.p->almacen().Logs(), paso.logs);
        QCOMPARE(v.p->almacen().HistorialDe(enUso, QStringLiteral("LU")).size(), paso.si ? 0 : 2);
        v.EnUso(QString::fromLatin1(paso.despues), paso.logs.isEmpty() ? 0 : 2);
        if (QTest::currentTestFailed())
            return;
    }
}

void TestLogsVentanas::historial()
{
    Ventana v([](Almacen &a) {
        const QString log = QStringLiteral("Pruebas");
        Hecho(a.AgregarQSO(Qso("LU0XX", "02/01/2010", "08:00:00"), log));
        Hecho(a.AgregarQSO(Qso("LU0XX/P", "31/12/2009", "22:15:00"), log));
        for (const char *otra : {"LU1XX", "LU10XX", "LU0XXB"})
            Hecho(a.AgregarQSO(Qso(QString::fromLatin1(otra), "01/01/2009"), log));
        Hecho(a.AgregarQSO(Qso("LU0XXC", "01/01/2009"), QStringLiteral("Otro")));
    });
    QTest::keyClicks(v.f->Corresponsal, QStringLiteral("lu0xx"));

    QString titulo;
    QStringList lineas;
    bool cerrada = false;
    CuandoAparezcaModal([&](QWidget *w) {
        auto *form17 = qobject_cast<Form17 *>(w);
        if (!form17)
            return;
        titulo = form17->windowTitle();
        lineas = Entradas(form17->List1);
        // The columns line up only in a fixed-pitch font.
        QVERIFY(form17->List1->font().fixedPitch() ||
                QFontInfo(form17->List1->font()).fixedPitch());
        QTest::keyClick(form17->List1, Qt::Key_Escape);
        cerrada = !form17->isVisible();
        if (!cerrada)
            form17->reject();
    });
    QTest::keyClick(v.f->Corresponsal, Qt::Key_X, Qt::ControlModifier);

    // Oldest first by the calendar; LU1XX, LU10XX and the other log's LU0XXC stay out.
    QCOMPARE(titulo, QStringLiteral("LU0XX"));
    QCOMPARE(lineas,
             QStringList({"          MiCall           SuCall  Banda   Modo    Fecha    Hora",
                          "          LU1AAA|          LU0XXB|   40m|   SSB|01/01/2009|10:00:00",
                          "          LU1AAA|         LU0XX/P|   40m|   SSB|31/12/2009|22:15:00",
                          "          LU1AAA|           LU0XX|   40m|   SSB|02/01/2010|08:00:00"}));
    QVERIFY(cerrada);
    QVERIFY(v.d().llamadas.isEmpty());
    QCOMPARE(v.f->Corresponsal->text(), QStringLiteral("LU0XX"));

    // Only the other log has LU0XXC: a message, and no history window.
    bool mostrada = false;
    CuandoAparezcaModal(
        [&](QWidget *w) {
            mostrada = true;
            w->close();
        },
        300);
    v.f->Corresponsal->setText(QStringLiteral("LU0XXC"));
    v.f->Command7->click();
    QTest::qWait(400); // so that the step armed above cannot outlive this test
    QCOMPARE(v.d().Textos(Tipo::Exclamacion), QStringList({"Sin QSOs con LU0XXC"}));
    QVERIFY(!mostrada);
}

QTEST_MAIN(TestLogsVentanas)
#include "test_logs_ventanas.moc"
