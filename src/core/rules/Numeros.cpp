// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/rules/Numeros.h"

namespace {

bool EsDigito(QChar c)
{
    return c >= u'0' && c <= u'9';
}

bool EsBlanco(QChar c)
{
    return c == u' ' || c == u'\t' || c == u'\r' || c == u'\n';
}

} // namespace

double NumeroInicial(const QString &texto)
{
    const qsizetype largo = texto.size();
    qsizetype i = 0;
    while (i < largo && EsBlanco(texto[i]))
        ++i;
    const qsizetype inicio = i;
    if (i < largo && (texto[i] == u'+' || texto[i] == u'-'))
        ++i;
    qsizetype digitos = 0;
    while (i < largo && EsDigito(texto[i])) {
        ++i;
        ++digitos;
    }
    if (i < largo && texto[i] == u'.') {
        qsizetype j = i + 1;
        while (j < largo && EsDigito(texto[j]))
            ++j;
        digitos += j - i - 1;
        if (j > i + 1)
            i = j;
    }
    if (digitos == 0)
        return 0.0;
    // QString::toDouble always reads '.' as the decimal point, never the locale's.
    bool ok = false;
    const double valor = QStringView(texto).mid(inicio, i - inicio).toDouble(&ok);
    return ok ? valor : 0.0;
}

int Digitos(QStringView s, qsizetype desde, qsizetype n)
{
    int valor = 0;
    for (qsizetype i = desde; i < desde + n; ++i) {
        const char16_t c = s[i].unicode();
        if (c < u'0' || c > u'9')
            return -1;
        valor = valor * 10 + (c - u'0');
    }
    return valor;
}
