// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/editing/Edicion.h"

#include "core/rules/Bandas.h"
#include "core/rules/Numeros.h"
#include "core/rules/Validacion.h"

#include <QDate>
#include <QTime>

namespace {

const QString FinDeLinea = QStringLiteral("\r\n");
const QString PrefijoTitulo = QStringLiteral("Edición de QSO #");

} // namespace

QString MensajeFechaEdicion()
{
    return QStringLiteral("Error Fecha!") + FinDeLinea + QStringLiteral("Formato: DD/MM/AAAA");
}

QString MensajeHoraEdicion()
{
    return QStringLiteral("Error Hora!") + FinDeLinea + QStringLiteral("Formato: HH:MM");
}

QString RevisarFechaEdicion(const QString &texto)
{
    const bool forma = texto.size() == 10 && texto.at(2) == u'/' && texto.at(5) == u'/';
    if (forma && QDate::fromString(texto, QStringLiteral("dd/MM/yyyy")).isValid())
        return {};
    return MensajeFechaEdicion();
}

QString RevisarHoraEdicion(const QString &texto)
{
    if (texto.size() != 5 || texto.at(2) != u':')
        return MensajeHoraEdicion();
    if (NumeroInicial(texto.left(2)) > 23)
        return QStringLiteral("Error Hora!") + FinDeLinea + QStringLiteral("Mayor de 23.");
    if (NumeroInicial(texto.mid(3, 2)) > 59)
        return QStringLiteral("Error Minutos!") + FinDeLinea + QStringLiteral("Mayor de 59.");
    return {};
}

QString RevisarGrillaEdicion(const QString &texto)
{
    if (texto.isEmpty() || texto.size() == 6)
        return {};
    return QStringLiteral("Grilla incorrecta!");
}

QString TituloEdicion(qint64 id)
{
    return PrefijoTitulo + QString::number(id);
}

FrecuenciaPartida PartirFrecuencia(const QString &frecuencia)
{
    QString f = frecuencia;
    f.replace(QLatin1Char(','), QLatin1Char('.'));
    const qsizetype punto = f.indexOf(QLatin1Char('.'));
    // A frequency with no point at all is whole megahertz.
    if (punto < 0)
        return {f, QString()};
    return {f.left(punto), f.mid(punto + 1, 4)};
}

EstadoLbNVisible EstadoLbNEdicion(const QString &lbn)
{
    const QString estado = lbn.trimmed();
    const QString si = QStringLiteral("SI");
    const QString no = QStringLiteral("NO");
    if (estado == QLatin1String("1"))
        return {si, no};
    if (estado == QLatin1String("2"))
        return {si, si};
    return {no, no};
}

QStringList ModosParaEdicion(const QString &modoFila, bool conSat)
{
    if (!conSat)
        return ModosEdicion();
    QStringList modos{QStringLiteral("SSB"), QStringLiteral("FM"), QStringLiteral("CW"),
                      QStringLiteral("Sat")};
    if (!modos.contains(modoFila))
        modos << modoFila;
    return modos;
}

std::optional<FalloGuardado> RevisarGuardado(const CamposGuardado &c)
{
    if (c.modo == QLatin1String("Sat") && c.satelite.trimmed().isEmpty())
        return FalloGuardado{QStringLiteral("Debe agregar el nombre del Satélite"), true,
                             CampoEdicion::Satelite};
    // The own station is asked first, so a correspondent equal to both gets its message.
    if (c.corresponsal == c.miSenal)
        return FalloGuardado{QStringLiteral("QSO con la propia estación??"), true,
                             CampoEdicion::Corresponsal};
    if (c.corresponsal == c.operador)
        return FalloGuardado{QStringLiteral("QSO con el Operador??"), true,
                             CampoEdicion::Corresponsal};
    if (ReporteEdicionInvalido(c.rse) == 1 || c.rse.trimmed().isEmpty())
        return FalloGuardado{QStringLiteral("Reporte incorrecto!"), false, CampoEdicion::Rse};
    if (ReporteEdicionInvalido(c.rsr) == 1 || c.rsr.trimmed().isEmpty())
        return FalloGuardado{QStringLiteral("Reporte incorrecto!"), false, CampoEdicion::Rsr};
    return std::nullopt;
}

std::optional<QString> FechaParaGuardarEdicion(const QString &texto)
{
    QString t = texto.trimmed();
    t.replace(QLatin1Char('-'), QLatin1Char('/'));
    const QDate fecha = QDate::fromString(t, QStringLiteral("d/M/yyyy"));
    if (!fecha.isValid())
        return std::nullopt;
    return fecha.toString(QStringLiteral("dd/MM/yyyy"));
}

std::optional<QString> HoraParaGuardarEdicion(const QString &texto)
{
    const QString t = texto.trimmed();
    QTime hora = QTime::fromString(t, QStringLiteral("H:m"));
    if (!hora.isValid())
        hora = QTime::fromString(t, QStringLiteral("H:m:s"));
    if (!hora.isValid())
        return std::nullopt;
    return hora.toString(QStringLiteral("HH:mm:ss"));
}

QString PreguntaEliminar(qint64 id)
{
    return QStringLiteral("Elimina el QSO #") + QString::number(id) + QLatin1Char('?') +
           FinDeLinea + FinDeLinea + QStringLiteral("Los datos no se podrán recuperar!");
}
