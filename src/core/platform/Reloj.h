#pragma once
// The clock: local time now. Tests set the hour they need.

#include <QDateTime>

class Reloj
{
public:
    virtual ~Reloj() = default;
    virtual QDateTime Ahora() const = 0;
};
