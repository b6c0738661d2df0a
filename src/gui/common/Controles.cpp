// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/common/Controles.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

QLabel *Rotulo(QWidget *padre, const QString &texto, QWidget *campo)
{
    auto *rotulo = new QLabel(texto, padre);
    rotulo->setObjectName(QStringLiteral("rotulo_") + campo->objectName());
    rotulo->setBuddy(campo);
    return rotulo;
}

QLabel *Rotulo(QWidget *padre, const QString &texto, int x, int y, int ancho, QWidget *campo)
{
    auto *rotulo = new QLabel(texto, padre);
    rotulo->setGeometry(Px(x), Px(y), Px(ancho), Px(240));
    if (campo) {
        rotulo->setBuddy(campo);
        campo->setAccessibleName(texto.trimmed());
    }
    return rotulo;
}

QLineEdit *Campo(QWidget *padre, const char *nombre, int x, int y, int ancho, int largo)
{
    auto *campo = Poner<QLineEdit>(padre, nombre, x, y, ancho, 330);
    campo->setMaxLength(largo);
    return campo;
}

QPushButton *Boton(QWidget *padre, const char *nombre, const QString &texto)
{
    auto *boton = Crear<QPushButton>(padre, nombre);
    boton->setText(texto);
    boton->setAutoDefault(false);
    return boton;
}

QPushButton *Boton(QWidget *padre, const char *nombre, const QString &texto, int x, int y,
                   int ancho, int alto)
{
    auto *boton = Boton(padre, nombre, texto);
    boton->setGeometry(Px(x), Px(y), Px(ancho), Px(alto));
    return boton;
}

void Elegir(QComboBox *combo, const QString &texto)
{
    const int i = combo->findText(texto);
    if (i >= 0)
        combo->setCurrentIndex(i);
    else if (combo->isEditable())
        combo->setEditText(texto);
    else {
        combo->addItem(texto);
        combo->setCurrentIndex(combo->count() - 1);
    }
}
