// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The callsign history: the earlier QSOs of a correspondent in the log in use, as lines
// of fixed columns for a fixed-pitch list. Plain functions, so a test needs no window.

#include "core/store/RegistroQSO.h"

#include <QString>
#include <QStringList>
#include <QVector>

// Blanks, then the text: one blank for each number from the text's length up to the
// width, both counted. A shorter text comes out one wider than the width; a longer one
// unchanged. That extra blank is what separates the columns.
QString RellenarIzquierda(const QString &texto, int ancho);

// "MiCall", "SuCall", "Banda", "Modo", "Fecha", "Hora", padded and joined by a blank.
QString CabeceraHistorial();
// One QSO: own call, correspondent, band and mode padded, then date and time as they
// are, joined by "|".
QString LineaHistorial(const FilaQSO &fila);
// The header and one line for each QSO, in the order given.
QStringList LineasHistorial(const QVector<FilaQSO> &filas);

QString MensajeSinQSOs(const QString &senal);
