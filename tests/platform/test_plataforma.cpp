// The desktop services that need no windows: the web client over a loopback server, the
// decoding of pages, the service addresses, the serial lines, and the fakes every other
// test leans on.

#include "platform/ClienteWebQt.h"
#include "platform/DireccionesWeb.h"
#include "platform/LineaSerieQt.h"
#include "support/ContextoPrueba.h"
#include "support/ServidorHttpPrueba.h"

#include <QFile>
#include <QPointer>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <optional>

using Resultado = RespuestaWeb::Resultado;
using Tipo = LlamadaDialogo::Tipo;

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

// Runs the event loop for a while, so that anything still pending gets its chance.
void Dejar(int ms)
{
    QTest::qWait(ms);
}

} // namespace

class TestPlataforma : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void clienteWeb_data();
    void clienteWeb();
    void clienteWebTiempoAgotado();
    void clienteWebSinServidor();
    void clienteWebConsultaIntacta();
    void clienteWebVariosPedidos();
    void clienteWebBorradoConPedidosEnCurso();
    void clienteWebBorradoAlResponder();

    void decodificarCuerpo_data();
    void decodificarCuerpo();

    void direccionesWeb_data();
    void direccionesWeb();

    void dispositivoDePuerto_data();
    void dispositivoDePuerto();
    void lineaSerieQueNoAbre_data();
    void lineaSerieQueNoAbre();

    void dialogosFalso();
    void clienteWebFalso();
    void lineaSerieFalsa();
    void escritorioYBombaFalsos();
    void reproductorFalso();
    void contextoPrueba();
};

// ---- ClienteWebQt over the loopback server ------------------------------------------

void TestPlataforma::clienteWeb_data()
{
    QTest::addColumn<int>("estado");
    QTest::addColumn<QByteArray>("tipo");
    QTest::addColumn<QByteArray>("cuerpo");
    QTest::addColumn<Resultado>("resultado");
    QTest::addColumn<QString>("texto");

    QTest::newRow("UTF-8") << 200 << QByteArray("text/plain; charset=utf-8")
                           << QByteArray("Se\xc3\xb1"
                                         "al LU1AA")
                           << Resultado::Bien << QStringLiteral("Señal LU1AA");
    QTest::newRow("Latin-1 declarado")
        << 200 << QByteArray("text/html; charset=ISO-8859-1") << QByteArray("C\xf3rdoba")
        << Resultado::Bien << QStringLiteral("Córdoba");
    QTest::newRow("sin charset") << 200 << QByteArray("text/plain") << QByteArray("2.1.04")
                                 << Resultado::Bien << QStringLiteral("2.1.04");
    QTest::newRow("vacía") << 200 << QByteArray("text/plain") << QByteArray() << Resultado::Bien
                           << QString();
    // An error status is a failure even with a page; the page still comes along.
    QTest::newRow("404") << 404 << QByteArray("text/html") << QByteArray("No existe")
                         << Resultado::Fallo << QStringLiteral("No existe");
    QTest::newRow("500") << 500 << QByteArray("text/html") << QByteArray("Error ASP")
                         << Resultado::Fallo << QStringLiteral("Error ASP");
}

void TestPlataforma::clienteWeb()
{
    QFETCH(int, estado);
    QFETCH(QByteArray, tipo);
    QFETCH(QByteArray, cuerpo);
    QFETCH(Resultado, resultado);
    QFETCH(QString, texto);

    ServidorHttpPrueba servidor;
    QVERIFY(servidor.Escuchando());
    servidor.Responder(QStringLiteral("/pagina.asp?x=1"), {estado, tipo, cuerpo});
    ClienteWebQt cliente;
    const auto r = Obtener(cliente, servidor.Direccion(QStringLiteral("/pagina.asp?x=1")));
    QVERIFY(r);
    QCOMPARE(r->resultado, resultado);
    QCOMPARE(r->texto, texto);
    QCOMPARE(servidor.pedidos.size(), 1);
    QCOMPARE(servidor.pedidos.first().metodo, QStringLiteral("GET"));
}

void TestPlataforma::clienteWebTiempoAgotado()
{
    ServidorHttpPrueba servidor;
    servidor.Callar(true);
    ClienteWebQt cliente;
    const auto r = Obtener(cliente, servidor.Direccion(QStringLiteral("/lento")), 300);
    QVERIFY(r);
    QCOMPARE(r->resultado, Resultado::TiempoAgotado);
    QVERIFY(r->texto.isEmpty());
    // The request did reach the server: the time-out is the server's silence.
    QCOMPARE(servidor.pedidos.size(), 1);
}

void TestPlataforma::clienteWebSinServidor()
{
    quint16 puerto = 0;
    {
        ServidorHttpPrueba cerrado; // a port that was free a moment ago
        puerto = cerrado.PuertoTcp();
    }
    ClienteWebQt cliente;
    const auto r = Obtener(cliente, QUrl(QStringLiteral("http://127.0.0.1:%1/x").arg(puerto)));
    QVERIFY(r);
    QCOMPARE(r->resultado, Resultado::Fallo);

    const auto malo = Obtener(cliente, QUrl(QStringLiteral("nada://sin/esquema/conocido")));
    QVERIFY(malo);
    QCOMPARE(malo->resultado, Resultado::Fallo);
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

void TestPlataforma::clienteWebVariosPedidos()
{
    // Answers come in any order; each carries the number of its own request.
    ServidorHttpPrueba servidor;
    servidor.Responder(QStringLiteral("/a"), QByteArray("uno"));
    servidor.Responder(QStringLiteral("/b"), QByteArray("dos"));
    ClienteWebQt cliente;
    QHash<quint64, QString> textos;
    connect(&cliente, &ClienteWeb::Respondido, this,
            [&](quint64 n, const RespuestaWeb &r) { textos.insert(n, r.texto); });
    const quint64 a = cliente.Pedir(servidor.Direccion(QStringLiteral("/a")));
    const quint64 b = cliente.Pedir(servidor.Direccion(QStringLiteral("/b")));
    const quint64 c = cliente.Pedir(servidor.Direccion(QStringLiteral("/c")));
    QVERIFY(a != b && b != c && a != c);
    QTRY_COMPARE(textos.size(), 3);
    QCOMPARE(textos.value(a), QStringLiteral("uno"));
    QCOMPARE(textos.value(b), QStringLiteral("dos"));
    QCOMPARE(textos.value(c), QStringLiteral("No encontrado"));
    Dejar(50);
    QCOMPARE(textos.size(), 3); // exactly one answer each
}

void TestPlataforma::clienteWebBorradoConPedidosEnCurso()
{
    ServidorHttpPrueba servidor;
    servidor.Callar(true);
    auto *cliente = new ClienteWebQt;
    int respuestas = 0;
    connect(cliente, &ClienteWeb::Respondido, this, [&] { ++respuestas; });
    cliente->Pedir(servidor.Direccion(QStringLiteral("/uno")), 200);
    cliente->Pedir(servidor.Direccion(QStringLiteral("/dos")), 200);
    QVERIFY(servidor.EsperarPedidos(2));
    delete cliente;
    Dejar(400); // past the time-outs of both requests
    QCOMPARE(respuestas, 0);
}

void TestPlataforma::clienteWebBorradoAlResponder()
{
    // A window that closes on its answer deletes the client inside the answer itself.
    ServidorHttpPrueba servidor;
    servidor.Responder(QStringLiteral("/a"), QByteArray("uno"));
    QPointer<ClienteWebQt> cliente = new ClienteWebQt;
    int respuestas = 0;
    connect(cliente, &ClienteWeb::Respondido, this, [&] {
        ++respuestas;
        delete cliente.data();
    });
    cliente->Pedir(servidor.Direccion(QStringLiteral("/a")));
    cliente->Pedir(servidor.Direccion(QStringLiteral("/a")));
    QTRY_VERIFY(cliente.isNull());
    Dejar(50);
    QCOMPARE(respuestas, 1);
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
    QTest::newRow("utf-8 declarado")
        << QByteArray("text/html; charset=utf-8") << utf8 << QStringLiteral("Señal");
    QTest::newRow("nada declarado") << QByteArray("text/html") << utf8 << QStringLiteral("Señal");
    QTest::newRow("charset entre comillas")
        << QByteArray("text/html; charset=\"ISO-8859-1\"") << latino << QStringLiteral("Señal");
    QTest::newRow("mayúsculas en la cabecera")
        << QByteArray("TEXT/HTML; CHARSET=LATIN1") << latino << QStringLiteral("Señal");
    // Pages that say Latin-1 and mean Windows-1252: the curly quotes are quotes.
    QTest::newRow("latin-1 con comillas de Windows")
        << QByteArray("text/html; charset=iso-8859-1") << QByteArray("\x93QSL\x94 \x80")
        << QStringLiteral("\u201cQSL\u201d \u20ac");
    QTest::newRow("windows-1252") << QByteArray("text/plain;charset=windows-1252")
                                  << QByteArray("\x96 5\xba") << QStringLiteral("\u2013 5º");
    QTest::newRow("meta de la página")
        << QByteArray()
        << QByteArray("<html><meta charset=\"iso-8859-1\">Se\xf1"
                      "al")
        << QStringLiteral("<html><meta charset=\"iso-8859-1\">Señal");
    QTest::newRow("declaración XML")
        << QByteArray("text/xml")
        << QByteArray("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><a>Se\xf1"
                      "al</a>")
        << QStringLiteral("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><a>Señal</a>");
    // Bytes that cannot be UTF-8 are an old page that said nothing.
    QTest::newRow("latino sin declarar")
        << QByteArray("text/html") << latino << QStringLiteral("Señal");
    QTest::newRow("latino declarado utf-8")
        << QByteArray("text/html; charset=utf-8") << latino << QStringLiteral("Señal");
    QTest::newRow("BOM de UTF-8") << QByteArray("text/plain") << QByteArray("\xef\xbb\xbf") + utf8
                                  << QStringLiteral("Señal");
    QTest::newRow("charset desconocido")
        << QByteArray("text/plain; charset=x-inventado") << utf8 << QStringLiteral("Señal");
}

void TestPlataforma::decodificarCuerpo()
{
    QFETCH(QByteArray, tipo);
    QFETCH(QByteArray, cuerpo);
    QFETCH(QString, texto);
    QCOMPARE(DecodificarCuerpo(cuerpo, tipo), texto);
}

// ---- Service addresses --------------------------------------------------------------

void TestPlataforma::direccionesWeb_data()
{
    QTest::addColumn<bool>("existe");
    QTest::addColumn<QByteArray>("contenido");
    QTest::addColumn<QString>("lbn");
    QTest::addColumn<QString>("qrz");
    QTest::addColumn<QString>("sitio");

    const auto d = DireccionesWeb::PorDefecto();
    QTest::newRow("sin archivo") << false << QByteArray() << d.LbN << d.QRZ << d.Sitio;
    QTest::newRow("archivo vacío") << true << QByteArray() << d.LbN << d.QRZ << d.Sitio;
    QTest::newRow("una clave, barra final")
        << true << QByteArray("LbN=http://127.0.0.1:8080/\r\n")
        << QStringLiteral("http://127.0.0.1:8080") << d.QRZ << d.Sitio;
    QTest::newRow("varias, LF, espacios y mayúsculas")
        << true
        << QByteArray("  lbn = http://espejo/lbn//\nQRZ=https://qrz.espejo\nSITIO=http://s\n")
        << QStringLiteral("http://espejo/lbn") << QStringLiteral("https://qrz.espejo")
        << QStringLiteral("http://s");
    QTest::newRow("basura alrededor")
        << true
        << QByteArray("[servicios]\r\n; comentario\r\nsin igual\r\n=http://sin.clave\r\n"
                      "Otro=http://x\r\nQRZ=http://q\r\n")
        << d.LbN << QStringLiteral("http://q") << d.Sitio;
    QTest::newRow("valor vacío conserva el de siempre")
        << true << QByteArray("LbN=\r\nSitio=  /  \r\n") << d.LbN << d.QRZ << d.Sitio;
}

void TestPlataforma::direccionesWeb()
{
    QFETCH(bool, existe);
    QFETCH(QByteArray, contenido);
    QTemporaryDir carpeta;
    const QString archivo = carpeta.filePath(QStringLiteral("servicios.ini"));
    if (existe) {
        QFile f(archivo);
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write(contenido);
    }
    const auto d = DireccionesWeb::Leer(archivo);
    QTEST(d.LbN, "lbn");
    QTEST(d.QRZ, "qrz");
    QTEST(d.Sitio, "sitio");
    QCOMPARE(d.HamQTH, DireccionesWeb::PorDefecto().HamQTH);
}

// ---- Serial lines -------------------------------------------------------------------

void TestPlataforma::dispositivoDePuerto_data()
{
    QTest::addColumn<QString>("puerto");
    QTest::addColumn<QString>("dispositivo");
    QTest::newRow("COM1") << "COM1"
                          << "/dev/ttyS0";
    QTest::newRow("COM20") << "COM20"
                           << "/dev/ttyS19";
    QTest::newRow("minúsculas") << "com3"
                                << "/dev/ttyS2";
    QTest::newRow("COM0 no es un puerto") << "COM0"
                                          << "COM0";
    QTest::newRow("COM sin número") << "COM"
                                    << "COM";
    QTest::newRow("COM3A") << "COM3A"
                           << "COM3A";
    QTest::newRow("dispositivo real") << "/dev/ttyUSB0"
                                      << "/dev/ttyUSB0";
    QTest::newRow("NINGUNO") << "NINGUNO"
                             << "NINGUNO";
    QTest::newRow("vacío") << ""
                           << "";
}

void TestPlataforma::dispositivoDePuerto()
{
    QFETCH(QString, puerto);
    QTEST(DispositivoDePuerto(puerto), "dispositivo");
}

void TestPlataforma::lineaSerieQueNoAbre_data()
{
    QTest::addColumn<QString>("puerto");
    QTest::newRow("no existe") << "/dev/radiolog-no-existe";
    QTest::newRow("no es un puerto serie") << "/dev/null";
    QTest::newRow("NINGUNO") << "NINGUNO";
    QTest::newRow("vacío") << "";
}

void TestPlataforma::lineaSerieQueNoAbre()
{
    QFETCH(QString, puerto);
    LineaSerieQt linea;
    QVERIFY(!linea.Abrir(puerto));
    QVERIFY(!linea.Abierta());
    QCOMPARE(linea.Puerto(), puerto);
    // A line that did not open takes the keying calls and does nothing.
    linea.PonerDTR(true);
    linea.PonerRTS(true);
    linea.Cerrar();
    QVERIFY(!linea.Abierta());
}

// ---- The fakes ----------------------------------------------------------------------

void TestPlataforma::dialogosFalso()
{
    DialogosFalso d;
    // With no script, the cautious answers.
    QVERIFY(!d.PreguntaSiNo(QStringLiteral("¿Borrar?")));
    QVERIFY(!d.AceptarCancelar(QStringLiteral("¿Seguir?")));
    QVERIFY(!d.Entrada(QStringLiteral("Nombre"), {}, QStringLiteral("Log1")));
    QVERIFY(d.AbrirArchivo(QStringLiteral("Abrir"), QStringLiteral("/c"), QStringLiteral("*.adi"))
                .isEmpty());

    d.Limpiar();
    d.respuestasSiNo << true << false;
    d.entradas << QStringLiteral("Concurso") << std::nullopt;
    d.archivosGuardar << QStringLiteral("/tmp/a.adi");
    QStringList vistos;
    d.alLlegar = [&](const LlamadaDialogo &l) {
        vistos << QString::fromLatin1(NombreTipo(l.tipo));
    };

    d.Exclamacion(QStringLiteral("Falta la señal"));
    QVERIFY(d.PreguntaSiNo(QStringLiteral("¿Borrar?"), QStringLiteral("Borrar")));
    QVERIFY(!d.PreguntaSiNo(QStringLiteral("¿Borrar otra?")));
    QVERIFY(!d.PreguntaSiNo(QStringLiteral("¿Y otra?"))); // the queue ran out: No
    QCOMPARE(d.Entrada(QStringLiteral("Nombre")),
             std::optional<QString>(QStringLiteral("Concurso")));
    QCOMPARE(d.Entrada(QStringLiteral("Nombre")), std::nullopt);
    QCOMPARE(d.GuardarArchivo(QStringLiteral("Guardar"), QStringLiteral("/home"),
                              QStringLiteral("ADIF (*.adi)")),
             QStringLiteral("/tmp/a.adi"));
    d.Alto(QStringLiteral("No se puede"));

    QCOMPARE(d.llamadas.size(), 8);
    QCOMPARE(vistos.size(), 8);
    QCOMPARE(vistos.first(), QStringLiteral("Exclamacion"));
    QCOMPARE(d.Cantidad(Tipo::PreguntaSiNo), 3);
    QCOMPARE(d.llamadas.at(1).titulo, QStringLiteral("Borrar"));
    QCOMPARE(d.llamadas.at(6).extra, QStringLiteral("/home"));
    QCOMPARE(d.llamadas.at(6).texto, QStringLiteral("ADIF (*.adi)"));
    QCOMPARE(d.Textos(Tipo::Alto), QStringList{QStringLiteral("No se puede")});
    QCOMPARE(d.llamadas.last().tipo, Tipo::Alto);
    QCOMPARE(d.UltimoTexto(), QStringLiteral("No se puede"));

    // The callback may answer the question that just arrived.
    d.alLlegar = [&](const LlamadaDialogo &l) {
        if (l.texto.contains(QStringLiteral("LU1AA")))
            d.respuestasSiNo.enqueue(true);
    };
    QVERIFY(d.PreguntaSiNo(QStringLiteral("¿Borra LU1AA?")));
    QVERIFY(!d.PreguntaSiNo(QStringLiteral("¿Borra LU2BB?")));
}

void TestPlataforma::clienteWebFalso()
{
    ClienteWebFalso web;
    web.Responder(QStringLiteral("/version.txt"), QStringLiteral("2.1.04"));
    web.Responder(QStringLiteral("/q.asp?call=LU1AA"), QStringLiteral("uno"));
    web.Responder(QStringLiteral("http://otro/q.asp?call=LU1AA"), QStringLiteral("entera"));
    web.AgotarTiempo(QStringLiteral("/lento"));
    web.NuncaResponder(QStringLiteral("/nunca"));

    QList<QPair<quint64, RespuestaWeb>> respuestas;
    connect(&web, &ClienteWeb::Respondido, this, [&](quint64 n, const RespuestaWeb &r) {
        respuestas.append({n, r});
    });

    const quint64 a = web.Pedir(QUrl(QStringLiteral("http://x/version.txt?v=2")));
    const quint64 b = web.Pedir(QUrl(QStringLiteral("http://x/q.asp?call=LU1AA")));
    const quint64 c = web.Pedir(QUrl(QStringLiteral("http://otro/q.asp?call=LU1AA")));
    web.Pedir(QUrl(QStringLiteral("http://x/lento")));
    web.Pedir(QUrl(QStringLiteral("http://x/nunca")));
    web.Pedir(QUrl(QStringLiteral("http://x/desconocida")));
    QVERIFY(respuestas.isEmpty()); // like the real one: never before Pedir returns
    QTRY_COMPARE(respuestas.size(), 5);
    Dejar(20);
    QCOMPARE(respuestas.size(), 5);

    QCOMPARE(respuestas.at(0).first, a);
    QCOMPARE(respuestas.at(0).second.texto, QStringLiteral("2.1.04")); // by bare path
    QCOMPARE(respuestas.at(1).first, b);
    QCOMPARE(respuestas.at(1).second.texto, QStringLiteral("uno"));
    QCOMPARE(respuestas.at(2).first, c);
    QCOMPARE(respuestas.at(2).second.texto, QStringLiteral("entera")); // the whole address first
    QCOMPARE(respuestas.at(3).second.resultado, Resultado::TiempoAgotado);
    QCOMPARE(respuestas.at(4).second.resultado, Resultado::Fallo);
    QCOMPARE(web.Direcciones().size(), 6);
    QCOMPARE(web.Direcciones().at(4), QStringLiteral("http://x/nunca"));

    web.sincronico = true;
    respuestas.clear();
    web.Pedir(QUrl(QStringLiteral("http://x/version.txt")));
    QCOMPARE(respuestas.size(), 1);
}

void TestPlataforma::lineaSerieFalsa()
{
    LineaSerieFalsa linea;
    linea.puertosQueFallan << QStringLiteral("COM3");
    QVERIFY(!linea.Abrir(QStringLiteral("com3")));
    QVERIFY(!linea.Abierta());
    linea.PonerDTR(true); // closed: nothing happens
    QVERIFY(linea.Abrir(QStringLiteral("COM4")));
    linea.PonerRTS(true);
    linea.PonerRTS(false);
    linea.PonerDTR(true);
    QVERIFY(linea.dtr);
    linea.Cerrar();
    QCOMPARE(linea.aperturas, (QStringList{QStringLiteral("com3"), QStringLiteral("COM4")}));
    QCOMPARE(linea.historial,
             (QStringList{QStringLiteral("RTS1"), QStringLiteral("RTS0"), QStringLiteral("DTR1")}));
    QCOMPARE(linea.cierres, 1);
    QVERIFY(!linea.dtr);
}

void TestPlataforma::escritorioYBombaFalsos()
{
    EscritorioFalso escritorio;
    QVERIFY(escritorio.Abrir(QStringLiteral("http://www.qrz.com/db/LU1AA")));
    escritorio.exito = false;
    QVERIFY(!escritorio.IniciarPrograma(QStringLiteral("tordos"), {QStringLiteral("LU1AA$59")},
                                        QStringLiteral("/opt")));
    QCOMPARE(escritorio.abiertos, QStringList{QStringLiteral("http://www.qrz.com/db/LU1AA")});
    QCOMPARE(escritorio.programas.size(), 1);
    QCOMPARE(escritorio.programas.first().argumentos, QStringList{QStringLiteral("LU1AA$59")});
    QCOMPARE(escritorio.programas.first().carpetaTrabajo, QStringLiteral("/opt"));

    // By default a pump runs what is pending, as the real one does; it can be held back.
    BombaFalsa bomba;
    int pendientes = 0;
    int pasos = 0;
    bomba.alBombear = [&] { ++pasos; };
    QTimer::singleShot(0, this, [&] { ++pendientes; });
    bomba.procesarEventos = false;
    bomba.Bombear();
    QCOMPARE(pendientes, 0);
    bomba.procesarEventos = true;
    bomba.Bombear();
    QCOMPARE(pendientes, 1);
    QCOMPARE(bomba.llamadas, 2);
    QCOMPARE(pasos, 2);
}

void TestPlataforma::reproductorFalso()
{
    ReproductorFalso r;
    r.longitud = 4200;
    r.archivosQueFallan << QStringLiteral("/no/cq.wav");
    QVERIFY(!r.AbrirArchivo(QStringLiteral("/no/cq.wav")));
    QCOMPARE(r.Longitud(), 0);
    QVERIFY(r.AbrirArchivo(QStringLiteral("/sonidos/cq.wav")));
    QCOMPARE(r.Longitud(), 4200);
    r.Reproducir();
    QCOMPARE(r.ModoActual(), Reproductor::Modo::Reproduciendo);
    QSignalSpy estado(&r, &Reproductor::Estado);
    QSignalSpy fin(&r, &Reproductor::Terminado);
    r.EmitirEstado(1000);
    r.Terminar();
    QCOMPARE(estado.size(), 1);
    QCOMPARE(estado.first().at(0).toLongLong(), 1000);
    QCOMPARE(fin.size(), 1);
    QCOMPARE(r.ModoActual(), Reproductor::Modo::Detenido);
    QCOMPARE(r.ordenes,
             (QStringList{QStringLiteral("Abrir /no/cq.wav"),
                          QStringLiteral("Abrir /sonidos/cq.wav"), QStringLiteral("Reproducir")}));
}

void TestPlataforma::contextoPrueba()
{
    ServidorHttpPrueba servidor;
    ContextoPrueba prueba(servidor.Base());
    // The context reads servicios.ini at birth: every service points at the server.
    QCOMPARE(prueba->direcciones().LbN, servidor.Base());
    QCOMPARE(prueba->direcciones().AMSAT, servidor.Base());
    QVERIFY(prueba.Archivo(QStringLiteral("x.cfg")).startsWith(prueba.Carpeta()));
    QCOMPARE(prueba->Carpeta(), prueba.Carpeta());

    // The context's services are the fakes the test holds.
    prueba->dialogos().Exclamacion(QStringLiteral("Hola"));
    QCOMPARE(prueba.falsos.dialogos->UltimoTexto(), QStringLiteral("Hola"));
    prueba->puertoCW().Abrir(QStringLiteral("COM2"));
    QVERIFY(prueba.falsos.puertoCW->Abierta());
    QVERIFY(!prueba.falsos.puertoPTT->Abierta());
    prueba.falsos.reloj->Avanzar(90'000);
    QCOMPARE(prueba->reloj().Ahora().time(), QTime(14, 31, 30));

    QVERIFY(prueba.Escribir(QStringLiteral("mem.ini"), QByteArray("LU1AA\r\n")));
    QCOMPARE(prueba.Leer(QStringLiteral("mem.ini")), QByteArray("LU1AA\r\n"));

    // Through the real client, servicios.ini leads the program's requests to the server.
    servidor.Responder(QStringLiteral("/version.txt"), QByteArray("2.1.04"));
    ContextoPrueba real(servidor.Base(), true);
    QVERIFY(!real.falsos.web);
    const auto r =
        Obtener(real->web(), QUrl(real->direcciones().Sitio + QStringLiteral("/version.txt")));
    QVERIFY(r);
    QCOMPARE(r->texto, QStringLiteral("2.1.04"));

    ContextoPrueba sinServidor;
    QCOMPARE(sinServidor->direcciones().LbN, DireccionesWeb::PorDefecto().LbN);
    QVERIFY(sinServidor.Carpeta() != prueba.Carpeta());
}

QTEST_GUILESS_MAIN(TestPlataforma)
#include "test_plataforma.moc"
