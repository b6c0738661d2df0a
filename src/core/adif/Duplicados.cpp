#include "core/adif/Duplicados.h"

#include "core/rules/Validacion.h"
#include "core/store/Almacen.h"

namespace {

// Minutes since the epoch, seconds dropped.
std::optional<qint64> Minuto(const QString &fecha, const QString &hora)
{
    const QDateTime momento = LeerMomento(fecha, hora);
    if (!momento.isValid())
        return std::nullopt;
    const qint64 segundos = momento.toSecsSinceEpoch();
    return segundos >= 0 ? segundos / 60 : -((59 - segundos) / 60);
}

} // namespace

std::optional<qint64> MinutosEntre(const QString &fecha1, const QString &hora1,
                                   const QString &fecha2, const QString &hora2)
{
    const std::optional<qint64> a = Minuto(fecha1, hora1), b = Minuto(fecha2, hora2);
    if (!a || !b)
        return std::nullopt;
    return *b - *a;
}

std::optional<qint64> BuscarDuplicado(Almacen &almacen, const QString &log, const RegistroQSO &qso)
{
    if (qso.Fecha.isEmpty())
        return std::nullopt;
    const std::optional<qint64> nuevo = Minuto(qso.Fecha, qso.Hora);
    if (!nuevo)
        return std::nullopt;
    for (const FilaQSO &fila :
         almacen.Candidatos(log, qso.Modo, qso.Banda, qso.MyCall, qso.Estacion)) {
        const std::optional<qint64> guardado = Minuto(fila.Fecha, fila.Hora);
        if (guardado && std::abs(*guardado - *nuevo) < 10)
            return fila.id;
    }
    return std::nullopt;
}
