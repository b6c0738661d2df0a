// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The ADIF commands of the windows: the steps every export shares (the save dialog, the
// overwrite question, the offer to see the file), the contest export, the database copy,
// and the menu entries of the main window that open them.

#include "core/adif/ExportacionAdif.h"

#include <QString>
#include <QVector>
#include <functional>

class Contexto;
class Form1;
class Form5;

// The save dialog "Exportar a ADIF ..." and, when the chosen file exists, the question
// whether to write over it (No by default). Empty when the operator gave up.
QString PedirArchivoAdif(Contexto &ctx);
// "Guardado!" and "Desea verlo?"; on Yes the file opens in a text viewer.
void OfrecerVerAdif(Contexto &ctx, const QString &archivo);
// The header's version and local moment, now.
OrigenAdif OrigenAhora(Contexto &ctx);

// The whole click of the contest window's ADIF export: the contest's QSOs from the store,
// the save dialog and the overwrite question, the file, and the messages. senalEstacion
// is the station callsign the contest window shows: a QSO of another stops the export.
void ExportarConcursoAdif(Contexto &ctx, const QString &concurso, const QString &senalEstacion);

// "Hacer BackUp", "Base de Datos": the dated copy of the database, and its message.
void RespaldarBaseDatos(Contexto &ctx);

// Enables the entries "Buscar/Exportar", "Base de Datos" and "ADIF" of the main window
// and opens their windows. The edit window is the one the main window uses; while the
// search window is open, its saves and deletes refresh the search's row. The search
// window's table button hands its rows to tablaProvincias.
void ConectarAdif(Form1 &principal, Contexto &ctx, Form5 *edicion,
                  std::function<void(const QVector<FilaQSO> &)> tablaProvincias = {});
