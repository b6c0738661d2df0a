// SPDX-License-Identifier: GPL-3.0-or-later
// The reads and copies of the ADIF exchange: the search of the export window, the walk of
// the whole table for the ADIF backup and the consistent copy of the file.

#include "core/store/Almacen.h"
#include "core/store/AlmacenPrivado.h"

#include <QFileInfo>
#include <QSqlQuery>
#include <iterator>

using namespace almacen;

namespace {

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

QVector<Almacen::QSOEncontrado> Almacen::ExportarQSOs(const QString &log,
                                                      const FiltroExportacion &filtro)
{
    d->FinDeCargaMasiva();
    QString sql =
        QStringLiteral("SELECT id, Estacion, LbN FROM Tabla1 WHERE \"Nombre Log\"=? AND Modo<>'' ");
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
    QVector<QSOEncontrado> encontrados;
    if (QSqlQuery *q =
            d->Preparar(sql + QStringLiteral("ORDER BY Fecha ASC, Hora ASC, id ASC"), valores)) {
        while (q->next())
            encontrados.append(
                {q->value(0).toLongLong(), q->value(1).toString(), q->value(2).toString()});
        q->finish();
    }
    return encontrados;
}

namespace {

// The name of each column the search window asks for, as the table has it.
const char *NombreColumna(Almacen::Columna c)
{
    using C = Almacen::Columna;
    switch (c) {
    case C::MyCall:
        return "MyCall";
    case C::Operador:
        return "Operador";
    case C::Estacion:
        return "Estacion";
    case C::Banda:
        return "Banda";
    case C::Frecuencia:
        return "Frecuencia";
    case C::Modo:
        return "Modo";
    case C::RSE:
        return "RSE";
    case C::RSR:
        return "RSR";
    case C::Fecha:
        return "Fecha";
    case C::Hora:
        return "Hora";
    case C::Obs:
        return "Obs";
    case C::MiGrid:
        return "MiGrid";
    case C::SuGrid:
        return "SuGrid";
    case C::LbN:
        return "LbN";
    case C::Nombre_Sat:
        return "Nombre_Sat";
    case C::Argento:
        return "Argento";
    }
    return "id";
}

// Ids are asked for in blocks of this many, one prepared statement for every block.
constexpr int kBloqueIds = 200;

} // namespace

QVector<qint64> Almacen::IdsDelLog(const QString &log)
{
    d->FinDeCargaMasiva();
    QVector<qint64> ids;
    ids.reserve(CantidadQSOs(log));
    static const QString sql =
        QStringLiteral("SELECT id FROM Tabla1 WHERE \"Nombre Log\"=? AND Modo<>'' "
                       "ORDER BY Fecha DESC, Hora DESC, id DESC");
    if (QSqlQuery *q = d->Preparar(sql, {Texto(log)})) {
        while (q->next())
            ids.append(q->value(0).toLongLong());
        q->finish();
    }
    return ids;
}

QVector<FilaQSO> Almacen::QSOsPorIds(const QVector<qint64> &ids)
{
    d->FinDeCargaMasiva();
    static const QString sql = [] {
        QStringList marcas(kBloqueIds, QStringLiteral("?"));
        return QStringLiteral("SELECT %1 FROM Tabla1 WHERE id IN (%2)")
            .arg(QLatin1String(kColumnasTabla1), marcas.join(QLatin1Char(',')));
    }();
    QHash<qint64, FilaQSO> leidas;
    leidas.reserve(ids.size());
    for (qsizetype desde = 0; desde < ids.size(); desde += kBloqueIds) {
        // A short last block repeats its first id: the statement keeps its one shape.
        QVariantList valores;
        valores.reserve(kBloqueIds);
        for (qsizetype i = desde; i < desde + kBloqueIds; ++i)
            valores << (i < ids.size() ? ids.at(i) : ids.at(desde));
        for (FilaQSO &f : d->Filas(sql, valores))
            leidas.insert(f.id, std::move(f));
    }
    QVector<FilaQSO> filas;
    filas.reserve(ids.size());
    for (qint64 id : ids)
        if (const auto it = leidas.constFind(id); it != leidas.cend())
            filas.append(*it);
    return filas;
}

QHash<qint64, QString> Almacen::ColumnaDelLog(const QString &log, Columna columna)
{
    d->FinDeCargaMasiva();
    QHash<qint64, QString> valores;
    valores.reserve(CantidadQSOs(log));
    const QString sql =
        QStringLiteral("SELECT id, %1 FROM Tabla1 WHERE \"Nombre Log\"=? AND Modo<>''")
            .arg(QLatin1String(NombreColumna(columna)));
    if (QSqlQuery *q = d->Preparar(sql, {Texto(log)})) {
        while (q->next())
            valores.insert(q->value(0).toLongLong(), columna == Columna::Fecha
                                                         ? FechaLeida(q->value(1).toString())
                                                         : q->value(1).toString());
        q->finish();
    }
    return valores;
}

QStringList Almacen::DistintosDelLog(const QString &log, Columna columna)
{
    d->FinDeCargaMasiva();
    // Distinct as written ("lu1abc" apart from "LU1ABC"), listed without regard to case.
    const QString sql =
        QStringLiteral("SELECT DISTINCT %1 COLLATE BINARY FROM Tabla1 WHERE \"Nombre Log\"=? "
                       "AND Modo<>'' AND %1<>'' ORDER BY %1 COLLATE NOCASE, %1 COLLATE BINARY")
            .arg(QLatin1String(NombreColumna(columna)));
    return d->Textos(sql, {Texto(log)});
}

QVector<qint64> Almacen::BuscarQSOs(const QString &log, const QString &myCall,
                                    const QString &operador)
{
    d->FinDeCargaMasiva();
    QString sql = QStringLiteral("SELECT id FROM Tabla1 WHERE \"Nombre Log\"=? AND Modo<>'' ");
    QVariantList valores = {Texto(log)};
    if (!myCall.isEmpty()) {
        sql += QStringLiteral("AND MyCall=? ");
        valores << myCall;
    }
    if (!operador.isEmpty()) {
        sql += QStringLiteral("AND Operador=? ");
        valores << operador;
    }
    QVector<qint64> ids;
    if (QSqlQuery *q =
            d->Preparar(sql + QStringLiteral("ORDER BY Fecha DESC, Hora DESC, id DESC"), valores)) {
        while (q->next())
            ids.append(q->value(0).toLongLong());
        q->finish();
    }
    return ids;
}

Resultado<> Almacen::Recorrer(const QByteArray &sql, const QString &log,
                              const std::vector<QString FilaQSO::*> &columnas, bool conId,
                              const std::function<bool(const FilaQSO &)> &cada)
{
    d->FinDeCargaMasiva();
    const auto fallo = [this](const QString &causa) {
        d->error = causa;
        return d->FalloCon(QStringLiteral("No se pudieron leer los QSOs."));
    };
    // Read through the engine's own interface: every value of Qt's reader passes through a
    // variant and a UTF-16 copy made by the engine, which would take longer than the work
    // done with the rows.
    Sentencia consulta;
    if (!consulta.Preparar(MotorDe(d->db), sql.constData()))
        return fallo(consulta.Error());
    consulta.Texto(1, log); // a walk of the whole table has no value to bind: nothing is done
    // One row object for the whole walk: its texts keep their room from row to row.
    FilaQSO f;
    const int primera = conId ? 1 : 0;
    while (consulta.Fila()) {
        if (conId)
            f.id = consulta.EnteroEn(0);
        for (int i = 0; i < int(columnas.size()); ++i)
            consulta.TextoEn(f.*columnas[i], primera + i);
        if (conId) // a whole row: its date as the store gives it everywhere
            f.Fecha = FechaLeida(f.Fecha);
        if (!cada(f))
            return {};
    }
    if (consulta.Fallo())
        return fallo(consulta.Error());
    return {};
}

Resultado<> Almacen::RecorrerQSOs(const std::function<bool(const FilaQSO &)> &cada)
{
    static const std::vector<QString FilaQSO::*> columnas = {
        &FilaQSO::Modo,   &FilaQSO::Banda,    &FilaQSO::MyCall,    &FilaQSO::Estacion,
        &FilaQSO::Fecha,  &FilaQSO::Hora,     &FilaQSO::RSE,       &FilaQSO::RSR,
        &FilaQSO::Obs,    &FilaQSO::Operador, &FilaQSO::NombreLog, &FilaQSO::Frecuencia,
        &FilaQSO::MiGrid, &FilaQSO::SuGrid,   &FilaQSO::LbN,       &FilaQSO::Nombre_Sat,
        &FilaQSO::Argento};
    const QByteArray sql = QByteArrayLiteral("SELECT ") + kColumnasTabla1 +
                           QByteArrayLiteral(" FROM Tabla1 ORDER BY id");
    return Recorrer(sql, {}, columnas, true, cada);
}

Resultado<> Almacen::RecorrerParaPremio(const QString &log,
                                        const std::function<bool(const FilaQSO &)> &cada)
{
    static const std::vector<QString FilaQSO::*> columnas = {
        &FilaQSO::Argento, &FilaQSO::Banda, &FilaQSO::Nombre_Sat, &FilaQSO::LbN, &FilaQSO::SuGrid};
    static const QByteArray sql = QByteArrayLiteral(
        "SELECT Argento, Banda, Nombre_Sat, LbN, SuGrid FROM Tabla1 WHERE \"Nombre Log\"=? "
        "ORDER BY Fecha, Hora, id");
    return Recorrer(sql, log, columnas, false, cada);
}

Resultado<> Almacen::CopiarBase(const QString &destino)
{
    d->FinDeCargaMasiva();
    const QString ruta = QFileInfo(destino).absoluteFilePath();
    if (!d->Escribir(QStringLiteral("VACUUM INTO ?"), {ruta}))
        return d->FalloCon(QStringLiteral("No se pudo copiar la base de datos a %1.").arg(ruta));
    return {};
}
