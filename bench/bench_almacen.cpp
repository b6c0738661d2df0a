// SPDX-License-Identifier: GPL-3.0-or-later
// Speed of the store on a large log: the bulk insert, the count, the pages of the log view,
// the list of logs and the callsign history.
//
//   bench_almacen [filas] [--benchmark_filter=...]
//
// filas is the size of the main log (1,000,000 by default); a small number gives a quick run.
// The database is built once in a temporary folder, with the main log, five middle-sized
// logs and a hundred small ones.

#include "BancoGoogle.h"
#include "core/store/Almacen.h"

#include <QCoreApplication>
#include <QDate>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <cstdio>
#include <cstring>
#include <sys/resource.h>
#include <vector>

namespace {

const QString kLog = QStringLiteral("Principal");

// Seconds of processor used by this process so far: on a shared machine, where the time
// on the clock depends on what else runs, this is the figure that compares between runs.
double SegundosDeCPU()
{
    rusage uso{};
    getrusage(RUSAGE_SELF, &uso);
    return double(uso.ru_utime.tv_sec + uso.ru_stime.tv_sec) +
           double(uso.ru_utime.tv_usec + uso.ru_stime.tv_usec) / 1e6;
}

Almacen *g_almacen = nullptr;
QString g_archivo;
qint64 g_filas = 1000000;

void Construir()
{
    Almacen &a = *g_almacen;
    QElapsedTimer reloj;
    const double cpu = SegundosDeCPU();
    reloj.start();
    Exigir(a.IniciarTransaccion());
    Exigir(a.AgregarLogVacio(kLog));
    for (qint64 i = 0; i < g_filas; ++i)
        Exigir(a.AgregarQSO(QsoDePrueba(i), kLog));
    const double filas = reloj.nsecsElapsed() / 1e9;
    const double cpuFilas = SegundosDeCPU();
    const bool masiva = a.EnCargaMasiva();
    Exigir(a.ConfirmarTransaccion());
    const double segundos = reloj.nsecsElapsed() / 1e9;
    const double cpuTotal = SegundosDeCPU();
    std::printf("Alta de %lld QSOs en una transacción%s: %.2f s (%.0f filas/s), de ellos "
                "%.2f s al confirmar; %.2f s de CPU, %.2f s al confirmar\n",
                static_cast<long long>(g_filas), masiva ? " (carga masiva)" : "", segundos,
                g_filas / segundos, segundos - filas, cpuTotal - cpu, cpuTotal - cpuFilas);

    // Fewer rows than the file holds: an ordinary transaction, with no sort of the indexes.
    reloj.restart();
    Exigir(a.IniciarTransaccion());
    for (int l = 0; l < 5; ++l)
        for (int i = 0; i < 10000; ++i)
            Exigir(a.AgregarQSO(QsoDePrueba(i), QStringLiteral("Mediano %1").arg(l)));
    for (int l = 0; l < 100; ++l) {
        const QString nombre = QStringLiteral("Log %1").arg(l, 3, 10, QLatin1Char('0'));
        Exigir(a.AgregarLogVacio(nombre));
        for (int i = 0; i < 10; ++i)
            Exigir(a.AgregarQSO(QsoDePrueba(i), nombre));
    }
    const bool otraMasiva = a.EnCargaMasiva();
    Exigir(a.ConfirmarTransaccion());
    std::printf("Alta de 51000 QSOs más en otra transacción%s: %.2f s\n",
                otraMasiva ? " (carga masiva)" : "", reloj.nsecsElapsed() / 1e9);
    std::printf("Base: %lld QSOs en %lld logs, %.1f MB\n",
                static_cast<long long>(g_filas + 50000 + 1000),
                static_cast<long long>(a.Logs().size()), QFileInfo(g_archivo).size() / 1e6);
    std::fflush(stdout);
}

qint64 UltimaFila(qint64 total)
{
    return total == 0 ? 1 : (total - 1) / 20 * 20 + 1;
}

qint64 FilaDelMedio()
{
    return (g_filas / 2) / 20 * 20 + 1;
}

void BM_CantidadQSOs(benchmark::State &estado)
{
    for (auto _ : estado)
        benchmark::DoNotOptimize(g_almacen->CantidadQSOs(kLog));
}

void BM_PrimeraPagina(benchmark::State &estado)
{
    for (auto _ : estado) {
        const qint64 total = g_almacen->CantidadQSOs(kLog);
        benchmark::DoNotOptimize(total);
        benchmark::DoNotOptimize(g_almacen->PaginaLog(kLog, 1));
    }
}

void BM_UltimaPagina(benchmark::State &estado)
{
    for (auto _ : estado) {
        const qint64 total = g_almacen->CantidadQSOs(kLog);
        benchmark::DoNotOptimize(g_almacen->PaginaLog(kLog, UltimaFila(total)));
    }
}

// Page after page from the middle, each with its count, as the "Siguiente" button does.
void BM_SiguienteEnElMedio(benchmark::State &estado)
{
    qint64 fila = FilaDelMedio();
    g_almacen->PaginaLog(kLog, fila);
    for (auto _ : estado) {
        fila += 20;
        if (fila + 40 > g_filas) {
            estado.PauseTiming();
            fila = FilaDelMedio();
            g_almacen->PaginaLog(kLog, fila);
            fila += 20;
            estado.ResumeTiming();
        }
        const qint64 total = g_almacen->CantidadQSOs(kLog);
        benchmark::DoNotOptimize(total);
        benchmark::DoNotOptimize(g_almacen->PaginaLog(kLog, fila));
    }
}

void BM_AnteriorEnElMedio(benchmark::State &estado)
{
    qint64 fila = FilaDelMedio();
    g_almacen->PaginaLog(kLog, fila);
    for (auto _ : estado) {
        fila -= 20;
        if (fila < 21) {
            estado.PauseTiming();
            fila = FilaDelMedio();
            g_almacen->PaginaLog(kLog, fila);
            fila -= 20;
            estado.ResumeTiming();
        }
        const qint64 total = g_almacen->CantidadQSOs(kLog);
        benchmark::DoNotOptimize(total);
        benchmark::DoNotOptimize(g_almacen->PaginaLog(kLog, fila));
    }
}

// A jump to page N in the middle: the worst case of an offset, half the log from either end.
void BM_SaltoAlMedio(benchmark::State &estado)
{
    int vuelta = 0;
    for (auto _ : estado) {
        const qint64 fila = FilaDelMedio() + (vuelta++ % 2) * 2000;
        const qint64 total = g_almacen->CantidadQSOs(kLog);
        benchmark::DoNotOptimize(total);
        benchmark::DoNotOptimize(g_almacen->PaginaLog(kLog, fila));
    }
}

// A jump to a page near the top, as from page 1 to page 50.
void BM_SaltoCerca(benchmark::State &estado)
{
    int vuelta = 0;
    for (auto _ : estado) {
        const qint64 fila = 981 + (vuelta++ % 2) * 200;
        benchmark::DoNotOptimize(g_almacen->PaginaLog(kLog, fila));
    }
}

void BM_LogsConCantidad(benchmark::State &estado)
{
    for (auto _ : estado)
        benchmark::DoNotOptimize(g_almacen->LogsConCantidad());
}

void BM_HistorialDe(benchmark::State &estado)
{
    const QString senal = QsoDePrueba(g_filas / 2).Estacion;
    size_t filas = 0;
    for (auto _ : estado)
        filas = g_almacen->HistorialDe(kLog, senal).size();
    estado.counters["filas"] = double(filas);
}

void BM_HistorialPrefijo(benchmark::State &estado)
{
    const QString prefijo = QsoDePrueba(g_filas / 2).Estacion.left(5);
    size_t filas = 0;
    for (auto _ : estado)
        filas = g_almacen->HistorialDe(kLog, prefijo).size();
    estado.counters["filas"] = double(filas);
}

// Opening the file again and showing the first page, as at start-up (file in the OS cache).
void BM_AbrirYPrimeraPagina(benchmark::State &estado)
{
    for (auto _ : estado) {
        g_almacen->Cerrar();
        Exigir(g_almacen->Abrir(g_archivo));
        benchmark::DoNotOptimize(g_almacen->CantidadQSOs(kLog));
        benchmark::DoNotOptimize(g_almacen->PaginaLog(kLog, 1));
    }
}

// One QSO typed in the main window: its own commit, on disk before it is shown.
void BM_AgregarUnQSO(benchmark::State &estado)
{
    qint64 i = g_filas;
    for (auto _ : estado)
        benchmark::DoNotOptimize(g_almacen->AgregarQSO(QsoDePrueba(i++), kLog));
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    g_filas = IniciarBanco(argc, argv, g_filas);

    QTemporaryDir carpeta;
    g_archivo = carpeta.filePath(QStringLiteral("base0.db"));
    Almacen almacen;
    g_almacen = &almacen;
    Exigir(almacen.Abrir(g_archivo));
    Construir();

    const auto ms = benchmark::kMicrosecond;
    benchmark::RegisterBenchmark("CantidadQSOs", BM_CantidadQSOs)->Unit(ms);
    benchmark::RegisterBenchmark("PrimeraPagina", BM_PrimeraPagina)->Unit(ms);
    benchmark::RegisterBenchmark("UltimaPagina", BM_UltimaPagina)->Unit(ms);
    benchmark::RegisterBenchmark("SiguienteEnElMedio", BM_SiguienteEnElMedio)->Unit(ms);
    benchmark::RegisterBenchmark("AnteriorEnElMedio", BM_AnteriorEnElMedio)->Unit(ms);
    benchmark::RegisterBenchmark("SaltoAlMedio", BM_SaltoAlMedio)->Unit(ms);
    benchmark::RegisterBenchmark("SaltoCerca", BM_SaltoCerca)->Unit(ms);
    benchmark::RegisterBenchmark("LogsConCantidad", BM_LogsConCantidad)->Unit(ms);
    benchmark::RegisterBenchmark("HistorialDe", BM_HistorialDe)->Unit(ms);
    benchmark::RegisterBenchmark("HistorialPrefijo", BM_HistorialPrefijo)->Unit(ms);
    benchmark::RegisterBenchmark("AbrirYPrimeraPagina", BM_AbrirYPrimeraPagina)->Unit(ms);
    benchmark::RegisterBenchmark("AgregarUnQSO", BM_AgregarUnQSO)->Unit(ms);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
