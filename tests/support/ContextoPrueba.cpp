// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/ContextoPrueba.h"

#include "core/platform/ClienteWebQt.h"
#include "support/Hecho.h"

#include <QDir>
#include <QFile>

ContextoPrueba::ContextoPrueba(const QString &baseWeb, bool clienteWebReal)
{
    Q_ASSERT(carpeta_.isValid());
    if (!baseWeb.isEmpty()) {
        // servicios.ini is read when the context is made, so it goes first.
        QByteArray ini;
        for (const char *clave : {"LbN", "QRZ", "HamQTH", "Sitio", "AMSAT"})
            ini += QByteArray(clave) + '=' + baseWeb.toUtf8() + "\r\n";
        Escribir(QStringLiteral("servicios.ini"), ini);
    }
    Servicios servicios = falsos.Tomar();
    if (clienteWebReal) {
        servicios.web = std::make_unique<ClienteWebQt>();
        falsos.web = nullptr;
    }
    contexto_ = std::make_unique<Contexto>(carpeta_.path(), std::move(servicios));
    Hecho(contexto_->AbrirAlmacen());
}

ContextoPrueba::~ContextoPrueba() = default;

QString ContextoPrueba::Archivo(const QString &nombre) const
{
    return QDir(carpeta_.path()).filePath(nombre);
}

bool ContextoPrueba::Escribir(const QString &nombre, const QByteArray &contenido) const
{
    QFile f(Archivo(nombre));
    return f.open(QIODevice::WriteOnly | QIODevice::Truncate) &&
           f.write(contenido) == contenido.size();
}

QByteArray ContextoPrueba::Leer(const QString &nombre) const
{
    QFile f(Archivo(nombre));
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}
