// SPDX-License-Identifier: GPL-3.0-or-later
// The callsign lookups: the fields cut from QRZ.com's answers, and its chain of requests
// over a real connection. The national log's lookup is tried from its panel (test_form33).

#include "core/lookup/Consultas.h"
#include "support/ContextoPrueba.h"
#include "support/ServidorHttpPrueba.h"

#include <QTest>

using namespace Qt::StringLiterals;

class TestConsultas : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void qrz_data()
    {
        QTest::addColumn<QString>("respuesta");
        QTest::addColumn<QString>("panel");
        QTest::newRow("completo")
            << u"<call>lu1abc</call><aliases>lu1x</aliases><fname>Ana</fname><name>Paz</name>"
               "<addr1>Calle 1</addr1><country>Argentina</country><zip>1000</zip>"
               "<grid>GF05</grid><email>a@b</email><Count>3</Count>"_s
            << u"LU1ABC\r\n3\r\nAlias: LU1X\r\nAna Paz\r\nCalle 1\r\nArgentina\r\nZIP: 1000\r\n"
               "Grid Locator: GF05\r\nemail: a@b\r\n"_s;
        QTest::newRow("sin fname, count en minúscula")
            << u"<call>LU1ABC</call><name>Paz</name><count>3</count>"_s << u"LU1ABC\r\n Paz\r\n"_s;
        QTest::newRow("solo fname")
            << u"<call>LU1ABC</call><fname>Ana</fname>"_s << u"LU1ABC\r\nAna\r\n"_s;
        QTest::newRow("sin cierre") << u"<call>LU1ABC"_s << u"LU9ZZ No está en QRZ.com!"_s;
        // The closing tag alone decides: the cut starts where "<call>" would have ended.
        QTest::newRow("con atributo") << u"<call a='1'>LU1ABC</call>"_s << u" A='1'>LU1ABC\r\n"_s;
    }
    void qrz()
    {
        QFETCH(QString, respuesta);
        QTEST(TextoQRZ(respuesta, u"LU9ZZ"_s), "panel");
    }

    void cadena_data()
    {
        // The login's answer; what the operator sees; the requests made.
        QTest::addColumn<QByteArray>("login");
        QTest::addColumn<QString>("visto");
        QTest::addColumn<int>("pedidos");
        QTest::newRow("clave") << QByteArray("<Session><Error></Error><Key>k1</Key></Session>")
                               << u"LU1ABC\r\n"_s << 4;
        QTest::newRow("error") << QByteArray("<Error>Password incorrect</Error>")
                               << u"QRZ.com dice:\r\nPassword incorrect"_s << 2;
        QTest::newRow("ni error ni clave") << QByteArray("<html>Sin red</html>")
                                           << u"No parace haber conexión con internet!"_s << 2;
    }
    void cadena()
    {
        QFETCH(QByteArray, login);
        ServidorHttpPrueba servidor;
        servidor.ResponderPrefijo(u"/xml/?"_s, login);
        servidor.Responder(u"/xml/current/?s=k1;callsign=LU1ABC"_s, "<call>LU1ABC</call>");
        ContextoPrueba prueba(servidor.Base(), true);
        bool reloj = true;
        prueba->config().HAMQuser = u"yo"_s;
        Consultas c(prueba->web(), prueba->dialogos(), prueba->config(), prueba->direcciones(),
                    reloj);
        QStringList vistos;
        c.mostrar = [&](const PanelConsulta &p) { vistos << p.texto; };
        c.BusquedaQRZ(u"LU1ABC"_s);
        QCOMPARE(prueba.falsos.dialogos->UltimoTexto(), u"Sin configurar Usuario o Contraseña!"_s);
        prueba.falsos.dialogos->Limpiar();
        prueba->config().HAMQpass = u"a b;c"_s;
        // Each lookup logs in anew.
        c.BusquedaQRZ(u"LU1ABC"_s);
        c.BusquedaQRZ(u"LU1ABC"_s);
        QFETCH(int, pedidos);
        QTRY_COMPARE(int(servidor.pedidos.size()), pedidos);
        QTest::qWait(50);
        QCOMPARE(servidor.pedidos[0].crudo, "/xml/?username=yo;password=a%20b;c");
        QFETCH(QString, visto);
        QCOMPARE(vistos.size() + prueba.falsos.dialogos->Textos().size(), 2);
        QCOMPARE(vistos.value(0, prueba.falsos.dialogos->UltimoTexto()), visto);

        // Answers during the start-up are no answers.
        reloj = false;
        c.BusquedaQRZ(u"LU1ABC"_s);
        QTRY_COMPARE(int(servidor.pedidos.size()), pedidos + 1);
        QTest::qWait(50);
        QCOMPARE(vistos.size() + prueba.falsos.dialogos->Textos().size(), 2);
    }
};

QTEST_MAIN(TestConsultas)
#include "test_consultas.moc"
