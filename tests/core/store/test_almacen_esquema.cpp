// SPDX-License-Identifier: GPL-3.0-or-later
// The layout of the file: each numbered step brings an earlier file up to date with its rows
// and counts right; a step that fails is undone whole; a file of a newer version, or one
// that is not ours, is refused and left as it was.

#include "AyudaAlmacen.h"

#include <QDir>
#include <QFileInfo>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

// The statements that take a file of today back to the layout of an earlier version.
QStringList Deshacer(int version)
{
    static_assert(Almacen::kVersionEsquema == 5, "a new step needs its undoing here");
    QStringList sql;
    if (version < 5)
        sql << u"DROP INDEX Tabla1_Vista"_s << u"DROP INDEX Tabla1_Estacion"_s
            << u"DROP INDEX Tabla2_Log"_s;
    if (version < 4)
        sql << u"DROP TRIGGER Tabla1_Alta"_s << u"DROP TRIGGER Tabla1_Baja"_s
            << u"DROP TRIGGER Tabla1_Cambio"_s << u"DROP TABLE CuentaLogs"_s;
    if (version < 3)
        sql << u"DROP TABLE Tabla3"_s;
    if (version < 2)
        for (const QString &tabla : {u"Tabla1"_s, u"Tabla2"_s})
            for (const QString &columna : {u"LbN"_s, u"Nombre_Sat"_s, u"Argento"_s})
                sql << u"ALTER TABLE %1 DROP COLUMN %2"_s.arg(tabla, columna);
    return sql;
}

// The layout as a reader sees it: each table with its columns and their types, each index,
// trigger and view with its text.
QStringList Forma(OtraConexion &otra)
{
    return otra(u"SELECT type, name, CASE type WHEN 'table' THEN (SELECT group_concat(name || "
                "' ' || type, ', ') FROM pragma_table_info(m.name)) ELSE sql END FROM "
                "sqlite_master m ORDER BY name"_s);
}

// The columns that every version has, of every row of the main and contest tables.
QStringList Filas(OtraConexion &otra)
{
    const QString columnas = u"id, Modo, Estacion, Fecha, Hora, \"Nombre Log\""_s;
    return otra(u"SELECT %1 FROM Tabla1 ORDER BY id"_s.arg(columnas)) +
           otra(u"SELECT %1 FROM Tabla2 ORDER BY id"_s.arg(columnas));
}

QString Version(OtraConexion &otra)
{
    return otra(u"PRAGMA user_version"_s).value(0);
}

} // namespace

class TestEsquema : public PruebaAlmacen
{
    Q_OBJECT

private Q_SLOTS:
    void pasos_data()
    {
        QTest::addColumn<int>("version");
        QTest::addColumn<QStringList>("deshacer");
        for (int version = 0; version < Almacen::kVersionEsquema; ++version)
            QTest::addRow("versión %d", version) << version << Deshacer(version);
        // An older program that stopped half way through its upgrade.
        QTest::newRow("versión 0 a medio actualizar")
            << 0
            << Deshacer(3) + QStringList{u"ALTER TABLE Tabla3 DROP COLUMN Dupe"_s,
                                         u"ALTER TABLE Tabla2 DROP COLUMN Argento"_s};
        // Counts that went wrong while nothing kept them are not trusted.
        QTest::newRow("versión 0 con cuentas viejas")
            << 0 << QStringList{u"UPDATE CuentaLogs SET Filas=1, QSOs=QSOs+5"_s};
    }

    void pasos()
    {
        QFETCH(int, version);
        QFETCH(QStringList, deshacer);
        // Rows of each kind: QSOs of one log under three spellings, a placeholder, a contest row
        // and a QSO without a date from another program.
        Almacen &a = *alm_;
        Hecho(a.AgregarQSO(Qso(u"LU1ABC"_s), u"diario"_s));
        Hecho(a.AgregarQSO(Qso(u"LU2XYZ"_s, u"02/01/2010"_s), u"Diario"_s));
        Hecho(a.AgregarLogVacio(u"Vacío"_s));
        FilaConcurso c;
        c.NombreLog = u"Fiesta"_s;
        c.Modo = u"CW"_s;
        Hecho(a.AgregarQSOConcurso(c));
        a.Cerrar();
        QStringList forma, filas, cuentas;
        {
            OtraConexion otra(Archivo());
            otra(
                u"INSERT INTO Tabla1 (Modo, Estacion, \"Nombre Log\") VALUES ('CW', 'LU3Q', 'DIARIO')"_s);
            forma = Forma(otra);
            filas = Filas(otra);
            cuentas = Cuentas(otra);
            for (const QString &sql : deshacer)
                otra(sql);
            otra(u"PRAGMA user_version=%1"_s.arg(version));
            QVERIFY(Forma(otra) != forma || version == 0);
        }

        const Resultado<> abierto = a.Abrir(Archivo());
        QVERIFY2(abierto, qPrintable(abierto.Mensaje()));
        OtraConexion otra(Archivo());
        QCOMPARE(Version(otra), QString::number(Almacen::kVersionEsquema));
        QCOMPARE(Forma(otra), forma);
        QCOMPARE(Filas(otra), filas);
        // The counts (the names of the logs too) as the triggers had kept them, and as a walk of
        // the rows finds them.
        QCOMPARE(Cuentas(otra), cuentas);
        const auto [recuento, guardadas] = Recuento(otra);
        QCOMPARE(guardadas, recuento);

        // A second run finds nothing to do, and the store works on the file.
        const QStringList esquema = Esquema(otra);
        QVERIFY(a.ActualizarEsquema());
        QCOMPARE(Esquema(otra), esquema);
        QVERIFY(a.MarcarLbN(1, 2));
        QCOMPARE(a.QSOPorId(u"Diario"_s, 1)->LbN, u"2"_s);
        QCOMPARE(a.CantidadQSOs(u"DIARIO"_s), 3);
    }

    void pasoFallido()
    {
        // A file of version 1 whose Tabla2 another program turned into a view: the second step
        // adds the late columns to Tabla1, cannot add them to Tabla2, and undoes all of it.
        Hecho(alm_->AgregarQSO(Qso(u"LU1ABC"_s), u"Diario"_s));
        alm_->Cerrar();
        QStringList antes;
        {
            OtraConexion otra(Archivo());
            for (const QString &sql : Deshacer(1))
                otra(sql);
            otra(u"DROP TABLE Tabla2"_s);
            otra(u"CREATE VIEW Tabla2 AS SELECT id, Modo, Estacion, Fecha, Hora, \"Nombre Log\" "
                 u"FROM "
                 "Tabla1"_s);
            otra(u"PRAGMA user_version=1"_s);
            antes = Esquema(otra) + Filas(otra);
        }
        const Resultado<> abierto = alm_->Abrir(Archivo());
        QVERIFY(!abierto);
        QVERIFY2(abierto.Mensaje().startsWith(
                     u"No se puede actualizar la base de datos %1 (paso 2: las columnas LbN, "
                     "Nombre_Sat y Argento).\r\n\r\n"_s.arg(Ruta())),
                 qPrintable(abierto.Mensaje()));
        QVERIFY(!alm_->Abierto());
        OtraConexion otra(Archivo());
        QCOMPARE(Esquema(otra) + Filas(otra), antes);
        QCOMPARE(Version(otra), u"1"_s);
    }

    void rechazada_data()
    {
        QTest::addColumn<QByteArray>("contenido");
        QTest::addColumn<QString>("sql"); // statements run on the file, ';' between them
        QTest::addColumn<QString>("mensaje");
        const auto ajena =
            [](const char *nombre, const QByteArray &contenido, const QString &tabla) {
                QTest::newRow(nombre)
                    << contenido
                    << u"CREATE TABLE \"%1\" (codigo INTEGER, nombre TEXT);INSERT INTO "
                       "\"%1\" VALUES (1, 'uno')"_s.arg(tabla)
                    << u"El archivo %1 no es una base de datos de Carancho Radiolog."_s;
            };
        ajena("texto", "Esto es un texto, no una base.\r\n", {});
        ajena("binario", QByteArray(4096, '\xA5'), {});
        ajena("cabecera rota", QByteArray("SQLite format 3\0", 16) + QByteArray(200, '\x01'), {});
        ajena("base de otro programa", {}, u"Clientes"_s);
        ajena("Tabla1 ajena", {}, u"Tabla1"_s);
        QTest::newRow("versión más nueva")
            << QByteArray() << u"PRAGMA user_version=%1"_s.arg(Almacen::kVersionEsquema + 1)
            << u"La base de datos %1 es de una versión más nueva de Carancho Radiolog. Instale la "
               "versión más reciente del programa para abrirla."_s;
    }

    void rechazada()
    {
        QFETCH(QByteArray, contenido);
        QFETCH(QString, sql);
        QFETCH(QString, mensaje);
        // Our file with a QSO, of a later version; or another program's file in its place.
        Hecho(alm_->AgregarQSO(Qso(u"LU1ABC"_s), u"Diario"_s));
        alm_->Cerrar();
        if (!sql.startsWith(u"PRAGMA"))
            QFile::remove(Archivo());
        if (!contenido.isEmpty()) {
            QFile f(Archivo());
            QVERIFY(f.open(QIODevice::WriteOnly) && f.write(contenido) == contenido.size());
        } else {
            OtraConexion otra(Archivo());
            for (const QString &s : sql.split(u';'))
                otra(s);
        }
        const QByteArray antes = Contenido(Archivo());
        const QStringList archivosAntes = QDir(dir_->path()).entryList(QDir::Files);

        Almacen otro;
        QCOMPARE(otro.Abrir(Archivo()).Mensaje(), mensaje.arg(Ruta()));
        QVERIFY(!otro.Abierto());
        QVERIFY(otro.Logs().isEmpty());
        // Not a byte written, not even a journal beside it.
        QCOMPARE(Contenido(Archivo()), antes);
        QCOMPARE(QDir(dir_->path()).entryList(QDir::Files), archivosAntes);
    }

private:
    QString Ruta() const
    {
        return QDir::toNativeSeparators(QFileInfo(Archivo()).absoluteFilePath());
    }
};

QTEST_GUILESS_MAIN(TestEsquema)
#include "test_almacen_esquema.moc"
