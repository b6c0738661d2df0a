// SPDX-License-Identifier: GPL-3.0-or-later
// A demonstration program folder for the manual's pictures: a station's settings and a log
// of QSOs across the country's districts, bands and modes, always the same.
//   radiolog-demo CARPETA

#include "core/config/Configuracion.h"
#include "core/store/Almacen.h"

#include <QCoreApplication>
#include <QDate>
#include <QDir>
#include <cstdio>

namespace {

struct Contacto
{
    const char *senal, *banda, *modo, *frecuencia, *grilla, *obs;
};

const Contacto kContactos[] = {
    {"LU7HF", "40m", "SSB", "7.110", "FF78", "Buena señal desde Córdoba"},
    {"LW3EX", "80m", "SSB", "3.720", "GF05", ""},
    {"LU2FFD", "20m", "CW", "14.025", "FF97", "Concurso de los sábados"},
    {"LU8YY", "40m", "CW", "7.015", "FE48", ""},
    {"LU5OM", "15m", "FT8", "21.074", "FG75", ""},
    {"AY0A", "10m", "SSB", "28.450", "GF05", "Antena nueva"},
    {"LU1XA", "2m", "FM", "145.300", "FD55", ""},
    {"CX2ABC", "40m", "SSB", "7.090", "GF15", "QSL vía buró"},
    {"PY2XX", "20m", "SSB", "14.200", "GG66", ""},
    {"LU9DCE", "80m", "CW", "3.540", "GF05", ""},
    {"LU4VV", "40m", "SSB", "7.150", "FE20", "Desde Ushuaia"},
    {"L21ESC", "20m", "SSB", "14.180", "GF05", "Estación especial"},
};

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    if (argc != 2) {
        std::fprintf(stderr, "uso: radiolog-demo CARPETA\n");
        return 2;
    }
    const QDir carpeta(QString::fromLocal8Bit(argv[1]));
    QDir().mkpath(carpeta.path());

    Configuracion cfg;
    cfg.Estacion = QStringLiteral("LU1TST");
    cfg.Operador = QStringLiteral("LU1TST");
    cfg.DiferUTC = QStringLiteral("-3");
    cfg.GridLoca = QStringLiteral("GF05TT");
    QString log = LogInicial();
    if (const Resultado<> r =
            GuardarConfiguracion(carpeta.filePath(QStringLiteral("config.ini")), cfg, log);
        !r) {
        std::fprintf(stderr, "%s\n", qPrintable(r.Mensaje()));
        return 1;
    }

    Almacen almacen;
    Resultado<> r = almacen.Abrir(carpeta.filePath(QStringLiteral("base0.db")));
    if (r)
        r = almacen.IniciarTransaccion();
    // Sixty QSOs, three pages of the view, one every few hours of a fixed month.
    const QDate inicio(2026, 10, 1);
    for (int i = 0; r && i < 60; ++i) {
        const Contacto &c = kContactos[i % std::size(kContactos)];
        RegistroQSO q;
        q.Estacion = QString::fromUtf8(c.senal);
        q.Banda = QString::fromUtf8(c.banda);
        q.Modo = QString::fromUtf8(c.modo);
        q.Frecuencia = QString::fromUtf8(c.frecuencia);
        q.SuGrid = QString::fromUtf8(c.grilla);
        q.Obs = QString::fromUtf8(c.obs);
        q.RSE = q.RSR =
            q.Modo == QLatin1String("CW") ? QStringLiteral("599") : QStringLiteral("59");
        q.Fecha = inicio.addDays(i / 3).toString(QStringLiteral("dd/MM/yyyy"));
        q.Hora = QStringLiteral("%1:%2:00")
                     .arg(9 + i % 3 * 4, 2, 10, QLatin1Char('0'))
                     .arg(i % 60, 2, 10, QLatin1Char('0'));
        q.MyCall = q.Operador = cfg.Estacion;
        q.MiGrid = cfg.GridLoca;
        if (const Resultado<qint64> alta = almacen.AgregarQSO(q, log); !alta)
            r = Fallo{alta.Mensaje()};
    }
    if (const Resultado<qint64> vacio = almacen.AgregarLogVacio(QStringLiteral("Diario"));
        r && !vacio)
        r = Fallo{vacio.Mensaje()};
    if (r)
        r = almacen.ConfirmarTransaccion();
    if (!r) {
        std::fprintf(stderr, "%s\n", qPrintable(r.Mensaje()));
        return 1;
    }
    return 0;
}
