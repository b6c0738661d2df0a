// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/satellites/ModoSatelite.h"

#include "core/rules/Numeros.h"

std::optional<FrecuenciaSubida> ValorDeSubida(const QString &rotuloSubida)
{
    const QString texto = QString(rotuloSubida).remove(QStringLiteral("Subida: "));
    const int banda = int(NumeroInicial(texto));
    const qsizetype blanco = texto.indexOf(QLatin1Char(' '));
    if (blanco < 0)
        return std::nullopt;
    const QString frecuencia = texto.mid(blanco + 1, 7);
    FrecuenciaSubida f{frecuencia.left(3).trimmed(), frecuencia.right(3).trimmed()};
    if (f.mhz.isEmpty() || f.khz.isEmpty()) {
        if (banda == 70)
            f = {QStringLiteral("435"), QStringLiteral("550")};
        else if (banda == 2)
            f = {QStringLiteral("145"), QStringLiteral("550")};
    }
    return f;
}

RotulosSatelite RotulosDeCarga(const Satelite &s)
{
    return {QStringLiteral("Subida:") + s.subida, QStringLiteral("Bajada:") + s.bajada,
            QStringLiteral("Modo:") + s.modo, QStringLiteral("SubTono:") + s.subtono};
}

RotulosSatelite RotulosElegido(const Satelite &s)
{
    return {QStringLiteral("Subida: ") + s.subida + QLatin1Char(' ') + s.frecuencia,
            QStringLiteral("Bajada: ") + s.bajada, QStringLiteral("Modo: ") + s.modo,
            QStringLiteral("SubTono: ") + s.subtono};
}
