// SPDX-License-Identifier: GPL-3.0-or-later
// "Abrir Log" and the callsign history on a database of 1,000,000 QSOs in 100 logs, from
// the store to the filled window (without showing it):
//
//   bench_logs [qsos] [--benchmark_...]
//
// qsos is the size of the database (1,000,000 by default): one large log and 99 of
// 1,000 QSOs each. The windows are built on the offscreen platform unless another is set.

#include "BancoGoogle.h"
#include "core/store/Almacen.h"
#include "core/store/Historial.h"
#include "core/store/Logs.h"
#include "gui/main/Form17.h"
#include "gui/main/Form3.h"

#include <QApplication>
#include <QDateTime>
#include <QElapsedTimer>
#include <QListWidget>
#include <QTemporaryDir>
#include <QTimeZone>
#include <benchmark/benchmark.h>
#include <cstdio>
#include <vector>

namespace {

const QString kLog = QStringLiteral("Principal");
constexpr int kLogsChicos = 99;
constexpr int kQSOsPorLogChico = 1000;

Almacen *g_almacen = nullptr;
QString g_archivo;
qint64 g_qsos = 1000000;

void Construir()
{
    Almacen &a = *g_almacen;
    QElapsedTimer reloj;
    reloj.start();
    const qint64 chicos = std::min<qint64>(g_qsos, qint64(kLogsChicos) * kQSOsPorLogChico);
    Exigir(a.IniciarTransaccion());
    Exigir(a.AgregarLogVacio(kLog));
    for (qint64 i = 0; i < g_qsos - chicos; ++i)
        Exigir(a.AgregarQSO(QsoDePrueba(i), kLog));
    for (qint64 i = 0; i < chicos; ++i)
        Exigir(a.AgregarQSO(QsoDePrueba(i), QStringLiteral("Log %1").arg(i % kLogsChicos, 3, 10,
                                                                         QLatin1Char('0'))));
    Exigir(a.ConfirmarTransaccion());
    std::printf("Base: %lld QSOs en %lld logs, hecha en %.1f s\n", static_cast<long long>(g_qsos),
                static_cast<long long>(a.Logs().size()), reloj.nsecsElapsed() / 1e9);
    std::fflush(stdout);
}

// What "Abrir Log" does before the window waits for the operator.
int ListaAbrirLog()
{
    Form3 form3;
    form3.Llenar(EntradasDeLogs(g_almacen->LogsConCantidad()), kLog);
    return form3.List1->count();
}

// What Ctrl+X does before the window waits for the operator.
int Historial(const QString &senal)
{
    const QVector<FilaQSO> filas = g_almacen->HistorialDe(kLog, senal);
    Form17 form17;
    form17.Llenar(senal, LineasHistorial(filas));
    return form17.List1->count() - 1;
}

void BM_ListaAbrirLog(benchmark::State &estado)
{
    int entradas = 0;
    for (auto _ : estado)
        entradas = ListaAbrirLog();
    estado.counters["logs"] = entradas;
}

// The first listing after the file is opened, as on the first "Abrir Log" of a run.
void BM_ListaAbrirLogTrasAbrir(benchmark::State &estado)
{
    for (auto _ : estado) {
        estado.PauseTiming();
        g_almacen->Cerrar();
        Exigir(g_almacen->Abrir(g_archivo));
        estado.ResumeTiming();
        benchmark::DoNotOptimize(ListaAbrirLog());
    }
}

void BM_HistorialSenal(benchmark::State &estado)
{
    const QString senal = QsoDePrueba(g_qsos / 3).Estacion;
    int filas = 0;
    for (auto _ : estado)
        filas = Historial(senal);
    estado.counters["filas"] = filas;
}

// The shortest text Ctrl+X takes: four characters, thousands of QSOs.
void BM_HistorialCuatroLetras(benchmark::State &estado)
{
    const QString prefijo = QsoDePrueba(g_qsos / 3).Estacion.left(4);
    int filas = 0;
    for (auto _ : estado)
        filas = Historial(prefijo);
    estado.counters["filas"] = filas;
}

// The same, the store's read alone: what is left is the making of the lines and the list.
void BM_HistorialCuatroLetrasAlmacen(benchmark::State &estado)
{
    const QString prefijo = QsoDePrueba(g_qsos / 3).Estacion.left(4);
    for (auto _ : estado)
        benchmark::DoNotOptimize(g_almacen->HistorialDe(kLog, prefijo).size());
}

void BM_HistorialSinQSOs(benchmark::State &estado)
{
    for (auto _ : estado)
        benchmark::DoNotOptimize(g_almacen->HistorialDe(kLog, QStringLiteral("CE3ZZZ")).size());
}

} // namespace

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    g_qsos = IniciarBanco(argc, argv, g_qsos);

    QTemporaryDir carpeta;
    g_archivo = carpeta.filePath(QStringLiteral("base0.db"));
    Almacen almacen;
    g_almacen = &almacen;
    Exigir(almacen.Abrir(g_archivo));
    Construir();

    const auto ms = benchmark::kMillisecond;
    benchmark::RegisterBenchmark("ListaAbrirLog", BM_ListaAbrirLog)->Unit(ms);
    benchmark::RegisterBenchmark("ListaAbrirLogTrasAbrir", BM_ListaAbrirLogTrasAbrir)->Unit(ms);
    benchmark::RegisterBenchmark("HistorialSenal", BM_HistorialSenal)->Unit(ms);
    benchmark::RegisterBenchmark("HistorialCuatroLetras", BM_HistorialCuatroLetras)->Unit(ms);
    benchmark::RegisterBenchmark("HistorialCuatroLetrasAlmacen", BM_HistorialCuatroLetrasAlmacen)
        ->Unit(ms);
    benchmark::RegisterBenchmark("HistorialSinQSOs", BM_HistorialSinQSOs)->Unit(ms);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
