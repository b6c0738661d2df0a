// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Tells the maker's site that the program runs: "on" a little after the start, "off" at
// the close. Each message goes in two steps, some seconds apart, as the site has always
// been visited: first its root, then that page again followed by the presence script with
// the station's callsign. A station with no callsign sends no script. The requests are
// fired and forgotten; a failure goes unnoticed and never holds the program up.

#include <QString>

class ClienteWeb;

class Presencia
{
public:
    // sitio: the base address of the maker's site; version: the program's, as shown.
    Presencia(ClienteWeb &web, QString sitio, QString version);

    // The script's address for a callsign and a command ("on" or "off").
    QString Direccion(const QString &senal, const QString &comando) const;
    // First step: the site's root.
    void Visitar();
    // Second step: the page visited last, again, then the script when there is a
    // callsign. True when the script was asked for.
    bool Avisar(const QString &senal, const QString &comando);

private:
    void Pedir(const QString &direccion);

    ClienteWeb &web_;
    QString sitio_;
    QString version_;
    QString pagina_; // the page visited last, which the second step asks for again
};
