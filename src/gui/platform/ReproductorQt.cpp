// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/platform/ReproductorQt.h"

#include <QAudioOutput>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QFileInfo>
#include <QTimer>
#include <QUrl>

ReproductorQt::ReproductorQt(QObject *parent)
    : Reproductor(parent)
    , relojEstado_(new QTimer(this))
{
    relojEstado_->setInterval(intervaloEstado);
    connect(relojEstado_, &QTimer::timeout, this,
            [this] { Q_EMIT Estado(Posicion(), Longitud()); });
}

ReproductorQt::~ReproductorQt()
{
    if (reproductor_) {
        // No Terminado or Estado from a player on its way out.
        reproductor_->disconnect(this);
        reproductor_->stop();
    }
}

void ReproductorQt::CrearReproductor()
{
    if (reproductor_)
        return;
    reproductor_ = new QMediaPlayer(this);
    salida_ = new QAudioOutput(this);
    reproductor_->setAudioOutput(salida_);
    connect(reproductor_, &QMediaPlayer::mediaStatusChanged, this,
            &ReproductorQt::CambioDeEstadoMedio);
    connect(reproductor_, &QMediaPlayer::playbackStateChanged, this,
            [this](QMediaPlayer::PlaybackState estado) {
                if (estado == QMediaPlayer::PlayingState)
                    relojEstado_->start();
                else
                    relojEstado_->stop();
            });
}

void ReproductorQt::CambioDeEstadoMedio(QMediaPlayer::MediaStatus estado)
{
    if (estado == QMediaPlayer::EndOfMedia && abierto_) {
        relojEstado_->stop();
        Q_EMIT Estado(Longitud(), Longitud());
        Q_EMIT Terminado();
    }
}

bool ReproductorQt::AbrirArchivo(const QString &archivo)
{
    Cerrar();
    const QFileInfo info(archivo);
    if (archivo.isEmpty() || !info.isFile() || !info.isReadable())
        return false;

    CrearReproductor();
    reproductor_->setSource(QUrl::fromLocalFile(info.absoluteFilePath()));

    // The length is asked right after the open, so wait for the load (bounded).
    auto cargado = [this] {
        const auto estado = reproductor_->mediaStatus();
        return (estado == QMediaPlayer::LoadedMedia || estado == QMediaPlayer::BufferedMedia) &&
               reproductor_->duration() > 0;
    };
    auto fallido = [this] {
        return reproductor_->mediaStatus() == QMediaPlayer::InvalidMedia ||
               reproductor_->error() != QMediaPlayer::NoError;
    };
    const QDeadlineTimer limite(tiempoCarga);
    while (!cargado() && !fallido() && !limite.hasExpired()) {
        QEventLoop espera;
        QTimer reloj;
        reloj.setSingleShot(true);
        connect(&reloj, &QTimer::timeout, &espera, &QEventLoop::quit);
        connect(reproductor_, &QMediaPlayer::mediaStatusChanged, &espera, &QEventLoop::quit);
        connect(reproductor_, &QMediaPlayer::durationChanged, &espera, &QEventLoop::quit);
        connect(reproductor_, &QMediaPlayer::errorOccurred, &espera, &QEventLoop::quit);
        reloj.start(qMax<qint64>(1, qMin<qint64>(50, limite.remainingTime())));
        espera.exec();
    }

    // A file that loaded but never told its length still plays.
    const auto estado = reproductor_->mediaStatus();
    const bool listo = !fallido() && (estado == QMediaPlayer::LoadedMedia ||
                                      estado == QMediaPlayer::BufferedMedia);
    if (!listo) {
        // The media player keeps its error after a bad file and would refuse every later
        // one: drop it, so that the next open starts with a fresh player.
        reproductor_->disconnect(this);
        reproductor_->setSource(QUrl());
        reproductor_->deleteLater();
        salida_->deleteLater();
        reproductor_ = nullptr;
        salida_ = nullptr;
        return false;
    }
    abierto_ = true;
    return true;
}

void ReproductorQt::Rebobinar()
{
    if (abierto_)
        reproductor_->setPosition(0);
}

void ReproductorQt::Reproducir()
{
    if (abierto_)
        reproductor_->play();
}

void ReproductorQt::Detener()
{
    if (abierto_)
        reproductor_->stop();
}

void ReproductorQt::Cerrar()
{
    relojEstado_->stop();
    if (!reproductor_)
        return;
    abierto_ = false;
    reproductor_->stop();
    reproductor_->setSource(QUrl());
}

qint64 ReproductorQt::Longitud() const
{
    return abierto_ ? reproductor_->duration() : 0;
}

qint64 ReproductorQt::Posicion() const
{
    return abierto_ ? reproductor_->position() : 0;
}

Reproductor::Modo ReproductorQt::ModoActual() const
{
    if (!abierto_)
        return Modo::Cerrado;
    switch (reproductor_->playbackState()) {
    case QMediaPlayer::PlayingState:
        return Modo::Reproduciendo;
    case QMediaPlayer::PausedState:
        return Modo::Pausado;
    case QMediaPlayer::StoppedState:
        break;
    }
    return Modo::Detenido;
}
