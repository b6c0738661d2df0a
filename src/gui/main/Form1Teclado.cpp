// SPDX-License-Identifier: GPL-3.0-or-later
// Form1: the keys. The window sees every key before the field with the focus, and the
// field then gets the same key, Enter excepted: the shortcuts, the Enter walk, F1/Esc for
// the CQ caller and F5 for the last QSO.
#include "core/context/Contexto.h"
#include "core/rules/Validacion.h"
#include "gui/common/TeclaEnCampo.h"
#include "gui/common/Twips.h"
#include "gui/main/Form1.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTreeWidget>

namespace {

bool EsCampo(const Form1 *f, QObject *o)
{
    return o == f->Corresponsal || o == f->Fecha || o == f->Hora || o == f->RSE || o == f->RSR ||
           o == f->Text1 || o == f->Text2 || o == f->Obs;
}

// A menu shortcut of this window that is live now (enabled and shown).
bool EsAtajoDelMenu(const Form1 *f, const QKeyEvent *k)
{
    const QKeySequence pulsada(k->keyCombination());
    for (QAction *a : {f->conf, f->alog, f->nuevo, f->eadif, f->suych, f->ssub, f->parg, f->iadif,
                       f->cabro, f->badeda, f->badif, f->salir, f->Ayuda, f->ac, f->acerca}) {
        if (a->isEnabled() && a->isVisible() && !a->shortcut().isEmpty() &&
            a->shortcut() == pulsada)
            return true;
    }
    return false;
}

} // namespace

bool Form1::eventFilter(QObject *objeto, QEvent *evento)
{
    switch (evento->type()) {
    case QEvent::ShortcutOverride: {
        // The menu's Ctrl keys win over the field's own copy, select-all or undo, as they
        // always have in this window.
        auto *w = qobject_cast<QWidget *>(objeto);
        if (w && w->window() == this && EsAtajoDelMenu(this, static_cast<QKeyEvent *>(evento))) {
            evento->ignore();
            return true;
        }
        break;
    }
    case QEvent::KeyPress: {
        // A key lands on the window's focus widget (on the window itself when none has the
        // focus) and, if that one leaves it, travels on to the frames and the window: act
        // where it lands, only while this window is the operator's, and so once per key.
        QWidget *destino = focusWidget() ? focusWidget() : this;
        if (objeto != destino || !isActiveWindow() || QApplication::activeModalWidget())
            break;
        auto *tecla = static_cast<QKeyEvent *>(evento);
        if (TeclaDeVentana(tecla))
            return true;
        if (auto *campo = qobject_cast<QLineEdit *>(objeto))
            return AlTeclear(campo, tecla);
        break;
    }
    case QEvent::KeyRelease:
        if (static_cast<QKeyEvent *>(evento)->key() == Qt::Key_Control)
            CtrlPulsado = false;
        break;
    case QEvent::FocusIn:
        if (EsCampo(this, objeto))
            AlRecibirFoco(static_cast<QLineEdit *>(objeto));
        break;
    case QEvent::FocusOut:
        if (EsCampo(this, objeto)) {
            if (!DejaElCampo(evento, this))
                break;
            AlPerderFoco(static_cast<QLineEdit *>(objeto));
        }
        break;
    case QEvent::MouseButtonPress:
        if (objeto == Label11)
            Label11_Click();
        break;
    case QEvent::MouseButtonDblClick:
        if (objeto == Image1)
            ctx.escritorio().Abrir(ctx.direcciones().Sitio);
        break;
    default:
        break;
    }
    return QMainWindow::eventFilter(objeto, evento);
}

bool Form1::TeclaDeVentana(QKeyEvent *tecla)
{
    const int k = tecla->key();
    const bool conCtrl = tecla->modifiers() & Qt::ControlModifier;
    if (k == Qt::Key_Control || conCtrl) {
        CtrlPulsado = CtrlPulsado || k == Qt::Key_Control;
        CtrlLatch = true;
    }
    const bool ctrl = CtrlPulsado || conCtrl;
    const bool largo = Corresponsal->text().size() >= 4;

    if (ctrl && largo && k == Qt::Key_L)
        Command14->click();
    if (ctrl && largo && k == Qt::Key_Q)
        Command13->click();
    if (ctrl && largo && k == Qt::Key_X)
        Command7->click();
    if (ctrl && k == Qt::Key_W) {
        Corresponsal->clear();
        Corresponsal->setFocus(Qt::OtherFocusReason);
    }
    if (k == Qt::Key_Escape)
        DetenerLlamador();
    if (k == Qt::Key_F1) {
        IniciarLlamador();
        return false;
    }
    if (k == Qt::Key_PageDown) {
        if (mas->isEnabled())
            mas->click();
        return false;
    }
    if (k == Qt::Key_PageUp) {
        if (menos->isEnabled())
            menos->click();
        return false;
    }
    if (k == Qt::Key_Home) {
        if (anterior->isEnabled())
            anterior->click();
        return false;
    }
    if (k == Qt::Key_End) {
        if (ultima->isEnabled())
            ultima->click();
        return false;
    }
    // Once Ctrl has been pressed in a run, a plain W starts a new callsign: it empties
    // the correspondent (and the remarks unless "No Borrar") before the letter goes in.
    if (CtrlLatch && k == Qt::Key_W) {
        Corresponsal->clear();
        if (!Check3->isChecked())
            Obs->clear();
    }
    // Enter is the walk's alone: it goes no further, so no frame, field or window below
    // takes it as a second Enter.
    if (k == Qt::Key_Return || k == Qt::Key_Enter) {
        TeclaEnter();
        return true;
    }
    if (k == Qt::Key_F5)
        EditarUltimoQSO();
    return false;
}

void Form1::TeclaEnter()
{
    Dialogos &d = ctx.dialogos();
    const QString mensaje =
        ValidarEntradaQSO(Corresponsal->text(), RSR->text(), RSE->text(), Combo1->currentText());
    if (!mensaje.isEmpty()) {
        d.Exclamacion(mensaje);
        if (mensaje == QLatin1String("Falta el Corresponsal!"))
            Corresponsal->setFocus(Qt::OtherFocusReason);
        else if (mensaje == QStringLiteral("Reporte Recibido no válido!"))
            RSR->setFocus(Qt::OtherFocusReason);
        else
            RSE->setFocus(Qt::OtherFocusReason);
        return;
    }
    if (EnModoSatelite() && Combo3->currentText().isEmpty()) {
        d.Exclamacion(QStringLiteral("Elija un satélite!"));
        Combo3->setFocus(Qt::OtherFocusReason);
        return;
    }
    if (Corresponsal->text() == ctx.config().Estacion.toUpper()) {
        d.Alto(QStringLiteral("QSO con la propia estación???"));
        Corresponsal->setFocus(Qt::OtherFocusReason);
        return;
    }
    if (Corresponsal->text() == ctx.config().Operador.toUpper()) {
        d.Alto(QStringLiteral("QSO con el Operador???"));
        Corresponsal->setFocus(Qt::OtherFocusReason);
        return;
    }
    switch (ctx.CampoConFoco) {
    case 1:
        if (Check1->isChecked()) {
            Fecha->setFocus(Qt::OtherFocusReason);
            Fecha->setSelection(0, 2);
        } else {
            RSE->setFocus(Qt::OtherFocusReason);
            RSE->selectAll();
        }
        break;
    case 2:
        Hora->setFocus(Qt::OtherFocusReason);
        Hora->setSelection(qMax(0, int(Hora->text().size()) - 2), 2);
        break;
    case 3:
        RSE->setFocus(Qt::OtherFocusReason);
        RSE->selectAll();
        break;
    case 4:
        RSR->setFocus(Qt::OtherFocusReason);
        RSR->selectAll();
        break;
    case 5:
        Text1->setFocus(Qt::OtherFocusReason);
        break;
    case 6:
        Text2->setFocus(Qt::OtherFocusReason);
        break;
    case 7:
        Obs->setFocus(Qt::OtherFocusReason);
        break;
    default:
        Command2->click();
        break;
    }
}

void Form1::IniciarLlamador()
{
    llamador_.Llamar(ctx.config().ArcAudio, ctx.config().PinPTT);
}

void Form1::DetenerLlamador()
{
    llamador_.Detener(ctx.config().PinPTT);
    sPorcentaje->resize(Px(kBarraVacia), sPorcentaje->height());
}
