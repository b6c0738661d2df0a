// SPDX-License-Identifier: GPL-3.0-or-later
// Form4: the keyer. In CW the frame "Macros CW" keys the transmitter from a serial line:
// the macros on their buttons and on F1 to F7, the speed, the key's port and line, the
// manual key on the down arrow. In the other modes F1 plays the voice CQ with the PTT held,
// its "Tx" lamp and its bar beside. Esc stops either.
#include "core/contest/Concurso.h"
#include "core/context/Contexto.h"
#include "core/keying/AjustesCW.h"
#include "core/keying/MacrosCW.h"
#include "gui/common/Controles.h"
#include "gui/common/LamparaTx.h"
#include "gui/contest/Form4.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QToolButton>
#include <QVBoxLayout>

namespace {

// The width of sPorcentaje at rest, in twips: the bar's empty state.
constexpr int kBarraVacia = 15;

QCheckBox *Casilla(QWidget *padre, const char *nombre, const QString &texto)
{
    auto *casilla = ::Crear<QCheckBox>(padre, nombre);
    casilla->setText(texto);
    return casilla;
}

} // namespace

// ---- The controls ------------------------------------------------------------------------

QWidget *Form4::CrearMacros()
{
    auto *lado = new QWidget(this);
    auto *columna = new QVBoxLayout(lado);
    columna->setContentsMargins(0, 0, 0, 0);

    Frame1 = ::Crear<QGroupBox>(lado, "Frame1");
    Frame1->setTitle(QStringLiteral("Macros CW"));
    auto *rejilla = new QGridLayout(Frame1);
    const QStringList titulos = TitulosMacrosCW();
    for (int i = 0; i < kCantidadMacrosCW; ++i) {
        QPushButton *b = Boton(Frame1, "macros", titulos[i]);
        b->setObjectName(QStringLiteral("macros(%1)").arg(i));
        // The keys reach the macros; a click must leave the focus in the entry.
        b->setFocusPolicy(Qt::NoFocus);
        macros << b;
        rejilla->addWidget(b, i / 4, i % 4);
    }
    Picture1 = ::Crear<QToolButton>(Frame1, "Picture1");
    Picture1->setArrowType(Qt::DownArrow);
    Picture1->setAutoRaise(true);
    Picture1->setFocusPolicy(Qt::NoFocus);
    Picture1->setToolTip(QStringLiteral("Keyer Manual (flecha abajo)"));
    Picture1->setAccessibleName(Picture1->toolTip());
    // The key lamp: lit while the key is down, whatever line (or none) it keys.
    Image1 = ::Crear<QLabel>(Frame1, "Image1");
    Image1->setFixedSize(Px(240), Px(240));
    Image1->setStyleSheet(QStringLiteral("background: #ff0000; border-radius: %1px;").arg(Px(120)));
    QSizePolicy lugar = Image1->sizePolicy();
    lugar.setRetainSizeWhenHidden(true);
    Image1->setSizePolicy(lugar);
    Image1->setVisible(false);
    auto *manual = new QHBoxLayout;
    manual->addWidget(Picture1);
    manual->addWidget(Image1);
    manual->addStretch();
    rejilla->addLayout(manual, 1, 3);

    HScroll1 = ::Crear<QScrollBar>(Frame1, "HScroll1");
    HScroll1->setOrientation(Qt::Horizontal);
    HScroll1->setRange(kPpmMinimaCW, kPpmMaximaCW);
    HScroll1->setAccessibleName(QStringLiteral("Velocidad"));
    rejilla->addWidget(HScroll1, 2, 0, 1, 3);
    LabelVel = ::Crear<QLabel>(Frame1, "LabelVel");
    rejilla->addWidget(LabelVel, 2, 3);

    Combo3 = ::Crear<QComboBox>(Frame1, "Combo3");
    rejilla->addWidget(Rotulo(Frame1, QStringLiteral("Puerto"), Combo3), 3, 0);
    rejilla->addWidget(Combo3, 3, 1);
    Check3 = Casilla(Frame1, "Check3", QStringLiteral("DTR"));
    rejilla->addWidget(Check3, 3, 2);
    Check4 = Casilla(Frame1, "Check4", QStringLiteral("RTS"));
    rejilla->addWidget(Check4, 3, 3);
    Check5 = Casilla(Frame1, "Check5", QStringLiteral("0T-9N"));
    rejilla->addWidget(Check5, 4, 0);
    Check6 = Casilla(Frame1, "Check6", QStringLiteral("Peso"));
    rejilla->addWidget(Check6, 4, 1);
    Check7 = Casilla(Frame1, "Check7", QStringLiteral("Fondo Oscuro"));
    rejilla->addWidget(Check7, 4, 2, 1, 2);

    // The echo grows to the right; held to the frame's width, its newest letters show.
    Label10 = ::Crear<QLabel>(Frame1, "Label10");
    Label10->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    Label10->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    Label10->setStyleSheet(QStringLiteral("font-weight: bold"));
    rejilla->addWidget(Label10, 5, 0, 1, 4);
    columna->addWidget(Frame1);
    Frame1->setVisible(false); // until Timer2 applies the mode: most contests start in SSB

    columna->addWidget(CrearLlamador(lado));
    columna->addStretch();
    return lado;
}

QWidget *Form4::CrearLlamador(QWidget *padre)
{
    // The CQ caller, in every mode but CW.
    auto *caja = new QWidget(padre);
    auto *columna = new QVBoxLayout(caja);
    columna->setContentsMargins(0, 0, 0, 0);
    Label13 = ::Crear<QLabel>(caja, "Label13");
    Label13->setText(QStringLiteral("Llamador CQ (F1)"));
    sFondo = ::Crear<QFrame>(caja, "sFondo");
    sFondo->setFrameShape(QFrame::Box);
    sFondo->setFixedSize(Px(2400), Px(200));
    sPorcentaje = ::Crear<QFrame>(sFondo, "sPorcentaje");
    sPorcentaje->setStyleSheet(QStringLiteral("background: #008000"));
    sPorcentaje->setGeometry(0, 0, Px(kBarraVacia), Px(200));
    Label8 = ::Crear<QLabel>(caja, "Label8");
    Label8->setText(QStringLiteral("Tx"));
    Label8->setAlignment(Qt::AlignCenter);
    Label8->setFixedWidth(Px(500));
    auto *fila = new QHBoxLayout;
    fila->addWidget(sFondo);
    fila->addWidget(Label8);
    fila->addStretch();
    columna->addWidget(Label13);
    columna->addLayout(fila);
    return caja;
}

void Form4::ConectarManipulador()
{
    for (int i = 0; i < macros.size(); ++i)
        connect(macros[i], &QPushButton::clicked, this, [this, i] { macros_Click(i); });
    connect(HScroll1, &QScrollBar::valueChanged, this, [this](int ppm) {
        PonerVelocidad(ppm);
        Corresponsal->setFocus(Qt::OtherFocusReason);
    });
    connect(Combo3, &QComboBox::activated, this, &Form4::Combo3_Click);
    connect(Check3, &QCheckBox::clicked, this, [this] { LineaElegida(Check3, Check4); });
    connect(Check4, &QCheckBox::clicked, this, [this] { LineaElegida(Check4, Check3); });
    connect(Check7, &QCheckBox::clicked, this, &Form4::PintarFondo);
    for (QAbstractButton *b : std::initializer_list<QAbstractButton *>{Check6, Picture1})
        connect(b, &QAbstractButton::clicked, this,
                [this] { Corresponsal->setFocus(Qt::OtherFocusReason); });

    connect(&motor, &MotorCW::EcoCambiado, Label10, &QLabel::setText);
    // The port and its line stay as they are under a send.
    connect(&motor, &MotorCW::EnvioEnCurso, this, [this](bool enviando) {
        for (QWidget *w : std::initializer_list<QWidget *>{Combo3, Check3, Check4})
            w->setEnabled(!enviando);
    });
    connect(&motor, &MotorCW::FalloLinea, this,
            [this](const QString &mensaje) { ctx.dialogos().Exclamacion(mensaje); });
    connect(&llave, &LlaveCW::Lampara, Image1, &QWidget::setVisible);

    // Here the end of the voice file lets the PTT go: the contest runs on, the next call
    // is the operator's.
    llamador.SoltarAlTerminar([this] { return ctx.config().PinPTT; });
    connect(&llamador, &LlamadorCQ::Avance, sPorcentaje, [this](qint64 posicion, qint64 longitud) {
        const float ancho = float(sFondo->width()) * float(posicion) / float(longitud);
        sPorcentaje->resize(int(ancho), sPorcentaje->height());
    });
    // The lamp follows the PTT whoever keys it: this window, the main one or the trial of
    // the configuration.
    PintarLamparaTx(Label8, ctx.ptt().Encendido());
    connect(&ctx.ptt(), &InterruptorPTT::Lampara, Label8,
            [this](bool encendida) { PintarLamparaTx(Label8, encendida); });
}

// ---- Settings --------------------------------------------------------------------------------

void Form4::CargarManipulador()
{
    const AjustesCW a = LeerAjustesCW(ctx.Carpeta());
    Combo3->clear();
    Combo3->addItems(ListaPuertosCW());
    Elegir(Combo3, a.puerto);
    Check3->setChecked(a.dtr);
    Check4->setChecked(!a.dtr);
    Check7->setChecked(a.fondoOscuro);
    PintarFondo(a.fondoOscuro);
    llave.PonerLinea(a.dtr);
    // Shown, not opened: the port opens when the operator chooses it in the list, and
    // one chosen earlier in this run stays open.
    llave.NombrarPuerto(a.puerto);
    HScroll1->setValue(kPpmInicialCW);
    PonerVelocidad(kPpmInicialCW);
}

void Form4::CerrarManipulador()
{
    // A send under way would go on keying behind the closed window; it ends with its
    // character.
    if (motor.EnviandoCW())
        motor.PararCW = true;
    SoltarTeclaManual();
    const AjustesCW a{Combo3->currentText(), Check3->isChecked(), Check7->isChecked()};
    if (const Resultado<> r = GuardarAjustesCW(ctx.Carpeta(), a); !r)
        ctx.dialogos().Exclamacion(r.Mensaje());
}

void Form4::PonerVelocidad(int ppm)
{
    LabelVel->setText(RotuloVelocidadCW(ppm));
    motor.VelCW = VelCWDePpm(ppm);
}

void Form4::Combo3_Click()
{
    if (ctx.IniciandoPrincipal)
        return;
    if (const Resultado<> r = llave.ElegirPuerto(Combo3->currentText()); !r)
        ctx.dialogos().Exclamacion(r.Mensaje());
    Corresponsal->setFocus(Qt::OtherFocusReason);
}

void Form4::LineaElegida(QCheckBox *marcada, QCheckBox *otra)
{
    if (marcada->isChecked())
        otra->setChecked(false);
    // Neither ticked keys RTS.
    llave.PonerLinea(Check3->isChecked());
    Corresponsal->setFocus(Qt::OtherFocusReason);
}

void Form4::PintarFondo(bool oscuro)
{
    // The window's own background, under every label and box; fields and buttons keep
    // theirs, so what is typed stays as readable as ever.
    QPalette fondo;
    if (oscuro)
        fondo.setColor(QPalette::Window, ColorBGR(kFondoOscuroCW));
    setPalette(fondo);
    // "QTR Manual" fills its own background, to blink while the time is typed by hand.
    if (!Check2->isChecked())
        Check2->setPalette(palette());
}

// ---- Keying ----------------------------------------------------------------------------------

void Form4::macros_Click(int indice)
{
    const CamposMacroCW campos{Text2->text(), Corresponsal->text(), RSE->text(),
                               ctx.ConcursoTipo == SerieIncremental(), Check5->isChecked()};
    motor.TextoCW += TextoMacroCW(indice, campos);
    motor.enviarCW();
}

void Form4::LlamarCQ()
{
    llamador.Llamar(ctx.config().ArcAudio, ctx.config().PinPTT);
}

void Form4::Detener()
{
    // Only a send under way is stopped: a stop left standing would cut the next macro
    // after its first letter.
    if (motor.EnviandoCW())
        motor.PararCW = true;
    llamador.Detener(ctx.config().PinPTT);
    sPorcentaje->resize(Px(kBarraVacia), sPorcentaje->height());
}

bool Form4::FlechaAbajo(QKeyEvent *evento, bool soltada)
{
    // A key held down is let go even if the frame went away meanwhile.
    if (!Frame1->isVisible() && !tecla.Abajo())
        return false;
    const bool repetida = evento->isAutoRepeat();
    if (soltada) {
        if (tecla.Suelta(repetida) == TeclaManual::Accion::Subir)
            llave.kulcsFel();
    } else if (tecla.Presion(repetida) == TeclaManual::Accion::Bajar) {
        llave.kulcsLe();
    }
    return true;
}

void Form4::SoltarTeclaManual()
{
    // The arrow let go in another window would leave the transmitter keyed.
    if (tecla.FocoPerdido() == TeclaManual::Accion::Subir)
        llave.kulcsFel();
}
