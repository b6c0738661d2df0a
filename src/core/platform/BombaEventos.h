#pragma once
// The event pump, run inside long loops so that timers and clicks keep working.

class BombaEventos
{
public:
    virtual ~BombaEventos() = default;
    virtual void Bombear() = 0;
};
