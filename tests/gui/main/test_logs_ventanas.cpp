// SPDX-License-Identifier: GPL-3.0-or-later
// The named logs from the main window: "Abrir Log ..." by mouse and by keyboard, "Nuevo
// Log" with its refusals, and "Borrar Log" down to "Base 1".
#include "gui/main/Form1.h"
#include "gui/main/Form3.h"
#include "support/ContextoPrueba.h"
#include "support/Hecho.h"
#include "support/Modales.h"

#include <QAction>
#include <QLabel>
#include <QListWidget>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>

using Tipo = LlamadaDialogo::Tipo;
using namespace Qt::StringLiterals;

namespace {

// A main window past its start-up on the log "Pruebas", with its timers held, over "alfa"
// empty, "O'Brien" with one QSO and "Pruebas" with three.
struct Ventana
{
    Ventana()
    {
        p.Escribir(u"config.ini"_s, "Estacion=LU1AAA\r\nOperador=LU2BBB\r\nLogenUso=Pruebas\r\n");
        p->Terminar = [](int) {};
        Hecho(p->almacen().AgregarLogVacio(u"alfa"_s));
        for (const char *s : {"O'Brien LU5DX", "Pruebas LU1XX", "Pruebas LU2XX", "Pruebas LU3XX"}) {
            RegistroQSO q;
            q.Estacion = QString(s).section(u' ', 1), q.Fecha = u"01/01/2024"_s, q.Modo = u"SSB"_s;
            Hecho(p->almacen().AgregarQSO(q, QString(s).section(u' ', 0, 0)));
        }
        f = std::make_unique<Form1>(p.ctx());
        f->Timer1->stop(), f->Timer2->stop(), f->Timer7->stop();
        f->Timer2_Timer(), f->Timer1_Timer();
    }
    DialogosFalso &d() { return *p.falsos.dialogos; }
    // The log in use everywhere it shows: the context, the caption with its count, the
    // view and config.ini.
    void EnUso(const QString &log)
    {
        const int qsos = log == u"Pruebas" ? 3 : log == u"O'Brien" ? 1 : 0;
        QCOMPARE(p->LogenUso, log);
        QCOMPARE(f->Label6->text(), u"Log: %1, con %2 QSOs"_s.arg(log).arg(qsos));
        QCOMPARE(f->ListView2->topLevelItemCount(), qsos);
        QVERIFY(p.Leer(u"config.ini"_s).contains("\r\nLogenUso=" + log.toUtf8() + "\r\n"));
    }

    ContextoPrueba p;
    std::unique_ptr<Form1> f;
};

} // namespace

class TestLogsVentanas : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void abrirLog_data()
    {
        QTest::addColumn<int>("tecla"); // after the up arrow; 0: a click on "O'Brien"
        QTest::addColumn<QString>("log");
        QTest::newRow("clic") << 0 << "O'Brien";
        // From the log in use, up once to "O'Brien": moving alone opens nothing.
        QTest::newRow("flecha y Enter") << int(Qt::Key_Return) << "O'Brien";
    }

    void abrirLog()
    {
        QFETCH(int, tecla);
        Ventana v;
        QStringList vistas;
        CuandoAparezcaModal([&](QWidget *w) {
            if (auto *form3 = qobject_cast<Form3 *>(w)) {
                QListWidget *l = form3->List1;
                for (int i = 0; i < l->count(); ++i)
                    vistas << l->item(i)->text();
                vistas << l->currentItem()->text();
                if (tecla)
                    QTest::keyClick(l, Qt::Key_Up), QTest::keyClick(l, Qt::Key(tecla));
                else
                    QTest::mouseClick(l->viewport(), Qt::LeftButton, {},
                                      l->visualItemRect(l->item(1)).center());
            }
            if (w->isVisible()) // a choice that did not close it fails below, not on the clock
                static_cast<QDialog *>(w)->reject();
        });
        v.f->alog->trigger();
        // Every log with its count, then the current entry: the log in use.
        QCOMPARE(vistas, QStringList({"alfa (0 QSOs)", "O'Brien (1 QSOs)", "Pruebas (3 QSOs)",
                                      "Pruebas (3 QSOs)"}));
        QFETCH(QString, log);
        v.EnUso(log);
    }

    void nuevoLog_data()
    {
        QTest::addColumn<QStringList>("respuestas"); // "-": Cancelar
        QTest::addColumn<QString>("logEnUso");
        QTest::newRow("con apóstrofo") << QStringList{"Log d'Ana"} << "Log d'Ana";
        // A name taken in another case is refused and asked again.
        QTest::newRow("tomado, y otra vez") << QStringList{"pruebas", "o'BRIEN", "Otro"} << "Otro";
        QTest::newRow("tomado y cancelar") << QStringList{"ALFA", "-"} << "Pruebas";
    }

    void nuevoLog()
    {
        QFETCH(QStringList, respuestas);
        QFETCH(QString, logEnUso);
        Ventana v;
        QStringList avisos;
        for (const QString &r : respuestas) {
            v.d().entradas.enqueue(r == u"-" ? std::nullopt : std::optional(r));
            if (r != logEnUso && r != u"-")
                avisos << u"El log %1 ya existe!"_s.arg(r);
        }
        v.f->nuevo->trigger();
        QCOMPARE(v.d().Textos(Tipo::Exclamacion), avisos);
        QCOMPARE(v.p->almacen().Logs().size(), logEnUso == u"Pruebas" ? 3 : 4);
        v.EnUso(logEnUso);
    }

    void borrarLog()
    {
        Ventana v;
        // Each step deletes the log in use if told so; the one that takes over is the first
        // left, "alfa" whatever the case of its letters, and "Base 1" after the last.
        for (const auto &[si, despues] :
             {std::pair{false, "Pruebas"}, {true, "alfa"}, {true, "O'Brien"}, {true, "Base 1"}}) {
            const QString enUso = v.p->LogenUso, rotulo = v.f->Label6->text();
            v.d().Limpiar();
            v.d().respuestasSiNo.enqueue(si);
            v.f->borralog->trigger();
            QCOMPARE(v.d().Textos(Tipo::PreguntaSiNo),
                     QStringList{
                         u"Esta seguro de borrar %1\r\n\r\nlos QSOs no podrán recuperarse!"_s.arg(
                             rotulo)});
            QCOMPARE(v.p->almacen().Logs().contains(enUso), !si);
            v.EnUso(QString::fromUtf8(despues));
        }
    }
};

QTEST_MAIN(TestLogsVentanas)
#include "test_logs_ventanas.moc"
