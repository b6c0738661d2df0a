// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/online/Presencia.h"

#include "core/platform/ClienteWeb.h"

#include <utility>

Presencia::Presencia(ClienteWeb &web, QString sitio, QString version)
    : web_(web)
    , sitio_(std::move(sitio))
    , version_(std::move(version))
{}

QString Presencia::Direccion(const QString &senal, const QString &comando) const
{
    return sitio_ + QStringLiteral("/carancho.php?qrz=") + senal +
           QStringLiteral("&prog=Carancho Radiolog 2") + QStringLiteral("&ver=") + version_ +
           QStringLiteral("&comando=") + comando;
}

void Presencia::Visitar()
{
    Pedir(sitio_ + QLatin1Char('/'));
}

bool Presencia::Avisar(const QString &senal, const QString &comando)
{
    Pedir(pagina_);
    if (senal.isEmpty())
        return false;
    Pedir(Direccion(senal, comando));
    return true;
}

void Presencia::Pedir(const QString &direccion)
{
    if (direccion.isEmpty())
        return;
    pagina_ = direccion;
    web_.Pedir(QUrl(direccion));
}
