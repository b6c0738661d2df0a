// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The audio player of the voice CQ and of the sound test of the configuration.

#include <QObject>
#include <QString>

class Reproductor : public QObject
{
    Q_OBJECT
public:
    enum class Modo { Cerrado, Detenido, Reproduciendo, Pausado };
    using QObject::QObject;
    ~Reproductor() override = default;

    virtual bool AbrirArchivo(const QString &archivo) = 0;
    virtual void Rebobinar() = 0;
    virtual void Reproducir() = 0;
    virtual void Detener() = 0;
    virtual void Cerrar() = 0;
    virtual qint64 Longitud() const = 0; // milliseconds; 0 when nothing playable is open
    virtual qint64 Posicion() const = 0; // milliseconds
    virtual Modo ModoActual() const = 0;

Q_SIGNALS:
    void Terminado();                              // the file played to its end
    void Estado(qint64 posicion, qint64 longitud); // periodic, while playing
};
