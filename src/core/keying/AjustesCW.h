// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The settings of the Morse key that outlive the contest window: varCW.cfg (the port of
// Combo3 and whether Check3 "DTR" is ticked) and varOsc.cfg ("Fondo Oscuro"), one value a
// line in the program folder. The speed is not kept: it starts at 20 each time.

#include "core/platform/Resultado.h"

#include <QString>
#include <QStringList>

struct AjustesCW
{
    QString puerto = QStringLiteral("COM1"); // Combo3's text
    bool dtr = true;                         // Check3 ticked; otherwise Check4 ("RTS")
    bool fondoOscuro = false;                // Check7 "Fondo Oscuro"
};

// The entry of Combo3 that means no port: the lamp alone keys.
QString PuertoNingunoCW();
// Combo3's list: "Ninguno", "COM1" to "COM20", then the serial ports this machine has.
QStringList ListaPuertosCW();

// The background of the window's plain controls with "Fondo Oscuro" ticked (mid grey, as
// the windows' BGR colours are written).
constexpr int kFondoOscuroCW = 8421504;

// varCW.cfg and varOsc.cfg as the program folder holds them. A missing file gives "COM1"
// and DTR (and no dark background); a file that makes no sense as a port (empty, binary,
// absurdly long) gives the same, quietly. The second line is DTR when it reads 1 and RTS
// for anything else, as the box was saved.
AjustesCW LeerAjustesCW(const QString &carpeta);
// Both files rewritten whole; the first failure is the answer, the other file still tried.
Resultado<> GuardarAjustesCW(const QString &carpeta, const AjustesCW &ajustes);
