// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/platform/BombaQt.h"

#include <QCoreApplication>
#include <QTimer>
#include <pthread.h>
#include <sched.h>

BombaQt::BombaQt() = default;
BombaQt::~BombaQt() = default;

void BombaQt::Bombear()
{
    QCoreApplication::processEvents();
}

void BombaQt::BombearEsperando(int msMaximo)
{
    if (msMaximo <= 0) {
        Bombear();
        return;
    }
    // Made on first use: the pump may be built before the application object.
    if (!despertador_) {
        despertador_ = std::make_unique<QTimer>();
        despertador_->setSingleShot(true);
        despertador_->setTimerType(Qt::PreciseTimer);
    }
    // A wait nested inside another (a handler run by this very pump) restarts the one
    // timer; the outer wait then finds its time passed and ends at once.
    despertador_->start(msMaximo);
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

void BombaQt::PedirPuntualidad(bool activar)
{
    const pthread_t hilo = pthread_self();
    if (activar && !tiempoReal_ && pedirTiempoReal) {
        sched_param previa{};
        if (pthread_getschedparam(hilo, &politicaPrevia_, &previa) != 0)
            return;
        sched_param rapida{};
        rapida.sched_priority = sched_get_priority_min(SCHED_RR);
        if (pthread_setschedparam(hilo, SCHED_RR, &rapida) == 0) {
            tiempoReal_ = true;
            prioridadPrevia_ = previa.sched_priority;
        }
    } else if (!activar && tiempoReal_) {
        sched_param previa{};
        previa.sched_priority = prioridadPrevia_;
        pthread_setschedparam(hilo, politicaPrevia_, &previa);
        tiempoReal_ = false;
    }
}
