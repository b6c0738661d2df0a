// SPDX-License-Identifier: GPL-3.0-or-later
// Form1: satellite mode. "Vía Satélite" widens the entry frame to show the satellite
// panel; a satellite chosen there gives the captions with its data, the uplink frequency
// and the mode. The catalogue is satelites.txt, read again at every use.
#include "core/config/Memoria.h"
#include "core/context/Contexto.h"
#include "core/satellites/Catalogo.h"
#include "core/satellites/ModoSatelite.h"
#include "gui/common/Controles.h"
#include "gui/main/Form1.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QFileInfo>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTimer>

namespace {

void PonerRotulos(Form1 &f, const RotulosSatelite &r)
{
    f.Subida->setText(r.subida);
    f.Bajada->setText(r.bajada);
    f.Modo->setText(r.modo);
    f.Subtono->setText(r.subtono);
}

} // namespace

void Form1::ConectarSatelite()
{
    connect(Check2, &QCheckBox::clicked, this, [this] { ModoSatelite(); });
    connect(Combo3, &QComboBox::activated, this, [this] { ElegirSatelite(); });
    connect(Command1, &QPushButton::clicked, this, [this] {
        if (editarSatelites)
            editarSatelites();
    });
    connect(ac, &QAction::triggered, this, [this] {
        if (buscarActualizaciones)
            buscarActualizaciones();
    });
}

bool Form1::EnModoSatelite() const
{
    return Check2->isChecked();
}

void Form1::PrepararSatelites()
{
    // A new program folder starts with the default list. A folder that cannot be written
    // was already told at the start: the list is then simply empty.
    if (!QFileInfo::exists(ArchivoSatelites(ctx.Carpeta())))
        static_cast<void>(EscribirSatelitesBase(ctx.Carpeta()));
    CargarSatelites();
}

void Form1::CargarSatelites()
{
    const QVector<Satelite> satelites = LeerCatalogo(ctx.Carpeta());
    QStringList nombres;
    nombres.reserve(satelites.size());
    for (const Satelite &s : satelites)
        nombres << s.nombre;
    const QSignalBlocker bloqueo(Combo3);
    Combo3->clear();
    Combo3->addItems(nombres);
    // Nothing is chosen until the operator chooses.
    Combo3->setCurrentIndex(-1);
    // Each line writes the captions in turn: the last one's stand.
    if (!satelites.isEmpty())
        PonerRotulos(*this, RotulosDeCarga(satelites.last()));
}

void Form1::PonerModoSatelite(bool activo)
{
    Frame1->resize(Px(activo ? 8900 : 6500), Frame1->height());
    // The panel beyond the normal width is hidden too, so that Tab and a screen reader
    // do not reach it out of the mode.
    Frame2->setVisible(activo);
    Command15->setVisible(activo);
    Image2->setVisible(activo);
    if (activo)
        Timer9->start();
    else
        Timer9->stop();
}

void Form1::ModoSatelite()
{
    const bool activo = Check2->isChecked();
    PonerModoSatelite(activo);
    // Turned off, the satellite's frequency stays in the entry.
    if (activo) {
        if (const std::optional<FrecuenciaSubida> f = ValorDeSubida(Subida->text())) {
            if (!f->mhz.isEmpty())
                Elegir(mhz, f->mhz);
            Text1->setText(f->khz);
        }
    }
    Corresponsal->setFocus(Qt::OtherFocusReason);
}

void Form1::ElegirSatelite()
{
    // A name the file no longer holds leaves everything as it was.
    const std::optional<Satelite> s = BuscarSatelite(ctx.Carpeta(), Combo3->currentText());
    if (!s)
        return;
    PonerRotulos(*this, RotulosElegido(*s));
    // Only spares a choice at the next start: no message over it.
    static_cast<void>(GuardarMemSat(ctx.Carpeta(), s->nombre));
    // A choice restored while the window loads changes no frequency.
    if (!ctx.RelojActivo)
        return;
    // The band label follows when the kHz field is left, as for any frequency typed.
    if (const std::optional<FrecuenciaSubida> f = ValorDeSubida(Subida->text())) {
        Elegir(mhz, f->mhz);
        Text1->setText(f->khz);
    }
    Elegir(Combo1, s->modo);
    Corresponsal->setFocus(Qt::OtherFocusReason);
}
