// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/config/ClaveConfig.h"

#include "core/platform/ArchivoTexto.h"

QString ClaveConfig(const QString &texto, const QString &clave, int modo)
{
    if (modo != kModoCifrar && modo != kModoDescifrar)
        return {};
    QByteArray codigos = A1252(texto);
    const QByteArray codigosClave = A1252(clave);
    if (codigosClave.isEmpty())
        return De1252(codigos);
    for (qsizetype i = 0; i < codigos.size(); ++i) {
        const int t = static_cast<unsigned char>(codigos[i]);
        const int k = static_cast<unsigned char>(codigosClave[i % codigosClave.size()]);
        int nuevo;
        if (modo == kModoCifrar) {
            nuevo = t + k;
            if (nuevo > 255)
                nuevo -= 255;
        } else {
            nuevo = t - k;
            if (nuevo < 0)
                nuevo += 255;
            // Counting by 255, 0 and 255 are the same code. No typed text holds a 0, so a
            // 0 here can only come from a 255 (which scrambles to the key character): give
            // the 255 back, and every text of codes 1 to 255 survives the round trip.
            if (nuevo == 0)
                nuevo = 255;
        }
        codigos[i] = static_cast<char>(nuevo);
    }
    return De1252(codigos);
}
