// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Form7: the contest QSO edit window, "Edición de Registro #". One row of a contest,
// corrected and saved, or deleted. The row's id is kept here and shown in the caption.

#include <QDialog>
#include <functional>

class Contexto;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
struct FilaConcurso;

class Form7 : public QDialog
{
    Q_OBJECT
public:
    // refrescar shows the contest's log again after a save or a delete.
    Form7(Contexto &ctx, std::function<void()> refrescar, QWidget *parent = nullptr);

    // The row, and the contest and series of the contest window. The kHz field is left as
    // the last use left it.
    void Cargar(const FilaConcurso &fila, const QString &concurso, const QString &tipo);
    qint64 Id() const { return id_; }
    int Mostrar();

    void Command1_Click(); // "Guardar"
    void Command2_Click(); // "Eliminar"

    QLineEdit *Text1 = nullptr;  // own callsign
    QLineEdit *Text2 = nullptr;  // correspondent
    QLineEdit *Text4 = nullptr;  // UTC date, yyyymmdd
    QLineEdit *Text5 = nullptr;  // UTC time, hhmm
    QComboBox *Combo1 = nullptr; // band
    QComboBox *Combo2 = nullptr; // mode
    QLineEdit *Text6 = nullptr;  // sent serial
    QLineEdit *Text7 = nullptr;  // received serial
    QLineEdit *Text3 = nullptr;  // kHz
    QLabel *Label3 = nullptr;    // contest, shown only
    QLabel *Label10 = nullptr;   // series, shown only
    QPushButton *Command1 = nullptr, *Command2 = nullptr;

protected:
    bool eventFilter(QObject *objeto, QEvent *evento) override;

private:
    bool AlTeclear(QLineEdit *campo, QKeyEvent *tecla);
    void AlPerderFoco(QLineEdit *campo);
    void Terminar();

    Contexto &ctx;
    std::function<void()> refrescar_;
    qint64 id_ = 0;
    bool revisando_ = false;
};
