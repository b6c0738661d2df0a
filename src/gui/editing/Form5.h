// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Form5: the QSO edit window. One stored QSO, corrected and saved, or deleted, and handed
// to the QSL-card designer. The row's id is kept here and shown in the caption.

#include <QDialog>
#include <functional>

class Contexto;
class Form1;
class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
struct FilaQSO;

class Form5 : public QDialog
{
    Q_OBJECT
public:
    // refrescarVista shows the main window's log view again at the same page: a save or
    // a delete must not leave it showing the row as it was.
    Form5(Contexto &ctx, std::function<void()> refrescarVista, QWidget *parent = nullptr);
    ~Form5() override;

    // Fills the window from a stored row. listaConSat: the mode list of F5 ("SSB", "FM",
    // "CW", "Sat" and the row's own); otherwise the window's own list, without "Sat".
    void Cargar(const FilaQSO &fila, bool listaConSat);
    // The id of the row shown: what Guardar and Eliminar act on.
    qint64 Id() const { return id_; }
    // Shows the window modally until it is saved, deleted or closed.
    int Mostrar();

    void Command1_Click(); // "Guardar"
    void Command2_Click(); // "Eliminar"
    void Command4_Click(); // "QSL"
    // The band from mhz and Text9 into Label11; a warning when out of band.
    void ActualizarBandaEdicion();

    // Seams for the lookups and the search window, which other windows provide; each
    // does nothing while unset. The lookups get the correspondent of Text2.
    std::function<void(const QString &senal)> buscarLbN, buscarQRZ;
    // After a save or a delete opened from the search window ("Form6"), with the id.
    std::function<void(qint64 id)> refrescarBusqueda;

    // ---- Controls -----------------------------------------------------------------
    QLineEdit *Text1 = nullptr;  // own callsign
    QLineEdit *Text2 = nullptr;  // correspondent
    QLineEdit *Text3 = nullptr;  // operator
    QLineEdit *Text4 = nullptr;  // UTC date
    QLineEdit *Text5 = nullptr;  // UTC time
    QLineEdit *Text6 = nullptr;  // report sent
    QLineEdit *Text7 = nullptr;  // report received
    QLineEdit *Text8 = nullptr;  // remarks
    QComboBox *Combo2 = nullptr; // mode
    QComboBox *mhz = nullptr;
    QLineEdit *Text9 = nullptr;    // kHz
    QLabel *Label11 = nullptr;     // band, shown only
    QLineEdit *Text10 = nullptr;   // own grid
    QLineEdit *Text11 = nullptr;   // other station's grid
    QLineEdit *Text12 = nullptr;   // satellite
    QLabel *Label5 = nullptr;      // caption of Text12 (index 1 of its array)
    QCheckBox *Check1 = nullptr;   // shows or hides the satellite
    QGroupBox *MarcoLbN = nullptr; // "Libro Nacional"
    QLabel *subidoALbn = nullptr;
    QLabel *ConfALbn = nullptr;
    QPushButton *Command1 = nullptr, *Command2 = nullptr, *Command3 = nullptr;
    QPushButton *Command13 = nullptr, *Command4 = nullptr;

protected:
    bool eventFilter(QObject *objeto, QEvent *evento) override;
    bool event(QEvent *evento) override;
    void showEvent(QShowEvent *evento) override;

private:
    void Crear();
    void Conectar();
    bool AlTeclear(QLineEdit *campo, QKeyEvent *tecla);
    void AlPerderFoco(QLineEdit *campo);
    bool RevisarCampo(QLineEdit *campo);
    void MostrarSatelite(bool visible);
    // What a save or a delete leaves behind: the window that opened this one refreshed.
    void Refrescar(qint64 id);

    Contexto &ctx;
    std::function<void()> refrescarVista_;
    qint64 id_ = 0;
    bool revisando_ = false;
};

// Makes Form1 open its QSOs in an edit window: one Form5, made now and reused, shown
// modally at each double click on a row and at each F5, and refreshing Form1's view after
// a save or a delete. The window is answered so that the lookups can be plugged into its
// seams.
Form5 *ConectarEdicion(Form1 &principal, Contexto &ctx);
