// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A clock that stands still until the test moves it.

#include "core/platform/Reloj.h"

class RelojFalso : public Reloj
{
public:
    QDateTime Ahora() const override { return ahora; }
    qint64 MonotonicoNs() const override { return monotonicoNs; }
    // Moves the hour and the monotonic count together.
    void Avanzar(qint64 milisegundos)
    {
        ahora = ahora.addMSecs(milisegundos);
        monotonicoNs += milisegundos * 1'000'000;
    }

    // A fixed local moment, far from midnight and from any change of date.
    QDateTime ahora{QDate(2024, 5, 15), QTime(14, 30, 0)};
    qint64 monotonicoNs = 0;
};
