// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The upload: one GET per QSO, each sent when the reply of the one before is in (or its
// time is up), the event pump running while it waits. It reads each reply and hands the
// caller, QSO by QSO, the request, the line to show, its colour and the state to mark.
//
//   SubidaLbN subida(web, bomba, base, usuario, clave, SubidaLbN::Script::Carancho3);
//   subida.Correr(envios, [&](const PasoSubida &p) { lista->addItem(p.linea); });

#include "core/nationallog/EnviosLbN.h"
#include "core/platform/ClienteWeb.h"

#include <QObject>
#include <functional>
#include <optional>

class Almacen;
class BombaEventos;

struct PasoSubida
{
    int indice = 0; // from 1, in the order of the sends
    qint64 id = 0;
    QUrl pedido;
    bool respondio = false; // false: no page came (failure or time-out)
    QString linea;
    int color = 16384;  // BGR, as the search window colours its lines
    int estado = -1;    // the LbN state written to the row; -1 none
    QString falloMarca; // the store's message when the state could not be written
};

// One GET awaited with the event pump running: the reply, or nothing on a cancel (set by
// an event the pump ran). The client's time-out bounds the wait.
std::optional<RespuestaWeb> PedirYEsperar(ClienteWeb &web, BombaEventos &bomba, const QUrl &url,
                                          int tiempoMaximoMs, const bool *cancelar = nullptr);

class SubidaLbN : public QObject
{
    Q_OBJECT
public:
    // Carancho3: the runs of the menu; each reply is read for the state of the row, and a
    // request with no page ends the run. Carancho2Radiolog: the search window's; replies
    // are shown only, five seconds without one moves on, and a refusal of the account
    // ends the run.
    enum class Script { Carancho3, Carancho2Radiolog };
    enum class Fin { Completa, Cancelada, Rechazada, SinConexion };

    SubidaLbN(ClienteWeb &web, BombaEventos &bomba, QString base, QString usuario, QString clave,
              Script script, QObject *parent = nullptr);

    // With a store, each state read is written to its row at once by MarcarLbN.
    void MarcarEn(Almacen *almacen) { almacen_ = almacen; }
    // Carancho3: the page of a browser's own error ("ESTE PROGRAMA") is a lost connection.
    void PaginaDeErrorEsFallo(bool si) { paginaDeError_ = si; }
    // The longest wait for one reply; 15 s for the menu runs, 5 s for the search window's.
    void TiempoMaximo(int ms) { tiempoMaximoMs_ = ms; }
    // Called about once a second while a reply is awaited, with the seconds waited.
    std::function<void(int segundos)> alEsperar;

    // Sends the QSOs in order; alResponder gets each one's outcome. A run that is
    // cancelled or ends early leaves the rows not reached as they were.
    Fin Correr(const QVector<EnvioLbN> &envios,
               const std::function<void(const PasoSubida &)> &alResponder);
    // Ends the run before the next QSO: the one awaited is dropped, its row untouched.
    void Cancelar() { cancelada_ = true; }
    bool Corriendo() const { return corriendo_; }

    int chequeados = 0, subidos = 0;

private:
    QUrl Direccion(const EnvioLbN &e) const;

    ClienteWeb &web_;
    BombaEventos &bomba_;
    QString base_, usuario_, clave_;
    Script script_;
    Almacen *almacen_ = nullptr;
    bool paginaDeError_ = false;
    int tiempoMaximoMs_;
    bool cancelada_ = false;
    bool corriendo_ = false;
    bool pulso_ = false; // a tick of the pacing timer came since the last request
};
