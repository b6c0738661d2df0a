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
    Label6->setText(QStringLiteral("Log: ") + ctx.LogenUso + QStringLiteral(", con ") +
                    QString::number(n) + QStringLiteral(" QSOs"));
    ProgressBar1->setVisible(false);
    Label9->setVisible(false);
    ctx.bomba().Bombear();
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

qint64 Form1::CantidadDeLabel6() const
{
    // The count's only home is the caption: the number after ", con".
    const QString t = Label6->text();
    const int i = int(t.indexOf(QLatin1String(", con")));
    if (i < 0)
        return 0;
    return qint64(NumeroInicial(t.mid(i + 5)));
}

void Form1::CambiarPagina()
{
    ActualizarBotones(CantidadDeLabel6());
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
    nav_.Ultima(CantidadDeLabel6());
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
    if (CantidadDeLabel6() == 0 || !item)
        return;
    FilaQSO f;
    f.id = item->text(1).toLongLong();
    f.Estacion = item->text(2);
    f.Banda = item->text(3);
    f.Frecuencia = item->text(4);
    f.Modo = item->text(5);
    f.RSE = item->text(6);
    f.RSR = item->text(7);
    f.Fecha = item->text(8);
    f.Hora = item->text(9);
    f.MyCall = item->text(10);
    f.Operador = item->text(11);
    f.Obs = item->text(12);
    f.MiGrid = item->text(13);
    f.SuGrid = item->text(14);
    f.LbN = item->text(15);
    f.Nombre_Sat = item->text(16);
    f.Argento = item->text(17);
    f.NombreLog = ctx.LogenUso;
    ctx.CargandoEdicion = true;
    if (abrirEdicion)
        abrirEdicion(f, false);
    else
        ctx.CargandoEdicion = false;
}

void Form1::EditarUltimoQSO()
{
    if (CantidadDeLabel6() == 0) {
        ctx.dialogos().Exclamacion(QStringLiteral("No hay QSOs para Editar!"));
        return;
    }
    std::optional<FilaQSO> fila;
    if (Label4->text().isEmpty())
        fila = ctx.almacen().UltimoQSO(ctx.LogenUso);
    else
        fila = ctx.almacen().QSOPorId(ctx.LogenUso, qint64(NumeroInicial(Label4->text())));
    if (!fila)
        return;
    fila->Hora = fila->Hora.left(5);
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
