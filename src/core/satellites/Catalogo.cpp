// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/satellites/Catalogo.h"

#include "core/platform/ArchivoTexto.h"

#include <QDir>
#include <QFile>

namespace {

// Far beyond any real line: a longer one is not a satellite but a damaged file.
constexpr qsizetype kLargoMaximo = 255;

bool EsTexto(const QString &linea)
{
    for (const QChar c : linea) {
        const char16_t u = c.unicode();
        if (u < 0x20 || (u >= 0x7F && u < 0xA0))
            return false;
    }
    return true;
}

QString Blanco(const QString &campo)
{
    return campo.isEmpty() ? QStringLiteral(" ") : campo;
}

Resultado<> Reescribir(const QString &carpeta, const QString &nombre,
                       const std::optional<Satelite> &nuevo)
{
    Resultado<QStringList> lineas = LineasCatalogo(carpeta);
    if (!lineas)
        return Fallo{lineas.Mensaje()};
    for (qsizetype i = 0; i < lineas->size(); ++i) {
        const std::optional<Satelite> s = LeerSatelite(lineas->at(i));
        if (!s || s->nombre != nombre)
            continue;
        if (nuevo)
            lineas.Valor()[i] = LineaSatelite(*nuevo);
        else
            lineas.Valor().removeAt(i);
        return EscribirLineas(ArchivoSatelites(carpeta), *lineas);
    }
    return Fallo{QStringLiteral("El satélite %1 ya no está en %2.")
                     .arg(nombre, QDir::toNativeSeparators(ArchivoSatelites(carpeta)))};
}

} // namespace

QString ArchivoSatelites(const QString &carpeta)
{
    return QDir(carpeta).filePath(QStringLiteral("satelites.txt"));
}

const QStringList &SatelitesBase()
{
    static const QStringList lineas{
        QStringLiteral("AO-7;70cm;2m;SSB;100.4"), QStringLiteral("AO-73;70cm;2m;SSB; "),
        QStringLiteral("XW-2A;70cm;2m;SSB; "),    QStringLiteral("XW-2B;70cm;2m;SSB; "),
        QStringLiteral("XW-2C;70cm;2m;SSB; "),    QStringLiteral("XW-2D;70cm;2m;SSB; "),
        QStringLiteral("XW-2F;70cm;2m;SSB; "),    QStringLiteral("CAS-4A;70cm;2m;SSB; "),
        QStringLiteral("CAS-4B;70cm;2m;SSB; "),   QStringLiteral("LILACSAT-2;2m;70cm;SSB;"),
        QStringLiteral("FO-29;2m;70cm;SSB; "),    QStringLiteral("SO-50;2m;70cm;FM;67.0"),
        QStringLiteral("AO-85;70cm;2m;FM;67.0"),  QStringLiteral("IO-86;2m;70cm;FM;88.5"),
        QStringLiteral("AO-91;70cm;2m;FM;67.0"),  QStringLiteral("AO-92;70cm;2m;FM;67.0"),
    };
    return lineas;
}

Resultado<> EscribirSatelitesBase(const QString &carpeta)
{
    return EscribirLineas(ArchivoSatelites(carpeta), SatelitesBase());
}

std::optional<Satelite> LeerSatelite(const QString &linea)
{
    if (linea.size() > kLargoMaximo || !EsTexto(linea))
        return std::nullopt;
    // Name, the two bands and the mode end at their ";"; the rest is the subtone, and
    // the frequency when it holds one more ";".
    qsizetype corte[4];
    qsizetype desde = 0;
    for (qsizetype &c : corte) {
        c = linea.indexOf(QLatin1Char(';'), desde);
        if (c < 0)
            return std::nullopt;
        desde = c + 1;
    }
    Satelite s;
    s.nombre = linea.left(corte[0]);
    if (s.nombre.trimmed().isEmpty())
        return std::nullopt;
    s.subida = linea.mid(corte[0] + 1, corte[1] - corte[0] - 1);
    s.bajada = linea.mid(corte[1] + 1, corte[2] - corte[1] - 1);
    s.modo = linea.mid(corte[2] + 1, corte[3] - corte[2] - 1);
    const QString resto = linea.mid(corte[3] + 1);
    const qsizetype punto = resto.indexOf(QLatin1Char(';'));
    s.subtono = punto < 0 ? resto : resto.left(punto);
    if (punto >= 0)
        s.frecuencia = resto.mid(punto + 1);
    return s;
}

QString LineaSatelite(const Satelite &s)
{
    return QStringList{s.nombre, s.subida,          s.bajada,
                       s.modo,   Blanco(s.subtono), Blanco(s.frecuencia)}
        .join(QLatin1Char(';'));
}

Resultado<QStringList> LineasCatalogo(const QString &carpeta)
{
    return LeerLineas(ArchivoSatelites(carpeta));
}

QVector<Satelite> SatelitesDe(const QStringList &lineas)
{
    QVector<Satelite> satelites;
    satelites.reserve(lineas.size());
    for (const QString &linea : lineas)
        if (std::optional<Satelite> s = LeerSatelite(linea))
            satelites.append(std::move(*s));
    return satelites;
}

QVector<Satelite> LeerCatalogo(const QString &carpeta)
{
    return SatelitesDe(LineasCatalogo(carpeta).ValorO({}));
}

std::optional<Satelite> BuscarSatelite(const QString &carpeta, const QString &nombre)
{
    const Resultado<QStringList> lineas = LineasCatalogo(carpeta);
    if (!lineas)
        return std::nullopt;
    for (const QString &linea : *lineas) {
        // Only lines that start with the name are worth cutting into fields.
        if (!linea.startsWith(nombre))
            continue;
        std::optional<Satelite> s = LeerSatelite(linea);
        if (s && s->nombre == nombre)
            return s;
    }
    return std::nullopt;
}

Resultado<> AgregarSatelite(const QString &carpeta, const Satelite &s)
{
    const QString archivo = ArchivoSatelites(carpeta);
    QFile f(archivo);
    if (f.open(QIODevice::ReadWrite)) {
        // A last line written by hand without its line end must not swallow the new one.
        QByteArray linea = A1252(LineaSatelite(s)) + "\r\n";
        if (f.size() > 0 && f.seek(f.size() - 1) && f.read(1) != "\n")
            linea.prepend("\r\n");
        if (f.seek(f.size()) && f.write(linea) == linea.size() && f.flush())
            return {};
    }
    return Fallo{QStringLiteral("No se pudo agregar el satélite a %1.\r\n\r\n%2")
                     .arg(QDir::toNativeSeparators(archivo), f.errorString())};
}

Resultado<> ReemplazarSatelite(const QString &carpeta, const QString &nombre, const Satelite &s)
{
    return Reescribir(carpeta, nombre, s);
}

Resultado<> EliminarSatelite(const QString &carpeta, const QString &nombre)
{
    return Reescribir(carpeta, nombre, std::nullopt);
}
