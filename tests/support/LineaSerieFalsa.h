// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A serial line for tests. Records every open and every change of DTR and RTS while open,
// as "DTR1", "RTS0", …; the ports named in puertosQueFallan do not open.

#include "core/platform/LineaSerie.h"

class LineaSerieFalsa : public LineaSerie
{
public:
    bool Abrir(const QString &puerto) override;
    void Cerrar() override;
    bool Abierta() const override { return abierta_; }
    QString Puerto() const override { return puerto_; }
    void PonerDTR(bool encendido) override { Poner(dtr, "DTR", encendido); }
    void PonerRTS(bool encendido) override { Poner(rts, "RTS", encendido); }

    QStringList aperturas; // every port asked for, opened or not
    QStringList historial; // "DTR1", "RTS0", … in order, only while open
    bool dtr = false;
    bool rts = false;
    QStringList puertosQueFallan; // compared without case: "com3" fails like "COM3"

private:
    void Poner(bool &linea, const char *nombre, bool encendido);
    bool abierta_ = false;
    QString puerto_;
};
