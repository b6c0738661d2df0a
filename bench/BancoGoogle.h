// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// What the benchmarks on the benchmark library share besides Banco.h: their start.

#include "Banco.h"

#include <benchmark/benchmark.h>

// The size asked for on the command line, and the benchmark library started with the rest
// of the arguments. The arguments live as long as the program: the library keeps them.
inline long long IniciarBanco(int argc, char **argv, long long porDefecto)
{
    static std::vector<char *> resto;
    const long long tamano = TamanoPedido(argc, argv, porDefecto, resto);
    int cuantos = int(resto.size());
    benchmark::Initialize(&cuantos, resto.data());
    return tamano;
}
