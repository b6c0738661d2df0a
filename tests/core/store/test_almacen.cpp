// The store: logs and their placeholder rows, counts kept by triggers, ids, dates in
// calendar order, any text stored and read back as it is, paging against a plain
// reference, the bulk load against the same load row by row, the upgrade of an older
// file, and files that are not ours.

#include "core/rules/Senales.h"
#include "core/store/Almacen.h"

#include <QDir>
#include <QFile>
#include <QRandomGenerator>
#include <QSet>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QTemporaryDir>
#include <QTest>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

RegistroQSO Qso(const QString &estacion, const QString &fecha = u"01/05/2020"_s,
                const QString &hora = u"10:00:00"_s)
{
    RegistroQSO q;
    q.Estacion = estacion;
    q.Banda = u"40m"_s;
    q.Modo = u"SSB"_s;
    q.RSE = u"59"_s;
    q.RSR = u"57"_s;
    q.Fecha = fecha;
    q.Hora = hora;
    q.MyCall = u"LU9DCE"_s;
    q.Operador = u"Juan"_s;
    q.Frecuencia = u"7.150"_s;
    return q;
}

// A second connection to the same file, as the sqlite3 shell or another program would be.
class OtraConexion
{
public:
    explicit OtraConexion(const QString &archivo)
        : nombre_(u"prueba-%1"_s.arg(++cuenta_))
    {
        QSqlDatabase db = QSqlDatabase::addDatabase(u"QSQLITE"_s, nombre_);
        db.setDatabaseName(archivo);
        db.open();
    }
    ~OtraConexion() { QSqlDatabase::removeDatabase(nombre_); }
    // Runs one statement; its rows as text, the columns of each joined with '|'.
    QStringList operator()(const QString &sql, const QVariantList &valores = {})
    {
        QSqlQuery q(QSqlDatabase::database(nombre_));
        q.prepare(sql);
        for (const QVariant &v : valores)
            q.addBindValue(v);
        if (!q.exec())
            qWarning() << sql << q.lastError().text();
        QStringList filas;
        while (q.next()) {
            QStringList columnas;
            for (int i = 0; i < q.record().count(); ++i)
                columnas << q.value(i).toString();
            filas << columnas.join(u'|');
        }
        return filas;
    }

private:
    static inline int cuenta_ = 0;
    QString nombre_;
};

template<typename Filas> QStringList Estaciones(const Filas &filas)
{
    QStringList e;
    for (const auto &f : filas)
        e << f.Estacion;
    return e;
}

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

using Cantidades = QVector<QPair<QString, qint64>>;

// What a reader of the file sees of the counts and of the schema.
QStringList Cuentas(OtraConexion &otra)
{
    return otra(u"SELECT * FROM CuentaLogs ORDER BY \"Nombre Log\""_s);
}

QStringList Esquema(OtraConexion &otra)
{
    return otra(u"SELECT type, name, sql FROM sqlite_master ORDER BY name"_s);
}

// A load of 80 rows into logs old and new (names in another case too), some of them no QSO
// or without a date, with one thing done after the 40th; all it read on the way, and at
// the end the lists, counts, pages, history and duplicates of every log.
QStringList Cargar(Almacen &a, const QString &enMedio, bool *masivaEnMedio = nullptr,
                   bool *masivaAlFinal = nullptr)
{
    QStringList visto;
    auto ver = [&](const QVector<FilaQSO> &filas) {
        for (const FilaQSO &f : filas)
            visto << u"%1 %2 %3 %4 %5"_s.arg(f.id).arg(f.Estacion, f.Fecha, f.Modo, f.NombreLog);
    };
    const QStringList logs = {u"CONCURSO"_s, u"Diario"_s, u"Nuevo"_s, u"nuevo"_s};
    QVector<qint64> ids;
    qint64 vacio = 0;
    a.IniciarTransaccion();
    for (int i = 0; i < 80; ++i) {
        RegistroQSO q = Qso(u"LU%1X%2"_s.arg(i % 4).arg(QChar(u'A' + i % 6)),
                            u"%1/03/2022"_s.arg(1 + i % 28, 2, 10, QLatin1Char('0')),
                            u"1%1:00:00"_s.arg(i % 10));
        if (i % 7 == 3)
            q.Modo.clear();
        if (i % 11 == 5)
            q.Fecha.clear();
        const QString &log = logs[i % logs.size()];
        ids << (i % 5 == 4 ? a.AgregarQSOImportado(q, log) : a.AgregarQSO(q, log));
        if (i == 20)
            vacio = a.AgregarLogVacio(u"Vacío"_s);
        if (i != 40)
            continue;
        if (masivaEnMedio)
            *masivaEnMedio = a.EnCargaMasiva();
        if (enMedio == u"contar") {
            visto << QString::number(a.CantidadQSOs(u"nuevo"_s));
        } else if (enMedio == u"historial") {
            ver(a.HistorialDe(u"Diario"_s, u"lu1"_s));
        } else if (enMedio == u"cambiar") {
            RegistroQSO sinModo = q;
            sinModo.Modo.clear();
            // Placeholders become QSOs (in a log new to the load and in an old one), and a
            // QSO stops being one.
            a.ActualizarQSO(vacio, Qso(u"LU5V"_s));
            a.ActualizarQSO(ids[12], sinModo);
            a.ActualizarQSO(1, Qso(u"LU9ZZ"_s));
        } else if (enMedio == u"borrar") {
            a.BorrarQSO(vacio); // the only row of a log new to the load
            a.BorrarQSO(ids[10]);
            a.BorrarQSO(2); // the only QSO the log had before
            a.BorrarLog(u"nuevo"_s);
        } else if (enMedio == u"vaciar") {
            a.VaciarTodo();
        }
    }
    if (masivaAlFinal)
        *masivaAlFinal = a.EnCargaMasiva();
    if (!a.ConfirmarTransaccion())
        visto << u"falló: "_s + a.UltimoError();

    for (const auto &[log, cantidad] : a.LogsConCantidad()) {
        visto << u"%1: %2"_s.arg(log).arg(cantidad);
        ver(a.PaginaLog(log, 1));
        ver(a.PaginaLog(log, 21));
        ver(a.HistorialDe(log, u"LU2"_s));
        ver(a.Candidatos(log, u"SSB"_s, u"40m"_s, u"LU9DCE"_s, u"lu3xd"_s));
    }
    return visto;
}

} // namespace

class TestAlmacen : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void logsYFilasVacias();
    void idsYVaciarTodo();
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
    void cargaMasiva_data();
    void cargaMasiva();
    void cuandoEsMasiva_data();
    void cuandoEsMasiva();
    void deshacerCargaMasiva();
    void escrituraAjenaTrasCargaMasiva();
    void noEsBaseDeDatos_data();
    void noEsBaseDeDatos();
    void carpetaInvalida();

private:
    QString Archivo() const { return dir_->filePath(u"base0.db"_s); }
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
    QVERIFY(a.AgregarLogVacio(u"Log inicial"_s) > 0);
    QVERIFY(a.AgregarLogVacio(u"concurso"_s) > 0);
    a.AgregarQSO(Qso(u"LU1ABC"_s, u"01/05/2020"_s), u"Concurso"_s);
    a.AgregarQSO(Qso(u"LU2XYZ"_s, u"02/05/2020"_s), u"CONCURSO"_s);
    a.AgregarQSO(Qso(u"CX1AA"_s), u"Base 1"_s);

    // Names compare without regard to case, and the list is in that order.
    QCOMPARE(a.Logs(), (QStringList{u"Base 1"_s, u"concurso"_s, u"Log inicial"_s}));
    QCOMPARE(a.LogsConCantidad(),
             (Cantidades{{u"Base 1"_s, 1}, {u"concurso"_s, 2}, {u"Log inicial"_s, 0}}));
    QCOMPARE(a.CantidadQSOs(u"LOG INICIAL"_s), 0);
    QCOMPARE(a.CantidadQSOs(u"Concurso"_s), 2);
    QCOMPARE(a.CantidadQSOs(u"no existe"_s), 0);

    // The placeholder stays out of every list of QSOs, but not out of the whole log.
    QVERIFY(a.PaginaLog(u"Log inicial"_s, 1).isEmpty());
    QVERIFY(!a.UltimoQSO(u"Log inicial"_s));
    QCOMPARE(Estaciones(a.PaginaLog(u"concurso"_s, 1)), (QStringList{u"LU2XYZ"_s, u"LU1ABC"_s}));
    QCOMPARE(a.UltimoQSO(u"concurso"_s)->Estacion, u"LU2XYZ"_s);
    QCOMPARE(a.BuscarQSOs(u"concurso"_s, {}, {}).size(), 2);
    QCOMPARE(a.LogCompletoDescendente(u"concurso"_s).size(), 3);

    // Deleting a log takes its placeholder with it, whatever the case of the name.
    QVERIFY(a.BorrarLog(u"CONCURSO"_s));
    QCOMPARE(a.Logs(), (QStringList{u"Base 1"_s, u"Log inicial"_s}));
    QCOMPARE(a.CantidadQSOs(u"concurso"_s), 0);
    QCOMPARE(a.TodosLosQSOs().size(), 2);
}

void TestAlmacen::idsYVaciarTodo()
{
    Almacen &a = *alm_;
    const RegistroQSO q = Qso(u"LU1ABC"_s);
    const QString l = u"L"_s;
    QCOMPARE(a.AgregarQSO(q, l), 1);
    QCOMPARE(a.AgregarQSO(q, l), 2);
    QVERIFY(a.BorrarQSO(2));
    QCOMPARE(a.AgregarQSO(q, l), 3);
    QVERIFY(a.BorrarLog(l));
    QCOMPARE(a.AgregarLogVacio(l), 4);
    FilaConcurso c;
    c.NombreLog = u"Fiesta"_s;
    QCOMPARE(a.AgregarQSOConcurso(c), 1);
    QCOMPARE(a.AgregarQSOConcurso(c), 2);
    QCOMPARE(a.AgregarQSOEspera(q, u"VA"_s, l), 1);

    // "Hacer Tabla!": the three tables empty and each counter back at 1.
    QVERIFY(a.VaciarTodo());
    QVERIFY(a.Logs().isEmpty());
    QVERIFY(a.LogsConcurso().isEmpty());
    QVERIFY(a.FilasEspera().isEmpty());
    QCOMPARE(a.AgregarQSO(q, l), 1);
    QCOMPARE(a.AgregarQSOConcurso(c), 1);
    QCOMPARE(a.AgregarQSOEspera(q, u"VA"_s, l), 1);
    QCOMPARE(a.CantidadQSOs(l), 1);
}

void TestAlmacen::ordenDeCalendario()
{
    Almacen &a = *alm_;
    a.AgregarQSO(Qso(u"A1A"_s, u"02/01/2010"_s, u"00:10:00"_s), u"L"_s);
    a.AgregarQSO(Qso(u"A1B"_s, u"31/12/2009"_s, u"23:59:59"_s), u"L"_s);
    a.AgregarQSO(Qso(u"A1C"_s, u"10/01/2009"_s, u"12:00:00"_s), u"L"_s);
    a.AgregarQSO(Qso(u"A1D"_s, u"02/01/2010"_s, u"00:09:00"_s), u"L"_s);
    QCOMPARE(Estaciones(a.PaginaLog(u"L"_s, 1)),
             (QStringList{u"A1A"_s, u"A1D"_s, u"A1B"_s, u"A1C"_s}));
    QCOMPARE(Estaciones(a.HistorialDe(u"L"_s, u"A1"_s)),
             (QStringList{u"A1C"_s, u"A1B"_s, u"A1D"_s, u"A1A"_s}));
    QCOMPARE(a.UltimoQSO(u"L"_s)->Fecha, u"02/01/2010"_s);
    // On disk the date is ISO, so that the sqlite3 shell sorts it the same way.
    OtraConexion otra(Archivo());
    QCOMPARE(otra(u"SELECT Fecha FROM Tabla1 WHERE Estacion='A1B'"_s),
             QStringList{u"2009-12-31"_s});
}

void TestAlmacen::apostrofes()
{
    Almacen &a = *alm_;
    const QString log = u"D'Alessandro"_s;
    RegistroQSO q = Qso(u"LU1ABC"_s);
    q.Obs = u"QSO con 'Pepe'"_s;
    const qint64 id = a.AgregarQSO(q, log);
    QCOMPARE(a.QSOPorId(log, id)->Obs, q.Obs);
    q.Obs = u"'Pepe' otra vez, ''dos''"_s;
    q.Operador = u"O'Brien"_s;
    QVERIFY(a.ActualizarQSO(id, q));
    const FilaQSO f = *a.QSOPorId(log, id);
    QCOMPARE(f.Obs, q.Obs);
    QCOMPARE(f.Operador, q.Operador);
    QCOMPARE(a.Logs(), QStringList{log});
    QCOMPARE(a.CantidadQSOs(log), 1);
    QCOMPARE(a.PaginaLog(log, 1).size(), 1);
    QVERIFY(a.BorrarLog(log));
    QVERIFY(a.Logs().isEmpty());
}

void TestAlmacen::nulosLeidosComoVacios()
{
    Almacen &a = *alm_;
    const qint64 id = a.AgregarLogVacio(u"Vacío"_s);
    FilaQSO esperada;
    esperada.id = id;
    esperada.NombreLog = u"Vacío"_s;
    QCOMPARE(*a.QSOPorId(u"Vacío"_s, id), esperada);
    OtraConexion otra(Archivo());
    QCOMPARE(otra(u"SELECT count(*) FROM Tabla1 WHERE Modo IS NULL AND Fecha IS NULL AND "
                  "Argento IS NULL"_s),
             QStringList{u"1"_s});

    // A contest row leaves Operador and Argento unset.
    FilaConcurso c;
    c.NombreLog = u"Fiesta"_s;
    c.Modo = u"CW"_s;
    c.Operador = u"no se guarda"_s;
    c.Argento = u"tampoco"_s;
    a.AgregarQSOConcurso(c);
    const FilaConcurso leida = a.LogConcurso(u"Fiesta"_s).value(0);
    QCOMPARE(leida.Operador, QString());
    QCOMPARE(leida.Argento, QString());
    QCOMPARE(leida.Modo, u"CW"_s);
}

void TestAlmacen::idaYVuelta_data()
{
    QTest::addColumn<QString>("texto");
    QTest::newRow("vacío") << QString();
    QTest::newRow("unicode") << u"Ñandú ÄÖü 日本語 \U0001F4E1"_s;
    QTest::newRow("largo") << QString(5000, u'x') + u"ñ"_s;
    QTest::newRow("fecha imposible") << u"31/02/2024"_s;
    QTest::newRow("fecha iso") << u"2024-01-05"_s;
    QTest::newRow("fecha válida") << u"05/01/2024"_s;
    QTest::newRow("fecha corta") << u"5/1/2024"_s;
    QTest::newRow("fecha con blanco") << u" 05/01/2024"_s;
    QTest::newRow("marca") << u"!2024-01-05"_s;
    QTest::newRow("blancos") << u"  a  "_s;
    QTest::newRow("saltos") << u"a\r\nb\tc"_s;
    QTest::newRow("comodines") << u"100% _*?\\"_s;
    QTest::newRow("sql") << u"'; DROP TABLE Tabla1; --"_s;
    QTest::newRow("nul") << u"a"_s + QChar(0) + u"b"_s;
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
    QVERIFY(a.ActualizarQSO(a.AgregarLogVacio(texto), q));
    const FilaQSO f = a.TodosLosQSOs().value(0);
    for (const QString &leido :
         {f.Estacion, f.Banda, f.Modo, f.RSE, f.RSR, f.Fecha, f.Hora, f.MyCall, f.Operador, f.Obs,
          f.Frecuencia, f.MiGrid, f.SuGrid, f.Nombre_Sat, f.LbN, f.Argento, f.NombreLog})
        QCOMPARE(leido, texto);
    QCOMPARE(a.Logs(), QStringList{texto});

    // The staging table keeps Fecha the same way; the contest table keeps its own text.
    RegistroQSO corto;
    corto.Fecha = corto.Estacion = texto;
    a.AgregarQSOEspera(corto, texto, texto);
    QCOMPARE(a.FilasEspera().value(0).Fecha, texto);
    QCOMPARE(a.FilasEspera().value(0).Dupe, texto);
    FilaConcurso c;
    c.NombreLog = u"C"_s;
    c.Fecha = c.Hora = c.Obs = texto;
    a.AgregarQSOConcurso(c);
    QCOMPARE(a.LogConcurso(u"C"_s).value(0).Fecha, texto);
    QCOMPARE(a.LogConcurso(u"C"_s).value(0).Obs, texto);
}

void TestAlmacen::operacionesDeAlta()
{
    Almacen &a = *alm_;
    const QString log = u"L"_s;
    RegistroQSO q = Qso(u"LU1ABC"_s);
    q.Nombre_Sat = u"  SO-50 "_s;
    q.LbN = u"0"_s;
    q.Argento = u" Marte "_s;
    // Typed in the main window: LbN "1" whatever the record says, province from the call.
    const FilaQSO tecleado = *a.QSOPorId(log, a.AgregarQSO(q, log));
    QCOMPARE(tecleado.LbN, u"1"_s);
    QCOMPARE(tecleado.Nombre_Sat, u"SO-50"_s);
    QVERIFY(!tecleado.Argento.isEmpty());
    QCOMPARE(tecleado.Argento, ProvinciaParaGuardar(q.Estacion));
    // Imported: LbN as it comes, satellite and province trimmed.
    const FilaQSO importado = *a.QSOPorId(log, a.AgregarQSOImportado(q, log));
    QCOMPARE(importado.LbN, u"0"_s);
    QCOMPARE(importado.Argento, u"Marte"_s);
    QCOMPARE(importado.Nombre_Sat, u"SO-50"_s);

    // What "Sólo Subir" takes: LbN empty or "0", never the typed "1".
    q.LbN = QString();
    const qint64 sinEstado = a.AgregarQSOImportado(q, log);
    QCOMPARE(Ids(a.PendientesLbN(log)), (QList<qint64>{importado.id, sinEstado}));
    QVERIFY(a.MarcarLbN(importado.id, 2));
    QCOMPARE(a.QSOPorId(log, importado.id)->LbN, u"2"_s);
    QCOMPARE(Ids(a.PendientesLbN(log)), QList<qint64>{sinEstado});
    QCOMPARE(a.Candidatos(log, u"ssb"_s, u"40M"_s, u"lu9dce"_s, u"lu1abc"_s).size(), 3);

    // Staging: reports cut to 3, remarks to 100, grids trimmed.
    q.RSE = u"5999"_s;
    q.Obs = QString(150, u'o');
    q.SuGrid = u" GF05 "_s;
    a.AgregarQSOEspera(q, u"17"_s, log);
    const FilaQSO e = a.FilasEspera().value(0);
    QCOMPARE(e.RSE, u"599"_s);
    QCOMPARE(e.Obs.size(), 100);
    QCOMPARE(e.SuGrid, u"GF05"_s);
    QCOMPARE(e.Dupe, u"17"_s);
    QCOMPARE(e.NombreLog, log);
    QVERIFY(a.VaciarEspera());
    QVERIFY(a.FilasEspera().isEmpty());
}

void TestAlmacen::comodines_data()
{
    QTest::addColumn<QString>("columna");
    QTest::addColumn<QString>("patron");
    QTest::addColumn<QStringList>("esperadas");
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
                                << "" << QStringList{"LU1ABC", "LU2XYZ", "AY0A", "LU_1", "LUX1"};
}

void TestAlmacen::comodines()
{
    QFETCH(QString, columna);
    QFETCH(QString, patron);
    QFETCH(QStringList, esperadas);
    const QStringList estaciones = {"LU1ABC", "LU2XYZ", "AY0A", "LU_1", "LUX1"};
    const QStringList obs = {"una media tarde", "al 100%", "1000 watts", "", ""};
    for (int i = 0; i < estaciones.size(); ++i) {
        RegistroQSO q = Qso(estaciones[i], u"01/05/2020"_s, u"10:00:0%1"_s.arg(i));
        q.Obs = obs[i];
        q.Nombre_Sat = i == 2 ? u"AO-7"_s : QString();
        alm_->AgregarQSO(q, u"L"_s);
    }
    Almacen::FiltroExportacion filtro;
    if (columna == u"estacion")
        filtro.estacion = patron;
    else if (columna == u"obs")
        filtro.obs = patron;
    else
        filtro.soloSatelite = true;
    QCOMPARE(Estaciones(alm_->ExportarQSOs(u"L"_s, filtro)), esperadas);
}

void TestAlmacen::historial()
{
    Almacen &a = *alm_;
    const QStringList estaciones = {"LU1ZZ", "LU1Z", "LU1Z/P", "LU1[A", "lu1zb", "LU1A"};
    for (int i = 0; i < estaciones.size(); ++i)
        a.AgregarQSO(Qso(estaciones[i], u"0%1/05/2020"_s.arg(i + 1)), u"L"_s);
    a.AgregarQSO(Qso(u"LU1ZX"_s), u"otro"_s);
    // Any case of the prefix finds any case of the call, and only calls that start with it
    // (the bound of the index range must fold the case as the column does).
    for (const QString &prefijo : {u"LU1Z"_s, u"lu1z"_s})
        QCOMPARE(Estaciones(a.HistorialDe(u"L"_s, prefijo)),
                 (QStringList{u"LU1ZZ"_s, u"LU1Z"_s, u"LU1Z/P"_s, u"lu1zb"_s}));
    QCOMPARE(a.HistorialDe(u"L"_s, u"LU1?"_s).size(), 6);
    QCOMPARE(a.HistorialDe(u"L"_s, u"XX"_s).size(), 0);
}

void TestAlmacen::concursos()
{
    Almacen &a = *alm_;
    FilaConcurso fundadora;
    fundadora.NombreLog = fundadora.LbN = u"Fiesta"_s;
    fundadora.Nombre_Sat = u"Incremental"_s;
    a.AgregarQSOConcurso(fundadora);
    a.AgregarQSOConcurso(FilaConcurso{}); // a row of no contest
    FilaConcurso qso = fundadora;
    qso.Modo = u"SSB"_s;
    qso.Banda = u"40m"_s;
    qso.Estacion = u"LU1ABC"_s;
    qso.Fecha = u"20240105"_s;
    qso.Hora = u"1200"_s;
    qso.Obs = u"nota"_s;
    const qint64 uno = a.AgregarQSOConcurso(qso);
    qso.Estacion = u"LU2XYZ"_s;
    qso.Hora = u"1100"_s;
    const qint64 dos = a.AgregarQSOConcurso(qso);

    QCOMPARE(a.LogsConcurso(), QStringList{u"Fiesta"_s});
    QVERIFY(a.ExisteLogConcurso(u"fiesta"_s));
    QVERIFY(!a.ExisteLogConcurso(u"Otra"_s));
    QCOMPARE(a.SatelitesDeConcurso(u"Fiesta"_s), QStringList{u"Incremental"_s});
    QCOMPARE(a.LogConcurso(u"Fiesta"_s).size(), 3);
    QCOMPARE(Estaciones(a.VistaConcurso(u"Fiesta"_s)), (QStringList{u"LU2XYZ"_s, u"LU1ABC"_s}));
    QCOMPARE(a.LogConcursoOrdenado(u"Fiesta"_s, true).last().id, uno);
    QCOMPARE(a.ConcursoPorModoBanda(u"Fiesta"_s, u"ssb"_s, u"40m"_s).size(), 2);
    QCOMPARE(a.ConcursoPorModoBandaEstacion(u"Fiesta"_s, u"SSB"_s, u"40m"_s, u"LU2XYZ"_s).size(),
             1);

    // The contest edit leaves Obs and the log name alone.
    FilaConcurso cambio = qso;
    cambio.Estacion = u"LU3QQ"_s;
    cambio.Obs = u"otra"_s;
    cambio.NombreLog = u"Otra"_s;
    QVERIFY(a.ActualizarQSOConcurso(dos, cambio));
    const FilaConcurso leida = a.VistaConcurso(u"Fiesta"_s).value(0);
    QCOMPARE(leida.Estacion, u"LU3QQ"_s);
    QCOMPARE(leida.Obs, u"nota"_s);
    QVERIFY(a.BorrarQSOConcurso(uno));
    QCOMPARE(a.LogConcurso(u"Fiesta"_s).size(), 2);
    QVERIFY(a.BorrarLogConcurso(u"Fiesta"_s));
    QVERIFY(a.LogsConcurso().isEmpty());
}

void TestAlmacen::esquemaViejo()
{
    alm_->Cerrar();
    QFile::remove(Archivo());
    {
        // A file of an earlier version: no late columns, no Tabla3.
        OtraConexion vieja(Archivo());
        const QString comunes = u"id INTEGER PRIMARY KEY AUTOINCREMENT, Modo, Banda, MyCall, "
                                "Estacion, Fecha, Hora, RSE, RSR, Obs, Operador, \"Nombre Log\", "
                                "Frecuencia"_s;
        vieja(u"CREATE TABLE Tabla1 (%1, MiGrid, SuGrid)"_s.arg(comunes));
        vieja(u"CREATE TABLE Tabla2 (%1)"_s.arg(comunes));
        vieja(u"INSERT INTO Tabla1 (Modo, Estacion, Fecha, Hora, \"Nombre Log\") VALUES ('CW', "
              "'LU1ABC', '2009-12-31', '10:00:00', 'Viejo'), (NULL, NULL, NULL, NULL, 'Viejo')"_s);
    }
    // Opening brings it up to date; the old rows keep their values and the count is right.
    QCOMPARE(alm_->Abrir(Archivo()), QString());
    QCOMPARE(alm_->CantidadQSOs(u"Viejo"_s), 1);
    QCOMPARE(alm_->UltimoQSO(u"Viejo"_s)->Fecha, u"31/12/2009"_s);
    QCOMPARE(alm_->UltimoQSO(u"Viejo"_s)->LbN, QString());

    OtraConexion otra(Archivo());
    auto columnas = [&](const QString &tabla) {
        return otra(u"SELECT name FROM pragma_table_info(?)"_s, {tabla}).join(u',');
    };
    const QString tabla1 = u"id,Modo,Banda,MyCall,Estacion,Fecha,Hora,RSE,RSR,Obs,Operador,"
                           "Nombre Log,Frecuencia,MiGrid,SuGrid,LbN,Nombre_Sat,Argento"_s;
    const QString tabla2 = u"id,Modo,Banda,MyCall,Estacion,Fecha,Hora,RSE,RSR,Obs,Operador,"
                           "Nombre Log,Frecuencia,LbN,Nombre_Sat,Argento"_s;
    QCOMPARE(columnas(u"Tabla1"_s), tabla1);
    QCOMPARE(columnas(u"Tabla2"_s), tabla2);
    QCOMPARE(columnas(u"Tabla3"_s), tabla1 + u",Dupe"_s);

    // Run twice: nothing changes and nothing fails.
    const QString esquema = u"SELECT sql FROM sqlite_master ORDER BY name"_s;
    const QStringList antes = otra(esquema);
    for (int vez = 0; vez < 2; ++vez) {
        alm_->ActualizarEsquema();
        QCOMPARE(alm_->UltimoError(), QString());
    }
    QCOMPARE(otra(esquema), antes);
    QCOMPARE(alm_->TodosLosQSOs().size(), 2);

    // What another program takes away while the file is open comes back.
    otra(u"DROP TABLE Tabla3"_s);
    otra(u"ALTER TABLE Tabla2 DROP COLUMN Argento"_s);
    alm_->ActualizarEsquema();
    QCOMPARE(columnas(u"Tabla2"_s), tabla2);
    QCOMPARE(columnas(u"Tabla3"_s), tabla1 + u",Dupe"_s);
}

void TestAlmacen::cuentasConOtraConexion()
{
    Almacen &a = *alm_;
    a.AgregarLogVacio(u"A"_s);
    a.AgregarQSO(Qso(u"LU1ABC"_s), u"A"_s);
    OtraConexion otra(Archivo());
    otra(u"INSERT INTO Tabla1 (Modo, \"Nombre Log\") VALUES ('CW', 'a'), ('', 'a'), ('FM', 'B')"_s);
    QCOMPARE(a.LogsConCantidad(), (Cantidades{{u"A"_s, 2}, {u"B"_s, 1}}));
    // The placeholder turned into a QSO, a QSO moved to another log, one deleted.
    otra(u"UPDATE Tabla1 SET Modo='SSB' WHERE Modo IS NULL"_s);
    QCOMPARE(a.CantidadQSOs(u"A"_s), 3);
    otra(u"UPDATE Tabla1 SET \"Nombre Log\"='C' WHERE Modo='FM'"_s);
    QCOMPARE(a.LogsConCantidad(), (Cantidades{{u"A"_s, 3}, {u"C"_s, 1}}));
    otra(u"DELETE FROM Tabla1 WHERE Modo='CW'"_s);
    QCOMPARE(a.LogsConCantidad(), (Cantidades{{u"A"_s, 2}, {u"C"_s, 1}}));
    otra(u"DELETE FROM Tabla1 WHERE \"Nombre Log\"='A'"_s);
    QCOMPARE(a.Logs(), QStringList{u"C"_s});
}

void TestAlmacen::paginasComoReferencia()
{
    Almacen &a = *alm_;
    const QString log = u"P"_s;
    struct Fila
    {
        QString iso, hora;
        qint64 id;
    };
    // Few dates and times, so that many rows tie and only the id orders them.
    QVector<Fila> ref;
    auto agregar = [&](int dia, const QString &hora) {
        const QString dd = u"%1"_s.arg(dia, 2, 10, QLatin1Char('0'));
        const qint64 id = a.AgregarQSO(Qso(u"LU"_s, dd + u"/12/2023"_s, hora), log);
        ref.append({u"2023-12-"_s + dd, hora, id});
        std::sort(ref.begin(), ref.end(), [](const Fila &x, const Fila &y) {
            return std::tie(x.iso, x.hora, x.id) > std::tie(y.iso, y.hora, y.id);
        });
    };
    const quint32 semilla = 347;
    qInfo("semilla %u", semilla);
    QRandomGenerator azar(semilla);
    a.IniciarTransaccion();
    a.AgregarLogVacio(log);
    for (int i = 0; i < 347; ++i) {
        agregar(1 + int(azar.bounded(4)), u"1%1:00:00"_s.arg(azar.bounded(3)));
        if (i % 7 == 0)
            a.AgregarQSO(Qso(u"CX"_s, u"02/12/2023"_s), u"otro"_s);
    }
    a.ConfirmarTransaccion();
    auto igual = [&](qint64 fila, int tamano = 20) {
        QList<qint64> esperados;
        const qint64 desde = std::max<qint64>(fila, 1) - 1;
        for (qint64 i = desde; i < desde + tamano && i < ref.size(); ++i)
            esperados << ref[i].id;
        const QList<qint64> leidos = Ids(a.PaginaLog(log, fila, tamano));
        if (leidos != esperados)
            qWarning() << "fila" << fila << "tamaño" << tamano;
        return leidos == esperados;
    };

    // Forward from the first page to the last, back again, jumps, edges and another size.
    const qint64 n = ref.size();
    for (qint64 fila = 1; fila <= n; fila += 20)
        QVERIFY(igual(fila));
    for (qint64 fila = (n - 1) / 20 * 20 + 1; fila >= 1; fila -= 20)
        QVERIFY(igual(fila));
    for (qint64 fila : {161, 41, 301, 321, 1, 341, 347, 348, 500, 0, 7, 27, 7, 146, 327, 328, 326})
        QVERIFY(igual(fila));
    for (qint64 fila = 1; fila <= n; fila += 50)
        QVERIFY(igual(fila, 50));

    // A write in the middle of paging: the pages around it count it.
    QVERIFY(igual(101));
    agregar(2, u"11:00:00"_s);
    QVERIFY(igual(121));
    QVERIFY(igual(101));
    QVERIFY(a.BorrarQSO(ref[110].id));
    ref.remove(110);
    QVERIFY(igual(121));
}

void TestAlmacen::paginaTrasEscrituraAjena()
{
    Almacen &a = *alm_;
    const QString log = u"P"_s;
    for (int i = 0; i < 60; ++i)
        a.AgregarQSO(
            Qso(u"LU%1"_s.arg(i), u"01/01/2024"_s, u"10:%1:00"_s.arg(i, 2, 10, QLatin1Char('0'))),
            log);
    QCOMPARE(a.PaginaLog(log, 1).first().Estacion, u"LU59"_s);
    // A newer QSO written by someone else moves every row down by one.
    OtraConexion otra(Archivo());
    otra(u"INSERT INTO Tabla1 (Modo, Estacion, Fecha, Hora, \"Nombre Log\") VALUES ('CW', "
         "'AJENO', '2024-01-02', '00:00:00', 'P')"_s);
    QCOMPARE(a.PaginaLog(log, 21).first().Estacion, u"LU40"_s);

    // Rows without a date or time, written from outside, sort last and cannot be sought by
    // key; every row is still listed once, walking forward or back.
    otra(u"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n WHERE i<30) INSERT INTO "
         "Tabla1 (Modo, Estacion, \"Nombre Log\") SELECT 'CW', 'SINFECHA' || i, 'P' FROM n"_s);
    QCOMPARE(a.CantidadQSOs(log), 91);
    QStringList adelante, atras;
    for (qint64 fila = 1; fila <= 91; fila += 20)
        adelante += Estaciones(a.PaginaLog(log, fila));
    for (qint64 fila = 81; fila >= 1; fila -= 20)
        atras = Estaciones(a.PaginaLog(log, fila)) + atras;
    QCOMPARE(adelante.size(), 91);
    QCOMPARE(atras, adelante);
    QCOMPARE(adelante.first(), u"AJENO"_s);
    QCOMPARE(adelante.mid(61).filter(u"SINFECHA"_s).size(), 30);
    QCOMPARE(QSet<QString>(adelante.begin(), adelante.end()).size(), 91);
}

void TestAlmacen::cargaMasiva_data()
{
    QTest::addColumn<QString>("enMedio");
    QTest::addColumn<bool>("masivaAlFinal");
    QTest::newRow("solo altas") << QString() << true;
    QTest::newRow("cuenta leída en medio") << u"contar"_s << false;
    QTest::newRow("historial en medio") << u"historial"_s << false;
    QTest::newRow("cambios en medio") << u"cambiar"_s << false;
    QTest::newRow("bajas en medio") << u"borrar"_s << false;
    QTest::newRow("Hacer Tabla! en medio") << u"vaciar"_s << false;
}

void TestAlmacen::cargaMasiva()
{
    QFETCH(QString, enMedio);
    QFETCH(bool, masivaAlFinal);
    // The same file and the same load twice: in bulk mode, and row by row with the triggers.
    QTemporaryDir otraCarpeta;
    const QString archivos[] = {Archivo(), otraCarpeta.filePath(u"base0.db"_s)};
    Almacen fila;
    QCOMPARE(fila.Abrir(archivos[1]), QString());
    for (const QString &archivo : archivos) {
        Almacen &a = archivo == Archivo() ? *alm_ : fila;
        a.AgregarLogVacio(u"Concurso"_s);
        a.AgregarQSO(Qso(u"LU1ABC"_s), u"Concurso"_s);
        // Rows from another program, QSOs without a date among them.
        OtraConexion ajena(archivo);
        ajena(u"INSERT INTO Tabla1 (Modo, Estacion, Fecha, Hora, \"Nombre Log\") "
              "VALUES ('CW', 'LU1XA', NULL, '10:00:00', 'Diario'), ('CW', 'LU2XB', '2022-03-01', "
              "NULL, 'Diario')"_s);
    }
    alm_->UmbralCargaMasiva(4);
    bool masivaEnMedio = false, masiva = false;
    const QStringList visto = Cargar(*alm_, enMedio, &masivaEnMedio, &masiva);
    QVERIFY(masivaEnMedio);
    QCOMPARE(masiva, masivaAlFinal);
    QCOMPARE(visto, Cargar(fila, enMedio));
    QVERIFY(!visto.filter(u"Diario: "_s).isEmpty());

    // Both files alike to whoever reads them: rows, counts (names too) and schema.
    OtraConexion masivo(archivos[0]), porFila(archivos[1]);
    QCOMPARE(alm_->TodosLosQSOs(), fila.TodosLosQSOs());
    QCOMPARE(Cuentas(masivo), Cuentas(porFila));
    QCOMPARE(Esquema(masivo), Esquema(porFila));
    // The history and the duplicate key are read through their index again.
    const QString consultas[] = {
        u"SELECT * FROM Tabla1 WHERE \"Nombre Log\"=? AND Estacion>=? AND Estacion<? AND "
        "Estacion LIKE ? ESCAPE '\\' ORDER BY Fecha, Hora, id"_s,
        u"SELECT * FROM Tabla1 WHERE \"Nombre Log\"=? AND Modo=? AND Banda=? AND MyCall=? AND "
        "Estacion=? ORDER BY id"_s};
    for (const QString &consulta : consultas) {
        const QString plan =
            masivo(u"EXPLAIN QUERY PLAN "_s + consulta, QVariantList(consulta.count(u'?'), u"x"_s))
                .join(u' ');
        QVERIFY2(plan.contains(u"USING INDEX Tabla1_Estacion"), qPrintable(plan));
    }
}

void TestAlmacen::cuandoEsMasiva_data()
{
    QTest::addColumn<int>("previas");
    QTest::addColumn<int>("altas");
    QTest::addColumn<bool>("transaccion");
    QTest::addColumn<bool>("masiva");
    QTest::newRow("menos que el umbral") << 0 << 9 << true << false;
    QTest::newRow("el umbral") << 0 << 10 << true << true;
    QTest::newRow("sin transacción") << 0 << 30 << false << false;
    QTest::newRow("menos que las que había") << 50 << 30 << true << false;
    QTest::newRow("tantas como había") << 50 << 50 << true << true;
}

void TestAlmacen::cuandoEsMasiva()
{
    QFETCH(int, previas);
    QFETCH(int, altas);
    QFETCH(bool, transaccion);
    QFETCH(bool, masiva);
    Almacen &a = *alm_;
    a.UmbralCargaMasiva(10);
    a.IniciarTransaccion();
    for (int i = 0; i < previas; ++i)
        a.AgregarQSO(Qso(u"LU1ABC"_s), u"A"_s);
    QVERIFY(a.ConfirmarTransaccion());
    if (transaccion)
        a.IniciarTransaccion();
    for (int i = 0; i < altas; ++i)
        a.AgregarQSO(Qso(u"LU2XYZ"_s), u"B"_s);
    QCOMPARE(a.EnCargaMasiva(), masiva);
    if (transaccion)
        QVERIFY(a.ConfirmarTransaccion());
    QVERIFY(!a.EnCargaMasiva());
    QCOMPARE(a.LogsConCantidad(), previas ? (Cantidades{{u"A"_s, previas}, {u"B"_s, altas}})
                                          : (Cantidades{{u"B"_s, altas}}));
}

void TestAlmacen::deshacerCargaMasiva()
{
    Almacen &a = *alm_;
    a.AgregarQSO(Qso(u"LU1ABC"_s), u"A"_s);
    OtraConexion otra(Archivo());
    const QStringList cuentas = Cuentas(otra), esquema = Esquema(otra);
    const QVector<FilaQSO> filas = a.TodosLosQSOs();

    a.UmbralCargaMasiva(3);
    for (int vez = 0; vez < 2; ++vez) {
        a.IniciarTransaccion();
        for (int i = 0; i < 20; ++i)
            a.AgregarQSO(Qso(u"LU2X%1"_s.arg(i)), i % 2 ? u"A"_s : u"B"_s);
        QVERIFY(a.EnCargaMasiva());
        QVERIFY(a.DeshacerTransaccion());
        QVERIFY(!a.EnCargaMasiva());
        // The file as before, index and trigger included.
        QCOMPARE(Esquema(otra), esquema);
        QCOMPARE(Cuentas(otra), cuentas);
        QCOMPARE(a.TodosLosQSOs(), filas);
    }
    // And the trigger counts the next add.
    a.AgregarQSO(Qso(u"LU3Q"_s), u"B"_s);
    QCOMPARE(a.LogsConCantidad(), (Cantidades{{u"A"_s, 1}, {u"B"_s, 1}}));
    QCOMPARE(Estaciones(a.HistorialDe(u"B"_s, u"LU"_s)), QStringList{u"LU3Q"_s});
}

void TestAlmacen::escrituraAjenaTrasCargaMasiva()
{
    Almacen &a = *alm_;
    a.UmbralCargaMasiva(2);
    a.IniciarTransaccion();
    for (int i = 0; i < 10; ++i)
        a.AgregarQSO(Qso(u"LU%1A"_s.arg(i)), u"A"_s);
    QVERIFY(a.EnCargaMasiva());
    QVERIFY(a.ConfirmarTransaccion());
    // The triggers are back: what another program writes is counted.
    OtraConexion otra(Archivo());
    otra(u"INSERT INTO Tabla1 (Modo, Estacion, \"Nombre Log\") VALUES ('CW', 'X1', 'a'), "
         "('CW', 'X2', 'C'), ('', 'X3', 'C')"_s);
    otra(u"DELETE FROM Tabla1 WHERE Estacion='LU0A'"_s);
    QCOMPARE(a.LogsConCantidad(), (Cantidades{{u"A"_s, 10}, {u"C"_s, 1}}));
    otra(u"UPDATE Tabla1 SET \"Nombre Log\"='C' WHERE Estacion='LU1A'"_s);
    QCOMPARE(a.LogsConCantidad(), (Cantidades{{u"A"_s, 9}, {u"C"_s, 2}}));
    // A second open finds nothing missing and leaves the counts as they are.
    a.Cerrar();
    QCOMPARE(a.Abrir(Archivo()), QString());
    QCOMPARE(Cuentas(otra), (QStringList{u"A|9|9|1"_s, u"C|3|2|1"_s}));
}

void TestAlmacen::noEsBaseDeDatos_data()
{
    QTest::addColumn<QByteArray>("contenido");
    QTest::addColumn<QString>("tablaAjena");
    QTest::newRow("texto") << QByteArray("Esto es un texto, no una base.\r\n") << QString();
    QTest::newRow("binario") << QByteArray(4096, '\xA5') << QString();
    QTest::newRow("cabecera rota")
        << QByteArray("SQLite format 3\0", 16) + QByteArray(200, '\x01') << QString();
    QTest::newRow("base de otro programa") << QByteArray() << u"Clientes"_s;
    QTest::newRow("Tabla1 ajena") << QByteArray() << u"Tabla1"_s;
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
        ajena(u"CREATE TABLE \"%1\" (codigo INTEGER, nombre TEXT)"_s.arg(tablaAjena));
        ajena(u"INSERT INTO \"%1\" VALUES (1, 'uno')"_s.arg(tablaAjena));
    }
    const QByteArray antes = Contenido(Archivo());
    const QStringList archivosAntes = QDir(dir_->path()).entryList(QDir::Files);

    Almacen otro;
    QCOMPARE(otro.Abrir(Archivo()),
             u"El archivo %1 no es una base de datos de Carancho Radiolog."_s.arg(
                 QDir::toNativeSeparators(QFileInfo(Archivo()).absoluteFilePath())));
    QVERIFY(!otro.Abierto());
    QVERIFY(otro.Logs().isEmpty());
    // Not a byte written, not even a journal beside it.
    QCOMPARE(Contenido(Archivo()), antes);
    QCOMPARE(QDir(dir_->path()).entryList(QDir::Files), archivosAntes);
}

void TestAlmacen::carpetaInvalida()
{
    alm_->Cerrar();
    Almacen otro;
    QVERIFY(
        otro.Abrir(dir_->filePath(u"no/existe/base0.db"_s)).startsWith(u"No existe la carpeta"));
    QVERIFY(!otro.Abierto());
    QCOMPARE(otro.AgregarQSO(Qso(u"LU1ABC"_s), u"L"_s), 0);
    QVERIFY(!otro.UltimoError().isEmpty());

    const QString carpeta = dir_->filePath(u"solo_lectura"_s);
    QDir().mkpath(carpeta);
    QFile::setPermissions(carpeta, QFile::ReadOwner | QFile::ExeOwner);
    if (QFileInfo(carpeta).isWritable())
        QSKIP("Como administrador toda carpeta se puede escribir");
    QVERIFY(otro.Abrir(carpeta + u"/base0.db"_s).startsWith(u"No se puede escribir en la carpeta"));
    QVERIFY(!QFile::exists(carpeta + u"/base0.db"_s));
}

QTEST_GUILESS_MAIN(TestAlmacen)
#include "test_almacen.moc"
