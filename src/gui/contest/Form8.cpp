// SPDX-License-Identifier: GPL-3.0-or-later
// Form8: the contest chooser.
#include "gui/contest/Form8.h"

#include "core/contest/Concurso.h"
#include "core/context/Contexto.h"
#include "gui/common/Controles.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTreeWidget>
#include <QVBoxLayout>

Form8::Form8(Contexto &contexto, QWidget *parent)
    : QDialog(parent)
    , ctx(contexto)
{
    setObjectName(QStringLiteral("Form8"));
    setWindowTitle(QStringLiteral("Logs Cabrillos ..."));

    ListView1 = Crear<QTreeWidget>(this, "ListView1");
    ListView1->setAccessibleName(QStringLiteral("Concursos"));
    ListView1->setRootIsDecorated(false);
    ListView1->setAllColumnsShowFocus(true);
    ListView1->setMinimumSize(Px(5400), Px(2800));

    auto *nuevo = Crear<QGroupBox>(this, "Frame1");
    nuevo->setTitle(QStringLiteral("Nuevo concurso"));
    Text1 = Crear<QLineEdit>(nuevo, "Text1");
    Option1 = Crear<QRadioButton>(nuevo, "Option1");
    Option1->setText(QStringLiteral("Incremental"));
    Option1->setChecked(true);
    Option2 = Crear<QRadioButton>(nuevo, "Option2");
    Option2->setText(QStringLiteral("Fija"));
    Command1 = Boton(nuevo, "Command1", QStringLiteral("Aceptar"));
    auto *rejilla = new QGridLayout(nuevo);
    rejilla->addWidget(Rotulo(nuevo, QStringLiteral("Nombre"), Text1), 0, 0);
    rejilla->addWidget(Text1, 0, 1, 1, 3);
    rejilla->addWidget(new QLabel(QStringLiteral("Serie:"), nuevo), 1, 0);
    rejilla->addWidget(Option1, 1, 1);
    rejilla->addWidget(Option2, 1, 2);
    rejilla->addWidget(Command1, 1, 3);

    auto *todo = new QVBoxLayout(this);
    todo->addWidget(new QLabel(QStringLiteral("Doble clic en un concurso para abrirlo"), this));
    todo->addWidget(ListView1);
    todo->addWidget(nuevo);

    // Names are all capitals, whatever is typed or pasted.
    connect(Text1, &QLineEdit::textEdited, this, [this](const QString &t) {
        if (t == t.toUpper())
            return;
        const int cursor = Text1->cursorPosition();
        Text1->setText(t.toUpper());
        Text1->setCursorPosition(cursor);
    });
    connect(Text1, &QLineEdit::returnPressed, this, &Form8::Command1_Click);
    connect(Command1, &QPushButton::clicked, this, &Form8::Command1_Click);
    // A double click or Enter on a row.
    connect(ListView1, &QTreeWidget::itemActivated, this, &Form8::ListView1_DblClick);
}

void Form8::Llenar(const QVector<Almacen::ConcursoListado> &concursos)
{
    ListView1->clear();
    Text1->clear();
    ListView1->setHeaderLabels({QStringLiteral("Nombref"), QStringLiteral("Nombre"),
                                QStringLiteral("Tipo"), QStringLiteral("QSOSs")});
    // The first column is the list's key and stays empty: not shown.
    ListView1->setColumnHidden(0, true);
    ListView1->setColumnWidth(1, Px(2900));
    ListView1->setColumnWidth(2, Px(1300));
    for (const auto &c : concursos) {
        auto *item = new QTreeWidgetItem(
            ListView1, {QString(), c.nombre.trimmed(), c.tipo.trimmed(), QString::number(c.qsos)});
        // The name as stored is the key of every read: kept with the row.
        item->setData(0, Qt::UserRole, c.nombre);
        item->setData(0, Qt::UserRole + 1, c.tipo);
    }
    // Straight to the list when there is a contest to open, to the name when there is none.
    if (ListView1->topLevelItemCount() > 0) {
        ListView1->setCurrentItem(ListView1->topLevelItem(0));
        ListView1->setFocus(Qt::OtherFocusReason);
    } else {
        Text1->setFocus(Qt::OtherFocusReason);
    }
}

void Form8::Command1_Click()
{
    const QString nombre = Text1->text();
    if (nombre.isEmpty()) {
        Text1->setFocus(Qt::OtherFocusReason);
        return;
    }
    if (const auto repetido = ConcursoRepetido(ctx.almacen(), nombre)) {
        ctx.dialogos().Exclamacion(*repetido);
        return;
    }
    const QString tipo = Option1->isChecked() ? SerieIncremental() : SerieFija();
    if (const Resultado<qint64> r = FundarConcurso(ctx.almacen(), nombre, tipo); !r) {
        ctx.dialogos().Alto(r.Mensaje());
        return;
    }
    Elegido(nombre, tipo, true);
}

void Form8::ListView1_DblClick()
{
    const QTreeWidgetItem *item = ListView1->currentItem();
    if (!item)
        return;
    Elegido(item->data(0, Qt::UserRole).toString(), item->data(0, Qt::UserRole + 1).toString(),
            false);
}

void Form8::Elegido(const QString &nombre, const QString &tipo, bool nuevo)
{
    ctx.ConcursoNombre = nombre;
    ctx.ConcursoTipo = tipo.trimmed();
    accept();
    if (abrirConcurso)
        abrirConcurso(nuevo);
}
