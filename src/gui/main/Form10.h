// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Form10: "Acerca de ...", the version and what this logbook is for.

#include <QDialog>

class Contexto;
class QLabel;

class Form10 : public QDialog
{
    Q_OBJECT
public:
    Form10(Contexto &ctx, QWidget *parent = nullptr);

    QLabel *Label2 = nullptr;
    QLabel *Label3 = nullptr;
};
