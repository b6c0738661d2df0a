// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/main/Actualizaciones.h"

#include "core/context/Contexto.h"
#include "core/online/Actualizaciones.h"
#include "gui/main/Form1.h"

#include <QAction>
#include <QPointer>

void ConectarActualizaciones(Form1 &principal, Contexto &ctx)
{
    auto *chequeo = new ChequeoVersion(ctx.web(), ctx.direcciones().Sitio, ctx.Carpeta(),
                                       ctx.VersionPrograma, 15000, &principal);
    principal.buscarActualizaciones = [chequeo, &ctx] {
        chequeo->Consultar([&ctx](const Resultado<QString> &r) {
            if (!r)
                ctx.dialogos().Alto(r.Mensaje());
            else if (!r->isEmpty())
                ctx.dialogos().Exclamacion(*r);
        });
    };
    principal.ac->setEnabled(true);
}
