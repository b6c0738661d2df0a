// Callsigns, provinces and the leading-number rule.

#include "Filas.h"
#include "core/rules/Numeros.h"
#include "core/rules/Senales.h"

namespace {
const QString Falso = QStringLiteral("<falso>"); // stands for "no answer"

// Every province, in the order of the names, with suffixes that must give it. Accented
// names are spelled with escapes, so that a wrong source encoding cannot hide a fault.
const struct
{
    const char *sufijos;
    const char16_t *nombre;
} Provincias[] = {
    {"A B C", u"Capital"},    {"D E", u"Buenos Aires"},
    {"F", u"Santa Fe"},       {"G GM G5", u"Chaco"},
    {"GN GZ Ga", u"Formosa"}, {"H", u"C\u00f3rdoba"},
    {"I", u"Misiones"},       {"J", u"Entre R\u00edos"},
    {"K", u"Tucum\u00e1n"},   {"L", u"Corrientes"},
    {"M", u"Mendoza"},        {"N", u"Santiago del Estero"},
    {"O", u"Salta"},          {"P", u"San Juan"},
    {"Q", u"San Luis"},       {"R", u"Catamarca"},
    {"S", u"La Rioja"},       {"T", u"Jujuy"},
    {"U", u"La Pampa"},       {"V", u"R\u00edo Negro"},
    {"W", u"Chubut"},         {"X XM XAB", u"Tierra del Fuego"},
    {"XN Xb", u"Santa Cruz"}, {"Y", u"Neuqu\u00e9n"},
    {"Z", u"Ant\u00e1rtida"},
};
} // namespace

class TestSenales : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void esSenalDistintiva_data();
    void esSenalDistintiva();
    void sufijoArgentino_data();
    void sufijoArgentino();
    void provinciaDeSufijo_data();
    void provinciaDeSufijo();
    void provinciaDeSenal_data();
    void provinciaDeSenal();
};

void TestSenales::esSenalDistintiva_data()
{
    QTest::addColumn<QString>("texto");
    QTest::addColumn<bool>("es");
    Filas("1A --7", true);
    Filas("123 ABC", false);
    Fila("", false);
}

void TestSenales::esSenalDistintiva()
{
    QFETCH(QString, texto);
    QTEST(EsSenalDistintiva(texto), "es");
    QCOMPARE(MensajeNoEsSenal(texto), texto + QStringLiteral(" no es una se\u00f1al distintiva!"));
}

// The district is the first letter after the digit(s) of the prefix, the third character
// never being looked at; AY and AZ take the text after the third character as it stands.
void TestSenales::sufijoArgentino_data()
{
    QTest::addColumn<QString>("senal");
    QTest::addColumn<QString>("sufijo");
    Pares("lu1abc=AB LU10ABC=AB LUXABC=AB L21XN=XN LO7H=H LW9EAA=EA LU1= LU123=23 AY0DXX=DXX "
          "ay01d=1D AZ0ABCDEFGHIJKLM=ABCDEFGHIJ");
    Filas("L0ABC LN1AB LX1AB L W1AW", Falso);
}

void TestSenales::sufijoArgentino()
{
    QFETCH(QString, senal);
    const QString mayusculas = senal.toUpper();
    QTEST(SufijoArgentino(senal).value_or(Falso), "sufijo");
    QCOMPARE(senal, mayusculas);
}

void TestSenales::provinciaDeSufijo_data()
{
    QTest::addColumn<QString>("sufijo");
    QTest::addColumn<QString>("provincia");
    for (const auto &p : Provincias)
        Filas(p.sufijos, QString::fromUtf16(p.nombre));
    Filas("a 3 \u00d1", QString());
    Fila("", QString());
}

void TestSenales::provinciaDeSufijo()
{
    QFETCH(QString, sufijo);
    QTEST(ProvinciaDeSufijo(sufijo), "provincia");
}

// With one slash the designator decides and the part before only has to be Argentine; two
// slashes give no answer at all; three and more are read as one callsign.
void TestSenales::provinciaDeSenal_data()
{
    QTest::addColumn<QString>("senal");
    QTest::addColumn<QString>("provincia");
    Filas("lu1abc", QStringLiteral("Capital"));
    Filas("LU1GP LU1ABC/GN", QStringLiteral("Formosa"));
    Filas("LU1X", QStringLiteral("Tierra del Fuego"));
    Filas("AY0DXX LU1DX/P/X/Y", QStringLiteral("Buenos Aires"));
    Filas("LU1ABC/M LU1ABC/MMX", QStringLiteral("Mendoza"));
    Filas(qPrintable("LU1XZ" + QString(30, u'/')), QStringLiteral("Santa Cruz"));
    Filas("LU123 CE3XX lu1abc/mm LU1ABC/MA LU1ABC/3 LU1ABC/ /LU1ABC CE3XX/D", QString());
    Filas("LU1ABC/P/X ce3xx/p/q", Falso);
}

void TestSenales::provinciaDeSenal()
{
    QFETCH(QString, senal);
    QFETCH(QString, provincia);
    const QString original = senal;
    QCOMPARE(ProvinciaDeSenal(senal).value_or(Falso), provincia);
    QCOMPARE(senal, original.toUpper());
    QCOMPARE(ProvinciaParaGuardar(original), provincia == Falso ? QString() : provincia);
}

QTEST_GUILESS_MAIN(TestSenales)
#include "test_senales.moc"
