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

private:
    // Wakes the sleeping pump; precise, so that the wait ends within a millisecond.
    std::unique_ptr<QTimer> despertador_;
};
