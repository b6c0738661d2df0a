// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The memory files of the main window, so that the next run opens on the frequency, mode
// and satellite the operator last had. mem.ini is written after every QSO; memModo.cfg,
// memMhz.cfg, memKhz.cfg and memqSat.cfg at the end of the run; memsat.ini when a
// satellite is chosen. All lie in the program folder.

#include "core/platform/Resultado.h"

#include <QString>
#include <optional>

// What the main window shows and the files remember.
struct MemoriaEntrada
{
    QString mhz;    // whole megahertz (Form1.mhz)
    QString khz;    // kilohertz (Form1.Text1)
    QString banda;  // band shown (caption of Form1.Label7)
    int check1 = 0; // "QTR manual" (Form1.Check1)
    QString modo;   // mode (Form1.Combo1)
    int check2 = 0; // "Vía Satélite" (Form1.Check2)
};

// What a restore asks the main window to set; an empty field leaves the control as it was.
struct MemoriaRestaurada
{
    std::optional<QString> mhz;
    std::optional<QString> khz;
    std::optional<QString> banda;
    // Ticked means manual date and time: the caller also fills Fecha and Hora once with
    // the present moment, since the running clock no longer does it.
    std::optional<int> check1;
    std::optional<QString> satelite; // Form1.Combo3
    std::optional<QString> modo;
    std::optional<int> check2;
};

// mem.ini: the frequency "mhz.khz", the band, the QTR manual box and an empty line.
Resultado<> GuardarMem(const QString &carpeta, const MemoriaEntrada &m);
// The four .cfg files, in the order memModo, memMhz, memKhz, memqSat. When one cannot be
// written the others are still tried, and the first failure is the answer.
Resultado<> GuardarMemSalida(const QString &carpeta, const MemoriaEntrada &m);
// memsat.ini: the satellite's name.
Resultado<> GuardarMemSat(const QString &carpeta, const QString &satelite);
// The first line of memsat.ini; empty text when the file is missing or empty.
QString LeerMemSat(const QString &carpeta);

// The restore of the main window's load, in its order: mem.ini (or "650" kHz when it is
// missing), the last satellite, then each .cfg file that exists, so that the values of the
// end of the last run win over those of the last QSO. A short or damaged file only leaves
// the fields it cannot give unset.
MemoriaRestaurada RestaurarMemoria(const QString &carpeta);
