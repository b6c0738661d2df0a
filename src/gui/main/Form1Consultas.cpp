// Form1: the entries of the national log's menu, answered by whoever provides them.
#include "gui/main/Form1.h"

#include "core/nationallog/EnviosLbN.h"

#include <QAction>

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
}
