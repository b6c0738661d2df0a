// The desktop services that need no windows: the web client over a loopback server, the
// decoding of pages, the service addresses and the serial lines.

#include "core/platform/ClienteWebQt.h"
#include "core/platform/DireccionesWeb.h"
#include "core/platform/LineaSerieQt.h"
#include "support/ServidorHttpPrueba.h"

#include <QFile>
#include <QPointer>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <optional>

using Resultado = RespuestaWeb::Resultado;

namespace {

// One GET run to its answer; nothing when no answer came at all.
std::optional<RespuestaWeb> Obtener(ClienteWeb &cliente, const QUrl &url, int tiempoMaximoMs = 5000)
{
    QSignalSpy espia(&cliente, &ClienteWeb::Respondido);
    const quint64 numero = cliente.Pedir(url, tiempoMaximoMs);
    if (espia.isEmpty() && !espia.wait(tiempoMaximoMs + 5000))
        return std::nullopt;
    const auto args = espia.takeFirst();
    if (args.at(0).value<quint64>() != numero)
        return std::nullopt;
    return args.at(1).value<RespuestaWeb>();
}

} // namespace

class TestPlataforma : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void clienteWeb_data();
    void clienteWeb();
    void clienteWebConsultaIntacta();
    void decodificarCuerpo_data();
    void decodificarCuerpo();
    void dispositivoDePuerto();
};

// ---- ClienteWebQt over the loopback server ------------------------------------------

void TestPlataforma::clienteWeb_data()
{
    // 0: the server accepts and never answers; -1: nobody listens on the port.
    QTest::addColumn<int>("estado");
    QTest::addColumn<QByteArray>("tipo");
    QTest::addColumn<QByteArray>("cuerpo");
    QTest::addColumn<Resultado>("resultado");
    QTest::addColumn<QString>("texto");
    // The declared charset wins, even over bytes that would read as UTF-8.
    QTest::newRow("Latin-1 declarado")
        << 200 << QByteArray("text/html; charset=ISO-8859-1") << QByteArray("C\xc3\xb3rdoba")
        << Resultado::Bien << QStringLiteral("C\u00c3\u00b3rdoba");
    // An error status is a failure even with a page; the page still comes along.
    QTest::newRow("404") << 404 << QByteArray("text/html") << QByteArray("No existe")
                         << Resultado::Fallo << QStringLiteral("No existe");
    QTest::newRow("sin servidor") << -1 << QByteArray() << QByteArray() << Resultado::Fallo
                                  << QString();
    QTest::newRow("sin respuesta")
        << 0 << QByteArray() << QByteArray() << Resultado::TiempoAgotado << QString();
}

void TestPlataforma::clienteWeb()
{
    QFETCH(int, estado);
    QFETCH(QByteArray, tipo);
    QFETCH(QByteArray, cuerpo);
    const QString ruta = QStringLiteral("/pagina.asp?x=1");
    ServidorHttpPrueba servidor;
    servidor.Responder(ruta, {estado, tipo, cuerpo});
    servidor.Callar(estado == 0);
    QUrl url = servidor.Direccion(ruta);
    if (estado < 0) {
        ServidorHttpPrueba cerrado; // a port that was free a moment ago
        url = cerrado.Direccion(ruta);
    }
    ClienteWebQt cliente;
    const auto r = Obtener(cliente, url, estado == 0 ? 300 : 5000);
    QVERIFY(r);
    QTEST(r->resultado, "resultado");
    QTEST(r->texto, "texto");
    // A time-out is the server's silence: the request did reach it.
    QCOMPARE(servidor.pedidos.size(), estado < 0 ? 0 : 1);
}

void TestPlataforma::clienteWebConsultaIntacta()
{
    // What the caller escaped reaches the server byte for byte: a '/' of a callsign, an
    // '&' and a '+' inside a value, spaces and an 'ñ'.
    const QByteArray consulta = "/lbn/subir.asp?call=LU1AA%2FP&obs=Hola%20%26%20chau%2B1"
                                "&qth=Ca%C3%B1uelas";
    ServidorHttpPrueba servidor;
    servidor.ResponderPrefijo(QStringLiteral("/lbn/"), QByteArray("OK"));
    ClienteWebQt cliente;
    const auto r =
        Obtener(cliente, QUrl::fromEncoded(servidor.Base().toUtf8() + consulta, QUrl::StrictMode));
    QVERIFY(r);
    QCOMPARE(r->texto, QStringLiteral("OK"));
    QCOMPARE(servidor.pedidos.size(), 1);
    QCOMPARE(servidor.pedidos.first().crudo, consulta);
    QCOMPARE(servidor.pedidos.first().decodificado,
             QStringLiteral("/lbn/subir.asp?call=LU1AA/P&obs=Hola & chau+1&qth=Cañuelas"));
}

// ---- Page decoding ------------------------------------------------------------------

void TestPlataforma::decodificarCuerpo_data()
{
    QTest::addColumn<QByteArray>("tipo");
    QTest::addColumn<QByteArray>("cuerpo");
    QTest::addColumn<QString>("texto");
    const QByteArray utf8 = "Se\xc3\xb1"
                            "al";
    const QByteArray latino = "Se\xf1"
                              "al";
    const QString senal = QStringLiteral("Señal");
    // What a declared Latin-1 makes of the UTF-8 bytes: the declaration wins.
    const QString declarado = QStringLiteral("Se\u00c3\u00b1al");
    const QByteArray xml = "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>";
    QTest::newRow("charset desconocido")
        << QByteArray("text/plain; charset=x-inventado") << utf8 << senal;
    QTest::newRow("latino entre comillas")
        << QByteArray("TEXT/HTML; CHARSET=\"ISO-8859-1\"") << utf8 << declarado;
    QTest::newRow("meta de la página")
        << QByteArray() << "<meta charset=latin1>" + utf8 << "<meta charset=latin1>" + declarado;
    QTest::newRow("declaración XML") << QByteArray("text/xml") << xml + utf8 << xml + declarado;
    // Bytes that cannot be UTF-8 are an old page that said nothing.
    QTest::newRow("latino sin declarar") << QByteArray("text/html") << latino << senal;
    // Pages that say Latin-1 mean Windows-1252: the curly quotes and the euro are meant.
    QTest::newRow("comillas de Windows")
        << QByteArray("text/html; charset=iso-8859-1") << QByteArray("\x93QSL\x94 \x80")
        << QStringLiteral("\u201cQSL\u201d \u20ac");
}

void TestPlataforma::decodificarCuerpo()
{
    QFETCH(QByteArray, tipo);
    QFETCH(QByteArray, cuerpo);
    QTEST(DecodificarCuerpo(cuerpo, tipo), "texto");
}

// ---- Service addresses --------------------------------------------------------------

// ---- Serial lines -------------------------------------------------------------------

// "COMn" is /dev/ttyS<n-1>; anything else is taken as the device itself.
void TestPlataforma::dispositivoDePuerto()
{
    QStringList dispositivos;
    for (const char *puerto : {"COM1", "com20", "COM0", "COM3A", "/dev/ttyUSB0", ""})
        dispositivos << DispositivoDePuerto(puerto);
    QCOMPARE(dispositivos,
             QStringList({"/dev/ttyS0", "/dev/ttyS19", "COM0", "COM3A", "/dev/ttyUSB0", ""}));
}

QTEST_GUILESS_MAIN(TestPlataforma)
#include "test_plataforma.moc"
