// Key filters and the shape of the entry fields.

#include "rules/Entrada.h"

#include <QTest>

Q_DECLARE_METATYPE(FiltroTecla)

namespace {
// What a field holds after each character of a text is typed into it.
QString Teclear(FiltroTecla filtro, const QString &teclas)
{
    QString campo;
    for (QChar c : teclas) {
        if (const std::optional<QChar> r = FiltrarTecla(filtro, c))
            campo += *r;
    }
    return campo;
}

QString TeclearGrilla(const QString &teclas)
{
    QString campo;
    for (QChar c : teclas) {
        if (const std::optional<QChar> r = FiltrarTecla(FiltroTecla::ASinBarra, c))
            campo = FormaGrilla(campo + *r);
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
    void retrocesoPasaSiempre();
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
    const auto fila = [](const char *nombre, FiltroTecla filtro, const QString &teclas,
                         const QString &campo) {
        QTest::newRow(nombre) << filtro << teclas << campo;
    };
    const QString acentos = QStringLiteral("\u00f1\u00d1\u00e1\u0131\u017f");
    fila("A minusculas", FiltroTecla::A, "lu0xx", "LU0XX");
    fila("A coma y signo", FiltroTecla::A, "lu1,abc?", "LU1ABC?");
    fila("A barra", FiltroTecla::A, "lu1abc/p", "LU1ABC/P");
    fila("A otros", FiltroTecla::A, " -.:_*", "");
    fila("A acentos y parecidas", FiltroTecla::A, acentos, "");
    fila("grilla sin barra", FiltroTecla::ASinBarra, "ff78/ab", "FF78AB");
    fila("B fecha", FiltroTecla::B, "15/03/2024", "15/03/2024");
    fila("B guion y letras", FiltroTecla::B, "15-03a:?", "1503?");
    fila("C hora", FiltroTecla::C, "21:30", "21:30");
    fila("C otros", FiltroTecla::C, "9/3a.?", "93?");
    fila("D khz", FiltroTecla::D, "650", "650");
    fila("D otros", FiltroTecla::D, "6.5/:a?", "65?");
}

void TestEntrada::filtrarTecla()
{
    QFETCH(FiltroTecla, filtro);
    QFETCH(QString, teclas);
    QFETCH(QString, campo);
    QCOMPARE(Teclear(filtro, teclas), campo);
}

void TestEntrada::retrocesoPasaSiempre()
{
    for (FiltroTecla f :
         {FiltroTecla::A, FiltroTecla::ASinBarra, FiltroTecla::B, FiltroTecla::C, FiltroTecla::D}) {
        QCOMPARE(FiltrarTecla(f, QChar(8)), std::optional<QChar>(QChar(8)));
        QCOMPARE(FiltrarTecla(f, QChar(0)), std::optional<QChar>());
        QCOMPARE(FiltrarTecla(f, QChar(13)), std::optional<QChar>());
    }
}

void TestEntrada::formaGrilla_data()
{
    QTest::addColumn<QString>("texto");
    QTest::addColumn<QString>("forma");
    const auto fila = [](const char *nombre, const QString &texto, const QString &forma) {
        QTest::newRow(nombre) << texto << forma;
    };
    fila("vacio", "", "");
    fila("digito primero", "1", "");
    fila("letra primera", "F", "F");
    fila("minuscula", "f", "");
    fila("dos letras", "FF", "FF");
    fila("digito segundo", "F7", "F");
    fila("letra tercera", "FFA", "FF");
    fila("digito tercero", "FF7", "FF7");
    fila("letra cuarta", "FF7A", "FF7");
    fila("cuatro", "FF78", "FF78");
    fila("digito quinto", "FF785", "FF78");
    fila("cinco", "FF78A", "FF78A");
    fila("digito sexto", "FF78A1", "FF78A");
    fila("seis", "FF78AB", "FF78AB");
    // Once per change, and only the last character: a pasted text is not walked.
    fila("pegado", "1A", "1A");
    fila("siete", "FF78AB1", "FF78AB1");
}

void TestEntrada::formaGrilla()
{
    QFETCH(QString, texto);
    QFETCH(QString, forma);
    QCOMPARE(FormaGrilla(texto), forma);
}

void TestEntrada::teclearGrilla_data()
{
    QTest::addColumn<QString>("teclas");
    QTest::addColumn<QString>("campo");
    QTest::addColumn<bool>("aceptable");
    const auto fila = [](const char *nombre, const QString &teclas, const QString &campo,
                         bool aceptable) { QTest::newRow(nombre) << teclas << campo << aceptable; };
    fila("seis", "ff78ab", "FF78AB", true);
    fila("cuatro", "FF78", "FF78", true);
    fila("vacio", "", "", true);
    fila("tres", "FF7", "FF7", false);
    fila("cinco", "FF78A", "FF78A", false);
    fila("digito primero", "1ff78", "FF78", true);
    fila("letra tercera", "FFA78", "FF78", true);
    fila("barra", "FF/78", "FF78", true);
}

void TestEntrada::teclearGrilla()
{
    QFETCH(QString, teclas);
    QFETCH(QString, campo);
    QFETCH(bool, aceptable);
    const QString escrito = TeclearGrilla(teclas);
    QCOMPARE(escrito, campo);
    QCOMPARE(GrillaAceptable(escrito), aceptable);
    QCOMPARE(MensajeGrilla(), QStringLiteral("Grilla incorrecta!"));
}

void TestEntrada::pareceSenal_data()
{
    QTest::addColumn<QString>("texto");
    QTest::addColumn<bool>("parece");
    const auto fila = [](const char *nombre, const QString &texto, bool parece) {
        QTest::newRow(nombre) << texto << parece;
    };
    fila("senal", "LU1ABC", true);
    fila("minima", "A1", true);
    fila("sin digito", "ABC", false);
    fila("sin letra", "123", false);
    fila("minusculas", "lu1abc", false);
    fila("enie", QStringLiteral("\u00d11"), false);
    fila("barra y signo", "/?1", false);
    fila("vacio", "", false);
}

void TestEntrada::pareceSenal()
{
    QFETCH(QString, texto);
    QFETCH(bool, parece);
    QCOMPARE(PareceSenal(texto), parece);
    QCOMPARE(MensajeNoPareceSenal(texto),
             texto + QStringLiteral(" NO Parece ser una Se\u00f1al distintiva V\u00e1lida!"));
}

QTEST_GUILESS_MAIN(TestEntrada)
#include "test_entrada.moc"
