// The edit window's rules and the QSL designer hand-off, without a window.
#include "editing/Edicion.h"
#include "editing/Qsl.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

namespace {

const QString FechaMala = QStringLiteral("Error Fecha!\r\nFormato: DD/MM/AAAA");
const QString HoraMala = QStringLiteral("Error Hora!\r\nFormato: HH:MM");
const QString HoraMayor = QStringLiteral("Error Hora!\r\nMayor de 23.");
const QString MinutosMayor = QStringLiteral("Error Minutos!\r\nMayor de 59.");

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
    void frecuenciaPartida_data();
    void frecuenciaPartida();
    void marcoLibroNacional_data();
    void marcoLibroNacional();
    void listasDeModos();
    void idEnElTitulo();
    void valoresParaElAlmacen_data();
    void valoresParaElAlmacen();

    void disenoDeLaEstacion_data();
    void disenoDeLaEstacion();
    void lineaDeComando();
    void imagenYPregunta();
    void ajustesDelDisenador_data();
    void ajustesDelDisenador();
};

void TestEdicion::revisionesAlSalir_data()
{
    QTest::addColumn<QString>("campo");
    QTest::addColumn<QString>("texto");
    QTest::addColumn<QString>("mensaje");

    QTest::newRow("fecha buena") << "fecha"
                                 << "15/03/2024"
                                 << "";
    QTest::newRow("bisiesto") << "fecha"
                              << "29/02/2024"
                              << "";
    QTest::newRow("29 de febrero comun") << "fecha"
                                         << "29/02/2023" << FechaMala;
    QTest::newRow("31 de abril") << "fecha"
                                 << "31/04/2024" << FechaMala;
    QTest::newRow("mes 13") << "fecha"
                            << "15/13/2024" << FechaMala;
    QTest::newRow("sin ceros") << "fecha"
                               << "1/3/2024" << FechaMala;
    QTest::newRow("barras corridas") << "fecha"
                                     << "150/3/2024" << FechaMala;
    QTest::newRow("fecha vacia") << "fecha"
                                 << "" << FechaMala;
    QTest::newRow("hora buena") << "hora"
                                << "23:59"
                                << "";
    QTest::newRow("medianoche") << "hora"
                                << "00:00"
                                << "";
    QTest::newRow("24 horas") << "hora"
                              << "24:00" << HoraMayor;
    QTest::newRow("60 minutos") << "hora"
                                << "12:60" << MinutosMayor;
    QTest::newRow("horas antes que minutos") << "hora"
                                             << "99:99" << HoraMayor;
    QTest::newRow("sin dos puntos") << "hora"
                                    << "1230" << HoraMala;
    QTest::newRow("una cifra") << "hora"
                               << "9:30" << HoraMala;
    QTest::newRow("con segundos") << "hora"
                                  << "09:30:00" << HoraMala;
    QTest::newRow("hora vacia") << "hora"
                                << "" << HoraMala;
    QTest::newRow("grilla vacia") << "grilla"
                                  << ""
                                  << "";
    QTest::newRow("grilla de seis") << "grilla"
                                    << "FF78AB"
                                    << "";
    // The main window takes four; this one does not.
    QTest::newRow("grilla de cuatro") << "grilla"
                                      << "FF78"
                                      << "Grilla incorrecta!";
    QTest::newRow("grilla de dos") << "grilla"
                                   << "FF"
                                   << "Grilla incorrecta!";
}

void TestEdicion::revisionesAlSalir()
{
    QFETCH(QString, campo);
    QFETCH(QString, texto);
    QFETCH(QString, mensaje);
    QString dado;
    if (campo == QLatin1String("fecha"))
        dado = RevisarFechaEdicion(texto);
    else if (campo == QLatin1String("hora"))
        dado = RevisarHoraEdicion(texto);
    else
        dado = RevisarGrillaEdicion(texto);
    QCOMPARE(dado, mensaje);
}

void TestEdicion::ordenDelGuardado_data()
{
    QTest::addColumn<QString>("modo");
    QTest::addColumn<QString>("satelite");
    QTest::addColumn<QString>("corresponsal");
    QTest::addColumn<QString>("rse");
    QTest::addColumn<QString>("rsr");
    QTest::addColumn<QString>("mensaje"); // empty: the save goes on
    QTest::addColumn<bool>("alto");
    QTest::addColumn<int>("campo");

    const QString sat = QStringLiteral("Debe agregar el nombre del Satélite");
    const QString propia = QStringLiteral("QSO con la propia estación??");
    const QString oper = QStringLiteral("QSO con el Operador??");
    const QString rep = QStringLiteral("Reporte incorrecto!");
    const int corr = int(CampoEdicion::Corresponsal);

    QTest::newRow("todo bien") << "SSB"
                               << ""
                               << "LU5FF"
                               << "59"
                               << "59"
                               << "" << false << 0;
    QTest::newRow("ssb sin satelite") << "SSB"
                                      << "  "
                                      << "LU5FF"
                                      << "59"
                                      << "59"
                                      << "" << false << 0;
    QTest::newRow("sat sin satelite") << "Sat"
                                      << "  "
                                      << "LU5FF"
                                      << "59"
                                      << "59" << sat << true << int(CampoEdicion::Satelite);
    QTest::newRow("sat con satelite") << "Sat"
                                      << "AO-91"
                                      << "LU5FF"
                                      << "59"
                                      << "59"
                                      << "" << false << 0;
    // Only the exact "Sat" asks for a satellite.
    QTest::newRow("sat en minusculas") << "sat"
                                       << ""
                                       << "LU5FF"
                                       << "59"
                                       << "59"
                                       << "" << false << 0;
    QTest::newRow("satelite antes que la estacion")
        << "Sat"
        << ""
        << "LU1AAA"
        << ""
        << "" << sat << true << int(CampoEdicion::Satelite);
    QTest::newRow("propia estacion") << "SSB"
                                     << ""
                                     << "LU1AAA"
                                     << "59"
                                     << "59" << propia << true << corr;
    QTest::newRow("operador") << "SSB"
                              << ""
                              << "LU2BBB"
                              << "59"
                              << "59" << oper << true << corr;
    QTest::newRow("reporte de una cifra") << "CW"
                                          << ""
                                          << "LU5FF"
                                          << "9"
                                          << "x"
                                          << "" << false << 0;
    QTest::newRow("rse en blanco") << "SSB"
                                   << ""
                                   << "LU5FF"
                                   << "  "
                                   << "" << rep << false << int(CampoEdicion::Rse);
    QTest::newRow("rsr vacio") << "SSB"
                               << ""
                               << "LU5FF"
                               << "59"
                               << "" << rep << false << int(CampoEdicion::Rsr);
}

void TestEdicion::ordenDelGuardado()
{
    QFETCH(QString, modo);
    QFETCH(QString, satelite);
    QFETCH(QString, corresponsal);
    QFETCH(QString, rse);
    QFETCH(QString, rsr);
    QFETCH(QString, mensaje);
    QFETCH(bool, alto);
    QFETCH(int, campo);
    const auto fallo = RevisarGuardado({modo, satelite, QStringLiteral("LU1AAA"), corresponsal,
                                        QStringLiteral("LU2BBB"), rse, rsr});
    if (mensaje.isEmpty()) {
        QVERIFY2(!fallo, fallo ? qPrintable(fallo->mensaje) : "");
        return;
    }
    QVERIFY(fallo);
    QCOMPARE(fallo->mensaje, mensaje);
    QCOMPARE(fallo->alto, alto);
    QCOMPARE(int(fallo->campo), campo);
}

void TestEdicion::frecuenciaPartida_data()
{
    QTest::addColumn<QString>("frecuencia");
    QTest::addColumn<QString>("mhz");
    QTest::addColumn<QString>("khz");
    QTest::newRow("punto") << "7.150"
                           << "7"
                           << "150";
    QTest::newRow("coma") << "14,074"
                          << "14"
                          << "074";
    QTest::newRow("cuatro cifras") << "144.1234"
                                   << "144"
                                   << "1234";
    QTest::newRow("mas de cuatro") << "435.12345"
                                   << "435"
                                   << "1234";
    QTest::newRow("segundo punto") << "7.1.5"
                                   << "7"
                                   << "1.5";
    QTest::newRow("sin punto") << "28"
                               << "28"
                               << "";
    QTest::newRow("vacia") << ""
                           << ""
                           << "";
}

void TestEdicion::frecuenciaPartida()
{
    QFETCH(QString, frecuencia);
    QFETCH(QString, mhz);
    QFETCH(QString, khz);
    const FrecuenciaPartida f = PartirFrecuencia(frecuencia);
    QCOMPARE(f.mhz, mhz);
    QCOMPARE(f.khz, khz);
}

void TestEdicion::marcoLibroNacional_data()
{
    QTest::addColumn<QString>("lbn");
    QTest::addColumn<QString>("subido");
    QTest::addColumn<QString>("confirmado");
    QTest::newRow("vacio") << ""
                           << "NO"
                           << "NO";
    QTest::newRow("cero") << "0"
                          << "NO"
                          << "NO";
    QTest::newRow("subido") << "1"
                            << "SI"
                            << "NO";
    QTest::newRow("confirmado") << "2"
                                << "SI"
                                << "SI";
    QTest::newRow("con blancos del almacen") << "2  "
                                             << "SI"
                                             << "SI";
    QTest::newRow("desconocido") << "7"
                                 << "NO"
                                 << "NO";
}

void TestEdicion::marcoLibroNacional()
{
    QFETCH(QString, lbn);
    QFETCH(QString, subido);
    QFETCH(QString, confirmado);
    const EstadoLbNVisible e = EstadoLbNEdicion(lbn);
    QCOMPARE(e.subido, subido);
    QCOMPARE(e.confirmado, confirmado);
}

void TestEdicion::listasDeModos()
{
    const QStringList dobleClic{QStringLiteral("SSB"), QStringLiteral("CW"), QStringLiteral("FM")};
    const QStringList f5{QStringLiteral("SSB"), QStringLiteral("FM"), QStringLiteral("CW"),
                         QStringLiteral("Sat")};
    QCOMPARE(ModosParaEdicion(QStringLiteral("DVoice"), false), dobleClic);
    QCOMPARE(ModosParaEdicion(QStringLiteral("CW"), true), f5);
    QCOMPARE(ModosParaEdicion(QStringLiteral("Sat"), true), f5);
    QCOMPARE(ModosParaEdicion(QStringLiteral("DVoice"), true), f5 + QStringList{"DVoice"});
}

void TestEdicion::idEnElTitulo()
{
    QCOMPARE(TituloEdicion(17), QStringLiteral("Edición de QSO #17"));
    QCOMPARE(IdDeTitulo(TituloEdicion(9876543210)), qint64(9876543210));
    QCOMPARE(IdDeTitulo(QStringLiteral("Edición de QSO #")), qint64(0));
    QCOMPARE(IdDeTitulo(QStringLiteral("otra cosa")), qint64(0));
}

void TestEdicion::valoresParaElAlmacen_data()
{
    QTest::addColumn<QString>("fecha");
    QTest::addColumn<QString>("fechaGuardada"); // empty: refused
    QTest::addColumn<QString>("hora");
    QTest::addColumn<QString>("horaGuardada");
    QTest::newRow("como se muestran") << "15/03/2024"
                                      << "15/03/2024"
                                      << "09:30"
                                      << "09:30:00";
    QTest::newRow("cortas") << "1/3/2024"
                            << "01/03/2024"
                            << "9:5"
                            << "09:05:00";
    QTest::newRow("guiones y segundos") << "15-03-2024"
                                        << "15/03/2024"
                                        << "21:30:15"
                                        << "21:30:15";
    QTest::newRow("imposibles") << "31/04/2024"
                                << ""
                                << "24:00"
                                << "";
    QTest::newRow("vacias") << ""
                            << ""
                            << ""
                            << "";
}

void TestEdicion::valoresParaElAlmacen()
{
    QFETCH(QString, fecha);
    QFETCH(QString, fechaGuardada);
    QFETCH(QString, hora);
    QFETCH(QString, horaGuardada);
    QCOMPARE(FechaParaGuardarEdicion(fecha).value_or(QString()), fechaGuardada);
    QCOMPARE(HoraParaGuardarEdicion(hora).value_or(QString()), horaGuardada);
}

void TestEdicion::disenoDeLaEstacion_data()
{
    // Files as "name=content"; the answer is the file name, or empty for none.
    QTest::addColumn<QStringList>("archivos");
    QTest::addColumn<QString>("elegido");
    QTest::newRow("sin carpeta") << QStringList() << "";
    QTest::newRow("de otra estacion") << QStringList{"a.qsl=SuCall=LU9ZZZ\r\n"} << "";
    QTest::newRow("entre otras lineas")
        << QStringList{"mia.qsl=Titulo=Mi QSL\r\nSuCall=LU1AAA\r\nFondo=azul\r\n"} << "mia.qsl";
    QTest::newRow("gana la primera por nombre")
        << QStringList{"b.qsl=SuCall=LU1AAA", "a.qsl=SuCall=LU1AAA"} << "a.qsl";
    QTest::newRow("la otra no cuenta")
        << QStringList{"a.qsl=SuCall=LU2BBB", "b.qsl=SuCall=LU1AAA"} << "b.qsl";
    QTest::newRow("en medio de la linea") << QStringList{"c.qsl=#SuCall=LU1AAA"} << "c.qsl";
    QTest::newRow("con saltos de unix") << QStringList{"d.qsl=x=1\nSuCall=LU1AAA\n"} << "d.qsl";
    QTest::newRow("señal con portable") << QStringList{"e.qsl=SuCall=LU1AAA/P"} << "";
    QTest::newRow("otra extension") << QStringList{"f.txt=SuCall=LU1AAA"} << "";
    QTest::newRow("extension en mayusculas") << QStringList{"G.QSL=SuCall=LU1AAA"} << "G.QSL";
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
    DatosQsl d{
        QStringLiteral("LU1AAA"), QStringLiteral("LU1ABC/P"), QStringLiteral("15/03/2024"),
        QStringLiteral("21:05"),  QStringLiteral("SSB"),      QStringLiteral("2m"),
        QStringLiteral("59"),     QStringLiteral("ao-91"),    QStringLiteral("gracias $ y 73")};
    const QString esperado =
        QStringLiteral("Tordo$de=LU1AAA$para=LU1ABC/P$fecha=15/03/2024$hora=21:05$modo=SSB$banda=2m"
                       "$reporte=59$sat=AO-91$nota=gracias $ y 73");
    QCOMPARE(TextoComandoQsl(d), esperado);
    // One argument: the blanks of the remarks do not cut it.
    QCOMPARE(ArgumentosQsl(d), QStringList{esperado});
    d.sat.clear();
    QVERIFY(TextoComandoQsl(d).contains(QLatin1String("$sat=$nota=")));
}

void TestEdicion::imagenYPregunta()
{
    const QString para = QStringLiteral("LU1ABC/P");
    const QString fecha = QStringLiteral("15/03/2024");
    QCOMPARE(NombreImagenQsl(para, fecha), QStringLiteral("LU1ABC_P_15032024.jpg"));
    // The question names the correspondent as typed, slash and all.
    QCOMPARE(PreguntaVerQsl(para, fecha, QStringLiteral("/home/op/Tordos/Salida")),
             QStringLiteral("QSL LU1ABC/P_15032024.jpg guardada en /home/op/Tordos/Salida/"
                            "\r\n\r\nDesea verla?"));
}

void TestEdicion::ajustesDelDisenador_data()
{
    const QString casa = QDir::homePath();
    QTest::addColumn<QByteArray>("ini"); // empty: no tordos.ini
    QTest::addColumn<QString>("carpeta");
    QTest::addColumn<QString>("programa");
    QTest::newRow("sin archivo") << QByteArray() << casa + "/Tordos" << casa + "/Tordos/Tordos";
    QTest::newRow("otra carpeta") << QByteArray("Carpeta=/opt/tordos\r\n") << "/opt/tordos"
                                  << "/opt/tordos/Tordos";
    QTest::newRow("otro programa")
        << QByteArray("Programa=/usr/local/bin/tordos.sh\n") << casa + "/Tordos"
        << "/usr/local/bin/tordos.sh";
    QTest::newRow("las dos, en cualquier orden")
        << QByteArray("programa = /x/run\r\ncarpeta = /x/datos\r\n") << "/x/datos"
        << "/x/run";
    QTest::newRow("relativa a la casa") << QByteArray("Carpeta=QSL/Tordos\n")
                                        << casa + "/QSL/Tordos" << casa + "/QSL/Tordos/Tordos";
    QTest::newRow("valor vacio") << QByteArray("Carpeta=\nbasura\n") << casa + "/Tordos"
                                 << casa + "/Tordos/Tordos";
    QTest::newRow("acentos") << QByteArray("Carpeta=/home/peña/Tordos\n")
                             << QString::fromUtf8("/home/peña/Tordos")
                             << QString::fromUtf8("/home/peña/Tordos/Tordos");
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
