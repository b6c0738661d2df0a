// Callsigns, provinces and the leading-number rule.

#include "rules/Numeros.h"
#include "rules/Senales.h"

#include <QTest>

namespace {
// Accented names spelled with escapes, so that a wrong source encoding cannot hide a fault.
const QString Cordoba = QStringLiteral("C\u00f3rdoba");
const QString EntreRios = QStringLiteral("Entre R\u00edos");
const QString Tucuman = QStringLiteral("Tucum\u00e1n");
const QString RioNegro = QStringLiteral("R\u00edo Negro");
const QString Neuquen = QStringLiteral("Neuqu\u00e9n");
const QString Antartida = QStringLiteral("Ant\u00e1rtida");
const QString Falso = QStringLiteral("<falso>"); // stands for the two-slash answer
} // namespace

class TestSenales : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void numeroInicial_data();
    void numeroInicial();
    void esSenalDistintiva_data();
    void esSenalDistintiva();
    void sufijoArgentino_data();
    void sufijoArgentino();
    void provinciaDeSufijo_data();
    void provinciaDeSufijo();
    void provinciaDeSenal_data();
    void provinciaDeSenal();
    void nombresProvincias();
};

void TestSenales::numeroInicial_data()
{
    QTest::addColumn<QString>("texto");
    QTest::addColumn<double>("valor");
    const auto fila = [](const char *nombre, const QString &texto, double valor) {
        QTest::newRow(nombre) << texto << valor;
    };
    fila("digitos y letras", "12abc", 12.0);
    fila("blancos y decimal", "  7.5x", 7.5);
    fila("tab", "\t9", 9.0);
    fila("letras", "abc", 0.0);
    fila("vacio", "", 0.0);
    fila("negativo", "-3", -3.0);
    fila("mas", "+4m", 4.0);
    fila("solo signo", "-", 0.0);
    fila("solo punto", ".", 0.0);
    fila("punto inicial", ".5", 0.5);
    fila("punto final", "5.", 5.0);
    fila("segundo punto", "14.074.5", 14.074);
    fila("coma no es decimal", "7,074", 7.0);
    fila("banda", "1.25m", 1.25);
    fila("ceros", "0000", 0.0);
    fila("ceros a la izquierda", "007", 7.0);
    fila("blanco tras signo", "- 3", 0.0);
}

void TestSenales::numeroInicial()
{
    QFETCH(QString, texto);
    QFETCH(double, valor);
    QCOMPARE(NumeroInicial(texto), valor);
}

void TestSenales::esSenalDistintiva_data()
{
    QTest::addColumn<QString>("texto");
    QTest::addColumn<bool>("es");
    const auto fila = [](const char *nombre, const QString &texto, bool es) {
        QTest::newRow(nombre) << texto << es;
    };
    fila("vacio", "", false);
    fila("senal", "LU1ABC", true);
    fila("digito y letra", "1A", true);
    fila("guiones y digito", "--7", true);
    fila("solo digitos", "123", false);
    fila("solo letras", "ABC", false);
    fila("un digito", "7", false);
    fila("blanco y digito", " 1", true);
}

void TestSenales::esSenalDistintiva()
{
    QFETCH(QString, texto);
    QFETCH(bool, es);
    QCOMPARE(EsSenalDistintiva(texto), es);
    QCOMPARE(MensajeNoEsSenal(texto), texto + QStringLiteral(" no es una se\u00f1al distintiva!"));
}

void TestSenales::sufijoArgentino_data()
{
    QTest::addColumn<QString>("senal");
    QTest::addColumn<QString>("sufijo"); // Falso for no answer
    QTest::addColumn<QString>("mayusculas");
    const auto fila = [](const char *nombre, const QString &senal, const QString &sufijo,
                         const QString &mayusculas) {
        QTest::newRow(nombre) << senal << sufijo << mayusculas;
    };
    fila("LU1ABC", "LU1ABC", "AB", "LU1ABC");
    fila("minusculas", "lu1abc", "AB", "LU1ABC");
    fila("una letra", "LU1A", "A", "LU1A");
    fila("dos digitos", "LU10ABC", "AB", "LU10ABC");
    fila("L2", "L21XN", "XN", "L21XN");
    fila("AY", "AY0DXX", "DXX", "AY0DXX");
    fila("AY sin salto de digitos", "ay01d", "1D", "AY01D");
    fila("AZ sin sufijo", "AZ1", "", "AZ1");
    fila("AZ corta a diez", "AZ0ABCDEFGHIJKLM", "ABCDEFGHIJ", "AZ0ABCDEFGHIJKLM");
    fila("sin sufijo", "LU1", "", "LU1");
    fila("todo digitos", "LU123", "23", "LU123");
    fila("digitos cortados a diez", "LU10123456789Q", "0123456789", "LU10123456789Q");
    fila("LO", "LO7H", "H", "LO7H");
    fila("LW", "LW9EAA", "EA", "LW9EAA");
    fila("la tercera no se mira", "LUXABC", "AB", "LUXABC");
    fila("L0", "L0ABC", Falso, "L0ABC");
    fila("LA", "LA1ABC", Falso, "LA1ABC");
    fila("LN", "LN1AB", Falso, "LN1AB");
    fila("LX", "lx1ab", Falso, "LX1AB");
    fila("LZ", "LZ1AB", Falso, "LZ1AB");
    fila("L sola", "L", Falso, "L");
    fila("vacio", "", Falso, "");
    fila("extranjera", "W1AW", Falso, "W1AW");
}

void TestSenales::sufijoArgentino()
{
    QFETCH(QString, senal);
    QFETCH(QString, sufijo);
    QFETCH(QString, mayusculas);
    const std::optional<QString> r = SufijoArgentino(senal);
    QCOMPARE(r.value_or(Falso), sufijo);
    QCOMPARE(senal, mayusculas);
}

void TestSenales::provinciaDeSufijo_data()
{
    QTest::addColumn<QString>("sufijo");
    QTest::addColumn<QString>("provincia");
    const auto fila = [](const char *nombre, const QString &sufijo, const QString &provincia) {
        QTest::newRow(nombre) << sufijo << provincia;
    };
    const QStringList porLetra = {"Capital",      "Capital",
                                  "Capital",      "Buenos Aires",
                                  "Buenos Aires", "Santa Fe",
                                  "Chaco",        Cordoba,
                                  "Misiones",     EntreRios,
                                  Tucuman,        "Corrientes",
                                  "Mendoza",      "Santiago del Estero",
                                  "Salta",        "San Juan",
                                  "San Luis",     "Catamarca",
                                  "La Rioja",     "Jujuy",
                                  "La Pampa",     RioNegro,
                                  "Chubut",       "Tierra del Fuego",
                                  Neuquen,        Antartida};
    for (int i = 0; i < 26; ++i) {
        const QString letra(QChar(u'A' + i));
        fila(qPrintable(letra), letra, porLetra[i]);
    }
    fila("GM", "GM", "Chaco");
    fila("GN", "GN", "Formosa");
    fila("GZ", "GZ", "Formosa");
    fila("G digito", "G5", "Chaco");
    fila("G arroba", "G@", "Chaco");
    fila("G corchete", "G[", "Formosa");
    fila("G minuscula", "Ga", "Formosa");
    fila("XM", "XM", "Tierra del Fuego");
    fila("XN", "XN", "Santa Cruz");
    fila("XA", "XAB", "Tierra del Fuego");
    fila("X minuscula", "Xb", "Santa Cruz");
    fila("minuscula", "a", "");
    fila("digito", "3", "");
    fila("enie", QStringLiteral("\u00d1"), "");
    fila("vacio", "", "");
}

void TestSenales::provinciaDeSufijo()
{
    QFETCH(QString, sufijo);
    QFETCH(QString, provincia);
    QCOMPARE(ProvinciaDeSufijo(sufijo), provincia);
}

void TestSenales::provinciaDeSenal_data()
{
    QTest::addColumn<QString>("senal");
    QTest::addColumn<QString>("provincia"); // Falso for the two-slash answer
    QTest::addColumn<QString>("mayusculas");
    const auto fila = [](const char *nombre, const QString &senal, const QString &provincia,
                         const QString &mayusculas) {
        QTest::newRow(nombre) << senal << provincia << mayusculas;
    };
    fila("minusculas", "lu1abc", "Capital", "LU1ABC");
    fila("LU1A", "LU1A", "Capital", "LU1A");
    fila("LU1Z", "LU1Z", Antartida, "LU1Z");
    fila("LU1GA", "LU1GA", "Chaco", "LU1GA");
    fila("LU1GP", "LU1GP", "Formosa", "LU1GP");
    fila("G sola", "LU1G", "Chaco", "LU1G");
    fila("X sola", "LU1X", "Tierra del Fuego", "LU1X");
    fila("LU1XM", "LU1XM", "Tierra del Fuego", "LU1XM");
    fila("LU1XN", "lu1xn", "Santa Cruz", "LU1XN");
    fila("L21XN", "L21XN", "Santa Cruz", "L21XN");
    fila("LO7H", "LO7H", Cordoba, "LO7H");
    fila("LW9EAA", "LW9EAA", "Buenos Aires", "LW9EAA");
    fila("LX no", "LX1AB", "", "LX1AB");
    fila("LN no", "LN1AB", "", "LN1AB");
    fila("LP", "LP1AB", "Capital", "LP1AB");
    fila("LV", "LV1JA", EntreRios, "LV1JA");
    fila("AY0DXX", "AY0DXX", "Buenos Aires", "AY0DXX");
    fila("AZ1", "AZ1", "", "AZ1");
    fila("LU123", "LU123", "", "LU123");
    fila("vacio", "", "", "");
    fila("extranjera", "CE3XX", "", "CE3XX");
    // One slash: the designator decides, the part before only has to be Argentine.
    fila("/MM", "LU1ABC/MM", "", "LU1ABC/MM");
    fila("/mm", "lu1abc/mm", "", "LU1ABC/MM");
    fila("/MA", "LU1ABC/MA", "", "LU1ABC/MA");
    fila("/M", "LU1ABC/M", "Mendoza", "LU1ABC/M");
    fila("/MMX", "LU1ABC/MMX", "Mendoza", "LU1ABC/MMX");
    fila("/QRP", "LU1ABC/QRP", "San Luis", "LU1ABC/QRP");
    fila("/W", "LU1ABC/W", "Chubut", "LU1ABC/W");
    fila("/G", "LU1ABC/G", "Chaco", "LU1ABC/G");
    fila("/XZ", "LU1ABC/XZ", "Santa Cruz", "LU1ABC/XZ");
    fila("/3", "LU1ABC/3", "", "LU1ABC/3");
    fila("barra final", "LU1ABC/", "", "LU1ABC/");
    fila("barra inicial", "/LU1ABC", "", "/LU1ABC");
    fila("extranjera /D", "CE3XX/D", "", "CE3XX/D");
    fila("prefijo y portable", "LU1ABC/Y", Neuquen, "LU1ABC/Y");
    // Two slashes: no answer at all, Argentine or not.
    fila("/P/X", "LU1ABC/P/X", Falso, "LU1ABC/P/X");
    fila("extranjera dos barras", "ce3xx/p/q", Falso, "CE3XX/P/Q");
    fila("solo dos barras", "//", Falso, "//");
    // Three and more: the whole text is read as one callsign.
    fila("tres barras", "LU1DX/P/X/Y", "Buenos Aires", "LU1DX/P/X/Y");
    fila("diez barras", "LU1KA//////////", Tucuman, "LU1KA//////////");
    fila("once barras", "LU1VA///////////", RioNegro, "LU1VA///////////");
    fila("treinta barras", "LU1GZ" + QString(30, u'/'), "Formosa", "LU1GZ" + QString(30, u'/'));
    fila("once barras extranjera", QString(11, u'/'), "", QString(11, u'/'));
}

void TestSenales::provinciaDeSenal()
{
    QFETCH(QString, senal);
    QFETCH(QString, provincia);
    QFETCH(QString, mayusculas);
    const QString original = senal;
    const std::optional<QString> r = ProvinciaDeSenal(senal);
    QCOMPARE(r.value_or(Falso), provincia);
    QCOMPARE(senal, mayusculas);
    QCOMPARE(ProvinciaParaGuardar(original), provincia == Falso ? QString() : provincia);
}

void TestSenales::nombresProvincias()
{
    const QStringList esperados = {"Capital",    "Buenos Aires",
                                   "Santa Fe",   "Chaco",
                                   "Formosa",    Cordoba,
                                   "Misiones",   EntreRios,
                                   Tucuman,      "Corrientes",
                                   "Mendoza",    "Santiago del Estero",
                                   "Salta",      "San Juan",
                                   "San Luis",   "Catamarca",
                                   "La Rioja",   "Jujuy",
                                   "La Pampa",   RioNegro,
                                   "Chubut",     "Tierra del Fuego",
                                   "Santa Cruz", Neuquen,
                                   Antartida};
    QCOMPARE(NombresProvincias(), esperados);
}

QTEST_GUILESS_MAIN(TestSenales)
#include "test_senales.moc"
