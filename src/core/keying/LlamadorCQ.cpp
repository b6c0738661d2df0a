// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/keying/LlamadorCQ.h"

#include "core/keying/PTT.h"
#include "core/platform/Reproductor.h"

LlamadorCQ::LlamadorCQ(Reproductor &reproductor, InterruptorPTT &ptt, QObject *parent)
    : QObject(parent)
    , reproductor_(reproductor)
    , ptt_(ptt)
{
    connect(&reproductor_, &Reproductor::Terminado, this, &LlamadorCQ::AlTerminar);
    connect(&reproductor_, &Reproductor::Estado, this, &LlamadorCQ::AlEstado);
}

bool LlamadorCQ::Llamar(const QString &archivoAudio, int pinPTT)
{
    llamando_ = false;
    reproductor_.Cerrar();
    // Rewound before it is opened: the player starts a fresh file at its top anyway.
    reproductor_.Rebobinar();
    reproductor_.AbrirArchivo(archivoAudio);
    if (reproductor_.Longitud() == 0)
        return false;
    reproductor_.Reproducir();
    llamando_ = true;
    ptt_.PTTOn(pinPTT);
    return true;
}

void LlamadorCQ::Detener(int pinPTT)
{
    llamando_ = false;
    ptt_.PTTOff(pinPTT);
    reproductor_.Detener();
    reproductor_.Cerrar();
}

void LlamadorCQ::SoltarAlTerminar(std::function<int()> pin)
{
    pinAlTerminar_ = std::move(pin);
}

void LlamadorCQ::AlTerminar()
{
    // The player is shared: the end of a file another window played is not this call's.
    if (!llamando_)
        return;
    llamando_ = false;
    if (pinAlTerminar_)
        ptt_.PTTOff(pinAlTerminar_());
}

void LlamadorCQ::AlEstado(qint64 posicion, qint64 longitud)
{
    if (llamando_ && longitud > 0 && reproductor_.ModoActual() == Reproductor::Modo::Reproduciendo)
        Q_EMIT Avance(posicion, longitud);
}
