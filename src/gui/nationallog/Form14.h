// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Form14: "Argentina en LbN", the province award of the log in use. A grid of the provinces
// against the bands with the best state at the national log of the QSOs of each cell, the
// grids confirmed and worked, and on request the member list of the service. Rebuilt each
// time it comes up, so that it shows current figures.

#include "core/nationallog/PremioProvincias.h"

#include <QDialog>

class Contexto;
class QGroupBox;
class QLabel;
class QListWidget;
class QProgressBar;
class QPushButton;
class QTreeWidget;

class Form14 : public QDialog
{
    Q_OBJECT
public:
    explicit Form14(Contexto &ctx, QWidget *parent = nullptr);

    // The menu entry: the log in use read, the window shown modally.
    void parg_Click();
    // The search window's table button: the grid built from its rows, then the window
    // shown again, which rebuilds it from the log that parg read last.
    void TablaDesdeBusqueda(const QVector<FilaQSO> &filasBusqueda);
    // "Miembros": the member list of the service.
    void Command1_Click();

    // The log of the last parg: what every showing computes.
    const QString &LogPremio() const { return logPremio_; }
    // The grid last computed.
    const GrillaPremio &Grilla() const { return grilla_; }

    QTreeWidget *ListView2 = nullptr;
    QProgressBar *ProgressBar1 = nullptr;
    QGroupBox *Frame4 = nullptr, *Frame2 = nullptr, *Frame3 = nullptr, *Frame5 = nullptr;
    QListWidget *List1 = nullptr, *List2 = nullptr, *List3 = nullptr;
    QPushButton *Command1 = nullptr, *Command2 = nullptr;
    QLabel *Image4 = nullptr;

    // Set by whoever runs the search window's upload: true once that run was refused.
    std::function<bool()> subidaAbortada;

protected:
    void showEvent(QShowEvent *evento) override;

private:
    void Llenar(const GrillaPremio &g);
    void MostrarGrillas(const GrillaPremio &g);

    Contexto &ctx;
    QString logPremio_;
    GrillaPremio grilla_;
};
