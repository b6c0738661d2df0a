// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/main/Form3.h"

#include "core/store/Logs.h"
#include "gui/common/Controles.h"

#include <QListWidget>
#include <QVBoxLayout>

Form3::Form3(QWidget *parent)
    : QDialog(parent)
{
    setObjectName(QStringLiteral("Form3"));
    setWindowTitle(QStringLiteral("Abrir Log ..."));
    setModal(true);
    resize(Px(4800), Px(3600));

    List1 = Crear<QListWidget>(this, "List1");
    List1->setAccessibleName(QStringLiteral("Logs"));
    List1->setSelectionMode(QAbstractItemView::SingleSelection);
    auto *capa = new QVBoxLayout(this);
    capa->setContentsMargins(Px(120), Px(120), Px(120), Px(120));
    capa->addWidget(List1);

    // A click opens at once, as the list always has. The arrows only move, so that an
    // operator on the keyboard walks the list and opens with Enter (itemActivated).
    // Styles that activate on a single click send both signals: the first one wins.
    connect(List1, &QListWidget::itemClicked, this, &Form3::Elegir);
    connect(List1, &QListWidget::itemActivated, this, &Form3::Elegir);
}

void Form3::Llenar(const QStringList &entradas, const QString &logEnUso)
{
    List1->clear();
    List1->addItems(entradas);
    int actual = 0;
    for (int i = 0; i < entradas.size(); ++i) {
        if (NombreDeEntrada(entradas.at(i)) == logEnUso) {
            actual = i;
            break;
        }
    }
    if (!entradas.isEmpty())
        List1->setCurrentRow(actual);
    eligiendo_ = false;
}

void Form3::Elegir(QListWidgetItem *item)
{
    if (!item || eligiendo_)
        return;
    eligiendo_ = true;
    Q_EMIT LogElegido(NombreDeEntrada(item->text()));
    accept();
}
