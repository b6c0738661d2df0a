// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The page navigator of the log view: which page is shown, where it starts, and which
// of the four buttons can be pressed. Twenty rows to a page, newest first. Positions
// are 64-bit so the last page of any log can be reached.

#include <QtGlobal>

struct BotonesPagina
{
    bool anterior = false; // "Primera"
    bool menos = false;    // "Anterior"
    bool mas = false;      // "Siguiente"
    bool ultima = false;   // "Ultima"
    bool operator==(const BotonesPagina &) const = default;
};

class NavegadorPaginas
{
public:
    static constexpr qint64 FilasPorPagina = 20;

    qint64 Cantidad = 0; // the QSOs of the log at the last load, as the store counts them
    qint64 TotalPaginas = 0;
    qint64 PaginaActual = 0;
    qint64 FilaInicial = 1;

    // A load of the view with n QSOs starting at row filaInicial.
    void Cargado(qint64 n, qint64 filaInicial);
    BotonesPagina Botones(qint64 n) const;
    // The number txt_total shows: the pages, or 1 for an empty log.
    qint64 TotalMostrado() const { return TotalPaginas == 0 ? 1 : TotalPaginas; }

    void Primera();
    void Anterior();
    void Siguiente();
    void Ultima(qint64 n);
    // The jump of "Ir". pedido is the page typed (read by the leading-number rule) and
    // comes back as the page the field must show. False when the view stays as it is.
    bool Ir(qint64 &pedido);
};
