// Where the QSL designer and the station's card design are found, without a window.
#include "core/editing/Qsl.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

namespace {

bool Escribir(const QString &ruta, const QByteArray &contenido)
{
    QFile f(ruta);
    return f.open(QIODevice::WriteOnly) && f.write(contenido) == contenido.size();
}

} // namespace

class TestEdicion : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void disenoDeLaEstacion_data();
    void disenoDeLaEstacion();
    void ajustesDelDisenador_data();
    void ajustesDelDisenador();
    void pedidoAlDisenador();
};

void TestEdicion::disenoDeLaEstacion_data()
{
    // Files as "name=content"; the answer is the file name, or empty for none.
    QTest::addColumn<QStringList>("archivos");
    QTest::addColumn<QString>("elegido");
    QTest::newRow("sin carpeta") << QStringList() << QString();
    QTest::newRow("gana la primera por nombre")
        << QStringList{"b.qsl=SuCall=LU1AAA", "a.qsl=SuCall=LU1AAA"} << QStringLiteral("a.qsl");
    QTest::newRow("señal con portable") << QStringList{"e.qsl=SuCall=LU1AAA/P"} << QString();
    QTest::newRow("otra extensión") << QStringList{"f.txt=SuCall=LU1AAA"} << QString();
}

void TestEdicion::disenoDeLaEstacion()
{
    QFETCH(QStringList, archivos);
    QFETCH(QString, elegido);
    QTemporaryDir tmp;
    const QString carpeta = tmp.filePath(QStringLiteral("MisQSLs"));
    if (!archivos.isEmpty())
        QVERIFY(QDir().mkpath(carpeta));
    for (const QString &a : archivos) {
        const qsizetype igual = a.indexOf(QLatin1Char('='));
        QVERIFY(Escribir(QDir(carpeta).filePath(a.left(igual)), a.mid(igual + 1).toUtf8()));
    }
    const auto diseno = BuscarDisenoQsl(carpeta, QStringLiteral("LU1AAA"));
    QCOMPARE(diseno ? QFileInfo(*diseno).fileName() : QString(), elegido);
}

void TestEdicion::ajustesDelDisenador_data()
{
    const QString casa = QDir::homePath();
    QTest::addColumn<QByteArray>("ini"); // empty: no tordos.ini
    QTest::addColumn<QString>("carpeta");
    QTest::addColumn<QString>("programa");
    QTest::newRow("sin archivo") << QByteArray() << casa + "/Tordos" << casa + "/Tordos/Tordos";
    QTest::newRow("las dos, en cualquier orden")
        << QByteArray("programa = /x/run\r\ncarpeta = /x/datos\r\n") << QStringLiteral("/x/datos")
        << QStringLiteral("/x/run");
    QTest::newRow("relativa a la casa, vacía")
        << QByteArray("Programa=\nCarpeta=QSL/Tordos\n") << casa + "/QSL/Tordos"
        << casa + "/QSL/Tordos/Tordos";
}

void TestEdicion::ajustesDelDisenador()
{
    QFETCH(QByteArray, ini);
    QFETCH(QString, carpeta);
    QFETCH(QString, programa);
    QTemporaryDir tmp;
    if (!ini.isEmpty())
        QVERIFY(Escribir(tmp.filePath(QStringLiteral("tordos.ini")), ini));
    const AjustesTordos a = AjustesTordos::Leer(tmp.path());
    QCOMPARE(a.carpeta, carpeta);
    QCOMPARE(a.programa, programa);
    QCOMPARE(a.Disenos(), carpeta + QStringLiteral("/MisQSLs"));
    QCOMPARE(a.Salida(), carpeta + QStringLiteral("/Salida"));
}

// The designer reads one argument, its keys in this order; blanks in the remarks must not
// cut it into several. The picture drops the slashes of call and date; the question
// that names it keeps the call's, as it always has.
void TestEdicion::pedidoAlDisenador()
{
    const DatosQsl d{"LU1AAA", "LU2BB/P", "05/03/2024",        "14:30", "SSB", "40m",
                     "59",     "so-50",   "Gracias por el QSO"};
    QCOMPARE(ArgumentosQsl(d),
             QStringList{QStringLiteral(
                 "Tordo$de=LU1AAA$para=LU2BB/P$fecha=05/03/2024$hora=14:30"
                 "$modo=SSB$banda=40m$reporte=59$sat=SO-50$nota=Gracias por el QSO")});
    QCOMPARE(NombreImagenQsl(d.para, d.fecha), QStringLiteral("LU2BB_P_05032024.jpg"));
    QCOMPARE(PreguntaVerQsl(d.para, d.fecha, QStringLiteral("/q/Salida")),
             QStringLiteral("QSL LU2BB/P_05032024.jpg guardada en /q/Salida/\r\n\r\nDesea verla?"));
}

QTEST_GUILESS_MAIN(TestEdicion)
#include "test_edicion.moc"
