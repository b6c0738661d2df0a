// SPDX-License-Identifier: GPL-3.0-or-later
// The reads of the ADIF import.

#include "core/store/Almacen.h"
#include "core/store/AlmacenPrivado.h"

using namespace almacen;

QVector<Almacen::MomentoQSO> Almacen::MomentosCandidatos(const QString &log, const QString &modo,
                                                         const QString &banda,
                                                         const QString &myCall,
                                                         const QString &estacion)
{
    d->FinDeCargaMasiva();
    // Equality on every column of Tabla1_Estacion, whose entries follow the id: the rows
    // come in the table's order with no sort.
    static const QString sql =
        QStringLiteral("SELECT id, Fecha, Hora FROM Tabla1 WHERE \"Nombre Log\"=? AND Estacion=? "
                       "AND Modo=? AND Banda=? AND MyCall=? ORDER BY id");
    QVector<MomentoQSO> momentos;
    QSqlQuery *q =
        d->Preparar(sql, {Texto(log), Texto(estacion), Texto(modo), Texto(banda), Texto(myCall)});
    if (!q)
        return momentos;
    while (q->next())
        momentos.append(
            {q->value(0).toLongLong(), FechaLeida(q->value(1).toString()), q->value(2).toString()});
    q->finish();
    return momentos;
}
