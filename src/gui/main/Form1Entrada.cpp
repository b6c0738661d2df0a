// SPDX-License-Identifier: GPL-3.0-or-later
// Form1: the entry of one QSO. Field colours and filters, the checks on leaving a field,
// the manual time, and the click of "Ingresar QSO".
#include "core/context/Contexto.h"
#include "core/rules/Bandas.h"
#include "core/rules/Entrada.h"
#include "core/rules/Numeros.h"
#include "core/rules/Validacion.h"
#include "gui/common/TeclaEnCampo.h"
#include "gui/main/Form1.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QTimer>
#include <QTreeWidget>

namespace {

const QColor ColorFoco(0xC0, 0xC0, 0xFF); // pale blue while a field has the focus

} // namespace

void Form1::ConectarEntrada()
{
    for (QLineEdit *campo : {Corresponsal, Fecha, Hora, RSE, RSR, Text1, Text2, Obs})
        campo->setAutoFillBackground(true);

    connect(Corresponsal, &QLineEdit::textChanged, this, [this](const QString &t) {
        for (QPushButton *b : {Command7, Command13, Command14})
            b->setEnabled(!t.isEmpty());
    });
    connect(Text1, &QLineEdit::textChanged, this, [this](const QString &t) {
        // Three digits of kHz are the whole frequency: go on to the remarks, past the grid.
        if (t.size() == 3 && ctx.RelojActivo)
            Obs->setFocus(Qt::OtherFocusReason);
    });
    connect(Text2, &QLineEdit::textChanged, this, [this](const QString &t) {
        const QString forma = FormaGrilla(t);
        if (forma != t) {
            Text2->setText(forma);
            Text2->setCursorPosition(int(forma.size()));
        }
    });
    connect(Combo1, &QComboBox::activated, this, [this] {
        const QString defecto = ReporteDefecto(Combo1->currentText());
        RSE->setText(defecto);
        RSR->setText(defecto);
        Corresponsal->setFocus(Qt::OtherFocusReason);
    });
    connect(Combo2, &QComboBox::activated, this,
            [this] { Corresponsal->setFocus(Qt::OtherFocusReason); });
    connect(Check3, &QCheckBox::clicked, this,
            [this] { Corresponsal->setFocus(Qt::OtherFocusReason); });
    // "No Borrar" is a setting, saved with the others: the box is its only editor.
    connect(Check3, &QCheckBox::toggled, this,
            [this](bool marcado) { ctx.config().NoBorrar = marcado ? 1 : 0; });
    connect(mhz, &QComboBox::activated, this, [this] {
        // Without kilohertz there is no frequency to judge: the click does nothing at all.
        if (Text1->text().isEmpty())
            return;
        ActualizarBanda(true);
        // The kilohertz were judged just now: leaving them for the callsign is not a second
        // check, nor a second "Fuera de banda!".
        const QScopedValueRollback yaVisto(validando_, true);
        Corresponsal->setFocus(Qt::OtherFocusReason);
    });
    connect(Check1, &QCheckBox::clicked, this, [this] { Check1_Click(); });
    connect(Command2, &QPushButton::clicked, this, [this] { IngresarQSO(); });
    connect(Command7, &QPushButton::clicked, this, [this] { Command7_Click(); });
    connect(Command15, &QPushButton::clicked, this, [this] { Command15_Click(); });
    connect(Command13, &QPushButton::clicked, this, [this] {
        if (buscarQRZ)
            buscarQRZ();
    });
    connect(Command14, &QPushButton::clicked, this, [this] {
        if (buscarLbN)
            buscarLbN();
    });
}

void Form1::MarcarFoco(QLineEdit *campo, bool conFoco)
{
    QPalette p = campo->palette();
    p.setColor(QPalette::Base, conFoco ? ColorFoco : QColor(Qt::white));
    campo->setPalette(p);
}

void Form1::AlRecibirFoco(QLineEdit *campo)
{
    const QList<QLineEdit *> orden{Corresponsal, Fecha, Hora, RSE, RSR, Text1, Text2, Obs};
    MarcarFoco(campo, true);
    ctx.CampoConFoco = int(orden.indexOf(campo)) + 1;
    // The line edit sets its own selection after this event, so ours comes a turn later.
    QTimer::singleShot(0, campo, [this, campo] {
        if (campo == Fecha)
            Fecha->setSelection(0, 2);
        else if (campo == Hora)
            Hora->setSelection(qMax(0, int(Hora->text().size()) - 2), 2);
        else if (campo == RSE || campo == RSR || campo == Text1)
            campo->selectAll();
    });
}

bool Form1::AlTeclear(QLineEdit *campo, QKeyEvent *tecla)
{
    FiltroTecla filtro;
    if (campo == Corresponsal)
        filtro = FiltroTecla::Senal;
    else if (campo == Text2)
        filtro = FiltroTecla::SenalSinBarra;
    else if (campo == Fecha)
        filtro = FiltroTecla::Fecha;
    else if (campo == Hora)
        filtro = FiltroTecla::Hora;
    else if (campo == Text1 || campo == Text3)
        filtro = FiltroTecla::Digitos;
    else
        return false;
    return FiltrarTeclaEnCampo(campo, tecla, filtro);
}

bool Form1::ValidarCampo(QLineEdit *campo)
{
    Dialogos &d = ctx.dialogos();
    if (campo == Corresponsal) {
        const QString t = Corresponsal->text();
        if (!t.isEmpty() && !PareceSenal(t)) {
            d.Exclamacion(MensajeNoPareceSenal(t));
            return false;
        }
    } else if (campo == Fecha || campo == Hora) {
        // The field takes the mended text even when it is refused: a date typed with
        // hyphens is refused once, already corrected, and passes the next time.
        const RevisionCampo r =
            campo == Fecha ? RevisarFecha(Fecha->text()) : RevisarHora(Hora->text());
        if (r.texto != campo->text())
            campo->setText(r.texto);
        if (!r.mensaje.isEmpty()) {
            d.Exclamacion(r.mensaje);
            return false;
        }
    } else if (campo == RSE || campo == RSR) {
        // A bad report is told as it was typed, then replaced.
        const RevisionCampo r = RevisarReporte(campo->text(), Combo1->currentText());
        if (!r.mensaje.isEmpty()) {
            d.Exclamacion(r.mensaje);
            campo->setText(r.texto);
            return false;
        }
    } else if (campo == Text1) {
        Text1->setText(RellenarKhz(Text1->text()));
        ActualizarBanda(false);
    } else if (campo == Text2) {
        if (!GrillaAceptable(Text2->text())) {
            d.Exclamacion(MensajeGrilla());
            return false;
        }
    }
    return true;
}

bool Form1::AlPerderFoco(QLineEdit *campo)
{
    MarcarFoco(campo, false);
    if (validando_)
        return true;
    validando_ = true;
    const bool bien = ValidarCampo(campo);
    if (!bien)
        campo->setFocus(Qt::OtherFocusReason);
    validando_ = false;
    return bien;
}

void Form1::ActualizarBanda(bool /*moverFoco*/)
{
    const BandaDerivada r = DerivarBanda(mhz->currentText(), Text1->text(), VentanaBanda::Principal,
                                         ctx.IniciandoPrincipal);
    if (r.fueraDeBanda) {
        // A warning only: the frequency stays and the QSO can still be entered.
        ctx.dialogos().Exclamacion(r.mensaje);
        Text1->setFocus(Qt::OtherFocusReason);
    }
    Label7->setText(r.banda);
}

void Form1::LlenarFechaHora()
{
    QDateTime ahora = ctx.reloj().Ahora();
    if (Label11->text() == QLatin1String("UTC"))
        ahora = ahora.addSecs(qint64(-DiferenciaUTC() * 3600.0));
    Fecha->setText(ahora.toString(QStringLiteral("dd/MM/yyyy")));
    Hora->setText(ahora.toString(QStringLiteral("HH:mm")));
}

void Form1::PonerQTRManual(bool manual)
{
    if (manual) {
        Timer3->start();
        Label11->setVisible(true);
        Fecha->setEnabled(true);
        Hora->setEnabled(true);
        LlenarFechaHora();
    } else {
        Label11->setVisible(false);
        Timer3->stop();
        Check1->setPalette(QPalette());
    }
}

void Form1::Check1_Click()
{
    PonerQTRManual(Check1->isChecked());
    if (ctx.RelojActivo) {
        Corresponsal->setFocus(Qt::OtherFocusReason);
        GuardarMemEntrada();
    }
}

void Form1::Label11_Click()
{
    Label11->setText(Label11->text() == QLatin1String("UTC") ? QStringLiteral("LU")
                                                             : QStringLiteral("UTC"));
    LlenarFechaHora();
}

void Form1::IngresarQSO()
{
    // A date or time that cannot be read would leave a QSO with no moment: refuse it
    // before anything is cleared, so nothing typed is lost.
    QDateTime momento = LeerMomento(Fecha->text(), Hora->text());
    if (!momento.isValid()) {
        if (FechaInvalida(Fecha->text()))
            ctx.dialogos().Exclamacion(MensajeFecha(Fecha->text()));
        else
            ctx.dialogos().Exclamacion(MensajeHora(Hora->text()));
        return;
    }

    RegistroQSO q;
    q.Estacion = Corresponsal->text();
    q.Banda = Label7->text();
    q.Modo = Combo1->currentText();
    q.RSE = RSE->text();
    q.RSR = RSR->text();
    q.MyCall = ctx.config().Estacion.toUpper();
    q.Operador = ctx.config().Operador.toUpper();
    q.Obs = Obs->text();
    Corresponsal->clear();
    if (!Check3->isChecked())
        Obs->clear();
    q.Frecuencia = mhz->currentText() + QLatin1Char('.') + Text1->text();
    q.SuGrid = Text2->text();
    Text2->clear();
    q.MiGrid = ctx.config().GridLoca;
    if (EnModoSatelite()) {
        q.Nombre_Sat = Combo3->currentText();
        q.Modo = Modo->text().remove(QStringLiteral("Modo: "));
    }
    GuardarMemEntrada();

    double desfase = 0;
    if (!Label11->isHidden() && Label11->text() == QLatin1String("LU"))
        desfase = DiferenciaUTC();
    momento = momento.addSecs(qint64(-desfase * 3600.0));
    q.Fecha = momento.toString(QStringLiteral("dd/MM/yyyy"));
    q.Hora = momento.toString(QStringLiteral("HH:mm")) + QStringLiteral(":00");

    const Resultado<qint64> id = ctx.almacen().AgregarQSO(q, ctx.LogenUso);
    if (id) {
        ultimoId_ = *id;
        Label4->setText(QString::number(*id));
    } else {
        ctx.dialogos().Alto(id.Mensaje());
        Corresponsal->setText(q.Estacion);
        Obs->setText(q.Obs);
        Text2->setText(q.SuGrid);
    }
    ListView2->clear();
    CargarLog(1);
    Corresponsal->setFocus(Qt::OtherFocusReason);
}
