// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A QSO as the operations of the store take it, and a row as they give it back.

#include <QString>

// The sixteen values of a QSO, in the order in which every operation takes them.
// Fecha is "dd/mm/yyyy" and Hora "hh:mm:ss", both UTC.
struct RegistroQSO
{
    QString Estacion;
    QString Banda;
    QString Modo;
    QString RSE;
    QString RSR;
    QString Fecha;
    QString Hora;
    QString MyCall;
    QString Operador;
    QString Obs;
    QString Frecuencia;
    QString MiGrid;
    QString SuGrid;
    QString Nombre_Sat;
    QString LbN;
    QString Argento;
};

// One row of Tabla1 (or of Tabla3, which adds Dupe), in column order. A NULL column
// reads as empty text. Fecha comes back as "dd/mm/yyyy" and Hora as "hh:mm:ss".
struct FilaQSO
{
    qint64 id = 0;
    QString Modo;
    QString Banda;
    QString MyCall;
    QString Estacion;
    QString Fecha;
    QString Hora;
    QString RSE;
    QString RSR;
    QString Obs;
    QString Operador;
    QString NombreLog;
    QString Frecuencia;
    QString MiGrid;
    QString SuGrid;
    QString LbN;
    QString Nombre_Sat;
    QString Argento;
    QString Dupe; // Tabla3 only

    bool operator==(const FilaQSO &) const = default;
};

// One row of Tabla2, the contest table: no grid columns, and its own forms of Fecha
// ("yyyymmdd"), Hora ("hhmm") and Frecuencia (kHz), kept as the contest gives them.
struct FilaConcurso
{
    qint64 id = 0;
    QString Modo;
    QString Banda;
    QString MyCall;
    QString Estacion;
    QString Fecha;
    QString Hora;
    QString RSE;
    QString RSR;
    QString Obs;
    QString Operador;
    QString NombreLog;
    QString Frecuencia;
    QString LbN;
    QString Nombre_Sat;
    QString Argento;

    bool operator==(const FilaConcurso &) const = default;
};
