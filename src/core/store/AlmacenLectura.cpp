// SPDX-License-Identifier: GPL-3.0-or-later
// The reading operations of the store, the log view's paging among them.

#include "core/store/Almacen.h"
#include "core/store/AlmacenPrivado.h"

#include <algorithm>

using namespace almacen;

namespace {

QString DeTabla1(const char *resto)
{
    return QStringLiteral("SELECT %1 FROM Tabla1 %2")
        .arg(QLatin1String(kColumnasTabla1), QLatin1String(resto));
}

QString DeTabla2(const char *resto)
{
    return QStringLiteral("SELECT %1 FROM Tabla2 %2")
        .arg(QLatin1String(kColumnasTabla2), QLatin1String(resto));
}

const char *const kDelLog = "WHERE \"Nombre Log\"=? AND Modo<>'' ";
const char *const kNuevos = "ORDER BY Fecha DESC, Hora DESC, id DESC ";
const char *const kViejos = "ORDER BY Fecha ASC, Hora ASC, id ASC ";

} // namespace

QString almacen::Siguiente(const QString &texto)
{
    QList<uint> puntos = texto.toUcs4();
    for (uint &p : puntos)
        if (p >= 'A' && p <= 'Z')
            p += 'a' - 'A'; // NOCASE compares A-Z as a-z
    if (puntos.isEmpty() || puntos.last() >= 0x10FFFF)
        return {};
    uint &ultimo = puntos.last();
    ultimo = ultimo == 0xD7FF ? 0xE000 : ultimo + 1; // no text holds a surrogate
    return QString::fromUcs4(reinterpret_cast<const char32_t *>(puntos.constData()), puntos.size());
}

// ---- Reading rows ----------------------------------------------------------------------------

QVector<FilaQSO> Almacen::Privado::LeerFilas(QSqlQuery &q, bool conDupe, QVector<Clave> *claves)
{
    QVector<FilaQSO> filas;
    while (q.next()) {
        FilaQSO f;
        f.id = q.value(0).toLongLong();
        f.Modo = q.value(1).toString();
        f.Banda = q.value(2).toString();
        f.MyCall = q.value(3).toString();
        f.Estacion = q.value(4).toString();
        const QString fecha = q.value(5).toString();
        f.Fecha = FechaLeida(fecha);
        f.Hora = q.value(6).toString();
        f.RSE = q.value(7).toString();
        f.RSR = q.value(8).toString();
        f.Obs = q.value(9).toString();
        f.Operador = q.value(10).toString();
        f.NombreLog = q.value(11).toString();
        f.Frecuencia = q.value(12).toString();
        f.MiGrid = q.value(13).toString();
        f.SuGrid = q.value(14).toString();
        f.LbN = q.value(15).toString();
        f.Nombre_Sat = q.value(16).toString();
        f.Argento = q.value(17).toString();
        if (conDupe)
            f.Dupe = q.value(18).toString();
        if (claves)
            claves->append({fecha, f.Hora, f.id});
        filas.append(std::move(f));
    }
    q.finish();
    return filas;
}

QVector<FilaConcurso> Almacen::Privado::LeerConcurso(QSqlQuery &q)
{
    QVector<FilaConcurso> filas;
    while (q.next()) {
        FilaConcurso f;
        f.id = q.value(0).toLongLong();
        f.Modo = q.value(1).toString();
        f.Banda = q.value(2).toString();
        f.MyCall = q.value(3).toString();
        f.Estacion = q.value(4).toString();
        f.Fecha = q.value(5).toString();
        f.Hora = q.value(6).toString();
        f.RSE = q.value(7).toString();
        f.RSR = q.value(8).toString();
        f.Obs = q.value(9).toString();
        f.Operador = q.value(10).toString();
        f.NombreLog = q.value(11).toString();
        f.Frecuencia = q.value(12).toString();
        f.LbN = q.value(13).toString();
        f.Nombre_Sat = q.value(14).toString();
        f.Argento = q.value(15).toString();
        filas.append(std::move(f));
    }
    q.finish();
    return filas;
}

QVector<FilaQSO> Almacen::Privado::Filas(const QString &sql, const QVariantList &valores)
{
    QSqlQuery *q = Preparar(sql, valores);
    return q ? LeerFilas(*q) : QVector<FilaQSO>{};
}

QVector<FilaConcurso> Almacen::Privado::FilasConcurso(const QString &sql,
                                                      const QVariantList &valores)
{
    QSqlQuery *q = Preparar(sql, valores);
    return q ? LeerConcurso(*q) : QVector<FilaConcurso>{};
}

QStringList Almacen::Privado::Textos(const QString &sql, const QVariantList &valores)
{
    QStringList textos;
    if (QSqlQuery *q = Preparar(sql, valores)) {
        while (q->next())
            textos << q->value(0).toString();
        q->finish();
    }
    return textos;
}

// ---- Logs and counts ---------------------------------------------------------------------------

QStringList Almacen::Logs()
{
    d->FinDeCargaMasiva();
    return d->Textos(
        QStringLiteral("SELECT \"Nombre Log\" FROM CuentaLogs ORDER BY \"Nombre Log\""), {});
}

QVector<QPair<QString, qint64>> Almacen::LogsConCantidad()
{
    d->FinDeCargaMasiva();
    QVector<QPair<QString, qint64>> logs;
    if (QSqlQuery *q = d->Preparar(
            QStringLiteral("SELECT \"Nombre Log\", QSOs FROM CuentaLogs ORDER BY \"Nombre Log\""),
            {})) {
        while (q->next())
            logs.append({q->value(0).toString(), q->value(1).toLongLong()});
        q->finish();
    }
    return logs;
}

qint64 Almacen::CantidadQSOs(const QString &log)
{
    d->FinDeCargaMasiva();
    const QStringList n = d->Textos(
        QStringLiteral("SELECT QSOs FROM CuentaLogs WHERE \"Nombre Log\"=?"), {Texto(log)});
    return n.isEmpty() ? 0 : n.first().toLongLong();
}

// ---- The log view --------------------------------------------------------------------------

QVector<FilaQSO> Almacen::PaginaLog(const QString &log, qint64 filaInicial, int tamano)
{
    Privado::Pagina &cache = d->pagina;
    if (tamano <= 0)
        return {};
    d->FinDeCargaMasiva();
    const qint64 fila = std::max<qint64>(filaInicial, 1);

    // The count of QSOs, and whether any of them lacks a date or time: such a row cannot be
    // sought by key (a comparison with NULL is never true), so then only offsets are used.
    qint64 total = 0;
    bool conNulos = false;
    if (QSqlQuery *q = d->Preparar(
            QStringLiteral("SELECT QSOs, SinFecha FROM CuentaLogs WHERE \"Nombre Log\"=?"),
            {Texto(log)})) {
        if (q->next()) {
            total = q->value(0).toLongLong();
            conNulos = q->value(1).toLongLong() > 0;
        }
        q->finish();
    } else {
        return {};
    }
    // Another connection may have written since the page was read.
    qint64 version = 0;
    if (QSqlQuery *q = d->Preparar(QStringLiteral("PRAGMA data_version"), {})) {
        if (q->next())
            version = q->value(0).toLongLong();
        q->finish();
    }

    cache.valida = cache.valida && !conNulos && cache.version == version && cache.log == log &&
                   cache.tamano == tamano;
    if (fila > total) {
        cache.valida = false;
        return {};
    }

    const QVariant nombre = Texto(log);
    QVector<Clave> claves;
    QVector<FilaQSO> filas;
    bool invertir = false;
    QSqlQuery *q = nullptr;
    if (fila == 1) {
        static const QString sql =
            DeTabla1(kDelLog) + QLatin1String(kNuevos) + QStringLiteral("LIMIT ?");
        q = d->Preparar(sql, {nombre, tamano});
    } else if (fila + tamano - 1 >= total) {
        // The last page: the oldest rows, read from their end and turned round.
        static const QString sql =
            DeTabla1(kDelLog) + QLatin1String(kViejos) + QStringLiteral("LIMIT ?");
        q = d->Preparar(sql, {nombre, total - fila + 1});
        invertir = true;
    } else if (cache.valida && cache.filas == tamano && fila == cache.fila + tamano) {
        static const QString sql = DeTabla1(kDelLog) +
                                   QStringLiteral("AND (Fecha, Hora, id) < (?, ?, ?) ") +
                                   QLatin1String(kNuevos) + QStringLiteral("LIMIT ?");
        const Clave &k = cache.ultima;
        q = d->Preparar(sql, {nombre, k.fecha, k.hora, k.id, tamano});
    } else if (cache.valida && fila + tamano == cache.fila) {
        static const QString sql = DeTabla1(kDelLog) +
                                   QStringLiteral("AND (Fecha, Hora, id) > (?, ?, ?) ") +
                                   QLatin1String(kViejos) + QStringLiteral("LIMIT ?");
        const Clave &k = cache.primera;
        q = d->Preparar(sql, {nombre, k.fecha, k.hora, k.id, tamano});
        invertir = true;
    } else {
        // A jump: an offset, counted from the nearer end of the log.
        const qint64 desdeArriba = fila - 1;
        const qint64 desdeAbajo = total - desdeArriba - tamano;
        if (desdeArriba <= desdeAbajo) {
            static const QString sql =
                DeTabla1(kDelLog) + QLatin1String(kNuevos) + QStringLiteral("LIMIT ? OFFSET ?");
            q = d->Preparar(sql, {nombre, tamano, desdeArriba});
        } else {
            static const QString sql =
                DeTabla1(kDelLog) + QLatin1String(kViejos) + QStringLiteral("LIMIT ? OFFSET ?");
            q = d->Preparar(sql, {nombre, tamano, desdeAbajo});
            invertir = true;
        }
    }
    if (!q) {
        cache.valida = false;
        return {};
    }
    filas = d->LeerFilas(*q, false, &claves);
    if (invertir) {
        std::reverse(filas.begin(), filas.end());
        std::reverse(claves.begin(), claves.end());
    }
    cache.valida = !filas.isEmpty() && !conNulos;
    if (cache.valida) {
        cache.log = log;
        cache.fila = fila;
        cache.tamano = tamano;
        cache.filas = filas.size();
        cache.primera = claves.first();
        cache.ultima = claves.last();
        cache.version = version;
    }
    return filas;
}

// ---- Other reads of Tabla1 -------------------------------------------------------------------

std::optional<FilaQSO> Almacen::UltimoQSO(const QString &log)
{
    d->FinDeCargaMasiva();
    static const QString sql =
        DeTabla1(kDelLog) + QLatin1String(kNuevos) + QStringLiteral("LIMIT 1");
    const QVector<FilaQSO> filas = d->Filas(sql, {Texto(log)});
    if (filas.isEmpty())
        return std::nullopt;
    return filas.first();
}

std::optional<FilaQSO> Almacen::QSOPorId(const QString &log, qint64 id)
{
    static const QString sql = DeTabla1("WHERE \"Nombre Log\"=? AND id=?");
    const QVector<FilaQSO> filas = d->Filas(sql, {Texto(log), id});
    if (filas.isEmpty())
        return std::nullopt;
    return filas.first();
}

QVector<FilaQSO> Almacen::HistorialDe(const QString &log, const QString &inicioSenal)
{
    d->FinDeCargaMasiva();
    // The part before the first wildcard bounds a range of the (log, Estacion) index; the
    // LIKE then applies the whole pattern within it.
    qsizetype largoFijo = 0;
    while (largoFijo < inicioSenal.size() && inicioSenal.at(largoFijo) != QLatin1Char('*') &&
           inicioSenal.at(largoFijo) != QLatin1Char('?'))
        ++largoFijo;
    const QString fijo = inicioSenal.left(largoFijo);
    const QString tope = Siguiente(fijo);
    QVariantList valores = {Texto(log)};
    QString sql = DeTabla1("WHERE \"Nombre Log\"=? ");
    if (!fijo.isEmpty()) {
        sql += QStringLiteral("AND Estacion >= ? ");
        valores << fijo;
        if (!tope.isEmpty()) {
            sql += QStringLiteral("AND Estacion < ? ");
            valores << tope;
        }
    }
    sql += QStringLiteral("AND Estacion LIKE ? ESCAPE '\\' ") + QLatin1String(kViejos);
    valores << PatronLike(inicioSenal) + QLatin1Char('%');
    return d->Filas(sql, valores);
}

QVector<FilaQSO> Almacen::LogCompletoDescendente(const QString &log)
{
    d->FinDeCargaMasiva();
    static const QString sql = DeTabla1("WHERE \"Nombre Log\"=? ") + QLatin1String(kNuevos);
    return d->Filas(sql, {Texto(log)});
}

QVector<FilaQSO> Almacen::LogCompletoAscendente(const QString &log)
{
    d->FinDeCargaMasiva();
    static const QString sql = DeTabla1("WHERE \"Nombre Log\"=? ") + QLatin1String(kViejos);
    return d->Filas(sql, {Texto(log)});
}

QVector<FilaQSO> Almacen::PendientesLbN(const QString &log)
{
    d->FinDeCargaMasiva();
    static const QString sql =
        DeTabla1("WHERE \"Nombre Log\"=? AND (LbN='' OR LbN='0') ") + QLatin1String(kViejos);
    return d->Filas(sql, {Texto(log)});
}

QVector<FilaQSO> Almacen::Candidatos(const QString &log, const QString &modo, const QString &banda,
                                     const QString &myCall, const QString &estacion)
{
    d->FinDeCargaMasiva();
    static const QString sql = DeTabla1("WHERE \"Nombre Log\"=? AND Modo=? AND Banda=? AND "
                                        "MyCall=? AND Estacion=? ORDER BY id");
    return d->Filas(sql, {Texto(log), Texto(modo), Texto(banda), Texto(myCall), Texto(estacion)});
}

QVector<FilaQSO> Almacen::TodosLosQSOs()
{
    static const QString sql = DeTabla1("ORDER BY id");
    return d->Filas(sql, {});
}

QVector<FilaQSO> Almacen::FilasEspera()
{
    static const QString sql = QStringLiteral("SELECT %1, Dupe FROM Tabla3 ORDER BY id")
                                   .arg(QLatin1String(kColumnasTabla1));
    QSqlQuery *q = d->Preparar(sql, {});
    return q ? d->LeerFilas(*q, true) : QVector<FilaQSO>{};
}

// ---- Contest logs ------------------------------------------------------------------------------

QStringList Almacen::LogsConcurso()
{
    return d->Textos(QStringLiteral("SELECT DISTINCT \"Nombre Log\" FROM Tabla2 WHERE "
                                    "\"Nombre Log\"<>'' ORDER BY \"Nombre Log\""),
                     {});
}

QVector<FilaConcurso> Almacen::LogConcurso(const QString &log)
{
    static const QString sql = DeTabla2("WHERE \"Nombre Log\"=? ORDER BY id");
    return d->FilasConcurso(sql, {Texto(log)});
}

QStringList Almacen::SatelitesDeConcurso(const QString &log)
{
    return d->Textos(QStringLiteral("SELECT DISTINCT Nombre_Sat FROM Tabla2 WHERE "
                                    "\"Nombre Log\"=? ORDER BY Nombre_Sat"),
                     {Texto(log)});
}

QVector<FilaConcurso> Almacen::VistaConcurso(const QString &log)
{
    static const QString sql = DeTabla2("WHERE \"Nombre Log\"=? AND Modo<>'' ORDER BY id DESC");
    return d->FilasConcurso(sql, {Texto(log)});
}

QVector<FilaConcurso> Almacen::LogConcursoOrdenado(const QString &log, bool ascendente)
{
    static const QString asc = DeTabla2("WHERE \"Nombre Log\"=? ") + QLatin1String(kViejos);
    static const QString desc = DeTabla2("WHERE \"Nombre Log\"=? ") + QLatin1String(kNuevos);
    return d->FilasConcurso(ascendente ? asc : desc, {Texto(log)});
}

QVector<FilaConcurso> Almacen::ConcursoPorModoBanda(const QString &log, const QString &modo,
                                                    const QString &banda)
{
    static const QString sql =
        DeTabla2("WHERE \"Nombre Log\"=? AND Modo=? AND Banda=? ORDER BY id");
    return d->FilasConcurso(sql, {Texto(log), Texto(modo), Texto(banda)});
}

QVector<FilaConcurso> Almacen::ConcursoPorModoBandaEstacion(const QString &log, const QString &modo,
                                                            const QString &banda,
                                                            const QString &estacion)
{
    static const QString sql =
        DeTabla2("WHERE \"Nombre Log\"=? AND Modo=? AND Banda=? AND Estacion=? ORDER BY id");
    return d->FilasConcurso(sql, {Texto(log), Texto(modo), Texto(banda), Texto(estacion)});
}
