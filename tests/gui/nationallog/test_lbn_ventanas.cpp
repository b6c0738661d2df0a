// SPDX-License-Identifier: GPL-3.0-or-later
// The national log's windows from the main window: a run of the menu shown in
// VentanaSubida and stopped by the program's end, and the province award of parg.

#include "core/nationallog/EnviosLbN.h"
#include "gui/main/Form1.h"
#include "gui/nationallog/Form14.h"
#include "gui/nationallog/VentanaSubida.h"
#include "support/ContextoPrueba.h"
#include "support/Hecho.h"
#include "support/Modales.h"
#include "support/ServidorHttpPrueba.h"

#include <QAction>
#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QProgressBar>
#include <QTest>
#include <QTreeWidget>

using namespace Qt::StringLiterals;

namespace {

qint64 Guardar(Contexto &ctx, const QString &suCall, const QString &lbn, const QString &grilla)
{
    RegistroQSO q;
    q.Estacion = suCall, q.Banda = u"40m"_s, q.Modo = u"SSB"_s, q.RSE = q.RSR = u"59"_s;
    q.Fecha = u"01/02/2024"_s, q.Hora = u"10:00:00"_s, q.MyCall = u"LU1ABC"_s;
    q.Frecuencia = u"7.1"_s, q.SuGrid = grilla, q.LbN = lbn, q.Argento = u"Chaco"_s;
    return Hecho(ctx.almacen().AgregarQSOImportado(q, u"Prueba"_s));
}

} // namespace

class TestLbNVentanas : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void corrida()
    {
        ServidorHttpPrueba servidor;
        ContextoPrueba prueba(servidor.Base(), true);
        prueba->LogenUso = u"Prueba"_s;
        prueba->config().UserLbN = prueba->config().PassLbN = u"x"_s;
        int terminado = -1;
        prueba->Terminar = [&](int c) { terminado = c; };
        QVector<qint64> ids;
        for (int i = 0; i < 4; ++i)
            ids << Guardar(prueba.ctx(), u"LU%1AA"_s.arg(i + 2), {}, {});
        servidor.ResponderPrefijo(u"/php/carancho3.php"_s,
                                  "LU1ABC LU2AA 40m SSB 01/02/2024 1000 Guardado");
        Form1 principal(prueba.ctx());
        const LbNConectado lbn = ConectarLbN(principal, prueba.ctx());
        QVERIFY(!principal.suych->isEnabled() && !principal.ssub->isEnabled());
        VentanaSubida &v = *lbn.ventanaSubida;
        // The program closes while the third reply is awaited: the run stops there, and
        // Esc only hid the window.
        connect(&servidor, &ServidorHttpPrueba::PedidoRecibido, this, [&] {
            if (servidor.pedidos.size() == 2)
                QTest::keyClick(&v, Qt::Key_Escape);
            if (servidor.pedidos.size() == 3)
                prueba->Terminar(0);
        });
        prueba.falsos.dialogos->respuestasSiNo.enqueue(true);
        principal.CargarLog(1);
        principal.corridaLbN(TipoCorrida::SoloSubir);
        QCOMPARE(terminado, 0);
        QCOMPARE(principal.ListView2->topLevelItemCount(), 4); // the view read again
        QVERIFY(!v.isVisible());
        // Two lines, the second current; the bar at two; the third's wait had begun.
        QCOMPARE((QList{v.List1->count(), v.List1->currentRow(), v.ProgressBar1->value()}),
                 (QList{2, 1, 2}));
        QCOMPARE(v.List1->item(1)->text(), u"2 LU1ABC>LU2AA 40m/SSB >Subido!"_s);
        QCOMPARE(v.Label1->text(), u"Conectando con LbN ... 0/15"_s);
        QStringList estados;
        for (qint64 id : ids)
            estados << prueba->almacen().QSOPorId(u"Prueba"_s, id)->LbN;
        QCOMPARE(estados, (QStringList{u"1"_s, u"1"_s, {}, {}}));
    }

    void provincias()
    {
        ContextoPrueba prueba;
        prueba->LogenUso = u"Prueba"_s;
        Form1 principal(prueba.ctx());
        ConectarLbN(principal, prueba.ctx());
        QVERIFY(principal.parg->isEnabled());
        principal.parg->trigger();
        QCOMPARE(prueba.falsos.dialogos->UltimoTexto(), u"No hay QSOs para mostrar!"_s);

        Guardar(prueba.ctx(), u"LU5AA"_s, u"2"_s, u"FF55"_s);
        Guardar(prueba.ctx(), u"LU5BB"_s, u"1"_s, u"FF55"_s);
        Guardar(prueba.ctx(), u"LU5CC"_s, u"0"_s, u"FF56"_s);
        QStringList visto;
        CuandoAparezcaModal([&](QWidget *w) {
            Form14 *f = qobject_cast<Form14 *>(w);
            QTreeWidgetItem *chaco = f->ListView2->topLevelItem(3);
            visto << chaco->text(2) << chaco->foreground(2).color().name()
                  << chaco->data(6, Qt::AccessibleTextRole).toString()
                  << f->ListView2->topLevelItem(25)->text(6) << f->Frame2->title()
                  << f->Frame3->title();
            f->close();
        });
        principal.parg->trigger();
        QCOMPARE(visto, (QStringList{u"Chaco"_s, u"#008000"_s, u"Confirmado"_s, u"1/0"_s,
                                     u"Confirmadas (1)"_s, u"Trabajadas (1)"_s}));
    }
};

QTEST_MAIN(TestLbNVentanas)
#include "test_lbn_ventanas.moc"
