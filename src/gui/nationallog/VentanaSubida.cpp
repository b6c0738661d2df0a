// SPDX-License-Identifier: GPL-3.0-or-later
// VentanaSubida: the window of an upload run of the menu.
#include "gui/nationallog/VentanaSubida.h"

#include "core/context/Contexto.h"
#include "gui/common/Controles.h"
#include "gui/main/Form1.h"
#include "gui/nationallog/Form14.h"

#include <QAction>
#include <QLabel>
#include <QListWidget>
#include <QPointer>
#include <QProgressBar>
#include <QTreeWidget>

VentanaSubida::VentanaSubida(QWidget *parent)
    : QDialog(parent)
{
    setObjectName(QStringLiteral("VentanaSubida"));
    setWindowTitle(QStringLiteral("Subida a LbN"));
    Label1 = Poner<QLabel>(this, "Label1", 120, 120, 6600, 300);
    List1 = Poner<QListWidget>(this, "List1", 120, 480, 6600, 4200);
    List1->setAccessibleName(QStringLiteral("Respuestas de LbN"));
    ProgressBar1 = Poner<QProgressBar>(this, "ProgressBar1", 120, 4800, 6600, 300);
    ProgressBar1->setAccessibleName(QStringLiteral("Progreso"));
    setFixedSize(Px(6840), Px(5220));
}

void VentanaSubida::Mostrar(int maximo)
{
    List1->clear();
    ProgressBar1->setRange(0, qMax(1, maximo));
    ProgressBar1->setValue(0);
    Label1->clear();
    Label1->show();
    show();
    raise();
}

void VentanaSubida::Ocultar()
{
    hide();
}

void VentanaSubida::Estado(const QString &texto)
{
    Label1->setText(texto);
}

void VentanaSubida::Linea(const QString &texto)
{
    List1->addItem(texto);
    List1->setCurrentRow(List1->count() - 1);
}

void VentanaSubida::Avanzar()
{
    ProgressBar1->setValue(qMin(ProgressBar1->value() + 1, ProgressBar1->maximum()));
}

LbNConectado ConectarLbN(Form1 &principal, Contexto &ctx)
{
    LbNConectado c;
    c.provincias = new Form14(ctx, &principal);
    c.ventanaSubida = new VentanaSubida(&principal);
    c.ventanaSubida->setWindowFlag(Qt::Window);
    c.ventanaSubida->corrida = std::make_unique<CorridaMenu>(
        ServiciosCorrida{ctx.almacen(), ctx.dialogos(), ctx.web(), ctx.bomba(), ctx.config(),
                         ctx.direcciones().LbN},
        *c.ventanaSubida);

    Form14 *provincias = c.provincias;
    provincias->subidaAbortada = [&ctx] { return ctx.AbortarEnvio; };
    principal.provinciasLbN = [provincias] { provincias->parg_Click(); };
    principal.parg->setEnabled(true);

    const QPointer<VentanaSubida> ventana(c.ventanaSubida);
    principal.corridaLbN = [ventana, &principal, &ctx](TipoCorrida tipo) {
        if (!ventana)
            return;
        const CorridaMenu::Fin fin = ventana->corrida->Correr(tipo, ctx.LogenUso);
        if (fin == CorridaMenu::Fin::SinCuenta)
            principal.conf->trigger();
        else if (fin == CorridaMenu::Fin::Completa || fin == CorridaMenu::Fin::Cancelada ||
                 fin == CorridaMenu::Fin::SinConexion) {
            principal.CargarLogDesdeElPrincipio();
        }
    };
    // The program's end stops a run between two QSOs.
    ctx.Terminar = [anterior = ctx.Terminar, ventana](int codigo) {
        if (ventana)
            ventana->corrida->Cancelar();
        anterior(codigo);
    };
    return c;
}
