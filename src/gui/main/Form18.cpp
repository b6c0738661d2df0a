// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/main/Form18.h"

#include "gui/common/Controles.h"

#include <QLabel>
#include <QProgressBar>

namespace {
const QString Aviso = QStringLiteral("Aguarde, cerrando Carancho Radiolog2 ...");
}

Form18::Form18(QWidget *parent)
    : QWidget(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint)
{
    setObjectName(QStringLiteral("Form18"));
    setWindowTitle(QStringLiteral("Carancho Radiolog"));
    setFixedSize(Px(5400), Px(1500));
    Label1 = Poner<QLabel>(this, "Label1", 240, 240, 4920, 360);
    Label1->setText(Aviso);
    ProgressBar1 = Poner<QProgressBar>(this, "ProgressBar1", 240, 720, 4920, 360);
    ProgressBar1->setRange(0, 25);
    ProgressBar1->setValue(0);
    ProgressBar1->setAccessibleName(Aviso);
}

void Form18::Mostrar()
{
    Label1->setText(Aviso);
    show();
    raise();
}

void Form18::Avanzar(int ticks)
{
    Label1->setText(Aviso + QString::number(ticks) + QStringLiteral("/25"));
    ProgressBar1->setValue(qMin(ticks, 25));
}
