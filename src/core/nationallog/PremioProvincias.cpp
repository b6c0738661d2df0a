// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/nationallog/PremioProvincias.h"

#include "core/rules/Numeros.h"
#include "core/rules/Senales.h"

#include "core/store/Almacen.h"

#include <QHash>

const QStringList &ColumnasPremio()
{
    static const QStringList columnas = {
        QStringLiteral("160m"), QStringLiteral("80m"), QStringLiteral("60m"),
        QStringLiteral("40m"),  QStringLiteral("30m"), QStringLiteral("20m"),
        QStringLiteral("17m"),  QStringLiteral("15m"), QStringLiteral("12m"),
        QStringLiteral("10m"),  QStringLiteral("6m"),  QStringLiteral("Sat")};
    return columnas;
}

namespace {

// The best state stays: a QSO not uploaded only fills an empty cell; any other goes in
// when it is higher. A state that is no number counts as 0.
void Mejorar(int &celda, const QString &lbn)
{
    if (lbn.isEmpty() || lbn == QLatin1String("0")) {
        if (celda < 0)
            celda = 0;
        return;
    }
    const int valor = qBound(0, static_cast<int>(NumeroInicial(lbn)), 2);
    if (valor > qMax(celda, 0))
        celda = valor;
}

} // namespace

CalculoPremio::CalculoPremio(bool conGrillas)
    : conGrillas_(conGrillas)
{
    const QStringList &provincias = NombresProvincias();
    const QStringList &columnas = ColumnasPremio();
    std::array<int, GrillaPremio::kColumnas> vacia;
    vacia.fill(-1);
    g_.celdas.fill(vacia, provincias.size());
    g_.mejor.fill(-1, provincias.size());
    for (int i = 0; i < provincias.size(); ++i)
        fila_.insert(provincias[i], i);
    // The eleven bands by their names; "Sat" only by a satellite's name.
    for (int j = 0; j + 1 < columnas.size(); ++j)
        columna_.insert(columnas[j], j);
}

void CalculoPremio::Agregar(const FilaQSO &f)
{
    if (conGrillas_) {
        const QString grilla = f.SuGrid.trimmed();
        if (!grilla.isEmpty()) {
            const bool confirmada = static_cast<int>(NumeroInicial(f.LbN)) == 2;
            QSet<QString> &vistas = confirmada ? confirmadas_ : trabajadas_;
            if (!vistas.contains(grilla)) {
                vistas.insert(grilla);
                (confirmada ? g_.grillasConfirmadas : g_.grillasTrabajadas) << grilla;
            }
        }
    }
    const auto p = fila_.constFind(f.Argento);
    if (p == fila_.constEnd())
        return;
    auto &celdas = g_.celdas[*p];
    const auto c = columna_.constFind(f.Banda.toLower());
    if (c != columna_.constEnd())
        Mejorar(celdas[*c], f.LbN);
    if (!f.Nombre_Sat.isEmpty())
        Mejorar(celdas[GrillaPremio::kColumnas - 1], f.LbN);
}

GrillaPremio CalculoPremio::Terminar()
{
    GrillaPremio g = std::move(g_);
    for (int i = 0; i < g.celdas.size(); ++i) {
        for (int v : g.celdas[i])
            g.mejor[i] = qMax(g.mejor[i], v);
        if (g.mejor[i] == 2)
            ++g.provinciasConfirmadas;
    }
    for (int j = 0; j < GrillaPremio::kColumnas; ++j) {
        int confirmadas = 0, subidas = 0;
        for (const auto &celdas : g.celdas) {
            confirmadas += celdas[j] == 2;
            subidas += celdas[j] == 1;
        }
        g.totales << QString::number(confirmadas) + QLatin1Char('/') + QString::number(subidas);
    }
    g.grillasTrabajadas.removeIf(
        [this](const QString &grilla) { return confirmadas_.contains(grilla); });
    return g;
}

GrillaPremio CalcularPremio(const QVector<FilaQSO> &filas, bool conGrillas)
{
    CalculoPremio calculo(conGrillas);
    for (const FilaQSO &f : filas)
        calculo.Agregar(f);
    return calculo.Terminar();
}

GrillaPremio CalcularPremioDelLog(Almacen &almacen, const QString &log)
{
    CalculoPremio calculo(true);
    static_cast<void>(almacen.RecorrerParaPremio(log, [&](const FilaQSO &f) {
        calculo.Agregar(f);
        return true;
    }));
    return calculo.Terminar();
}

int ColorProvincia(int mejor)
{
    return mejor == 2 ? 32768 : mejor == 1 ? 16576 : 0;
}

QString LineaMiembros(const QString &respuesta)
{
    // Each key drops the character before it, a separator of the service's.
    const auto cortar = [](const QString &texto, QLatin1String clave, QString &resto) {
        const int en = texto.indexOf(clave);
        if (en < 0) {
            resto.clear();
            return texto;
        }
        resto = texto.mid(en + clave.size(), 2000);
        return texto.left(qMax(0, en - 1));
    };
    QString resto, tercera;
    const QString primera = cortar(respuesta, QLatin1String("nomo:"), resto);
    const QString segunda = cortar(resto, QLatin1String("ultimar:"), tercera);
    return primera + QLatin1Char(' ') + segunda + QLatin1Char('>') + tercera;
}
