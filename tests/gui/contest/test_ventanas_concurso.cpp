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
    if (auto *f = qobject_cast<Form4 *>(w))
        f->Timer1_Timer(); // the clock's first tick
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
        p->CargandoConcurso = true;
        f.Preparar();
        f.NuevoConcurso();
        Activa(&f);
    }
    // One step of the operator: "qso CALL" logged with Enter, "tecleo CALL" typed and left,
    // "banda B", "modo M [sí|no]" with the answer to the serial's question, "rse [X]",
    // "reabrir".
    void Paso(const QString &paso)
    {
        const QString que = paso.section(u' ', 0, 0), valor = paso.section(u' ', 1, 1);
        if (que == u"qso") {
            f.Corresponsal->setText(valor);
            f.RSR->setText(u"5"_s);
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
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
        } else if (que == u"rse") {
            f.RSE->setText(valor);
        } else {
            f.hide();
            p->CargandoConcurso = true;
            f.Preparar();
            f.AbrirConcurso();
            Activa(&f);
        }
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
    // pasos: Concurso::Paso's, "|" between. queda: the sent serial, the band and the QSOs
    // stored, then "pregunta" for each question of the serial and the duplicate flag when it
    // shows. Never a message box.
    void serie_data()
    {
        QTest::addColumn<bool>("fija");
        QTest::addColumn<QString>("pasos");
        QTest::addColumn<QString>("queda");
        Fila("primero", false, "qso A1A", "2 80m 1");
        Fila("80, 40 y vuelta a 80", false, "qso A1A|qso B1B|banda 40m|qso C1C|banda 80m",
             "3 80m 3");
        Fila("modo: sí empieza en 1", false, "qso A1A|modo CW sí", "1 80m 1 pregunta");
        Fila("modo: no sigue", false, "qso A1A|modo CW no", "2 80m 1 pregunta");
        Fila("modo con serie 1: sin pregunta", false, "modo CW", "1 80m 0");
        Fila("serie que no es número", false, "rse 07x|qso A1A", "8 80m 1");
        Fila("reabrir: última banda y su serie", false, "qso A1A|qso B1B|banda 40m|qso C1C|reabrir",
             "2 40m 3");
        Fila("fija: la palabra vuelve al reabrir", true, "rse BA|qso A1A|rse|banda 40m|reabrir",
             "BA 80m 1");
        Fila("duplicado al dejar el campo", false, "qso LU2CD|tecleo lu2cd", "2 80m 1 DUPLICADO");
        Fila("una banda lo oculta y no revisa", false, "qso LU2CD|tecleo lu2cd|banda 40m|banda 80m",
             "2 80m 1");
        Fila("otro modo no es duplicado", false, "qso LU2CD|tecleo lu2cd|modo CW no",
             "2 80m 1 pregunta");
        Fila("el modo revisa", false, "qso LU2CD|tecleo lu2cd|banda 40m|banda 80m|modo SSB no",
             "2 80m 1 pregunta DUPLICADO");
        Fila("duplicado: un aviso, nunca un alto", false, "qso LU2CD|tecleo lu2cd|qso LU2CD",
             "3 80m 2");
    }

    void serie()
    {
        QFETCH(bool, fija);
        Concurso v(fija ? SerieFija() : SerieIncremental());
        QFETCH(QString, pasos);
        for (const QString &paso : pasos.split(u'|'))
            v.Paso(paso);
        QStringList queda{v.f.RSE->text(), v.f.Combo2->currentText(), QString::number(v.Filas())};
        for (const QString &q : v.d().Textos(Tipo::PreguntaSiNo))
            queda << (q == PreguntaSerieUno() ? u"pregunta"_s : q);
        if (v.f.Label7->isVisible())
            queda << v.f.Label7->text();
        QTEST(queda.join(u' '), "queda");
        QCOMPARE(v.d().Textos(Tipo::Exclamacion), QStringList());
    }

    // campos: those emptied, or given a value as "campo=valor"; the focus goes to the first.
    void enterRevisa_data()
    {
        QTest::addColumn<QString>("campos");
        QTest::addColumn<QString>("mensaje");
        Fila("la señal antes que todo", "Text2 Fecha Hora Corresponsal RSE RSR",
             "Falta su Señal Distintiva!");
        Fila("fecha", "Fecha", "Falta la Fecha!");
        Fila("hora", "Hora", "Falta el QTR!");
        Fila("corresponsal", "Corresponsal", "Falta el Corresponsal!");
        Fila("serie enviada", "RSE", "Falta la Serie Enviada");
        Fila("serie recibida", "RSR", "Falta la Serie Recibida");
        Fila("fecha que no es", "Fecha=31/04/2024",
             "la Fecha 31/04/2024 no es válida!\r\nFormato: dd/mm/aaaa");
    }

    void enterRevisa()
    {
        QFETCH(QString, campos);
        Concurso v;
        v.f.Check2->click(); // the date and time typed by hand
        v.f.Corresponsal->setText(u"LU2CD"_s);
        v.f.RSR->setText(u"5"_s);
        for (const QString &c : campos.split(u' '))
            v.f.findChild<QLineEdit *>(c.section(u'=', 0, 0))->setText(c.section(u'=', 1));
        QTest::keyClick(v.f.Corresponsal, Qt::Key_Return);
        QTEST(v.d().Textos(Tipo::Exclamacion).join(u'|'), "mensaje");
        QCOMPARE(QApplication::focusWidget()->objectName(),
                 campos.section(u'=', 0, 0).section(u' ', 0, 0));
        QCOMPARE(v.Filas(), 0);
    }

    void teclasDelManipulador_data()
    {
        QTest::addColumn<QString>("modo");
        QTest::addColumn<int>("tecla");
        QTest::addColumn<QString>("llamado");
        Fila("F1 fuera de CW: el llamador", "SSB", int(Qt::Key_F1), "CQ");
        Fila("F3 fuera de CW: nada", "SSB", int(Qt::Key_F3), "");
        Fila("F3 en CW: la macro 2", "CW", int(Qt::Key_F3), "macro 2");
        Fila("flecha abajo en CW", "CW", int(Qt::Key_Down), "abajo arriba");
        Fila("Esc no cierra", "CW", int(Qt::Key_Escape), "detener");
    }

    void teclasDelManipulador()
    {
        QFETCH(QString, modo);
        QFETCH(int, tecla);
        Concurso v;
        QStringList llamados;
        v.f.llamarCQ = [&] { llamados << u"CQ"_s; };
        v.f.detener = [&] { llamados << u"detener"_s; };
        v.f.macro = [&](int i) { llamados << u"macro %1"_s.arg(i); };
        v.f.manipular = [&](bool abajo) { llamados << (abajo ? u"abajo"_s : u"arriba"_s); };
        v.Paso(u"modo "_s + modo);
        v.f.Timer2_Timer();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key(tecla));
        QTEST(llamados.join(u' '), "llamado");
        QVERIFY(v.f.isVisible());
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
        QTest::addColumn<QString>("valor");
        QTest::addColumn<QStringList>("mensajes");
        QTest::addColumn<QString>("guardado");
        Fila("fecha corta y mes", "Text4", "2010134",
             QStringList{"Error en la fecha, formato DDMMAAAA!", "Error en la fecha, mes 4!"},
             "|2010134|1430");
        Fila("hora 2460", "Text5", "2460",
             QStringList{"Error en la HORA 24!", "Error en los MINUTOS 60!"}, "|20240515|2460");
        Fila("kHz 999", "Text3", "999", QStringList{"999 KHz NO ES BANDA DE CONCURSO!"},
             "999|20240515|1430");
        Fila("bueno", "Text4", "20101113", QStringList{}, "|20101113|1430");
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
        QLineEdit *c = e.findChild<QLineEdit *>(campo);
        c->setFocus();
        QFETCH(QString, valor);
        c->setText(valor);
        v.d().Limpiar();
        QTest::keyClick(c, Qt::Key_Tab);
        QTEST(v.d().Textos(Tipo::Exclamacion), "mensajes");
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
