// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Form33: the result panel of a callsign lookup. QRZ.com's record shows alone (the panel
// narrowed, modal); the national log's shows with buttons that copy the name, the e-mail
// address or the grid into the QSO being entered, each once per panel.

#include "core/lookup/Consultas.h"

#include <QDialog>
#include <functional>

class Contexto;
class Form1;
class Form5;
class QGroupBox;
class QLabel;
class QPlainTextEdit;
class QPushButton;

class Form33 : public QDialog
{
    Q_OBJECT
public:
    explicit Form33(QWidget *parent = nullptr);

    // The copies go where these say: the remarks and the other station's grid of the QSO.
    std::function<void(const QString &)> ponerObs, ponerGrilla;

    void Mostrar(const PanelConsulta &panel);

    QPlainTextEdit *Text1 = nullptr;
    QGroupBox *Frame1 = nullptr, *Frame2 = nullptr;
    QPushButton *Command1 = nullptr, *Command2 = nullptr, *Command4 = nullptr;
    // They carry the values for the buttons; not shown.
    QLabel *Label1 = nullptr, *Label2 = nullptr, *Label3 = nullptr;

protected:
    // The close box unloads the panel: buttons back on, values gone. Esc only hides it.
    void closeEvent(QCloseEvent *evento) override;
};

// The lookups of the main window ("Q", "L") and of the edit window ("QRZ.com", "LbN"),
// with the panel that shows them.
Consultas *ConectarConsultas(Form1 &principal, Contexto &ctx, Form5 *edicion);
