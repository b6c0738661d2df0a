// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The national log service's wire: the addresses of its scripts, with the query built by
// hand so that each value goes exactly as typed, and the readers of its two kinds of reply.
// One GET per QSO, the account in every query, no login step.

#include <QString>
#include <QUrl>

// An address as a browser sends what is typed in its bar: blanks, control characters and
// anything past ASCII are percent-escaped, a "%" that starts no escape becomes "%25", and
// the rest ("/", "+", "&", an escape already made) goes as it stands. A "#" starts the
// fragment, which a browser never sends.
QUrl DireccionComoNavegador(const QString &texto);

// The values of one QSO as the upload scripts take them.
struct QSOLbN
{
    QString miCall, suCall, banda, modo, fecha, hora, rst;
};

// "/php/carancho3.php?user=…&pass=…&micall=…&sucall=…&banda=…&modo=…&fecha=…&hora=…&rst=…"
// after the base: only the password escaped (EscaparLbN).
QUrl DireccionCarancho3(const QString &base, const QString &usuario, const QString &clave,
                        const QSOLbN &qso);
// The same keys at "/php/carancho2Radiolog.php?" and then "&x_qslMSG=" with the message.
QUrl DireccionCarancho2Radiolog(const QString &base, const QString &usuario, const QString &clave,
                                const QSOLbN &qso, const QString &qslMsg);
// The member list.
QUrl DireccionMiembros(const QString &base);
// The lookup of a callsign. Secure turns an "http://" base into "https://".
QUrl DireccionConsultaLbN(const QString &base, const QString &senal, bool segura = false);

// What a reply of carancho3 means for the QSO sent.
struct LecturaCarancho3
{
    QString linea;   // for the run's list
    int estado = -1; // the LbN state to write; -1 leaves the row as it is
    bool chequeado = false;
    bool subido = false;
};

// Reads one reply. indice is the QSO's number in the run, suCall its correspondent;
// textoAnterior is the status text of the QSO before, which a reply with no known status
// repeats, and it is updated here.
LecturaCarancho3 LeerCarancho3(const QString &respuesta, int indice, const QString &suCall,
                               QString &textoAnterior);

// A reply of carancho2Radiolog as the search window shows it.
struct LecturaCarancho2
{
    QString texto;
    int color = 16384; // BGR: 16384 dark green, 255 red
    bool abortar = false;
};
LecturaCarancho2 LeerCarancho2Radiolog(const QString &respuesta);

inline QString MensajeSinConexion()
{
    return QStringLiteral("No parace haber conexión con internet!");
}
