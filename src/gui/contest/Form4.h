// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Form4: the contest window, "Cabrillo ...". One contest at a time, logged from the
// keyboard: Enter anywhere stores the QSO, the sent serial goes on per mode and band, and
// "DUPLICADO" warns of a station already worked in this mode and band. The contest is the
// context's (ConcursoNombre, ConcursoTipo); its rows come from the store.
//
// It also keys: in CW the frame "Macros CW" sends the macros through its own Morse engine
// and key line, and the down arrow keys by hand; in the other modes F1 plays the voice CQ
// with the PTT held (Form4Manipulador.cpp).

#include "core/keying/LlamadorCQ.h"
#include "core/keying/LlaveCW.h"
#include "core/keying/MotorCW.h"
#include "core/store/RegistroQSO.h"

#include <QDialog>
#include <QVector>
#include <functional>

class Contexto;
class QCheckBox;
class QComboBox;
class QFrame;
class QGroupBox;
class QKeyEvent;
class QLabel;
class QLineEdit;
class QPushButton;
class QScrollBar;
class QTimer;
class QToolButton;
class QTreeWidget;
class QTreeWidgetItem;

class Form4 : public QDialog
{
    Q_OBJECT
public:
    explicit Form4(Contexto &ctx, QWidget *parent = nullptr);
    ~Form4() override;

    // What the menu prepares before the chooser: the fixed lists, the log's columns and the
    // station's callsign.
    void Preparar();
    // The contest of the context, just founded: an empty log and the first serial.
    void NuevoConcurso();
    // The contest of the context, opened from the chooser: its log, and the clock's
    // local time in the date and time fields.
    void AbrirConcurso();
    // Shows the window modally until it is closed or the contest deleted.
    int Mostrar();

    // The window coming up: bands, the last band and mode, the serial; then Timer2.
    void Activar();
    // The log of the contest, newest first.
    void CargaConcurso();
    // Enter: the QSO checked, stored, and the fields made ready for the next.
    void TeclaEnter();

    void Combo1_Click(); // mode
    void Combo2_Click(); // band
    void mhz_Click();
    void Command1_Click(); // "Cabrillo"
    void Command2_Click(); // "ADIF"
    void Command3_Click(); // "Eliminar"
    // macros(0) to macros(6), F1 to F7 in CW: the macro's text queued and sent.
    void macros_Click(int indice);
    // F1 outside CW: the voice CQ.
    void LlamarCQ();
    // Esc: the send stopped after its character, the voice CQ and its PTT let go.
    void Detener();

    // ---- Seams, each doing nothing while unset -------------------------------------
    // The ADIF export of the contest, with the station's callsign of this window.
    std::function<void(const QString &concurso, const QString &senal)> exportarAdif;
    // The Cabrillo header window, with the lines built, the contest and its count.
    std::function<void(const QString &lineas, const QString &concurso, int cantidad,
                       const QString &senal)>
        abrirEncabezado;
    // The contest QSO edit window, on a double click on a row of the log.
    std::function<void(const FilaConcurso &fila)> editarQSO;

    // ---- Controls -----------------------------------------------------------------
    QLineEdit *Text2 = nullptr;                  // own callsign
    QLabel *Label2 = nullptr, *Label3 = nullptr; // contest name and series, shown only
    QLabel *Label4 = nullptr;                    // the fixed serial, shown only
    QComboBox *Combo2 = nullptr;                 // band
    QComboBox *Combo1 = nullptr;                 // mode
    QComboBox *mhz = nullptr;
    QLineEdit *Text1 = nullptr; // kHz
    QLabel *Label6 = nullptr;   // the band word of mhz, shown only
    QLineEdit *Fecha = nullptr, *Hora = nullptr;
    QCheckBox *Check2 = nullptr; // "QTR Manual"
    QLineEdit *Corresponsal = nullptr, *RSE = nullptr, *RSR = nullptr;
    QCheckBox *Check1 = nullptr; // "Num inc.": nothing reads it
    QLabel *Label7 = nullptr;    // "DUPLICADO"
    QGroupBox *Frame2 = nullptr; // "Log ..."
    QTreeWidget *ListView2 = nullptr;
    QGroupBox *Frame1 = nullptr;                      // "Macros CW"
    QVector<QPushButton *> macros;                    // F1 to F7
    QScrollBar *HScroll1 = nullptr;                   // keying speed, ppm
    QLabel *LabelVel = nullptr;                       // "Vel 20 ppm"
    QComboBox *Combo3 = nullptr;                      // the key's port
    QCheckBox *Check3 = nullptr, *Check4 = nullptr;   // "DTR", "RTS": the keyed line
    QCheckBox *Check5 = nullptr;                      // "0T-9N": cut numbers in the serial
    QCheckBox *Check6 = nullptr;                      // "Peso": no effect on timing
    QCheckBox *Check7 = nullptr;                      // "Fondo Oscuro"
    QToolButton *Picture1 = nullptr;                  // tells the manual key's key
    QLabel *Image1 = nullptr;                         // the key lamp
    QLabel *Label10 = nullptr;                        // what is being sent
    QLabel *Label13 = nullptr;                        // "Llamador CQ (F1)"
    QFrame *sFondo = nullptr, *sPorcentaje = nullptr; // the caller's progress
    QLabel *Label8 = nullptr;                         // the "Tx" lamp
    QPushButton *Command1 = nullptr, *Command2 = nullptr, *Command3 = nullptr;
    QTimer *Timer1 = nullptr; // the clock, every second, while "QTR Manual" is off
    QTimer *Timer2 = nullptr; // once after activation: the CW frame shown or hidden
    QTimer *Timer3 = nullptr; // blinks "QTR Manual" while it is on

public Q_SLOTS:
    void Timer1_Timer();
    void Timer2_Timer();
    void Timer3_Timer();

protected:
    bool eventFilter(QObject *objeto, QEvent *evento) override;
    void showEvent(QShowEvent *evento) override;
    void done(int resultado) override;

private:
    void Crear();
    QWidget *CrearEntrada();
    QWidget *CrearMacros();
    QWidget *CrearLlamador(QWidget *padre);
    void Conectar();
    void ConectarManipulador();
    // At each activation: the settings, the port named, the speed. On closing: the send
    // stopped, the manual key up, the settings kept.
    void CargarManipulador();
    void CerrarManipulador();
    void PonerVelocidad(int ppm);
    void Combo3_Click();
    void LineaElegida(QCheckBox *marcada, QCheckBox *otra);
    void PintarFondo(bool oscuro);
    // The down arrow: the key down while held, up when let go or when the window loses it.
    bool FlechaAbajo(QKeyEvent *tecla, bool soltada);
    void SoltarTeclaManual();
    bool TeclaDeVentana(QKeyEvent *tecla, bool soltada);
    bool AlTeclear(QLineEdit *campo, QKeyEvent *tecla);
    void AlPerderFoco(QLineEdit *campo);
    bool RevisarCampo(QLineEdit *campo);
    void MarcarFoco(QLineEdit *campo, bool conFoco);
    // CW: the macros frame in, the CQ caller out; any other mode the reverse.
    void AplicarModo();
    void RevisarDuplicado();
    void PonerQTRManual(bool manual);
    void Elegir(QComboBox *lista, const QString &texto);
    void DobleClicFila(QTreeWidgetItem *item);

    Contexto &ctx;
    QVector<FilaConcurso> filas_; // the log shown, by position in the list
    bool revisando_ = false;

    // The keyer lives with the window, and its port stays as chosen while the window is
    // closed and opened again; the program's end lets both lines go.
    LlaveCW llave;
    MotorCW motor;
    LlamadorCQ llamador;
    TeclaManual tecla;
};
