#pragma once
// The CQ caller: a recorded call played into the transmitter with the PTT held. F1 starts
// it and Esc stops it. The end of the file does not let the PTT go: the transmitter stays
// keyed until Esc, so the operator decides when to listen.

#include <QString>

class LineaSerie;
class Reproductor;

class LlamadorCQ
{
public:
    LlamadorCQ(Reproductor &reproductor, LineaSerie &puertoPTT);

    // Closes whatever was playing (a second F1 starts the call over), opens the file,
    // rewinds and plays it, then keys the PTT on the line of pinPTT. A file that does not
    // open, or whose length is 0, plays nothing and leaves the PTT alone. True when the
    // call went out.
    bool Llamar(const QString &archivoAudio, int pinPTT);
    // Releases the PTT on the line of pinPTT whatever its state, then stops and closes
    // the player. Harmless with nothing playing.
    void Detener(int pinPTT);

private:
    Reproductor &reproductor_;
    LineaSerie &puertoPTT_;
};
