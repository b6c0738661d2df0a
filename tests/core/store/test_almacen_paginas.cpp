// SPDX-License-Identifier: GPL-3.0-or-later
// The pages of the log view against a plain sorted reference, forward, back and by jumps,
// with writes of this program and of others in between.

#include "AyudaAlmacen.h"
#include "support/Semilla.h"

#include <QRandomGenerator>
#include <QTest>
#include <algorithm>

using namespace Qt::StringLiterals;

class TestPaginas : public PruebaAlmacen
{
    Q_OBJECT

private Q_SLOTS:
    void paginasComoReferencia()
    {
        Almacen &a = *alm_;
        const QString log = u"P"_s;
        struct Fila
        {
            QString iso, hora;
            qint64 id;
        };
        // Few dates and times, so that many rows tie and only the id orders them.
        QVector<Fila> ref;
        auto agregar = [&](int dia, const QString &hora) {
            const QString dd = u"%1"_s.arg(dia, 2, 10, QLatin1Char('0'));
            const qint64 id = Hecho(a.AgregarQSO(Qso(u"LU"_s, dd + u"/12/2023"_s, hora), log));
            ref.append({u"2023-12-"_s + dd, hora, id});
            std::sort(ref.begin(), ref.end(), [](const Fila &x, const Fila &y) {
                return std::tie(x.iso, x.hora, x.id) > std::tie(y.iso, y.hora, y.id);
            });
        };
        QRandomGenerator azar(Semilla());
        Hecho(a.IniciarTransaccion());
        Hecho(a.AgregarLogVacio(log));
        for (int i = 0; i < 347; ++i) {
            agregar(1 + int(azar.bounded(4)), u"1%1:00:00"_s.arg(azar.bounded(3)));
            if (i % 7 == 0)
                Hecho(a.AgregarQSO(Qso(u"CX"_s, u"02/12/2023"_s), u"otro"_s));
        }
        Hecho(a.ConfirmarTransaccion());
        auto igual = [&](qint64 fila, int tamano = 20) {
            QList<qint64> esperados;
            const qint64 desde = std::max<qint64>(fila, 1) - 1;
            for (qint64 i = desde; i < desde + tamano && i < ref.size(); ++i)
                esperados << ref[i].id;
            const QList<qint64> leidos = Ids(a.PaginaLog(log, fila, tamano));
            if (leidos != esperados)
                qWarning() << "fila" << fila << "tamaño" << tamano;
            return leidos == esperados;
        };

        // Forward from the first page to the last, back again, jumps, edges and another size.
        const qint64 n = ref.size();
        for (qint64 fila = 1; fila <= n; fila += 20)
            QVERIFY(igual(fila));
        for (qint64 fila = (n - 1) / 20 * 20 + 1; fila >= 1; fila -= 20)
            QVERIFY(igual(fila));
        for (qint64 fila :
             {161, 41, 301, 321, 1, 341, 347, 348, 500, 0, 7, 27, 7, 146, 327, 328, 326})
            QVERIFY(igual(fila));
        for (qint64 fila = 1; fila <= n; fila += 50)
            QVERIFY(igual(fila, 50));

        // A write in the middle of paging: the pages around it count it.
        QVERIFY(igual(101));
        agregar(2, u"11:00:00"_s);
        QVERIFY(igual(121));
        QVERIFY(igual(101));
        QVERIFY(a.BorrarQSO(ref[110].id));
        ref.remove(110);
        QVERIFY(igual(121));
    }
};

QTEST_GUILESS_MAIN(TestPaginas)
#include "test_almacen_paginas.moc"
