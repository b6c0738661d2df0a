// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The band plan: the band a QSO stores, derived from the whole megahertz that the operator
// types, and the two tables that the ADIF import uses for a frequency without a band and a
// band without a frequency. The tables differ on purpose and are kept apart.

#include <QString>
#include <QStringList>

// The main window calls the 23 cm band "23cm"; the edit window has always stored "23m".
enum class VentanaBanda { Principal, Edicion };

struct BandaDerivada
{
    QString banda;             // empty when the megahertz are in no band
    bool fueraDeBanda = false; // the kilohertz fall outside the 80, 30 or 12 m segment
    QString mensaje;           // the exclamation-box text when fueraDeBanda, else empty
};

// The band of a whole-MHz value (no ranges: 3.5 is in no band), then the out-of-band
// check on the kilohertz. With iniciando (the main window still loading its saved
// frequency) the 1267 MHz band and the out-of-band check are skipped, so no message can
// appear at start-up. The edit window's callers skip the whole call while loading.
BandaDerivada DerivarBanda(const QString &mhz, const QString &khz, VentanaBanda ventana,
                           bool iniciando = false);

// The band of a decimal frequency in MHz ("7.074"), by ranges with both ends included.
// No 1.25 m and no 23 cm here, and 70 cm stops at 440.
QString BandaDeMhz(const QString &mhzDecimal);

// A typical frequency for a band name, by its leading number ("160m" -> "1.820");
// empty text for a band it does not know.
QString FrecuenciaDeBanda(const QString &banda);

// The kilohertz field always holds three digits: "" -> "000", "5" -> "005",
// "50" -> "050"; three characters or more stay as they are.
QString RellenarKhz(const QString &khz);

// The lists the windows fill at load, in their order.
const QStringList &ModosPrincipal(); // main window modes, "SSB" first
const QStringList &ListaMhz();       // the thirty whole-MHz entries of both windows
const QStringList &ListaBandas();    // the main window's band list (no effect on a QSO)
const QStringList &ModosEdicion();   // the edit window's modes: another order, no "DVoice"

// The selections the main window starts with.
inline QString MhzInicial()
{
    return QStringLiteral("3");
}
inline QString BandaInicial()
{
    return QStringLiteral("80m");
}
