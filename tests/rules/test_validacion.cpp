// Reports, dates and times as the logging windows test them.

#include "rules/Validacion.h"

#include <QLocale>
#include <QTest>
#include <QTimeZone>

#include <cstdlib>
#include <ctime>

namespace {
const QString Recibido = QStringLiteral("Reporte Recibido no v\u00e1lido!");
const QString Enviado = QStringLiteral("Reporte Enviado no v\u00e1lido!");
} // namespace

class TestValidacion : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void horaInvalida_data();
    void horaInvalida();
    void fechaInvalida_data();
    void fechaInvalida();
    void largoReporte_data();
    void largoReporte();
    void reporteInvalido_data();
    void reporteInvalido();
    void validarEntradaQSO_data();
    void validarEntradaQSO();
    void mensajes();
    void corregirAnioFecha_data();
    void corregirAnioFecha();
    void revisarFecha();
    void formatearHora_data();
    void formatearHora();
    void revisarHoraYReporte();
    void leerMomento_data();
    void leerMomento();
    void leerMomentoSinHorarioDeVerano();
};

void TestValidacion::horaInvalida_data()
{
    QTest::addColumn<QString>("texto");
    QTest::addColumn<int>("invalida");
    const auto fila = [](const char *nombre, const QString &texto, int invalida) {
        QTest::newRow(nombre) << texto << invalida;
    };
    fila("23:59", "23:59", 0);
    fila("00:00", "00:00", 0);
    fila("24:00", "24:00", 1);
    fila("12:60", "12:60", 1);
    fila("9:30 por largo", "9:30", 1);
    fila("09:30", "09:30", 0);
    fila("letras pasan", "ab:cd", 0);
    fila("sin cota inferior", "-1:00", 0);
    fila("guion", "12-30", 1);
    fila("dos puntos corridos", "123:4", 1);
    fila("segundos", "12:30:00", 1);
    fila("vacio", "", 1);
}

void TestValidacion::horaInvalida()
{
    QFETCH(QString, texto);
    QFETCH(int, invalida);
    QCOMPARE(HoraInvalida(texto), invalida);
}

void TestValidacion::fechaInvalida_data()
{
    QTest::addColumn<QString>("texto");
    QTest::addColumn<int>("invalida");
    const auto fila = [](const char *nombre, const QString &texto, int invalida) {
        QTest::newRow(nombre) << texto << invalida;
    };
    fila("comun", "15/03/2024", 0);
    fila("mes 13", "15/13/2024", 1);
    fila("mes 00", "15/00/2024", 1);
    fila("dia 32", "32/01/2024", 1);
    fila("dia 00", "00/01/2024", 1);
    fila("mascara corta", "1/1/2024", 1);
    fila("anio de dos", "15/03/24", 1);
    fila("guiones", "15-03-2024", 1);
    fila("blanco final", "15/03/2024 ", 1);
    fila("letra", "1a/03/2024", 1);
    fila("vacio", "", 1);
    fila("31 de abril", "31/04/2024", 1);
    fila("30 de abril", "30/04/2024", 0);
    fila("31 de diciembre", "31/12/2024", 0);
    fila("bisiesto", "29/02/2024", 0);
    fila("no bisiesto", "29/02/2023", 1);
    fila("siglo no bisiesto", "29/02/1900", 1);
    fila("cuarto siglo bisiesto", "29/02/2000", 0);
    fila("anio cero", "01/01/0000", 1);
}

void TestValidacion::fechaInvalida()
{
    QFETCH(QString, texto);
    QFETCH(int, invalida);
    QCOMPARE(FechaInvalida(texto), invalida);
}

void TestValidacion::largoReporte_data()
{
    QTest::addColumn<QString>("modo");
    QTest::addColumn<int>("largo");
    QTest::addColumn<QString>("defecto");
    const auto fila = [](const char *nombre, const QString &modo, int largo,
                         const QString &defecto) {
        QTest::newRow(nombre) << modo << largo << defecto;
    };
    fila("CW", "CW", 3, "599");
    fila("Sat CW", "Sat CW", 3, "599");
    fila("SSB", "SSB", 2, "59");
    fila("DVoice", "DVoice", 2, "59");
    fila("cw minusculas", "cw", 2, "59");
    fila("CW con blanco", "CW ", 2, "59");
    fila("Sat SSB", "Sat SSB", 2, "59");
    fila("vacio", "", 2, "59");
}

void TestValidacion::largoReporte()
{
    QFETCH(QString, modo);
    QFETCH(int, largo);
    QFETCH(QString, defecto);
    QCOMPARE(LargoReporte(modo), largo);
    QCOMPARE(ReporteDefecto(modo), defecto);
}

void TestValidacion::reporteInvalido_data()
{
    QTest::addColumn<QString>("texto");
    QTest::addColumn<QString>("modo");
    QTest::addColumn<int>("invalido");
    const auto fila = [](const char *nombre, const QString &texto, const QString &modo,
                         int invalido) { QTest::newRow(nombre) << texto << modo << invalido; };
    fila("59", "59", "SSB", 0);
    fila("11", "11", "FM", 0);
    fila("60", "60", "SSB", 1);
    fila("50", "50", "SSB", 1);
    fila("09", "09", "SSB", 1);
    fila("5x", "5x", "SSB", 1);
    fila("x9", "x9", "SSB", 1);
    fila("5", "5", "SSB", 1);
    fila("vacio", "", "SSB", 1);
    fila("599 en SSB", "599", "SSB", 1);
    fila("599", "599", "CW", 0);
    fila("111", "111", "CW", 0);
    fila("999", "999", "CW", 0);
    fila("primero sin mirar", "x99", "CW", 0);
    fila("099", "099", "CW", 0);
    fila("509", "509", "CW", 1);
    fila("590", "590", "CW", 1);
    fila("59x", "59x", "CW", 1);
    fila("59 en CW", "59", "CW", 1);
    fila("Sat CW", "579", "Sat CW", 0);
    fila("cw minusculas", "599", "cw", 1);
}

void TestValidacion::reporteInvalido()
{
    QFETCH(QString, texto);
    QFETCH(QString, modo);
    QFETCH(int, invalido);
    QCOMPARE(ReporteInvalido(texto, modo), invalido);
    QCOMPARE(ReporteEdicionInvalido(texto), 0);
}

void TestValidacion::validarEntradaQSO_data()
{
    QTest::addColumn<QString>("corresponsal");
    QTest::addColumn<QString>("rsr");
    QTest::addColumn<QString>("rse");
    QTest::addColumn<QString>("modo");
    QTest::addColumn<QString>("mensaje");
    const auto fila = [](const char *nombre, const QString &corresponsal, const QString &rsr,
                         const QString &rse, const QString &modo, const QString &mensaje) {
        QTest::newRow(nombre) << corresponsal << rsr << rse << modo << mensaje;
    };
    fila("bien", "LU1ABC", "59", "57", "SSB", "");
    fila("bien CW", "LU1ABC", "599", "579", "CW", "");
    fila("sin corresponsal", "", "09", "", "SSB", "Falta el Corresponsal!");
    fila("corresponsal blanco", " ", "59", "59", "SSB", "");
    fila("RSR 09", "LU1ABC", "09", "59", "SSB", Recibido);
    fila("RSR 50", "LU1ABC", "50", "59", "SSB", Recibido);
    fila("RSR 5x", "LU1ABC", "5x", "59", "SSB", Recibido);
    fila("RSR largo", "LU1ABC", "599", "59", "SSB", Recibido);
    fila("ambos malos", "LU1ABC", "0", "0", "SSB", Recibido);
    fila("RSE vacio", "LU1ABC", "59", "", "SSB", Enviado);
    fila("RSE 69", "LU1ABC", "59", "69", "SSB", Enviado);
    // Three characters: the first must be 1-5 here, the middle one is never looked at.
    fila("999 CW", "LU1ABC", "999", "599", "CW", Recibido);
    fila("509 CW", "LU1ABC", "509", "5x9", "CW", "");
    fila("590 CW", "LU1ABC", "599", "590", "CW", Enviado);
    fila("59 CW", "LU1ABC", "59", "599", "Sat CW", Recibido);
}

void TestValidacion::validarEntradaQSO()
{
    QFETCH(QString, corresponsal);
    QFETCH(QString, rsr);
    QFETCH(QString, rse);
    QFETCH(QString, modo);
    QFETCH(QString, mensaje);
    QCOMPARE(ValidarEntradaQSO(corresponsal, rsr, rse, modo), mensaje);
}

void TestValidacion::mensajes()
{
    QCOMPARE(MensajeFecha("1/1/2024"),
             QStringLiteral("la Fecha 1/1/2024 no es v\u00e1lida!\r\n\r\nFormato: dd/mm/aaaa"));
    QCOMPARE(MensajeHora("24:00"),
             QStringLiteral("la Hora 24:00 no es v\u00e1lida!\r\n\r\nFormato: hh:mm"));
    QCOMPARE(MensajeReporte("5x"), QStringLiteral("el Reporte 5x no es v\u00e1lido!"));
}

void TestValidacion::corregirAnioFecha_data()
{
    QTest::addColumn<QString>("texto");
    QTest::addColumn<QString>("corregido");
    const auto fila = [](const char *nombre, const QString &texto, const QString &corregido) {
        QTest::newRow(nombre) << texto << corregido;
    };
    fila("sin anio", "15/03/", "15/03/2000");
    fila("anio cero", "15/03/0000", "15/03/2000");
    fila("anio letras", "15/03/ab", "15/03/2000");
    fila("corta", "15/03", "15/032000");
    fila("completa", "15/03/2024", "15/03/2024");
    fila("mascara corta", "1/1/2024", "1/1/2024");
    fila("vacio", "", "");
}

void TestValidacion::corregirAnioFecha()
{
    QFETCH(QString, texto);
    QFETCH(QString, corregido);
    QCOMPARE(CorregirAnioFecha(texto), corregido);
}

void TestValidacion::revisarFecha()
{
    // Hyphens: refused once with the mended text in the field, then accepted.
    RevisionCampo r = RevisarFecha("15-03-2024");
    QCOMPARE(r.texto, QStringLiteral("15/03/2024"));
    QCOMPARE(r.mensaje, MensajeFecha("15/03/2024"));
    r = RevisarFecha(r.texto);
    QCOMPARE(r.texto, QStringLiteral("15/03/2024"));
    QVERIFY(r.mensaje.isEmpty());

    r = RevisarFecha("15/03/");
    QCOMPARE(r.texto, QStringLiteral("15/03/2000"));
    QVERIFY(r.mensaje.isEmpty());

    r = RevisarFecha("");
    QCOMPARE(r.mensaje, MensajeFecha(""));
}

void TestValidacion::formatearHora_data()
{
    QTest::addColumn<QString>("texto");
    QTest::addColumn<QString>("formateada");
    const auto fila = [](const char *nombre, const QString &texto, const QString &formateada) {
        QTest::newRow(nombre) << texto << formateada;
    };
    fila("ya formada", "09:30", "09:30");
    fila("hora de un digito", "9:30", "09:30");
    fila("minuto de un digito", "9:5", "09:05");
    fila("segundos", "21:30:15", "21:30");
    fila("cuatro digitos", "0930", "09:30");
    fila("tres digitos", "930", "09:30");
    fila("2359", "2359", "23:59");
    fila("medianoche", "0:00", "00:00");
    fila("PM", "9:30 PM", "21:30");
    fila("am", "12:15 am", "00:15");
    fila("mediodia", "12:15 p.m.", "12:15");
    fila("blancos", " 7:05 ", "07:05");
    fila("24:00", "24:00", "24:00");
    fila("2400", "2400", "2400");
    fila("12:60", "12:60", "12:60");
    fila("segundos 60", "12:34:60", "12:34:60");
    fila("13 PM", "13:00 PM", "13:00 PM");
    fila("solo hora", "9", "9");
    fila("cinco digitos", "12345", "12345");
    fila("hora larga", "123:45", "123:45");
    fila("letras", "ab:cd", "ab:cd");
    fila("vacio", "", "");
}

void TestValidacion::formatearHora()
{
    QFETCH(QString, texto);
    QFETCH(QString, formateada);
    QCOMPARE(FormatearHora(texto), formateada);
}

void TestValidacion::revisarHoraYReporte()
{
    RevisionCampo r = RevisarHora("9:30");
    QCOMPARE(r.texto, QStringLiteral("09:30"));
    QVERIFY(r.mensaje.isEmpty());
    r = RevisarHora("24:00");
    QCOMPARE(r.texto, QStringLiteral("24:00"));
    QCOMPARE(r.mensaje, MensajeHora("24:00"));
    r = RevisarHora("9");
    QCOMPARE(r.mensaje, MensajeHora("9"));

    r = RevisarReporte("5x", "SSB");
    QCOMPARE(r.texto, QStringLiteral("59"));
    QCOMPARE(r.mensaje, MensajeReporte("5x"));
    // The repair is "59" whatever the mode, so a telegraphy field fails again next time.
    r = RevisarReporte("5", "CW");
    QCOMPARE(r.texto, QStringLiteral("59"));
    r = RevisarReporte(r.texto, "CW");
    QCOMPARE(r.mensaje, MensajeReporte("59"));
    r = RevisarReporte("579", "CW");
    QCOMPARE(r.texto, QStringLiteral("579"));
    QVERIFY(r.mensaje.isEmpty());
}

void TestValidacion::leerMomento_data()
{
    QTest::addColumn<QString>("fecha");
    QTest::addColumn<QString>("hora");
    QTest::addColumn<QDateTime>("momento"); // invalid when it cannot be read
    const auto fila = [](const char *nombre, const QString &fecha, const QString &hora,
                         const QDateTime &momento) {
        QTest::newRow(nombre) << fecha << hora << momento;
    };
    const QTimeZone utc = QTimeZone::utc();
    fila("comun", "31/12/2024", "21:30", QDateTime({2024, 12, 31}, {21, 30}, utc));
    fila("dia antes que mes", "02/01/2024", "00:00", QDateTime({2024, 1, 2}, {0, 0}, utc));
    fila("segundos", "15/03/2024", "09:05:07", QDateTime({2024, 3, 15}, {9, 5, 7}, utc));
    fila("bisiesto", "29/02/2024", "12:00", QDateTime({2024, 2, 29}, {12, 0}, utc));
    fila("no bisiesto", "29/02/2023", "12:00", QDateTime());
    fila("hora 24", "15/03/2024", "24:00", QDateTime());
    fila("ISO", "2024-03-15", "12:00", QDateTime());
    fila("guiones", "15-03-2024", "12:00", QDateTime());
    fila("vacios", "", "", QDateTime());
    fila("letras", "15/03/2024", "ab:cd", QDateTime());
}

void TestValidacion::leerMomento()
{
    QFETCH(QString, fecha);
    QFETCH(QString, hora);
    QFETCH(QDateTime, momento);
    // A locale that writes the month first must not change the reading.
    const QLocale anterior;
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    const QDateTime leido = LeerMomento(fecha, hora);
    QLocale::setDefault(anterior);
    QCOMPARE(leido.isValid(), momento.isValid());
    if (momento.isValid())
        QCOMPARE(leido, momento);
}

// The operator's typed time is a wall-clock reading: an hour that the local zone skips
// for daylight saving must come back as typed, and shifting it must count whole hours.
void TestValidacion::leerMomentoSinHorarioDeVerano()
{
    const QByteArray tzAnterior = qgetenv("TZ");
    qputenv("TZ", "Europe/Madrid");
    tzset();
    const QDateTime momento = LeerMomento("26/03/2023", "02:30");
    const QDateTime corrido = momento.addSecs(3 * 3600);
    if (tzAnterior.isNull())
        qunsetenv("TZ");
    else
        qputenv("TZ", tzAnterior);
    tzset();
    QVERIFY(momento.isValid());
    QCOMPARE(momento.time(), QTime(2, 30));
    QCOMPARE(corrido.toString("dd/MM/yyyy hh:mm:ss"), QStringLiteral("26/03/2023 05:30:00"));
}

QTEST_GUILESS_MAIN(TestValidacion)
#include "test_validacion.moc"
