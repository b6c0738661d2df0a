// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The audio player for tests: records its commands ("Abrir <archivo>", "Rebobinar",
// "Reproducir", "Detener", "Cerrar"), answers the scripted length, and ends the file
// when the test says so.

#include "core/platform/Reproductor.h"

#include <QStringList>

class ReproductorFalso : public Reproductor
{
    Q_OBJECT
public:
    using Reproductor::Reproductor;

    bool AbrirArchivo(const QString &archivo) override;
    void Rebobinar() override;
    void Reproducir() override;
    void Detener() override;
    void Cerrar() override;
    qint64 Longitud() const override { return modo == Modo::Cerrado ? 0 : longitud; }
    qint64 Posicion() const override { return posicion; }
    Modo ModoActual() const override { return modo; }

    // The file played to its end: stopped at its length, then Terminado.
    void Terminar();
    // A tick of the periodic state while playing.
    void EmitirEstado(qint64 nuevaPosicion);

    QStringList ordenes;
    qint64 longitud = 5000;        // ms, the length of any file that opens
    QStringList archivosQueFallan; // these do not open (as a missing file)
    qint64 posicion = 0;
    Modo modo = Modo::Cerrado;
};
