// SPDX-License-Identifier: GPL-3.0-or-later
// Form14: "Argentina en LbN", the province award of the log in use.
#include "gui/nationallog/Form14.h"

#include "core/context/Contexto.h"
#include "core/nationallog/SubidaLbN.h"
#include "core/rules/Senales.h"
#include "gui/common/Controles.h"

#include <QElapsedTimer>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QListWidget>
#include <QPainter>
#include <QProgressBar>
#include <QPushButton>
#include <QTreeWidget>

namespace {

constexpr int kColumnaProvincia = 2;
constexpr int kPrimeraBanda = 3;

// The icons of a cell, by state: not uploaded, uploaded, confirmed.
const QIcon &IconoEstado(int estado)
{
    static const QIcon iconos[] = {
        [] {
            QPixmap p(12, 12);
            p.fill(Qt::transparent);
            QPainter pintor(&p);
            pintor.setRenderHint(QPainter::Antialiasing);
            pintor.setPen(QPen(Qt::darkGray, 1.5));
            pintor.drawEllipse(QRectF(1.5, 1.5, 9, 9));
            return QIcon(p);
        }(),
        [] {
            QPixmap p(12, 12);
            p.fill(Qt::transparent);
            QPainter pintor(&p);
            pintor.setRenderHint(QPainter::Antialiasing);
            pintor.setBrush(QColor(0xC0, 0x40, 0x00));
            pintor.setPen(Qt::NoPen);
            pintor.drawEllipse(QRectF(1, 1, 10, 10));
            return QIcon(p);
        }(),
        [] {
            QPixmap p(12, 12);
            p.fill(Qt::transparent);
            QPainter pintor(&p);
            pintor.setRenderHint(QPainter::Antialiasing);
            pintor.setPen(QPen(QColor(0x00, 0x80, 0x00), 2.5));
            pintor.drawPolyline(QPolygonF({{1.5, 6.5}, {4.5, 10}, {10.5, 2}}));
            return QIcon(p);
        }()};
    return iconos[qBound(0, estado, 2)];
}

// What a screen reader says of a cell: the icon alone says nothing to it.
QString NombreEstado(int estado)
{
    static const QString nombres[] = {QStringLiteral("No subido"), QStringLiteral("Subido"),
                                      QStringLiteral("Confirmado")};
    return estado < 0 ? QString() : nombres[qBound(0, estado, 2)];
}

// A colour of the program's BGR numbers.
QColor ColorBGR(int bgr)
{
    return QColor(bgr & 0xFF, (bgr >> 8) & 0xFF, (bgr >> 16) & 0xFF);
}

} // namespace

Form14::Form14(Contexto &contexto, QWidget *parent)
    : QDialog(parent)
    , ctx(contexto)
{
    setObjectName(QStringLiteral("Form14"));
    setWindowTitle(QStringLiteral("Argentina en LbN"));

    ListView2 = Poner<QTreeWidget>(this, "ListView2", 120, 120, 8900, 6900);
    ListView2->setAccessibleName(QStringLiteral("Provincias"));
    ListView2->setRootIsDecorated(false);
    ListView2->setSortingEnabled(true);
    ListView2->header()->setSortIndicatorShown(true);
    ListView2->setSelectionBehavior(QAbstractItemView::SelectRows);
    ProgressBar1 = Poner<QProgressBar>(this, "ProgressBar1", 120, 7100, 8900, 240);
    ProgressBar1->setAccessibleName(QStringLiteral("Progreso"));
    ProgressBar1->hide();

    Frame4 = Poner<QGroupBox>(this, "Frame4", 9150, 60, 2500, 5900);
    Frame4->setTitle(QStringLiteral("Grillas"));
    Frame2 = Poner<QGroupBox>(Frame4, "Frame2", 100, 240, 2300, 2700);
    Frame2->setTitle(QStringLiteral("Confirmadas (0)"));
    List1 = Poner<QListWidget>(Frame2, "List1", 100, 260, 2100, 2340);
    List1->setAccessibleName(QStringLiteral("Grillas confirmadas"));
    Frame3 = Poner<QGroupBox>(Frame4, "Frame3", 100, 3060, 2300, 2700);
    Frame3->setTitle(QStringLiteral("Trabajadas (0)"));
    List2 = Poner<QListWidget>(Frame3, "List2", 100, 260, 2100, 2340);
    List2->setAccessibleName(QStringLiteral("Grillas trabajadas"));

    Command1 = Boton(this, "Command1", QStringLiteral("Miembros"), 9150, 6060, 2500);
    Image4 = Poner<QLabel>(this, "Image4", 9150, 6540, 2500, 480);
    Image4->setText(QStringLiteral("<a href=\"#\">Libro Nacional</a>"));
    Image4->setAlignment(Qt::AlignCenter);
    Image4->setToolTip(QStringLiteral("Página del Libro Nacional"));
    connect(Image4, &QLabel::linkActivated, this,
            [this] { ctx.escritorio().Abrir(ctx.direcciones().LbN); });

    Frame5 = Poner<QGroupBox>(this, "Frame5", 1200, 1200, 7200, 4200);
    Frame5->setTitle(QStringLiteral("Miembros de LbN"));
    List3 = Poner<QListWidget>(Frame5, "List3", 120, 300, 6960, 3240);
    List3->setAccessibleName(QStringLiteral("Miembros de LbN"));
    Command2 = Boton(Frame5, "Command2", QStringLiteral("Cerrar"), 5640, 3660, 1440);
    Frame5->hide();

    connect(Command1, &QPushButton::clicked, this, &Form14::Command1_Click);
    connect(Command2, &QPushButton::clicked, Frame5, &QWidget::hide);
    setFixedSize(Px(11800), Px(7500));
}

void Form14::parg_Click()
{
    if (ctx.almacen().CantidadQSOs(ctx.LogenUso) == 0) {
        ctx.dialogos().Exclamacion(QStringLiteral("No hay QSOs para mostrar!"));
        return;
    }
    logPremio_ = ctx.LogenUso;
    exec();
}

void Form14::TablaDesdeBusqueda(const QVector<FilaQSO> &filasBusqueda)
{
    ProgressBar1->show();
    ListView2->hide();
    ProgressBar1->setRange(0, 26);
    Llenar(CalcularPremio(filasBusqueda, false));
    ListView2->show();
    ProgressBar1->hide();
    // Shown again, the window rebuilds the grid from the log of the last parg.
    hide();
    exec();
}

void Form14::showEvent(QShowEvent *evento)
{
    QDialog::showEvent(evento);
    Frame5->hide();
    ProgressBar1->setRange(0, 26);
    ProgressBar1->setValue(0);
    grilla_ = CalcularPremioDelLog(ctx.almacen(), logPremio_);
    Llenar(grilla_);
    MostrarGrillas(grilla_);
    ProgressBar1->setValue(26);
}

void Form14::Llenar(const GrillaPremio &g)
{
    ListView2->setSortingEnabled(false);
    ListView2->clear();
    QStringList cabecera = {QStringLiteral("Indice"), QStringLiteral("ID"),
                            QStringLiteral("Provincia")};
    cabecera << ColumnasPremio();
    ListView2->setHeaderLabels(cabecera);
    ListView2->setColumnHidden(0, true);
    ListView2->setColumnHidden(1, true);
    ListView2->setColumnWidth(kColumnaProvincia, Px(2500));
    for (int j = kPrimeraBanda; j < cabecera.size(); ++j)
        ListView2->setColumnWidth(j, Px(500));

    const QStringList &provincias = NombresProvincias();
    for (int i = 0; i < provincias.size(); ++i) {
        auto *item = new QTreeWidgetItem(ListView2);
        item->setData(0, Qt::DisplayRole, i + 1); // the order of the list
        item->setText(kColumnaProvincia, provincias[i]);
        item->setForeground(kColumnaProvincia, ColorBGR(ColorProvincia(g.mejor[i])));
        for (int j = 0; j < GrillaPremio::kColumnas; ++j) {
            const int estado = g.celdas[i][j];
            if (estado < 0)
                continue;
            item->setIcon(kPrimeraBanda + j, IconoEstado(estado));
            item->setData(kPrimeraBanda + j, Qt::AccessibleTextRole, NombreEstado(estado));
            item->setToolTip(kPrimeraBanda + j, NombreEstado(estado));
        }
    }
    auto *totales = new QTreeWidgetItem(ListView2);
    totales->setData(0, Qt::DisplayRole, int(provincias.size()) + 1);
    totales->setText(kColumnaProvincia, QStringLiteral("Confirmados/Trabajados"));
    for (int j = 0; j < g.totales.size(); ++j)
        totales->setText(kPrimeraBanda + j, g.totales[j]);
    ListView2->setSortingEnabled(true);
    ListView2->sortByColumn(0, Qt::AscendingOrder);
}

void Form14::MostrarGrillas(const GrillaPremio &g)
{
    List1->clear();
    List2->clear();
    List1->addItems(g.grillasConfirmadas);
    List2->addItems(g.grillasTrabajadas);
    Frame2->setTitle(QStringLiteral("Confirmadas (%1)").arg(g.grillasConfirmadas.size()));
    Frame3->setTitle(QStringLiteral("Trabajadas (%1)").arg(g.grillasTrabajadas.size()));
    Frame4->show();
}

void Form14::Command1_Click()
{
    Frame5->show();
    Frame5->raise();
    const std::optional<RespuestaWeb> llegada =
        PedirYEsperar(ctx.web(), ctx.bomba(), DireccionMiembros(ctx.direcciones().LbN), 15000);
    if (!llegada || !llegada->Ok()) {
        ctx.dialogos().Exclamacion(MensajeSinConexion());
        return;
    }
    List3->addItem(LineaMiembros(llegada->texto));
    List1->setCurrentRow(List1->count() - 1);
    if (subidaAbortada && subidaAbortada()) {
        Command1->setEnabled(false);
        ctx.dialogos().Exclamacion(QStringLiteral("Subida a LbN abortada!"));
    }
}
