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

const QString kInsertarTabla3 = QStringLiteral(
    "INSERT INTO Tabla3 (Modo, Banda, MyCall, Estacion, Fecha, Hora, RSE, RSR, Obs, Operador, "
    "\"Nombre Log\", Frecuencia, MiGrid, SuGrid, LbN, Nombre_Sat, Argento, Dupe) "
    "VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)");

// Operador and Argento of a contest row stay unset.
const QString kInsertarTabla2 = QStringLiteral(
    "INSERT INTO Tabla2 (Modo, Banda, MyCall, Estacion, Fecha, Hora, RSE, RSR, Obs, "
    "\"Nombre Log\", Frecuencia, LbN, Nombre_Sat) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)");

// Where kInsertarTabla1 and the placeholder's insert bind what the counts look at.
constexpr Contadas kContadasTabla1{0, 4, 5, 10};
constexpr Contadas kContadasVacio{-1, -1, -1, 0};

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

qint64 Almacen::AgregarQSO(const RegistroQSO &qso, const QString &logenUso)
{
    // LbN "1" for every QSO typed here, although "Sólo Subir" then leaves it out: the
    // service's own runs count on it.
    return d->InsertarEnTabla1(kInsertarTabla1,
                               ValoresTabla1(qso, logenUso, QStringLiteral("1"),
                                             SinBlancos(qso.Nombre_Sat),
                                             ProvinciaParaGuardar(qso.Estacion)),
                               kContadasTabla1);
}

qint64 Almacen::AgregarQSOImportado(const RegistroQSO &qso, const QString &logenUso)
{
    return d->InsertarEnTabla1(
        kInsertarTabla1,
        ValoresTabla1(qso, logenUso, qso.LbN, SinBlancos(qso.Nombre_Sat), SinBlancos(qso.Argento)),
        kContadasTabla1);
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
    return d->InsertarEnTabla1(QStringLiteral("INSERT INTO Tabla1 (\"Nombre Log\") VALUES (?)"),
                               {Texto(log)}, kContadasVacio);
}

bool Almacen::ActualizarQSO(qint64 id, const RegistroQSO &q)
{
    d->FinDeCargaMasiva();
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
    d->FinDeCargaMasiva();
    return d->Escribir(QStringLiteral("DELETE FROM Tabla1 WHERE id=?"), {id});
}

bool Almacen::BorrarQSOConcurso(qint64 id)
{
    return d->Escribir(QStringLiteral("DELETE FROM Tabla2 WHERE id=?"), {id});
}

bool Almacen::BorrarLog(const QString &log)
{
    d->FinDeCargaMasiva();
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
    d->FinDeCargaMasiva();
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

// ---- Transactions and the bulk load ------------------------------------------------------------

// A load touches the pages of the callsign and duplicate index in no order; with a small
// cache they would be spilled to the journal and written again and again, so the cache
// grows for the transaction and shrinks back after it. The sorts that end a bulk load
// work in the same memory.
bool Almacen::IniciarTransaccion()
{
    d->pagina.valida = false;
    d->Directa(QStringLiteral("PRAGMA cache_size=-131072"));
    if (!d->Directa(QStringLiteral("BEGIN")))
        return false;
    d->carga = {};
    d->carga.abierta = true;
    d->carga.revision = d->umbralMasivo;
    return true;
}

bool Almacen::ConfirmarTransaccion()
{
    d->pagina.valida = false;
    // What bulk mode dropped is back before the COMMIT, so the file on disk always has it;
    // should that fail, nothing of the transaction is kept rather than a file without it.
    if (d->carga.masiva && !d->TerminarCargaMasiva()) {
        const QString causa = d->error;
        DeshacerTransaccion();
        d->error = causa;
        return false;
    }
    const bool hecho = d->Directa(QStringLiteral("COMMIT"));
    if (hecho)
        d->carga = {};
    d->Directa(QStringLiteral("PRAGMA cache_size=-32768"));
    return hecho;
}

bool Almacen::DeshacerTransaccion()
{
    d->pagina.valida = false;
    // The rollback brings the indexes and the trigger back with the rows.
    const bool hecho = d->Directa(QStringLiteral("ROLLBACK"));
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

qint64 Almacen::Privado::InsertarEnTabla1(const QString &sql, const QVariantList &valores,
                                          const almacen::Contadas &columnas)
{
    const qint64 id = Insertar(sql, valores);
    if (id == 0 || !carga.abierta)
        return id;
    ++carga.altas;
    if (carga.masiva)
        Sumar(valores, columnas);
    else if (carga.altas >= carga.revision && !carga.vedada)
        QuizaCargaMasiva();
    return id;
}

namespace {

// NULL in the file: no value, or a null text (which the driver binds as NULL).
bool EsNulo(const QVariant &v)
{
    const QString *texto = TextoEn(v);
    return texto ? texto->isNull() : !v.isValid() || v.isNull();
}

// A log name as a NOCASE column compares it: the ASCII letters folded, nothing else.
QString ComoNocase(QString nombre)
{
    for (QChar &c : nombre)
        if (c >= u'A' && c <= u'Z')
            c = QChar(c.unicode() + (u'a' - u'A'));
    return nombre;
}

} // namespace

// What the insert trigger adds to CuentaLogs for the row, with its same rules: a row of no
// log is not counted; a QSO has a Modo that is neither NULL nor ''; a QSO without a date
// lacks Fecha or Hora.
void Almacen::Privado::Sumar(const QVariantList &valores, const almacen::Contadas &columnas)
{
    auto nulo = [&](int i) { return i < 0 || EsNulo(valores.at(i)); };
    if (nulo(columnas.log))
        return;
    const QString log = valores.at(columnas.log).toString();
    if (carga.ultimaSuma < 0 || log != carga.ultimoLog) {
        const QString clave = ComoNocase(log);
        auto it = carga.indice.constFind(clave);
        if (it == carga.indice.cend()) {
            it = carga.indice.insert(clave, carga.sumas.size());
            carga.sumas.append({log});
        }
        carga.ultimaSuma = it.value();
        carga.ultimoLog = log;
    }
    Carga::Suma &suma = carga.sumas[carga.ultimaSuma];
    const bool qso = !nulo(columnas.modo) && !valores.at(columnas.modo).toString().isEmpty();
    ++suma.filas;
    suma.qsos += qso ? 1 : 0;
    suma.sinFecha += qso && (nulo(columnas.fecha) || nulo(columnas.hora)) ? 1 : 0;
}

void Almacen::Privado::QuizaCargaMasiva()
{
    carga.revision = carga.altas + umbralMasivo;
    // Sorting an index costs about half as much per row as inserting the rows into it one
    // by one, and the sort takes in the whole table: it pays once the transaction has added
    // as many rows as the file held before. The counts include every row added so far,
    // since until now the trigger was in place.
    QSqlQuery *q = Preparar(QStringLiteral("SELECT IFNULL(SUM(Filas),0) FROM CuentaLogs"), {});
    if (!q)
        return;
    const qint64 filas = q->next() ? q->value(0).toLongLong() : 0;
    q->finish();
    if (carga.altas < filas - carga.altas)
        return;
    // Should the drop fail, the load goes on the ordinary way.
    carga.masiva = EnBloque([this] {
        return Directa(QStringLiteral("DROP TRIGGER IF EXISTS Tabla1_Alta")) &&
               Directa(QStringLiteral("DROP INDEX IF EXISTS Tabla1_Estacion")) &&
               Directa(QStringLiteral("DROP INDEX IF EXISTS Tabla1_Vista"));
    });
    carga.vedada = !carga.masiva;
    error.clear();
}

bool Almacen::Privado::TerminarCargaMasiva()
{
    // While bulk mode lasts the transaction only adds rows (a change or delete ends it
    // first), so the counts it kept are what the trigger would have added: a log listed
    // already keeps its name, a new one takes the name of its first row.
    static const QString sumar = QStringLiteral(
        "INSERT INTO CuentaLogs (\"Nombre Log\", Filas, QSOs, SinFecha) VALUES (?, ?, ?, ?) "
        "ON CONFLICT (\"Nombre Log\") DO UPDATE SET Filas=Filas+excluded.Filas, "
        "QSOs=QSOs+excluded.QSOs, SinFecha=SinFecha+excluded.SinFecha");
    const bool hecho = EnBloque([this] {
        if (!Directa(QLatin1String(kIndiceVista)) || !Directa(QLatin1String(kIndiceEstacion)))
            return false;
        for (const Carga::Suma &s : std::as_const(carga.sumas))
            if (!Escribir(sumar, {Texto(s.nombre), s.filas, s.qsos, s.sinFecha}))
                return false;
        return Directa(DisparadorAlta());
    });
    if (hecho) {
        carga.masiva = false;
        carga.sumas.clear();
        carga.indice.clear();
        carga.ultimoLog.clear();
        carga.ultimaSuma = -1;
    }
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
