// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/contest/Concurso.h"

#include "core/rules/Numeros.h"
#include "core/store/Almacen.h"

namespace {

const QString FinDeLinea = QStringLiteral("\r\n");

} // namespace

std::optional<QString> ConcursoRepetido(Almacen &almacen, const QString &nombre)
{
    if (!almacen.ExisteLogConcurso(nombre))
        return std::nullopt;
    return QStringLiteral("Ya existe un concurso creado con el nombre ") + nombre + FinDeLinea +
           FinDeLinea + QStringLiteral("Elija otro nombre!");
}

Resultado<qint64> FundarConcurso(Almacen &almacen, const QString &nombre, const QString &tipo)
{
    FilaConcurso f;
    f.NombreLog = nombre;
    f.LbN = nombre;
    f.Nombre_Sat = tipo;
    return almacen.AgregarQSOConcurso(f);
}

QString SerieSiguiente(const std::optional<QString> &ultima)
{
    const double siguiente = (ultima ? NumeroInicial(*ultima) : 0.0) + 1.0;
    // Whole numbers without a decimal point; a serial typed as "2.5" goes on as "3.5".
    return QString::number(siguiente, 'g', 15);
}

QString SerieParaBanda(Almacen &almacen, const QString &concurso, const QString &modo,
                       const QString &banda)
{
    return SerieSiguiente(almacen.UltimaSerieConcurso(concurso, modo, banda));
}

ArranqueConcurso ArrancarConcurso(Almacen &almacen, const QString &concurso, const QString &tipo,
                                  const QString &serieFija, const QString &banda,
                                  const QString &modo)
{
    ArranqueConcurso a{banda, modo, {}};
    if (const auto ultima = almacen.UltimaFilaConcurso(concurso)) {
        if (!ultima->Banda.isEmpty())
            a.banda = ultima->Banda;
        if (!ultima->Modo.isEmpty())
            a.modo = ultima->Modo;
    }
    a.rse = tipo == SerieFija() ? serieFija : SerieParaBanda(almacen, concurso, a.modo, a.banda);
    return a;
}

bool EsDuplicadoConcurso(Almacen &almacen, const QString &concurso, const QString &senal,
                         const QString &modo, const QString &banda)
{
    const QString buscado = modo == u"PH" ? QStringLiteral("SSB") : modo;
    return almacen.ExisteQSOConcurso(concurso, senal, buscado, banda);
}

std::optional<FaltaConcurso> ValidaConcurso(const EntradaConcurso &e)
{
    const std::pair<const QString *, FaltaConcurso> campos[] = {
        {&e.senalPropia,
         {CampoConcurso::SenalPropia, QStringLiteral("Falta su Señal Distintiva!")}},
        {&e.fecha, {CampoConcurso::Fecha, QStringLiteral("Falta la Fecha!")}},
        {&e.hora, {CampoConcurso::Hora, QStringLiteral("Falta el QTR!")}},
        {&e.corresponsal, {CampoConcurso::Corresponsal, QStringLiteral("Falta el Corresponsal!")}},
        {&e.rse, {CampoConcurso::Rse, QStringLiteral("Falta la Serie Enviada")}},
        {&e.rsr, {CampoConcurso::Rsr, QStringLiteral("Falta la Serie Recibida")}},
    };
    for (const auto &[valor, falta] : campos)
        if (valor->isEmpty())
            return falta;
    return std::nullopt;
}

FilaEntrada FilaDeEntrada(const EntradaConcurso &e, const QString &concurso, const QString &tipo)
{
    FilaEntrada r;
    // Typed dates and times reach here unchecked when the operator presses Enter without
    // leaving the field: what cannot be read is refused, never stored as nonsense.
    const QDateTime momento = LeerMomento(e.fecha, e.hora);
    if (!momento.isValid()) {
        if (!LeerMomento(e.fecha, QStringLiteral("00:00")).isValid())
            r.falta = FaltaConcurso{CampoConcurso::Fecha, MensajeFechaConcurso(e.fecha)};
        else
            r.falta = FaltaConcurso{CampoConcurso::Hora, MensajeHoraConcurso(e.hora)};
        return r;
    }
    FilaConcurso &f = r.fila;
    f.Estacion = e.corresponsal;
    f.Banda = e.banda;
    f.Modo = e.modo;
    f.RSE = e.rse;
    f.RSR = e.rsr;
    f.Fecha = momento.toString(QStringLiteral("yyyyMMdd"));
    f.Hora = momento.toString(QStringLiteral("HHmm"));
    f.MyCall = e.senalPropia;
    f.NombreLog = concurso;
    f.Frecuencia = QString(e.mhz + e.khz).remove(u'.');
    f.LbN = concurso;
    f.Nombre_Sat = tipo;
    return r;
}

QString ReporteConcurso(const QString &modo)
{
    return modo == u"SSB" || modo == u"FM" ? QStringLiteral("59") : QStringLiteral("599");
}

std::optional<QString> BandaDeMhzConcurso(const QString &mhz)
{
    static const std::pair<const char16_t *, const char16_t *> tabla[] = {
        {u"1", u"160m"}, {u"3", u"80m"},  {u"7", u"40m"},
        {u"14", u"20m"}, {u"21", u"15m"}, {u"28", u"10m"},
    };
    for (const auto &[m, banda] : tabla)
        if (mhz == m)
            return QString::fromUtf16(banda);
    return std::nullopt;
}

QString MensajeFechaConcurso(const QString &texto)
{
    return QStringLiteral("la Fecha ") + texto + QStringLiteral(" no es válida!") + FinDeLinea +
           QStringLiteral("Formato: dd/mm/aaaa");
}

QString MensajeHoraConcurso(const QString &texto)
{
    return QStringLiteral("la Hora ") + texto + QStringLiteral(" no es válida!") + FinDeLinea +
           QStringLiteral("Formato: hh:mm");
}

RevisionCampo RevisarFechaConcurso(const QString &texto)
{
    const QString corregido = CorregirAnioFecha(texto);
    return {corregido, FechaInvalida(corregido) ? MensajeFechaConcurso(corregido) : QString()};
}

RevisionCampo RevisarHoraConcurso(const QString &texto)
{
    const QString formateado = FormatearHora(texto);
    return {formateado, HoraInvalida(formateado) ? MensajeHoraConcurso(formateado) : QString()};
}

QString PreguntaSerieUno()
{
    return QStringLiteral("Serie Incremental y cambia de modo ...") + FinDeLinea +
           QStringLiteral("Comienza por serie 1?");
}

QString PreguntaEliminarConcurso(const QString &nombre)
{
    return QStringLiteral("Elimina log ") + nombre + QStringLiteral("?");
}
