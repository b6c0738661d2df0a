// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The province award: for each Argentine province and each band, the best state at the
// national log service of the QSOs worked there, and the grid locators confirmed and worked.

#include "core/store/RegistroQSO.h"

#include <QHash>
#include <QSet>
#include <QStringList>
#include <QVector>
#include <array>

// The band columns of the grid, in order: "160m" to "6m" and "Sat". No "2m".
const QStringList &ColumnasPremio();

struct GrillaPremio
{
    static constexpr int kColumnas = 12;
    // -1 no QSO; 0 not uploaded, 1 uploaded, 2 confirmed. Provinces in NombresProvincias().
    QVector<std::array<int, kColumnas>> celdas;
    QVector<int> mejor;  // each province's best cell, -1 when it has none
    QStringList totales; // per column: confirmed cells "/" uploaded cells
    int provinciasConfirmadas = 0;
    QStringList grillasConfirmadas, grillasTrabajadas; // a confirmed grid is in one list only
};

// The grid built row by row, in log order (oldest first), in one pass: the grid lists keep
// each locator where it first came. conGrillas false leaves the grid lists empty, as the
// table built from the search window does.
class CalculoPremio
{
public:
    explicit CalculoPremio(bool conGrillas = true);
    // Reads the row's Argento, Banda, Nombre_Sat, LbN and SuGrid.
    void Agregar(const FilaQSO &fila);
    GrillaPremio Terminar();

private:
    bool conGrillas_;
    GrillaPremio g_;
    QHash<QString, int> fila_, columna_;
    QSet<QString> confirmadas_, trabajadas_;
};

// The grid of the rows given.
GrillaPremio CalcularPremio(const QVector<FilaQSO> &filas, bool conGrillas = true);
// The grid of a whole log, read from the store a row at a time: a log of a million QSOs
// never sits in memory.
class Almacen;
GrillaPremio CalcularPremioDelLog(Almacen &almacen, const QString &log);

// The colour of a province's name by its best state, BGR: 0 black, 16576 orange, 32768 green.
int ColorProvincia(int mejor);

// A line of the member list: the reply cut at "nomo:" and "ultimar:", as
// first + " " + second + ">" + third. A reply without the keys gives what it has.
QString LineaMiembros(const QString &respuesta);
