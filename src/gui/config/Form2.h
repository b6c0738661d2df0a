// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Form2: the configuration window. Its controls are a copy of the context's settings:
// "Guardar" (and "Cancelar", which keeps the edits too) commits them to the context and
// to config.ini, and tells whoever listens that the settings changed. No other window
// reads these controls.

#include "core/config/Configuracion.h"
#include "core/platform/ClienteWeb.h"

#include <QDialog>
#include <optional>
#include <utility>

class Contexto;
class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;
class QTimer;

class Form2 : public QDialog
{
    Q_OBJECT
public:
    explicit Form2(Contexto &ctx, QWidget *parent = nullptr);
    ~Form2() override;

    // Fills the port and time lists, reads config.ini into the context (what the file
    // does not bring stays as it was), shows the result in the controls, puts the PTT
    // line on the port read and announces the settings.
    void LeerConfiguracion();
    // Commits the controls to the context, writes config.ini and announces the settings.
    // False when the file could not be written; the operator has been told.
    bool GuardarConfiguracion();
    // The settings as the controls have them; what the window does not edit ("No
    // Borrar") comes from the context.
    Configuracion Valores() const;
    void PonerValores(const Configuracion &cfg);
    // Shows the window modally; 1 when it was left by Guardar, 0 by Cancelar.
    int Mostrar();

    // The port list: "NINGUNO", "COM1".."COM20" and the ports the machine has.
    static QStringList ListaPuertos();

    // ---- Station (Frame2) ---------------------------------------------------------
    QGroupBox *Frame2 = nullptr;
    QLineEdit *Text1 = nullptr; // own callsign
    QLineEdit *Text2 = nullptr; // operator callsign
    QLineEdit *Text3 = nullptr; // hours from UTC
    QLineEdit *Text4 = nullptr; // grid locator

    // ---- National log account (Frame1) --------------------------------------------
    QGroupBox *Frame1 = nullptr;
    QLineEdit *user_lbn = nullptr;
    QLineEdit *pass_lbn = nullptr;
    QPushButton *Command3 = nullptr; // held down, shows pass_lbn
    QPushButton *Command4 = nullptr; // "Probar"
    QLabel *Label3 = nullptr;        // the test's result
    QProgressBar *ProgressBar1 = nullptr;

    // ---- Lookup and eQSL logins ---------------------------------------------------
    QGroupBox *Frame4 = nullptr; // QRZ.com
    QLineEdit *Text5 = nullptr, *Text6 = nullptr;
    QPushButton *Image1 = nullptr; // held down, shows Text6
    QGroupBox *Frame6 = nullptr;   // the national log's lookup
    QLineEdit *Text8 = nullptr, *Text7 = nullptr;
    QPushButton *Image2 = nullptr; // shows Text7
    QGroupBox *Frame7 = nullptr;   // eQSL
    QLineEdit *Text9 = nullptr, *Text10 = nullptr;
    QPushButton *Image3 = nullptr; // shows Text10

    // ---- Screen (Frame3) ----------------------------------------------------------
    QGroupBox *Frame3 = nullptr;
    QCheckBox *panta = nullptr;

    // ---- CQ caller (Frame5) -------------------------------------------------------
    QGroupBox *Frame5 = nullptr;
    QComboBox *Puerto = nullptr;
    QCheckBox *RTS = nullptr, *DTR = nullptr;
    QComboBox *Combo1 = nullptr; // ms before the audio
    QComboBox *Combo2 = nullptr; // ms after the audio
    QPushButton *Command5 = nullptr;
    QLabel *Label6 = nullptr; // the path of the audio file
    QPushButton *Command6 = nullptr, *Command7 = nullptr, *Command8 = nullptr;
    QLabel *Label7 = nullptr;

    QPushButton *Command1 = nullptr; // "Guardar"
    QPushButton *Command2 = nullptr; // "Cancelar"

    QTimer *Timer1 = nullptr; // the wait of "Probar", one tick a second
    int TicksPrueba = 0;
    static constexpr int kTicksPrueba = 15;

Q_SIGNALS:
    // The context's settings were read or committed: windows that show them re-apply.
    void ConfiguracionAplicada();
    // Guardar asks for the presence messages; Cancelar stops those not yet sent.
    void PresenciaPedida(bool habilitada);

public Q_SLOTS:
    void Command1_Click();
    void Command2_Click();
    void Command4_Click();
    void Command5_Click();
    void Command6_Click();
    void Command7_Click();
    void Command8_MouseDown();
    void Command8_MouseUp();
    void Puerto_Click();
    void Timer1_Timer();

protected:
    void closeEvent(QCloseEvent *evento) override;
    void reject() override;
    bool eventFilter(QObject *objeto, QEvent *evento) override;

private:
    void CrearEstacion();
    void CrearLbN();
    void CrearLogins();
    void CrearLlamador();
    void LlenarListas();
    void PonerPuerto(const QString &puerto);
    bool SenalesAceptables();
    void RespuestaPrueba(quint64 pedido, const RespuestaWeb &respuesta);
    void TerminarPrueba(const RespuestaWeb *respuesta);
    void ColorNormalLabel3();
    void RevisarGrilla();

    Contexto &ctx;
    quint64 pedidoPrueba_ = 0; // 0 when no test is waiting
    bool pidiendo_ = false;    // inside Pedir: an answer may come before its number
    std::optional<std::pair<quint64, RespuestaWeb>> respuestaTemprana_;
};
