// The edit window's rules and the QSL designer hand-off, without a window.
#include "editing/Edicion.h"
#include "editing/Qsl.h"

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
    void revisionesAlSalir_data();
    void revisionesAlSalir();
    void ordenDelGuardado_data();
    void ordenDelGuardado();
    void valoresParaElAlmacen();
    void disenoDeLaEstacion_data();
    void disenoDeLaEstacion();
    void lineaDeComando();
    void ajustesDelDisenador_data();
    void ajustesDelDisenador();
};

void TestEdicion::revisionesAlSalir_data()
{
    QTest::addColumn<char>("campo"); // f date, h time, g grid
    QTest::addColumn<QString>("texto");
    QTest::addColumn<QString>("mensaje"); // empty: accepted
    const QString fecha = QStringLiteral("Error Fecha!\r\nFormato: DD/MM/AAAA");
    const QString hora = QStringLiteral("Error Hora!\r\nFormato: HH:MM");
    const QString mayor = QStringLiteral("Error Hora!\r\nMayor de 23.");
    const QString minutos = QStringLiteral("Error Minutos!\r\nMayor de 59.");
    const QString grilla = QStringLiteral("Grilla incorrecta!");
    const struct
    {
        const char *nombre;
        char campo;
        const char *texto;
        QString mensaje;
    } casos[] = {
        {"fecha buena", 'f', "29/02/2024", {}},
        {"29 de febrero común", 'f', "29/02/2023", fecha},
        {"31 de abril", 'f', "31/04/2024", fecha},
        {"sin ceros", 'f', "1/3/2024", fecha},
        {"fecha vacía", 'f', "", fecha},
        {"hora buena", 'h', "23:59", {}},
        {"24 horas", 'h', "24:00", mayor},
        {"60 minutos", 'h', "12:60", minutos},
        {"las horas antes", 'h', "99:99", mayor},
        {"sin dos puntos", 'h', "1230", hora},
        {"con segundos", 'h', "09:30:00", hora},
        {"grilla vacía", 'g', "", {}},
        {"grilla de seis", 'g', "FF78AB", {}},
        {"grilla de cuatro", 'g', "FF78", grilla}, // the main window takes it; not this one
    };
    for (const auto &c : casos)
        QTest::newRow(c.nombre) << c.campo << QString::fromUtf8(c.texto) << c.mensaje;
}

void TestEdicion::revisionesAlSalir()
{
    QFETCH(char, campo);
    QFETCH(QString, texto);
    QFETCH(QString, mensaje);
    const QString dado = campo == 'f'   ? RevisarFechaEdicion(texto)
                         : campo == 'h' ? RevisarHoraEdicion(texto)
                                        : RevisarGrillaEdicion(texto);
    QCOMPARE(dado, mensaje);
}

void TestEdicion::ordenDelGuardado_data()
{
    QTest::addColumn<CamposGuardado>("campos");
    QTest::addColumn<QString>("mensaje"); // empty: the save goes on
    QTest::addColumn<bool>("alto");
    QTest::addColumn<int>("campo");
    const QString sat = QStringLiteral("Debe agregar el nombre del Satélite");
    const QString rep = QStringLiteral("Reporte incorrecto!");
    const int corr = int(CampoEdicion::Corresponsal);
    // Own station LU1AAA, operator LU2BBB.
    const struct
    {
        const char *nombre;
        const char *modo, *sat, *corresponsal, *rse, *rsr;
        QString mensaje;
        bool alto;
        int campo;
    } casos[] = {
        {"ssb sin satélite", "SSB", " ", "LU5FF", "59", "59", {}, false, 0},
        {"sat sin satélite", "Sat", " ", "LU5FF", "59", "59", sat, true,
         int(CampoEdicion::Satelite)},
        {"el satélite primero", "Sat", "", "LU1AAA", "", "", sat, true,
         int(CampoEdicion::Satelite)},
        {"propia estación", "SSB", "", "LU1AAA", "59", "59",
         QStringLiteral("QSO con la propia estación??"), true, corr},
        {"operador", "SSB", "", "LU2BBB", "59", "59", QStringLiteral("QSO con el Operador??"), true,
         corr},
        {"cualquier reporte", "CW", "", "LU5FF", "9", "x", {}, false, 0},
        {"enviado en blanco", "SSB", "", "LU5FF", "  ", "", rep, false, int(CampoEdicion::Rse)},
        {"recibido vacío", "SSB", "", "LU5FF", "59", "", rep, false, int(CampoEdicion::Rsr)},
    };
    for (const auto &c : casos) {
        const CamposGuardado campos{
            c.modo, QString::fromUtf8(c.sat), "LU1AAA", c.corresponsal, "LU2BBB", c.rse, c.rsr};
        QTest::newRow(c.nombre) << campos << c.mensaje << c.alto << c.campo;
    }
}

void TestEdicion::ordenDelGuardado()
{
    QFETCH(CamposGuardado, campos);
    QFETCH(QString, mensaje);
    QFETCH(bool, alto);
    QFETCH(int, campo);
    const auto fallo = RevisarGuardado(campos);
    QCOMPARE(fallo ? fallo->mensaje : QString(), mensaje);
    if (fallo) {
        QCOMPARE(fallo->alto, alto);
        QCOMPARE(int(fallo->campo), campo);
    }
}

void TestEdicion::valoresParaElAlmacen()
{
    const auto fecha = [](const char *t) { return FechaParaGuardarEdicion(t).value_or("-"); };
    const auto hora = [](const char *t) { return HoraParaGuardarEdicion(t).value_or("-"); };
    QCOMPARE(fecha("1/3/2024"), QStringLiteral("01/03/2024"));
    QCOMPARE(fecha("15-03-2024"), QStringLiteral("15/03/2024"));
    QCOMPARE(fecha("31/04/2024"), QStringLiteral("-"));
    QCOMPARE(hora("9:05"), QStringLiteral("09:05:00"));
    QCOMPARE(hora("24:00"), QStringLiteral("-"));
    // The frequency as its two fields show it.
    QCOMPARE(PartirFrecuencia("14,0745").mhz, QStringLiteral("14"));
    QCOMPARE(PartirFrecuencia("435.12345").khz, QStringLiteral("1234"));
    QCOMPARE(PartirFrecuencia("28").mhz, QStringLiteral("28")); // no point: whole MHz
}

void TestEdicion::disenoDeLaEstacion_data()
{
    // Files as "name=content"; the answer is the file name, or empty for none.
    QTest::addColumn<QStringList>("archivos");
    QTest::addColumn<QString>("elegido");
    QTest::newRow("sin carpeta") << QStringList() << QString();
    QTest::newRow("de otra estación") << QStringList{"a.qsl=SuCall=LU9ZZZ\r\n"} << QString();
    QTest::newRow("entre otras líneas")
        << QStringList{"mia.qsl=Titulo=Mi QSL\r\nSuCall=LU1AAA\r\nFondo=azul\r\n"}
        << QStringLiteral("mia.qsl");
    QTest::newRow("gana la primera por nombre")
        << QStringList{"b.qsl=SuCall=LU1AAA", "a.qsl=SuCall=LU1AAA"} << QStringLiteral("a.qsl");
    QTest::newRow("la otra no cuenta")
        << QStringList{"a.qsl=SuCall=LU2BBB", "b.qsl=x=1\nSuCall=LU1AAA\n"}
        << QStringLiteral("b.qsl");
    QTest::newRow("en medio de la línea")
        << QStringList{"c.qsl=#SuCall=LU1AAA"} << QStringLiteral("c.qsl");
    QTest::newRow("señal con portable") << QStringList{"e.qsl=SuCall=LU1AAA/P"} << QString();
    QTest::newRow("otra extensión") << QStringList{"f.txt=SuCall=LU1AAA"} << QString();
    QTest::newRow("extensión en mayúsculas")
        << QStringList{"G.QSL=SuCall=LU1AAA"} << QStringLiteral("G.QSL");
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

void TestEdicion::lineaDeComando()
{
    DatosQsl d{"LU1AAA", "LU1ABC/P", "15/03/2024", "21:05",         "SSB",
               "2m",     "59",       "ao-91",      "gracias $ y 73"};
    const QString esperado = QStringLiteral("Tordo$de=LU1AAA$para=LU1ABC/P$fecha=15/03/2024"
                                            "$hora=21:05$modo=SSB$banda=2m$reporte=59$sat=AO-91"
                                            "$nota=gracias $ y 73");
    QCOMPARE(TextoComandoQsl(d), esperado);
    // One argument: the blanks of the remarks do not cut it.
    QCOMPARE(ArgumentosQsl(d), QStringList{esperado});
    QCOMPARE(NombreImagenQsl(d.para, d.fecha), QStringLiteral("LU1ABC_P_15032024.jpg"));
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
    QTest::newRow("acentos") << QByteArray("Carpeta=/home/peña/T\n")
                             << QStringLiteral("/home/peña/T")
                             << QStringLiteral("/home/peña/T/Tordos");
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

QTEST_GUILESS_MAIN(TestEdicion)
#include "test_edicion.moc"
