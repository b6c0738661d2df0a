// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/platform/ClienteWebQt.h"

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QPointer>
#include <QRegularExpression>
#include <QStringDecoder>
#include <QTimer>

namespace {

const char *const kAgotado = "radiologTiempoAgotado";

QByteArray CharsetDeclarado(const QByteArray &cuerpo, const QByteArray &tipoContenido)
{
    static const QRegularExpression enCabecera(
        QStringLiteral(R"(charset\s*=\s*["']?([A-Za-z0-9._:-]+))"),
        QRegularExpression::CaseInsensitiveOption);
    auto m = enCabecera.match(QString::fromLatin1(tipoContenido));
    if (m.hasMatch())
        return m.captured(1).toLatin1();

    // Old pages say it only inside: <?xml encoding="..."?> or <meta ... charset=...>.
    static const QRegularExpression enPagina(
        QStringLiteral(
            R"((?:<\?xml[^>]*encoding|<meta[^>]*charset)\s*=\s*["']?([A-Za-z0-9._:-]+))"),
        QRegularExpression::CaseInsensitiveOption);
    m = enPagina.match(QString::fromLatin1(cuerpo.left(1024)));
    if (m.hasMatch())
        return m.captured(1).toLatin1();
    return {};
}

QString ComoWindows1252(const QByteArray &cuerpo)
{
    QStringDecoder decodificador("windows-1252");
    if (!decodificador.isValid())
        return QString::fromLatin1(cuerpo);
    return decodificador.decode(cuerpo);
}

} // namespace

QString DecodificarCuerpo(const QByteArray &cuerpo, const QByteArray &tipoContenido)
{
    const QByteArray charset = CharsetDeclarado(cuerpo, tipoContenido).toLower();

    // Servers that say Latin-1 (or plain ASCII) mostly send Windows-1252: the curly
    // quotes and the euro of 0x80..0x9F are meant, never control characters.
    static const QByteArrayList latinos = {"iso-8859-1", "iso8859-1",    "iso_8859-1", "latin1",
                                           "latin-1",    "l1",           "cp819",      "us-ascii",
                                           "ascii",      "windows-1252", "cp1252",     "x-cp1252"};
    if (latinos.contains(charset))
        return ComoWindows1252(cuerpo);

    if (!charset.isEmpty() && charset != "utf-8" && charset != "utf8") {
        QStringDecoder otro(charset.constData(), QStringConverter::Flag::Stateless);
        if (otro.isValid()) {
            QString texto = otro.decode(cuerpo);
            if (!otro.hasError())
                return texto;
        }
    }

    // Stateless: a sequence cut off at the end of the page is an error too, not a state
    // kept for bytes that will never come (a last lone byte of Windows-1252 text).
    QStringDecoder utf8(QStringDecoder::Utf8, QStringConverter::Flag::Stateless);
    QString texto = utf8.decode(cuerpo);
    if (utf8.hasError())
        return ComoWindows1252(cuerpo);
    return texto;
}

ClienteWebQt::ClienteWebQt(QObject *parent)
    : ClienteWeb(parent)
    , red_(new QNetworkAccessManager(this))
{}

ClienteWebQt::~ClienteWebQt()
{
    // Requests in flight end here without an answer: whoever asked is going away too.
    const auto enCurso = enCurso_.keys();
    enCurso_.clear();
    for (QNetworkReply *respuesta : enCurso) {
        disconnect(respuesta, nullptr, this, nullptr);
        respuesta->abort();
    }
    // A listener may delete the client on its answer, inside the reply's own signal: that
    // reply must outlive the call, so the manager goes at the next turn of the loop.
    if (respondiendo_ > 0) {
        red_->setParent(nullptr);
        red_->deleteLater();
    }
}

quint64 ClienteWebQt::Pedir(const QUrl &direccion, int tiempoMaximoMs)
{
    const quint64 numero = ++ultimoPedido_;
    QNetworkRequest pedido(direccion);
    // Every answer is read fresh: the services change their replies from one call to the next.
    pedido.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
    QNetworkReply *respuesta = red_->get(pedido);
    enCurso_.insert(respuesta, numero);

    // The time-out bounds the whole request, not only a pause in the transfer.
    auto *reloj = new QTimer(respuesta);
    reloj->setSingleShot(true);
    connect(reloj, &QTimer::timeout, this, [respuesta] {
        respuesta->setProperty(kAgotado, true);
        respuesta->abort();
    });
    reloj->start(qMax(1, tiempoMaximoMs));

    connect(respuesta, &QNetworkReply::finished, this, [this, respuesta] { Terminado(respuesta); });
    return numero;
}

void ClienteWebQt::Terminado(QNetworkReply *respuesta)
{
    const auto it = enCurso_.constFind(respuesta);
    if (it == enCurso_.constEnd())
        return;
    const quint64 numero = it.value();
    enCurso_.erase(it);
    respuesta->deleteLater();

    RespuestaWeb r;
    const int estado = respuesta->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    if (respuesta->property(kAgotado).toBool()) {
        r.resultado = RespuestaWeb::Resultado::TiempoAgotado;
    } else {
        const bool bien = respuesta->error() == QNetworkReply::NoError && estado < 400;
        r.resultado = bien ? RespuestaWeb::Resultado::Bien : RespuestaWeb::Resultado::Fallo;
        r.estado = estado;
        // A server's own error page is still its answer: the caller may show it.
        r.texto = DecodificarCuerpo(respuesta->readAll(), respuesta->rawHeader("Content-Type"));
    }
    const QPointer<ClienteWebQt> vivo(this);
    ++respondiendo_; // answers nest when a listener pumps events
    Q_EMIT Respondido(numero, r);
    if (vivo)
        --respondiendo_;
}
