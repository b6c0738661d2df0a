// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Modales.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QPointer>
#include <QTimer>

void CuandoAparezcaModal(std::function<void(QWidget *)> paso, int esperaMaxMs)
{
    const QPointer<QWidget> anterior = QApplication::activeModalWidget();
    auto *sondeo = new QTimer(qApp);
    const QDeadlineTimer limite(esperaMaxMs);
    QObject::connect(sondeo, &QTimer::timeout, sondeo, [=] {
        QWidget *modal = QApplication::activeModalWidget();
        if (modal && modal != anterior && modal->isVisible()) {
            sondeo->stop();
            sondeo->deleteLater();
            paso(modal);
        } else if (limite.hasExpired()) {
            sondeo->stop();
            sondeo->deleteLater();
        }
    });
    sondeo->start(10);
}
