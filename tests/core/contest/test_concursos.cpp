// Contests in the core: serials through changes of band and mode and reopenings, the
// duplicate rule, the Cabrillo lines and header, the edit window's checks, and a name
// with an apostrophe from its creation to its deletion.
#include "core/contest/Cabrillo.h"
#include "core/contest/Concurso.h"
#include "core/contest/EdicionConcurso.h"
#include "core/store/Almacen.h"
#include "support/Hecho.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

// A store over a new file with one contest founded.
struct Prueba
{
    explicit Prueba(const QString &tipo = SerieIncremental(), const QString &nombre = u"CQ M"_s)
        : concurso(nombre)
        , tipo(tipo)
    {
        Hecho(almacen.Abrir(carpeta.filePath(u"base0.db"_s)));
        Hecho(FundarConcurso(almacen, concurso, tipo));
    }
    // A QSO as the window stores it, with the serial of the window.
    void Qso(const QString &senal, const QString &modo, const QString &banda, const QString &rse,
             const QString &myCall = u"LU1AB"_s)
    {
        const EntradaConcurso e{myCall,  u"13/11/2010"_s, u"15:30"_s, senal, rse,
                                u"23"_s, u"7"_s,          u"000"_s,   banda, modo};
        const FilaEntrada f = FilaDeEntrada(e, concurso, tipo);
        QVERIFY(!f.falta);
        Hecho(almacen.AgregarQSOConcurso(f.fila));
    }
    QTemporaryDir carpeta;
    Almacen almacen;
    QString concurso, tipo;
};

FilaConcurso Fila(const QString &modo, const QString &banda, const QString &myCall,
                  const QString &estacion)
{
    FilaConcurso f;
    f.Modo = modo, f.Banda = banda, f.MyCall = myCall, f.Estacion = estacion;
    f.Fecha = u"20101113"_s, f.Hora = u"1530"_s, f.RSE = u"1"_s, f.RSR = u"23"_s;
    return f;
}

} // namespace

class TestConcursos : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void duplicados_data();
    void duplicados();
    void filaDeEntrada_data();
    void filaDeEntrada();
    void lineaCabrillo_data();
    void lineaCabrillo();
    void qsosCabrillo();
    void encabezadoYArchivo();
    void edicion_data();
    void edicion();
    void listaDelElegidor();
};

void TestConcursos::duplicados_data()
{
    QTest::addColumn<QString>("senal");
    QTest::addColumn<QString>("modo");
    QTest::addColumn<QString>("banda");
    QTest::addColumn<bool>("duplicado");
    QTest::newRow("mismo QSO") << "LU2CD"
                               << "SSB"
                               << "40m" << true;
    QTest::newRow("PH es SSB") << "LU2CD"
                               << "PH"
                               << "40m" << true;
    QTest::newRow("minúsculas") << "lu2cd"
                                << "SSB"
                                << "40m" << true;
    QTest::newRow("otro modo") << "LU2CD"
                               << "CW"
                               << "40m" << false;
    QTest::newRow("otra banda") << "LU2CD"
                                << "SSB"
                                << "80m" << false;
    QTest::newRow("otra estación") << "LU3EF"
                                   << "SSB"
                                   << "40m" << false;
}

void TestConcursos::duplicados()
{
    QFETCH(QString, senal);
    QFETCH(QString, modo);
    QFETCH(QString, banda);
    Prueba p;
    p.Qso(u"LU2CD"_s, u"SSB"_s, u"40m"_s, u"1"_s);
    Prueba otro(SerieIncremental(), u"OTRO"_s); // another contest never counts
    QTEST(EsDuplicadoConcurso(p.almacen, p.concurso, senal, modo, banda), "duplicado");
}

void TestConcursos::filaDeEntrada_data()
{
    QTest::addColumn<QString>("fecha");
    QTest::addColumn<QString>("hora");
    QTest::addColumn<QString>("mhz");
    QTest::addColumn<QString>("khz");
    QTest::addColumn<QString>("esperado"); // "fecha hora frecuencia" or the message
    QTest::newRow("40 m") << "13/11/2010"
                          << "15:30"
                          << "7"
                          << "050"
                          << "20101113 1530 7050";
    QTest::newRow("6 m sin kHz") << "01/02/2024"
                                 << "00:05"
                                 << "6"
                                 << "000"
                                 << "20240201 0005 6000";
    QTest::newRow("punto en kHz") << "01/02/2024"
                                  << "9:05"
                                  << "14"
                                  << ".2"
                                  << "20240201 0905 142";
    QTest::newRow("fecha que no es") << "31/04/2024"
                                     << "10:00"
                                     << "7"
                                     << "000"
                                     << "la Fecha 31/04/2024 no es válida!\r\nFormato: dd/mm/aaaa";
    QTest::newRow("hora que no es") << "01/04/2024"
                                    << "24:00"
                                    << "7"
                                    << "000"
                                    << "la Hora 24:00 no es válida!\r\nFormato: hh:mm";
}

void TestConcursos::filaDeEntrada()
{
    QFETCH(QString, fecha);
    QFETCH(QString, hora);
    QFETCH(QString, mhz);
    QFETCH(QString, khz);
    const EntradaConcurso e{u"LU1AB"_s, fecha, hora, u"LU2CD"_s, u"1"_s,
                            u"2"_s,     mhz,   khz,  u"40m"_s,   u"CW"_s};
    const FilaEntrada f = FilaDeEntrada(e, u"CQ"_s, SerieFija());
    QTEST(f.falta ? f.falta->mensaje
                  : QStringList({f.fila.Fecha, f.fila.Hora, f.fila.Frecuencia}).join(u' '),
          "esperado");
}

void TestConcursos::lineaCabrillo_data()
{
    QTest::addColumn<FilaConcurso>("fila");
    QTest::addColumn<QString>("linea");
    FilaConcurso f = Fila(u"CW"_s, u"40m"_s, u"LU1AB"_s, u"LU2CD"_s);
    QTest::newRow("ejemplo")
        << f << "QSO:  7000 CW 2010-11-13 1530 LU1AB         599 1      LU2CD         599 23    ";
    f = Fila(u"FM"_s, u"2m"_s, u"LU1AB/D"_s, u"LU12345678ABCD"_s);
    f.RSE = u"1234567"_s;
    QTest::newRow("FM en 2 m, señal y serie largas")
        << f << "QSO:144000 PH 2010-11-13 1530 LU1AB/D        59 1234567 LU12345678ABCD  59 23    ";
    f = Fila(u"SSB"_s, u"30m"_s, u"LU1AB"_s, u"LU2CD"_s);
    QTest::newRow("banda que no está en la tabla")
        << f << "QSO:   30m PH 2010-11-13 1530 LU1AB          59 1      LU2CD          59 23    ";
}

void TestConcursos::lineaCabrillo()
{
    QFETCH(FilaConcurso, fila);
    QTEST(LineaCabrillo(fila), "linea");
}

void TestConcursos::qsosCabrillo()
{
    FilaConcurso fundacion;
    fundacion.NombreLog = u"CQ"_s;
    const FilaConcurso a = Fila(u"CW"_s, u"40m"_s, u"LU1AB"_s, u"LU2CD"_s);
    const FilaConcurso otra = Fila(u"CW"_s, u"40m"_s, u"LU9ZZ"_s, u"LU3EF"_s);
    QSOsCabrillo r = ArmarQSOsCabrillo({fundacion, a, a}, u"LU1AB"_s);
    QCOMPARE(r.cantidad, 2);
    QCOMPARE(r.texto, LineaCabrillo(a) + u"\r\n"_s + LineaCabrillo(a) + u"\r\n"_s);
    QVERIFY(!r.otraSenal);
    // Another own callsign stops at its row, with the lines before it kept.
    r = ArmarQSOsCabrillo({a, otra, a}, u"LU1AB"_s);
    QCOMPARE(r.cantidad, 1);
    QVERIFY(r.otraSenal);
}

void TestConcursos::encabezadoYArchivo()
{
    EncabezadoCabrillo e{u"LU1AB"_s, u"CQ M"_s, u"SINGLE-OP"_s, u"LOW"_s, u"160m"_s,  u"MIXED"_s,
                         {},         u"Juan"_s, u"Calle 1"_s,   {},       u"Salta"_s, u"j@x.ar"_s};
    const QString esperado =
        u"START-OF-LOG: 3.0\r\nCALLSIGN: LU1AB\r\nCONTEST: CQ M\r\nCATEGORY-OPERATOR: SINGLE-OP\r\n"
        "CATEGORY-POWER: LOW\r\nCATEGORY-BAND: 160m\r\nCATEGORY-MODE: MIXED\r\nOPERATORS: \r\n"
        "NAME: Juan\r\nADDRESS: Calle 1\r\nADDRESS: \r\nADDRESS: Salta\r\nE-MAIL: j@x.ar\r\n"
        "CREATED-BY: CR RADIOLOG 2.1.03\r\n"_s;
    QCOMPARE(TextoEncabezado(e, u"2.1.03"_s), esperado);

    QTemporaryDir carpeta;
    const QString archivo = carpeta.filePath(u"cq.log"_s);
    Hecho(GuardarCabrillo(archivo, u"QSO: Ñ\nEND-OF-LOG:"_s));
    QFile f(archivo);
    QVERIFY(f.open(QIODevice::ReadOnly));
    QCOMPARE(f.readAll(), QByteArray("QSO: \xD1\r\nEND-OF-LOG:\r\n"));
    // A folder where the file should be: a message, no crash.
    QVERIFY(!GuardarCabrillo(carpeta.path(), u"x"_s).Mensaje().isEmpty());

    // datos.cbr: missing reads as nothing; lines past the fifth are not the header's.
    QCOMPARE(LeerDatosCbr(carpeta.path()), QStringList());
    QFile datos(carpeta.path() + u"/datos.cbr"_s);
    QVERIFY(datos.open(QIODevice::WriteOnly));
    datos.write("Juan\r\n\r\n\r\n\r\nj@x.ar\r\nsobra\r\n");
    datos.close();
    QCOMPARE(LeerDatosCbr(carpeta.path()), QStringList({u"Juan"_s, {}, {}, {}, u"j@x.ar"_s}));
}

void TestConcursos::edicion_data()
{
    QTest::addColumn<int>("campo"); // 0 frequency, 1 date, 2 time
    QTest::addColumn<QString>("texto");
    QTest::addColumn<QStringList>("mensajes");
    QTest::newRow("kHz vacío") << 0 << "" << QStringList{"Ingrese la frecuencia en KHZ!"};
    QTest::newRow("1000 kHz") << 0 << "1000" << QStringList{};
    QTest::newRow("150001 kHz") << 0 << "150001"
                                << QStringList{"150001 KHz NO ES BANDA DE CONCURSO!"};
    QTest::newRow("día 32") << 1 << "20101332" << QStringList{"Error en la fecha, día 32!"};
    QTest::newRow("mes 13 muestra el día")
        << 1 << "20101331" << QStringList{"Error en la fecha, mes 31!"};
    QTest::newRow("hora buena") << 2 << "2359" << QStringList{};
    QTest::newRow("larga: tres cajas")
        << 2 << "99:99"
        << QStringList{"Error en la HORA, formato HHMM!", "Error en la HORA 99!",
                       "Error en los MINUTOS 99!"};
}

void TestConcursos::edicion()
{
    QFETCH(int, campo);
    QFETCH(QString, texto);
    const QStringList mensajes = campo == 0   ? RevisarFrecuenciaRegistro(texto)
                                 : campo == 1 ? RevisarFechaRegistro(texto)
                                              : RevisarHoraRegistro(texto);
    QTEST(mensajes, "mensajes");
}

void TestConcursos::listaDelElegidor()
{
    Prueba p(SerieFija(), u"B"_s);
    Hecho(FundarConcurso(p.almacen, u"A"_s, SerieIncremental()));
    Hecho(FundarConcurso(p.almacen, u"C"_s, SerieIncremental()));
    p.Qso(u"LU2CD"_s, u"SSB"_s, u"40m"_s, u"X"_s);
    p.Qso(u"LU3EF"_s, u"SSB"_s, u"40m"_s, u"X"_s);
    QCOMPARE(p.almacen.ConcursosConCantidad(),
             (QVector<Almacen::ConcursoListado>{{u"A"_s, SerieIncremental(), 0},
                                                {u"B"_s, SerieFija(), 2},
                                                {u"C"_s, SerieIncremental(), 0}}));
    QVERIFY(ConcursoRepetido(p.almacen, u"b"_s));
    QVERIFY(!ConcursoRepetido(p.almacen, u"D"_s));
}

QTEST_GUILESS_MAIN(TestConcursos)
#include "test_concursos.moc"
