// SPDX-License-Identifier: GPL-3.0-or-later
// Form33: the result panel of a callsign lookup.
#include "gui/lookup/Form33.h"

#include "core/context/Contexto.h"
#include "gui/common/Controles.h"
#include "gui/editing/Form5.h"
#include "gui/main/Form1.h"

#include <QApplication>
#include <QCloseEvent>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>

namespace {

constexpr int kAlto = 3900;
constexpr int kAnchoQRZ = 5910; // the copy buttons fall outside: they serve the national log
constexpr int kAnchoLbN = 8000;

} // namespace

Form33::Form33(QWidget *parent)
    : QDialog(parent)
{
    setObjectName(QStringLiteral("Form33"));
    setWindowTitle(QStringLiteral("Libro Nacional"));
    Text1 = Poner<QPlainTextEdit>(this, "Text1", 60, 60, 5640, kAlto - 120);
    Text1->setReadOnly(true);
    Frame1 = Poner<QGroupBox>(this, "Frame1", 5940, 60, 1900, 1500);
    Frame1->setTitle(QStringLiteral("Agregar a Obs."));
    Command1 = Boton(Frame1, "Command1", QStringLiteral("Nombre"), 150, 300, 1600);
    Command2 = Boton(Frame1, "Command2", QStringLiteral("eMail"), 150, 840, 1600);
    Frame2 = Poner<QGroupBox>(this, "Frame2", 5940, 1680, 1900, 960);
    Frame2->setTitle(QStringLiteral("Agregar"));
    Command4 = Boton(Frame2, "Command4", QStringLiteral("Grilla"), 150, 300, 1600);
    Label1 = Crear<QLabel>(this, "Label1");
    Label2 = Crear<QLabel>(this, "Label2");
    Label3 = Crear<QLabel>(this, "Label3");
    for (QLabel *l : {Label1, Label2, Label3})
        l->hide();
    resize(Px(kAnchoLbN), Px(kAlto));

    // Nothing is appended: the second copy to the remarks replaces the first.
    connect(Command1, &QPushButton::clicked, this, [this] {
        Command1->setEnabled(false);
        if (ponerObs)
            ponerObs(Label1->text());
    });
    connect(Command2, &QPushButton::clicked, this, [this] {
        Command2->setEnabled(false);
        if (ponerObs)
            ponerObs(Label2->text());
    });
    connect(Command4, &QPushButton::clicked, this, [this] {
        Command4->setEnabled(false);
        if (ponerGrilla)
            ponerGrilla(Label3->text());
    });
}

void Form33::Mostrar(const PanelConsulta &panel)
{
    const bool qrz = panel.servicio == PanelConsulta::Servicio::QRZ;
    if (!qrz) {
        if (panel.nombre)
            Label1->setText(*panel.nombre);
        if (panel.email)
            Label2->setText(*panel.email);
        if (panel.grilla)
            Label3->setText(*panel.grilla);
    }
    setWindowTitle(qrz ? QStringLiteral("QRZ") : QStringLiteral("Libro Nacional"));
    Text1->setPlainText(QString(panel.texto).replace(QStringLiteral("\r\n"), QStringLiteral("\n")));
    resize(Px(qrz ? kAnchoQRZ : kAnchoLbN), Px(kAlto));
    // QRZ.com's record is modal; the national log's leaves the main window at hand, unless
    // a modal window (the edit window) is up, which would leave the panel out of reach.
    QWidget *modal = QApplication::activeModalWidget();
    const bool modalPropio = qrz || (modal && modal != this);
    if (isVisible() && (windowModality() != Qt::NonModal) != modalPropio)
        hide();
    setWindowModality(modalPropio ? Qt::ApplicationModal : Qt::NonModal);
    show();
    raise();
    activateWindow();
}

void Form33::closeEvent(QCloseEvent *evento)
{
    for (QPushButton *b : {Command1, Command2, Command4})
        b->setEnabled(true);
    for (QLabel *l : {Label1, Label2, Label3})
        l->clear();
    QDialog::closeEvent(evento);
}

Consultas *ConectarConsultas(Form1 &principal, Contexto &ctx, Form5 *edicion)
{
    auto *consultas = new Consultas(ctx.web(), ctx.dialogos(), ctx.config(), ctx.direcciones(),
                                    ctx.RelojActivo, &principal);
    auto *panel = new Form33(&principal);
    panel->setWindowFlag(Qt::Window);
    panel->ponerObs = [&principal](const QString &v) { principal.PonerObservaciones(v); };
    panel->ponerGrilla = [&principal](const QString &v) { principal.PonerGrillaCorresponsal(v); };
    consultas->mostrar = [panel](const PanelConsulta &p) { panel->Mostrar(p); };
    principal.buscarQRZ = [consultas, &principal] {
        consultas->BusquedaQRZ(principal.Corresponsal->text());
    };
    principal.buscarLbN = [consultas, &principal] {
        consultas->BusquedaLbN(principal.Corresponsal->text());
    };
    principal.buscarHamQTH = [consultas] { consultas->BusquedaHamQTH(); };
    if (edicion) {
        edicion->buscarQRZ = [consultas](const QString &senal) { consultas->BusquedaQRZ(senal); };
        edicion->buscarLbN = [consultas](const QString &senal) {
            consultas->BusquedaLbN(senal, true);
        };
    }
    return consultas;
}
