#include "gui/main/Form18.h"

#include "gui/common/Twips.h"

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
    Label1 = new QLabel(Aviso, this);
    Label1->setObjectName(QStringLiteral("Label1"));
    Label1->setGeometry(Px(240), Px(240), Px(4920), Px(360));
    ProgressBar1 = new QProgressBar(this);
    ProgressBar1->setObjectName(QStringLiteral("ProgressBar1"));
    ProgressBar1->setGeometry(Px(240), Px(720), Px(4920), Px(360));
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
