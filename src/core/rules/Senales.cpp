// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/rules/Senales.h"

namespace {

bool EsDigito(QChar c)
{
    return c >= u'0' && c <= u'9';
}

// The G and X districts are split by their second letter, M and below being the first
// province of the pair. A one-letter suffix counts as if followed by A.
bool SegundaHastaM(const QString &sufijo)
{
    return sufijo.size() < 2 || sufijo[1] <= u'M';
}

} // namespace

bool EsSenalDistintiva(const QString &texto)
{
    qsizetype digitos = 0;
    for (QChar c : texto)
        digitos += EsDigito(c) ? 1 : 0;
    return digitos > 0 && digitos < texto.size();
}

QString MensajeNoEsSenal(const QString &texto)
{
    return texto + QStringLiteral(" no es una señal distintiva!");
}

std::optional<QString> SufijoArgentino(QString &senal)
{
    senal = senal.toUpper();
    if (senal.startsWith(u"AZ") || senal.startsWith(u"AY"))
        return senal.mid(3, 10);
    if (senal.size() < 2 || senal[0] != u'L')
        return std::nullopt;
    const QChar segunda = senal[1];
    const bool argentina =
        (segunda >= u'1' && segunda <= u'9') || (segunda >= u'O' && segunda <= u'W');
    if (!argentina)
        return std::nullopt;
    // The digit (or digits) of the prefix may run on past the third character: the
    // district is the first letter after them.
    const QString provisorio = senal.mid(3, 10);
    for (qsizetype i = 0; i < provisorio.size(); ++i) {
        if (!EsDigito(provisorio[i]))
            return provisorio.mid(i, 2);
    }
    return provisorio;
}

QString ProvinciaDeSufijo(const QString &sufijo)
{
    if (sufijo.isEmpty())
        return {};
    const QStringList &nombres = NombresProvincias();
    switch (sufijo[0].unicode()) {
    case u'A':
    case u'B':
    case u'C':
        return nombres[0];
    case u'D':
    case u'E':
        return nombres[1];
    case u'F':
        return nombres[2];
    case u'G':
        return SegundaHastaM(sufijo) ? nombres[3] : nombres[4];
    case u'X':
        return SegundaHastaM(sufijo) ? nombres[21] : nombres[22];
    case u'Y':
        return nombres[23];
    case u'Z':
        return nombres[24];
    default:
        break;
    }
    // H to W follow one another in the table, one letter per province.
    const char16_t letra = sufijo[0].unicode();
    if (letra >= u'H' && letra <= u'W')
        return nombres[5 + (letra - u'H')];
    return {};
}

std::optional<QString> ProvinciaDeSenal(QString &senal)
{
    senal = senal.toUpper();
    const qsizetype barras = senal.count(u'/');
    if (barras == 2)
        return std::nullopt;
    if (barras == 1) {
        const qsizetype barra = senal.indexOf(u'/');
        QString antes = senal.left(barra);
        const QString despues = senal.mid(barra + 1, 20);
        if (despues == u"MM" || despues == u"MA")
            return QString();
        if (!SufijoArgentino(antes))
            return QString();
        // A portable designator overrides the district of the callsign.
        return ProvinciaDeSufijo(despues);
    }
    // No slash, or three and more: the whole text is read as one callsign.
    const std::optional<QString> sufijo = SufijoArgentino(senal);
    return sufijo ? ProvinciaDeSufijo(*sufijo) : QString();
}

QString ProvinciaParaGuardar(const QString &senal)
{
    QString copia = senal;
    return ProvinciaDeSenal(copia).value_or(QString());
}

const QStringList &NombresProvincias()
{
    static const QStringList nombres = {
        QStringLiteral("Capital"),    QStringLiteral("Buenos Aires"),
        QStringLiteral("Santa Fe"),   QStringLiteral("Chaco"),
        QStringLiteral("Formosa"),    QStringLiteral("Córdoba"),
        QStringLiteral("Misiones"),   QStringLiteral("Entre Ríos"),
        QStringLiteral("Tucumán"),    QStringLiteral("Corrientes"),
        QStringLiteral("Mendoza"),    QStringLiteral("Santiago del Estero"),
        QStringLiteral("Salta"),      QStringLiteral("San Juan"),
        QStringLiteral("San Luis"),   QStringLiteral("Catamarca"),
        QStringLiteral("La Rioja"),   QStringLiteral("Jujuy"),
        QStringLiteral("La Pampa"),   QStringLiteral("Río Negro"),
        QStringLiteral("Chubut"),     QStringLiteral("Tierra del Fuego"),
        QStringLiteral("Santa Cruz"), QStringLiteral("Neuquén"),
        QStringLiteral("Antártida")};
    return nombres;
}
