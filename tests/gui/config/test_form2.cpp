// SPDX-License-Identifier: GPL-3.0-or-later
// The configuration window over a temporary folder, with no main window: the first start,
// the refusals of Guardar and Cancelar, the copy it edits reaching the context only when
// left, the PTT trial on the line ticked, and the account test's reply.
#include "gui/config/Form2.h"
#include "support/ContextoPrueba.h"
#include "support/Modales.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

class TestForm2 : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void primerInicio_data()
    {
        QTest::addColumn<bool>("guardar");
        QTest::newRow("cancelar termina") << false;
        QTest::newRow("guardar elige el log") << true;
    }

    void primerInicio()
    {
        QFETCH(bool, guardar);
        ContextoPrueba p;
        QList<int> terminado;
        p->Terminar = [&](int codigo) { terminado << codigo; }, p->ConfigInicial = true;
        Form2 f(p.ctx());
        CuandoAparezcaModal([&](QWidget *) {
            QTest::keyClicks(f.Text1, u"lu1abc"_s);
            (guardar ? f.Command1 : f.Command2)->click();
        });
        QCOMPARE(f.Mostrar(), guardar ? 1 : 0);
        QCOMPARE(terminado, guardar ? QList<int>{} : QList<int>{0});
        QCOMPARE(p.Leer(u"config.ini"_s).contains("\r\nLogenUso=Log inicial\r\n"), guardar);
        QCOMPARE(p->config().Estacion, guardar ? u"LU1ABC"_s : QString());
        QCOMPARE(p->ConfigInicial, !guardar);
        // Saving the settings writes no row: the first log is founded where it is needed.
        QVERIFY(p->almacen().Logs().isEmpty());
    }

    void comprobaciones_data()
    {
        QTest::addColumn<bool>("cancelar");
        QTest::addColumn<QString>("estacion");
        QTest::addColumn<QString>("operador");
        QTest::addColumn<QString>("mensaje"); // empty: saved and left
        QTest::addColumn<QString>("foco");
        // Cancelar keeps the edits too, so it refuses what Guardar refuses.
        for (const bool cancelar : {false, true}) {
            const auto fila = [cancelar](const char *estacion, const char *operador,
                                         const char *mensaje, const char *foco) {
                QTest::addRow("%s %s/%s", cancelar ? "cancelar" : "guardar", estacion, operador)
                    << cancelar << QString(estacion) << QString(operador)
                    << QString::fromUtf8(mensaje) << QString(foco);
            };
            fila("", "LU2AA", "La Señal Distintiva de la Estación es obligatiria!", "Text1");
            fila("LU1ABC", "XYZ", "XYZ no es una señal distintiva!", "Text2");
            fila("LU1ABC", "", "", "");
        }
    }

    void comprobaciones()
    {
        QFETCH(bool, cancelar);
        QFETCH(QString, estacion);
        QFETCH(QString, mensaje);
        ContextoPrueba p;
        Form2 f(p.ctx());
        QSignalSpy presencia(&f, &Form2::PresenciaPedida);
        f.show();
        f.Text1->setText(estacion);
        QFETCH(QString, operador);
        f.Text2->setText(operador);
        // Only Guardar and Cancelar leave the window: not closing it, not Esc.
        QVERIFY(!f.close());
        QTest::keyClick(f.Text3, Qt::Key_Escape);
        (cancelar ? f.Command2 : f.Command1)->click();
        QCOMPARE(p.falsos.dialogos->Textos(),
                 mensaje.isEmpty() ? QStringList() : QStringList{mensaje});
        QCOMPARE(f.isVisible(), !mensaje.isEmpty());
        // A refused callsign leaves the context as it was.
        QCOMPARE(p->config().Estacion, mensaje.isEmpty() ? estacion : QString());
        if (!mensaje.isEmpty())
            QTEST(f.focusWidget()->objectName(), "foco");
        // Guardar turns the presence messages on, Cancelar off.
        QCOMPARE(presencia,
                 mensaje.isEmpty() ? QList<QVariantList>{{!cancelar}} : QList<QVariantList>());
    }

    void editaUnaCopia()
    {
        ContextoPrueba p;
        QVERIFY(p.Escribir(u"config.ini"_s, "Estacion=LU1ABC\r\nPuerto  =COM2\r\nPinPTT  =0\r\n"));
        Form2 f(p.ctx());
        f.LeerConfiguracion();
        p->config().NoBorrar = 1; // the main window's box, not edited here
        Configuracion esperada = p->config();
        f.Text1->setText(u"LU9ZZ"_s);
        f.RTS->setChecked(true);
        // While the window edits, the settings every window reads are the old ones, but the
        // PTT trial keys the line ticked here.
        QCOMPARE(p->config(), esperada);
        // The trial lights the "Tx" lamps while held.
        f.Command8_MouseDown();
        QVERIFY(p->ptt().Encendido());
        f.Command8_MouseUp();
        QVERIFY(!p->ptt().Encendido());
        QCOMPARE(p.falsos.puertoPTT->historial.mid(2), (QStringList{"RTS1", "RTS0"}));
        f.Command1->click();
        esperada.Estacion = u"LU9ZZ"_s, esperada.PinPTT = 1;
        QCOMPARE(p->config(), esperada);
        QVERIFY(p.Leer(u"config.ini"_s).contains("Estacion=LU9ZZ\r\n"));
        // The account test's reply is a value: a screen reader reads it, under no name of its own.
        QVERIFY(f.Label3->accessibleName().isEmpty());
    }
};

QTEST_MAIN(TestForm2)
#include "test_form2.moc"
