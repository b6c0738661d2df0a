// The version check and the presence messages, over a real connection to the loopback
// server.

#include "core/online/Actualizaciones.h"
#include "core/online/Presencia.h"
#include "core/platform/ClienteWebQt.h"
#include "support/ServidorHttpPrueba.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

class TestOnline : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // estado: the site's HTTP status, 0 for a site that never answers and -1 for no site at
    // all. caja: "!" for the exclamation box, "Alto" for the stop box and its reason,
    // nothing for silence; line ends as "/".
    void version_data()
    {
        QTest::addColumn<int>("estado");
        QTest::addColumn<QByteArray>("cuerpo");
        QTest::addColumn<QString>("propia");
        QTest::addColumn<QString>("caja");
        const QString beta = u"2.1.03 (Beta)"_s;
        QTest::newRow("al día")
            << 200 << QByteArray("2.1.03\r\n") << beta
            << "! Su versión: 2.1.03 (Beta)/en la Web: 2.1.03//está actualizado";
        QTest::newRow("tercera")
            << 200 << QByteArray("2.1.04\nnotas\n") << beta
            << "! Su versión: 2.1.03 (Beta)/en la Web: 2.1.04//debe actualizar!";
        QTest::newRow("segunda")
            << 200 << QByteArray("2.2.00") << beta
            << "! Su versión: 2.1.03 (Beta)/en la Web: 2.2.00//debe actualizar!";
        QTest::newRow("primera")
            << 200 << QByteArray("3.0.00") << beta
            << "! Su versión: 2.1.03 (Beta)/en la Web: 3.0.00//debe actualizar!";
        // Each number on its own: a newer second number does not save an older third.
        QTest::newRow("cada número por sí")
            << 200 << QByteArray("2.1.03") << u"2.2.01"_s
            << "! Su versión: 2.2.01/en la Web: 2.1.03//debe actualizar!";
        QTest::newRow("más nueva")
            << 200 << QByteArray("1.0.02") << beta
            << "! Su versión: 2.1.03 (Beta)/en la Web: 1.0.02//está actualizado";
        QTest::newRow("un punto") << 200 << QByteArray("2.1") << beta << "";
        QTest::newRow("vacía") << 200 << QByteArray() << beta << "";
        QTest::newRow("página HTML")
            << 200 << QByteArray("<!DOCTYPE html>\n<p>2.1.04</p>") << beta << "";
        QTest::newRow("enorme")
            << 200 << QByteArray("2.1.04\r\n") + QByteArray(4 << 20, 'x') << beta
            << "! Su versión: 2.1.03 (Beta)/en la Web: 2.1.04//debe actualizar!";
        QTest::newRow("línea enorme") << 200 << QByteArray("2.1.0") + QByteArray(100, '9') << beta
                                      << "! Su versión: 2.1.03 (Beta)/en la Web: 2.1.0" +
                                             QString(55, u'9') + u"\u2026//debe actualizar!"_s;
        const QString alto = u"Alto No se pudo consultar la versión publicada en la Web.//"_s;
        QTest::newRow("404") << 404 << QByteArray("<h1>No</h1>") << beta
                             << alto + "El sitio 127.0.0.1 respondió con el error 404.";
        QTest::newRow("sin respuesta")
            << 0 << QByteArray() << beta << alto + "El sitio 127.0.0.1 no respondió a tiempo.";
        QTest::newRow("sin sitio")
            << -1 << QByteArray() << beta << alto + "No se pudo conectar con el sitio 127.0.0.1.";
    }

    void version()
    {
        QFETCH(int, estado);
        QFETCH(QByteArray, cuerpo);
        QFETCH(QString, propia);
        ServidorHttpPrueba servidor;
        servidor.Responder(ChequeoVersion::Ruta(), {estado, "text/plain", cuerpo});
        servidor.Callar(estado == 0);
        // With no server, a port that was free a moment ago.
        const QString base = estado < 0 ? ServidorHttpPrueba().Base() : servidor.Base();
        QTemporaryDir carpeta;
        ClienteWebQt cliente;
        ChequeoVersion chequeo(cliente, base, carpeta.path(), propia, 500);
        std::optional<QString> caja;
        chequeo.Consultar([&caja](const Resultado<QString> &r) {
            caja = r ? (r->isEmpty() ? QString() : u"! "_s + *r) : u"Alto "_s + r.Mensaje();
        });
        // One check at a time.
        chequeo.Consultar([](const Resultado<QString> &) { QFAIL("dos respuestas"); });
        QTRY_VERIFY_WITH_TIMEOUT(caja.has_value(), 5000);
        QTEST(caja->replace("\r\n"_L1, "/"_L1), "caja");
        if (estado >= 0)
            QCOMPARE(servidor.pedidos.value(0).crudo, QByteArray("/assets/radiolog/version.dat"));
        if (estado == 200) {
            // The scratch copy: the reply as it came, in the program's own line ends.
            QFile webo(carpeta.filePath(u"webo.txt"_s));
            QVERIFY(webo.open(QIODevice::ReadOnly));
            QCOMPARE(webo.readAll(), cuerpo + "\r\n");
        }
    }

    // The presence messages as a browser sends them: blanks escaped, the slash of a
    // callsign and the brackets of the version as they are. The site's root goes first.
    void presencia_data()
    {
        QTest::addColumn<QString>("senal");
        QTest::addColumn<QString>("comando");
        QTest::addColumn<QString>("pedidos");
        QTest::newRow("on") << "LU1AAA/P"
                            << "on"
                            << "/ / /carancho.php?qrz=LU1AAA/P&prog=Carancho%20Radiolog%202"
                               "&ver=2.1.03%20(Beta)&comando=on";
        QTest::newRow("off") << "lu9dce"
                             << "off"
                             << "/ / /carancho.php?qrz=lu9dce&prog=Carancho%20Radiolog%202"
                                "&ver=2.1.03%20(Beta)&comando=off";
        QTest::newRow("sin señal") << ""
                                   << "on"
                                   << "/ /";
    }

    void presencia()
    {
        QFETCH(QString, senal);
        QFETCH(QString, comando);
        QFETCH(QString, pedidos);
        ServidorHttpPrueba servidor;
        servidor.Callar(true); // the answer is never read anyway
        ClienteWebQt cliente;
        Presencia presencia(cliente, servidor.Base(), u"2.1.03 (Beta)"_s);
        presencia.Visitar();
        QCOMPARE(presencia.Avisar(senal, comando), !senal.isEmpty());
        const QStringList esperados = pedidos.split(u' ');
        QVERIFY(servidor.EsperarPedidos(int(esperados.size())));
        QTest::qWait(50); // nothing more comes
        QStringList vistos;
        for (const auto &p : servidor.pedidos)
            vistos << QString::fromLatin1(p.crudo);
        vistos.sort();
        QCOMPARE(vistos, esperados);
    }
};

QTEST_GUILESS_MAIN(TestOnline)
#include "test_online.moc"
