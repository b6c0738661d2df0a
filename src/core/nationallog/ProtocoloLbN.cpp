// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/nationallog/ProtocoloLbN.h"

#include "core/nationallog/EscapeLbN.h"

#include <array>

namespace {

bool EsHex(char c)
{
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'F') || (c >= 'a' && c <= 'f');
}

QString ConsultaQSO(const QString &usuario, const QString &clave, const QSOLbN &q)
{
    return QStringLiteral("user=") + usuario + QStringLiteral("&pass=") + EscaparLbN(clave) +
           QStringLiteral("&micall=") + q.miCall + QStringLiteral("&sucall=") + q.suCall +
           QStringLiteral("&banda=") + q.banda + QStringLiteral("&modo=") + q.modo +
           QStringLiteral("&fecha=") + q.fecha + QStringLiteral("&hora=") + q.hora +
           QStringLiteral("&rst=") + q.rst;
}

// The text up to the first blank, and the rest after it, of which the service's echo
// keeps 2000 characters. A reply with no blank left gives all it has to this piece.
QString CortarPieza(QString &resto)
{
    const int blanco = resto.indexOf(QLatin1Char(' '));
    QString pieza;
    if (blanco < 0) {
        pieza = resto;
        resto.clear();
    } else {
        pieza = resto.left(blanco);
        resto = resto.mid(blanco + 1, 2000);
    }
    return pieza;
}

} // namespace

QUrl DireccionComoNavegador(const QString &texto)
{
    const QByteArray bytes = texto.toUtf8();
    QByteArray salida;
    salida.reserve(bytes.size() * 3);
    for (qsizetype i = 0; i < bytes.size(); ++i) {
        const auto c = static_cast<unsigned char>(bytes[i]);
        const bool escapeHecho =
            c == '%' && i + 2 < bytes.size() && EsHex(bytes[i + 1]) && EsHex(bytes[i + 2]);
        if (c <= 0x20 || c >= 0x7F || (c == '%' && !escapeHecho)) {
            salida += '%';
            salida += QByteArray::number(c, 16).toUpper().rightJustified(2, '0');
        } else {
            salida += static_cast<char>(c);
        }
    }
    return QUrl::fromEncoded(salida, QUrl::TolerantMode);
}

QUrl DireccionCarancho3(const QString &base, const QString &usuario, const QString &clave,
                        const QSOLbN &qso)
{
    return DireccionComoNavegador(base + QStringLiteral("/php/carancho3.php?") +
                                  ConsultaQSO(usuario, clave, qso));
}

QUrl DireccionCarancho2Radiolog(const QString &base, const QString &usuario, const QString &clave,
                                const QSOLbN &qso, const QString &qslMsg)
{
    return DireccionComoNavegador(base + QStringLiteral("/php/carancho2Radiolog.php?") +
                                  ConsultaQSO(usuario, clave, qso) + QStringLiteral("&x_qslMSG=") +
                                  qslMsg);
}

QUrl DireccionMiembros(const QString &base)
{
    return DireccionComoNavegador(base + QStringLiteral("/php/carancho55.php?"));
}

QUrl DireccionConsultaLbN(const QString &base, const QString &senal, bool segura)
{
    QString raiz = base;
    if (segura && raiz.startsWith(QLatin1String("http://"), Qt::CaseInsensitive))
        raiz = QStringLiteral("https://") + raiz.mid(7);
    return DireccionComoNavegador(raiz + QStringLiteral("/php/carancho_lbn.php?qrz=") + senal);
}

LecturaCarancho3 LeerCarancho3(const QString &respuesta, int indice, const QString &suCall,
                               QString &textoAnterior)
{
    LecturaCarancho3 l;
    const QString numero = QString::number(indice) + QLatin1Char(' ');
    // The service's refusals name it, the password or the country: the QSO is not its.
    if (respuesta.contains(QLatin1String("LbN")) ||
        respuesta.contains(QStringLiteral("Contraseña")) ||
        respuesta.contains(QLatin1String("Argentina"))) {
        l.linea = numero + (respuesta.contains(QLatin1String("Argentina"))
                                ? suCall + QStringLiteral(" No lo considera LbN")
                                : respuesta);
        return l;
    }

    // The echo: own call, correspondent, band, mode, date and time; then the status.
    QString resto = respuesta;
    std::array<QString, 6> eco;
    for (QString &pieza : eco)
        pieza = CortarPieza(resto);
    const QString &estado = resto;

    // Three tests, not exclusive: the later one wins.
    if (estado.contains(QLatin1String("duplicado!N"))) {
        textoAnterior = QStringLiteral("Chequeado, aún no Confirmado!");
        l.estado = 1;
        l.chequeado = true;
    }
    if (estado.contains(QLatin1String("duplicado!Y")) ||
        estado.contains(QLatin1String("duplicado!S"))) {
        textoAnterior = QStringLiteral("Chequeado, Confirmado!");
        l.estado = 2;
    }
    if (estado.contains(QLatin1String("Guardado"))) {
        textoAnterior = QStringLiteral("Subido!");
        l.estado = 1;
        l.subido = true;
    }
    l.linea = numero + eco[0] + QLatin1Char('>') + eco[1] + QLatin1Char(' ') + eco[2] +
              QLatin1Char('/') + eco[3] + QStringLiteral(" >") + textoAnterior;
    return l;
}

LecturaCarancho2 LeerCarancho2Radiolog(const QString &respuesta)
{
    LecturaCarancho2 l;
    l.texto = respuesta;
    if (respuesta.contains(QStringLiteral("Error de Contraseña!")) ||
        respuesta.contains(QLatin1String("NO existe en LbN!"))) {
        l.color = 255;
        l.abortar = true;
    }
    if (respuesta.contains(QLatin1String("duplicado!")) ||
        respuesta.contains(QLatin1String("Call ni Alias")))
        l.color = 255;
    return l;
}
