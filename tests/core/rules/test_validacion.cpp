// Reports, dates and times as the logging windows test them.

#include "Filas.h"
#include "core/rules/Validacion.h"

#include <QLocale>
#include <QScopeGuard>
#include <QTimeZone>

#include <cstdlib>
#include <ctime>

namespace {
const QString Recibido = QStringLiteral("Reporte Recibido no v\u00e1lido!");
const QString Enviado = QStringLiteral("Reporte Enviado no v\u00e1lido!");

// What a field handler puts back and says, against a row of the tables: the text expected
// in the field (empty when it stays as typed), with a trailing '!' when it is refused.
void Comprobar(const RevisionCampo &r, const QString &texto, QString campo,
               QString (*mensaje)(const QString &))
{
    const bool refusada = campo.endsWith(u'!');
    campo.chop(refusada ? 1 : 0);
    if (campo.isEmpty())
        campo = texto;
    QCOMPARE(r.texto, campo);
    QCOMPARE(r.mensaje, refusada ? mensaje(campo) : QString());
}
} // namespace

class TestValidacion : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void reportes_data();
    void reportes();
    void mensajes();
    void revisarFecha_data();
    void revisarFecha();
    void revisarHora_data();
    void revisarHora();
    void leerMomento();
};

// The field test of a report and the Enter test of the window disagree on three
// characters: the field never looks at the first one, Enter never at the middle one.
void TestValidacion::reportes_data()
{
    QTest::addColumn<QString>("texto");
    QTest::addColumn<QString>("modo");
    QTest::addColumn<int>("invalido"); // the field test
    QTest::addColumn<bool>("entrada"); // the Enter test lets it through
    const auto filas = [](const char *modo, const char *textos, int invalido, bool entrada) {
        for (const QString &t : QString(textos).split(u' '))
            QTest::newRow(qPrintable(t + u' ' + modo)) << t << QString(modo) << invalido << entrada;
    };
    filas("SSB", "59 11", 0, true);
    filas("SSB", "60 09 50 5x 599", 1, false);
    filas("CW", "599", 0, true);
    filas("Sat CW", "579", 0, true);
    filas("CW", "999", 0, false);
    filas("CW", "509", 1, true);
    filas("CW", "590 59", 1, false);
    filas("cw", "599", 1, false);
}

void TestValidacion::reportes()
{
    QFETCH(QString, texto);
    QFETCH(QString, modo);
    QFETCH(int, invalido);
    QFETCH(bool, entrada);
    QCOMPARE(ReporteInvalido(texto, modo), invalido);
    QCOMPARE(ReporteEdicionInvalido(texto), 0);
    // A bad report is mended to "59" whatever the mode.
    const RevisionCampo r = RevisarReporte(texto, modo);
    QCOMPARE(r.texto, invalido ? QStringLiteral("59") : texto);
    QCOMPARE(r.mensaje, invalido ? MensajeReporte(texto) : QString());

    // The default report passes both tests of its own mode.
    const QString defecto = ReporteDefecto(modo);
    QCOMPARE(defecto.size(), LargoReporte(modo));
    QCOMPARE(ReporteInvalido(defecto, modo), 0);
    const QString lu = QStringLiteral("LU1ABC");
    QCOMPARE(ValidarEntradaQSO(lu, texto, defecto, modo), entrada ? QString() : Recibido);
    QCOMPARE(ValidarEntradaQSO(lu, defecto, texto, modo), entrada ? QString() : Enviado);
}

// The Enter check looks at the correspondent first (only an empty one stops), then at the
// received report, then at the sent one.
void TestValidacion::mensajes()
{
    QCOMPARE(ValidarEntradaQSO("", "09", "", "SSB"), QStringLiteral("Falta el Corresponsal!"));
    QCOMPARE(ValidarEntradaQSO(" ", "59", "59", "SSB"), QString());
    QCOMPARE(ValidarEntradaQSO("LU1ABC", "0", "0", "SSB"), Recibido);
    QCOMPARE(ValidarEntradaQSO("LU1ABC", "59", "", "SSB"), Enviado);
    QCOMPARE(MensajeFecha("1/1/2024"),
             QStringLiteral("la Fecha 1/1/2024 no es v\u00e1lida!\r\n\r\nFormato: dd/mm/aaaa"));
    QCOMPARE(MensajeHora("24:00"),
             QStringLiteral("la Hora 24:00 no es v\u00e1lida!\r\n\r\nFormato: hh:mm"));
    QCOMPARE(MensajeReporte("5x"), QStringLiteral("el Reporte 5x no es v\u00e1lido!"));
    QCOMPARE(ReporteDefecto("Sat CW"), QStringLiteral("599"));
    QCOMPARE(ReporteDefecto("SSB"), QStringLiteral("59"));
}

// A date without a year gets 2000; one with hyphens is mended after the test, so it is
// refused once and accepted the next time.
void TestValidacion::revisarFecha_data()
{
    QTest::addColumn<QString>("texto");
    QTest::addColumn<QString>("campo");
    Filas("15/03/2024 30/04/2024 29/02/2024 29/02/2000", QString());
    Filas("15/13/2024 32/01/2024 00/01/2024 31/04/2024 29/02/2023 29/02/1900 1/1/2024 15/03/24",
          "!");
    Pares("15/03/=15/03/2000 15/03/ab=15/03/2000 15/03=15/032000! 15-03-2024=15/03/2024!");
    Fila("15/03/2024 ", "!");
    Fila("", "!");
}

void TestValidacion::revisarFecha()
{
    QFETCH(QString, texto);
    QFETCH(QString, campo);
    Comprobar(RevisarFecha(texto), texto, campo, MensajeFecha);
}

// What cannot be read as a time stays as typed, and the test that follows has no digit
// check and no lower bound: the key filter keeps such texts out.
void TestValidacion::revisarHora_data()
{
    QTest::addColumn<QString>("texto");
    QTest::addColumn<QString>("campo");
    Pares("9:30=09:30 9:5=09:05 21:30:15=21:30 0930=09:30 930=09:30");
    Fila("9:30 PM", "21:30");
    Fila("12:15 am", "00:15");
    Fila("12:15 p.m.", "12:15");
    Fila(" 7:05 ", "07:05");
    Filas("23:59 ab:cd -1:00", QString());
    Filas("24:00 2400 12:60 12:34:60 12-30 9", "!");
    Fila("13:00 PM", "!");
    Fila("", "!");
}

void TestValidacion::revisarHora()
{
    QFETCH(QString, texto);
    QFETCH(QString, campo);
    Comprobar(RevisarHora(texto), texto, campo, MensajeHora);
}

// Day before month whatever the locale, seconds optional, a wall-clock reading held as UTC.
void TestValidacion::leerMomento()
{
    const QLocale anterior;
    const auto restaurar = qScopeGuard([&] { QLocale::setDefault(anterior); });
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    const QTimeZone utc = QTimeZone::utc();
    QCOMPARE(LeerMomento("02/01/2024", "00:00"), QDateTime({2024, 1, 2}, {0, 0}, utc));
    QCOMPARE(LeerMomento("15/03/2024", "09:05:07"), QDateTime({2024, 3, 15}, {9, 5, 7}, utc));
    QCOMPARE(LeerMomento("29/02/2024", "12:00"), QDateTime({2024, 2, 29}, {12, 0}, utc));
    QVERIFY(!LeerMomento("29/02/2023", "12:00").isValid());
    QVERIFY(!LeerMomento("15/03/2024", "24:00").isValid());
    QVERIFY(!LeerMomento("2024-03-15", "12:00").isValid());
    QVERIFY(!LeerMomento("", "").isValid());
}

QTEST_GUILESS_MAIN(TestValidacion)
#include "test_validacion.moc"
