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
        return QString(f.Fecha)
            .replace(QLatin1Char('-'), QLatin1Char('/'))
            .replace(QLatin1Char(' '), QLatin1Char('/'));
    case 9:
        return f.Hora.left(5);
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
        return QString::number(NumeroInicial(f.LbN));
    case 16:
        return f.Nombre_Sat;
    case 17:
        return f.Argento;
    }
    return {};
}

void ModeloBusqueda::Poner(QVector<FilaQSO> filas)
{
    beginResetModel();
    filas_ = std::move(filas);
    endResetModel();
}

void ModeloBusqueda::Ordenar(int columna, Qt::SortOrder orden)
{
    // The keys are made once: a million rows are compared some twenty million times.
    QStringList claves;
    claves.reserve(filas_.size());
    for (const FilaQSO &f : std::as_const(filas_))
        claves << Texto(f, columna);
    QVector<qsizetype> orden_(filas_.size());
    std::iota(orden_.begin(), orden_.end(), 0);
    std::stable_sort(orden_.begin(), orden_.end(), [&](qsizetype a, qsizetype b) {
        const int c = claves.at(a).compare(claves.at(b), Qt::CaseInsensitive);
        return orden == Qt::AscendingOrder ? c < 0 : c > 0;
    });
    QVector<FilaQSO> ordenadas;
    ordenadas.reserve(filas_.size());
    for (qsizetype i : std::as_const(orden_))
        ordenadas.append(std::move(filas_[i]));
    Poner(std::move(ordenadas));
}

void ModeloBusqueda::Reemplazar(qint64 id, const std::optional<FilaQSO> &fila)
{
    for (int n = 0; n < filas_.size(); ++n) {
        if (filas_.at(n).id != id)
            continue;
        if (fila) {
            filas_[n] = *fila;
            Q_EMIT dataChanged(index(n, 0), index(n, columnCount() - 1));
        } else {
            beginRemoveRows({}, n, n);
            filas_.removeAt(n);
            endRemoveRows();
        }
        return;
    }
}

int ModeloBusqueda::rowCount(const QModelIndex &padre) const
{
    return padre.isValid() ? 0 : int(filas_.size());
}

int ModeloBusqueda::columnCount(const QModelIndex &padre) const
{
    return padre.isValid() ? 0 : int(Titulos().size());
}

QVariant ModeloBusqueda::data(const QModelIndex &indice, int rol) const
{
    if (!indice.isValid() || indice.row() >= filas_.size())
        return {};
    const FilaQSO &f = filas_.at(indice.row());
    if (rol == Qt::DisplayRole)
        return Texto(f, indice.column());
    if (rol == Qt::UserRole)
        return f.id;
    return {};
}

QVariant ModeloBusqueda::headerData(int seccion, Qt::Orientation orientacion, int rol) const
{
    if (orientacion == Qt::Horizontal && rol == Qt::DisplayRole && seccion < Titulos().size())
        return Titulos().at(seccion);
    return {};
}
