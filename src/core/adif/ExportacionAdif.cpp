// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/adif/ExportacionAdif.h"

#include "core/adif/EscritorAdif.h"
#include "core/store/Almacen.h"

Resultado<> ExportBusqueda(const QString &archivo, const QVector<FilaQSO> &filas,
                           bool comentarioComoQslmsg, const OrigenAdif &origen)
{
    SalidaAdif salida(archivo);
    salida.texto = CabeceraAdif(origen.versionPrograma, origen.creado);
    for (const FilaQSO &f : filas) {
        AgregarRegistroBusqueda(salida.texto, f, comentarioComoQslmsg);
        salida.Escribir();
    }
    salida.texto += FinAdif();
    return salida.Terminar();
}

Resultado<qint64> ExportRespaldo(Almacen &almacen, const QString &archivo, const OrigenAdif &origen,
                                 const std::function<void(qint64)> &avance)
{
    SalidaAdif salida(archivo);
    salida.texto = CabeceraAdif(origen.versionPrograma, origen.creado);
    qint64 escritos = 0;
    const Resultado<> lectura = almacen.RecorrerQSOs([&](const FilaQSO &f) {
        if (f.MyCall.isEmpty())
            return true;
        AgregarRegistroRespaldo(salida.texto, f);
        salida.Escribir();
        // Often enough for a live bar, seldom enough not to cost.
        if (++escritos % 512 == 0 && avance)
            avance(escritos);
        return true;
    });
    if (!lectura)
        return Fallo{lectura.Mensaje()}; // the file is not put in place
    salida.texto += FinAdif();
    if (const Resultado<> r = salida.Terminar(); !r)
        return Fallo{r.Mensaje()};
    if (avance)
        avance(escritos);
    return escritos;
}

Resultado<bool> ExportConcurso(const QString &archivo, const QVector<FilaConcurso> &filas,
                               const QString &senalEstacion, const OrigenAdif &origen)
{
    SalidaAdif salida(archivo);
    salida.texto = CabeceraAdif(origen.versionPrograma, origen.creado);
    RegistrosConcurso registros;
    bool completo = true;
    for (const FilaConcurso &f : filas) {
        if (f.Modo.isEmpty())
            continue;
        if (f.MyCall != senalEstacion) {
            completo = false;
            break;
        }
        registros.Agregar(salida.texto, f);
        salida.Escribir();
    }
    if (const Resultado<> r = salida.Terminar(); !r)
        return Fallo{r.Mensaje()};
    return completo;
}
