// SPDX-License-Identifier: GPL-3.0-or-later
// Form15: the ADIF backup window.
#include "gui/adif/Form15.h"

#include "core/adif/Respaldo.h"
#include "core/context/Contexto.h"
#include "gui/adif/ExportarAdif.h"
#include "gui/common/Controles.h"

#include <QEvent>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>
#include <QTreeWidget>

Form15::Form15(Contexto &contexto, QWidget *parent)
    : QDialog(parent)
    , ctx(contexto)
{
    setObjectName(QStringLiteral("Form15"));
    setWindowTitle(QStringLiteral("Back Up ..."));

    ListView1 = ::Crear<QTreeWidget>(this, "ListView1");
    ListView1->setHeaderLabels({QStringLiteral("Log"), QStringLiteral("QSOs")});
    ListView1->setRootIsDecorated(false);
    ListView1->setColumnWidth(0, Px(2000));
    ListView1->header()->setSectionsClickable(true);
    ListView1->setAccessibleName(QStringLiteral("Logs"));
    List1 = ::Crear<QListWidget>(this, "List1");
    List1->setAccessibleName(QStringLiteral("Logs"));
    Label1 = ::Crear<QLabel>(this, "Label1");
    Label2 = ::Crear<QLabel>(this, "Label2");
    Command1 = Boton(this, "Command1", QStringLiteral("Hacer ADIF"));
    ProgressBar1 = ::Crear<QProgressBar>(this, "ProgressBar1");
    ProgressBar1->setTextVisible(false);

    auto *rejilla = new QGridLayout(this);
    rejilla->addWidget(ListView1, 0, 0, 1, 4);
    rejilla->addWidget(List1, 0, 4, 1, 2);
    // The counts are values: their captions stand beside them and name nothing.
    rejilla->addWidget(new QLabel(QStringLiteral("Logs:"), this), 1, 0);
    rejilla->addWidget(Label1, 1, 1);
    rejilla->addWidget(new QLabel(QStringLiteral("QSOs:"), this), 1, 2);
    rejilla->addWidget(Label2, 1, 3);
    rejilla->addWidget(Command1, 1, 5);
    rejilla->addWidget(ProgressBar1, 2, 0, 1, 6);
    resize(Px(7500), Px(4500));

    connect(Command1, &QPushButton::clicked, this, [this] { Command1_Click(); });
    connect(ListView1->header(), &QHeaderView::sectionClicked, this, [this](int columna) {
        ordenAscendente_ = !ordenAscendente_;
        ListView1->sortItems(columna, ordenAscendente_ ? Qt::AscendingOrder : Qt::DescendingOrder);
    });
}

void Form15::Llenar(const LogsParaRespaldo &logs)
{
    ListView1->clear();
    for (const auto &[nombre, qsos] : logs.logs)
        ListView1->addTopLevelItem(new QTreeWidgetItem({nombre, QString::number(qsos)}));
    List1->clear();
    List1->addItems(logs.Lineas());
    total_ = logs.total;
    Label2->setText(QString::number(total_));
    Label1->setText(QString::number(logs.logs.size()));
}

bool Form15::event(QEvent *evento)
{
    if (evento->type() == QEvent::WindowActivate)
        Form_Activate();
    return QDialog::event(evento);
}

void Form15::showEvent(QShowEvent *evento)
{
    QDialog::showEvent(evento);
    // Activation may never come on a headless screen; the warning then comes once shown.
    QTimer::singleShot(0, this, [this] { Form_Activate(); });
}

void Form15::Form_Activate()
{
    if (avisado_ || !isVisible())
        return;
    avisado_ = true;
    if (AvisarRespaldoGrande(total_))
        ctx.dialogos().Exclamacion(MensajeRespaldoGrande());
}

void Form15::Command1_Click()
{
    const QString archivo = PedirArchivoAdif(ctx);
    if (archivo.isEmpty())
        return;
    ProgressBar1->setValue(0);
    ProgressBar1->setMaximum(int(std::min<qint64>(total_, INT_MAX)));
    Command1->setEnabled(false);
    const Resultado<qint64> r =
        ExportRespaldo(ctx.almacen(), archivo, OrigenAhora(ctx), [this](qint64 escritos) {
            ProgressBar1->setValue(int(std::min<qint64>(escritos, ProgressBar1->maximum())));
            ctx.bomba().Bombear();
        });
    Command1->setEnabled(true);
    if (!r) {
        ctx.dialogos().Exclamacion(r.Mensaje());
        return;
    }
    hide();
    OfrecerVerAdif(ctx, archivo);
}
