// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// What the tests of the store share: a QSO to add, a second connection to the same file
// (as the sqlite3 shell or another program would be), and what a reader of the file sees.

#include "core/store/Almacen.h"
#include "support/Hecho.h"

#include <QFile>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QStringList>
#include <QTemporaryDir>
#include <QTest>
#include <QVariantList>
#include <memory>

inline RegistroQSO Qso(const QString &estacion, const QString &fecha = QStringLiteral("01/05/2020"),
                       const QString &hora = QStringLiteral("10:00:00"))
{
    RegistroQSO q;
    q.Estacion = estacion, q.Fecha = fecha, q.Hora = hora, q.Banda = QStringLiteral("40m");
    q.Modo = QStringLiteral("SSB"), q.RSE = QStringLiteral("59"), q.RSR = QStringLiteral("57");
    q.MyCall = QStringLiteral("LU9DCE"), q.Operador = QStringLiteral("Juan");
    q.Frecuencia = QStringLiteral("7.150");
    return q;
}

class OtraConexion
{
public:
    explicit OtraConexion(const QString &archivo)
        : nombre_(QStringLiteral("prueba-%1").arg(++cuenta_))
    {
        QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), nombre_);
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

inline QList<qint64> Ids(const QVector<FilaQSO> &filas)
{
    QList<qint64> ids;
    for (const FilaQSO &f : filas)
        ids << f.id;
    return ids;
}

inline QByteArray Contenido(const QString &archivo)
{
    QFile f(archivo);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

using Cantidades = QVector<QPair<QString, qint64>>;

// The counts as the file keeps them.
inline QStringList Cuentas(OtraConexion &otra)
{
    return otra(QStringLiteral("SELECT * FROM CuentaLogs ORDER BY \"Nombre Log\""));
}

// The counts as a plain walk of Tabla1 finds them, next to those the file keeps, both keyed
// by the name in lower case; the test compares the two halves.
inline QPair<QStringList, QStringList> Recuento(OtraConexion &otra)
{
    return {
        otra(QStringLiteral(
            "SELECT lower(\"Nombre Log\"), count(*), sum(CASE WHEN Modo<>'' THEN 1 ELSE 0 END), "
            "sum(CASE WHEN Modo<>'' AND (Fecha IS NULL OR Hora IS NULL) THEN 1 ELSE 0 END) "
            "FROM Tabla1 WHERE \"Nombre Log\" IS NOT NULL GROUP BY 1 ORDER BY 1")),
        otra(QStringLiteral("SELECT lower(\"Nombre Log\"), Filas, QSOs, SinFecha FROM "
                            "CuentaLogs ORDER BY 1"))};
}

inline QStringList Esquema(OtraConexion &otra)
{
    return otra(QStringLiteral("SELECT type, name, sql FROM sqlite_master ORDER BY name"));
}

// Every test of the store starts on a new file in a folder of its own, opened by the store.
class PruebaAlmacen : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        dir_ = std::make_unique<QTemporaryDir>();
        alm_ = std::make_unique<Almacen>();
        const Resultado<> abierto = alm_->Abrir(Archivo());
        QVERIFY2(abierto, qPrintable(abierto.Mensaje()));
    }
    void cleanup()
    {
        alm_.reset();
        dir_.reset();
    }

protected:
    QString Archivo() const { return dir_->filePath(QStringLiteral("base0.db")); }
    std::unique_ptr<QTemporaryDir> dir_;
    std::unique_ptr<Almacen> alm_;
};
