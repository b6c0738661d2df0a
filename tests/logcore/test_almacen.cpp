// The store: logs and their placeholder rows, counts kept by triggers, ids, dates in
// calendar order, any text stored and read back as it is, paging against a plain
// reference, the upgrade of an older file, and files that are not ours.

#include "logcore/Almacen.h"
#include "rules/Senales.h"

#include <QDir>
#include <QFile>
#include <QRandomGenerator>
#include <QSet>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QTest>
#include <algorithm>

namespace {

RegistroQSO Qso(const QString &estacion, const QString &fecha, const QString &hora,
                const QString &modo = QStringLiteral("SSB"))
{
    RegistroQSO q;
    q.Estacion = estacion;
    q.Banda = QStringLiteral("40m");
    q.Modo = modo;
    q.RSE = QStringLiteral("59");
    q.RSR = QStringLiteral("57");
    q.Fecha = fecha;
    q.Hora = hora;
    q.MyCall = QStringLiteral("LU9DCE");
    q.Operador = QStringLiteral("Juan");
    q.Frecuencia = QStringLiteral("7.150");
    return q;
}

// A second connection to the same file, as the sqlite3 shell or another program would be.
class OtraConexion
{
public:
    explicit OtraConexion(const QString &archivo)
    {
        static int n = 0;
        nombre_ = QStringLiteral("prueba-%1").arg(++n);
        QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), nombre_);
        db.setDatabaseName(archivo);
        db.open();
    }
    ~OtraConexion() { QSqlDatabase::removeDatabase(nombre_); }
    // Runs one statement; the rows' first column as text.
    QStringList Ejecutar(const QString &sql, const QVariantList &valores = {})
    {
        QSqlQuery q(QSqlDatabase::database(nombre_));
        q.prepare(sql);
        for (const QVariant &v : valores)
            q.addBindValue(v);
        if (!q.exec())
            qWarning() << sql << q.lastError().text();
        QStringList filas;
        while (q.next())
            filas << q.value(0).toString();
        return filas;
    }

private:
    QString nombre_;
};

QList<qint64> Ids(const QVector<FilaQSO> &filas)
{
    QList<qint64> ids;
    for (const FilaQSO &f : filas)
        ids << f.id;
    return ids;
}

QByteArray Contenido(const QString &archivo)
{
    QFile f(archivo);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

} // namespace

class TestAlmacen : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void logsYFilasVacias();
    void borrarLog();
    void idsSinReuso();
    void ordenDeCalendario();
    void apostrofes();
    void nulosLeidosComoVacios();
    void idaYVuelta_data();
    void idaYVuelta();
    void operacionesDeAlta();
    void comodines_data();
    void comodines();
    void historial();
    void concursos();
    void esquemaViejo();
    void cuentasConOtraConexion();
    void paginasComoReferencia();
    void paginaTrasEscrituraAjena();
    void noEsBaseDeDatos_data();
    void noEsBaseDeDatos();
    void carpetaInvalida();

private:
    QString Archivo() const { return dir_->filePath(QStringLiteral("base0.db")); }
    std::unique_ptr<QTemporaryDir> dir_;
    std::unique_ptr<Almacen> alm_;
};

void TestAlmacen::init()
{
    dir_ = std::make_unique<QTemporaryDir>();
    alm_ = std::make_unique<Almacen>();
    QCOMPARE(alm_->Abrir(Archivo()), QString());
    QVERIFY(alm_->Abierto());
}

void TestAlmacen::cleanup()
{
    alm_.reset();
    dir_.reset();
}

void TestAlmacen::logsYFilasVacias()
{
    Almacen &a = *alm_;
    QVERIFY(a.AgregarLogVacio(QStringLiteral("Log inicial")) > 0);
    QVERIFY(a.AgregarLogVacio(QStringLiteral("concurso")) > 0);
    a.AgregarQSO(
        Qso(QStringLiteral("LU1ABC"), QStringLiteral("01/05/2020"), QStringLiteral("10:00:00")),
        QStringLiteral("Concurso"));
    a.AgregarQSO(
        Qso(QStringLiteral("LU2XYZ"), QStringLiteral("02/05/2020"), QStringLiteral("10:00:00")),
        QStringLiteral("CONCURSO"));
    a.AgregarQSO(
        Qso(QStringLiteral("CX1AA"), QStringLiteral("03/05/2020"), QStringLiteral("10:00:00")),
        QStringLiteral("Base 1"));

    // Names compare without regard to case, and the list is in that order.
    QCOMPARE(a.Logs(), (QStringList{QStringLiteral("Base 1"), QStringLiteral("concurso"),
                                    QStringLiteral("Log inicial")}));
    const QVector<QPair<QString, qint64>> esperadas = {{QStringLiteral("Base 1"), 1},
                                                       {QStringLiteral("concurso"), 2},
                                                       {QStringLiteral("Log inicial"), 0}};
    QCOMPARE(a.LogsConCantidad(), esperadas);
    QCOMPARE(a.CantidadQSOs(QStringLiteral("LOG INICIAL")), 0);
    QCOMPARE(a.CantidadQSOs(QStringLiteral("Concurso")), 2);
    QCOMPARE(a.CantidadQSOs(QStringLiteral("no existe")), 0);

    // The placeholder stays out of every list of QSOs, but not out of the whole log.
    QVERIFY(a.PaginaLog(QStringLiteral("Log inicial"), 1).isEmpty());
    QVERIFY(!a.UltimoQSO(QStringLiteral("Log inicial")));
    QCOMPARE(a.PaginaLog(QStringLiteral("concurso"), 1).size(), 2);
    QCOMPARE(a.UltimoQSO(QStringLiteral("concurso"))->Estacion, QStringLiteral("LU2XYZ"));
    QCOMPARE(a.BuscarQSOs(QStringLiteral("concurso"), {}, {}).size(), 2);
    QCOMPARE(a.LogCompletoDescendente(QStringLiteral("concurso")).size(), 3);
}

void TestAlmacen::borrarLog()
{
    Almacen &a = *alm_;
    a.AgregarLogVacio(QStringLiteral("A"));
    a.AgregarQSO(
        Qso(QStringLiteral("LU1ABC"), QStringLiteral("01/05/2020"), QStringLiteral("10:00:00")),
        QStringLiteral("A"));
    a.AgregarLogVacio(QStringLiteral("B"));
    QVERIFY(a.BorrarLog(QStringLiteral("a")));
    QCOMPARE(a.Logs(), QStringList{QStringLiteral("B")});
    QCOMPARE(a.CantidadQSOs(QStringLiteral("A")), 0);
    QVERIFY(a.TodosLosQSOs().size() == 1);
    QVERIFY(a.BorrarLog(QStringLiteral("B")));
    QVERIFY(a.Logs().isEmpty());
}

void TestAlmacen::idsSinReuso()
{
    Almacen &a = *alm_;
    const RegistroQSO q =
        Qso(QStringLiteral("LU1ABC"), QStringLiteral("01/05/2020"), QStringLiteral("10:00:00"));
    QCOMPARE(a.AgregarQSO(q, QStringLiteral("L")), 1);
    QCOMPARE(a.AgregarQSO(q, QStringLiteral("L")), 2);
    QVERIFY(a.BorrarQSO(2));
    QCOMPARE(a.AgregarQSO(q, QStringLiteral("L")), 3);
    QVERIFY(a.BorrarLog(QStringLiteral("L")));
    QCOMPARE(a.AgregarLogVacio(QStringLiteral("L")), 4);

    FilaConcurso c;
    c.NombreLog = QStringLiteral("Fiesta");
    QCOMPARE(a.AgregarQSOConcurso(c), 1);
    QCOMPARE(a.AgregarQSOConcurso(c), 2);
    QCOMPARE(a.AgregarQSOEspera(q, QStringLiteral("VA"), QStringLiteral("L")), 1);

    // "Hacer Tabla!": the three tables empty and each counter back at 1.
    QVERIFY(a.VaciarTodo());
    QVERIFY(a.Logs().isEmpty());
    QVERIFY(a.LogsConcurso().isEmpty());
    QVERIFY(a.FilasEspera().isEmpty());
    QCOMPARE(a.AgregarQSO(q, QStringLiteral("L")), 1);
    QCOMPARE(a.AgregarQSOConcurso(c), 1);
    QCOMPARE(a.AgregarQSOEspera(q, QStringLiteral("VA"), QStringLiteral("L")), 1);
    QCOMPARE(a.CantidadQSOs(QStringLiteral("L")), 1);
}

void TestAlmacen::ordenDeCalendario()
{
    Almacen &a = *alm_;
    const QString log = QStringLiteral("L");
    a.AgregarQSO(
        Qso(QStringLiteral("A1A"), QStringLiteral("02/01/2010"), QStringLiteral("00:10:00")), log);
    a.AgregarQSO(
        Qso(QStringLiteral("A1B"), QStringLiteral("31/12/2009"), QStringLiteral("23:59:59")), log);
    a.AgregarQSO(
        Qso(QStringLiteral("A1C"), QStringLiteral("10/01/2009"), QStringLiteral("12:00:00")), log);
    a.AgregarQSO(
        Qso(QStringLiteral("A1D"), QStringLiteral("02/01/2010"), QStringLiteral("00:09:00")), log);

    QStringList nuevosPrimero;
    for (const FilaQSO &f : a.PaginaLog(log, 1))
        nuevosPrimero << f.Estacion;
    QCOMPARE(nuevosPrimero, (QStringList{QStringLiteral("A1A"), QStringLiteral("A1D"),
                                         QStringLiteral("A1B"), QStringLiteral("A1C")}));
    QStringList viejosPrimero;
    for (const FilaQSO &f : a.HistorialDe(log, QStringLiteral("A1")))
        viejosPrimero << f.Estacion;
    QCOMPARE(viejosPrimero, (QStringList{QStringLiteral("A1C"), QStringLiteral("A1B"),
                                         QStringLiteral("A1D"), QStringLiteral("A1A")}));
    QCOMPARE(a.UltimoQSO(log)->Fecha, QStringLiteral("02/01/2010"));

    // On disk the date is ISO, so that the sqlite3 shell sorts it the same way.
    OtraConexion otra(Archivo());
    QCOMPARE(otra.Ejecutar(QStringLiteral("SELECT Fecha FROM Tabla1 WHERE Estacion='A1B'")),
             QStringList{QStringLiteral("2009-12-31")});
}

void TestAlmacen::apostrofes()
{
    Almacen &a = *alm_;
    const QString log = QStringLiteral("D'Alessandro");
    RegistroQSO q =
        Qso(QStringLiteral("LU1ABC"), QStringLiteral("01/05/2020"), QStringLiteral("10:00:00"));
    q.Obs = QStringLiteral("QSO con 'Pepe'");
    const qint64 id = a.AgregarQSO(q, log);
    QVERIFY(id > 0);
    QCOMPARE(a.QSOPorId(log, id)->Obs, q.Obs);

    q.Obs = QStringLiteral("'Pepe' otra vez, ''dos''");
    q.Operador = QStringLiteral("O'Brien");
    QVERIFY(a.ActualizarQSO(id, q));
    const FilaQSO f = *a.QSOPorId(log, id);
    QCOMPARE(f.Obs, q.Obs);
    QCOMPARE(f.Operador, q.Operador);
    QCOMPARE(f.NombreLog, log);

    QCOMPARE(a.Logs(), QStringList{log});
    QCOMPARE(a.CantidadQSOs(log), 1);
    QCOMPARE(a.PaginaLog(log, 1).size(), 1);
    QVERIFY(a.BorrarLog(log));
    QVERIFY(a.Logs().isEmpty());
}

void TestAlmacen::nulosLeidosComoVacios()
{
    Almacen &a = *alm_;
    const qint64 id = a.AgregarLogVacio(QStringLiteral("Vacío"));
    FilaQSO esperada;
    esperada.id = id;
    esperada.NombreLog = QStringLiteral("Vacío");
    QCOMPARE(*a.QSOPorId(QStringLiteral("Vacío"), id), esperada);

    // Only the name is set: every other column is NULL on disk.
    OtraConexion otra(Archivo());
    QCOMPARE(otra.Ejecutar(QStringLiteral("SELECT count(*) FROM Tabla1 WHERE Modo IS NULL AND "
                                          "Fecha IS NULL AND Argento IS NULL")),
             QStringList{QStringLiteral("1")});

    FilaConcurso c;
    c.NombreLog = QStringLiteral("Fiesta");
    c.Modo = QStringLiteral("CW");
    c.Operador = QStringLiteral("no se guarda");
    c.Argento = QStringLiteral("tampoco");
    a.AgregarQSOConcurso(c);
    const FilaConcurso leida = a.LogConcurso(QStringLiteral("Fiesta")).value(0);
    QCOMPARE(leida.Operador, QString());
    QCOMPARE(leida.Argento, QString());
    QCOMPARE(leida.Modo, QStringLiteral("CW"));
}

void TestAlmacen::idaYVuelta_data()
{
    QTest::addColumn<QString>("texto");
    QTest::newRow("vacío") << QString();
    QTest::newRow("unicode") << QStringLiteral("Ñandú ÄÖü 日本語 \U0001F4E1");
    QTest::newRow("largo") << QString(5000, QLatin1Char('x')) + QStringLiteral("ñ");
    QTest::newRow("fecha imposible") << QStringLiteral("31/02/2024");
    QTest::newRow("fecha iso") << QStringLiteral("2024-01-05");
    QTest::newRow("fecha válida") << QStringLiteral("05/01/2024");
    QTest::newRow("fecha corta") << QStringLiteral("5/1/2024");
    QTest::newRow("fecha con blanco") << QStringLiteral(" 05/01/2024");
    QTest::newRow("marca") << QStringLiteral("!2024-01-05");
    QTest::newRow("blancos") << QStringLiteral("  a  ");
    QTest::newRow("saltos") << QStringLiteral("a\r\nb\tc");
    QTest::newRow("comodines") << QStringLiteral("100% _*?\\");
    QTest::newRow("sql") << QStringLiteral("'; DROP TABLE Tabla1; --");
    QTest::newRow("nul") << QStringLiteral("a") + QChar(0) + QStringLiteral("b");
}

void TestAlmacen::idaYVuelta()
{
    QFETCH(QString, texto);
    Almacen &a = *alm_;
    // An edit stores every column as given, so each one is tried with the same text.
    RegistroQSO q;
    for (QString *campo :
         {&q.Estacion, &q.Banda, &q.Modo, &q.RSE, &q.RSR, &q.Fecha, &q.Hora, &q.MyCall, &q.Operador,
          &q.Obs, &q.Frecuencia, &q.MiGrid, &q.SuGrid, &q.Nombre_Sat, &q.LbN, &q.Argento})
        *campo = texto;
    const qint64 id = a.AgregarLogVacio(texto);
    QVERIFY(a.ActualizarQSO(id, q));
    const FilaQSO f = a.TodosLosQSOs().value(0);
    const QStringList leidos = {f.Estacion,   f.Banda,    f.Modo,   f.RSE,        f.RSR,
                                f.Fecha,      f.Hora,     f.MyCall, f.Operador,   f.Obs,
                                f.Frecuencia, f.MiGrid,   f.SuGrid, f.Nombre_Sat, f.LbN,
                                f.Argento,    f.NombreLog};
    for (const QString &leido : leidos)
        QCOMPARE(leido, texto);
    QCOMPARE(a.Logs(), QStringList{texto});

    // The staging table keeps Fecha the same way; the contest table keeps its own text.
    RegistroQSO corto;
    corto.Fecha = texto;
    corto.Estacion = texto;
    a.AgregarQSOEspera(corto, texto, texto);
    const FilaQSO e = a.FilasEspera().value(0);
    QCOMPARE(e.Fecha, texto);
    QCOMPARE(e.Dupe, texto);
    FilaConcurso c;
    c.NombreLog = QStringLiteral("C");
    c.Fecha = c.Hora = c.Estacion = c.Obs = texto;
    a.AgregarQSOConcurso(c);
    const FilaConcurso lc = a.LogConcurso(QStringLiteral("C")).value(0);
    QCOMPARE(lc.Fecha, texto);
    QCOMPARE(lc.Obs, texto);
}

void TestAlmacen::operacionesDeAlta()
{
    Almacen &a = *alm_;
    const QString log = QStringLiteral("L");
    RegistroQSO q =
        Qso(QStringLiteral("LU1ABC"), QStringLiteral("01/05/2020"), QStringLiteral("10:00:00"));
    q.Nombre_Sat = QStringLiteral("  SO-50 ");
    q.LbN = QStringLiteral("0");
    q.Argento = QStringLiteral(" Marte ");
    // Typed in the main window: LbN "1" whatever the record says, province from the call.
    const FilaQSO tecleado = *a.QSOPorId(log, a.AgregarQSO(q, log));
    QCOMPARE(tecleado.LbN, QStringLiteral("1"));
    QCOMPARE(tecleado.Nombre_Sat, QStringLiteral("SO-50"));
    QVERIFY(!tecleado.Argento.isEmpty());
    QCOMPARE(tecleado.Argento, ProvinciaParaGuardar(q.Estacion));
    // Imported: LbN as it comes, satellite and province trimmed.
    const FilaQSO importado = *a.QSOPorId(log, a.AgregarQSOImportado(q, log));
    QCOMPARE(importado.LbN, QStringLiteral("0"));
    QCOMPARE(importado.Argento, QStringLiteral("Marte"));
    QCOMPARE(importado.Nombre_Sat, QStringLiteral("SO-50"));

    // What "Sólo Subir" takes: LbN empty or "0", never the typed "1".
    q.LbN = QString();
    const qint64 sinEstado = a.AgregarQSOImportado(q, log);
    QCOMPARE(Ids(a.PendientesLbN(log)), (QList<qint64>{importado.id, sinEstado}));
    QVERIFY(a.MarcarLbN(importado.id, 2));
    QCOMPARE(a.QSOPorId(log, importado.id)->LbN, QStringLiteral("2"));
    QCOMPARE(Ids(a.PendientesLbN(log)), QList<qint64>{sinEstado});

    // Staging: reports cut to 3, remarks to 100, grids trimmed.
    q.RSE = QStringLiteral("5999");
    q.Obs = QString(150, QLatin1Char('o'));
    q.SuGrid = QStringLiteral(" GF05 ");
    a.AgregarQSOEspera(q, QStringLiteral("17"), log);
    const FilaQSO e = a.FilasEspera().value(0);
    QCOMPARE(e.RSE, QStringLiteral("599"));
    QCOMPARE(e.Obs.size(), 100);
    QCOMPARE(e.SuGrid, QStringLiteral("GF05"));
    QCOMPARE(e.Dupe, QStringLiteral("17"));
    QCOMPARE(e.NombreLog, log);
    QVERIFY(a.VaciarEspera());
    QVERIFY(a.FilasEspera().isEmpty());

    QCOMPARE(a.Candidatos(log, QStringLiteral("ssb"), QStringLiteral("40M"),
                          QStringLiteral("lu9dce"), QStringLiteral("lu1abc"))
                 .size(),
             3);
}

void TestAlmacen::comodines_data()
{
    QTest::addColumn<QString>("columna");
    QTest::addColumn<QString>("patron");
    QTest::addColumn<QStringList>("esperadas");
    const QStringList todas = {QStringLiteral("LU1ABC"), QStringLiteral("LU2XYZ"),
                               QStringLiteral("AY0A"), QStringLiteral("LU_1"),
                               QStringLiteral("LUX1")};
    QTest::newRow("asterisco") << "estacion"
                               << "LU*" << QStringList{"LU1ABC", "LU2XYZ", "LU_1", "LUX1"};
    QTest::newRow("interrogación") << "estacion"
                                   << "LU?ABC" << QStringList{"LU1ABC"};
    QTest::newRow("minúsculas") << "estacion"
                                << "lu1abc" << QStringList{"LU1ABC"};
    QTest::newRow("guion bajo literal") << "estacion"
                                        << "LU_*" << QStringList{"LU_1"};
    QTest::newRow("sin comodín es igual") << "estacion"
                                          << "LU1" << QStringList{};
    QTest::newRow("obs en el medio") << "obs"
                                     << "media" << QStringList{"LU1ABC"};
    QTest::newRow("porcentaje literal") << "obs"
                                        << "100%" << QStringList{"LU2XYZ"};
    QTest::newRow("satélite") << "sat"
                              << "" << QStringList{"AY0A"};
    QTest::newRow("sin filtro") << "estacion"
                                << "" << todas;
}

void TestAlmacen::comodines()
{
    QFETCH(QString, columna);
    QFETCH(QString, patron);
    QFETCH(QStringList, esperadas);
    Almacen &a = *alm_;
    const QString log = QStringLiteral("L");
    const QStringList obs = {QStringLiteral("una media tarde"),
                             QStringLiteral("al 100%"),
                             QStringLiteral("1000 watts"),
                             {},
                             {}};
    const QStringList estaciones = {QStringLiteral("LU1ABC"), QStringLiteral("LU2XYZ"),
                                    QStringLiteral("AY0A"), QStringLiteral("LU_1"),
                                    QStringLiteral("LUX1")};
    for (int i = 0; i < estaciones.size(); ++i) {
        RegistroQSO q =
            Qso(estaciones[i], QStringLiteral("01/05/2020"), QStringLiteral("10:00:0%1").arg(i));
        q.Obs = obs[i];
        if (i == 2)
            q.Nombre_Sat = QStringLiteral("AO-7");
        a.AgregarQSO(q, log);
    }
    Almacen::FiltroExportacion filtro;
    if (columna == QLatin1String("estacion"))
        filtro.estacion = patron;
    else if (columna == QLatin1String("obs"))
        filtro.obs = patron;
    else
        filtro.soloSatelite = true;
    QStringList halladas;
    for (const FilaQSO &f : a.ExportarQSOs(log, filtro))
        halladas << f.Estacion;
    QCOMPARE(halladas, esperadas);
}

void TestAlmacen::historial()
{
    Almacen &a = *alm_;
    const QString log = QStringLiteral("L");
    const QStringList estaciones = {QStringLiteral("LU1ZZ"),  QStringLiteral("LU1Z"),
                                    QStringLiteral("LU1Z/P"), QStringLiteral("LU1[A"),
                                    QStringLiteral("lu1zb"),  QStringLiteral("LU1A")};
    for (int i = 0; i < estaciones.size(); ++i)
        a.AgregarQSO(Qso(estaciones[i], QStringLiteral("0%1/05/2020").arg(i + 1),
                         QStringLiteral("10:00:00")),
                     log);
    a.AgregarQSO(
        Qso(QStringLiteral("LU1ZX"), QStringLiteral("01/05/2020"), QStringLiteral("10:00:00")),
        QStringLiteral("otro"));
    // Any case of the prefix finds any case of the call, and only calls that start with it.
    for (const QString &prefijo : {QStringLiteral("LU1Z"), QStringLiteral("lu1z")}) {
        QStringList halladas;
        for (const FilaQSO &f : a.HistorialDe(log, prefijo))
            halladas << f.Estacion;
        QCOMPARE(halladas, (QStringList{QStringLiteral("LU1ZZ"), QStringLiteral("LU1Z"),
                                        QStringLiteral("LU1Z/P"), QStringLiteral("lu1zb")}));
    }
    QCOMPARE(a.HistorialDe(log, QStringLiteral("LU1?")).size(), 6);
    QCOMPARE(a.HistorialDe(log, QStringLiteral("XX")).size(), 0);
}

void TestAlmacen::concursos()
{
    Almacen &a = *alm_;
    FilaConcurso fundadora;
    fundadora.NombreLog = fundadora.LbN = QStringLiteral("Fiesta");
    fundadora.Nombre_Sat = QStringLiteral("Incremental");
    a.AgregarQSOConcurso(fundadora);
    FilaConcurso sinNombre;
    a.AgregarQSOConcurso(sinNombre);
    FilaConcurso qso = fundadora;
    qso.Modo = QStringLiteral("SSB");
    qso.Banda = QStringLiteral("40m");
    qso.Estacion = QStringLiteral("LU1ABC");
    qso.Fecha = QStringLiteral("20240105");
    qso.Hora = QStringLiteral("1200");
    qso.Obs = QStringLiteral("nota");
    const qint64 uno = a.AgregarQSOConcurso(qso);
    qso.Estacion = QStringLiteral("LU2XYZ");
    qso.Hora = QStringLiteral("1100");
    const qint64 dos = a.AgregarQSOConcurso(qso);

    QCOMPARE(a.LogsConcurso(), QStringList{QStringLiteral("Fiesta")});
    QVERIFY(a.ExisteLogConcurso(QStringLiteral("fiesta")));
    QVERIFY(!a.ExisteLogConcurso(QStringLiteral("Otra")));
    QCOMPARE(a.SatelitesDeConcurso(QStringLiteral("Fiesta")),
             QStringList{QStringLiteral("Incremental")});
    QCOMPARE(a.LogConcurso(QStringLiteral("Fiesta")).size(), 3);
    const QVector<FilaConcurso> vista = a.VistaConcurso(QStringLiteral("Fiesta"));
    QCOMPARE(vista.size(), 2);
    QCOMPARE(vista[0].id, dos);
    QCOMPARE(a.LogConcursoOrdenado(QStringLiteral("Fiesta"), true).last().id, uno);
    QCOMPARE(a.ConcursoPorModoBanda(QStringLiteral("Fiesta"), QStringLiteral("ssb"),
                                    QStringLiteral("40m"))
                 .size(),
             2);
    QCOMPARE(a.ConcursoPorModoBandaEstacion(QStringLiteral("Fiesta"), QStringLiteral("SSB"),
                                            QStringLiteral("40m"), QStringLiteral("LU2XYZ"))
                 .size(),
             1);

    // The contest edit leaves Obs and the log name alone.
    FilaConcurso cambio = qso;
    cambio.Estacion = QStringLiteral("LU3QQ");
    cambio.Obs = QStringLiteral("otra");
    cambio.NombreLog = QStringLiteral("Otra");
    QVERIFY(a.ActualizarQSOConcurso(dos, cambio));
    const FilaConcurso leida = a.VistaConcurso(QStringLiteral("Fiesta")).value(0);
    QCOMPARE(leida.Estacion, QStringLiteral("LU3QQ"));
    QCOMPARE(leida.Obs, QStringLiteral("nota"));
    QVERIFY(a.BorrarQSOConcurso(uno));
    QVERIFY(a.BorrarLogConcurso(QStringLiteral("Fiesta")));
    QVERIFY(a.LogsConcurso().isEmpty());
}

void TestAlmacen::esquemaViejo()
{
    alm_->Cerrar();
    QFile::remove(Archivo());
    {
        // A file of an earlier version: no late columns, no Tabla3.
        OtraConexion vieja(Archivo());
        vieja.Ejecutar(QStringLiteral(
            "CREATE TABLE Tabla1 (id INTEGER PRIMARY KEY AUTOINCREMENT, Modo TEXT, Banda TEXT, "
            "MyCall TEXT, Estacion TEXT, Fecha TEXT, Hora TEXT, RSE TEXT, RSR TEXT, Obs TEXT, "
            "Operador TEXT, \"Nombre Log\" TEXT, Frecuencia TEXT, MiGrid TEXT, SuGrid TEXT)"));
        vieja.Ejecutar(QStringLiteral(
            "CREATE TABLE Tabla2 (id INTEGER PRIMARY KEY AUTOINCREMENT, Modo TEXT, Banda TEXT, "
            "MyCall TEXT, Estacion TEXT, Fecha TEXT, Hora TEXT, RSE TEXT, RSR TEXT, Obs TEXT, "
            "Operador TEXT, \"Nombre Log\" TEXT, Frecuencia TEXT)"));
        vieja.Ejecutar(
            QStringLiteral("INSERT INTO Tabla1 (Modo, Estacion, Fecha, Hora, \"Nombre "
                           "Log\") VALUES ('CW', 'LU1ABC', '2009-12-31', '10:00:00', 'Viejo')"));
        vieja.Ejecutar(QStringLiteral("INSERT INTO Tabla1 (\"Nombre Log\") VALUES ('Viejo')"));
    }
    QCOMPARE(alm_->Abrir(Archivo()), QString());
    // Opening brings it up to date; the old rows keep their values and the count is right.
    QCOMPARE(alm_->CantidadQSOs(QStringLiteral("Viejo")), 1);
    const FilaQSO viejo = *alm_->UltimoQSO(QStringLiteral("Viejo"));
    QCOMPARE(viejo.Fecha, QStringLiteral("31/12/2009"));
    QCOMPARE(viejo.LbN, QString());

    OtraConexion otra(Archivo());
    auto columnas = [&](const QString &tabla) {
        return otra.Ejecutar(QStringLiteral("SELECT name FROM pragma_table_info(?)"), {tabla})
            .join(u',');
    };
    const QString tabla1 = QStringLiteral("id,Modo,Banda,MyCall,Estacion,Fecha,Hora,RSE,RSR,Obs,"
                                          "Operador,Nombre Log,Frecuencia,MiGrid,SuGrid,LbN,"
                                          "Nombre_Sat,Argento");
    const QString tabla2 = QStringLiteral("id,Modo,Banda,MyCall,Estacion,Fecha,Hora,RSE,RSR,Obs,"
                                          "Operador,Nombre Log,Frecuencia,LbN,Nombre_Sat,Argento");
    QCOMPARE(columnas(QStringLiteral("Tabla1")), tabla1);
    QCOMPARE(columnas(QStringLiteral("Tabla2")), tabla2);
    QCOMPARE(columnas(QStringLiteral("Tabla3")), tabla1 + QStringLiteral(",Dupe"));

    // Run twice: nothing changes and nothing fails.
    auto esquema = [&] {
        return otra.Ejecutar(QStringLiteral("SELECT sql FROM sqlite_master ORDER BY name"));
    };
    const QStringList antes = esquema();
    alm_->ActualizarEsquema();
    QCOMPARE(alm_->UltimoError(), QString());
    alm_->ActualizarEsquema();
    QCOMPARE(alm_->UltimoError(), QString());
    QCOMPARE(esquema(), antes);
    QCOMPARE(alm_->TodosLosQSOs().size(), 2);

    // What another program takes away while the file is open comes back.
    otra.Ejecutar(QStringLiteral("DROP TABLE Tabla3"));
    otra.Ejecutar(QStringLiteral("ALTER TABLE Tabla2 DROP COLUMN Argento"));
    alm_->ActualizarEsquema();
    QCOMPARE(columnas(QStringLiteral("Tabla2")), tabla2);
    QCOMPARE(columnas(QStringLiteral("Tabla3")), tabla1 + QStringLiteral(",Dupe"));
}

void TestAlmacen::cuentasConOtraConexion()
{
    Almacen &a = *alm_;
    a.AgregarLogVacio(QStringLiteral("A"));
    a.AgregarQSO(
        Qso(QStringLiteral("LU1ABC"), QStringLiteral("01/05/2020"), QStringLiteral("10:00:00")),
        QStringLiteral("A"));
    OtraConexion otra(Archivo());
    otra.Ejecutar(QStringLiteral(
        "INSERT INTO Tabla1 (Modo, \"Nombre Log\") VALUES ('CW', 'a'), ('', 'a'), ('FM', 'B')"));
    QCOMPARE(a.CantidadQSOs(QStringLiteral("A")), 2);
    QCOMPARE(a.Logs(), (QStringList{QStringLiteral("A"), QStringLiteral("B")}));

    // The placeholder turned into a QSO, a QSO moved to another log, one deleted.
    otra.Ejecutar(QStringLiteral("UPDATE Tabla1 SET Modo='SSB' WHERE Modo IS NULL"));
    QCOMPARE(a.CantidadQSOs(QStringLiteral("A")), 3);
    otra.Ejecutar(QStringLiteral("UPDATE Tabla1 SET \"Nombre Log\"='C' WHERE Modo='FM'"));
    QCOMPARE(a.Logs(), (QStringList{QStringLiteral("A"), QStringLiteral("C")}));
    QCOMPARE(a.CantidadQSOs(QStringLiteral("C")), 1);
    otra.Ejecutar(QStringLiteral("DELETE FROM Tabla1 WHERE Modo='CW'"));
    const QVector<QPair<QString, qint64>> esperadas = {{QStringLiteral("A"), 2},
                                                       {QStringLiteral("C"), 1}};
    QCOMPARE(a.LogsConCantidad(), esperadas);
    otra.Ejecutar(QStringLiteral("DELETE FROM Tabla1 WHERE \"Nombre Log\"='A'"));
    QCOMPARE(a.Logs(), QStringList{QStringLiteral("C")});
}

void TestAlmacen::paginasComoReferencia()
{
    Almacen &a = *alm_;
    const QString log = QStringLiteral("P");
    struct Fila
    {
        QString iso, hora;
        qint64 id;
    };
    QVector<Fila> referencia;
    auto *azar = QRandomGenerator::global();
    a.IniciarTransaccion();
    a.AgregarLogVacio(log);
    for (int i = 0; i < 347; ++i) {
        // Few dates and times, so that many rows tie and only the id orders them.
        const int dia = 1 + int(azar->bounded(4));
        const QString hora = QStringLiteral("1%1:00:00").arg(azar->bounded(3));
        const QString fecha = QStringLiteral("%1/12/2023").arg(dia, 2, 10, QLatin1Char('0'));
        const qint64 id = a.AgregarQSO(Qso(QStringLiteral("LU%1").arg(i), fecha, hora), log);
        referencia.append(
            {QStringLiteral("2023-12-%1").arg(dia, 2, 10, QLatin1Char('0')), hora, id});
        if (i % 7 == 0)
            a.AgregarQSO(Qso(QStringLiteral("CX%1").arg(i), fecha, hora), QStringLiteral("otro"));
    }
    a.ConfirmarTransaccion();
    auto ordenar = [&] {
        std::sort(referencia.begin(), referencia.end(), [](const Fila &x, const Fila &y) {
            return std::tie(x.iso, x.hora, x.id) > std::tie(y.iso, y.hora, y.id);
        });
    };
    ordenar();
    auto comparar = [&](qint64 fila, int tamano) {
        QList<qint64> esperados;
        for (qint64 i = fila - 1; i >= 0 && i < fila - 1 + tamano && i < referencia.size(); ++i)
            esperados << referencia[i].id;
        const QList<qint64> leidos = Ids(a.PaginaLog(log, fila, tamano));
        if (leidos != esperados)
            qWarning() << "fila" << fila << "tamaño" << tamano;
        return leidos == esperados;
    };

    // Forward from the first page to the last, back again, then jumps, and a second size.
    const qint64 n = referencia.size();
    for (qint64 fila = 1; fila <= n; fila += 20)
        QVERIFY(comparar(fila, 20));
    const qint64 ultima = ((n - 1) / 20) * 20 + 1;
    for (qint64 fila = ultima; fila >= 1; fila -= 20)
        QVERIFY(comparar(fila, 20));
    for (qint64 fila : {161, 41, 301, 321, 1, 341, 347, 348, 500, 0, 7, 27, 7, 146})
        QVERIFY(comparar(std::max<qint64>(fila, 1), 20));
    for (qint64 fila : {n - 21, n - 20, n - 19, n - 40})
        QVERIFY(comparar(fila, 20));
    for (qint64 fila = 1; fila <= n; fila += 50)
        QVERIFY(comparar(fila, 50));

    // A write in the middle of paging: the next page counts it.
    QVERIFY(comparar(101, 20));
    const qint64 id = a.AgregarQSO(
        Qso(QStringLiteral("NUEVO"), QStringLiteral("02/12/2023"), QStringLiteral("11:00:00")),
        log);
    referencia.append({QStringLiteral("2023-12-02"), QStringLiteral("11:00:00"), id});
    ordenar();
    QVERIFY(comparar(121, 20));
    QVERIFY(comparar(101, 20));
    QVERIFY(a.BorrarQSO(referencia[110].id));
    referencia.remove(110);
    QVERIFY(comparar(121, 20));
}

void TestAlmacen::paginaTrasEscrituraAjena()
{
    Almacen &a = *alm_;
    const QString log = QStringLiteral("P");
    for (int i = 0; i < 60; ++i)
        a.AgregarQSO(Qso(QStringLiteral("LU%1").arg(i), QStringLiteral("01/01/2024"),
                         QStringLiteral("10:%1:00").arg(i, 2, 10, QLatin1Char('0'))),
                     log);
    const QVector<FilaQSO> primera = a.PaginaLog(log, 1);
    QCOMPARE(primera.first().Estacion, QStringLiteral("LU59"));
    // A newer QSO written by someone else moves every row down by one.
    OtraConexion otra(Archivo());
    otra.Ejecutar(QStringLiteral("INSERT INTO Tabla1 (Modo, Estacion, Fecha, Hora, \"Nombre Log\") "
                                 "VALUES ('CW', 'AJENO', '2024-01-02', '00:00:00', 'P')"));
    const QVector<FilaQSO> segunda = a.PaginaLog(log, 21);
    QCOMPARE(segunda.first().Estacion, QStringLiteral("LU40"));
    // Rows without a date or time, written from outside, sort last and cannot be sought by
    // key; every row is still listed once, walking forward or back.
    otra.Ejecutar(QStringLiteral(
        "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<30) "
        "INSERT INTO Tabla1 (Modo, Estacion, \"Nombre Log\") SELECT 'CW', 'SINFECHA' || i, 'P' "
        "FROM n"));
    QCOMPARE(a.CantidadQSOs(log), 91);
    QStringList adelante, atras;
    for (qint64 fila = 1; fila <= 91; fila += 20)
        for (const FilaQSO &f : a.PaginaLog(log, fila))
            adelante << f.Estacion;
    for (qint64 fila = 81; fila >= 1; fila -= 20) {
        QStringList pagina;
        for (const FilaQSO &f : a.PaginaLog(log, fila))
            pagina << f.Estacion;
        atras = pagina + atras;
    }
    QCOMPARE(adelante.size(), 91);
    QCOMPARE(atras, adelante);
    QCOMPARE(adelante.first(), QStringLiteral("AJENO"));
    QCOMPARE(adelante.filter(QStringLiteral("SINFECHA")).size(), 30);
    QVERIFY(adelante.at(61).startsWith(QStringLiteral("SINFECHA")));
    QCOMPARE(QSet<QString>(adelante.begin(), adelante.end()).size(), 91);
}

void TestAlmacen::noEsBaseDeDatos_data()
{
    QTest::addColumn<QByteArray>("contenido");
    QTest::addColumn<QString>("tablaAjena");
    QTest::newRow("texto") << QByteArray("Esto es un texto, no una base.\r\n") << QString();
    QTest::newRow("binario") << QByteArray(4096, '\xA5') << QString();
    QTest::newRow("cabecera rota")
        << QByteArray("SQLite format 3\0", 16) + QByteArray(200, '\x01') << QString();
    QTest::newRow("base de otro programa") << QByteArray() << QStringLiteral("Clientes");
    QTest::newRow("Tabla1 ajena") << QByteArray() << QStringLiteral("Tabla1");
}

void TestAlmacen::noEsBaseDeDatos()
{
    QFETCH(QByteArray, contenido);
    QFETCH(QString, tablaAjena);
    alm_->Cerrar();
    QFile::remove(Archivo());
    if (tablaAjena.isEmpty()) {
        QFile f(Archivo());
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write(contenido);
    } else {
        OtraConexion ajena(Archivo());
        ajena.Ejecutar(
            QStringLiteral("CREATE TABLE \"%1\" (codigo INTEGER, nombre TEXT)").arg(tablaAjena));
        ajena.Ejecutar(QStringLiteral("INSERT INTO \"%1\" VALUES (1, 'uno')").arg(tablaAjena));
    }
    const QByteArray antes = Contenido(Archivo());
    const QStringList archivosAntes = QDir(dir_->path()).entryList(QDir::Files);

    Almacen otro;
    const QString mensaje = otro.Abrir(Archivo());
    QCOMPARE(mensaje, QStringLiteral("El archivo %1 no es una base de datos de Carancho Radiolog.")
                          .arg(QDir::toNativeSeparators(QFileInfo(Archivo()).absoluteFilePath())));
    QVERIFY(!otro.Abierto());
    QVERIFY(otro.Logs().isEmpty());
    QCOMPARE(Contenido(Archivo()), antes);
    QCOMPARE(QDir(dir_->path()).entryList(QDir::Files), archivosAntes);
}

void TestAlmacen::carpetaInvalida()
{
    alm_->Cerrar();
    Almacen otro;
    const QString sinCarpeta = dir_->filePath(QStringLiteral("no/existe/base0.db"));
    QVERIFY(otro.Abrir(sinCarpeta).startsWith(QStringLiteral("No existe la carpeta")));
    QVERIFY(!otro.Abierto());
    QVERIFY(otro.AgregarQSO(Qso(QStringLiteral("LU1ABC"), {}, {}), QStringLiteral("L")) == 0);
    QVERIFY(!otro.UltimoError().isEmpty());

    const QString carpeta = dir_->filePath(QStringLiteral("solo_lectura"));
    QDir().mkpath(carpeta);
    QFile::setPermissions(carpeta, QFile::ReadOwner | QFile::ExeOwner);
    if (QFileInfo(carpeta).isWritable())
        QSKIP("Como administrador toda carpeta se puede escribir");
    QVERIFY(otro.Abrir(carpeta + QStringLiteral("/base0.db"))
                .startsWith(QStringLiteral("No se puede escribir en la carpeta")));
    QVERIFY(!QFile::exists(carpeta + QStringLiteral("/base0.db")));
}

QTEST_GUILESS_MAIN(TestAlmacen)
#include "test_almacen.moc"
