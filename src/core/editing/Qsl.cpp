// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/editing/Qsl.h"

#include "core/platform/ArchivoTexto.h"

#include <QDir>
#include <QFile>

namespace {

QString DesdeInicio(const QString &ruta)
{
    return QDir::isRelativePath(ruta) ? QDir::home().filePath(ruta) : ruta;
}

QString SinBarras(const QString &fecha)
{
    return QString(fecha).remove(QLatin1Char('/'));
}

} // namespace

QString AjustesTordos::Disenos() const
{
    return QDir(carpeta).filePath(QStringLiteral("MisQSLs"));
}

QString AjustesTordos::Salida() const
{
    return QDir(carpeta).filePath(QStringLiteral("Salida"));
}

AjustesTordos AjustesTordos::PorDefecto()
{
    AjustesTordos a;
    a.carpeta = QDir::home().filePath(QStringLiteral("Tordos"));
    a.programa = QDir(a.carpeta).filePath(QStringLiteral("Tordos"));
    return a;
}

AjustesTordos AjustesTordos::Leer(const QString &carpetaPrograma)
{
    AjustesTordos a = PorDefecto();
    QFile f(QDir(carpetaPrograma).filePath(QStringLiteral("tordos.ini")));
    if (!f.open(QIODevice::ReadOnly))
        return a;
    // Paths are names of this machine's files, so the file is read as UTF-8, like them.
    QString carpeta, programa;
    const QStringList lineas = QString::fromUtf8(f.readAll()).split(QLatin1Char('\n'));
    for (const QString &cruda : lineas) {
        const QString linea = cruda.trimmed();
        const qsizetype igual = linea.indexOf(QLatin1Char('='));
        if (igual <= 0)
            continue;
        const QString clave = linea.left(igual).trimmed();
        const QString valor = linea.mid(igual + 1).trimmed();
        if (valor.isEmpty())
            continue;
        if (clave.compare(QLatin1String("Carpeta"), Qt::CaseInsensitive) == 0)
            carpeta = DesdeInicio(valor);
        else if (clave.compare(QLatin1String("Programa"), Qt::CaseInsensitive) == 0)
            programa = DesdeInicio(valor);
    }
    if (!carpeta.isEmpty()) {
        a.carpeta = carpeta;
        a.programa = QDir(carpeta).filePath(QStringLiteral("Tordos"));
    }
    if (!programa.isEmpty())
        a.programa = programa;
    return a;
}

std::optional<QString> BuscarDisenoQsl(const QString &carpetaDisenos, const QString &miSenal)
{
    const QDir carpeta(carpetaDisenos);
    if (carpetaDisenos.isEmpty() || !carpeta.exists())
        return std::nullopt;
    const QStringList archivos = carpeta.entryList(
        {QStringLiteral("*.qsl")}, QDir::Files | QDir::Readable, QDir::Name | QDir::IgnoreCase);
    const QString clave = QStringLiteral("SuCall=");
    for (const QString &nombre : archivos) {
        const QString ruta = carpeta.filePath(nombre);
        const auto lineas = LeerLineas(ruta);
        if (!lineas)
            continue;
        for (const QString &linea : *lineas) {
            const qsizetype i = linea.indexOf(clave);
            if (i >= 0 && linea.mid(i + clave.size()) == miSenal)
                return ruta;
        }
    }
    return std::nullopt;
}

QString TextoComandoQsl(const DatosQsl &d)
{
    return QStringLiteral("Tordo$de=") + d.de + QStringLiteral("$para=") + d.para +
           QStringLiteral("$fecha=") + d.fecha + QStringLiteral("$hora=") + d.hora +
           QStringLiteral("$modo=") + d.modo + QStringLiteral("$banda=") + d.banda +
           QStringLiteral("$reporte=") + d.reporte + QStringLiteral("$sat=") + d.sat.toUpper() +
           QStringLiteral("$nota=") + d.nota;
}

QStringList ArgumentosQsl(const DatosQsl &datos)
{
    return {TextoComandoQsl(datos)};
}

QString NombreImagenQsl(const QString &para, const QString &fecha)
{
    return QString(para).replace(QLatin1Char('/'), QLatin1Char('_')) + QLatin1Char('_') +
           SinBarras(fecha) + QStringLiteral(".jpg");
}

QString PreguntaVerQsl(const QString &para, const QString &fecha, const QString &salida)
{
    return QStringLiteral("QSL ") + para + QLatin1Char('_') + SinBarras(fecha) +
           QStringLiteral(".jpg guardada en ") + salida + QStringLiteral("/\r\n\r\nDesea verla?");
}
