// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// What the program knows of Argentine callsigns: whether a text can be a callsign, the
// letters that carry the district, and the province stored with every QSO. The province
// names are data (the award view counts them), so they are spelled exactly.

#include <QString>
#include <QStringList>
#include <optional>

// True when the text holds at least one digit 0-9 and at least one other character.
// Nothing else is examined: "1A" and "--7" pass, "" does not.
bool EsSenalDistintiva(const QString &texto);

// The stop-box text for a station or operator callsign that fails EsSenalDistintiva.
QString MensajeNoEsSenal(const QString &texto);

// Upper-cases senal in place. nullopt when the callsign is not of Argentine form;
// otherwise the district letters (at most 10 characters, possibly empty):
// "LU1ABC" -> "AB", "LU10ABC" -> "AB", "AY0DXX" -> "DXX", "LU1" -> "", "LU123" -> "23".
std::optional<QString> SufijoArgentino(QString &senal);

// The province of the first letter of a suffix or a portable designator; empty text when
// the letter is not in the table. Only capitals match.
QString ProvinciaDeSufijo(const QString &sufijo);

// Upper-cases senal in place. The province name; empty text when the callsign is not
// Argentine, is /MM or /MA, or its letter is unknown; nullopt when it holds exactly two
// slashes. With one slash the designator after it decides the province.
std::optional<QString> ProvinciaDeSenal(QString &senal);

// What the store writes in Argento for a callsign: ProvinciaDeSenal of a copy, with the
// two-slash answer stored as empty text.
QString ProvinciaParaGuardar(const QString &senal);

// The 25 province names, in the order of the district letters.
const QStringList &NombresProvincias();
