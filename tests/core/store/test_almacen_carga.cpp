// SPDX-License-Identifier: GPL-3.0-or-later
// The bulk load: the same load in bulk mode and row by row give the same file, rows, counts
// and schema alike, whatever the transaction does between its adds; when a load becomes
// bulk; a load undone leaves the file as it was; and a large commit is copied from the
// write-ahead log into the file behind the store's back, with nothing lost.

#include "AyudaAlmacen.h"

#include <QFileInfo>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

// A load of 80 rows into logs old and new (names in another case too, some first met after
// bulk mode began), some of them no QSO or without a date, with one thing done after the
// 40th; all it read on the way, and at the end the lists, counts, pages, history and
// duplicates of every log.
QStringList Cargar(Almacen &a, const QString &enMedio, bool *masivaEnMedio = nullptr,
                   bool *masivaAlFinal = nullptr)
{
    QStringList visto;
    auto ver = [&](const QVector<FilaQSO> &filas) {
        for (const FilaQSO &f : filas)
            visto << u"%1 %2 %3 %4 %5"_s.arg(f.id).arg(f.Estacion, f.Fecha, f.Modo, f.NombreLog);
    };
    const QStringList logs = {u"CONCURSO"_s, u"Diario"_s, u"Nuevo"_s,
                              u"nuevo"_s,    u"tarde"_s,  u"TARDE"_s};
    QVector<qint64> ids;
    qint64 vacio = 0;
    Hecho(a.IniciarTransaccion());
    for (int i = 0; i < 80; ++i) {
        RegistroQSO q = Qso(u"LU%1X%2"_s.arg(i % 4).arg(QChar(u'A' + i % 6)),
                            u"%1/03/2022"_s.arg(1 + i % 28, 2, 10, QLatin1Char('0')),
                            u"1%1:00:00"_s.arg(i % 10));
        if (i % 7 == 3)
            q.Modo.clear();
        if (i % 11 == 5)
            q.Fecha.clear();
        const QString &log = logs[i % (i < 8 ? 4 : 6)];
        ids << Hecho(i % 5 == 4 ? a.AgregarQSOImportado(q, log) : a.AgregarQSO(q, log));
        if (i == 20)
            vacio = Hecho(a.AgregarLogVacio(u"Vacío"_s));
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
            Hecho(a.ActualizarQSO(vacio, Qso(u"LU5V"_s)));
            Hecho(a.ActualizarQSO(ids[12], sinModo));
            Hecho(a.ActualizarQSO(1, Qso(u"LU9ZZ"_s)));
        } else if (enMedio == u"borrar") {
            Hecho(a.BorrarQSO(vacio)); // the only row of a log new to the load
            Hecho(a.BorrarQSO(ids[10]));
            Hecho(a.BorrarQSO(2)); // the only QSO the log had before
            Hecho(a.BorrarLog(u"nuevo"_s));
        } else if (enMedio == u"vaciar") {
            Hecho(a.VaciarTodo());
        }
    }
    if (masivaAlFinal)
        *masivaAlFinal = a.EnCargaMasiva();
    if (const Resultado<> r = a.ConfirmarTransaccion(); !r)
        visto << u"falló: "_s + r.Mensaje();

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

class TestCarga : public PruebaAlmacen
{
    Q_OBJECT

private Q_SLOTS:
    void cargaMasiva_data()
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

    void cargaMasiva()
    {
        QFETCH(QString, enMedio);
        QFETCH(bool, masivaAlFinal);
        // The same file and the same load twice: in bulk mode, and row by row with the triggers.
        QTemporaryDir otraCarpeta;
        const QString archivos[] = {Archivo(), otraCarpeta.filePath(u"base0.db"_s)};
        Almacen fila;
        QVERIFY(fila.Abrir(archivos[1]));
        for (const QString &archivo : archivos) {
            Almacen &a = archivo == Archivo() ? *alm_ : fila;
            Hecho(a.AgregarLogVacio(u"Concurso"_s));
            Hecho(a.AgregarQSO(Qso(u"LU1ABC"_s), u"Concurso"_s));
            // Rows from another program, QSOs without a date among them.
            OtraConexion ajena(archivo);
            ajena(
                u"INSERT INTO Tabla1 (Modo, Estacion, Fecha, Hora, \"Nombre Log\") "
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

        // Both files alike to whoever reads them: rows, counts (names too) and schema; and the
        // counts are those of a walk of the rows.
        OtraConexion masivo(archivos[0]), porFila(archivos[1]);
        QCOMPARE(alm_->TodosLosQSOs(), fila.TodosLosQSOs());
        QCOMPARE(Cuentas(masivo), Cuentas(porFila));
        const auto [recuento, cuentas] = Recuento(masivo);
        QCOMPARE(cuentas, recuento);
        QCOMPARE(Esquema(masivo), Esquema(porFila));
        // The history and the duplicate key are read through their index again.
        const QString consultas[] = {
            u"SELECT * FROM Tabla1 WHERE \"Nombre Log\"=? AND Estacion>=? AND Estacion<? AND "
            "Estacion LIKE ? ESCAPE '\\' ORDER BY Fecha, Hora, id"_s,
            u"SELECT * FROM Tabla1 WHERE \"Nombre Log\"=? AND Modo=? AND Banda=? AND MyCall=? AND "
            "Estacion=? ORDER BY id"_s};
        for (const QString &consulta : consultas) {
            const QString plan = masivo(u"EXPLAIN QUERY PLAN "_s + consulta,
                                        QVariantList(consulta.count(u'?'), u"x"_s))
                                     .join(u' ');
            QVERIFY2(plan.contains(u"USING INDEX Tabla1_Estacion"), qPrintable(plan));
        }
    }

    void deshacerCargaMasiva()
    {
        Almacen &a = *alm_;
        Hecho(a.AgregarQSO(Qso(u"LU1ABC"_s), u"A"_s));
        OtraConexion otra(Archivo());
        const QStringList cuentas = Cuentas(otra), esquema = Esquema(otra);
        const QVector<FilaQSO> filas = a.TodosLosQSOs();

        a.UmbralCargaMasiva(3);
        for (int vez = 0; vez < 2; ++vez) {
            QVERIFY(a.IniciarTransaccion());
            for (int i = 0; i < 20; ++i)
                Hecho(a.AgregarQSO(Qso(u"LU2X%1"_s.arg(i)), i % 2 ? u"A"_s : u"B"_s));
            QVERIFY(a.EnCargaMasiva());
            QVERIFY(a.DeshacerTransaccion());
            QVERIFY(!a.EnCargaMasiva());
            // The file as before, index and trigger included.
            QCOMPARE(Esquema(otra), esquema);
            QCOMPARE(Cuentas(otra), cuentas);
            QCOMPARE(a.TodosLosQSOs(), filas);
        }
        // And the trigger counts the next add.
        Hecho(a.AgregarQSO(Qso(u"LU3Q"_s), u"B"_s));
        QCOMPARE(a.LogsConCantidad(), (Cantidades{{u"A"_s, 1}, {u"B"_s, 1}}));
        QCOMPARE(Estaciones(a.HistorialDe(u"B"_s, u"LU"_s)), QStringList{u"LU3Q"_s});
    }

    // The copy runs on its own connection while the store goes on writing; the store's close
    // waits for it and, as the last connection, leaves no log beside the file.
    void copiaDelRegistro()
    {
        Almacen &a = *alm_;
        const qint64 vacia = QFileInfo(Archivo()).size();
        Hecho(a.IniciarTransaccion());
        for (int i = 0; i < 20000; ++i)
            Hecho(a.AgregarQSO(Qso(u"LU%1X"_s.arg(i)), u"A"_s));
        Hecho(a.ConfirmarTransaccion());
        for (int i = 0; i < 1000; ++i)
            Hecho(a.AgregarQSO(Qso(u"LU%1Y"_s.arg(i)), u"B"_s));
        // The pages reach the file only through a copy of the log.
        QTRY_VERIFY(QFileInfo(Archivo()).size() > vacia + 2'000'000);
        a.Cerrar();
        QVERIFY(!QFileInfo::exists(Archivo() + u"-wal"_s));
        Hecho(a.Abrir(Archivo()));
        QCOMPARE(a.LogsConCantidad(), (Cantidades{{u"A"_s, 20000}, {u"B"_s, 1000}}));
        OtraConexion otra(Archivo());
        QCOMPARE(otra(u"PRAGMA integrity_check"_s), QStringList{u"ok"_s});
    }
};

QTEST_GUILESS_MAIN(TestCarga)
#include "test_almacen_carga.moc"
