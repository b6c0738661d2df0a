// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/adif/LectorAdif.h"

#include "core/platform/ArchivoTexto.h"
#include "core/rules/Numeros.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStringDecoder>
#include <cmath>
#include <cstring>

namespace {

// How far behind a tag its length and its ">" are looked for.
constexpr qsizetype kVentana = 1000;

char Mayuscula(char c)
{
    return (c >= 'a' && c <= 'z') ? char(c - ('a' - 'A')) : c;
}

// The bytes at `desde` spell the tag (given in capitals), in any case.
bool EmpiezaCon(QByteArrayView linea, qsizetype desde, QByteArrayView tag)
{
    if (linea.size() - desde < tag.size())
        return false;
    const char *p = linea.data() + desde;
    for (qsizetype i = 0; i < tag.size(); ++i)
        if (Mayuscula(p[i]) != tag[i])
            return false;
    return true;
}

// The position of the first occurrence of the tag, in any case, or -1. Every tag opens
// with "<", so only those are looked at.
qsizetype Buscar(QByteArrayView linea, QByteArrayView tag)
{
    const char *inicio = linea.data();
    const char *fin = inicio + linea.size();
    for (const char *p = inicio; p < fin;) {
        p = static_cast<const char *>(std::memchr(p, '<', size_t(fin - p)));
        if (!p)
            return -1;
        if (EmpiezaCon(linea, p - inicio, tag))
            return p - inicio;
        ++p;
    }
    return -1;
}

// The number a text starts with, rounded to the nearest whole (halves to even), as a
// length is read; 0 when it starts with none.
qint64 Largo(QByteArrayView texto)
{
    qsizetype i = 0;
    while (i < texto.size() && (texto[i] == ' ' || texto[i] == '\t'))
        ++i;
    bool negativo = false;
    if (i < texto.size() && (texto[i] == '-' || texto[i] == '+'))
        negativo = texto[i++] == '-';
    double valor = 0;
    for (; i < texto.size() && texto[i] >= '0' && texto[i] <= '9'; ++i)
        valor = std::min(valor * 10 + (texto[i] - '0'), 1e12);
    if (i + 1 < texto.size() && texto[i] == '.' && texto[i + 1] >= '0' && texto[i + 1] <= '9') {
        double escala = 0.1;
        for (++i; i < texto.size() && texto[i] >= '0' && texto[i] <= '9'; ++i, escala /= 10)
            valor += (texto[i] - '0') * escala;
    }
    const auto n = qint64(std::nearbyint(valor));
    return negativo ? -n : n;
}

bool Continuacion(char c)
{
    return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}

// The value whose tag ends just before `despues`.
QByteArrayView ValorDesde(QByteArrayView linea, qsizetype despues, bool utf8)
{
    const QByteArrayView ventana =
        linea.sliced(despues).first(std::min<qsizetype>(kVentana, linea.size() - despues));
    const qint64 largo = Largo(ventana);
    const qsizetype cierre = ventana.indexOf('>');
    if (cierre < 0 || largo <= 0)
        return {};
    const qsizetype inicio = despues + cierre + 1;
    const qsizetype resto = linea.size() - inicio;
    if (largo >= resto)
        return linea.sliced(inicio);
    if (!utf8)
        return linea.sliced(inicio, largo);
    // The length in bytes, when the value so cut ends where a field would.
    const char tras = linea[inicio + largo];
    if (!Continuacion(tras) && (tras == '<' || tras == ' ' || tras == '\t'))
        return linea.sliced(inicio, largo);
    // Otherwise in characters.
    qsizetype fin = inicio;
    for (qint64 n = 0; n < largo && fin < linea.size(); ++n) {
        ++fin;
        while (fin < linea.size() && Continuacion(linea[fin]))
            ++fin;
    }
    return linea.sliced(inicio, fin - inicio);
}

struct Nombre
{
    QByteArrayView texto; // between "<" and ":"
    Campo campo;
};

// In the order of the import's table; the name alone, so one pass finds them all.
const Nombre kNombres[] = {
    {"GRIDSQUARE", Campo::GridSquare},
    {"MY_GRIDSQUARE", Campo::MyGridSquare},
    {"QSL_RCVD", Campo::QslRcvd},
    {"STATION_CALLSIGN", Campo::StationCallsign},
    {"CALL", Campo::Call},
    {"QSO_DATE", Campo::QsoDate},
    {"TIME_ON", Campo::TimeOn},
    {"BAND", Campo::Band},
    {"FREQ", Campo::Freq},
    {"RST_SENT", Campo::RstSent},
    {"RST_RCVD", Campo::RstRcvd},
    {"OPERATOR", Campo::Operator},
    {"MODE", Campo::Mode},
    {"PROP_MODE", Campo::PropMode},
    {"COMMENT", Campo::Comment},
    {"SAT_NAME", Campo::SatName},
};
constexpr qsizetype kNombreMasLargo = 16; // STATION_CALLSIGN

} // namespace

std::vector<QByteArrayView> LineasAdif(QByteArrayView datos)
{
    std::vector<QByteArrayView> lineas;
    const char *inicio = datos.data();
    const char *fin = inicio + datos.size();
    const char *p = inicio;
    while (p < fin) {
        const auto *cr = static_cast<const char *>(std::memchr(p, '\r', size_t(fin - p)));
        if (!cr) {
            lineas.emplace_back(p, fin - p);
            break;
        }
        lineas.emplace_back(p, cr - p);
        p = cr + 1;
        if (p < fin && *p == '\n')
            ++p;
    }
    return lineas;
}

bool EsUtf8(QByteArrayView datos)
{
    QStringDecoder decodificador(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString texto = decodificador.decode(datos);
    return !decodificador.hasError();
}

QByteArrayView ValorTag(QByteArrayView linea, QByteArrayView tag, bool utf8)
{
    const qsizetype p = Buscar(linea, tag);
    return p < 0 ? QByteArrayView() : ValorDesde(linea, p + tag.size(), utf8);
}

QString TextoAdif(QByteArrayView bytes, bool utf8)
{
    if (bytes.isEmpty())
        return {};
    return utf8 ? QString::fromUtf8(bytes) : De1252(bytes.toByteArray());
}

QString LeerTag(QByteArrayView linea, QByteArrayView tag, bool utf8)
{
    return TextoAdif(ValorTag(linea, tag, utf8), utf8);
}

bool TieneTag(QByteArrayView linea, QByteArrayView tag)
{
    return Buscar(linea, tag) >= 0;
}

CamposAdif LeerCampos(QByteArrayView linea, bool utf8)
{
    CamposAdif campos;
    std::array<bool, size_t(Campo::Cantidad)> visto{};
    int faltan = int(Campo::Cantidad);
    const char *inicio = linea.data();
    const char *fin = inicio + linea.size();
    for (const char *p = inicio; p < fin && faltan > 0;) {
        p = static_cast<const char *>(std::memchr(p, '<', size_t(fin - p)));
        if (!p)
            break;
        ++p;
        // The name up to its ":", in capitals.
        char nombre[kNombreMasLargo];
        qsizetype n = 0;
        while (n < kNombreMasLargo && p + n < fin && p[n] != ':')
            nombre[n] = Mayuscula(p[n]), ++n;
        if (p + n >= fin || p[n] != ':')
            continue;
        for (const Nombre &t : kNombres) {
            if (t.texto.size() != n || std::memcmp(t.texto.data(), nombre, size_t(n)) != 0)
                continue;
            const auto i = size_t(t.campo);
            if (!visto[i]) {
                visto[i] = true;
                --faltan;
                campos.valor[i] = ValorDesde(linea, p + n + 1 - inicio, utf8);
            }
            break;
        }
    }
    return campos;
}

bool EsLineaQSO(QByteArrayView linea)
{
    return linea.contains('>') && TieneTag(linea, "<CALL:") && TieneTag(linea, "<EOR>");
}

QString ProgramaDeLinea(const QString &linea)
{
    const double largo = NumeroInicial(linea.mid(11));
    if (!(largo > 0))
        return {};
    const qsizetype n = qsizetype(std::nearbyint(std::min(largo, 1e9)));
    return linea.mid(linea.indexOf(QLatin1Char('>')) + 1, n);
}

Resultado<ArchivoAdif> NormalizarSaltos(const QString &ruta, const QTime &hora)
{
    const QString nativa = QDir::toNativeSeparators(ruta);
    const QFileInfo info(ruta);
    if (!info.exists())
        return Fallo{QStringLiteral("No existe el archivo %1.").arg(nativa)};
    if (!info.isFile())
        return Fallo{QStringLiteral("%1 no es un archivo.").arg(nativa)};
    if (info.size() > kMayorArchivoAdif)
        return Fallo{QStringLiteral("El archivo:\r\n%1\r\nes demasiado grande para importarlo.")
                         .arg(nativa)};
    QFile f(ruta);
    ArchivoAdif archivo{ruta, {}};
    if (f.open(QIODevice::ReadOnly))
        archivo.datos = f.readAll();
    if (f.error() != QFileDevice::NoError)
        return Fallo{QStringLiteral("No se puede leer el archivo %1.\r\n\r\n%2")
                         .arg(nativa, f.errorString())};
    if (LineasAdif(archivo.datos).size() != 1)
        return archivo;
    archivo.datos.replace("\n", "\r\n");
    const QString copia = ruta + QLatin1Char('_') + hora.toString(QStringLiteral("hhmmss"));
    QFile salida(copia);
    if (salida.open(QIODevice::WriteOnly | QIODevice::Truncate) &&
        salida.write(archivo.datos) == archivo.datos.size() && salida.flush())
        archivo.ruta = copia;
    return archivo;
}

bool RehacerAdif(const QString &ruta, QByteArrayView datos)
{
    QByteArray salida, registro;
    for (QByteArrayView linea : LineasAdif(datos)) {
        registro += linea;
        if (TieneTag(linea, "<EOR>")) {
            salida += registro;
            salida += "\r\n";
            registro.clear();
        }
    }
    QFile f(ruta + QLatin1Char('_'));
    return f.open(QIODevice::WriteOnly | QIODevice::Truncate) && f.write(salida) == salida.size() &&
           f.flush();
}
