// SPDX-License-Identifier: GPL-3.0-or-later
// The contest windows wired to the main window.
#include "gui/contest/Concursos.h"

#include "core/context/Contexto.h"
#include "gui/contest/Form4.h"
#include "gui/contest/Form7.h"
#include "gui/contest/Form8.h"
#include "gui/contest/Form9.h"
#include "gui/main/Form1.h"

#include <QAction>
#include <QPointer>

Form4 *ConectarConcursos(Form1 &principal, Contexto &ctx,
                         std::function<void(const QString &, const QString &)> exportarAdif)
{
    auto *elegidor = new Form8(ctx, &principal);
    auto *concurso = new Form4(ctx, &principal);
    auto *encabezado = new Form9(ctx, concurso);
    const QPointer<Form4> form4(concurso);
    auto *edicion = new Form7(
        ctx,
        [form4] {
            if (form4)
                form4->CargaConcurso();
        },
        concurso);
    concurso->exportarAdif = std::move(exportarAdif);
    concurso->abrirEncabezado = [encabezado](const QString &lineas, const QString &nombre,
                                             int cantidad, const QString &senal) {
        encabezado->Cargar(lineas, nombre, cantidad, senal);
        encabezado->Mostrar();
    };
    concurso->editarQSO = [edicion, &ctx](const FilaConcurso &fila) {
        edicion->Cargar(fila, ctx.ConcursoNombre, ctx.ConcursoTipo);
        edicion->Mostrar();
    };
    elegidor->abrirConcurso = [concurso](bool nuevo) {
        nuevo ? concurso->NuevoConcurso() : concurso->AbrirConcurso();
        concurso->Mostrar();
    };
    principal.abrirConcursos = [elegidor, concurso, &ctx] {
        // An old file gets the columns a contest needs before anything reads it.
        if (const Resultado<> r = ctx.almacen().ActualizarEsquema(); !r) {
            ctx.dialogos().Alto(r.Mensaje());
            return;
        }
        ctx.CargandoConcurso = true;
        concurso->Preparar();
        elegidor->Llenar(ctx.almacen().ConcursosConCantidad());
        elegidor->exec();
    };
    principal.cabro->setEnabled(true);
    return concurso;
}
