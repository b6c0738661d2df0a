// SPDX-License-Identifier: GPL-3.0-or-later
// The desktop services that need no windows: the text files, the web client over a
// loopback server, the decoding of pages and the serial lines. The service addresses are
// read by every test that points the services at a loopback server.

#include "core/platform/ArchivoTexto.h"
#include "core/platform/ClienteWebQt.h"
#include "core/platform/LineaSerieQt.h"
#include "support/ServidorHttpPrueba.h"

#include <QDir>
#include <QFile>
#include <QPointer>
#include <QSet>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using Estado = RespuestaWeb::Resultado;
using B = QByteArray;

namespace {

bool Escribir(const QString &archivo, const QByteArray &bytes)
{
    QFile f(archivo);
    return f.open(QIODevice::WriteOnly) && f.write(bytes) == bytes.size();
}

} // namespace

class TestPlataforma : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // Every byte comes back, the five undefined ones too; what 1252 cannot hold is '?'.
    // Read: CRLF or LF, a CR inside a line kept, a last line without its end; written with
    // CRLF after every line, and a line end at the very end starts no other line. A
    // failure is told in Spanish with the file's name.
    void archivoTexto()
    {
        QByteArray todos;
        for (int b = 0; b < 256; ++b)
            todos += static_cast<char>(b);
        QCOMPARE(A1252(De1252(todos)), todos);
        QCOMPARE(A1252("\u0142\u0080"), QByteArray("??"));
        QTemporaryDir dir;
        const QString archivo = dir.filePath(QStringLiteral("a.txt"));
        QVERIFY(Escribir(archivo, "a\r\n\x80\xf1\x81\nb\rc\r\r\n\r\nd"));
        QCOMPARE(LeerLineas(archivo).ValorO({}), QStringList({"a", "€ñ\u0081", "b\rc\r", "", "d"}));
        const QStringList lineas{"€ñ", "", "x"};
        QVERIFY(EscribirLineas(archivo, lineas));
        QCOMPARE(LeerLineas(archivo).ValorO({}), lineas);
        QFile f(archivo);
        QVERIFY(f.open(QIODevice::ReadOnly));
        QCOMPARE(f.readAll(), QByteArray("\x80\xf1\r\n\r\nx\r\n"));
        const QString falta = QDir::toNativeSeparators(dir.filePath(QStringLiteral("falta/a")));
        QCOMPARE(LeerLineas(falta).Mensaje(), "No existe el archivo " + falta + ".");
        const QString guardar = EscribirLineas(falta, {"x"}).Mensaje();
        QVERIFY2(guardar.startsWith("No se pudo guardar el archivo " + falta + ".\r\n\r\n"),
                 qPrintable(guardar));
    }

    // 0: the server accepts and never answers; -1: nobody listens on the port. The path
    // and query reach the server byte for byte as the caller escaped them.
    void clienteWeb_data()
    {
        QTest::addColumn<int>("estado");
        QTest::addColumn<QByteArray>("ruta");
        QTest::addColumn<QByteArray>("cuerpo");
        QTest::addColumn<Estado>("resultado");
        QTest::addColumn<QString>("texto");
        QTest::newRow("consulta intacta")
            << 200 << B("/s.asp?call=LU1AA%2FP&obs=a%20%26%20b%2B1&qth=Ca%C3%B1uelas")
            << B("C\xc3\xb3rdoba") << Estado::Bien << QStringLiteral("C\u00c3\u00b3rdoba");
        // An error status is a failure even with a page; the page still comes along.
        QTest::newRow("404") << 404 << B("/a") << B("No existe") << Estado::Fallo << "No existe";
        QTest::newRow("sin servidor") << -1 << B("/a") << B() << Estado::Fallo << QString();
        QTest::newRow("sin respuesta") << 0 << B("/a") << B() << Estado::TiempoAgotado << QString();
    }

    void clienteWeb()
    {
        QFETCH(int, estado);
        QFETCH(QByteArray, ruta);
        QFETCH(QByteArray, cuerpo);
        ServidorHttpPrueba servidor;
        // The declared charset wins, even over bytes that would read as UTF-8.
        servidor.Responder(QString::fromLatin1(ruta),
                           {estado, "text/html; charset=ISO-8859-1", cuerpo});
        servidor.Callar(estado == 0);
        // With no server, a port that was free a moment ago.
        const QString base = estado < 0 ? ServidorHttpPrueba().Base() : servidor.Base();
        const QUrl url = QUrl::fromEncoded(base.toUtf8() + ruta, QUrl::StrictMode);
        // Two requests at once: each answer carries the number of its own request.
        ClienteWebQt cliente;
        QSignalSpy espia(&cliente, &ClienteWeb::Respondido);
        const quint64 a = cliente.Pedir(url, estado ? 5000 : 300),
                      b = cliente.Pedir(url, estado ? 5000 : 300);
        QTRY_COMPARE_WITH_TIMEOUT(espia.size(), 2, 10000);
        QCOMPARE((QSet{espia[0][0].value<quint64>(), espia[1][0].value<quint64>()}), (QSet{a, b}));
        for (const QList<QVariant> &args : espia) {
            QTEST(args[1].value<RespuestaWeb>().resultado, "resultado");
            QTEST(args[1].value<RespuestaWeb>().texto, "texto");
        }
        // A time-out is the server's silence: the requests did reach it, byte for byte.
        QCOMPARE(servidor.pedidos.size(), estado < 0 ? 0 : 2);
        if (estado >= 0)
            QCOMPARE(servidor.pedidos[1].crudo, ruta);
    }

    void clienteWebBorrado()
    {
        // Deleted with requests in flight: no answer ever comes, not even at the time-out.
        ServidorHttpPrueba servidor;
        servidor.Callar(true);
        int respuestas = 0;
        auto *callado = new ClienteWebQt;
        connect(callado, &ClienteWeb::Respondido, this, [&] { ++respuestas; });
        callado->Pedir(servidor.Direccion(QStringLiteral("/uno")), 200);
        callado->Pedir(servidor.Direccion(QStringLiteral("/dos")), 200);
        QVERIFY(servidor.EsperarPedidos(2));
        delete callado;
        QTest::qWait(400);
        QCOMPARE(respuestas, 0);
        // A window that closes on its answer deletes the client inside the answer itself.
        servidor.Callar(false);
        servidor.Responder(QStringLiteral("/a"), QByteArray("uno"));
        QPointer<ClienteWebQt> cliente = new ClienteWebQt;
        connect(cliente, &ClienteWeb::Respondido, this, [&] {
            ++respuestas;
            delete cliente.data();
        });
        cliente->Pedir(servidor.Direccion(QStringLiteral("/a")));
        cliente->Pedir(servidor.Direccion(QStringLiteral("/a")));
        QTRY_VERIFY(cliente.isNull());
        QTest::qWait(50);
        QCOMPARE(respuestas, 1);
    }

    void decodificarCuerpo_data()
    {
        QTest::addColumn<QByteArray>("tipo");
        QTest::addColumn<QByteArray>("cuerpo");
        QTest::addColumn<QString>("texto");
        const B utf8 = "Se\xc3\xb1", xml = "<?xml encoding='l1'?>", meta = "<meta charset=l1>";
        // What a declared Latin-1 makes of the UTF-8 bytes: the declaration wins.
        const QString senal = QStringLiteral("Se\u00f1"), latino = QStringLiteral("Se\u00c3\u00b1");
        QTest::newRow("comillas") << B("TEXT/HTML; CHARSET=\"ISO-8859-1\"") << utf8 << latino;
        QTest::newRow("meta") << B() << meta + utf8 << meta + latino;
        QTest::newRow("xml") << B("text/xml") << xml + utf8 << xml + latino;
        // Bytes that cannot be UTF-8 are an old page that said nothing.
        QTest::newRow("sin declarar") << B("text/html") << B("Se\xf1!") << senal + "!";
        QTest::newRow("byte suelto al final") << B("text/plain") << B("Se\xf1") << senal;
        // Pages that say Latin-1 mean Windows-1252: the curly quotes and the euro are meant.
        QTest::newRow("Windows") << B("charset=latin1") << B("\x93QSL\x94 \x80")
                                 << "\u201cQSL\u201d \u20ac";
    }

    void decodificarCuerpo()
    {
        QFETCH(QByteArray, tipo);
        QFETCH(QByteArray, cuerpo);
        QTEST(DecodificarCuerpo(cuerpo, tipo), "texto");
    }

    // "COMn" is /dev/ttyS<n-1>, anything else the device itself; a port that does not open
    // leaves the line closed and the keying calls do nothing.
    void lineasSerie()
    {
        QCOMPARE(DispositivoDePuerto("com20"), QStringLiteral("/dev/ttyS19"));
        QCOMPARE(DispositivoDePuerto("COM3A"), QStringLiteral("COM3A"));
        for (const QString &puerto : QStringList{"/dev/radiolog-no-existe", "/dev/null", ""}) {
            LineaSerieQt linea;
            QVERIFY2(!linea.Abrir(puerto) && linea.Puerto() == puerto, qPrintable(puerto));
            linea.PonerDTR(true);
            linea.PonerRTS(true);
            QVERIFY(!linea.Abierta());
        }
    }
};

QTEST_GUILESS_MAIN(TestPlataforma)
#include "test_plataforma.moc"
