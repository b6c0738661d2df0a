// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// What the benchmarks share: the QSOs of a large made-up log, and the size argument.

#include "core/platform/Resultado.h"
#include "core/store/RegistroQSO.h"

#include <QDate>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <utility>
#include <vector>

// A step of the preparation that must not fail: its value, or the run stops with its
// message (figures over a half-built log would mislead).
template<typename T> T Exigir(Resultado<T> r)
{
    if (!r) {
        std::fprintf(stderr, "%s\n", qPrintable(r.Mensaje()));
        std::exit(1);
    }
    return std::move(r.Valor());
}

inline void Exigir(const Resultado<> &r)
{
    if (!r) {
        std::fprintf(stderr, "%s\n", qPrintable(r.Mensaje()));
        std::exit(1);
    }
}

// Row i: three QSOs a minute from 2005 on, 10 call areas and 26^3 suffixes, so that a
// callsign has a handful of QSOs in a million and a four-character prefix some thousands.
inline RegistroQSO QsoDePrueba(qint64 i)
{
    // The date text is made once per day: the generator must not dominate the insert.
    static const QDate inicio(2005, 1, 1);
    static qint64 diaHecho = -1;
    static QString fecha;
    const qint64 minuto = i / 3;
    if (minuto / 1440 != diaHecho) {
        diaHecho = minuto / 1440;
        fecha = inicio.addDays(diaHecho).toString(QStringLiteral("dd/MM/yyyy"));
    }
    RegistroQSO q;
    const int n = int(i * 7919 % (10 * 26 * 26 * 26));
    const char16_t senal[] = {u'L',
                              u'U',
                              char16_t(u'0' + n % 10),
                              char16_t(u'A' + n / 10 % 26),
                              char16_t(u'A' + n / 260 % 26),
                              char16_t(u'A' + n / 6760 % 26)};
    q.Estacion = QString::fromUtf16(senal, 6);
    q.Banda = QStringLiteral("40m");
    q.Modo = (i % 3) ? QStringLiteral("SSB") : QStringLiteral("CW");
    q.RSE = QStringLiteral("59");
    q.RSR = QStringLiteral("57");
    q.Fecha = fecha;
    q.Hora = QStringLiteral("%1:%2:00")
                 .arg(minuto % 1440 / 60, 2, 10, QLatin1Char('0'))
                 .arg(minuto % 60, 2, 10, QLatin1Char('0'));
    q.MyCall = QStringLiteral("LU9DCE");
    q.Operador = QStringLiteral("LU9DCE");
    q.Frecuencia = QStringLiteral("7.150");
    q.MiGrid = QStringLiteral("GF05");
    return q;
}

// The size is the first argument that is not a flag of the benchmark library; the flags
// are left in `resto` for it.
inline long long TamanoPedido(int argc, char **argv, long long porDefecto,
                              std::vector<char *> &resto)
{
    long long tamano = porDefecto;
    for (int i = 0; i < argc; ++i) {
        if (i > 0 && argv[i][0] != '-')
            tamano = std::max(1LL, std::atoll(argv[i]));
        else
            resto.push_back(argv[i]);
    }
    return tamano;
}
