// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The desktop for tests: records what would open.

#include "core/platform/Escritorio.h"

#include <QStringList>

class EscritorioFalso : public Escritorio
{
public:
    bool Abrir(const QString &direccionOArchivo) override
    {
        abiertos << direccionOArchivo;
        return exito;
    }
    bool IniciarPrograma(const QString &, const QStringList &, const QString & = {}) override
    {
        return exito;
    }

    QStringList abiertos;
    bool exito = true; // the answer of both calls
};
