// SPDX-License-Identifier: GPL-3.0-or-later
// Form12: the ADIF import window.
#include "gui/adif/Form12.h"

#include "core/context/Contexto.h"
#include "gui/common/Controles.h"
#include "gui/main/Form1.h"

#include <QAction>
#include <QFileInfo>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QPointer>
#include <QProgressBar>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

Form12::Form12(Contexto &contexto, std::function<void()> recargarLog, QWidget *parent)
    : QDialog(parent)
    , ctx(contexto)
    , recargarLog_(std::move(recargarLog))
    , importacion_(contexto.almacen())
{
    setObjectName(QStringLiteral("Form12"));
    setWindowTitle(QStringLiteral("Importar ADIF ..."));
    Crear();
    importacion_.enlace.bombear = [this] { ctx.bomba().Bombear(); };
    importacion_.enlace.seguir = [this] { return Seguir(); };
    importacion_.enlace.estado = [this](const QString &texto) {
        Label8->setText(texto);
        Label8->setVisible(true);
    };
    importacion_.enlace.progreso = [this](int valor, int maximo) {
        ProgressBar1->setMaximum(std::max(maximo, 1));
        ProgressBar1->setValue(valor);
    };
    connect(Command1, &QPushButton::clicked, this, [this] { Command1_Click(); });
    connect(Command3, &QPushButton::clicked, this, [this] { Command3_Click(); });
}

Form12::~Form12() = default;

void Form12::Crear()
{
    auto *rejilla = new QGridLayout;
    // A caption and the value it names; the value is read by a screen reader as it is.
    auto valor = [this, rejilla](const char *nombre, const QString &rotulo, int fila, int columna,
                                 int ancho = 1) {
        auto *r = ::Crear<QLabel>(this, (QByteArray("rotulo_") + nombre).constData());
        r->setText(rotulo);
        auto *l = ::Crear<QLabel>(this, nombre);
        l->setTextInteractionFlags(Qt::TextSelectableByMouse);
        rejilla->addWidget(r, fila, columna);
        rejilla->addWidget(l, fila, columna + 1, 1, ancho);
        return l;
    };
    Label2 = valor("Label2", QStringLiteral("Archivo:"), 0, 0, 3);
    Label3 = valor("Label3", QStringLiteral("Path:"), 1, 0, 3);
    Label3->setWordWrap(true);
    Label4 = valor("Label4", QStringLiteral("Programa:"), 2, 0, 3);
    Label5 = valor("Label5", QStringLiteral("Lineas:"), 3, 0);
    Label6 = valor("Label6", QStringLiteral("QSOs:"), 3, 2);
    Label7 = valor("Label7", QStringLiteral("Station Call:"), 4, 0, 3);
    Label7->setWordWrap(true);
    rejilla->setColumnStretch(1, 1);
    rejilla->setColumnStretch(3, 1);

    List1 = ::Crear<QListWidget>(this, "List1");
    List1->setVisible(false);
    List2 = ::Crear<QListWidget>(this, "List2");
    List2->setAccessibleName(QStringLiteral("Mensajes"));
    List2->setMinimumHeight(Px(1200));

    auto *cuentas = new QGridLayout;
    auto cuenta = [this, cuentas](const char *nombre, const QString &rotulo, int columna) {
        auto *r = ::Crear<QLabel>(this, (QByteArray("rotulo_") + nombre).constData());
        r->setText(rotulo);
        auto *l = ::Crear<QLabel>(this, nombre);
        cuentas->addWidget(r, 0, columna);
        cuentas->addWidget(l, 0, columna + 1);
        return l;
    };
    Label9 = cuenta("Label9", QStringLiteral("QSOs:"), 0);
    Label10 = cuenta("Label10", QStringLiteral("QSOs Duplicados:"), 2);
    cuentas->setColumnStretch(1, 1);
    cuentas->setColumnStretch(3, 1);

    Label8 = ::Crear<QLabel>(this, "Label8");
    Label8->setVisible(false);
    ProgressBar1 = ::Crear<QProgressBar>(this, "ProgressBar1");
    ProgressBar1->setValue(0);
    ProgressBar1->setTextVisible(false);

    Command1 = Boton(this, "Command1", QStringLiteral("Abrir"));
    Command3 = Boton(this, "Command3", QStringLiteral("Cargar"));
    Command3->setEnabled(false);
    // The processing stage has a button of its own that the operator never sees.
    Command2 = Boton(this, "Command2", QString());
    Command2->setVisible(false);
    auto *botones = new QHBoxLayout;
    botones->addWidget(Command1);
    botones->addStretch();
    botones->addWidget(Command3);

    auto *todo = new QVBoxLayout(this);
    todo->addLayout(rejilla);
    todo->addWidget(List2);
    todo->addLayout(cuentas);
    todo->addWidget(Label8);
    todo->addWidget(ProgressBar1);
    todo->addLayout(botones);
    resize(Px(6600), Px(5400));
}

int Form12::Mostrar()
{
    Command1->setFocus(Qt::OtherFocusReason);
    return exec();
}

// ---- The stages ------------------------------------------------------------------------------

void Form12::Command1_Click()
{
    ImportandoAdif = true;
    CancelarImportacion = false;
    detener_ = false;
    Command1->setEnabled(false);
    Command3->setEnabled(false);
    for (QLabel *l : {Label2, Label3, Label4, Label5, Label6, Label7, Label9, Label10})
        l->clear();
    List1->clear();
    List2->clear();
    senalManual_.clear();
    qsos_ = nuevos_ = duplicados_ = 0;
    ProgressBar1->setValue(0);
    if (Resultado<> vacia = importacion_.Empezar(); !vacia) {
        ctx.dialogos().Alto(vacia.Mensaje());
        Terminar();
        return;
    }

    const QString ruta =
        ctx.dialogos().AbrirArchivo(QStringLiteral("Abrir Archivo de ADIF ..."), QString(),
                                    QStringLiteral("ADIF| *.adi; *.adi"));
    if (ruta.isEmpty()) {
        Terminar();
        return;
    }
    const QString nombre = QFileInfo(ruta).fileName();
    Label2->setText(nombre);
    Label3->setText(ruta);

    const Importacion::Medida m = importacion_.Medir(ruta, nombre, ctx.reloj().Ahora().time());
    using Fin = Importacion::Medida::Fin;
    if (m.fin == Fin::Fallo || m.fin == Fin::MasDeDiezMil) {
        ctx.dialogos().Alto(m.mensaje);
        Terminar();
        return;
    }
    Label4->setText(m.programa);
    Label5->setText(QString::number(m.lineas));
    Label6->setText(QString::number(m.qsos));
    List1->addItems(m.estaciones);
    QString estaciones;
    for (const QString &e : m.estaciones)
        estaciones += e + QLatin1Char(' ');
    Label7->setText(estaciones);
    qsos_ = m.qsos;
    if (m.fin == Fin::SinQSOs) {
        ctx.dialogos().Exclamacion(m.mensaje);
        Terminar();
        return;
    }
    if (detener_) {
        Terminar();
        return;
    }
    if (m.estaciones.isEmpty()) {
        if (!ctx.dialogos().PreguntaSiNo(QStringLiteral("El Archivo ") + nombre +
                                         QStringLiteral(" no tiene el campo <STATION_CALLSIGN:\r\n"
                                                        "Continua con la carga?"))) {
            Terminar();
            return;
        }
        const std::optional<QString> senal = ctx.dialogos().Entrada(
            QStringLiteral("Ingrese su Señal Distintiva"), QStringLiteral("SD"));
        senalManual_ = senal.value_or(QString()).trimmed().toUpper();
        if (senalManual_.isEmpty()) {
            Terminar();
            return;
        }
        List2->addItem(QStringLiteral("<STATION_CALLSIGN:") + senalManual_);
    }

    Command2_Click();
    // "Cargar" waits for a new QSO: a file of duplicates only is not loaded, not even to
    // replace them.
    Command3->setEnabled(nuevos_ > 0);
    Terminar();
    if (Command3->isEnabled())
        Command3->setFocus(Qt::OtherFocusReason);
}

void Form12::Command2_Click()
{
    const Importacion::Procesado r = importacion_.Procesar(senalManual_, ctx.LogenUso);
    nuevos_ = r.nuevos;
    duplicados_ = r.duplicados;
    Label9->setText(QString::number(nuevos_));
    Label10->setText(QString::number(duplicados_));
    List2->addItems(LineasDeErrores(r.errores));
    if (!r.fallo.isEmpty())
        ctx.dialogos().Alto(r.fallo);
    CancelarImportacion = false;
}

void Form12::Command3_Click()
{
    ReemplazarDuplicados =
        duplicados_ > 0 && ctx.dialogos().PreguntaSiNo(PreguntaDuplicados(qsos_, duplicados_));
    Command1->setEnabled(false);
    Command3->setEnabled(false);
    ImportandoAdif = true;
    detener_ = false;
    const Importacion::Carga c = importacion_.Cargar(ReemplazarDuplicados, ctx.LogenUso);
    if (!c.fallo.isEmpty())
        ctx.dialogos().Alto(c.fallo);
    CancelarImportacion = false;
    Terminar();
    if (recargarLog_)
        recargarLog_();
    accept();
}

void Form12::Terminar()
{
    Label8->clear();
    Label8->setVisible(false);
    ProgressBar1->setValue(0);
    ImportandoAdif = false;
    CancelarImportacion = false;
    Command1->setEnabled(true);
}

bool Form12::Seguir()
{
    if (detener_)
        return false;
    if (CancelarImportacion) {
        CancelarImportacion = false;
        if (ctx.dialogos().PreguntaSiNo(QStringLiteral("Cancela el proceso?")))
            return false;
    }
    return !detener_;
}

// ---- Esc and the close box ------------------------------------------------------------------

void Form12::keyPressEvent(QKeyEvent *evento)
{
    // During a stage Esc asks to stop it, at the next row; otherwise it closes the window.
    if (evento->key() == Qt::Key_Escape && ImportandoAdif) {
        CancelarImportacion = true;
        evento->accept();
        return;
    }
    QDialog::keyPressEvent(evento);
}

bool Form12::PuedeCerrar()
{
    if (!ImportandoAdif && !CancelarImportacion)
        return true;
    CancelarImportacion = false;
    if (!ctx.dialogos().PreguntaSiNo(QStringLiteral("Cancela el proceso?")))
        return false;
    detener_ = true;
    return true;
}

// Esc with no stage running, and the close box, come here.
void Form12::reject()
{
    if (PuedeCerrar())
        QDialog::reject();
}

Form12 *ConectarImportacion(Form1 &principal, Contexto &ctx)
{
    auto *ventana = new Form12(
        ctx, [&principal] { principal.CargarLogDesdeElPrincipio(); }, &principal);
    const QPointer<Form12> importacion(ventana);
    principal.importarAdif = [importacion] {
        if (importacion)
            importacion->Mostrar();
    };
    principal.iadif->setEnabled(true);
    return ventana;
}
