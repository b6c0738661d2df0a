// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/adif/EscritorAdif.h"

#include "core/rules/Numeros.h"
#include "core/store/RegistroQSO.h"

#include <QDate>
#include <QDir>
#include <charconv>

namespace {

// "<TAG:" + the byte count + ">".
void Etiqueta(QByteArray &s, const char *etiqueta, qsizetype largo)
{
    char numero[24];
    const auto fin = std::to_chars(numero, numero + sizeof numero, largo).ptr;
    s += etiqueta;
    s.append(numero, fin - numero);
    s += '>';
}

// A field with its value. Nearly every value is plain ASCII, copied as it stands with no
// UTF-8 pass: a backup runs this a dozen times per QSO.
void Campo(QByteArray &s, const char *etiqueta, QStringView valor)
{
    for (QChar c : valor) {
        if (c.unicode() >= 0x80) {
            const QByteArray utf8 = valor.toUtf8();
            Etiqueta(s, etiqueta, utf8.size());
            s += utf8;
            return;
        }
    }
    Etiqueta(s, etiqueta, valor.size());
    const qsizetype desde = s.size();
    s.resize(desde + valor.size());
    char *p = s.data() + desde;
    for (QChar c : valor)
        *p++ = char(c.unicode());
}

// <QSO_DATE: of a "dd/mm/yyyy" date. A text that is no such date goes out as it stands,
// its '/' taken out: a backup keeps whatever the store holds.
void CampoFecha(QByteArray &s, const QString &fecha)
{
    if (fecha.size() == 10 && fecha.at(2) == QLatin1Char('/') && fecha.at(5) == QLatin1Char('/') &&
        QDate::isValid(Digitos(fecha, 6, 4), Digitos(fecha, 3, 2), Digitos(fecha, 0, 2))) {
        const QChar *f = fecha.constData();
        const char digitos[8] = {char(f[6].unicode()), char(f[7].unicode()), char(f[8].unicode()),
                                 char(f[9].unicode()), char(f[3].unicode()), char(f[4].unicode()),
                                 char(f[0].unicode()), char(f[1].unicode())};
        Etiqueta(s, "<QSO_DATE:", 8);
        s.append(digitos, 8);
        return;
    }
    Campo(s, "<QSO_DATE:", QString(fecha).remove(QLatin1Char('/')));
}

// <TIME_ON: of the stored "hh:mm:ss" as hhmm; of any other text with its ':' taken out.
void CampoHora(QByteArray &s, const QString &hora)
{
    if (hora.size() == 8 && hora.at(2) == QLatin1Char(':') && hora.at(5) == QLatin1Char(':') &&
        Digitos(hora, 0, 2) >= 0 && Digitos(hora, 3, 2) >= 0) {
        const QChar *h = hora.constData();
        const char digitos[4] = {char(h[0].unicode()), char(h[1].unicode()), char(h[3].unicode()),
                                 char(h[4].unicode())};
        Etiqueta(s, "<TIME_ON:", 4);
        s.append(digitos, 4);
        return;
    }
    Campo(s, "<TIME_ON:", QString(hora).remove(QLatin1Char(':')));
}

bool EnBlanco(const QString &texto)
{
    return texto.trimmed().isEmpty();
}

// The fields both the search export and the backup write alike, up to the reports.
void Comunes(QByteArray &s, const FilaQSO &f, const QString &modo)
{
    Campo(s, "<STATION_CALLSIGN:", f.MyCall);
    Campo(s, "<CALL:", f.Estacion);
    Campo(s, "<MODE:", modo);
    Campo(s, "<BAND:", f.Banda);
    Campo(s, "<FREQ:", f.Frecuencia);
    CampoFecha(s, f.Fecha);
    CampoHora(s, f.Hora);
    Campo(s, "<RST_SENT:", f.RSE);
    Campo(s, "<RST_RCVD:", f.RSR);
}

// The frequency a contest record gives for its band; null for a band not of a contest.
QString FrecuenciaConcurso(const QString &banda)
{
    static const std::pair<const char *, const char *> tabla[] = {
        {"160m", "1.820"}, {"80m", "3.500"},  {"40m", "7.000"}, {"20m", "14.000"},
        {"15m", "21.000"}, {"10m", "28.000"}, {"6m", "52.000"}, {"2m", "144.000"}};
    for (const auto &[b, f] : tabla)
        if (banda == QLatin1String(b))
            return QString::fromLatin1(f);
    return {};
}

} // namespace

QByteArray CabeceraAdif(const QString &versionPrograma, const QDateTime &creado)
{
    QByteArray s = QByteArrayLiteral("<PROGRAMID:17>Carancho Radiolog\r\n");
    Campo(s, "<PROGRAMVERSION:", versionPrograma);
    s += "\r\n<ADIF_VER:4>3.04\r\n";
    Campo(s, "<CREATED_TIMESTAMP:", creado.toString(QStringLiteral("yyyyMMdd HHmmss")));
    s += "\r\n<EOH>\r\n";
    return s;
}

void AgregarRegistroBusqueda(QByteArray &s, const FilaQSO &f, bool comentarioComoQslmsg)
{
    Comunes(s, f, f.Modo == QLatin1String("DVoice") ? QStringLiteral("DIGITALVOICE") : f.Modo);
    if (!f.Nombre_Sat.isEmpty()) {
        s += "<PROP_MODE:3>SAT";
        Campo(s, "<SAT_NAME:", f.Nombre_Sat);
    }
    if (!EnBlanco(f.Operador))
        Campo(s, "<OPERATOR:", f.Operador);
    if (!EnBlanco(f.Obs))
        Campo(s, "<COMMENT:", f.Obs);
    // Tested untrimmed, unlike the comment: a remark of blanks goes out as QSLMSG alone.
    if (comentarioComoQslmsg && !f.Obs.isEmpty())
        Campo(s, "<QSLMSG:", f.Obs);
    if (!EnBlanco(f.MiGrid))
        Campo(s, "<MY_GRIDSQUARE:", f.MiGrid);
    if (!EnBlanco(f.SuGrid))
        Campo(s, "<GRIDSQUARE:", f.SuGrid);
    s += "<EOR>\r\n";
}

void AgregarRegistroRespaldo(QByteArray &s, const FilaQSO &f)
{
    if (f.MyCall.isEmpty())
        return;
    Comunes(s, f, f.Modo);
    if (const QString sat = f.Nombre_Sat.trimmed(); !sat.isEmpty()) {
        s += "<PROP_MODE:3>SAT";
        Campo(s, "<SAT_NAME:", sat);
    }
    if (!EnBlanco(f.Operador))
        Campo(s, "<OPERATOR:", f.Operador);
    if (!EnBlanco(f.Obs))
        Campo(s, "<COMMENT:", f.Obs);
    if (!EnBlanco(f.MiGrid))
        Campo(s, "<MY_GRIDSQUARE:", f.MiGrid);
    if (!EnBlanco(f.SuGrid))
        Campo(s, "<GRIDSQUARE:", f.SuGrid);
    // Uploaded and unconfirmed (1) says nothing: it is neither a yes nor a no.
    if (!EnBlanco(f.LbN)) {
        const double estado = NumeroInicial(f.LbN);
        if (estado == 0)
            s += "<QSL_RCVD:1>N";
        else if (estado == 2)
            s += "<QSL_RCVD:1>Y";
    }
    Campo(s, "<LOG_NAME:", f.NombreLog);
    s += "<EOR>\r\n";
}

void RegistrosConcurso::Agregar(QByteArray &s, const FilaConcurso &f)
{
    if (const QString frecuencia = FrecuenciaConcurso(f.Banda); !frecuencia.isNull())
        frecuencia_ = frecuencia;
    const QString reporte =
        f.Modo == QLatin1String("SSB") ? QStringLiteral("59") : QStringLiteral("599");
    Campo(s, "<STATION_CALLSIGN:", f.MyCall);
    Campo(s, "<CALL:", f.Estacion);
    Campo(s, "<QSO_DATE:", f.Fecha.left(4) + f.Fecha.mid(4, 2) + f.Fecha.right(2));
    Campo(s, "<TIME_ON:", f.Hora);
    Campo(s, "<MODE:", f.Modo);
    Campo(s, "<FREQ:", frecuencia_);
    Campo(s, "<RST_SENT:", reporte);
    Campo(s, "<RST_RCVD:", reporte);
    s += "<EOR>\r\n";
}

// ---- The file ----------------------------------------------------------------------------

SalidaAdif::SalidaAdif(const QString &archivo)
    : archivo_(archivo)
{
    fallo_ = !archivo_.open(QIODevice::WriteOnly);
}

void SalidaAdif::Escribir()
{
    if (texto.size() >= (1 << 20))
        Volcar();
}

void SalidaAdif::Volcar()
{
    if (!fallo_ && archivo_.write(texto) != texto.size())
        fallo_ = true;
    texto.resize(0); // the room stays for the next piece
}

Resultado<> SalidaAdif::Terminar()
{
    Volcar();
    if (!fallo_ && archivo_.commit())
        return {};
    const QString causa = archivo_.errorString();
    archivo_.cancelWriting();
    return Fallo{QStringLiteral("No se pudo guardar el archivo %1.\r\n\r\n%2")
                     .arg(QDir::toNativeSeparators(archivo_.fileName()), causa)};
}
