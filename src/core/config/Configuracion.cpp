// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/config/Configuracion.h"

#include "core/config/ClaveConfig.h"
#include "core/platform/ArchivoTexto.h"
#include "core/rules/Numeros.h"

#include <cmath>

namespace {

// Written in this order; the index is the line of the file.
enum Clave {
    kEstacion,
    kOperador,
    kDiferUTC,
    kLogenUso,
    kGridLoca,
    kUserLbN,
    kPassLbN,
    kNoBorrar,
    kPantalla,
    kHAMQuser,
    kHAMQpass,
    kLBNQuser,
    kLBNQpass,
    keQSLuser,
    keQSLpass,
    kArcAudio,
    kPuerto,
    kPinPTT,
    kTAntes,
    kTDespues,
    kCantidadClaves
};

constexpr qsizetype kColumnaValor = 9; // column 10, counted from 0
constexpr qsizetype kLargoValor = 100;
constexpr qsizetype kLargoArcAudio = 1000;

// A number field of the file as the value of a box: the leading number, kept in range.
int ValorEntero(const QString &texto)
{
    const double n = NumeroInicial(texto);
    if (!std::isfinite(n) || std::abs(n) > 1e9)
        return n < 0 ? -1000000000 : 1000000000;
    return static_cast<int>(n);
}

} // namespace

const QStringList &ClavesConfiguracion()
{
    static const QStringList claves = {
        QStringLiteral("Estacion="), QStringLiteral("Operador="), QStringLiteral("DiferUTC="),
        QStringLiteral("LogenUso="), QStringLiteral("GridLoca="), QStringLiteral("UserLbN_="),
        QStringLiteral("PassLbN_="), QStringLiteral("NoBorrar="), QStringLiteral("Pantalla="),
        QStringLiteral("HAMQuser="), QStringLiteral("HAMQpass="), QStringLiteral("LBNQuser="),
        QStringLiteral("LBNQpass="), QStringLiteral("eQSLuser="), QStringLiteral("eQSLpass="),
        QStringLiteral("ArcAudio="), QStringLiteral("Puerto  ="), QStringLiteral("PinPTT  ="),
        QStringLiteral("TAntes  ="), QStringLiteral("TDespues="),
    };
    return claves;
}

void LeerConfiguracion(const QString &archivo, Configuracion &cfg, QString &logenUso)
{
    // A missing or unreadable file changes nothing: the window keeps what it holds.
    const Resultado<QStringList> lineas = LeerLineas(archivo);
    if (!lineas)
        return;
    const QStringList &claves = ClavesConfiguracion();
    const QString clave = ClaveTextoConfig();
    const auto descifrar = [&clave](const QString &v) {
        return ClaveConfig(v, clave, kModoDescifrar);
    };

    // The grid and the layout are applied after the whole file is read: the grid even
    // when the file has none, the layout only when it was given.
    QString grid;
    QString pantalla;
    for (const QString &linea : *lineas) {
        for (int k = 0; k < kCantidadClaves; ++k) {
            // The key may stand anywhere in the line, but the value is always taken
            // from column 10: that is how old files with a prefix were read.
            if (!linea.contains(claves[k]))
                continue;
            const QString valor =
                linea.mid(kColumnaValor, k == kArcAudio ? kLargoArcAudio : kLargoValor);
            switch (k) {
            case kEstacion:
                cfg.Estacion = valor;
                break;
            case kOperador:
                cfg.Operador = valor;
                break;
            case kDiferUTC:
                cfg.DiferUTC = valor;
                break;
            case kLogenUso:
                logenUso = valor;
                break;
            case kGridLoca:
                grid = valor;
                break;
            case kUserLbN:
                cfg.UserLbN = valor;
                break;
            case kPassLbN:
                cfg.PassLbN = valor;
                break;
            case kNoBorrar:
                cfg.NoBorrar = ValorEntero(valor);
                break;
            case kPantalla:
                pantalla = valor;
                break;
            case kHAMQuser:
                cfg.HAMQuser = valor;
                break;
            case kHAMQpass:
                cfg.HAMQpass = descifrar(valor);
                break;
            case kLBNQuser:
                cfg.LBNQuser = valor;
                break;
            case kLBNQpass:
                cfg.LBNQpass = descifrar(valor);
                break;
            case keQSLuser:
                cfg.eQSLuser = valor;
                break;
            case keQSLpass:
                cfg.eQSLpass = descifrar(valor);
                break;
            case kArcAudio:
                cfg.ArcAudio = valor;
                break;
            case kPuerto:
                if (!valor.isEmpty())
                    cfg.Puerto = valor;
                break;
            case kPinPTT:
                cfg.PinPTT = valor == QLatin1String("1") ? 1 : 0;
                break;
            case kTAntes:
                if (!valor.isEmpty())
                    cfg.TAntes = valor;
                break;
            case kTDespues:
                if (!valor.isEmpty())
                    cfg.TDespues = valor;
                break;
            default:
                break;
            }
        }
    }
    cfg.GridLoca = grid;
    if (!pantalla.isEmpty())
        cfg.Pantalla = ValorEntero(pantalla) != 0 ? 1 : 0;
}

QStringList LineasConfiguracion(const Configuracion &cfg, const QString &logenUso)
{
    const QStringList &c = ClavesConfiguracion();
    const QString clave = ClaveTextoConfig();
    const auto cifrar = [&clave](const QString &v) { return ClaveConfig(v, clave, kModoCifrar); };
    const auto numero = [](int n) { return QString::number(n); };
    return {
        c[kEstacion] + cfg.Estacion.toUpper(),
        c[kOperador] + cfg.Operador.toUpper(),
        c[kDiferUTC] + cfg.DiferUTC,
        c[kLogenUso] + logenUso,
        c[kGridLoca] + cfg.GridLoca,
        c[kUserLbN] + cfg.UserLbN,
        c[kPassLbN] + cfg.PassLbN,
        c[kNoBorrar] + numero(cfg.NoBorrar),
        c[kPantalla] + numero(cfg.Pantalla),
        c[kHAMQuser] + cfg.HAMQuser,
        c[kHAMQpass] + cifrar(cfg.HAMQpass),
        c[kLBNQuser] + cfg.LBNQuser,
        c[kLBNQpass] + cifrar(cfg.LBNQpass),
        c[keQSLuser] + cfg.eQSLuser,
        c[keQSLpass] + cifrar(cfg.eQSLpass),
        c[kArcAudio] + cfg.ArcAudio,
        c[kPuerto] + cfg.Puerto,
        c[kPinPTT] + numero(cfg.PinPTT),
        c[kTAntes] + cfg.TAntes,
        c[kTDespues] + cfg.TDespues,
    };
}

Resultado<> GuardarConfiguracion(const QString &archivo, const Configuracion &cfg,
                                 QString &logenUso)
{
    if (logenUso.isEmpty())
        logenUso = LogInicial();
    return EscribirLineas(archivo, LineasConfiguracion(cfg, logenUso));
}
