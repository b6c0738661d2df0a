// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// GET over QNetworkAccessManager. Every request ends in exactly one Respondido: the page,
// a failure (network error or an HTTP error status) or TiempoAgotado when the whole
// request outlives its time-out. Deleting the client with requests in flight cancels
// them quietly: no answer comes, nothing is left behind.

#include "core/platform/ClienteWeb.h"

#include <QByteArray>
#include <QHash>

class QNetworkAccessManager;
class QNetworkReply;

class ClienteWebQt : public ClienteWeb
{
    Q_OBJECT
public:
    explicit ClienteWebQt(QObject *parent = nullptr);
    ~ClienteWebQt() override;

    quint64 Pedir(const QUrl &direccion, int tiempoMaximoMs = 15000) override;

private:
    void Terminado(QNetworkReply *respuesta);

    QNetworkAccessManager *red_;
    QHash<QNetworkReply *, quint64> enCurso_;
    quint64 ultimoPedido_ = 0;
    int respondiendo_ = 0;
};

// The page text by the charset its Content-Type names, or failing that its own <?xml
// encoding> or <meta charset>; UTF-8 when nothing is said. Latin-1 labels are read as
// Windows-1252, as browsers do, and bytes that are not UTF-8 at all fall back to it too.
QString DecodificarCuerpo(const QByteArray &cuerpo, const QByteArray &tipoContenido);
