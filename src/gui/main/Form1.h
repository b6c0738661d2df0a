// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Form1: the main logging window, the program's start and end. It holds the entry of
// one QSO, the log view with its navigator, the keyboard commands and the closing run.
// The settings it shows and uses are the context's; it reads no other window.

#include "core/config/Memoria.h"
#include "core/keying/LlamadorCQ.h"
#include "core/online/Presencia.h"
#include "core/store/NavegadorPaginas.h"

#include <QMainWindow>
#include <functional>

class Contexto;
class Form2;
class Form18;
class QAction;
class QKeyEvent;
class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QMenu;
class QProgressBar;
class QPushButton;
class QTimer;
class QTreeWidget;
class QTreeWidgetItem;
struct FilaQSO;
enum class TipoCorrida;

class Form1 : public QMainWindow
{
    Q_OBJECT
public:
    explicit Form1(Contexto &contexto, QWidget *parent = nullptr);
    ~Form1() override;

    // ---- Menus --------------------------------------------------------------------
    QMenu *archivo = nullptr;
    QMenu *ayuy = nullptr;
    QMenu *lados = nullptr;
    QMenu *backup = nullptr;
    QAction *conf = nullptr, *alog = nullptr, *nuevo = nullptr, *borralog = nullptr;
    QAction *eadif = nullptr, *lbn2 = nullptr, *suych = nullptr, *ssub = nullptr;
    QAction *parg = nullptr, *iadif = nullptr, *cabro = nullptr, *badeda = nullptr;
    QAction *badif = nullptr, *salir = nullptr, *Ayuda = nullptr, *ac = nullptr;
    QAction *acerca = nullptr;

    // ---- Entry (Frame1) -----------------------------------------------------------
    QGroupBox *Frame1 = nullptr;
    QLineEdit *Corresponsal = nullptr, *Fecha = nullptr, *Hora = nullptr, *RSE = nullptr;
    QLineEdit *RSR = nullptr, *Text1 = nullptr, *Text2 = nullptr, *Obs = nullptr;
    QComboBox *mhz = nullptr, *Combo1 = nullptr, *Combo2 = nullptr, *Combo3 = nullptr;
    QLabel *Label7 = nullptr, *Label11 = nullptr;
    QCheckBox *Check1 = nullptr, *Check2 = nullptr, *Check3 = nullptr;
    QGroupBox *Frame2 = nullptr;
    QPushButton *Command1 = nullptr;
    QLabel *Subida = nullptr, *Bajada = nullptr, *Modo = nullptr, *Subtono = nullptr;
    QPushButton *Command7 = nullptr, *Command13 = nullptr, *Command14 = nullptr;
    QPushButton *Command15 = nullptr;

    // ---- Log view (Frame3) --------------------------------------------------------
    QGroupBox *Frame3 = nullptr;
    QTreeWidget *ListView2 = nullptr;
    QLabel *Label6 = nullptr, *Label9 = nullptr, *Label4 = nullptr, *Label5 = nullptr;
    QPushButton *Command2 = nullptr;

    // ---- Navigator and CQ caller (Frame4) -----------------------------------------
    QGroupBox *Frame4 = nullptr;
    QPushButton *anterior = nullptr, *menos = nullptr, *mas = nullptr, *ultima = nullptr;
    QLineEdit *Text3 = nullptr;
    QPushButton *Command8 = nullptr;
    QLabel *txt_pagina = nullptr, *txt_total = nullptr;
    QProgressBar *ProgressBar1 = nullptr;
    QLabel *Label12 = nullptr, *Label13 = nullptr, *sFondo = nullptr, *sPorcentaje = nullptr;
    static constexpr int kBarraVacia = 15; // width of sPorcentaje at rest, in twips

    // ---- Station (Frame5) ---------------------------------------------------------
    QGroupBox *Frame5 = nullptr;
    QLabel *Label2 = nullptr, *Label3 = nullptr, *Label8 = nullptr;
    QLabel *Image1 = nullptr, *Image2 = nullptr;

    // ---- Timers -------------------------------------------------------------------
    QTimer *Timer1 = nullptr;  // the clock: UTC date and time in the entry, every second
    QTimer *Timer2 = nullptr;  // once, 900 ms after the load: config.ini and the log in use
    QTimer *Timer3 = nullptr;  // blinks "QTR manual" while the time is typed by hand
    QTimer *Timer4 = nullptr;  // the version check; nothing starts it
    QTimer *Timer5 = nullptr;  // once, the second step of the "on" presence message
    QTimer *Timer6 = nullptr;  // the closing run: 25 ticks, then the "off" presence message
    QTimer *Timer7 = nullptr;  // once, 20 s after the start: the first step of "on"
    QTimer *Timer8 = nullptr;  // once: the short wait of the national log lookup is over
    QTimer *Timer9 = nullptr;  // scrolls the satellite banner while in satellite mode
    QTimer *Timer10 = nullptr; // the fast pulse that the upload runs wait on

    // ---- Operations ---------------------------------------------------------------
    void AplicarPantalla(int pantalla);
    // Fills the log view with the page of LogenUso that starts at filaInicial.
    void CargarLog(qint64 filaInicial);
    // The click of "Ingresar QSO".
    void IngresarQSO();
    // The Enter walk through the fields.
    void TeclaEnter();
    // F5: the last QSO to the edit window.
    void EditarUltimoQSO();
    // "Hacer Tabla!": empties every table and restarts the counters.
    void HacerTabla();
    // The closing road: the close box saves config.ini, "Salir" does not.
    void Salir(bool guardarConfiguracion);
    // Log management and the callsign history (Form1Logs.cpp).
    void alog_Click();
    void nuevo_Click();
    void borralog_Click();
    // Opens the log by name: LogenUso, config.ini saved, the view on its first page.
    void AbrirLog(const QString &nombre);
    // "?" and Ctrl+X: the QSOs of the correspondent in the log in use.
    void Command7_Click();
    // The satellite passes page.
    void Command15_Click();
    void ConectarLogs();

    // Seams for windows that come later: set by whoever provides them. The edit window
    // gets the row as stored, read by its id.
    std::function<void(const FilaQSO &, bool conSat)> abrirEdicion;
    std::function<void()> buscarQRZ, buscarLbN;
    // The satellite editor ("Editar") and the version check ("Actualizaciones").
    std::function<void()> editarSatelites, buscarActualizaciones;

    // Satellite mode (Form1Satelite.cpp). The mode is the state of "Vía Satélite".
    bool EnModoSatelite() const;
    // The catalogue read again into Combo3, the captions left with its last satellite.
    void CargarSatelites();
    // The click of "Vía Satélite", and the choice of a satellite in Combo3.
    void ModoSatelite();
    void ElegirSatelite();
    // "Concursos": the contest chooser.
    std::function<void()> abrirConcursos;
    // "Importar ADIF": the import window, once it is connected.
    std::function<void()> importarAdif;
    // The login at HamQTH with the program's own account: a hidden button without a
    // caption, which no operator reaches.
    QPushButton *Command12 = nullptr;
    std::function<void()> buscarHamQTH;
    // The national log: the province award (parg) and the runs of the menu (suych, ssub,
    // lbn2), which stay closed in this version.
    std::function<void()> provinciasLbN;
    std::function<void(TipoCorrida)> corridaLbN;

    // Shows the context's settings: the station, the grid, the log in use, the screen
    // layout and "No Borrar". Run after every read and save of config.ini.
    void AplicarConfiguracion();

public Q_SLOTS:
    void Timer1_Timer();
    void Timer2_Timer();
    void Timer3_Timer();
    void Timer5_Timer();
    void Timer6_Timer();
    void Timer7_Timer();
    void Timer8_Timer();
    void Timer9_Timer();
    void Timer10_Timer();
    void Command9_Click();
    void anterior_Click();
    void menos_Click();
    void mas_Click();
    void ultima_Click();
    void Command8_Click();
    void Command11_Click();
    // While another window works on the whole log (the search window opening, say): the
    // view hidden, with "Cargando ..." beside it while that window loads; and the view read
    // again and shown when it is done.
    void VistaEnEspera(bool cargando);
    void VistaDeNuevo();
    // The rows cleared and the log in use shown again from its first page, as after a change
    // of the log (an import).
    void CargarLogDesdeElPrincipio();
    // What a lookup copies into the QSO being entered: the remarks, the correspondent's grid.
    void PonerObservaciones(const QString &texto);
    void PonerGrillaCorresponsal(const QString &grilla);

protected:
    bool eventFilter(QObject *objeto, QEvent *evento) override;
    void closeEvent(QCloseEvent *evento) override;

private:
    void CrearMenus();
    void CrearEntrada();
    void CrearVista();
    void CrearNavegador();
    void CrearEstacion();
    void CrearTimers();
    void ConectarMenuLbN();
    void Cargar();
    void ConectarEntrada();
    void RestaurarMemoria();
    void GuardarMemEntrada();
    void GuardarMemFinal();
    MemoriaEntrada MemoriaActual() const;

    // Entry helpers.
    bool AlTeclear(QLineEdit *campo, QKeyEvent *tecla);
    bool AlPerderFoco(QLineEdit *campo);
    void AlRecibirFoco(QLineEdit *campo);
    void ActualizarBanda(bool moverFoco);
    void LlenarFechaHora();
    void Check1_Click();
    // "QTR manual" on: the date and time are the operator's, with their base shown and the
    // box blinking; off: they are the clock's again.
    void PonerQTRManual(bool manual);
    void Label11_Click();
    void MarcarFoco(QLineEdit *campo, bool conFoco);
    bool ValidarCampo(QLineEdit *campo);

    // Keyboard.
    bool TeclaDeVentana(QKeyEvent *tecla);
    void IniciarLlamador();
    void DetenerLlamador();

    // View helpers.
    void ActualizarBotones(qint64 n);
    void CambiarPagina();
    // "Log: name, con N QSOs", as the store counted them at the last load.
    QString RotuloDelLog() const;
    void AgregarFila(const FilaQSO &fila);
    void OrdenarPorColumna(int columna);
    void DobleClicFila(QTreeWidgetItem *item);

    // Settings, from the context.
    QString SenalPropia() const;
    double DiferenciaUTC() const;
    // config.ini written from the context; the operator is told when it cannot be.
    void GuardarConfiguracion();
    // The log in use gets its placeholder row when the store has none of it yet.
    void FundarLogEnUso();
    void PonerPresencia(bool habilitada);

    void AvisoDeCierre();

    // Satellite mode (Form1Satelite.cpp).
    void ConectarSatelite();
    void PrepararSatelites();
    void PonerModoSatelite(bool activo);

    Contexto &ctx;
    Form2 *form2_ = nullptr; // shown from the menu and at the first start; never read
    Form18 *form18_ = nullptr;
    NavegadorPaginas nav_;
    Presencia presencia_;
    LlamadorCQ llamador_;
    qint64 ultimoId_ = 0; // the QSO entered last in this run (shown in Label4); 0: none
    bool CtrlPulsado = false;
    bool CtrlLatch = false;
    bool cerrando_ = false;
    bool validando_ = false;
    bool ordenAscendente_ = false;
};
