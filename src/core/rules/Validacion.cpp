// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/rules/Validacion.h"

#include "core/rules/Numeros.h"

#include <QDate>
#include <QRegularExpression>
#include <QTime>
#include <QTimeZone>

namespace {

const QString FinDeLinea = QStringLiteral("\r\n");

double Caracter(const QString &texto, qsizetype posicion)
{
    return NumeroInicial(texto.mid(posicion, 1));
}

// The received/sent test of the Enter key: first character 1-5, last at least 1, whatever
// the length.
bool ReporteEntradaValido(const QString &reporte, const QString &modo)
{
    if (reporte.size() != LargoReporte(modo))
        return false;
    const double primero = Caracter(reporte, 0);
    return primero >= 1 && primero <= 5 && Caracter(reporte, reporte.size() - 1) >= 1;
}

QTime HoraDe(int horas, int minutos, int segundos = 0)
{
    if (horas < 0 || horas > 23 || minutos < 0 || minutos > 59 || segundos < 0 || segundos > 59)
        return {};
    return QTime(horas, minutos, segundos);
}

} // namespace

int HoraInvalida(const QString &texto)
{
    if (texto.size() != 5 || texto[2] != u':')
        return 1;
    if (NumeroInicial(texto.left(2)) > 23 || NumeroInicial(texto.mid(3, 2)) > 59)
        return 1;
    return 0;
}

int FechaInvalida(const QString &texto)
{
    static const QRegularExpression mascara(QStringLiteral("^[0-9]{2}/[0-9]{2}/[0-9]{4}$"));
    if (!mascara.match(texto).hasMatch())
        return 1;
    const int dia = texto.left(2).toInt();
    const int mes = texto.mid(3, 2).toInt();
    if (dia > 31 || mes > 12)
        return 1;
    return QDate(texto.mid(6, 4).toInt(), mes, dia).isValid() ? 0 : 1;
}

int LargoReporte(const QString &modo)
{
    return modo == u"CW" || modo == u"Sat CW" ? 3 : 2;
}

QString ReporteDefecto(const QString &modo)
{
    return LargoReporte(modo) == 3 ? QStringLiteral("599") : QStringLiteral("59");
}

int ReporteInvalido(const QString &texto, const QString &modo)
{
    const int largo = LargoReporte(modo);
    if (texto.size() != largo)
        return 1;
    const double clave = largo == 2 ? Caracter(texto, 0) : Caracter(texto, 1);
    const double tope = largo == 2 ? 5 : 9;
    if (clave < 1 || clave > tope)
        return 1;
    return Caracter(texto, largo - 1) >= 1 ? 0 : 1;
}

int ReporteEdicionInvalido(const QString &texto)
{
    Q_UNUSED(texto);
    return 0;
}

QString ValidarEntradaQSO(const QString &corresponsal, const QString &rsr, const QString &rse,
                          const QString &modo)
{
    if (corresponsal.isEmpty())
        return QStringLiteral("Falta el Corresponsal!");
    if (!ReporteEntradaValido(rsr, modo))
        return QStringLiteral("Reporte Recibido no válido!");
    if (!ReporteEntradaValido(rse, modo))
        return QStringLiteral("Reporte Enviado no válido!");
    return {};
}

QString MensajeFecha(const QString &texto)
{
    return QStringLiteral("la Fecha ") + texto + QStringLiteral(" no es válida!") + FinDeLinea +
           FinDeLinea + QStringLiteral("Formato: dd/mm/aaaa");
}

QString MensajeHora(const QString &texto)
{
    return QStringLiteral("la Hora ") + texto + QStringLiteral(" no es válida!") + FinDeLinea +
           FinDeLinea + QStringLiteral("Formato: hh:mm");
}

QString MensajeReporte(const QString &texto)
{
    return QStringLiteral("el Reporte ") + texto + QStringLiteral(" no es válido!");
}

QString CorregirAnioFecha(const QString &texto)
{
    if (texto.isEmpty() || NumeroInicial(texto.mid(6, 4)) != 0)
        return texto;
    return texto.left(6) + QStringLiteral("2000");
}

QString FormatearHora(const QString &texto)
{
    // h:m, with optional seconds and an optional AM/PM ("a.m.", "PM", ...).
    static const QRegularExpression conDosPuntos(
        QStringLiteral(
            R"(^\s*([0-9]{1,2}):([0-9]{1,2})(?::([0-9]{1,2}))?\s*(?:([AP])\.?M\.?)?\s*$)"),
        QRegularExpression::CaseInsensitiveOption);
    // Three or four digits typed without the colon: the last two are the minutes.
    static const QRegularExpression soloDigitos(
        QStringLiteral(R"(^\s*([0-9]{1,2})([0-9]{2})\s*$)"));

    QTime hora;
    QRegularExpressionMatch m = conDosPuntos.match(texto);
    if (m.hasMatch()) {
        int horas = m.captured(1).toInt();
        const QString meridiano = m.captured(4).toUpper();
        if (!meridiano.isEmpty()) {
            if (horas > 12)
                return texto;
            horas = horas % 12 + (meridiano == u"P" ? 12 : 0);
        }
        const int segundos = m.captured(3).isEmpty() ? 0 : m.captured(3).toInt();
        hora = HoraDe(horas, m.captured(2).toInt(), segundos);
    } else if (m = soloDigitos.match(texto); m.hasMatch()) {
        hora = HoraDe(m.captured(1).toInt(), m.captured(2).toInt());
    }
    return hora.isValid() ? hora.toString(QStringLiteral("hh:mm")) : texto;
}

QDateTime LeerMomento(const QString &fecha, const QString &hora)
{
    static const QRegularExpression formaFecha(
        QStringLiteral(R"(^\s*([0-9]{1,2})/([0-9]{1,2})/([0-9]{4})\s*$)"));
    static const QRegularExpression formaHora(
        QStringLiteral(R"(^\s*([0-9]{1,2}):([0-9]{1,2})(?::([0-9]{1,2}))?\s*$)"));
    const QRegularExpressionMatch f = formaFecha.match(fecha);
    const QRegularExpressionMatch h = formaHora.match(hora);
    if (!f.hasMatch() || !h.hasMatch())
        return {};
    const QDate dia(f.captured(3).toInt(), f.captured(2).toInt(), f.captured(1).toInt());
    const QTime momento = HoraDe(h.captured(1).toInt(), h.captured(2).toInt(),
                                 h.captured(3).isEmpty() ? 0 : h.captured(3).toInt());
    if (!dia.isValid() || !momento.isValid())
        return {};
    return QDateTime(dia, momento, QTimeZone::utc());
}

RevisionCampo RevisarFecha(const QString &texto)
{
    QString corregido = CorregirAnioFecha(texto);
    const bool invalida = FechaInvalida(corregido) != 0;
    corregido.replace(u'-', u'/');
    return {corregido, invalida ? MensajeFecha(corregido) : QString()};
}

RevisionCampo RevisarHora(const QString &texto)
{
    const QString formateado = FormatearHora(texto);
    return {formateado, HoraInvalida(formateado) ? MensajeHora(formateado) : QString()};
}

RevisionCampo RevisarReporte(const QString &texto, const QString &modo)
{
    if (!ReporteInvalido(texto, modo))
        return {texto, {}};
    return {QStringLiteral("59"), MensajeReporte(texto)};
}
