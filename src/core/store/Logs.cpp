// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/store/Logs.h"

QString EntradaDeLog(const QString &nombre, qint64 cantidad)
{
    return nombre + QStringLiteral(" (") + QString::number(cantidad) + QStringLiteral(" QSOs)");
}

QStringList EntradasDeLogs(const QVector<QPair<QString, qint64>> &logs)
{
    QStringList entradas;
    entradas.reserve(logs.size());
    for (const auto &log : logs)
        entradas << EntradaDeLog(log.first, log.second);
    return entradas;
}

QString NombreDeEntrada(const QString &entrada)
{
    const qsizetype corte = entrada.indexOf(QLatin1String(" ("));
    return corte < 0 ? entrada : entrada.left(corte);
}

bool ExisteLog(const QStringList &logs, const QString &nombre)
{
    // Both sides upper-cased: "log a" is "LOG A". This folds at least every letter the
    // store folds, so a name accepted here is never one the store would take for another.
    const QString buscado = nombre.toUpper();
    for (const QString &log : logs) {
        if (log.toUpper() == buscado)
            return true;
    }
    return false;
}

QString MensajeLogExistente(const QString &nombre)
{
    return QStringLiteral("El log ") + nombre + QStringLiteral(" ya existe!");
}

QString PreguntaBorrarLog(const QString &rotuloDelLog)
{
    return QStringLiteral("Esta seguro de borrar ") + rotuloDelLog +
           QStringLiteral("\r\n\r\nlos QSOs no podrán recuperarse!");
}

QString LogTrasBorrar(const QStringList &restantes)
{
    return restantes.isEmpty() ? LogSinNombres() : restantes.first();
}
