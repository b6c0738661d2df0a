// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/rules/Bandas.h"

#include "core/rules/Numeros.h"

#include <cmath>

namespace {

bool Entre(double valor, double desde, double hasta)
{
    return valor >= desde && valor <= hasta;
}

// The entry table: the value must be a whole number of MHz, one of those listed.
QString BandaDeMhzEntero(double mhz)
{
    struct Fila
    {
        int desde;
        int hasta;
        const char16_t *banda;
    };
    static const Fila tabla[] = {
        {1, 1, u"160m"},      {3, 3, u"80m"},      {5, 5, u"60m"},   {7, 7, u"40m"},
        {10, 10, u"30m"},     {14, 14, u"20m"},    {18, 18, u"17m"}, {21, 21, u"15m"},
        {24, 24, u"12m"},     {28, 29, u"10m"},    {50, 54, u"6m"},  {144, 147, u"2m"},
        {220, 224, u"1.25m"}, {430, 443, u"70cm"},
    };
    if (mhz != std::floor(mhz))
        return {};
    for (const Fila &fila : tabla) {
        if (Entre(mhz, fila.desde, fila.hasta))
            return QString::fromUtf16(fila.banda);
    }
    return {};
}

} // namespace

BandaDerivada DerivarBanda(const QString &mhz, const QString &khz, VentanaBanda ventana,
                           bool iniciando)
{
    const double valorMhz = NumeroInicial(mhz);
    const double valorKhz = NumeroInicial(khz);
    BandaDerivada resultado;
    resultado.banda = BandaDeMhzEntero(valorMhz);
    if (ventana == VentanaBanda::Principal && iniciando)
        return resultado;
    if (valorMhz == 1267)
        resultado.banda =
            ventana == VentanaBanda::Principal ? QStringLiteral("23cm") : QStringLiteral("23m");
    // Only these three segments are checked; every other band takes any kilohertz.
    const QString &b = resultado.banda;
    resultado.fueraDeBanda = (b == u"80m" && valorKhz < 500) || (b == u"30m" && valorKhz > 250) ||
                             (b == u"12m" && valorKhz < 900);
    if (resultado.fueraDeBanda)
        resultado.mensaje = mhz + u'.' + khz + QStringLiteral(" KHz\r\n\r\nFuera de banda!");
    return resultado;
}

QString BandaDeMhz(const QString &mhzDecimal)
{
    struct Fila
    {
        double desde;
        double hasta;
        const char16_t *banda;
    };
    static const Fila tabla[] = {
        {1, 2, u"160m"},     {3, 4, u"80m"},   {5, 6, u"60m"},   {7, 8, u"40m"},
        {10, 11, u"30m"},    {14, 15, u"20m"}, {18, 19, u"17m"}, {21, 22, u"15m"},
        {24, 25, u"12m"},    {28, 30, u"10m"}, {50, 55, u"6m"},  {144, 148, u"2m"},
        {430, 440, u"70cm"},
    };
    const double mhz = NumeroInicial(mhzDecimal);
    for (const Fila &fila : tabla) {
        if (Entre(mhz, fila.desde, fila.hasta))
            return QString::fromUtf16(fila.banda);
    }
    return {};
}

QString FrecuenciaDeBanda(const QString &banda)
{
    struct Fila
    {
        double numero;
        const char16_t *frecuencia;
    };
    static const Fila tabla[] = {
        {160, u"1.820"}, {80, u"3.600"},  {60, u"5.100"},   {40, u"7.100"},  {30, u"10.100"},
        {20, u"14.100"}, {17, u"18.100"}, {15, u"21.100"},  {12, u"24.900"}, {10, u"28.500"},
        {6, u"52.000"},  {2, u"145.000"}, {70, u"435.100"},
    };
    const double numero = NumeroInicial(banda);
    for (const Fila &fila : tabla) {
        if (numero == fila.numero)
            return QString::fromUtf16(fila.frecuencia);
    }
    return {};
}

QString RellenarKhz(const QString &khz)
{
    if (khz.size() >= 3)
        return khz;
    return QString(3 - khz.size(), u'0') + khz;
}

const QStringList &ModosPrincipal()
{
    static const QStringList modos = {QStringLiteral("SSB"), QStringLiteral("FM"),
                                      QStringLiteral("CW"), QStringLiteral("DVoice")};
    return modos;
}

const QStringList &ListaMhz()
{
    static const QStringList lista = {
        QStringLiteral("1"),   QStringLiteral("3"),   QStringLiteral("5"),   QStringLiteral("7"),
        QStringLiteral("10"),  QStringLiteral("14"),  QStringLiteral("18"),  QStringLiteral("21"),
        QStringLiteral("24"),  QStringLiteral("28"),  QStringLiteral("29"),  QStringLiteral("50"),
        QStringLiteral("51"),  QStringLiteral("52"),  QStringLiteral("53"),  QStringLiteral("54"),
        QStringLiteral("144"), QStringLiteral("145"), QStringLiteral("146"), QStringLiteral("147"),
        QStringLiteral("430"), QStringLiteral("431"), QStringLiteral("432"), QStringLiteral("433"),
        QStringLiteral("434"), QStringLiteral("435"), QStringLiteral("436"), QStringLiteral("437"),
        QStringLiteral("438"), QStringLiteral("439")};
    return lista;
}

const QStringList &ListaBandas()
{
    static const QStringList bandas = {
        QStringLiteral("160m"), QStringLiteral("80m"), QStringLiteral("60m"), QStringLiteral("40m"),
        QStringLiteral("30m"),  QStringLiteral("20m"), QStringLiteral("17m"), QStringLiteral("15m"),
        QStringLiteral("12m"),  QStringLiteral("10m"), QStringLiteral("6m"),  QStringLiteral("2m"),
        QStringLiteral("70cm")};
    return bandas;
}

const QStringList &ModosEdicion()
{
    static const QStringList modos = {QStringLiteral("SSB"), QStringLiteral("CW"),
                                      QStringLiteral("FM")};
    return modos;
}
