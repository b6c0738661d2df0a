// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// "Actualizaciones" of the main window's menu: the version check against the maker's site,
// told in one box.

class Contexto;
class Form1;

// Makes the menu entry ask the site and show the answer: the exclamation box with both
// versions, nothing when the site's text is no version, or the stop box with the reason
// when the site could not be asked.
void ConectarActualizaciones(Form1 &principal, Contexto &ctx);
