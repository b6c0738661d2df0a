// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/adif/ExportarAdif.h"

#include "core/adif/Respaldo.h"
#include "core/context/Contexto.h"
#include "gui/adif/Form15.h"
#include "gui/adif/Form6.h"
#include "gui/editing/Form5.h"
#include "gui/main/Form1.h"

#include <QAction>
#include <QFileInfo>
#include <QLabel>
#include <QPointer>
#include <QTreeWidget>

QString PedirArchivoAdif(Contexto &ctx)
{
    QString archivo = ctx.dialogos().GuardarArchivo(
        QStringLiteral("Exportar a ADIF ..."), QString(), QStringLiteral("ADIF (*.adi)|*.adi"));
    if (archivo.isEmpty())
        return {};
    // A name typed without its ending gets the one other loggers look for.
    if (QFileInfo(archivo).suffix().isEmpty())
        archivo += QStringLiteral(".adi");
    if (QFileInfo::exists(archivo) &&
        !ctx.dialogos().PreguntaSiNo(QStringLiteral("El archivo \r\n") + archivo +
                                     QStringLiteral("\r\nya existe!\r\n\r\nsobregraba?")))
        return {};
    return archivo;
}

void OfrecerVerAdif(Contexto &ctx, const QString &archivo)
{
    if (ctx.dialogos().PreguntaSiNo(archivo + QStringLiteral("\r\nGuardado!\r\n\r\nDesea verlo?")))
        ctx.escritorio().Abrir(archivo);
}

OrigenAdif OrigenAhora(Contexto &ctx)
{
    return {ctx.VersionPrograma, ctx.reloj().Ahora()};
}

void ExportarConcursoAdif(Contexto &ctx, const QString &concurso, const QString &senalEstacion)
{
    const QVector<FilaConcurso> filas = ctx.almacen().LogConcurso(concurso);
    if (std::none_of(filas.begin(), filas.end(),
                     [](const FilaConcurso &f) { return !f.Modo.isEmpty(); })) {
        ctx.dialogos().Exclamacion(QStringLiteral("No hay ningún QSO para exportar a ADIF!"));
        return;
    }
    const QString archivo = PedirArchivoAdif(ctx);
    if (archivo.isEmpty())
        return;
    const Resultado<bool> r = ExportConcurso(archivo, filas, senalEstacion, OrigenAhora(ctx));
    if (!r) {
        ctx.dialogos().Exclamacion(r.Mensaje());
        return;
    }
    if (!*r) {
        ctx.dialogos().Alto(QStringLiteral("Error!\r\nEn el log distinta Señal Distintiva"));
        return;
    }
    OfrecerVerAdif(ctx, archivo);
}

void RespaldarBaseDatos(Contexto &ctx)
{
    ctx.bomba().Bombear();
    const Resultado<QString> r =
        RespaldarBase(ctx.almacen(), ctx.Carpeta(), ctx.reloj().Ahora().date());
    if (!r) {
        ctx.dialogos().Alto(r.Mensaje());
        return;
    }
    ctx.dialogos().Informacion(*r + QStringLiteral(" creada!"));
}

namespace {

// Opens the search window on the log in use, modally, and leaves the main view as fresh.
void AbrirBusqueda(Form1 &principal, Contexto &ctx, const QPointer<Form5> &edicion,
                   const std::function<void(const QVector<FilaQSO> &)> &tablaProvincias)
{
    ctx.CargandoBusqueda = true;
    principal.VistaEnEspera(true);
    ctx.bomba().Bombear();
    if (ctx.almacen().CantidadQSOs(ctx.LogenUso) == 0) {
        principal.VistaDeNuevo();
        ctx.CargandoBusqueda = false;
        ctx.dialogos().Exclamacion(QStringLiteral("No hay QSOs para exportar!"));
        return;
    }
    Form6 busqueda(ctx, &principal);
    busqueda.Cargar();
    busqueda.tablaProvincias = tablaProvincias;
    principal.VistaEnEspera(false);
    busqueda.editar = [&principal](const FilaQSO &fila) {
        if (principal.abrirEdicion)
            principal.abrirEdicion(fila, false);
    };
    if (edicion)
        edicion->refrescarBusqueda = [&busqueda](qint64 id) {
            busqueda.ActualizarFilaBusqueda(id);
        };
    busqueda.exec();
    if (edicion)
        edicion->refrescarBusqueda = nullptr;
    ctx.CargandoBusqueda = false;
    principal.VistaDeNuevo();
}

void AbrirRespaldoAdif(Form1 &principal, Contexto &ctx)
{
    Form15 respaldo(ctx, &principal);
    respaldo.Llenar(LeerLogsParaRespaldo(ctx.almacen()));
    respaldo.exec();
}

} // namespace

void ConectarAdif(Form1 &principal, Contexto &ctx, Form5 *edicion,
                  std::function<void(const QVector<FilaQSO> &)> tablaProvincias)
{
    for (QAction *a : {principal.eadif, principal.badeda, principal.badif})
        a->setEnabled(true);
    QObject::connect(principal.eadif, &QAction::triggered, &principal,
                     [&principal, &ctx, ventana = QPointer<Form5>(edicion),
                      tablaProvincias = std::move(tablaProvincias)] {
                         AbrirBusqueda(principal, ctx, ventana, tablaProvincias);
                     });
    QObject::connect(principal.badeda, &QAction::triggered, &principal,
                     [&ctx] { RespaldarBaseDatos(ctx); });
    QObject::connect(principal.badif, &QAction::triggered, &principal,
                     [&principal, &ctx] { AbrirRespaldoAdif(principal, ctx); });
}
