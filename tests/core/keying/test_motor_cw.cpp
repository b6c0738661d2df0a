// SPDX-License-Identifier: GPL-3.0-or-later
// The Morse engine on a fake clock: every change of the key line with its time from the
// start of the send, for the rhythm, the speeds, the queue, the stop and a macro pressed
// while sending; and the manual key against the keyboard's auto-repeat.
#include "core/keying/LlaveCW.h"
#include "core/keying/MacrosCW.h"
#include "core/keying/MotorCW.h"
#include "support/BombaFalsa.h"
#include "support/LineaSerieFalsa.h"
#include "support/RelojFalso.h"

#include <QMap>
#include <QTest>
#include <functional>

namespace {

// The engine with its key on a fake line; every pump is a millisecond, and the test's
// handlers run at the millisecond they are set for, as a key press would. Each change of
// the lamp is stamped with the change of the line that came with it ("60 DTR0"), or with
// "L" when no line changed ("60 L0": "Ninguno", or a port that is not open).
struct Banco
{
    RelojFalso reloj;
    BombaFalsa bomba;
    LineaSerieFalsa linea;
    LlaveCW llave{linea};
    MotorCW motor{llave, reloj, bomba};
    QMap<qint64, std::function<void()>> manejadores;
    QStringList cambios, avisos;
    qsizetype vistos = 0;

    Banco()
    {
        bomba.procesarEventos = false;
        bomba.alBombear = [this] {
            reloj.Avanzar(1);
            if (const auto manejador = manejadores.take(reloj.monotonicoNs / 1'000'000))
                manejador();
        };
        QObject::connect(&llave, &LlaveCW::Lampara, [this](bool e) {
            const bool linea = this->linea.historial.size() > vistos;
            vistos = this->linea.historial.size();
            cambios << QStringLiteral("%1 %2")
                           .arg(reloj.monotonicoNs / 1'000'000)
                           .arg(linea ? this->linea.historial.last() : QString(e ? "L1" : "L0"));
        });
        QObject::connect(&motor, &MotorCW::FalloLinea, [this](const QString &m) { avisos << m; });
    }

    // The changes, then "|" and the time the send ended.
    QString Enviar(const QString &texto)
    {
        vistos = linea.historial.size(); // the opening's "both lines off" are not the send's
        motor.TextoCW = texto;
        motor.enviarCW();
        return (cambios + QStringList{u'|' + QString::number(reloj.monotonicoNs / 1'000'000)})
            .join(u' ');
    }
};

} // namespace

class TestMotorCW : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    // ppm; the key's line: "COM1 DTR", "COM1 RTS" (neither box ticked), "Ninguno", or
    // "COM9 DTR" that does not open; a handler at a millisecond ("esc", "vel 40", or a
    // macro's text); the text; then the changes and the end, or "como <texto>" for the
    // keying of another text sent plainly; and Label10's echo when it is not the text.
    void envio_data()
    {
        QTest::addColumn<int>("ppm");
        QTest::addColumn<QString>("linea");
        QTest::addColumn<QString>("accion");
        QTest::addColumn<QString>("texto");
        QTest::addColumn<QString>("esperado");
        QTest::addColumn<QString>("eco");
        const auto fila = [](const char *n, int ppm, const char *linea, const char *accion,
                             const QString &texto, const QString &esperado,
                             const QString &eco = {}) {
            QTest::newRow(n) << ppm << QString(linea) << QString(accion) << texto << esperado
                             << eco;
        };
        // u = 60 at 20 ppm: a dit, 45 after it, 60 after the letter; a blank adds one u.
        fila("ee", 20, "COM1 DTR", "", "ee", "0 DTR1 60 DTR0 165 DTR1 225 DTR0 |330");
        fila("e e", 20, "COM1 DTR", "", "e e", "0 DTR1 60 DTR0 225 DTR1 285 DTR0 |390");
        // u = 30 at 40 ppm, and 22.5 after each element rounds to 22.
        fila("40 ppm", 40, "COM1 DTR", "", "i", "0 DTR1 30 DTR0 52 DTR1 82 DTR0 |134");
        fila("38 ppm", 38, "COM1 DTR", "", "a", "0 DTR1 31 DTR0 54 DTR1 147 DTR0 |201");
        fila("39 como 38", 39, "COM1 DTR", "", "a", "0 DTR1 31 DTR0 54 DTR1 147 DTR0 |201");
        fila("sin casilla: RTS", 20, "COM1 RTS", "", "E", "0 RTS1 60 RTS0 |165");
        fila("Ninguno", 20, "Ninguno", "", "ee", "0 L1 60 L0 165 L1 225 L0 |330");
        fila("puerto que no abre", 20, "COM9 DTR", "", "ee", "0 L1 60 L0 165 L1 225 L0 |330");
        // The speed is taken at each character, never inside one.
        fila("velocidad", 20, "COM1 DTR", "100 vel 40", "ee",
             "0 DTR1 60 DTR0 165 DTR1 195 DTR0 |247");
        // Unknown characters, a carriage return, "+" and "-" key nothing and take u; a double
        // quote and a line feed take nothing.
        fila("sin toque, con u", 20, "COM1 DTR", "", "e!\r+-e", "como e    e");
        fila("sin toque ni tiempo", 20, "COM1 DTR", "", "e\"\ne", "como ee");
        // The character taken and the 500 behind it go out; the rest of a long queue is lost.
        fila("cola de 600", 20, "COM1 DTR", "", QString(600, u'e'), "como " + QString(501, u'e'),
             QString(501, u'E'));
        // Esc in the middle of the dash: the T ends, then nothing more.
        fila("esc en la raya", 20, "COM1 DTR", "100 esc", "tt", "0 DTR1 180 DTR0 |285", "T");
        // F3 during sending: queued behind, the echo starting over.
        fila("macro durante el envio", 20, "COM1 DTR", "100 TU ", "TU ", "como tu tu ", "U TU ");
    }

    void envio()
    {
        QFETCH(int, ppm);
        QFETCH(QString, linea);
        QFETCH(QString, accion);
        QFETCH(QString, esperado);
        Banco b;
        b.linea.puertosQueFallan << QStringLiteral("COM9");
        const QString puerto = linea.section(u' ', 0, 0);
        b.llave.PonerLinea(linea.endsWith(u"DTR"));
        QCOMPARE(b.llave.ElegirPuerto(puerto).Exito(), puerto != u"COM9");
        b.motor.VelCW = VelCWDePpm(ppm);
        if (!accion.isEmpty())
            b.manejadores[accion.section(u' ', 0, 0).toInt()] = [&b,
                                                                 que = accion.section(u' ', 1)] {
                if (que == u"esc")
                    b.motor.PararCW = true;
                else if (que == u"vel 40")
                    b.motor.VelCW = VelCWDePpm(40);
                else {
                    b.motor.TextoCW += que;
                    b.motor.enviarCW();
                }
            };
        if (esperado.startsWith(u"como ")) {
            Banco referencia;
            QVERIFY(referencia.llave.ElegirPuerto(u"COM1"_qs).Exito());
            referencia.motor.VelCW = b.motor.VelCW;
            esperado = referencia.Enviar(esperado.mid(5));
        }
        QFETCH(QString, texto);
        QCOMPARE(b.Enviar(texto), esperado);
        QFETCH(QString, eco);
        QCOMPARE(b.motor.Eco(), eco.isEmpty() ? texto.toUpper() : eco);
        // A line that cannot be keyed is told once for the whole send.
        QCOMPARE(b.avisos.size(), puerto == u"COM9" ? 1 : 0);
        QVERIFY(b.motor.TextoCW.isEmpty() && !b.motor.PararCW && !b.motor.EnviandoCW());
        QVERIFY(!b.linea.dtr && !b.linea.rts);
    }

    // Events (P press, S release, lower case when auto-repeated, F focus lost), each with
    // what the key does (B down, S up, - nothing): auto-repeat never lifts the key, and a
    // lost focus lifts a held one.
    void teclaManual_data()
    {
        QTest::addColumn<QString>("guion");
        QTest::newRow("pulso") << "P:B S:S";
        QTest::newRow("repeticion") << "P:B s:- p:- s:- p:- S:S";
        QTest::newRow("foco perdido") << "P:B s:- p:- F:S S:-";
        QTest::newRow("suelta sin presion") << "S:- p:-";
    }

    void teclaManual()
    {
        QFETCH(QString, guion);
        TeclaManual tecla;
        for (const QString &paso : guion.split(u' ')) {
            const QChar e = paso.at(0);
            const auto a = e.toUpper() == u'P' ? tecla.Presion(e == u'p')
                           : e == u'F'         ? tecla.FocoPerdido()
                                               : tecla.Suelta(e == u's');
            QCOMPARE(a == TeclaManual::Accion::Bajar   ? u'B'
                     : a == TeclaManual::Accion::Subir ? u'S'
                                                       : u'-',
                     paso.at(2));
        }
    }
};

QTEST_GUILESS_MAIN(TestMotorCW)
#include "test_motor_cw.moc"
