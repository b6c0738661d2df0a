// SPDX-License-Identifier: GPL-3.0-or-later
// Form4: the contest window, its controls and their wiring.
#include "gui/contest/Form4.h"

#include "core/contest/Concurso.h"
#include "core/context/Contexto.h"
#include "core/rules/Bandas.h"
#include "gui/common/Controles.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTimer>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

// The bands a contest QSO is stored with.
const QStringList &BandasConcurso()
{
    static const QStringList bandas = {
        QStringLiteral("160m"), QStringLiteral("80m"), QStringLiteral("40m"), QStringLiteral("20m"),
        QStringLiteral("15m"),  QStringLiteral("10m"), QStringLiteral("6m"),  QStringLiteral("2m")};
    return bandas;
}

// Caption above its field, in a grid.
void RotuloEncima(QGridLayout *rejilla, QWidget *padre, const QString &rotulo, QWidget *campo,
                  int fila, int columna)
{
    rejilla->addWidget(Rotulo(padre, rotulo, campo), fila, columna);
    rejilla->addWidget(campo, fila + 1, columna);
}

} // namespace

Form4::Form4(Contexto &contexto, QWidget *parent)
    : QDialog(parent)
    , ctx(contexto)
    , llave(contexto.puertoCW())
    , motor(llave, contexto.reloj(), contexto.bomba())
    , llamador(contexto.reproductor(), contexto.ptt())
{
    setObjectName(QStringLiteral("Form4"));
    setWindowTitle(QStringLiteral("Cabrillo ..."));
    Crear();
    Conectar();
}

Form4::~Form4() = default;

void Form4::Crear()
{
    Text2 = ::Crear<QLineEdit>(this, "Text2");
    Label2 = ::Crear<QLabel>(this, "Label2");
    Label3 = ::Crear<QLabel>(this, "Label3");
    Label4 = ::Crear<QLabel>(this, "Label4");
    Label4->setVisible(false); // a holder of the fixed serial, never shown
    for (QLabel *valor : {Label2, Label3})
        valor->setStyleSheet(QStringLiteral("font-weight: bold"));
    auto *arriba = new QHBoxLayout;
    arriba->addWidget(Rotulo(this, QStringLiteral("Mi Señal Distintiva"), Text2));
    arriba->addWidget(Text2);
    arriba->addSpacing(Px(300));
    arriba->addWidget(new QLabel(QStringLiteral("Concurso:"), this));
    arriba->addWidget(Label2, 1);
    arriba->addWidget(new QLabel(QStringLiteral("Serie Tipo:"), this));
    arriba->addWidget(Label3);
    arriba->addWidget(Label4);

    auto *medio = new QHBoxLayout;
    medio->addWidget(CrearEntrada(), 1);
    medio->addWidget(CrearMacros());

    Frame2 = ::Crear<QGroupBox>(this, "Frame2");
    Frame2->setTitle(QStringLiteral("Log ..."));
    ListView2 = ::Crear<QTreeWidget>(Frame2, "ListView2");
    ListView2->setAccessibleName(QStringLiteral("Log del concurso"));
    ListView2->setRootIsDecorated(false);
    ListView2->setAllColumnsShowFocus(true);
    ListView2->setMinimumHeight(Px(3000));
    (new QVBoxLayout(Frame2))->addWidget(ListView2);

    Command1 = Boton(this, "Command1", QStringLiteral("Cabrillo"));
    Command2 = Boton(this, "Command2", QStringLiteral("ADIF"));
    Command3 = Boton(this, "Command3", QStringLiteral("Eliminar"));
    auto *botones = new QHBoxLayout;
    botones->addStretch();
    for (QPushButton *b : {Command1, Command2, Command3})
        botones->addWidget(b);

    auto *todo = new QVBoxLayout(this);
    todo->addLayout(arriba);
    todo->addLayout(medio);
    todo->addWidget(Frame2, 1);
    todo->addLayout(botones);

    Timer1 = new QTimer(this);
    Timer1->setInterval(1000);
    Timer2 = new QTimer(this);
    Timer2->setInterval(500);
    Timer3 = new QTimer(this);
    Timer3->setInterval(250);
    resize(Px(11000), Px(8400));
}

QWidget *Form4::CrearEntrada()
{
    auto *marco = ::Crear<QGroupBox>(this, "Frame3");
    marco->setTitle(QStringLiteral("QSO"));
    auto *rejilla = new QGridLayout(marco);
    Combo2 = ::Crear<QComboBox>(marco, "Combo2");
    RotuloEncima(rejilla, marco, QStringLiteral("Banda"), Combo2, 0, 0);
    Combo1 = ::Crear<QComboBox>(marco, "Combo1");
    RotuloEncima(rejilla, marco, QStringLiteral("Modo"), Combo1, 0, 1);
    mhz = ::Crear<QComboBox>(marco, "mhz");
    RotuloEncima(rejilla, marco, QStringLiteral("MHz"), mhz, 0, 2);
    Text1 = ::Crear<QLineEdit>(marco, "Text1");
    Text1->setMaxLength(3);
    RotuloEncima(rejilla, marco, QStringLiteral("KHz"), Text1, 0, 3);
    // A band word for the MHz: a value, read as it shows.
    Label6 = ::Crear<QLabel>(marco, "Label6");
    rejilla->addWidget(Label6, 1, 4);

    Fecha = ::Crear<QLineEdit>(marco, "Fecha");
    Fecha->setMaxLength(10);
    RotuloEncima(rejilla, marco, QStringLiteral("Fecha"), Fecha, 2, 0);
    Hora = ::Crear<QLineEdit>(marco, "Hora");
    Hora->setMaxLength(5);
    RotuloEncima(rejilla, marco, QStringLiteral("Hora"), Hora, 2, 1);
    Check2 = ::Crear<QCheckBox>(marco, "Check2");
    Check2->setText(QStringLiteral("QTR Manual"));
    // It blinks while the time is typed by hand: its fill is the window's colour, not the
    // button colour a check box fills with.
    Check2->setAutoFillBackground(true);
    Check2->setBackgroundRole(QPalette::Window);
    rejilla->addWidget(Check2, 3, 2, 1, 2);

    Corresponsal = ::Crear<QLineEdit>(marco, "Corresponsal");
    Corresponsal->setMaxLength(15);
    RotuloEncima(rejilla, marco, QStringLiteral("Corresponsal"), Corresponsal, 4, 0);
    RSE = ::Crear<QLineEdit>(marco, "RSE");
    RotuloEncima(rejilla, marco, QStringLiteral("Serie Enviada"), RSE, 4, 1);
    RSR = ::Crear<QLineEdit>(marco, "RSR");
    RotuloEncima(rejilla, marco, QStringLiteral("Serie Recibida"), RSR, 4, 2);
    Check1 = ::Crear<QCheckBox>(marco, "Check1");
    Check1->setText(QStringLiteral("Num inc."));
    rejilla->addWidget(Check1, 5, 3);
    Label7 = ::Crear<QLabel>(marco, "Label7");
    Label7->setText(QStringLiteral("DUPLICADO"));
    Label7->setStyleSheet(QStringLiteral("color: white; background: red; font-weight: bold"));
    Label7->setAlignment(Qt::AlignCenter);
    Label7->setVisible(false);
    rejilla->addWidget(Label7, 5, 4);
    return marco;
}

void Form4::Conectar()
{
    // The window sees the keys of its own widgets first.
    installEventFilter(this);
    for (QWidget *w : findChildren<QWidget *>())
        w->installEventFilter(this);

    connect(Combo1, &QComboBox::activated, this, &Form4::Combo1_Click);
    connect(Combo2, &QComboBox::activated, this, &Form4::Combo2_Click);
    connect(mhz, &QComboBox::activated, this, &Form4::mhz_Click);
    connect(Check2, &QCheckBox::clicked, this, [this] {
        PonerQTRManual(Check2->isChecked());
        Corresponsal->setFocus(Qt::OtherFocusReason);
    });
    connect(Corresponsal, &QLineEdit::textChanged, this, [this](const QString &t) {
        Label7->setVisible(false);
        macros[4]->setText(t.isEmpty() ? QStringLiteral("F5-SuCall") : QStringLiteral("F5-") + t);
    });
    connect(Text2, &QLineEdit::textChanged, this,
            [this](const QString &t) { macros[3]->setText(QStringLiteral("F4-") + t); });
    connect(ListView2, &QTreeWidget::itemDoubleClicked, this, &Form4::DobleClicFila);
    connect(Command1, &QPushButton::clicked, this, &Form4::Command1_Click);
    connect(Command2, &QPushButton::clicked, this, &Form4::Command2_Click);
    connect(Command3, &QPushButton::clicked, this, &Form4::Command3_Click);
    connect(Timer1, &QTimer::timeout, this, &Form4::Timer1_Timer);
    connect(Timer2, &QTimer::timeout, this, &Form4::Timer2_Timer);
    connect(Timer3, &QTimer::timeout, this, &Form4::Timer3_Timer);
    ConectarManipulador();
}

void Form4::Preparar()
{
    Combo1->clear();
    Combo1->addItems({QStringLiteral("SSB"), QStringLiteral("FM"), QStringLiteral("CW")});
    Combo1->setCurrentText(QStringLiteral("SSB"));
    mhz->clear();
    mhz->addItems({QStringLiteral("1"), QStringLiteral("3"), QStringLiteral("7"),
                   QStringLiteral("14"), QStringLiteral("21"), QStringLiteral("28"),
                   QStringLiteral("6"), QStringLiteral("2")});
    mhz->setCurrentText(MhzInicial());
    Text1->setText(QStringLiteral("650"));
    Label6->setText(BandaDeMhzConcurso(mhz->currentText()).value_or(QString()));

    ListView2->clear();
    const std::pair<const char *, int> columnas[] = {
        {"Indice", 0}, {"ID", 0},          {"Frec", 750}, {"Modo", 750},   {"Fecha", 1500},
        {"Hora", 750}, {"Estación", 1000}, {"RSe", 750},  {"SerieE", 750}, {"Corresponsal", 2000},
        {"RSr", 750},  {"SerieR", 750}};
    QStringList titulos;
    for (const auto &[titulo, ancho] : columnas)
        titulos << QString::fromUtf8(titulo);
    ListView2->setHeaderLabels(titulos);
    for (int i = 0; i < int(std::size(columnas)); ++i) {
        ListView2->setColumnWidth(i, Px(columnas[i].second));
        // The index and the id are kept, not shown.
        ListView2->setColumnHidden(i, columnas[i].second == 0);
    }
    Text2->setText(ctx.config().Estacion);
    if (!Check2->isChecked()) {
        Fecha->setEnabled(false);
        Hora->setEnabled(false);
    }
}

int Form4::Mostrar()
{
    return exec();
}

void Form4::showEvent(QShowEvent *evento)
{
    QDialog::showEvent(evento);
    Activar();
}

void Form4::done(int resultado)
{
    Timer1->stop();
    Timer2->stop();
    Timer3->stop();
    CerrarManipulador();
    QDialog::done(resultado);
}

void Form4::Elegir(QComboBox *lista, const QString &texto)
{
    // A value the list does not hold (an old row's band) is shown as it stands.
    if (lista->findText(texto) < 0)
        lista->addItem(texto);
    lista->setCurrentText(texto);
}

void Form4::Activar()
{
    macros[3]->setText(QStringLiteral("F4-") + Text2->text());
    CargarManipulador();
    const QString banda = Combo2->currentText();
    Combo2->clear();
    Combo2->addItems(BandasConcurso());
    Elegir(Combo2, banda.isEmpty() ? QStringLiteral("80m") : banda);
    Label7->setVisible(false);
    const ArranqueConcurso a =
        ArrancarConcurso(ctx.almacen(), ctx.ConcursoNombre, ctx.ConcursoTipo, Label4->text(),
                         Combo2->currentText(), Combo1->currentText());
    Elegir(Combo2, a.banda);
    Elegir(Combo1, a.modo);
    RSE->setText(a.rse);
    ctx.CargandoConcurso = false;
    // The clock's first tick, a second from now, puts UTC over the local time of the opening.
    if (!Check2->isChecked())
        Timer1->start();
    Timer2->start();
    Corresponsal->setFocus(Qt::OtherFocusReason);
}
