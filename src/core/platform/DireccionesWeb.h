// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Base addresses of the web services. Defaults are constants here; a servicios.ini in
// the program folder (LbN=, QRZ=, HamQTH=, Sitio=, AMSAT=) overrides any of them, so an
// operator can point at a mirror and a test at its loopback server.

#include <QString>

struct DireccionesWeb
{
    QString LbN;
    QString QRZ;
    QString HamQTH;
    QString Sitio;
    QString AMSAT;

    static DireccionesWeb PorDefecto();
    // Defaults overridden by the file when it exists; a missing file changes nothing.
    static DireccionesWeb Leer(const QString &archivoServicios);
};
