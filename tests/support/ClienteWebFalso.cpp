// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/ClienteWebFalso.h"

#include <QTimer>

quint64 ClienteWebFalso::Pedir(const QUrl &direccion, int)
{
    direcciones_ << direccion.toString();
    const quint64 numero = direcciones_.size();
    const QString ruta = direccion.path();
    RespuestaWeb r;
    for (const QString &clave :
         {direccion.toString(), direccion.toString(QUrl::FullyEncoded),
          direccion.hasQuery() ? ruta + u'?' + direccion.query() : ruta, ruta}) {
        if (const auto it = tabla_.constFind(clave); it != tabla_.constEnd()) {
            r.resultado = RespuestaWeb::Resultado::Bien;
            r.texto = it.value();
            break;
        }
    }
    QTimer::singleShot(0, this, [this, numero, r] { Q_EMIT Respondido(numero, r); });
    return numero;
}

void ClienteWebFalso::Responder(const QString &direccionORuta, const QString &texto)
{
    tabla_.insert(direccionORuta, texto);
}
