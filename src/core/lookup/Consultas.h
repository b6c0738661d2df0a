// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The callsign lookups at QRZ.com, at the national log service and, wired to a hidden
// button, HamQTH. The answers are read as text, a field cut between its opening and its
// closing tag by a plain search: the first hit, case-sensitive, from the top each time.
// No XML parser: an attribute or a change of case means the field is not there.

#include "core/platform/ClienteWeb.h"
#include "core/platform/DireccionesWeb.h"

#include <QHash>
#include <QObject>
#include <QString>
#include <QUrl>
#include <functional>
#include <optional>

class Dialogos;
struct Configuracion;

// The text between <etiqueta> and </etiqueta>; nothing when the closing tag is missing or
// stands before the opening one.
std::optional<QString> CortarEtiqueta(const QString &texto, const QString &etiqueta);

// What the result panel shows.
struct PanelConsulta
{
    enum class Servicio { QRZ, LbN };
    Servicio servicio = Servicio::QRZ;
    QString texto;
    // The values behind the copy buttons (national log only): nothing leaves the ones the
    // panel already holds.
    std::optional<QString> nombre, email, grilla;
};

// The QRZ.com record as the panel shows it, or senal + " No está en QRZ.com!".
QString TextoQRZ(const QString &respuesta, const QString &senal);
// The national log's answer as the panel shows it, with the values for its buttons.
PanelConsulta PanelLbN(const QString &respuesta, const QString &senal);

QUrl DireccionLoginQRZ(const QString &base, const QString &usuario, const QString &clave);
QUrl DireccionConsultaQRZ(const QString &base, const QString &clave, const QString &senal);
// The program's own HamQTH account, built into the address.
QUrl DireccionHamQTH(const QString &base);

// The chain of requests of one lookup, each answer read when it comes. A new lookup
// overwrites the callsign of one under way, which then answers for the new one too.
class Consultas : public QObject
{
    Q_OBJECT
public:
    // relojActivo: answers that arrive while it is false (the start-up) are ignored.
    Consultas(ClienteWeb &web, Dialogos &dialogos, const Configuracion &config,
              DireccionesWeb direcciones, const bool &relojActivo, QObject *parent = nullptr);

    // The panel to show: set by the window that shows it.
    std::function<void(const PanelConsulta &)> mostrar;

    void BusquedaQRZ(const QString &senal);
    // The edit window asks over a secure connection.
    void BusquedaLbN(const QString &senal, bool segura = false);
    // The login at HamQTH with the built-in account; its answer goes where QRZ.com's does.
    void BusquedaHamQTH();

    QString SenalBuscada; // the callsign of the lookup under way

private:
    void Respuesta(quint64 pedido, const RespuestaWeb &r);
    void Login(const RespuestaWeb &r);

    ClienteWeb &web_;
    Dialogos &dialogos_;
    const Configuracion &config_;
    DireccionesWeb direcciones_;
    const bool &relojActivo_;
    enum class Paso { Login, ConsultaQRZ, ConsultaLbN };
    QHash<quint64, Paso> pedidos_;
};
