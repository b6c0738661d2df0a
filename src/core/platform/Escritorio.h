// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// What the desktop does for us: open a page or a document with the program the
// operator chose for it, and start another program without waiting for it.

#include <QString>
#include <QStringList>

class Escritorio
{
public:
    virtual ~Escritorio() = default;
    // An address (http://…) or a file path. False when the desktop could not open it.
    virtual bool Abrir(const QString &direccionOArchivo) = 0;
    // Starts a program and goes on at once. False when it could not be started.
    virtual bool IniciarPrograma(const QString &programa, const QStringList &argumentos,
                                 const QString &carpetaTrabajo = {}) = 0;
};
