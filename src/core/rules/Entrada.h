// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The shape of the entry fields of the logging windows: which typed characters each field
// takes, the grid locator kept in shape as it is typed, and the tests on leaving the
// callsign and grid fields.

#include <QChar>
#include <QString>
#include <optional>

// Named by what they let through, besides digits:
//   Senal          letters (upper-cased) and '/': callsigns
//   SenalSinBarra  letters (upper-cased): the grid
//   Fecha          '/': dates
//   Hora           ':': times
//   Digitos        nothing else: kilohertz, a page number
//   DigitosConSigno  '+' and '-': the hours from UTC
enum class FiltroTecla { Senal, SenalSinBarra, Fecha, Hora, Digitos, DigitosConSigno };

// The character to put in the field, or nullopt to drop it. Every filter lets Backspace
// (code 8) and '?' through; the windows that refuse '?' say so to FiltrarTeclaEnCampo.
std::optional<QChar> FiltrarTecla(FiltroTecla filtro, QChar c);

// Applied once per change of the grid field: a last character of the wrong kind is cut
// (lengths 1, 2, 5, 6 end in a letter A-Z; 3, 4 in a digit). The cursor goes to the end.
QString FormaGrilla(const QString &texto);

// The grid field can be left empty, with a 4-character or a 6-character locator.
bool GrillaAceptable(const QString &texto);
inline QString MensajeGrilla()
{
    return QStringLiteral("Grilla incorrecta!");
}

// The correspondent field can be left when it holds a letter A-Z and a digit 0-9 (an empty
// field is let go by its handler before this test).
bool PareceSenal(const QString &texto);
QString MensajeNoPareceSenal(const QString &texto);
