// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/config/Form2.h"

#include "core/context/Contexto.h"
#include "core/rules/Entrada.h"
#include "gui/common/Controles.h"
#include "gui/common/TeclaEnCampo.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

namespace {

QLineEdit *CampoClave(QWidget *padre, const char *nombre)
{
    auto *campo = Crear<QLineEdit>(padre, nombre);
    campo->setEchoMode(QLineEdit::Password);
    return campo;
}

// A button that shows a password while it is held down, by mouse or by the space bar.
QPushButton *BotonMostrar(QWidget *padre, const char *nombre, QLineEdit *campo)
{
    auto *boton = Boton(padre, nombre, QStringLiteral("Ver"));
    boton->setAccessibleName(QStringLiteral("Mostrar contraseña"));
    boton->setToolTip(QStringLiteral("Mostrar contraseña"));
    QObject::connect(boton, &QPushButton::pressed, campo,
                     [campo] { campo->setEchoMode(QLineEdit::Normal); });
    QObject::connect(boton, &QPushButton::released, campo,
                     [campo] { campo->setEchoMode(QLineEdit::Password); });
    return boton;
}

} // namespace

Form2::Form2(Contexto &contexto, QWidget *parent)
    : QDialog(parent)
    , ctx(contexto)
{
    setObjectName(QStringLiteral("Form2"));
    setWindowTitle(QStringLiteral("Configuración"));
    setModal(true);

    auto *raiz = new QVBoxLayout(this);
    auto *arriba = new QHBoxLayout;
    raiz->addLayout(arriba);
    CrearEstacion();
    CrearLbN();
    arriba->addWidget(Frame2);
    arriba->addWidget(Frame1, 1);

    CrearLogins();
    auto *logins = new QHBoxLayout;
    logins->addWidget(Frame4);
    logins->addWidget(Frame6);
    logins->addWidget(Frame7);
    raiz->addLayout(logins);

    Frame3 = Crear<QGroupBox>(this, "Frame3");
    Frame3->setTitle(QStringLiteral("Pantalla"));
    panta = Crear<QCheckBox>(Frame3, "panta");
    panta->setText(QStringLiteral("Apaisada"));
    (new QVBoxLayout(Frame3))->addWidget(panta);
    raiz->addWidget(Frame3);

    CrearLlamador();
    raiz->addWidget(Frame5);

    // Enter anywhere is Guardar, so no other button takes it.
    Command1 = Boton(this, "Command1", QStringLiteral("Guardar"));
    Command1->setDefault(true);
    Command2 = Boton(this, "Command2", QStringLiteral("Cancelar"));
    auto *botones = new QHBoxLayout;
    botones->addStretch();
    botones->addWidget(Command1);
    botones->addWidget(Command2);
    raiz->addLayout(botones);
    connect(Command1, &QPushButton::clicked, this, &Form2::Command1_Click);
    connect(Command2, &QPushButton::clicked, this, &Form2::Command2_Click);

    Timer1 = new QTimer(this);
    Timer1->setObjectName(QStringLiteral("Timer1"));
    Timer1->setInterval(1000);
    connect(Timer1, &QTimer::timeout, this, &Form2::Timer1_Timer);
    connect(&ctx.web(), &ClienteWeb::Respondido, this, &Form2::RespuestaPrueba);
    connect(&ctx.reproductor(), &Reproductor::Terminado, this, [this] {
        Command6->setEnabled(true);
        Command7->setEnabled(false);
    });

    // The lists are there from the start, so the first-start window offers them too.
    LlenarListas();

    // Enter is Guardar wherever the focus stands, and the grid is checked on leaving.
    for (QWidget *w : findChildren<QWidget *>())
        w->installEventFilter(this);
}

Form2::~Form2() = default;

void Form2::CrearEstacion()
{
    Frame2 = Crear<QGroupBox>(this, "Frame2");
    Text1 = Crear<QLineEdit>(Frame2, "Text1");
    Text2 = Crear<QLineEdit>(Frame2, "Text2");
    Text3 = Crear<QLineEdit>(Frame2, "Text3");
    Text4 = Crear<QLineEdit>(Frame2, "Text4");
    // The grid keeps its shape while it is typed: a character of the wrong kind for its
    // place is cut at once.
    connect(Text4, &QLineEdit::textEdited, this, [this](const QString &texto) {
        const QString forma = FormaGrilla(texto);
        if (forma != texto)
            Text4->setText(forma);
    });

    auto *g = new QGridLayout(Frame2);
    g->addWidget(Rotulo(Frame2, QStringLiteral("Señal Distintiva de la  Estación"), Text1), 0, 0);
    g->addWidget(Text1, 0, 1);
    g->addWidget(Rotulo(Frame2, QStringLiteral("Señal Distintiva del Operador"), Text2), 1, 0);
    g->addWidget(Text2, 1, 1);
    g->addWidget(Rotulo(Frame2, QStringLiteral("Diferencia UTC"), Text3), 2, 0);
    g->addWidget(Text3, 2, 1);
    g->addWidget(Rotulo(Frame2, QStringLiteral("Grid Locator"), Text4), 3, 0);
    g->addWidget(Text4, 3, 1);
}

void Form2::CrearLbN()
{
    Frame1 = Crear<QGroupBox>(this, "Frame1");
    Frame1->setTitle(QStringLiteral("LbN"));
    user_lbn = Crear<QLineEdit>(Frame1, "user_lbn");
    pass_lbn = CampoClave(Frame1, "pass_lbn");
    Command3 = BotonMostrar(Frame1, "Command3", pass_lbn);
    Command4 = Boton(Frame1, "Command4", QStringLiteral("Probar"));
    Label3 = Crear<QLabel>(Frame1, "Label3");
    Label3->setText(QStringLiteral(" ..."));
    Label3->setTextFormat(Qt::PlainText);
    Label3->setWordWrap(true);
    // The reply is a value: no name of its own, so a screen reader reads the reply itself.
    Label3->setAccessibleDescription(QStringLiteral("Resultado de la prueba"));
    ProgressBar1 = Crear<QProgressBar>(Frame1, "ProgressBar1");
    ProgressBar1->setRange(0, kTicksPrueba);
    ProgressBar1->setValue(0);
    ProgressBar1->setTextVisible(false);
    ProgressBar1->setAccessibleName(QStringLiteral("Espera de la prueba"));
    connect(Command4, &QPushButton::clicked, this, &Form2::Command4_Click);

    auto *g = new QGridLayout(Frame1);
    g->addWidget(Rotulo(Frame1, QStringLiteral("Usuario (email):"), user_lbn), 0, 0);
    g->addWidget(user_lbn, 0, 1, 1, 2);
    g->addWidget(Rotulo(Frame1, QStringLiteral("Contraseña:"), pass_lbn), 1, 0);
    g->addWidget(pass_lbn, 1, 1);
    g->addWidget(Command3, 1, 2);
    g->addWidget(Command4, 2, 0);
    g->addWidget(ProgressBar1, 2, 1, 1, 2);
    g->addWidget(Label3, 3, 0, 1, 3);
}

void Form2::CrearLogins()
{
    const auto marco = [this](const char *nombre, const QString &titulo, QLineEdit *&usuario,
                              const char *nombreUsuario, QLineEdit *&clave, const char *nombreClave,
                              QPushButton *&mostrar, const char *nombreMostrar) {
        auto *frame = Crear<QGroupBox>(this, nombre);
        frame->setTitle(titulo);
        usuario = Crear<QLineEdit>(frame, nombreUsuario);
        clave = CampoClave(frame, nombreClave);
        mostrar = BotonMostrar(frame, nombreMostrar, clave);
        auto *g = new QGridLayout(frame);
        g->addWidget(Rotulo(frame, QStringLiteral("Usuario"), usuario), 0, 0);
        g->addWidget(usuario, 0, 1, 1, 2);
        g->addWidget(Rotulo(frame, QStringLiteral("Contraseña"), clave), 1, 0);
        g->addWidget(clave, 1, 1);
        g->addWidget(mostrar, 1, 2);
        return frame;
    };
    Frame4 = marco("Frame4", QStringLiteral("QRZ.com"), Text5, "Text5", Text6, "Text6", Image1,
                   "Image1");
    Frame6 = marco("Frame6", QStringLiteral("Libro Nacional"), Text8, "Text8", Text7, "Text7",
                   Image2, "Image2");
    Frame7 =
        marco("Frame7", QStringLiteral("eQSL"), Text9, "Text9", Text10, "Text10", Image3, "Image3");
}

void Form2::CrearLlamador()
{
    Frame5 = Crear<QGroupBox>(this, "Frame5");
    Frame5->setTitle(QStringLiteral("Llamador CQ ..."));
    Puerto = Crear<QComboBox>(Frame5, "Puerto");
    RTS = Crear<QCheckBox>(Frame5, "RTS");
    RTS->setText(QStringLiteral("RTS (7)"));
    DTR = Crear<QCheckBox>(Frame5, "DTR");
    DTR->setText(QStringLiteral("DTR (4)"));
    Combo1 = Crear<QComboBox>(Frame5, "Combo1");
    Combo2 = Crear<QComboBox>(Frame5, "Combo2");
    // The delays are kept as the file brings them, listed or not.
    Combo1->setEditable(true);
    Combo2->setEditable(true);
    Command5 = Boton(Frame5, "Command5", QStringLiteral("Elegir Archivo de audio"));
    Label6 = Crear<QLabel>(Frame5, "Label6");
    Label6->setTextFormat(Qt::PlainText);
    Label6->setAccessibleDescription(QStringLiteral("Archivo de audio"));
    Command6 = Boton(Frame5, "Command6", QStringLiteral("Reproducir"));
    Command7 = Boton(Frame5, "Command7", QStringLiteral("Detener"));
    Command7->setEnabled(false);
    Command8 = Boton(Frame5, "Command8", QStringLiteral("Prueba de PTT"));
    Label7 = Crear<QLabel>(Frame5, "Label7");
    Label7->setText(QStringLiteral("Si no desea usar un puerto Serie para el PTT, puede usar el "
                                   "VOX del equipo de radio."));
    Label7->setWordWrap(true);

    // Ticking one pin clears the other.
    connect(RTS, &QCheckBox::toggled, this, [this](bool marcado) {
        if (marcado)
            DTR->setChecked(false);
    });
    connect(DTR, &QCheckBox::toggled, this, [this](bool marcado) {
        if (marcado)
            RTS->setChecked(false);
    });
    connect(Puerto, &QComboBox::activated, this, &Form2::Puerto_Click);
    connect(Command5, &QPushButton::clicked, this, &Form2::Command5_Click);
    connect(Command6, &QPushButton::clicked, this, &Form2::Command6_Click);
    connect(Command7, &QPushButton::clicked, this, &Form2::Command7_Click);
    connect(Command8, &QPushButton::pressed, this, &Form2::Command8_MouseDown);
    connect(Command8, &QPushButton::released, this, &Form2::Command8_MouseUp);

    auto *g = new QGridLayout(Frame5);
    g->addWidget(Rotulo(Frame5, QStringLiteral("Puerto"), Puerto), 0, 0);
    g->addWidget(Puerto, 0, 1);
    g->addWidget(RTS, 0, 2);
    g->addWidget(DTR, 0, 3);
    g->addWidget(Combo1, 1, 0);
    g->addWidget(Rotulo(Frame5, QStringLiteral("mseg. antes"), Combo1), 1, 1);
    g->addWidget(Combo2, 1, 2);
    g->addWidget(Rotulo(Frame5, QStringLiteral("mseg. después"), Combo2), 1, 3);
    g->addWidget(Command5, 2, 0);
    g->addWidget(Label6, 2, 1, 1, 3);
    g->addWidget(Command6, 3, 0);
    g->addWidget(Command7, 3, 1);
    g->addWidget(Command8, 3, 2);
    g->addWidget(Label7, 4, 0, 1, 4);
}

void Form2::closeEvent(QCloseEvent *evento)
{
    // The way out is Guardar or Cancelar.
    evento->ignore();
}

void Form2::reject()
{
    // Esc does nothing: the window is left by its two buttons only, Guardar or Cancelar.
}

bool Form2::eventFilter(QObject *objeto, QEvent *evento)
{
    if (evento->type() == QEvent::KeyPress) {
        auto *tecla = static_cast<QKeyEvent *>(evento);
        if ((tecla->key() == Qt::Key_Return || tecla->key() == Qt::Key_Enter) &&
            !(tecla->modifiers() & (Qt::ControlModifier | Qt::AltModifier))) {
            Command1->click();
            return true;
        }
        // The callsigns take the callsign filter of every window, without its '?'; the
        // hours from UTC take digits and the sign.
        if (objeto == Text1 || objeto == Text2)
            return FiltrarTeclaEnCampo(static_cast<QLineEdit *>(objeto), tecla, FiltroTecla::Senal,
                                       false);
        if (objeto == Text3)
            return FiltrarTeclaEnCampo(Text3, tecla, FiltroTecla::DigitosConSigno, false);
    } else if (evento->type() == QEvent::FocusOut && objeto == Text4) {
        // Only a move within the window: not a message box taking the focus, nor the
        // window being hidden.
        const Qt::FocusReason razon = static_cast<QFocusEvent *>(evento)->reason();
        if (razon == Qt::TabFocusReason || razon == Qt::BacktabFocusReason ||
            razon == Qt::MouseFocusReason || razon == Qt::ShortcutFocusReason ||
            razon == Qt::OtherFocusReason)
            QTimer::singleShot(0, this, &Form2::RevisarGrilla);
    }
    return QDialog::eventFilter(objeto, evento);
}

// The grid is checked once the focus has left it, outside the focus change itself: a
// message box opened in the middle of a mouse press would leave that button half pressed.
void Form2::RevisarGrilla()
{
    const qsizetype largo = Text4->text().size();
    if (!isVisible() || largo == 0 || largo == 6 || focusWidget() == Text4)
        return;
    // The button pressed to leave the field does not act: the grid is mended first.
    for (QPushButton *boton : findChildren<QPushButton *>())
        boton->setDown(false);
    ctx.dialogos().Exclamacion(MensajeGrilla());
    Text4->setFocus();
}
