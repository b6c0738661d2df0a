// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A serial port used only for its DTR and RTS lines (the PTT and the Morse key).

#include "core/platform/LineaSerie.h"

#include <QSerialPort>

class LineaSerieQt : public LineaSerie
{
public:
    LineaSerieQt();
    ~LineaSerieQt() override;

    bool Abrir(const QString &puerto) override;
    void Cerrar() override;
    bool Abierta() const override;
    // The port last asked for, whether it opened or not.
    QString Puerto() const override;
    void PonerDTR(bool encendido) override;
    void PonerRTS(bool encendido) override;
    QString MotivoDelFallo() const override;

private:
    QSerialPort puerto_;
    QString nombre_;
    QString motivo_;
};

// The serial ports this machine has (/dev/ttyUSB0, /dev/ttyS0, …), for the port lists.
QStringList PuertosDelSistema();
