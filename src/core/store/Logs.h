// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The named logs as the menu shows them: the entries of the "Abrir Log ..." list, the
// refusal of a name already taken, the question before a delete and the log that takes
// over after it. Plain functions over what the store answers, so a test needs no window.

#include <QPair>
#include <QString>
#include <QStringList>
#include <QVector>

// The log in use after the last log was deleted. No row is written for it: it comes
// into being with its first QSO.
inline QString LogSinNombres()
{
    return QStringLiteral("Base 1");
}

// One entry of the list: "name (N QSOs)".
QString EntradaDeLog(const QString &nombre, qint64 cantidad);
// Every entry, in the order the store gives the logs.
QStringList EntradasDeLogs(const QVector<QPair<QString, qint64>> &logs);
// The name an entry stands for: the text before its first " (", or the whole entry.
// A name that holds " (" itself is cut there too, as the list always did.
QString NombreDeEntrada(const QString &entrada);

// True when the name is taken, whatever the case of its letters.
bool ExisteLog(const QStringList &logs, const QString &nombre);
QString MensajeLogExistente(const QString &nombre);

// The question before a delete, naming the log and its count as the view shows them.
QString PreguntaBorrarLog(const QString &rotuloDelLog);
// The log in use once one has been deleted: the first of the names left (the store
// gives them in alphabetical order), or "Base 1" when none is left.
QString LogTrasBorrar(const QStringList &restantes);
