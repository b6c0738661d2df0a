#pragma once
// Rows of the two-column tables of the rules tests: the text fed in, and what must come out.

#include <QString>
#include <QTest>

// One row, named after its text ("vacio" for the empty one).
template<typename T> void Fila(const QString &texto, const T &valor)
{
    QTest::newRow(texto.isEmpty() ? "vacio" : qPrintable(texto)) << texto << valor;
}

// One row per word of a space-separated list, all expecting the same.
template<typename T> void Filas(const char *textos, const T &valor)
{
    for (const QString &t : QString::fromUtf8(textos).split(u' ', Qt::SkipEmptyParts))
        QTest::newRow(qPrintable(t)) << t << valor;
}

// One row per "text=expected" word of a space-separated list; either side may be empty.
inline void Pares(const char *pares)
{
    for (const QString &par : QString::fromUtf8(pares).split(u' ', Qt::SkipEmptyParts)) {
        const qsizetype igual = par.indexOf(u'=');
        QTest::newRow(qPrintable(par)) << par.left(igual) << par.mid(igual + 1);
    }
}
