// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The Morse engine: a text queue, a clock and a key line in, timed changes of the line out.
// It runs on the window's thread, never sleeps the event loop away: each line change is
// scheduled at an absolute time from the start of the send on the monotonic clock, and
// while it waits it pumps events, so Esc, the macro keys and the speed control are served
// during sending (and may call back in).
//
// Timing, from the unit u = VelCW + 50 ms, VelCW taken at each character that has a
// pattern: a dit is u, a dah 3u, the gap after each element 0.75u (half to even: 22.5 is
// 22), and every character is followed by u. So letters stand 1.75u apart and words
// 2.75u: the operators of this program are used to that tighter rhythm.
//
// How the contest window uses it (it owns one, over its LlaveCW, ctx.reloj(), ctx.bomba()):
//   - a macro:       motor.TextoCW += texto; motor.enviarCW();   (see MacrosCW.h)
//   - Esc:           motor.PararCW = true;  (then its PTT stop, see LlamadorCQ.h)
//   - HScroll1:      motor.VelCW = VelCWDePpm(valor);
//   - EcoCambiado    -> Label10's caption;
//   - EnvioEnCurso   -> Combo3, Check3 and Check4 disabled while true;
//   - FalloLinea     -> ctx.dialogos().Exclamacion(mensaje): at most once per send.
// The manual key does not come here: it keys LlaveCW directly.

#include <QObject>
#include <QString>

class BombaEventos;
class LlaveCW;
class Reloj;

class MotorCW : public QObject
{
    Q_OBJECT
public:
    MotorCW(LlaveCW &llave, const Reloj &reloj, BombaEventos &bomba, QObject *parent = nullptr);

    // Written by the window's handlers, read by the engine as it goes.
    QString TextoCW;      // the queue; sending eats it from the front
    int VelCW = 0;        // the speed offset of the speed table, in ms
    bool PararCW = false; // honoured between characters; cleared when sending ends

    // Sends TextoCW and returns when the queue is used up or a stop was asked. Called
    // again during a send (a macro pressed meanwhile, through the pump), it only clears
    // the echo and returns: the text it queued goes out behind what was being sent.
    void enviarCW();
    bool EnviandoCW() const { return enviando_; }
    QString Eco() const { return eco_; }

    // The steps of a send; the window needs only enviarCW.
    void dekod(QString &caracter); // lowers the character in place, keys its pattern
    void cw(const QString &patron);
    void dit();
    void dah();
    void elemszunet(); // the gap after an element
    void betuszunet(); // the pause at the end mark: none
    void esperaCW(int milisegundos);

    // Behind its schedule by more than this (a modal box, a stalled machine), a send
    // starts its schedule again from now rather than rush the late elements out at once.
    static constexpr int kAtrasoMaximoMs = 10;
    // The last stretch of each wait is spun, not slept, for the line change to fall on
    // its millisecond.
    static constexpr int kMargenGiroMs = 2;

Q_SIGNALS:
    void EcoCambiado(const QString &texto);  // Label10: what is being sent, in capitals
    void EnvioEnCurso(bool enviando);        // the port and line choosers off while true
    void FalloLinea(const QString &mensaje); // the key line could not be keyed

private:
    int Unidad() const { return VelCWActual_ + 50; }
    void EsperarPlan();
    void Terminar();
    void AvisarFallo();

    LlaveCW &llave_;
    const Reloj &reloj_;
    BombaEventos &bomba_;
    int VelCWActual_ = 0;     // VelCW as copied at the last character with a pattern
    bool enviando_ = false;   // EnviandoCW: set at the first character that counts
    bool enCurso_ = false;    // a send is running, maybe under the handler now calling
    qint64 plan_ = 0;         // when the next line change is due, monotonic ns
    bool falloLinea_ = false; // this element found the line unusable
    bool avisado_ = false;    // this send has told of it already
    QString eco_;
};

// The element pattern of a character, "." and "-" closed by "0"; empty for one that keys
// nothing. Upper and lower case alike.
QString PatronMorse(QChar caracter);
// 0.75 × u in whole milliseconds, a half going to the even neighbour.
int TresCuartos(int unidad);
