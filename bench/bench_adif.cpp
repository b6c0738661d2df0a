// SPDX-License-Identifier: GPL-3.0-or-later
// Speed of the ADIF exchange on a large log: the backup of every QSO to ADIF (read from the
// store and written), the export of a listed million, a search on the correspondent and the
// dated copy of the database.
//
//   bench_adif [filas] [--benchmark_filter=...]
//
// filas is the size of the log (1,000,000 by default). The files go to a temporary folder.

#include "BancoGoogle.h"
#include "core/adif/Busqueda.h"
#include "core/adif/ExportacionAdif.h"
#include "core/adif/Respaldo.h"
#include "core/store/Almacen.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <cstdio>
#include <vector>

namespace {

const QString kLog = QStringLiteral("Principal");
const OrigenAdif kOrigen{QStringLiteral("2.1.03 (Beta)"), QDateTime::currentDateTime()};

Almacen *g_almacen = nullptr;
QTemporaryDir *g_carpeta = nullptr;
qint64 g_filas = 1000000;

void Construir()
{
    Almacen &a = *g_almacen;
    QElapsedTimer reloj;
    reloj.start();
    Exigir(a.IniciarTransaccion());
    Exigir(a.AgregarLogVacio(kLog));
    for (qint64 i = 0; i < g_filas; ++i) {
        RegistroQSO q = QsoDePrueba(i);
        if (i % 10 == 0)
            q.Obs = QStringLiteral("Muñoz, 73 y buenos DX");
        Exigir(a.AgregarQSO(q, kLog));
    }
    Exigir(a.ConfirmarTransaccion());
    std::printf("Base de %lld QSOs hecha en %.1f s, %.1f MB\n", static_cast<long long>(g_filas),
                reloj.nsecsElapsed() / 1e9, QFileInfo(a.Archivo()).size() / 1e6);
    std::fflush(stdout);
}

// "Hacer ADIF": every row read from the store and written to the file.
void BM_ExportRespaldo(benchmark::State &estado)
{
    const QString archivo = g_carpeta->filePath(QStringLiteral("respaldo.adi"));
    qint64 escritos = 0;
    for (auto _ : estado)
        escritos = Exigir(ExportRespaldo(*g_almacen, archivo, kOrigen));
    estado.counters["QSOs"] = double(escritos);
    estado.counters["MB"] = QFileInfo(archivo).size() / 1e6;
}

// The walk of the table alone, what the backup reads.
void BM_RecorrerQSOs(benchmark::State &estado)
{
    qint64 filas = 0;
    for (auto _ : estado)
        Exigir(g_almacen->RecorrerQSOs([&](const FilaQSO &) { return ++filas > 0; }));
}

// "Exportar ADIF" of the whole log as the search window lists it (the list already read).
void BM_ExportBusqueda(benchmark::State &estado)
{
    const QVector<FilaQSO> filas = g_almacen->LogCompletoAscendente(kLog);
    const QString archivo = g_carpeta->filePath(QStringLiteral("busqueda.adi"));
    for (auto _ : estado)
        Exigir(ExportBusqueda(archivo, filas, true, kOrigen));
    estado.counters["QSOs"] = double(filas.size());
}

// "Buscar" with one correspondent typed, and with a prefix and the '?' wildcard.
void BM_BuscarCorresponsal(benchmark::State &estado, bool comodin)
{
    FiltrosBusqueda filtros;
    const QString senal = QsoDePrueba(g_filas / 2).Estacion;
    filtros.corresponsal = comodin ? senal.left(4) + QStringLiteral("?") + senal.mid(5) : senal;
    // The first search of a run apart: its statement is prepared then.
    QElapsedTimer reloj;
    reloj.start();
    qsizetype filas = Exigir(BuscarQSOsFiltrados(*g_almacen, kLog, filtros)).size();
    estado.counters["primera_ms"] = reloj.nsecsElapsed() / 1e6;
    for (auto _ : estado)
        filas = Exigir(BuscarQSOsFiltrados(*g_almacen, kLog, filtros)).size();
    estado.counters["filas"] = double(filas);
}

// The dated copy of the database, a second one on the same day replacing the first.
void BM_RespaldarBase(benchmark::State &estado)
{
    const QDate hoy = QDate::currentDate();
    for (auto _ : estado)
        Exigir(RespaldarBase(*g_almacen, g_carpeta->path(), hoy));
    estado.counters["MB"] = QFileInfo(ArchivoRespaldo(g_carpeta->path(), hoy)).size() / 1e6;
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    g_filas = IniciarBanco(argc, argv, g_filas);

    QTemporaryDir carpeta;
    g_carpeta = &carpeta;
    Almacen almacen;
    g_almacen = &almacen;
    Exigir(almacen.Abrir(carpeta.filePath(QStringLiteral("base0.db"))));
    Construir();

    const auto ms = benchmark::kMillisecond;
    benchmark::RegisterBenchmark("ExportRespaldo", BM_ExportRespaldo)->Unit(ms)->UseRealTime();
    benchmark::RegisterBenchmark("RecorrerQSOs", BM_RecorrerQSOs)->Unit(ms)->UseRealTime();
    benchmark::RegisterBenchmark("ExportBusqueda", BM_ExportBusqueda)->Unit(ms)->UseRealTime();
    benchmark::RegisterBenchmark("BuscarCorresponsal", BM_BuscarCorresponsal, false)
        ->Unit(ms)
        ->UseRealTime();
    benchmark::RegisterBenchmark("BuscarCorresponsalComodin", BM_BuscarCorresponsal, true)
        ->Unit(ms)
        ->UseRealTime();
    benchmark::RegisterBenchmark("RespaldarBase", BM_RespaldarBase)->Unit(ms)->UseRealTime();
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
