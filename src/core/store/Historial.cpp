// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/store/Historial.h"

QString RellenarIzquierda(const QString &texto, int ancho)
{
    const qsizetype blancos = texto.size() <= ancho ? ancho - texto.size() + 1 : 0;
    return QString(blancos, QLatin1Char(' ')) + texto;
}

QString CabeceraHistorial()
{
    const QStringList columnas{RellenarIzquierda(QStringLiteral("MiCall"), 15),
                               RellenarIzquierda(QStringLiteral("SuCall"), 15),
                               RellenarIzquierda(QStringLiteral("Banda"), 5),
                               RellenarIzquierda(QStringLiteral("Modo"), 5),
                               RellenarIzquierda(QStringLiteral("Fecha"), 7),
                               RellenarIzquierda(QStringLiteral("Hora"), 6)};
    return columnas.join(QLatin1Char(' '));
}

QString LineaHistorial(const FilaQSO &fila)
{
    const QStringList columnas{RellenarIzquierda(fila.MyCall, 15),
                               RellenarIzquierda(fila.Estacion, 15),
                               RellenarIzquierda(fila.Banda, 5),
                               RellenarIzquierda(fila.Modo, 5),
                               QString(fila.Fecha).replace(QLatin1Char('-'), QLatin1Char('/')),
                               fila.Hora};
    return columnas.join(QLatin1Char('|'));
}

QStringList LineasHistorial(const QVector<FilaQSO> &filas)
{
    QStringList lineas;
    lineas.reserve(filas.size() + 1);
    lineas << CabeceraHistorial();
    for (const FilaQSO &f : filas)
        lineas << LineaHistorial(f);
    return lineas;
}

QString MensajeSinQSOs(const QString &senal)
{
    return QStringLiteral("Sin QSOs con ") + senal;
}
