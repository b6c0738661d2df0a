// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The backups: a dated copy of the database, and what the ADIF backup window shows
// before it writes every log to one file (ExportRespaldo).

#include "core/platform/Resultado.h"

#include <QDate>
#include <QPair>
#include <QString>
#include <QVector>

class Almacen;

// base0_dd_mm_yy.db in the given folder.
QString ArchivoRespaldo(const QString &carpeta, const QDate &hoy);

// Copies the open database to ArchivoRespaldo: one copy a day, a second one replacing the
// first. The copy is taken by the engine as one consistent moment into a temporary file,
// which then takes the place of the day's copy: a copy that fails leaves the earlier one
// as it was. The value is the path of the copy; a failure says "Operation Failed" and the
// engine's reason.
Resultado<QString> RespaldarBase(Almacen &almacen, const QString &carpeta, const QDate &hoy);

// The logs of the ADIF backup window: every named log with its QSOs, as the window lists
// them, and the total.
struct LogsParaRespaldo
{
    QVector<QPair<QString, qint64>> logs;
    qint64 total = 0;
    QStringList Lineas() const; // "name (n QSOs)"
};
LogsParaRespaldo LeerLogsParaRespaldo(Almacen &almacen);

// More QSOs than the import takes in one file: the operator is warned that the file is
// for other loggers, and the database backup is the one for this program.
bool AvisarRespaldoGrande(qint64 total);
QString MensajeRespaldoGrande();
