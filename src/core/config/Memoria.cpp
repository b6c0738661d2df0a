// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/config/Memoria.h"

#include "core/platform/ArchivoTexto.h"
#include "core/rules/Numeros.h"

#include <QDir>

namespace {

QString Ruta(const QString &carpeta, const char *nombre)
{
    return QDir(carpeta).filePath(QString::fromLatin1(nombre));
}

Resultado<> EscribirUna(const QString &carpeta, const char *nombre, const QString &linea)
{
    return EscribirLineas(Ruta(carpeta, nombre), {linea});
}

// The first line of a file that exists; nothing for a missing or empty one.
std::optional<QString> PrimeraLinea(const QString &carpeta, const char *nombre)
{
    const auto lineas = LeerLineas(Ruta(carpeta, nombre));
    if (!lineas || lineas->isEmpty())
        return std::nullopt;
    return lineas->first();
}

int Casilla(const QString &texto)
{
    return NumeroInicial(texto) != 0 ? 1 : 0;
}

} // namespace

Resultado<> GuardarMem(const QString &carpeta, const MemoriaEntrada &m)
{
    return EscribirLineas(Ruta(carpeta, "mem.ini"), {m.mhz + QLatin1Char('.') + m.khz, m.banda,
                                                     QString::number(m.check1), QString()});
}

Resultado<> GuardarMemSalida(const QString &carpeta, const MemoriaEntrada &m)
{
    const Resultado<> escritos[] = {
        EscribirUna(carpeta, "memModo.cfg", m.modo),
        EscribirUna(carpeta, "memMhz.cfg", m.mhz),
        EscribirUna(carpeta, "memKhz.cfg", m.khz),
        EscribirUna(carpeta, "memqSat.cfg", QString::number(m.check2)),
    };
    for (const Resultado<> &r : escritos)
        if (!r)
            return r;
    return {};
}

Resultado<> GuardarMemSat(const QString &carpeta, const QString &satelite)
{
    return EscribirUna(carpeta, "memsat.ini", satelite);
}

QString LeerMemSat(const QString &carpeta)
{
    return PrimeraLinea(carpeta, "memsat.ini").value_or(QString());
}

MemoriaRestaurada RestaurarMemoria(const QString &carpeta)
{
    MemoriaRestaurada r;

    if (const auto mem = LeerLineas(Ruta(carpeta, "mem.ini"))) {
        // Each line that is there gives its field; a short file stops where it ends.
        if (mem->size() >= 1) {
            const QString &frecuencia = mem->at(0);
            const qsizetype punto = frecuencia.indexOf(QLatin1Char('.'));
            // Without a point the megahertz cannot be cut and stays as it was, while
            // the kilohertz are the first three characters of the line.
            if (punto >= 0)
                r.mhz = frecuencia.left(punto);
            r.khz = frecuencia.mid(punto + 1, 3);
        }
        if (mem->size() >= 2)
            r.banda = mem->at(1);
        if (mem->size() >= 3)
            r.check1 = Casilla(mem->at(2));
    } else {
        // With the initial "3" MHz this makes 3.650.
        r.khz = QStringLiteral("650");
    }

    const QString satelite = LeerMemSat(carpeta);
    if (!satelite.isEmpty())
        r.satelite = satelite;

    if (auto v = PrimeraLinea(carpeta, "memModo.cfg"))
        r.modo = *v;
    if (auto v = PrimeraLinea(carpeta, "memMhz.cfg"))
        r.mhz = *v;
    if (auto v = PrimeraLinea(carpeta, "memKhz.cfg"))
        r.khz = *v;
    if (auto v = PrimeraLinea(carpeta, "memqSat.cfg"))
        r.check2 = Casilla(*v);
    return r;
}
