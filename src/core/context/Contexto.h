// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Everything a window needs besides its own controls: the program folder, the settings,
// the store, the desktop services and the program's globals. main.cpp builds one; a test
// builds a fresh one over a temporary folder with fake services.

#include "core/config/Configuracion.h"
#include "core/context/Version.h"
#include "core/keying/PTT.h"
#include "core/platform/BombaEventos.h"
#include "core/platform/ClienteWeb.h"
#include "core/platform/Dialogos.h"
#include "core/platform/DireccionesWeb.h"
#include "core/platform/Escritorio.h"
#include "core/platform/LineaSerie.h"
#include "core/platform/Reloj.h"
#include "core/platform/Reproductor.h"
#include "core/platform/Resultado.h"
#include "core/store/Almacen.h"

#include <QString>
#include <functional>
#include <memory>

struct Servicios
{
    std::unique_ptr<Dialogos> dialogos;
    std::unique_ptr<Escritorio> escritorio;
    std::unique_ptr<ClienteWeb> web;
    std::unique_ptr<Reloj> reloj;
    std::unique_ptr<BombaEventos> bomba;
    std::unique_ptr<LineaSerie> puertoPTT;
    std::unique_ptr<LineaSerie> puertoCW;
    std::unique_ptr<Reproductor> reproductor;
};

class Contexto
{
public:
    // The folder is made when missing. The store is not opened here: AbrirAlmacen()
    // does it and answers the message for the operator when it fails.
    Contexto(const QString &carpetaPrograma, Servicios servicios);
    ~Contexto();

    // The per-user program folder: $XDG_DATA_HOME/carancho-radiolog.
    static QString CarpetaPorDefecto();

    QString Carpeta() const { return carpeta_; }
    // A file of the program folder.
    QString Archivo(const QString &nombre) const;
    // The manual AyudaRadiolog2.pdf: the program folder's own copy first (an operator may
    // keep a newer one there), then the installed one in the data folders, then that of an
    // unpacked or built tree, in ../share/carancho-radiolog from the program and beside it.
    // Empty when there is none to read.
    QString ArchivoAyuda() const;
    // Makes the folder and checks that it can be written.
    Resultado<> PrepararCarpeta() const;
    // Opens base0.db, creating it when missing.
    Resultado<> AbrirAlmacen();

    // The settings of config.ini: the one copy every window reads. The configuration
    // window edits one of its own and commits it here.
    Configuracion &config() { return config_; }
    const Configuracion &config() const { return config_; }
    // config.ini read over the settings and LogenUso: what the file does not bring stays.
    // A missing file changes nothing.
    void LeerConfiguracion();
    // The settings and LogenUso written to config.ini ("Log inicial" when no log is in
    // use). No row of the store is written.
    Resultado<> GuardarConfiguracion();

    Almacen &almacen() { return almacen_; }
    Dialogos &dialogos() { return *servicios_.dialogos; }
    Escritorio &escritorio() { return *servicios_.escritorio; }
    ClienteWeb &web() { return *servicios_.web; }
    Reloj &reloj() { return *servicios_.reloj; }
    BombaEventos &bomba() { return *servicios_.bomba; }
    LineaSerie &puertoPTT() { return *servicios_.puertoPTT; }
    LineaSerie &puertoCW() { return *servicios_.puertoCW; }
    Reproductor &reproductor() { return *servicios_.reproductor; }
    // PTTOn/PTTOff on puertoPTT(), with the "Tx" lamps of every window following.
    InterruptorPTT &ptt() { return ptt_; }
    const DireccionesWeb &direcciones() const { return direcciones_; }

    // ---- The program's globals ----------------------------------------------------
    const QString VersionPrograma = QStringLiteral(RADIOLOG_VERSION_PROGRAMA);
    QString LogenUso;                // the log in use
    bool IniciandoPrincipal = false; // true during the load of Form1
    bool ConfigInicial = false;      // first start: no config.ini was found
    bool RelojActivo = false;        // set by the first tick of the clock
    bool CierreListo = false;        // the closing run has sent its last message
    int TicksCierre = 0;
    int CampoConFoco = 0;         // entry field with the focus, 1..8
    bool CargandoEdicion = false; // Form5 is being filled
    QString OrigenEdicion;        // window that opened Form5
    bool EsperaLista = false;     // the short wait of the national lookup is over
    bool PulsoTimer10 = false;    // the fast tick that upload runs wait on

    // The contest chosen or founded in the chooser, and its series ("Incremental" or
    // "Fija"); true while the contest window's lists are being filled.
    QString ConcursoNombre;
    QString ConcursoTipo;
    bool CargandoConcurso = false;
    // The search window is being filled.
    bool CargandoBusqueda = false;
    // The last answer to "Desea usar el campo COMMENT como QSLMSG?": the search export and
    // the national service's upload both ask it and both read it.
    bool UsarComentarioComoQslmsg = false;
    // The national log refused the account or the callsign in the search window's last
    // upload: its member list says so.
    bool AbortarEnvio = false;

    // Ends the program at once (the first start cancelled, the closing run done).
    // main.cpp leaves the event loop; a test replaces it to see that it was asked.
    std::function<void(int)> Terminar;

private:
    QString carpeta_;
    Servicios servicios_;
    InterruptorPTT ptt_{*servicios_.puertoPTT};
    Configuracion config_;
    Almacen almacen_;
    DireccionesWeb direcciones_;
};
