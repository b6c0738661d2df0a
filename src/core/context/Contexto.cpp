// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/context/Contexto.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>
#include <QTemporaryFile>

Contexto::Contexto(const QString &carpetaPrograma, Servicios servicios)
    : carpeta_(carpetaPrograma)
    , servicios_(std::move(servicios))
{
    QDir().mkpath(carpeta_);
    Terminar = [](int codigo) { QCoreApplication::exit(codigo); };
    direcciones_ = DireccionesWeb::Leer(Archivo(QStringLiteral("servicios.ini")));
}

Contexto::~Contexto() = default;

QString Contexto::CarpetaPorDefecto()
{
    QString base = qEnvironmentVariable("XDG_DATA_HOME");
    if (base.isEmpty())
        base = QDir::homePath() + QStringLiteral("/.local/share");
    return base + QStringLiteral("/carancho-radiolog");
}

QString Contexto::Archivo(const QString &nombre) const
{
    return QDir(carpeta_).filePath(nombre);
}

QString Contexto::ArchivoAyuda() const
{
    QStringList carpetas{carpeta_};
    for (const QString &datos :
         QStandardPaths::standardLocations(QStandardPaths::GenericDataLocation))
        carpetas << datos + QStringLiteral("/carancho-radiolog");
    const QString programa = QCoreApplication::applicationDirPath();
    carpetas << programa + QStringLiteral("/../share/carancho-radiolog") << programa;
    for (const QString &carpeta : carpetas) {
        const QFileInfo manual(QDir(carpeta), QStringLiteral("AyudaRadiolog2.pdf"));
        if (manual.isFile() && manual.isReadable())
            return QDir::cleanPath(manual.absoluteFilePath());
    }
    return {};
}

Resultado<> Contexto::PrepararCarpeta() const
{
    if (!QDir().mkpath(carpeta_))
        return Fallo{QStringLiteral("No se puede crear la carpeta del programa:\r\n\r\n") +
                     carpeta_};
    QTemporaryFile prueba(Archivo(QStringLiteral("prueba_XXXXXX")));
    if (!prueba.open())
        return Fallo{QStringLiteral("No se puede escribir en la carpeta del programa:\r\n\r\n") +
                     carpeta_ + QStringLiteral("\r\n\r\n") + prueba.errorString()};
    return {};
}

void Contexto::LeerConfiguracion()
{
    ::LeerConfiguracion(Archivo(QStringLiteral("config.ini")), config_, LogenUso);
}

Resultado<> Contexto::GuardarConfiguracion()
{
    return ::GuardarConfiguracion(Archivo(QStringLiteral("config.ini")), config_, LogenUso);
}

Resultado<> Contexto::AbrirAlmacen()
{
    return almacen_.Abrir(Archivo(QStringLiteral("base0.db")));
}
