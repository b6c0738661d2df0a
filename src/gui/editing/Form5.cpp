// SPDX-License-Identifier: GPL-3.0-or-later
// Form5: the QSO edit window.
#include "gui/editing/Form5.h"

#include "core/context/Contexto.h"
#include "core/editing/Edicion.h"
#include "core/editing/Qsl.h"
#include "core/rules/Bandas.h"
#include "core/rules/Entrada.h"
#include "core/rules/Senales.h"
#include "core/store/RegistroQSO.h"
#include "gui/common/Controles.h"
#include "gui/common/TeclaEnCampo.h"
#include "gui/main/Form1.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFileInfo>
#include <QFocusEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTime>
#include <QVBoxLayout>

Form5::Form5(Contexto &contexto, std::function<void()> refrescarVista, QWidget *parent)
    : QDialog(parent)
    , ctx(contexto)
    , refrescarVista_(std::move(refrescarVista))
{
    setObjectName(QStringLiteral("Form5"));
    setWindowTitle(TituloEdicion(0));
    Crear();
    Conectar();
}

Form5::~Form5() = default;

void Form5::Crear()
{
    auto *rejilla = new QGridLayout;
    // Each field is the buddy of its caption, so a screen reader names it by the caption.
    auto campo = [this, rejilla](QWidget *w, const QString &rotulo, int fila, int columna,
                                 int ancho = 1) {
        QLabel *l = Rotulo(this, rotulo, w);
        rejilla->addWidget(l, fila, columna);
        rejilla->addWidget(w, fila, columna + 1, 1, ancho);
        return l;
    };
    auto texto = [this](const char *nombre) { return ::Crear<QLineEdit>(this, nombre); };

    // Made in the order of the Tab key.
    Text1 = texto("Text1");
    campo(Text1, QStringLiteral("Mi Señal Distintiva"), 0, 0);
    Text2 = texto("Text2");
    campo(Text2, QStringLiteral("Corresponsal"), 0, 2);
    Text3 = texto("Text3");
    campo(Text3, QStringLiteral("Operador"), 0, 4);
    Text4 = texto("Text4");
    campo(Text4, QStringLiteral("Fecha UTC"), 1, 0);
    Text5 = texto("Text5");
    campo(Text5, QStringLiteral("Hora UTC"), 1, 2);
    Combo2 = ::Crear<QComboBox>(this, "Combo2");
    Combo2->setEditable(true);
    Combo2->setInsertPolicy(QComboBox::NoInsert);
    campo(Combo2, QStringLiteral("Modo"), 1, 4);
    Text6 = texto("Text6");
    campo(Text6, QStringLiteral("RSe"), 2, 0);
    Text7 = texto("Text7");
    campo(Text7, QStringLiteral("RSr"), 2, 2);
    mhz = ::Crear<QComboBox>(this, "mhz");
    mhz->setEditable(true);
    mhz->setInsertPolicy(QComboBox::NoInsert);
    campo(mhz, QStringLiteral("MHz"), 3, 0);
    Text9 = texto("Text9");
    campo(Text9, QStringLiteral("KHz"), 3, 2);
    // The band is a value, shown only: no name of its own and no caption pointing at it,
    // so that a screen reader reads the band itself.
    Label11 = ::Crear<QLabel>(this, "Label11");
    auto *rotuloBanda = ::Crear<QLabel>(this, "rotulo_Label11");
    rotuloBanda->setText(QStringLiteral("Banda"));
    rejilla->addWidget(rotuloBanda, 3, 4);
    rejilla->addWidget(Label11, 3, 5);
    Text10 = texto("Text10");
    campo(Text10, QStringLiteral("Mi Grilla"), 4, 0);
    Text11 = texto("Text11");
    campo(Text11, QStringLiteral("Su Grilla"), 4, 2);
    Check1 = ::Crear<QCheckBox>(this, "Check1");
    Check1->setAccessibleName(QStringLiteral("Satélite"));
    rejilla->addWidget(Check1, 5, 0);
    Text12 = texto("Text12");
    Label5 = campo(Text12, QStringLiteral("Satélite"), 5, 2);
    Label5->setObjectName(QStringLiteral("Label5"));
    Text8 = texto("Text8");
    campo(Text8, QStringLiteral("Observaciones"), 6, 0, 5);

    MarcoLbN = ::Crear<QGroupBox>(this, "MarcoLbN");
    MarcoLbN->setTitle(QStringLiteral("Libro Nacional"));
    auto *marco = new QHBoxLayout(MarcoLbN);
    subidoALbn = ::Crear<QLabel>(MarcoLbN, "subidoALbn");
    ConfALbn = ::Crear<QLabel>(MarcoLbN, "ConfALbn");
    for (auto [rotulo, valor] : {std::pair{QStringLiteral("Subido:"), subidoALbn},
                                 std::pair{QStringLiteral("Confirmado:"), ConfALbn}}) {
        auto *l = new QLabel(rotulo, MarcoLbN);
        marco->addWidget(l);
        marco->addWidget(valor);
        marco->addSpacing(12);
    }
    marco->addStretch();

    // Enter in a field never saves or deletes by itself.
    Command1 = Boton(this, "Command1", QStringLiteral("Guardar"));
    Command2 = Boton(this, "Command2", QStringLiteral("Eliminar"));
    Command3 = Boton(this, "Command3", QStringLiteral("LbN"));
    Command13 = Boton(this, "Command13", QStringLiteral("QRZ.com"));
    Command4 = Boton(this, "Command4", QStringLiteral("QSL"));
    auto *botones = new QHBoxLayout;
    for (QPushButton *b : {Command1, Command2, Command3, Command13, Command4})
        botones->addWidget(b);

    auto *todo = new QVBoxLayout(this);
    todo->addLayout(rejilla);
    todo->addWidget(MarcoLbN);
    todo->addLayout(botones);

    mhz->addItems(ListaMhz());
    MostrarSatelite(false);
}

void Form5::Conectar()
{
    for (QLineEdit *c : {Text1, Text2, Text3, Text4, Text5, Text9, Text10, Text11})
        c->installEventFilter(this);
    // The grids keep their shape as they are typed, as in the configuration window: a last
    // character that is not of its place's kind (a letter A to Z, or a digit) is cut.
    for (QLineEdit *grilla : {Text10, Text11}) {
        connect(grilla, &QLineEdit::textChanged, this, [grilla](const QString &t) {
            const QString forma = FormaGrilla(t);
            if (forma != t) {
                grilla->setText(forma);
                grilla->setCursorPosition(int(forma.size()));
            }
        });
    }
    connect(mhz, &QComboBox::activated, this, [this] {
        if (!ctx.CargandoEdicion)
            ActualizarBandaEdicion();
    });
    connect(Check1, &QCheckBox::clicked, this, [this] { MostrarSatelite(Text12->isHidden()); });
    connect(Command1, &QPushButton::clicked, this, [this] { Command1_Click(); });
    connect(Command2, &QPushButton::clicked, this, [this] { Command2_Click(); });
    connect(Command4, &QPushButton::clicked, this, [this] { Command4_Click(); });
    connect(Command3, &QPushButton::clicked, this, [this] {
        if (buscarLbN)
            buscarLbN(Text2->text());
    });
    connect(Command13, &QPushButton::clicked, this, [this] {
        if (buscarQRZ)
            buscarQRZ(Text2->text());
    });
}

void Form5::MostrarSatelite(bool visible)
{
    Text12->setVisible(visible);
    Label5->setVisible(visible);
    Check1->setChecked(visible);
}

void Form5::Cargar(const FilaQSO &fila, bool listaConSat)
{
    ctx.CargandoEdicion = true;
    // Grids are shown as stored: their shape is checked only as the operator types.
    const QSignalBlocker b10(Text10), b11(Text11);

    Text1->setText(fila.MyCall);
    Text2->setText(fila.Estacion);
    Text3->setText(fila.Operador);
    Text4->setText(QString(fila.Fecha).replace(QLatin1Char('-'), QLatin1Char('/')));
    const QTime hora = QTime::fromString(fila.Hora, QStringLiteral("HH:mm:ss"));
    Text5->setText(hora.isValid() ? hora.toString(QStringLiteral("HH:mm")) : fila.Hora);
    Text6->setText(fila.RSE);
    Text7->setText(fila.RSR);
    Text8->setText(fila.Obs);
    Text10->setText(fila.MiGrid);
    Text11->setText(fila.SuGrid);
    Text12->setText(fila.Nombre_Sat.trimmed());
    MostrarSatelite(!Text12->text().isEmpty());

    id_ = fila.id;
    setWindowTitle(TituloEdicion(id_));

    Combo2->clear();
    Combo2->addItems(ModosParaEdicion(fila.Modo, listaConSat));
    Combo2->setCurrentText(fila.Modo);
    mhz->clear();
    mhz->addItems(ListaMhz());
    const FrecuenciaPartida f = PartirFrecuencia(fila.Frecuencia);
    mhz->setCurrentText(f.mhz);
    Text9->setText(f.khz);

    Label11->setText(fila.Banda);
    const EstadoLbNVisible lbn = EstadoLbNEdicion(fila.LbN);
    subidoALbn->setText(lbn.subido);
    ConfALbn->setText(lbn.confirmado);
}

int Form5::Mostrar()
{
    return exec();
}

bool Form5::event(QEvent *evento)
{
    if (evento->type() == QEvent::WindowActivate)
        ctx.CargandoEdicion = false;
    return QDialog::event(evento);
}

void Form5::showEvent(QShowEvent *evento)
{
    // Activation may never come on a headless screen; being shown is as good.
    ctx.CargandoEdicion = false;
    QDialog::showEvent(evento);
}

bool Form5::eventFilter(QObject *objeto, QEvent *evento)
{
    auto *campo = qobject_cast<QLineEdit *>(objeto);
    if (campo && campo->window() == this) {
        if (evento->type() == QEvent::KeyPress) {
            if (AlTeclear(campo, static_cast<QKeyEvent *>(evento)))
                return true;
        } else if (evento->type() == QEvent::FocusOut && DejaElCampo(evento, this)) {
            AlPerderFoco(campo);
        }
    }
    return QDialog::eventFilter(objeto, evento);
}

bool Form5::AlTeclear(QLineEdit *campo, QKeyEvent *tecla)
{
    FiltroTecla filtro;
    if (campo == Text1 || campo == Text2 || campo == Text3)
        filtro = FiltroTecla::Senal;
    else if (campo == Text4)
        filtro = FiltroTecla::Fecha;
    else if (campo == Text5)
        filtro = FiltroTecla::Hora;
    else
        return false;
    return FiltrarTeclaEnCampo(campo, tecla, filtro, false);
}

bool Form5::RevisarCampo(QLineEdit *campo)
{
    QString mensaje;
    if (campo == Text4) {
        mensaje = RevisarFechaEdicion(Text4->text());
    } else if (campo == Text5) {
        mensaje = RevisarHoraEdicion(Text5->text());
    } else if (campo == Text9) {
        Text9->setText(RellenarKhz(Text9->text()));
        if (!ctx.CargandoEdicion)
            ActualizarBandaEdicion();
        return true;
    } else if (campo == Text10 || campo == Text11) {
        mensaje = RevisarGrillaEdicion(campo->text());
    }
    if (mensaje.isEmpty())
        return true;
    ctx.dialogos().Exclamacion(mensaje);
    return false;
}

void Form5::AlPerderFoco(QLineEdit *campo)
{
    if (revisando_)
        return;
    revisando_ = true;
    if (!RevisarCampo(campo))
        campo->setFocus(Qt::OtherFocusReason);
    revisando_ = false;
}

void Form5::ActualizarBandaEdicion()
{
    const BandaDerivada r = DerivarBanda(mhz->currentText(), Text9->text(), VentanaBanda::Edicion);
    if (r.fueraDeBanda) {
        // A warning only: the frequency stays as typed.
        ctx.dialogos().Exclamacion(r.mensaje);
        Text9->setFocus(Qt::OtherFocusReason);
    }
    Label11->setText(r.banda);
}

void Form5::Command1_Click()
{
    Text12->setText(Text12->text().toUpper());
    const CamposGuardado campos{Combo2->currentText(), Text12->text(), Text1->text(), Text2->text(),
                                Text3->text(),         Text6->text(),  Text7->text()};
    if (const auto fallo = RevisarGuardado(campos)) {
        if (fallo->alto)
            ctx.dialogos().Alto(fallo->mensaje);
        else
            ctx.dialogos().Exclamacion(fallo->mensaje);
        QLineEdit *foco = Text2;
        switch (fallo->campo) {
        case CampoEdicion::Corresponsal:
            foco = Text2;
            break;
        case CampoEdicion::Rse:
            foco = Text6;
            break;
        case CampoEdicion::Rsr:
            foco = Text7;
            break;
        case CampoEdicion::Satelite:
            // The satellite field may be hidden on a QSO that had none: it is shown so
            // that the name can be typed.
            MostrarSatelite(true);
            foco = Text12;
            break;
        }
        foco->setFocus(Qt::OtherFocusReason);
        return;
    }
    const QString provincia = ProvinciaParaGuardar(Text2->text());

    // A date or a time that cannot be read would be stored as nonsense: it is refused with
    // the field's own message while the window is still open, so nothing typed is lost.
    const auto fecha = FechaParaGuardarEdicion(Text4->text());
    if (!fecha) {
        ctx.dialogos().Exclamacion(MensajeFechaEdicion());
        Text4->setFocus(Qt::OtherFocusReason);
        return;
    }
    const auto hora = HoraParaGuardarEdicion(Text5->text());
    if (!hora) {
        ctx.dialogos().Exclamacion(MensajeHoraEdicion());
        Text5->setFocus(Qt::OtherFocusReason);
        return;
    }

    setResult(QDialog::Accepted);
    hide();

    RegistroQSO q;
    q.Estacion = Text2->text();
    q.Banda = Label11->text();
    q.Modo = Combo2->currentText();
    q.RSE = Text6->text();
    q.RSR = Text7->text();
    q.Fecha = *fecha;
    q.Hora = *hora;
    q.MyCall = Text1->text();
    q.Operador = Text3->text();
    q.Obs = Text8->text();
    q.Frecuencia = mhz->currentText() + QLatin1Char('.') + Text9->text();
    q.MiGrid = Text10->text();
    q.SuGrid = Text11->text();
    q.Nombre_Sat = Text12->text();
    // Every saved edit goes back to "not uploaded": the service gets the corrected QSO on
    // the next run.
    q.LbN = QString();
    q.Argento = provincia;

    const qint64 id = id_;
    if (const Resultado<> r = ctx.almacen().ActualizarQSO(id, q); !r)
        ctx.dialogos().Alto(r.Mensaje());
    Refrescar(id);
}

void Form5::Command2_Click()
{
    const qint64 id = id_;
    if (ctx.dialogos().PreguntaSiNo(PreguntaEliminar(id))) {
        if (const Resultado<> r = ctx.almacen().BorrarQSO(id); !r)
            ctx.dialogos().Alto(r.Mensaje());
        // The main view must not go on showing a row that is gone, whoever opened us.
        if (ctx.OrigenEdicion != QLatin1String("Form1") && refrescarVista_)
            refrescarVista_();
        setResult(QDialog::Accepted);
    } else {
        setResult(QDialog::Rejected);
    }
    hide();
    Refrescar(id);
}

void Form5::Refrescar(qint64 id)
{
    if (ctx.OrigenEdicion == QLatin1String("Form1")) {
        if (refrescarVista_)
            refrescarVista_(); // the same page again
    } else if (ctx.OrigenEdicion == QLatin1String("Form6")) {
        if (refrescarBusqueda)
            refrescarBusqueda(id);
    }
}

void Form5::Command4_Click()
{
    const AjustesTordos tordos = AjustesTordos::Leer(ctx.Carpeta());
    const QString de = Text1->text();
    const QString para = Text2->text();
    const QFileInfo programa(tordos.programa);
    if (!programa.isFile() || !programa.isExecutable()) {
        ctx.dialogos().Exclamacion(QStringLiteral("No se encuentra programa Tordos"));
        return;
    }
    if (!BuscarDisenoQsl(tordos.Disenos(), de)) {
        ctx.dialogos().Exclamacion(
            QStringLiteral("El programa Tordos no tiene Diseño de QSL para ") + de);
        return;
    }
    const DatosQsl datos{de,
                         para,
                         Text4->text(),
                         Text5->text(),
                         Combo2->currentText(),
                         Label11->text(),
                         Text6->text(),
                         Text12->text(),
                         Text8->text()};
    // The designer draws on its own; we go on at once.
    if (!ctx.escritorio().IniciarPrograma(tordos.programa, ArgumentosQsl(datos), tordos.carpeta)) {
        ctx.dialogos().Exclamacion(QStringLiteral("No se encuentra programa Tordos"));
        return;
    }
    // Asked at once: the card may not be drawn yet when the operator says yes.
    if (ctx.dialogos().PreguntaSiNo(PreguntaVerQsl(para, Text4->text(), tordos.Salida())))
        ctx.escritorio().Abrir(
            QDir(tordos.Salida()).filePath(NombreImagenQsl(para, Text4->text())));
}

Form5 *ConectarEdicion(Form1 &principal, Contexto &ctx)
{
    auto *ventana = new Form5(
        ctx, [&principal] { principal.Command11_Click(); }, &principal);
    const QPointer<Form5> edicion(ventana);
    principal.abrirEdicion = [edicion](const FilaQSO &fila, bool conSat) {
        if (!edicion)
            return;
        edicion->Cargar(fila, conSat);
        edicion->Mostrar();
    };
    return ventana;
}
