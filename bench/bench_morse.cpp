// SPDX-License-Identifier: GPL-3.0-or-later
// How closely the Morse engine keys on time, with the window busy: every change of the key
// line is stamped on the monotonic clock and set against the schedule the same text has on
// a fake clock. The target is an error under 1 ms at the 99th percentile at 40 ppm.
//
//   bench_morse [vueltas] [--ppm N] [--carga-us N] [--sin-tiempo-real]
//     vueltas   times "CQ TEST LU9DCE LU9DCE " is sent (default 4, some 20 s at 40 ppm)
//     ppm       speed, 10 to 40 (default 40)
//     carga-us  work of each 2 ms tick of the busy window, in microseconds (default 300)
//     sin-tiempo-real  the pump does not ask for real-time scheduling while sending, as on
//                      a machine where the user may not have it
#include "core/keying/LlaveCW.h"
#include "core/keying/MacrosCW.h"
#include "core/keying/MotorCW.h"
#include "core/platform/BombaQt.h"
#include "core/platform/LineaSerie.h"
#include "core/platform/RelojSistema.h"

#include <QApplication>
#include <QLabel>
#include <QTimer>
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <sched.h>
#include <sys/resource.h>
#include <vector>

namespace {

// A line always open that stamps each change on the real monotonic clock.
class LineaCronometrada : public LineaSerie
{
public:
    explicit LineaCronometrada(const Reloj &reloj)
        : reloj_(reloj)
    {}
    bool Abrir(const QString &) override { return true; }
    void Cerrar() override {}
    bool Abierta() const override { return true; }
    QString Puerto() const override { return QStringLiteral("COM1"); }
    void PonerDTR(bool) override { sellos.push_back(reloj_.MonotonicoNs()); }
    void PonerRTS(bool) override { sellos.push_back(reloj_.MonotonicoNs()); }
    std::vector<qint64> sellos;

private:
    const Reloj &reloj_;
};

// The schedule itself: a clock that moves a millisecond at each pump.
class RelojPasoAPaso : public Reloj
{
public:
    QDateTime Ahora() const override { return {}; }
    qint64 MonotonicoNs() const override { return ns; }
    qint64 ns = 0;
};

class BombaPasoAPaso : public BombaEventos
{
public:
    explicit BombaPasoAPaso(RelojPasoAPaso &reloj)
        : reloj_(reloj)
    {}
    void Bombear() override { reloj_.ns += 1'000'000; }

private:
    RelojPasoAPaso &reloj_;
};

std::vector<qint64> Enviar(const QString &texto, int velCW, const Reloj &reloj, BombaEventos &bomba)
{
    LineaCronometrada linea(reloj);
    LlaveCW llave(linea);
    (void)llave.ElegirPuerto(QStringLiteral("COM1"));
    linea.sellos.clear();
    MotorCW motor(llave, reloj, bomba);
    motor.VelCW = velCW;
    motor.TextoCW = texto;
    motor.enviarCW();
    return linea.sellos;
}

double Percentil(std::vector<double> v, double p)
{
    std::sort(v.begin(), v.end());
    return v.empty() ? 0 : v[std::min(v.size() - 1, size_t(std::ceil(p * v.size())) - 1)];
}

void Informar(const char *que, const std::vector<double> &errores)
{
    std::printf("%-34s p50 %6.3f ms   p99 %6.3f ms   máx %6.3f ms\n", que, Percentil(errores, 0.50),
                Percentil(errores, 0.99), Percentil(errores, 1.0));
}

double SegundosCpu()
{
    rusage uso{};
    getrusage(RUSAGE_SELF, &uso);
    return uso.ru_utime.tv_sec + uso.ru_stime.tv_sec +
           (uso.ru_utime.tv_usec + uso.ru_stime.tv_usec) / 1e6;
}

} // namespace

int main(int argc, char *argv[])
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    int vueltas = 4, ppm = 40, cargaUs = 300;
    bool tiempoReal = true;
    for (int i = 1; i < argc; ++i) {
        if (!std::strcmp(argv[i], "--ppm") && i + 1 < argc)
            ppm = std::atoi(argv[++i]);
        else if (!std::strcmp(argv[i], "--carga-us") && i + 1 < argc)
            cargaUs = std::atoi(argv[++i]);
        else if (!std::strcmp(argv[i], "--sin-tiempo-real"))
            tiempoReal = false;
        else if (argv[i][0] != '-')
            vueltas = std::max(1, std::atoi(argv[i]));
    }
    QApplication app(argc, argv);

    // The busy window: a label repainted every 2 ms, each tick also working cargaUs.
    RelojSistema reloj;
    QLabel ventana;
    ventana.resize(400, 80);
    ventana.show();
    QTimer ocupado;
    ocupado.setInterval(2);
    int ticks = 0;
    QObject::connect(&ocupado, &QTimer::timeout, [&] {
        ventana.setText(QStringLiteral("Tick %1").arg(++ticks));
        ventana.repaint();
        const qint64 fin = reloj.MonotonicoNs() + qint64(cargaUs) * 1000;
        while (reloj.MonotonicoNs() < fin) {
        }
    });
    ocupado.start();

    QString texto;
    for (int i = 0; i < vueltas; ++i)
        texto += QStringLiteral("CQ TEST LU9DCE LU9DCE ");
    const int velCW = VelCWDePpm(ppm);

    RelojPasoAPaso relojPlan;
    BombaPasoAPaso bombaPlan(relojPlan);
    const std::vector<qint64> plan = Enviar(texto, velCW, relojPlan, bombaPlan);

    BombaQt bomba;
    bomba.pedirTiempoReal = tiempoReal;
    // Whether the system grants what the pump asks for while sending.
    bomba.PedirPuntualidad(true);
    const bool concedido = sched_getscheduler(0) == SCHED_RR;
    bomba.PedirPuntualidad(false);
    const double cpu0 = SegundosCpu();
    const qint64 t0 = reloj.MonotonicoNs();
    const std::vector<qint64> real = Enviar(texto, velCW, reloj, bomba);
    const double pared = (reloj.MonotonicoNs() - t0) / 1e9;
    const double cpu = SegundosCpu() - cpu0;
    ocupado.stop();

    if (real.size() != plan.size() || real.empty()) {
        std::fprintf(stderr, "Cambios de línea: %zu medidos, %zu planeados\n", real.size(),
                     plan.size());
        return 1;
    }
    std::vector<double> absolutos, elementos;
    for (size_t i = 0; i < real.size(); ++i) {
        absolutos.push_back(std::abs(double((real[i] - real[0]) - (plan[i] - plan[0])) / 1e6));
        if (i > 0)
            elementos.push_back(
                std::abs(double((real[i] - real[i - 1]) - (plan[i] - plan[i - 1])) / 1e6));
    }
    std::printf("%d ppm (u = %d ms), %zu cambios de línea en %.1f s, ventana ocupada %d µs cada "
                "2 ms (%d ticks)\n",
                ppm, velCW + 50, real.size(), pared, cargaUs, ticks);
    std::printf("Planificación durante el envío: %s\n",
                concedido ? "de tiempo real" : "la común del sistema");
    Informar("Error de cada cambio (desde el 1.º)", absolutos);
    Informar("Error de cada elemento o pausa", elementos);
    std::printf("CPU usada: %.0f %% de un núcleo\n", 100.0 * cpu / pared);
    return Percentil(elementos, 0.99) < 1.0 && Percentil(absolutos, 0.99) < 1.0 ? 0 : 2;
}
