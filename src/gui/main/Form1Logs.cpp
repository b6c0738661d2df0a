// SPDX-License-Identifier: GPL-3.0-or-later
// Form1: the named logs (open, new, delete), the history of the correspondent and the
// satellite passes page.
#include "core/context/Contexto.h"
#include "core/store/Historial.h"
#include "core/store/Logs.h"
#include "gui/main/Form1.h"
#include "gui/main/Form17.h"
#include "gui/main/Form3.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QTreeWidget>

void Form1::ConectarLogs()
{
    for (QAction *a : {alog, nuevo, borralog})
        a->setEnabled(true);
    connect(alog, &QAction::triggered, this, &Form1::alog_Click);
    connect(nuevo, &QAction::triggered, this, &Form1::nuevo_Click);
    connect(borralog, &QAction::triggered, this, &Form1::borralog_Click);
}

void Form1::alog_Click()
{
    // The counts are kept by the store as rows come and go: one read for all the logs.
    const QStringList entradas = EntradasDeLogs(ctx.almacen().LogsConCantidad());
    Form3 form3(this);
    form3.Llenar(entradas, ctx.LogenUso);
    connect(&form3, &Form3::LogElegido, this, &Form1::AbrirLog);
    form3.exec();
}

void Form1::AbrirLog(const QString &nombre)
{
    ListView2->clear();
    ctx.LogenUso = nombre;
    CargarLog(1);
    GuardarConfiguracion();
}

void Form1::nuevo_Click()
{
    Dialogos &d = ctx.dialogos();
    QString nombre;
    for (;;) {
        const std::optional<QString> respuesta =
            d.Entrada(QStringLiteral("Ingrese el nombre del nuevo Log"));
        if (!respuesta || respuesta->isEmpty())
            return;
        nombre = *respuesta;
        if (!ExisteLog(ctx.almacen().Logs(), nombre))
            break;
        d.Exclamacion(MensajeLogExistente(nombre));
    }
    // The placeholder row is what makes an empty log exist; without it nothing changes.
    if (const Resultado<qint64> r = ctx.almacen().AgregarLogVacio(nombre); !r) {
        d.Alto(r.Mensaje());
        return;
    }
    ctx.LogenUso = nombre;
    GuardarConfiguracion();
    ListView2->clear();
    CargarLog(1);
}

void Form1::borralog_Click()
{
    Dialogos &d = ctx.dialogos();
    if (!d.PreguntaSiNo(PreguntaBorrarLog(RotuloDelLog())))
        return;
    if (const Resultado<> r = ctx.almacen().BorrarLog(ctx.LogenUso); !r) {
        d.Alto(r.Mensaje());
        return;
    }
    ListView2->clear();
    ctx.LogenUso = LogTrasBorrar(ctx.almacen().Logs());
    CargarLog(1);
    GuardarConfiguracion();
}

void Form1::Command7_Click()
{
    const QString senal = Corresponsal->text();
    // The button is off while the field is empty; an empty prefix would list the whole log.
    if (senal.isEmpty())
        return;
    const QVector<FilaQSO> filas = ctx.almacen().HistorialDe(ctx.LogenUso, senal);
    if (filas.isEmpty()) {
        ctx.dialogos().Exclamacion(MensajeSinQSOs(senal));
        return;
    }
    Form17 form17(this);
    form17.Llenar(senal, LineasHistorial(filas));
    form17.exec();
}

void Form1::Command15_Click()
{
    // Nothing to tell if the desktop has no browser: the link simply does not open, as
    // with the logo's.
    ctx.escritorio().Abrir(ctx.direcciones().AMSAT + QStringLiteral("/pass.htm"));
}
