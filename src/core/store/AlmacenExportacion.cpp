// SPDX-License-Identifier: GPL-3.0-or-later
// The reads and copies of the ADIF exchange: the search of the export window, the walk of
// the whole table for the ADIF backup and the consistent copy of the file.

#include "core/store/Almacen.h"
#include "core/store/AlmacenPrivado.h"

#include <QFileInfo>
#include <QSqlDriver>
#include <QSqlQuery>
#include <iterator>
#include <sqlite3.h>

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

// A text column of the row the statement stands on, into a text that keeps its room: plain
// ASCII is widened in place, anything else decoded from UTF-8. NULL reads as empty.
void LeerTexto(QString &destino, sqlite3_stmt *consulta, int columna)
{
    const auto *texto = sqlite3_column_text(consulta, columna);
    const int largo = sqlite3_column_bytes(consulta, columna);
    for (int i = 0; i < largo; ++i) {
        if (texto[i] >= 0x80) {
            destino = QString::fromUtf8(reinterpret_cast<const char *>(texto), largo);
            return;
        }
    }
    destino.resize(largo);
    QChar *p = destino.data();
    for (int i = 0; i < largo; ++i)
        p[i] = QLatin1Char(char(texto[i]));
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
    // Read through the engine's own interface on Qt's connection: every value of Qt's
    // reader passes through a variant and a UTF-16 copy made by the engine, which would
    // take longer than the work done with the rows.
    sqlite3 *base = nullptr;
    if (d->Abierta()) {
        const QVariant h = d->db.driver()->handle();
        if (h.isValid() && qstrcmp(h.typeName(), "sqlite3*") == 0)
            base = *static_cast<sqlite3 *const *>(h.constData());
    }
    if (!base)
        return fallo(QStringLiteral("La base de datos no está abierta."));
    sqlite3_stmt *consulta = nullptr;
    if (sqlite3_prepare_v2(base, sql.constData(), int(sql.size()), &consulta, nullptr) !=
        SQLITE_OK) {
        sqlite3_finalize(consulta);
        return fallo(QString::fromUtf8(sqlite3_errmsg(base)));
    }
    const QByteArray nombre = log.toUtf8();
    if (sqlite3_bind_parameter_count(consulta) > 0)
        sqlite3_bind_text(consulta, 1, nombre.constData(), int(nombre.size()), SQLITE_STATIC);
    // One row object for the whole walk: its texts keep their room from row to row.
    FilaQSO f;
    const int primera = conId ? 1 : 0;
    int paso;
    while ((paso = sqlite3_step(consulta)) == SQLITE_ROW) {
        if (conId)
            f.id = sqlite3_column_int64(consulta, 0);
        for (int i = 0; i < int(columnas.size()); ++i)
            LeerTexto(f.*columnas[i], consulta, primera + i);
        if (conId) // a whole row: its date as the store gives it everywhere
            f.Fecha = FechaLeida(f.Fecha);
        if (!cada(f)) {
            paso = SQLITE_DONE;
            break;
        }
    }
    sqlite3_finalize(consulta);
    if (paso != SQLITE_DONE)
        return fallo(QString::fromUtf8(sqlite3_errstr(paso)));
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
