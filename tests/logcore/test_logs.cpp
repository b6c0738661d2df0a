// The named logs and the callsign history without a window: the list entries and the
// name read back from them, the case-blind refusal of a taken name, the log that takes
// over after a delete, and the fixed columns of the history.

#include "logcore/Historial.h"
#include "logcore/Logs.h"

#include <QTest>

namespace {

FilaQSO Fila(const QString &myCall, const QString &estacion, const QString &banda,
             const QString &modo, const QString &fecha, const QString &hora)
{
    FilaQSO f;
    f.MyCall = myCall;
    f.Estacion = estacion;
    f.Banda = banda;
    f.Modo = modo;
    f.Fecha = fecha;
    f.Hora = hora;
    return f;
}

} // namespace

class TestLogs : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void rellenarIzquierda_data();
    void rellenarIzquierda();
    void cabecera();
    void lineas_data();
    void lineas();
    void entradas_data();
    void entradas();
    void nombreTomado_data();
    void nombreTomado();
    void logTrasBorrar_data();
    void logTrasBorrar();
};

void TestLogs::rellenarIzquierda_data()
{
    QTest::addColumn<QString>("texto");
    QTest::addColumn<int>("ancho");
    QTest::addColumn<QString>("esperado");
    QTest::newRow("corto: una de más") << "ABC" << 5 << "   ABC";
    QTest::newRow("justo: un blanco") << "ABCDE" << 5 << " ABCDE";
    QTest::newRow("largo: sin blancos") << "DVoice" << 5 << "DVoice";
    QTest::newRow("vacío") << "" << 3 << "    ";
    QTest::newRow("ancho cero") << "" << 0 << " ";
    QTest::newRow("ancho negativo") << "A" << -1 << "A";
    QTest::newRow("señal con barra") << "LU0XX/P" << 15 << "         LU0XX/P";
}

void TestLogs::rellenarIzquierda()
{
    QFETCH(QString, texto);
    QFETCH(int, ancho);
    QFETCH(QString, esperado);
    QCOMPARE(RellenarIzquierda(texto, ancho), esperado);
}

void TestLogs::cabecera()
{
    QCOMPARE(CabeceraHistorial(),
             QStringLiteral("          MiCall           SuCall  Banda   Modo    Fecha    Hora"));
}

void TestLogs::lineas_data()
{
    QTest::addColumn<FilaQSO>("fila");
    QTest::addColumn<QString>("esperada");
    QTest::newRow("común") << Fila("LU1AAA", "LU0XX/P", "40m", "SSB", "01/01/2024", "10:00:00")
                           << "          LU1AAA|         LU0XX/P|   40m|   SSB|01/01/2024|10:00:00";
    QTest::newRow("modo y banda al ancho o más")
        << Fila("LU1AAA", "LU0XX", "2200m", "DVoice", "02/01/2024", "23:59:00")
        << "          LU1AAA|           LU0XX| 2200m|DVoice|02/01/2024|23:59:00";
    QTest::newRow("guiones de la fecha")
        << Fila("LU1AAA", "LU0XX", "40m", "CW", "2024-01-03", "00:00:00")
        << "          LU1AAA|           LU0XX|   40m|    CW|2024/01/03|00:00:00";
    QTest::newRow("columnas vacías")
        << Fila("", "LU0XX", "", "", "", "") << "                |           LU0XX|      |      ||";
    QTest::newRow("señal de más de 15")
        << Fila("LU1AAA", "VP8/LU0XXX/MM/QRP", "20m", "FT8", "04/01/2024", "12:00:00")
        << "          LU1AAA|VP8/LU0XXX/MM/QRP|   20m|   FT8|04/01/2024|12:00:00";
}

void TestLogs::lineas()
{
    QFETCH(FilaQSO, fila);
    QFETCH(QString, esperada);
    QCOMPARE(LineaHistorial(fila), esperada);
    const QStringList todas = LineasHistorial({fila, fila});
    QCOMPARE(todas, QStringList({CabeceraHistorial(), esperada, esperada}));
}

void TestLogs::entradas_data()
{
    QTest::addColumn<QString>("nombre");
    QTest::addColumn<qint64>("cantidad");
    QTest::addColumn<QString>("entrada");
    QTest::addColumn<QString>("nombreLeido");
    QTest::newRow("vacío") << "Log inicial" << qint64(0) << "Log inicial (0 QSOs)"
                           << "Log inicial";
    QTest::newRow("apóstrofo") << "Log d'Ana" << qint64(1) << "Log d'Ana (1 QSOs)"
                               << "Log d'Ana";
    QTest::newRow("grande") << "Concursos 2024" << qint64(1000000)
                            << "Concursos 2024 (1000000 QSOs)"
                            << "Concursos 2024";
    QTest::newRow("paréntesis pegado") << "Log(2)" << qint64(3) << "Log(2) (3 QSOs)"
                                       << "Log(2)";
    // A name that holds " (" is cut there, as the list always did.
    QTest::newRow("paréntesis con blanco") << "Día (1)" << qint64(5) << "Día (1) (5 QSOs)"
                                           << "Día";
}

void TestLogs::entradas()
{
    QFETCH(QString, nombre);
    QFETCH(qint64, cantidad);
    QFETCH(QString, entrada);
    QFETCH(QString, nombreLeido);
    QCOMPARE(EntradaDeLog(nombre, cantidad), entrada);
    QCOMPARE(NombreDeEntrada(entrada), nombreLeido);
    QCOMPARE(EntradasDeLogs({{nombre, cantidad}, {nombre, cantidad}}),
             QStringList({entrada, entrada}));
}

void TestLogs::nombreTomado_data()
{
    QTest::addColumn<QStringList>("logs");
    QTest::addColumn<QString>("nombre");
    QTest::addColumn<bool>("tomado");
    const QStringList logs{QStringLiteral("LOG A"), QStringLiteral("O'Brien"),
                           QStringLiteral("Ñandú")};
    QTest::newRow("otro caso") << logs << "log a" << true;
    QTest::newRow("igual") << logs << "LOG A" << true;
    QTest::newRow("apóstrofo") << logs << "o'brien" << true;
    QTest::newRow("acentos y eñe") << logs << "ñANDÚ" << true;
    QTest::newRow("blanco de más") << logs << "LOG A " << false;
    QTest::newRow("prefijo") << logs << "LOG" << false;
    QTest::newRow("sin logs") << QStringList() << "LOG A" << false;
}

void TestLogs::nombreTomado()
{
    QFETCH(QStringList, logs);
    QFETCH(QString, nombre);
    QFETCH(bool, tomado);
    QCOMPARE(ExisteLog(logs, nombre), tomado);
    QCOMPARE(MensajeLogExistente(nombre),
             QStringLiteral("El log ") + nombre + QStringLiteral(" ya existe!"));
}

void TestLogs::logTrasBorrar_data()
{
    QTest::addColumn<QStringList>("restantes");
    QTest::addColumn<QString>("siguiente");
    QTest::newRow("ninguno") << QStringList() << "Base 1";
    QTest::newRow("el primero") << QStringList({"alfa", "Zeta"}) << "alfa";
}

void TestLogs::logTrasBorrar()
{
    QFETCH(QStringList, restantes);
    QFETCH(QString, siguiente);
    QCOMPARE(LogTrasBorrar(restantes), siguiente);
}

QTEST_GUILESS_MAIN(TestLogs)
#include "test_logs.moc"
