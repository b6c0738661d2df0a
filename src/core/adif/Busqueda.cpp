// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/adif/Busqueda.h"

#include "core/rules/Numeros.h"
#include "core/rules/Senales.h"
#include "core/store/Almacen.h"

#include <QDate>

namespace {

QDate LeerFecha(const QString &texto)
{
    return QDate::fromString(texto.trimmed(), QStringLiteral("d/M/yyyy"));
}

bool PasaOpciones(const Almacen::QSOEncontrado &f, const FiltrosBusqueda &filtros)
{
    if (!filtros.soloArgentinos)
        return true;
    QString senal = f.Estacion;
    if (ProvinciaDeSenal(senal).value_or(QString()).isEmpty())
        return false;
    const double estado = NumeroInicial(f.LbN);
    switch (filtros.lbn) {
    case OpcionLbN::NoSubidos:
        return estado == 0;
    case OpcionLbN::Subidos:
    case OpcionLbN::Confirmados:
        return estado == 1;
    case OpcionLbN::Todos:
        break;
    }
    return true;
}

} // namespace

bool FechaFiltroValida(const QString &texto)
{
    return texto.trimmed().isEmpty() || LeerFecha(texto).isValid();
}

QString BandaFiltro(const QString &texto)
{
    QString banda = texto.toUpper().trimmed();
    if (!banda.isEmpty() && !banda.contains(QLatin1Char('M')))
        banda += QLatin1Char('M');
    return banda;
}

Resultado<QVector<qint64>> BuscarQSOsFiltrados(Almacen &almacen, const QString &log,
                                               const FiltrosBusqueda &filtros)
{
    if (!FechaFiltroValida(filtros.desde) || !FechaFiltroValida(filtros.hasta))
        return Fallo{MensajeFechaFiltro()};
    Almacen::FiltroExportacion f;
    f.myCall = filtros.senal;
    f.operador = filtros.operador;
    f.estacion = filtros.corresponsal;
    f.modo = filtros.modo;
    f.banda = filtros.banda;
    f.obs = filtros.observaciones;
    f.desde = LeerFecha(filtros.desde);
    f.hasta = LeerFecha(filtros.hasta);
    f.soloSatelite = filtros.satelite;
    QVector<qint64> ids;
    for (const Almacen::QSOEncontrado &encontrado : almacen.ExportarQSOs(log, f))
        if (PasaOpciones(encontrado, filtros))
            ids.append(encontrado.id);
    return ids;
}
