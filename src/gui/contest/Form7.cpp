// SPDX-License-Identifier: GPL-3.0-or-later
// Form7: the contest QSO edit window.
#include "gui/contest/Form7.h"

#include "core/contest/Concurso.h"
#include "core/contest/EdicionConcurso.h"
#include "core/context/Contexto.h"
#include "core/store/RegistroQSO.h"
#include "gui/common/Controles.h"
#include "gui/common/TeclaEnCampo.h"

#include <QComboBox>
#include <QFocusEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

Form7::Form7(Contexto &contexto, std::function<void()> refrescar, QWidget *parent)
    : QDialog(parent)
    , ctx(contexto)
    , refrescar_(std::move(refrescar))
{
    setObjectName(QStringLiteral("Form7"));
    setWindowTitle(TituloRegistro(0));
    auto *rejilla = new QGridLayout;
    auto poner = [this, rejilla](QWidget *campo, const QString &rotulo, int fila, int columna) {
        rejilla->addWidget(Rotulo(this, rotulo, campo), fila, columna);
        rejilla->addWidget(campo, fila, columna + 1);
    };
    auto texto = [this](const char *nombre) { return Crear<QLineEdit>(this, nombre); };
    Text1 = texto("Text1");
    poner(Text1, QStringLiteral("Mi Señal Distintiva"), 0, 0);
    Text2 = texto("Text2");
    poner(Text2, QStringLiteral("Corresponsal"), 0, 2);
    Text4 = texto("Text4");
    Text4->setPlaceholderText(QStringLiteral("AAAAMMDD"));
    poner(Text4, QStringLiteral("Fecha UTC"), 1, 0);
    Text5 = texto("Text5");
    Text5->setPlaceholderText(QStringLiteral("HHMM"));
    poner(Text5, QStringLiteral("Hora UTC"), 1, 2);
    Combo1 = Crear<QComboBox>(this, "Combo1");
    poner(Combo1, QStringLiteral("Banda"), 2, 0);
    Combo2 = Crear<QComboBox>(this, "Combo2");
    poner(Combo2, QStringLiteral("Modo"), 2, 2);
    Text6 = texto("Text6");
    poner(Text6, QStringLiteral("Serie E"), 3, 0);
    Text7 = texto("Text7");
    poner(Text7, QStringLiteral("Serie R"), 3, 2);
    Text3 = texto("Text3");
    poner(Text3, QStringLiteral("Frecuencia (KHz)"), 4, 0);
    // Values, read as they show.
    Label3 = Crear<QLabel>(this, "Label3");
    Label10 = Crear<QLabel>(this, "Label10");
    rejilla->addWidget(new QLabel(QStringLiteral("Concurso:"), this), 5, 0);
    rejilla->addWidget(Label3, 5, 1);
    rejilla->addWidget(new QLabel(QStringLiteral("Tipo:"), this), 5, 2);
    rejilla->addWidget(Label10, 5, 3);

    Command1 = Boton(this, "Command1", QStringLiteral("Guardar"));
    Command2 = Boton(this, "Command2", QStringLiteral("Eliminar"));
    auto *botones = new QHBoxLayout;
    botones->addStretch();
    botones->addWidget(Command1);
    botones->addWidget(Command2);
    auto *todo = new QVBoxLayout(this);
    todo->addLayout(rejilla);
    todo->addLayout(botones);

    for (QLineEdit *c : {Text1, Text2, Text3, Text4, Text5, Text6, Text7})
        c->installEventFilter(this);
    connect(Command1, &QPushButton::clicked, this, &Form7::Command1_Click);
    connect(Command2, &QPushButton::clicked, this, &Form7::Command2_Click);
}

void Form7::Cargar(const FilaConcurso &fila, const QString &concurso, const QString &tipo)
{
    id_ = fila.id;
    setWindowTitle(TituloRegistro(id_));
    Combo1->clear();
    Combo1->addItems({QStringLiteral("160m"), QStringLiteral("80m"), QStringLiteral("40m"),
                      QStringLiteral("20m"), QStringLiteral("15m"), QStringLiteral("10m"),
                      QStringLiteral("6m"), QStringLiteral("2m")});
    Combo2->clear();
    Combo2->addItems({QStringLiteral("SSB"), QStringLiteral("FM"), QStringLiteral("CW")});
    // A value the list does not hold is shown as it stands, and saved back so.
    for (auto [lista, valor] : {std::pair{Combo1, fila.Banda}, std::pair{Combo2, fila.Modo}}) {
        if (lista->findText(valor) < 0)
            lista->addItem(valor);
        lista->setCurrentText(valor);
    }
    Text1->setText(fila.MyCall);
    Text2->setText(fila.Estacion);
    Text4->setText(fila.Fecha);
    Text5->setText(fila.Hora);
    Text6->setText(fila.RSE);
    Text7->setText(fila.RSR);
    Label3->setText(concurso);
    Label10->setText(tipo);
}

int Form7::Mostrar()
{
    return exec();
}

void Form7::Terminar()
{
    hide();
    if (refrescar_)
        refrescar_();
}

void Form7::Command1_Click()
{
    // What the fields hold now is saved: the checks ran when each field was left. The kHz
    // field is saved as it stands, empty included.
    FilaConcurso f;
    f.Modo = Combo2->currentText();
    f.Banda = Combo1->currentText();
    f.MyCall = Text1->text();
    f.Estacion = Text2->text();
    f.Fecha = Text4->text();
    f.Hora = Text5->text();
    f.RSE = Text6->text();
    f.RSR = Text7->text();
    f.Frecuencia = Text3->text();
    f.LbN = Label3->text();
    f.Nombre_Sat = Label10->text();
    if (const Resultado<> r = ctx.almacen().ActualizarQSOConcurso(id_, f); !r) {
        ctx.dialogos().Alto(r.Mensaje());
        return; // the window stays with what was typed
    }
    accept();
    Terminar();
}

void Form7::Command2_Click()
{
    if (!ctx.dialogos().PreguntaSiNo(PreguntaEliminarQSOConcurso(Text2->text()))) {
        reject();
        return;
    }
    if (const Resultado<> r = ctx.almacen().BorrarQSOConcurso(id_); !r)
        ctx.dialogos().Alto(r.Mensaje());
    accept();
    Terminar();
}

bool Form7::AlTeclear(QLineEdit *campo, QKeyEvent *tecla)
{
    // Upper case for callsigns; digits for kHz, date and time; serials take letters too
    // unless the series is incremental. No field takes an apostrophe.
    if (campo == Text1 || campo == Text2)
        return FiltrarTeclaEnCampo(campo, tecla, FiltroTecla::Senal);
    const QString t = tecla->text();
    if ((campo == Text6 || campo == Text7) && Label10->text() != SerieIncremental() &&
        t.size() == 1 && t[0].isLetter())
        return false;
    return FiltrarTeclaEnCampo(campo, tecla, FiltroTecla::Digitos);
}

void Form7::AlPerderFoco(QLineEdit *campo)
{
    QStringList mensajes;
    if (campo == Text3)
        mensajes = RevisarFrecuenciaRegistro(campo->text());
    else if (campo == Text4)
        mensajes = RevisarFechaRegistro(campo->text());
    else if (campo == Text5)
        mensajes = RevisarHoraRegistro(campo->text());
    if (mensajes.isEmpty() || revisando_)
        return;
    revisando_ = true;
    for (const QString &m : mensajes)
        ctx.dialogos().Exclamacion(m);
    campo->setFocus(Qt::OtherFocusReason);
    revisando_ = false;
}

bool Form7::eventFilter(QObject *objeto, QEvent *evento)
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
