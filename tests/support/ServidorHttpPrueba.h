// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A small HTTP/1.1 server on 127.0.0.1 for tests, on any free port. It answers GET
// requests from a table keyed by path and query exactly as sent ("/a.asp?x=LU1%20AA"),
// or by a prefix of them; what no row matches gets a 404. Each request
// line is recorded. In silent mode it accepts and reads but never answers, for time-outs.
// One request per connection (Connection: close).
//
//   ServidorHttpPrueba servidor;
//   servidor.Responder("/version.txt", "2.1.04");
//   cliente.Pedir(servidor.Direccion("/version.txt"));

#include <QByteArray>
#include <QHash>
#include <QObject>
#include <QString>
#include <QTcpServer>
#include <QUrl>
#include <QVector>

class QTcpSocket;

class ServidorHttpPrueba : public QObject
{
    Q_OBJECT
public:
    struct Respuesta
    {
        int estado = 200;
        QByteArray tipo = "text/html; charset=utf-8";
        QByteArray cuerpo;
    };
    struct Pedido
    {
        QByteArray crudo; // path and query as sent: "/a.asp?x=LU1%20AA"
    };

    explicit ServidorHttpPrueba(QObject *parent = nullptr);

    // "http://127.0.0.1:port", no trailing slash.
    QString Base() const
    {
        return QStringLiteral("http://127.0.0.1:%1").arg(servidor_.serverPort());
    }
    // Base() + path and query, taken as already escaped.
    QUrl Direccion(const QString &ruta) const
    {
        return QUrl::fromEncoded((Base() + ruta).toUtf8());
    }

    void Responder(const QString &rutaYConsulta, const Respuesta &r)
    {
        exactas_[rutaYConsulta] = r;
    }
    void ResponderPrefijo(const QString &prefijo, const Respuesta &r)
    {
        prefijos_.append({prefijo, r});
    }
    // The common case: a 200 with a UTF-8 text page.
    void Responder(const QString &rutaYConsulta, const QByteArray &cuerpo)
    {
        Responder(rutaYConsulta, Respuesta{.cuerpo = cuerpo});
    }
    void ResponderPrefijo(const QString &prefijo, const QByteArray &cuerpo)
    {
        ResponderPrefijo(prefijo, Respuesta{.cuerpo = cuerpo});
    }
    // Accept and never answer (true) or back to answering (false).
    void Callar(bool callado) { callado_ = callado; }

    QVector<Pedido> pedidos;
    // Waits with the event loop running until n requests have arrived (or the time runs
    // out); true when they did.
    bool EsperarPedidos(int n, int esperaMaxMs = 5000);

Q_SIGNALS:
    void PedidoRecibido(const ServidorHttpPrueba::Pedido &pedido);

private:
    void Conexion();
    void Leer(QTcpSocket *socket);
    Respuesta Buscar(const Pedido &pedido) const;

    QTcpServer servidor_;
    QHash<QString, Respuesta> exactas_;
    QVector<QPair<QString, Respuesta>> prefijos_;
    bool callado_ = false;
};
