// SPDX-License-Identifier: GPL-3.0-or-later
// The main window on a log of a million QSOs, as the operator meets it: the start to a
// ready window, page turns with the count, one QSO entered, and the memory it takes.
//
//   bench_form1 [qsos]      (default 1,000,000; the database is built once in /tmp and
//                            reused while it has the same size)
#include "Banco.h"
#include "core/context/Contexto.h"
#include "gui/adif/Form6.h"
#include "gui/main/Form1.h"
#include "gui/nationallog/Form14.h"
#include "support/ServiciosFalsos.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QLineEdit>
#include <QTimer>
#include <cstdio>

namespace {

const QString kLog = QStringLiteral("Principal");

double Ms(QElapsedTimer &t)
{
    const double ms = t.nsecsElapsed() / 1e6;
    t.restart();
    return ms;
}

long ResidenteKb()
{
    QFile f(QStringLiteral("/proc/self/status"));
    if (!f.open(QIODevice::ReadOnly))
        return -1;
    for (const QByteArray &linea : f.readAll().split('\n'))
        if (linea.startsWith("VmRSS:"))
            return linea.mid(6).trimmed().split(' ').value(0).toLong();
    return -1;
}

void Preparar(const QString &carpeta, qint64 qsos)
{
    QDir().mkpath(carpeta);
    {
        Almacen a;
        if (a.Abrir(carpeta + QStringLiteral("/base0.db")) && a.CantidadQSOs(kLog) == qsos)
            return;
        a.Cerrar();
    }
    QFile::remove(carpeta + QStringLiteral("/base0.db"));
    Almacen a;
    Exigir(a.Abrir(carpeta + QStringLiteral("/base0.db")));
    std::printf("Armando una base de %lld QSOs ...\n", static_cast<long long>(qsos));
    std::fflush(stdout);
    Exigir(a.IniciarTransaccion());
    Exigir(a.AgregarLogVacio(kLog));
    for (qint64 i = 0; i < qsos; ++i)
        Exigir(a.AgregarQSO(QsoDePrueba(i), kLog));
    Exigir(a.ConfirmarTransaccion());
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    const qint64 qsos = argc > 1 ? QByteArray(argv[1]).toLongLong() : 1000000;
    const QString carpeta = QDir::tempPath() + QStringLiteral("/bench-form1-%1").arg(qsos);
    Preparar(carpeta, qsos);
    QFile config(carpeta + QStringLiteral("/config.ini"));
    config.open(QIODevice::WriteOnly);
    config.write("Estacion=LU9DCE\r\nOperador=LU9DCE\r\nDiferUTC=-3\r\nLogenUso=Principal\r\n"
                 "Pantalla=1\r\n");
    config.close();
    const long rssAntes = ResidenteKb();

    QElapsedTimer t;
    t.start();
    ServiciosFalsos falsos;
    falsos.bomba->procesarEventos = true;
    Contexto ctx(carpeta, falsos.Tomar());
    Exigir(ctx.AbrirAlmacen());
    Form1 f(ctx);
    f.show();
    f.Timer2_Timer(); // the tick that reads config.ini and loads the log
    app.processEvents();
    const double arranque = Ms(t);

    constexpr int vueltas = 200;
    double peor = 0, suma = 0;
    for (int i = 0; i < vueltas; ++i) {
        f.mas_Click();
        const double ms = Ms(t);
        peor = qMax(peor, ms);
        suma += ms;
    }
    const double siguiente = suma / vueltas, siguientePeor = peor;
    f.ultima_Click();
    const double ultima = Ms(t);
    peor = suma = 0;
    for (int i = 0; i < vueltas; ++i) {
        f.menos_Click();
        const double ms = Ms(t);
        peor = qMax(peor, ms);
        suma += ms;
    }
    const double anterior = suma / vueltas, anteriorPeor = peor;
    f.Text3->setText(QString::number(qsos / 40));
    t.restart();
    f.Command8_Click();
    const double salto = Ms(t);
    f.anterior_Click();
    const double primera = Ms(t);

    peor = suma = 0;
    for (int i = 0; i < 50; ++i) {
        f.Corresponsal->setText(QStringLiteral("LU%1XYZ").arg(i % 10));
        t.restart();
        f.IngresarQSO();
        const double ms = Ms(t);
        peor = qMax(peor, ms);
        suma += ms;
    }
    const long rss = ResidenteKb();

    // Ctrl+B: the search window opened on the whole log, as "Buscar/Exportar" opens it.
    t.restart();
    {
        Form6 busqueda(ctx);
        busqueda.Cargar();
        busqueda.show();
        app.processEvents();
        const double abrirBusqueda = Ms(t);
        std::printf("Abrir Buscar/Exportar (Ctrl+B):    %8.1f ms, memoria %.1f MB\n", abrirBusqueda,
                    ResidenteKb() / 1024.0);
    }
    // Ctrl+P: the province award read and computed from the whole log, as each showing does.
    t.restart();
    {
        Form14 provincias(ctx);
        QTimer::singleShot(0, &provincias, &QDialog::accept);
        provincias.parg_Click();
        const double abrirProvincias = Ms(t);
        std::printf("Abrir Provincias Argentinas (Ctrl+P): %5.1f ms, memoria %.1f MB\n",
                    abrirProvincias, ResidenteKb() / 1024.0);
    }

    std::printf(
        "Log de %lld QSOs (%s)\n", static_cast<long long>(qsos),
        qPrintable(f.findChild<QWidget *>(QStringLiteral("Label6"))->property("text").toString()));
    std::printf("Arranque hasta la ventana lista:   %8.2f ms\n", arranque);
    std::printf("Página siguiente (media / peor):   %8.3f / %.3f ms\n", siguiente, siguientePeor);
    std::printf("Página anterior (media / peor):    %8.3f / %.3f ms\n", anterior, anteriorPeor);
    std::printf("Última página:                     %8.3f ms\n", ultima);
    std::printf("Salto a la página %lld:          %8.3f ms\n", static_cast<long long>(qsos / 40),
                salto);
    std::printf("Primera página:                    %8.3f ms\n", primera);
    std::printf("Ingresar un QSO (media / peor):    %8.3f / %.3f ms\n", suma / 50, peor);
    std::printf("Memoria residente: %.1f MB (antes de abrir la ventana %.1f MB)\n", rss / 1024.0,
                rssAntes / 1024.0);
    // Leave the log as it was for the next run.
    for (const FilaQSO &q : ctx.almacen().PaginaLog(kLog, 1, 50))
        if (q.Estacion.endsWith(QLatin1String("XYZ")))
            Exigir(ctx.almacen().BorrarQSO(q.id));
    return 0;
}
