// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/main/Form17.h"

#include "gui/common/Controles.h"

#include <QFontDatabase>
#include <QFontMetrics>
#include <QGroupBox>
#include <QListWidget>
#include <QVBoxLayout>

namespace {

// The widest line: the padded columns of a long callsign on both sides.
constexpr int kColumnasVisibles = 72;

} // namespace

Form17::Form17(QWidget *parent)
    : QDialog(parent)
{
    setObjectName(QStringLiteral("Form17"));
    setModal(true);

    Frame1 = Crear<QGroupBox>(this, "Frame1");
    List1 = Crear<QListWidget>(Frame1, "List1");
    List1->setAccessibleName(QStringLiteral("QSOs anteriores"));
    // The columns line up only in a fixed-pitch font.
    List1->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    List1->setSelectionMode(QAbstractItemView::SingleSelection);

    auto *dentro = new QVBoxLayout(Frame1);
    dentro->addWidget(List1);
    auto *capa = new QVBoxLayout(this);
    capa->setContentsMargins(Px(120), Px(120), Px(120), Px(120));
    capa->addWidget(Frame1);

    const QFontMetrics medida(List1->font());
    resize(medida.horizontalAdvance(QString(kColumnasVisibles, QLatin1Char('M'))) + Px(900),
           Px(3600));
}

void Form17::Llenar(const QString &senal, const QStringList &lineas)
{
    setWindowTitle(senal);
    List1->clear();
    List1->addItems(lineas);
    if (List1->count() > 0) {
        // The header is read, not chosen.
        QListWidgetItem *cabecera = List1->item(0);
        cabecera->setFlags(cabecera->flags() & ~Qt::ItemIsSelectable);
    }
    if (List1->count() > 1)
        List1->setCurrentRow(1);
}
