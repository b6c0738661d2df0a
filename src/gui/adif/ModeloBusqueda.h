#pragma once
// The list of the search window: the QSOs found, as rows of a model that the table shows,
// in the order the operator sorted them. The export and the upload read the rows from
// here, each with its id, exactly as they stand on screen.

#include "core/store/RegistroQSO.h"

#include <QAbstractTableModel>
#include <QVector>

class ModeloBusqueda : public QAbstractTableModel
{
    Q_OBJECT
public:
    using QAbstractTableModel::QAbstractTableModel;

    // The columns, in order, and their widths in twips ("Indice" and "ID" are hidden).
    static const QStringList &Titulos();
    static int AnchoColumna(int columna);

    void Poner(QVector<FilaQSO> filas);
    const QVector<FilaQSO> &Filas() const { return filas_; }
    const FilaQSO &Fila(int n) const { return filas_.at(n); }
    // The text a cell shows: the date as dd/mm/yyyy, the time as hh:mm, LbN as its number.
    static QString Texto(const FilaQSO &fila, int columna);

    // Sorts by the text of one column, keeping the order of equal rows.
    void Ordenar(int columna, Qt::SortOrder orden);
    // A row read again after an edit: put in place of the one with its id, or taken out
    // when the QSO is gone.
    void Reemplazar(qint64 id, const std::optional<FilaQSO> &fila);

    int rowCount(const QModelIndex &padre = {}) const override;
    int columnCount(const QModelIndex &padre = {}) const override;
    QVariant data(const QModelIndex &indice, int rol = Qt::DisplayRole) const override;
    QVariant headerData(int seccion, Qt::Orientation orientacion,
                        int rol = Qt::DisplayRole) const override;

private:
    QVector<FilaQSO> filas_;
};
