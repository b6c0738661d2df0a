// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/platform/EscritorioQt.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QProcess>
#include <QRegularExpression>

QUrl DireccionParaAbrir(const QString &direccionOArchivo)
{
    const QString texto = direccionOArchivo.trimmed();
    if (texto.isEmpty())
        return {};
    // A scheme is two letters or more, so that a "C:\…" of an old configuration is never
    // taken for one.
    static const QRegularExpression esquema(QStringLiteral("^[A-Za-z][A-Za-z0-9+.-]+:"));
    if (esquema.match(texto).hasMatch())
        return QUrl(texto, QUrl::TolerantMode);
    if (texto.startsWith(QLatin1String("www."), Qt::CaseInsensitive))
        return QUrl(QStringLiteral("http://") + texto, QUrl::TolerantMode);
    return QUrl::fromLocalFile(QFileInfo(texto).absoluteFilePath());
}

bool EscritorioQt::Abrir(const QString &direccionOArchivo)
{
    const QUrl url = DireccionParaAbrir(direccionOArchivo);
    if (!url.isValid() || url.isEmpty())
        return false;
    return QDesktopServices::openUrl(url);
}

bool EscritorioQt::IniciarPrograma(const QString &programa, const QStringList &argumentos,
                                   const QString &carpetaTrabajo)
{
    if (programa.trimmed().isEmpty())
        return false;
    return QProcess::startDetached(programa, argumentos, carpetaTrabajo);
}
