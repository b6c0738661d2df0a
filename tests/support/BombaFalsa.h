#pragma once
// The event pump for tests: counts the calls, still pumps unless told not to, and can
// run the test's own step at each call (to stop a loop at its tenth row, say).

#include "core/platform/BombaEventos.h"

#include <QCoreApplication>
#include <functional>

class BombaFalsa : public BombaEventos
{
public:
    void Bombear() override
    {
        ++llamadas;
        if (alBombear)
            alBombear();
        if (procesarEventos)
            QCoreApplication::processEvents();
    }

    int llamadas = 0;
    bool procesarEventos = true;
    std::function<void()> alBombear;
};
