// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The search of the export window: the filters the operator fills and the rows of the
// log in use that pass them.

#include "core/platform/Resultado.h"
#include "core/store/RegistroQSO.h"

#include <QString>
#include <QStringList>
#include <QVector>

class Almacen;

// The national service's state the rows must have, with "Solo Argentinos" ticked.
// "Subidos" and "Confirmados" both list the uploaded, unconfirmed QSOs (state 1): a
// confirmed one shows only under "Todos".
enum class OpcionLbN { NoSubidos, Subidos, Confirmados, Todos };

struct FiltrosBusqueda
{
    // Matched whole, as LIKE patterns without regard to the case of A to Z: '?' stands for
    // one character and '*' for any run of them; '%' and '_' are plain characters.
    QString senal{}, operador{}, corresponsal{}, modo{}, banda{};
    // Matched anywhere in the remark.
    QString observaciones{};
    QString desde{}, hasta{}; // "dd/mm/yyyy", both days included; empty: open
    bool satelite = false;
    bool soloArgentinos = false;
    OpcionLbN lbn = OpcionLbN::Todos;
};

// The ids of the QSOs of the log that pass every filter, oldest first. A date filter that
// is not a date is refused with the message of the date fields.
Resultado<QVector<qint64>> BuscarQSOsFiltrados(Almacen &almacen, const QString &log,
                                               const FiltrosBusqueda &filtros);

// The message of a date filter that cannot be read, and the test behind it (an empty
// field is good).
inline QString MensajeFechaFiltro()
{
    return QStringLiteral("Error en el formato de fecha!");
}
bool FechaFiltroValida(const QString &texto);

// The band filter as the operator leaves it: upper-cased, trimmed, and an "M" put at the
// end when it has none, so that "40" looks for "40M".
QString BandaFiltro(const QString &texto);
