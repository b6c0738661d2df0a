// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Form17: the earlier QSOs of a correspondent in the log in use, one line each in fixed
// columns under a header. Esc closes it.

#include <QDialog>
#include <QStringList>

class QGroupBox;
class QListWidget;

class Form17 : public QDialog
{
    Q_OBJECT
public:
    explicit Form17(QWidget *parent = nullptr);

    // The caption is the callsign asked for; the first line is the header.
    void Llenar(const QString &senal, const QStringList &lineas);

    QGroupBox *Frame1 = nullptr;
    QListWidget *List1 = nullptr;
};
