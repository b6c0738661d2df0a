// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/main/Form10.h"

#include "core/context/Contexto.h"
#include "gui/common/Controles.h"

#include <QLabel>
#include <QPushButton>

Form10::Form10(Contexto &ctx, QWidget *parent)
    : QDialog(parent)
{
    setObjectName(QStringLiteral("Form10"));
    setWindowTitle(QStringLiteral("Acerca de ..."));
    setModal(true);
    setFixedSize(Px(7200), Px(5200));

    auto *titulo = new QLabel(QStringLiteral("Carancho Radiolog"), this);
    QFont grande = titulo->font();
    grande.setBold(true);
    grande.setPointSizeF(grande.pointSizeF() * 1.8);
    titulo->setFont(grande);
    titulo->setGeometry(Px(240), Px(200), Px(6700), Px(500));

    Label3 = Poner<QLabel>(this, "Label3", 240, 760, 6700, 300);
    Label3->setText(QStringLiteral("Versión ") + ctx.VersionPrograma);

    const QStringList grupos{
        QStringLiteral("Versión altamente simplificada del Carancho."),
        QStringLiteral("Sin macros, sin puertos,") +
            QStringLiteral(" sin CAT para hacerlo ágil para aquellos que anotan los QSOs en "
                           "papel y posteriormente desean ") +
            QStringLiteral(" tener un libro de guardia simple y poder ingresar los QSOs en "
                           "otro momento agregando fecha y ") +
            QStringLiteral("hora en forma manual y, entonces, poder generar archivos ADIF para "
                           "subir a LbN, eQSL, LoTW, ") +
            QStringLiteral("Club Log o donde se desee."),
        QStringLiteral("También permite cargar logs de concursos y exportarlos en formato ") +
            QStringLiteral("cabrillo para enviar al organizador."),
        QStringLiteral("Hecho en Argentina por radioaficionados, para radioaficionados.")};
    Label2 = Poner<QLabel>(this, "Label2", 240, 1160, 6700, 3200);
    Label2->setText(grupos.join(QStringLiteral("\n\n")));
    Label2->setWordWrap(true);
    Label2->setAlignment(Qt::AlignTop | Qt::AlignLeft);

    auto *aceptar = Poner<QPushButton>(this, "Command1", 5640, 4560, 1300, 420);
    aceptar->setText(QStringLiteral("Aceptar"));
    aceptar->setDefault(true);
    connect(aceptar, &QPushButton::clicked, this, &QDialog::accept);
}
