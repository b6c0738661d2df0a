#include "core/nationallog/PremioProvincias.h"

#include "core/rules/Numeros.h"
#include "core/rules/Senales.h"

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

GrillaPremio CalcularPremio(const QVector<FilaQSO> &filas, bool conGrillas)
{
    const QStringList &provincias = NombresProvincias();
    const QStringList &columnas = ColumnasPremio();
    GrillaPremio g;
    std::array<int, GrillaPremio::kColumnas> vacia;
    vacia.fill(-1);
    g.celdas.fill(vacia, provincias.size());
    g.mejor.fill(-1, provincias.size());

    QHash<QString, int> fila, columna;
    for (int i = 0; i < provincias.size(); ++i)
        fila.insert(provincias[i], i);
    // The eleven bands by their names; "Sat" only by a satellite's name.
    for (int j = 0; j + 1 < columnas.size(); ++j)
        columna.insert(columnas[j], j);
    const int sat = columnas.size() - 1;

    for (const FilaQSO &f : filas) {
        if (conGrillas) {
            const QString grilla = f.SuGrid.trimmed();
            if (!grilla.isEmpty()) {
                QStringList &lista = static_cast<int>(NumeroInicial(f.LbN)) == 2
                                         ? g.grillasConfirmadas
                                         : g.grillasTrabajadas;
                if (!lista.contains(grilla))
                    lista << grilla;
            }
        }
        const auto p = fila.constFind(f.Argento);
        if (p == fila.constEnd())
            continue;
        auto &celdas = g.celdas[*p];
        const auto c = columna.constFind(f.Banda.toLower());
        if (c != columna.constEnd())
            Mejorar(celdas[*c], f.LbN);
        if (!f.Nombre_Sat.isEmpty())
            Mejorar(celdas[sat], f.LbN);
    }

    for (int i = 0; i < provincias.size(); ++i) {
        for (int v : g.celdas[i])
            g.mejor[i] = qMax(g.mejor[i], v);
        if (g.mejor[i] == 2)
            ++g.provinciasConfirmadas;
    }
    for (int j = 0; j < columnas.size(); ++j) {
        int confirmadas = 0, subidas = 0;
        for (const auto &celdas : g.celdas) {
            confirmadas += celdas[j] == 2;
            subidas += celdas[j] == 1;
        }
        g.totales << QString::number(confirmadas) + QLatin1Char('/') + QString::number(subidas);
    }
    for (const QString &confirmada : std::as_const(g.grillasConfirmadas))
        g.grillasTrabajadas.removeAll(confirmada);
    return g;
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
