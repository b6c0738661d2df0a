// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A contest log: its founding row, the sent serial that goes on per mode and band, the
// duplicate warning, and the checks and the row of one QSO typed in the contest window.
// A contest is the rows of Tabla2 that share one name; its founding row (no mode) names
// the series, "Incremental" or "Fija".

#include "core/platform/Resultado.h"
#include "core/rules/Validacion.h"
#include "core/store/RegistroQSO.h"

#include <QString>
#include <optional>

class Almacen;

inline QString SerieIncremental()
{
    return QStringLiteral("Incremental");
}
inline QString SerieFija()
{
    return QStringLiteral("Fija");
}

// ---- Creating ------------------------------------------------------------------------
// The refusal of a name the store already holds (in any case), or nothing.
std::optional<QString> ConcursoRepetido(Almacen &almacen, const QString &nombre);
// The founding row: only the name (as log and as LbN) and the series.
Resultado<qint64> FundarConcurso(Almacen &almacen, const QString &nombre, const QString &tipo);

// ---- Serials -------------------------------------------------------------------------
// The serial after this one: its leading number plus one ("007" -> "8", "x" -> "1"); 1
// when there is none.
QString SerieSiguiente(const std::optional<QString> &ultima);
// The sent serial of the next QSO in this mode and band of an incremental contest.
QString SerieParaBanda(Almacen &almacen, const QString &concurso, const QString &modo,
                       const QString &banda);

// What the contest window shows when it comes up: the band and mode of the newest row
// (each only when it has one, otherwise those shown stay), and the sent serial.
struct ArranqueConcurso
{
    QString banda;
    QString modo;
    QString rse;
};
// serieFija: the serial of the oldest QSO, which a fixed series repeats on every QSO.
ArranqueConcurso ArrancarConcurso(Almacen &almacen, const QString &concurso, const QString &tipo,
                                  const QString &serieFija, const QString &banda,
                                  const QString &modo);

// ---- Duplicates ----------------------------------------------------------------------
// The station already worked in the contest in this mode and band. "PH" is "SSB".
bool EsDuplicadoConcurso(Almacen &almacen, const QString &concurso, const QString &senal,
                         const QString &modo, const QString &banda);

// ---- One QSO -------------------------------------------------------------------------
struct EntradaConcurso
{
    QString senalPropia; // Text2
    QString fecha;       // "dd/mm/yyyy"
    QString hora;        // "hh:mm"
    QString corresponsal;
    QString rse;
    QString rsr;
    QString mhz;
    QString khz;
    QString banda;
    QString modo;
};

enum class CampoConcurso { SenalPropia, Fecha, Hora, Corresponsal, Rse, Rsr };
struct FaltaConcurso
{
    CampoConcurso campo;
    QString mensaje;
};
// The first empty field of the six the contest asks for, with its message.
std::optional<FaltaConcurso> ValidaConcurso(const EntradaConcurso &e);

// The row of the QSO: frequency in kHz (MHz and kHz joined, without '.'), date "yyyymmdd"
// and time "hhmm" as the fields hold them (already UTC). A date or time that cannot be
// read is refused with its field and message.
struct FilaEntrada
{
    std::optional<FaltaConcurso> falta;
    FilaConcurso fila;
};
FilaEntrada FilaDeEntrada(const EntradaConcurso &e, const QString &concurso, const QString &tipo);

// The report a contest QSO is taken to have: "59" for "SSB" and "FM", "599" for any other.
QString ReporteConcurso(const QString &modo);

// The band word shown for a whole MHz of the list; nothing for "6" and "2", which leave it.
std::optional<QString> BandaDeMhzConcurso(const QString &mhz);

QString MensajeFechaConcurso(const QString &texto);
QString MensajeHoraConcurso(const QString &texto);
// Leaving the date and time fields of the contest window: as the main window's checks,
// with one line end in the message.
RevisionCampo RevisarFechaConcurso(const QString &texto);
RevisionCampo RevisarHoraConcurso(const QString &texto);

// The question of a change of mode in an incremental contest whose serial is not 1.
QString PreguntaSerieUno();
QString PreguntaEliminarConcurso(const QString &nombre);
