// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The clock: local time now, and a monotonic count for timing (the Morse elements are
// scheduled on it). Tests set the hour they need and move both by hand.

#include <QDateTime>
#include <chrono>

class Reloj
{
public:
    virtual ~Reloj() = default;
    virtual QDateTime Ahora() const = 0;
    // Nanoseconds from an arbitrary origin; never goes back, whatever the date does.
    virtual qint64 MonotonicoNs() const
    {
        return std::chrono::duration_cast<std::chrono::nanoseconds>(
                   std::chrono::steady_clock::now().time_since_epoch())
            .count();
    }
};
