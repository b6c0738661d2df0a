// SPDX-License-Identifier: GPL-3.0-or-later
// The station rules. Most of them turn one text into another, so one table holds them all:
// each row names its rule, the text fed in and what must come out. The edges of the band
// plan, the report, date and time checks and the key filters are what the rows pin down.

#include "core/rules/Bandas.h"
#include "core/rules/Entrada.h"
#include "core/rules/Numeros.h"
#include "core/rules/Senales.h"
#include "core/rules/Validacion.h"

#include <QHash>
#include <QLocale>
#include <QTest>
#include <ctime>
#include <functional>

namespace {

const QString Falso = QStringLiteral("<falso>"); // stands for "no answer"
const QString Recibido = QStringLiteral("Reporte Recibido no v\u00e1lido!");
const QString Enviado = QStringLiteral("Reporte Enviado no v\u00e1lido!");

// The band of "mhz.khz" (split at the last point), with a trailing '!' when it is out of
// band; the message must then repeat the two fields as typed.
QString Banda(const QString &f, VentanaBanda ventana, bool iniciando = false)
{
    const qsizetype punto = f.lastIndexOf(u'.');
    const BandaDerivada r = DerivarBanda(f.left(punto), f.mid(punto + 1), ventana, iniciando);
    const QString mensaje = r.fueraDeBanda ? f + " KHz\r\n\r\nFuera de banda!" : QString();
    return r.banda + (r.fueraDeBanda ? "!" : "") + (r.mensaje == mensaje ? "" : "|" + r.mensaje);
}

// What a field handler puts back, with a trailing '!' when it refuses it with its message.
QString Revision(const RevisionCampo &r, QString (*mensaje)(const QString &))
{
    if (r.mensaje.isEmpty())
        return r.texto;
    return r.texto + (r.mensaje == mensaje(r.texto) ? "!" : "|" + r.mensaje);
}

// What a field holds after each character is typed; the grid is kept in shape as it goes.
QString Teclear(FiltroTecla filtro, const QString &teclas, bool grilla = false)
{
    QString campo;
    for (QChar c : teclas) {
        if (const std::optional<QChar> r = FiltrarTecla(filtro, c))
            campo = grilla ? FormaGrilla(campo + *r) : campo + *r;
    }
    return campo;
}

// '?' and Backspace pass every filter, Enter and NUL none.
std::function<QString(const QString &)> Tecla(FiltroTecla filtro)
{
    return [filtro](const QString &t) {
        const QString extra = Teclear(filtro, QStringLiteral("?\b\r") + QChar(0));
        return Teclear(filtro, t) + (extra == QStringLiteral("?\b") ? QString() : "|" + extra);
    };
}

// Both rules upper-case the callsign in place.
template<typename T> QString EnMayusculas(const QString &t, std::optional<QString> (*regla)(T))
{
    QString senal = t;
    const QString r = regla(senal).value_or(Falso);
    return senal == t.toUpper() ? r : "|" + senal;
}

const QHash<QString, std::function<QString(const QString &)>> Reglas = {
    {"numero", [](const QString &t) { return QString::number(NumeroInicial(t)); }},
    {"banda", [](const QString &t) { return Banda(t, VentanaBanda::Principal); }},
    {"edicion", [](const QString &t) { return Banda(t, VentanaBanda::Edicion); }},
    {"iniciando", [](const QString &t) { return Banda(t, VentanaBanda::Principal, true); }},
    {"importada", BandaDeMhz},
    {"khz", RellenarKhz},
    {"senal", [](const QString &t) { return QString::number(EsSenalDistintiva(t)); }},
    {"parece", [](const QString &t) { return QString::number(PareceSenal(t)); }},
    {"sufijo", [](const QString &t) { return EnMayusculas(t, SufijoArgentino); }},
    {"provincia", ProvinciaDeSufijo},
    {"provinciaSenal",
     [](const QString &t) {
         const QString r = EnMayusculas(t, ProvinciaDeSenal);
         return ProvinciaParaGuardar(t) == (r == Falso ? QString() : r) ? r : "|guardada";
     }},
    {"fecha", [](const QString &t) { return Revision(RevisarFecha(t), MensajeFecha); }},
    {"hora", [](const QString &t) { return Revision(RevisarHora(t), MensajeHora); }},
    {"momento",
     [](const QString &t) {
         const QDateTime m = LeerMomento(t.section(u',', 0, 0), t.section(u',', 1));
         const QString leido = m.toString(QStringLiteral("dd/MM/yyyy,hh:mm:ss"));
         return !m.isValid() ? QString() : leido + (m.offsetFromUtc() ? "|local" : "");
     }},
    // "mode,report": what the field puts back ('!': refused with its message), then '+' when
    // Enter refuses it too, both as the received and as the sent report.
    {"reporte",
     [](const QString &t) {
         const QString modo = t.section(u',', 0, 0).replace(u'_', u' '), r = t.section(u',', 1);
         const RevisionCampo campo = RevisarReporte(r, modo);
         const QString lu = QStringLiteral("LU1ABC"), defecto = ReporteDefecto(modo);
         const QString enter =
             ValidarEntradaQSO(lu, r, defecto, modo) + ValidarEntradaQSO(lu, defecto, r, modo);
         return campo.texto +
                (campo.mensaje.isEmpty()              ? ""
                 : campo.mensaje == MensajeReporte(r) ? "!"
                                                      : "|" + campo.mensaje) +
                (enter.isEmpty()               ? ""
                 : enter == Recibido + Enviado ? "+"
                                               : "|" + enter);
     }},
    {"enter",
     [](const QString &t) {
         return ValidarEntradaQSO(t.section(u',', 0, 0), t.section(u',', 1, 1), t.section(u',', 2),
                                  "SSB");
     }},
    {"grilla", FormaGrilla},
    {"teclearGrilla",
     [](const QString &t) {
         const QString campo = Teclear(FiltroTecla::SenalSinBarra, t, true);
         return campo + (GrillaAceptable(campo) ? "" : "!");
     }},
    {"teclaSenal", Tecla(FiltroTecla::Senal)},
    {"teclaSinBarra", Tecla(FiltroTecla::SenalSinBarra)},
    {"teclaFecha", Tecla(FiltroTecla::Fecha)},
    {"teclaHora", Tecla(FiltroTecla::Hora)},
    {"teclaDigitos", Tecla(FiltroTecla::Digitos)},
    {"teclaSigno", Tecla(FiltroTecla::DigitosConSigno)},
};

void Fila(const char *regla, const QString &texto, const QString &salida)
{
    QTest::newRow(qPrintable(QStringLiteral("%1: %2").arg(regla, texto)))
        << QString(regla) << texto << salida;
}

// One row per word, all with the same answer; a leading '=' stands for the word itself.
void Filas(const char *regla, const char *textos, const QString &salida)
{
    for (const QString &t : QString::fromUtf8(textos).split(u' ', Qt::SkipEmptyParts))
        Fila(regla, t, salida.startsWith(u'=') ? t + salida.mid(1) : salida);
}

// One row per "text=answer" word; either side may be empty, and '_' in the answer is a blank.
void Pares(const char *regla, const char *pares)
{
    for (const QString &par : QString::fromUtf8(pares).split(u' ', Qt::SkipEmptyParts))
        Fila(regla, par.section(u'=', 0, 0), par.section(u'=', 1).replace(u'_', u' '));
}

} // namespace

class TestReglas : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // Dates are read day first even where the locale puts the month first, and a typed
    // time must survive a zone whose daylight saving skips it.
    void initTestCase()
    {
        QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
        qputenv("TZ", "Europe/Madrid");
        tzset();
    }

    void reglas_data()
    {
        QTest::addColumn<QString>("regla");
        QTest::addColumn<QString>("texto");
        QTest::addColumn<QString>("salida");
        // Always '.' as the decimal point, never the locale's separators.
        Pares("numero", "12abc=12 -3=-3 +4m=4 .5=0.5 5.=5 14.074.5=14.074 7,074=7 .=0 -=0 =0");
        Fila("numero", "  7.5x", "7.5");
        Fila("numero", "- 3", "0");

        // Whole megahertz only; the kilohertz checked in three segments alone.
        Pares("banda", "3.499=80m! 3.500=80m 3.=80m! 10.250=30m 10.251=30m! 10.25x=30m "
                       "24.899=12m! 24.900=12m 7.999=40m 28.000=10m 29.999=10m 54.000=6m "
                       "147.000=2m 220.000=1.25m 224.000=1.25m 443.000=70cm 1267.000=23cm");
        Fila("banda", " 3.100", "80m!");
        Pares("banda", "2.000= 27.000= 30.000= 49.000= 55.000= 143.000= 148.000= 219.000= "
                       "225.000= 429.000= 444.000= 1268.000= 3.5.500= 28.5.000= abc.000= .000=");
        // The edit window checks the segments and spells 23 cm its own way; while the main
        // window loads, neither 23 cm nor the message.
        Pares("edicion", "24.100=12m! 1267.000=23m");
        Pares("iniciando", "3.100=80m 1267.000=");
        // The import reads decimal megahertz, both ends included, 70 cm only to 440.
        Pares("importada", "1=160m 2=160m 3.5=80m 8=40m 7,074=40m 28=10m 30=10m 50.313=6m 55=6m "
                           "144=2m 148=2m 430=70cm 440=70cm");
        Pares("importada", "0.9= 2.5= 8.5= 11.5= 30.1= 55.01= 222.1= 429.9= 441.5= 1267= abc=");
        Pares("khz", "=000 5=005 50=050 6500=6500");

        Pares("senal", "1A=1 --7=1 123=0 ABC=0 =0");
        Pares("parece", "A1=1 ABC=0 /?1=0 lu1abc=0 \u00d11=0 =0");
        // The district is the first letter after the digits of the prefix, the third
        // character never looked at; AY and AZ take what follows the third as it stands.
        Pares("sufijo", "lu1abc=AB LU10ABC=AB LUXABC=AB L21XN=XN LO7H=H LW9EAA=EA LU1= "
                        "LU123=23 AY0DXX=DXX ay01d=1D AZ0ABCDEFGHIJKLM=ABCDEFGHIJ");
        Pares("sufijo", "L0ABC=<falso> LN1AB=<falso> LX1AB=<falso> L=<falso> W1AW=<falso>");
        // The edges of the province split: G and X are cut at their second letter, H to W
        // follow one another. Accented names are escaped: a wrong source encoding shows.
        Pares("provincia",
              "A=Capital C=Capital E=Buenos_Aires F=Santa_Fe G=Chaco GM=Chaco "
              "G5=Chaco GN=Formosa GZ=Formosa Ga=Formosa H=C\u00f3rdoba W=Chubut "
              "X=Tierra_del_Fuego XM=Tierra_del_Fuego XAB=Tierra_del_Fuego "
              "XN=Santa_Cruz Xb=Santa_Cruz Y=Neuqu\u00e9n Z=Ant\u00e1rtida a= 3= \u00d1= =");
        // One slash: the designator decides and the part before only has to be Argentine.
        // Two give no answer at all; three and more are read as one callsign.
        Pares("provinciaSenal", "LU1GP=Formosa LU1ABC/GN=Formosa AY0DXX=Buenos_Aires "
                                "LU1DX/P/X/Y=Buenos_Aires lu1abc/m=Mendoza LU1ABC/MMX=Mendoza "
                                "LU123= CE3XX= lu1abc/mm= LU1ABC/MA= LU1ABC/3= LU1ABC/= /LU1ABC= "
                                "CE3XX/D= LU1ABC/P/X=<falso> ce3xx/p/q=<falso>");
        Fila("provinciaSenal", "LU1XZ" + QString(30, u'/'), "Santa Cruz");

        // A date without a year gets 2000; one with hyphens is mended after the test, so
        // it is refused once and accepted the next time.
        Filas("fecha", "15/03/2024 30/04/2024 29/02/2024 29/02/2000", "=");
        Filas("fecha",
              "15/13/2024 32/01/2024 00/01/2024 31/04/2024 29/02/2023 29/02/1900 "
              "1/1/2024 15/03/24",
              "=!");
        Fila("fecha", "15/03/2024 ", "15/03/2024 !");
        Pares("fecha", "15/03/=15/03/2000 15/03/ab=15/03/2000 15/03=15/032000! "
                       "15-03-2024=15/03/2024! =!");
        // What cannot be read as a time stays as typed; the test after it has no digit
        // check and no lower bound, as the key filter keeps such texts out.
        Pares("hora", "9:30=09:30 9:5=09:05 21:30:15=21:30 0930=09:30 930=09:30 =!");
        Fila("hora", "9:30 PM", "21:30");
        Fila("hora", "12:15 am", "00:15");
        Fila("hora", " 7:05 ", "07:05");
        Fila("hora", "13:00 PM", "13:00 PM!");
        Filas("hora", "23:59 ab:cd -1:00", "=");
        Filas("hora", "24:00 2400 12:60 12:34:60 12-30 9", "=!");
        // A wall-clock reading held as UTC, so that shifting it never meets a gap.
        Pares("momento", "02/01/2024,00:00=02/01/2024,00:00:00 "
                         "15/03/2024,09:05:07=15/03/2024,09:05:07 "
                         "26/03/2023,02:30=26/03/2023,02:30:00 29/02/2023,12:00= "
                         "15/03/2024,24:00= 2024-03-15,12:00= ,=");
        // A bad report is mended to "59" whatever the mode. The field test and Enter disagree
        // on three characters: the field never looks at the first one, Enter never at the
        // middle one.
        Pares("reporte", "SSB,59=59 SSB,11=11 SSB,60=59!+ SSB,09=59!+ SSB,50=59!+ SSB,5x=59!+ "
                         "SSB,599=59!+ CW,599=599 Sat_CW,579=579 CW,999=999+ CW,509=59! "
                         "CW,590=59!+ CW,59=59!+ cw,599=59!+");
        // Enter looks at the correspondent (only an empty one stops), then each report.
        Fila("enter", ",09,", "Falta el Corresponsal!");
        Fila("enter", " ,59,59", "");
        Fila("enter", "LU1ABC,0,0", Recibido);
        Fila("enter", "LU1ABC,59,", Enviado);

        // Only the last character is cut, once per change: a pasted text is not walked.
        Pares("grilla", "F=F 1= f= F7=F FF7=FF7 FFA=FF FF7A=FF7 FF78A=FF78A FF785=FF78 "
                        "FF78A1=FF78A 1A=1A FF78AB1=FF78AB1");
        Pares("teclearGrilla", "ff78ab=FF78AB 1ff78=FF78 FFA78=FF78 FF7=FF7! FF78A=FF78A! =");
        Pares("teclaSenal", "lu1abc/p=LU1ABC/P");
        // Only a-z are raised: other scripts' letters are dropped, not made look-alikes.
        Fila("teclaSenal", QStringLiteral(" -.:_*,\u00f1\u00d1\u00e1\u0131\u017f"), "");
        Pares("teclaSinBarra", "ff78/ab=FF78AB");
        Pares("teclaFecha", "15-03/2024a:=1503/2024");
        Pares("teclaHora", "21:30/a.=21:30");
        Pares("teclaDigitos", "6.5/:a=65");
        Pares("teclaSigno", "-3.5+a/=-35+");
    }

    void reglas()
    {
        QFETCH(QString, regla);
        QFETCH(QString, texto);
        QTEST(Reglas.value(regla)(texto), "salida");
    }

    // What the windows offer must read back through the tables: every megahertz of the
    // list has a band, the same in the entry and import tables; every band's typical
    // frequency is in that band; the initial megahertz give the initial band.
    void listas()
    {
        for (const QString &mhz : ListaMhz())
            QVERIFY2(!BandaDeMhz(mhz).isEmpty() &&
                         BandaDeMhz(mhz) == DerivarBanda(mhz, "000", VentanaBanda::Principal).banda,
                     qPrintable(mhz));
        for (const QString &banda : ListaBandas())
            QCOMPARE(BandaDeMhz(FrecuenciaDeBanda(banda)), banda);
        QCOMPARE(DerivarBanda(MhzInicial(), "500", VentanaBanda::Principal).banda, BandaInicial());
    }
};

QTEST_GUILESS_MAIN(TestReglas)
#include "test_reglas.moc"
