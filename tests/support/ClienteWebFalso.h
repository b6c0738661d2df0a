// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The web for tests. Records every address asked for and answers, on the next turn of the
// event loop as real answers come, from a table whose keys are a whole address
// ("http://host/a.asp?x=1"), a path with its query ("/a.asp?x=1") or a bare path
// ("/a.asp"), tried in that order. An address in no row fails.

#include "core/platform/ClienteWeb.h"

#include <QHash>
#include <QStringList>

class ClienteWebFalso : public ClienteWeb
{
    Q_OBJECT
public:
    using ClienteWeb::ClienteWeb;

    quint64 Pedir(const QUrl &direccion, int tiempoMaximoMs = 15000) override;
    void Responder(const QString &direccionORuta, const QString &texto);
    QStringList Direcciones() const { return direcciones_; } // as text, in order

private:
    QHash<QString, QString> tabla_;
    QStringList direcciones_;
};
