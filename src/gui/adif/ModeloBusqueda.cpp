// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/adif/ModeloBusqueda.h"

#include "core/rules/Numeros.h"

#include <algorithm>
#include <numeric>

const QStringList &ModeloBusqueda::Titulos()
{
    static const QStringList titulos = {
        QStringLiteral("Indice"),        QStringLiteral("ID"),        QStringLiteral("Estación"),
        QStringLiteral("Banda"),         QStringLiteral("Frec"),      QStringLiteral("Modo"),
        QStringLiteral("RSe"),           QStringLiteral("RSr"),       QStringLiteral("Fecha"),
        QStringLiteral("Hora UTC"),      QStringLiteral("MiCall"),    QStringLiteral("Operador"),
        QStringLiteral("Observaciones"), QStringLiteral("Mi Grilla"), QStringLiteral("Su Grilla"),
        QStringLiteral("LbN"),           QStringLiteral("Satélite"),  QStringLiteral("Provincia")};
    return titulos;
}

int ModeloBusqueda::AnchoColumna(int columna)
{
    static const int anchos[] = {0,    0,    1000, 750,  750,  750,  750,  750,  1300,
                                 1000, 1000, 1000, 3000, 1000, 1000, 1000, 1000, 1000};
    return anchos[columna];
}

namespace {

// Rows read around the one the table asks for, and the most kept at a time.
constexpr int kLecturaAntes = 40, kLecturaDespues = 160, kMaximoLeidas = 4000;

// The stored column behind each column of the list ("Indice" and "ID" have none).
std::optional<Almacen::Columna> ColumnaGuardada(int columna)
{
    using C = Almacen::Columna;
    static const std::optional<C> columnas[] = {
        std::nullopt, std::nullopt, C::Estacion, C::Banda, C::Frecuencia, C::Modo,
        C::RSE,       C::RSR,       C::Fecha,    C::Hora,  C::MyCall,     C::Operador,
        C::Obs,       C::MiGrid,    C::SuGrid,   C::LbN,   C::Nombre_Sat, C::Argento};
    return columna >= 0 && columna < int(std::size(columnas)) ? columnas[columna] : std::nullopt;
}

// A stored value as its column shows it.
QString TextoDeValor(int columna, const QString &valor)
{
    switch (columna) {
    case 8:
        return QString(valor)
            .replace(QLatin1Char('-'), QLatin1Char('/'))
            .replace(QLatin1Char(' '), QLatin1Char('/'));
    case 9:
        return valor.left(5);
    case 15:
        return QString::number(NumeroInicial(valor));
    }
    return valor;
}

} // namespace

ModeloBusqueda::ModeloBusqueda(Almacen &almacen, QObject *padre)
    : QAbstractTableModel(padre)
    , almacen_(almacen)
{}

QString ModeloBusqueda::Texto(const FilaQSO &f, int columna)
{
    switch (columna) {
    case 0:
        return QStringLiteral("nombre1");
    case 1:
        return QString::number(f.id);
    case 2:
        return f.Estacion;
    case 3:
        return f.Banda;
    case 4:
        return f.Frecuencia;
    case 5:
        return f.Modo;
    case 6:
        return f.RSE;
    case 7:
        return f.RSR;
    case 8:
        return TextoDeValor(8, f.Fecha);
    case 9:
        return TextoDeValor(9, f.Hora);
    case 10:
        return f.MyCall;
    case 11:
        return f.Operador;
    case 12:
        return f.Obs;
    case 13:
        return f.MiGrid;
    case 14:
        return f.SuGrid;
    case 15:
        return TextoDeValor(15, f.LbN);
    case 16:
        return f.Nombre_Sat;
    case 17:
        return f.Argento;
    }
    return {};
}

void ModeloBusqueda::Poner(const QString &log, QVector<qint64> ids)
{
    beginResetModel();
    log_ = log;
    ids_ = std::move(ids);
    leidas_.clear();
    endResetModel();
}

QVector<FilaQSO> ModeloBusqueda::Filas() const
{
    return almacen_.QSOsPorIds(ids_);
}

FilaQSO ModeloBusqueda::Fila(int n) const
{
    const FilaQSO *f = Leida(n);
    return f ? *f : FilaQSO{};
}

const FilaQSO *ModeloBusqueda::Leida(int n) const
{
    if (n < 0 || n >= ids_.size())
        return nullptr;
    if (const auto it = leidas_.constFind(ids_.at(n)); it != leidas_.cend())
        return &*it;
    // The table asks row by row as it paints: read the rows around this one at once.
    if (leidas_.size() > kMaximoLeidas)
        leidas_.clear();
    const qsizetype desde = std::max<qsizetype>(0, n - kLecturaAntes);
    const qsizetype hasta = std::min<qsizetype>(ids_.size(), n + kLecturaDespues);
    for (FilaQSO &f : almacen_.QSOsPorIds(ids_.mid(desde, hasta - desde)))
        leidas_.insert(f.id, std::move(f));
    const auto it = leidas_.constFind(ids_.at(n));
    return it == leidas_.cend() ? nullptr : &*it;
}

void ModeloBusqueda::Ordenar(int columna, Qt::SortOrder orden)
{
    // The keys are made once: a million rows are compared some twenty million times. Only
    // the one column is read, for the whole log at once.
    const std::optional<Almacen::Columna> guardada = ColumnaGuardada(columna);
    if (!guardada)
        return; // "Indice" is the same text on every row: the order stays
    const QHash<qint64, QString> valores = almacen_.ColumnaDelLog(log_, *guardada);
    QVector<QString> claves;
    claves.reserve(ids_.size());
    for (qint64 id : std::as_const(ids_))
        claves << TextoDeValor(columna, valores.value(id));
    QVector<qsizetype> posiciones(ids_.size());
    std::iota(posiciones.begin(), posiciones.end(), 0);
    std::stable_sort(posiciones.begin(), posiciones.end(), [&](qsizetype a, qsizetype b) {
        const int c = claves.at(a).compare(claves.at(b), Qt::CaseInsensitive);
        return orden == Qt::AscendingOrder ? c < 0 : c > 0;
    });
    QVector<qint64> ordenados;
    ordenados.reserve(ids_.size());
    for (qsizetype i : std::as_const(posiciones))
        ordenados.append(ids_.at(i));
    beginResetModel();
    ids_ = std::move(ordenados);
    endResetModel();
}

void ModeloBusqueda::Reemplazar(qint64 id, const std::optional<FilaQSO> &fila)
{
    const qsizetype n = ids_.indexOf(id);
    if (n < 0)
        return;
    if (fila) {
        leidas_.insert(id, *fila);
        Q_EMIT dataChanged(index(int(n), 0), index(int(n), columnCount() - 1));
    } else {
        beginRemoveRows({}, int(n), int(n));
        ids_.removeAt(n);
        leidas_.remove(id);
        endRemoveRows();
    }
}

int ModeloBusqueda::rowCount(const QModelIndex &padre) const
{
    return padre.isValid() ? 0 : int(ids_.size());
}

int ModeloBusqueda::columnCount(const QModelIndex &padre) const
{
    return padre.isValid() ? 0 : int(Titulos().size());
}

QVariant ModeloBusqueda::data(const QModelIndex &indice, int rol) const
{
    if (!indice.isValid() || indice.row() >= ids_.size())
        return {};
    if (rol == Qt::UserRole)
        return ids_.at(indice.row());
    if (rol != Qt::DisplayRole)
        return {};
    const FilaQSO *f = Leida(indice.row());
    return f ? Texto(*f, indice.column()) : QVariant();
}

QVariant ModeloBusqueda::headerData(int seccion, Qt::Orientation orientacion, int rol) const
{
    if (orientacion == Qt::Horizontal && rol == Qt::DisplayRole && seccion < Titulos().size())
        return Titulos().at(seccion);
    return {};
}
