// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The tests by which the logging windows accept reports, dates and times. Each test
// answers 1 for bad and 0 for good; the field handler owns the message, the focus and
// the repair, and the Revisar* helpers below do the handler's steps in their order.

#include <QDateTime>
#include <QString>

// "hh:mm": length 5, ':' third, hours at most 23, minutes at most 59, both read by the
// leading-number rule. No lower bound and no digit test ("ab:cd" is good): the key filter
// of the field keeps letters out.
int HoraInvalida(const QString &texto);

// "dd/mm/yyyy" with digits only, day at most 31, month at most 12, and a real calendar
// date (29/02 only in leap years).
int FechaInvalida(const QString &texto);

// 3 for the telegraphy modes "CW" and "Sat CW" (exact texts), 2 for any other.
int LargoReporte(const QString &modo);
// "599" for telegraphy, "59" for any other mode.
QString ReporteDefecto(const QString &modo);

// Length by the mode; two characters: readability 1-5; three: strength 1-9 (the first
// character is not looked at); in both the last character must read at least 1.
int ReporteInvalido(const QString &texto, const QString &modo);
// The edit window accepts any report; kept so that its save path keeps its shape.
int ReporteEdicionInvalido(const QString &texto);

// The Enter check of the main window: empty text when all is well, otherwise its message.
// Stricter than ReporteInvalido on three characters (the first must be 1-5, "999" is
// bad) and laxer in the middle (never examined).
QString ValidarEntradaQSO(const QString &corresponsal, const QString &rsr, const QString &rse,
                          const QString &modo);

QString MensajeFecha(const QString &texto);
QString MensajeHora(const QString &texto);
QString MensajeReporte(const QString &texto);

// A date whose year reads 0 gets "2000": its first six characters followed by "2000"
// ("15/03/" -> "15/03/2000"). An empty text is left empty (the field reports it itself).
QString CorregirAnioFecha(const QString &texto);

// Rewrites a time as "hh:mm": "9:30" -> "09:30", "9:5" -> "09:05", "21:30:15" -> "21:30",
// "0930" and "930" -> "09:30", "9:30 PM" -> "21:30". Hours 0-23 and minutes 0-59 only;
// a text it cannot read as a time ("24:00", "9", "ab:cd") comes back unchanged.
QString FormatearHora(const QString &texto);

// The moment of a QSO from "dd/mm/yyyy" and "hh:mm" (or "hh:mm:ss"), always in that
// order whatever the locale. It is a wall-clock reading held as UTC, so that shifting it
// by whole hours never meets a daylight-saving gap. Invalid when either text is not valid.
QDateTime LeerMomento(const QString &fecha, const QString &hora);

// What the field handlers do on leaving a field: the text to put back in it, and the
// message to show (empty when the value is accepted).
struct RevisionCampo
{
    QString texto;
    QString mensaje;
};
// Year correction, the test, then every '-' becomes '/': a date typed with hyphens is
// refused once, with the mended text already in the field, and passes on the next try.
// An empty date is refused with the date message.
RevisionCampo RevisarFecha(const QString &texto);
// The formatter, then the test.
RevisionCampo RevisarHora(const QString &texto);
// A bad report is replaced by "59" whatever the mode.
RevisionCampo RevisarReporte(const QString &texto, const QString &modo);
