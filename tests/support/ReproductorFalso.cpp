// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/ReproductorFalso.h"

bool ReproductorFalso::AbrirArchivo(const QString &archivo)
{
    ordenes << QStringLiteral("Abrir ") + archivo;
    posicion = 0;
    if (archivosQueFallan.contains(archivo)) {
        modo = Modo::Cerrado;
        return false;
    }
    modo = Modo::Detenido;
    return true;
}

void ReproductorFalso::Rebobinar()
{
    ordenes << QStringLiteral("Rebobinar");
    posicion = 0;
}

void ReproductorFalso::Reproducir()
{
    ordenes << QStringLiteral("Reproducir");
    if (modo != Modo::Cerrado)
        modo = Modo::Reproduciendo;
}

void ReproductorFalso::Detener()
{
    ordenes << QStringLiteral("Detener");
    if (modo != Modo::Cerrado)
        modo = Modo::Detenido;
}

void ReproductorFalso::Cerrar()
{
    ordenes << QStringLiteral("Cerrar");
    modo = Modo::Cerrado;
    posicion = 0;
}

void ReproductorFalso::Terminar()
{
    posicion = longitud;
    modo = Modo::Detenido;
    Q_EMIT Terminado();
}

void ReproductorFalso::EmitirEstado(qint64 nuevaPosicion)
{
    posicion = nuevaPosicion;
    Q_EMIT Estado(posicion, Longitud());
}
