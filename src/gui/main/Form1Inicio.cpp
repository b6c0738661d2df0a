// SPDX-License-Identifier: GPL-3.0-or-later
// Form1: the load, the timers, the presence messages and the closing run.
#include "core/config/Memoria.h"
#include "core/context/Contexto.h"
#include "core/keying/PTT.h"
#include "core/rules/Bandas.h"
#include "core/rules/Numeros.h"
#include "core/store/Logs.h"
#include "gui/common/Controles.h"
#include "gui/config/Form2.h"
#include "gui/main/Form1.h"
#include "gui/main/Form10.h"
#include "gui/main/Form18.h"

#include <QAction>
#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QFile>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QProgressBar>
#include <QPushButton>
#include <QThread>
#include <QTimer>
#include <QTreeWidget>

void Form1::Cargar()
{
    ctx.IniciandoPrincipal = true;
    ctx.ConfigInicial = false;
    archivo->menuAction()->setEnabled(false);
    setWindowTitle(QStringLiteral("Carancho Radiolog V") + ctx.VersionPrograma);
    Frame1->resize(Px(6500), Frame1->height());

    Combo1->clear();
    Combo1->addItems(ModosPrincipal());
    Elegir(Combo1, QStringLiteral("SSB"));
    mhz->clear();
    mhz->addItems(ListaMhz());
    Elegir(mhz, MhzInicial());
    Combo2->clear();
    Combo2->addItems(ListaBandas());
    Elegir(Combo2, BandaInicial());
    Label7->setText(BandaInicial());
    RSE->setText(QStringLiteral("59"));
    RSR->setText(QStringLiteral("59"));
    Label11->setText(QStringLiteral("LU"));

    PrepararSatelites();
    RestaurarMemoria();
    sPorcentaje->resize(Px(kBarraVacia), sPorcentaje->height());

    // The clock fills the date and time at its first tick; until then show them already.
    const QDateTime utc = ctx.reloj().Ahora().addSecs(qint64(-DiferenciaUTC() * 3600.0));
    if (!Check1->isChecked()) {
        Fecha->setText(utc.toString(QStringLiteral("dd/MM/yyyy")));
        Hora->setText(utc.toString(QStringLiteral("HH:mm")));
        Fecha->setEnabled(false);
        Hora->setEnabled(false);
    }

    connect(conf, &QAction::triggered, this, [this] {
        form2_->LeerConfiguracion();
        form2_->Mostrar();
    });
    connect(salir, &QAction::triggered, this, [this] { Salir(false); });
    connect(cabro, &QAction::triggered, this, [this] {
        if (abrirConcursos)
            abrirConcursos();
    });
    connect(iadif, &QAction::triggered, this, [this] {
        if (importarAdif)
            importarAdif();
    });
    connect(Ayuda, &QAction::triggered, this, [this] {
        const QString manual = ctx.ArchivoAyuda();
        if (manual.isEmpty())
            ctx.dialogos().Exclamacion(
                QStringLiteral("No se encontró el manual AyudaRadiolog2.pdf, ni en la carpeta "
                               "del programa ni entre los archivos instalados:\r\n\r\n") +
                ctx.Carpeta());
        else if (!ctx.escritorio().Abrir(manual))
            ctx.dialogos().Exclamacion(
                QStringLiteral("No se pudo abrir el manual. Instale un visor de archivos PDF "
                               "para leerlo:\r\n\r\n") +
                manual);
    });
    connect(acerca, &QAction::triggered, this, [this] {
        Form10 acercaDe(ctx, this);
        acercaDe.exec();
    });
    connect(anterior, &QPushButton::clicked, this, &Form1::anterior_Click);
    connect(menos, &QPushButton::clicked, this, &Form1::menos_Click);
    connect(mas, &QPushButton::clicked, this, &Form1::mas_Click);
    connect(ultima, &QPushButton::clicked, this, &Form1::ultima_Click);
    connect(Command8, &QPushButton::clicked, this, &Form1::Command8_Click);
    connect(ListView2->header(), &QHeaderView::sectionClicked, this,
            [this](int c) { OrdenarPorColumna(c); });
    connect(ListView2, &QTreeWidget::itemDoubleClicked, this,
            [this](QTreeWidgetItem *item) { DobleClicFila(item); });

    ctx.IniciandoPrincipal = false;
}

void Form1::RestaurarMemoria()
{
    const MemoriaRestaurada m = ::RestaurarMemoria(ctx.Carpeta());
    if (m.mhz)
        Elegir(mhz, *m.mhz);
    if (m.khz)
        Text1->setText(*m.khz);
    if (m.banda)
        Label7->setText(*m.banda);
    if (m.check1) {
        // Manual time comes back whole, as if the box had been ticked: the base of the time
        // shows (and with it the shift to UTC of a local time), the box blinks, and the
        // present moment is shown once since the clock will not fill the fields.
        Check1->setChecked(*m.check1 != 0);
        PonerQTRManual(Check1->isChecked());
    }
    if (m.satelite && !m.satelite->isEmpty()) {
        // Its captions come back with it; the clock has not ticked, so not its frequency.
        Elegir(Combo3, *m.satelite);
        ElegirSatelite();
    }
    if (m.modo)
        Elegir(Combo1, *m.modo);
    // The mode comes back on the frequency of the end of the last run, not the catalogue's:
    // the operator may have mended it.
    if (m.check2) {
        Check2->setChecked(*m.check2 != 0);
        PonerModoSatelite(Check2->isChecked());
    }
}

MemoriaEntrada Form1::MemoriaActual() const
{
    MemoriaEntrada m;
    m.mhz = mhz->currentText();
    m.khz = Text1->text();
    m.banda = Label7->text();
    m.check1 = Check1->isChecked() ? 1 : 0;
    m.modo = Combo1->currentText();
    m.check2 = Check2->isChecked() ? 1 : 0;
    return m;
}

void Form1::GuardarMemEntrada()
{
    // A memory file only spares some typing at the next start: no message over it.
    static_cast<void>(GuardarMem(ctx.Carpeta(), MemoriaActual()));
}

void Form1::GuardarMemFinal()
{
    static_cast<void>(GuardarMemSalida(ctx.Carpeta(), MemoriaActual()));
}

QString Form1::SenalPropia() const
{
    return ctx.config().Estacion;
}

double Form1::DiferenciaUTC() const
{
    return NumeroInicial(ctx.config().DiferUTC);
}

// ---- Timers ------------------------------------------------------------------------------

void Form1::Timer1_Timer()
{
    ctx.RelojActivo = true;
    if (!Check1->isChecked()) {
        Fecha->setEnabled(false);
        Hora->setEnabled(false);
        const QDateTime utc = ctx.reloj().Ahora().addSecs(qint64(-DiferenciaUTC() * 3600.0));
        Fecha->setText(utc.toString(QStringLiteral("dd/MM/yyyy")));
        Hora->setText(utc.toString(QStringLiteral("HH:mm")));
    } else {
        Fecha->setEnabled(true);
        Hora->setEnabled(true);
    }
}

void Form1::Timer2_Timer()
{
    Timer2->stop();
    if (!QFile::exists(ctx.Archivo(QStringLiteral("config.ini")))) {
        ctx.ConfigInicial = true;
        // The first configuration chooses the first log; the list of logs offers it from
        // now on, before its first QSO.
        if (form2_->Mostrar() == QDialog::Accepted)
            FundarLogEnUso();
        archivo->menuAction()->setEnabled(true);
        return;
    }
    ctx.LeerConfiguracion();
    // The PTT line is the port of the settings from here on, so the CQ caller finds it
    // open.
    SeguirPuertoPTT(ctx.puertoPTT(), ctx.config().Puerto);
    AplicarConfiguracion();
    archivo->menuAction()->setEnabled(false);
    ListView2->clear();
    CargarLog(1);
    archivo->menuAction()->setEnabled(true);
}

void Form1::Timer3_Timer()
{
    // Blinks "QTR manual": the clock is not in force.
    const bool blanco = Check1->palette().color(QPalette::Window) != QColor(Qt::white);
    QPalette p = Check1->palette();
    p.setColor(QPalette::Window, blanco ? QColor(Qt::white) : palette().color(QPalette::Button));
    Check1->setPalette(p);
}

void Form1::Timer5_Timer()
{
    Timer5->stop();
    // The star in the caption is the sign that the message went out.
    if (presencia_.Avisar(SenalPropia(), QStringLiteral("on")))
        setWindowTitle(windowTitle() + QLatin1Char('*'));
}

void Form1::Timer6_Timer()
{
    ctx.TicksCierre += 1;
    form18_->Avanzar(ctx.TicksCierre);
    ctx.bomba().Bombear();
    if (ctx.TicksCierre >= 25 && !ctx.CierreListo) {
        Timer6->stop();
        presencia_.Avisar(SenalPropia(), QStringLiteral("off"));
        ctx.CierreListo = true;
    }
}

void Form1::Timer7_Timer()
{
    Timer7->stop();
    Command9_Click();
}

void Form1::Timer8_Timer()
{
    Timer8->stop();
    ctx.EsperaLista = true;
}

void Form1::Timer9_Timer()
{
    if (Image2->x() <= Px(-1000))
        Image2->move(Px(4080), Image2->y());
    Image2->move(Image2->x() - Px(30), Image2->y());
}

void Form1::Timer10_Timer()
{
    ctx.PulsoTimer10 = true;
}

// ---- Presence and closing ----------------------------------------------------------------

void Form1::Command9_Click()
{
    presencia_.Visitar();
    Timer5->start();
}

void Form1::AvisoDeCierre()
{
    presencia_.Visitar();
    Timer6->start();
}

void Form1::closeEvent(QCloseEvent *evento)
{
    evento->ignore();
    Salir(true);
}

void Form1::Salir(bool guardarConfiguracion)
{
    if (cerrando_)
        return;
    if (!ctx.dialogos().PreguntaSiNo(QStringLiteral("Sale de Carancho Radiolog?")))
        return;
    cerrando_ = true;
    if (guardarConfiguracion)
        GuardarConfiguracion();
    form18_->Mostrar();
    AvisoDeCierre();
    // Five seconds of ticks give the "off" message time to reach the site.
    while (!ctx.CierreListo) {
        ctx.bomba().Bombear();
        if (!ctx.CierreListo)
            QThread::msleep(5);
    }
    GuardarMemFinal();
    ctx.Terminar(0);
}

// ---- The settings ------------------------------------------------------------------------

void Form1::AplicarConfiguracion()
{
    Configuracion &cfg = ctx.config();
    AplicarPantalla(cfg.Pantalla);
    Label2->setText(cfg.Estacion.toUpper());
    Label3->setText(cfg.Operador.toUpper());
    Frame1->setTitle(ctx.LogenUso);
    Label8->setText(cfg.GridLoca);
    // The box holds 0 or 1 whatever number the file brought, and it is what is saved.
    Check3->setChecked(cfg.NoBorrar != 0);
    cfg.NoBorrar = Check3->isChecked() ? 1 : 0;
}

void Form1::GuardarConfiguracion()
{
    const Resultado<> guardado = ctx.GuardarConfiguracion();
    AplicarConfiguracion();
    if (!guardado)
        ctx.dialogos().Exclamacion(guardado.Mensaje());
}

void Form1::FundarLogEnUso()
{
    // A log exists by its rows; a placeholder row makes it exist with no QSOs.
    if (ctx.LogenUso.isEmpty() || ExisteLog(ctx.almacen().Logs(), ctx.LogenUso))
        return;
    if (const Resultado<qint64> r = ctx.almacen().AgregarLogVacio(ctx.LogenUso); !r)
        ctx.dialogos().Alto(r.Mensaje());
}

void Form1::PonerPresencia(bool habilitada)
{
    if (habilitada)
        Timer7->start();
    else
        Timer7->stop();
}
