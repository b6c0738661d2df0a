// The edit window as the operator meets it: opened from the log view and by F5 over a
// real main window, saved, refused, deleted, and handing a QSO to the QSL designer.
#include "editing/Form5.h"
#include "logcore/Form1.h"
#include "platform/EscritorioQt.h"
#include "support/ContextoPrueba.h"
#include "support/Modales.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>

using Tipo = LlamadaDialogo::Tipo;

namespace {

const QString Log = QStringLiteral("Pruebas");

// A designer that writes down how it was started: its argument count, each argument on a
// line, and the folder it was started in.
const QByteArray DisenadorFalso = "#!/bin/sh\n"
                                  "d=$(pwd)\n"
                                  "{ printf '%s\\n' \"$#\"; printf '%s\\n' \"$@\" \"$d\"; } "
                                  "> \"$0.tmp\" && mv \"$0.tmp\" \"$0.linea\"\n";

bool Escribir(const QString &ruta, const QByteArray &contenido)
{
    QFile f(ruta);
    return f.open(QIODevice::WriteOnly) && f.write(contenido) == contenido.size();
}

// The designer's folder inside a program folder: tordos.ini pointing at it, one design for
// the given callsign and, if asked, the program.
QString PrepararTordos(const QString &carpetaPrograma, bool conPrograma, bool ejecutable,
                       const QByteArray &suCall = "LU1AAA")
{
    const QString carpeta = QDir(carpetaPrograma).filePath(QStringLiteral("Tordos"));
    Escribir(QDir(carpetaPrograma).filePath("tordos.ini"), "Carpeta=" + carpeta.toUtf8() + "\n");
    QDir().mkpath(carpeta + QStringLiteral("/MisQSLs"));
    Escribir(carpeta + QStringLiteral("/MisQSLs/mia.qsl"), "Fondo=azul\r\nSuCall=" + suCall);
    if (conPrograma) {
        QFile programa(carpeta + QStringLiteral("/Tordos"));
        Escribir(programa.fileName(), DisenadorFalso);
        if (ejecutable)
            programa.setPermissions(programa.permissions() | QFileDevice::ExeOwner);
    }
    return carpeta;
}

RegistroQSO QSO(const QString &estacion, const QDate &fecha, const QString &modo = "SSB")
{
    RegistroQSO q;
    q.Estacion = estacion;
    q.Modo = modo;
    // Out of the 80 m segment on purpose: loading the window must raise no band warning.
    q.Banda = QStringLiteral("80m");
    q.Frecuencia = QStringLiteral("3.100");
    q.RSE = QStringLiteral("59");
    q.RSR = QStringLiteral("57");
    q.Fecha = fecha.toString(QStringLiteral("dd/MM/yyyy"));
    q.Hora = QStringLiteral("10:00:00");
    q.MyCall = QStringLiteral("LU1AAA");
    q.Operador = QStringLiteral("LU2BBB");
    q.Obs = QStringLiteral("nota");
    return q;
}

// The main window over a fresh folder, past its start-up with the timers held, with its
// edit window connected. The QSOs are stored before the start, LU0XX the oldest.
struct Ventana
{
    explicit Ventana(int qsos = 0, const QString &modoUltimo = QStringLiteral("SSB"))
    {
        p.Escribir(QStringLiteral("config.ini"), "Estacion=LU1AAA\r\nOperador=LU2BBB\r\n"
                                                 "LogenUso=Pruebas\r\nPantalla=1\r\n");
        p->Terminar = [](int) {};
        for (int i = 0; i < qsos; ++i)
            p->almacen().AgregarQSO(QSO(QStringLiteral("LU%1XX").arg(i),
                                        QDate(2024, 1, 1).addDays(i),
                                        i == qsos - 1 ? modoUltimo : QStringLiteral("SSB")),
                                    Log);
        f = std::make_unique<Form1>(p.ctx());
        for (QTimer *t : {f->Timer1, f->Timer2, f->Timer7})
            t->stop();
        f->show();
        QApplication::setActiveWindow(f.get());
        static_cast<void>(QTest::qWaitForWindowActive(f.get()));
        f->Timer2_Timer();
        f->Timer1_Timer();
        edicion = ConectarEdicion(*f, p.ctx());
    }

    qint64 IdDeFila(int fila) const
    {
        return f->ListView2->topLevelItem(fila)->text(1).toLongLong();
    }
    FilaQSO Guardada(qint64 id) { return p->almacen().QSOPorId(Log, id).value_or(FilaQSO()); }

    // The edit window filled as its openers fill it, but shown without its modal loop, so
    // that the test can act on it step by step.
    void Abrir(qint64 id)
    {
        FilaQSO fila = Guardada(id);
        fila.Hora = fila.Hora.left(5);
        p->OrigenEdicion = QStringLiteral("Form1");
        p->CargandoEdicion = true;
        edicion->Cargar(fila, true);
        edicion->show();
        QApplication::setActiveWindow(edicion);
        static_cast<void>(QTest::qWaitForWindowActive(edicion));
    }
    DialogosFalso &d() { return *p.falsos.dialogos; }

    ContextoPrueba p;
    std::unique_ptr<Form1> f;
    Form5 *edicion = nullptr;
};

// What the edit window showed when it came up.
struct Visto
{
    bool abierta = false, cargando = true;
    QString titulo, corresponsal, fecha, hora, modo, frecuencia, banda, lbn;
    QStringList modos;
};

// Runs the step inside the edit window's own modal loop, after noting what it shows; the
// window is closed afterwards if still open, so that a failed check never hangs the test.
void EnLaEdicion(Visto &visto, const Contexto &ctx, std::function<void(Form5 *)> paso = {})
{
    CuandoAparezcaModal([&visto, &ctx, paso](QWidget *w) {
        if (auto *e = qobject_cast<Form5 *>(w)) {
            visto = {true,
                     ctx.CargandoEdicion,
                     e->windowTitle(),
                     e->Text2->text(),
                     e->Text4->text(),
                     e->Text5->text(),
                     e->Combo2->currentText(),
                     e->mhz->currentText() + '|' + e->Text9->text(),
                     e->Label11->text(),
                     e->subidoALbn->text() + '|' + e->ConfALbn->text(),
                     {}};
            for (int i = 0; i < e->Combo2->count(); ++i)
                visto.modos << e->Combo2->itemText(i);
            if (paso)
                paso(e);
        }
        if (w->isVisible())
            w->close();
    });
}

} // namespace

class TestForm5 : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void guardarDesdeLaVista();
    void guardadoRechazado_data();
    void guardadoRechazado();
    void eliminar_data();
    void eliminar();
    void f5TrasArrancarYTrasIngresar();
    void revisionesAlSalir_data();
    void revisionesAlSalir();
    void filtros_data();
    void filtros();
    void rotulos();
    void qslSinDisenador_data();
    void qslSinDisenador();
    void qslAlDisenador();
    void qslArrancaDeVerdad();
};

void TestForm5::guardarDesdeLaVista()
{
    Ventana v(25);
    v.f->mas_Click(); // page 2: LU4XX down to LU0XX
    const qint64 id = v.IdDeFila(0);
    v.p->almacen().MarcarLbN(id, 2);
    v.f->Command11_Click();

    Visto visto;
    EnLaEdicion(visto, v.p.ctx(), [](Form5 *e) {
        e->Text2->setText(QStringLiteral("LU1GP"));
        e->Text8->setText(QStringLiteral("it's fixed"));
        e->Command1->click();
    });
    Q_EMIT v.f->ListView2->itemDoubleClicked(v.f->ListView2->topLevelItem(0), 2);

    QVERIFY(visto.abierta);
    QVERIFY(!visto.cargando);
    QCOMPARE(visto.titulo, QStringLiteral("Edición de QSO #%1").arg(id));
    QCOMPARE(visto.corresponsal, QStringLiteral("LU4XX"));
    QCOMPARE(visto.fecha + ' ' + visto.hora, QStringLiteral("05/01/2024 10:00"));
    QCOMPARE(visto.modos, (QStringList{"SSB", "CW", "FM"}));
    QCOMPARE(visto.frecuencia + ' ' + visto.banda, QStringLiteral("3|100 80m"));
    QCOMPARE(visto.lbn, QStringLiteral("SI|SI"));
    QVERIFY2(v.d().llamadas.isEmpty(), qPrintable(v.d().UltimoTexto()));

    FilaQSO esperada = v.Guardada(id); // as it was, but for what the edit changes
    esperada.Estacion = QStringLiteral("LU1GP");
    esperada.Argento = QStringLiteral("Formosa");
    esperada.Obs = QStringLiteral("it's fixed");
    esperada.LbN.clear();
    QCOMPARE(v.Guardada(id), esperada);
    QCOMPARE(esperada.Hora, QStringLiteral("10:00:00"));
    QCOMPARE(esperada.Frecuencia, QStringLiteral("3.100"));

    // The view stays on its page, with the row as saved.
    QCOMPARE(v.f->txt_pagina->text(), QStringLiteral("2"));
    QCOMPARE(v.f->ListView2->topLevelItem(0)->text(2), QStringLiteral("LU1GP"));
    // Opened again, the row is back to not uploaded.
    EnLaEdicion(visto, v.p.ctx());
    Q_EMIT v.f->ListView2->itemDoubleClicked(v.f->ListView2->topLevelItem(0), 2);
    QCOMPARE(visto.lbn, QStringLiteral("NO|NO"));
}

void TestForm5::guardadoRechazado_data()
{
    QTest::addColumn<QString>("campo");
    QTest::addColumn<QString>("valor");
    QTest::addColumn<QString>("mensaje");
    QTest::addColumn<bool>("alto");
    QTest::addColumn<QString>("foco");
    const struct
    {
        const char *nombre, *campo, *valor, *mensaje;
        bool alto;
        const char *foco;
    } casos[] = {
        // The satellite field is hidden on this QSO: it comes up for the name.
        {"sat sin satélite", "Combo2", "Sat", "Debe agregar el nombre del Satélite", true,
         "Text12"},
        {"la propia estación", "Text2", "LU1AAA", "QSO con la propia estación??", true, "Text2"},
        {"recibido en blanco", "Text7", " ", "Reporte incorrecto!", false, "Text7"},
        {"fecha que no es", "Text4", "31/04/2024", "Error Fecha!\r\nFormato: DD/MM/AAAA", false,
         "Text4"},
    };
    for (const auto &c : casos)
        QTest::newRow(c.nombre) << c.campo << c.valor << QString::fromUtf8(c.mensaje) << c.alto
                                << c.foco;
}

void TestForm5::guardadoRechazado()
{
    QFETCH(QString, campo);
    QFETCH(QString, valor);
    QFETCH(QString, mensaje);
    QFETCH(bool, alto);
    QFETCH(QString, foco);
    Ventana v(1);
    const qint64 id = v.IdDeFila(0);
    const FilaQSO antes = v.Guardada(id);
    v.Abrir(id);
    if (auto *c = v.edicion->findChild<QComboBox *>(campo))
        c->setCurrentText(valor);
    else
        v.edicion->findChild<QLineEdit *>(campo)->setText(valor);
    v.edicion->Command1->click();

    QCOMPARE(v.d().Textos(), QStringList{mensaje});
    QCOMPARE(v.d().llamadas.first().tipo, alto ? Tipo::Alto : Tipo::Exclamacion);
    QVERIFY(v.edicion->isVisible());
    QVERIFY(QApplication::focusWidget());
    QCOMPARE(QApplication::focusWidget()->objectName(), foco);
    QCOMPARE(v.Guardada(id), antes);
}

void TestForm5::eliminar_data()
{
    QTest::addColumn<bool>("si");
    QTest::newRow("sí") << true;
    QTest::newRow("no") << false;
}

void TestForm5::eliminar()
{
    QFETCH(bool, si);
    Ventana v(3);
    const qint64 id = v.IdDeFila(1);
    v.Abrir(id);
    v.d().respuestasSiNo.enqueue(si);
    v.edicion->Command2->click();

    QCOMPARE(v.d().Textos(), QStringList{QStringLiteral("Elimina el QSO #%1?\r\n\r\nLos datos no "
                                                        "se podrán recuperar!")
                                             .arg(id)});
    QCOMPARE(v.d().llamadas.first().tipo, Tipo::PreguntaSiNo);
    QVERIFY(!v.edicion->isVisible());
    QCOMPARE(v.p->almacen().QSOPorId(Log, id).has_value(), !si);
    QCOMPARE(v.f->Label6->text(), QStringLiteral("Log: Pruebas, con %1 QSOs").arg(si ? 2 : 3));
    QCOMPARE(v.f->ListView2->topLevelItemCount(), si ? 2 : 3);
}

void TestForm5::f5TrasArrancarYTrasIngresar()
{
    Ventana v(2, QStringLiteral("DVoice")); // the newest, LU1XX, in a mode of its own
    Visto visto;
    EnLaEdicion(visto, v.p.ctx());
    v.f->EditarUltimoQSO(); // what F5 runs
    QVERIFY(!visto.cargando);
    QCOMPARE(visto.titulo, QStringLiteral("Edición de QSO #%1").arg(v.IdDeFila(0)));
    QCOMPARE(visto.corresponsal, QStringLiteral("LU1XX"));
    QCOMPARE(visto.modos, (QStringList{"SSB", "FM", "CW", "Sat", "DVoice"}));
    QCOMPARE(visto.modo, QStringLiteral("DVoice"));

    // Entered now with an older date: F5 edits that one, not the newest by date.
    v.f->Check1->click();
    v.f->Fecha->setText(QStringLiteral("01/01/2000"));
    v.f->Corresponsal->setText(QStringLiteral("LU7DD"));
    v.f->Command2->click();
    EnLaEdicion(visto, v.p.ctx());
    v.f->EditarUltimoQSO();
    QCOMPARE(visto.titulo, QStringLiteral("Edición de QSO #") + v.f->Label4->text());
    QCOMPARE(visto.corresponsal + ' ' + visto.fecha, QStringLiteral("LU7DD 01/01/2000"));
    QCOMPARE(visto.modos, (QStringList{"SSB", "FM", "CW", "Sat"}));
    QVERIFY2(v.d().llamadas.isEmpty(), qPrintable(v.d().UltimoTexto()));
}

void TestForm5::revisionesAlSalir_data()
{
    QTest::addColumn<QString>("campo");
    QTest::addColumn<QString>("mhz"); // empty: as loaded
    QTest::addColumn<QString>("tecleado");
    QTest::addColumn<QString>("queda");
    QTest::addColumn<QString>("mensaje"); // empty: the field is left
    QTest::addColumn<QString>("banda");   // of Label11, after the kHz field
    const struct
    {
        const char *nombre, *campo, *mhz, *tecleado, *queda, *mensaje, *banda;
    } casos[] = {
        {"fecha", "Text4", "", "29/02/2023", "29/02/2023", "Error Fecha!\r\nFormato: DD/MM/AAAA",
         ""},
        {"hora", "Text5", "", "24:00", "24:00", "Error Hora!\r\nMayor de 23.", ""},
        {"grilla de cuatro", "Text10", "", "ff78", "FF78", "Grilla incorrecta!", ""},
        {"grilla de seis", "Text11", "", "GF05TJ", "GF05TJ", "", ""},
        {"khz rellenado, fuera de banda", "Text9", "3", "4", "004",
         "3.004 KHz\r\n\r\nFuera de banda!", "80m"},
        {"khz vacío", "Text9", "10", "", "000", "", "30m"},
        {"23 sin la c", "Text9", "1267", "1", "001", "", "23m"},
        {"en ninguna banda", "Text9", "2", "50", "050", "", ""},
    };
    for (const auto &c : casos)
        QTest::newRow(c.nombre) << c.campo << c.mhz << c.tecleado << c.queda << c.mensaje
                                << c.banda;
}

void TestForm5::revisionesAlSalir()
{
    QFETCH(QString, campo);
    QFETCH(QString, mhz);
    QFETCH(QString, tecleado);
    QFETCH(QString, queda);
    QFETCH(QString, mensaje);
    QFETCH(QString, banda);
    Ventana v(1);
    v.Abrir(v.IdDeFila(0));
    if (!mhz.isEmpty())
        v.edicion->mhz->setCurrentText(mhz);
    auto *e = v.edicion->findChild<QLineEdit *>(campo);
    e->setFocus();
    e->clear();
    QTest::keyClicks(e, tecleado);
    QTest::keyClick(e, Qt::Key_Tab);

    QCOMPARE(v.d().UltimoTexto(), mensaje);
    QCOMPARE(e->text(), queda);
    QCOMPARE(QApplication::focusWidget() == e, !mensaje.isEmpty());
    if (campo == QLatin1String("Text9"))
        QCOMPARE(v.edicion->Label11->text(), banda);
}

void TestForm5::filtros_data()
{
    QTest::addColumn<QString>("campo");
    QTest::addColumn<QString>("tecleado");
    QTest::addColumn<QString>("queda");
    QTest::newRow("señal, sin ?") << "Text2"
                                  << "lu1/a?b-," << QStringLiteral("LU1/AB");
    QTest::newRow("fecha") << "Text4"
                           << "15-03/2024a" << QStringLiteral("1503/2024");
    QTest::newRow("hora") << "Text5"
                          << "12:3a0?" << QStringLiteral("12:30");
    QTest::newRow("grilla a su forma") << "Text11"
                                       << "f7f" << QStringLiteral("FF");
    QTest::newRow("observaciones libres") << "Text8"
                                          << "it's $ 73?" << QStringLiteral("it's $ 73?");
}

void TestForm5::filtros()
{
    QFETCH(QString, campo);
    QFETCH(QString, tecleado);
    QFETCH(QString, queda);
    Ventana v(1);
    v.Abrir(v.IdDeFila(0));
    auto *e = v.edicion->findChild<QLineEdit *>(campo);
    e->setFocus();
    e->clear();
    QTest::keyClicks(e, tecleado);
    QCOMPARE(e->text(), queda);
}

void TestForm5::rotulos()
{
    Ventana v;
    // Each field is read by its caption.
    const QList<QPair<QLineEdit *, QString>> esperados{{v.edicion->Text1, "Mi Señal Distintiva"},
                                                       {v.edicion->Text9, "KHz"},
                                                       {v.edicion->Text12, "Satélite"}};
    for (const auto &[campo, texto] : esperados) {
        QString rotulo;
        for (const QLabel *l : v.edicion->findChildren<QLabel *>())
            if (l->buddy() == campo)
                rotulo += l->text();
        QCOMPARE(rotulo, texto);
    }
    QCOMPARE(v.edicion->MarcoLbN->title(), QStringLiteral("Libro Nacional"));
    // The lookups are plugged in later: until then their buttons do nothing, then they get
    // the correspondent.
    v.edicion->Command3->click();
    QString buscada;
    v.edicion->buscarQRZ = [&](const QString &s) { buscada = s; };
    v.edicion->Text2->setText(QStringLiteral("LU5FF"));
    v.edicion->Command13->click();
    QCOMPARE(buscada, QStringLiteral("LU5FF"));
}

void TestForm5::qslSinDisenador_data()
{
    QTest::addColumn<bool>("conPrograma");
    QTest::addColumn<bool>("ejecutable");
    QTest::addColumn<QByteArray>("suCall");
    QTest::addColumn<QString>("mensaje");
    const QString falta = QStringLiteral("No se encuentra programa Tordos");
    QTest::newRow("sin programa") << false << false << QByteArray("LU1AAA") << falta;
    QTest::newRow("no ejecutable") << true << false << QByteArray("LU1AAA") << falta;
    QTest::newRow("sin diseño de la estación")
        << true << true << QByteArray("LU9ZZZ")
        << QStringLiteral("El programa Tordos no tiene Diseño de QSL para LU1AAA");
}

void TestForm5::qslSinDisenador()
{
    QFETCH(bool, conPrograma);
    QFETCH(bool, ejecutable);
    QFETCH(QByteArray, suCall);
    QFETCH(QString, mensaje);
    Ventana v(1);
    PrepararTordos(v.p.Carpeta(), conPrograma, ejecutable, suCall);
    v.Abrir(v.IdDeFila(0));
    v.edicion->Command4->click();
    QCOMPARE(v.d().Textos(Tipo::Exclamacion), QStringList{mensaje});
    QCOMPARE(v.d().llamadas.size(), 1);
    QVERIFY(v.p.falsos.escritorio->programas.isEmpty());
}

void TestForm5::qslAlDisenador()
{
    Ventana v;
    RegistroQSO q = QSO(QStringLiteral("LU1ABC/P"), QDate(2024, 3, 15), QStringLiteral("FM"));
    q.Banda = QStringLiteral("2m");
    q.Hora = QStringLiteral("21:05:00");
    q.Nombre_Sat = QStringLiteral("ao-91");
    q.Obs = QStringLiteral("tnx $ 73");
    const qint64 id = v.p->almacen().AgregarQSO(q, Log);
    const FilaQSO antes = v.Guardada(id);
    const QString carpeta = PrepararTordos(v.p.Carpeta(), true, true);
    v.Abrir(id);
    v.d().respuestasSiNo.enqueue(true);
    v.edicion->Command4->click();

    const auto &programas = v.p.falsos.escritorio->programas;
    QCOMPARE(programas.size(), 1);
    QCOMPARE(programas[0].programa, carpeta + QStringLiteral("/Tordos"));
    QCOMPARE(programas[0].argumentos,
             QStringList{"Tordo$de=LU1AAA$para=LU1ABC/P$fecha=15/03/2024$hora=21:05$modo=FM"
                         "$banda=2m$reporte=59$sat=AO-91$nota=tnx $ 73"});
    QCOMPARE(programas[0].carpetaTrabajo, carpeta);
    QCOMPARE(v.d().Textos(Tipo::PreguntaSiNo),
             QStringList{QStringLiteral("QSL LU1ABC/P_15032024.jpg guardada en ") + carpeta +
                         QStringLiteral("/Salida/\r\n\r\nDesea verla?")});
    QCOMPARE(v.p.falsos.escritorio->abiertos,
             QStringList{carpeta + QStringLiteral("/Salida/LU1ABC_P_15032024.jpg")});
    QCOMPARE(v.Guardada(id), antes); // no card mark of any kind
}

void TestForm5::qslArrancaDeVerdad()
{
    // The desktop of the program itself, so that the designer really starts.
    QTemporaryDir carpetaPrograma;
    ServiciosFalsos falsos;
    Servicios servicios = falsos.Tomar();
    servicios.escritorio = std::make_unique<EscritorioQt>();
    Contexto ctx(carpetaPrograma.path(), std::move(servicios));
    QCOMPARE(ctx.AbrirAlmacen(), QString());
    Form1 principal(ctx);
    for (QTimer *t : principal.findChildren<QTimer *>())
        t->stop();
    const QString carpeta = PrepararTordos(carpetaPrograma.path(), true, true);

    Form5 edicion(ctx, principal);
    FilaQSO fila;
    fila.MyCall = QStringLiteral("LU1AAA");
    fila.Estacion = QStringLiteral("LU5FF");
    fila.Fecha = QStringLiteral("15/03/2024");
    fila.Modo = QStringLiteral("CW");
    fila.Obs = QStringLiteral("dos  blancos y \"comillas\"");
    edicion.Cargar(fila, false);
    edicion.Command4->click(); // the question is answered No: nothing to open

    const QString registro = carpeta + QStringLiteral("/Tordos.linea");
    QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(registro), 20000);
    QFile f(registro);
    QVERIFY(f.open(QIODevice::ReadOnly));
    const QStringList lineas = QString::fromUtf8(f.readAll()).split(QLatin1Char('\n'));
    QCOMPARE(lineas.value(0), QStringLiteral("1"));
    QCOMPARE(lineas.value(1), QStringLiteral("Tordo$de=LU1AAA$para=LU5FF$fecha=15/03/2024$hora="
                                             "$modo=CW$banda=$reporte=$sat=$nota=dos  blancos y "
                                             "\"comillas\""));
    QCOMPARE(QDir(lineas.value(2)).canonicalPath(), QDir(carpeta).canonicalPath());
    QCOMPARE(falsos.dialogos->Cantidad(Tipo::PreguntaSiNo), 1);
}

QTEST_MAIN(TestForm5)
#include "test_form5.moc"
