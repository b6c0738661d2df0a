// The band plan: entry table, out-of-band segments, import tables and the lists.

#include "rules/Bandas.h"

#include <QTest>

Q_DECLARE_METATYPE(VentanaBanda)

namespace {
QString Mensaje(const QString &frecuencia)
{
    return frecuencia + QStringLiteral(" KHz\r\n\r\nFuera de banda!");
}
} // namespace

class TestBandas : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void derivarBanda_data();
    void derivarBanda();
    void listaMhzTieneBanda();
    void bandaDeMhz_data();
    void bandaDeMhz();
    void frecuenciaDeBanda_data();
    void frecuenciaDeBanda();
    void rellenarKhz_data();
    void rellenarKhz();
    void listas();
};

void TestBandas::derivarBanda_data()
{
    QTest::addColumn<QString>("mhz");
    QTest::addColumn<QString>("khz");
    QTest::addColumn<VentanaBanda>("ventana");
    QTest::addColumn<bool>("iniciando");
    QTest::addColumn<QString>("banda");
    QTest::addColumn<QString>("mensaje"); // empty when in band
    const auto fila = [](const char *nombre, const QString &mhz, const QString &khz,
                         VentanaBanda ventana, bool iniciando, const QString &banda,
                         const QString &mensaje) {
        QTest::newRow(nombre) << mhz << khz << ventana << iniciando << banda << mensaje;
    };

    const auto P = VentanaBanda::Principal;
    const auto E = VentanaBanda::Edicion;
    // The three segments, at their edges, in both windows.
    fila("80m 499", "3", "499", P, false, "80m", Mensaje("3.499"));
    fila("80m 500", "3", "500", P, false, "80m", "");
    fila("80m vacio", "3", "", P, false, "80m", Mensaje("3."));
    fila("80m 000", "3", "000", P, false, "80m", Mensaje("3.000"));
    fila("30m 250", "10", "250", P, false, "30m", "");
    fila("30m 251", "10", "251", P, false, "30m", Mensaje("10.251"));
    fila("30m 25x", "10", "25x", P, false, "30m", "");
    fila("12m 899", "24", "899", P, false, "12m", Mensaje("24.899"));
    fila("12m 900", "24", "900", P, false, "12m", "");
    fila("edicion 80m 499", "3", "499", E, false, "80m", Mensaje("3.499"));
    fila("edicion 30m 999", "10", "999", E, false, "30m", Mensaje("10.999"));
    fila("edicion 12m 100", "24", "100", E, false, "12m", Mensaje("24.100"));
    // No other band has limits.
    fila("40m 999", "7", "999", P, false, "40m", "");
    fila("20m 000", "14", "000", P, false, "20m", "");
    fila("160m 999", "1", "999", P, false, "160m", "");
    // The entry table, its edges and its holes.
    fila("60m", "5", "100", P, false, "60m", "");
    fila("17m", "18", "100", P, false, "17m", "");
    fila("15m", "21", "100", P, false, "15m", "");
    fila("28", "28", "500", P, false, "10m", "");
    fila("29", "29", "500", P, false, "10m", "");
    fila("30", "30", "000", P, false, "", "");
    fila("50", "50", "100", P, false, "6m", "");
    fila("54", "54", "100", P, false, "6m", "");
    fila("55", "55", "100", P, false, "", "");
    fila("144", "144", "100", P, false, "2m", "");
    fila("147", "147", "100", P, false, "2m", "");
    fila("148", "148", "100", P, false, "", "");
    fila("219", "219", "100", P, false, "", "");
    fila("220", "220", "100", P, false, "1.25m", "");
    fila("224", "224", "100", E, false, "1.25m", "");
    fila("225", "225", "100", P, false, "", "");
    fila("429", "429", "100", P, false, "", "");
    fila("430", "430", "100", P, false, "70cm", "");
    fila("440", "440", "100", P, false, "70cm", "");
    fila("440 edicion", "440", "100", E, false, "70cm", "");
    fila("443", "443", "100", P, false, "70cm", "");
    fila("444", "444", "100", P, false, "", "");
    fila("2", "2", "000", P, false, "", "");
    fila("4", "4", "000", P, false, "", "");
    fila("0", "0", "000", P, false, "", "");
    fila("decimal", "3.5", "000", P, false, "", "");
    fila("decimal entre enteros", "28.5", "000", P, false, "", "");
    fila("decimal en 70cm", "435.5", "000", E, false, "", "");
    fila("letras", "abc", "000", P, false, "", "");
    fila("vacio", "", "", P, false, "", "");
    fila("numero inicial", "14 MHz", "100", P, false, "20m", "");
    fila("blanco inicial", " 3", "100", P, false, "80m", Mensaje(" 3.100"));
    // 23 cm: spelled differently by each window, and not looked at while Form1 loads.
    fila("1267 principal", "1267", "000", P, false, "23cm", "");
    fila("1267 edicion", "1267", "000", E, false, "23m", "");
    fila("1267 iniciando", "1267", "000", P, true, "", "");
    fila("1268", "1268", "000", P, false, "", "");
    // While loading, the band is set but no message can appear.
    fila("80m iniciando", "3", "100", P, true, "80m", "");
    fila("30m iniciando", "10", "999", P, true, "30m", "");
    fila("40m iniciando", "7", "074", P, true, "40m", "");
}

void TestBandas::derivarBanda()
{
    QFETCH(QString, mhz);
    QFETCH(QString, khz);
    QFETCH(VentanaBanda, ventana);
    QFETCH(bool, iniciando);
    QFETCH(QString, banda);
    QFETCH(QString, mensaje);
    const BandaDerivada r = DerivarBanda(mhz, khz, ventana, iniciando);
    QCOMPARE(r.banda, banda);
    QCOMPARE(r.fueraDeBanda, !mensaje.isEmpty());
    QCOMPARE(r.mensaje, mensaje);
}

// Every entry the windows offer must land in a band of the main window's list.
void TestBandas::listaMhzTieneBanda()
{
    for (const QString &mhz : ListaMhz()) {
        const QString banda =
            DerivarBanda(mhz, QStringLiteral("900"), VentanaBanda::Principal).banda;
        QVERIFY2(ListaBandas().contains(banda), qPrintable(mhz));
    }
}

void TestBandas::bandaDeMhz_data()
{
    QTest::addColumn<QString>("mhz");
    QTest::addColumn<QString>("banda");
    const auto fila = [](const char *nombre, const QString &mhz, const QString &banda) {
        QTest::newRow(nombre) << mhz << banda;
    };
    fila("7.074", "7.074", "40m");
    fila("0.9", "0.9", "");
    fila("1", "1", "160m");
    fila("2", "2", "160m");
    fila("2.5", "2.5", "");
    fila("3.5", "3.5", "80m");
    fila("4", "4", "80m");
    fila("5.3", "5.3", "60m");
    fila("8", "8", "40m");
    fila("8.5", "8.5", "");
    fila("10.136", "10.136", "30m");
    fila("11.5", "11.5", "");
    fila("14.074", "14.074", "20m");
    fila("18.1", "18.1", "17m");
    fila("21.074", "21.074", "15m");
    fila("24.915", "24.915", "12m");
    fila("28", "28", "10m");
    fila("30", "30", "10m");
    fila("30.1", "30.1", "");
    fila("50.313", "50.313", "6m");
    fila("55", "55", "6m");
    fila("55.01", "55.01", "");
    fila("144", "144", "2m");
    fila("148", "148", "2m");
    fila("222 sin 1.25m", "222.1", "");
    fila("429.9", "429.9", "");
    fila("430", "430", "70cm");
    fila("440", "440", "70cm");
    fila("441.5", "441.5", "");
    fila("1267 sin 23cm", "1267", "");
    fila("coma", "7,074", "40m");
    fila("vacio", "", "");
    fila("letras", "abc", "");
}

void TestBandas::bandaDeMhz()
{
    QFETCH(QString, mhz);
    QFETCH(QString, banda);
    QCOMPARE(BandaDeMhz(mhz), banda);
}

void TestBandas::frecuenciaDeBanda_data()
{
    QTest::addColumn<QString>("banda");
    QTest::addColumn<QString>("frecuencia");
    const auto fila = [](const char *nombre, const QString &banda, const QString &frecuencia) {
        QTest::newRow(nombre) << banda << frecuencia;
    };
    fila("160m", "160m", "1.820");
    fila("80m", "80m", "3.600");
    fila("60m", "60m", "5.100");
    fila("40m", "40m", "7.100");
    fila("30m", "30m", "10.100");
    fila("20m", "20m", "14.100");
    fila("17m", "17m", "18.100");
    fila("15m", "15m", "21.100");
    fila("12m", "12m", "24.900");
    fila("10m", "10m", "28.500");
    fila("6m", "6m", "52.000");
    fila("2m", "2m", "145.000");
    fila("70cm", "70cm", "435.100");
    fila("mayusculas", "20M", "14.100");
    fila("1.25m", "1.25m", "");
    fila("23cm", "23cm", "");
    fila("vacio", "", "");
    fila("letras", "m", "");
}

void TestBandas::frecuenciaDeBanda()
{
    QFETCH(QString, banda);
    QFETCH(QString, frecuencia);
    QCOMPARE(FrecuenciaDeBanda(banda), frecuencia);
}

void TestBandas::rellenarKhz_data()
{
    QTest::addColumn<QString>("khz");
    QTest::addColumn<QString>("relleno");
    const auto fila = [](const char *nombre, const QString &khz, const QString &relleno) {
        QTest::newRow(nombre) << khz << relleno;
    };
    fila("vacio", "", "000");
    fila("uno", "5", "005");
    fila("dos", "50", "050");
    fila("tres", "650", "650");
    fila("cuatro", "6500", "6500");
    fila("no digito", "x", "00x");
}

void TestBandas::rellenarKhz()
{
    QFETCH(QString, khz);
    QFETCH(QString, relleno);
    QCOMPARE(RellenarKhz(khz), relleno);
}

void TestBandas::listas()
{
    QCOMPARE(ModosPrincipal(), QStringList({"SSB", "FM", "CW", "DVoice"}));
    QCOMPARE(ModosEdicion(), QStringList({"SSB", "CW", "FM"}));
    QCOMPARE(ListaBandas(), QStringList({"160m", "80m", "60m", "40m", "30m", "20m", "17m", "15m",
                                         "12m", "10m", "6m", "2m", "70cm"}));
    QCOMPARE(ListaMhz(),
             QStringList({"1",   "3",   "5",   "7",   "10",  "14",  "18",  "21",  "24",  "28",
                          "29",  "50",  "51",  "52",  "53",  "54",  "144", "145", "146", "147",
                          "430", "431", "432", "433", "434", "435", "436", "437", "438", "439"}));
    QVERIFY(ListaMhz().contains(MhzInicial()));
    QVERIFY(ListaBandas().contains(BandaInicial()));
}

QTEST_GUILESS_MAIN(TestBandas)
#include "test_bandas.moc"
