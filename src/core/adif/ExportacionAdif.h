// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The three ADIF exports as whole operations, each writing one file from its rows. The
// windows ask the questions and show the messages; these write.

#include "core/platform/Resultado.h"
#include "core/store/RegistroQSO.h"

#include <QDateTime>
#include <QString>
#include <QVector>
#include <functional>

class Almacen;

// What every export puts in its header.
struct OrigenAdif
{
    QString versionPrograma;
    QDateTime creado; // local time
};

// The rows of the search window as they stand, in their order.
Resultado<> ExportBusqueda(const QString &archivo, const QVector<FilaQSO> &filas,
                           bool comentarioComoQslmsg, const OrigenAdif &origen);

// Every QSO of every log, in the table's order. avance gets the count of records written
// so far now and then (a progress bar, the event pump). The value is that count.
Resultado<qint64> ExportRespaldo(Almacen &almacen, const QString &archivo, const OrigenAdif &origen,
                                 const std::function<void(qint64)> &avance = {});

// The QSOs of a contest log (rows without a mode left out). Every row must be of the
// station's callsign: at the first that is not, the writing stops there, and the file
// keeps the header and the records before it. The value: true when every row went out.
Resultado<bool> ExportConcurso(const QString &archivo, const QVector<FilaConcurso> &filas,
                               const QString &senalEstacion, const OrigenAdif &origen);
