// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/platform/DireccionesWeb.h"

#include <QFile>

DireccionesWeb DireccionesWeb::PorDefecto()
{
    DireccionesWeb d;
    d.LbN = QStringLiteral("http://www.libronacional.com.ar");
    d.QRZ = QStringLiteral("https://xmldata.qrz.com");
    d.HamQTH = QStringLiteral("https://www.hamqth.com");
    d.Sitio = QStringLiteral("http://www.caranchoradiolog.com.ar");
    d.AMSAT = QStringLiteral("http://www.amsat.org.ar");
    return d;
}

DireccionesWeb DireccionesWeb::Leer(const QString &archivoServicios)
{
    DireccionesWeb d = PorDefecto();
    QFile f(archivoServicios);
    if (!f.open(QIODevice::ReadOnly))
        return d;
    const auto lineas = QString::fromLatin1(f.readAll()).split(QLatin1Char('\n'));
    for (QString linea : lineas) {
        linea = linea.trimmed();
        const int igual = linea.indexOf(QLatin1Char('='));
        if (igual <= 0)
            continue;
        const QString clave = linea.left(igual).trimmed();
        QString valor = linea.mid(igual + 1).trimmed();
        while (valor.endsWith(QLatin1Char('/')))
            valor.chop(1);
        if (valor.isEmpty())
            continue;
        if (clave.compare(QLatin1String("LbN"), Qt::CaseInsensitive) == 0)
            d.LbN = valor;
        else if (clave.compare(QLatin1String("QRZ"), Qt::CaseInsensitive) == 0)
            d.QRZ = valor;
        else if (clave.compare(QLatin1String("HamQTH"), Qt::CaseInsensitive) == 0)
            d.HamQTH = valor;
        else if (clave.compare(QLatin1String("Sitio"), Qt::CaseInsensitive) == 0)
            d.Sitio = valor;
        else if (clave.compare(QLatin1String("AMSAT"), Qt::CaseInsensitive) == 0)
            d.AMSAT = valor;
    }
    return d;
}
