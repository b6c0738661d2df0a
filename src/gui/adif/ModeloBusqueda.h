// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The list of the search window: the QSOs found, as rows of a model that the table shows,
// in the order the operator sorted them. The list holds ids only and reads from the store
// the rows the table asks for, a screenful at a time, so that a log of a million QSOs opens
// at once. The export and the upload read the rows from here, each with its id, exactly as
// they stand on screen.

#include "core/store/Almacen.h"
#include "core/store/RegistroQSO.h"

#include <QAbstractTableModel>
#include <QHash>
#include <QVector>
#include <optional>

class ModeloBusqueda : public QAbstractTableModel
{
    Q_OBJECT
public:
    explicit ModeloBusqueda(Almacen &almacen, QObject *padre = nullptr);

    // The columns, in order, and their widths in twips ("Indice" and "ID" are hidden).
    static const QStringList &Titulos();
    static int AnchoColumna(int columna);

    // The QSOs of a log to list, by id, in the order to show them.
    void Poner(const QString &log, QVector<qint64> ids);
    const QVector<qint64> &Ids() const { return ids_; }
    // The rows as they stand, read from the store (the export, the upload).
    QVector<FilaQSO> Filas() const;
    FilaQSO Fila(int n) const;
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
    const FilaQSO *Leida(int n) const;

    Almacen &almacen_;
    QString log_;
    QVector<qint64> ids_;
    // The rows read lately, by id: those on screen and a little around them.
    mutable QHash<qint64, FilaQSO> leidas_;
};
