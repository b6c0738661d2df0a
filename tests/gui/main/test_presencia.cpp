// SPDX-License-Identifier: GPL-3.0-or-later
// The main window's exchanges with the maker's site: the presence messages at the start
// and the close, against a site that never answers, and "Actualizaciones".
#include "gui/main/Actualizaciones.h"
#include "gui/main/Form1.h"
#include "support/ContextoPrueba.h"
#include "support/ServidorHttpPrueba.h"

#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QTest>
#include <QTimer>

using namespace Qt::Literals::StringLiterals;

class TestPresencia : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    // pasos: "on" the message of the start, "off" the closing run. pedidos: what reached the
    // site, sorted; "..." is the script as a browser sends it, up to "&comando=".
    void presencia_data()
    {
        QTest::addColumn<QString>("senal");
        QTest::addColumn<QString>("pasos");
        QTest::addColumn<QString>("pedidos");
        QTest::newRow("on y off") << u"LU1AAA/P"_s << u"on off"_s << u"...off ...on / / / /"_s;
        QTest::newRow("off sin on") << u"LU1AAA/P"_s << u"off"_s << u"...off / /"_s;
        QTest::newRow("sin señal") << QString() << u"on off"_s << u"/ / / /"_s;
    }

    void presencia()
    {
        QFETCH(QString, senal);
        ServidorHttpPrueba servidor;
        servidor.Callar(true);
        ContextoPrueba p(servidor.Base(), true);
        p.Escribir(u"config.ini"_s, "Estacion=" + senal.toLatin1() + "\r\nLogenUso=Pruebas\r\n");
        int terminado = -1, respuestas = 0;
        p->Terminar = [&terminado](int codigo) { terminado = codigo; };
        connect(&p->web(), &ClienteWeb::Respondido, this, [&respuestas] { ++respuestas; });
        Form1 f(p.ctx());
        for (QTimer *t : {f.Timer1, f.Timer2, f.Timer7})
            t->stop();
        f.Timer2_Timer();
        const QString titulo = f.windowTitle();
        QFETCH(QString, pasos);
        if (pasos.startsWith("on"_L1)) {
            f.Timer7_Timer();
            f.Timer5_Timer();
        }
        // The star marks the message sent.
        QCOMPARE(f.windowTitle() == titulo, !pasos.startsWith("on"_L1) || senal.isEmpty());
        // The closing's 25 ticks, made short: a site that never answers must not hold them.
        f.Timer6->setInterval(1);
        p.falsos.dialogos->respuestasSiNo.enqueue(true);
        f.Salir(false);
        QVERIFY(p->CierreListo && p->TicksCierre == 25 && terminado == 0 && respuestas == 0);

        QFETCH(QString, pedidos);
        QVERIFY(servidor.EsperarPedidos(int(pedidos.count(u' ') + 1)));
        QTest::qWait(50); // nothing more comes
        const QString script = u"/carancho.php?qrz="_s + senal +
                               u"&prog=Carancho%20Radiolog%202&ver=2.1.03%20(Beta)&comando="_s;
        QStringList vistos;
        for (const auto &pedido : servidor.pedidos)
            vistos << QString::fromLatin1(pedido.crudo).replace(script, u"..."_s);
        vistos.sort();
        QCOMPARE(vistos.join(u' '), pedidos);
    }

    void actualizaciones()
    {
        ContextoPrueba p;
        p.falsos.web->Responder(u"/assets/radiolog/version.dat"_s, u"2.1.04\r\n"_s);
        Form1 f(p.ctx());
        for (QTimer *t : {f.Timer1, f.Timer2, f.Timer7})
            t->stop();
        QVERIFY(!f.ac->isEnabled());
        ConectarActualizaciones(f, p.ctx());
        f.show();
        QApplication::setActiveWindow(&f);
        QVERIFY(QTest::qWaitForWindowActive(&f));
        QTest::keyClick(f.Corresponsal, Qt::Key_Z, Qt::ControlModifier);
        QTRY_COMPARE(p.falsos.dialogos->Textos(LlamadaDialogo::Tipo::Exclamacion),
                     QStringList{u"Su versión: 2.1.03 (Beta)\r\nen la Web: 2.1.04\r\n\r\n"
                                 u"debe actualizar!"_s});
    }
};

QTEST_MAIN(TestPresencia)
#include "test_presencia.moc"
