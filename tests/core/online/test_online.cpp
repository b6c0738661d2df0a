// SPDX-License-Identifier: GPL-3.0-or-later
// The version check over a real connection to the loopback server.

#include "core/online/Actualizaciones.h"
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
        const QString beta = u"2.1.03 (Beta)"_s, su = u"! Su versión: 2.1.03 (Beta)/en la Web: "_s;
        QTest::newRow("al día") << 200 << QByteArray("2.1.03\r\n") << beta
                                << su + u"2.1.03//está actualizado"_s;
        QTest::newRow("tercera") << 200 << QByteArray("2.1.04\nnotas\n") << beta
                                 << su + u"2.1.04//debe actualizar!"_s;
        QTest::newRow("cada número por sí")
            << 200 << QByteArray("2.1.03") << u"2.2.01"_s
            << "! Su versión: 2.2.01/en la Web: 2.1.03//debe actualizar!";
        QTest::newRow("segunda sola") << 200 << QByteArray("2.1.03") << u"2.0.09"_s
                                      << "! Su versión: 2.0.09/en la Web: 2.1.03//debe actualizar!";
        QTest::newRow("primera sola") << 200 << QByteArray("2.1.03") << u"1.9.09"_s
                                      << "! Su versión: 1.9.09/en la Web: 2.1.03//debe actualizar!";
        QTest::newRow("un punto") << 200 << QByteArray("2.1") << beta << "";
        QTest::newRow("vacía") << 200 << QByteArray() << beta << "";
        QTest::newRow("página HTML")
            << 200 << QByteArray("<!DOCTYPE html>\n<p>2.1.04</p>") << beta << "";
        QTest::newRow("enorme") << 200 << QByteArray("2.1.04\r\n") + QByteArray(4 << 20, 'x')
                                << beta << su + u"2.1.04//debe actualizar!"_s;
        QTest::newRow("línea enorme")
            << 200 << QByteArray("2.1.0") + QByteArray(100, '9') << beta
            << su + u"2.1.0"_s + QString(55, u'9') + u"\u2026//debe actualizar!"_s;
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
};

QTEST_GUILESS_MAIN(TestOnline)
#include "test_online.moc"
