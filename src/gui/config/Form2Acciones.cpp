// SPDX-License-Identifier: GPL-3.0-or-later
// What the buttons of the configuration window do: the settings in and out of the
// controls, Guardar and Cancelar, the test of the national log account, and the trials of
// the CQ caller's audio file and PTT line.

#include "core/context/Contexto.h"
#include "core/keying/PTT.h"
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
    QStringList lista{PuertoNinguno()};
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
    Configuracion c = ctx.config();
    c.Estacion = Text1->text();
    c.Operador = Text2->text();
    c.DiferUTC = Text3->text();
    c.GridLoca = Text4->text();
    c.UserLbN = user_lbn->text();
    c.PassLbN = pass_lbn->text();
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
    ctx.LeerConfiguracion();
    PonerValores(ctx.config());
    // The PTT line is the port of the settings from here on, so the CQ caller finds it
    // open.
    if (!ctx.IniciandoPrincipal)
        SeguirPuertoPTT(ctx.puertoPTT(), ctx.config().Puerto);
    Q_EMIT ConfiguracionAplicada();
}

bool Form2::GuardarConfiguracion()
{
    ctx.config() = Valores();
    const Resultado<> guardado = ctx.GuardarConfiguracion();
    Q_EMIT ConfiguracionAplicada();
    if (!guardado)
        ctx.dialogos().Exclamacion(guardado.Mensaje());
    return guardado.Exito();
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
    Q_EMIT PresenciaPedida(true);
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
        Q_EMIT PresenciaPedida(false);
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

// The trial keys the line ticked in the window, saved or not yet.
void Form2::Command8_MouseDown()
{
    ctx.ptt().PTTOn(RTS->isChecked() ? 1 : 0);
}

void Form2::Command8_MouseUp()
{
    ctx.ptt().PTTOff(RTS->isChecked() ? 1 : 0);
}

void Form2::Puerto_Click()
{
    if (ctx.IniciandoPrincipal)
        return;
    AbrirPuertoPTT(ctx.puertoPTT(), Puerto->currentText());
}
