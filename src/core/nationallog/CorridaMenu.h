// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The runs of the menu over the log in use: the rows read and sifted, the counts told, the
// operator asked, then each QSO sent and its row marked as the service answers. The window
// that shows the run is behind VistaCorrida, so that the whole run can be tried without one.

#include "core/nationallog/EnviosLbN.h"

#include <QString>

class Almacen;
class BombaEventos;
class ClienteWeb;
class Dialogos;
class SubidaLbN;
struct Configuracion;

// What a run shows: the state (Label1), one line per QSO (List1) and the progress.
class VistaCorrida
{
public:
    virtual ~VistaCorrida() = default;
    virtual void Mostrar(int maximo) = 0; // the window up, the list empty, progress at 0
    virtual void Ocultar() = 0;
    virtual void Estado(const QString &texto) = 0;
    virtual void Linea(const QString &texto) = 0; // added and selected
    virtual void Avanzar() = 0;                   // one more QSO done
};

struct ServiciosCorrida
{
    Almacen &almacen;
    Dialogos &dialogos;
    ClienteWeb &web;
    BombaEventos &bomba;
    const Configuracion &config;
    QString baseLbN;
};

class CorridaMenu
{
public:
    enum class Fin { SinCuenta, SinEnvios, NoQuiso, Completa, Cancelada, SinConexion };

    CorridaMenu(ServiciosCorrida servicios, VistaCorrida &vista);
    ~CorridaMenu();

    // Runs one of the three on the log. SinCuenta: the caller opens the configuration.
    Fin Correr(TipoCorrida tipo, const QString &log);
    // Ends the run between two QSOs (the program closing).
    void Cancelar();
    bool Corriendo() const;

    // The longest wait for one reply before the run ends as without connection.
    int tiempoMaximoMs = 15000;

private:
    ServiciosCorrida s_;
    VistaCorrida &vista_;
    SubidaLbN *subida_ = nullptr; // during a run
    bool cancelada_ = false;
};
