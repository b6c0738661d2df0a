// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/nationallog/CorridaMenu.h"

#include "core/config/Configuracion.h"
#include "core/nationallog/SubidaLbN.h"
#include "core/platform/Dialogos.h"
#include "core/store/Almacen.h"

CorridaMenu::CorridaMenu(ServiciosCorrida servicios, VistaCorrida &vista)
    : s_(std::move(servicios))
    , vista_(vista)
{}

CorridaMenu::~CorridaMenu() = default;

void CorridaMenu::Cancelar()
{
    cancelada_ = true;
    if (subida_)
        subida_->Cancelar();
}

bool CorridaMenu::Corriendo() const
{
    return subida_ != nullptr;
}

CorridaMenu::Fin CorridaMenu::Correr(TipoCorrida tipo, const QString &log)
{
    if (subida_)
        return Fin::Cancelada; // one run at a time
    cancelada_ = false;
    if (s_.config.UserLbN.isEmpty()) {
        s_.dialogos.Exclamacion(QStringLiteral("Falta configurar el usuario de LbN!"));
        return Fin::SinCuenta;
    }
    if (s_.config.PassLbN.isEmpty()) {
        s_.dialogos.Exclamacion(QStringLiteral("Falta configurar la contraseña de LbN!"));
        return Fin::SinCuenta;
    }

    // Every row is read and counted before the first request.
    const PreparacionCorrida p =
        PrepararCorrida(tipo == TipoCorrida::SoloSubir ? s_.almacen.PendientesLbN(log)
                                                       : s_.almacen.LogCompletoAscendente(log),
                        tipo);
    const QString sinEnvios = MensajeSinEnvios(p, log);
    if (!sinEnvios.isEmpty()) {
        s_.dialogos.Exclamacion(sinEnvios);
        return Fin::SinEnvios;
    }
    vista_.Mostrar(p.envios.size());
    if (!s_.dialogos.PreguntaSiNo(PreguntaCorrida(p, log))) {
        vista_.Ocultar();
        return Fin::NoQuiso;
    }

    // The account read again: the question may have waited long.
    SubidaLbN subida(s_.web, s_.bomba, s_.baseLbN, s_.config.UserLbN, s_.config.PassLbN,
                     SubidaLbN::Script::Carancho3);
    subida.MarcarEn(&s_.almacen);
    subida.TiempoMaximo(tiempoMaximoMs);
    subida.PaginaDeErrorEsFallo(tipo != TipoCorrida::SubirYChequear);
    subida.alEsperar = [this](int segundos) {
        vista_.Estado(QStringLiteral("Conectando con LbN ... ") + QString::number(segundos) +
                      QStringLiteral("/15"));
    };
    subida_ = &subida;
    if (cancelada_)
        subida.Cancelar();
    QString falloMarca;
    const SubidaLbN::Fin fin = subida.Correr(p.envios, [&](const PasoSubida &paso) {
        vista_.Estado(QStringLiteral("Conectado con LbN!"));
        vista_.Linea(paso.linea);
        vista_.Avanzar();
        // A row that cannot be written stops the run: the operator is told what failed.
        if (!paso.falloMarca.isEmpty() && falloMarca.isEmpty()) {
            falloMarca = paso.falloMarca;
            subida.Cancelar();
        }
    });
    subida_ = nullptr;
    if (!falloMarca.isEmpty())
        s_.dialogos.Alto(falloMarca);
    if (fin == SubidaLbN::Fin::SinConexion) {
        s_.dialogos.Exclamacion(MensajeSinConexion());
        vista_.Ocultar();
        return Fin::SinConexion;
    }
    return fin == SubidaLbN::Fin::Completa ? Fin::Completa : Fin::Cancelada;
}
