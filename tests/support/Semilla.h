// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The seed of a test's random choices: the one in RADIOLOG_SEMILLA when it is set, a new one
// otherwise, printed either way so that a failure can be run again as it was.
//
//   QRandomGenerator azar(Semilla());

#include <QRandomGenerator>
#include <QtGlobal>

inline quint32 Semilla()
{
    bool leida = false;
    quint32 semilla = qEnvironmentVariable("RADIOLOG_SEMILLA").toUInt(&leida);
    if (!leida)
        semilla = QRandomGenerator::global()->generate();
    qInfo("Semilla %u: RADIOLOG_SEMILLA=%u la repite.", semilla, semilla);
    return semilla;
}
