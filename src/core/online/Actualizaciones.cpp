// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/online/Actualizaciones.h"

#include "core/platform/ArchivoTexto.h"
#include "core/platform/ClienteWeb.h"
#include "core/rules/Numeros.h"

#include <QDir>
#include <QUrl>

namespace {

// A first line longer than this is no version but a page sent by mistake: it is cut in the
// box so that the box still fits on the screen.
constexpr qsizetype kLargoMostrado = 60;

QString Mostrable(const QString &version)
{
    return version.size() <= kLargoMostrado ? version
                                            : version.left(kLargoMostrado) + QChar(0x2026);
}

} // namespace

std::optional<PartesVersion> PartirVersion(const QString &texto)
{
    const qsizetype punto = texto.indexOf(QLatin1Char('.'));
    if (punto < 0)
        return std::nullopt;
    const QString resto = texto.mid(punto + 1, 10);
    const qsizetype segundo = resto.indexOf(QLatin1Char('.'));
    if (segundo < 0)
        return std::nullopt;
    return PartesVersion{NumeroInicial(texto.left(punto)), NumeroInicial(resto.left(segundo)),
                         NumeroInicial(resto.mid(segundo + 1))};
}

bool DebeActualizar(const PartesVersion &propia, const PartesVersion &web)
{
    bool vieja = false;
    if (propia.primera < web.primera)
        vieja = true;
    if (propia.segunda < web.segunda)
        vieja = true;
    if (propia.tercera < web.tercera)
        vieja = true;
    return vieja;
}

QString MensajeVersion(const QString &propia, const QString &web)
{
    const std::optional<PartesVersion> p = PartirVersion(propia), w = PartirVersion(web);
    if (!p || !w)
        return {};
    return QStringLiteral("Su versión: ") + propia + QStringLiteral("\r\nen la Web: ") +
           Mostrable(web) + QStringLiteral("\r\n\r\n") +
           (DebeActualizar(*p, *w) ? QStringLiteral("debe actualizar!")
                                   : QStringLiteral("está actualizado"));
}

Resultado<QString> LeerRespuestaVersion(const RespuestaWeb &respuesta, const QString &sitio,
                                        const QString &carpeta, const QString &versionPrograma)
{
    const QString titulo = QStringLiteral("No se pudo consultar la versión publicada en la Web.");
    const QString host = QUrl(sitio).host().isEmpty() ? sitio : QUrl(sitio).host();
    if (respuesta.resultado == RespuestaWeb::Resultado::TiempoAgotado)
        return Fallo{titulo +
                     QStringLiteral("\r\n\r\nEl sitio %1 no respondió a tiempo.").arg(host)};
    if (!respuesta.Ok()) {
        if (respuesta.estado >= 400)
            return Fallo{titulo + QStringLiteral("\r\n\r\nEl sitio %1 respondió con el error %2.")
                                      .arg(host)
                                      .arg(respuesta.estado)};
        return Fallo{titulo +
                     QStringLiteral("\r\n\r\nNo se pudo conectar con el sitio %1.").arg(host)};
    }

    // The reply goes to webo.txt as it came, and its first line is read back from there.
    const QString webo = QDir(carpeta).filePath(QStringLiteral("webo.txt"));
    if (const Resultado<> escrito = EscribirLineas(webo, {respuesta.texto}); !escrito)
        return Fallo{escrito.Mensaje()};
    const Resultado<QStringList> leido = LeerLineas(webo);
    if (!leido)
        return Fallo{leido.Mensaje()};
    return MensajeVersion(versionPrograma, leido->value(0));
}

ChequeoVersion::ChequeoVersion(ClienteWeb &web, QString sitio, QString carpeta,
                               QString versionPrograma, int tiempoMaximoMs, QObject *parent)
    : QObject(parent)
    , web_(web)
    , sitio_(std::move(sitio))
    , carpeta_(std::move(carpeta))
    , version_(std::move(versionPrograma))
    , tiempoMaximoMs_(tiempoMaximoMs)
{
    connect(&web_, &ClienteWeb::Respondido, this,
            [this](quint64 pedido, const RespuestaWeb &respuesta) {
                // While Pedir runs the number is not known yet: a client that answers at once
                // can only be answering this request.
                if (!esperando_ || (pedido_ != 0 && pedido != pedido_))
                    return;
                esperando_ = false;
                pedido_ = 0;
                const auto alTerminar = std::move(alTerminar_);
                alTerminar_ = nullptr;
                const Resultado<QString> r =
                    LeerRespuestaVersion(respuesta, sitio_, carpeta_, version_);
                if (alTerminar)
                    alTerminar(r);
            });
}

void ChequeoVersion::Consultar(std::function<void(const Resultado<QString> &)> alTerminar)
{
    if (EnCurso())
        return;
    alTerminar_ = std::move(alTerminar);
    esperando_ = true;
    pedido_ = 0;
    const quint64 numero = web_.Pedir(QUrl(sitio_ + Ruta()), tiempoMaximoMs_);
    if (esperando_)
        pedido_ = numero;
}
