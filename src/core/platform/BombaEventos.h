// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The event pump, run inside long loops so that timers and clicks keep working.

#include <QtGlobal>

class BombaEventos
{
public:
    virtual ~BombaEventos() = default;
    virtual void Bombear() = 0;
    // Pumps, and with nothing to do sleeps until an event comes or msMaximo have passed:
    // a timed wait that leaves the window live without spinning. A pump that cannot
    // sleep (a test's) just pumps once.
    virtual void BombearEsperando(int msMaximo)
    {
        Q_UNUSED(msMaximo);
        Bombear();
    }
    // While on, the pump's thread asks the system to wake it on time (timed keying);
    // where the system does not allow it, nothing changes.
    virtual void PedirPuntualidad(bool activar) { Q_UNUSED(activar); }
};
