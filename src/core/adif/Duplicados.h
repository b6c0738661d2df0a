// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// When an imported QSO is one the log already holds: the same log, mode, band, own
// callsign and correspondent, and less than ten minutes apart, date and time taken
// together. Frequency, reports, satellite and remarks play no part. Only the stored log
// is looked at, so two equal QSOs of one file are both new.

#include "core/store/RegistroQSO.h"

#include <QString>
#include <optional>

class Almacen;

// The id of the first QSO of the log, in the table's order, that this one duplicates;
// nothing when none does or the QSO has no date. Minutes are counted as a calendar counts
// them: the seconds are dropped first, so 12:00:59 and 12:10:00 are ten minutes apart.
std::optional<qint64> BuscarDuplicado(Almacen &almacen, const QString &log, const RegistroQSO &qso);
