// The PTT port that follows the settings: reopened only when the settings name another
// port, so a transmitter keyed at that moment is not let go; closed for "NINGUNO"; quiet
// about a port that does not open.
#include "core/keying/PTT.h"
#include "support/LineaSerieFalsa.h"

#include <QTest>

class TestPTT : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void seguirPuerto_data();
    void seguirPuerto();
};

void TestPTT::seguirPuerto_data()
{
    QTest::addColumn<QString>("abierto"); // empty: the line is closed
    QTest::addColumn<QString>("pedido");
    QTest::addColumn<QStringList>("aperturas"); // after the one that set the line up
    QTest::addColumn<bool>("quedaAbierta");
    QTest::addColumn<bool>("pttSostenido");
    QTest::newRow("cerrado, un puerto") << ""
                                        << "COM2" << QStringList{"COM2"} << true << false;
    QTest::newRow("el mismo puerto") << "COM2"
                                     << "COM2" << QStringList{} << true << true;
    QTest::newRow("otro puerto") << "COM2"
                                 << "COM3" << QStringList{"COM3"} << true << false;
    QTest::newRow("ninguno cierra") << "COM2"
                                    << "NINGUNO" << QStringList{} << false << false;
    QTest::newRow("vacío cierra") << "COM2"
                                  << "" << QStringList{} << false << false;
    QTest::newRow("cerrado, ninguno") << ""
                                      << "NINGUNO" << QStringList{} << false << false;
    QTest::newRow("uno que no abre") << "COM2"
                                     << "COM9" << QStringList{"COM9"} << false << false;
}

void TestPTT::seguirPuerto()
{
    QFETCH(QString, abierto);
    QFETCH(QString, pedido);
    QFETCH(QStringList, aperturas);
    QFETCH(bool, quedaAbierta);
    QFETCH(bool, pttSostenido);
    LineaSerieFalsa linea;
    linea.puertosQueFallan << QStringLiteral("COM9");
    if (!abierto.isEmpty()) {
        QVERIFY(linea.Abrir(abierto));
        PonerPTT(linea, 1, true); // keyed on RTS while the settings are read again
        linea.aperturas.clear();
    }
    SeguirPuertoPTT(linea, pedido);
    QCOMPARE(linea.aperturas, aperturas);
    QCOMPARE(linea.Abierta(), quedaAbierta);
    QCOMPARE(linea.rts, pttSostenido);
    // A port opened here starts with both lines off.
    if (!aperturas.isEmpty() && quedaAbierta)
        QCOMPARE(linea.historial.mid(linea.historial.size() - 2), (QStringList{"RTS0", "DTR0"}));
}

QTEST_GUILESS_MAIN(TestPTT)
#include "test_ptt.moc"
