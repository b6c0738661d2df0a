// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The event pump for tests: still pumps unless told not to, and can run the test's own
// step at each call (to stop a loop at its tenth row, say).

#include "core/platform/BombaEventos.h"

#include <QCoreApplication>
#include <functional>

class BombaFalsa : public BombaEventos
{
public:
    void Bombear() override
    {
        if (alBombear)
            alBombear();
        if (procesarEventos)
            QCoreApplication::processEvents();
    }

    bool procesarEventos = true;
    std::function<void()> alBombear;
};
