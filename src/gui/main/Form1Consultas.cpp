// SPDX-License-Identifier: GPL-3.0-or-later
// Form1: the entries of the national log's menu and the hidden HamQTH button, answered by
// whoever provides them.
#include "gui/main/Form1.h"

#include "core/nationallog/EnviosLbN.h"

#include <QAction>
#include <QGroupBox>
#include <QPushButton>

void Form1::ConectarMenuLbN()
{
    connect(parg, &QAction::triggered, this, [this] {
        if (provinciasLbN)
            provinciasLbN();
    });
    const std::pair<QAction *, TipoCorrida> corridas[] = {{suych, TipoCorrida::SubirYChequear},
                                                          {ssub, TipoCorrida::SoloSubir},
                                                          {lbn2, TipoCorrida::LibroNacional}};
    for (const auto &[entrada, tipo] : corridas)
        connect(entrada, &QAction::triggered, this, [this, tipo] {
            if (corridaLbN)
                corridaLbN(tipo);
        });
    Command12 = new QPushButton(Frame1);
    Command12->setObjectName(QStringLiteral("Command12"));
    Command12->hide();
    connect(Command12, &QPushButton::clicked, this, [this] {
        if (buscarHamQTH)
            buscarHamQTH();
    });
}
