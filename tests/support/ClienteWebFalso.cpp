#include "support/ClienteWebFalso.h"

#include <QTimer>

quint64 ClienteWebFalso::Pedir(const QUrl &direccion, int tiempoMaximoMs)
{
    const quint64 numero = ++ultimo_;
    pedidos.append({numero, direccion, tiempoMaximoMs});

    const QString ruta = direccion.path();
    const QString rutaConsulta =
        direccion.hasQuery() ? ruta + QLatin1Char('?') + direccion.query() : ruta;
    std::optional<RespuestaWeb> respuesta = porDefecto;
    for (const QString &clave :
         {direccion.toString(), direccion.toString(QUrl::FullyEncoded), rutaConsulta, ruta}) {
        const auto it = tabla_.constFind(clave);
        if (it != tabla_.constEnd()) {
            respuesta = it.value();
            break;
        }
    }
    if (!respuesta)
        return numero;
    if (sincronico) {
        Q_EMIT Respondido(numero, *respuesta);
    } else {
        QTimer::singleShot(0, this,
                           [this, numero, r = *respuesta] { Q_EMIT Respondido(numero, r); });
    }
    return numero;
}

void ClienteWebFalso::Responder(const QString &direccionORuta, const QString &texto)
{
    RespuestaWeb r;
    r.resultado = RespuestaWeb::Resultado::Bien;
    r.texto = texto;
    tabla_.insert(direccionORuta, r);
}

void ClienteWebFalso::Fallar(const QString &direccionORuta, const QString &texto)
{
    RespuestaWeb r;
    r.resultado = RespuestaWeb::Resultado::Fallo;
    r.texto = texto;
    tabla_.insert(direccionORuta, r);
}

void ClienteWebFalso::AgotarTiempo(const QString &direccionORuta)
{
    RespuestaWeb r;
    r.resultado = RespuestaWeb::Resultado::TiempoAgotado;
    tabla_.insert(direccionORuta, r);
}

void ClienteWebFalso::NuncaResponder(const QString &direccionORuta)
{
    tabla_.insert(direccionORuta, std::nullopt);
}

QStringList ClienteWebFalso::Direcciones() const
{
    QStringList lista;
    for (const auto &p : pedidos)
        lista << p.direccion.toString();
    return lista;
}
