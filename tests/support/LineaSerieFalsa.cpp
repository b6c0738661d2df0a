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

void LineaSerieFalsa::PonerDTR(bool encendido)
{
    if (!abierta_)
        return;
    dtr = encendido;
    historial << (encendido ? QStringLiteral("DTR1") : QStringLiteral("DTR0"));
}

void LineaSerieFalsa::PonerRTS(bool encendido)
{
    if (!abierta_)
        return;
    rts = encendido;
    historial << (encendido ? QStringLiteral("RTS1") : QStringLiteral("RTS0"));
}
