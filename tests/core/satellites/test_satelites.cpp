// The satellite catalogue file, and the uplink frequency that satellite mode reads back from
// its caption.

#include "core/satellites/Catalogo.h"
#include "core/satellites/ModoSatelite.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

class TestSatelites : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void listaBase()
    {
        QTemporaryDir carpeta;
        QVERIFY(EscribirSatelitesBase(carpeta.path()));
        QFile f(ArchivoSatelites(carpeta.path()));
        QVERIFY(f.open(QIODevice::ReadOnly));
        QCOMPARE(f.readAll(), QByteArray("AO-7;70cm;2m;SSB;100.4\r\nAO-73;70cm;2m;SSB; \r\n"
                                         "XW-2A;70cm;2m;SSB; \r\nXW-2B;70cm;2m;SSB; \r\n"
                                         "XW-2C;70cm;2m;SSB; \r\nXW-2D;70cm;2m;SSB; \r\n"
                                         "XW-2F;70cm;2m;SSB; \r\nCAS-4A;70cm;2m;SSB; \r\n"
                                         "CAS-4B;70cm;2m;SSB; \r\nLILACSAT-2;2m;70cm;SSB;\r\n"
                                         "FO-29;2m;70cm;SSB; \r\nSO-50;2m;70cm;FM;67.0\r\n"
                                         "AO-85;70cm;2m;FM;67.0\r\nIO-86;2m;70cm;FM;88.5\r\n"
                                         "AO-91;70cm;2m;FM;67.0\r\nAO-92;70cm;2m;FM;67.0\r\n"));
    }

    // A line of the file, as satellite mode shows it once chosen ("-" when the readers
    // leave it out), and the frequency it gives ("nada" when none).
    void lineaYFrecuencia_data()
    {
        QTest::addColumn<QString>("linea");
        QTest::addColumn<QString>("subida");
        QTest::addColumn<QString>("frecuencia");
        QTest::newRow("base 70cm") << "AO-7;70cm;2m;SSB;100.4"
                                   << "Subida: 70cm |SubTono: 100.4"
                                   << "435.550";
        QTest::newRow("base 2m") << "FO-29;2m;70cm;SSB; "
                                 << "Subida: 2m |SubTono:  "
                                 << "145.550";
        QTest::newRow("sin blanco") << "LILACSAT-2;2m;70cm;SSB;"
                                    << "Subida: 2m |SubTono: "
                                    << "145.550";
        QTest::newRow("editada") << "X;70cm;2m;FM;67.0;435.100"
                                 << "Subida: 70cm 435.100|SubTono: 67.0"
                                 << "435.100";
        QTest::newRow("editada sin frecuencia") << "X;2m;70cm;FM; ; "
                                                << "Subida: 2m  |SubTono:  "
                                                << "145.550";
        QTest::newRow("23cm") << "X;23cm;70cm;FM; ;1267.100"
                              << "Subida: 23cm 1267.100|SubTono:  "
                              << "126..10";
        QTest::newRow("23cm sin frecuencia") << "X;23cm;70cm;FM; ; "
                                             << "Subida: 23cm  |SubTono:  "
                                             << ".";
        QTest::newRow("campo de más") << "X;2m;70cm;FM;67.0;145.800;x"
                                      << "Subida: 2m 145.800;x|SubTono: 67.0"
                                      << "145.800";
        QTest::newRow("corta") << "X;2m;70cm;FM"
                               << "-"
                               << "nada";
        QTest::newRow("enorme") << u"X;2m;70cm;FM;"_s + QString(300, u'9') << "-"
                                << "nada";
    }

    void lineaYFrecuencia()
    {
        QFETCH(QString, linea);
        const std::optional<Satelite> s = LeerSatelite(linea);
        const RotulosSatelite r = s ? RotulosElegido(*s) : RotulosSatelite{};
        QTEST(s ? r.subida + u'|' + r.subtono : u"-"_s, "subida");
        // What the load of the list writes, with no blank, never moves the frequency.
        if (s)
            QVERIFY(!ValorDeSubida(RotulosDeCarga(*s).subida));
        const std::optional<FrecuenciaSubida> f = ValorDeSubida(r.subida);
        QTEST(f ? f->mhz + u'.' + f->khz : u"nada"_s, "frecuencia");
    }
};

QTEST_GUILESS_MAIN(TestSatelites)
#include "test_satelites.moc"
