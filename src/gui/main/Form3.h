// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Form3: "Abrir Log ...", the list of the logs with their counts; a click or Enter on
// an entry opens that log.

#include <QDialog>
#include <QStringList>

class QListWidget;
class QListWidgetItem;

class Form3 : public QDialog
{
    Q_OBJECT
public:
    explicit Form3(QWidget *parent = nullptr);

    // The entries, "name (N QSOs)"; the one of the log in use starts as the current one
    // so that the arrows move from there.
    void Llenar(const QStringList &entradas, const QString &logEnUso = {});

    QListWidget *List1 = nullptr;

Q_SIGNALS:
    // The name of the chosen entry. The window closes once the receivers are done.
    void LogElegido(const QString &nombre);

private:
    void Elegir(QListWidgetItem *item);

    bool eligiendo_ = false;
};
