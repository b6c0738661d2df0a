// SPDX-License-Identifier: GPL-3.0-or-later
// The store's reads for the contest windows: the chooser's list, the serials and the
// duplicate test, each answered by the index on contest, mode, band and station.

#include "core/store/Almacen.h"
#include "core/store/AlmacenPrivado.h"

using namespace almacen;

QVector<Almacen::ConcursoListado> Almacen::ConcursosConCantidad()
{
    // The bare column takes the row of MIN(id): the founding row names the series, so a
    // contest is paired with its own type whatever its later rows hold.
    static const QString sql =
        QStringLiteral("SELECT \"Nombre Log\", Nombre_Sat, MIN(id), COUNT(*) FROM Tabla2 "
                       "WHERE \"Nombre Log\"<>'' GROUP BY \"Nombre Log\" ORDER BY \"Nombre Log\"");
    QVector<ConcursoListado> lista;
    if (QSqlQuery *q = d->Preparar(sql, {})) {
        while (q->next())
            lista.append(
                {q->value(0).toString(), q->value(1).toString(), q->value(3).toLongLong() - 1});
        q->finish();
    }
    return lista;
}

std::optional<FilaConcurso> Almacen::UltimaFilaConcurso(const QString &log)
{
    static const QString sql =
        QStringLiteral("SELECT %1 FROM Tabla2 WHERE \"Nombre Log\"=? ORDER BY id DESC LIMIT 1")
            .arg(QLatin1String(kColumnasTabla2));
    const QVector<FilaConcurso> filas = d->FilasConcurso(sql, {Texto(log)});
    if (filas.isEmpty())
        return std::nullopt;
    return filas.first();
}

std::optional<QString> Almacen::UltimaSerieConcurso(const QString &log, const QString &modo,
                                                    const QString &banda)
{
    // MAX(id) is read from the index alone; only the one row found is visited.
    static const QString sql = QStringLiteral(
        "SELECT IFNULL(RSE, '') FROM Tabla2 WHERE id=(SELECT MAX(id) FROM Tabla2 WHERE "
        "\"Nombre Log\"=? AND Modo=? AND Banda=?)");
    const QStringList series = d->Textos(sql, {Texto(log), Texto(modo), Texto(banda)});
    if (series.isEmpty())
        return std::nullopt;
    return series.first();
}

bool Almacen::ExisteQSOConcurso(const QString &log, const QString &estacion, const QString &modo,
                                const QString &banda)
{
    static const QString sql =
        QStringLiteral("SELECT 1 FROM Tabla2 WHERE \"Nombre Log\"=? AND Modo=? AND Banda=? AND "
                       "Estacion=? LIMIT 1");
    return !d->Textos(sql, {Texto(log), Texto(modo), Texto(banda), Texto(estacion)}).isEmpty();
}
