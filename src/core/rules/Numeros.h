// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Reading a number from the start of a text, the way every field of the program is read:
// whatever follows the number is ignored, and a text that does not start with one reads 0.

#include <QString>

// Skips leading blanks, then an optional sign, digits, and an optional '.' with more
// digits. Always '.' as the decimal point, whatever the locale: "12abc" is 12, "  7.5x" is
// 7.5, "-3" is -3, ".5" is 0.5, "abc", "-" and "" are 0.
double NumeroInicial(const QString &texto);

// The number written with the ASCII digits s[desde, desde + n), or -1 when one of them is no
// digit: the fixed fields of a date or time, read where every row passes.
int Digitos(QStringView s, qsizetype desde, qsizetype n);
