// SPDX-License-Identifier: GPL-3.0-or-later
// The PTT line picked by the pin setting, and the port that follows the settings:
// reopened only when they name another port, so a transmitter keyed at that moment is not
// let go; closed for "NINGUNO"; quiet about a port that does not open. The CQ caller's
// player commands, PTT and lamps for F1, the end of the file and Esc.
#include "core/keying/LlamadorCQ.h"
#include "core/keying/PTT.h"
#include "support/LineaSerieFalsa.h"
#include "support/ReproductorFalso.h"

#include <QTest>

class TestPTT : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    // The line open before (empty: closed), keyed with the pin; the port the settings then
    // name, the port opened for it, and the line after: "RTS" or "DTR" still keyed, "" for
    // open with nothing keyed, or closed.
    void seguirPuerto_data()
    {
        QTest::addColumn<QString>("abierto");
        QTest::addColumn<int>("pin");
        QTest::addColumn<QString>("pedido");
        QTest::addColumn<QString>("abre");
        QTest::addColumn<QString>("linea");
        const auto fila = [](const char *nombre, const char *abierto, int pin, const char *pedido,
                             const char *abre, const char *linea) {
            QTest::newRow(nombre) << QString(abierto) << pin << QString(pedido) << QString(abre)
                                  << QString(linea);
        };
        fila("cerrado, un puerto", "", 1, "COM2", "COM2", "");
        fila("el mismo, RTS", "COM2", 1, "COM2", "", "RTS");
        fila("pin 2 es DTR", "COM2", 2, "COM2", "", "DTR");
        fila("otro puerto", "COM2", 1, "COM3", "COM3", "");
        fila("ninguno cierra", "COM2", 0, "NINGUNO", "", "cerrada");
        fila("vacio cierra", "COM2", 1, "", "", "cerrada");
        fila("uno que no abre", "COM2", 1, "COM9", "COM9", "cerrada");
    }

    void seguirPuerto()
    {
        QFETCH(QString, abierto);
        QFETCH(int, pin);
        QFETCH(QString, pedido);
        LineaSerieFalsa linea;
        linea.puertosQueFallan << QStringLiteral("COM9");
        if (!abierto.isEmpty()) {
            QVERIFY(linea.Abrir(abierto));
            PonerPTT(linea, pin, true); // keyed while the settings are read again
            linea.aperturas.clear();
        }
        SeguirPuertoPTT(linea, pedido);
        QTEST(linea.aperturas.join(u' '), "abre");
        const QString llaveada = QString(linea.rts ? "RTS" : "") + (linea.dtr ? "DTR" : "");
        QTEST(linea.Abierta() ? llaveada : QStringLiteral("cerrada"), "linea");
        // A port opened here starts with both lines off.
        if (!linea.aperturas.isEmpty() && linea.Abierta())
            QCOMPARE(linea.historial.mid(linea.historial.size() - 2),
                     (QStringList{"RTS0", "DTR0"}));
    }

    // Steps: F1, "fin" (the file ends), Esc, for a caller that lets the PTT go at the end
    // as the contest window's does (the main window's, which keeps it, is tried with the
    // window); the player's length; the port open or not. Then the player's commands, the
    // line's changes and the lamp's.
    void llamador_data()
    {
        QTest::addColumn<QString>("pasos");
        QTest::addColumn<int>("longitud");
        QTest::addColumn<bool>("abierto");
        QTest::addColumn<QString>("ordenes");
        QTest::addColumn<QString>("linea");
        QTest::addColumn<QString>("lampara");
        const auto fila = [](const char *n, const char *pasos, int longitud, bool abierto,
                             const char *ordenes, const char *linea, const char *lampara) {
            QTest::newRow(n) << QString(pasos) << longitud << abierto << QString(ordenes)
                             << QString(linea) << QString(lampara);
        };
        const QByteArray f1 = "Cerrar Rebobinar Abrir cq.wav Reproducir";
        fila("longitud 0", "F1", 0, true, "Cerrar Rebobinar Abrir cq.wav", "", "");
        fila("fin que suelta", "F1 fin", 5000, true, f1, "RTS1 RTS0", "10");
        fila("Esc sin llamada", "Esc", 5000, true, "Detener Cerrar", "RTS0", "0");
        fila("segundo F1", "F1 F1", 5000, true, f1 + ' ' + f1, "RTS1 RTS1", "11");
        fila("puerto cerrado", "F1 Esc", 5000, false, f1 + " Detener Cerrar", "", "10");
    }

    void llamador()
    {
        QFETCH(QString, pasos);
        QFETCH(int, longitud);
        QFETCH(bool, abierto);
        LineaSerieFalsa linea;
        if (abierto)
            QVERIFY(linea.Abrir(u"COM2"_qs));
        ReproductorFalso reproductor;
        reproductor.longitud = longitud;
        InterruptorPTT ptt(linea);
        LlamadorCQ llamador(reproductor, ptt);
        llamador.SoltarAlTerminar([] { return 1; });
        QString lampara;
        connect(&ptt, &InterruptorPTT::Lampara, [&lampara](bool e) { lampara += e ? u'1' : u'0'; });
        for (const QString &paso : pasos.split(u' ')) {
            if (paso == u"F1")
                llamador.Llamar(u"cq.wav"_qs, 1);
            else if (paso == u"Esc")
                llamador.Detener(1);
            else
                reproductor.Terminar();
        }
        QTEST(reproductor.ordenes.join(u' '), "ordenes");
        QTEST(linea.historial.join(u' '), "linea");
        QTEST(lampara, "lampara");
    }
};

QTEST_GUILESS_MAIN(TestPTT)
#include "test_ptt.moc"
