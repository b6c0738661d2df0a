// SPDX-License-Identifier: GPL-3.0-or-later
// Form1: the controls, the menus and the two screen layouts.
#include "gui/main/Form1.h"

#include "core/context/Contexto.h"
#include "core/rules/Bandas.h"
#include "gui/common/Controles.h"
#include "gui/common/LamparaTx.h"
#include "gui/config/Form2.h"
#include "gui/main/Form18.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>
#include <QTreeWidget>

Form1::Form1(Contexto &contexto, QWidget *parent)
    : QMainWindow(parent)
    , ctx(contexto)
    , presencia_(contexto.web(), contexto.direcciones().Sitio, contexto.VersionPrograma)
    , llamador_(contexto.reproductor(), contexto.ptt())
{
    setObjectName(QStringLiteral("Form1"));
    auto *centro = new QWidget(this);
    centro->setObjectName(QStringLiteral("centro"));
    setCentralWidget(centro);

    CrearMenus();
    CrearEntrada();
    CrearVista();
    CrearNavegador();
    CrearEstacion();
    CrearTimers();

    // Tab walks the entry fields in the order Enter does, then the other controls of the
    // entry, the satellite panel when it shows, and the page jump.
    QWidget *const orden[] = {Corresponsal, Fecha,  Hora,   RSE,      RSR,       Text1,
                              Text2,        Obs,    Combo1, mhz,      Combo2,    Check1,
                              Check3,       Check2, Combo3, Command1, Command15, Text3};
    for (std::size_t i = 1; i < std::size(orden); ++i)
        setTabOrder(orden[i - 1], orden[i]);

    // The configuration window commits to the context and says so; this window then
    // shows what the context holds.
    form2_ = new Form2(ctx, this);
    connect(form2_, &Form2::ConfiguracionAplicada, this, &Form1::AplicarConfiguracion);
    connect(form2_, &Form2::PresenciaPedida, this, &Form1::PonerPresencia);
    form18_ = new Form18(this);

    ConectarEntrada();
    // The window sees the keys, clicks and focus changes of its own widgets first. Not the
    // whole application's: a message box over this window, or a screen reader's bridge
    // handing a key on, must not reach the Enter walk a second time.
    installEventFilter(this);
    for (QWidget *w : findChildren<QWidget *>())
        if (w->window() == this)
            w->installEventFilter(this);
    AplicarPantalla(1);
    Cargar();
    ConectarLogs();
    ConectarSatelite();
    ConectarMenuLbN();
}

Form1::~Form1() = default;

void Form1::CrearMenus()
{
    auto entrada = [this](QMenu *menu, const char *nombre, const QString &texto,
                          const QKeySequence &atajo = {}) {
        auto *a = menu->addAction(texto);
        a->setObjectName(QString::fromLatin1(nombre));
        a->setShortcut(atajo);
        a->setShortcutContext(Qt::WindowShortcut);
        return a;
    };
    archivo = menuBar()->addMenu(QStringLiteral("&Archivo"));
    archivo->setObjectName(QStringLiteral("archivo"));
    conf = entrada(archivo, "conf", QStringLiteral("Configuración"),
                   QKeySequence(QStringLiteral("Ctrl+C")));
    archivo->addSeparator();
    alog = entrada(archivo, "alog", QStringLiteral("Abrir Log"),
                   QKeySequence(QStringLiteral("Ctrl+A")));
    nuevo = entrada(archivo, "nuevo", QStringLiteral("Nuevo Log"),
                    QKeySequence(QStringLiteral("Ctrl+N")));
    borralog = entrada(archivo, "borralog", QStringLiteral("Borrar Log"));
    archivo->addSeparator();
    eadif = entrada(archivo, "eadif", QStringLiteral("Buscar/Exportar"),
                    QKeySequence(QStringLiteral("Ctrl+B")));
    // The national service's runs are closed in this version: present but not shown.
    lbn2 = entrada(archivo, "lbn2", QStringLiteral("Libro Nacional"));
    lbn2->setVisible(false);
    lados = archivo->addMenu(QStringLiteral("Libro Nacional"));
    lados->setObjectName(QStringLiteral("lados"));
    lados->menuAction()->setVisible(false);
    suych = entrada(lados, "suych", QStringLiteral("Subir y Chequear Confirmaciones"),
                    QKeySequence(QStringLiteral("Ctrl+Q")));
    ssub = entrada(lados, "ssub", QStringLiteral("Sólo Subir"),
                   QKeySequence(QStringLiteral("Ctrl+U")));
    suych->setEnabled(false);
    ssub->setEnabled(false);
    parg = entrada(archivo, "parg", QStringLiteral("Provincias Argentinas"),
                   QKeySequence(QStringLiteral("Ctrl+P")));
    iadif = entrada(archivo, "iadif", QStringLiteral("Importar ADIF"),
                    QKeySequence(QStringLiteral("Ctrl+I")));
    cabro = entrada(archivo, "cabro", QStringLiteral("Concursos"),
                    QKeySequence(QStringLiteral("Ctrl+O")));
    backup = archivo->addMenu(QStringLiteral("Hacer BackUp"));
    backup->setObjectName(QStringLiteral("backup"));
    badeda = entrada(backup, "badeda", QStringLiteral("Base de Datos"),
                     QKeySequence(QStringLiteral("Ctrl+D")));
    badif =
        entrada(backup, "badif", QStringLiteral("ADIF"), QKeySequence(QStringLiteral("Ctrl+F")));
    archivo->addSeparator();
    salir =
        entrada(archivo, "salir", QStringLiteral("Salir"), QKeySequence(QStringLiteral("Ctrl+S")));

    ayuy = menuBar()->addMenu(QStringLiteral("A&yuda"));
    ayuy->setObjectName(QStringLiteral("ayuy"));
    Ayuda = entrada(ayuy, "Ayuda", QStringLiteral("Ayuda"), QKeySequence(QStringLiteral("Ctrl+Y")));
    ac = entrada(ayuy, "ac", QStringLiteral("Actualizaciones"),
                 QKeySequence(QStringLiteral("Ctrl+Z")));
    acerca = entrada(ayuy, "acerca", QStringLiteral("Acerca de ..."),
                     QKeySequence(QStringLiteral("Ctrl+R")));

    // Windows that later work brings are present and wait for it.
    for (QAction *a : {alog, nuevo, borralog, eadif, parg, iadif, cabro, badeda, badif, ac})
        a->setEnabled(false);
}

void Form1::CrearEntrada()
{
    QWidget *centro = centralWidget();
    Frame1 = Poner<QGroupBox>(centro, "Frame1", 120, 60, 6500, 2650);

    Corresponsal = Campo(Frame1, "Corresponsal", 120, 480, 1800, 15);
    Rotulo(Frame1, QStringLiteral("Corresponsal"), 120, 240, 1800, Corresponsal);
    Fecha = Campo(Frame1, "Fecha", 2040, 480, 1300, 10);
    Hora = Campo(Frame1, "Hora", 3420, 480, 800, 5);
    auto *rFechaHora =
        Rotulo(Frame1, QStringLiteral("        Fecha              Hora"), 2040, 240, 2200, Fecha);
    Q_UNUSED(rFechaHora);
    Fecha->setAccessibleName(QStringLiteral("Fecha"));
    Hora->setAccessibleName(QStringLiteral("Hora"));
    Command7 = Boton(Frame1, "Command7", QStringLiteral("?"), 4300, 480, 360, 330);
    Command7->setToolTip(QStringLiteral("Buscar Corresponsal en log (Ctrl+X)"));
    Command13 = Boton(Frame1, "Command13", QStringLiteral("Q"), 4700, 480, 360, 330);
    Command13->setToolTip(QStringLiteral("Buscar Corresponsal en QRZ (Ctrl+Q)"));
    Command14 = Boton(Frame1, "Command14", QStringLiteral("L"), 5100, 480, 360, 330);
    Command14->setToolTip(QStringLiteral("Buscar Corresponsal en LbN (Ctrl+L)"));
    for (QPushButton *b : {Command7, Command13, Command14}) {
        b->setEnabled(false);
        b->setFocusPolicy(Qt::NoFocus);
    }
    Label11 = Poner<QLabel>(Frame1, "Label11", 5560, 480, 700, 330);
    Label11->setToolTip(QStringLiteral("Clic para cambiar LU/UTC"));
    Label11->setAlignment(Qt::AlignCenter);
    Label11->setFrameShape(QFrame::Panel);
    Label11->setCursor(Qt::PointingHandCursor);
    Label11->setVisible(false);

    RSE = Campo(Frame1, "RSE", 120, 1140, 600, 3);
    Rotulo(Frame1, QStringLiteral("RS(e)"), 120, 900, 600, RSE);
    RSR = Campo(Frame1, "RSR", 840, 1140, 600, 3);
    Rotulo(Frame1, QStringLiteral("RS(r)"), 840, 900, 600, RSR);
    Combo1 = Poner<QComboBox>(Frame1, "Combo1", 1560, 1140, 1100, 330);
    Rotulo(Frame1, QStringLiteral("Modo"), 1560, 900, 1100, Combo1);
    mhz = Poner<QComboBox>(Frame1, "mhz", 2780, 1140, 900, 330);
    mhz->setEditable(true);
    mhz->setInsertPolicy(QComboBox::NoInsert);
    Rotulo(Frame1, QStringLiteral("MHz"), 2780, 900, 900, mhz);
    Text1 = Campo(Frame1, "Text1", 3800, 1140, 600, 3);
    Rotulo(Frame1, QStringLiteral("KHz"), 3800, 900, 600, Text1);
    Combo2 = Poner<QComboBox>(Frame1, "Combo2", 4520, 1140, 1000, 330);
    Rotulo(Frame1, QStringLiteral("Banda"), 4520, 900, 1000, Combo2);
    Label7 = Poner<QLabel>(Frame1, "Label7", 5600, 1140, 800, 330);
    // Values carry no name of their own, so a screen reader reads what they show.
    Label7->setAccessibleDescription(QStringLiteral("Banda en uso"));
    QFont negrita = Label7->font();
    negrita.setBold(true);
    Label7->setFont(negrita);

    Text2 = Campo(Frame1, "Text2", 120, 1800, 1000, 6);
    Rotulo(Frame1, QStringLiteral("GridLoc"), 120, 1560, 1000, Text2);
    Obs = Campo(Frame1, "Obs", 1240, 1800, 5100, 50);
    Rotulo(Frame1, QStringLiteral("Observaciones"), 1240, 1560, 2000, Obs);

    Check1 = Poner<QCheckBox>(Frame1, "Check1", 120, 2220, 1500, 300);
    Check1->setText(QStringLiteral("QTR manual"));
    Check3 = Poner<QCheckBox>(Frame1, "Check3", 1740, 2220, 1400, 300);
    Check3->setText(QStringLiteral("No Borrar"));
    Check2 = Poner<QCheckBox>(Frame1, "Check2", 3260, 2220, 1600, 300);
    Check2->setText(QStringLiteral("Vía Satélite"));
    for (QCheckBox *c : {Check1, Check2, Check3})
        c->setAutoFillBackground(true);

    // The satellite panel lies beyond the normal width of Frame1 and shows when the
    // frame widens to 8900 in satellite mode. Out of that mode it is hidden, so that
    // neither Tab nor a screen reader reaches controls nobody can see.
    Frame2 = Poner<QGroupBox>(Frame1, "Frame2", 6600, 160, 2200, 2400);
    Frame2->setVisible(false);
    Frame2->setTitle(QStringLiteral("Satélite"));
    Combo3 = Poner<QComboBox>(Frame2, "Combo3", 120, 280, 1950, 330);
    Combo3->setAccessibleName(QStringLiteral("Satélite"));
    Command1 = Boton(Frame2, "Command1", QStringLiteral("Editar"), 120, 680, 900, 330);
    Subida = Poner<QLabel>(Frame2, "Subida", 120, 1060, 1950, 240);
    Bajada = Poner<QLabel>(Frame2, "Bajada", 120, 1320, 1950, 240);
    Modo = Poner<QLabel>(Frame2, "Modo", 120, 1580, 1950, 240);
    Subtono = Poner<QLabel>(Frame2, "Subtono", 120, 1840, 1950, 240);
    Command15 =
        Boton(Frame2, "Command15", QStringLiteral("Pasos en AMSAT LU"), 120, 2100, 1950, 260);
}

void Form1::CrearVista()
{
    QWidget *centro = centralWidget();
    Frame3 = Poner<QGroupBox>(centro, "Frame3", 120, 2760, 12975, 5295);
    Frame3->setTitle(QStringLiteral("Log ..."));
    Command2 = Boton(Frame3, "Command2", QStringLiteral("Ingresar QSO"), 120, 220, 1800, 380);
    Command2->setFocusPolicy(Qt::NoFocus);
    Label5 = Poner<QLabel>(Frame3, "Label5", 2040, 280, 3400, 260);
    Label5->setText(QStringLiteral("F5 edita último QSO        <enter> tab"));
    Label9 = Poner<QLabel>(Frame3, "Label9", 5500, 280, 1500, 260);
    Label9->setText(QStringLiteral("Cargando log ..."));
    Label9->setVisible(false);
    Label4 = Poner<QLabel>(Frame3, "Label4", 7100, 280, 900, 260);
    Label6 = Poner<QLabel>(Frame3, "Label6", 9000, 280, 3800, 260);

    ListView2 = Poner<QTreeWidget>(Frame3, "ListView2", 120, 660, 12735, 4515);
    ListView2->setAccessibleName(QStringLiteral("Log"));
    ListView2->setRootIsDecorated(false);
    ListView2->setUniformRowHeights(true);
    ListView2->setAllColumnsShowFocus(true);
    ListView2->setSelectionMode(QAbstractItemView::SingleSelection);
    ListView2->setEditTriggers(QAbstractItemView::NoEditTriggers);
    ListView2->setFocusPolicy(Qt::ClickFocus);
    struct Columna
    {
        const char *titulo;
        int ancho;
    };
    static const Columna columnas[] = {
        {"Indice", 0},           {"ID", 0},           {"Estación", 1000},  {"Banda", 750},
        {"Frec", 750},           {"Modo", 750},       {"RSe", 750},        {"RSr", 750},
        {"Fecha", 1300},         {"Hora UTC", 1000},  {"MiCall", 1000},    {"Operador", 1000},
        {"Observaciones", 3000}, {"Mi Grilla", 1000}, {"Su Grilla", 1000}, {"LbN", 1000},
        {"Satélite", 1000},      {"Argentina", 1000}};
    QStringList titulos;
    for (const auto &c : columnas)
        titulos << QString::fromUtf8(c.titulo);
    ListView2->setHeaderLabels(titulos);
    ListView2->header()->setMinimumSectionSize(0);
    ListView2->header()->setSectionsClickable(true);
    ListView2->header()->setSortIndicatorShown(false);
    for (int i = 0; i < int(std::size(columnas)); ++i) {
        ListView2->setColumnWidth(i, Px(columnas[i].ancho));
        if (columnas[i].ancho == 0)
            ListView2->setColumnHidden(i, true);
    }
}

void Form1::CrearNavegador()
{
    QWidget *centro = centralWidget();
    Frame4 = Poner<QGroupBox>(centro, "Frame4", 120, 8160, 12975, 1000);
    anterior = Boton(Frame4, "anterior", QStringLiteral("Primera"), 120, 300, 1000);
    menos = Boton(Frame4, "menos", QStringLiteral("Anterior"), 1160, 300, 1000);
    mas = Boton(Frame4, "mas", QStringLiteral("Siguiente"), 2200, 300, 1000);
    ultima = Boton(Frame4, "ultima", QStringLiteral("Ultima"), 3240, 300, 1000);
    for (QPushButton *b : {anterior, menos, mas, ultima}) {
        b->setEnabled(false);
        b->setFocusPolicy(Qt::NoFocus);
    }
    Rotulo(Frame4, QStringLiteral("Página"), 4400, 360, 600);
    txt_pagina = Poner<QLabel>(Frame4, "txt_pagina", 5000, 330, 700, 300);
    txt_pagina->setFrameShape(QFrame::StyledPanel);
    txt_pagina->setAlignment(Qt::AlignCenter);
    Rotulo(Frame4, QStringLiteral("de"), 5760, 360, 240);
    txt_total = Poner<QLabel>(Frame4, "txt_total", 6000, 330, 700, 300);
    txt_total->setFrameShape(QFrame::StyledPanel);
    txt_total->setAlignment(Qt::AlignCenter);
    Text3 = Campo(Frame4, "Text3", 6900, 315, 700, 4);
    Text3->setText(QStringLiteral("1"));
    Text3->setAccessibleName(QStringLiteral("Ir a la página"));
    Command8 = Boton(Frame4, "Command8", QStringLiteral("Ir"), 7660, 300, 500);
    Command8->setFocusPolicy(Qt::NoFocus);
    ProgressBar1 = Poner<QProgressBar>(Frame4, "ProgressBar1", 8300, 360, 700, 240);
    ProgressBar1->setRange(0, 500);
    ProgressBar1->setTextVisible(false);
    ProgressBar1->setVisible(false);

    Label12 = Poner<QLabel>(Frame4, "Label12", 9120, 240, 1700, 260);
    Label12->setText(QStringLiteral("Llamador CQ (F1)"));
    Label13 = Poner<QLabel>(Frame4, "Label13", 10900, 240, 1900, 260);
    Label13->setText(QStringLiteral("Tx"));
    Label13->setAlignment(Qt::AlignCenter);
    // The lamp follows the PTT whoever keys it: this window, the contest window or the
    // trial of the configuration.
    PintarLamparaTx(Label13, ctx.ptt().Encendido());
    connect(&ctx.ptt(), &InterruptorPTT::Lampara, Label13,
            [this](bool encendida) { PintarLamparaTx(Label13, encendida); });
    sFondo = Poner<QLabel>(Frame4, "sFondo", 9120, 560, 3600, 220);
    sFondo->setAutoFillBackground(true);
    sFondo->setStyleSheet(QStringLiteral("background-color: #d8d8d8;"));
    sPorcentaje = Poner<QLabel>(sFondo, "sPorcentaje", 0, 0, 0, 220);
    sPorcentaje->setStyleSheet(QStringLiteral("background-color: #3070c0;"));
    connect(&llamador_, &LlamadorCQ::Avance, sPorcentaje, [this](qint64 posicion, qint64 longitud) {
        const float ancho = float(sFondo->width()) * float(posicion) / float(longitud);
        sPorcentaje->resize(int(ancho), sPorcentaje->height());
    });
}

void Form1::CrearEstacion()
{
    QWidget *centro = centralWidget();
    Frame5 = Poner<QGroupBox>(centro, "Frame5", 9120, 60, 3975, 2650);
    // The captions stand beside the values and are read before them; the values carry no
    // name of their own, so that a screen reader says the callsign and not the caption.
    Rotulo(Frame5, QStringLiteral("Estación"), 120, 260, 1000);
    Label2 = Poner<QLabel>(Frame5, "Label2", 1100, 200, 2750, 360);
    Rotulo(Frame5, QStringLiteral("Operador"), 120, 700, 1000);
    Label3 = Poner<QLabel>(Frame5, "Label3", 1100, 640, 2750, 360);
    QFont grande = Label2->font();
    grande.setBold(true);
    grande.setPointSizeF(grande.pointSizeF() * 1.4);
    Label2->setFont(grande);
    Label3->setFont(grande);
    Label8 = Poner<QLabel>(Frame5, "Label8", 1100, 1080, 2750, 300);
    Rotulo(Frame5, QStringLiteral("Grilla"), 120, 1110, 1000);

    Image1 = Poner<QLabel>(Frame5, "Image1", 120, 1500, 3735, 1000);
    Image1->setText(QStringLiteral("Carancho Radiolog"));
    Image1->setAlignment(Qt::AlignCenter);
    Image1->setToolTip(QStringLiteral("Ir a la web (doble clic)"));
    Image1->setAccessibleName(QStringLiteral("Carancho Radiolog"));
    QFont logo = Image1->font();
    logo.setBold(true);
    logo.setItalic(true);
    logo.setPointSizeF(logo.pointSizeF() * 1.8);
    Image1->setFont(logo);
    Image1->setStyleSheet(QStringLiteral("color: #6b3a12;"));
    Image2 = Poner<QLabel>(Frame5, "Image2", 4080, 1500, 1000, 1000);
    Image2->setText(QStringLiteral("Vía Satélite"));
    Image2->setVisible(false);
}

void Form1::CrearTimers()
{
    auto timer = [this](const char *nombre, int intervalo, bool activo) {
        auto *t = new QTimer(this);
        t->setObjectName(QString::fromLatin1(nombre));
        t->setInterval(intervalo);
        if (activo)
            t->start();
        return t;
    };
    Timer1 = timer("Timer1", 1000, true);
    Timer2 = timer("Timer2", 900, true);
    Timer3 = timer("Timer3", 250, false);
    Timer4 = timer("Timer4", 5000, false);
    Timer5 = timer("Timer5", 5000, false);
    Timer6 = timer("Timer6", 200, false);
    Timer7 = timer("Timer7", 20000, true);
    Timer8 = timer("Timer8", 1000, false);
    Timer9 = timer("Timer9", 150, false);
    Timer10 = timer("Timer10", 2, false);
    connect(Timer1, &QTimer::timeout, this, &Form1::Timer1_Timer);
    connect(Timer2, &QTimer::timeout, this, &Form1::Timer2_Timer);
    connect(Timer3, &QTimer::timeout, this, &Form1::Timer3_Timer);
    connect(Timer4, &QTimer::timeout, Timer4, &QTimer::stop);
    connect(Timer5, &QTimer::timeout, this, &Form1::Timer5_Timer);
    connect(Timer6, &QTimer::timeout, this, &Form1::Timer6_Timer);
    connect(Timer7, &QTimer::timeout, this, &Form1::Timer7_Timer);
    connect(Timer8, &QTimer::timeout, this, &Form1::Timer8_Timer);
    connect(Timer9, &QTimer::timeout, this, &Form1::Timer9_Timer);
    connect(Timer10, &QTimer::timeout, this, &Form1::Timer10_Timer);
}

void Form1::AplicarPantalla(int pantalla)
{
    struct Medidas
    {
        int lista, alto, marco3, arriba4, ancho, ancho3, anchoLista, label6, marco5, ancho4;
    };
    static constexpr Medidas normal{4935,  10125, 5295, 8160, 13500,
                                    12975, 12735, 9120, 9120, 12975};
    static constexpr Medidas apaisada{2500,  7690,  2860,  5725,  16500,
                                      15975, 15735, 12120, 12120, 15975};
    const Medidas &m = pantalla != 0 ? normal : apaisada;
    // The list sits below the row of the entry button inside its frame, so it takes
    // the frame's height less that row.
    constexpr int filaBoton = 420;
    // The window's outer height in twips includes the title bar and borders.
    constexpr int bordes = 34;

    ListView2->setFixedHeight(Px(m.lista - filaBoton));
    resize(Px(m.ancho) - 8, Px(m.alto) - bordes);
    Frame3->resize(Frame3->width(), Px(m.marco3));
    Frame4->move(Frame4->x(), Px(m.arriba4));
    Frame3->resize(Px(m.ancho3), Frame3->height());
    ListView2->setFixedWidth(Px(m.anchoLista));
    Label6->move(Px(m.label6 - 120), Label6->y());
    Frame5->move(Px(m.marco5), Frame5->y());
    Frame5->resize(Px(m.ancho3 + 120 - m.marco5), Frame5->height());
    Frame4->resize(Px(m.ancho4), Frame4->height());
}
