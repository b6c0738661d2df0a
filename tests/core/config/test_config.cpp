// The files of the configuration: Windows-1252 text, config.ini with its scrambled
// passwords, and the memory files of the main window.

#include "core/config/ClaveConfig.h"
#include "core/config/Configuracion.h"
#include "core/config/Memoria.h"
#include "core/nationallog/EscapeLbN.h"
#include "core/platform/ArchivoTexto.h"
#include "support/ContextoPrueba.h"
#include "support/Semilla.h"

#include <QDir>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>

Q_DECLARE_METATYPE(Configuracion)

namespace {

// Every field away from its default, odd characters in the passwords.
Configuracion Completa()
{
    return Configuracion{.Estacion = "LU1ABC",
                         .Operador = "LU2DEF/P",
                         .DiferUTC = "-3",
                         .GridLoca = "FF55AB",
                         .UserLbN = "yo@ejemplo.com.ar",
                         .PassLbN = "clave 100% & más",
                         .NoBorrar = 1,
                         .Pantalla = 1,
                         .HAMQuser = "lu1abc",
                         .HAMQpass = "Ñandú€)~",
                         .LBNQuser = "lbn",
                         .LBNQpass = "x=y;z",
                         .eQSLuser = "eqsl",
                         .eQSLpass = QStringLiteral("p \u0081\u009d"),
                         .ArcAudio = "/home/op/cq ñ.wav",
                         .Puerto = "COM3",
                         .PinPTT = 1,
                         .TAntes = "200",
                         .TDespues = "500"};
}

QString Mostrar(const MemoriaRestaurada &m)
{
    const auto t = [](const std::optional<QString> &v) { return v.value_or("-"); };
    const auto n = [](const std::optional<int> &v) { return v ? QString::number(*v) : "-"; };
    return QStringLiteral("%1.%2 %3 qtr=%4 sat=%5 modo=%6 via=%7")
        .arg(t(m.mhz), t(m.khz), t(m.banda), n(m.check1), t(m.satelite), t(m.modo), n(m.check2));
}

bool EscribirBytes(const QString &archivo, const QByteArray &bytes)
{
    QFile f(archivo);
    return f.open(QIODevice::WriteOnly) && f.write(bytes) == bytes.size();
}

} // namespace

class TestConfig : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void claveConfig_data();
    void claveConfig();
    void claveConfigIdaYVuelta();
    void escaparLbN();
    void configuracionIdaYVuelta();
    void configuracionArchivosRaros_data();
    void configuracionArchivosRaros();
    void memoriaRestaurar_data();
    void memoriaRestaurar();
};

void TestConfig::claveConfig_data()
{
    QTest::addColumn<QByteArray>("texto");
    QTest::addColumn<int>("modo");
    QTest::addColumn<QByteArray>("esperado");
    // 'z' with X X 9 Q Z k 4 7 t, then X again for the tenth.
    QTest::newRow("diez") << QByteArray("zzzzzzzzzz") << 0
                          << QByteArray("\xd2\xd2\xb3\xcb\xd4\xe5\xae\xb1\xee\xd2");
    QTest::newRow("vuelta por 255") << QByteArray("\xc8") << 0 << QByteArray("!");
    QTest::newRow("suma 255 queda") << QByteArray("\xa7") << 0 << QByteArray("\xff");
    // Code 255 scrambles to the key character, which must come back as 255, not as a 0
    // that no text can hold: the round trip below holds it to that.
    QTest::newRow("255 cifra a la clave") << QByteArray("\xff") << 0 << QByteArray("X");
    QTest::newRow("modo 1") << QByteArray("abc") << 1 << QByteArray();
}

void TestConfig::claveConfig()
{
    QFETCH(QByteArray, texto);
    QFETCH(int, modo);
    QFETCH(QByteArray, esperado);
    QCOMPARE(A1252(ClaveConfig(De1252(texto), ClaveTextoConfig(), modo)), esperado);
}

void TestConfig::claveConfigIdaYVuelta()
{
    QRandomGenerator azar(Semilla());
    for (int vuelta = 0; vuelta < 2000; ++vuelta) {
        QByteArray codigos(azar.bounded(1, 40), Qt::Uninitialized);
        for (char &c : codigos)
            c = static_cast<char>(azar.bounded(1, 256)); // every code from 1 to 255
        const QString texto = De1252(codigos);
        const QString cifrado = ClaveConfig(texto, ClaveTextoConfig(), kModoCifrar);
        QCOMPARE(cifrado.size(), texto.size());
        QCOMPARE(ClaveConfig(cifrado, ClaveTextoConfig(), kModoDescifrar), texto);
    }
}

void TestConfig::escaparLbN()
{
    QCOMPARE(EscaparLbN("a%26& ñ~"), QStringLiteral("a%2526%26 ñ~"));
    QCOMPARE(EscaparLbN("%!*'();:@&=+$,/?#[]"),
             QStringLiteral("%25%21%2A%27%28%29%3B%3A%40%26%3D%2B%24%2C%2F%3F%23%5B%5D"));
}

void TestConfig::configuracionIdaYVuelta()
{
    ContextoPrueba prueba;
    const QString archivo = prueba.Archivo(QStringLiteral("config.ini"));
    Configuracion c = Completa();
    c.Estacion = QStringLiteral("lu1abc");
    QString log = QStringLiteral("Concurso 'Día'");
    // An older, longer file is replaced whole.
    QVERIFY(prueba.Escribir(QStringLiteral("config.ini"), QByteArray(5000, 'z')));
    QVERIFY(GuardarConfiguracion(archivo, c, log));

    QList<QByteArray> lineas = prueba.Leer(QStringLiteral("config.ini")).split('\n');
    QCOMPARE(lineas.takeLast(), QByteArray());
    QCOMPARE(lineas.size(), 20);
    for (qsizetype i = 0; i < lineas.size(); ++i)
        QVERIFY2(lineas[i].startsWith(ClavesConfiguracion()[i].toLatin1()) &&
                     lineas[i].endsWith('\r'),
                 lineas[i].constData());
    QCOMPARE(lineas[0], QByteArray("Estacion=LU1ABC\r"));
    QCOMPARE(lineas[6], QByteArray("PassLbN_=clave 100% & m\xe1s\r"));
    QVERIFY(!lineas[10].contains("\xd1"
                                 "and"));

    Configuracion leida;
    QString logLeido;
    LeerConfiguracion(archivo, leida, logLeido);
    c.Estacion = QStringLiteral("LU1ABC");
    QCOMPARE(leida, c);
    QCOMPARE(logLeido, log);
    // A folder that is not there: nothing written, and the caller is told in Spanish.
    const QString falta = prueba.Archivo("falta/config.ini");
    QVERIFY(GuardarConfiguracion(falta, c, log)
                .Mensaje()
                .startsWith(QStringLiteral("No se pudo guardar el archivo %1.\r\n\r\n")
                                .arg(QDir::toNativeSeparators(falta))));
}

void TestConfig::configuracionArchivosRaros_data()
{
    QTest::addColumn<QByteArray>("contenido"); // null: no file at all
    QTest::addColumn<Configuracion>("esperada");
    QTest::addColumn<QString>("logEsperado");
    // What the window held; every read sets the grid, empty when the file has none.
    Configuracion antes = Completa();
    antes.GridLoca.clear();
    const auto fila = [&](const char *nombre, const QByteArray &contenido,
                          const std::function<void(Configuracion &)> &cambio,
                          const QString &log = QStringLiteral("Previo")) {
        Configuracion c = antes;
        cambio(c);
        QTest::newRow(nombre) << contenido << c << log;
    };
    const auto nada = [](Configuracion &) {};

    fila("sin archivo: ni la grilla", QByteArray(),
         [](Configuracion &c) { c.GridLoca = Completa().GridLoca; });
    fila("clave dentro de una linea", "xxEstacion=LU1ABC\r\n",
         [](Configuracion &c) { c.Estacion = "n=LU1ABC"; });
    fila(
        "corto, solo lf", "Estacion=LU5X\nLogenUso=Otro",
        [](Configuracion &c) { c.Estacion = "LU5X"; }, "Otro");
    fila("mayusculas importan", "estacion=LU1ABC\r\n", nada);
    fila("vacios quedan", "Puerto  =\r\nTAntes  =\r\nTDespues=\r\nPantalla=\r\n", nada);
    fila("pinptt 2", "PinPTT  =2\r\n", [](Configuracion &c) { c.PinPTT = 0; });
    fila("noborrar enorme", "NoBorrar=99999999999999\r\n",
         [](Configuracion &c) { c.NoBorrar = 1000000000; });
    fila("150 se corta a 100", "Operador=" + QByteArray(150, 'A'),
         [](Configuracion &c) { c.Operador = QString(100, u'A'); });
    fila("audio hasta 1000", "ArcAudio=" + QByteArray(1500, 'a'),
         [](Configuracion &c) { c.ArcAudio = QString(1000, u'a'); });
    fila("basura binaria", QByteArray("\0\xff\xfe\x81\r\r\n\x1a\x9d\0\0", 11), nada);
    fila("clave sola al final", "LogenUso=", nada, QString());
}

void TestConfig::configuracionArchivosRaros()
{
    QFETCH(QByteArray, contenido);
    QFETCH(Configuracion, esperada);
    QFETCH(QString, logEsperado);
    QTemporaryDir dir;
    const QString archivo = dir.filePath(QStringLiteral("config.ini"));
    if (!contenido.isNull())
        QVERIFY(EscribirBytes(archivo, contenido));
    Configuracion c = Completa();
    QString log = QStringLiteral("Previo");
    LeerConfiguracion(archivo, c, log);
    QCOMPARE(c, esperada);
    QCOMPARE(log, logEsperado);
}

void TestConfig::memoriaRestaurar_data()
{
    QTest::addColumn<QStringList>("archivos"); // name, content, name, content, …
    QTest::addColumn<QString>("esperado");
    const auto fila = [](const char *nombre, const QStringList &archivos, const char *esperado) {
        QTest::newRow(nombre) << archivos << QString::fromUtf8(esperado);
    };
    fila("sin archivos", {}, "-.650 - qtr=- sat=- modo=- via=-");
    fila("mem.ini", {"mem.ini", "7.150\r\n40m\r\n 1 \r\n\r\n"},
         "7.150 40m qtr=1 sat=- modo=- via=-");
    fila("sin punto", {"mem.ini", "7150\r\n40m\r\n0\r\n"}, "-.715 40m qtr=0 sat=- modo=- via=-");
    fila("corto", {"mem.ini", "3.650"}, "3.650 - qtr=- sat=- modo=- via=-");
    fila("los cfg ganan",
         {"mem.ini", "7.150\r\n40m\r\n0\r\n", "memMhz.cfg", "14\r\n", "memKhz.cfg", "200\r\n",
          "memModo.cfg", "PSK31\r\n", "memqSat.cfg", " 1 \r\n", "memsat.ini", "AO-91\r\nx\r\n"},
         "14.200 40m qtr=0 sat=AO-91 modo=PSK31 via=1");
    fila("vacios", {"memMhz.cfg", "", "memModo.cfg", "\r\n", "memqSat.cfg", "x", "memsat.ini", ""},
         "-.650 - qtr=- sat=- modo= via=0");
}

void TestConfig::memoriaRestaurar()
{
    QFETCH(QStringList, archivos);
    QFETCH(QString, esperado);
    QTemporaryDir dir;
    for (qsizetype i = 0; i + 1 < archivos.size(); i += 2)
        QVERIFY(EscribirBytes(dir.filePath(archivos[i]), A1252(archivos[i + 1])));
    QCOMPARE(Mostrar(RestaurarMemoria(dir.path())), esperado);
}

QTEST_GUILESS_MAIN(TestConfig)
#include "test_config.moc"
