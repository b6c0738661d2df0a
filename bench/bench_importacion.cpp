// SPDX-License-Identifier: GPL-3.0-or-later
// Speed of the ADIF import: the reading of records, and the three stages of a file of
// 10,000 QSOs, half of them already in a large log, checked for duplicates against it.
//
//   bench_importacion [filas] [--benchmark_filter=...]
//
// filas is the size of the log (1,000,000 by default); it is built once in a temporary
// folder. The file has no header, so that its 10,000 records stand within the line limit.
// Between imports the benchmark pauses, as an operator does: the store copies its
// write-ahead log into the file in the background meanwhile, and that copy is no part of
// what the operator waits for.

#include "BancoGoogle.h"
#include "core/adif/Duplicados.h"
#include "core/adif/Importacion.h"
#include "core/adif/LectorAdif.h"
#include "core/store/Almacen.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QThread>
#include <benchmark/benchmark.h>
#include <cstdio>
#include <sys/resource.h>

namespace {

const QString kLog = QStringLiteral("Principal");
constexpr int kQSOsArchivo = 10000;

// Milliseconds of processor used by this process so far: on a shared machine, where the
// time on the clock depends on what else runs, this is the figure that compares.
double MsDeCPU()
{
    rusage uso{};
    getrusage(RUSAGE_SELF, &uso);
    return double(uso.ru_utime.tv_sec + uso.ru_stime.tv_sec) * 1e3 +
           double(uso.ru_utime.tv_usec + uso.ru_stime.tv_usec) / 1e3;
}

Almacen *g_almacen = nullptr;
QString g_archivoAdif;
qint64 g_filas = 1000000;

// A record as our own export writes it.
QByteArray Registro(const RegistroQSO &q)
{
    QByteArray r;
    auto campo = [&r](const char *tag, const QString &valor) {
        const QByteArray v = valor.toUtf8();
        r += '<';
        r += tag;
        r += ':';
        r += QByteArray::number(v.size());
        r += '>';
        r += v;
    };
    campo("STATION_CALLSIGN", q.MyCall);
    campo("CALL", q.Estacion);
    campo("MODE", q.Modo);
    campo("BAND", q.Banda);
    campo("FREQ", q.Frecuencia);
    campo("QSO_DATE", q.Fecha.mid(6, 4) + q.Fecha.mid(3, 2) + q.Fecha.left(2));
    campo("TIME_ON", q.Hora.left(2) + q.Hora.mid(3, 2));
    campo("RST_SENT", q.RSE);
    campo("RST_RCVD", q.RSR);
    campo("OPERATOR", q.Operador);
    campo("COMMENT", QStringLiteral("Importado para medir"));
    campo("MY_GRIDSQUARE", q.MiGrid);
    campo("LOG_NAME", kLog);
    return r + "<EOR>\r\n";
}

// One record in `cadaDuplicado` is a QSO of the log (0: none). The others are new: the
// log going on in time, as a file of another logger is (its callsigns anywhere in the
// index), or, `esparcidos`, at dates all over the log's, the worst case for its indexes.
QByteArray Archivo(int registros, int cadaDuplicado, bool esparcidos)
{
    QByteArray datos;
    for (int i = 0; i < registros; ++i) {
        const bool duplicado = cadaDuplicado > 0 && i % cadaDuplicado == 0;
        RegistroQSO q =
            QsoDePrueba(duplicado || esparcidos ? qint64(i) * 97 % g_filas : g_filas + i);
        if (!duplicado && esparcidos)
            q.Estacion = QStringLiteral("CX%1").arg(i);
        datos += Registro(q);
    }
    return datos;
}

void BM_LeerCampos(benchmark::State &estado)
{
    const QByteArray datos = Archivo(kQSOsArchivo, 2, true);
    const std::vector<QByteArrayView> lineas = LineasAdif(datos);
    for (auto _ : estado)
        for (QByteArrayView l : lineas)
            benchmark::DoNotOptimize(LeerCampos(l, true));
    estado.SetItemsProcessed(estado.iterations() * qint64(lineas.size()));
}

// The reading and every rule of a record, its texts made.
void BM_QSODeLinea(benchmark::State &estado)
{
    const QByteArray datos = Archivo(kQSOsArchivo, 2, true);
    const std::vector<QByteArrayView> lineas = LineasAdif(datos);
    ErroresImportacion errores;
    for (auto _ : estado)
        for (QByteArrayView l : lineas)
            benchmark::DoNotOptimize(QSODeLinea(l, true, false, {}, errores));
    estado.SetItemsProcessed(estado.iterations() * qint64(lineas.size()));
}

// The duplicate rule of every QSO of the file against the log: the part of the processing
// that reads the log.
void BM_BuscarDuplicado(benchmark::State &estado)
{
    const QByteArray datos = Archivo(kQSOsArchivo, 10, false);
    std::vector<RegistroQSO> qsos;
    ErroresImportacion errores;
    for (QByteArrayView l : LineasAdif(datos))
        if (auto q = QSODeLinea(l, true, false, {}, errores))
            qsos.push_back(*q);
    int duplicados = 0;
    for (auto _ : estado) {
        // In a transaction, as the processing runs it.
        Exigir(g_almacen->IniciarTransaccion());
        for (const RegistroQSO &q : qsos)
            duplicados += BuscarDuplicado(*g_almacen, kLog, q).has_value();
        Exigir(g_almacen->DeshacerTransaccion());
    }
    estado.counters["duplicados"] = duplicados / double(estado.iterations());
    estado.SetItemsProcessed(estado.iterations() * qint64(qsos.size()));
}

// Measuring, processing and loading of the whole file, as the window runs them. Arguments:
// one record in so many is a duplicate (0: none), the new ones are spread over the log's
// dates, the duplicates are replaced. The rows added are taken away between runs, untimed.
void BM_Importar(benchmark::State &estado)
{
    const bool reemplazar = estado.range(2) != 0;
    {
        QFile f(g_archivoAdif);
        if (!f.open(QIODevice::WriteOnly) ||
            f.write(Archivo(kQSOsArchivo, int(estado.range(0)), estado.range(1) != 0)) < 0)
            estado.SkipWithError("no se pudo escribir el archivo");
    }
    Importacion importacion(*g_almacen);
    static qint64 siguienteId = g_filas + 1; // ids are never reused
    for (auto _ : estado) {
        QElapsedTimer reloj;
        reloj.start();
        const double cpu0 = MsDeCPU();
        Exigir(importacion.Empezar());
        const Importacion::Medida m =
            importacion.Medir(g_archivoAdif, QStringLiteral("x.adi"), QTime(0, 0));
        const qint64 medir = reloj.nsecsElapsed();
        const Importacion::Procesado p = importacion.Procesar({}, kLog);
        const qint64 procesar = reloj.nsecsElapsed();
        const double cpu1 = MsDeCPU();
        const Importacion::Carga c = importacion.Cargar(reemplazar, kLog);
        const qint64 total = reloj.nsecsElapsed();
        const double cpu2 = MsDeCPU();
        if (m.qsos != kQSOsArchivo || !p.fallo.isEmpty() || !c.fallo.isEmpty() ||
            c.cargados != p.nuevos + (reemplazar ? p.duplicados : 0)) {
            estado.SkipWithError("la importación no cargó el archivo entero");
            break;
        }
        estado.SetIterationTime(double(total) / 1e9);
        estado.counters["medir_ms"] = double(medir) / 1e6;
        estado.counters["procesar_ms"] = double(procesar - medir) / 1e6;
        estado.counters["cargar_ms"] = double(total - procesar) / 1e6;
        estado.counters["duplicados"] = p.duplicados;
        estado.counters["cpu_ms"] = cpu2 - cpu0;
        estado.counters["cpu_cargar_ms"] = cpu2 - cpu1;
        Exigir(g_almacen->IniciarTransaccion());
        for (int i = 0; i < p.nuevos; ++i)
            Exigir(g_almacen->BorrarQSO(siguienteId++));
        Exigir(g_almacen->ConfirmarTransaccion());
        // The operator's pause before another import: the log copied into the file meanwhile.
        QThread::msleep(300);
    }
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    g_filas = IniciarBanco(argc, argv, g_filas);

    QTemporaryDir carpeta;
    Almacen almacen;
    g_almacen = &almacen;
    Exigir(almacen.Abrir(carpeta.filePath(QStringLiteral("base0.db"))));
    QElapsedTimer reloj;
    reloj.start();
    Exigir(almacen.IniciarTransaccion());
    for (qint64 i = 0; i < g_filas; ++i)
        Exigir(almacen.AgregarQSO(QsoDePrueba(i), kLog));
    Exigir(almacen.ConfirmarTransaccion());
    std::printf("Log de %lld QSOs hecho en %.1f s\n", static_cast<long long>(g_filas),
                reloj.nsecsElapsed() / 1e9);
    QThread::msleep(1000);

    g_archivoAdif = carpeta.filePath(QStringLiteral("importar.adi"));

    benchmark::RegisterBenchmark("LeerCampos", BM_LeerCampos)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("QSODeLinea", BM_QSODeLinea)->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("BuscarDuplicado", BM_BuscarDuplicado)
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("Importar", BM_Importar)
        ->Unit(benchmark::kMillisecond)
        ->UseManualTime()
        ->Iterations(3)
        ->Args({0, 0, 0})
        ->Args({10, 0, 0})
        ->Args({10, 0, 1})
        ->Args({10, 1, 0})
        ->Args({2, 1, 1});
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
