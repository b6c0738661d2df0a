// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/platform/RelojSistema.h"

QDateTime RelojSistema::Ahora() const
{
    return QDateTime::currentDateTime();
}
