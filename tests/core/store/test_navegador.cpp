// SPDX-License-Identifier: GPL-3.0-or-later
// The navigator's arithmetic, where the old 16-bit counters and the 1,000-round loop used
// to stop: large logs must reach their last page.
#include "core/store/NavegadorPaginas.h"

#include <QTest>

class TestNavegador : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void ultimaPagina_data()
    {
        QTest::addColumn<qint64>("n");
        QTest::addColumn<qint64>("paginas");
        QTest::addColumn<qint64>("fila");
        QTest::newRow("21") << qint64(21) << qint64(2) << qint64(21);
        QTest::newRow("40") << qint64(40) << qint64(2) << qint64(21);
        QTest::newRow("45") << qint64(45) << qint64(3) << qint64(41);
        QTest::newRow("20,001 (past the old 1,000 rounds)")
            << qint64(20001) << qint64(1001) << qint64(20001);
        QTest::newRow("1,000,000") << qint64(1000000) << qint64(50000) << qint64(999981);
        QTest::newRow("past 16 bits") << qint64(655361) << qint64(32769) << qint64(655361);
    }
    void ultimaPagina()
    {
        QFETCH(qint64, n);
        QFETCH(qint64, paginas);
        QFETCH(qint64, fila);
        NavegadorPaginas nav;
        nav.Cargado(n, 1);
        QCOMPARE(nav.TotalPaginas, paginas);
        nav.Ultima(n);
        QCOMPARE(nav.PaginaActual, paginas);
        QCOMPARE(nav.FilaInicial, fila);
        nav.Cargado(n, nav.FilaInicial);
        QCOMPARE(nav.Botones(n), (BotonesPagina{true, true, false, false}));
        nav.Anterior();
        QCOMPARE(nav.FilaInicial, fila - 20);
        if (paginas > 2)
            QCOMPARE(nav.Botones(n), (BotonesPagina{true, true, true, true}));
    }

    void salto_data()
    {
        QTest::addColumn<qint64>("n");
        QTest::addColumn<qint64>("desde");
        QTest::addColumn<qint64>("pedido");
        QTest::addColumn<bool>("mueve");
        QTest::addColumn<qint64>("muestra");
        QTest::addColumn<qint64>("fila");
        QTest::newRow("0 es la primera")
            << qint64(45) << qint64(2) << qint64(0) << true << qint64(1) << qint64(1);
        QTest::newRow("más allá es la última")
            << qint64(45) << qint64(1) << qint64(9999) << true << qint64(3) << qint64(41);
        QTest::newRow("la misma no hace nada")
            << qint64(45) << qint64(2) << qint64(2) << false << qint64(2) << qint64(21);
        QTest::newRow("hacia atrás")
            << qint64(100) << qint64(5) << qint64(2) << true << qint64(2) << qint64(21);
        QTest::newRow("log vacío")
            << qint64(0) << qint64(1) << qint64(3) << false << qint64(0) << qint64(1);
    }
    void salto()
    {
        QFETCH(qint64, n);
        QFETCH(qint64, desde);
        QFETCH(qint64, pedido);
        QFETCH(bool, mueve);
        QFETCH(qint64, muestra);
        QFETCH(qint64, fila);
        NavegadorPaginas nav;
        nav.Cargado(n, 1);
        for (qint64 i = 1; i < desde; ++i)
            nav.Siguiente();
        QCOMPARE(nav.Ir(pedido), mueve);
        QCOMPARE(pedido, muestra);
        QCOMPARE(nav.FilaInicial, fila);
    }

    void botonesDeLogsChicos()
    {
        for (qint64 n : {0, 1, 20}) {
            NavegadorPaginas nav;
            nav.Cargado(n, 1);
            QCOMPARE(nav.Botones(n), BotonesPagina{});
            QCOMPARE(nav.TotalMostrado(), qint64(1));
        }
    }
};

QTEST_GUILESS_MAIN(TestNavegador)
#include "test_navegador.moc"
