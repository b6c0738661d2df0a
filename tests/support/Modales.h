// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// For window tests that meet a real modal window (a child Form's exec(), a message box
// of DialogosQt): runs the test's step on the modal window once it is showing, from
// inside its own event loop.
//
//   CuandoAparezcaModal([](QWidget *w) { ...; qobject_cast<QDialog *>(w)->accept(); });
//   ventana.Command3->click(); // opens the modal window and waits in it

#include <QWidget>
#include <functional>

// The step runs once, on the first modal window that shows up within esperaMaxMs and is
// not `salvo` (the window already modal when the step was armed, if any). If none shows
// up, nothing runs and the test goes on; its own checks then fail.
void CuandoAparezcaModal(std::function<void(QWidget *)> paso, int esperaMaxMs = 5000);
