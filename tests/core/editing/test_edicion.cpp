// SPDX-License-Identifier: GPL-3.0-or-later
// Where the QSL designer and the station's card design are found, without a window.
#include "core/editing/Qsl.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

class TestEdicion : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    // Files as "name=content" in a folder that is both the home and the program folder: the
    // designer lives in ~/Tordos unless tordos.ini moves it (keys in any case, paths from
    // the home folder); its designs are in MisQSLs. The answer is the design chosen.
    void disenoDeLaEstacion_data()
    {
        QTest::addColumn<QStringList>("archivos");
        QTest::addColumn<QString>("elegido");
        QTest::addColumn<QString>("programa"); // from the home folder unless absolute
        // The first by name of the station's own: exactly its callsign, on any line.
        QTest::newRow("la primera propia")
            << QStringList{"Tordos/MisQSLs/c.qsl=SuCall=LU1AAA",
                           "Tordos/MisQSLs/a.qsl=SuCall=LU1AAA/P",
                           "Tordos/MisQSLs/b.qsl=x\nSuCall=LU1AAA",
                           "Tordos/MisQSLs/a.txt=SuCall=LU1AAA", "tordos.ini=Programa=\n"}
            << "b.qsl"
            << "Tordos/Tordos";
        QTest::newRow("carpeta del ini")
            << QStringList{"tordos.ini=programa = /x/run\r\ncarpeta = otra\r\n",
                           "otra/MisQSLs/d.qsl=SuCall=LU1AAA"}
            << "d.qsl"
            << "/x/run";
    }

    void disenoDeLaEstacion()
    {
        QFETCH(QStringList, archivos);
        QFETCH(QString, programa);
        QTemporaryDir tmp;
        qputenv("HOME", tmp.path().toUtf8());
        for (const QString &a : archivos) {
            const QString ruta = tmp.filePath(a.section(u'=', 0, 0));
            QFile f(ruta);
            QVERIFY(QDir().mkpath(QFileInfo(ruta).path()) && f.open(QIODevice::WriteOnly));
            f.write(a.section(u'=', 1).toUtf8());
        }
        const AjustesTordos ajustes = AjustesTordos::Leer(tmp.path());
        const auto diseno = BuscarDisenoQsl(ajustes.Disenos(), QStringLiteral("LU1AAA"));
        QTEST(diseno ? QFileInfo(*diseno).fileName() : QString(), "elegido");
        QCOMPARE(ajustes.programa, QDir(tmp.path()).filePath(programa));
    }
    // The designer reads one argument, its keys in this order: blanks in the remarks must
    // not cut it. The picture drops the slashes of call and date; the question that names
    // it keeps the call's, as it always has.
    void pedidoAlDisenador()
    {
        const DatosQsl d{"LU1AAA", "LU2BB/P", "05/03/2024",        "14:30", "SSB", "40m",
                         "59",     "so-50",   "Gracias por el QSO"};
        QCOMPARE(ArgumentosQsl(d), QStringList{QStringLiteral(
                                       "Tordo$de=LU1AAA$para=LU2BB/P$fecha=05/03/2024$hora=14:30"
                                       "$modo=SSB$banda=40m$reporte=59$sat=SO-50$nota=Gracias "
                                       "por el QSO")});
        QCOMPARE(NombreImagenQsl(d.para, d.fecha), QStringLiteral("LU2BB_P_05032024.jpg"));
        QCOMPARE(
            PreguntaVerQsl(d.para, d.fecha, QStringLiteral("/q/Salida")),
            QStringLiteral("QSL LU2BB/P_05032024.jpg guardada en /q/Salida/\r\n\r\nDesea verla?"));
    }
};

QTEST_GUILESS_MAIN(TestEdicion)
#include "test_edicion.moc"
