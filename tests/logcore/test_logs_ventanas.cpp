// The named logs and the callsign history as the operator meets them in the main
// window: "Abrir Log ..." by mouse and by keyboard, "Nuevo Log" with its refusals,
// "Borrar Log" down to "Base 1", and Form17 reached by Ctrl+X and left with Esc.
#include "logcore/Form1.h"
#include "logcore/Form17.h"
#include "logcore/Form3.h"
#include "support/ContextoPrueba.h"
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

const QByteArray ConfigPrueba = "Estacion=LU1AAA\r\n"
                                "Operador=LU2BBB\r\n"
                                "DiferUTC=-3\r\n"
                                "LogenUso=Pruebas\r\n"
                                "GridLoca=FF78AB\r\n"
                                "Pantalla=1\r\n";

RegistroQSO Qso(const QString &estacion, const QString &fecha,
                const QString &hora = QStringLiteral("10:00:00"))
{
    RegistroQSO q;
    q.Estacion = estacion;
    q.Banda = QStringLiteral("40m");
    q.Modo = QStringLiteral("SSB");
    q.Fecha = fecha;
    q.Hora = hora;
    q.MyCall = QStringLiteral("LU1AAA");
    return q;
}

// A main window over a fresh folder, past its start-up on the log "Pruebas", with the
// timers held. The logs of the store are made before the window loads its view.
struct Ventana
{
    explicit Ventana(const std::function<void(Almacen &)> &preparar = {})
    {
        p.Escribir(QStringLiteral("config.ini"), ConfigPrueba);
        p->Terminar = [](int) {};
        if (preparar)
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
        QApplication::processEvents();
    }

    DialogosFalso &d() { return *p.falsos.dialogos; }
    QString LogEnConfig() const
    {
        for (const QByteArray &linea : p.Leer(QStringLiteral("config.ini")).split('\n'))
            if (linea.startsWith("LogenUso="))
                return QString::fromLatin1(linea.mid(9)).trimmed();
        return QStringLiteral("<sin LogenUso>");
    }
    QStringList FilasVista() const
    {
        QStringList estaciones;
        for (int i = 0; i < f->ListView2->topLevelItemCount(); ++i)
            estaciones << f->ListView2->topLevelItem(i)->text(2);
        return estaciones;
    }

    ContextoPrueba p;
    std::unique_ptr<Form1> f;
};

void TresLogs(Almacen &a)
{
    a.AgregarLogVacio(QStringLiteral("Zeta"));
    a.AgregarQSO(Qso(QStringLiteral("LU5DX"), QStringLiteral("05/05/2020")),
                 QStringLiteral("O'Brien"));
    for (const char *s : {"LU1XX", "LU2XX", "LU3XX"})
        a.AgregarQSO(Qso(QString::fromLatin1(s), QStringLiteral("01/01/2024")),
                     QStringLiteral("Pruebas"));
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
    void borrarLog_data();
    void borrarLog();
    void historial();
    void historialSinQSOs();
    void pasosDeSatelites();
};

void TestLogsVentanas::abrirLog_data()
{
    QTest::addColumn<QList<int>>("teclas"); // empty: a click on "O'Brien"
    QTest::addColumn<QString>("log");
    QTest::addColumn<QString>("rotulo");
    QTest::addColumn<QStringList>("filas");
    const QString obrien = QStringLiteral("O'Brien");
    QTest::newRow("clic") << QList<int>() << obrien << "Log: O'Brien, con 1 QSOs"
                          << QStringList({"LU5DX"});
    // From the log in use, up once to "O'Brien": moving alone opens nothing.
    QTest::newRow("flechas y Enter") << QList<int>({Qt::Key_Up, Qt::Key_Return}) << obrien
                                     << "Log: O'Brien, con 1 QSOs" << QStringList({"LU5DX"});
    QTest::newRow("flecha y Esc") << QList<int>({Qt::Key_Up, Qt::Key_Escape}) << "Pruebas"
                                  << "Log: Pruebas, con 3 QSOs"
                                  << QStringList({"LU3XX", "LU2XX", "LU1XX"});
}

void TestLogsVentanas::abrirLog()
{
    QFETCH(QList<int>, teclas);
    QFETCH(QString, log);
    QFETCH(QString, rotulo);
    QFETCH(QStringList, filas);
    Ventana v(TresLogs);
    const QByteArray config = v.p.Leer(QStringLiteral("config.ini"));

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
    QCOMPARE(v.p->LogenUso, log);
    QCOMPARE(v.f->Label6->text(), rotulo);
    QCOMPARE(v.FilasVista(), filas);
    QCOMPARE(v.f->Frame1->title(), log);
    if (log == QLatin1String("Pruebas"))
        QCOMPARE(v.p.Leer(QStringLiteral("config.ini")), config);
    else
        QCOMPARE(v.LogEnConfig(), log);
    QVERIFY(!QApplication::activeModalWidget());
    QVERIFY(v.d().llamadas.isEmpty());
}

void TestLogsVentanas::nuevoLog_data()
{
    using Respuestas = QList<std::optional<QString>>;
    QTest::addColumn<Respuestas>("respuestas");
    QTest::addColumn<QStringList>("avisos");
    QTest::addColumn<QString>("logEnUso");
    QTest::addColumn<QStringList>("logs");

    const QStringList antes{"O'Brien", "Pruebas", "Zeta"};
    QTest::newRow("nuevo") << Respuestas{QStringLiteral("Nuevo")} << QStringList() << "Nuevo"
                           << QStringList({"Nuevo", "O'Brien", "Pruebas", "Zeta"});
    QTest::newRow("con apóstrofo")
        << Respuestas{QStringLiteral("Log d'Ana")} << QStringList() << "Log d'Ana"
        << QStringList({"Log d'Ana", "O'Brien", "Pruebas", "Zeta"});
    QTest::newRow("tomado en otro caso, y otra vez")
        << Respuestas{QStringLiteral("pruebas"), QStringLiteral("o'BRIEN"), QStringLiteral("Otro")}
        << QStringList({"El log pruebas ya existe!", "El log o'BRIEN ya existe!"}) << "Otro"
        << QStringList({"O'Brien", "Otro", "Pruebas", "Zeta"});
    QTest::newRow("tomado y luego cancelar")
        << Respuestas{QStringLiteral("ZETA"), std::nullopt}
        << QStringList({"El log ZETA ya existe!"}) << "Pruebas" << antes;
    QTest::newRow("cancelar") << Respuestas{std::nullopt} << QStringList() << "Pruebas" << antes;
    QTest::newRow("vacío") << Respuestas{QString()} << QStringList() << "Pruebas" << antes;
}

void TestLogsVentanas::nuevoLog()
{
    using Respuestas = QList<std::optional<QString>>;
    QFETCH(Respuestas, respuestas);
    QFETCH(QStringList, avisos);
    QFETCH(QString, logEnUso);
    QFETCH(QStringList, logs);
    Ventana v(TresLogs);
    const QByteArray config = v.p.Leer(QStringLiteral("config.ini"));
    for (const auto &r : respuestas)
        v.d().entradas.enqueue(r);

    v.f->nuevo->trigger();

    // Asked once per answer given, the same question every time.
    QCOMPARE(v.d().Textos(Tipo::Entrada),
             QStringList(QList<QString>(respuestas.size(),
                                        QStringLiteral("Ingrese el nombre del nuevo Log"))));
    QCOMPARE(v.d().Textos(Tipo::Exclamacion), avisos);
    QCOMPARE(v.p->LogenUso, logEnUso);
    QCOMPARE(v.p->almacen().Logs(), logs);
    if (logEnUso == QLatin1String("Pruebas")) {
        QCOMPARE(v.p.Leer(QStringLiteral("config.ini")), config);
        QCOMPARE(v.f->Label6->text(), QStringLiteral("Log: Pruebas, con 3 QSOs"));
    } else {
        QCOMPARE(v.LogEnConfig(), logEnUso);
        QCOMPARE(v.f->Label6->text(),
                 QStringLiteral("Log: ") + logEnUso + QStringLiteral(", con 0 QSOs"));
        QCOMPARE(v.f->ListView2->topLevelItemCount(), 0);
        QCOMPARE(v.p->almacen().CantidadQSOs(logEnUso), qint64(0));
    }
}

void TestLogsVentanas::borrarLog_data()
{
    QTest::addColumn<QStringList>("logsAntes");
    QTest::addColumn<QString>("enUso");
    QTest::addColumn<bool>("si");
    QTest::addColumn<QString>("pregunta");
    QTest::addColumn<QString>("despues");
    QTest::addColumn<QStringList>("logsDespues");

    const QStringList tres{"alfa", "O'Brien", "Pruebas"};
    QTest::newRow("no")
        << tres << "Pruebas" << false
        << "Esta seguro de borrar Log: Pruebas, con 2 QSOs\r\n\r\nlos QSOs no podrán recuperarse!"
        << "Pruebas" << tres;
    // "alfa" comes first whatever the case of its letters.
    QTest::newRow("sí: el primero que queda")
        << tres << "Pruebas" << true
        << "Esta seguro de borrar Log: Pruebas, con 2 QSOs\r\n\r\nlos QSOs no podrán recuperarse!"
        << "alfa" << QStringList({"alfa", "O'Brien"});
    QTest::newRow("sí: con apóstrofo")
        << tres << "O'Brien" << true
        << "Esta seguro de borrar Log: O'Brien, con 2 QSOs\r\n\r\nlos QSOs no podrán recuperarse!"
        << "alfa" << QStringList({"alfa", "Pruebas"});
    QTest::newRow("sí: el último")
        << QStringList({"Pruebas"}) << "Pruebas" << true
        << "Esta seguro de borrar Log: Pruebas, con 2 QSOs\r\n\r\nlos QSOs no podrán recuperarse!"
        << "Base 1" << QStringList();
}

void TestLogsVentanas::borrarLog()
{
    QFETCH(QStringList, logsAntes);
    QFETCH(QString, enUso);
    QFETCH(bool, si);
    QFETCH(QString, pregunta);
    QFETCH(QString, despues);
    QFETCH(QStringList, logsDespues);
    Ventana v([&](Almacen &a) {
        for (const QString &log : logsAntes) {
            a.AgregarLogVacio(log);
            a.AgregarQSO(Qso(QStringLiteral("LU1XX"), QStringLiteral("01/01/2024")), log);
            a.AgregarQSO(Qso(QStringLiteral("LU2XX"), QStringLiteral("02/01/2024")), log);
        }
    });
    if (enUso != v.p->LogenUso)
        v.f->AbrirLog(enUso);
    const QByteArray config = v.p.Leer(QStringLiteral("config.ini"));
    v.d().respuestasSiNo.enqueue(si);

    v.f->borralog->trigger();

    QCOMPARE(v.d().Textos(), QStringList({pregunta}));
    QCOMPARE(v.p->LogenUso, despues);
    QCOMPARE(v.p->almacen().Logs(), logsDespues);
    if (!si) {
        QCOMPARE(v.p.Leer(QStringLiteral("config.ini")), config);
        return;
    }
    QCOMPARE(v.p->almacen().HistorialDe(enUso, QStringLiteral("LU")).size(), 0);
    QCOMPARE(v.f->Label6->text(), QStringLiteral("Log: ") + despues + QStringLiteral(", con ") +
                                      QString::number(despues == QLatin1String("Base 1") ? 0 : 2) +
                                      QStringLiteral(" QSOs"));
    QCOMPARE(v.LogEnConfig(), despues);
    QCOMPARE(v.f->Frame1->title(), despues);
}

void TestLogsVentanas::historial()
{
    Ventana v([](Almacen &a) {
        a.AgregarQSO(
            Qso(QStringLiteral("LU0XX"), QStringLiteral("02/01/2010"), QStringLiteral("08:00:00")),
            QStringLiteral("Pruebas"));
        a.AgregarQSO(Qso(QStringLiteral("LU0XX/P"), QStringLiteral("31/12/2009"),
                         QStringLiteral("22:15:00")),
                     QStringLiteral("Pruebas"));
        for (const char *otra : {"LU1XX", "LU10XX", "LU0XXB"})
            a.AgregarQSO(Qso(QString::fromLatin1(otra), QStringLiteral("01/01/2009")),
                         QStringLiteral("Pruebas"));
        a.AgregarQSO(Qso(QStringLiteral("LU0XX"), QStringLiteral("01/01/2009")),
                     QStringLiteral("Otro"));
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
        QVERIFY(form17->List1->font().fixedPitch() ||
                QFontInfo(form17->List1->font()).fixedPitch());
        QTest::keyClick(form17->List1, Qt::Key_Escape);
        cerrada = !form17->isVisible();
        if (!cerrada)
            form17->reject();
    });
    QTest::keyClick(v.f->Corresponsal, Qt::Key_X, Qt::ControlModifier);

    // Oldest first by the calendar; LU1XX, LU10XX and the other log's LU0XX stay out.
    QCOMPARE(titulo, QStringLiteral("LU0XX"));
    QCOMPARE(lineas,
             QStringList({"          MiCall           SuCall  Banda   Modo    Fecha    Hora",
                          "          LU1AAA|          LU0XXB|   40m|   SSB|01/01/2009|10:00:00",
                          "          LU1AAA|         LU0XX/P|   40m|   SSB|31/12/2009|22:15:00",
                          "          LU1AAA|           LU0XX|   40m|   SSB|02/01/2010|08:00:00"}));
    QVERIFY(cerrada);
    QVERIFY(v.d().llamadas.isEmpty());
    // The view and the field are as they were.
    QCOMPARE(v.f->Corresponsal->text(), QStringLiteral("LU0XX"));
    QCOMPARE(v.p->LogenUso, QStringLiteral("Pruebas"));
}

void TestLogsVentanas::historialSinQSOs()
{
    Ventana v([](Almacen &a) {
        a.AgregarQSO(Qso(QStringLiteral("LU9ZZ"), QStringLiteral("01/01/2024")),
                     QStringLiteral("Otro"));
    });
    bool mostrada = false;
    CuandoAparezcaModal(
        [&](QWidget *w) {
            mostrada = true;
            w->close();
        },
        300);
    v.f->Corresponsal->setText(QStringLiteral("LU9ZZ"));
    v.f->Command7->click();
    QTest::qWait(400);
    QCOMPARE(v.d().Textos(Tipo::Exclamacion), QStringList({"Sin QSOs con LU9ZZ"}));
    QVERIFY(!mostrada);
}

void TestLogsVentanas::pasosDeSatelites()
{
    Ventana v;
    v.f->Command15->click();
    QCOMPARE(v.p.falsos.escritorio->abiertos,
             QStringList({v.p->direcciones().AMSAT + QStringLiteral("/pass.htm")}));
}

QTEST_MAIN(TestLogsVentanas)
#include "test_logs_ventanas.moc"
