// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Satellite mode of the main window: the captions that show a satellite's data, and the
// uplink frequency read back from the "Subida" caption to set the entry's frequency.

#include "core/satellites/Catalogo.h"

#include <QString>
#include <optional>

struct FrecuenciaSubida
{
    QString mhz; // empty: the MHz list stays as it is
    QString khz;
};

// The uplink frequency in a caption "Subida: 70cm 435.100": the band's leading number,
// then up to seven characters after the first blank, whose first three are the MHz and
// last three the kHz. Without them 70 cm gives 435.550 and 2 m 145.550; any other band
// leaves them empty. A 23 cm frequency does not fit and comes out as "126" and ".10", for
// the operator to mend: there is no guessing what was meant. A caption with no blank (as
// the load of the list writes them) gives nothing at all.
std::optional<FrecuenciaSubida> ValorDeSubida(const QString &rotuloSubida);

struct RotulosSatelite
{
    QString subida, bajada, modo, subtono;
};
// As the load of the list leaves them: "Subida:" and the field, with no blank between.
RotulosSatelite RotulosDeCarga(const Satelite &s);
// As a choice sets them: "Subida: 70cm 435.100", "Bajada: 2m", "Modo: SSB", "SubTono: 67.0".
RotulosSatelite RotulosElegido(const Satelite &s);
