// The configuration window over a temporary folder with fake services and no main window:
// the first start, the checks of Guardar and Cancelar, what reaches the context and when,
// the account test against a loopback server and the settings read and saved.

#include "core/platform/ArchivoTexto.h"
#include "gui/config/Form2.h"
#include "support/ContextoPrueba.h"
#include "support/Modales.h"
#include "support/ServidorHttpPrueba.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

namespace {

using Tipo = LlamadaDialogo::Tipo;

// What the window asked of the presence messages, in order.
QList<bool> Presencia(const QSignalSpy &espia)
{
    QList<bool> pedidos;
    for (const QList<QVariant> &senal : espia)
        pedidos << senal.at(0).toBool();
    return pedidos;
}

} // namespace

class TestForm2 : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void primerInicio_data();
    void primerInicio();
    void comprobaciones_data();
    void comprobaciones();
    void laCopiaLlegaAlContextoAlGuardar();
    void leerYGuardar();
    void probar_data();
    void probar();
};

void TestForm2::primerInicio_data()
{
    QTest::addColumn<bool>("guardar");
    QTest::newRow("cancelar termina") << false;
    QTest::newRow("guardar elige el log") << true;
}

void TestForm2::primerInicio()
{
    QFETCH(bool, guardar);
    ContextoPrueba prueba;
    QList<int> terminado;
    prueba->Terminar = [&](int codigo) { terminado << codigo; };
    prueba->ConfigInicial = true;
    Form2 f(prueba.ctx());
    QSignalSpy presencia(&f, &Form2::PresenciaPedida);
    CuandoAparezcaModal([&](QWidget *) {
        QTest::keyClicks(f.Text1, QStringLiteral("lu1abc"));
        (guardar ? f.Command1 : f.Command2)->click();
    });
    QCOMPARE(f.Mostrar(), guardar ? 1 : 0);
    QCOMPARE(terminado, guardar ? QList<int>{} : QList<int>{0});
    const auto lineas = LeerLineas(prueba.Archivo(QStringLiteral("config.ini")));
    QCOMPARE(lineas.Exito(), guardar);
    QCOMPARE(Presencia(presencia), guardar ? QList<bool>{true} : QList<bool>{});
    // Saving the settings writes no row: the first log is founded where it is needed.
    QVERIFY(prueba->almacen().Logs().isEmpty());
    if (!guardar) {
        QCOMPARE(prueba->config(), Configuracion{});
        QVERIFY(prueba->LogenUso.isEmpty());
        return;
    }
    QVERIFY(!prueba->ConfigInicial);
    QCOMPARE(prueba->config().Estacion, QStringLiteral("LU1ABC"));
    QCOMPARE(prueba->LogenUso, QStringLiteral("Log inicial"));
    QCOMPARE(lineas->value(3), QStringLiteral("LogenUso=Log inicial"));
    QCOMPARE(lineas->value(16), QStringLiteral("Puerto  =NINGUNO")); // the lists are filled
}

void TestForm2::comprobaciones_data()
{
    QTest::addColumn<bool>("cancelar");
    QTest::addColumn<QString>("estacion");
    QTest::addColumn<QString>("operador");
    QTest::addColumn<int>("tipo"); // -1: no message, saved and hidden
    QTest::addColumn<QString>("mensaje");
    QTest::addColumn<QString>("foco");
    const int excl = int(Tipo::Exclamacion), alto = int(Tipo::Alto);
    for (const bool cancelar : {false, true}) {
        const auto fila = [cancelar](const char *nombre, const char *estacion, const char *operador,
                                     int tipo, const char *mensaje, const char *foco) {
            QTest::addRow("%s %s", cancelar ? "cancelar" : "guardar", nombre)
                << cancelar << QString(estacion) << QString(operador) << tipo
                << QString::fromUtf8(mensaje) << QString(foco);
        };
        fila("estacion vacia", "", "LU2AA", excl,
             "La Señal Distintiva de la Estación es obligatiria!", "Text1");
        fila("solo cifras", "123", "", alto, "123 no es una señal distintiva!", "Text1");
        fila("operador malo", "LU1ABC", "XYZ", alto, "XYZ no es una señal distintiva!", "Text2");
        fila("operador vacio", "LU1ABC", "", -1, "", "");
    }
}

void TestForm2::comprobaciones()
{
    QFETCH(bool, cancelar);
    QFETCH(QString, estacion);
    QFETCH(QString, operador);
    QFETCH(int, tipo);
    QFETCH(QString, mensaje);
    QFETCH(QString, foco);
    ContextoPrueba prueba;
    Form2 f(prueba.ctx());
    QSignalSpy presencia(&f, &Form2::PresenciaPedida);
    QSignalSpy aplicada(&f, &Form2::ConfiguracionAplicada);
    f.show();
    f.Text1->setText(estacion);
    f.Text2->setText(operador);
    f.Text3->setFocus();
    // Only Guardar and Cancelar leave the window: not closing it, not Esc.
    QVERIFY(!f.close());
    QTest::keyClick(f.Text3, Qt::Key_Escape);
    (cancelar ? f.Command2 : f.Command1)->click();

    const auto &d = *prueba.falsos.dialogos;
    QCOMPARE(QFile::exists(prueba.Archivo(QStringLiteral("config.ini"))), tipo < 0);
    QCOMPARE(f.isVisible(), tipo >= 0);
    if (tipo < 0) {
        QVERIFY(d.llamadas.isEmpty());
        // Both buttons keep the edits: the context holds them and is announced once.
        QCOMPARE(prueba->config().Estacion, estacion);
        QCOMPARE(aplicada.size(), 1);
        // Guardar turns the presence messages on, Cancelar off.
        QCOMPARE(Presencia(presencia), QList<bool>{!cancelar});
        return;
    }
    QCOMPARE(d.llamadas.size(), 1);
    QCOMPARE(int(d.llamadas[0].tipo), tipo);
    QCOMPARE(d.llamadas[0].texto, mensaje);
    QCOMPARE(f.focusWidget()->objectName(), foco);
    // A refused callsign leaves the context as it was.
    QCOMPARE(prueba->config(), Configuracion{});
    QVERIFY(aplicada.isEmpty());
    QVERIFY(presencia.isEmpty());
}

void TestForm2::laCopiaLlegaAlContextoAlGuardar()
{
    ContextoPrueba prueba;
    QVERIFY(prueba.Escribir("config.ini", "Estacion=LU1ABC\r\nDiferUTC=-3\r\nPuerto  =COM2\r\n"
                                          "PinPTT  =0\r\nArcAudio=/cq/viejo.wav\r\n"));
    Form2 f(prueba.ctx());
    f.LeerConfiguracion();
    prueba->config().NoBorrar = 1; // the main window's box, not edited here
    const Configuracion antes = prueba->config();
    f.Text1->setText(QStringLiteral("LU9ZZ"));
    f.Text3->setText(QStringLiteral("-5"));
    f.RTS->setChecked(true);
    f.Label6->setText(QStringLiteral("/cq/nuevo.wav"));
    // While the window edits, the settings every window reads are the old ones...
    QCOMPARE(prueba->config(), antes);
    // ...but the PTT trial keys the line ticked here.
    f.Command8_MouseDown();
    f.Command8_MouseUp();
    QCOMPARE(prueba.falsos.puertoPTT->historial.mid(2), (QStringList{"RTS1", "RTS0"}));

    f.Command1->click();
    Configuracion esperada = antes;
    esperada.Estacion = QStringLiteral("LU9ZZ");
    esperada.DiferUTC = QStringLiteral("-5");
    esperada.PinPTT = 1;
    esperada.ArcAudio = QStringLiteral("/cq/nuevo.wav");
    QCOMPARE(prueba->config(), esperada);
    QVERIFY(prueba.Leer(QStringLiteral("config.ini")).contains("\r\nNoBorrar=1\r\n"));
}

void TestForm2::leerYGuardar()
{
    ContextoPrueba prueba;
    QVERIFY(prueba.Escribir("config.ini",
                            "Estacion=lu1abc\r\nOperador=LU2DEF\r\nLogenUso=Mi log\r\n"
                            "GridLoca=GF05AB\r\nNoBorrar=1\r\nPantalla=1\r\nHAMQuser=q\r\n"
                            "HAMQpass=\xb9\xba\x9c\r\nLBNQuser=l\r\nLBNQpass=\xb9\r\n"
                            "Puerto  =COM2\r\nPinPTT  =1\r\nTAntes  =300\r\nTDespues=700\r\n"));
    Form2 f(prueba.ctx());
    QSignalSpy aplicada(&f, &Form2::ConfiguracionAplicada);
    f.LeerConfiguracion();
    QCOMPARE(aplicada.size(), 1);
    QCOMPARE(f.Text1->text() + f.Text5->text() + f.Text8->text(), QStringLiteral("lu1abcql"));
    QCOMPARE(f.Text6->text() + '|' + f.Text7->text(), QStringLiteral("abc|a"));
    QVERIFY(f.panta->isChecked() && f.RTS->isChecked() && !f.DTR->isChecked());
    QCOMPARE(f.Combo2->currentText(), QStringLiteral("700")); // not in the list, kept
    QCOMPARE(prueba->LogenUso, QStringLiteral("Mi log"));
    QCOMPARE(prueba->config().NoBorrar, 1);
    QCOMPARE(f.Valores(), prueba->config());
    // The PTT line is opened with both lines off, and keys on RTS as set.
    f.Command8_MouseDown();
    f.Command8_MouseUp();
    QCOMPARE(prueba.falsos.puertoPTT->Puerto(), QStringLiteral("COM2"));
    QCOMPARE(prueba.falsos.puertoPTT->historial, (QStringList{"RTS0", "DTR0", "RTS1", "RTS0"}));

    // Saved and read by a fresh window, every value comes back, the callsign raised.
    QVERIFY(f.GuardarConfiguracion());
    Form2 g(prueba.ctx());
    g.LeerConfiguracion();
    Configuracion esperada = f.Valores();
    esperada.Estacion = QStringLiteral("LU1ABC");
    QCOMPARE(g.Valores(), esperada);
}

void TestForm2::probar_data()
{
    QTest::addColumn<bool>("responde");
    QTest::newRow("el servidor responde") << true;
    QTest::newRow("el servidor calla") << false; // the wait is counted in ticks
}

void TestForm2::probar()
{
    QFETCH(bool, responde);
    ServidorHttpPrueba servidor;
    servidor.ResponderPrefijo("/php/carancho_c2.php", "<html><body>Bienvenido</body></html>");
    servidor.Callar(!responde);
    ContextoPrueba prueba(servidor.Base(), true);
    Form2 f(prueba.ctx());
    f.Text1->setText(QStringLiteral("LU1ABC"));
    f.user_lbn->setText(QStringLiteral("yo@x.ar"));
    f.pass_lbn->setText(QStringLiteral("100%&mas"));
    f.Command4->click();
    QVERIFY(!f.Command4->isEnabled());
    QCOMPARE(f.Label3->text(), QStringLiteral("user=yo@x.ar\nmicall=LU1ABC\n"));
    QVERIFY(servidor.EsperarPedidos(1));
    QCOMPARE(servidor.pedidos[0].crudo,
             QByteArray("/php/carancho_c2.php?user=yo@x.ar&pass=100%25%26mas&micall=LU1ABC"));
    if (responde) {
        QTRY_COMPARE(f.Label3->text(), QStringLiteral("Bienvenido"));
    } else {
        for (int i = 1; i < Form2::kTicksPrueba; ++i)
            f.Timer1_Timer();
        QCOMPARE(f.ProgressBar1->value(), Form2::kTicksPrueba - 1);
        QVERIFY(!f.Command4->isEnabled());
        f.Timer1_Timer();
        QCOMPARE(f.Label3->text(), QStringLiteral("No parace haber conexión con internet!"));
        QCOMPARE(f.Label3->palette().color(QPalette::WindowText), QColor(Qt::red));
        QCOMPARE(f.ProgressBar1->value(), 0);
    }
    QVERIFY(f.Command4->isEnabled());
    QVERIFY(!f.Timer1->isActive());
}

QTEST_MAIN(TestForm2)
#include "test_form2.moc"
