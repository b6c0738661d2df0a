// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/nationallog/EscapeLbN.h"

QString EscaparLbN(const QString &texto)
{
    // Each character maps to its own escape, so one pass gives what the replacements
    // applied one after the other in this order would give.
    static const QString caracteres = QStringLiteral("%!*'();:@&=+$,/?#[]");
    QString salida;
    salida.reserve(texto.size() * 3);
    for (const QChar c : texto) {
        if (caracteres.contains(c)) {
            salida += QLatin1Char('%');
            salida += QString::number(c.unicode(), 16).toUpper().rightJustified(2, u'0');
        } else {
            salida += c;
        }
    }
    return salida;
}
