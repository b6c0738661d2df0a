#include "core/platform/BombaQt.h"

#include <QCoreApplication>
#include <QTimer>

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
