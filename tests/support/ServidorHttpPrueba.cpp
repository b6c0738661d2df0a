// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/ServidorHttpPrueba.h"

#include <QTcpSocket>
#include <QTest>

ServidorHttpPrueba::ServidorHttpPrueba(QObject *parent)
    : QObject(parent)
{
    connect(&servidor_, &QTcpServer::newConnection, this, &ServidorHttpPrueba::Conexion);
    servidor_.listen(QHostAddress::LocalHost, 0);
}

bool ServidorHttpPrueba::EsperarPedidos(int n, int esperaMaxMs)
{
    return QTest::qWaitFor([&] { return pedidos.size() >= n; }, esperaMaxMs);
}

void ServidorHttpPrueba::Conexion()
{
    while (QTcpSocket *socket = servidor_.nextPendingConnection()) {
        socket->setParent(this);
        connect(socket, &QTcpSocket::readyRead, this, [this, socket] { Leer(socket); });
        connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
    }
}

void ServidorHttpPrueba::Leer(QTcpSocket *socket)
{
    if (socket->property("leido").toBool()) {
        socket->readAll(); // after the head, nothing more matters
        return;
    }
    // The head ends at the first empty line; it may come in pieces.
    QByteArray cabeza = socket->property("cabeza").toByteArray() + socket->readAll();
    const int fin = cabeza.indexOf("\r\n\r\n");
    if (fin < 0) {
        socket->setProperty("cabeza", cabeza);
        return;
    }
    socket->setProperty("leido", true);

    const QByteArray primera = cabeza.left(cabeza.indexOf("\r\n"));
    const QList<QByteArray> partes = primera.split(' ');
    Pedido pedido;
    pedido.crudo = partes.value(1);
    pedidos.append(pedido);
    Q_EMIT PedidoRecibido(pedido);

    if (callado_)
        return;

    // The reason phrase is no client's business: one word does for every status.
    const Respuesta r = Buscar(pedido);
    QByteArray salida = "HTTP/1.1 " + QByteArray::number(r.estado) +
                        (r.estado < 400 ? " OK" : " Error") + "\r\nContent-Type: " + r.tipo +
                        "\r\nContent-Length: " + QByteArray::number(r.cuerpo.size()) +
                        "\r\nConnection: close\r\n\r\n" + r.cuerpo;
    socket->write(salida);
    socket->disconnectFromHost();
}

ServidorHttpPrueba::Respuesta ServidorHttpPrueba::Buscar(const Pedido &pedido) const
{
    const QString crudo = QString::fromLatin1(pedido.crudo);
    if (const auto it = exactas_.constFind(crudo); it != exactas_.constEnd())
        return it.value();
    // The longest prefix wins, so "/lbn/" and "/lbn/buscar" can live side by side.
    const Respuesta *mejor = nullptr;
    qsizetype largo = -1;
    for (const auto &[prefijo, respuesta] : prefijos_) {
        if (crudo.startsWith(prefijo) && prefijo.size() > largo) {
            mejor = &respuesta;
            largo = prefijo.size();
        }
    }
    if (mejor)
        return *mejor;
    Respuesta noHay;
    noHay.estado = 404;
    noHay.cuerpo = "No encontrado";
    return noHay;
}
