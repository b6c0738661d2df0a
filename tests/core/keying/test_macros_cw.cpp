// SPDX-License-Identifier: GPL-3.0-or-later
// The serial of "F2-Serie", the settings files of the Morse key read and written, and the
// port choice of the key line: lines off before closing, a failure with its reason.
#include "core/keying/AjustesCW.h"
#include "core/keying/LlaveCW.h"
#include "core/keying/MacrosCW.h"
#include "support/LineaSerieFalsa.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

class TestMacrosCW : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void serie_data()
    {
        QTest::addColumn<QString>("rse");
        QTest::addColumn<bool>("incremental");
        QTest::addColumn<bool>("cortados");
        QTest::addColumn<QString>("serie");
        QTest::newRow("7") << "7" << true << false << "007";
        QTest::newRow("90 cortado") << "90" << true << true << "TNT";
        QTest::newRow("100 con un 0") << "100" << true << false << "0100";
        QTest::newRow("fija como esta") << "XE" << false << false << "XE";
        QTest::newRow("fija cortada") << "09" << false << true << "TN";
    }

    void serie()
    {
        QFETCH(QString, rse);
        QFETCH(bool, incremental);
        QFETCH(bool, cortados);
        const CamposMacroCW c{u"LU9DCE"_qs, u"LU1ABC"_qs, rse, incremental, cortados};
        QFETCH(QString, serie);
        QCOMPARE(TextoMacroCW(1, c), "LU1ABC 5NN " + serie + " 5NN " + serie);
    }

    // varCW.cfg and varOsc.cfg as found (absent: null), and what the window gets.
    void leerAjustes_data()
    {
        QTest::addColumn<QByteArray>("varCW");
        QTest::addColumn<QByteArray>("varOsc");
        QTest::addColumn<QString>("esperado");
        QTest::newRow("sin archivos") << QByteArray() << QByteArray() << "COM1 DTR claro";
        QTest::newRow("RTS y oscuro")
            << QByteArray("COM3\r\n0\r\n") << QByteArray("1\r\n") << "COM3 RTS oscuro";
        QTest::newRow("sin segunda linea")
            << QByteArray("COM2") << QByteArray() << "COM2 DTR claro";
        QTest::newRow("segunda linea rara")
            << QByteArray("Ninguno\r\nsi\r\n") << QByteArray("x") << "Ninguno RTS claro";
        QTest::newRow("basura") << QByteArray("\x01\x02\xff\x00zz\r\n7", 9)
                                << QByteArray("\xff\xfe", 2) << "COM1 DTR claro";
    }

    void leerAjustes()
    {
        QFETCH(QByteArray, varCW);
        QFETCH(QByteArray, varOsc);
        QTemporaryDir dir;
        for (const auto &[nombre, bytes] :
             {std::pair{"varCW.cfg", varCW}, {"varOsc.cfg", varOsc}}) {
            QFile f(dir.filePath(QString::fromLatin1(nombre)));
            QVERIFY(bytes.isNull() ||
                    (f.open(QIODevice::WriteOnly) && f.write(bytes) == bytes.size()));
        }
        const auto texto = [](const AjustesCW &a) {
            return QStringList(
                       {a.puerto, a.dtr ? "DTR" : "RTS", a.fondoOscuro ? "oscuro" : "claro"})
                .join(u' ');
        };
        const AjustesCW a = LeerAjustesCW(dir.path());
        QTEST(texto(a), "esperado");
        // What is written is read back the same.
        QVERIFY(GuardarAjustesCW(dir.path(), a).Exito());
        QCOMPARE(texto(LeerAjustesCW(dir.path())), texto(a));
    }

    // A choice of port with the key down: both lines off before the close, then the new
    // port opens with both off; one that does not open says why; "Ninguno" needs no line;
    // the end of the window leaves both lines off.
    void elegirPuerto()
    {
        LineaSerieFalsa linea;
        linea.puertosQueFallan << u"COM9"_qs;
        {
            LlaveCW llave(linea);
            QVERIFY(llave.ElegirPuerto(u"COM1"_qs).Exito());
            QVERIFY(llave.kulcsLe());
            QVERIFY(llave.ElegirPuerto(u"COM2"_qs).Exito());
            QCOMPARE(linea.historial,
                     (QStringList{"DTR0", "RTS0", "DTR1", "DTR0", "RTS0", "DTR0", "RTS0"}));
            const Resultado<> r = llave.ElegirPuerto(u"COM9"_qs);
            QCOMPARE(r.Mensaje(), u"No se pudo abrir el puerto COM9 del manipulador: el sistema "
                                  "no permitió abrirlo."_qs);
            QVERIFY(!linea.Abierta() && !llave.kulcsLe() && !llave.kulcsFel());
            QVERIFY(llave.ElegirPuerto(u"Ninguno"_qs).Exito());
            QVERIFY(llave.kulcsLe() && llave.kulcsFel());
            QVERIFY(llave.ElegirPuerto(u"COM3"_qs).Exito());
            llave.PonerLinea(false);
            QVERIFY(llave.kulcsLe());
            linea.historial.clear();
        }
        QCOMPARE(linea.historial, (QStringList{"DTR0", "RTS0"}));
        QVERIFY(!linea.Abierta());
    }
};

QTEST_GUILESS_MAIN(TestMacrosCW)
#include "test_macros_cw.moc"
