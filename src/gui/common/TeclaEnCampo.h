// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The key filters of the entry fields, applied to a key typed into a line edit.

#include "core/rules/Entrada.h"

class QEvent;
class QKeyEvent;
class QLineEdit;
class QWidget;

// True when the key was taken care of here: dropped by the filter, or put in upper-cased.
// False when the field should take the key as it is (editing keys, Ctrl commands, and
// characters the filter lets through unchanged). The edit window's filters do not let
// the '?' through; the main window's do.
bool FiltrarTeclaEnCampo(QLineEdit *campo, QKeyEvent *tecla, FiltroTecla filtro,
                         bool dejarPregunta = true);

// Whether a field's lost focus is the operator leaving it: a message box, a list popping up,
// the menu, or the window going away take the focus without the operator moving on, and
// must not run the field's checks.
bool DejaElCampo(const QEvent *perdida, const QWidget *ventana);
