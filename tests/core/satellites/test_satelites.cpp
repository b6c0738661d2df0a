// The satellite catalogue file, the editor's frequency rules, and the uplink frequency that
// satellite mode reads back from its caption.

#include "core/satellites/Catalogo.h"
#include "core/satellites/EdicionSatelites.h"
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
        QTest::newRow("vacía") << ""
                               << "-"
                               << "nada";
        QTest::newRow("sin nombre") << " ;2m;70cm;FM;"
                                    << "-"
                                    << "nada";
        QTest::newRow("binaria") << u"X;2m;70cm;FM;\u0000\u0081"_s << "-"
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

    // A frequency field as it is left: the message's lines joined by "/", empty if it passes.
    void frecuencias_data()
    {
        QTest::addColumn<QString>("frecuencia");
        QTest::addColumn<QString>("banda");
        QTest::addColumn<QString>("mensaje");
        const QString formato = u"El formato de la frecuencia es://MMM.KKK"_s;
        QTest::newRow("2m") << "145.990"
                            << "2m"
                            << "";
        QTest::newRow("2m sólo MHz enteros") << "148.999"
                                             << "2m"
                                             << "";
        QTest::newRow("2m fuera") << "143.999"
                                  << "2m"
                                  << "La frecuencia es 143.999/No es de la banda de 2m!";
        QTest::newRow("70cm") << "145.990"
                              << "70cm"
                              << "La frecuencia es 145.990/No es de la banda de 70m!";
        QTest::newRow("70cm borde") << "440.999"
                                    << "70cm"
                                    << "";
        QTest::newRow("23cm") << "1267.100"
                              << "23cm"
                              << "";
        QTest::newRow("23cm fuera") << "1268.100"
                                    << "23cm"
                                    << "La frecuencia es 1268.100/No es de la banda de satélites "
                                       "en 23cm!/debe estar en 1267MHz";
        QTest::newRow("23cm sin punto") << "1267"
                                        << "23cm"
                                        << "En 23 cm, el formato de la frecuencia es://MMMM.KKK";
        QTest::newRow("corta") << "145.99"
                               << "2m" << formato;
        QTest::newRow("sin punto") << "1459900"
                                   << "2m" << formato;
        QTest::newRow("vacía") << ""
                               << "70cm"
                               << "";
    }

    void frecuencias()
    {
        QFETCH(QString, frecuencia);
        QFETCH(QString, banda);
        QTEST(RevisarFrecuencia(frecuencia, banda).replace("\r\n"_L1, "/"_L1), "mensaje");
    }

    // Changes keep the lines the readers leave out, and a last line without its line end.
    void cambiosConservanLoDemas()
    {
        QTemporaryDir carpeta;
        QFile f(ArchivoSatelites(carpeta.path()));
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write(
            "corta;2m\r\nAO-7;70cm;2m;SSB;100.4\nSO-50;2m;70cm;FM;67.0\r\n\x01\x02\r\nFO-29;2m");
        f.close();
        const Satelite nuevo{"AO-100", "2m", "70cm", "FM", "", "145.850"};
        QVERIFY(AgregarSatelite(carpeta.path(), nuevo));
        QVERIFY(ReemplazarSatelite(carpeta.path(), "AO-7", {"AO-7", "70cm", "2m", "SSB", "", ""}));
        QVERIFY(EliminarSatelite(carpeta.path(), "SO-50"));
        QVERIFY(f.open(QIODevice::ReadOnly));
        QCOMPARE(f.readAll(),
                 QByteArray("corta;2m\r\nAO-7;70cm;2m;SSB; ; \r\n\x01\x02\r\nFO-29;2m\r\n"
                            "AO-100;2m;70cm;FM; ;145.850\r\n"));
        const Resultado<> perdido = EliminarSatelite(carpeta.path(), "SO-50");
        QVERIFY(perdido.Mensaje().startsWith(u"El satélite SO-50 ya no está en "_s));
    }
};

QTEST_GUILESS_MAIN(TestSatelites)
#include "test_satelites.moc"
