// The writing operations of the store.

#include "logcore/Almacen.h"
#include "logcore/AlmacenPrivado.h"
#include "rules/Senales.h"

using namespace almacen;

namespace {

const QString kInsertarTabla1 = QStringLiteral(
    "INSERT INTO Tabla1 (Modo, Banda, MyCall, Estacion, Fecha, Hora, RSE, RSR, Obs, Operador, "
    "\"Nombre Log\", Frecuencia, MiGrid, SuGrid, LbN, Nombre_Sat, Argento) "
    "VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)");

const QString kInsertarTabla3 = QStringLiteral(
    "INSERT INTO Tabla3 (Modo, Banda, MyCall, Estacion, Fecha, Hora, RSE, RSR, Obs, Operador, "
    "\"Nombre Log\", Frecuencia, MiGrid, SuGrid, LbN, Nombre_Sat, Argento, Dupe) "
    "VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)");

// Operador and Argento of a contest row stay unset.
const QString kInsertarTabla2 = QStringLiteral(
    "INSERT INTO Tabla2 (Modo, Banda, MyCall, Estacion, Fecha, Hora, RSE, RSR, Obs, "
    "\"Nombre Log\", Frecuencia, LbN, Nombre_Sat) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)");

// The values of kInsertarTabla1, columns 1 to 17, with the last three as each add decides.
QVariantList ValoresTabla1(const RegistroQSO &q, const QString &log, const QString &lbn,
                           const QString &satelite, const QString &argento)
{
    return {Texto(q.Modo),
            Texto(q.Banda),
            Texto(q.MyCall),
            Texto(q.Estacion),
            Texto(FechaParaGuardar(q.Fecha)),
            Texto(q.Hora),
            Texto(q.RSE),
            Texto(q.RSR),
            Texto(q.Obs),
            Texto(q.Operador),
            Texto(log),
            Texto(q.Frecuencia),
            Texto(q.MiGrid),
            Texto(q.SuGrid),
            Texto(lbn),
            Texto(satelite),
            Texto(argento)};
}

} // namespace

qint64 Almacen::AgregarQSO(const RegistroQSO &qso, const QString &logenUso)
{
    // LbN "1" for every QSO typed here, although "Sólo Subir" then leaves it out: the
    // service's own runs count on it.
    return d->Insertar(kInsertarTabla1,
                       ValoresTabla1(qso, logenUso, QStringLiteral("1"), SinBlancos(qso.Nombre_Sat),
                                     ProvinciaParaGuardar(qso.Estacion)));
}

qint64 Almacen::AgregarQSOImportado(const RegistroQSO &qso, const QString &logenUso)
{
    return d->Insertar(
        kInsertarTabla1,
        ValoresTabla1(qso, logenUso, qso.LbN, SinBlancos(qso.Nombre_Sat), SinBlancos(qso.Argento)));
}

qint64 Almacen::AgregarQSOConcurso(const FilaConcurso &f)
{
    return d->Insertar(kInsertarTabla2,
                       {Texto(f.Modo), Texto(f.Banda), Texto(f.MyCall), Texto(f.Estacion),
                        Texto(f.Fecha), Texto(f.Hora), Texto(f.RSE), Texto(f.RSR), Texto(f.Obs),
                        Texto(f.NombreLog), Texto(f.Frecuencia), Texto(f.LbN),
                        Texto(f.Nombre_Sat)});
}

qint64 Almacen::AgregarQSOEspera(const RegistroQSO &qso, const QString &dupe,
                                 const QString &logenUso)
{
    RegistroQSO cortado = qso;
    cortado.RSE = qso.RSE.left(3);
    cortado.RSR = qso.RSR.left(3);
    cortado.Obs = qso.Obs.left(100);
    cortado.MiGrid = SinBlancos(qso.MiGrid);
    cortado.SuGrid = SinBlancos(qso.SuGrid);
    QVariantList valores = ValoresTabla1(cortado, logenUso, qso.LbN, qso.Nombre_Sat,
                                         ProvinciaParaGuardar(qso.Estacion));
    valores << Texto(dupe);
    return d->Insertar(kInsertarTabla3, valores);
}

qint64 Almacen::AgregarLogVacio(const QString &log)
{
    // Only the name: Modo stays NULL, which is what tells the placeholder from a QSO.
    return d->Insertar(QStringLiteral("INSERT INTO Tabla1 (\"Nombre Log\") VALUES (?)"),
                       {Texto(log)});
}

bool Almacen::ActualizarQSO(qint64 id, const RegistroQSO &q)
{
    return d->Escribir(
        QStringLiteral("UPDATE Tabla1 SET Modo=?, Banda=?, MyCall=?, Estacion=?, Fecha=?, Hora=?, "
                       "RSE=?, RSR=?, Obs=?, Operador=?, MiGrid=?, SuGrid=?, Frecuencia=?, LbN=?, "
                       "Nombre_Sat=?, Argento=? WHERE id=?"),
        {Texto(q.Modo), Texto(q.Banda), Texto(q.MyCall), Texto(q.Estacion),
         Texto(FechaParaGuardar(q.Fecha)), Texto(q.Hora), Texto(q.RSE), Texto(q.RSR), Texto(q.Obs),
         Texto(q.Operador), Texto(q.MiGrid), Texto(q.SuGrid), Texto(q.Frecuencia), Texto(q.LbN),
         Texto(q.Nombre_Sat), Texto(q.Argento), id});
}

bool Almacen::MarcarLbN(qint64 id, int estado)
{
    return d->Escribir(QStringLiteral("UPDATE Tabla1 SET LbN=? WHERE id=?"),
                       {QString::number(estado), id});
}

bool Almacen::ActualizarQSOConcurso(qint64 id, const FilaConcurso &f)
{
    return d->Escribir(
        QStringLiteral("UPDATE Tabla2 SET Modo=?, Banda=?, MyCall=?, Estacion=?, Fecha=?, Hora=?, "
                       "RSE=?, RSR=?, Frecuencia=?, LbN=?, Nombre_Sat=? WHERE id=?"),
        {Texto(f.Modo), Texto(f.Banda), Texto(f.MyCall), Texto(f.Estacion), Texto(f.Fecha),
         Texto(f.Hora), Texto(f.RSE), Texto(f.RSR), Texto(f.Frecuencia), Texto(f.LbN),
         Texto(f.Nombre_Sat), id});
}

bool Almacen::BorrarQSO(qint64 id)
{
    return d->Escribir(QStringLiteral("DELETE FROM Tabla1 WHERE id=?"), {id});
}

bool Almacen::BorrarQSOConcurso(qint64 id)
{
    return d->Escribir(QStringLiteral("DELETE FROM Tabla2 WHERE id=?"), {id});
}

bool Almacen::BorrarLog(const QString &log)
{
    return d->Escribir(QStringLiteral("DELETE FROM Tabla1 WHERE \"Nombre Log\"=?"), {Texto(log)});
}

bool Almacen::BorrarLogConcurso(const QString &log)
{
    return d->Escribir(QStringLiteral("DELETE FROM Tabla2 WHERE \"Nombre Log\"=?"), {Texto(log)});
}

bool Almacen::VaciarEspera()
{
    return d->Escribir(QStringLiteral("DELETE FROM Tabla3"), {});
}

bool Almacen::VaciarTodo()
{
    // Forgetting a table's row in sqlite_sequence is what restarts its ids at 1.
    return d->EnBloque([this] {
        for (const char *tabla : {"Tabla1", "Tabla2", "Tabla3"}) {
            if (!d->Directa(QStringLiteral("DELETE FROM %1").arg(QLatin1String(tabla))) ||
                !d->Escribir(QStringLiteral("DELETE FROM sqlite_sequence WHERE name=?"),
                             {QString::fromLatin1(tabla)}))
                return false;
        }
        return true;
    });
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
