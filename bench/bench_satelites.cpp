// SPDX-License-Identifier: GPL-3.0-or-later
// The satellite catalogue at its largest reasonable size, from the file to the window:
//
//   bench_satelites [satelites] [--benchmark_...]
//
// satelites is the size of the catalogue (1,000 by default), lines as the editor writes
// them. The windows are built on the offscreen platform unless another is set.
#include "BancoGoogle.h"
#include "core/context/Contexto.h"
#include "core/platform/ArchivoTexto.h"
#include "core/satellites/Catalogo.h"
#include "gui/main/Form1.h"
#include "gui/satellites/Form11.h"
#include "support/ServiciosFalsos.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QTemporaryDir>
#include <QTimer>
#include <benchmark/benchmark.h>

namespace {

Form1 *g_form1 = nullptr;
Form11 *g_form11 = nullptr;
DialogosFalso *g_dialogos = nullptr;
long long g_satelites = 1000;

QString Nombre(long long i)
{
    return QStringLiteral("SAT-%1").arg(i, 4, 10, QLatin1Char('0'));
}

// Form1's list and captions, read from the file.
void BM_CargarCombo3(benchmark::State &estado)
{
    for (auto _ : estado)
        g_form1->CargarSatelites();
    estado.counters["satelites"] = g_form1->Combo3->count();
}

// Form11's list, read from the file.
void BM_CargarList1(benchmark::State &estado)
{
    for (auto _ : estado)
        g_form11->CargarLista();
    estado.counters["satelites"] = g_form11->List1->count();
}

// "Agregar" with the name of the last satellite: the whole list is looked through before
// the refusal.
void BM_AgregarRepetido(benchmark::State &estado)
{
    g_form11->CargarLista();
    for (auto _ : estado) {
        g_form11->Text1->setText(Nombre(g_satelites - 1).toLower());
        g_form11->Command1_Click();
        g_dialogos->Limpiar();
    }
}

// The last satellite chosen in Form1: the file read again, the captions, memsat.ini, the
// frequency and the mode.
void BM_ElegirSatelite(benchmark::State &estado)
{
    g_form1->CargarSatelites();
    g_form1->Combo3->setCurrentIndex(g_form1->Combo3->count() - 1);
    for (auto _ : estado)
        g_form1->ElegirSatelite();
}

} // namespace

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    g_satelites = IniciarBanco(argc, argv, g_satelites);

    QTemporaryDir carpeta;
    QStringList lineas;
    for (long long i = 0; i < g_satelites; ++i)
        lineas << QStringLiteral("%1;70cm;2m;FM;67.0;435.%2")
                      .arg(Nombre(i))
                      .arg(i % 1000, 3, 10, QLatin1Char('0'));
    Exigir(EscribirLineas(ArchivoSatelites(carpeta.path()), lineas));

    ServiciosFalsos falsos;
    g_dialogos = falsos.dialogos;
    Contexto ctx(carpeta.path(), falsos.Tomar());
    Exigir(ctx.AbrirAlmacen());
    Form1 form1(ctx);
    for (QTimer *t : form1.findChildren<QTimer *>())
        t->stop();
    ctx.RelojActivo = true;
    g_form1 = &form1;
    g_form11 = ConectarSatelites(form1, ctx);

    BENCHMARK(BM_CargarCombo3)->Unit(benchmark::kMillisecond);
    BENCHMARK(BM_CargarList1)->Unit(benchmark::kMillisecond);
    BENCHMARK(BM_AgregarRepetido)->Unit(benchmark::kMillisecond);
    BENCHMARK(BM_ElegirSatelite)->Unit(benchmark::kMillisecond);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
