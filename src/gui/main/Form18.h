// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Form18: "Aguarde, cerrando ..." while the closing run sends its last message.

#include <QWidget>

class QLabel;
class QProgressBar;

class Form18 : public QWidget
{
    Q_OBJECT
public:
    explicit Form18(QWidget *parent = nullptr);
    void Mostrar();
    // One tick of the closing run, 1 to 25.
    void Avanzar(int ticks);

    QLabel *Label1 = nullptr;
    QProgressBar *ProgressBar1 = nullptr;
};
