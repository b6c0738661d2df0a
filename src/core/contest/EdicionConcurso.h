// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The checks of the contest QSO edit window, on leaving each field. They run one after
// the other, so one field can give more than one message; each message is shown as it
// comes, in order.

#include <QString>
#include <QStringList>

// Kilohertz: anything from 1,000 to 150,000 is a contest frequency.
QStringList RevisarFrecuenciaRegistro(const QString &texto);
// "yyyymmdd". The format message names the day first and the month message shows the
// day: that is how the window has always read.
QStringList RevisarFechaRegistro(const QString &texto);
// "hhmm": length, hours, minutes, each tested whatever the others gave.
QStringList RevisarHoraRegistro(const QString &texto);

QString TituloRegistro(qint64 id);
QString PreguntaEliminarQSOConcurso(const QString &senal);
