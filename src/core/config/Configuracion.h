// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// config.ini: the station, the log in use, the logins of the online services and the
// settings of the CQ caller, one "key=value" per line. Every key is nine characters with
// its '=', so a value always starts at column 10. At run time the settings live in the
// context (Contexto::config()), which every window reads; the configuration window edits a
// copy and commits it. This is the file side of them.

#include "core/platform/Resultado.h"

#include <QString>
#include <QStringList>

// The settings of config.ini but the log in use, which is the program's global LogenUso
// and travels apart. Named after the key they are saved under.
struct Configuracion
{
    QString Estacion; // own callsign (Form2.Text1)
    QString Operador; // operator callsign (Form2.Text2)
    QString DiferUTC; // hours from UTC (Form2.Text3)
    QString GridLoca; // grid locator (Form2.Text4)
    QString UserLbN;  // national log account, an e-mail (Form2.user_lbn)
    QString PassLbN;  // its password, kept in the clear (Form2.pass_lbn)
    int NoBorrar = 0; // the main window's "No Borrar" box
    int Pantalla = 0; // the box "Apaisada" (Form2.panta)
    QString HAMQuser; // QRZ.com user (Form2.Text5)
    QString HAMQpass; // QRZ.com password, scrambled in the file (Form2.Text6)
    QString LBNQuser; // national log lookup user (Form2.Text8)
    QString LBNQpass; // its password, scrambled in the file (Form2.Text7)
    QString eQSLuser; // (Form2.Text9)
    QString eQSLpass; // scrambled in the file (Form2.Text10)
    QString ArcAudio; // the CQ voice file (Form2.Label6)
    // PTT port: "NINGUNO", "COM1".."COM20" or a device; the first entry of the list
    // until a file says otherwise.
    QString Puerto = QStringLiteral("NINGUNO");
    int PinPTT = 0;                         // 1 keys on RTS, anything else on DTR
    QString TAntes = QStringLiteral("0");   // ms before the audio
    QString TDespues = QStringLiteral("0"); // ms after the audio

    bool operator==(const Configuracion &) const = default;
};

// The keys in the order they are written.
const QStringList &ClavesConfiguracion();

// Reads the file over cfg and logenUso, changing only what the file brings. Every key is
// looked for anywhere in every line, case-sensitively; the value is what stands from
// column 10, at most 100 characters (1,000 for the audio file). An empty Puerto, TAntes or
// TDespues and an empty Pantalla keep what cfg held; PinPTT is RTS only for exactly "1";
// NoBorrar is read as a number; the three scrambled passwords come back in the clear.
// The grid is always set, empty when the file has none. A missing file changes nothing.
void LeerConfiguracion(const QString &archivo, Configuracion &cfg, QString &logenUso);

// The twenty lines as written, in order.
QStringList LineasConfiguracion(const Configuracion &cfg, const QString &logenUso);

// The log in use when none has been chosen yet.
inline QString LogInicial()
{
    return QStringLiteral("Log inicial");
}

// Writes the file whole. With no log in use, "Log inicial" becomes the log in use; no row
// is written for it here: the log comes into being when a window first needs it. On
// failure the caller tells the operator, and the file on disk is left as it was.
Resultado<> GuardarConfiguracion(const QString &archivo, const Configuracion &cfg,
                                 QString &logenUso);
