// SPDX-License-Identifier: GPL-3.0-or-later
// The search window as the operator uses it: the export of the list as sorted on screen
// with its questions in order, the filters typed through the keys, the edit of a row, the
// uploads and the eQSL button that sends nothing.
#include "gui/adif/ExportarAdif.h"
#include "gui/adif/Form6.h"
#include "gui/adif/ModeloBusqueda.h"
#include "gui/main/Form1.h"
#include "support/ContextoPrueba.h"
#include "support/Hecho.h"
#include "support/Modales.h"
#include "support/ServidorHttpPrueba.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpression>
#include <QTableView>
#include <QTest>
#include <QTextEdit>
#include <QTimer>
#include <QTreeWidget>

using Tipo = LlamadaDialogo::Tipo;
using namespace Qt::StringLiterals;

namespace {

const QString kLog = u"Log d'Oro"_s;

// "Estacion Banda LbN Obs", oldest first; dates one day apart from 01/05/2024.
const QStringList kFilas = {"LU2XYZ 40m 1 it's", "W1AW 20m 0 -", "LU5DEF 80m 0 100%",
                            "LU2XYZ 20m 2 -"};

struct Busqueda
{
    explicit Busqueda(const QString &base = {})
        : p(base, !base.isEmpty())
    {
        p->LogenUso = kLog;
        Hecho(p->almacen().AgregarLogVacio(kLog));
        for (int i = 0; i < kFilas.size(); ++i) {
            const QStringList c = kFilas.at(i).split(u' ');
            RegistroQSO q;
            q.Estacion = c[0], q.Banda = c[1], q.LbN = c[2],
            q.Obs = c[3] == u"-" ? QString() : c[3];
            q.Modo = u"SSB"_s, q.MyCall = u"LU1AAA"_s, q.RSE = u"59"_s, q.RSR = u"59"_s;
            q.Fecha = u"0%1/05/2024"_s.arg(i + 1), q.Hora = u"10:00:00"_s;
            Hecho(p->almacen().AgregarQSOImportado(q, kLog));
        }
        f = std::make_unique<Form6>(p.ctx());
        p->LogenUso = kLog;
        f->Cargar();
        f->show();
        QApplication::setActiveWindow(f.get());
        static_cast<void>(QTest::qWaitForWindowActive(f.get()));
    }
    DialogosFalso &d() { return *p.falsos.dialogos; }
    QStringList Columna(int columna) const
    {
        QStringList textos;
        for (const FilaQSO &fila : f->Lista().Filas())
            textos << ModeloBusqueda::Texto(fila, columna);
        return textos;
    }

    ContextoPrueba p;
    std::unique_ptr<Form6> f;
};

} // namespace

class TestForm6 : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void exportar_data()
    {
        QTest::addColumn<QString>("archivo"); // "" cancels; "viejo" exists; "vacía": no rows
        QTest::addColumn<QList<bool>>("respuestas");
        QTest::addColumn<QStringList>("llamadas"); // kind and text; %1 the path
        QTest::addColumn<QByteArray>("calls");     // the CALLs written, in order; "-" none
        const QString qslmsg = u"PreguntaSiNo:Desea usar el campo COMMENT como QSLMSG?"_s;
        const QString guardar = u"GuardarArchivo:ADIF (*.adi)|*.adi"_s;
        const QString existe = u"PreguntaSiNo:El archivo \r\n%1\r\nya existe!\r\n\r\nsobregraba?"_s;
        const QString guardado = u"PreguntaSiNo:%1\r\nGuardado!\r\n\r\nDesea verlo?"_s;
        // The question comes first, even with nothing to export.
        QTest::newRow("lista vacía")
            << "vacía" << QList<bool>{true}
            << QStringList{qslmsg, "Exclamacion:No hay QSOs para exportar!"} << QByteArray("-");
        QTest::newRow("diálogo cancelado")
            << "" << QList<bool>{false} << QStringList{qslmsg, guardar} << QByteArray("-");
        QTest::newRow("existe, no se sobregraba")
            << "viejo" << QList<bool>{false, false} << QStringList{qslmsg, guardar, existe}
            << QByteArray("-");
        // Sorted on screen by the "ID" header, which sorts by the band: 20m, 20m, 40m, 80m, the
        // equal bands as they stood (newest first).
        QTest::newRow("sobregraba, QSLMSG y verlo")
            << "viejo" << QList<bool>{true, true, true}
            << QStringList{qslmsg, guardar, existe, guardado}
            << QByteArray("LU2XYZ W1AW LU2XYZ LU5DEF");
    }

    void exportar()
    {
        QFETCH(QString, archivo);
        QFETCH(QList<bool>, respuestas);
        Busqueda b;
        if (archivo == u"vacía") {
            b.p->LogenUso = u"Ninguno"_s;
            b.f->Cargar();
        }
        const QString ruta = archivo.isEmpty() ? QString() : b.p.Archivo(archivo + u".adi"_s);
        if (archivo == u"viejo")
            b.p.Escribir(archivo + u".adi"_s, "viejo");
        b.d().archivosGuardar.enqueue(ruta);
        for (bool r : respuestas)
            b.d().respuestasSiNo.enqueue(r);
        Q_EMIT b.f->ListView2->horizontalHeader()->sectionClicked(1);
        b.f->Command1_Click(); // the button itself is off with no rows

        QStringList vistas;
        for (const LlamadaDialogo &l : b.d().llamadas) {
            vistas << NombreTipo(l.tipo) + u":"_s + l.texto;
            if (l.tipo == Tipo::GuardarArchivo)
                QCOMPARE(l.titulo, u"Exportar a ADIF ..."_s);
        }
        QFETCH(QStringList, llamadas);
        for (QString &l : llamadas)
            l.replace(u"%1"_s, ruta);
        QCOMPARE(vistas, llamadas);

        QFETCH(QByteArray, calls);
        const QByteArray texto = b.p.Leer(archivo + u".adi"_s);
        if (calls == "-") {
            QVERIFY(!texto.contains("<EOH>"));
            QCOMPARE(b.p->UsarComentarioComoQslmsg, respuestas.first());
            QVERIFY(b.p.falsos.escritorio->abiertos.isEmpty());
            return;
        }
        QStringList escritas;
        static const QRegularExpression call(u"<CALL:\\d+>([^<]*)"_s);
        for (auto m = call.globalMatch(QString::fromUtf8(texto)); m.hasNext();)
            escritas << m.next().captured(1);
        QCOMPARE(escritas.join(u' ').toUtf8(), calls);
        QVERIFY(texto.contains("<COMMENT:4>it's<QSLMSG:4>it's"));
        QVERIFY(texto.endsWith("<EOR>\r\n<EOF>\r\n"));
        // Hidden before the last question; the file offered to a viewer.
        QVERIFY(!b.f->isVisible());
        QCOMPARE(b.p.falsos.escritorio->abiertos, QStringList{ruta});
    }

    void buscar_data()
    {
        QTest::addColumn<QStringList>("teclas"); // "Campo=typed" (Tab after each), or a box
        QTest::addColumn<QStringList>("estaciones");
        QTest::addColumn<QStringList>("mensajes");
        QTest::newRow("corresponsal con ?, en minúsculas; banda sin M")
            << QStringList{"Text5=lu?xyz*%", "Text7=20"} << QStringList{"LU2XYZ"} << QStringList{};
        // Confirmed (2) shows only under "Todos"; "Confirmados" lists the uploaded ones.
        QTest::newRow("argentinos, confirmados")
            << QStringList{"Check2", "Option3"} << QStringList{"LU2XYZ"} << QStringList{};
        QTest::newRow("ninguno") << QStringList{"Text3=LU9"} << QStringList{} << QStringList{};
        QTest::newRow("fecha mala")
            << QStringList{"Text1=31/02/2024"} << QStringList{"?"}
            << QStringList{"Error en el formato de fecha!", "Error en el formato de fecha!"};
    }

    void buscar()
    {
        QFETCH(QStringList, teclas);
        Busqueda b;
        QCOMPARE(b.Columna(2), QStringList({"LU2XYZ", "LU5DEF", "W1AW", "LU2XYZ"})); // newest first
        for (const QString &t : teclas) {
            const QString campo = t.section(u'=', 0, 0);
            if (auto *texto = b.f->findChild<QLineEdit *>(campo)) {
                texto->setFocus();
                QTest::keyClicks(texto, t.section(u'=', 1));
                QTest::keyClick(texto, Qt::Key_Tab);
            } else if (auto *caja = b.f->findChild<QCheckBox *>(campo)) {
                caja->click();
            } else {
                QVERIFY(b.f->findChild<QRadioButton *>(campo)->isEnabled());
                b.f->findChild<QRadioButton *>(campo)->click();
            }
        }
        b.f->Command3->click();
        QFETCH(QStringList, estaciones);
        if (estaciones == QStringList{"?"}) {
            QCOMPARE(b.f->Label6->text(), u"4"_s); // the list stays as it was
        } else {
            QCOMPARE(b.Columna(2), estaciones);
            QCOMPARE(b.f->Label6->text(), QString::number(estaciones.size()));
        }
        for (QPushButton *boton : {b.f->Command1, b.f->Command6, b.f->Command8})
            QCOMPARE(boton->isEnabled(), b.f->Label6->text() != u"0");
        QTEST(b.d().Textos(), "mensajes");

        // "Borrar Filtros": every QSO again, oldest first.
        b.f->Command4->click();
        QCOMPARE(b.Columna(2), QStringList({"LU2XYZ", "W1AW", "LU5DEF", "LU2XYZ"}));
    }

    void editarYProvincias()
    {
        Busqueda b;
        FilaQSO editada;
        b.f->editar = [&](const FilaQSO &f) { editada = f; };
        b.f->DobleClicFila(1); // LU5DEF
        QCOMPARE(editada.Estacion, u"LU5DEF"_s);
        QCOMPARE(b.p->OrigenEdicion, u"Form6"_s);

        // Saved in the edit window: the row shows the stored QSO; deleted: it goes.
        RegistroQSO q;
        q.Estacion = u"LU5DEG"_s, q.Modo = u"CW"_s, q.Fecha = u"03/05/2024"_s;
        Hecho(b.p->almacen().ActualizarQSO(editada.id, q));
        b.f->ActualizarFilaBusqueda(editada.id);
        QCOMPARE(b.Columna(2), QStringList({"LU2XYZ", "LU5DEG", "W1AW", "LU2XYZ"}));
        Hecho(b.p->almacen().BorrarQSO(editada.id));
        b.f->ActualizarFilaBusqueda(editada.id);
        QCOMPARE(b.Columna(2), QStringList({"LU2XYZ", "W1AW", "LU2XYZ"}));
        QCOMPARE(b.f->Label6->text(), u"3"_s);

        // The table of provinces takes the whole list, whatever the filters had left.
        QVector<FilaQSO> recibidas;
        b.f->tablaProvincias = [&](const QVector<FilaQSO> &filas) { recibidas = filas; };
        b.f->Text5->setText(u"W1AW"_s);
        b.f->Command3_Click();
        QCOMPARE(b.f->Lista().rowCount(), 1);
        b.f->Command5->click();
        QCOMPARE(recibidas.size(), 3);
        QVERIFY(!b.f->Command5->isEnabled());
    }

    // The upload with the lookup account: one line a reply in its colour, a refused
    // password ends the run and is remembered for the member list, and no row changes. Then
    // the eQSL button, which sends nothing.
    void subirALbN_data()
    {
        QTest::addColumn<QByteArray>("respuesta");
        QTest::addColumn<int>("pedidos");
        QTest::addColumn<QString>("color"); // of the last line
        QTest::newRow("guardados") << QByteArray("a b c d e Guardado") << 4 << u"#004000"_s;
        QTest::newRow("contraseña") << QByteArray("Error de Contraseña!") << 1 << u"#ff0000"_s;
    }
    void subirALbN()
    {
        QFETCH(QByteArray, respuesta);
        QFETCH(int, pedidos);
        ServidorHttpPrueba servidor;
        servidor.ResponderPrefijo(u"/php/"_s, respuesta);
        Busqueda b(servidor.Base());
        b.p->config().LBNQuser = u"yo@x.com"_s, b.p->config().LBNQpass = u"clave"_s;
        const QVector<FilaQSO> antes = b.p->almacen().QSOsPorIds(b.f->Lista().Ids());
        b.d().respuestasSiNo.enqueue(false); // no QSLMSG
        b.f->Command6->click();
        QCOMPARE(servidor.pedidos.size(), pedidos);
        const QStringList lineas = b.f->RichTextBox1->toPlainText().split(u'\n');
        QCOMPARE(lineas.size(), pedidos + 1);
        QCOMPARE(lineas.first(), u"Conectando con LbN ..."_s);
        QTEST(b.f->RichTextBox1->textColor().name(), "color");
        QVERIFY(b.f->Frame5->isVisible() && b.f->Command7->isEnabled());
        QCOMPARE(b.p->AbortarEnvio, pedidos == 1);
        QCOMPARE(b.p->almacen().QSOsPorIds(b.f->Lista().Ids()), antes);
        b.f->Command7->click();
        QVERIFY(!b.f->Frame5->isVisible());
        b.f->Command8->click();
        QCOMPARE(b.d().Textos(Tipo::Informacion),
                 QStringList{u"Momentanemente fuera de servicio"_s});
        QVERIFY(!servidor.EsperarPedidos(pedidos + 1, 300));
    }

    void desdeElMenu()
    {
        Busqueda b;
        b.f.reset();
        b.p.Escribir(u"config.ini"_s, "Estacion=LU1AAA\r\nLogenUso=Vacio\r\n");
        Hecho(b.p->almacen().AgregarLogVacio(u"Vacio"_s));
        Form1 principal(b.p.ctx());
        principal.Timer1->stop(), principal.Timer2->stop(), principal.Timer7->stop();
        principal.Timer2_Timer();
        ConectarAdif(principal, b.p.ctx(), nullptr);
        principal.eadif->trigger(); // a log of no QSOs opens nothing
        QCOMPARE(b.d().Textos(), QStringList{u"No hay QSOs para exportar!"_s});

        principal.AbrirLog(kLog);
        int filas = -1;
        CuandoAparezcaModal([&](QWidget *w) {
            filas = qobject_cast<Form6 *>(w)->Lista().rowCount();
            QVERIFY(principal.ListView2->isHidden());
            w->close();
        });
        principal.eadif->trigger();
        QCOMPARE(filas, kFilas.size());
        QVERIFY(!principal.ListView2->isHidden() && !b.p->CargandoBusqueda);
    }
};

QTEST_MAIN(TestForm6)
#include "test_form6.moc"
