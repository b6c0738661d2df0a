// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Form15: "Back Up ...", the ADIF backup of every log in one file. It lists the logs with
// their QSOs and writes them with a live bar.

#include <QDialog>

class Contexto;
class QLabel;
class QListWidget;
class QProgressBar;
class QPushButton;
class QTreeWidget;
struct LogsParaRespaldo;

class Form15 : public QDialog
{
    Q_OBJECT
public:
    explicit Form15(Contexto &ctx, QWidget *parent = nullptr);

    void Llenar(const LogsParaRespaldo &logs);
    // Warns, once per opening, when the file will hold more QSOs than the import takes.
    void Form_Activate();
    void Command1_Click(); // "Hacer ADIF"

    QTreeWidget *ListView1 = nullptr;
    QListWidget *List1 = nullptr;
    QLabel *Label1 = nullptr; // the number of logs
    QLabel *Label2 = nullptr; // the QSOs of all logs
    QPushButton *Command1 = nullptr;
    QProgressBar *ProgressBar1 = nullptr;

protected:
    bool event(QEvent *evento) override;
    void showEvent(QShowEvent *evento) override;

private:
    Contexto &ctx;
    qint64 total_ = 0;
    bool avisado_ = false;
    bool ordenAscendente_ = false;
};
