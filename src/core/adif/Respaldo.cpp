// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/adif/Respaldo.h"

#include "core/store/Almacen.h"

#include <QDir>
#include <QFile>
#include <QStringList>
#include <cerrno>
#include <cstdio>
#include <cstring>

QString ArchivoRespaldo(const QString &carpeta, const QDate &hoy)
{
    return carpeta + QStringLiteral("/base0_") + hoy.toString(QStringLiteral("dd_MM_yy")) +
           QStringLiteral(".db");
}

Resultado<QString> RespaldarBase(Almacen &almacen, const QString &carpeta, const QDate &hoy)
{
    const QString destino = ArchivoRespaldo(carpeta, hoy);
    const QString temporal = destino + QStringLiteral(".tmp");
    const auto fallo = [](const QString &causa) {
        return Fallo{QStringLiteral("Operation Failed\r\n\r\n") + causa};
    };
    // A temporary file left by a copy that was cut short is of no use to anyone.
    QFile::remove(temporal);
    if (const Resultado<> r = almacen.CopiarBase(temporal); !r) {
        QFile::remove(temporal);
        return fallo(r.Mensaje());
    }
    // rename() puts the new copy in place of the old in one step, whatever held the name.
    if (std::rename(QFile::encodeName(temporal).constData(),
                    QFile::encodeName(destino).constData()) != 0) {
        const QString causa = QString::fromLocal8Bit(std::strerror(errno));
        QFile::remove(temporal);
        return fallo(QStringLiteral("No se pudo crear %1.\r\n\r\n%2")
                         .arg(QDir::toNativeSeparators(destino), causa));
    }
    return destino;
}

QStringList LogsParaRespaldo::Lineas() const
{
    QStringList lineas;
    for (const auto &[nombre, qsos] : logs)
        lineas << nombre + QStringLiteral(" (") + QString::number(qsos) + QStringLiteral(" QSOs)");
    return lineas;
}

LogsParaRespaldo LeerLogsParaRespaldo(Almacen &almacen)
{
    LogsParaRespaldo r;
    for (const auto &log : almacen.LogsConCantidad()) {
        if (log.first.isEmpty())
            continue;
        r.logs.append(log);
        r.total += log.second;
    }
    return r;
}

bool AvisarRespaldoGrande(qint64 total)
{
    return total > 10000;
}

QString MensajeRespaldoGrande()
{
    return QStringLiteral("El ADIF tiene mas de 10.000 QSOs!\r\nNo podrá ser importado a Carancho "
                          "Radiolog, si para\r\nalgún otro logger. Haga BackUp de la base.");
}
