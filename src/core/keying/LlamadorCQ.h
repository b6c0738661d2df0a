// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The CQ caller: a recorded call played into the transmitter with the PTT held. F1 starts
// it (again from the top if it was playing) and Esc stops it. Each window that calls has
// its own caller over the context's player and PTT switch:
//
//   - the main window keeps the PTT keyed when the file ends, until Esc, so the operator
//     decides when to listen;
//   - the contest window lets it go at the end: it calls SoltarAlTerminar once, with the
//     pin of the settings read at that moment.
//
// The window's bar (sPorcentaje over sFondo) follows Avance while its call plays: width of
// sFondo × posicion ÷ longitud. At the end of the file the bar stays as it stood; Esc
// empties it (width 15 twips).

#include <QObject>
#include <QString>
#include <functional>

class InterruptorPTT;
class Reproductor;

class LlamadorCQ : public QObject
{
    Q_OBJECT
public:
    LlamadorCQ(Reproductor &reproductor, InterruptorPTT &ptt, QObject *parent = nullptr);

    // "Close", the file, "Rewind", "Open"; a file of length 0 (missing, empty, not audio)
    // ends it there, silently and with the PTT untouched; else "Play", then PTTOn on the
    // line of pinPTT. True when the call went out.
    bool Llamar(const QString &archivoAudio, int pinPTT);
    // PTTOff on the line of pinPTT whatever the state, then "Stop" and "Close". Harmless
    // with nothing playing.
    void Detener(int pinPTT);
    // From now on the end of the file lets the PTT go, on the line `pin` answers then.
    void SoltarAlTerminar(std::function<int()> pin);
    bool Llamando() const { return llamando_; }

Q_SIGNALS:
    // While this caller's file plays.
    void Avance(qint64 posicion, qint64 longitud);

private:
    void AlTerminar();
    void AlEstado(qint64 posicion, qint64 longitud);

    Reproductor &reproductor_;
    InterruptorPTT &ptt_;
    std::function<int()> pinAlTerminar_;
    bool llamando_ = false; // the player's file is this caller's, playing
};
