// SPDX-License-Identifier: GPL-3.0-or-later
// The main window driven as an operator drives it: keys into the fields, Enter, the
// navigator, the first start. Fake services answer every message and question.
#include "gui/main/Form1.h"
#include "gui/platform/DialogosQt.h"
#include "support/ContextoPrueba.h"
#include "support/Hecho.h"
#include "support/Modales.h"
#include "support/Semilla.h"
#include "support/TablaDeTextos.h"

#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>

using namespace Qt::Literals::StringLiterals;

namespace {

const QByteArray ConfigPrueba = "Estacion=LU1AAA\r\nOperador=LU2BBB\r\nDiferUTC=-3\r\n"
                                "LogenUso=Pruebas\r\nGridLoca=FF78AB\r\nPantalla=1\r\n";

// A main window over a fresh folder, past its start-up, with the timers held so that the
// test decides when each one ticks. The clock reads 14:30 local on 15/05/2024.
struct Ventana
{
    // memoria, "file=content", is written before the start, as a former run left it.
    explicit Ventana(bool conConfig = true, const QString &memoria = {})
    {
        if (conConfig)
            p.Escribir(u"config.ini"_s, ConfigPrueba);
        if (!memoria.isEmpty())
            p.Escribir(memoria.section(u'=', 0, 0), memoria.section(u'=', 1).toUtf8());
        f = std::make_unique<Form1>(p.ctx());
        f->abrirEdicion = [this](const FilaQSO &fila, bool) { editado = fila; };
        for (QTimer *t : {f->Timer1, f->Timer2, f->Timer7})
            t->stop();
        f->show();
        QApplication::setActiveWindow(f.get());
        if (!QTest::qWaitForWindowActive(f.get()))
            qWarning("la ventana no quedó activa");
        if (conConfig)
            f->Timer2_Timer();
        f->Timer1_Timer();
        f->Corresponsal->setFocus();
        QApplication::processEvents();
    }

    QWidget *Foco() const { return QApplication::focusWidget(); }
    void LlenarLog(int cantidad, QDate desde = QDate(2024, 1, 1))
    {
        for (int i = 0; i < cantidad; ++i) {
            RegistroQSO q;
            q.Estacion = u"LU%1XX"_s.arg(i);
            q.Modo = u"SSB"_s;
            q.Fecha = desde.addDays(i).toString(u"dd/MM/yyyy"_s);
            q.Hora = u"10:00:00"_s;
            Hecho(p->almacen().AgregarQSO(q, u"Pruebas"_s));
        }
        f->Command11_Click(); // the view read again
    }
    DialogosFalso &d() { return *p.falsos.dialogos; }

    ContextoPrueba p;
    std::unique_ptr<Form1> f;
    FilaQSO editado; // the row the edit window was opened on
};

// What a screen reader's bridge does to the keys of the window system: it holds each one
// while it asks the reader whether it wants it, then hands a copy to the same widget.
class PuenteLector : public QObject
{
protected:
    bool eventFilter(QObject *destino, QEvent *evento) override
    {
        if ((evento->type() != QEvent::KeyPress && evento->type() != QEvent::KeyRelease) ||
            !evento->spontaneous() || !destino->isWidgetType())
            return false;
        std::shared_ptr<QEvent> copia(evento->clone());
        QTimer::singleShot(0, destino,
                           [destino, copia] { QCoreApplication::sendEvent(destino, copia.get()); });
        return true;
    }
};

} // namespace

class TestForm1 : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void caminoDelEnter_data()
    {
        // pasos, split at "|": "⏎" is the Enter key, "[Ingresar QSO]" a click on the button,
        // "[almacén cerrado]" a store that then fails, "name=value" sets an entry control as the
        // mouse would (a box is clicked, a list chosen from), any other text is typed over the
        // field with the focus.
        // mensajes: the first line of each box, in order, "Alto: " for the stop sign.
        // guardado: the row stored; quedan: callsign|grid|remarks|band|focus after the walk.
        Columnas({"memoria", "pasos", "mensajes", "guardado", "quedan"});
        // The clock runs: Enter goes from the callsign past the date and time to the reports.
        Fila("teclado solo",
             {"", "lu7dd|⏎|⏎|⏎|⏎|ff78|⏎|it's ok|⏎", "",
              "LU7DD 15/05/2024 17:30:00 80m 3.650 SSB 59 59 FF78 it's ok", "|||80m|Corresponsal"});
        Fila("corregido paso a paso",
             {"", "⏎|lu1aaa|⏎|lu2bbb|⏎|lu9zz|⏎|RSE=|⏎|59|⏎|999|⏎|57|⏎|⏎|⏎|⏎",
              "Falta el Corresponsal!|Alto: QSO con la propia estación???|Alto: QSO con el "
              "Operador???|Reporte Enviado no válido!|Reporte Recibido no válido!",
              "LU9ZZ 15/05/2024 17:30:00 80m 3.650 SSB 59 57", "|||80m|Corresponsal"});
        // Local 21:30 on New Year's Eve is next year in UTC; "No Borrar" keeps the remarks.
        Fila("QTR manual, No Borrar",
             {"", "Check1=|Check3=|lu5ff|⏎|31/12/2024|⏎|21:30|⏎|⏎|⏎|⏎|⏎|queda|⏎", "",
              "LU5FF 01/01/2025 00:30:00 80m 3.650 SSB 59 59 queda", "||queda|80m|Corresponsal"});
        // The button refuses a date that cannot be read before it clears anything.
        Fila("fecha imposible con el ratón",
             {"", "Check1=|Fecha=31/02/2024|lu5ff|[Ingresar QSO]",
              "la Fecha 31/02/2024 no es válida!", "", "LU5FF|||80m|Corresponsal"});
        // What the store refused is put back in the fields.
        Fila("el almacén falla", {"", "[almacén cerrado]|lu5ff|⏎|⏎|⏎|⏎|ff78|⏎|nota|⏎",
                                  "Alto: No se pudo guardar el QSO con LU5FF.", "",
                                  "LU5FF|FF78|nota|80m|Corresponsal"});
        // With no kHz a click on the MHz list does nothing at all; out of band it warns once:
        // leaving the kHz for the callsign is not a second check. That box opens with the
        // frequency and says "Fuera de banda!" below it.
        Fila("MHz sin kHz", {"", "Text1=|mhz=7", "", "", "|||80m|mhz"});
        Fila("MHz fuera de banda", {"", "Text1=100|mhz=3", "3.100 KHz", "", "|||80m|Corresponsal"});
        // A start with "QTR manual" remembered is the ticked box: the time typed is local.
        Fila("QTR manual recordado",
             {"mem.ini=7.100\r\n40m\r\n1\r\n\r\n", "lu5ff|⏎|⏎|14:30|⏎|⏎|⏎|⏎|⏎|⏎", "",
              "LU5FF 15/05/2024 17:30:00 40m 7.100 SSB 59 59", "|||40m|Corresponsal"});
        // Satellite mode comes back on with no satellite: Enter asks for one. The choice brings
        // its frequency and mode; the band follows as the kHz field is left.
        Fila("Vía Satélite recordado",
             {"memqSat.cfg=1\r\n", "lu5ff|⏎|Combo3=AO-7|⏎|⏎|⏎|⏎|⏎|⏎", "Elija un satélite!",
              "LU5FF 15/05/2024 17:30:00 70cm 435.550 SSB 59 59 AO-7", "|||70cm|Corresponsal"});
    }

    void caminoDelEnter()
    {
        Ventana v(true, Dato("memoria"));
        // A QSO dated after any typed here: F5 must still edit the one entered now.
        v.LlenarLog(1, QDate(2030, 1, 1));
        // The box ticked or restored alike: the base of the time shows and the box blinks.
        QCOMPARE(v.f->Label11->isVisible(), v.f->Check1->isChecked());
        QCOMPARE(v.f->Timer3->isActive(), v.f->Check1->isChecked());
        for (const QString &paso : Dato("pasos").split(u'|')) {
            QWidget *control = v.f->Frame1->findChild<QWidget *>(paso.section(u'=', 0, 0));
            if (paso == u"⏎")
                QTest::keyClick(v.Foco(), Qt::Key_Return);
            else if (paso == u"[Ingresar QSO]")
                QTest::mouseClick(v.f->Command2, Qt::LeftButton);
            else if (paso == u"[almacén cerrado]")
                v.p->almacen().Cerrar();
            else if (auto *caja = qobject_cast<QCheckBox *>(control))
                caja->click();
            else if (auto *lista = qobject_cast<QComboBox *>(control)) {
                lista->setFocus();
                lista->setCurrentText(paso.section(u'=', 1));
                Q_EMIT lista->activated(lista->currentIndex());
            } else if (control)
                control->setProperty("text", paso.section(u'=', 1));
            else if (auto *campo = qobject_cast<QLineEdit *>(v.Foco())) {
                campo->clear();
                QTest::keyClicks(campo, paso);
            } else
                QFAIL(qPrintable(u"nada donde escribir "_s + paso));
            QApplication::processEvents();
        }
        QStringList vistos;
        for (const LlamadaDialogo &l : v.d().llamadas)
            vistos << (l.tipo == LlamadaDialogo::Tipo::Alto ? "Alto: " : "") +
                          l.texto.section(u'\r', 0, 0);
        QCOMPARE(vistos.join(u'|'), Dato("mensajes"));
        const QStringList quedan{v.f->Corresponsal->text(), v.f->Text2->text(), v.f->Obs->text(),
                                 v.f->Label7->text(), v.Foco()->objectName()};
        QCOMPARE(quedan.join(u'|'), Dato("quedan"));
        const QVector<FilaQSO> filas = v.p->almacen().PaginaLog(u"Pruebas"_s, 1);
        QStringList guardados;
        for (const FilaQSO &q : filas.mid(1)) // newest first: past the QSO of 2030
            guardados << u"%1 %2 %3 %4 %5 %6 %7 %8 %9 %10 %11"_s
                             .arg(q.Estacion, q.Fecha, q.Hora, q.Banda, q.Frecuencia, q.Modo, q.RSE,
                                  q.RSR, q.SuGrid, q.Obs, q.Nombre_Sat)
                             .simplified();
        QCOMPARE(guardados.join(u'|'), Dato("guardado"));
        if (guardados.isEmpty())
            return;
        const FilaQSO &q = filas.at(1);
        QCOMPARE(q.MyCall + u' ' + q.Operador + u' ' + q.MiGrid, u"LU1AAA LU2BBB FF78AB"_s);
        QCOMPARE(v.f->Label6->text(), u"Log: Pruebas, con 2 QSOs"_s);
        QTest::keyClick(v.Foco(), Qt::Key_F5);
        QCOMPARE(v.editado.id, q.id);
    }

    void cajaDelEnterUnaVez_data()
    {
        // The box is a real modal one, answered from inside its own loop by a key sent through
        // the window system, with and without a screen reader's bridge in between.
        Columnas({"respuesta", "lector"});
        for (const char *lector : {"", "lector"})
            for (const char *respuesta : {"Return", "Space", "Esc"})
                Fila(qPrintable(u"%1 %2"_s.arg(respuesta, lector)), {respuesta, lector});
    }

    void cajaDelEnterUnaVez()
    {
        PuenteLector puente;
        if (!Dato("lector").isEmpty()) // the bridge is there before any window, as the desktop's is
            qApp->installEventFilter(&puente);
        Ventana v;
        const Qt::Key tecla = QKeySequence(Dato("respuesta"))[0].key();
        v.d().alLlegar = [&v, tecla](const LlamadaDialogo &l) {
            if (v.d().llamadas.size() > 6) // a box that keeps coming back: enough to tell
                return;
            CuandoAparezcaModal([tecla](QWidget *w) { QTest::keyClick(w->windowHandle(), tecla); });
            DialogosQt().Exclamacion(l.texto);
        };
        // Twice: a box that only comes back from the second refusal on is caught too.
        for (int vez = 1; vez <= 2; ++vez) {
            QTest::keyClick(v.f->windowHandle(), Qt::Key_Return);
            QTest::qWait(60);
            QCOMPARE(v.d().Textos(), QStringList(vez, u"Falta el Corresponsal!"_s));
            // The window manager gives the window back its activation once the box is gone.
            QApplication::setActiveWindow(v.f.get());
            QVERIFY(QTest::qWaitForWindowActive(v.f.get()));
        }
        QVERIFY(!QApplication::activeModalWidget());
    }

    void unClicUnaVez()
    {
        Ventana v;
        v.f->Check1->click();
        QWindow *ventana = v.f->windowHandle();
        const auto centro = [&](QWidget *w) { return w->mapTo(v.f.get(), w->rect().center()); };
        // Through the window, as the pointer arrives: one click is one change of base.
        QTest::mouseClick(ventana, Qt::LeftButton, {}, centro(v.f->Label11));
        QCOMPARE(v.f->Label11->text() + u' ' + v.f->Hora->text(), u"UTC 17:30"_s);
        QTest::qWait(QApplication::doubleClickInterval() + 50);
        QTest::mouseClick(ventana, Qt::LeftButton, {}, centro(v.f->Label11));
        QCOMPARE(v.f->Label11->text() + u' ' + v.f->Hora->text(), u"LU 14:30"_s);
        // One double click on the logo opens the site once.
        QTest::mouseDClick(ventana, Qt::LeftButton, {}, centro(v.f->Image1));
        QCOMPARE(v.p.falsos.escritorio->abiertos, QStringList{v.p->direcciones().Sitio});
    }

    void nombresParaElLector_data()
    {
        Columnas({"control", "nombre"}); // "window.object"; no name: a value, read as it shows
        const QString tabla =
            u"Form1.Label2;Form1.Label3;Form1.Label8;Form1.Label7;Form1.Label11;Form1.Label6;"
            u"Form1.Label4;Form1.txt_pagina;Form1.txt_total;Form1.Subida;Form1.Bajada;Form1.Modo;"
            u"Form1.Subtono;Form2.Label3;Form2.Label6;Form1.Corresponsal=Corresponsal;"
            u"Form1.Fecha=Fecha;Form1.Hora=Hora;Form1.RSE=RS(e);Form1.Combo1=Modo;Form1.mhz=MHz;"
            u"Form1.Text1=KHz;Form1.Text2=GridLoc;Form1.Obs=Observaciones;Form1.Check1=QTR manual;"
            u"Form2.Text1=Señal Distintiva de la  Estación;Form2.Text3=Diferencia UTC;"
            u"Form2.Text4=Grid Locator;Form2.user_lbn=Usuario (email):"_s;
        for (const QString &fila : tabla.split(u';'))
            Fila(qPrintable(fila), {fila.section(u'=', 0, 0), fila.section(u'=', 1)});
    }

    void nombresParaElLector()
    {
        const QString control = Dato("control"), nombre = Dato("nombre");
        Ventana v;
        QWidget *raiz =
            control.startsWith("Form1"_L1) ? v.f.get() : v.f->findChild<QWidget *>(u"Form2"_s);
        QWidget *w = raiz->findChild<QWidget *>(control.section(u'.', 1));
        QVERIFY(w);
        QAccessibleInterface *lector = QAccessible::queryAccessibleInterface(w);
        if (auto *valor = qobject_cast<QLabel *>(w); nombre.isEmpty()) {
            // A value: whatever it shows now is what the operator hears, and no caption points
            // at it.
            valor->setText(u"LU7ABC 40m 12"_s);
            QCOMPARE(lector->text(QAccessible::Name), u"LU7ABC 40m 12"_s);
            for (const QLabel *rotulo : raiz->findChildren<QLabel *>())
                QVERIFY2(rotulo->buddy() != w, qPrintable(rotulo->text()));
            return;
        }
        // A field is read by its caption, the label whose buddy it is. A list says its choice as
        // its name and the caption as its label.
        const auto rotulos = lector->relations(QAccessible::Label);
        QCOMPARE(!qobject_cast<QComboBox *>(w) ? lector->text(QAccessible::Name)
                 : rotulos.isEmpty()           ? QString()
                                               : rotulos.first().first->text(QAccessible::Name),
                 nombre);
    }

    void ordenDelTab_data()
    {
        Columnas({"orden"});
        const auto *resto =
            "RSE RSR Text1 Text2 Obs Combo1 mhz Combo2 Check1 Check3 Check2 Text3 Corresponsal";
        // The date and time are the clock's and disabled: Tab passes them by.
        Fila("reloj", {u"Corresponsal "_s + resto});
        Fila("QTR manual", {u"Corresponsal Fecha Hora "_s + resto});
        // The satellite panel only in satellite mode.
        Fila("Vía Satélite",
             {u"Corresponsal "_s + QString::fromLatin1(resto).replace(
                                       "Check2"_L1, "Check2 Combo3 Command1 Command15"_L1)});
    }

    void ordenDelTab()
    {
        const QStringList orden = Dato("orden").split(u' ');
        Ventana v;
        if (orden.contains(u"Fecha"_s))
            v.f->Check1->click();
        if (orden.contains(u"Combo3"_s))
            v.f->Check2->click();
        // Nothing else takes the focus: not a hidden control, nor the satellite panel beyond
        // the edge of the entry frame.
        QStringList visto{v.Foco()->objectName()};
        while (visto.size() < orden.size()) {
            QTest::keyClick(v.f->windowHandle(), Qt::Key_Tab);
            visto << (v.Foco() ? v.Foco()->objectName() : u"nada"_s);
        }
        QCOMPARE(visto, orden);
        QVERIFY(v.d().llamadas.isEmpty());
    }

    void paginas_data()
    {
        // The view on the first page and on the last one: page/pages, the buttons Primera,
        // Anterior, Siguiente and Ultima that are on, the rows shown and the top one.
        // F5 with nothing entered in this run edits the newest QSO.
        Columnas({"cantidad", "primera", "ultima", "f5"});
        Fila("vacío", {"0", "1/1 0000 0 ", "1/1 0000 0 ", "No hay QSOs para Editar!"});
        Fila("20", {"20", "1/1 0000 20 LU19XX", "1/1 0000 20 LU19XX", "LU19XX"});
        Fila("21", {"21", "1/2 0011 20 LU20XX", "2/2 1100 1 LU0XX", "LU20XX"});
        Fila("45", {"45", "1/3 0011 20 LU44XX", "3/3 1100 5 LU4XX", "LU44XX"});
    }

    void paginas()
    {
        const int cantidad = Dato("cantidad").toInt();
        Ventana v;
        v.LlenarLog(cantidad);
        QTreeWidget *lista = v.f->ListView2;
        const int filas = lista->topLevelItemCount();
        const auto vista = [&] {
            QString texto = v.f->txt_pagina->text() + u'/' + v.f->txt_total->text() + u' ';
            for (QPushButton *b : {v.f->anterior, v.f->menos, v.f->mas, v.f->ultima})
                texto += b->isEnabled() ? u'1' : u'0';
            QTreeWidgetItem *arriba = lista->topLevelItem(0);
            return texto + u" %1 %2"_s.arg(lista->topLevelItemCount())
                               .arg(arriba ? arriba->text(2) : QString());
        };
        QCOMPARE(v.f->Label6->text(), u"Log: Pruebas, con %1 QSOs"_s.arg(cantidad));
        QCOMPARE(vista(), Dato("primera"));
        QTest::keyClick(v.Foco(), Qt::Key_End); // the page keys work from any field
        QCOMPARE(vista(), Dato("ultima"));
        QTest::keyClick(v.Foco(), Qt::Key_Home);
        QCOMPARE(vista(), Dato("primera"));
        QTest::keyClick(v.Foco(), Qt::Key_F5);
        QCOMPARE(filas ? v.editado.Estacion : v.d().Textos().join(u'|'), Dato("f5"));
        if (filas == 0)
            return;
        // A double click opens the row clicked, read from the store by its id.
        QTreeWidgetItem *item = lista->topLevelItem(filas - 1);
        Q_EMIT lista->itemDoubleClicked(item, 2);
        QCOMPARE(v.editado.Estacion + u' ' + QString::number(v.editado.id),
                 item->text(2) + u' ' + item->text(1));
    }

    void ayuda_data()
    {
        // Where copies of the manual lie, "programa" and "instalado"; which one opens, with
        // "sin visor" when no PDF viewer is there; the first line of the message, if any.
        Columnas({"copias", "abierto", "mensaje"});
        Fila("la del operador primero", {"programa instalado", "programa", ""});
        Fila("la instalada", {"instalado", "instalado", ""});
        Fila("ninguna", {"", "",
                         "No se encontró el manual AyudaRadiolog2.pdf, ni en la carpeta "
                         "del programa ni entre los archivos instalados:"});
        Fila("sin visor", {"instalado", "instalado sin visor",
                           "No se pudo abrir el manual. Instale un visor de archivos PDF para "
                           "leerlo:"});
    }

    void ayuda()
    {
        const QString abierto = Dato("abierto").section(u' ', 0, 0);
        // The data folders of the desktop, as an installed program finds them.
        QTemporaryDir datos, casa;
        qputenv("XDG_DATA_DIRS", datos.path().toUtf8());
        qputenv("XDG_DATA_HOME", casa.path().toUtf8());
        Ventana v;
        const QHash<QString, QString> donde = {
            {u"programa"_s, v.p.Archivo(u"AyudaRadiolog2.pdf"_s)},
            {u"instalado"_s, datos.filePath(u"carancho-radiolog/AyudaRadiolog2.pdf"_s)}};
        QDir().mkpath(datos.filePath(u"carancho-radiolog"_s));
        for (const QString &copia : Dato("copias").split(u' ', Qt::SkipEmptyParts))
            QVERIFY(QFile(donde[copia]).open(QIODevice::WriteOnly));
        v.p.falsos.escritorio->exito = !Dato("abierto").endsWith(u"sin visor"_s);
        v.f->Ayuda->trigger();
        QCOMPARE(v.p.falsos.escritorio->abiertos,
                 abierto.isEmpty() ? QStringList{} : QStringList{donde[abierto]});
        QCOMPARE(v.d().UltimoTexto().section(u"\r\n"_s, 0, 0), Dato("mensaje"));
    }

    void sinConfigIni()
    {
        // The first start: the configuration window asks for the station, and the first log
        // is offered by the list of logs before its first QSO.
        Ventana v(false);
        CuandoAparezcaModal([](QWidget *form2) {
            QTest::keyClicks(form2->findChild<QLineEdit *>(u"Text1"_s), u"lu1abc"_s);
            form2->findChild<QPushButton *>(u"Command1"_s)->click();
        });
        v.f->Timer2_Timer();
        QCOMPARE(v.f->Label2->text() + u' ' + v.f->Frame1->title(), u"LU1ABC Log inicial"_s);
        QCOMPARE(v.p->almacen().Logs(), QStringList{u"Log inicial"_s});
        // The presence messages are on their way and the menu is the operator's again.
        QVERIFY(!v.p->ConfigInicial && v.f->Timer7->isActive() &&
                v.f->archivo->menuAction()->isEnabled());

        // Settings put straight into the context, with no file and no window: shown and used.
        Configuracion &cfg = v.p->config();
        cfg.Estacion = u"lu3cc"_s;
        cfg.DiferUTC = u"+2"_s;
        cfg.GridLoca = u"GF05"_s;
        cfg.NoBorrar = 7;
        v.f->AplicarConfiguracion();
        v.f->Timer1_Timer();
        QCOMPARE(v.f->Label2->text() + u' ' + v.f->Hora->text(), u"LU3CC 12:30"_s);
        // The box holds 0 or 1, and the settings follow the box.
        QVERIFY(v.f->Check3->isChecked() && cfg.NoBorrar == 1);
        v.f->Check3->click();
        QCOMPARE(cfg.NoBorrar, 0);
        v.f->Corresponsal->setText(u"LU5FF"_s);
        v.f->Command2->click();
        const FilaQSO q = v.p->almacen().UltimoQSO(u"Log inicial"_s).value_or(FilaQSO());
        QCOMPARE(q.MyCall + u' ' + q.MiGrid + u' ' + q.Hora, u"LU3CC GF05 12:30:00"_s);
        v.f->Timer7_Timer();
        v.f->Timer5_Timer();
        QVERIFY(v.p.falsos.web->Direcciones().last().contains("qrz=lu3cc&"_L1));
    }

    void llamadorConF1YEsc_data()
    {
        // The PTT line after F1, then after Esc, with the pin of the settings; an audio file
        // that does not open keys nothing, but Esc lets the line go all the same.
        Columnas({"pin", "abre", "linea"});
        Fila("pin 1: RTS", {"1", "sí", "RTS1 RTS0"});
        Fila("pin 0: DTR", {"0", "sí", "DTR1 DTR0"});
        Fila("archivo que no abre", {"1", "", "RTS0"});
    }

    void llamadorConF1YEsc()
    {
        const QStringList linea = Dato("linea").split(u' ');
        const bool abre = !Dato("abre").isEmpty();
        Ventana v;
        LineaSerieFalsa &ptt = *v.p.falsos.puertoPTT;
        ReproductorFalso &reproductor = *v.p.falsos.reproductor;
        QVERIFY(ptt.Abrir(u"COM3"_s));
        const QString audio = u"/cq/llamada.wav"_s;
        v.p->config().ArcAudio = audio;
        v.p->config().PinPTT = Dato("pin").toInt();
        if (!abre)
            reproductor.archivosQueFallan << audio;
        // The lamp "Tx": red on, dark red off.
        const auto lampara = [&v] {
            const QString estilo = v.f->Label13->styleSheet();
            return estilo.contains("#ff0000"_L1) ? 1 : estilo.contains("#400000"_L1) ? 0 : -1;
        };
        QCOMPARE(lampara(), 0);
        QTest::keyClick(v.Foco(), Qt::Key_F1);
        const QStringList ordenes = QStringList{"Cerrar", "Rebobinar", "Abrir " + audio} +
                                    (abre ? QStringList{"Reproducir"} : QStringList{});
        QCOMPARE(reproductor.ordenes, ordenes);
        if (abre) { // the bar follows, and the end of the file keeps the transmitter keyed
            reproductor.EmitirEstado(reproductor.longitud / 2);
            QCOMPARE(v.f->sPorcentaje->width(), v.f->sFondo->width() / 2);
            reproductor.Terminar();
        }
        QCOMPARE(ptt.historial, linea.mid(0, linea.size() - 1));
        QCOMPARE(lampara(), abre ? 1 : 0);
        QTest::keyClick(v.Foco(), Qt::Key_Escape);
        QCOMPARE(ptt.historial, linea);
        QCOMPARE(lampara(), 0);
        QCOMPARE(v.f->sPorcentaje->width(), 1);
        QCOMPARE(reproductor.ordenes.mid(ordenes.size()), (QStringList{"Detener", "Cerrar"}));
    }

    void tecleoAlAzarNoRompeNiPierde()
    {
        Ventana v;
        v.LlenarLog(25);
        v.f->Check1->click(); // date and time open to typing too
        const QList<Qt::Key> teclas{Qt::Key_Return,    Qt::Key_Tab,    Qt::Key_Backtab,
                                    Qt::Key_F5,        Qt::Key_PageUp, Qt::Key_PageDown,
                                    Qt::Key_Home,      Qt::Key_End,    Qt::Key_Escape,
                                    Qt::Key_Backspace, Qt::Key_F1,     Qt::Key_Delete};
        const QString caracteres = u"lu0123456789abcxyzW/:,.'?- "_s;
        // Now and then a whole right value typed over the field, as after a refusal: without it
        // a date the random keys spoilt would hold the entry for the rest of the run. The
        // kilohertz are right for every band but one each: 30 m refuses 900, 80 m and 12 m 120.
        const QStringList correctos{
            "Corresponsal=lu5ff", "Fecha=15/05/2024", "Hora=14:30", "RSE=59", "RSR=59",
            "Text1=900",          "Text1=120",        "Text2=ff78", "Obs=73"};
        QRandomGenerator azar(Semilla());
        for (int i = 0; i < 1500; ++i) {
            QWidget *foco = v.Foco() ? v.Foco() : v.f.get();
            const int suerte = azar.bounded(6);
            const QStringList valores =
                correctos.filter(QRegularExpression(u'^' + foco->objectName() + u'='));
            if (suerte < 2) // mostly Enter, so that QSOs do go in now and then
                QTest::keyClick(foco, Qt::Key_Return);
            else if (suerte == 2)
                QTest::keyClick(foco, teclas.at(azar.bounded(int(teclas.size()))));
            else if (suerte == 3 && !valores.isEmpty()) {
                qobject_cast<QLineEdit *>(foco)->selectAll();
                QTest::keyClicks(foco,
                                 valores.at(azar.bounded(int(valores.size()))).section(u'=', 1));
            } else
                QTest::keyClicks(foco,
                                 QString(caracteres.at(azar.bounded(int(caracteres.size())))));
            // What the window system has queued (a list's popup closing, the window active
            // again) comes between two keys, as it does for the operator.
            QApplication::processEvents();
        }
        // Whatever was refused or entered, the stored QSOs are all still there and the view
        // counts them all.
        const qint64 n = v.p->almacen().CantidadQSOs(u"Pruebas"_s);
        QVERIFY2(n > 25, "el tecleo no llegó a ingresar ningún QSO");
        QCOMPARE(v.f->Label6->text(), u"Log: Pruebas, con %1 QSOs"_s.arg(n));
    }
};

QTEST_MAIN(TestForm1)
#include "test_form1.moc"
