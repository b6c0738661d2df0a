// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The satellite catalogue: satelites.txt in the program folder, one satellite a line,
// fields joined by ";": name, uplink band, downlink band, mode, subtone and, on the lines
// the editor writes, the uplink frequency. The file is the catalogue: nothing mirrors it,
// and whoever needs it reads it again.
//
// The readers are tolerant: a line they cannot take (fewer than four ";", no name, far too
// long, or with control characters in it) is left out of every list, but stays in the file
// as it was: the file is only rewritten when the operator changes a satellite.

#include "core/platform/Resultado.h"

#include <QString>
#include <QStringList>
#include <QVector>
#include <optional>

struct Satelite
{
    QString nombre;
    QString subida;     // uplink band: "2m", "70cm" or "23cm"
    QString bajada;     // downlink band
    QString modo;       // "FM" or "SSB"
    QString subtono;    // in hertz; a blank where there is none
    QString frecuencia; // uplink, "MMM.KKK" ("MMMM.KKK" for 23 cm); may be empty or a blank
};

QString ArchivoSatelites(const QString &carpeta);

// The list a new program folder starts with.
const QStringList &SatelitesBase();
// Writes that list, replacing the file.
Resultado<> EscribirSatelitesBase(const QString &carpeta);

// A line as the readers take it: the fifth field runs to the next ";" or to the end of
// the line, and the frequency is whatever follows that ";". Nothing for a line they leave
// out.
std::optional<Satelite> LeerSatelite(const QString &linea);
// The six fields of a line the editor writes.
QString LineaSatelite(const Satelite &s);

// The file's lines, read now.
Resultado<QStringList> LineasCatalogo(const QString &carpeta);
// The satellites of those lines, in file order.
QVector<Satelite> SatelitesDe(const QStringList &lineas);
// The catalogue read now; a missing or unreadable file gives an empty list.
QVector<Satelite> LeerCatalogo(const QString &carpeta);
// The first satellite of that name in the file read now.
std::optional<Satelite> BuscarSatelite(const QString &carpeta, const QString &nombre);

// The editor's changes. Each reads the file again and writes it whole (adding only
// appends), so lines the readers leave out are kept. Replacing and deleting act on the
// first satellite of that name.
Resultado<> AgregarSatelite(const QString &carpeta, const Satelite &s);
Resultado<> ReemplazarSatelite(const QString &carpeta, const QString &nombre, const Satelite &s);
Resultado<> EliminarSatelite(const QString &carpeta, const QString &nombre);
