// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// "Actualizaciones": the program's version against the one published on the maker's site,
// the first line of /assets/radiolog/version.dat, kept in webo.txt in the program folder.
//
// A version is three numbers split at its first two points, each read by its leading
// number ("2.1.03 (Beta)" is 2, 1, 3). Each number is compared on its own, and any one
// lower than the site's says the program is out of date, so 2.2.01 against 2.1.03 is out of
// date too: the maker's site has always been read this way, and is kept so.

#include "core/platform/Resultado.h"

#include <QObject>
#include <QString>
#include <functional>
#include <optional>

class ClienteWeb;
struct RespuestaWeb;

struct PartesVersion
{
    double primera = 0, segunda = 0, tercera = 0;
};

// Nothing when the text lacks its two points (the second looked for in the ten characters
// after the first).
std::optional<PartesVersion> PartirVersion(const QString &texto);
bool DebeActualizar(const PartesVersion &propia, const PartesVersion &web);
// The text of the box; empty when either version lacks its points: then nothing is said.
QString MensajeVersion(const QString &propia, const QString &web);

// What one reply of the site comes to, with webo.txt written and read back on the way:
// the box's text (empty: nothing to say), or a failure with the reason for the stop box.
Resultado<QString> LeerRespuestaVersion(const RespuestaWeb &respuesta, const QString &sitio,
                                        const QString &carpeta, const QString &versionPrograma);

// One check at a time: asking again while one is on its way does nothing.
class ChequeoVersion : public QObject
{
    Q_OBJECT
public:
    ChequeoVersion(ClienteWeb &web, QString sitio, QString carpeta, QString versionPrograma,
                   int tiempoMaximoMs = 15000, QObject *parent = nullptr);

    static QString Ruta() { return QStringLiteral("/assets/radiolog/version.dat"); }
    // The answer comes to alTerminar once the site has answered or failed.
    void Consultar(std::function<void(const Resultado<QString> &)> alTerminar);
    bool EnCurso() const { return esperando_; }

private:
    ClienteWeb &web_;
    QString sitio_, carpeta_, version_;
    int tiempoMaximoMs_;
    bool esperando_ = false;
    quint64 pedido_ = 0;
    std::function<void(const Resultado<QString> &)> alTerminar_;
};
