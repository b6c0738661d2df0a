// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/satellites/EdicionSatelites.h"

#include "core/rules/Numeros.h"

namespace {

const QString k23 = QStringLiteral("23cm");

QString MensajeFormato(const QString &banda)
{
    return banda == k23
               ? QStringLiteral("En 23 cm, el formato de la frecuencia es:\r\n\r\nMMMM.KKK")
               : QStringLiteral("El formato de la frecuencia es:\r\n\r\nMMM.KKK");
}

} // namespace

int LargoFrecuencia(const QString &banda)
{
    return banda == k23 ? 8 : 7;
}

QString RevisarFrecuencia(const QString &frecuencia, const QString &banda)
{
    if (frecuencia.isEmpty())
        return {};
    if (!frecuencia.contains(QLatin1Char('.')) || frecuencia.size() != LargoFrecuencia(banda))
        return MensajeFormato(banda);
    const QString prefijo =
        QStringLiteral("La frecuencia es ") + frecuencia + QStringLiteral("\r\n");
    const int mhz = int(NumeroInicial(frecuencia.left(banda == k23 ? 4 : 3)));
    if (banda == QLatin1String("2m") && (mhz < 144 || mhz > 148))
        return prefijo + QStringLiteral("No es de la banda de 2m!");
    if (banda == QLatin1String("70cm") && (mhz < 430 || mhz > 440))
        return prefijo + QStringLiteral("No es de la banda de 70m!");
    if (banda == k23 && mhz != 1267)
        return prefijo +
               QStringLiteral("No es de la banda de satélites en 23cm!\r\ndebe estar en 1267MHz");
    return {};
}

std::optional<RechazoSatelite> RevisarNuevoSatelite(const Satelite &s, const QStringList &nombres)
{
    using Campo = RechazoSatelite::Campo;
    if (s.nombre.trimmed().isEmpty())
        return RechazoSatelite{MensajeFaltaNombre(), Campo::Nombre};
    if (s.subida == s.bajada)
        return RechazoSatelite{QStringLiteral("Banda de Subida igual a la de Bajada ?"),
                               Campo::Bajada};
    // A 23 cm satellite needs its frequency; any other may go without one.
    if (s.subida == k23 && !s.frecuencia.contains(QLatin1Char('.')))
        return RechazoSatelite{MensajeFormato(k23), Campo::Frecuencia};
    if (const QString m = RevisarFrecuencia(s.frecuencia, s.subida); !m.isEmpty())
        return RechazoSatelite{m, Campo::Frecuencia};
    const QString nombre = s.nombre.trimmed();
    for (const QString &otro : nombres)
        if (otro.trimmed().compare(nombre, Qt::CaseInsensitive) == 0)
            return RechazoSatelite{QStringLiteral("el satélite ") + s.nombre +
                                       QStringLiteral(" ya está en la lista!"),
                                   Campo::Ninguno};
    return std::nullopt;
}
