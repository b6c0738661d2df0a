// What the buttons of the configuration window do: the settings in and out of the
// controls, Guardar and Cancelar, the test of the national log account, and the trials of
// the CQ caller's audio file and PTT line.

#include "core/config/EnlacePrincipal.h"
#include "core/context/Contexto.h"
#include "core/nationallog/EscapeLbN.h"
#include "core/platform/LineaSerieQt.h"
#include "core/rules/Senales.h"
#include "gui/config/Form2.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTextDocumentFragment>
#include <QTimer>
#include <QUrl>

namespace {

const QString kNinguno = QStringLiteral("NINGUNO");

// Text of the page as a browser would show it: the service answers with a line of text,
// but an error page comes as HTML.
QString TextoVisible(const QString &pagina)
{
    if (Qt::mightBeRichText(pagina))
        return QTextDocumentFragment::fromHtml(pagina).toPlainText();
    return pagina;
}

} // namespace

QStringList Form2::ListaPuertos()
{
    QStringList lista{kNinguno};
    for (int n = 1; n <= 20; ++n)
        lista << QStringLiteral("COM%1").arg(n);
    for (const QString &p : PuertosDelSistema()) {
        if (!lista.contains(p))
            lista << p;
    }
    return lista;
}

void Form2::LlenarListas()
{
    // The choices are filled anew, but what the boxes held stays.
    const QString puerto = Puerto->currentText();
    const QString antes = Combo1->currentText();
    const QString despues = Combo2->currentText();
    const QStringList tiempos{QStringLiteral("0"),   QStringLiteral("100"), QStringLiteral("200"),
                              QStringLiteral("300"), QStringLiteral("400"), QStringLiteral("500")};
    Puerto->clear();
    Puerto->addItems(ListaPuertos());
    Combo1->clear();
    Combo1->addItems(tiempos);
    Combo2->clear();
    Combo2->addItems(tiempos);
    PonerPuerto(puerto);
    if (!antes.isEmpty())
        Combo1->setCurrentText(antes);
    if (!despues.isEmpty())
        Combo2->setCurrentText(despues);
}

// A port the machine no longer lists is still shown as the settings have it.
void Form2::PonerPuerto(const QString &puerto)
{
    if (!puerto.isEmpty() && Puerto->findText(puerto) < 0)
        Puerto->addItem(puerto);
    Puerto->setCurrentIndex(qMax(0, Puerto->findText(puerto)));
}

Configuracion Form2::Valores() const
{
    Configuracion c;
    c.Estacion = Text1->text();
    c.Operador = Text2->text();
    c.DiferUTC = Text3->text();
    c.GridLoca = Text4->text();
    c.UserLbN = user_lbn->text();
    c.PassLbN = pass_lbn->text();
    c.NoBorrar = principal.ValorNoBorrar();
    c.Pantalla = panta->isChecked() ? 1 : 0;
    c.HAMQuser = Text5->text();
    c.HAMQpass = Text6->text();
    c.LBNQuser = Text8->text();
    c.LBNQpass = Text7->text();
    c.eQSLuser = Text9->text();
    c.eQSLpass = Text10->text();
    c.ArcAudio = Label6->text();
    c.Puerto = Puerto->currentText();
    c.PinPTT = RTS->isChecked() ? 1 : 0;
    c.TAntes = Combo1->currentText();
    c.TDespues = Combo2->currentText();
    return c;
}

void Form2::PonerValores(const Configuracion &c)
{
    Text1->setText(c.Estacion);
    Text2->setText(c.Operador);
    Text3->setText(c.DiferUTC);
    Text4->setText(c.GridLoca);
    user_lbn->setText(c.UserLbN);
    pass_lbn->setText(c.PassLbN);
    principal.PonerNoBorrar(c.NoBorrar);
    panta->setChecked(c.Pantalla != 0);
    Text5->setText(c.HAMQuser);
    Text6->setText(c.HAMQpass);
    Text8->setText(c.LBNQuser);
    Text7->setText(c.LBNQpass);
    Text9->setText(c.eQSLuser);
    Text10->setText(c.eQSLpass);
    Label6->setText(c.ArcAudio);
    PonerPuerto(c.Puerto);
    if (c.PinPTT == 1)
        RTS->setChecked(true);
    else
        DTR->setChecked(true);
    Combo1->setCurrentText(c.TAntes);
    Combo2->setCurrentText(c.TDespues);
}

void Form2::LeerConfiguracion()
{
    LlenarListas();
    Configuracion cfg = Valores();
    QString logenUso = ctx.LogenUso;
    ::LeerConfiguracion(ctx.Archivo(QStringLiteral("config.ini")), cfg, logenUso);
    ctx.LogenUso = logenUso;
    PonerValores(cfg);

    // The PTT line is the port of the settings from here on, so the CQ caller finds it
    // open; a port already open on the same name is left as it is.
    LineaSerie &linea = ctx.puertoPTT();
    const QString puerto = Puerto->currentText();
    const bool ninguno = puerto.isEmpty() || puerto == kNinguno;
    if (!ctx.IniciandoPrincipal &&
        (ninguno ? linea.Abierta() : !(linea.Abierta() && linea.Puerto() == puerto)))
        AbrirPuerto(puerto);

    principal.AplicarConfiguracion(cfg.Estacion.toUpper(), cfg.Operador.toUpper(), ctx.LogenUso,
                                   cfg.GridLoca, cfg.Pantalla);
}

bool Form2::GuardarConfiguracion()
{
    const Configuracion cfg = Valores();
    QString logenUso = ctx.LogenUso;
    const QString archivo = ctx.Archivo(QStringLiteral("config.ini"));
    const Resultado<> r = ::GuardarConfiguracion(archivo, cfg, logenUso, ctx.almacen());
    ctx.LogenUso = logenUso;
    principal.AplicarConfiguracion(cfg.Estacion.toUpper(), cfg.Operador.toUpper(), ctx.LogenUso,
                                   cfg.GridLoca, cfg.Pantalla);
    if (!r)
        ctx.dialogos().Exclamacion(r.Mensaje());
    return r.Exito();
}

int Form2::Mostrar()
{
    return exec();
}

bool Form2::SenalesAceptables()
{
    if (Text1->text().isEmpty()) {
        ctx.dialogos().Exclamacion(
            QStringLiteral("La Señal Distintiva de la Estación es obligatiria!"));
        Text1->setFocus();
        return false;
    }
    if (!EsSenalDistintiva(Text1->text())) {
        ctx.dialogos().Alto(MensajeNoEsSenal(Text1->text()));
        Text1->setFocus();
        return false;
    }
    if (!Text2->text().isEmpty() && !EsSenalDistintiva(Text2->text())) {
        ctx.dialogos().Alto(MensajeNoEsSenal(Text2->text()));
        Text2->setFocus();
        return false;
    }
    return true;
}

void Form2::Command1_Click()
{
    if (!SenalesAceptables())
        return;
    // A file that cannot be written keeps the window open: the settings are still here.
    if (!GuardarConfiguracion())
        return;
    ctx.ConfigInicial = false;
    principal.PonerPresencia(true);
    done(QDialog::Accepted);
}

void Form2::Command2_Click()
{
    if (ctx.ConfigInicial) {
        // There is no running without a configuration.
        ctx.Terminar(0);
        done(QDialog::Rejected);
        return;
    }
    // Cancelar keeps the edits: it checks and saves them like Guardar.
    if (!SenalesAceptables())
        return;
    // A presence message that has not gone out yet stays unsent.
    if (!ctx.IniciandoPrincipal)
        principal.PonerPresencia(false);
    if (!GuardarConfiguracion())
        return;
    done(QDialog::Rejected);
}

void Form2::Command4_Click()
{
    ProgressBar1->setMaximum(kTicksPrueba);
    ProgressBar1->setValue(0);
    TicksPrueba = 0;
    Timer1->start();
    Command4->setEnabled(false);
    ColorNormalLabel3();

    const QString usuario = user_lbn->text();
    const QString senal = Text1->text();
    const QString direccion = ctx.direcciones().LbN + QStringLiteral("/php/carancho_c2.php?user=") +
                              usuario + QStringLiteral("&pass=") + EscaparLbN(pass_lbn->text()) +
                              QStringLiteral("&micall=") + senal;
    Label3->setText(QStringLiteral("user=") + usuario + QLatin1Char('\n') +
                    QStringLiteral("micall=") + senal + QLatin1Char('\n'));

    respuestaTemprana_.reset();
    pidiendo_ = true;
    pedidoPrueba_ = ctx.web().Pedir(QUrl(direccion), kTicksPrueba * 1000);
    pidiendo_ = false;
    if (respuestaTemprana_ && respuestaTemprana_->first == pedidoPrueba_) {
        const RespuestaWeb respuesta = respuestaTemprana_->second;
        respuestaTemprana_.reset();
        RespuestaPrueba(pedidoPrueba_, respuesta);
    }
}

void Form2::RespuestaPrueba(quint64 pedido, const RespuestaWeb &respuesta)
{
    if (pidiendo_) {
        respuestaTemprana_.emplace(pedido, respuesta);
        return;
    }
    if (pedidoPrueba_ == 0 || pedido != pedidoPrueba_)
        return;
    TerminarPrueba(&respuesta);
}

void Form2::Timer1_Timer()
{
    ++TicksPrueba;
    ProgressBar1->setValue(qMin(TicksPrueba, kTicksPrueba));
    if (TicksPrueba >= kTicksPrueba)
        TerminarPrueba(nullptr);
}

// The end of "Probar": the service's answer is the result; no answer in time, or a failed
// request, is told in red.
void Form2::TerminarPrueba(const RespuestaWeb *respuesta)
{
    pedidoPrueba_ = 0;
    Timer1->stop();
    TicksPrueba = 0;
    Command4->setEnabled(true);
    if (respuesta && respuesta->Ok()) {
        Label3->setText(TextoVisible(respuesta->texto));
        return;
    }
    ProgressBar1->setValue(0);
    QPalette paleta = Label3->palette();
    paleta.setColor(QPalette::WindowText, Qt::red);
    Label3->setPalette(paleta);
    Label3->setText(QStringLiteral("No parace haber conexión con internet!"));
}

void Form2::ColorNormalLabel3()
{
    Label3->setPalette(QPalette());
}

void Form2::Command5_Click()
{
    const QString carpeta =
        Label6->text().isEmpty() ? QString() : QFileInfo(Label6->text()).absolutePath();
    const QString archivo =
        ctx.dialogos().AbrirArchivo(QStringLiteral("Abrir Archivo de Audio ..."), carpeta,
                                    QStringLiteral("Audio (*.mp3 *.wav)"));
    if (!archivo.isEmpty())
        Label6->setText(archivo);
}

void Form2::Command6_Click()
{
    if (Label6->text().isEmpty())
        return;
    Command6->setEnabled(false);
    Command7->setEnabled(true);
    Reproductor &r = ctx.reproductor();
    r.Cerrar();
    r.Rebobinar();
    r.AbrirArchivo(Label6->text());
    r.Reproducir();
}

void Form2::Command7_Click()
{
    Reproductor &r = ctx.reproductor();
    r.Detener();
    r.Cerrar();
    Command6->setEnabled(true);
}

void Form2::Command8_MouseDown()
{
    if (RTS->isChecked())
        ctx.puertoPTT().PonerRTS(true);
    else
        ctx.puertoPTT().PonerDTR(true);
}

void Form2::Command8_MouseUp()
{
    if (RTS->isChecked())
        ctx.puertoPTT().PonerRTS(false);
    else
        ctx.puertoPTT().PonerDTR(false);
}

void Form2::Puerto_Click()
{
    if (ctx.IniciandoPrincipal)
        return;
    AbrirPuerto(Puerto->currentText());
}

// A port that does not open stays closed and says nothing here: a later PTT finds it so.
void Form2::AbrirPuerto(const QString &puerto)
{
    LineaSerie &linea = ctx.puertoPTT();
    if (linea.Abierta())
        linea.Cerrar();
    if (puerto.isEmpty() || puerto == kNinguno)
        return;
    if (linea.Abrir(puerto)) {
        linea.PonerRTS(false);
        linea.PonerDTR(false);
    }
}
