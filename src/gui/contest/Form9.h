// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Form9: the Cabrillo header, "Encabezado ...". The QSO lines come built from the contest
// window; the operator fills in the header, and "Cabrillo" puts it in front of the lines
// and saves the whole. The personal lines are remembered in datos.cbr.

#include <QDialog>

class Contexto;
class QComboBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;

class Form9 : public QDialog
{
    Q_OBJECT
public:
    explicit Form9(Contexto &ctx, QWidget *parent = nullptr);

    // The lines of one export (what an earlier one left is gone), the contest, its count
    // and the station's callsign.
    void Cargar(const QString &lineas, const QString &concurso, int cantidad, const QString &senal);
    // The lists with their defaults, and datos.cbr over the personal fields.
    void Activar();
    int Mostrar();
    void Command1_Click(); // "Cabrillo": the header, the file

    QLineEdit *Text1 = nullptr;                                     // own callsign
    QLineEdit *Text3 = nullptr;                                     // contest
    QComboBox *Combo1 = nullptr;                                    // category
    QComboBox *Combo2 = nullptr;                                    // power
    QComboBox *Combo3 = nullptr;                                    // bands
    QComboBox *Combo4 = nullptr;                                    // mode
    QLabel *Label9 = nullptr;                                       // caption of Text9
    QLineEdit *Text9 = nullptr;                                     // operators, for MULTI-OP
    QLineEdit *Text2 = nullptr;                                     // name
    QLineEdit *Text4 = nullptr, *Text5 = nullptr, *Text6 = nullptr; // address
    QLineEdit *Text7 = nullptr;                                     // e-mail
    QPlainTextEdit *Text8 = nullptr;                                // the log itself
    QPushButton *Command1 = nullptr;

protected:
    void showEvent(QShowEvent *evento) override;
    bool eventFilter(QObject *objeto, QEvent *evento) override;

private:
    void MostrarOperadores();

    Contexto &ctx;
};
