// SPDX-License-Identifier: GPL-3.0-or-later
// Form6: the searches, the sort, the edit of a row and the export of the list.
#include "core/adif/Busqueda.h"
#include "core/adif/ExportacionAdif.h"
#include "core/context/Contexto.h"
#include "core/store/Almacen.h"
#include "gui/adif/ExportarAdif.h"
#include "gui/adif/Form6.h"
#include "gui/adif/ModeloBusqueda.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>
#include <QTimer>

namespace {

const QString kTodos = QStringLiteral("Todos");

} // namespace

void Form6::Cargar()
{
    Almacen &almacen = ctx.almacen();
    for (const auto &[combo, columna] : {std::pair{Combo1, Almacen::Columna::MyCall},
                                         std::pair{Combo2, Almacen::Columna::Operador}}) {
        combo->clear();
        combo->addItem(kTodos);
        combo->addItems(almacen.DistintosDelLog(ctx.LogenUso, columna));
    }
    Mostrar(almacen.IdsDelLog(ctx.LogenUso));
}

void Form6::Mostrar(QVector<qint64> ids)
{
    modelo_->Poner(ctx.LogenUso, std::move(ids));
    Contar();
}

void Form6::Contar()
{
    const int n = modelo_->rowCount();
    Label6->setText(QString::number(n));
    for (QPushButton *b : {Command1, Command6, Command8})
        b->setEnabled(n != 0);
}

void Form6::Buscando(bool si)
{
    if (si) {
        Label6->setText(QStringLiteral("?"));
        Label13->setText(QStringLiteral("Buscando ..."));
        Label13->setVisible(true);
        Timer1->start();
        ListView2->setVisible(false);
        ctx.bomba().Bombear();
    } else {
        Timer1->stop();
        Label13->setVisible(false);
        ListView2->setVisible(true);
    }
}

FiltrosBusqueda Form6::Filtros() const
{
    // Taken as typed: the store compares A to Z without regard to case, and upper-casing
    // an accented letter would only keep "muñoz" from finding "Muñoz".
    FiltrosBusqueda f;
    f.senal = Text3->text();
    f.operador = Text4->text();
    f.desde = Text1->text();
    f.hasta = Text2->text();
    f.corresponsal = Text5->text();
    f.modo = Text6->text();
    f.banda = Text7->text();
    f.observaciones = Text8->text();
    f.satelite = Check1->isChecked();
    f.soloArgentinos = Check2->isChecked();
    f.lbn = Option1->isChecked()   ? OpcionLbN::NoSubidos
            : Option2->isChecked() ? OpcionLbN::Subidos
            : Option3->isChecked() ? OpcionLbN::Confirmados
                                   : OpcionLbN::Todos;
    return f;
}

void Form6::Command3_Click()
{
    Buscando(true);
    Resultado<QVector<qint64>> r = BuscarQSOsFiltrados(ctx.almacen(), ctx.LogenUso, Filtros());
    ListView2->setColumnHidden(17, false);
    if (!r) {
        Buscando(false);
        Label6->setText(QString::number(modelo_->rowCount()));
        ctx.dialogos().Exclamacion(r.Mensaje());
        return;
    }
    Mostrar(std::move(r.Valor()));
    Buscando(false);
}

void Form6::Command4_Click()
{
    for (QLineEdit *t : {Text1, Text2, Text3, Text4, Text5, Text6, Text7, Text8})
        t->clear();
    for (QCheckBox *c : {Check1, Check2, Check3})
        c->setChecked(false);
    Frame4->setEnabled(false);
    Command3_Click();
}

void Form6::Command2_Click()
{
    ListView2->setVisible(false);
    modelo_->Poner(ctx.LogenUso, {});
    ctx.bomba().Bombear();
    const QString senal = Combo1->currentText() == kTodos ? QString() : Combo1->currentText();
    const QString operador = Combo2->currentText() == kTodos ? QString() : Combo2->currentText();
    Mostrar(ctx.almacen().BuscarQSOs(ctx.LogenUso, senal, operador));
    // This list has no province column.
    ListView2->setColumnHidden(17, true);
    ListView2->setVisible(true);
}

void Form6::Check2_Click()
{
    Frame4->setEnabled(Check2->isChecked());
}

void Form6::OrdenarPorColumna(int columna)
{
    // The "ID" column sorts by the band, as the lists of this program always have.
    if (columna == 1)
        columna = 3;
    ordenAscendente_ = !ordenAscendente_;
    modelo_->Ordenar(columna, ordenAscendente_ ? Qt::AscendingOrder : Qt::DescendingOrder);
}

void Form6::DobleClicFila(int fila)
{
    if (modelo_->rowCount() == 0 || fila < 0 || fila >= modelo_->rowCount()) {
        ctx.dialogos().Exclamacion(QStringLiteral("No hay QSOs para exportar!"));
        return;
    }
    // The stored QSO, read by the row's id: the cells show some columns shortened.
    const std::optional<FilaQSO> qso =
        ctx.almacen().QSOPorId(ctx.LogenUso, modelo_->Ids().at(fila));
    if (!qso || !editar)
        return;
    ctx.OrigenEdicion = QStringLiteral("Form6");
    ctx.CargandoEdicion = true;
    editar(*qso);
}

void Form6::ActualizarFilaBusqueda(qint64 id)
{
    modelo_->Reemplazar(id, ctx.almacen().QSOPorId(ctx.LogenUso, id));
    Contar();
}

void Form6::Command1_Click()
{
    // Asked first, even when there turns out to be nothing to export.
    ctx.UsarComentarioComoQslmsg =
        ctx.dialogos().PreguntaSiNo(QStringLiteral("Desea usar el campo COMMENT como QSLMSG?"));
    if (modelo_->rowCount() == 0) {
        ctx.dialogos().Exclamacion(QStringLiteral("No hay QSOs para exportar!"));
        return;
    }
    const QString archivo = PedirArchivoAdif(ctx);
    if (archivo.isEmpty())
        return;
    if (const Resultado<> r = ExportBusqueda(archivo, modelo_->Filas(),
                                             ctx.UsarComentarioComoQslmsg, OrigenAhora(ctx));
        !r) {
        ctx.dialogos().Exclamacion(r.Mensaje());
        return;
    }
    hide();
    OfrecerVerAdif(ctx, archivo);
}

void Form6::Command8_Click()
{
    // The upload to eQSL does not exist yet: no account is read and nothing is sent.
    ctx.dialogos().Informacion(QStringLiteral("Momentanemente fuera de servicio"));
}
