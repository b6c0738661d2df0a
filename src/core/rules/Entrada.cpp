// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/rules/Entrada.h"

namespace {

bool EsDigito(QChar c)
{
    return c >= u'0' && c <= u'9';
}

bool EsLetra(QChar c)
{
    return c >= u'A' && c <= u'Z';
}

} // namespace

std::optional<QChar> FiltrarTecla(FiltroTecla filtro, QChar c)
{
    if (c == QChar(8) || c == u'?')
        return c;
    // Only a-z are raised: other scripts' lower-case letters are dropped, not turned into
    // a look-alike capital.
    if ((filtro == FiltroTecla::Senal || filtro == FiltroTecla::SenalSinBarra) && c >= u'a' &&
        c <= u'z')
        c = QChar(c.unicode() - u'a' + u'A');
    if (EsDigito(c))
        return c;
    switch (filtro) {
    case FiltroTecla::Senal:
        if (EsLetra(c) || c == u'/')
            return c;
        break;
    case FiltroTecla::SenalSinBarra:
        if (EsLetra(c))
            return c;
        break;
    case FiltroTecla::Fecha:
        if (c == u'/')
            return c;
        break;
    case FiltroTecla::Hora:
        if (c == u':')
            return c;
        break;
    case FiltroTecla::Digitos:
        break;
    case FiltroTecla::DigitosConSigno:
        if (c == u'+' || c == u'-')
            return c;
        break;
    }
    return std::nullopt;
}

QString FormaGrilla(const QString &texto)
{
    if (texto.isEmpty())
        return texto;
    const QChar ultimo = texto.back();
    bool correcto = true;
    switch (texto.size()) {
    case 1:
    case 2:
    case 5:
    case 6:
        correcto = EsLetra(ultimo);
        break;
    case 3:
    case 4:
        correcto = EsDigito(ultimo);
        break;
    default:
        break;
    }
    return correcto ? texto : texto.chopped(1);
}

bool GrillaAceptable(const QString &texto)
{
    return texto.isEmpty() || texto.size() == 4 || texto.size() == 6;
}

bool PareceSenal(const QString &texto)
{
    bool letra = false;
    bool digito = false;
    for (QChar c : texto) {
        letra = letra || EsLetra(c);
        digito = digito || EsDigito(c);
    }
    return letra && digito;
}

QString MensajeNoPareceSenal(const QString &texto)
{
    return texto + QStringLiteral(" NO Parece ser una Señal distintiva Válida!");
}
