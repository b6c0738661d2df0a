// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/keying/AjustesCW.h"

#include "core/platform/ArchivoTexto.h"
#include "core/platform/LineaSerieQt.h"
#include "core/rules/Numeros.h"

#include <QDir>

namespace {

// Longer than any device path an operator would pick.
constexpr int kLargoMaximoPuerto = 100;

bool PareceUnPuerto(const QString &texto)
{
    if (texto.trimmed().isEmpty() || texto.size() > kLargoMaximoPuerto)
        return false;
    for (const QChar c : texto)
        if (!c.isPrint())
            return false;
    return true;
}

} // namespace

QString PuertoNingunoCW()
{
    return QStringLiteral("Ninguno");
}

QStringList ListaPuertosCW()
{
    QStringList lista{PuertoNingunoCW()};
    for (int i = 1; i <= 20; ++i)
        lista << QStringLiteral("COM%1").arg(i);
    for (const QString &puerto : PuertosDelSistema())
        if (!lista.contains(puerto))
            lista << puerto;
    return lista;
}

AjustesCW LeerAjustesCW(const QString &carpeta)
{
    AjustesCW a;
    const QDir dir(carpeta);
    const auto cw = LeerLineas(dir.filePath(QStringLiteral("varCW.cfg")));
    if (cw && !cw->isEmpty() && PareceUnPuerto(cw->at(0))) {
        a.puerto = cw->at(0);
        if (cw->size() > 1)
            a.dtr = NumeroInicial(cw->at(1)) == 1;
    }
    const auto osc = LeerLineas(dir.filePath(QStringLiteral("varOsc.cfg")));
    if (osc && !osc->isEmpty())
        a.fondoOscuro = NumeroInicial(osc->at(0)) == 1;
    return a;
}

Resultado<> GuardarAjustesCW(const QString &carpeta, const AjustesCW &ajustes)
{
    const QDir dir(carpeta);
    const auto cw =
        EscribirLineas(dir.filePath(QStringLiteral("varCW.cfg")),
                       {ajustes.puerto, ajustes.dtr ? QStringLiteral("1") : QStringLiteral("0")});
    const auto osc =
        EscribirLineas(dir.filePath(QStringLiteral("varOsc.cfg")),
                       {ajustes.fondoOscuro ? QStringLiteral("1") : QStringLiteral("0")});
    if (!cw)
        return cw;
    return osc;
}
