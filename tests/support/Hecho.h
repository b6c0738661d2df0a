// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The preparation of a test: an operation that must not fail there gives its value, or the
// test program stops with the operation's own message. Checks of what a test tries use
// QVERIFY instead.
//
//   const qint64 id = Hecho(prueba->almacen().AgregarQSO(q, log));

#include "core/platform/Resultado.h"

#include <QtGlobal>
#include <utility>

template<typename T> T Hecho(Resultado<T> r)
{
    if (!r)
        qFatal("%s", qPrintable(r.Mensaje()));
    return std::move(r.Valor());
}

inline void Hecho(const Resultado<> &r)
{
    if (!r)
        qFatal("%s", qPrintable(r.Mensaje()));
}
