// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/adif/Duplicados.h"

#include "core/rules/Numeros.h"
#include "core/rules/Validacion.h"
#include "core/store/Almacen.h"

namespace {

// Minutes since the start of the Julian calendar, seconds dropped. The forms the store and the
// import give, "dd/mm/yyyy" and "hh:mm[:ss]", are read here at once: every candidate of every QSO
// imported passes.
std::optional<qint64> Minuto(const QString &fecha, const QString &hora)
{
    if (fecha.size() == 10 && fecha[2] == u'/' && fecha[5] == u'/' &&
        (hora.size() == 5 || (hora.size() == 8 && hora[5] == u':')) && hora[2] == u':') {
        const QDate dia(Digitos(fecha, 6, 4), Digitos(fecha, 3, 2), Digitos(fecha, 0, 2));
        const int h = Digitos(hora, 0, 2), m = Digitos(hora, 3, 2);
        if (dia.isValid() && h >= 0 && h < 24 && m >= 0 && m < 60)
            return dia.toJulianDay() * 1440 + h * 60 + m;
    }
    const QDateTime momento = LeerMomento(fecha, hora);
    if (!momento.isValid())
        return std::nullopt;
    const QTime t = momento.time();
    return momento.date().toJulianDay() * 1440 + t.hour() * 60 + t.minute();
}

} // namespace

std::optional<qint64> BuscarDuplicado(Almacen &almacen, const QString &log, const RegistroQSO &qso)
{
    if (qso.Fecha.isEmpty())
        return std::nullopt;
    const std::optional<qint64> nuevo = Minuto(qso.Fecha, qso.Hora);
    if (!nuevo)
        return std::nullopt;
    for (const Almacen::MomentoQSO &fila :
         almacen.MomentosCandidatos(log, qso.Modo, qso.Banda, qso.MyCall, qso.Estacion)) {
        const std::optional<qint64> guardado = Minuto(fila.Fecha, fila.Hora);
        if (guardado && std::abs(*guardado - *nuevo) < 10)
            return fila.id;
    }
    return std::nullopt;
}
