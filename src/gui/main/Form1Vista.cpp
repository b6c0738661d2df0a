// SPDX-License-Identifier: GPL-3.0-or-later
// Form1: the log view, twenty QSOs to a page, newest first, and its navigator.
#include "core/context/Contexto.h"
#include "core/rules/Numeros.h"
#include "gui/main/Form1.h"

#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTreeWidget>

namespace {

const QColor VerdeFilas(0x00, 0x40, 0x00);

} // namespace

void Form1::CargarLog(qint64 filaInicial)
{
    // The list is frozen rather than hidden, so that the focus does not wander while it
    // fills.
    ListView2->setUpdatesEnabled(false);
    Label9->setText(QStringLiteral("Cargando log ..."));
    Label9->setVisible(true);
    ProgressBar1->setMaximum(500);
    ProgressBar1->setVisible(true);
    ctx.bomba().Bombear();

    const qint64 n = ctx.almacen().CantidadQSOs(ctx.LogenUso);
    nav_.Cargado(n, filaInicial);
    txt_pagina->setText(QString::number(nav_.PaginaActual));
    txt_total->setText(QString::number(nav_.TotalMostrado()));
    ctx.bomba().Bombear();
    ActualizarBotones(n);

    const QVector<FilaQSO> filas = ctx.almacen().PaginaLog(ctx.LogenUso, nav_.FilaInicial);
    for (const FilaQSO &f : filas)
        AgregarFila(f);
    ProgressBar1->setValue(int(filas.size()));

    ListView2->setUpdatesEnabled(true);
    Label6->setText(RotuloDelLog());
    ProgressBar1->setVisible(false);
    Label9->setVisible(false);
    ctx.bomba().Bombear();
}

QString Form1::RotuloDelLog() const
{
    return QStringLiteral("Log: ") + ctx.LogenUso + QStringLiteral(", con ") +
           QString::number(nav_.Cantidad) + QStringLiteral(" QSOs");
}

void Form1::AgregarFila(const FilaQSO &f)
{
    const QString hora = f.Hora.left(5);
    const QStringList textos{QStringLiteral("nombre1"),
                             QString::number(f.id),
                             f.Estacion,
                             f.Banda,
                             f.Frecuencia,
                             f.Modo,
                             f.RSE,
                             f.RSR,
                             QString(f.Fecha).replace(QLatin1Char('-'), QLatin1Char('/')),
                             hora,
                             f.MyCall,
                             f.Operador,
                             f.Obs,
                             f.MiGrid,
                             f.SuGrid,
                             f.LbN.trimmed(),
                             f.Nombre_Sat.trimmed(),
                             f.Argento.trimmed()};
    auto *item = new QTreeWidgetItem(textos);
    // The row's id travels with it: the edit window reads the stored QSO by it, never the
    // cells, which show some columns shortened.
    item->setData(0, Qt::UserRole, f.id);
    for (int c = 1; c < textos.size(); ++c)
        item->setForeground(c, VerdeFilas);
    ListView2->addTopLevelItem(item);
}

void Form1::ActualizarBotones(qint64 n)
{
    const BotonesPagina b = nav_.Botones(n);
    anterior->setEnabled(b.anterior);
    menos->setEnabled(b.menos);
    mas->setEnabled(b.mas);
    ultima->setEnabled(b.ultima);
}

void Form1::CambiarPagina()
{
    ActualizarBotones(nav_.Cantidad);
    ListView2->clear();
    CargarLog(nav_.FilaInicial);
    Corresponsal->setFocus(Qt::OtherFocusReason);
}

void Form1::anterior_Click()
{
    nav_.Primera();
    CambiarPagina();
}

void Form1::menos_Click()
{
    nav_.Anterior();
    CambiarPagina();
}

void Form1::mas_Click()
{
    nav_.Siguiente();
    CambiarPagina();
}

void Form1::ultima_Click()
{
    nav_.Ultima(nav_.Cantidad);
    CambiarPagina();
}

void Form1::Command8_Click()
{
    qint64 pagina = qint64(NumeroInicial(Text3->text()));
    const bool mover = nav_.Ir(pagina);
    Text3->setText(QString::number(pagina));
    if (mover)
        CambiarPagina();
}

void Form1::Command11_Click()
{
    ListView2->clear();
    CargarLog(nav_.FilaInicial);
    Corresponsal->setFocus(Qt::OtherFocusReason);
}

void Form1::CargarLogDesdeElPrincipio()
{
    ListView2->clear();
    CargarLog(1);
}

void Form1::PonerObservaciones(const QString &texto)
{
    Obs->setText(texto);
}

void Form1::PonerGrillaCorresponsal(const QString &grilla)
{
    Text2->setText(grilla);
}

void Form1::VistaEnEspera(bool cargando)
{
    ListView2->setVisible(false);
    Label9->setText(QStringLiteral("Cargando ..."));
    Label9->setVisible(cargando);
}

void Form1::VistaDeNuevo()
{
    Label9->setVisible(false);
    Command11_Click();
    ListView2->setVisible(true);
}

void Form1::OrdenarPorColumna(int columna)
{
    // The hidden "ID" column sorts by the band instead, as the view always has.
    if (columna == 1)
        columna = 3;
    ordenAscendente_ = !ordenAscendente_;
    ListView2->sortItems(columna, ordenAscendente_ ? Qt::AscendingOrder : Qt::DescendingOrder);
}

void Form1::DobleClicFila(QTreeWidgetItem *item)
{
    ctx.OrigenEdicion = QStringLiteral("Form1");
    if (nav_.Cantidad == 0 || !item)
        return;
    const std::optional<FilaQSO> fila =
        ctx.almacen().QSOPorId(ctx.LogenUso, item->data(0, Qt::UserRole).toLongLong());
    if (!fila)
        return;
    ctx.CargandoEdicion = true;
    if (abrirEdicion)
        abrirEdicion(*fila, false);
    else
        ctx.CargandoEdicion = false;
}

void Form1::EditarUltimoQSO()
{
    if (nav_.Cantidad == 0) {
        ctx.dialogos().Exclamacion(QStringLiteral("No hay QSOs para Editar!"));
        return;
    }
    // The QSO entered last in this run, whatever its date; before any, the newest.
    const std::optional<FilaQSO> fila = ultimoId_ == 0
                                            ? ctx.almacen().UltimoQSO(ctx.LogenUso)
                                            : ctx.almacen().QSOPorId(ctx.LogenUso, ultimoId_);
    if (!fila)
        return;
    ctx.OrigenEdicion = QStringLiteral("Form1");
    ctx.CargandoEdicion = true;
    if (abrirEdicion)
        abrirEdicion(*fila, true);
    else
        ctx.CargandoEdicion = false;
}

void Form1::HacerTabla()
{
    // Asks nothing and leaves the view as it is: a tool for the one who delivers the file.
    if (const Resultado<> r = ctx.almacen().VaciarTodo(); !r)
        ctx.dialogos().Alto(r.Mensaje());
}
