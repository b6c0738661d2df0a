// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The PTT: which line of the serial port keys the transmitter, and the port that the
// settings name. Every window that keys the PTT (the CQ caller of the main window, the
// "Prueba de PTT" button of the configuration) goes through here, so they always agree
// on the line.

#include <QObject>
#include <QString>

class LineaSerie;

enum class LineaPTT { RTS, DTR };

// PinPTT 1 keys on RTS; anything else, 0 and values an old file may bring, on DTR.
LineaPTT LineaDePin(int pinPTT);

// Keys (true) or releases (false) the PTT on the line of pinPTT. A closed port does
// nothing, quietly: the operator sees that the radio is not keyed.
void PonerPTT(LineaSerie &puerto, int pinPTT, bool encendido);

// PTTOn and PTTOff: the PTT line and the "Tx" lamps of the main window (Label13) and of the
// contest window (Label8), which always change together, whichever window keyed. The
// context holds the one switch; each lamp follows Lampara and starts from Encendido().
// A port that is not open leaves the radio as it is and the lamps still change, so the
// lamp may say "on" with the radio unkeyed: the operator sees the port is wrong.
class InterruptorPTT : public QObject
{
    Q_OBJECT
public:
    explicit InterruptorPTT(LineaSerie &puerto, QObject *parent = nullptr);
    void PTTOn(int pinPTT);
    void PTTOff(int pinPTT);
    bool Encendido() const { return encendido_; }

Q_SIGNALS:
    void Lampara(bool encendida);

private:
    LineaSerie &puerto_;
    bool encendido_ = false;
};

// The colours of a "Tx" lamp, BGR as the windows write them: background red when on,
// dark red when off, white text either way.
struct ColoresTx
{
    int fondo;
    int texto;
};
ColoresTx ColoresLamparaTx(bool encendida);

// The entry of the port lists that means "no serial PTT" (the radio's VOX instead).
QString PuertoNinguno();
// "NINGUNO" or nothing at all.
bool EsSinPuerto(const QString &puerto);

// The port chosen in the list: whatever was open is closed, and the port named is
// opened with both lines off. One that does not open stays closed and says nothing here:
// a later PTT finds it so.
void AbrirPuertoPTT(LineaSerie &linea, const QString &puerto);

// After the settings are read: the line ends up on the port they name, closed for
// "NINGUNO". A port already open under that name is left as it is, so a PTT held at that
// moment is not dropped.
void SeguirPuertoPTT(LineaSerie &linea, const QString &puerto);
