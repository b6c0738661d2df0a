// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/keying/MacrosCW.h"

#include "core/rules/Numeros.h"

#include <QtGlobal>
#include <array>

QStringList TitulosMacrosCW()
{
    return {QStringLiteral("F1-CQ"),      QStringLiteral("F2-Serie"),  QStringLiteral("F3-TU"),
            QStringLiteral("F4-Mi Call"), QStringLiteral("F5-SuCall"), QStringLiteral("F6-AGN?"),
            QStringLiteral("F7- NR?")};
}

QString SerieCW(const CamposMacroCW &campos)
{
    QString serie = campos.rse;
    if (campos.incremental)
        serie.prepend(NumeroInicial(campos.rse) < 10 ? QStringLiteral("00") : QStringLiteral("0"));
    if (campos.cortados)
        serie.replace(u'0', u'T').replace(u'9', u'N');
    return serie;
}

QString TextoMacroCW(int indice, const CamposMacroCW &c)
{
    switch (indice) {
    case 0:
        return QStringLiteral("CQ TEST ") + c.propia + u' ' + c.propia;
    case 1: {
        const QString serie = SerieCW(c);
        return c.corresponsal + QStringLiteral(" 5NN ") + serie + QStringLiteral(" 5NN ") + serie;
    }
    case 2:
        return QStringLiteral("TU ");
    case 3:
        return c.propia;
    case 4:
        return c.corresponsal;
    case 5:
        return QStringLiteral("AGN? ");
    case 6:
        return QStringLiteral("NR? ");
    default:
        return {};
    }
}

int VelCWDePpm(int ppm)
{
    static constexpr std::array<int, kPpmMaximaCW - kPpmMinimaCW + 1> tabla{
        70,  60,  52,  44,  36,  30,  25,  21,  17,  13,  10, // 10..20
        6,   3,   1,   -1,  -2,  -4,  -5,  -6,  -8,  -10,     // 21..30
        -11, -12, -14, -15, -16, -17, -18, -19, -19, -20};    // 31..40
    return tabla[qBound(kPpmMinimaCW, ppm, kPpmMaximaCW) - kPpmMinimaCW];
}

QString RotuloVelocidadCW(int ppm)
{
    return QStringLiteral("Vel %1 ppm").arg(ppm);
}
