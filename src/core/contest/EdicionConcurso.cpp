// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/contest/EdicionConcurso.h"

#include "core/rules/Numeros.h"

QStringList RevisarFrecuenciaRegistro(const QString &texto)
{
    const double mhz = NumeroInicial(texto) / 1000.0;
    if (mhz == 0)
        return {QStringLiteral("Ingrese la frecuencia en KHZ!")};
    if (mhz < 1 || mhz > 150)
        return {texto + QStringLiteral(" KHz NO ES BANDA DE CONCURSO!")};
    return {};
}

QStringList RevisarFechaRegistro(const QString &texto)
{
    QStringList mensajes;
    if (texto.size() != 8)
        mensajes << QStringLiteral("Error en la fecha, formato DDMMAAAA!");
    const QString dia = texto.mid(6, 2);
    const double nDia = NumeroInicial(dia), nMes = NumeroInicial(texto.mid(4, 2));
    if (nDia < 1 || nDia > 31)
        mensajes << QStringLiteral("Error en la fecha, día ") + dia + u'!';
    else if (nMes < 1 || nMes > 12)
        mensajes << QStringLiteral("Error en la fecha, mes ") + dia + u'!';
    return mensajes;
}

QStringList RevisarHoraRegistro(const QString &texto)
{
    QStringList mensajes;
    if (texto.size() != 4)
        mensajes << QStringLiteral("Error en la HORA, formato HHMM!");
    const QString horas = texto.left(2), minutos = texto.right(2);
    if (NumeroInicial(horas) > 23)
        mensajes << QStringLiteral("Error en la HORA ") + horas + u'!';
    if (NumeroInicial(minutos) > 59)
        mensajes << QStringLiteral("Error en los MINUTOS ") + minutos + u'!';
    return mensajes;
}

QString TituloRegistro(qint64 id)
{
    return QStringLiteral("Edición de Registro #") + QString::number(id);
}

QString PreguntaEliminarQSOConcurso(const QString &senal)
{
    return QStringLiteral("Elimina el QSO con ") + senal + u'?';
}
