// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/nationallog/EnviosLbN.h"

#include "core/rules/Numeros.h"

#include <QRegularExpression>

namespace {

QString FechaLbN(QString fecha)
{
    return fecha.replace(QLatin1Char('-'), QLatin1Char('/'))
        .replace(QLatin1Char(' '), QLatin1Char('/'));
}

} // namespace

QString BandaDeFrecuenciaVieja(const QString &banda)
{
    // Whole-text forms, the digits of kilohertz and hundreds of hertz after the megahertz.
    static const std::pair<QRegularExpression, const char *> formas[] = {
        {QRegularExpression(QStringLiteral(R"(^1\.\d{3}\.\d$)")), "160m"},
        {QRegularExpression(QStringLiteral(R"(^3\.\d{3}\.\d$)")), "80m"},
        {QRegularExpression(QStringLiteral(R"(^7\.\d{3}\.\d$)")), "40m"},
        {QRegularExpression(QStringLiteral(R"(^10\.\d{3}\.\d$)")), "30m"},
        {QRegularExpression(QStringLiteral(R"(^14\.\d{3}\.\d$)")), "20m"},
        {QRegularExpression(QStringLiteral(R"(^18\.\d{3}\.\d$)")), "17m"},
        {QRegularExpression(QStringLiteral(R"(^21\.\d{3}\.\d$)")), "15m"},
        {QRegularExpression(QStringLiteral(R"(^24\.\d{3}\.\d$)")), "12m"},
        {QRegularExpression(QStringLiteral(R"(^28\.\d{3}\.\d$)")), "10m"},
        {QRegularExpression(QStringLiteral(R"(^5\d\.\d{3}\.\d$)")), "6m"},
        {QRegularExpression(QStringLiteral(R"(^14\d\.\d{3}\.\d$)")), "2m"},
    };
    for (const auto &[forma, nombre] : formas)
        if (forma.match(banda).hasMatch())
            return QString::fromLatin1(nombre);
    return {};
}

QString BandaDeMhzBusqueda(int mhz)
{
    struct Tramo
    {
        int desde, hasta;
        const char *banda;
    };
    static constexpr Tramo tramos[] = {{1, 1, "160m"},  {3, 3, "80m"},    {7, 7, "40m"},
                                       {10, 10, "30m"}, {14, 14, "20m"},  {18, 18, "17m"},
                                       {21, 21, "15m"}, {24, 24, "12m"},  {28, 29, "10m"},
                                       {50, 55, "6m"},  {144, 148, "2m"}, {430, 450, "70cm"}};
    for (const Tramo &t : tramos)
        if (mhz >= t.desde && mhz <= t.hasta)
            return QString::fromLatin1(t.banda);
    return {};
}

PreparacionCorrida PrepararCorrida(const QVector<FilaQSO> &filas, TipoCorrida tipo)
{
    PreparacionCorrida p;
    QString banda; // an old row with no band of its own keeps the one before
    for (const FilaQSO &f : filas) {
        if (f.Estacion.isEmpty())
            continue;
        ++p.delLog;
        if (static_cast<int>(NumeroInicial(f.LbN)) == 2) {
            ++p.confirmados;
            continue;
        }
        if (f.Estacion.contains(QLatin1String("/MM")) ||
            f.Estacion.contains(QLatin1String("/MA"))) {
            ++p.moviles;
            continue;
        }
        // The province as stored decides: the callsign is not read again here.
        if (f.Argento.trimmed().isEmpty()) {
            ++p.noArgentinos;
            continue;
        }
        if (!p.senalesPropias.contains(f.MyCall))
            p.senalesPropias << f.MyCall;
        if (f.Banda.contains(QLatin1Char('m'))) {
            banda = f.Banda;
        } else {
            const QString vieja = BandaDeFrecuenciaVieja(f.Banda);
            if (!vieja.isEmpty())
                banda = vieja;
        }
        EnvioLbN e;
        e.id = f.id;
        e.qso = {f.MyCall,
                 f.Estacion,
                 banda,
                 f.Nombre_Sat.isEmpty() ? f.Modo : QStringLiteral("Sat"),
                 FechaLbN(f.Fecha),
                 QString(f.Hora).remove(QLatin1Char(':')).left(4),
                 f.RSE};
        p.envios << e;
    }
    p.aEnviar = p.envios.size();
    if (tipo == TipoCorrida::SubirYChequear && p.aEnviar > kLimiteSubirYChequear) {
        p.envios.resize(kLimiteSubirYChequear);
        p.limitada = true;
    }
    return p;
}

QString MensajeSinEnvios(const PreparacionCorrida &p, const QString &log)
{
    if (p.delLog == 0 && p.confirmados == 0)
        return QStringLiteral("No hay QSOs en el log ") + log;
    if (p.aEnviar == 0 && p.confirmados == 0)
        return QStringLiteral("No hay estaciones argentinas en\r\nLog: ") + log;
    if (p.aEnviar == 0)
        return QStringLiteral("No hay estaciones argentinas que no se hayan subido a LbN en\r\n"
                              "Log: ") +
               log;
    return {};
}

QString PreguntaCorrida(const PreparacionCorrida &p, const QString &log)
{
    const QString n = QString::number(p.senalesPropias.size());
    const QString lista = p.senalesPropias.join(QLatin1Char(' '));
    const QString senales = p.senalesPropias.size() == 1
                                ? QStringLiteral("Call: ") + lista + QStringLiteral("\r\n")
                                : n + QStringLiteral(" Calls: ") + lista +
                                      QStringLiteral("\r\nAquellos Alias de los ") + n +
                                      QStringLiteral(" que no estén registrados en LbN") +
                                      QStringLiteral(" No serán subidos.\r\n\r\n");
    const QString limite = p.limitada ? QStringLiteral("Se Tienen ") + QString::number(p.aEnviar) +
                                            QStringLiteral(" QSOs, se enviarán solo los ") +
                                            QString::number(kLimiteSubirYChequear) +
                                            QStringLiteral(" primeros\r\n")
                                      : QString();
    return QStringLiteral("log ") + log + QStringLiteral(" con ") +
           QString::number(p.aEnviar + p.moviles + p.noArgentinos) +
           QStringLiteral(" QSO(s)\r\n\r\nEstaciones NO Argentinas: ") +
           QString::number(p.noArgentinos) + QStringLiteral("\r\nEstaciones Móviles: ") +
           QString::number(p.moviles) + QStringLiteral("\r\n\r\n") + senales + limite +
           QStringLiteral("Sube a LbN el log ") + log + QStringLiteral(" con ") +
           QString::number(p.envios.size()) + QStringLiteral(" QSO(s)?");
}

QVector<EnvioLbN> EnviosDeBusqueda(const QVector<FilaQSO> &filas, bool usarComentarioComoQslmsg)
{
    QVector<EnvioLbN> envios;
    envios.reserve(filas.size());
    QString banda;
    for (const FilaQSO &f : filas) {
        const QString deMhz = BandaDeMhzBusqueda(static_cast<int>(NumeroInicial(f.Frecuencia)));
        if (!deMhz.isEmpty())
            banda = deMhz;
        QString modo = f.Modo == QLatin1String("DVoice") ? QStringLiteral("DV") : f.Modo;
        if (!f.Nombre_Sat.isEmpty())
            modo = QStringLiteral("Sat");
        EnvioLbN e;
        e.id = f.id;
        // The time to the minute: "hh:mm" of "hh:mm:ss".
        e.qso = {f.MyCall, f.Estacion,        banda,
                 modo,     FechaLbN(f.Fecha), QString(f.Hora.left(5)).remove(QLatin1Char(':')),
                 f.RSE};
        e.qslMsg = usarComentarioComoQslmsg ? f.Obs : QString();
        envios << e;
    }
    return envios;
}
