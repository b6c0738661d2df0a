#include "core/adif/Busqueda.h"

#include "core/rules/Numeros.h"
#include "core/rules/Senales.h"
#include "core/store/Almacen.h"

#include <QDate>
#include <QSet>
#include <algorithm>

namespace {

QDate LeerFecha(const QString &texto)
{
    return QDate::fromString(texto.trimmed(), QStringLiteral("d/M/yyyy"));
}

bool PasaOpciones(const FilaQSO &f, const FiltrosBusqueda &filtros)
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

Resultado<QVector<FilaQSO>> BuscarQSOsFiltrados(Almacen &almacen, const QString &log,
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
    QVector<FilaQSO> filas = almacen.ExportarQSOs(log, f);
    if (filtros.soloArgentinos)
        filas.removeIf([&](const FilaQSO &fila) { return !PasaOpciones(fila, filtros); });
    return filas;
}

QStringList Distintos(const QVector<FilaQSO> &filas, QString FilaQSO::*columna)
{
    QSet<QString> vistos;
    QStringList valores;
    for (const FilaQSO &f : filas) {
        const QString &v = f.*columna;
        if (!v.isEmpty() && !vistos.contains(v)) {
            vistos.insert(v);
            valores << v;
        }
    }
    std::sort(valores.begin(), valores.end(), [](const QString &a, const QString &b) {
        return a.compare(b, Qt::CaseInsensitive) < 0;
    });
    return valores;
}
