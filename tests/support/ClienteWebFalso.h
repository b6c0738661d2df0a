#pragma once
// The web for tests. Records every address asked for and answers from a table whose keys
// are a whole address ("http://host/a.asp?x=1"), a path with its query ("/a.asp?x=1") or
// a bare path ("/a.asp"), tried in that order. An address in no row fails. Answers come
// on the next turn of the event loop, as real ones do, unless `sincronico` is set; then
// Respondido is emitted before Pedir returns (with the number Pedir is about to return).

#include "core/platform/ClienteWeb.h"

#include <QHash>
#include <QVector>
#include <optional>

class ClienteWebFalso : public ClienteWeb
{
    Q_OBJECT
public:
    using ClienteWeb::ClienteWeb;

    quint64 Pedir(const QUrl &direccion, int tiempoMaximoMs = 15000) override;

    void Responder(const QString &direccionORuta, const QString &texto);
    void Fallar(const QString &direccionORuta, const QString &texto = {});
    void AgotarTiempo(const QString &direccionORuta);
    void NuncaResponder(const QString &direccionORuta);
    // The answer of an address that is in no row (Fallo by default).
    RespuestaWeb porDefecto;

    struct Pedido
    {
        quint64 numero;
        QUrl direccion;
        int tiempoMaximoMs;
    };
    QVector<Pedido> pedidos;
    QStringList Direcciones() const; // the addresses asked for, as text, in order
    bool sincronico = false;

private:
    // nullopt = never answers
    QHash<QString, std::optional<RespuestaWeb>> tabla_;
    quint64 ultimo_ = 0;
};
