// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// GET of an address, with the page text or a failure as the answer. A request that
// takes longer than its time-out is a failure of its own kind, never a hang.

#include <QObject>
#include <QString>
#include <QUrl>

struct RespuestaWeb
{
    enum class Resultado { Bien, Fallo, TiempoAgotado };
    Resultado resultado = Resultado::Fallo;
    QString texto;  // the page, decoded (UTF-8, or Latin-1 when the page says so)
    int estado = 0; // the HTTP status; 0 when no answer came (no connection, time-out)
    bool Ok() const { return resultado == Resultado::Bien; }
};

class ClienteWeb : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;
    ~ClienteWeb() override = default;

    // Starts a GET and returns its number; the answer comes by Respondido.
    // Fire and forget is fine: nobody has to listen.
    virtual quint64 Pedir(const QUrl &direccion, int tiempoMaximoMs = 15000) = 0;

Q_SIGNALS:
    void Respondido(quint64 pedido, const RespuestaWeb &respuesta);
};
