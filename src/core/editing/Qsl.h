// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Handing a QSO to the QSL-card designer Tordos, a program of its own: where it lives,
// which of its card designs belongs to the station, and the command line that asks it
// to draw the card. Nothing in the log changes.

#include <QString>
#include <QStringList>
#include <optional>

// Where the designer lives. By default a "Tordos" folder in the home folder, with the
// program "Tordos" in it, the card designs in "MisQSLs" and the finished cards in
// "Salida". An optional tordos.ini in the program folder moves them:
//   Carpeta=/opt/tordos        (the designs and the cards are looked for inside it)
//   Programa=/opt/tordos/run.sh (the program itself, when it is not Carpeta/Tordos)
struct AjustesTordos
{
    QString carpeta;
    QString programa;

    QString Disenos() const; // Carpeta/MisQSLs
    QString Salida() const;  // Carpeta/Salida, without the last '/'

    static AjustesTordos PorDefecto();
    // The defaults, with what tordos.ini of that program folder says over them. A missing
    // or unreadable file leaves the defaults; a relative path is taken from the home folder.
    static AjustesTordos Leer(const QString &carpetaPrograma);
};

// The first design (a "*.qsl" file of the folder, in name order) with a line that holds
// "SuCall=" followed by exactly the own callsign. The path of that file, or nullopt.
std::optional<QString> BuscarDisenoQsl(const QString &carpetaDisenos, const QString &miSenal);

// What the card says, as the edit window holds it.
struct DatosQsl
{
    QString de;    // own callsign
    QString para;  // correspondent
    QString fecha; // "dd/mm/yyyy"
    QString hora;
    QString modo;
    QString banda;
    QString reporte; // report sent
    QString sat;     // satellite name, upper-cased here
    QString nota;    // remarks
};

// The keys the designer reads, "Tordo$de=…$para=…$…$nota=…", each value right after its
// key and nothing quoted: a '$' in the remarks reads as a separator, as it always has.
QString TextoComandoQsl(const DatosQsl &datos);
// The arguments of the designer's process: the key text as one argument, so that blanks
// in the remarks do not cut it.
QStringList ArgumentosQsl(const DatosQsl &datos);

// The card's picture: the correspondent with '/' as '_', '_', the date without '/',
// ".jpg": LU1ABC/P on 15/03/2024 is "LU1ABC_P_15032024.jpg".
QString NombreImagenQsl(const QString &para, const QString &fecha);
// The question after the start, naming the card as the designer is asked to save it.
QString PreguntaVerQsl(const QString &para, const QString &fecha, const QString &salida);
