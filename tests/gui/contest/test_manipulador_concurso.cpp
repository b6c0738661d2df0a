// SPDX-License-Identifier: GPL-3.0-or-later
// The contest window's keyer as the operator works it: keys and clicks in; out, every
// change of the key line and of its lamp at its millisecond, the PTT with its "Tx" lamp and
// bar, the messages; and the keyer's settings from one opening to the next.
#include "core/contest/Concurso.h"
#include "core/keying/AjustesCW.h"
#include "core/keying/MacrosCW.h"
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

// Every pump of a send is a millisecond of the fake clock; then runs what is due.
void UnMsPorBombeo(RelojFalso &reloj, BombaFalsa &bomba, std::function<void()> alBombear)
{
    bomba.procesarEventos = false;
    bomba.alBombear = [&reloj, alBombear] {
        reloj.Avanzar(1);
        alBombear();
    };
}

// A change of the key lamp, stamped with the change of the line that came with it
// ("60 DTR0"), or with "L" when no line changed ("Ninguno", a port that is not open).
QString Cambio(const RelojFalso &reloj, const LineaSerieFalsa &linea, qsizetype &vistos, bool luz)
{
    const bool cambio = linea.historial.size() > vistos;
    vistos = linea.historial.size();
    return u"%1 %2"_s.arg(reloj.monotonicoNs / 1'000'000)
        .arg(cambio ? linea.historial.last()
             : luz  ? u"L1"_s
                    : u"L0"_s);
}

// The contest window in the mode given, LU2CD to be sent serial 7, the PTT's port open.
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
        p->ConcursoNombre = u"CQ M"_s;
        p->ConcursoTipo = SerieIncremental();
        Hecho(FundarConcurso(p->almacen(), p->ConcursoNombre, p->ConcursoTipo));
        f.Image1->installEventFilter(this);
        UnMsPorBombeo(*p.falsos.reloj, *p.falsos.bomba, [this] {
            if (const QString paso = pendientes.take(p.falsos.reloj->monotonicoNs / 1'000'000);
                !paso.isEmpty())
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

    void Tecla(Qt::Key k, QEvent::Type tipo, bool repetida = false)
    {
        QKeyEvent e(tipo, k, Qt::NoModifier, QString(), repetida);
        QApplication::sendEvent(f.focusWidget() ? f.focusWidget() : &f, &e);
    }

    // "F1".."F7", "Esc"; "Abajo" and "Abajo^" press and let go the down arrow, "Abajo*" and
    // "Abajo*^" the same repeated by the keyboard; "espera N" ms; "Combo3=X" chosen;
    // "CheckN" clicked; "vel N" ppm; "estado N" and "fin" of the voice file; "reabrir".
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
        } else if (paso.startsWith(u"Check")) {
            f.findChild<QCheckBox *>(paso)->click();
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

    // The steps in order; "paso@N" is pressed at the millisecond N of a send.
    void Correr(const QString &pasos)
    {
        for (const QString &paso : pasos.split(u'|', Qt::SkipEmptyParts))
            if (paso.contains(u'@'))
                pendientes[paso.section(u'@', 1).toLongLong()] = paso.section(u'@', 0, 0);
        for (const QString &paso : pasos.split(u'|', Qt::SkipEmptyParts))
            if (!paso.contains(u'@'))
                Paso(paso);
    }

    // The PTT line's changes, the "Tx" lamp and the width of the bar in pixels.
    QString Llamador() const
    {
        const QString roja = ColorBGR(ColoresLamparaTx(true).fondo).name();
        return (p.falsos.puertoPTT->historial +
                QStringList{f.Label8->styleSheet().contains(roja) ? u"Tx roja"_s : u"Tx"_s,
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
            cambios << Cambio(*p.falsos.reloj, *p.falsos.puertoCW, vistos,
                              tipo == QEvent::ShowToParent);
        return false;
    }

private:
    QString modo_;
};

// How a text goes out when sent plainly on the port, line and speed the window shows.
QString ComoSale(const Form4 &f, const QString &texto)
{
    RelojFalso reloj;
    BombaFalsa bomba;
    LineaSerieFalsa linea;
    LlaveCW llave(linea);
    MotorCW motor(llave, reloj, bomba);
    UnMsPorBombeo(reloj, bomba, [] {});
    llave.PonerLinea(f.Check3->isChecked());
    static_cast<void>(llave.ElegirPuerto(f.Combo3->currentText()));
    motor.VelCW = VelCWDePpm(f.HScroll1->value());
    QStringList cambios;
    qsizetype vistos = linea.historial.size();
    QObject::connect(&llave, &LlaveCW::Lampara,
                     [&](bool luz) { cambios << Cambio(reloj, linea, vistos, luz); });
    motor.TextoCW = texto;
    motor.enviarCW();
    return cambios.join(u' ');
}

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
    QTest::addColumn<QString>("mensaje");
    const auto fila = [](const char *nombre, const char *modo, const char *varCW, const char *pasos,
                         const char *clave, const char *eco, const char *llamador = "Tx barra 1",
                         const QString &mensaje = {}) {
        QTest::newRow(nombre) << QString(modo) << QByteArray(varCW) << QString(pasos)
                              << QString(clave) << QString(eco) << QString(llamador) << mensaje;
    };
    fila("F1 en CW", "CW", "", "Combo3=COM1|F1", "como CQ TEST LU1AB LU1AB", "CQ TEST LU1AB LU1AB");
    // Esc in the dash: the T ends, nothing more; the PTT is let go all the same.
    fila("Esc en el envío", "CW", "", "Combo3=COM1|F3|Esc@100", "0 DTR1 180 DTR0", "T",
         "DTR0 Tx barra 1");
    // The send goes at the speed on the bar.
    fila("Esc en reposo, a 40 ppm", "CW", "", "Combo3=COM1|vel 40|Esc|F3", "como TU ", "TU ",
         "DTR0 Tx barra 1");
    fila("macro durante el envío", "CW", "", "Combo3=COM1|F3|F3@100", "como TU TU ", "U TU ");
    // The keyboard's own repeats neither lift nor press the key; RTS ticked keys that line.
    fila("tecla manual en RTS", "CW", "",
         "Combo3=COM1|Check4|Abajo|espera 40|Abajo*^|Abajo*|espera 40|Abajo^", "0 RTS1 80 RTS0",
         "");
    fila("F3 y flecha fuera de CW", "SSB", "", "Combo3=COM1|F3|Abajo|Abajo^", "", "");
    fila("Ninguno", "CW", "Ninguno\r\n1\r\n", "F3", kTUEnLampara, "TU ");
    // The port opens when chosen: the one saved keys the lamp, and says so once.
    fila("guardado sin elegir", "CW", "COM1\r\n1\r\n", "F3", kTUEnLampara, "TU ", "Tx barra 1",
         u"No se pudo manejar la línea DTR del puerto COM1: el puerto no está abierto (se abre "
         u"al elegirlo en la lista de puertos). El envío sigue solo con la lámpara."_s);
    fila("F2, elegido al reabrir", "CW", "", "Combo3=COM1|reabrir|F2", "como LU2CD 5NN 007 5NN 007",
         "LU2CD 5NN 007 5NN 007");
    fila("puerto que no abre", "CW", "", "Combo3=COM9", "", "", "Tx barra 1",
         u"No se pudo abrir el puerto COM9 del manipulador: el sistema no permitió abrirlo."_s);
    fila("F1 fuera de CW", "SSB", "", "F1|estado 2500", "", "", "DTR1 Tx roja barra 80");
    fila("fin del archivo", "SSB", "", "F1|estado 2500|fin", "", "", "DTR1 DTR0 Tx barra 80");
    fila("Esc en el llamado", "SSB", "", "F1|estado 2500|Esc", "", "", "DTR1 DTR0 Tx barra 1");
}

void TestManipuladorConcurso::teclas()
{
    QFETCH(QString, modo);
    QFETCH(QByteArray, varCW);
    Ventana v(modo, varCW);
    QFETCH(QString, pasos);
    v.Correr(pasos);
    QFETCH(QString, clave);
    QCOMPARE(v.cambios.join(u' '),
             clave.startsWith(u"como ") ? ComoSale(v.f, clave.mid(5)) : clave);
    QTEST(v.f.Label10->text(), "eco");
    QTEST(v.Llamador(), "llamador");
    QTEST(v.p.falsos.dialogos->Textos().join(u'|'), "mensaje");
    // The key is up, and Esc never closes the window.
    QVERIFY(!v.p.falsos.puertoCW->dtr && !v.p.falsos.puertoCW->rts && v.f.Image1->isHidden());
    QVERIFY(v.f.isVisible());
}

void TestManipuladorConcurso::ajustes_data()
{
    QTest::addColumn<QByteArray>("varCW");
    QTest::addColumn<QByteArray>("varOsc");
    QTest::addColumn<QString>("pasos");
    QTest::addColumn<QString>("abierto");     // Combo3, the line keyed, the background
    QTest::addColumn<QByteArray>("guardado"); // varCW.cfg, then varOsc.cfg
    const auto fila = [](const char *nombre, const char *cw, const char *osc, const char *pasos,
                         const char *abierto, const char *guardado) {
        QTest::newRow(nombre) << QByteArray(cw) << QByteArray(osc) << QString(pasos)
                              << QString(abierto) << QByteArray(guardado);
    };
    fila("sin archivos", "", "", "", "COM1 DTR claro", "COM1\r\n1\r\n0\r\n");
    fila("cambiados", "COM3\r\n0\r\n", "1\r\n", "Combo3=Ninguno|Check3|Check7", "COM3 RTS oscuro",
         "Ninguno\r\n1\r\n0\r\n");
    fila("ninguna línea es RTS", "COM1\r\n1\r\n", "", "Check3", "COM1 DTR claro",
         "COM1\r\n0\r\n0\r\n");
    // Shown, not opened: the operator hears of it on choosing it.
    fila("puerto que no existe", "/dev/ttyNO\r\n2\r\n", "1", "", "/dev/ttyNO RTS oscuro",
         "/dev/ttyNO\r\n0\r\n1\r\n");
}

void TestManipuladorConcurso::ajustes()
{
    QFETCH(QByteArray, varCW);
    QFETCH(QByteArray, varOsc);
    Ventana v(u"CW"_s, varCW, varOsc);
    // Neither box ticked keys RTS.
    const auto mostrado = [&f = v.f] {
        const bool oscuro = f.palette().color(QPalette::Window) == ColorBGR(kFondoOscuroCW);
        return u"%1 %2 %3"_s.arg(f.Combo3->currentText(),
                                 f.Check3->isChecked() ? u"DTR"_s : u"RTS"_s,
                                 oscuro != f.Check7->isChecked() ? u"?"_s
                                 : oscuro                        ? u"oscuro"_s
                                                                 : u"claro"_s);
    };
    QTEST(mostrado(), "abierto");
    QFETCH(QString, pasos);
    v.Correr(pasos);
    const QString cerrado = mostrado();
    v.f.reject();
    QTEST(v.p.Leer(u"varCW.cfg"_s) + v.p.Leer(u"varOsc.cfg"_s), "guardado");
    v.Abrir();
    QCOMPARE(mostrado(), cerrado);
    QCOMPARE(v.f.LabelVel->text(), u"Vel 20 ppm"_s);
    QVERIFY(v.p.falsos.dialogos->Textos().isEmpty());
    if (!pasos.contains(u"Combo3="_s))
        QCOMPARE(v.p.falsos.puertoCW->aperturas, QStringList());
}

QTEST_MAIN(TestManipuladorConcurso)
#include "test_manipulador_concurso.moc"
