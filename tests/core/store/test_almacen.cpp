// SPDX-License-Identifier: GPL-3.0-or-later
// The store's rows: logs and their placeholder rows, counts kept by triggers, ids, dates in
// calendar order, any text stored and read back as it is, the searches, contest rows, and
// a write that fails told in Spanish with nothing changed.

#include "AyudaAlmacen.h"
#include "core/rules/Senales.h"

#include <QTest>
#include <functional>

using namespace Qt::StringLiterals;

class TestAlmacen : public PruebaAlmacen
{
    Q_OBJECT

private Q_SLOTS:
    void logsYFilasVacias()
    {
        Almacen &a = *alm_;
        QVERIFY(a.AgregarLogVacio(u"Log inicial"_s));
        QVERIFY(a.AgregarLogVacio(u"concurso"_s));
        Hecho(a.AgregarQSO(Qso(u"LU1ABC"_s, u"01/05/2020"_s), u"Concurso"_s));
        Hecho(a.AgregarQSO(Qso(u"LU2XYZ"_s, u"02/05/2020"_s), u"CONCURSO"_s));
        Hecho(a.AgregarQSO(Qso(u"CX1AA"_s), u"Base 1"_s));

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
        QCOMPARE(Estaciones(a.PaginaLog(u"concurso"_s, 1)),
                 (QStringList{u"LU2XYZ"_s, u"LU1ABC"_s}));
        QCOMPARE(a.UltimoQSO(u"concurso"_s)->Estacion, u"LU2XYZ"_s);
        QCOMPARE(a.BuscarQSOs(u"concurso"_s, {}, {}).size(), 2);
        QCOMPARE(a.LogCompletoDescendente(u"concurso"_s).size(), 3);

        // Deleting a log takes its placeholder with it, whatever the case of the name.
        QVERIFY(a.BorrarLog(u"CONCURSO"_s));
        QCOMPARE(a.Logs(), (QStringList{u"Base 1"_s, u"Log inicial"_s}));
        QCOMPARE(a.CantidadQSOs(u"concurso"_s), 0);
        QCOMPARE(a.TodosLosQSOs().size(), 2);
    }

    void idaYVuelta_data()
    {
        QTest::addColumn<QString>("texto");
        // Dates good, bad and in other shapes (kept as typed when they are none), wildcards,
        // quotes and SQL.
        for (const char *t :
             {"", "Ñandú ÄÖü 日本語 \U0001F4E1", "31/02/2024", "2024-01-05", "05/01/2024",
              "5/1/2024", " 05/01/2024", "!2024-01-05", "  a  ", "a\r\nb\tc", "100% _*?\\",
              "D'Alessandro 'Pepe', ''dos''", "'; DROP TABLE Tabla1; --"})
            QTest::newRow(t) << QString::fromUtf8(t);
        QTest::newRow("largo") << QString(5000, u'x') + u"ñ"_s;
        QTest::newRow("nul") << u"a"_s + QChar(0) + u"b"_s;
    }

    void idaYVuelta()
    {
        QFETCH(QString, texto);
        Almacen &a = *alm_;
        // An edit stores every column as given, so each one is tried with the same text, the
        // log's name too.
        RegistroQSO q;
        for (QString *campo : {&q.Estacion, &q.Banda, &q.Modo, &q.RSE, &q.RSR, &q.Fecha, &q.Hora,
                               &q.MyCall, &q.Operador, &q.Obs, &q.Frecuencia, &q.MiGrid, &q.SuGrid,
                               &q.Nombre_Sat, &q.LbN, &q.Argento})
            *campo = texto;
        QVERIFY(a.ActualizarQSO(Hecho(a.AgregarLogVacio(texto)), q));
        const FilaQSO f = a.TodosLosQSOs().value(0);
        for (const QString &leido :
             {f.Estacion, f.Banda, f.Modo, f.RSE, f.RSR, f.Fecha, f.Hora, f.MyCall, f.Operador,
              f.Obs, f.Frecuencia, f.MiGrid, f.SuGrid, f.Nombre_Sat, f.LbN, f.Argento, f.NombreLog})
            QCOMPARE(leido, texto);
        QCOMPARE(a.Logs(), QStringList{texto});

        // The staging table keeps Fecha the same way; the contest table keeps its own text.
        RegistroQSO corto;
        corto.Fecha = texto;
        Hecho(a.AgregarQSOEspera(corto, texto, texto));
        QCOMPARE(a.FilasEspera().value(0).Fecha, texto);
        QCOMPARE(a.FilasEspera().value(0).Dupe, texto);
        FilaConcurso c;
        c.NombreLog = u"C"_s, c.Fecha = c.Hora = c.Obs = texto;
        Hecho(a.AgregarQSOConcurso(c));
        QCOMPARE(a.LogConcurso(u"C"_s).value(0).Fecha, texto);
        QCOMPARE(a.LogConcurso(u"C"_s).value(0).Obs, texto);

        QVERIFY(a.BorrarLog(texto));
        QVERIFY(a.Logs().isEmpty());
    }

    void operacionesDeAlta()
    {
        Almacen &a = *alm_;
        const QString log = u"L"_s;
        RegistroQSO q = Qso(u"LU1ABC"_s);
        q.Nombre_Sat = u"  SO-50 "_s, q.LbN = u"0"_s, q.Argento = u" Marte "_s;
        // Typed in the main window: LbN "1" whatever the record says, province from the call.
        const FilaQSO tecleado = *a.QSOPorId(log, Hecho(a.AgregarQSO(q, log)));
        QCOMPARE(tecleado.LbN, u"1"_s);
        QCOMPARE(tecleado.Nombre_Sat, u"SO-50"_s);
        QCOMPARE(tecleado.Argento, u"Capital"_s);
        // Imported: LbN as it comes, satellite and province trimmed.
        const FilaQSO importado = *a.QSOPorId(log, Hecho(a.AgregarQSOImportado(q, log)));
        QCOMPARE(importado.LbN, u"0"_s);
        QCOMPARE(importado.Argento, u"Marte"_s);
        QCOMPARE(importado.Nombre_Sat, u"SO-50"_s);

        // What "Sólo Subir" takes: LbN empty or "0", never the typed "1".
        q.LbN = QString();
        const qint64 sinEstado = Hecho(a.AgregarQSOImportado(q, log));
        QCOMPARE(Ids(a.PendientesLbN(log)), (QList<qint64>{importado.id, sinEstado}));
        QVERIFY(a.MarcarLbN(importado.id, 2));
        QCOMPARE(a.QSOPorId(log, importado.id)->LbN, u"2"_s);
        QCOMPARE(Ids(a.PendientesLbN(log)), QList<qint64>{sinEstado});
        QCOMPARE(a.Candidatos(log, u"ssb"_s, u"40M"_s, u"lu9dce"_s, u"lu1abc"_s).size(), 3);
    }

    void historial()
    {
        Almacen &a = *alm_;
        const QStringList estaciones = {"LU1ZZ", "LU1Z", "LU1Z/P", "LU1[A", "lu1zb", "LU1A"};
        for (int i = 0; i < estaciones.size(); ++i)
            Hecho(a.AgregarQSO(Qso(estaciones[i], u"0%1/05/2020"_s.arg(i + 1)), u"L"_s));
        Hecho(a.AgregarQSO(Qso(u"LU1ZX"_s), u"otro"_s));
        // Any case of the prefix finds any case of the call, and only calls that start with it
        // (the bound of the index range must fold the case as the column does).
        for (const QString &prefijo : {u"LU1Z"_s, u"lu1z"_s})
            QCOMPARE(Estaciones(a.HistorialDe(u"L"_s, prefijo)),
                     (QStringList{u"LU1ZZ"_s, u"LU1Z"_s, u"LU1Z/P"_s, u"lu1zb"_s}));
        QCOMPARE(a.HistorialDe(u"L"_s, u"LU1?"_s).size(), 6);
        QCOMPARE(a.HistorialDe(u"L"_s, u"XX"_s).size(), 0);
    }

    // A staged row loaded into the log: added as an imported QSO (satellite trimmed), or
    // written over QSO 1 (LU1ABC at 12:00:00, state 1) as an edit is (satellite as it is);
    // either way a time of hh:mm gets its seconds and the state becomes the whole number it
    // starts with.
    void cargaDeEspera_data()
    {
        QTest::addColumn<QStringList>("espera"); // Estacion, Hora, LbN, Nombre_Sat
        QTest::addColumn<bool>("reemplaza");
        QTest::addColumn<QString>("fila"); // the row of the log, as stored
        QTest::addColumn<int>("qsos");
        const auto fila = [](const char *nombre, const QStringList &espera, bool reemplaza,
                             const char *guardada) {
            QTest::newRow(nombre) << espera << reemplaza << QString::fromUtf8(guardada)
                                  << (reemplaza ? 1 : 2);
        };
        fila("nuevo", {u"LU1ABC"_s, u"12:07"_s, {}, u" AO-91 "_s}, false,
             "LU1ABC|12:07:00|0|AO-91");
        fila("nuevo del servicio", {u"LU1ABC"_s, u"12:07:30"_s, u"2"_s, {}}, false,
             "LU1ABC|12:07:30|2|");
        fila("estado con texto", {u"LU1ABC"_s, u"12:07"_s, u" 1.9x"_s, {}}, false,
             "LU1ABC|12:07:00|1|");
        fila("reemplazo", {u"LU1ABC"_s, u"12:00"_s, {}, u" AO-91 "_s}, true,
             "LU1ABC|12:00:00|0| AO-91 ");
        // The key differs only in case, or moves in time: the row and its entries change.
        fila("reemplazo en minúsculas", {u"lu1abc"_s, u"12:00"_s, u"Y"_s, {}}, true,
             "lu1abc|12:00:00|0|");
        fila("reemplazo a otra hora", {u"LU1ABC"_s, u"12:05"_s, {}, {}}, true,
             "LU1ABC|12:05:00|0|");
    }

    void cargaDeEspera()
    {
        QFETCH(QStringList, espera);
        QFETCH(bool, reemplaza);
        Almacen &a = *alm_;
        const QString log = u"Diario"_s;
        Hecho(a.AgregarQSO(Qso(u"LU1ABC"_s, u"15/03/2024"_s, u"12:00:00"_s), log));
        RegistroQSO q = Qso(espera[0], u"15/03/2024"_s, espera[1]);
        q.LbN = espera[2], q.Nombre_Sat = espera[3];
        // The mark of the staged row says which: "VA" is added, any other is left to the
        // replacement.
        const qint64 idEspera = Hecho(a.AgregarQSOEspera(q, reemplaza ? u"1"_s : u"VA"_s, log));
        QCOMPARE(Hecho(a.AgregarQSOsDeEspera(idEspera, idEspera, log)), reemplaza ? 0 : 1);
        if (reemplaza)
            Hecho(a.ActualizarQSODeEspera(1, idEspera));
        const qint64 id = reemplaza ? 1 : 2;
        OtraConexion otra(Archivo());
        QTEST(
            otra(u"SELECT Estacion, Hora, LbN, Nombre_Sat FROM Tabla1 WHERE id=?"_s, {id}).value(0),
            "fila");
        QTEST(int(a.CantidadQSOs(log)), "qsos");
        QCOMPARE(a.PaginaLog(log, 1).value(0).Hora,
                 q.Hora.size() == 5 ? q.Hora + u":00"_s : q.Hora);
    }

    void fallaConMensaje_data()
    {
        QTest::addColumn<QString>("mensaje"); // what could not be done; the engine's words follow
        const auto fila = [](const char *operacion, const QString &mensaje) {
            QTest::newRow(operacion) << mensaje;
        };
        fila("AgregarQSO", u"No se pudo guardar el QSO con LU1ABC."_s);
        fila("AgregarQSOImportado", u"No se pudo importar el QSO con LU1ABC."_s);
        fila("AgregarQSOConcurso",
             u"No se pudo guardar el QSO con LU1ABC en el concurso Fiesta."_s);
        fila("AgregarQSOEspera", u"No se pudo preparar la importación del QSO con LU1ABC."_s);
        fila("AgregarQSOsDeEspera", u"No se pudieron importar los QSOs."_s);
        fila("ActualizarQSODeEspera", u"No se pudo guardar el QSO #1."_s);
        fila("AgregarLogVacio", u"No se pudo crear el log Nuevo."_s);
        fila("ActualizarQSO", u"No se pudo guardar el QSO #1."_s);
        fila("MarcarLbN", u"No se pudo anotar el estado en LbN del QSO #1."_s);
        fila("BorrarQSO", u"No se pudo eliminar el QSO #1."_s);
        fila("BorrarLog", u"No se pudo borrar el log Diario."_s);
        fila("VaciarTodo", u"No se pudieron vaciar las tablas."_s);
        fila("cerrada", u"No se pudo guardar el QSO con LU1ABC."_s);
    }

    void fallaConMensaje()
    {
        const QString operacion = QString::fromLatin1(QTest::currentDataTag());
        QFETCH(QString, mensaje);
        Almacen &a = *alm_;
        Hecho(a.AgregarQSO(Qso(u"LU1ABC"_s), u"Diario"_s));
        FilaConcurso c;
        c.NombreLog = u"Fiesta"_s, c.Estacion = u"LU1ABC"_s;
        Hecho(a.AgregarQSOConcurso(c));
        Hecho(a.AgregarQSOEspera(Qso(u"LU1ABC"_s), u"VA"_s, u"Diario"_s));
        // Another program forbids every write; the engine gives its reason.
        OtraConexion otra(Archivo());
        for (const char *tabla : {"Tabla1", "Tabla2", "Tabla3"})
            for (const char *que : {"INSERT", "UPDATE", "DELETE"})
                otra(u"CREATE TRIGGER \"veda %1 %2\" BEFORE %2 ON %1 BEGIN SELECT RAISE(ABORT, "
                     "'escritura vedada'); END"_s.arg(QLatin1String(tabla), QLatin1String(que)));
        auto todo = [&] {
            QStringList filas;
            for (const char *tabla : {"Tabla1", "Tabla2", "Tabla3", "CuentaLogs"})
                filas += otra(u"SELECT * FROM %1"_s.arg(QLatin1String(tabla)));
            return filas;
        };
        const QStringList antes = todo();
        QCOMPARE(antes.size(), 4);

        const QHash<QString, std::function<QString()>> operaciones = {
            {u"AgregarQSO"_s,
             [&] { return a.AgregarQSO(Qso(u"LU1ABC"_s), u"Diario"_s).Mensaje(); }},
            {u"AgregarQSOImportado"_s,
             [&] { return a.AgregarQSOImportado(Qso(u"LU1ABC"_s), u"Diario"_s).Mensaje(); }},
            {u"AgregarQSOConcurso"_s, [&] { return a.AgregarQSOConcurso(c).Mensaje(); }},
            {u"AgregarQSOEspera"_s,
             [&] { return a.AgregarQSOEspera(Qso(u"LU1ABC"_s), {}, u"Diario"_s).Mensaje(); }},
            {u"AgregarQSOsDeEspera"_s,
             [&] { return a.AgregarQSOsDeEspera(1, 1, u"Diario"_s).Mensaje(); }},
            {u"ActualizarQSODeEspera"_s, [&] { return a.ActualizarQSODeEspera(1, 1).Mensaje(); }},
            {u"AgregarLogVacio"_s, [&] { return a.AgregarLogVacio(u"Nuevo"_s).Mensaje(); }},
            {u"ActualizarQSO"_s, [&] { return a.ActualizarQSO(1, Qso(u"LU2XX"_s)).Mensaje(); }},
            {u"MarcarLbN"_s, [&] { return a.MarcarLbN(1, 2).Mensaje(); }},
            {u"BorrarQSO"_s, [&] { return a.BorrarQSO(1).Mensaje(); }},
            {u"BorrarLog"_s, [&] { return a.BorrarLog(u"Diario"_s).Mensaje(); }},
            {u"VaciarTodo"_s, [&] { return a.VaciarTodo().Mensaje(); }},
            {u"cerrada"_s,
             [&] {
                 a.Cerrar();
                 return a.AgregarQSO(Qso(u"LU1ABC"_s), u"Diario"_s).Mensaje();
             }},
        };
        const QString dicho = operaciones.value(operacion)();
        QVERIFY2(dicho.startsWith(mensaje + u"\r\n\r\n"_s), qPrintable(dicho));
        QVERIFY2(
            dicho.contains(operacion == u"cerrada" ? u"no está abierta"_s : u"escritura vedada"_s),
            qPrintable(dicho));
        QCOMPARE(todo(), antes);
    }
};

QTEST_GUILESS_MAIN(TestAlmacen)
#include "test_almacen.moc"
