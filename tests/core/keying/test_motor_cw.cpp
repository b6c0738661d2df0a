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
#include <QRegularExpression>
#include <QTest>
#include <functional>

namespace {

// A line that stamps each change with the fake clock's millisecond.
class LineaSellada : public LineaSerieFalsa
{
public:
    explicit LineaSellada(const RelojFalso &reloj)
        : reloj_(reloj)
    {}
    void PonerDTR(bool encendido) override
    {
        Sellar(u"DTR", encendido);
        LineaSerieFalsa::PonerDTR(encendido);
    }
    void PonerRTS(bool encendido) override
    {
        Sellar(u"RTS", encendido);
        LineaSerieFalsa::PonerRTS(encendido);
    }
    QStringList cambios;

private:
    void Sellar(QStringView nombre, bool encendido)
    {
        if (Abierta())
            cambios << QStringLiteral("%1 %2%3")
                           .arg(reloj_.monotonicoNs / 1'000'000)
                           .arg(nombre)
                           .arg(encendido ? 1 : 0);
    }
    const RelojFalso &reloj_;
};

// The engine with its key on a fake line; every pump is a millisecond, and the test's
// handlers run at the millisecond they are set for, as a key press would.
struct Banco
{
    RelojFalso reloj;
    BombaFalsa bomba;
    LineaSellada linea{reloj};
    LlaveCW llave{linea};
    MotorCW motor{llave, reloj, bomba};
    QMap<qint64, std::function<void()>> manejadores;
    int lamparas = 0;
    QStringList avisos;

    Banco()
    {
        reloj.monotonicoNs = 0;
        bomba.procesarEventos = false;
        bomba.alBombear = [this] {
            reloj.Avanzar(1);
            const auto manejador = manejadores.take(reloj.monotonicoNs / 1'000'000);
            if (manejador)
                manejador();
        };
        QObject::connect(&llave, &LlaveCW::Lampara, [this](bool e) { lamparas += e ? 1 : 0; });
        QObject::connect(&motor, &MotorCW::FalloLinea, [this](const QString &m) { avisos << m; });
    }

    // The changes of the line, then "|" and the time the send ended.
    QString Enviar(const QString &texto)
    {
        linea.cambios.clear(); // the opening's "both lines off" are not the send's
        motor.TextoCW = texto;
        motor.enviarCW();
        return (linea.cambios + QStringList{u'|' + QString::number(reloj.monotonicoNs / 1'000'000)})
            .join(u' ');
    }
};

} // namespace

class TestMotorCW : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    // ppm, port ("Ninguno", or COM9 which does not open), Check3, a handler at a
    // millisecond ("esc", "vel 40", or a macro's text), the text; then the line's changes
    // and the end, or "como <texto>" for the keying of another text sent plainly.
    void envio_data()
    {
        QTest::addColumn<int>("ppm");
        QTest::addColumn<QString>("puerto");
        QTest::addColumn<bool>("dtr");
        QTest::addColumn<int>("en");
        QTest::addColumn<QString>("accion");
        QTest::addColumn<QString>("texto");
        QTest::addColumn<QString>("esperado");
        QTest::addColumn<QString>("eco");
        const auto fila = [](const char *n, int ppm, const char *puerto, bool dtr, int en,
                             const char *accion, const char *texto, const char *esperado,
                             const char *eco) {
            QTest::newRow(n) << ppm << QString(puerto) << dtr << en << QString(accion)
                             << QString(texto) << QString(esperado) << QString(eco);
        };
        // u = 60 at 20 ppm: a dit, 45 after it, 60 after the letter.
        fila("E a 20", 20, "COM1", true, 0, "", "E", "0 DTR1 60 DTR0 |165", "E");
        fila("ee", 20, "COM1", true, 0, "", "ee", "0 DTR1 60 DTR0 165 DTR1 225 DTR0 |330", "EE");
        fila("e e: una u mas", 20, "COM1", true, 0, "", "e e",
             "0 DTR1 60 DTR0 225 DTR1 285 DTR0 |390", "E E");
        // u = 30 at 40 ppm, and 22.5 after each element rounds to 22.
        fila("40 ppm", 40, "COM1", true, 0, "", "i", "0 DTR1 30 DTR0 52 DTR1 82 DTR0 |134", "I");
        fila("38 ppm", 38, "COM1", true, 0, "", "a", "0 DTR1 31 DTR0 54 DTR1 147 DTR0 |201", "A");
        fila("39 como 38", 39, "COM1", true, 0, "", "a", "0 DTR1 31 DTR0 54 DTR1 147 DTR0 |201",
             "A");
        fila("sin casilla: RTS", 20, "COM1", false, 0, "", "E", "0 RTS1 60 RTS0 |165", "E");
        fila("Ninguno: solo lampara", 20, "Ninguno", true, 0, "", "ee", "|330", "EE");
        fila("puerto que no abre", 20, "COM9", true, 0, "", "ee", "|330", "EE");
        // The speed is taken at each character, never inside one.
        fila("velocidad al caracter", 20, "COM1", true, 100, "vel 40", "ee",
             "0 DTR1 60 DTR0 165 DTR1 195 DTR0 |247", "EE");
        fila("desconocido toma u", 20, "COM1", true, 0, "", "e!e", "como e e", "E!E");
        fila("retorno toma u", 20, "COM1", true, 0, "", "e\re", "como e e", "E\rE");
        fila("mas y menos toman u", 20, "COM1", true, 0, "", "e+-e", "como e  e", "E+-E");
        fila("comillas sin tiempo", 20, "COM1", true, 0, "", "e\"e", "como ee", "E\"E");
        fila("salto sin tiempo", 20, "COM1", true, 0, "", "e\ne", "como ee", "E\nE");
        fila("barra invertida", 20, "COM1", true, 0, "", "\\", "como /", "\\");
        fila("parentesis iguales", 20, "COM1", true, 0, "", ")", "como (", ")");
        // Esc in the middle of the dash: the T ends, then nothing more.
        fila("esc en la raya", 20, "COM1", true, 100, "esc", "tt", "0 DTR1 180 DTR0 |285", "T");
        // F3 during sending: queued behind, the echo starting over.
        fila("macro durante el envio", 20, "COM1", true, 100, "TU ", "TU ", "como tu tu ", "U TU ");
    }

    void envio()
    {
        QFETCH(int, ppm);
        QFETCH(QString, puerto);
        QFETCH(int, en);
        QFETCH(QString, accion);
        QFETCH(QString, esperado);
        Banco b;
        b.linea.puertosQueFallan << QStringLiteral("COM9");
        b.llave.PonerLinea(QTest::currentDataTag() != QByteArray("sin casilla: RTS"));
        QCOMPARE(b.llave.ElegirPuerto(puerto).Exito(), puerto != u"COM9");
        b.motor.VelCW = VelCWDePpm(ppm);
        if (!accion.isEmpty())
            b.manejadores[en] = [&b, accion] {
                if (accion == u"esc")
                    b.motor.PararCW = true;
                else if (accion == u"vel 40")
                    b.motor.VelCW = VelCWDePpm(40);
                else {
                    b.motor.TextoCW += accion;
                    b.motor.enviarCW();
                }
            };
        if (esperado.startsWith(u"como ")) {
            Banco referencia;
            referencia.llave.PonerLinea(true);
            QVERIFY(referencia.llave.ElegirPuerto(u"COM1"_qs).Exito());
            referencia.motor.VelCW = b.motor.VelCW;
            esperado = referencia.Enviar(esperado.mid(5));
        }
        QFETCH(QString, texto);
        QCOMPARE(b.Enviar(texto), esperado);
        QTEST(b.motor.Eco(), "eco");
        // The lamp follows every element, with or without a line, and a line that cannot be
        // keyed is told once for the whole send.
        // (Without a line the texts are "ee": two elements.)
        const auto bajadas = esperado.count(QRegularExpression(u"(DTR|RTS)1"_qs));
        QCOMPARE(b.lamparas, bajadas ? bajadas : 2);
        QCOMPARE(b.avisos.size(), puerto == u"COM9" ? 1 : 0);
        QVERIFY(b.motor.TextoCW.isEmpty() && !b.motor.PararCW && !b.motor.EnviandoCW());
        QVERIFY(!b.linea.dtr && !b.linea.rts);
    }

    // The character taken and the 500 behind it go out; the rest of a long queue is lost.
    void colaDe600()
    {
        Banco b;
        QVERIFY(b.llave.ElegirPuerto(u"COM1"_qs).Exito());
        b.Enviar(QString(600, u'e'));
        QCOMPARE(b.linea.cambios.size(), 2 * 501);
    }

    // Press, auto-repeated release and press pairs, release: down once, up once; a lost
    // focus lifts a held key.
    void teclaManual_data()
    {
        QTest::addColumn<QString>("eventos");
        QTest::addColumn<QString>("acciones");
        QTest::newRow("pulso") << "P S"
                               << "B S";
        QTest::newRow("repeticion") << "P s p s p S"
                                    << "B - - - - S";
        QTest::newRow("foco perdido") << "P s p F S"
                                      << "B - - S -";
        QTest::newRow("suelta sin presion") << "S p"
                                            << "- -";
    }

    void teclaManual()
    {
        QFETCH(QString, eventos);
        TeclaManual tecla;
        QStringList acciones;
        for (const QString &e : eventos.split(u' ')) {
            const auto a = e == u"P" || e == u"p" ? tecla.Presion(e == u"p")
                           : e == u"F"            ? tecla.FocoPerdido()
                                                  : tecla.Suelta(e == u"s");
            acciones << (a == TeclaManual::Accion::Bajar   ? "B"
                         : a == TeclaManual::Accion::Subir ? "S"
                                                           : "-");
        }
        QTEST(acciones.join(u' '), "acciones");
    }
};

QTEST_GUILESS_MAIN(TestMotorCW)
#include "test_motor_cw.moc"
