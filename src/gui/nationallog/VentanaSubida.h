// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// VentanaSubida: the window of an upload run of the menu: its state, one line per QSO as
// the service answers, and the progress. Esc hides it; the run goes on.

#include "core/nationallog/CorridaMenu.h"

#include <QDialog>
#include <memory>

class Contexto;
class Form1;
class QLabel;
class QListWidget;
class QProgressBar;

class VentanaSubida : public QDialog, public VistaCorrida
{
    Q_OBJECT
public:
    explicit VentanaSubida(QWidget *parent = nullptr);

    void Mostrar(int maximo) override;
    void Ocultar() override;
    void Estado(const QString &texto) override;
    void Linea(const QString &texto) override;
    void Avanzar() override;

    QLabel *Label1 = nullptr;
    QListWidget *List1 = nullptr;
    QProgressBar *ProgressBar1 = nullptr;

    // The run this window shows; it goes with the window.
    std::unique_ptr<CorridaMenu> corrida;
};

// The province award (parg) and the runs of the menu (suych, ssub, lbn2), which stay
// closed. The runs end between two QSOs when the program closes.
struct LbNConectado
{
    class Form14 *provincias = nullptr;
    VentanaSubida *ventanaSubida = nullptr;
};
LbNConectado ConectarLbN(Form1 &principal, Contexto &ctx);
