// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The contest windows wired to the main window's "Concursos": the chooser, the contest
// window, its Cabrillo header and its QSO edit window, made once and reused.

#include <QString>
#include <functional>

class Contexto;
class Form1;
class Form4;

// exportarAdif is the contest's ADIF export, run by the contest window's "ADIF" button
// (nothing while unset). The contest window is answered; it keys and calls CQ by itself.
Form4 *ConectarConcursos(
    Form1 &principal, Contexto &ctx,
    std::function<void(const QString &concurso, const QString &senal)> exportarAdif = {});
