// The contest window's keyer as the operator works it: keys and clicks in; out, every
// change of the key line and of its lamp at its millisecond, the PTT with its "Tx" lamp and
// bar, the messages; and the keyer's settings from one opening to the next.
#include "core/contest/Concurso.h"
#include "core/keying/AjustesCW.h"
#include "core/keying/LlaveCW.h"
#include "core/keying/MacrosCW.h"
#include "core/keying/MotorCW.h"
#include "gui/common/LamparaTx.h"
#include "gui/contest/Form4.h"
#include "support/ContextoPrueba.h"
#include "support/Hecho.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMap>
#include <QScrollBar>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

// Each pump of a send is a millisecond of the fake clock, and a step set for a millisecond
// runs then, as a key pressed during the send.
void UnMsPorBombeo(RelojFalso &reloj, BombaFalsa &bomba, std::function<void(qint64)> aLaHora)
{
    bomba.procesarEventos = false;
    bomba.alBombear = [&reloj, aLaHora] {
        reloj.Avanzar(1);
        aLaHora(reloj.monotonicoNs / 1'000'000);
    };
}

// A change of the key lamp, stamped with the change of the line that came with it
// ("60 DTR0"), or with "L" when no line changed ("Ninguno", a port that is not open).
QString Cambio(qint64 ms, const LineaSerieFalsa &linea, qsizetype &vistos, bool encendida)
{
    const bool cambio = linea.historial.size() > vistos;
    vistos = linea.historial.size();
    return u"%1 %2"_s.arg(ms).arg(cambio ? linea.historial.last() : encendida ? u"L1"_s : u"L0"_s);
}

// The contest window on a contest of its own, in the mode given, with LU2CD to be sent
// serial 7; the PTT's port open.
class Ventana : public QObject
{
public:
    Ventana(const QString &modo, const QByteArray &varCW, const QByteArray &varOsc = {})
        : modo_(modo)
    {
        if (!varCW.isEmpty())
            p.Escribir(u"varCW.cfg"_s, varCW);
        if (!varOsc.isEmpty())
            p.Escribir(u"varOsc.cfg"_s, varOsc);
        p.falsos.puertoCW->puertosQueFallan << u"COM9"_s;
        QVERIFY(p.falsos.puertoPTT->Abrir(u"COM2"_s));
        p->config().Estacion = u"LU1AB"_s;
        p->config().ArcAudio = u"cq.wav"_s;
        p->ConcursoNombre = u"CQ M"_s;
        p->ConcursoTipo = SerieIncremental();
        Hecho(FundarConcurso(p->almacen(), p->ConcursoNombre, p->ConcursoTipo));
        f.Image1->installEventFilter(this);
        UnMsPorBombeo(*p.falsos.reloj, *p.falsos.bomba, [this](qint64) {
            if (const QString paso = pendientes.take(Ms()); !paso.isEmpty())
                Paso(paso);
        });
        Abrir();
    }

    void Abrir()
    {
        p->CargandoConcurso = true;
        f.Preparar();
        f.NuevoConcurso();
        f.show();
        QApplication::setActiveWindow(&f);
        QVERIFY(QTest::qWaitForWindowActive(&f));
        f.Combo1->setCurrentText(modo_);
        Q_EMIT f.Combo1->activated(f.Combo1->currentIndex());
        f.Timer2_Timer();
        f.Corresponsal->setText(u"LU2CD"_s);
        f.RSE->setText(u"7"_s);
    }

    qint64 Ms() const { return p.falsos.reloj->monotonicoNs / 1'000'000 - t0_; }

    void Tecla(Qt::Key k, QEvent::Type tipo, bool repetida = false)
    {
        QKeyEvent e(tipo, k, Qt::NoModifier, QString(), repetida);
        QApplication::sendEvent(f.focusWidget() ? f.focusWidget() : &f, &e);
    }

    // "F1".."F7", "Esc"; "Abajo" and "Abajo^" press and let go the down arrow, "Abajo*" and
    // "Abajo*^" the same repeated by the keyboard; "espera N" ms; "Combo3=X" chosen;
    // "Check4" clicked; "vel N" ppm; "estado N" and "fin" of the voice file; "reabrir".
    // In Correr, "paso@N" waits for the millisecond N of a send.
    void Paso(const QString &paso)
    {
        const QString valor = paso.section(u' ', 1);
        if (paso.startsWith(u'F')) {
            const auto k = Qt::Key(Qt::Key_F1 + paso.mid(1).toInt() - 1);
            Tecla(k, QEvent::KeyPress);
            Tecla(k, QEvent::KeyRelease);
        } else if (paso == u"Esc") {
            Tecla(Qt::Key_Escape, QEvent::KeyPress);
        } else if (paso.startsWith(u"Abajo")) {
            Tecla(Qt::Key_Down, paso.endsWith(u'^') ? QEvent::KeyRelease : QEvent::KeyPress,
                  paso.contains(u'*'));
        } else if (paso.startsWith(u"espera")) {
            p.falsos.reloj->Avanzar(valor.toInt());
        } else if (paso.startsWith(u"Combo3=")) {
            f.Combo3->setCurrentText(paso.section(u'=', 1));
            Q_EMIT f.Combo3->activated(f.Combo3->currentIndex());
            vistos = p.falsos.puertoCW->historial.size(); // both lines off at the opening
        } else if (paso == u"Check4") {
            f.Check4->click();
        } else if (paso.startsWith(u"vel")) {
            f.HScroll1->setValue(valor.toInt());
        } else if (paso.startsWith(u"estado")) {
            p.falsos.reproductor->EmitirEstado(valor.toLongLong());
        } else if (paso == u"fin") {
            p.falsos.reproductor->Terminar();
        } else if (paso == u"reabrir") {
            f.reject();
            Abrir();
        }
    }

    void Correr(const QString &pasos)
    {
        p.falsos.puertoPTT->historial.clear();
        t0_ = p.falsos.reloj->monotonicoNs / 1'000'000;
        const QStringList lista = pasos.split(u'|', Qt::SkipEmptyParts);
        // Those set for a millisecond of a send first: the send runs within its key.
        for (const QString &paso : lista)
            if (paso.contains(u'@'))
                pendientes[paso.section(u'@', 1).toLongLong()] = paso.section(u'@', 0, 0);
        for (const QString &paso : lista)
            if (!paso.contains(u'@'))
                Paso(paso);
    }

    // The PTT line's changes, the "Tx" lamp and the width of the bar in pixels.
    QString Llamador() const
    {
        const bool roja =
            f.Label8->styleSheet().contains(ColorBGR(ColoresLamparaTx(true).fondo).name());
        return (p.falsos.puertoPTT->historial +
                QStringList{roja ? u"Tx encendida"_s : u"Tx apagada"_s,
                            u"barra %1"_s.arg(f.sPorcentaje->width())})
            .join(u' ');
    }

    ContextoPrueba p;
    Form4 f{p.ctx()};
    QStringList cambios;
    qsizetype vistos = 0;
    QMap<qint64, QString> pendientes;

protected:
    bool eventFilter(QObject *objeto, QEvent *evento) override
    {
        const auto tipo = evento->type();
        if (objeto == f.Image1 && (tipo == QEvent::ShowToParent || tipo == QEvent::HideToParent))
            cambios << Cambio(Ms(), *p.falsos.puertoCW, vistos, tipo == QEvent::ShowToParent);
        return false;
    }

private:
    QString modo_;
    qint64 t0_ = 0;
};

// How a text goes out when sent plainly on the port, line and speed the window shows.
QString ComoSale(const Form4 &f, const QString &texto)
{
    RelojFalso reloj;
    BombaFalsa bomba;
    LineaSerieFalsa linea;
    LlaveCW llave(linea);
    MotorCW motor(llave, reloj, bomba);
    UnMsPorBombeo(reloj, bomba, [](qint64) {});
    llave.PonerLinea(f.Check3->isChecked());
    static_cast<void>(llave.ElegirPuerto(f.Combo3->currentText()));
    motor.VelCW = VelCWDePpm(f.HScroll1->value());
    QStringList cambios;
    qsizetype vistos = linea.historial.size();
    QObject::connect(&llave, &LlaveCW::Lampara, [&](bool encendida) {
        cambios << Cambio(reloj.monotonicoNs / 1'000'000, linea, vistos, encendida);
    });
    motor.TextoCW = texto;
    motor.enviarCW();
    return cambios.join(u' ');
}

// The keyer's settings as the window shows them: port, line, background.
QString Mostrado(const Form4 &f)
{
    const bool oscuro = f.palette().color(QPalette::Window) == ColorBGR(kFondoOscuroCW);
    if (oscuro != f.Check7->isChecked())
        return u"el fondo no sigue a Fondo Oscuro"_s;
    const QString linea = f.Check3->isChecked()   ? u"DTR"_s
                          : f.Check4->isChecked() ? u"RTS"_s
                                                  : u"ninguna"_s;
    return f.Combo3->currentText() + u' ' + linea + (oscuro ? u" oscuro"_s : u" claro"_s);
}

const QString kSinAbrir = u"No se pudo manejar la línea DTR del puerto COM1: el puerto no está "
                          u"abierto (se abre al elegirlo en la lista de puertos). El envío sigue "
                          u"solo con la lámpara."_s;
// "TU " at 20 ppm with the lamp alone.
const char *const kTUEnLampara = "0 L1 180 L0 285 L1 345 L0 390 L1 450 L0 495 L1 675 L0";

} // namespace

class TestManipuladorConcurso : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void teclas_data();
    void teclas();
    void ajustes_data();
    void ajustes();
};

void TestManipuladorConcurso::teclas_data()
{
    QTest::addColumn<QString>("modo");
    QTest::addColumn<QByteArray>("varCW");
    QTest::addColumn<QString>("pasos");
    QTest::addColumn<QString>("clave");    // the key line, or "como <texto>" sent plainly
    QTest::addColumn<QString>("eco");      // Label10
    QTest::addColumn<QString>("llamador"); // the PTT, its lamp and its bar
    QTest::addColumn<QString>("mensajes");
    const auto fila = [](const char *nombre, const char *modo, const char *varCW, const char *pasos,
                         const char *clave, const char *eco,
                         const char *llamador = "Tx apagada barra 1",
                         const QString &mensajes = {}) {
        QTest::newRow(nombre) << QString(modo) << QByteArray(varCW) << QString(pasos)
                              << QString(clave) << QString(eco) << QString(llamador) << mensajes;
    };
    fila("F2 a 20 ppm", "CW", "", "Combo3=COM1|F2", "como LU2CD 5NN 007 5NN 007",
         "LU2CD 5NN 007 5NN 007");
    fila("F1 en CW es la macro", "CW", "", "Combo3=COM1|F1", "como CQ TEST LU1AB LU1AB",
         "CQ TEST LU1AB LU1AB");
    fila("a 40 ppm", "CW", "", "Combo3=COM1|vel 40|F3", "como TU ", "TU ");
    // Esc in the dash: the T ends, nothing more; the PTT is let go all the same.
    fila("Esc en el envío", "CW", "", "Combo3=COM1|F3|Esc@100", "0 DTR1 180 DTR0", "T",
         "DTR0 Tx apagada barra 1");
    fila("Esc en reposo no corta la siguiente", "CW", "", "Combo3=COM1|Esc|F3", "como TU ", "TU ",
         "DTR0 Tx apagada barra 1");
    fila("macro durante el envío", "CW", "", "Combo3=COM1|F3|F3@100", "como TU TU ", "U TU ");
    // The keyboard's repeat neither lifts the key nor presses it again.
    fila("tecla manual", "CW", "", "Combo3=COM1|Abajo|espera 40|Abajo*^|Abajo*|espera 40|Abajo^",
         "0 DTR1 80 DTR0", "");
    fila("tecla manual en RTS", "CW", "", "Combo3=COM1|Check4|Abajo|espera 10|Abajo^",
         "0 RTS1 10 RTS0", "");
    fila("flecha fuera de CW", "SSB", "", "Combo3=COM1|Abajo|Abajo^", "", "");
    fila("Ninguno: la lámpara sola", "CW", "Ninguno\r\n1\r\n", "F3", kTUEnLampara, "TU ");
    // The port opens when chosen: the one saved keys the lamp, and says so once.
    fila("guardado sin elegir", "CW", "COM1\r\n1\r\n", "F3", kTUEnLampara, "TU ",
         "Tx apagada barra 1", kSinAbrir);
    fila("elegido sigue abierto al reabrir", "CW", "", "Combo3=COM1|reabrir|F3", "como TU ", "TU ");
    fila("puerto que no abre", "CW", "", "Combo3=COM9", "", "", "Tx apagada barra 1",
         u"No se pudo abrir el puerto COM9 del manipulador: el sistema no permitió abrirlo."_s);
    fila("F3 fuera de CW", "SSB", "", "Combo3=COM1|F3", "", "");
    fila("F1 fuera de CW", "SSB", "", "F1|estado 2500", "", "", "DTR1 Tx encendida barra 80");
    fila("fin del archivo", "SSB", "", "F1|estado 2500|fin", "", "",
         "DTR1 DTR0 Tx apagada barra 80");
    fila("Esc suelta el llamador", "SSB", "", "F1|estado 2500|Esc", "", "",
         "DTR1 DTR0 Tx apagada barra 1");
}

void TestManipuladorConcurso::teclas()
{
    QFETCH(QString, modo);
    QFETCH(QByteArray, varCW);
    Ventana v(modo, varCW);
    QFETCH(QString, pasos);
    v.Correr(pasos);
    QFETCH(QString, clave);
    if (clave.startsWith(u"como "))
        clave = ComoSale(v.f, clave.mid(5));
    QCOMPARE(v.cambios.join(u' '), clave);
    QTEST(v.f.Label10->text(), "eco");
    QTEST(v.Llamador(), "llamador");
    QTEST(v.p.falsos.dialogos->Textos().join(u'|'), "mensajes");
    // The key is up, and Esc never closes the window.
    QVERIFY(!v.p.falsos.puertoCW->dtr && !v.p.falsos.puertoCW->rts && v.f.Image1->isHidden());
    QVERIFY(v.f.isVisible());
}

void TestManipuladorConcurso::ajustes_data()
{
    QTest::addColumn<QByteArray>("varCW");
    QTest::addColumn<QByteArray>("varOsc");
    QTest::addColumn<QString>("pasos");
    QTest::addColumn<QString>("abierto");
    QTest::addColumn<QByteArray>("guardado"); // varCW.cfg, then varOsc.cfg
    QTest::addColumn<QString>("reabierto");
    QTest::newRow("sin archivos") << QByteArray() << QByteArray() << ""
                                  << "COM1 DTR claro" << QByteArray("COM1\r\n1\r\n0\r\n")
                                  << "COM1 DTR claro";
    QTest::newRow("RTS y oscuro") << QByteArray("COM3\r\n0\r\n") << QByteArray("1\r\n") << ""
                                  << "COM3 RTS oscuro" << QByteArray("COM3\r\n0\r\n1\r\n")
                                  << "COM3 RTS oscuro";
    QTest::newRow("cambiados") << QByteArray("COM3\r\n0\r\n") << QByteArray("1\r\n")
                               << "Combo3=Ninguno|Check3|Check7"
                               << "COM3 RTS oscuro" << QByteArray("Ninguno\r\n1\r\n0\r\n")
                               << "Ninguno DTR claro";
    QTest::newRow("ninguna línea es RTS")
        << QByteArray() << QByteArray() << "Check3"
        << "COM1 DTR claro" << QByteArray("COM1\r\n0\r\n0\r\n") << "COM1 RTS claro";
    QTest::newRow("basura") << QByteArray("\x01\xff\x02\r\n") << QByteArray("zz") << ""
                            << "COM1 DTR claro" << QByteArray("COM1\r\n1\r\n0\r\n")
                            << "COM1 DTR claro";
    // Not opened at the opening: the operator hears of it on choosing it.
    QTest::newRow("puerto que no existe")
        << QByteArray("/dev/ttyNOEXISTE\r\n1\r\n") << QByteArray() << ""
        << "/dev/ttyNOEXISTE DTR claro" << QByteArray("/dev/ttyNOEXISTE\r\n1\r\n0\r\n")
        << "/dev/ttyNOEXISTE DTR claro";
}

void TestManipuladorConcurso::ajustes()
{
    QFETCH(QByteArray, varCW);
    QFETCH(QByteArray, varOsc);
    Ventana v(u"CW"_s, varCW, varOsc);
    QTEST(Mostrado(v.f), "abierto");
    QFETCH(QString, pasos);
    for (const QString &paso : pasos.split(u'|', Qt::SkipEmptyParts)) {
        if (paso.startsWith(u"Check"))
            v.f.findChild<QCheckBox *>(paso)->click();
        else
            v.Paso(paso);
    }
    v.f.reject();
    QTEST(v.p.Leer(u"varCW.cfg"_s) + v.p.Leer(u"varOsc.cfg"_s), "guardado");
    v.Abrir();
    QTEST(Mostrado(v.f), "reabierto");
    QVERIFY(v.p.falsos.dialogos->Textos().isEmpty());
    if (!pasos.contains(u"Combo3="_s))
        QCOMPARE(v.p.falsos.puertoCW->aperturas, QStringList());
    QCOMPARE(v.f.LabelVel->text(), u"Vel 20 ppm"_s);
}

QTEST_MAIN(TestManipuladorConcurso)
#include "test_manipulador_concurso.moc"
