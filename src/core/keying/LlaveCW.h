// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The Morse key's serial line: the port chosen in the contest window's Combo3 and the line
// of its boxes, Check3 "DTR" or Check4 "RTS". The contest window owns one over the context's
// puertoCW() for as long as it is open; the Morse engine and the manual key both key
// through it, so the lamp (Image1) always follows the key.
//
// How the contest window drives it:
//   - at each activation, after LeerAjustesCW: PonerLinea(a.dtr), then NombrarPuerto(a.puerto):
//     the port opens when the operator chooses it in Combo3, never just by opening the
//     window (a send before that keys the lamp and says so once, MotorCW::FalloLinea);
//   - a choice in Combo3 (not while IniciandoPrincipal): ElegirPuerto(texto), showing
//     r.Mensaje() with ctx.dialogos().Exclamacion when it fails; the window goes on;
//   - a click on Check3/Check4: untick the other, then PonerLinea(Check3->isChecked());
//   - the manual key: TeclaManual below decides, kulcsLe()/kulcsFel() act;
//   - Lampara(bool) shows or hides Image1;
//   - at closing: LlaveCW's destructor puts both lines off and closes the port.

#include "core/platform/Resultado.h"

#include <QObject>
#include <QString>

class LineaSerie;

class LlaveCW : public QObject
{
    Q_OBJECT
public:
    explicit LlaveCW(LineaSerie &linea, QObject *parent = nullptr);
    // Both lines off, then the port closed: the transmitter never stays keyed.
    ~LlaveCW() override;

    // Closes what was open (both lines off first) and opens the port named, leaving both
    // lines off. "Ninguno" leaves the port closed and the lamp keys alone. A port that
    // does not open stays closed and the failure says why, in Spanish.
    Resultado<> ElegirPuerto(const QString &puerto);
    // The port the window shows, left closed: it opens when the operator chooses it. The
    // same port named again stays as it is, open or not, so a port chosen earlier in the
    // run still keys when the window comes back.
    void NombrarPuerto(const QString &puerto);
    // The port last chosen or named, opened or not.
    QString Puerto() const { return puerto_; }
    // "Ninguno" chosen: only the lamp keys.
    bool SoloLampara() const;

    // Check3 ticked keys DTR; otherwise (Check4 ticked, or neither) RTS. A change with the
    // key down moves it to the new line.
    void PonerLinea(bool dtr);
    bool UsaDTR() const { return dtr_; }

    // Key down and key up on the chosen line, the lamp following. False when a port was
    // chosen but its line could not be keyed (the port is not open): the lamp still
    // follows, and the caller decides whether to tell.
    bool kulcsLe();
    bool kulcsFel();
    // Sets the line "DTR" or "RTS" (any other name sets none) and the lamp. False when
    // the port is not open.
    bool lineaCW(const QString &nombre, bool activa);
    bool Abajo() const { return abajo_; }

    // What a send says, once, when the line could not be keyed.
    QString MensajeLineaFallida() const;

Q_SIGNALS:
    // The key lamp, Image1: shown while the key is down.
    void Lampara(bool encendida);

private:
    void Soltar();
    // Whatever was open closed with both lines off, the key up, the new name taken.
    void CerrarYNombrar(const QString &puerto);

    LineaSerie &linea_;
    QString puerto_;
    bool dtr_ = true;
    bool abajo_ = false;
};

// The manual key on the down arrow: down while the arrow is held, up when it is let go.
// Qt delivers the keyboard's auto-repeat as a release and a press, both flagged as
// auto-repeated; those must neither lift the key nor press it again. The contest window
// feeds it from its key filter while Frame1 shows:
//
//   KeyPress   Key_Down: if (tecla.Presion(e->isAutoRepeat()) == Bajar)  llave.kulcsLe();
//   KeyRelease Key_Down: if (tecla.Suelta(e->isAutoRepeat()) == Subir)   llave.kulcsFel();
//   focus lost / window deactivated: if (tecla.FocoPerdido() == Subir)   llave.kulcsFel();
//
// The last one matters: a release that goes to another window would leave the
// transmitter keyed.
class TeclaManual
{
public:
    enum class Accion { Nada, Bajar, Subir };
    Accion Presion(bool autoRepetida);
    Accion Suelta(bool autoRepetida);
    Accion FocoPerdido();
    bool Abajo() const { return abajo_; }

private:
    bool abajo_ = false;
};
