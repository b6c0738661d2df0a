// SPDX-License-Identifier: GPL-3.0-or-later
// A contest of 10,000 QSOs among four more of the same size: the Cabrillo export (read,
// lines built, put in the header window's text), the duplicate test of one callsign, the
// serial of a band, and the contest window's log refilled after an entry, from the store and
// into the window.
//
//   bench_concursos [qsos] [--benchmark_...]
//
// The windows are built on the offscreen platform unless another is set.

#include "Banco.h"
#include "core/contest/Cabrillo.h"
#include "core/contest/Concurso.h"
#include "core/context/Contexto.h"
#include "core/store/Almacen.h"
#include "gui/contest/Form4.h"
#include "gui/contest/Form9.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QPlainTextEdit>
#include <QTemporaryDir>
#include <QTreeWidget>
#include <benchmark/benchmark.h>
#include <cstdio>
#include <vector>

namespace {

const QString kConcurso = QStringLiteral("CQ WW 2024");
constexpr int kOtros = 4;

Contexto *g_ctx = nullptr;
Almacen *g_almacen = nullptr;
qint64 g_qsos = 10000;

FilaConcurso QsoDeConcurso(const QString &concurso, qint64 i)
{
    const RegistroQSO q = QsoDePrueba(i);
    FilaConcurso f;
    f.Estacion = q.Estacion;
    static const QString bandas[] = {QStringLiteral("80m"), QStringLiteral("40m"),
                                     QStringLiteral("20m"), QStringLiteral("15m")};
    f.Banda = bandas[i % 4];
    f.Modo = q.Modo;
    f.RSE = QString::number(i / 8 + 1);
    f.RSR = QString::number(i % 500 + 1);
    f.Fecha = QStringLiteral("2024%1%2")
                  .arg(i / 1440 % 12 + 1, 2, 10, QLatin1Char('0'))
                  .arg(i / 60 % 28 + 1, 2, 10, QLatin1Char('0'));
    f.Hora = QStringLiteral("%1%2")
                 .arg(i / 60 % 24, 2, 10, QLatin1Char('0'))
                 .arg(i % 60, 2, 10, QLatin1Char('0'));
    f.MyCall = QStringLiteral("LU1AB");
    f.NombreLog = f.LbN = concurso;
    f.Frecuencia = QStringLiteral("7050");
    f.Nombre_Sat = SerieIncremental();
    return f;
}

void Construir()
{
    Almacen &a = *g_almacen;
    Exigir(a.IniciarTransaccion());
    for (int c = 0; c <= kOtros; ++c) {
        const QString nombre = c == 0 ? kConcurso : QStringLiteral("Otro %1").arg(c);
        Exigir(FundarConcurso(a, nombre, SerieIncremental()));
        for (qint64 i = 0; i < g_qsos; ++i)
            Exigir(a.AgregarQSOConcurso(QsoDeConcurso(nombre, i + c * 7)));
    }
    Exigir(a.ConfirmarTransaccion());
}

// The "Cabrillo" button up to the header window's text, which is set once.
void Cabrillo(benchmark::State &estado)
{
    // The window touches no service to show the lines.
    Form9 ventana(*g_ctx);
    for (auto _ : estado) {
        const QSOsCabrillo q = ArmarQSOsCabrillo(g_almacen->LogConcursoOrdenado(kConcurso, true),
                                                 QStringLiteral("LU1AB"));
        ventana.Cargar(q.texto + FinCabrillo(), kConcurso, q.cantidad, QStringLiteral("LU1AB"));
        benchmark::DoNotOptimize(q.cantidad);
    }
    estado.counters["lineas"] = double(ventana.Text8->blockCount());
}

// Only the rows read and the lines built.
void LineasCabrillo(benchmark::State &estado)
{
    for (auto _ : estado) {
        const QSOsCabrillo q = ArmarQSOsCabrillo(g_almacen->LogConcursoOrdenado(kConcurso, true),
                                                 QStringLiteral("LU1AB"));
        benchmark::DoNotOptimize(q.texto.size());
    }
}

// Leaving the callsign field: one test of a callsign, found or not.
void Duplicado(benchmark::State &estado)
{
    qint64 i = 0;
    for (auto _ : estado) {
        const FilaConcurso f = QsoDeConcurso(kConcurso, i++ % (2 * g_qsos));
        benchmark::DoNotOptimize(
            EsDuplicadoConcurso(*g_almacen, kConcurso, f.Estacion, f.Modo, f.Banda));
    }
}

// A click on a band.
void SerieDeBanda(benchmark::State &estado)
{
    for (auto _ : estado)
        benchmark::DoNotOptimize(
            SerieParaBanda(*g_almacen, kConcurso, QStringLiteral("SSB"), QStringLiteral("40m")));
}

// The log the contest window shows again after each QSO, as the store gives it.
void VistaTrasUnQSO(benchmark::State &estado)
{
    for (auto _ : estado)
        benchmark::DoNotOptimize(g_almacen->VistaConcurso(kConcurso).size());
}

// The same refilled into the contest window's list, as after each Enter.
void LogEnVentana(benchmark::State &estado)
{
    g_ctx->ConcursoNombre = kConcurso;
    Form4 ventana(*g_ctx);
    ventana.Preparar();
    for (auto _ : estado)
        ventana.CargaConcurso();
    estado.counters["filas"] = double(ventana.ListView2->topLevelItemCount());
}

} // namespace

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    std::vector<char *> resto;
    g_qsos = TamanoPedido(argc, argv, g_qsos, resto);
    int argcResto = int(resto.size());
    QApplication app(argcResto, resto.data());

    QTemporaryDir carpeta;
    Contexto ctx(carpeta.path(), Servicios{});
    Exigir(ctx.AbrirAlmacen());
    g_ctx = &ctx;
    g_almacen = &ctx.almacen();
    QElapsedTimer reloj;
    reloj.start();
    Construir();
    std::printf("Base: %d concursos de %lld QSOs, hecha en %.1f s\n", kOtros + 1,
                static_cast<long long>(g_qsos), reloj.nsecsElapsed() / 1e9);
    std::fflush(stdout);

    benchmark::RegisterBenchmark("Cabrillo/exportar", Cabrillo)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("Cabrillo/lineas", LineasCabrillo)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("Concurso/duplicado", Duplicado)->Unit(benchmark::kMicrosecond);
    benchmark::RegisterBenchmark("Concurso/serie_de_banda", SerieDeBanda)
        ->Unit(benchmark::kMicrosecond);
    benchmark::RegisterBenchmark("Concurso/vista_tras_un_qso", VistaTrasUnQSO)
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("Concurso/log_en_ventana", LogEnVentana)
        ->Unit(benchmark::kMillisecond);
    benchmark::Initialize(&argcResto, resto.data());
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
