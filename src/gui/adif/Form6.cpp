// SPDX-License-Identifier: GPL-3.0-or-later
// Form6: the search window, its controls and their wiring.
#include "gui/adif/Form6.h"

#include "core/adif/Busqueda.h"
#include "core/context/Contexto.h"
#include "gui/adif/ModeloBusqueda.h"
#include "gui/common/Controles.h"
#include "gui/common/TeclaEnCampo.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFocusEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QStyle>
#include <QTableView>
#include <QTextEdit>
#include <QTimer>
#include <QVBoxLayout>

Form6::Form6(Contexto &contexto, QWidget *parent)
    : QDialog(parent)
    , ctx(contexto)
{
    setObjectName(QStringLiteral("Form6"));
    setWindowTitle(QStringLiteral("Exportar ..."));
    Crear();
    Conectar();
    resize(Px(15600), Px(8400));
}

Form6::~Form6() = default;

void Form6::Crear()
{
    auto *filtros = new QGridLayout;
    auto campo = [&](QLineEdit *&w, const char *nombre, const QString &rotulo, int fila,
                     int columna, int ancho = 1) {
        w = ::Crear<QLineEdit>(this, nombre);
        filtros->addWidget(Rotulo(this, rotulo, w), fila, columna);
        filtros->addWidget(w, fila, columna + 1, 1, ancho);
    };
    // Made in the order of the Tab key.
    campo(Text3, "Text3", QStringLiteral("Señal Distintiva"), 0, 0);
    campo(Text4, "Text4", QStringLiteral("Operador"), 0, 2);
    campo(Text1, "Text1", QStringLiteral("Desde"), 0, 4);
    campo(Text2, "Text2", QStringLiteral("Hasta"), 0, 6);
    campo(Text5, "Text5", QStringLiteral("Corresponsal"), 1, 0);
    campo(Text6, "Text6", QStringLiteral("Modo"), 1, 2);
    campo(Text7, "Text7", QStringLiteral("Banda"), 1, 4);
    campo(Text8, "Text8", QStringLiteral("Observaciones"), 2, 0, 7);
    for (QLineEdit *t : {Text3, Text4, Text5, Text6, Text7})
        t->setMinimumWidth(Px(1500));
    for (QLineEdit *fecha : {Text1, Text2}) {
        fecha->setMaxLength(10);
        fecha->setMinimumWidth(Px(1300));
    }

    Check1 = ::Crear<QCheckBox>(this, "Check1");
    Check1->setText(QStringLiteral("Satélite"));
    Check2 = ::Crear<QCheckBox>(this, "Check2");
    Check2->setText(QStringLiteral("Solo Argentinos"));
    Check3 = ::Crear<QCheckBox>(this, "Check3");
    Check3->setText(QStringLiteral("Distintas Provincias"));
    auto *casillas = new QVBoxLayout;
    for (QCheckBox *c : {Check1, Check2, Check3})
        casillas->addWidget(c);

    Frame4 = ::Crear<QGroupBox>(this, "Frame4");
    Frame4->setTitle(QStringLiteral("Lbn"));
    auto *opciones = new QVBoxLayout(Frame4);
    const std::pair<QRadioButton **, const char *> nombres[] = {
        {&Option1, "Option1"}, {&Option2, "Option2"}, {&Option3, "Option3"}, {&Option4, "Option4"}};
    const QStringList textos = {QStringLiteral("No Subidos"), QStringLiteral("Subidos"),
                                QStringLiteral("Confirmados"), QStringLiteral("Todos")};
    for (int i = 0; i < 4; ++i) {
        *nombres[i].first = ::Crear<QRadioButton>(Frame4, nombres[i].second);
        (*nombres[i].first)->setText(textos.at(i));
        opciones->addWidget(*nombres[i].first);
    }
    Option4->setChecked(true);
    Frame4->setEnabled(false);

    Command3 = Boton(this, "Command3", QStringLiteral("Buscar"));
    Command4 = Boton(this, "Command4", QStringLiteral("Borrar Filtros"));
    auto *acciones = new QVBoxLayout;
    acciones->addWidget(Command3);
    acciones->addWidget(Command4);
    acciones->addStretch();

    // The quick search by own callsign and operator.
    Combo1 = ::Crear<QComboBox>(this, "Combo1");
    Combo1->setAccessibleName(QStringLiteral("Señal Distintiva"));
    Combo2 = ::Crear<QComboBox>(this, "Combo2");
    Combo2->setAccessibleName(QStringLiteral("Operador"));
    Command2 = Boton(this, "Command2", QStringLiteral("Buscar"));
    auto *combos = new QVBoxLayout;
    combos->addWidget(Combo1);
    combos->addWidget(Combo2);
    combos->addWidget(Command2);
    combos->addStretch();

    auto *arriba = new QHBoxLayout;
    arriba->addLayout(filtros, 1);
    arriba->addLayout(casillas);
    arriba->addWidget(Frame4);
    arriba->addLayout(acciones);
    arriba->addLayout(combos);

    modelo_ = new ModeloBusqueda(ctx.almacen(), this);
    ListView2 = ::Crear<QTableView>(this, "ListView2");
    ListView2->setModel(modelo_);
    ListView2->setAccessibleName(QStringLiteral("QSOs"));
    ListView2->setSelectionBehavior(QAbstractItemView::SelectRows);
    ListView2->setSelectionMode(QAbstractItemView::SingleSelection);
    ListView2->setEditTriggers(QAbstractItemView::NoEditTriggers);
    ListView2->setWordWrap(false);
    ListView2->verticalHeader()->setVisible(false);
    ListView2->verticalHeader()->setDefaultSectionSize(Px(255));
    ListView2->horizontalHeader()->setMinimumSectionSize(0);
    ListView2->horizontalHeader()->setSectionsClickable(true);
    ListView2->horizontalHeader()->setHighlightSections(false);
    for (int c = 0; c < modelo_->columnCount(); ++c) {
        ListView2->setColumnWidth(c, Px(ModeloBusqueda::AnchoColumna(c)));
        ListView2->setColumnHidden(c, ModeloBusqueda::AnchoColumna(c) == 0);
    }

    Label13 = ::Crear<QLabel>(this, "Label13");
    Label13->setText(QStringLiteral("Buscando ..."));
    Label13->setVisible(false);
    Label6 = ::Crear<QLabel>(this, "Label6");
    Label6->setText(QStringLiteral("0"));
    Label6->setAccessibleDescription(QStringLiteral("QSOs listados"));
    QFont negrita = Label6->font();
    negrita.setBold(true);
    Label6->setFont(negrita);
    Command1 = Boton(this, "Command1", QStringLiteral("Exportar ADIF"));
    Command6 = Boton(this, "Command6", QStringLiteral("Subir a LbN"));
    Command8 = Boton(this, "Command8", QStringLiteral("Subir a eQSL"));
    // The table of provinces is a picture button, read by its name.
    Command5 = Boton(this, "Command5", QString());
    Command5->setIcon(style()->standardIcon(QStyle::SP_FileDialogDetailedView));
    Command5->setAccessibleName(QStringLiteral("Tabla de provincias"));
    Command5->setToolTip(QStringLiteral("Tabla de provincias"));
    auto *abajo = new QHBoxLayout;
    abajo->addWidget(Command5);
    abajo->addWidget(Label6);
    abajo->addWidget(Label13);
    abajo->addStretch();
    for (QPushButton *b : {Command1, Command6, Command8}) {
        b->setEnabled(false);
        abajo->addWidget(b);
    }

    auto *todo = new QVBoxLayout(this);
    todo->addLayout(arriba);
    todo->addWidget(ListView2, 1);
    CrearRespuestas();
    todo->addWidget(Frame5);
    todo->addLayout(abajo);

    Timer1 = new QTimer(this);
    Timer1->setObjectName(QStringLiteral("Timer1"));
    Timer1->setInterval(250);
}

void Form6::CrearRespuestas()
{
    Frame5 = ::Crear<QGroupBox>(this, "Frame5");
    Frame5->setTitle(QStringLiteral("Respuesta de Libro Nacional ..."));
    RichTextBox1 = ::Crear<QTextEdit>(Frame5, "RichTextBox1");
    RichTextBox1->setReadOnly(true);
    RichTextBox1->setAccessibleName(QStringLiteral("Respuesta de Libro Nacional"));
    RichTextBox1->setMinimumHeight(Px(1500));
    ProgressBar1 = ::Crear<QProgressBar>(Frame5, "ProgressBar1");
    Command7 = Boton(Frame5, "Command7", QStringLiteral("Cerrar"));
    auto *marco = new QVBoxLayout(Frame5);
    marco->addWidget(RichTextBox1);
    auto *pie = new QHBoxLayout;
    pie->addWidget(ProgressBar1, 1);
    pie->addWidget(Command7);
    marco->addLayout(pie);
    Frame5->setVisible(false);
}

void Form6::Conectar()
{
    for (QLineEdit *c : {Text1, Text2, Text3, Text4, Text5, Text7})
        c->installEventFilter(this);
    ListView2->installEventFilter(this);
    connect(Timer1, &QTimer::timeout, this, &Form6::Timer1_Timer);
    connect(Command3, &QPushButton::clicked, this, [this] { Command3_Click(); });
    connect(Command4, &QPushButton::clicked, this, [this] { Command4_Click(); });
    connect(Command2, &QPushButton::clicked, this, [this] { Command2_Click(); });
    connect(Command1, &QPushButton::clicked, this, [this] { Command1_Click(); });
    connect(Command8, &QPushButton::clicked, this, [this] { Command8_Click(); });
    connect(Command6, &QPushButton::clicked, this, [this] { Command6_Click(); });
    connect(Command5, &QPushButton::clicked, this, [this] { Command5_Click(); });
    connect(Command7, &QPushButton::clicked, Frame5, &QWidget::hide);
    connect(Check2, &QCheckBox::clicked, this, [this] { Check2_Click(); });
    connect(ListView2->horizontalHeader(), &QHeaderView::sectionClicked, this,
            &Form6::OrdenarPorColumna);
    connect(ListView2, &QTableView::doubleClicked, this,
            [this](const QModelIndex &i) { DobleClicFila(i.row()); });
}

void Form6::showEvent(QShowEvent *evento)
{
    // Activation may never come on a headless screen; being shown is as good.
    ctx.CargandoBusqueda = false;
    QDialog::showEvent(evento);
}

bool Form6::eventFilter(QObject *objeto, QEvent *evento)
{
    // Enter on a row opens it as a double click does: the list is worked by keyboard too.
    if (objeto == ListView2 && evento->type() == QEvent::KeyPress) {
        const int tecla = static_cast<QKeyEvent *>(evento)->key();
        if (tecla == Qt::Key_Return || tecla == Qt::Key_Enter) {
            DobleClicFila(ListView2->currentIndex().row());
            return true;
        }
    }
    auto *campo = qobject_cast<QLineEdit *>(objeto);
    if (!campo || campo->window() != this)
        return QDialog::eventFilter(objeto, evento);
    if (evento->type() == QEvent::KeyPress) {
        auto *tecla = static_cast<QKeyEvent *>(evento);
        if (campo == Text1 || campo == Text2)
            return FiltrarTeclaEnCampo(campo, tecla, FiltroTecla::Fecha);
        if (campo == Text3 || campo == Text4 || campo == Text5)
            return FiltrarTeclaEnCampo(campo, tecla, FiltroTecla::Senal);
    } else if (evento->type() == QEvent::FocusOut) {
        if (!DejaElCampo(evento, this))
            return QDialog::eventFilter(objeto, evento);
        if (campo == Text7)
            Text7->setText(BandaFiltro(Text7->text()));
        else if ((campo == Text1 || campo == Text2) && !FechaFiltroValida(campo->text()))
            ctx.dialogos().Exclamacion(MensajeFechaFiltro());
    }
    return QDialog::eventFilter(objeto, evento);
}

void Form6::Timer1_Timer()
{
    Label13->setVisible(!Label13->isVisible());
}
