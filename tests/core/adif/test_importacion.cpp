// SPDX-License-Identifier: GPL-3.0-or-later
// The import's stages over a store: real files from other programs, a file of our own
// export read back, the rules of each record, the duplicate window and files that are no
// ADIF at all. A stop in each stage is tried through the window.
#include "core/adif/Duplicados.h"
#include "core/adif/Importacion.h"
#include "support/ContextoPrueba.h"
#include "support/Hecho.h"

#include <QDir>
#include <QFile>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QString Log = u"Importado"_s;
const QTime Hora(21, 5, 9);

// An import over a fresh store, its files in the test's folder.
struct Prueba
{
    ContextoPrueba p;
    Importacion imp{p->almacen()};

    QString Poner(const QString &nombre, const QByteArray &bytes)
    {
        p.Escribir(nombre, bytes);
        return p.Archivo(nombre);
    }
    Importacion::Medida Medir(const QString &ruta)
    {
        Hecho(imp.Empezar());
        return imp.Medir(ruta, QFileInfo(ruta).fileName(), Hora);
    }
    // Measured and processed, as the window does with a file that has its own callsigns.
    Importacion::Procesado Procesar(const QByteArray &bytes, const QString &senal = {})
    {
        Medir(Poner(u"log.adi"_s, bytes));
        return imp.Procesar(senal, Log);
    }
};

QString Resumen(const Importacion::Procesado &r)
{
    return u"%1 nuevos, %2 duplicados %3"_s.arg(r.nuevos)
        .arg(r.duplicados)
        .arg(LineasDeErrores(r.errores).join(u' '));
}

// A file as our own backup writes it: Windows-1252, CR LF, one record a line, <EOF> last.
QByteArray ExportacionPropia(const QByteArray &obs)
{
    return "<PROGRAMID:17>Carancho Radiolog\r\n<PROGRAMVERSION:6>2.1.03\r\n<ADIF_VER:4>3.04\r\n"
           "<CREATED_TIMESTAMP:15>20241124 063000\r\n<EOH>\r\n"
           "<STATION_CALLSIGN:6>LU9DCE<CALL:6>LU1AAA<MODE:3>SSB<BAND:3>40m<FREQ:5>7.150"
           "<QSO_DATE:8>20240315<TIME_ON:4>1200<RST_SENT:2>59<RST_RCVD:2>57<PROP_MODE:3>SAT"
           "<SAT_NAME:5>AO-91<OPERATOR:4>Juan<COMMENT:" +
           QByteArray::number(obs.size()) + ">" + obs +
           "<MY_GRIDSQUARE:6>GF05tj<GRIDSQUARE:5> FF78<QSL_RCVD:1>Y<LOG_NAME:4>Otro<EOR>\r\n"
           "<STATION_CALLSIGN:6>LU9DCE<CALL:5>CX1AA<MODE:6>DVoice<BAND:2>2m<FREQ:7>145.000"
           "<QSO_DATE:8>20240316<TIME_ON:4>0930<RST_SENT:2>59<RST_RCVD:2>59<QSL_RCVD:1>N"
           "<LOG_NAME:4>Otro<EOR>\r\n<EOF>\r\n";
}

} // namespace

class TestImportacion : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void archivosReales_data()
    {
        QTest::addColumn<QString>("archivo");
        QTest::addColumn<QString>("programa");
        QTest::addColumn<int>("lineas");
        QTest::addColumn<int>("qsos"); // records on one line each
        QTest::addColumn<QStringList>("estaciones");
        QTest::addColumn<QString>("copia"); // left beside the file: "_" + the hour, or "_"
        const auto fila = [](const char *archivo, const char *programa, int lineas, int qsos,
                             const QStringList &estaciones, const char *copia) {
            QTest::newRow(archivo) << QString(archivo) << QString(programa) << lineas << qsos
                                   << estaciones << QString(copia);
        };
        fila("2020-11-19-The-Struggle.adi", "FLE", 28, 24, {"M0NOM/P"}, "_210509");
        fila("2021-08-16-G8TJZ-RS-44-Satellite.adi", "FLE", 8, 4, {"G8TJZ"}, "");
        // <EOR> alone on the line after each record: none is seen.
        fila("2021-08-23-ADIF-with-bad-gridsquare.adi", "", 89, 0, {"M0LEP"}, "_");
        fila("LU7HF.adi", "QLog", 53, 0, {"KZ1O"}, "_");
        fila("sample.adi", "monolog", 69, 0, {"M0NOM/P"}, "_");
        fila("ts-lotw.adi", "LoTW", 51, 0, {"KI2D"}, "_");
        fila("ts-qrz.adi", "", 165, 0, {"K0SWE"}, "_");
        fila("ts-*-sample.adi", "monolog", 29, 0, {}, "_"); // the format's own sample
        fila("ts-js8call.adi", "", 2, 1, {"K0SWE"}, "_210509");
        fila("ts-wsjtx.adi", "", 2, 1, {"K0SWE"}, "_210509");
        // <mycall:…> is no <CALL:.
        for (const char *archivo : {"readrecord.adi", "header_comment.adi", "header_version.adi"})
            fila(archivo, "", 2, 0, {}, "_210509");
        fila("header_none.adi", "", 1, 0, {}, "_210509");
    }

    void archivosReales()
    {
        QFETCH(QString, archivo);
        QFETCH(int, qsos);
        QFETCH(QString, copia);
        // A name with a '*' stands for the one file it matches.
        const QStringList hallados = QDir(QStringLiteral(RADIOLOG_DATOS_ADIF)).entryList({archivo});
        QCOMPARE(hallados.size(), 1);
        archivo = hallados.first();
        Prueba t;
        const QString ruta = t.p.Archivo(archivo);
        QVERIFY(QFile::copy(QStringLiteral(RADIOLOG_DATOS_ADIF) + u'/' + archivo, ruta));
        const Importacion::Medida m = t.Medir(ruta);
        QTEST(m.programa, "programa");
        QTEST(m.lineas, "lineas");
        QCOMPARE(m.qsos, qsos);
        QTEST(m.estaciones, "estaciones");
        if (!copia.isEmpty())
            QVERIFY(QFile::exists(ruta + copia));
        if (qsos == 0) {
            QCOMPARE(m.fin, Importacion::Medida::Fin::SinQSOs);
            QCOMPARE(m.mensaje, u"El Archivo "_s + archivo + u" no tiene QSOss!"_s);
            return;
        }
        // Every record of these files is whole: all of them come in, none twice.
        QCOMPARE(Resumen(t.imp.Procesar({}, Log)), u"%1 nuevos, 0 duplicados "_s.arg(qsos));
        QCOMPARE(t.imp.Cargar(false, Log).cargados, qsos);
        QCOMPARE(t.p->almacen().CantidadQSOs(Log), qsos);
    }

    void registro_data()
    {
        QTest::addColumn<QByteArray>("linea");
        QTest::addColumn<bool>("deLbN");
        // Modo|Banda|Frecuencia|RSE|RSR|Fecha|Hora|MyCall|Nombre_Sat|LbN, then the error lines.
        QTest::addColumn<QString>("esperado");
        const auto fila = [](const char *nombre, const QByteArray &resto, const char *antes,
                             const char *despues, bool deLbN = false) {
            QTest::newRow(nombre) << "<CALL:6>LU1AAA<QSO_DATE:8>20240315<TIME_ON:6>235959" + resto +
                                         "<EOR>"
                                  << deLbN
                                  << QString::fromUtf8(antes) + u"|15/03/2024|23:59|LU9ZZZ|"_s +
                                         QString::fromUtf8(despues);
        };
        fila("banda sin frecuencia", "<MODE:3>SSB<BAND:3>40m<RST_SENT:2>59", "SSB|40m|7.100|59|59",
             "|");
        fila("frecuencia sin banda", "<MODE:3>SSB<FREQ:5>7.100<RST_RCVD:2>59",
             "SSB|40m|7.100|59|59", "|");
        fila("ni banda ni frecuencia", "<MODE:3>SSB<RST_RCVD:2>59", "SSB|||59|59",
             "| > 1 error(es) Banda/Frec.");
        fila("SAT con propagación SAT", "<MODE:3>sat<PROP_MODE:3>Sat<BAND:2>2m<RST_SENT:2>59",
             "FM|2m|145.000|59|59", "Via Satelite|");
        fila("SAT sin propagación", "<MODE:3>SAT<BAND:2>2m<RST_SENT:2>59", "FM|2m|145.000|59|59",
             "|");
        fila("propagación SAT sin modo", "<PROP_MODE:3>SAT<BAND:2>2m<RST_SENT:2>59",
             "FM|2m|145.000|59|59", "Satélite|");
        fila("cortes",
             "<MODE:12>DIGITALVOICE<BAND:10>2190mabcde<FREQ:12>0.1357000000<RST_SENT:4>-10x",
             "DIGITAL|2190mabcd|0.13570000|-10|-10", "|");
        fila("LbN: Y", "<MODE:2>CW<BAND:3>20m<RST_SENT:3>599<QSL_RCVD:1>Y", "CW|20m|14.100|599|599",
             "|2", true);
        fila("Y de otro programa", "<MODE:2>CW<BAND:3>20m<RST_SENT:3>599<QSL_RCVD:1>Y",
             "CW|20m|14.100|599|599", "|");
        const auto falla = [](const char *nombre, const char *linea, const char *errores) {
            QTest::newRow(nombre) << QByteArray(linea) << false << QString::fromUtf8(errores);
        };
        falla("sin reportes", "<CALL:3>LU1<QSO_DATE:8>20240315<TIME_ON:4>1200<BAND:3>40m<EOR>",
              "> 1 error(es) RT(S)");
        falla("sin corresponsal", "<QSO_DATE:8>20240315<TIME_ON:4>1200<RST_SENT:2>59<EOR>",
              "> 1 error(es) Banda/Frec. > 1 error(es) ADIF.");
        falla("fecha que no es",
              "<CALL:3>LU1<QSO_DATE:8>20230229<TIME_ON:4>1200<RST_SENT:2>59<EOR>",
              "> 1 error(es) Fecha > 1 error(es) Banda/Frec.");
        falla("hora que no es", "<CALL:3>LU1<QSO_DATE:8>20240229<TIME_ON:4>2460<RST_SENT:2>59<EOR>",
              "> 1 error(es) QTR > 1 error(es) Banda/Frec.");
    }

    void registro()
    {
        QFETCH(QByteArray, linea);
        QFETCH(bool, deLbN);
        ErroresImportacion errores;
        const std::optional<RegistroQSO> q = QSODeLinea(linea, true, deLbN, u"LU9ZZZ"_s, errores);
        QStringList partes;
        if (q)
            partes << QStringList{q->Modo,  q->Banda, q->Frecuencia, q->RSE,        q->RSR,
                                  q->Fecha, q->Hora,  q->MyCall,     q->Nombre_Sat, q->LbN}
                          .join(u'|');
        partes << LineasDeErrores(errores);
        QTEST(partes.join(u' '), "esperado");
    }

    void duplicados_data()
    {
        // QSOs of the log (40m SSB, LU9ZZZ with LU1AAA) as "dd/mm/yyyy hh:mm:ss", ids from 1,
        // and the one imported.
        QTest::addColumn<QStringList>("guardados");
        QTest::addColumn<QByteArray>("importado");
        QTest::addColumn<QString>("marca");
        const auto fila =
            [](const char *nombre, const QStringList &guardados, const char *fecha,
               const char *hora, const char *marca, const char *resto = "<MODE:3>SSB<BAND:3>40m") {
                QTest::newRow(nombre)
                    << guardados
                    << QByteArray("<CALL:6>LU1AAA<STATION_CALLSIGN:6>LU9ZZZ<QSO_DATE:8>") + fecha +
                           "<TIME_ON:4>" + hora + resto + "<RST_SENT:2>59<EOR>"
                    << QString(marca);
            };
        const QStringList mediodia = {u"15/03/2024 12:00:30"_s};
        fila("nueve minutos", mediodia, "20240315", "1209", "1");
        // The seconds go before counting: 12:00:30 to 12:10 is ten minutes.
        fila("diez minutos", mediodia, "20240315", "1210", "VA");
        fila("nueve antes", mediodia, "20240315", "1151", "1");
        fila("pasada la medianoche", {u"15/03/2024 23:55:00"_s}, "20240316", "0004", "1");
        fila("diez pasada la medianoche", {u"15/03/2024 23:55:00"_s}, "20240316", "0005", "VA");
        fila("el primero de la tabla", {u"15/03/2024 12:05:00"_s, u"15/03/2024 12:07:00"_s},
             "20240315", "1207", "1");
        fila("otra banda", mediodia, "20240315", "1200", "VA", "<MODE:3>SSB<BAND:3>20m");
        fila("otro modo", mediodia, "20240315", "1200", "VA", "<MODE:2>CW<BAND:3>40m");
        fila("mayúsculas o no", mediodia, "20240315", "1200", "1", "<MODE:3>ssb<BAND:3>40M");
    }

    void duplicados()
    {
        QFETCH(QStringList, guardados);
        QFETCH(QByteArray, importado);
        Prueba t;
        for (const QString &momento : guardados) {
            RegistroQSO q;
            q.Estacion = u"LU1AAA"_s, q.MyCall = u"LU9ZZZ"_s, q.Modo = u"SSB"_s, q.Banda = u"40m"_s;
            q.Fecha = momento.section(u' ', 0, 0), q.Hora = momento.section(u' ', 1);
            Hecho(t.p->almacen().AgregarQSO(q, Log));
        }
        const Importacion::Procesado r = t.Procesar(importado + "\r\n" + importado + "\r\n");
        // Two equal QSOs of one file: both new, or both the same duplicate.
        const QVector<FilaQSO> espera = t.p->almacen().FilasEspera();
        QCOMPARE(espera.size(), 2);
        QTEST(espera[0].Dupe, "marca");
        QTEST(espera[1].Dupe, "marca");
        QCOMPARE(r.nuevos + r.duplicados, 2);
    }

    void exportacionPropia()
    {
        Prueba t;
        const auto log = [&t] {
            QStringList filas;
            for (const FilaQSO &f : t.p->almacen().LogCompletoAscendente(Log))
                filas << QString::number(f.id) + u'|' +
                             QStringList{f.Modo,   f.Banda,    f.MyCall,    f.Estacion,
                                         f.Fecha,  f.Hora,     f.RSE,       f.RSR,
                                         f.Obs,    f.Operador, f.NombreLog, f.Frecuencia,
                                         f.MiGrid, f.SuGrid,   f.LbN,       f.Nombre_Sat}
                                 .join(u'|');
            return filas;
        };
        t.Procesar(ExportacionPropia("Mu\xF1oz d'Alessio"));
        QCOMPARE(t.imp.Cargar(false, Log).cargados, 2);
        // What does not come back: the log's name (the log in use takes them) and the upload
        // state, since the file is not the national service's.
        QStringList esperado = {
            u"1|SSB|40m|LU9DCE|LU1AAA|15/03/2024|12:00:00|59|57|Muñoz d'Alessio|Juan|Importado|"
            "7.150|GF05tj|FF78|0|AO-91"_s,
            u"2|DVoice|2m|LU9DCE|CX1AA|16/03/2024|09:30:00|59|59|||Importado|145.000|||0|"_s};
        QCOMPARE(log(), esperado);

        // The same file corrected, again: both duplicates, written over only when asked.
        const QByteArray corregido(120, 'c');
        const Importacion::Procesado r = t.Procesar(ExportacionPropia(corregido));
        QCOMPARE(Resumen(r), u"0 nuevos, 2 duplicados "_s);
        QCOMPARE(t.imp.Cargar(false, Log).cargados, 0);
        QCOMPARE(log(), esperado);
        Hecho(t.p->almacen().MarcarLbN(1, 2));
        t.Procesar(ExportacionPropia(corregido));
        QCOMPARE(t.imp.Cargar(true, Log).cargados, 2);
        // The remark cut to its column; the file's state, 0, over 2.
        esperado[0].replace(u"Muñoz d'Alessio"_s, QString(100, u'c'));
        QCOMPARE(log(), esperado);
    }

    void archivosMalos_data()
    {
        QTest::addColumn<QByteArray>("datos");
        QTest::addColumn<QString>("mensaje"); // %1: the path
        const QByteArray qso =
            "<CALL:3>LU1<QSO_DATE:8>20240315<TIME_ON:4>1200<RST_SENT:2>59<EOR>\r\n";
        const QString sinQSOs = u"El Archivo log.adi no tiene QSOss!"_s;
        QTest::newRow("vacío") << QByteArray() << sinQSOs;
        QTest::newRow("binario") << QByteArray("\x00\xFF<\x01\r\r\n\x89PNG\x1A<CALL:\x00>>", 22)
                                 << sinQSOs;
        QTest::newRow("10.000 líneas") << qso.repeated(10000) << QString();
        QTest::newRow("10.001 líneas") << qso.repeated(10000) + "\r\n"
                                       << u"El archivo:\r\n%1\r\ntiene mas de 10.000 QSOs!"_s;
    }

    void archivosMalos()
    {
        QFETCH(QByteArray, datos);
        QFETCH(QString, mensaje);
        Prueba t;
        const QString ruta = t.Poner(u"log.adi"_s, datos);
        const Importacion::Medida m = t.Medir(ruta);
        QCOMPARE(m.mensaje, mensaje.replace(u"%1"_s, QDir::toNativeSeparators(ruta)));
        QCOMPARE(m.qsos, mensaje.isEmpty() ? 10000 : 0);

        // A folder, and a file that is not there.
        QCOMPARE(t.Medir(t.p.Carpeta()).mensaje,
                 u"%1 no es un archivo."_s.arg(QDir::toNativeSeparators(t.p.Carpeta())));
        QCOMPARE(t.Medir(ruta + u"x"_s).fin, Importacion::Medida::Fin::Fallo);
        // A file with LF line ends whose copy cannot be written (a folder has its name): read
        // all the same.
        const QString lf = t.Poner(u"lf.adi"_s, "<CALL:3>LU1<EOR>\n<CALL:3>LU2<EOR>\n");
        QVERIFY(QDir().mkdir(lf + u"_210509"_s));
        QCOMPARE(t.Medir(lf).qsos, 2);
    }
};

QTEST_GUILESS_MAIN(TestImportacion)
#include "test_importacion.moc"
