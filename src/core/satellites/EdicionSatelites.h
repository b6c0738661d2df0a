// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The rules of the satellite editor: the uplink frequency fields and the checks of a new
// satellite, with the messages the operator sees.

#include "core/satellites/Catalogo.h"

#include <QString>
#include <QStringList>
#include <optional>

// The longest frequency of a band: "MMMM.KKK" for 23 cm, "MMM.KKK" for the others.
int LargoFrecuencia(const QString &banda);

// The test of a frequency field as it is left: empty text when it passes (an empty field
// passes), otherwise the message. First the shape, then the band, by whole megahertz only.
QString RevisarFrecuencia(const QString &frecuencia, const QString &banda);

struct RechazoSatelite
{
    enum class Campo { Nombre, Bajada, Frecuencia, Ninguno };
    QString mensaje;
    Campo campo; // where the focus goes back to
};

// The checks of "Agregar", in order: the name, the two bands, the frequency, and a name
// already listed (any case). The name is expected upper-cased already.
std::optional<RechazoSatelite> RevisarNuevoSatelite(const Satelite &s, const QStringList &nombres);

// "Aceptar" of the edit frame only refuses an empty name.
inline QString MensajeFaltaNombre()
{
    return QStringLiteral("Falta el nombre del Satélite!");
}

inline QString PreguntaEliminarSatelite(const QString &nombre)
{
    return QStringLiteral("Elimina Satélite ") + nombre + QLatin1Char('?');
}
