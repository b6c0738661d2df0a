// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The "Tx" lamp of a window that calls CQ: red while the PTT is on, dark red while off,
// white text. Every such lamp follows the context's InterruptorPTT.

#include "core/keying/PTT.h"

#include <QColor>
#include <QLabel>

// A colour as the windows' colour numbers give it: blue, green, red from the high byte down.
inline QColor ColorBGR(int bgr)
{
    return QColor(bgr & 0xFF, (bgr >> 8) & 0xFF, (bgr >> 16) & 0xFF);
}

inline void PintarLamparaTx(QLabel *lampara, bool encendida)
{
    const ColoresTx c = ColoresLamparaTx(encendida);
    lampara->setAutoFillBackground(true);
    lampara->setStyleSheet(QStringLiteral("background-color: %1; color: %2;")
                               .arg(ColorBGR(c.fondo).name(), ColorBGR(c.texto).name()));
}
