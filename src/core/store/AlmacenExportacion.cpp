// The reads and copies of the ADIF exchange: the search of the export window, the walk of
// the whole table for the ADIF backup and the consistent copy of the file.

#include "core/store/Almacen.h"
#include "core/store/AlmacenPrivado.h"

#include <QFileInfo>

using namespace almacen;

namespace {

QString DeTabla1(const char *resto)
{
    return QStringLiteral("SELECT %1 FROM Tabla1 %2")
        .arg(QLatin1String(kColumnasTabla1), QLatin1String(resto));
}

// The part of a pattern before its first wildcard.
QString PrefijoFijo(const QString &patron)
{
    qsizetype n = 0;
    while (n < patron.size() && patron.at(n) != QLatin1Char('*') &&
           patron.at(n) != QLatin1Char('?'))
        ++n;
    return patron.left(n);
}

} // namespace

QVector<FilaQSO> Almacen::ExportarQSOs(const QString &log, const FiltroExportacion &filtro)
{
    d->FinDeCargaMasiva();
    QString sql = DeTabla1("WHERE \"Nombre Log\"=? AND Modo<>'' ");
    QVariantList valores = {Texto(log)};
    // The correspondent has an index behind the log's name: the part of its pattern before
    // the first wildcard bounds a range of it, and the LIKE then applies the whole pattern
    // within that range, so a search for one callsign never walks the log.
    if (const QString fijo = PrefijoFijo(filtro.estacion); !fijo.isEmpty()) {
        sql += QStringLiteral("AND Estacion >= ? ");
        valores << fijo;
        if (const QString tope = Siguiente(fijo); !tope.isEmpty()) {
            sql += QStringLiteral("AND Estacion < ? ");
            valores << tope;
        }
    }
    const std::pair<const char *, const QString *> patrones[] = {{"MyCall", &filtro.myCall},
                                                                 {"Operador", &filtro.operador},
                                                                 {"Estacion", &filtro.estacion},
                                                                 {"Modo", &filtro.modo},
                                                                 {"Banda", &filtro.banda}};
    for (const auto &[columna, texto] : patrones) {
        if (texto->isEmpty())
            continue;
        sql += QStringLiteral("AND %1 LIKE ? ESCAPE '\\' ").arg(QLatin1String(columna));
        valores << PatronLike(*texto);
    }
    if (!filtro.obs.isEmpty()) {
        sql += QStringLiteral("AND Obs LIKE ? ESCAPE '\\' ");
        valores << QLatin1Char('%') + PatronLike(filtro.obs) + QLatin1Char('%');
    }
    // Dates are kept as ISO text: a range of days is a range of text. A stored value that
    // is no date starts with '!', below every digit, and so falls outside any range.
    if (filtro.desde.isValid() || filtro.hasta.isValid()) {
        sql += QStringLiteral("AND Fecha >= ? AND Fecha <= ? ");
        valores << (filtro.desde.isValid() ? filtro.desde.toString(Qt::ISODate)
                                           : QStringLiteral("0"))
                << (filtro.hasta.isValid() ? filtro.hasta.toString(Qt::ISODate)
                                           : QStringLiteral("9999-12-31"));
    }
    if (filtro.soloSatelite)
        sql += QStringLiteral("AND Nombre_Sat<>'' ");
    return d->Filas(sql + QStringLiteral("ORDER BY Fecha ASC, Hora ASC, id ASC"), valores);
}

Resultado<> Almacen::RecorrerQSOs(const std::function<bool(const FilaQSO &)> &cada)
{
    d->FinDeCargaMasiva();
    static const QString sql = DeTabla1("ORDER BY id");
    QSqlQuery *q = d->Preparar(sql, {});
    if (!q)
        return d->FalloCon(QStringLiteral("No se pudieron leer los QSOs."));
    // Read in pieces, so that a whole table never sits in memory.
    for (;;) {
        const QVector<FilaQSO> pieza = d->LeerFilas(*q, false, nullptr, 4096);
        for (const FilaQSO &f : pieza) {
            if (!cada(f)) {
                q->finish();
                return {};
            }
        }
        if (pieza.size() < 4096)
            return {};
    }
}

Resultado<> Almacen::CopiarBase(const QString &destino)
{
    d->FinDeCargaMasiva();
    const QString ruta = QFileInfo(destino).absoluteFilePath();
    if (!d->Escribir(QStringLiteral("VACUUM INTO ?"), {ruta}))
        return d->FalloCon(QStringLiteral("No se pudo copiar la base de datos a %1.").arg(ruta));
    return {};
}
