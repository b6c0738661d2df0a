// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/nationallog/SubidaBusqueda.h"

#include "core/config/Configuracion.h"
#include "core/platform/Dialogos.h"

SubidaBusqueda::SubidaBusqueda(ClienteWeb &web, BombaEventos &bomba, Dialogos &dialogos,
                               const Configuracion &config, QString baseLbN)
    : web_(web)
    , bomba_(bomba)
    , dialogos_(dialogos)
    , config_(config)
    , base_(std::move(baseLbN))
{}

bool SubidaBusqueda::Preparar(qsizetype filas)
{
    // The lookup's account, not the one of the menu's runs: so it has always been.
    if (config_.LBNQuser.isEmpty() || config_.LBNQpass.isEmpty()) {
        dialogos_.Exclamacion(QStringLiteral("Sin configurar Usuario o Contraseña!"));
        return false;
    }
    if (filas > 50)
        return dialogos_.AceptarCancelar(
            QStringLiteral("Más de 50 QSOs para subir!\r\n\r\n"
                           "puede que domore mucho tiempo, prosigue o Cancela?\r\n\r\n"
                           "SUGERENCIA: Filre por fecha para subilos en etapas"));
    return true;
}

SubidaLbN::Fin SubidaBusqueda::Subir(const QVector<FilaQSO> &filas, bool usarComentarioComoQslmsg,
                                     VistaSubidaBusqueda &vista)
{
    if (filas.isEmpty()) {
        dialogos_.Exclamacion(QStringLiteral("No hay QSOs para exportar!"));
        return SubidaLbN::Fin::Completa;
    }
    abortada_ = false;
    vista.Empezar(int(filas.size()));
    SubidaLbN subida(web_, bomba_, base_, config_.LBNQuser, config_.LBNQpass,
                     SubidaLbN::Script::Carancho2Radiolog);
    subida.TiempoMaximo(tiempoMaximoMs);
    enCurso_ = &subida;
    const SubidaLbN::Fin fin =
        subida.Correr(EnviosDeBusqueda(filas, usarComentarioComoQslmsg),
                      [&vista](const PasoSubida &p) { vista.Respuesta(p.linea, p.color); });
    enCurso_ = nullptr;
    abortada_ = fin == SubidaLbN::Fin::Rechazada;
    vista.Terminar();
    return fin;
}

void SubidaBusqueda::Cancelar()
{
    if (enCurso_)
        enCurso_->Cancelar();
}
