// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The CW macros of the contest window and its speed control. A macro appends its text to
// the engine's queue, so a press while sending goes out behind what is being sent, and
// then calls MotorCW::enviarCW.
//
// How the contest window uses these (F1..F7 only while Label13 is hidden, i.e. in CW):
//   macros(i) clicked or F(i+1):  motor.TextoCW += TextoMacroCW(i, campos);
//                                 motor.enviarCW();
//   HScroll1 changed:             LabelVel = RotuloVelocidadCW(v); motor.VelCW = VelCWDePpm(v);
//                                 focus to Corresponsal
//   each activation:              HScroll1 = kPpmInicialCW

#include <QString>
#include <QStringList>

// "F1-CQ" … "F7- NR?", the captions of macros(0) to macros(6).
QStringList TitulosMacrosCW();
constexpr int kCantidadMacrosCW = 7;

// What the macros read from the contest window.
struct CamposMacroCW
{
    QString propia;           // Text2: the own callsign
    QString corresponsal;     // Corresponsal
    QString rse;              // RSE: the serial sent
    bool incremental = false; // Label3 reads "Incremental"
    bool cortados = false;    // Check5 "0T-9N"
};

// The serial of "F2-Serie". In an incremental contest a value under 10 gets "00" in front
// and any other "0", so 100 goes out "0100" (what the operators are used to hearing); a
// fixed serial goes as typed. With cut numbers every 0 is T and every 9 is N.
QString SerieCW(const CamposMacroCW &campos);
// The text macro `indice` (0 to 6) appends to the queue; empty for any other index.
QString TextoMacroCW(int indice, const CamposMacroCW &campos);

// The speed control HScroll1, in words per minute.
constexpr int kPpmMinimaCW = 10;
constexpr int kPpmMaximaCW = 40;
constexpr int kPpmInicialCW = 20;
// VelCW for a speed: each row of the table is its own tuned value (38 and 39 key alike),
// so it is a table and no formula. A speed outside 10..40 takes the nearer end.
int VelCWDePpm(int ppm);
// LabelVel: "Vel 20 ppm".
QString RotuloVelocidadCW(int ppm);
