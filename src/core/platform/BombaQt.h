// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The event pump of a long loop: pending clicks, keys, timers and replies run here.

#include "core/platform/BombaEventos.h"

#include <memory>

class QTimer;

class BombaQt : public BombaEventos
{
public:
    BombaQt();
    ~BombaQt() override;
    void Bombear() override;
    void BombearEsperando(int msMaximo) override;
    // The lowest real-time priority (round robin), where the user may have it: above the
    // ordinary programs of the machine, so a busy compiler cannot hold a Morse element
    // back, and below the system's own real-time work. Without the right, nothing.
    void PedirPuntualidad(bool activar) override;
    // False: never ask (to measure the ordinary scheduling).
    bool pedirTiempoReal = true;

private:
    // Wakes the sleeping pump; precise, so that the wait ends within a millisecond.
    std::unique_ptr<QTimer> despertador_;
    bool tiempoReal_ = false;
    int politicaPrevia_ = 0;
    int prioridadPrevia_ = 0;
};
