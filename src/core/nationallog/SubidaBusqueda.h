// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// "Subir a LbN" of the search window: the rows found, sent one by one to the national log
// with the account of its lookup, each reply shown in its colour. No row is changed: only
// the runs of the menu write the states. The window asks the QSL-message question itself,
// between Preparar and Subir, and shows the run through VistaSubidaBusqueda.
//
//   SubidaBusqueda subida(ctx.web(), ctx.bomba(), ctx.dialogos(), ctx.config(),
//                         ctx.direcciones().LbN);
//   if (!subida.Preparar(filas.size())) return;
//   const bool usar = UsarComentarioComoQslmsg();
//   subida.Subir(filas, usar, vista);

#include "core/nationallog/SubidaLbN.h"

class Dialogos;
struct Configuracion;

class VistaSubidaBusqueda
{
public:
    virtual ~VistaSubidaBusqueda() = default;
    // The answers' frame up: its text emptied, "Cerrar" off, "Conectando con LbN ...",
    // the progress at 0 of total.
    virtual void Empezar(int total) = 0;
    // One reply: the progress one further, the text added in its colour (BGR) and a line
    // break after it.
    virtual void Respuesta(const QString &texto, int colorBGR) = 0;
    // "Cerrar" on again.
    virtual void Terminar() = 0;
};

class SubidaBusqueda
{
public:
    SubidaBusqueda(ClienteWeb &web, BombaEventos &bomba, Dialogos &dialogos,
                   const Configuracion &config, QString baseLbN);

    // The account of the lookup and, over 50 rows, the operator's leave. False ends it.
    bool Preparar(qsizetype filas);
    // Sends the rows in their order. No rows: "No hay QSOs para exportar!".
    SubidaLbN::Fin Subir(const QVector<FilaQSO> &filas, bool usarComentarioComoQslmsg,
                         VistaSubidaBusqueda &vista);
    // Ends the run before the next QSO (the window or the program closing).
    void Cancelar();
    // The service refused the account or the callsign in the last run.
    bool Abortada() const { return abortada_; }

    // Five seconds without a reply move on to the next QSO.
    int tiempoMaximoMs = 5000;

private:
    ClienteWeb &web_;
    BombaEventos &bomba_;
    Dialogos &dialogos_;
    const Configuracion &config_;
    QString base_;
    SubidaLbN *enCurso_ = nullptr;
    bool abortada_ = false;
};
