// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Form11: "Editar Satélites ...", the editor of the satellite catalogue. A new satellite
// is added at the end of the list; one chosen in the list is changed or deleted in its
// place. The list is read from satelites.txt at each opening and after each change.

#include <QDialog>
#include <array>
#include <functional>

class Contexto;
class Form1;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;

class Form11 : public QDialog
{
    Q_OBJECT
public:
    // satelitesCambiados: the main window's list read again after every change.
    Form11(Contexto &ctx, std::function<void()> satelitesCambiados, QWidget *parent = nullptr);
    ~Form11() override;

    // Shows the window modally, with the list as the file holds it now.
    int Mostrar();
    // List1 read again from the file.
    void CargarLista();

    void Command1_Click(); // "Agregar"
    void List1_Click(int fila);
    void Command2_Click(); // "Aceptar"
    void Command3_Click(); // "Cancelar"
    void Command4_Click(); // "Eliminar"

    // ---- Controls -----------------------------------------------------------------
    QGroupBox *Frame1 = nullptr; // "Agregar"
    QLineEdit *Text1 = nullptr;  // name
    QComboBox *Combo1 = nullptr, *Combo2 = nullptr, *Combo3 = nullptr;
    QLineEdit *Text4 = nullptr;    // subtone
    QLineEdit *Frec_new = nullptr; // uplink frequency
    QPushButton *Command1 = nullptr;

    QGroupBox *Frame2 = nullptr; // "Editar"
    QListWidget *List1 = nullptr;
    QLabel *Label2 = nullptr;

    QGroupBox *Frame3 = nullptr; // "Editando ..."
    QLineEdit *Text2 = nullptr;
    QComboBox *Combo8 = nullptr, *Combo7 = nullptr, *Combo6 = nullptr;
    QLineEdit *Text3 = nullptr, *Text5 = nullptr;
    QPushButton *Command2 = nullptr, *Command3 = nullptr, *Command4 = nullptr;

protected:
    bool eventFilter(QObject *objeto, QEvent *evento) override;

private:
    void Crear();
    // The six fields of a satellite, laid out alike in "Agregar" and "Editando ...".
    struct CamposSatelite
    {
        QLineEdit *&nombre;
        QComboBox *&subida, *&bajada, *&modo;
        QLineEdit *&subtono, *&frecuencia;
    };
    void CrearCampos(QGroupBox *marco, const std::array<const char *, 6> &nombres,
                     const CamposSatelite &c);
    void CrearAgregar();
    void CrearEditando();
    void Conectar();
    // The test of a frequency field as it is left; false (and the focus back) when it fails.
    bool RevisarAlSalir(QLineEdit *campo);
    // The main window's list, then this one, read again.
    void Recargar();

    Contexto &ctx;
    std::function<void()> satelitesCambiados_;
    QString editando_; // the name of the satellite in the edit frame, as the file has it
    bool revisando_ = false;
};

// Makes Form1's "Editar" open one Form11, made now and reused, which reloads Form1's list
// of satellites after each change.
Form11 *ConectarSatelites(Form1 &principal, Contexto &ctx);
