// SPDX-License-Identifier: GPL-3.0-or-later
// The contest windows as the operator meets them: the serial and the duplicate flag through
// Enter, band and mode clicks and reopenings, the Enter check's messages, the keyer's keys, a
// contest's life from the chooser, the Cabrillo header's presses and the edit window's boxes.
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

template<typename... T> void Fila(const char *nombre, const T &...valores)
{
    (QTest::newRow(nombre) << ... << valores);
}

void Activa(QWidget *w)
{
    w->show();
    QApplication::setActiveWindow(w);
    static_cast<void>(QTest::qWaitForWindowActive(w));
}

// The contest window on a contest "CQ M" just founded, shown as the chooser shows it.
struct Concurso
{
    explicit Concurso(const QString &tipo = SerieIncremental())
    {
        p->config().Estacion = u"LU1AB"_s;
        p->ConcursoNombre = u"CQ M"_s;
        p->ConcursoTipo = tipo;
        Hecho(FundarConcurso(p->almacen(), p->ConcursoNombre, tipo));
        Abrir(true);
    }
    void Abrir(bool nuevo)
    {
        f.hide();
        p->CargandoConcurso = true;
        f.Preparar();
        nuevo ? f.NuevoConcurso() : f.AbrirConcurso();
        Activa(&f);
    }
    // One step of the operator: "qso CALL" logged with Enter, "tecleo CALL" typed and left,
    // "banda B" or "modo M" clicked ("modo M sí|no" answers the serial's question), "QTR" a click
    // on "QTR Manual", "Campo=valor" a field filled, "enter", "reabrir". "fija", first, founds a
    // fixed series.
    void Paso(const QString &paso)
    {
        const QString que = paso.section(u' ', 0, 0), valor = paso.section(u' ', 1, 1);
        if (que == u"qso") {
            f.Corresponsal->setText(valor);
            f.RSR->setText(u"5"_s);
        } else if (que == u"tecleo") {
            f.Corresponsal->setFocus();
            QTest::keyClicks(f.Corresponsal, valor);
            QTest::keyClick(f.Corresponsal, Qt::Key_Tab);
        } else if (que == u"banda" || que == u"modo") {
            QComboBox *lista = que == u"banda" ? f.Combo2 : f.Combo1;
            if (paso.count(u' ') > 1)
                d().respuestasSiNo.enqueue(paso.section(u' ', 2) == u"sí");
            lista->setCurrentText(valor);
            Q_EMIT lista->activated(lista->currentIndex());
        } else if (que == u"QTR") {
            f.Check2->click();
        } else if (que.contains(u'=')) {
            f.findChild<QLineEdit *>(que.section(u'=', 0, 0))->setText(que.section(u'=', 1));
        } else if (que == u"reabrir") {
            Abrir(false);
        }
        if (que == u"qso" || que == u"enter")
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    }
    DialogosFalso &d() { return *p.falsos.dialogos; }
    int Filas() { return int(p->almacen().VistaConcurso(p->ConcursoNombre).size()); }

    ContextoPrueba p;
    Form4 f{p.ctx()};
};

} // namespace

class TestVentanasConcurso : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    // pasos: Concurso::Paso's, "|" between. queda: the sent serial ("-" when empty), the
    // band, the QSOs stored and the field with the focus; then the keyer's calls, "pregunta"
    // for each question of the serial, the duplicate flag when it shows and the messages.
    void operador_data()
    {
        QTest::addColumn<QString>("pasos");
        QTest::addColumn<QString>("queda");
        Fila("80, 40 y vuelta a 80", "qso A1A|qso B1B|banda 40m|qso C1C|banda 80m",
             "3 80m 3 Corresponsal");
        Fila("modo: sí empieza en 1", "qso A1A|modo CW sí", "1 80m 1 Corresponsal pregunta");
        Fila("modo con serie 1: sin pregunta", "modo CW", "1 80m 0 Corresponsal");
        Fila("serie que no es número", "RSE=07x|qso A1A", "8 80m 1 Corresponsal");
        Fila("reabrir: última banda y su serie", "qso A1A|qso B1B|banda 40m|qso C1C|reabrir",
             "2 40m 3 Corresponsal");
        Fila("fija: la palabra vuelve al reabrir", "fija|RSE=BA|qso A1A|RSE=|banda 40m|reabrir",
             "BA 80m 1 Corresponsal");
        Fila("duplicado al dejar el campo", "qso LU2CD|tecleo lu2cd", "2 80m 1 RSE DUPLICADO");
        Fila("una banda lo oculta y no revisa", "qso LU2CD|tecleo lu2cd|banda 40m|banda 80m",
             "2 80m 1 Corresponsal");
        Fila("modo: no sigue, y otro modo no es duplicado", "qso LU2CD|tecleo lu2cd|modo CW no",
             "2 80m 1 Corresponsal pregunta");
        Fila("el modo revisa", "qso LU2CD|tecleo lu2cd|banda 40m|banda 80m|modo SSB no",
             "2 80m 1 Corresponsal pregunta DUPLICADO");
        Fila("duplicado: un aviso, nunca un alto", "qso LU2CD|tecleo lu2cd|qso LU2CD",
             "3 80m 2 Corresponsal");
        // Enter checks the fields in order and stores nothing while one is missing.
        Fila("la señal antes que todo", "QTR|Text2=|Fecha=|Hora=|enter",
             "1 80m 0 Text2 Falta su Señal Distintiva!");
        Fila("fecha", "QTR|Fecha=|qso LU2CD", "1 80m 0 Fecha Falta la Fecha!");
        Fila("hora", "QTR|Hora=|qso LU2CD", "1 80m 0 Hora Falta el QTR!");
        Fila("corresponsal", "qso", "1 80m 0 Corresponsal Falta el Corresponsal!");
        Fila("serie enviada", "RSE=|qso LU2CD", "- 80m 0 RSE Falta la Serie Enviada");
        Fila("serie recibida", "Corresponsal=LU2CD|enter", "1 80m 0 RSR Falta la Serie Recibida");
        Fila("fecha que no es", "QTR|Fecha=31/04/2024|qso LU2CD",
             "1 80m 0 Fecha la Fecha 31/04/2024 no es válida!\r\nFormato: dd/mm/aaaa");
    }

    void operador()
    {
        QFETCH(QString, pasos);
        Concurso v(pasos.startsWith(u"fija"_s) ? SerieFija() : SerieIncremental());
        for (const QString &paso : pasos.split(u'|'))
            v.Paso(paso);
        QVERIFY(v.f.isVisible()); // nothing here closes the window
        QStringList queda{v.f.RSE->text().isEmpty() ? u"-"_s : v.f.RSE->text(),
                          v.f.Combo2->currentText(), QString::number(v.Filas()),
                          QApplication::focusWidget()->objectName()};
        for (const QString &q : v.d().Textos(Tipo::PreguntaSiNo))
            queda << (q == PreguntaSerieUno() ? u"pregunta"_s : q);
        if (v.f.Label7->isVisible())
            queda << v.f.Label7->text();
        QTEST((queda + v.d().Textos(Tipo::Exclamacion)).join(u' '), "queda");
    }

    // A contest's life from the chooser, with an apostrophe in its name: no name does
    // nothing, a new one opens at once and exports, the same name again is refused, the list
    // opens it with its log and serial, "Eliminar" takes it away; "Fija" founds a fixed series.
    void elegidor()
    {
        ContextoPrueba p;
        p->config().Estacion = u"LU1AB"_s;
        Form8 elegidor(p.ctx());
        Form4 f(p.ctx());
        QStringList hechos;
        f.abrirEncabezado = [&](const QString &, const QString &nombre, int n, const QString &) {
            hechos << u"Cabrillo %1 %2"_s.arg(nombre).arg(n);
        };
        elegidor.abrirConcurso = [&](bool nuevo) {
            hechos << p->ConcursoNombre + u' ' + p->ConcursoTipo +
                          (nuevo ? u" nuevo"_s : QString());
            nuevo ? f.NuevoConcurso() : f.AbrirConcurso();
            f.show(); // the clock has not ticked yet
        };
        const auto Tecleado = [&](const QString &nombre) {
            elegidor.Llenar(p->almacen().ConcursosConCantidad());
            Activa(&elegidor);
            elegidor.Text1->setFocus();
            QTest::keyClicks(elegidor.Text1, nombre);
            QTest::keyClick(elegidor.Text1, Qt::Key_Return);
        };
        f.Preparar();
        Tecleado({});
        Tecleado(u"o'higgins"_s);
        Activa(&f);
        f.Corresponsal->setText(u"LU2CD"_s);
        f.RSR->setText(u"1"_s);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        f.Command1->click();
        f.hide();
        Tecleado(u"o'higgins"_s);
        QCOMPARE(elegidor.ListView1->topLevelItem(0)->text(3), u"1"_s);
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
        QVERIFY(!f.isVisible() && p->almacen().ConcursosConCantidad().isEmpty());
        elegidor.Option2->setChecked(true);
        Tecleado(u"rd 2024"_s);
        QCOMPARE(hechos, (QStringList{u"O'HIGGINS Incremental nuevo"_s, u"Cabrillo O'HIGGINS 1"_s,
                                      u"O'HIGGINS Incremental"_s, u"RD 2024 Fija nuevo"_s}));
        QCOMPARE(p.falsos.dialogos->Textos(),
                 (QStringList{u"Ya existe un concurso creado con el nombre O'HIGGINS\r\n\r\n"
                              u"Elija otro nombre!"_s,
                              u"Elimina log O'HIGGINS?"_s}));
    }

    void encabezado()
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

    // A field left with a value: its boxes; then "Guardar" saves every field as it stands
    // (frequency|date|time), the kHz field it never filled blank.
    void edicion_data()
    {
        QTest::addColumn<QString>("campo");
        QTest::addColumn<QString>("mensajes");
        QTest::addColumn<QString>("guardado");
        Fila("fecha corta y mes", "Text4=2010134",
             "Error en la fecha, formato DDMMAAAA!|Error en la fecha, mes 4!", "|2010134|1430");
        Fila("hora 2460", "Text5=2460", "Error en la HORA 24!|Error en los MINUTOS 60!",
             "|20240515|2460");
        Fila("kHz 999", "Text3=999", "999 KHz NO ES BANDA DE CONCURSO!", "999|20240515|1430");
    }

    void edicion()
    {
        Concurso v;
        v.Paso(u"qso LU2CD"_s);
        int refrescos = 0;
        Form7 e(v.p.ctx(), [&] { ++refrescos; });
        e.Cargar(v.p->almacen().VistaConcurso(u"CQ M"_s).first(), u"CQ M"_s, SerieIncremental());
        Activa(&e);
        QFETCH(QString, campo);
        QLineEdit *c = e.findChild<QLineEdit *>(campo.section(u'=', 0, 0));
        c->setFocus();
        c->setText(campo.section(u'=', 1));
        v.d().Limpiar();
        QTest::keyClick(c, Qt::Key_Tab);
        QTEST(v.d().Textos(Tipo::Exclamacion).join(u'|'), "mensajes");
        e.Command1->click();
        const FilaConcurso f = v.p->almacen().VistaConcurso(u"CQ M"_s).first();
        QTEST(QStringList({f.Frecuencia, f.Fecha, f.Hora}).join(u'|'), "guardado");
        QCOMPARE(refrescos, 1);
        // Eliminar answered No only hides the window.
        Activa(&e);
        e.Command2->click();
        QCOMPARE(v.d().Textos(Tipo::PreguntaSiNo), QStringList{u"Elimina el QSO con LU2CD?"_s});
        QCOMPARE(v.Filas(), 1);
        QVERIFY(!e.isVisible());
    }
};

QTEST_MAIN(TestVentanasConcurso)
#include "test_ventanas_concurso.moc"
