// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Form6: "Exportar ...", the search window. It lists the QSOs of the log in use, filters
// them, and hands what is listed to the ADIF export, the edit window and the upload to
// the national service.

#include <QDialog>
#include <functional>
#include <optional>

class Contexto;
class ModeloBusqueda;
class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;
class QTextEdit;
class SubidaBusqueda;
class QRadioButton;
class QTableView;
class QTimer;
struct FilaQSO;
struct FiltrosBusqueda;

class Form6 : public QDialog
{
    Q_OBJECT
public:
    explicit Form6(Contexto &ctx, QWidget *parent = nullptr);
    ~Form6() override;

    // The QSOs of the log in use, newest first, and the lists of its own callsigns and
    // operators.
    void Cargar();
    // The list as it stands on screen, each row with its id.
    const ModeloBusqueda &Lista() const { return *modelo_; }

    // Seams handed in by whoever opens the window: the edit window for a row (read again
    // from the store), and the province award built from the listed rows.
    std::function<void(const FilaQSO &)> editar;
    std::function<void(const QVector<FilaQSO> &)> tablaProvincias;

    void Command3_Click(); // "Buscar"
    void Command4_Click(); // "Borrar Filtros"
    void Command2_Click(); // "Buscar" by Combo1 and Combo2
    void Command1_Click(); // "Exportar ADIF"
    void Command8_Click(); // "Subir a eQSL"
    void Command6_Click(); // "Subir a LbN"
    void Command5_Click(); // the table of provinces
    void Check2_Click();
    void OrdenarPorColumna(int columna);
    void DobleClicFila(int fila);
    // After the edit window saved or deleted the QSO with this id.
    void ActualizarFilaBusqueda(qint64 id);

    // ---- Controls -----------------------------------------------------------------
    QLineEdit *Text3 = nullptr, *Text4 = nullptr, *Text1 = nullptr, *Text2 = nullptr;
    QLineEdit *Text5 = nullptr, *Text6 = nullptr, *Text7 = nullptr, *Text8 = nullptr;
    QCheckBox *Check1 = nullptr, *Check2 = nullptr, *Check3 = nullptr;
    QGroupBox *Frame4 = nullptr;
    QRadioButton *Option1 = nullptr, *Option2 = nullptr, *Option3 = nullptr, *Option4 = nullptr;
    QPushButton *Command3 = nullptr, *Command4 = nullptr, *Command2 = nullptr;
    QComboBox *Combo1 = nullptr, *Combo2 = nullptr;
    QTableView *ListView2 = nullptr;
    QPushButton *Command1 = nullptr, *Command6 = nullptr, *Command8 = nullptr;
    QPushButton *Command5 = nullptr; // a picture: the table of provinces
    // "Respuesta de Libro Nacional ...": the replies of an upload, one line each.
    QGroupBox *Frame5 = nullptr;
    QTextEdit *RichTextBox1 = nullptr;
    QProgressBar *ProgressBar1 = nullptr;
    QPushButton *Command7 = nullptr; // "Cerrar"
    QLabel *Label6 = nullptr;        // the number of rows listed
    QLabel *Label13 = nullptr;       // "Buscando ...", blinking while a search runs
    QTimer *Timer1 = nullptr;

public Q_SLOTS:
    void Timer1_Timer();

    // Closing stops an upload between two QSOs.
    void done(int resultado) override;

protected:
    bool eventFilter(QObject *objeto, QEvent *evento) override;
    void showEvent(QShowEvent *evento) override;

private:
    void Crear();
    void Conectar();
    FiltrosBusqueda Filtros() const;
    // The rows shown, the count, and the buttons that need rows.
    void Mostrar(QVector<qint64> ids);
    void Contar();
    void Buscando(bool si);
    void CrearRespuestas();

    Contexto &ctx;
    ModeloBusqueda *modelo_ = nullptr;
    bool ordenAscendente_ = false;
    SubidaBusqueda *subida_ = nullptr; // the upload running, if any
};
