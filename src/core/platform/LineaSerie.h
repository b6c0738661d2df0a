// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// One serial line whose DTR and RTS key the transmitter (PTT) or the Morse key.
// "COMn" names map to /dev/ttyS<n-1>; the real ports of the machine are offered too.

#include <QString>
#include <QStringList>

class LineaSerie
{
public:
    virtual ~LineaSerie() = default;
    // Opens the port with both lines off. False when it cannot be opened; the line
    // stays closed and every later call does nothing.
    virtual bool Abrir(const QString &puerto) = 0;
    virtual void Cerrar() = 0;
    virtual bool Abierta() const = 0;
    virtual QString Puerto() const = 0;
    virtual void PonerDTR(bool encendido) = 0;
    virtual void PonerRTS(bool encendido) = 0;
    // Why the last Abrir failed, in Spanish and in a few words ("el puerto no existe");
    // empty when the line cannot tell.
    virtual QString MotivoDelFallo() const { return {}; }
};

// The device behind a port name: "COM3" is /dev/ttyS2, anything else is itself.
QString DispositivoDePuerto(const QString &puerto);
