// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Form8: the contest chooser, "Logs Cabrillos ...". Every contest with its series and its
// QSOs; a double click opens one, "Aceptar" founds a new one. Either way the choice goes
// to the context (ConcursoNombre, ConcursoTipo) and the contest window opens.

#include "core/store/Almacen.h"

#include <QDialog>
#include <functional>

class Contexto;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QTreeWidget;

class Form8 : public QDialog
{
    Q_OBJECT
public:
    explicit Form8(Contexto &ctx, QWidget *parent = nullptr);

    // The list filled anew and the name cleared.
    void Llenar(const QVector<Almacen::ConcursoListado> &concursos);

    void Command1_Click();     // "Aceptar": a new contest
    void ListView1_DblClick(); // the selected contest

    // Runs once this window is hidden, with the chosen contest in the context; nuevo when it
    // was just founded.
    std::function<void(bool nuevo)> abrirConcurso;

    QTreeWidget *ListView1 = nullptr;
    QLineEdit *Text1 = nullptr;
    QRadioButton *Option1 = nullptr; // "Incremental"
    QRadioButton *Option2 = nullptr; // "Fija"
    QPushButton *Command1 = nullptr;

private:
    void Elegido(const QString &nombre, const QString &tipo, bool nuevo);

    Contexto &ctx;
};
