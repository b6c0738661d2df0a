// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The voice player over QMediaPlayer. The player is made on the first open, so a run
// that never plays a file never wakes the audio system, and a machine with no sound
// device just finds its files unplayable.

#include "core/platform/Reproductor.h"

#include <QMediaPlayer>

class QAudioOutput;
class QTimer;

class ReproductorQt : public Reproductor
{
    Q_OBJECT
public:
    explicit ReproductorQt(QObject *parent = nullptr);
    ~ReproductorQt() override;

    // Waits, pumping events, up to tiempoCarga() for the file to load so that its
    // length is known. False, closed and length 0 for a missing or unplayable file.
    bool AbrirArchivo(const QString &archivo) override;
    void Rebobinar() override;
    void Reproducir() override;
    void Detener() override;
    void Cerrar() override;
    qint64 Longitud() const override;
    qint64 Posicion() const override;
    Modo ModoActual() const override;

    static constexpr int tiempoCarga = 3000;    // ms
    static constexpr int intervaloEstado = 250; // ms

private:
    void CrearReproductor();
    void CambioDeEstadoMedio(QMediaPlayer::MediaStatus estado);

    QMediaPlayer *reproductor_ = nullptr;
    QAudioOutput *salida_ = nullptr;
    QTimer *relojEstado_ = nullptr;
    bool abierto_ = false;
};
