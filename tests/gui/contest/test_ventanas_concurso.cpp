// The contest windows as the operator meets them: the serial through Enter, band and mode
// clicks and reopenings, the Enter check's messages, the duplicate flag, the chooser, the
// Cabrillo header's presses and the edit window's boxes.
#include "core/contest/Concurso.h"
#include "gui/contest/Form4.h"
#include "gui/contest/Form7.h"
#include "gui/contest/Form8.h"
#include "gui/contest/Form9.h"
#include "support/ContextoPrueba.h"
#include "support/Hecho.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QTreeWidget>

using Tipo = LlamadaDialogo::Tipo;
using namespace Qt::StringLiterals;

namespace {

void Activa(QWidget *w)
{
    w->show();
    QApplication::setActiveWindow(w);
    static_cast<void>(QTest::qWaitForWindowActive(w));
    if (auto *f = qobject_cast<Form4 *>(w))
        f->Timer1_Timer(); // the clock's first tick
}

// The contest window on a contest just founded, shown as the chooser shows it.
struct Concurso
{
    explicit Concurso(const QString &tipo = SerieIncremental(), const QString &nombre = u"CQ M"_s)
    {
        p->config().Estacion = u"LU1AB"_s;
        p->ConcursoNombre = nombre;
        p->ConcursoTipo = tipo;
        Hecho(FundarConcurso(p->almacen(), nombre, tipo));
        p->CargandoConcurso = true;
        f.Preparar();
        f.NuevoConcurso();
        Activa(&f);
    }
    void Reabrir()
    {
        f.hide();
        p->CargandoConcurso = true;
        f.Preparar();
        f.AbrirConcurso();
        Activa(&f);
    }
    // One step of the operator: "qso CALL", "banda B", "modo M sí|no", "rse X", "reabrir".
    void Paso(const QString &paso)
    {
        const QStringList c = paso.split(u' ');
        if (c[0] == u"qso") {
            f.Corresponsal->setText(c[1]);
            f.RSR->setText(u"5"_s);
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        } else if (c[0] == u"banda" || c[0] == u"modo") {
            QComboBox *lista = c[0] == u"banda" ? f.Combo2 : f.Combo1;
            if (c.size() > 2)
                d().respuestasSiNo.enqueue(c[2] == u"sí");
            lista->setCurrentText(c[1]);
            Q_EMIT lista->activated(lista->currentIndex());
        } else if (c[0] == u"rse") {
            f.RSE->setText(c[1]);
        } else {
            Reabrir();
        }
    }
    DialogosFalso &d() { return *p.falsos.dialogos; }
    qint64 Filas() { return p->almacen().VistaConcurso(p->ConcursoNombre).size(); }

    ContextoPrueba p;
    Form4 f{p.ctx()};
};

} // namespace

class TestVentanasConcurso : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void serie_data();
    void serie();
    void enterRevisa_data();
    void enterRevisa();
    void duplicado();
    void elegidor_data();
    void elegidor();
    void encabezado();
    void edicion_data();
    void edicion();
    void nombreConApostrofo();
};

void TestVentanasConcurso::serie_data()
{
    QTest::addColumn<QString>("tipo");
    QTest::addColumn<QStringList>("pasos");
    QTest::addColumn<QString>("rse");
    QTest::addColumn<QString>("banda");
    QTest::addColumn<int>("preguntas");
    const QString inc = SerieIncremental();
    QTest::newRow("primero") << inc << QStringList{"qso A1A"} << "2"
                             << "80m" << 0;
    QTest::newRow("80, 40 y vuelta a 80")
        << inc << QStringList{"qso A1A", "qso B1B", "banda 40m", "qso C1C", "banda 80m"} << "3"
        << "80m" << 0;
    QTest::newRow("modo: sí empieza en 1") << inc << QStringList{"qso A1A", "modo CW sí"} << "1"
                                           << "80m" << 1;
    QTest::newRow("modo: no sigue") << inc << QStringList{"qso A1A", "modo CW no"} << "2"
                                    << "80m" << 1;
    QTest::newRow("modo con serie 1: sin pregunta") << inc << QStringList{"modo CW"} << "1"
                                                    << "80m" << 0;
    QTest::newRow("serie que no es número") << inc << QStringList{"rse 07x", "qso A1A"} << "8"
                                            << "80m" << 0;
    QTest::newRow("reabrir: última banda y su serie")
        << inc << QStringList{"qso A1A", "qso B1B", "banda 40m", "qso C1C", "reabrir"} << "2"
        << "40m" << 0;
    QTest::newRow("fija: la palabra vuelve al reabrir")
        << SerieFija() << QStringList{"rse BA", "qso A1A", "rse", "banda 40m", "reabrir"} << "BA"
        << "80m" << 0;
}

void TestVentanasConcurso::serie()
{
    QFETCH(QString, tipo);
    QFETCH(QStringList, pasos);
    Concurso v(tipo);
    for (const QString &paso : pasos)
        v.Paso(paso);
    QTEST(v.f.RSE->text(), "rse");
    QTEST(v.f.Combo2->currentText(), "banda");
    QTEST(v.d().Cantidad(Tipo::PreguntaSiNo), "preguntas");
    QCOMPARE(v.d().Textos(Tipo::PreguntaSiNo).value(0, PreguntaSerieUno()), PreguntaSerieUno());
}

void TestVentanasConcurso::enterRevisa_data()
{
    QTest::addColumn<QString>("campo"); // emptied, or given a value as "campo=valor"
    QTest::addColumn<QString>("mensaje");
    QTest::newRow("todo vacío") << "todo"
                                << "Falta su Señal Distintiva!";
    QTest::newRow("fecha") << "Fecha"
                           << "Falta la Fecha!";
    QTest::newRow("hora") << "Hora"
                          << "Falta el QTR!";
    QTest::newRow("corresponsal") << "Corresponsal"
                                  << "Falta el Corresponsal!";
    QTest::newRow("serie enviada") << "RSE"
                                   << "Falta la Serie Enviada";
    QTest::newRow("serie recibida") << "RSR"
                                    << "Falta la Serie Recibida";
    QTest::newRow("fecha que no es") << "Fecha=31/04/2024"
                                     << "la Fecha 31/04/2024 no es válida!\r\nFormato: dd/mm/aaaa";
}

void TestVentanasConcurso::enterRevisa()
{
    QFETCH(QString, campo);
    Concurso v;
    v.f.Check2->click(); // the date and time typed by hand
    v.f.Corresponsal->setText(u"LU2CD"_s);
    v.f.RSR->setText(u"5"_s);
    const QString nombre = campo.section(u'=', 0, 0);
    QLineEdit *foco = v.f.findChild<QLineEdit *>(nombre == u"todo" ? u"Text2"_s : nombre);
    if (nombre == u"todo")
        for (QLineEdit *c : {v.f.Text2, v.f.Fecha, v.f.Hora, v.f.Corresponsal, v.f.RSE, v.f.RSR})
            c->clear();
    foco->setText(campo.section(u'=', 1));
    QTest::keyClick(v.f.Corresponsal, Qt::Key_Return);
    QTEST(v.d().Textos(Tipo::Exclamacion).join(u'|'), "mensaje");
    QCOMPARE(QApplication::focusWidget(), foco);
    QCOMPARE(v.Filas(), 0);
}

void TestVentanasConcurso::duplicado()
{
    Concurso v;
    v.Paso(u"qso LU2CD"_s);
    v.f.Corresponsal->setFocus();
    QTest::keyClicks(v.f.Corresponsal, u"lu2cd"_s);
    QTest::keyClick(v.f.Corresponsal, Qt::Key_Tab);
    QVERIFY(v.f.Label7->isVisible());
    v.Paso(u"banda 40m"_s); // a band alone hides it and checks nothing
    QVERIFY(!v.f.Label7->isVisible());
    v.Paso(u"banda 80m"_s);
    v.Paso(u"modo CW no"_s); // another mode: no duplicate
    QVERIFY(!v.f.Label7->isVisible());
    v.Paso(u"modo SSB no"_s);
    QVERIFY(v.f.Label7->isVisible());
    v.f.RSR->setText(u"5"_s);
    QTest::keyClick(v.f.Corresponsal, Qt::Key_Return); // a warning, never a stop
    QCOMPARE(v.Filas(), 2);
    QVERIFY(v.d().Textos(Tipo::Exclamacion).isEmpty());
}

void TestVentanasConcurso::elegidor_data()
{
    QTest::addColumn<QString>("tecleado");
    QTest::addColumn<bool>("fija");
    QTest::addColumn<QString>("mensaje");
    QTest::addColumn<QString>("abierto"); // the contest opened, "nombre tipo"; empty: none
    QTest::newRow("vacío") << "" << false << ""
                           << "";
    QTest::newRow("existe en minúsculas")
        << "cq m" << false
        << "Ya existe un concurso creado con el nombre CQ M\r\n\r\nElija otro nombre!"
        << "";
    QTest::newRow("nuevo, fija") << "rd 2024" << true << ""
                                 << "RD 2024 Fija";
}

void TestVentanasConcurso::elegidor()
{
    ContextoPrueba p;
    Hecho(FundarConcurso(p->almacen(), u"CQ M"_s, SerieIncremental()));
    Form8 f(p.ctx());
    QString abierto;
    f.abrirConcurso = [&](bool nuevo) {
        QVERIFY(nuevo);
        abierto = p->ConcursoNombre + u' ' + p->ConcursoTipo;
    };
    f.Llenar(p->almacen().ConcursosConCantidad());
    Activa(&f);
    QFETCH(bool, fija);
    f.Option2->setChecked(fija);
    f.Text1->setFocus();
    QFETCH(QString, tecleado);
    QTest::keyClicks(f.Text1, tecleado);
    f.Command1->click();
    QTEST(p.falsos.dialogos->Textos().join(u'|'), "mensaje");
    QTEST(abierto, "abierto");
    f.Llenar(p->almacen().ConcursosConCantidad());
    QCOMPARE(f.ListView1->topLevelItemCount(), abierto.isEmpty() ? 1 : 2);
    QCOMPARE(f.ListView1->topLevelItem(0)->text(3), u"0"_s); // the founding row is no QSO
}

void TestVentanasConcurso::encabezado()
{
    ContextoPrueba p;
    Form9 f(p.ctx());
    Hecho(p->almacen().Abrir(p.Archivo(u"base0.db"_s)));
    p.Escribir(u"datos.cbr"_s, "Juan\r\nCalle 1\r\n");
    f.Cargar(u"QSO: uno\r\nEND-OF-LOG:"_s, u"CQ M"_s, 1, u"LU1AB"_s);
    Activa(&f);
    QCOMPARE(f.windowTitle(), u"Encabezado de CQ M con 1 QSO(s)"_s);
    QCOMPARE(f.Text2->text(), u"Juan"_s);
    QVERIFY(f.Text9->isHidden());
    f.Combo1->setCurrentText(u"MULTI-OP"_s);
    Q_EMIT f.Combo1->activated(1);
    QVERIFY(f.Text9->isVisible());

    DialogosFalso &d = *p.falsos.dialogos;
    const QString archivo = p.Archivo(u"cq.log"_s);
    p.Escribir(u"cq.log"_s, "viejo");
    // First press: cancelled. Second: the file exists, No goes back to the dialog, then
    // it is overwritten and seen.
    f.Command1->click();
    d.archivosGuardar << archivo << archivo;
    d.respuestasSiNo << false << true << true;
    f.Command1->click();
    QCOMPARE(d.Textos(Tipo::GuardarArchivo), QStringList(3, u"ADIF (*.log)"_s));
    QCOMPARE(d.Textos(Tipo::ExclamacionSiNo),
             QStringList{archivo + u"\r\nGuardado!\r\n\r\nDesea verlo?"_s});
    QCOMPARE(p.falsos.escritorio->abiertos, QStringList{archivo});
    QVERIFY(!f.isVisible());
    const QString guardado = QString::fromLatin1(p.Leer(u"cq.log"_s));
    QCOMPARE(guardado.count(u"START-OF-LOG: 3.0\r\n"_s), 2);
    QVERIFY(guardado.endsWith(u"\r\nQSO: uno\r\nEND-OF-LOG:\r\n"_s));
    QCOMPARE(p.Leer(u"datos.cbr"_s), QByteArray("Juan\r\nCalle 1\r\n\r\n\r\n\r\n"));

    // A new export starts from its own lines; a missing name stops before any dialog.
    f.Cargar(u"QSO: dos"_s, u"CQ M"_s, 1, u"LU1AB"_s);
    f.Text2->clear();
    d.Limpiar();
    f.Command1->click();
    QCOMPARE(d.Textos(), QStringList{u"Falta su Nombre!"_s});
    QCOMPARE(f.Text8->toPlainText(), u"QSO: dos"_s);
}

void TestVentanasConcurso::edicion_data()
{
    QTest::addColumn<QString>("campo");
    QTest::addColumn<QString>("valor");
    QTest::addColumn<QStringList>("mensajes");
    QTest::newRow("fecha corta y mes")
        << "Text4"
        << "2010134"
        << QStringList{"Error en la fecha, formato DDMMAAAA!", "Error en la fecha, mes 4!"};
    QTest::newRow("hora 2460") << "Text5"
                               << "2460"
                               << QStringList{"Error en la HORA 24!", "Error en los MINUTOS 60!"};
    QTest::newRow("kHz 999") << "Text3"
                             << "999" << QStringList{"999 KHz NO ES BANDA DE CONCURSO!"};
    QTest::newRow("bueno") << "Text4"
                           << "20101113" << QStringList{};
}

void TestVentanasConcurso::edicion()
{
    Concurso v;
    v.Paso(u"qso LU2CD"_s);
    int refrescos = 0;
    Form7 e(v.p.ctx(), [&] { ++refrescos; });
    e.Cargar(v.p->almacen().VistaConcurso(u"CQ M"_s).first(), u"CQ M"_s, SerieIncremental());
    Activa(&e);
    QFETCH(QString, campo);
    QLineEdit *c = e.findChild<QLineEdit *>(campo);
    c->setFocus();
    QFETCH(QString, valor);
    c->setText(valor);
    v.d().Limpiar();
    QTest::keyClick(c, Qt::Key_Tab);
    QTEST(v.d().Textos(Tipo::Exclamacion), "mensajes");
    // Guardar checks nothing again, and the kHz field it never filled blanks the frequency.
    e.Command1->click();
    const FilaConcurso f = v.p->almacen().VistaConcurso(u"CQ M"_s).first();
    QCOMPARE(f.Frecuencia, campo == u"Text3" ? valor : QString());
    QCOMPARE(campo == u"Text3" ? f.Fecha : c->text(), campo == u"Text3" ? f.Fecha : valor);
    QCOMPARE(refrescos, 1);
    // Eliminar answered No only hides the window.
    Activa(&e);
    e.Command2->click();
    QCOMPARE(v.d().Textos(Tipo::PreguntaSiNo), QStringList{u"Elimina el QSO con LU2CD?"_s});
    QCOMPARE(v.Filas(), 1);
    QVERIFY(!e.isVisible());
}

void TestVentanasConcurso::nombreConApostrofo()
{
    ContextoPrueba p;
    p->config().Estacion = u"LU1AB"_s;
    Form8 elegidor(p.ctx());
    Form4 f(p.ctx());
    int exportados = 0;
    f.abrirEncabezado = [&](const QString &, const QString &nombre, int n, const QString &) {
        QCOMPARE(nombre, u"O'HIGGINS"_s);
        exportados = n;
    };
    elegidor.abrirConcurso = [&](bool) {
        f.NuevoConcurso();
        Activa(&f);
    };
    f.Preparar();
    elegidor.Llenar({});
    Activa(&elegidor);
    QTest::keyClicks(elegidor.Text1, u"o'higgins"_s);
    QTest::keyClick(elegidor.Text1, Qt::Key_Return);
    f.Corresponsal->setText(u"LU2CD"_s);
    f.RSR->setText(u"1"_s);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    f.Command1->click();
    QCOMPARE(exportados, 1);
    // Opened again from the chooser's list.
    f.hide();
    elegidor.Llenar(p->almacen().ConcursosConCantidad());
    QCOMPARE(elegidor.ListView1->topLevelItem(0)->text(3), u"1"_s);
    elegidor.abrirConcurso = [&](bool) {
        f.AbrirConcurso();
        f.show();
    };
    p->config().DiferUTC = u"-3"_s;
    elegidor.ListView1_DblClick();
    QCOMPARE(f.ListView2->topLevelItemCount(), 1);
    QCOMPARE(f.RSE->text(), u"2"_s);
    // Opening shows the local time; the clock's tick then puts UTC in its place.
    QCOMPARE(f.Fecha->text() + u' ' + f.Hora->text(), u"15/05/2024 14:30"_s);
    f.Timer1_Timer();
    QCOMPARE(f.Hora->text(), u"17:30"_s);
    p.falsos.dialogos->respuestasSiNo << true;
    f.Command3->click();
    QCOMPARE(p.falsos.dialogos->Textos(Tipo::PreguntaSiNo),
             QStringList{u"Elimina log O'HIGGINS?"_s});
    QVERIFY(p->almacen().ConcursosConCantidad().isEmpty());
    QVERIFY(!f.isVisible());
}

QTEST_MAIN(TestVentanasConcurso)
#include "test_ventanas_concurso.moc"
