#pragma once
// The desktop for tests: records what would open and what would start.

#include "core/platform/Escritorio.h"

#include <QVector>

class EscritorioFalso : public Escritorio
{
public:
    struct Programa
    {
        QString programa;
        QStringList argumentos;
        QString carpetaTrabajo;
    };

    bool Abrir(const QString &direccionOArchivo) override
    {
        abiertos << direccionOArchivo;
        return exito;
    }
    bool IniciarPrograma(const QString &programa, const QStringList &argumentos,
                         const QString &carpetaTrabajo = {}) override
    {
        programas.append({programa, argumentos, carpetaTrabajo});
        return exito;
    }

    QStringList abiertos;
    QVector<Programa> programas;
    bool exito = true; // the answer of both calls
};
