// The edit window as the operator meets it: opened from the log view and by F5 over a
// real main window, saved, refused, deleted, and handing a QSO to the QSL designer.
#include "gui/editing/Form5.h"
#include "gui/main/Form1.h"
#include "support/ContextoPrueba.h"
#include "support/Hecho.h"
#include "support/Modales.h"

#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>

using Tipo = LlamadaDialogo::Tipo;

namespace {

const QString Log = QStringLiteral("Pruebas");

bool Escribir(const QString &ruta, const QByteArray &contenido)
{
    QFile f(ruta);
    return f.open(QIODevice::WriteOnly) && f.write(contenido) == contenido.size();
}

// The designer's folder inside a program folder: tordos.ini pointing at it, one design for
// the given callsign and, if asked, a stand-in for the program.
QString PrepararTordos(const QString &carpetaPrograma, bool conPrograma, bool ejecutable,
                       const QByteArray &suCall = "LU1AAA")
{
    const QString carpeta = QDir(carpetaPrograma).filePath(QStringLiteral("Tordos"));
    Escribir(QDir(carpetaPrograma).filePath("tordos.ini"), "Carpeta=" + carpeta.toUtf8() + "\n");
    QDir().mkpath(carpeta + QStringLiteral("/MisQSLs"));
    Escribir(carpeta + QStringLiteral("/MisQSLs/mia.qsl"), "Fondo=azul\r\nSuCall=" + suCall);
    QFile programa(carpeta + QStringLiteral("/Tordos"));
    if (conPrograma && Escribir(programa.fileName(), "#!/bin/sh\n") && ejecutable)
        programa.setPermissions(programa.permissions() | QFileDevice::ExeOwner);
    return carpeta;
}

// Out of the 80 m segment on purpose: loading the window must raise no band warning.
RegistroQSO QSO(const QString &estacion, const QDate &fecha, const QString &modo = "SSB")
{
    RegistroQSO q;
    q.Estacion = estacion, q.Modo = modo, q.Fecha = fecha.toString(QStringLiteral("dd/MM/yyyy"));
    q.Banda = "80m", q.Frecuencia = "3.100", q.RSE = "59", q.RSR = "57", q.Hora = "10:00:00";
    q.MyCall = QStringLiteral("LU1AAA"), q.Operador = QStringLiteral("LU2BBB");
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
            Hecho(p->almacen().AgregarQSO(QSO(QStringLiteral("LU%1XX").arg(i),
                                              QDate(2024, 1, 1).addDays(i),
                                              i == qsos - 1 ? modoUltimo : QStringLiteral("SSB")),
                                          Log));
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
        p->OrigenEdicion = QStringLiteral("Form1");
        edicion->Cargar(Guardada(id), true);
        edicion->show();
        QApplication::setActiveWindow(edicion);
        static_cast<void>(QTest::qWaitForWindowActive(edicion));
    }
    DialogosFalso &d() { return *p.falsos.dialogos; }

    ContextoPrueba p;
    std::unique_ptr<Form1> f;
    Form5 *edicion = nullptr;
};

// Runs the step inside the edit window's own modal loop, after noting in one line what it
// shows; the window is closed afterwards if still open, so a failed check never hangs.
void EnLaEdicion(QString &visto, const Contexto &ctx, std::function<void(Form5 *)> paso = {})
{
    visto = QStringLiteral("sin abrir");
    CuandoAparezcaModal([&visto, &ctx, paso](QWidget *w) {
        if (auto *e = qobject_cast<Form5 *>(w)) {
            QStringList modos;
            for (int i = 0; i < e->Combo2->count(); ++i)
                modos << e->Combo2->itemText(i);
            visto = QStringList{ctx.CargandoEdicion ? "cargando" : "lista",
                                e->windowTitle(),
                                e->Text2->text() + ' ' + e->Text4->text() + ' ' + e->Text5->text(),
                                e->Combo2->currentText() + " de " + modos.join(','),
                                e->mhz->currentText() + '.' + e->Text9->text() + ' ' +
                                    e->Label11->text(),
                                e->subidoALbn->text() + '/' + e->ConfALbn->text()}
                        .join(QStringLiteral(" | "));
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
    void mensajes_data();
    void mensajes();
    void eliminar();
    void grillaAlTeclear_data();
    void grillaAlTeclear();
    void valoresParaElLector();
    void f5TrasArrancarYTrasIngresar();
    void abreLaFilaGuardada_data();
    void abreLaFilaGuardada();
    void qsl_data();
    void qsl();
};

void TestForm5::guardarDesdeLaVista()
{
    Ventana v(25);
    v.f->mas_Click(); // page 2: LU4XX down to LU0XX
    const qint64 id = v.IdDeFila(0);
    QVERIFY(v.p->almacen().MarcarLbN(id, 2));
    v.f->Command11_Click();

    QString visto;
    EnLaEdicion(visto, v.p.ctx(), [](Form5 *e) {
        e->Text2->setText(QStringLiteral("LU1GP"));
        e->Text8->setText(QStringLiteral("it's fixed"));
        e->Command1->click();
    });
    Q_EMIT v.f->ListView2->itemDoubleClicked(v.f->ListView2->topLevelItem(0), 2);
    QCOMPARE(visto, QStringLiteral("lista | Edición de QSO #%1 | LU4XX 05/01/2024 10:00 | SSB de "
                                   "SSB,CW,FM | 3.100 80m | SI/SI")
                        .arg(id));
    QVERIFY2(v.d().llamadas.isEmpty(), qPrintable(v.d().UltimoTexto()));

    FilaQSO esperada = v.Guardada(id); // as it was, but for what the edit changes
    esperada.Estacion = QStringLiteral("LU1GP");
    esperada.Argento = QStringLiteral("Formosa");
    esperada.Obs = QStringLiteral("it's fixed");
    esperada.LbN.clear();
    QCOMPARE(v.Guardada(id), esperada);
    QCOMPARE(esperada.Hora + ' ' + esperada.Frecuencia, QStringLiteral("10:00:00 3.100"));

    // The view stays on its page, with the row as saved; opened again, it is not uploaded.
    QCOMPARE(v.f->txt_pagina->text(), QStringLiteral("2"));
    QCOMPARE(v.f->ListView2->topLevelItem(0)->text(2), QStringLiteral("LU1GP"));
    EnLaEdicion(visto, v.p.ctx());
    Q_EMIT v.f->ListView2->itemDoubleClicked(v.f->ListView2->topLevelItem(0), 2);
    QVERIFY2(visto.endsWith(QStringLiteral(" | NO/NO")), qPrintable(visto));
}

void TestForm5::mensajes_data()
{
    QTest::addColumn<QStringList>("cambios"); // "field=value", in order
    QTest::addColumn<bool>("guardar");        // otherwise the last field is left with Tab
    QTest::addColumn<QString>("mensaje");     // empty: none
    QTest::addColumn<Tipo>("tipo");
    QTest::addColumn<QString>("foco");
    QTest::addColumn<QString>("queda"); // in the last field, and the band after it
    const auto fila = [](const char *nombre, const QStringList &cambios, bool guardar,
                         const char *mensaje, Tipo tipo, const char *foco, const char *queda = "") {
        QTest::newRow(nombre) << cambios << guardar << QString::fromUtf8(mensaje) << tipo
                              << QString(foco) << QString(queda);
    };
    const Tipo alto = Tipo::Alto, excl = Tipo::Exclamacion;
    const char *fecha = "Error Fecha!\r\nFormato: DD/MM/AAAA";
    const char *mayor = "Error Hora!\r\nMayor de 23.";
    fila("al salir: fecha buena", {"Text4=29/02/2024"}, false, "", excl, "Text5");
    fila("al salir: 29 de febrero común", {"Text4=29/02/2023"}, false, fecha, excl, "Text4");
    fila("al salir: fecha sin ceros", {"Text4=1/3/2024"}, false, fecha, excl, "Text4");
    fila("al salir: hora buena", {"Text5=23:59"}, false, "", excl, "Combo2");
    fila("al salir: 24 horas", {"Text5=24:00"}, false, mayor, excl, "Text5");
    fila("al salir: 60 minutos", {"Text5=12:60"}, false, "Error Minutos!\r\nMayor de 59.", excl,
         "Text5");
    fila("al salir: las horas antes", {"Text5=99:99"}, false, mayor, excl, "Text5");
    fila("al salir: hora sin dos puntos", {"Text5=1230"}, false, "Error Hora!\r\nFormato: HH:MM",
         excl, "Text5");
    fila("al salir: grilla vacía", {"Text10="}, false, "", excl, "Text11");
    // The main window takes four characters; this one does not.
    fila("al salir: grilla de cuatro", {"Text10=FF78"}, false, "Grilla incorrecta!", excl, "Text10",
         "FF78 80m");
    fila("al salir: khz fuera de banda", {"mhz=3", "Text9=4"}, false,
         "3.004 KHz\r\n\r\nFuera de banda!", excl, "Text9", "004 80m");
    fila("al salir: khz vacío", {"mhz=10", "Text9="}, false, "", excl, "Text10", "000 30m");
    // The satellite field is hidden on this QSO: it comes up for the name.
    const char *sat = "Debe agregar el nombre del Satélite";
    fila("sat sin satélite", {"Combo2=Sat"}, true, sat, alto, "Text12");
    fila("el satélite primero", {"Combo2=Sat", "Text2=LU1AAA", "Text7="}, true, sat, alto,
         "Text12");
    fila("propia estación", {"Text2=LU1AAA"}, true, "QSO con la propia estación??", alto, "Text2");
    fila("operador", {"Text2=LU2BBB"}, true, "QSO con el Operador??", alto, "Text2");
    fila("enviado en blanco", {"Text6=  "}, true, "Reporte incorrecto!", excl, "Text6");
    fila("recibido vacío", {"Text7="}, true, "Reporte incorrecto!", excl, "Text7");
    fila("fecha que no es", {"Text4=31/04/2024"}, true, fecha, excl, "Text4");
}

void TestForm5::mensajes()
{
    QFETCH(QStringList, cambios);
    QFETCH(bool, guardar);
    QFETCH(QString, mensaje);
    QFETCH(Tipo, tipo);
    QFETCH(QString, foco);
    QFETCH(QString, queda);
    Ventana v(1);
    const qint64 id = v.IdDeFila(0);
    const FilaQSO antes = v.Guardada(id);
    v.Abrir(id);
    QLineEdit *ultimo = nullptr;
    for (const QString &cambio : cambios) {
        const QString campo = cambio.section(QLatin1Char('='), 0, 0);
        const QString valor = cambio.section(QLatin1Char('='), 1);
        if (auto *c = v.edicion->findChild<QComboBox *>(campo)) {
            c->setCurrentText(valor);
        } else {
            ultimo = v.edicion->findChild<QLineEdit *>(campo);
            ultimo->setText(valor);
        }
    }
    if (guardar) {
        v.edicion->Command1->click();
    } else {
        ultimo->setFocus();
        QTest::keyClick(ultimo, Qt::Key_Tab);
    }

    QCOMPARE(v.d().Textos(), mensaje.isEmpty() ? QStringList() : QStringList{mensaje});
    if (!mensaje.isEmpty())
        QCOMPARE(v.d().llamadas.first().tipo, tipo);
    QVERIFY(v.edicion->isVisible());
    QVERIFY(QApplication::focusWidget());
    QCOMPARE(QApplication::focusWidget()->objectName(), foco);
    if (!queda.isEmpty())
        QCOMPARE(ultimo->text() + ' ' + v.edicion->Label11->text(), queda);
    QCOMPARE(v.Guardada(id), antes);
}

void TestForm5::grillaAlTeclear_data()
{
    QTest::addColumn<QString>("tecleado");
    QTest::addColumn<QString>("queda");
    // As the configuration window's grid: a last character of the wrong kind for its place
    // is cut, and a small letter is not a letter A to Z.
    QTest::newRow("mayúsculas") << "FF78AB"
                                << "FF78AB";
    QTest::newRow("minúsculas cortadas") << "ff78ab"
                                         << "";
    QTest::newRow("sub-cuadro en minúsculas") << "FF78ab"
                                              << "FF78";
    QTest::newRow("dígito en primer lugar") << "7FF78"
                                            << "FF78";
    QTest::newRow("letra en tercer lugar") << "FFA78"
                                           << "FF78";
}

void TestForm5::grillaAlTeclear()
{
    QFETCH(QString, tecleado);
    QFETCH(QString, queda);
    Ventana v(1);
    v.Abrir(v.IdDeFila(0));
    for (QLineEdit *grilla : {v.edicion->Text10, v.edicion->Text11}) {
        grilla->clear();
        grilla->setFocus();
        QTest::keyClicks(grilla, tecleado);
        QCOMPARE(grilla->text(), queda);
    }
}

void TestForm5::valoresParaElLector()
{
    Ventana v(1);
    v.Abrir(v.IdDeFila(0));
    // The band and the service's state are values: read as they show, and no caption
    // points at them.
    for (QLabel *valor : {v.edicion->Label11, v.edicion->subidoALbn, v.edicion->ConfALbn}) {
        QVERIFY2(valor->accessibleName().isEmpty(), qPrintable(valor->objectName()));
        QCOMPARE(QAccessible::queryAccessibleInterface(valor)->text(QAccessible::Name),
                 valor->text());
        for (const QLabel *rotulo : v.edicion->findChildren<QLabel *>())
            QVERIFY2(rotulo->buddy() != valor, qPrintable(rotulo->text()));
    }
    QCOMPARE(QAccessible::queryAccessibleInterface(v.edicion->Text10)->text(QAccessible::Name),
             QStringLiteral("Mi Grilla"));
}

void TestForm5::eliminar()
{
    Ventana v(3);
    const qint64 id = v.IdDeFila(1);
    for (const bool si : {false, true}) {
        v.d().Limpiar();
        v.Abrir(id);
        v.d().respuestasSiNo.enqueue(si);
        v.edicion->Command2->click();
        QCOMPARE(v.d().Textos(Tipo::PreguntaSiNo),
                 QStringList{QStringLiteral("Elimina el QSO #%1?\r\n\r\nLos datos no "
                                            "se podrán recuperar!")
                                 .arg(id)});
        QCOMPARE(v.d().llamadas.size(), 1);
        QVERIFY(!v.edicion->isVisible());
        QCOMPARE(v.p->almacen().QSOPorId(Log, id).has_value(), !si);
        QCOMPARE(v.f->Label6->text(), QStringLiteral("Log: Pruebas, con %1 QSOs").arg(si ? 2 : 3));
        QCOMPARE(v.f->ListView2->topLevelItemCount(), si ? 2 : 3);
    }
}

void TestForm5::f5TrasArrancarYTrasIngresar()
{
    Ventana v(2, QStringLiteral("DVoice")); // the newest, LU1XX, in a mode of its own
    QString visto;
    EnLaEdicion(visto, v.p.ctx());
    v.f->EditarUltimoQSO(); // what F5 runs
    QCOMPARE(visto.section(QStringLiteral(" | "), 0, 4),
             QStringLiteral("lista | Edición de QSO #%1 | LU1XX 02/01/2024 10:00 | DVoice de "
                            "SSB,FM,CW,Sat,DVoice | 3.100 80m")
                 .arg(v.IdDeFila(0)));

    // Entered now with an older date: F5 edits that one, not the newest by date.
    v.f->Check1->click();
    v.f->Fecha->setText(QStringLiteral("01/01/2000"));
    v.f->Corresponsal->setText(QStringLiteral("LU7DD"));
    v.f->Command2->click();
    EnLaEdicion(visto, v.p.ctx());
    v.f->EditarUltimoQSO();
    QVERIFY2(visto.startsWith(QStringLiteral("lista | Edición de QSO #") + v.f->Label4->text() +
                              QStringLiteral(" | LU7DD 01/01/2000")),
             qPrintable(visto));
    QVERIFY2(visto.contains(QStringLiteral(" de SSB,FM,CW,Sat |")), qPrintable(visto));
    QVERIFY2(v.d().llamadas.isEmpty(), qPrintable(v.d().UltimoTexto()));
}

void TestForm5::abreLaFilaGuardada_data()
{
    QTest::addColumn<bool>("conF5");
    QTest::newRow("doble clic") << false;
    QTest::newRow("F5") << true;
}

void TestForm5::abreLaFilaGuardada()
{
    QFETCH(bool, conF5);
    Ventana v(3);
    const qint64 id = v.IdDeFila(0); // LU2XX, the newest: what F5 edits before any entry
    // The row changes in the store after the view was drawn, and the view is sorted so
    // that the row stands elsewhere: the window shows the row as stored, by its id.
    RegistroQSO q = QSO(QStringLiteral("LU2XX"), QDate(2024, 1, 3));
    q.Obs = QStringLiteral("it's \"ok\"\t73 ");
    QVERIFY(v.p->almacen().ActualizarQSO(id, q));
    QVERIFY(v.p->almacen().MarcarLbN(id, 2));
    Q_EMIT v.f->ListView2->header()->sectionClicked(2);
    Q_EMIT v.f->ListView2->header()->sectionClicked(2);
    QTreeWidgetItem *fila = v.f->ListView2->topLevelItem(0);
    QCOMPARE(fila->text(2), QStringLiteral("LU2XX"));
    QVERIFY(fila->text(12).isEmpty()); // the cell still shows what was drawn

    QString visto, obs;
    EnLaEdicion(visto, v.p.ctx(), [&obs](Form5 *e) { obs = e->Text8->text(); });
    if (conF5)
        v.f->EditarUltimoQSO();
    else
        Q_EMIT v.f->ListView2->itemDoubleClicked(fila, 2);
    QVERIFY2(visto.startsWith(
                 QStringLiteral("lista | Edición de QSO #%1 | LU2XX 03/01/2024 10:00").arg(id)),
             qPrintable(visto));
    QVERIFY2(visto.endsWith(QStringLiteral(" | SI/SI")), qPrintable(visto));
    QCOMPARE(obs, q.Obs);
    QCOMPARE(v.edicion->Id(), id);
}

void TestForm5::qsl_data()
{
    QTest::addColumn<bool>("conPrograma");
    QTest::addColumn<bool>("ejecutable");
    QTest::addColumn<QByteArray>("suCall");
    QTest::addColumn<QString>("mensaje"); // empty: handed to the designer
    const QString falta = QStringLiteral("No se encuentra programa Tordos");
    QTest::newRow("sin programa") << false << false << QByteArray("LU1AAA") << falta;
    QTest::newRow("no ejecutable") << true << false << QByteArray("LU1AAA") << falta;
    QTest::newRow("sin diseño de la estación")
        << true << true << QByteArray("LU9ZZZ")
        << QStringLiteral("El programa Tordos no tiene Diseño de QSL para LU1AAA");
    QTest::newRow("al diseñador") << true << true << QByteArray("LU1AAA") << QString();
}

void TestForm5::qsl()
{
    QFETCH(bool, conPrograma);
    QFETCH(bool, ejecutable);
    QFETCH(QByteArray, suCall);
    QFETCH(QString, mensaje);
    Ventana v;
    RegistroQSO q = QSO(QStringLiteral("LU1ABC/P"), QDate(2024, 3, 15), QStringLiteral("FM"));
    q.Nombre_Sat = QStringLiteral("ao-91");
    q.Obs = QStringLiteral("tnx $ 73");
    const qint64 id = Hecho(v.p->almacen().AgregarQSO(q, Log));
    const FilaQSO antes = v.Guardada(id);
    const QString carpeta = PrepararTordos(v.p.Carpeta(), conPrograma, ejecutable, suCall);
    v.Abrir(id);
    v.d().respuestasSiNo.enqueue(true);
    v.edicion->Command4->click();
    QCOMPARE(v.Guardada(id), antes); // no card mark of any kind

    const auto &programas = v.p.falsos.escritorio->programas;
    if (!mensaje.isEmpty()) {
        QCOMPARE(v.d().Textos(Tipo::Exclamacion), QStringList{mensaje});
        QCOMPARE(v.d().llamadas.size(), 1);
        QVERIFY(programas.isEmpty());
        return;
    }
    QCOMPARE(programas.size(), 1);
    QCOMPARE(programas[0].programa, carpeta + QStringLiteral("/Tordos"));
    // One argument: the blanks of the remarks do not cut it.
    QCOMPARE(programas[0].argumentos,
             QStringList{"Tordo$de=LU1AAA$para=LU1ABC/P$fecha=15/03/2024$hora=10:00$modo=FM"
                         "$banda=80m$reporte=59$sat=AO-91$nota=tnx $ 73"});
    QCOMPARE(programas[0].carpetaTrabajo, carpeta);
    QCOMPARE(v.d().Textos(Tipo::PreguntaSiNo),
             QStringList{QStringLiteral("QSL LU1ABC/P_15032024.jpg guardada en ") + carpeta +
                         QStringLiteral("/Salida/\r\n\r\nDesea verla?")});
    QCOMPARE(v.p.falsos.escritorio->abiertos,
             QStringList{carpeta + QStringLiteral("/Salida/LU1ABC_P_15032024.jpg")});
}

QTEST_MAIN(TestForm5)
#include "test_form5.moc"
