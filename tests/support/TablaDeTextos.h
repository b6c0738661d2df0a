// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Data tables whose columns all hold text: the columns, a row, and a value of the running
// row, for the window tests that describe an operator's steps and what they leave.

#include <QStringList>
#include <QTest>
#include <initializer_list>

inline void Columnas(std::initializer_list<const char *> nombres)
{
    for (const char *nombre : nombres)
        QTest::addColumn<QString>(nombre);
}

inline void Fila(const char *nombre, const QStringList &valores)
{
    QTestData &fila = QTest::newRow(nombre);
    for (const QString &valor : valores)
        fila << valor;
}

inline QString Dato(const char *columna)
{
    return *static_cast<QString *>(QTest::qData(columna, qMetaTypeId<QString>()));
}
