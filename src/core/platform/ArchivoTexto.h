// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The program's small text files (config.ini, the memory files, the satellite list…):
// Windows-1252 bytes, CRLF line ends when written, CRLF or LF accepted when read, and
// always replaced whole. The five bytes that Windows-1252 leaves undefined (0x81, 0x8D,
// 0x8F, 0x90, 0x9D) stand for U+0081, U+008D, … so that any byte read comes back written
// as the same byte: a scrambled password may hold them.

#include "core/platform/Resultado.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

// Bytes to text, one character per byte; never fails.
QString De1252(const QByteArray &bytes);

// Text to bytes, one byte per character; a character Windows-1252 cannot hold becomes '?'.
QByteArray A1252(const QString &texto);

// The lines of a file, without their line ends. A last line without a line end counts;
// a line end at the very end of the file does not start another line. A failure when the
// file is missing or cannot be read.
Resultado<QStringList> LeerLineas(const QString &archivo);

// Replaces the file with these lines, each followed by CRLF. The old file stays as it was
// unless the new one was written whole.
Resultado<> EscribirLineas(const QString &archivo, const QStringList &lineas);
