// SPDX-License-Identifier: GPL-3.0-or-later
// Form4: the entry of a contest QSO, the keys, the log and the buttons.
#include "core/contest/Cabrillo.h"
#include "core/contest/Concurso.h"
#include "core/context/Contexto.h"
#include "core/rules/Bandas.h"
#include "core/rules/Entrada.h"
#include "core/rules/Numeros.h"
#include "gui/common/TeclaEnCampo.h"
#include "gui/contest/Form4.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFocusEvent>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QTimer>
#include <QTreeWidget>

namespace {

// The light blue of the field with the focus.
const QColor ColorFoco(0xC0, 0xC0, 0xFF);

} // namespace

// ---- Opening -------------------------------------------------------------------------------

void Form4::NuevoConcurso()
{
    CargaConcurso(); // nothing yet: no row of another contest stays in view
    Label2->setText(ctx.ConcursoNombre);
    Label3->setText(ctx.ConcursoTipo);
    const bool incremental = ctx.ConcursoTipo == SerieIncremental();
    RSE->setText(incremental ? QStringLiteral("1") : QString());
    Label4->setText(incremental ? QStringLiteral("0") : QString());
    // A contest founded now is logged at once: the date and time are there from the start.
    Timer1_Timer();
}

void Form4::AbrirConcurso()
{
    // Local time, as the clock shows it: the first tick of Timer1 puts UTC in its place
    // unless the time is typed by hand.
    const QDateTime ahora = ctx.reloj().Ahora();
    Fecha->setText(ahora.toString(QStringLiteral("dd/MM/yyyy")));
    Hora->setText(ahora.toString(QStringLiteral("HH:mm")));
    CargaConcurso();
    Label2->setText(ctx.ConcursoNombre);
    Label3->setText(ctx.ConcursoTipo);
}

void Form4::CargaConcurso()
{
    // Hidden while it fills, so that it is not painted row by row.
    ListView2->setVisible(false);
    ListView2->clear();
    filas_ = ctx.almacen().VistaConcurso(ctx.ConcursoNombre);
    QList<QTreeWidgetItem *> items;
    items.reserve(filas_.size());
    for (int i = 0; i < filas_.size(); ++i) {
        const FilaConcurso &f = filas_[i];
        const QString reporte = ReporteConcurso(f.Modo);
        auto *item = new QTreeWidgetItem({QString::number(i + 1), QString::number(f.id), f.Banda,
                                          f.Modo, f.Fecha, f.Hora, f.MyCall, reporte, f.RSE,
                                          f.Estacion, reporte, f.RSR});
        item->setData(0, Qt::UserRole, i);
        items << item;
    }
    ListView2->addTopLevelItems(items);
    ListView2->setVisible(true);
    // Newest first: the last one is the oldest QSO, whose serial a fixed series repeats.
    Label4->setText(filas_.isEmpty() ? QString() : filas_.last().RSE);
}

void Form4::DobleClicFila(QTreeWidgetItem *item)
{
    const int i = item ? item->data(0, Qt::UserRole).toInt() : -1;
    if (i >= 0 && i < filas_.size() && editarQSO)
        editarQSO(filas_[i]);
}

// ---- Mode, band, MHz --------------------------------------------------------------------

void Form4::AplicarModo()
{
    const bool cw = Combo1->currentText() == QLatin1String("CW");
    Frame1->setVisible(cw);
    for (QWidget *w : std::initializer_list<QWidget *>{sFondo, sPorcentaje, Label8, Label13})
        w->setVisible(!cw);
}

void Form4::Timer2_Timer()
{
    Timer2->stop();
    AplicarModo();
}

void Form4::RevisarDuplicado()
{
    Label7->setVisible(EsDuplicadoConcurso(ctx.almacen(), ctx.ConcursoNombre, Corresponsal->text(),
                                           Combo1->currentText(), Combo2->currentText()));
}

void Form4::Combo1_Click()
{
    if (ctx.CargandoConcurso)
        return;
    AplicarModo();
    Corresponsal->setFocus(Qt::OtherFocusReason);
    Label7->setVisible(false);
    RevisarDuplicado();
    if (ctx.ConcursoTipo == SerieIncremental() && NumeroInicial(RSE->text()) != 1 &&
        ctx.dialogos().PreguntaSiNo(PreguntaSerieUno()))
        RSE->setText(QStringLiteral("1"));
}

void Form4::Combo2_Click()
{
    if (ctx.CargandoConcurso || ctx.ConcursoTipo == SerieFija())
        return;
    Corresponsal->setFocus(Qt::OtherFocusReason);
    // The flag waits for the callsign to be left again: a band alone checks nothing.
    Label7->setVisible(false);
    RSE->setText(SerieParaBanda(ctx.almacen(), ctx.ConcursoNombre, Combo1->currentText(),
                                Combo2->currentText()));
}

void Form4::mhz_Click()
{
    if (const auto banda = BandaDeMhzConcurso(mhz->currentText()))
        Label6->setText(*banda);
    Corresponsal->setFocus(Qt::OtherFocusReason);
}

// ---- The clock -----------------------------------------------------------------------------

void Form4::Timer1_Timer()
{
    if (Check2->isChecked())
        return;
    const QDateTime utc =
        ctx.reloj().Ahora().addSecs(qint64(-NumeroInicial(ctx.config().DiferUTC) * 3600.0));
    Fecha->setText(utc.toString(QStringLiteral("dd/MM/yyyy")));
    Hora->setText(utc.toString(QStringLiteral("HH:mm")));
}

void Form4::Timer3_Timer()
{
    const bool blanco = Check2->palette().color(QPalette::Window) != QColor(Qt::white);
    QPalette p = Check2->palette();
    p.setColor(QPalette::Window, blanco ? QColor(Qt::white) : palette().color(QPalette::Button));
    Check2->setPalette(p);
}

void Form4::PonerQTRManual(bool manual)
{
    Fecha->setEnabled(manual);
    Hora->setEnabled(manual);
    if (manual) {
        Timer1->stop();
        Timer3->start();
    } else {
        Timer3->stop();
        Check2->setPalette(palette()); // the window's background, dark or not
        Timer1_Timer();
        Timer1->start();
    }
}

// ---- Storing a QSO ---------------------------------------------------------------------------

void Form4::TeclaEnter()
{
    const EntradaConcurso e{Text2->text(),        Fecha->text(), Hora->text(),
                            Corresponsal->text(), RSE->text(),   RSR->text(),
                            mhz->currentText(),   Text1->text(), Combo2->currentText(),
                            Combo1->currentText()};
    std::optional<FaltaConcurso> falta = ValidaConcurso(e);
    FilaEntrada entrada;
    if (!falta) {
        entrada = FilaDeEntrada(e, ctx.ConcursoNombre, ctx.ConcursoTipo);
        falta = entrada.falta;
    }
    if (falta) {
        ctx.dialogos().Exclamacion(falta->mensaje);
        QLineEdit *campos[] = {Text2, Fecha, Hora, Corresponsal, RSE, RSR};
        QLineEdit *campo = campos[int(falta->campo)];
        if (campo->isEnabled())
            campo->setFocus(Qt::OtherFocusReason);
        return;
    }
    // A row the store refuses leaves every field as typed.
    if (const Resultado<qint64> r = ctx.almacen().AgregarQSOConcurso(entrada.fila); !r) {
        ctx.dialogos().Alto(r.Mensaje());
        return;
    }
    CargaConcurso();
    Corresponsal->clear();
    if (ctx.ConcursoTipo == SerieIncremental())
        RSE->setText(SerieSiguiente(RSE->text()));
    RSR->clear();
    (Check2->isChecked() ? Hora : Corresponsal)->setFocus(Qt::OtherFocusReason);
}

// ---- Buttons -------------------------------------------------------------------------------

void Form4::Command1_Click()
{
    const QSOsCabrillo q = ArmarQSOsCabrillo(
        ctx.almacen().LogConcursoOrdenado(ctx.ConcursoNombre, true), Text2->text());
    if (q.otraSenal) {
        ctx.dialogos().Alto(MensajeOtraSenal());
        return;
    }
    if (q.cantidad == 0) {
        ctx.dialogos().Exclamacion(MensajeSinQSOs());
        return;
    }
    if (abrirEncabezado)
        abrirEncabezado(q.texto + FinCabrillo(), ctx.ConcursoNombre, q.cantidad, Text2->text());
}

void Form4::Command2_Click()
{
    if (exportarAdif)
        exportarAdif(ctx.ConcursoNombre, Text2->text());
}

void Form4::Command3_Click()
{
    if (!ctx.dialogos().PreguntaSiNo(PreguntaEliminarConcurso(ctx.ConcursoNombre)))
        return;
    if (const Resultado<> r = ctx.almacen().BorrarLogConcurso(ctx.ConcursoNombre); !r) {
        ctx.dialogos().Alto(r.Mensaje());
        return;
    }
    accept();
}

// ---- Keys and fields ---------------------------------------------------------------------

bool Form4::TeclaDeVentana(QKeyEvent *tecla, bool soltada)
{
    const int k = tecla->key();
    if (k == Qt::Key_Down && FlechaAbajo(tecla, soltada))
        return true;
    if (soltada)
        return false;
    if (k == Qt::Key_Return || k == Qt::Key_Enter) {
        TeclaEnter();
        return true;
    }
    if (k == Qt::Key_Escape) {
        // Esc stops the keying and the caller; it never closes the window.
        Detener();
        return true;
    }
    if (k >= Qt::Key_F1 && k <= Qt::Key_F7) {
        if (Label13->isHidden())
            macros_Click(k - Qt::Key_F1);
        else if (k == Qt::Key_F1)
            LlamarCQ();
        return true;
    }
    return false;
}

bool Form4::AlTeclear(QLineEdit *campo, QKeyEvent *tecla)
{
    if (campo == Corresponsal || campo == Text2)
        return FiltrarTeclaEnCampo(campo, tecla, FiltroTecla::Senal);
    if (campo == Fecha)
        return FiltrarTeclaEnCampo(campo, tecla, FiltroTecla::Fecha);
    if (campo == Hora)
        return FiltrarTeclaEnCampo(campo, tecla, FiltroTecla::Hora);
    if (campo == Text1)
        return FiltrarTeclaEnCampo(campo, tecla, FiltroTecla::Digitos);
    if (campo == RSE || campo == RSR) {
        // A fixed series may be a word; an incremental one is a number.
        const QString t = tecla->text();
        if (ctx.ConcursoTipo != SerieIncremental() && t.size() == 1 && t[0].isLetter() &&
            !(tecla->modifiers() & (Qt::ControlModifier | Qt::AltModifier)))
            return false;
        return FiltrarTeclaEnCampo(campo, tecla, FiltroTecla::Digitos);
    }
    return false;
}

void Form4::MarcarFoco(QLineEdit *campo, bool conFoco)
{
    QPalette p = campo->palette();
    p.setColor(QPalette::Base, conFoco ? ColorFoco : QColor(Qt::white));
    campo->setPalette(p);
}

bool Form4::RevisarCampo(QLineEdit *campo)
{
    QString mensaje;
    if (campo == Corresponsal || campo == Text2) {
        if (campo->text().isEmpty())
            return true;
        if (!PareceSenal(campo->text()))
            mensaje = MensajeNoPareceSenal(campo->text());
        else if (campo == Corresponsal)
            RevisarDuplicado();
    } else if (campo == Fecha || campo == Hora) {
        const RevisionCampo r = campo == Fecha ? RevisarFechaConcurso(campo->text())
                                               : RevisarHoraConcurso(campo->text());
        campo->setText(r.texto);
        mensaje = r.mensaje;
    } else if (campo == Text1) {
        Text1->setText(RellenarKhz(Text1->text()));
    }
    if (mensaje.isEmpty())
        return true;
    ctx.dialogos().Exclamacion(mensaje);
    return false;
}

void Form4::AlPerderFoco(QLineEdit *campo)
{
    MarcarFoco(campo, false);
    if (revisando_)
        return;
    revisando_ = true;
    if (!RevisarCampo(campo))
        campo->setFocus(Qt::OtherFocusReason);
    revisando_ = false;
}

bool Form4::eventFilter(QObject *objeto, QEvent *evento)
{
    auto *w = qobject_cast<QWidget *>(objeto);
    if (!w || w->window() != this)
        return QDialog::eventFilter(objeto, evento);
    auto *campo = qobject_cast<QLineEdit *>(objeto);
    switch (evento->type()) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease: {
        // Act where the key lands, once, and only while this window is the operator's.
        QWidget *destino = focusWidget() ? focusWidget() : this;
        QWidget *modal = QApplication::activeModalWidget();
        if (objeto != destino || !isActiveWindow() || (modal && modal != this))
            break;
        auto *tecla = static_cast<QKeyEvent *>(evento);
        const bool soltada = evento->type() == QEvent::KeyRelease;
        if (TeclaDeVentana(tecla, soltada))
            return true;
        if (!soltada && campo)
            return AlTeclear(campo, tecla);
        break;
    }
    case QEvent::WindowDeactivate:
        if (objeto == this)
            SoltarTeclaManual();
        break;
    case QEvent::FocusIn:
        if (campo)
            MarcarFoco(campo, true);
        break;
    case QEvent::FocusOut:
        if (campo && DejaElCampo(evento, this))
            AlPerderFoco(campo);
        break;
    default:
        break;
    }
    return QDialog::eventFilter(objeto, evento);
}
