// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/lookup/Consultas.h"

#include "core/config/Configuracion.h"
#include "core/nationallog/ProtocoloLbN.h"
#include "core/platform/Dialogos.h"

namespace {

const QString kFin = QStringLiteral("\r\n");

// A line of the panel when its tag is there: prefix and value, upper-cased when asked.
QString Linea(const QString &texto, const QString &etiqueta, const QString &prefijo = {},
              bool mayusculas = false)
{
    const std::optional<QString> v = CortarEtiqueta(texto, etiqueta);
    if (!v)
        return {};
    return prefijo + (mayusculas ? v->toUpper() : *v) + kFin;
}

} // namespace

std::optional<QString> CortarEtiqueta(const QString &texto, const QString &etiqueta)
{
    const QString abre = QLatin1Char('<') + etiqueta + QLatin1Char('>');
    const QString cierra = QStringLiteral("</") + etiqueta + QLatin1Char('>');
    const int fin = texto.indexOf(cierra);
    if (fin < 0)
        return std::nullopt;
    // Only the closing tag is looked for: without its opening, the cut starts where an
    // opening at the very top would have ended.
    const int abierta = texto.indexOf(abre);
    const int inicio = abierta < 0 ? abre.size() - 1 : abierta + abre.size();
    if (fin < inicio)
        return std::nullopt;
    return texto.mid(inicio, fin - inicio);
}

QString TextoQRZ(const QString &r, const QString &senal)
{
    const QString llamada = Linea(r, QStringLiteral("call"), {}, true);
    if (llamada.isEmpty())
        return senal + QStringLiteral(" No está en QRZ.com!");
    const QString cuenta = Linea(r, QStringLiteral("Count"), {}, true);
    const QString alias = Linea(r, QStringLiteral("aliases"), QStringLiteral("Alias: "), true);
    const auto nombre = CortarEtiqueta(r, QStringLiteral("fname"));
    const auto apellido = CortarEtiqueta(r, QStringLiteral("name"));
    QString nombres;
    if (nombre || apellido)
        nombres = nombre.value_or(QString()) +
                  (apellido ? QLatin1Char(' ') + *apellido : QString()) + kFin;
    return llamada + cuenta + alias + nombres + Linea(r, QStringLiteral("addr1")) +
           Linea(r, QStringLiteral("addr2")) +
           Linea(r, QStringLiteral("state"), QStringLiteral("Estado: ")) +
           Linea(r, QStringLiteral("country")) +
           Linea(r, QStringLiteral("zip"), QStringLiteral("ZIP: ")) +
           Linea(r, QStringLiteral("grid"), QStringLiteral("Grid Locator: ")) +
           Linea(r, QStringLiteral("email"), QStringLiteral("email: ")) +
           Linea(r, QStringLiteral("url"), QStringLiteral("web: ")) +
           Linea(r, QStringLiteral("eqsl"), QStringLiteral("eQSL: ")) +
           Linea(r, QStringLiteral("image"), QStringLiteral("Imagen: "));
}

PanelConsulta PanelLbN(const QString &r, const QString &senal)
{
    PanelConsulta p;
    p.servicio = PanelConsulta::Servicio::LbN;
    const QString llamada = Linea(r, QStringLiteral("call"), {}, true);
    if (llamada.isEmpty()) {
        p.texto = senal + QStringLiteral(" No está en Lbn!");
        return p;
    }
    p.nombre = Linea(r, QStringLiteral("name"));
    const auto grilla = CortarEtiqueta(r, QStringLiteral("grid"));
    p.grilla = grilla.value_or(QString());
    p.email = Linea(r, QStringLiteral("email"));
    const auto ultimo = CortarEtiqueta(r, QStringLiteral("ultimo"));
    p.texto = llamada + Linea(r, QStringLiteral("aliases"), QStringLiteral("Alias: "), true) +
              *p.nombre + Linea(r, QStringLiteral("addr1")) + Linea(r, QStringLiteral("addr2")) +
              Linea(r, QStringLiteral("grid"), QStringLiteral("Grid Locator: ")) + *p.email +
              (ultimo ? QStringLiteral("último QSO: ") + *ultimo : QString());
    return p;
}

QUrl DireccionLoginQRZ(const QString &base, const QString &usuario, const QString &clave)
{
    return DireccionComoNavegador(base + QStringLiteral("/xml/?username=") + usuario +
                                  QStringLiteral(";password=") + clave);
}

QUrl DireccionConsultaQRZ(const QString &base, const QString &clave, const QString &senal)
{
    return DireccionComoNavegador(base + QStringLiteral("/xml/current/?s=") + clave +
                                  QStringLiteral(";callsign=") + senal);
}

QUrl DireccionHamQTH(const QString &base)
{
    return DireccionComoNavegador(base + QStringLiteral("/xml.php?u=xx9qz&p=31415926"));
}

Consultas::Consultas(ClienteWeb &web, Dialogos &dialogos, const Configuracion &config,
                     DireccionesWeb direcciones, const bool &relojActivo, QObject *parent)
    : QObject(parent)
    , web_(web)
    , dialogos_(dialogos)
    , config_(config)
    , direcciones_(std::move(direcciones))
    , relojActivo_(relojActivo)
{
    connect(&web_, &ClienteWeb::Respondido, this, &Consultas::Respuesta);
}

void Consultas::BusquedaQRZ(const QString &senal)
{
    SenalBuscada = senal;
    if (config_.HAMQuser.isEmpty() || config_.HAMQpass.isEmpty()) {
        dialogos_.Exclamacion(QStringLiteral("Sin configurar Usuario o Contraseña!"));
        return;
    }
    // The session key is not kept: every lookup logs in anew.
    pedidos_.insert(
        web_.Pedir(DireccionLoginQRZ(direcciones_.QRZ, config_.HAMQuser, config_.HAMQpass)),
        Paso::Login);
}

void Consultas::BusquedaLbN(const QString &senal, bool segura)
{
    SenalBuscada = senal;
    pedidos_.insert(web_.Pedir(DireccionConsultaLbN(direcciones_.LbN, senal, segura)),
                    Paso::ConsultaLbN);
}

void Consultas::BusquedaHamQTH()
{
    SenalBuscada = QStringLiteral("LU1ABC");
    pedidos_.insert(web_.Pedir(DireccionHamQTH(direcciones_.HamQTH)), Paso::Login);
}

void Consultas::Respuesta(quint64 pedido, const RespuestaWeb &r)
{
    const auto it = pedidos_.constFind(pedido);
    if (it == pedidos_.constEnd())
        return;
    const Paso paso = *it;
    pedidos_.erase(it);
    if (!relojActivo_)
        return;
    switch (paso) {
    case Paso::Login:
        Login(r);
        break;
    case Paso::ConsultaQRZ:
        if (mostrar)
            mostrar({PanelConsulta::Servicio::QRZ, TextoQRZ(r.texto, SenalBuscada), {}, {}, {}});
        break;
    case Paso::ConsultaLbN:
        if (mostrar)
            mostrar(PanelLbN(r.texto, SenalBuscada));
        break;
    }
}

void Consultas::Login(const RespuestaWeb &r)
{
    const std::optional<QString> error = CortarEtiqueta(r.texto, QStringLiteral("Error"));
    if (error && !error->isEmpty()) {
        dialogos_.Alto(QStringLiteral("QRZ.com dice:\r\n") + *error);
        return;
    }
    const std::optional<QString> clave = CortarEtiqueta(r.texto, QStringLiteral("Key"));
    // A page with neither is no answer of the service at all.
    if (!clave) {
        dialogos_.Exclamacion(MensajeSinConexion());
        return;
    }
    pedidos_.insert(web_.Pedir(DireccionConsultaQRZ(direcciones_.QRZ, *clave, SenalBuscada)),
                    Paso::ConsultaQRZ);
}
