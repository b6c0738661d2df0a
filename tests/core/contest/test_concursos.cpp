// SPDX-License-Identifier: GPL-3.0-or-later
// Contests in the core: the duplicate rule and the chooser's list over one store, the row of
// a typed QSO, the Cabrillo lines, header and file, and the edit window's checks.
#include "core/contest/Cabrillo.h"
#include "core/contest/Concurso.h"
#include "core/contest/EdicionConcurso.h"
#include "core/store/Almacen.h"
#include "support/ContextoPrueba.h"
#include "support/Hecho.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

template<typename... T> void Fila(const char *nombre, const T &...valores)
{
    (QTest::newRow(nombre) << ... << valores);
}

// Founded out of order: "CQ M" (fixed) with LU2CD on SSB in 40 m, "A" with LU5IJ the same, "C".
struct Prueba
{
    Prueba()
    {
        for (const QString &c : {u"CQ M"_s, u"A"_s, u"C"_s})
            Hecho(FundarConcurso(almacen, c, c == u"CQ M" ? SerieFija() : SerieIncremental()));
        Qso(u"CQ M"_s, u"LU2CD"_s);
        Qso(u"A"_s, u"LU5IJ"_s);
    }
    void Qso(const QString &concurso, const QString &senal)
    {
        const EntradaConcurso e{u"LU1AB"_s, u"13/11/2010"_s, u"15:30"_s, senal,    u"1"_s,
                                u"23"_s,    u"7"_s,          u"000"_s,   u"40m"_s, u"SSB"_s};
        Hecho(almacen.AgregarQSOConcurso(FilaDeEntrada(e, concurso, SerieFija()).fila));
    }
    ContextoPrueba p;
    Almacen &almacen = p->almacen();
};

// A contest QSO of 13/11/2010 at 15:30 from "mode band own-callsign station sent-serial".
FilaConcurso Registro(const QString &texto)
{
    const QStringList c = texto.split(u' ');
    FilaConcurso f;
    f.Modo = c[0], f.Banda = c[1], f.MyCall = c[2], f.Estacion = c[3], f.RSE = c.value(4);
    f.Fecha = u"20101113"_s, f.Hora = u"1530"_s, f.RSR = u"23"_s;
    return f;
}

} // namespace

class TestConcursos : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    // qso: "callsign mode band" asked of "CQ M".
    void duplicados_data()
    {
        QTest::addColumn<QString>("qso");
        QTest::addColumn<bool>("duplicado");
        Fila("mismo QSO", "LU2CD SSB 40m", true);
        Fila("PH es SSB", "LU2CD PH 40m", true);
        Fila("minúsculas", "lu2cd SSB 40m", true);
        Fila("otra banda", "LU2CD SSB 80m", false);
        Fila("otra estación", "LU3EF SSB 40m", false);
        Fila("solo en otro concurso", "LU5IJ SSB 40m", false);
    }

    void duplicados()
    {
        QFETCH(QString, qso);
        const QStringList q = qso.split(u' ');
        Prueba p;
        QTEST(EsDuplicadoConcurso(p.almacen, u"CQ M"_s, q[0], q[1], q[2]), "duplicado");
    }

    // By name, each with the series of its founding row and its QSOs but not that row; a
    // name is taken in any case.
    void listaDelElegidor()
    {
        Prueba p;
        QVERIFY(ConcursoRepetido(p.almacen, u"cq m"_s));
        QCOMPARE(p.almacen.ConcursosConCantidad(),
                 (QVector<Almacen::ConcursoListado>{{u"A"_s, SerieIncremental(), 1},
                                                    {u"C"_s, SerieIncremental(), 0},
                                                    {u"CQ M"_s, SerieFija(), 1}}));
    }

    // tecleado: "date time MHz kHz". A typed QSO's date, time and frequency as stored, or the
    // message of what cannot be read.
    void filaDeEntrada_data()
    {
        QTest::addColumn<QString>("tecleado");
        QTest::addColumn<QString>("esperado");
        Fila("6 m sin kHz", "01/02/2024 00:05 6 000", "20240201 0005 6000");
        Fila("punto en kHz", "01/02/2024 9:05 14 .2", "20240201 0905 142");
        Fila("hora que no es", "01/04/2024 24:00 7 000",
             "la Hora 24:00 no es válida!\r\nFormato: hh:mm");
    }

    void filaDeEntrada()
    {
        QFETCH(QString, tecleado);
        const QStringList t = tecleado.split(u' ');
        const EntradaConcurso e{u"LU1AB"_s, t[0], t[1], u"LU2CD"_s, u"1"_s,
                                u"2"_s,     t[2], t[3], u"40m"_s,   u"CW"_s};
        const FilaEntrada f = FilaDeEntrada(e, u"CQ"_s, SerieFija());
        QTEST(f.falta ? f.falta->mensaje
                      : QStringList({f.fila.Fecha, f.fila.Hora, f.fila.Frecuencia}).join(u' '),
              "esperado");
    }

    void lineaCabrillo_data()
    {
        QTest::addColumn<QString>("qso");
        QTest::addColumn<QString>("linea");
        Fila("ejemplo", "CW 40m LU1AB LU2CD 1",
             "QSO:  7000 CW 2010-11-13 1530 LU1AB         599 1      LU2CD         599 23    ");
        Fila("FM en 2 m, señal y serie largas", "FM 2m LU1AB/D LU12345678ABCD 1234567",
             "QSO:144000 PH 2010-11-13 1530 LU1AB/D        59 1234567 LU12345678ABCD  59 23    ");
        Fila("banda que no está en la tabla", "SSB 30m LU1AB LU2CD 1",
             "QSO:   30m PH 2010-11-13 1530 LU1AB          59 1      LU2CD          59 23    ");
    }

    // Each QSO's line closed by CRLF, the founding row skipped; another own callsign stops
    // the export at its row, with the lines before it kept.
    void lineaCabrillo()
    {
        QFETCH(QString, qso);
        QFETCH(QString, linea);
        const FilaConcurso fila = Registro(qso), fundacion;
        FilaConcurso otra = fila;
        otra.MyCall = u"LU9ZZ"_s;
        const QSOsCabrillo r = ArmarQSOsCabrillo({fundacion, fila, fila}, fila.MyCall),
                           s = ArmarQSOsCabrillo({fila, otra, fila}, fila.MyCall);
        QCOMPARE(r.texto, linea + u"\r\n"_s + linea + u"\r\n"_s);
        QCOMPARE(s.texto, linea + u"\r\n"_s);
        QVERIFY(r.cantidad == 2 && !r.otraSenal && s.cantidad == 1 && s.otraSenal);
    }

    void encabezadoYArchivo()
    {
        EncabezadoCabrillo e{u"LU1AB"_s, u"CQ M"_s,  u"SINGLE-OP"_s, u"LOW"_s,     u"160m"_s,
                             u"MIXED"_s, {},         u"Juan"_s,      u"Calle 1"_s, {},
                             u"Salta"_s, u"j@x.ar"_s};
        QCOMPARE(
            TextoEncabezado(e, u"2.1.03"_s),
            u"START-OF-LOG: 3.0\r\nCALLSIGN: LU1AB\r\nCONTEST: CQ M\r\n"
            "CATEGORY-OPERATOR: SINGLE-OP\r\nCATEGORY-POWER: LOW\r\nCATEGORY-BAND: 160m\r\n"
            "CATEGORY-MODE: MIXED\r\nOPERATORS: \r\nNAME: Juan\r\nADDRESS: Calle 1\r\n"
            "ADDRESS: \r\nADDRESS: Salta\r\nE-MAIL: j@x.ar\r\nCREATED-BY: CR RADIOLOG 2.1.03\r\n"_s);

        ContextoPrueba p;
        Hecho(GuardarCabrillo(p.Archivo(u"cq.log"_s), u"QSO: Ñ\nEND-OF-LOG:"_s));
        QCOMPARE(p.Leer(u"cq.log"_s), QByteArray("QSO: \xD1\r\nEND-OF-LOG:\r\n"));
        // A folder where the file should be: a message, no crash.
        QVERIFY(!GuardarCabrillo(p.Carpeta(), u"x"_s).Mensaje().isEmpty());

        // datos.cbr: missing reads as nothing; lines past the fifth are not the header's.
        QCOMPARE(LeerDatosCbr(p.Carpeta()), QStringList());
        p.Escribir(u"datos.cbr"_s, "Juan\r\n\r\n\r\n\r\nj@x.ar\r\nsobra\r\n");
        QCOMPARE(LeerDatosCbr(p.Carpeta()), QStringList({u"Juan"_s, {}, {}, {}, u"j@x.ar"_s}));
    }

    // campo: 0 frequency, 1 date, 2 time.
    void edicion_data()
    {
        QTest::addColumn<int>("campo");
        QTest::addColumn<QString>("texto");
        QTest::addColumn<QStringList>("mensajes");
        Fila("kHz vacío", 0, "", QStringList{"Ingrese la frecuencia en KHZ!"});
        Fila("1000 kHz", 0, "1000", QStringList{});
        Fila("150001 kHz", 0, "150001", QStringList{"150001 KHz NO ES BANDA DE CONCURSO!"});
        Fila("día 32", 1, "20101332", QStringList{"Error en la fecha, día 32!"});
        Fila("mes 13 muestra el día", 1, "20101331", QStringList{"Error en la fecha, mes 31!"});
        Fila("hora buena", 2, "2359", QStringList{});
        Fila("larga: tres cajas", 2, "99:99",
             QStringList{"Error en la HORA, formato HHMM!", "Error en la HORA 99!",
                         "Error en los MINUTOS 99!"});
    }

    void edicion()
    {
        QFETCH(int, campo);
        QFETCH(QString, texto);
        QTEST(campo == 0   ? RevisarFrecuenciaRegistro(texto)
              : campo == 1 ? RevisarFechaRegistro(texto)
                           : RevisarHoraRegistro(texto),
              "mensajes");
    }
};

QTEST_GUILESS_MAIN(TestConcursos)
#include "test_concursos.moc"
