// SPDX-License-Identifier: GPL-3.0-or-later
// The writing operations of the store.

#include "core/rules/Senales.h"
#include "core/store/Almacen.h"
#include "core/store/AlmacenPrivado.h"

#include <algorithm>

using namespace almacen;

namespace {

const QString kInsertarTabla1 = QStringLiteral(
    "INSERT INTO Tabla1 (Modo, Banda, MyCall, Estacion, Fecha, Hora, RSE, RSR, Obs, Operador, "
    "\"Nombre Log\", Frecuencia, MiGrid, SuGrid, LbN, Nombre_Sat, Argento) "
    "VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)");

// Operador and Argento of a contest row stay unset.
const QString kInsertarTabla2 = QStringLiteral(
    "INSERT INTO Tabla2 (Modo, Banda, MyCall, Estacion, Fecha, Hora, RSE, RSR, Obs, "
    "\"Nombre Log\", Frecuencia, LbN, Nombre_Sat) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)");

// The values of kInsertarTabla1, columns 1 to 17, with the last three as each add decides.
QVariantList ValoresTabla1(const RegistroQSO &q, const QString &log, const QString &lbn,
                           const QString &satelite, const QString &argento)
{
    const QString fecha = FechaParaGuardar(q.Fecha);
    QVariantList valores;
    valores.reserve(17);
    for (const QString *texto :
         {&q.Modo, &q.Banda, &q.MyCall, &q.Estacion, &fecha, &q.Hora, &q.RSE, &q.RSR, &q.Obs,
          &q.Operador, &log, &q.Frecuencia, &q.MiGrid, &q.SuGrid, &lbn, &satelite, &argento})
        valores.emplaceBack(Texto(*texto));
    return valores;
}

} // namespace

Resultado<qint64> Almacen::AgregarQSO(const RegistroQSO &qso, const QString &logenUso)
{
    // LbN "1" for every QSO typed here, although "Sólo Subir" then leaves it out: the
    // service's own runs count on it.
    const qint64 id =
        d->InsertarEnTabla1(kInsertarTabla1, ValoresTabla1(qso, logenUso, QStringLiteral("1"),
                                                           SinBlancos(qso.Nombre_Sat),
                                                           ProvinciaParaGuardar(qso.Estacion)));
    if (id > 0)
        return id;
    return d->FalloCon(QStringLiteral("No se pudo guardar el QSO con %1.").arg(qso.Estacion));
}

Resultado<qint64> Almacen::AgregarQSOImportado(const RegistroQSO &qso, const QString &logenUso)
{
    const qint64 id = d->InsertarEnTabla1(
        kInsertarTabla1,
        ValoresTabla1(qso, logenUso, qso.LbN, SinBlancos(qso.Nombre_Sat), SinBlancos(qso.Argento)));
    if (id > 0)
        return id;
    return d->FalloCon(QStringLiteral("No se pudo importar el QSO con %1.").arg(qso.Estacion));
}

Resultado<qint64> Almacen::AgregarQSOConcurso(const FilaConcurso &f)
{
    const qint64 id =
        d->Insertar(kInsertarTabla2,
                    {Texto(f.Modo), Texto(f.Banda), Texto(f.MyCall), Texto(f.Estacion),
                     Texto(f.Fecha), Texto(f.Hora), Texto(f.RSE), Texto(f.RSR), Texto(f.Obs),
                     Texto(f.NombreLog), Texto(f.Frecuencia), Texto(f.LbN), Texto(f.Nombre_Sat)});
    if (id > 0)
        return id;
    return d->FalloCon(QStringLiteral("No se pudo guardar el QSO con %1 en el concurso %2.")
                           .arg(f.Estacion, f.NombreLog));
}

Resultado<qint64> Almacen::AgregarLogVacio(const QString &log)
{
    // Only the name: Modo stays NULL, which is what tells the placeholder from a QSO.
    const qint64 id = d->InsertarEnTabla1(
        QStringLiteral("INSERT INTO Tabla1 (\"Nombre Log\") VALUES (?)"), {Texto(log)});
    if (id > 0)
        return id;
    return d->FalloCon(QStringLiteral("No se pudo crear el log %1.").arg(log));
}

Resultado<> Almacen::ActualizarQSO(qint64 id, const RegistroQSO &q)
{
    d->FinDeCargaMasiva();
    if (d->Escribir(QStringLiteral(
                        "UPDATE Tabla1 SET Modo=?, Banda=?, MyCall=?, Estacion=?, Fecha=?, Hora=?, "
                        "RSE=?, RSR=?, Obs=?, Operador=?, MiGrid=?, SuGrid=?, Frecuencia=?, LbN=?, "
                        "Nombre_Sat=?, Argento=? WHERE id=?"),
                    {Texto(q.Modo), Texto(q.Banda), Texto(q.MyCall), Texto(q.Estacion),
                     Texto(FechaParaGuardar(q.Fecha)), Texto(q.Hora), Texto(q.RSE), Texto(q.RSR),
                     Texto(q.Obs), Texto(q.Operador), Texto(q.MiGrid), Texto(q.SuGrid),
                     Texto(q.Frecuencia), Texto(q.LbN), Texto(q.Nombre_Sat), Texto(q.Argento), id}))
        return {};
    return d->FalloCon(QStringLiteral("No se pudo guardar el QSO #%1.").arg(id));
}

Resultado<> Almacen::MarcarLbN(qint64 id, int estado)
{
    if (d->Escribir(QStringLiteral("UPDATE Tabla1 SET LbN=? WHERE id=?"),
                    {QString::number(estado), id}))
        return {};
    return d->FalloCon(QStringLiteral("No se pudo anotar el estado en LbN del QSO #%1.").arg(id));
}

Resultado<> Almacen::ActualizarQSOConcurso(qint64 id, const FilaConcurso &f)
{
    if (d->Escribir(
            QStringLiteral("UPDATE Tabla2 SET Modo=?, Banda=?, MyCall=?, Estacion=?, Fecha=?, "
                           "Hora=?, RSE=?, RSR=?, Frecuencia=?, LbN=?, Nombre_Sat=? WHERE id=?"),
            {Texto(f.Modo), Texto(f.Banda), Texto(f.MyCall), Texto(f.Estacion), Texto(f.Fecha),
             Texto(f.Hora), Texto(f.RSE), Texto(f.RSR), Texto(f.Frecuencia), Texto(f.LbN),
             Texto(f.Nombre_Sat), id}))
        return {};
    return d->FalloCon(QStringLiteral("No se pudo guardar el QSO de concurso #%1.").arg(id));
}

Resultado<> Almacen::BorrarQSO(qint64 id)
{
    d->FinDeCargaMasiva();
    if (d->Escribir(QStringLiteral("DELETE FROM Tabla1 WHERE id=?"), {id}))
        return {};
    return d->FalloCon(QStringLiteral("No se pudo eliminar el QSO #%1.").arg(id));
}

Resultado<> Almacen::BorrarQSOConcurso(qint64 id)
{
    if (d->Escribir(QStringLiteral("DELETE FROM Tabla2 WHERE id=?"), {id}))
        return {};
    return d->FalloCon(QStringLiteral("No se pudo eliminar el QSO de concurso #%1.").arg(id));
}

Resultado<> Almacen::BorrarLog(const QString &log)
{
    d->FinDeCargaMasiva();
    if (d->Escribir(QStringLiteral("DELETE FROM Tabla1 WHERE \"Nombre Log\"=?"), {Texto(log)}))
        return {};
    return d->FalloCon(QStringLiteral("No se pudo borrar el log %1.").arg(log));
}

Resultado<> Almacen::BorrarLogConcurso(const QString &log)
{
    if (d->Escribir(QStringLiteral("DELETE FROM Tabla2 WHERE \"Nombre Log\"=?"), {Texto(log)}))
        return {};
    return d->FalloCon(QStringLiteral("No se pudo borrar el concurso %1.").arg(log));
}

Resultado<> Almacen::VaciarEspera()
{
    if (d->Escribir(QStringLiteral("DELETE FROM Tabla3"), {}))
        return {};
    return d->FalloCon(QStringLiteral("No se pudo vaciar la tabla de importación."));
}

Resultado<> Almacen::VaciarTodo()
{
    d->FinDeCargaMasiva();
    // Forgetting a table's row in sqlite_sequence is what restarts its ids at 1.
    const bool hecho = d->EnBloque([this] {
        for (const char *tabla : {"Tabla1", "Tabla2", "Tabla3"}) {
            if (!d->Directa(QStringLiteral("DELETE FROM %1").arg(QLatin1String(tabla))) ||
                !d->Escribir(QStringLiteral("DELETE FROM sqlite_sequence WHERE name=?"),
                             {QString::fromLatin1(tabla)}))
                return false;
        }
        return true;
    });
    if (hecho)
        return {};
    return d->FalloCon(QStringLiteral("No se pudieron vaciar las tablas."));
}

bool Almacen::ExisteLogConcurso(const QString &log)
{
    QSqlQuery *q = d->Preparar(
        QStringLiteral("SELECT 1 FROM Tabla2 WHERE \"Nombre Log\"=? LIMIT 1"), {Texto(log)});
    if (!q)
        return false;
    const bool hay = q->next();
    q->finish();
    return hay;
}

// ---- Transactions and the bulk load ------------------------------------------------------------

// A load touches the pages of the callsign and duplicate index in no order; with a small
// cache they would be spilled to the journal and written again and again, so the cache
// grows for the transaction and shrinks back after it. The sorts that end a bulk load
// work in the same memory.
Resultado<> Almacen::IniciarTransaccion()
{
    d->pagina.valida = false;
    d->Directa(QStringLiteral("PRAGMA cache_size=-131072"));
    if (!d->Directa(QStringLiteral("BEGIN")))
        return d->FalloCon(QStringLiteral("No se pudo empezar a escribir en la base de datos."));
    d->carga = {};
    d->carga.abierta = true;
    d->carga.revision = d->umbralMasivo;
    return {};
}

Resultado<> Almacen::ConfirmarTransaccion()
{
    d->pagina.valida = false;
    const QString que = QStringLiteral("No se pudieron guardar los cambios en la base de datos.");
    // What bulk mode dropped is back before the COMMIT, so the file on disk always has it;
    // should that fail, nothing of the transaction is kept rather than a file without it.
    if (d->carga.masiva && !d->TerminarCargaMasiva()) {
        const Fallo fallo = d->FalloCon(que);
        static_cast<void>(DeshacerTransaccion());
        return fallo;
    }
    Resultado<> hecho;
    if (d->Directa(QStringLiteral("COMMIT")))
        d->carga = {};
    else
        hecho = d->FalloCon(que);
    d->Directa(QStringLiteral("PRAGMA cache_size=-32768"));
    return hecho;
}

Resultado<> Almacen::DeshacerTransaccion()
{
    d->pagina.valida = false;
    // The rollback brings the indexes and the trigger back with the rows.
    Resultado<> hecho;
    if (!d->Directa(QStringLiteral("ROLLBACK")))
        hecho =
            d->FalloCon(QStringLiteral("No se pudieron deshacer los cambios en la base de datos."));
    d->carga = {};
    d->Directa(QStringLiteral("PRAGMA cache_size=-32768"));
    return hecho;
}

void Almacen::UmbralCargaMasiva(int filas)
{
    d->umbralMasivo = std::max(filas, 1);
}

bool Almacen::EnCargaMasiva() const
{
    return d->carga.masiva;
}

qint64 Almacen::Privado::InsertarEnTabla1(const QString &sql, const QVariantList &valores)
{
    const qint64 id = Insertar(sql, valores);
    if (id == 0 || !carga.abierta)
        return id;
    ++carga.altas;
    if (!carga.masiva && carga.altas >= carga.revision && !carga.vedada)
        QuizaCargaMasiva();
    return id;
}

void Almacen::Privado::QuizaCargaMasiva()
{
    carga.revision = carga.altas + umbralMasivo;
    // Sorting an index costs about half as much per row as inserting the rows into it one
    // by one, and the sort takes in the whole table: it pays once the transaction has added
    // as many rows as the file held before. The counts include every row added so far,
    // since until now the trigger was in place.
    QSqlQuery *q = Preparar(QStringLiteral("SELECT IFNULL(SUM(Filas),0), (SELECT IFNULL(MAX(id),0) "
                                           "FROM Tabla1) FROM CuentaLogs"),
                            {});
    if (!q)
        return;
    const bool leido = q->next();
    const qint64 filas = leido ? q->value(0).toLongLong() : 0;
    const qint64 ultimoId = leido ? q->value(1).toLongLong() : 0;
    q->finish();
    if (!leido || carga.altas < filas - carga.altas)
        return;
    // Should the drop fail, the load goes on the ordinary way.
    carga.masiva = EnBloque([this] {
        return Directa(QStringLiteral("DROP TRIGGER IF EXISTS Tabla1_Alta")) &&
               Directa(QStringLiteral("DROP INDEX IF EXISTS Tabla1_Estacion")) &&
               Directa(QStringLiteral("DROP INDEX IF EXISTS Tabla1_Vista"));
    });
    carga.vedada = !carga.masiva;
    carga.desdeId = ultimoId;
    error.clear();
}

bool Almacen::Privado::TerminarCargaMasiva()
{
    // While bulk mode lasts the transaction only adds rows (a change or delete ends it
    // first), so the rows above desdeId are exactly those the trigger missed. The index of
    // the view is made first: it holds every column the count reads, in the order of the logs.
    const bool hecho = EnBloque([this] {
        return Directa(QLatin1String(kIndiceVista)) && Directa(QLatin1String(kIndiceEstacion)) &&
               Escribir(SumarCuentasDesde(), {carga.desdeId}) && Directa(DisparadorAlta());
    });
    if (hecho)
        carga.masiva = false;
    return hecho;
}

void Almacen::Privado::FinDeCargaMasiva()
{
    if (!carga.abierta || carga.altas == 0)
        return;
    carga.vedada = true;
    if (carga.masiva)
        TerminarCargaMasiva();
}
