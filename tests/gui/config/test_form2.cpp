// The configuration window over a temporary folder with fake services: the first start,
// the checks of Guardar and Cancelar, the account test against a loopback server and the
// settings read into the controls and saved back.

#include "core/config/EnlacePrincipal.h"
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
#include <QTest>
#include <QTimer>

namespace {

// The main window as the configuration window sees it.
class PrincipalFalso : public EnlacePrincipal
{
public:
    int ValorNoBorrar() const override { return noBorrar; }
    void PonerNoBorrar(int valor) override { noBorrar = valor; }
    void AplicarConfiguracion(const QString &estacion, const QString &operador,
                              const QString &logenUso, const QString &grid, int pantalla) override
    {
        aplicada = QStringList{estacion, operador, logenUso, grid, QString::number(pantalla)};
    }
    void PonerPresencia(bool habilitada) override { presencia << habilitada; }

    int noBorrar = 0;
    QStringList aplicada;
    QList<bool> presencia;
};

using Tipo = LlamadaDialogo::Tipo;

} // namespace

class TestForm2 : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void primerInicio_data();
    void primerInicio();
    void comprobaciones_data();
    void comprobaciones();
    void leerYGuardar();
    void probar_data();
    void probar();
};

void TestForm2::primerInicio_data()
{
    QTest::addColumn<bool>("guardar");
    QTest::newRow("cancelar termina") << false;
    QTest::newRow("guardar funda el log") << true;
}

void TestForm2::primerInicio()
{
    QFETCH(bool, guardar);
    ContextoPrueba prueba;
    PrincipalFalso principal;
    QList<int> terminado;
    prueba->Terminar = [&](int codigo) { terminado << codigo; };
    prueba->ConfigInicial = true;
    Form2 f(prueba.ctx(), principal);
    CuandoAparezcaModal([&](QWidget *) {
        QTest::keyClicks(f.Text1, QStringLiteral("lu1abc"));
        (guardar ? f.Command1 : f.Command2)->click();
    });
    QCOMPARE(f.Mostrar(), guardar ? 1 : 0);
    QCOMPARE(terminado, guardar ? QList<int>{} : QList<int>{0});
    const auto lineas = LeerLineas(prueba.Archivo(QStringLiteral("config.ini")));
    QCOMPARE(lineas.Exito(), guardar);
    QCOMPARE(principal.presencia, guardar ? QList<bool>{true} : QList<bool>{});
    if (!guardar)
        return;
    QVERIFY(!prueba->ConfigInicial);
    QCOMPARE(prueba->LogenUso, QStringLiteral("Log inicial"));
    QCOMPARE(prueba->almacen().Logs(), QStringList{QStringLiteral("Log inicial")});
    QCOMPARE(principal.aplicada.value(0), QStringLiteral("LU1ABC"));
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
    PrincipalFalso principal;
    Form2 f(prueba.ctx(), principal);
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
        // Guardar turns the presence messages on, Cancelar off.
        QCOMPARE(principal.presencia, QList<bool>{!cancelar});
        return;
    }
    QCOMPARE(d.llamadas.size(), 1);
    QCOMPARE(int(d.llamadas[0].tipo), tipo);
    QCOMPARE(d.llamadas[0].texto, mensaje);
    QCOMPARE(f.focusWidget()->objectName(), foco);
    QVERIFY(principal.presencia.isEmpty());
}

void TestForm2::leerYGuardar()
{
    ContextoPrueba prueba;
    PrincipalFalso principal;
    QVERIFY(prueba.Escribir("config.ini",
                            "Estacion=lu1abc\r\nOperador=LU2DEF\r\nLogenUso=Mi log\r\n"
                            "GridLoca=GF05AB\r\nNoBorrar=1\r\nPantalla=1\r\nHAMQuser=q\r\n"
                            "HAMQpass=\xb9\xba\x9c\r\nLBNQuser=l\r\nLBNQpass=\xb9\r\n"
                            "Puerto  =COM2\r\nPinPTT  =1\r\nTAntes  =300\r\nTDespues=700\r\n"));
    Form2 f(prueba.ctx(), principal);
    f.LeerConfiguracion();
    QCOMPARE(f.Text1->text() + f.Text5->text() + f.Text8->text(), QStringLiteral("lu1abcql"));
    QCOMPARE(f.Text6->text() + '|' + f.Text7->text(), QStringLiteral("abc|a"));
    QVERIFY(f.panta->isChecked() && f.RTS->isChecked() && !f.DTR->isChecked());
    QCOMPARE(f.Combo2->currentText(), QStringLiteral("700")); // not in the list, kept
    QCOMPARE(prueba->LogenUso, QStringLiteral("Mi log"));
    QCOMPARE(principal.noBorrar, 1);
    QCOMPARE(principal.aplicada, (QStringList{"LU1ABC", "LU2DEF", "Mi log", "GF05AB", "1"}));
    // The PTT line is opened with both lines off, and keys on RTS as set.
    f.Command8_MouseDown();
    f.Command8_MouseUp();
    QCOMPARE(prueba.falsos.puertoPTT->Puerto(), QStringLiteral("COM2"));
    QCOMPARE(prueba.falsos.puertoPTT->historial, (QStringList{"RTS0", "DTR0", "RTS1", "RTS0"}));

    // Saved and read by a fresh window, every value comes back, the callsign raised.
    QVERIFY(f.GuardarConfiguracion());
    PrincipalFalso otro;
    Form2 g(prueba.ctx(), otro);
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
    PrincipalFalso principal;
    Form2 f(prueba.ctx(), principal);
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
