// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/ServiciosFalsos.h"

namespace {

template<typename T, typename Base> T *Poner(std::unique_ptr<Base> &lugar)
{
    auto falso = std::make_unique<T>();
    T *puntero = falso.get();
    lugar = std::move(falso);
    return puntero;
}

} // namespace

ServiciosFalsos::ServiciosFalsos()
    : dialogos(Poner<DialogosFalso>(servicios_.dialogos))
    , escritorio(Poner<EscritorioFalso>(servicios_.escritorio))
    , web(Poner<ClienteWebFalso>(servicios_.web))
    , reloj(Poner<RelojFalso>(servicios_.reloj))
    , bomba(Poner<BombaFalsa>(servicios_.bomba))
    , puertoPTT(Poner<LineaSerieFalsa>(servicios_.puertoPTT))
    , puertoCW(Poner<LineaSerieFalsa>(servicios_.puertoCW))
    , reproductor(Poner<ReproductorFalso>(servicios_.reproductor))
{}

Servicios ServiciosFalsos::Tomar()
{
    Q_ASSERT_X(servicios_.dialogos, "ServiciosFalsos::Tomar", "the services were taken already");
    return std::move(servicios_);
}
