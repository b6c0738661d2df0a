// SPDX-License-Identifier: GPL-3.0-or-later
// The backups and the contest export as their commands run them: the warning of the ADIF
// backup window, its file with the bar full, the dated copy of the database, and the
// contest export's stops.
#include "core/adif/Respaldo.h"
#include "gui/adif/ExportarAdif.h"
#include "gui/adif/Form15.h"
#include "support/ContextoPrueba.h"
#include "support/Hecho.h"

#include <QFileInfo>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>

using Tipo = LlamadaDialogo::Tipo;
using namespace Qt::StringLiterals;

class TestRespaldo : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void avisoDeMasDeDiezMil_data()
    {
        QTest::addColumn<qint64>("total");
        QTest::addColumn<bool>("aviso");
        QTest::newRow("10.000") << qint64(10000) << false;
        QTest::newRow("10.001") << qint64(10001) << true;
    }

    void avisoDeMasDeDiezMil()
    {
        QFETCH(qint64, total);
        ContextoPrueba p;
        Form15 f(p.ctx());
        f.Llenar({{{u"A"_s, total - 1}, {u"B"_s, 1}}, total});
        f.show();
        QTest::qWait(50);
        f.Form_Activate(); // a second activation warns no more
        QFETCH(bool, aviso);
        QCOMPARE(
            p.falsos.dialogos->Textos(Tipo::Exclamacion),
            aviso ? QStringList{u"El ADIF tiene mas de 10.000 QSOs!\r\nNo podrá ser importado a "
                                "Carancho Radiolog, si para\r\nalgún otro logger. Haga BackUp de "
                                "la base."_s}
                  : QStringList{});
    }

    // The ADIF of every log, then the dated copy of the database.
    void respaldos()
    {
        ContextoPrueba p;
        for (const char *log : {"Uno", "Dos", "Dos"}) {
            RegistroQSO q;
            q.Estacion = u"LU5XX"_s, q.Modo = u"SSB"_s, q.MyCall = u"LU1AAA"_s,
            q.Fecha = u"01/05/2024"_s;
            Hecho(p->almacen().AgregarQSO(q, QString::fromLatin1(log)));
        }
        Form15 f(p.ctx());
        f.Llenar(LeerLogsParaRespaldo(p->almacen()));
        QCOMPARE(f.Label1->text() + u'/' + f.Label2->text(), u"2/3"_s); // logs/QSOs
        f.show();
        const QString archivo = p.Archivo(u"todo.adi"_s);
        p.falsos.dialogos->archivosGuardar.enqueue(archivo);
        f.Command1->click();
        const QByteArray texto = p.Leer(u"todo.adi"_s);
        QCOMPARE(texto.count("<LOG_NAME:3>Dos<EOR>"), 2);
        QCOMPARE(texto.count("<LOG_NAME:3>Uno<EOR>"), 1);
        QCOMPARE(f.ProgressBar1->value(), 3);
        QVERIFY(!f.isVisible());
        QCOMPARE(p.falsos.dialogos->UltimoTexto(),
                 archivo + u"\r\nGuardado!\r\n\r\nDesea verlo?"_s);

        RespaldarBaseDatos(p.ctx());
        const QString copia = p.Carpeta() + u"/base0_15_05_24.db"_s; // the fake clock's day
        QCOMPARE(p.falsos.dialogos->Textos(Tipo::Informacion), QStringList{copia + u" creada!"_s});
        QVERIFY(QFileInfo(copia).size() > 0);
    }

    void concurso_data()
    {
        QTest::addColumn<QStringList>("senales"); // MyCall of each QSO of the contest
        QTest::addColumn<QStringList>("mensajes");
        QTest::addColumn<int>("registros");
        QTest::newRow("sin QSOs") << QStringList{}
                                  << QStringList{"No hay ningún QSO para exportar a ADIF!"} << -1;
        QTest::newRow("otra señal")
            << QStringList{"LU1AAA", "LU9ZZ", "LU1AAA"}
            << QStringList{"ADIF (*.adi)|*.adi", "Error!\r\nEn el log distinta Señal Distintiva"}
            << 1;
        QTest::newRow("todo bien")
            << QStringList{"LU1AAA", "LU1AAA"}
            << QStringList{"ADIF (*.adi)|*.adi", "%1\r\nGuardado!\r\n\r\nDesea verlo?"} << 2;
    }

    void concurso()
    {
        QFETCH(QStringList, senales);
        ContextoPrueba p;
        FilaConcurso vacia;
        vacia.NombreLog = u"Copa"_s; // the contest's placeholder row: no mode
        Hecho(p->almacen().AgregarQSOConcurso(vacia));
        for (const QString &s : senales) {
            FilaConcurso f = vacia;
            f.MyCall = s, f.Estacion = u"LU5XX"_s, f.Modo = u"CW"_s, f.Banda = u"40m"_s;
            f.Fecha = u"20240501"_s, f.Hora = u"1020"_s;
            Hecho(p->almacen().AgregarQSOConcurso(f));
        }
        const QString archivo = p.Archivo(u"copa.adi"_s);
        p.falsos.dialogos->archivosGuardar.enqueue(archivo);
        ExportarConcursoAdif(p.ctx(), u"Copa"_s, u"LU1AAA"_s);
        QFETCH(QStringList, mensajes);
        for (QString &m : mensajes)
            m.replace(u"%1"_s, archivo);
        QCOMPARE(p.falsos.dialogos->Textos(), mensajes);
        const QByteArray texto = p.Leer(u"copa.adi"_s);
        QTEST(texto.isEmpty() ? -1 : int(texto.count("<EOR>")), "registros");
        QVERIFY(!texto.contains("<EOF>"));
    }
};

QTEST_MAIN(TestRespaldo)
#include "test_respaldo.moc"
