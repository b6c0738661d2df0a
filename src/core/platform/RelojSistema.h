// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The machine's clock, local time.

#include "core/platform/Reloj.h"

class RelojSistema : public Reloj
{
public:
    QDateTime Ahora() const override;
};
