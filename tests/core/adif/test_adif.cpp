// SPDX-License-Identifier: GPL-3.0-or-later
// The ADIF files byte for byte in their three kinds, the search of the export window on a
// small log, and the backups of the database; a file that cannot be written.
#include "core/adif/Busqueda.h"
#include "core/adif/ExportacionAdif.h"
#include "core/adif/Respaldo.h"
#include "core/store/Almacen.h"
#include "support/ContextoPrueba.h"
#include "support/Hecho.h"

#include <QDir>
#include <QTest>

using namespace Qt::StringLiterals;

Q_DECLARE_METATYPE(FiltrosBusqueda)

namespace {

const OrigenAdif kOrigen{u"9.87"_s, QDateTime(QDate(2024, 5, 15), QTime(14, 30, 5))};
const QByteArray kCabecera = "<PROGRAMID:17>Carancho Radiolog\r\n<PROGRAMVERSION:4>9.87\r\n"
                             "<ADIF_VER:4>3.04\r\n<CREATED_TIMESTAMP:15>20240515 143005\r\n"
                             "<EOH>\r\n";
// The fields of the row every case starts from, up to the reports.
const QByteArray kComun = "<STATION_CALLSIGN:6>LU1AAA<CALL:5>LU5XX";
const QByteArray kDespues =
    "<BAND:3>40m<FREQ:5>7.150<QSO_DATE:8>20240501<TIME_ON:4>1020<RST_SENT:2>59<RST_RCVD:2>57";

// A plain SSB QSO of LU1AAA with LU5XX, with "Campo=valor" changes, and its log ("Log"
// unless changed).
std::pair<RegistroQSO, QString> Qso(const QString &cambios)
{
    RegistroQSO q;
    q.MyCall = u"LU1AAA"_s, q.Estacion = u"LU5XX"_s, q.Modo = u"SSB"_s, q.Banda = u"40m"_s;
    q.Frecuencia = u"7.150"_s, q.Fecha = u"01/05/2024"_s, q.Hora = u"10:20:00"_s;
    q.RSE = u"59"_s, q.RSR = u"57"_s;
    QString log = u"Log"_s;
    const std::pair<const char *, QString *> campos[] = {
        {"MyCall", &q.MyCall},     {"Estacion", &q.Estacion}, {"Modo", &q.Modo},
        {"Banda", &q.Banda},       {"Fecha", &q.Fecha},       {"Obs", &q.Obs},
        {"Operador", &q.Operador}, {"MiGrid", &q.MiGrid},     {"SuGrid", &q.SuGrid},
        {"Sat", &q.Nombre_Sat},    {"LbN", &q.LbN},           {"Log", &log}};
    for (const QString &cambio : cambios.split(u';', Qt::SkipEmptyParts))
        for (const auto &[nombre, campo] : campos)
            if (cambio.section(u'=', 0, 0) == QLatin1String(nombre))
                *campo = cambio.section(u'=', 1);
    return {q, log};
}

FilaConcurso Concurso(const RegistroQSO &q)
{
    FilaConcurso c;
    c.MyCall = q.MyCall, c.Estacion = q.Estacion, c.Modo = q.Modo, c.Banda = q.Banda;
    c.Fecha = u"20240501"_s, c.Hora = u"1020"_s, c.RSE = u"57"_s, c.RSR = u"57"_s;
    c.Frecuencia = u"7100"_s, c.NombreLog = u"Concurso"_s;
    return c;
}

qint64 FilasEn(const QString &archivo)
{
    Almacen a;
    Hecho(a.Abrir(archivo));
    return a.TodosLosQSOs().size();
}

} // namespace

class TestAdif : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void perfiles_data()
    {
        QTest::addColumn<QString>("perfil"); // its row name's first word
        QTest::addColumn<QStringList>("filas");
        QTest::addColumn<QByteArray>("registros"); // header and <EOF> aside
        const auto fila = [](const char *nombre, const QStringList &filas, const QByteArray &r) {
            QTest::newRow(nombre) << QString::fromUtf8(nombre).section(u':', 0, 0) << filas << r;
        };
        const QByteArray b = kComun + "<MODE:3>SSB" + kDespues; // SSB, as every case starts
        fila("búsqueda: DVoice, satélite, operador con blanco final",
             {"Modo=DVoice;Sat=AO-7;Operador=LU2BB ;MiGrid=   "},
             kComun + "<MODE:12>DIGITALVOICE" + kDespues +
                 "<PROP_MODE:3>SAT<SAT_NAME:4>AO-7<OPERATOR:6>LU2BB <EOR>\r\n");
        fila(
            "búsqueda con QSLMSG: comentario, grillas detrás",
            {"Obs=hello;MiGrid=GF05;SuGrid= FF78", "Operador=  "},
            b + "<COMMENT:5>hello<QSLMSG:5>hello<MY_GRIDSQUARE:4>GF05<GRIDSQUARE:5> FF78<EOR>\r\n" +
                b + "<EOR>\r\n");
        fila("búsqueda con QSLMSG: observación en blanco la da sola", {"Obs=  "},
             b + "<QSLMSG:2>  <EOR>\r\n");
        fila("búsqueda: acento y emoji cuentan bytes", {"Estacion=LU5ÑA;Obs=Muñoz 📻"},
             "<STATION_CALLSIGN:6>LU1AAA<CALL:6>LU5ÑA<MODE:3>SSB" + kDespues +
                 "<COMMENT:11>Muñoz 📻<EOR>\r\n");
        // Placeholders never go out; the log's name always does.
        fila("respaldo: estados de LbN y nombre del log",
             {"LbN=0;Modo=DVoice;Log=Log d'Oro", "LbN=2", "LbN=1", "LbN=", "MyCall="},
             kComun + "<MODE:6>DVoice" + kDespues + "<QSL_RCVD:1>N<LOG_NAME:9>Log d'Oro<EOR>\r\n" +
                 b + "<QSL_RCVD:1>Y<LOG_NAME:3>Log<EOR>\r\n" + b + "<LOG_NAME:3>Log<EOR>\r\n" + b +
                 "<LOG_NAME:3>Log<EOR>\r\n");
        fila("respaldo: satélite, comentario y grillas",
             {"Sat=AO-7;Obs=hola ;Operador=LU2BB;SuGrid=FF78"},
             b + "<PROP_MODE:3>SAT<SAT_NAME:4>AO-7<OPERATOR:5>LU2BB<COMMENT:5>hola "
                 "<GRIDSQUARE:4>FF78<LOG_NAME:3>Log<EOR>\r\n");
        // The first band is not of a contest: no frequency yet. 17 m keeps the one before.
        const QByteArray c = "<STATION_CALLSIGN:6>LU1AAA<CALL:5>LU5XX<QSO_DATE:8>20240501"
                             "<TIME_ON:4>1020";
        fila("concurso: reportes del modo, frecuencia de la banda",
             {"Banda=30m;Modo=CW", "Banda=2m;Modo=FM", "Banda=17m;Modo=SSB", "Modo="},
             c + "<MODE:2>CW<FREQ:0><RST_SENT:3>599<RST_RCVD:3>599<EOR>\r\n" + c +
                 "<MODE:2>FM<FREQ:7>144.000<RST_SENT:3>599<RST_RCVD:3>599<EOR>\r\n" + c +
                 "<MODE:3>SSB<FREQ:7>144.000<RST_SENT:2>59<RST_RCVD:2>59<EOR>\r\n");
    }

    void perfiles()
    {
        ContextoPrueba p;
        QFETCH(QString, perfil);
        QFETCH(QStringList, filas);
        QFETCH(QByteArray, registros);
        const QString archivo = p.Archivo(u"salida.adi"_s);
        QVector<FilaConcurso> concurso;
        for (const QString &f : filas) {
            const auto [q, log] = Qso(f);
            Hecho(p->almacen().AgregarQSOImportado(q, log));
            concurso << Concurso(q);
        }
        QByteArray fin = "<EOF>\r\n";
        if (perfil.startsWith(u"búsqueda")) {
            const QVector<FilaQSO> lista = p->almacen().LogCompletoAscendente(u"Log"_s);
            Hecho(ExportBusqueda(archivo, lista, perfil.endsWith(u"QSLMSG"), kOrigen));
        } else if (perfil == u"respaldo") {
            Hecho(p->almacen().AgregarLogVacio(u"Vacío"_s));
            QCOMPARE(Hecho(ExportRespaldo(p->almacen(), archivo, kOrigen)),
                     registros.count("<EOR>"));
        } else {
            // A contest's file ends with no <EOF>.
            QVERIFY(Hecho(ExportConcurso(archivo, concurso, u"LU1AAA"_s, kOrigen)));
            fin.clear();
        }
        QCOMPARE(p.Leer(u"salida.adi"_s), kCabecera + registros + fin);
    }

    void busqueda_data()
    {
        QTest::addColumn<FiltrosBusqueda>("filtros");
        QTest::addColumn<QStringList>("esperadas");
        using F = FiltrosBusqueda;
        const auto fila = [](const char *nombre, const F &f, const QStringList &esperadas) {
            QTest::newRow(nombre) << f << esperadas;
        };
        fila("sin filtros, de la más vieja", {}, {"LU1ABC", "LU2XYZ", "W1AW", "LU5DEF"});
        fila("valor entero", {.corresponsal = u"LU1"_s}, {});
        // The callsign's pattern bounds a range of its index: the range must fold the case.
        fila("corresponsal con *", {.corresponsal = u"lu*"_s}, {"LU1ABC", "LU2XYZ", "LU5DEF"});
        fila("modo con *", {.modo = u"D*"_s}, {"LU5DEF"});
        fila("banda", {.banda = u"20M"_s}, {"LU2XYZ", "W1AW"});
        fila("obs: _ literal", {.observaciones = u"100_"_s}, {});
        fila("obs: % literal, en el medio", {.observaciones = u"100%"_s}, {"LU1ABC"});
        fila("fechas, ambos días", {.desde = u"10/05/2024"_s, .hasta = u"15/05/2024"_s},
             {"LU2XYZ", "W1AW"});
        fila("satélite", {.satelite = true}, {"W1AW"});
        fila("argentinos, todos", {.soloArgentinos = true}, {"LU1ABC", "LU2XYZ", "LU5DEF"});
        fila("argentinos, no subidos", {.soloArgentinos = true, .lbn = OpcionLbN::NoSubidos},
             {"LU5DEF"});
    }

    void busqueda()
    {
        ContextoPrueba p;
        const QStringList filas = {
            "Estacion=LU2XYZ;Modo=CW;Banda=20m;Fecha=10/05/2024;LbN=2",
            "Estacion=LU1ABC;Obs=it's 100% ok;LbN=1",
            "Estacion=W1AW;Modo=FT8;Banda=20m;Sat=AO-7;Fecha=15/05/2024;LbN=0;Obs=1000 W",
            "Estacion=LU5DEF;Modo=DVoice;Operador=LU9OP;Fecha=20/05/2024;LbN=0",
            "Estacion=LU7ZZZ;Modo=;Fecha=",
            "Estacion=LU1ABC;Log=Otro"};
        for (const QString &f : filas) {
            const auto [q, log] = Qso(f);
            Hecho(p->almacen().AgregarQSOImportado(q, log));
        }
        Hecho(p->almacen().AgregarLogVacio(u"Log"_s));
        QFETCH(FiltrosBusqueda, filtros);
        QStringList estaciones;
        for (const FilaQSO &f :
             p->almacen().QSOsPorIds(Hecho(BuscarQSOsFiltrados(p->almacen(), u"Log"_s, filtros))))
            estaciones << f.Estacion;
        QTEST(estaciones, "esperadas");
    }

    void respaldoDeLaBase()
    {
        ContextoPrueba p;
        for (int i = 0; i < 50; ++i)
            Hecho(p->almacen().AgregarQSO(Qso(u"Estacion=LU%1AA"_s.arg(i)).first, u"Log"_s));
        const QDate hoy(2024, 5, 15);
        const QString copia = p.Archivo(u"base0_15_05_24.db"_s);
        QCOMPARE(ArchivoRespaldo(p.Carpeta(), hoy), copia);

        // Another connection holds a write open meanwhile: the copy has what was confirmed.
        Almacen otra;
        Hecho(otra.Abrir(p->almacen().Archivo()));
        Hecho(otra.IniciarTransaccion());
        Hecho(otra.AgregarQSO(Qso({}).first, u"Log"_s));
        QCOMPARE(Hecho(RespaldarBase(p->almacen(), p.Carpeta(), hoy)), copia);
        Hecho(otra.ConfirmarTransaccion());
        QCOMPARE(FilasEn(copia), 50);

        // A second copy on the same day takes the place of the first.
        QCOMPARE(Hecho(RespaldarBase(p->almacen(), p.Carpeta(), hoy)), copia);
        QCOMPARE(FilasEn(copia), 51);

        // A copy that cannot be written leaves the day's copy as it was.
        Hecho(p->almacen().AgregarQSO(Qso({}).first, u"Log"_s));
        QVERIFY(QDir().mkpath(copia + u".tmp"_s));
        const Resultado<QString> r = RespaldarBase(p->almacen(), p.Carpeta(), hoy);
        QVERIFY(!r);
        QVERIFY2(r.Mensaje().startsWith(u"Operation Failed\r\n\r\n"_s), qPrintable(r.Mensaje()));
        QCOMPARE(FilasEn(copia), 51);
        QCOMPARE(QDir(p.Carpeta()).entryList({u"base0_*"_s}),
                 QStringList({u"base0_15_05_24.db"_s, u"base0_15_05_24.db.tmp"_s}));

        // An ADIF export over a folder of its name: nothing takes its place, the folder stays.
        const QString archivo = p.Archivo(u"ocupado.adi"_s);
        QVERIFY(QDir().mkpath(archivo));
        const Resultado<> e = ExportBusqueda(archivo, {FilaQSO{}}, false, kOrigen);
        QVERIFY2(!e && e.Mensaje().startsWith(u"No se pudo guardar el archivo "_s + archivo),
                 qPrintable(e.Mensaje()));
        QVERIFY(QFileInfo(archivo).isDir());
    }
};

QTEST_GUILESS_MAIN(TestAdif)
#include "test_adif.moc"
