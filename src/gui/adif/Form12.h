// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Form12: "Importar ADIF ...": an ADIF file into the log in use, in three stages with
// their counts shown before anything reaches the log: measuring and processing on
// "Abrir", loading on "Cargar". Esc asks to stop a stage; the close box too.

#include "core/adif/Importacion.h"

#include <QDialog>
#include <functional>

class Contexto;
class Form1;
class QLabel;
class QListWidget;
class QProgressBar;
class QPushButton;

class Form12 : public QDialog
{
    Q_OBJECT
public:
    // recargarLog shows the main window's log from its first page: the loading changes it.
    Form12(Contexto &ctx, std::function<void()> recargarLog, QWidget *parent = nullptr);
    ~Form12() override;

    int Mostrar();

    void Command1_Click(); // "Abrir": measuring, then processing
    void Command2_Click(); // the processing stage
    void Command3_Click(); // "Cargar"

    bool ImportandoAdif = false;      // a stage runs
    bool CancelarImportacion = false; // Esc was pressed during a stage
    bool ReemplazarDuplicados = false;

    // ---- Controls -----------------------------------------------------------------
    QPushButton *Command1 = nullptr, *Command2 = nullptr, *Command3 = nullptr;
    QLabel *Label2 = nullptr;     // file name
    QLabel *Label3 = nullptr;     // path
    QLabel *Label4 = nullptr;     // program
    QLabel *Label5 = nullptr;     // lines read
    QLabel *Label6 = nullptr;     // QSO lines
    QLabel *Label7 = nullptr;     // station callsigns
    QLabel *Label8 = nullptr;     // what the stage is doing
    QLabel *Label9 = nullptr;     // new QSOs
    QLabel *Label10 = nullptr;    // duplicates
    QListWidget *List1 = nullptr; // the station callsigns, kept for Label7
    QListWidget *List2 = nullptr; // messages
    QProgressBar *ProgressBar1 = nullptr;

protected:
    void keyPressEvent(QKeyEvent *evento) override;
    void reject() override;

private:
    void Crear();
    // The end of a stage: the status hidden, a new file can be opened.
    void Terminar();
    // The question of a stop, asked on closing; true when the window may close.
    bool PuedeCerrar();
    // Between rows of a stage: false to stop it.
    bool Seguir();

    Contexto &ctx;
    std::function<void()> recargarLog_;
    Importacion importacion_;
    QString senalManual_;
    int qsos_ = 0, nuevos_ = 0, duplicados_ = 0;
    bool detener_ = false; // the window was closed during a stage
};

// Makes Form1's "Importar ADIF" open the import window, and enables it.
Form12 *ConectarImportacion(Form1 &principal, Contexto &ctx);
