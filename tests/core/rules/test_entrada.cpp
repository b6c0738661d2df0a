// Key filters and the shape of the entry fields.

#include "Filas.h"
#include "core/rules/Entrada.h"

Q_DECLARE_METATYPE(FiltroTecla)

namespace {
// What a field holds after each character of a text is typed into it; the grid field is
// also kept in shape after every change.
QString Teclear(FiltroTecla filtro, const QString &teclas, bool grilla = false)
{
    QString campo;
    for (QChar c : teclas) {
        if (const std::optional<QChar> r = FiltrarTecla(filtro, c))
            campo = grilla ? FormaGrilla(campo + *r) : campo + *r;
    }
    return campo;
}
} // namespace

class TestEntrada : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void filtrarTecla_data();
    void filtrarTecla();
    void formaGrilla_data();
    void formaGrilla();
    void teclearGrilla_data();
    void teclearGrilla();
    void pareceSenal_data();
    void pareceSenal();
};

void TestEntrada::filtrarTecla_data()
{
    QTest::addColumn<FiltroTecla>("filtro");
    QTest::addColumn<QString>("teclas");
    QTest::addColumn<QString>("campo");
    const auto fila = [](FiltroTecla filtro, const QString &teclas, const char *campo) {
        QTest::newRow(qPrintable(teclas)) << filtro << teclas << QString(campo);
    };
    fila(FiltroTecla::Senal, "lu1abc/p", "LU1ABC/P");
    // Only a-z are raised: other scripts' letters are dropped, not turned into look-alikes.
    fila(FiltroTecla::Senal, QStringLiteral(" -.:_*,\u00f1\u00d1\u00e1\u0131\u017f"), "");
    fila(FiltroTecla::SenalSinBarra, "ff78/ab", "FF78AB");
    fila(FiltroTecla::Fecha, "15-03/2024a:", "1503/2024");
    fila(FiltroTecla::Hora, "21:30/a.", "21:30");
    fila(FiltroTecla::Digitos, "6.5/:a", "65");
    fila(FiltroTecla::DigitosConSigno, "-3.5+a/", "-35+");
}

void TestEntrada::filtrarTecla()
{
    QFETCH(FiltroTecla, filtro);
    QFETCH(QString, teclas);
    QFETCH(QString, campo);
    // '?' and Backspace pass every filter; Enter and NUL none.
    const QString extra = QStringLiteral("?\b\r") + QChar(0);
    QCOMPARE(Teclear(filtro, teclas + extra), campo + QStringLiteral("?\b"));
}

void TestEntrada::formaGrilla_data()
{
    QTest::addColumn<QString>("texto");
    QTest::addColumn<QString>("forma");
    Pares("F=F 1= f= F7=F FF7=FF7 FFA=FF FF7A=FF7 FF78A=FF78A FF785=FF78 FF78A1=FF78A");
    // Once per change, and only the last character: a pasted text is not walked.
    Pares("1A=1A FF78AB1=FF78AB1");
}

void TestEntrada::formaGrilla()
{
    QFETCH(QString, texto);
    QTEST(FormaGrilla(texto), "forma");
}

// What the field holds once typed; a trailing '!' marks a grid that cannot be left so.
void TestEntrada::teclearGrilla_data()
{
    QTest::addColumn<QString>("teclas");
    QTest::addColumn<QString>("campo");
    Pares("ff78ab=FF78AB 1ff78=FF78 FFA78=FF78 FF7=FF7! FF78A=FF78A! =");
}

void TestEntrada::teclearGrilla()
{
    QFETCH(QString, teclas);
    QFETCH(QString, campo);
    const bool refusada = campo.endsWith(u'!');
    campo.chop(refusada ? 1 : 0);
    const QString escrito = Teclear(FiltroTecla::SenalSinBarra, teclas, true);
    QCOMPARE(escrito, campo);
    QCOMPARE(GrillaAceptable(escrito), !refusada);
    QCOMPARE(MensajeGrilla(), QStringLiteral("Grilla incorrecta!"));
}

void TestEntrada::pareceSenal_data()
{
    QTest::addColumn<QString>("texto");
    QTest::addColumn<bool>("parece");
    Filas("A1", true);
    Filas("ABC /?1 lu1abc \u00d11", false);
    Fila("", false);
}

void TestEntrada::pareceSenal()
{
    QFETCH(QString, texto);
    QTEST(PareceSenal(texto), "parece");
    QCOMPARE(MensajeNoPareceSenal(texto),
             texto + QStringLiteral(" NO Parece ser una Se\u00f1al distintiva V\u00e1lida!"));
}

QTEST_GUILESS_MAIN(TestEntrada)
#include "test_entrada.moc"
