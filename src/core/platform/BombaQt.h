#pragma once
// The event pump of a long loop: pending clicks, keys, timers and replies run here.

#include "core/platform/BombaEventos.h"

class BombaQt : public BombaEventos
{
public:
    void Bombear() override;
};
