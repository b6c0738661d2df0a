// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/nationallog/SubidaLbN.h"

#include "core/platform/BombaEventos.h"
#include "core/store/Almacen.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QTimer>
#include <optional>

namespace {

// Pumps until the reply of this request, its time-out or a cancel; nothing on a cancel.
// alEsperar gets the seconds waited, about once a second.
std::optional<RespuestaWeb> Esperar(ClienteWeb &web, BombaEventos &bomba, const QUrl &url,
                                    int tiempoMaximoMs, const bool *cancelar,
                                    const std::function<void(int)> &alEsperar)
{
    std::optional<RespuestaWeb> llegada;
    quint64 pedido = 0;
    QObject receptor;
    QObject::connect(&web, &ClienteWeb::Respondido, &receptor,
                     [&](quint64 numero, const RespuestaWeb &r) {
                         if (numero == pedido)
                             llegada = r;
                     });
    pedido = web.Pedir(url, tiempoMaximoMs);
    QElapsedTimer reloj;
    reloj.start();
    int segundos = 0;
    const auto cancelado = [cancelar] { return cancelar && *cancelar; };
    // The first pump may deliver a reply that came at once.
    while (!llegada && !cancelado()) {
        bomba.Bombear();
        if (llegada || cancelado())
            break;
        if (reloj.elapsed() / 1000 > segundos) {
            segundos = static_cast<int>(reloj.elapsed() / 1000);
            if (alEsperar)
                alEsperar(segundos);
        }
        // Sleeps until the next event: the reply, a tick, a click, or the client's time-out.
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return llegada;
}

} // namespace

SubidaLbN::SubidaLbN(ClienteWeb &web, BombaEventos &bomba, QString base, QString usuario,
                     QString clave, Script script, QObject *parent)
    : QObject(parent)
    , web_(web)
    , bomba_(bomba)
    , base_(std::move(base))
    , usuario_(std::move(usuario))
    , clave_(std::move(clave))
    , script_(script)
    , tiempoMaximoMs_(script == Script::Carancho3 ? 15000 : 5000)
{}

QUrl SubidaLbN::Direccion(const EnvioLbN &e) const
{
    return script_ == Script::Carancho3
               ? DireccionCarancho3(base_, usuario_, clave_, e.qso)
               : DireccionCarancho2Radiolog(base_, usuario_, clave_, e.qso, e.qslMsg);
}

std::optional<RespuestaWeb> PedirYEsperar(ClienteWeb &web, BombaEventos &bomba, const QUrl &url,
                                          int tiempoMaximoMs, const bool *cancelar)
{
    return Esperar(web, bomba, url, tiempoMaximoMs, cancelar, {});
}

SubidaLbN::Fin SubidaLbN::Correr(const QVector<EnvioLbN> &envios,
                                 const std::function<void(const PasoSubida &)> &alResponder)
{
    corriendo_ = true;
    cancelada_ = false;
    chequeados = subidos = 0;
    // The least spacing between two requests: a tick of 2 ms must come between them.
    QTimer pulso;
    pulso.setInterval(2);
    connect(&pulso, &QTimer::timeout, this, [this] { pulso_ = true; });
    pulso.start();

    QString textoAnterior;
    Fin fin = Fin::Completa;
    for (int i = 0; i < envios.size(); ++i) {
        if (cancelada_) {
            fin = Fin::Cancelada;
            break;
        }
        const EnvioLbN &e = envios[i];
        PasoSubida paso;
        paso.indice = i + 1;
        paso.id = e.id;
        paso.pedido = Direccion(e);
        pulso_ = false;
        if (alEsperar)
            alEsperar(0);
        const std::optional<RespuestaWeb> r =
            Esperar(web_, bomba_, paso.pedido, tiempoMaximoMs_, &cancelada_, alEsperar);
        if (!r) {
            fin = Fin::Cancelada;
            break;
        }
        paso.respondio = r->Ok() || !r->texto.isEmpty();

        if (script_ == Script::Carancho3) {
            const bool paginaDeError =
                paginaDeError_ && r->texto.toUpper().contains(QLatin1String("ESTE PROGRAMA"));
            if (!r->Ok() || paginaDeError) {
                fin = Fin::SinConexion;
                break;
            }
            const LecturaCarancho3 l =
                LeerCarancho3(r->texto, paso.indice, e.qso.suCall, textoAnterior);
            paso.linea = l.linea;
            paso.estado = l.estado;
            chequeados += l.chequeado;
            subidos += l.subido;
            if (almacen_ && l.estado >= 0) {
                const Resultado<> marca = almacen_->MarcarLbN(e.id, l.estado);
                if (!marca)
                    paso.falloMarca = marca.Mensaje();
            }
            alResponder(paso);
        } else {
            // A server's own error page is its reply; no page at all is told as such.
            const LecturaCarancho2 l = paso.respondio
                                           ? LeerCarancho2Radiolog(r->texto)
                                           : LecturaCarancho2{MensajeSinConexion(), 255, false};
            paso.linea = l.texto;
            paso.color = l.color;
            alResponder(paso);
            if (l.abortar) {
                fin = Fin::Rechazada;
                break;
            }
        }
        while (!pulso_ && !cancelada_) {
            bomba_.Bombear();
            if (!pulso_)
                QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        }
    }
    corriendo_ = false;
    return fin;
}
