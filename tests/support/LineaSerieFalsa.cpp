// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/LineaSerieFalsa.h"

bool LineaSerieFalsa::Abrir(const QString &puerto)
{
    Cerrar();
    aperturas << puerto;
    puerto_ = puerto;
    if (puertosQueFallan.contains(puerto, Qt::CaseInsensitive))
        return false;
    // Like the real line: it opens with both lines off.
    abierta_ = true;
    dtr = false;
    rts = false;
    return true;
}

void LineaSerieFalsa::Cerrar()
{
    if (!abierta_)
        return;
    abierta_ = false;
    dtr = false;
    rts = false;
}

void LineaSerieFalsa::Poner(bool &linea, const char *nombre, bool encendido)
{
    if (!abierta_)
        return;
    linea = encendido;
    historial << QLatin1String(nombre) + (encendido ? u'1' : u'0');
}
