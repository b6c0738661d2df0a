// The band plan: entry table, out-of-band segments, import tables and the lists.

#include "Filas.h"
#include "core/rules/Bandas.h"

class TestBandas : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tablaDeEntrada_data();
    void tablaDeEntrada();
    void fueraDeBanda_data();
    void fueraDeBanda();
    void ventanas();
    void bandaDeMhz_data();
    void bandaDeMhz();
};

void TestBandas::tablaDeEntrada_data()
{
    QTest::addColumn<QString>("mhz");
    QTest::addColumn<QString>("banda");
    Pares("1=160m 3=80m 5=60m 7=40m 10=30m 14=20m 18=17m 21=15m 24=12m 28=10m 29=10m 50=6m 54=6m "
          "144=2m 147=2m 220=1.25m 224=1.25m 430=70cm 440=70cm 443=70cm");
    // Whole megahertz only, and nothing between the bands.
    Filas("0 2 4 30 49 55 143 148 219 225 429 444 1268 3.5 28.5 abc", QString());
    Fila("", QString());
}

void TestBandas::tablaDeEntrada()
{
    QFETCH(QString, mhz);
    QTEST(DerivarBanda(mhz, QStringLiteral("100"), VentanaBanda::Principal).banda, "banda");
}

// "mhz.khz" as the window shows them, and the band; a trailing '!' marks the out-of-band
// message, which repeats the fields as typed. Only three segments are checked.
void TestBandas::fueraDeBanda_data()
{
    QTest::addColumn<QString>("frecuencia");
    QTest::addColumn<QString>("banda");
    Pares("3.499=80m! 3.500=80m 3.=80m! 10.250=30m 10.251=30m! 10.25x=30m 24.899=12m! 24.900=12m "
          "1.000=160m 7.999=40m");
    Fila(" 3.100", "80m!");
}

void TestBandas::fueraDeBanda()
{
    QFETCH(QString, frecuencia);
    QFETCH(QString, banda);
    const bool fuera = banda.endsWith(u'!');
    banda.chop(fuera ? 1 : 0);
    const qsizetype punto = frecuencia.indexOf(u'.');
    const BandaDerivada r =
        DerivarBanda(frecuencia.left(punto), frecuencia.mid(punto + 1), VentanaBanda::Principal);
    QCOMPARE(r.banda, banda);
    QCOMPARE(r.fueraDeBanda, fuera);
    QCOMPARE(r.mensaje,
             fuera ? frecuencia + QStringLiteral(" KHz\r\n\r\nFuera de banda!") : QString());
}

// The edit window checks the segments too; 23 cm is spelled differently by each window;
// while Form1 loads, the band is set but 23 cm and the message are left alone.
void TestBandas::ventanas()
{
    const auto P = VentanaBanda::Principal;
    const auto E = VentanaBanda::Edicion;
    QVERIFY(DerivarBanda("24", "100", E).fueraDeBanda);
    QCOMPARE(DerivarBanda("1267", "000", P).banda, QStringLiteral("23cm"));
    QCOMPARE(DerivarBanda("1267", "000", E).banda, QStringLiteral("23m"));
    QCOMPARE(DerivarBanda("1267", "000", P, true).banda, QString());
    const BandaDerivada iniciando = DerivarBanda("3", "100", P, true);
    QCOMPARE(iniciando.banda, QStringLiteral("80m"));
    QVERIFY(!iniciando.fueraDeBanda);
    QVERIFY(iniciando.mensaje.isEmpty());
}

// The import's table: decimal megahertz, both ends included, no 1.25 m and no 23 cm.
void TestBandas::bandaDeMhz_data()
{
    QTest::addColumn<QString>("mhz");
    QTest::addColumn<QString>("banda");
    Pares("1=160m 2=160m 3.5=80m 4=80m 5.3=60m 7.074=40m 7,074=40m 8=40m 10.136=30m 14.074=20m "
          "18.1=17m 21.074=15m 24.915=12m 28=10m 30=10m 50.313=6m 55=6m 144=2m 148=2m 430=70cm "
          "440=70cm");
    Filas("0.9 2.5 8.5 11.5 30.1 55.01 222.1 429.9 441.5 1267 abc", QString());
}

void TestBandas::bandaDeMhz()
{
    QFETCH(QString, mhz);
    QTEST(BandaDeMhz(mhz), "banda");
}

QTEST_GUILESS_MAIN(TestBandas)
#include "test_bandas.moc"
