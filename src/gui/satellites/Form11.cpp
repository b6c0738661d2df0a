// SPDX-License-Identifier: GPL-3.0-or-later
// Form11: the editor of the satellite catalogue.
#include "gui/satellites/Form11.h"

#include "core/context/Contexto.h"
#include "core/satellites/Catalogo.h"
#include "core/satellites/EdicionSatelites.h"
#include "gui/common/Controles.h"
#include "gui/common/TeclaEnCampo.h"
#include "gui/main/Form1.h"

#include <QComboBox>
#include <QFocusEvent>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <QScopedValueRollback>
#include <QSignalBlocker>

namespace {

const QStringList kBandas{QStringLiteral("2m"), QStringLiteral("70cm"), QStringLiteral("23cm")};
const QStringList kModos{QStringLiteral("FM"), QStringLiteral("SSB")};

// What a field of the file may hold: ";" would cut the line into other fields.
void SinPuntoYComa(QLineEdit *campo)
{
    campo->setValidator(
        new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[^;]*")), campo));
}

// Frequencies: digits and the point only.
void SoloFrecuencia(QLineEdit *campo)
{
    campo->setValidator(
        new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[0-9.]*")), campo));
}

QComboBox *Lista(QWidget *padre, const char *nombre, const QStringList &items,
                 const QString &inicio, int y)
{
    auto *combo = Poner<QComboBox>(padre, nombre, 1320, y, 1200, 330);
    combo->addItems(items);
    combo->setCurrentText(inicio);
    return combo;
}

QLineEdit *Texto(QWidget *padre, const char *nombre, int y, int ancho)
{
    return Campo(padre, nombre, 1320, y, ancho, 255);
}

QString Blanco(const QString &t)
{
    return t.isEmpty() ? QStringLiteral(" ") : t;
}

} // namespace

Form11::Form11(Contexto &contexto, std::function<void()> satelitesCambiados, QWidget *parent)
    : QDialog(parent)
    , ctx(contexto)
    , satelitesCambiados_(std::move(satelitesCambiados))
{
    setObjectName(QStringLiteral("Form11"));
    setWindowTitle(QStringLiteral("Editar Satélites ..."));
    Crear();
    Conectar();
}

Form11::~Form11() = default;

void Form11::Crear()
{
    setFixedSize(Px(9840), Px(4440));
    CrearAgregar();

    Frame2 = Poner<QGroupBox>(this, "Frame2", 3480, 120, 2760, 4200);
    Frame2->setTitle(QStringLiteral("Editar"));
    List1 = Poner<QListWidget>(Frame2, "List1", 120, 300, 2520, 3360);
    List1->setAccessibleName(QStringLiteral("Satélites"));
    Label2 = Poner<QLabel>(Frame2, "Label2", 120, 3720, 2520, 360);
    Label2->setText(QStringLiteral("Clic en un satélite para editarlo"));
    Label2->setWordWrap(true);

    CrearEditando();
}

void Form11::CrearCampos(QGroupBox *marco, const std::array<const char *, 6> &nombres,
                         const CamposSatelite &c)
{
    c.nombre = Texto(marco, nombres[0], 300, 1800);
    Rotulo(marco, QStringLiteral("Nombre:"), 120, 345, 1150, c.nombre);
    c.subida = Lista(marco, nombres[1], kBandas, QStringLiteral("2m"), 720);
    Rotulo(marco, QStringLiteral("Subida:"), 120, 765, 1150, c.subida);
    c.bajada = Lista(marco, nombres[2], kBandas, QStringLiteral("70cm"), 1140);
    Rotulo(marco, QStringLiteral("Bajada:"), 120, 1185, 1150, c.bajada);
    c.modo = Lista(marco, nombres[3], kModos, QStringLiteral("FM"), 1560);
    Rotulo(marco, QStringLiteral("Modo:"), 120, 1605, 1150, c.modo);
    c.subtono = Texto(marco, nombres[4], 1980, 1200);
    Rotulo(marco, QStringLiteral("Sub Tono:"), 120, 2025, 1150, c.subtono);
    c.frecuencia =
        Campo(marco, nombres[5], 1320, 2400, 1200, LargoFrecuencia(c.subida->currentText()));
    Rotulo(marco, QStringLiteral("Frecuencia:"), 120, 2445, 1150, c.frecuencia);
}

void Form11::CrearAgregar()
{
    Frame1 = Poner<QGroupBox>(this, "Frame1", 120, 120, 3240, 4200);
    Frame1->setTitle(QStringLiteral("Agregar"));
    CrearCampos(Frame1, {"Text1", "Combo1", "Combo2", "Combo3", "Text4", "Frec_new"},
                {Text1, Combo1, Combo2, Combo3, Text4, Frec_new});
    Command1 = Boton(Frame1, "Command1", QStringLiteral("Agregar"), 1320, 3240, 1320, 420);
}

void Form11::CrearEditando()
{
    Frame3 = Poner<QGroupBox>(this, "Frame3", 6360, 120, 3360, 4200);
    Frame3->setTitle(QStringLiteral("Editando ..."));
    CrearCampos(Frame3, {"Text2", "Combo8", "Combo7", "Combo6", "Text3", "Text5"},
                {Text2, Combo8, Combo7, Combo6, Text3, Text5});
    Command2 = Boton(Frame3, "Command2", QStringLiteral("Aceptar"), 120, 3240, 1000, 420);
    Command3 = Boton(Frame3, "Command3", QStringLiteral("Cancelar"), 1180, 3240, 1000, 420);
    Command4 = Boton(Frame3, "Command4", QStringLiteral("Eliminar"), 2240, 3240, 1000, 420);
    Frame3->setVisible(false);
}

void Form11::Conectar()
{
    for (QLineEdit *t : {Text1, Text4, Text2, Text3})
        SinPuntoYComa(t);
    for (QLineEdit *f : {Frec_new, Text5}) {
        SoloFrecuencia(f);
        f->installEventFilter(this);
    }
    // The longest frequency follows the uplink band.
    connect(Combo1, &QComboBox::currentTextChanged, this,
            [this](const QString &banda) { Frec_new->setMaxLength(LargoFrecuencia(banda)); });
    connect(Combo8, &QComboBox::currentTextChanged, this,
            [this](const QString &banda) { Text5->setMaxLength(LargoFrecuencia(banda)); });
    connect(Command1, &QPushButton::clicked, this, &Form11::Command1_Click);
    connect(Command2, &QPushButton::clicked, this, &Form11::Command2_Click);
    connect(Command3, &QPushButton::clicked, this, &Form11::Command3_Click);
    connect(Command4, &QPushButton::clicked, this, &Form11::Command4_Click);
    // A click, or the arrows of the keyboard, on a name.
    connect(List1, &QListWidget::currentRowChanged, this, &Form11::List1_Click);
    connect(List1, &QListWidget::itemClicked, this,
            [this](QListWidgetItem *item) { List1_Click(List1->row(item)); });
}

int Form11::Mostrar()
{
    Frame3->setVisible(false);
    CargarLista();
    return exec();
}

void Form11::CargarLista()
{
    const QSignalBlocker bloqueo(List1);
    List1->clear();
    QStringList nombres;
    const QVector<Satelite> satelites = LeerCatalogo(ctx.Carpeta());
    nombres.reserve(satelites.size());
    for (const Satelite &s : satelites)
        nombres << s.nombre;
    List1->addItems(nombres);
}

void Form11::Recargar()
{
    if (satelitesCambiados_)
        satelitesCambiados_();
    CargarLista();
}

bool Form11::RevisarAlSalir(QLineEdit *campo)
{
    const QString banda = (campo == Frec_new ? Combo1 : Combo8)->currentText();
    const QString mensaje = RevisarFrecuencia(campo->text(), banda);
    if (mensaje.isEmpty())
        return true;
    const QScopedValueRollback guardia(revisando_, true);
    ctx.dialogos().Exclamacion(mensaje);
    campo->setFocus(Qt::OtherFocusReason);
    return false;
}

bool Form11::eventFilter(QObject *objeto, QEvent *evento)
{
    if (evento->type() == QEvent::FocusOut && !revisando_ &&
        (objeto == Frec_new || objeto == Text5)) {
        if (DejaElCampo(evento, this))
            RevisarAlSalir(static_cast<QLineEdit *>(objeto));
    }
    return QDialog::eventFilter(objeto, evento);
}

void Form11::Command1_Click()
{
    Text1->setText(Text1->text().toUpper());
    Satelite s{Text1->text(),         Combo1->currentText(), Combo2->currentText(),
               Combo3->currentText(), Text4->text(),         Frec_new->text()};
    QStringList nombres;
    for (int i = 0; i < List1->count(); ++i)
        nombres << List1->item(i)->text();
    if (const std::optional<RechazoSatelite> rechazo = RevisarNuevoSatelite(s, nombres)) {
        const QScopedValueRollback guardia(revisando_, true);
        ctx.dialogos().Exclamacion(rechazo->mensaje);
        using Campo = RechazoSatelite::Campo;
        if (rechazo->campo == Campo::Nombre)
            Text1->setFocus(Qt::OtherFocusReason);
        else if (rechazo->campo == Campo::Bajada)
            Combo2->setFocus(Qt::OtherFocusReason);
        else if (rechazo->campo == Campo::Frecuencia)
            Frec_new->setFocus(Qt::OtherFocusReason);
        return;
    }
    s.subtono = Blanco(s.subtono);
    s.frecuencia = Blanco(s.frecuencia);
    if (const Resultado<> r = AgregarSatelite(ctx.Carpeta(), s); !r) {
        ctx.dialogos().Alto(r.Mensaje());
        return;
    }
    Recargar();
    for (QLineEdit *t : {Text1, Text4, Frec_new})
        t->clear();
}

void Form11::List1_Click(int fila)
{
    QListWidgetItem *item = List1->item(fila);
    if (!item)
        return;
    const std::optional<Satelite> s = BuscarSatelite(ctx.Carpeta(), item->text());
    if (!s)
        return;
    editando_ = s->nombre;
    Text2->setText(s->nombre);
    Elegir(Combo8, s->subida);
    Elegir(Combo7, s->bajada);
    Elegir(Combo6, s->modo);
    // A blank in the file stands for an empty field.
    Text3->setText(s->subtono.trimmed());
    Text5->setText(s->frecuencia.trimmed());
    Frame3->setVisible(true);
}

void Form11::Command2_Click()
{
    const QScopedValueRollback guardia(revisando_, true);
    if (Text2->text().trimmed().isEmpty()) {
        ctx.dialogos().Exclamacion(MensajeFaltaNombre());
        Text2->setFocus(Qt::OtherFocusReason);
        return;
    }
    // A frequency the field refuses is not written, whatever way the click came.
    if (const QString m = RevisarFrecuencia(Text5->text(), Combo8->currentText()); !m.isEmpty()) {
        ctx.dialogos().Exclamacion(m);
        Text5->setFocus(Qt::OtherFocusReason);
        return;
    }
    const Satelite s{Text2->text(),         Combo8->currentText(), Combo7->currentText(),
                     Combo6->currentText(), Blanco(Text3->text()), Blanco(Text5->text())};
    const Resultado<> r = ReemplazarSatelite(ctx.Carpeta(), editando_, s);
    if (!r)
        ctx.dialogos().Alto(r.Mensaje());
    Frame3->setVisible(false);
    Recargar();
}

void Form11::Command3_Click()
{
    Frame3->setVisible(false);
}

void Form11::Command4_Click()
{
    if (!ctx.dialogos().PreguntaSiNo(PreguntaEliminarSatelite(editando_)))
        return;
    const Resultado<> r = EliminarSatelite(ctx.Carpeta(), editando_);
    if (!r)
        ctx.dialogos().Alto(r.Mensaje());
    Frame3->setVisible(false);
    Recargar();
}

Form11 *ConectarSatelites(Form1 &principal, Contexto &ctx)
{
    auto *ventana = new Form11(
        ctx, [&principal] { principal.CargarSatelites(); }, &principal);
    principal.editarSatelites = [ventana] { ventana->Mostrar(); };
    return ventana;
}
