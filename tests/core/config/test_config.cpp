// SPDX-License-Identifier: GPL-3.0-or-later
// config.ini with its scrambled passwords, and the memory files of the main window.

#include "core/config/ClaveConfig.h"
#include "core/config/Configuracion.h"
#include "core/config/Memoria.h"
#include "core/nationallog/EscapeLbN.h"
#include "core/platform/ArchivoTexto.h"
#include "support/Semilla.h"

#include <QFile>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>

namespace {

// Every field away from its default, in the order of the struct (Estacion to TDespues),
// odd characters in the passwords.
// clang-format off
const Configuracion Completa = {"lu1abc", "LU2DEF/P", "-3", "FF55AB", "yo@ejemplo.com.ar",
    "clave 100% & más", 1, 1, "lu1abc", "Ñandú€)~", "lbn", "x=y;z", "eqsl", "p \u0081\u009d",
    "/home/op/cq ñ.wav", "COM3", 1, "200", "500"};
// clang-format on

using B = QByteArray;

bool Escribir(const QString &archivo, const QByteArray &bytes)
{
    QFile f(archivo);
    return f.open(QIODevice::WriteOnly) && f.write(bytes) == bytes.size();
}

} // namespace

class TestConfig : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // The passwords' scrambling: codes are added to the key's ('z' with X X 9 Q Z k 4 7 t, then X
    // again), wrapping by 255: a sum of exactly 255 stays, and 255 scrambles to the key character
    // itself. Any text of codes 1 to 255 comes back, 255 included, with its length.
    void claveConfig()
    {
        const auto cifrar = [](const QByteArray &t, int modo) {
            return A1252(ClaveConfig(De1252(t), ClaveTextoConfig(), modo));
        };
        QCOMPARE(cifrar("zzzzzzzzzz", 0), QByteArray("\xd2\xd2\xb3\xcb\xd4\xe5\xae\xb1\xee\xd2"));
        QCOMPARE(cifrar("\xc8\xa7\xff", 0), QByteArray("!\xff\x39"));
        QCOMPARE(cifrar("abc", 1), QByteArray());
        QRandomGenerator azar(Semilla());
        for (int vuelta = 0; vuelta < 2000; ++vuelta) {
            QByteArray codigos(azar.bounded(1, 40), Qt::Uninitialized);
            for (char &c : codigos)
                c = static_cast<char>(azar.bounded(1, 256));
            const QByteArray cifrado = cifrar(codigos, kModoCifrar);
            QCOMPARE(cifrado.size(), codigos.size());
            QCOMPARE(cifrar(cifrado, kModoDescifrar), codigos);
        }
        // The national log's escape: one already in the text is escaped again, and only
        // the reserved characters are.
        QCOMPARE(EscaparLbN("%26!*'();:@&=+$,/?#[] ñ~"),
                 QStringLiteral("%2526%21%2A%27%28%29%3B%3A%40%26%3D%2B%24%2C%2F%3F%23%5B%5D ñ~"));
    }

    // Written: the keys in their order, the callsigns upper-cased, three passwords
    // scrambled; read back as it was. With no log in use, the initial one is named.
    void idaYVuelta()
    {
        QTemporaryDir dir;
        const QString archivo = dir.filePath(QStringLiteral("config.ini"));
        QString log = QStringLiteral("Concurso 'Día'");
        QVERIFY(GuardarConfiguracion(archivo, Completa, log));
        const QStringList lineas = LeerLineas(archivo).ValorO({});
        QCOMPARE(lineas.size(), ClavesConfiguracion().size());
        for (qsizetype i = 0; i < lineas.size(); ++i)
            QVERIFY2(lineas[i].startsWith(ClavesConfiguracion()[i]), qPrintable(lineas[i]));
        QVERIFY(!lineas[10].contains(QStringLiteral("Ñandú")));
        Configuracion leida;
        QString logLeido;
        LeerConfiguracion(archivo, leida, logLeido);
        Configuracion esperada = Completa;
        esperada.Estacion = QStringLiteral("LU1ABC");
        QCOMPARE(leida, esperada);
        QCOMPARE(logLeido, log);
        log.clear();
        QVERIFY(!GuardarConfiguracion(dir.filePath("falta/config.ini"), Completa, log));
        QCOMPARE(log, LogInicial());
    }

    // What the file brings over what the window held: the lines of config.ini that then
    // differ, '|' between them. Every read sets the grid, empty when the file has none.
    void archivosRaros_data()
    {
        QTest::addColumn<QByteArray>("contenido"); // null: no file at all
        QTest::addColumn<QString>("cambios");
        QTest::newRow("sin archivo: ni la grilla") << B() << "GridLoca=FF55AB";
        QTest::newRow("clave dentro") << B("xxEstacion=LU1\r\n") << "Estacion=N=LU1";
        QTest::newRow("LF") << B("Estacion=LU5X\nLogenUso=Otro") << "Estacion=LU5X|LogenUso=Otro";
        // Keys are case-sensitive; an empty Puerto, TAntes, TDespues or Pantalla keeps.
        QTest::newRow("nada cambia")
            << QByteArrayLiteral("estacion=LU1\r\nPuerto  =\r\nTAntes  =\r\n"
                                 "\0\xff\xfe\x81\r\r\n\x1a\x9d\0\0\nTDespues=\nPantalla=")
            << "";
        QTest::newRow("PinPTT 2 es DTR") << B("PinPTT  =2\r\n") << "PinPTT  =0";
        QTest::newRow("NoBorrar enorme") << B("NoBorrar=99999999999999") << "NoBorrar=1000000000";
        QTest::newRow("largos") << "Operador=" + B(150, 'A') + "\nArcAudio=" + B(1500, 'a')
                                << "Operador=" + QString(100, u'A') +
                                       "|ArcAudio=" + QString(1000, u'a');
    }

    void archivosRaros()
    {
        QFETCH(QByteArray, contenido);
        QTemporaryDir dir;
        const QString archivo = dir.filePath(QStringLiteral("config.ini"));
        QVERIFY(contenido.isNull() || Escribir(archivo, contenido));
        Configuracion c = Completa, antes = Completa;
        QString log = QStringLiteral("Previo");
        LeerConfiguracion(archivo, c, log);
        antes.GridLoca.clear();
        const QStringList previas = LineasConfiguracion(antes, QStringLiteral("Previo"));
        QStringList cambios = LineasConfiguracion(c, log);
        cambios.removeIf([&](const QString &linea) { return previas.contains(linea); });
        QTEST(cambios.join(u'|'), "cambios");
    }

    // The files as "name=content" ('|' for a line end), and what the main window is told:
    // mem.ini first (650 kHz without it), then the satellite, then each .cfg file.
    void memoria_data()
    {
        QTest::addColumn<QStringList>("archivos");
        QTest::addColumn<QString>("restaurado");
        QTest::newRow("sin archivos") << QStringList{} << "-.650 - qtr=- sat=- modo=- via=-";
        QTest::newRow("sin punto")
            << QStringList{"mem.ini=7150|40m| 1 |"} << "-.715 40m qtr=1 sat=- modo=- via=-";
        QTest::newRow("los cfg ganan")
            << QStringList{"mem.ini=7.150|40m|0|", "memMhz.cfg=14|",   "memKhz.cfg=200|",
                           "memModo.cfg=PSK31|",   "memqSat.cfg= 1 |", "memsat.ini=AO-91|x|"}
            << "14.200 40m qtr=0 sat=AO-91 modo=PSK31 via=1";
        QTest::newRow("vacios") << QStringList{"memMhz.cfg=", "memModo.cfg=|", "memqSat.cfg=x"}
                                << "-.650 - qtr=- sat=- modo= via=0";
    }

    void memoria()
    {
        QFETCH(QStringList, archivos);
        QTemporaryDir dir;
        for (const QString &a : archivos)
            QVERIFY(Escribir(dir.filePath(a.section(u'=', 0, 0)),
                             A1252(a.section(u'=', 1).replace(u'|', "\r\n"))));
        const MemoriaRestaurada m = RestaurarMemoria(dir.path());
        const auto t = [](const std::optional<QString> &v) { return v.value_or("-"); };
        const auto n = [](const std::optional<int> &v) { return v ? QString::number(*v) : "-"; };
        const QStringList campos{t(m.mhz) + "." + t(m.khz), t(m.banda),
                                 "qtr=" + n(m.check1),      "sat=" + t(m.satelite),
                                 "modo=" + t(m.modo),       "via=" + n(m.check2)};
        QTEST(campos.join(u' '), "restaurado");
    }
};

QTEST_GUILESS_MAIN(TestConfig)
#include "test_config.moc"
