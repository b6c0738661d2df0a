#include "core/keying/LlamadorCQ.h"

#include "core/keying/PTT.h"
#include "core/platform/Reproductor.h"

LlamadorCQ::LlamadorCQ(Reproductor &reproductor, LineaSerie &puertoPTT)
    : reproductor_(reproductor)
    , puertoPTT_(puertoPTT)
{}

bool LlamadorCQ::Llamar(const QString &archivoAudio, int pinPTT)
{
    reproductor_.Cerrar();
    if (!reproductor_.AbrirArchivo(archivoAudio))
        return false;
    reproductor_.Rebobinar();
    if (reproductor_.Longitud() == 0)
        return false;
    reproductor_.Reproducir();
    PonerPTT(puertoPTT_, pinPTT, true);
    return true;
}

void LlamadorCQ::Detener(int pinPTT)
{
    PonerPTT(puertoPTT_, pinPTT, false);
    reproductor_.Detener();
    reproductor_.Cerrar();
}
