// The PTT line picked by the pin setting, and the port that follows the settings:
// reopened only when they name another port, so a transmitter keyed at that moment is not
// let go; closed for "NINGUNO"; quiet about a port that does not open.
#include "core/keying/PTT.h"
#include "support/LineaSerieFalsa.h"

#include <QTest>

class TestPTT : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    // The line open before (empty: closed), keyed with the pin; the port the settings then
    // name, the port opened for it, and the line after: "RTS" or "DTR" still keyed, "" for
    // open with nothing keyed, or closed.
    void seguirPuerto_data()
    {
        QTest::addColumn<QString>("abierto");
        QTest::addColumn<int>("pin");
        QTest::addColumn<QString>("pedido");
        QTest::addColumn<QString>("abre");
        QTest::addColumn<QString>("linea");
        const auto fila = [](const char *nombre, const char *abierto, int pin, const char *pedido,
                             const char *abre, const char *linea) {
            QTest::newRow(nombre) << QString(abierto) << pin << QString(pedido) << QString(abre)
                                  << QString(linea);
        };
        fila("cerrado, un puerto", "", 1, "COM2", "COM2", "");
        fila("el mismo, RTS", "COM2", 1, "COM2", "", "RTS");
        fila("el mismo, DTR", "COM2", 0, "COM2", "", "DTR");
        fila("pin 2 es DTR", "COM2", 2, "COM2", "", "DTR");
        fila("otro puerto", "COM2", 1, "COM3", "COM3", "");
        fila("ninguno cierra", "COM2", 0, "NINGUNO", "", "cerrada");
        fila("vacio cierra", "COM2", 1, "", "", "cerrada");
        fila("uno que no abre", "COM2", 1, "COM9", "COM9", "cerrada");
    }

    void seguirPuerto()
    {
        QFETCH(QString, abierto);
        QFETCH(int, pin);
        QFETCH(QString, pedido);
        LineaSerieFalsa linea;
        linea.puertosQueFallan << QStringLiteral("COM9");
        if (!abierto.isEmpty()) {
            QVERIFY(linea.Abrir(abierto));
            PonerPTT(linea, pin, true); // keyed while the settings are read again
            linea.aperturas.clear();
        }
        SeguirPuertoPTT(linea, pedido);
        QTEST(linea.aperturas.join(u' '), "abre");
        const QString llaveada = QString(linea.rts ? "RTS" : "") + (linea.dtr ? "DTR" : "");
        QTEST(linea.Abierta() ? llaveada : QStringLiteral("cerrada"), "linea");
        // A port opened here starts with both lines off.
        if (!linea.aperturas.isEmpty() && linea.Abierta())
            QCOMPARE(linea.historial.mid(linea.historial.size() - 2),
                     (QStringList{"RTS0", "DTR0"}));
    }
};

QTEST_GUILESS_MAIN(TestPTT)
#include "test_ptt.moc"
