// SPDX-License-Identifier: GPL-3.0-or-later
// An upload run of the menu against a loopback server, with its window live: the whole
// run of 1,000 QSOs, each marked as its reply comes, and a run cancelled halfway, as the
// program's end does it.
//
//   bench_lbn [qsos]      (default 1,000; up to the run's own limit of 1,000)
#include "Banco.h"
#include "core/nationallog/EnviosLbN.h"
#include "gui/main/Form1.h"
#include "gui/nationallog/VentanaSubida.h"
#include "support/ContextoPrueba.h"
#include "support/ServidorHttpPrueba.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QProgressBar>
#include <QSet>
#include <QTimer>
#include <cstdio>

namespace {

const QString kLog = QStringLiteral("Principal");

struct Resultado1
{
    double ms = 0;
    qint64 pedidos = 0, distintos = 0, subidos = 0, sinTocar = 0;
    int progreso = 0;
};

Resultado1 Correr(qint64 qsos, qint64 cancelarEn)
{
    ServidorHttpPrueba servidor;
    servidor.ResponderPrefijo(QStringLiteral("/php/carancho3.php"),
                              "LU9DCE LU1AAA 40m SSB 01/01/2005 0000 Guardado");
    ContextoPrueba prueba(servidor.Base(), true);
    Contexto &ctx = prueba.ctx();
    ctx.LogenUso = kLog;
    ctx.config().UserLbN = QStringLiteral("yo@ejemplo.com.ar");
    ctx.config().PassLbN = QStringLiteral("clave&100%");
    ctx.Terminar = [](int) {};
    Exigir(ctx.almacen().IniciarTransaccion());
    QVector<qint64> ids;
    for (qint64 i = 0; i < qsos; ++i) {
        RegistroQSO q = QsoDePrueba(i);
        q.Argento = QStringLiteral("Chaco");
        ids << Exigir(ctx.almacen().AgregarQSOImportado(q, kLog));
    }
    Exigir(ctx.almacen().ConfirmarTransaccion());

    Form1 principal(ctx);
    principal.show();
    // No first start here: the configuration window would open in the middle of the run.
    principal.Timer2->stop();
    const LbNConectado lbn = ConectarLbN(principal, ctx);
    QObject::connect(&servidor, &ServidorHttpPrueba::PedidoRecibido, [&] {
        if (servidor.pedidos.size() == cancelarEn)
            ctx.Terminar(0); // the program closing
    });
    prueba.falsos.dialogos->respuestasSiNo.enqueue(true);

    QElapsedTimer reloj;
    reloj.start();
    principal.corridaLbN(TipoCorrida::SubirYChequear);
    Resultado1 r;
    r.ms = reloj.nsecsElapsed() / 1e6;
    r.pedidos = servidor.pedidos.size();
    QSet<QByteArray> distintos;
    for (const auto &p : servidor.pedidos)
        distintos.insert(p.crudo);
    r.distintos = distintos.size();
    for (qint64 id : ids) {
        const QString lbnEstado = ctx.almacen().QSOPorId(kLog, id)->LbN;
        r.subidos += lbnEstado == QLatin1String("1");
        r.sinTocar += lbnEstado.isEmpty();
    }
    r.progreso = lbn.ventanaSubida->ProgressBar1->value();
    return r;
}

} // namespace

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    std::vector<char *> resto;
    const qint64 qsos = std::min(TamanoPedido(argc, argv, 1000, resto), 1000LL);

    const Resultado1 entera = Correr(qsos, -1);
    std::printf("Subida de %lld QSOs: %.0f ms (%.2f ms por QSO); %lld pedidos, %lld distintos; "
                "%lld marcados, barra en %d\n",
                static_cast<long long>(qsos), entera.ms, entera.ms / qsos,
                static_cast<long long>(entera.pedidos), static_cast<long long>(entera.distintos),
                static_cast<long long>(entera.subidos), entera.progreso);

    const qint64 mitad = qsos / 2;
    const Resultado1 cortada = Correr(qsos, mitad);
    std::printf("Cancelada en el pedido %lld: %.0f ms; %lld pedidos, %lld marcados, %lld sin "
                "tocar\n",
                static_cast<long long>(mitad), cortada.ms, static_cast<long long>(cortada.pedidos),
                static_cast<long long>(cortada.subidos), static_cast<long long>(cortada.sinTocar));
    const bool bien = entera.pedidos == qsos && entera.distintos == qsos &&
                      entera.subidos == qsos && cortada.subidos == mitad - 1 &&
                      cortada.sinTocar == qsos - mitad + 1;
    if (!bien)
        std::printf("ERROR: cada QSO debía pedirse y marcarse una vez\n");
    return bien ? 0 : 1;
}
