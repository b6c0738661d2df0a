// SPDX-License-Identifier: GPL-3.0-or-later
// The import's work on the file: the duplicate candidates, the staging table Tabla3 and its
// load into the log. Every QSO of a file passes here once or twice, so these statements run
// through the engine's own interface; the load moves a staged row inside the engine, with
// no trip of its values through the program.

#include "core/rules/Senales.h"
#include "core/store/Almacen.h"
#include "core/store/AlmacenPrivado.h"

using namespace almacen;

namespace {

const char *const kInsertarEspera =
    "INSERT INTO Tabla3 (Modo, Banda, MyCall, Estacion, Fecha, Hora, RSE, RSR, Obs, Operador, "
    "\"Nombre Log\", Frecuencia, MiGrid, SuGrid, LbN, Nombre_Sat, Argento, Dupe) "
    "VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)";

// The values of a staged row.
void LigarEspera(Sentencia &s, const RegistroQSO &qso, const QString &dupe, const QString &log)
{
    const QString fecha = FechaParaGuardar(qso.Fecha);
    const QString rse = qso.RSE.left(3), rsr = qso.RSR.left(3), obs = qso.Obs.left(100);
    const QString miGrid = SinBlancos(qso.MiGrid), suGrid = SinBlancos(qso.SuGrid);
    const QString argento = ProvinciaParaGuardar(qso.Estacion);
    int n = 1;
    for (const QString *texto : {&qso.Modo, &qso.Banda, &qso.MyCall, &qso.Estacion, &fecha,
                                 &qso.Hora, &rse, &rsr, &obs, &qso.Operador, &log, &qso.Frecuencia,
                                 &miGrid, &suGrid, &qso.LbN, &qso.Nombre_Sat, &argento, &dupe})
        s.Texto(n++, *texto);
}

// A staged row as the log keeps a QSO, the very conversions of a row read from Tabla3 and
// written with the store's adds: a column read as empty when NULL; the date read and kept
// as every date is (FechaDeEspera); a time of hh:mm given its seconds; the upload state as
// the whole number it starts with, so that a plain file's empty one is 0 (NumeroEntero).
// First the columns of the indexes and the counts, named.
#define CLAVE_DE_ESPERA                                                                            \
    "IFNULL(Modo,'') AS Modo, IFNULL(Banda,'') AS Banda, IFNULL(MyCall,'') AS MyCall, "            \
    "IFNULL(Estacion,'') AS Estacion, FechaDeEspera(Fecha) AS Fecha, "                             \
    "CASE WHEN length(Hora)=5 THEN Hora||':00' ELSE IFNULL(Hora,'') END AS Hora"
#define RESTO_DE_ESPERA "IFNULL(RSE,''), IFNULL(RSR,''), IFNULL(Obs,''), IFNULL(Operador,'')"

// New QSOs: as AgregarQSOImportado adds one, satellite and province trimmed of blanks. Many in
// one statement: each run of an insert reads and writes the table's counter of ids and opens
// its indexes, which for a single row costs as much as the row.
const char *const kAgregarDeEspera =
    "INSERT INTO Tabla1 (Modo, Banda, MyCall, Estacion, Fecha, Hora, RSE, RSR, Obs, Operador, "
    "\"Nombre Log\", Frecuencia, MiGrid, SuGrid, LbN, Nombre_Sat, Argento) "
    "SELECT " CLAVE_DE_ESPERA ", " RESTO_DE_ESPERA ", ?2, IFNULL(Frecuencia,''), "
    "IFNULL(MiGrid,''), IFNULL(SuGrid,''), NumeroEntero(LbN), trim(IFNULL(Nombre_Sat,''),' '), "
    "trim(IFNULL(Argento,''),' ') FROM Tabla3 WHERE id BETWEEN ?1 AND ?3 AND "
    "Dupe='VA' COLLATE BINARY ORDER BY id";

// A duplicate replaced: as ActualizarQSO writes one, every column but the log's name. In two
// statements: the columns of no index and no count first; then those of the indexes, only
// when one of them differs in a single byte. A duplicate has, as a rule, the key of the QSO
// it replaces, and rewriting the same entries of both indexes and the counts would double
// the cost of a replaced row.
const char *const kActualizarDeEspera =
    "UPDATE Tabla1 SET (RSE, RSR, Obs, Operador, MiGrid, SuGrid, Frecuencia, LbN, Nombre_Sat, "
    "Argento) = (SELECT " RESTO_DE_ESPERA ", IFNULL(MiGrid,''), IFNULL(SuGrid,''), "
    "IFNULL(Frecuencia,''), NumeroEntero(LbN), IFNULL(Nombre_Sat,''), IFNULL(Argento,'') "
    "FROM Tabla3 WHERE id=?1) WHERE id=?2";
const char *const kActualizarClaveDeEspera =
    "UPDATE Tabla1 SET Modo=e.Modo, Banda=e.Banda, MyCall=e.MyCall, Estacion=e.Estacion, "
    "Fecha=e.Fecha, Hora=e.Hora FROM (SELECT " CLAVE_DE_ESPERA " FROM Tabla3 WHERE id=?1) AS e "
    "WHERE Tabla1.id=?2 AND (Tabla1.Modo IS NOT e.Modo COLLATE BINARY OR Tabla1.Banda IS NOT "
    "e.Banda COLLATE BINARY OR Tabla1.MyCall IS NOT e.MyCall COLLATE BINARY OR Tabla1.Estacion "
    "IS NOT e.Estacion COLLATE BINARY OR Tabla1.Fecha IS NOT e.Fecha COLLATE BINARY OR "
    "Tabla1.Hora IS NOT e.Hora COLLATE BINARY)";

#undef CLAVE_DE_ESPERA
#undef RESTO_DE_ESPERA

} // namespace

QVector<Almacen::MomentoQSO> Almacen::MomentosCandidatos(const QString &log, const QString &modo,
                                                         const QString &banda,
                                                         const QString &myCall,
                                                         const QString &estacion)
{
    d->FinDeCargaMasiva();
    // Equality on every column of Tabla1_Estacion, whose entries follow the id: the rows
    // come in the table's order with no sort.
    QVector<MomentoQSO> momentos;
    Sentencia *s = d->Motor("SELECT id, Fecha, Hora FROM Tabla1 WHERE \"Nombre Log\"=? AND "
                            "Estacion=? AND Modo=? AND Banda=? AND MyCall=? ORDER BY id");
    if (!s)
        return momentos;
    int n = 0;
    for (const QString *valor : {&log, &estacion, &modo, &banda, &myCall})
        s->Texto(++n, *valor);
    while (s->Fila())
        momentos.append({s->EnteroEn(0), FechaLeida(s->TextoEn(1)), s->TextoEn(2)});
    s->Reiniciar();
    return momentos;
}

Resultado<qint64> Almacen::AgregarQSOEspera(const RegistroQSO &qso, const QString &dupe,
                                            const QString &logenUso)
{
    if (Sentencia *s =
            d->Correr(kInsertarEspera, [&](Sentencia &s) { LigarEspera(s, qso, dupe, logenUso); }))
        return s->UltimoId();
    return d->FalloCon(
        QStringLiteral("No se pudo preparar la importación del QSO con %1.").arg(qso.Estacion));
}

QVector<Almacen::MarcaEspera> Almacen::MarcasEspera()
{
    QVector<MarcaEspera> marcas;
    if (Sentencia *s = d->Motor("SELECT id, Dupe FROM Tabla3 ORDER BY id")) {
        while (s->Fila())
            marcas.append({s->EnteroEn(0), s->TextoEn(1)});
        s->Reiniciar();
    }
    return marcas;
}

Resultado<int> Almacen::AgregarQSOsDeEspera(qint64 desde, qint64 hasta, const QString &logenUso)
{
    d->FinDeCargaMasiva();
    d->pagina.valida = false;
    if (Sentencia *s = d->Correr(kAgregarDeEspera, [&](Sentencia &s) {
            s.Entero(1, desde);
            s.Texto(2, logenUso);
            s.Entero(3, hasta);
        }))
        return s->Cambios();
    return d->FalloCon(QStringLiteral("No se pudieron importar los QSOs."));
}

Resultado<> Almacen::ActualizarQSODeEspera(qint64 id, qint64 idEspera)
{
    d->FinDeCargaMasiva();
    const auto ligar = [&](Sentencia &s) {
        s.Entero(1, idEspera);
        s.Entero(2, id);
    };
    // Both statements or neither: the row is never left half written.
    if (d->EnBloque([&] {
            return d->Correr(kActualizarDeEspera, ligar) &&
                   d->Correr(kActualizarClaveDeEspera, ligar);
        }))
        return {};
    return d->FalloCon(QStringLiteral("No se pudo guardar el QSO #%1.").arg(id));
}
