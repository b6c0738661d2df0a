// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The helpers every window makes its controls with. A control is made under its given
// name, so a test finds it by name; windows laid out by position place it in twips. A
// caption names its field for a screen reader; a button never takes Enter for itself, so
// Enter stays with the window.

#include "gui/common/Twips.h"

#include <QString>
#include <QWidget>

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

template<typename W> W *Crear(QWidget *padre, const char *nombre)
{
    auto *w = new W(padre);
    w->setObjectName(QString::fromLatin1(nombre));
    return w;
}

template<typename W> W *Poner(QWidget *padre, const char *nombre, int x, int y, int ancho, int alto)
{
    auto *w = Crear<W>(padre, nombre);
    w->setGeometry(Px(x), Px(y), Px(ancho), Px(alto));
    return w;
}

// For a layout: the caption of a field, its buddy, named "rotulo_" and the field's name.
QLabel *Rotulo(QWidget *padre, const QString &texto, QWidget *campo);
// Placed, one line high. With a field, the field is its buddy and is read by the
// caption's words.
QLabel *Rotulo(QWidget *padre, const QString &texto, int x, int y, int ancho,
               QWidget *campo = nullptr);

// A placed line edit of one line that takes at most largo characters.
QLineEdit *Campo(QWidget *padre, const char *nombre, int x, int y, int ancho, int largo);

// For a layout.
QPushButton *Boton(QWidget *padre, const char *nombre, const QString &texto);
// Placed.
QPushButton *Boton(QWidget *padre, const char *nombre, const QString &texto, int x, int y,
                   int ancho, int alto = 360);

// Shows a text in a list: its entry when the list holds it; otherwise the text as it
// stands (typed into an editable list, added to one that is not).
void Elegir(QComboBox *combo, const QString &texto);
