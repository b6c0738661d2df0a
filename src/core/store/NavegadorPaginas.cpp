// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/store/NavegadorPaginas.h"

void NavegadorPaginas::Cargado(qint64 n, qint64 filaInicial)
{
    Cantidad = n;
    TotalPaginas = (n + FilasPorPagina - 1) / FilasPorPagina;
    if (filaInicial == 1)
        PaginaActual = 1;
    FilaInicial = filaInicial;
}

BotonesPagina NavegadorPaginas::Botones(qint64 n) const
{
    BotonesPagina b;
    if (n <= FilasPorPagina || TotalPaginas < 2)
        return b;
    const bool primera = PaginaActual <= 1;
    const bool ultimaPagina = PaginaActual >= TotalPaginas;
    b.anterior = b.menos = !primera;
    b.mas = b.ultima = !ultimaPagina;
    return b;
}

void NavegadorPaginas::Primera()
{
    PaginaActual = 1;
    FilaInicial = 1;
}

void NavegadorPaginas::Anterior()
{
    PaginaActual -= 1;
    FilaInicial -= FilasPorPagina;
}

void NavegadorPaginas::Siguiente()
{
    PaginaActual += 1;
    FilaInicial += FilasPorPagina;
}

void NavegadorPaginas::Ultima(qint64 n)
{
    PaginaActual = TotalPaginas;
    // The rows left on the last page: 1 to 20. The first of them is the page's start.
    if (n > FilasPorPagina) {
        const qint64 resto = n - FilasPorPagina * ((n - 1) / FilasPorPagina);
        FilaInicial = n - resto + 1;
    }
}

bool NavegadorPaginas::Ir(qint64 &pedido)
{
    if (pedido <= 0)
        pedido = 1;
    if (pedido > TotalPaginas)
        pedido = TotalPaginas;
    if (pedido == PaginaActual || pedido < 1)
        return false;
    FilaInicial += (pedido - PaginaActual) * FilasPorPagina;
    PaginaActual = pedido;
    return true;
}
