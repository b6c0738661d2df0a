// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A Servicios made of fakes, with a plain pointer to each so the test can script and
// inspect them after the Servicios has been handed to a Contexto. The pointers live as
// long as whoever took the Servicios.
//
//   ServiciosFalsos falsos;
//   Contexto ctx(carpeta, falsos.Tomar());
//   falsos.dialogos->respuestasSiNo.enqueue(true);

#include "core/context/Contexto.h"
#include "support/BombaFalsa.h"
#include "support/ClienteWebFalso.h"
#include "support/DialogosFalso.h"
#include "support/EscritorioFalso.h"
#include "support/LineaSerieFalsa.h"
#include "support/RelojFalso.h"
#include "support/ReproductorFalso.h"

struct ServiciosFalsos
{
private:
    // First, so that it is built before the pointers into it.
    Servicios servicios_;

public:
    ServiciosFalsos();
    ServiciosFalsos(const ServiciosFalsos &) = delete;
    ServiciosFalsos &operator=(const ServiciosFalsos &) = delete;

    // Hands the services over; only once.
    Servicios Tomar();

    DialogosFalso *dialogos;
    EscritorioFalso *escritorio;
    ClienteWebFalso *web;
    RelojFalso *reloj;
    BombaFalsa *bomba;
    LineaSerieFalsa *puertoPTT;
    LineaSerieFalsa *puertoCW;
    ReproductorFalso *reproductor;
};
