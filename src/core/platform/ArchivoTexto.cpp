// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/platform/ArchivoTexto.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <array>

namespace {

// Windows-1252 from 0x80 to 0x9F; the rest of the bytes are Latin-1. The five holes map
// to the C1 control of the same number, which is what makes every byte come back.
constexpr std::array<char16_t, 32> kAlto = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, // 80-87
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F, // 88-8F
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014, // 90-97
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178, // 98-9F
};

char ByteDe(char16_t c)
{
    if (c < 0x80 || (c >= 0xA0 && c <= 0xFF))
        return static_cast<char>(c);
    for (std::size_t i = 0; i < kAlto.size(); ++i) {
        if (kAlto[i] == c)
            return static_cast<char>(0x80 + i);
    }
    return '?';
}

} // namespace

QString De1252(const QByteArray &bytes)
{
    QString texto(bytes.size(), Qt::Uninitialized);
    QChar *destino = texto.data();
    for (const char b : bytes) {
        const auto u = static_cast<unsigned char>(b);
        *destino++ = (u >= 0x80 && u < 0xA0) ? QChar(kAlto[u - 0x80]) : QChar(u);
    }
    return texto;
}

QByteArray A1252(const QString &texto)
{
    QByteArray bytes(texto.size(), Qt::Uninitialized);
    char *destino = bytes.data();
    for (const QChar c : texto)
        *destino++ = ByteDe(c.unicode());
    return bytes;
}

Resultado<QStringList> LeerLineas(const QString &archivo)
{
    const QString ruta = QDir::toNativeSeparators(archivo);
    if (!QFileInfo(archivo).isFile())
        return Fallo{QStringLiteral("No existe el archivo %1.").arg(ruta)};
    QFile f(archivo);
    const QByteArray todo = f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
    if (f.error() != QFileDevice::NoError)
        return Fallo{
            QStringLiteral("No se puede leer el archivo %1.\r\n\r\n%2").arg(ruta, f.errorString())};

    QStringList lineas;
    qsizetype inicio = 0;
    while (inicio < todo.size()) {
        qsizetype fin = todo.indexOf('\n', inicio);
        const qsizetype siguiente = fin < 0 ? todo.size() : fin + 1;
        if (fin < 0)
            fin = todo.size();
        // Only the CR that belongs to the line end goes: one inside the text stays.
        qsizetype largo = fin - inicio;
        if (largo > 0 && todo[fin - 1] == '\r')
            --largo;
        lineas.append(De1252(todo.mid(inicio, largo)));
        inicio = siguiente;
    }
    return lineas;
}

Resultado<> EscribirLineas(const QString &archivo, const QStringList &lineas)
{
    QByteArray todo;
    for (const QString &linea : lineas) {
        todo += A1252(linea);
        todo += "\r\n";
    }
    QSaveFile f(archivo);
    if (f.open(QIODevice::WriteOnly) && f.write(todo) == todo.size() && f.commit())
        return {};
    const QString causa = f.errorString();
    f.cancelWriting();
    return Fallo{QStringLiteral("No se pudo guardar el archivo %1.\r\n\r\n%2")
                     .arg(QDir::toNativeSeparators(archivo), causa)};
}
