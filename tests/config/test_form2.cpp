// The configuration window over a temporary folder with fake services: the first start,
// the checks of Guardar and Cancelar, the account test against a loopback server, the
// field filters and the CQ caller's controls.

#include "config/ArchivoTexto.h"
#include "config/EnlacePrincipal.h"
#include "config/Form2.h"
#include "platform/ClienteWebQt.h"
#include "support/ContextoPrueba.h"
#include "support/Modales.h"
#include "support/ServidorHttpPrueba.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTemporaryDir>
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
const QString kSinConexion = QStringLiteral("No parace haber conexión con internet!");

// Types a text key by key, any character (QTest's own typing knows ASCII only).
void Teclear(QWidget *campo, const QString &texto)
{
    for (const QChar c : texto) {
        QKeyEvent tecla(QEvent::KeyPress, 0, Qt::NoModifier, QString(c));
        QCoreApplication::sendEvent(campo, &tecla);
    }
}

// A context whose web is the real client, pointed at a loopback server.
struct ContextoConRed
{
    explicit ContextoConRed(const QString &base)
    {
        QFile ini(QDir(carpeta.path()).filePath(QStringLiteral("servicios.ini")));
        if (ini.open(QIODevice::WriteOnly))
            ini.write("LbN=" + base.toUtf8() + "\r\n");
        ini.close();
        Servicios s = falsos.Tomar();
        s.web = std::make_unique<ClienteWebQt>(); // falsos.web is not used from here on
        ctx = std::make_unique<Contexto>(carpeta.path(), std::move(s));
    }
    QTemporaryDir carpeta;
    ServiciosFalsos falsos;
    std::unique_ptr<Contexto> ctx;
};

} // namespace

class TestForm2 : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void primerInicioCancelarTermina();
    void primerInicioGuardarFundaLog();
    void comprobaciones_data();
    void comprobaciones();
    void cancelarDetienePresencia();
    void cierreEscapeYEnter();
    void filtros_data();
    void filtros();
    void grillaAlSalir_data();
    void grillaAlSalir();
    void leerYGuardar();
    void probarServidorReal();
    void probarServidorMudo();
    void probarFallaEnRojo();
    void rotulosYClaves();
    void audio();
    void puertoYPTT();
};

void TestForm2::primerInicioCancelarTermina()
{
    ContextoPrueba prueba;
    PrincipalFalso principal;
    QList<int> terminado;
    prueba->Terminar = [&](int codigo) { terminado << codigo; };
    prueba->ConfigInicial = true;
    Form2 f(prueba.ctx(), principal);
    f.Text1->setText(QStringLiteral("LU1ABC"));
    CuandoAparezcaModal([&](QWidget *) { f.Command2->click(); });
    QCOMPARE(f.Mostrar(), 0);
    QCOMPARE(terminado, QList<int>{0});
    QVERIFY(!QFile::exists(prueba.Archivo(QStringLiteral("config.ini"))));
    QVERIFY(principal.presencia.isEmpty());
}

void TestForm2::primerInicioGuardarFundaLog()
{
    ContextoPrueba prueba;
    PrincipalFalso principal;
    prueba->Terminar = [](int) { QFAIL("no debe terminar"); };
    prueba->ConfigInicial = true;
    Form2 f(prueba.ctx(), principal);
    CuandoAparezcaModal([&](QWidget *) {
        QTest::keyClicks(f.Text1, QStringLiteral("lu1abc"));
        f.Command1->click();
    });
    QCOMPARE(f.Mostrar(), 1);
    QVERIFY(!prueba->ConfigInicial);
    QCOMPARE(prueba->LogenUso, QStringLiteral("Log inicial"));
    QCOMPARE(prueba->almacen().Logs(), QStringList{QStringLiteral("Log inicial")});
    QCOMPARE(principal.presencia, QList<bool>{true});
    QCOMPARE(principal.aplicada.value(0), QStringLiteral("LU1ABC"));
    const QStringList lineas = LeerLineas(prueba.Archivo(QStringLiteral("config.ini"))).value();
    QCOMPARE(lineas.size(), 20);
    QCOMPARE(lineas[3], QStringLiteral("LogenUso=Log inicial"));
    QCOMPARE(lineas[16], QStringLiteral("Puerto  =NINGUNO")); // the lists are there already
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
        fila("solo letras", "ABC", "", alto, "ABC no es una señal distintiva!", "Text1");
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
    (cancelar ? f.Command2 : f.Command1)->click();

    const auto &d = *prueba.falsos.dialogos;
    const bool escrito = QFile::exists(prueba.Archivo(QStringLiteral("config.ini")));
    QCOMPARE(escrito, tipo < 0);
    QCOMPARE(f.isVisible(), tipo >= 0);
    if (tipo < 0) {
        QVERIFY(d.llamadas.isEmpty());
        return;
    }
    QCOMPARE(d.llamadas.size(), 1);
    QCOMPARE(int(d.llamadas[0].tipo), tipo);
    QCOMPARE(d.llamadas[0].texto, mensaje);
    QCOMPARE(f.focusWidget()->objectName(), foco);
    QVERIFY(principal.presencia.isEmpty());
}

void TestForm2::cancelarDetienePresencia()
{
    ContextoPrueba prueba;
    PrincipalFalso principal;
    Form2 f(prueba.ctx(), principal);
    f.Text1->setText(QStringLiteral("LU1ABC"));
    f.Command2->click();
    QCOMPARE(principal.presencia, QList<bool>{false});
    // During the main window's load the presence timer is left alone.
    prueba->IniciandoPrincipal = true;
    f.Command2->click();
    QCOMPARE(principal.presencia, QList<bool>{false});
}

void TestForm2::cierreEscapeYEnter()
{
    ContextoPrueba prueba;
    PrincipalFalso principal;
    Form2 f(prueba.ctx(), principal);
    f.show();
    QVERIFY(QTest::qWaitForWindowExposed(&f));
    QVERIFY(!f.close());
    QTest::keyClick(f.Text1, Qt::Key_Escape);
    QVERIFY(f.isVisible());
    QVERIFY(prueba.falsos.dialogos->llamadas.isEmpty());

    // Enter anywhere is Guardar, on a field, a list, a box or another button.
    for (QWidget *w : QList<QWidget *>{f.Text3, f.Combo1, f.panta, f.Command2})
        QTest::keyClick(w, Qt::Key_Return);
    QCOMPARE(prueba.falsos.dialogos->Cantidad(Tipo::Exclamacion), 4);
    f.Text1->setText(QStringLiteral("LU1ABC"));
    QTest::keyClick(f.Text9, Qt::Key_Enter);
    QVERIFY(!f.isVisible());
    QCOMPARE(principal.presencia, QList<bool>{true});
}

void TestForm2::filtros_data()
{
    QTest::addColumn<QString>("campo");
    QTest::addColumn<QString>("teclas");
    QTest::addColumn<QString>("queda");
    QTest::newRow("senal") << "Text1"
                           << "lu1-abc/p ñ?"
                           << "LU1ABC/P";
    QTest::newRow("operador") << "Text2"
                              << "Lw2.dx"
                              << "LW2DX";
    QTest::newRow("diferencia") << "Text3"
                                << "-3a,5+"
                                << "-35+";
    QTest::newRow("grilla") << "Text4"
                            << "GF05AB"
                            << "GF05AB";
    QTest::newRow("grilla corta lo que no va") << "Text4"
                                               << "G1F0A5XB"
                                               << "GF05XB";
    QTest::newRow("grilla en minusculas") << "Text4"
                                          << "gf05"
                                          << "";
}

void TestForm2::filtros()
{
    QFETCH(QString, campo);
    QFETCH(QString, teclas);
    QFETCH(QString, queda);
    ContextoPrueba prueba;
    PrincipalFalso principal;
    Form2 f(prueba.ctx(), principal);
    auto *edit = f.findChild<QLineEdit *>(campo);
    Teclear(edit, teclas);
    QCOMPARE(edit->text(), queda);
}

void TestForm2::grillaAlSalir_data()
{
    QTest::addColumn<QString>("grilla");
    QTest::addColumn<bool>("mensaje");
    QTest::newRow("vacia") << "" << false;
    QTest::newRow("seis") << "GF05AB" << false;
    QTest::newRow("cuatro") << "GF05" << true;
    QTest::newRow("siete") << "GF05AB7" << true;
}

void TestForm2::grillaAlSalir()
{
    QFETCH(QString, grilla);
    QFETCH(bool, mensaje);
    ContextoPrueba prueba;
    PrincipalFalso principal;
    Form2 f(prueba.ctx(), principal);
    f.show();
    QVERIFY(QTest::qWaitForWindowActive(&f));
    f.Text4->setFocus();
    f.Text4->setText(grilla);
    QTest::keyClick(f.Text4, Qt::Key_Tab);
    QCoreApplication::processEvents();
    QCOMPARE(prueba.falsos.dialogos->Textos(),
             mensaje ? QStringList{QStringLiteral("Grilla incorrecta!")} : QStringList{});
    QCOMPARE(f.focusWidget() == f.Text4, mensaje);
}

void TestForm2::leerYGuardar()
{
    ContextoPrueba prueba;
    PrincipalFalso principal;
    QVERIFY(prueba.Escribir("config.ini",
                            "Estacion=lu1abc\r\nOperador=LU2DEF\r\nLogenUso=Mi log\r\n"
                            "GridLoca=GF05AB\r\nNoBorrar=1\r\nPantalla=1\r\n"
                            "HAMQpass=\xb9\xba\x9c\r\nPuerto  =COM2\r\nPinPTT  =1\r\n"
                            "TAntes  =300\r\nTDespues=700\r\n"));
    Form2 f(prueba.ctx(), principal);
    f.LeerConfiguracion();
    QCOMPARE(f.Text1->text(), QStringLiteral("lu1abc"));
    QCOMPARE(f.Text6->text(), QStringLiteral("abc"));
    QVERIFY(f.panta->isChecked() && f.RTS->isChecked() && !f.DTR->isChecked());
    QCOMPARE(f.Combo2->currentText(), QStringLiteral("700")); // not in the list, kept
    QCOMPARE(prueba->LogenUso, QStringLiteral("Mi log"));
    QCOMPARE(principal.noBorrar, 1);
    QCOMPARE(principal.aplicada, (QStringList{"LU1ABC", "LU2DEF", "Mi log", "GF05AB", "1"}));
    // The PTT line follows the setting, both lines off; a second read leaves it open.
    QCOMPARE(prueba.falsos.puertoPTT->historial, (QStringList{"RTS0", "DTR0"}));
    f.LeerConfiguracion();
    QCOMPARE(prueba.falsos.puertoPTT->aperturas, QStringList{QStringLiteral("COM2")});
    QCOMPARE(f.Puerto->count(), Form2::ListaPuertos().size());

    // Saved and read by a fresh window, every value comes back, the callsign raised.
    QVERIFY(f.GuardarConfiguracion());
    PrincipalFalso otro;
    Form2 g(prueba.ctx(), otro);
    g.LeerConfiguracion();
    Configuracion esperada = f.Valores();
    esperada.Estacion = QStringLiteral("LU1ABC");
    QCOMPARE(g.Valores(), esperada);
}

void TestForm2::probarServidorReal()
{
    ServidorHttpPrueba servidor;
    servidor.ResponderPrefijo("/php/carancho_c2.php", "<html><body>Bienvenido</body></html>");
    ContextoConRed red(servidor.Base());
    PrincipalFalso principal;
    Form2 f(*red.ctx, principal);
    f.Text1->setText(QStringLiteral("LU1ABC"));
    f.user_lbn->setText(QStringLiteral("yo@x.ar"));
    f.pass_lbn->setText(QStringLiteral("100%&mas"));
    f.Command4->click();
    QVERIFY(!f.Command4->isEnabled());
    QCOMPARE(f.Label3->text(), QStringLiteral("user=yo@x.ar\nmicall=LU1ABC\n"));
    QVERIFY(servidor.EsperarPedidos(1));
    QCOMPARE(servidor.pedidos[0].crudo,
             QByteArray("/php/carancho_c2.php?user=yo@x.ar&pass=100%25%26mas&micall=LU1ABC"));
    QTRY_COMPARE(f.Label3->text(), QStringLiteral("Bienvenido"));
    QVERIFY(f.Command4->isEnabled());
    QVERIFY(!f.Timer1->isActive());
}

void TestForm2::probarServidorMudo()
{
    ServidorHttpPrueba servidor;
    servidor.Callar(true);
    ContextoConRed red(servidor.Base());
    PrincipalFalso principal;
    Form2 f(*red.ctx, principal);
    f.Command4->click();
    QVERIFY(f.Timer1->isActive());
    QVERIFY(servidor.EsperarPedidos(1));
    for (int i = 1; i < Form2::kTicksPrueba; ++i)
        f.Timer1_Timer();
    QCOMPARE(f.ProgressBar1->value(), Form2::kTicksPrueba - 1);
    QVERIFY(!f.Command4->isEnabled());
    f.Timer1_Timer();
    QCOMPARE(f.Label3->text(), kSinConexion);
    QCOMPARE(f.ProgressBar1->value(), 0);
    QVERIFY(f.Command4->isEnabled());
    QVERIFY(!f.Timer1->isActive());
}

void TestForm2::probarFallaEnRojo()
{
    ContextoPrueba prueba;
    PrincipalFalso principal;
    prueba.falsos.web->sincronico = true; // the answer comes inside the request
    prueba.falsos.web->Fallar(QStringLiteral("/php/carancho_c2.php"));
    Form2 f(prueba.ctx(), principal);
    f.Command4->click();
    QCOMPARE(f.Label3->text(), kSinConexion);
    QCOMPARE(f.Label3->palette().color(QPalette::WindowText), QColor(Qt::red));
    QVERIFY(f.Command4->isEnabled());
    // A later test that works is not shown in red.
    prueba.falsos.web->Responder(QStringLiteral("/php/carancho_c2.php"), QStringLiteral("OK"));
    f.Command4->click();
    QCOMPARE(f.Label3->text(), QStringLiteral("OK"));
    QVERIFY(f.Label3->palette().color(QPalette::WindowText) != QColor(Qt::red));
}

void TestForm2::rotulosYClaves()
{
    ContextoPrueba prueba;
    PrincipalFalso principal;
    Form2 f(prueba.ctx(), principal);
    f.show();
    QCOMPARE(f.windowTitle(), QStringLiteral("Configuración"));
    // Each field is read by its caption, inside its frame.
    const QList<QStringList> campos{{"Text1", "Señal Distintiva de la  Estación", ""},
                                    {"Text3", "Diferencia UTC", ""},
                                    {"Text4", "Grid Locator", ""},
                                    {"user_lbn", "Usuario (email):", "LbN"},
                                    {"pass_lbn", "Contraseña:", "LbN"},
                                    {"Text6", "Contraseña", "QRZ.com"},
                                    {"Text8", "Usuario", "Libro Nacional"},
                                    {"Text10", "Contraseña", "eQSL"},
                                    {"Combo2", "mseg. después", "Llamador CQ ..."}};
    for (const QStringList &c : campos) {
        auto *campo = f.findChild<QWidget *>(c[0]);
        QVERIFY2(campo, qPrintable(c[0]));
        QStringList rotulos;
        for (const QLabel *l : f.findChildren<QLabel *>()) {
            if (l->buddy() == campo)
                rotulos << l->text();
        }
        QCOMPARE(rotulos, QStringList{c[1]});
        QCOMPARE(qobject_cast<QGroupBox *>(campo->parentWidget())->title(), c[2]);
    }
    // The passwords show while their button is held down.
    for (const auto &[boton, campo] :
         QList<QPair<const char *, QLineEdit *>>{{"Command3", f.pass_lbn},
                                                 {"Image1", f.Text6},
                                                 {"Image2", f.Text7},
                                                 {"Image3", f.Text10}}) {
        auto *b = f.findChild<QPushButton *>(boton);
        QCOMPARE(campo->echoMode(), QLineEdit::Password);
        QTest::mousePress(b, Qt::LeftButton);
        QCOMPARE(campo->echoMode(), QLineEdit::Normal);
        QTest::mouseRelease(b, Qt::LeftButton);
        QCOMPARE(campo->echoMode(), QLineEdit::Password);
    }
}

void TestForm2::audio()
{
    ContextoPrueba prueba;
    PrincipalFalso principal;
    Form2 f(prueba.ctx(), principal);
    auto &d = *prueba.falsos.dialogos;
    auto &r = *prueba.falsos.reproductor;
    f.Command6->click(); // no file: nothing plays
    QVERIFY(r.ordenes.isEmpty());

    d.archivosAbrir.enqueue(QStringLiteral("/home/op/cq.wav"));
    f.Command5->click();
    f.Command5->click(); // cancelled: the file stays
    QCOMPARE(f.Label6->text(), QStringLiteral("/home/op/cq.wav"));
    QCOMPARE(d.llamadas[0].titulo, QStringLiteral("Abrir Archivo de Audio ..."));
    QCOMPARE(d.llamadas[0].texto, QStringLiteral("Audio (*.mp3 *.wav)"));

    f.Command6->click();
    QCOMPARE(r.ordenes,
             (QStringList{"Cerrar", "Rebobinar", "Abrir /home/op/cq.wav", "Reproducir"}));
    QVERIFY(!f.Command6->isEnabled() && f.Command7->isEnabled());
    r.Terminar();
    QVERIFY(f.Command6->isEnabled() && !f.Command7->isEnabled());
    f.Command6->click();
    r.ordenes.clear();
    f.Command7->click();
    QCOMPARE(r.ordenes, (QStringList{"Detener", "Cerrar"}));
    QVERIFY(f.Command6->isEnabled());
}

void TestForm2::puertoYPTT()
{
    ContextoPrueba prueba;
    PrincipalFalso principal;
    Form2 f(prueba.ctx(), principal);
    auto &linea = *prueba.falsos.puertoPTT;
    const auto elegir = [&f](const char *puerto) {
        f.Puerto->setCurrentIndex(f.Puerto->findText(QString(puerto)));
        f.Puerto_Click();
    };
    QCOMPARE(f.Puerto->itemText(20), QStringLiteral("COM20"));
    elegir("COM3");
    QCOMPARE(linea.Puerto(), QStringLiteral("COM3"));
    f.RTS->setChecked(true);
    QTest::mousePress(f.Command8, Qt::LeftButton);
    QTest::mouseRelease(f.Command8, Qt::LeftButton);
    f.DTR->setChecked(true);
    QVERIFY(!f.RTS->isChecked());
    QTest::mousePress(f.Command8, Qt::LeftButton);
    QTest::mouseRelease(f.Command8, Qt::LeftButton);
    QCOMPARE(linea.historial, (QStringList{"RTS0", "DTR0", "RTS1", "RTS0", "DTR1", "DTR0"}));
    elegir("NINGUNO");
    QVERIFY(!linea.Abierta());

    linea.puertosQueFallan << QStringLiteral("COM5");
    elegir("COM5");
    QVERIFY(!linea.Abierta());
    QVERIFY(prueba.falsos.dialogos->llamadas.isEmpty());
    prueba->IniciandoPrincipal = true;
    elegir("COM4");
    QCOMPARE(linea.aperturas, (QStringList{"COM3", "COM5"}));
}

QTEST_MAIN(TestForm2)
#include "test_form2.moc"
