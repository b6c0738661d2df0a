// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Pages and documents open with the program the operator chose for them; other programs
// start detached, so the logbook goes on at once.

#include "core/platform/Escritorio.h"

#include <QUrl>

class EscritorioQt : public Escritorio
{
public:
    bool Abrir(const QString &direccionOArchivo) override;
    bool IniciarPrograma(const QString &programa, const QStringList &argumentos,
                         const QString &carpetaTrabajo = {}) override;
};

// What Abrir hands to the desktop: an address with its scheme as it stands, "www.…" as
// http, anything else as a local file (a relative path from the working folder).
QUrl DireccionParaAbrir(const QString &direccionOArchivo);
