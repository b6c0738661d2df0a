// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The store: the only code that speaks SQL. All QSOs of all logs live in one SQLite
// file, base0.db; a log is a name in the column "Nombre Log". Every value is bound,
// never joined into a statement, so an apostrophe is stored like any other character.

#include "core/platform/Resultado.h"
#include "core/store/RegistroQSO.h"

#include <QDate>
#include <QHash>
#include <QSqlDatabase>
#include <QString>
#include <QStringList>
#include <QVector>
#include <functional>
#include <optional>
#include <vector>

class Almacen
{
public:
    Almacen();
    ~Almacen();
    Almacen(const Almacen &) = delete;
    Almacen &operator=(const Almacen &) = delete;

    // The layout this program writes: the number of steps of ActualizarEsquema, kept in
    // the file's PRAGMA user_version.
    static constexpr int kVersionEsquema = 5;

    // Opens the file, creating it with the full layout when it is missing and bringing an
    // older one up to date. A file that is not a database, or that a newer version of the
    // program wrote, is refused and never written to.
    Resultado<> Abrir(const QString &archivo);
    void Cerrar();
    bool Abierto() const;
    QString Archivo() const;

    // ---- Writing rows -------------------------------------------------------------
    // Each add answers the new id; every write that fails answers the message to show,
    // what could not be done and then the engine's words.
    // A QSO typed in the main window: LbN "1", province from the callsign.
    Resultado<qint64> AgregarQSO(const RegistroQSO &qso, const QString &logenUso);
    // An imported QSO: LbN, satellite and province as the record brings them (trimmed).
    Resultado<qint64> AgregarQSOImportado(const RegistroQSO &qso, const QString &logenUso);
    // A contest QSO into Tabla2. Operador and Argento stay unset.
    Resultado<qint64> AgregarQSOConcurso(const FilaConcurso &fila);
    // The import staging table Tabla3: reports cut to 3, Obs to 100, grids trimmed.
    Resultado<qint64> AgregarQSOEspera(const RegistroQSO &qso, const QString &dupe,
                                       const QString &logenUso);
    // The load of rows staged in Tabla3, moved inside the engine: as AgregarQSOImportado
    // and ActualizarQSO write the row read back, its date kept as read, a time of hh:mm
    // given its seconds and the upload state made a whole number (empty is 0).
    // The rows marked "VA" with ids from desde to hasta, added in their order; how many.
    Resultado<int> AgregarQSOsDeEspera(qint64 desde, qint64 hasta, const QString &logenUso);
    // The staged row written over QSO id.
    Resultado<> ActualizarQSODeEspera(qint64 id, qint64 idEspera);
    // A placeholder row: only "Nombre Log" set, so the log exists with no QSOs.
    Resultado<qint64> AgregarLogVacio(const QString &log);

    Resultado<> ActualizarQSO(qint64 id, const RegistroQSO &qso);
    Resultado<> MarcarLbN(qint64 id, int estado);
    Resultado<> ActualizarQSOConcurso(qint64 id, const FilaConcurso &fila);
    Resultado<> BorrarQSO(qint64 id);
    Resultado<> BorrarQSOConcurso(qint64 id);
    Resultado<> BorrarLog(const QString &log);
    Resultado<> BorrarLogConcurso(const QString &log);
    Resultado<> VaciarEspera();
    // "Hacer Tabla!": empties the three tables and restarts their counters at 1.
    Resultado<> VaciarTodo();
    // Runs the steps of the layout that the file still lacks, each in a transaction of its
    // own: a step that fails leaves the file as the step before left it. Abrir runs it;
    // a second run finds nothing to do.
    Resultado<> ActualizarEsquema();
    bool ExisteLogConcurso(const QString &log);

    // Many writes as one (an import, a load of Tabla3): all reach the disk together,
    // far faster than one commit per row. Not nested. A transaction that adds many rows
    // to Tabla1 (see UmbralCargaMasiva) becomes a bulk load: its indexes are sorted once
    // and its counts added once at the confirm, instead of row by row. Reading a log
    // (other than one row by id), or changing or deleting a row, in between ends it, and
    // every read is right. A confirm that fails keeps nothing of the transaction.
    Resultado<> IniciarTransaccion();
    Resultado<> ConfirmarTransaccion();
    Resultado<> DeshacerTransaccion();
    // Rows a transaction adds to Tabla1 before it is considered for a bulk load (50,000);
    // a test lowers it to try the bulk load on a few rows.
    void UmbralCargaMasiva(int filas);
    // Whether the open transaction is a bulk load now.
    bool EnCargaMasiva() const;

    // ---- Reading ------------------------------------------------------------------
    // Names of the logs, placeholder-only logs included, case-insensitive order.
    QStringList Logs();
    // Every log with its count of QSOs, in the order of Logs().
    QVector<QPair<QString, qint64>> LogsConCantidad();
    // QSOs of one log, the placeholder row left out. Kept by triggers: no walk.
    qint64 CantidadQSOs(const QString &log);

    // The log view: up to 20 rows newest first (Fecha, Hora, id descending), starting at
    // row number filaInicial (from 1) of that order. Next and previous pages seek from
    // the edge of the page read last; first and last page read from their ends; only a
    // jump uses an offset, from the nearer end.
    QVector<FilaQSO> PaginaLog(const QString &log, qint64 filaInicial, int tamano = 20);

    // The newest QSO of a log (F5 with nothing entered in this run).
    std::optional<FilaQSO> UltimoQSO(const QString &log);
    // One row of a log by id (F5 after an entry, the import).
    std::optional<FilaQSO> QSOPorId(const QString &log, qint64 id);
    // Callsign history: QSOs whose Estacion starts with the text, oldest first.
    QVector<FilaQSO> HistorialDe(const QString &log, const QString &inicioSenal);
    // The whole log newest first (search window), placeholder included as the
    // original statement does.
    QVector<FilaQSO> LogCompletoDescendente(const QString &log);
    // The whole log oldest first (province award, upload and check).
    QVector<FilaQSO> LogCompletoAscendente(const QString &log);
    // What "Sólo Subir" uploads: LbN empty or "0", oldest first.
    QVector<FilaQSO> PendientesLbN(const QString &log);
    // Duplicate candidates of the import.
    QVector<FilaQSO> Candidatos(const QString &log, const QString &modo, const QString &banda,
                                const QString &myCall, const QString &estacion);
    // The same, with only what the duplicate rule reads: far less to fetch per QSO imported.
    struct MomentoQSO
    {
        qint64 id = 0;
        QString Fecha; // "dd/mm/yyyy"
        QString Hora;
    };
    QVector<MomentoQSO> MomentosCandidatos(const QString &log, const QString &modo,
                                           const QString &banda, const QString &myCall,
                                           const QString &estacion);
    // ---- The search window ---------------------------------------------------------
    // Its list holds ids only and reads the rows it shows, a screenful at a time: a log of
    // a million QSOs opens at once and takes no more memory than its ids.
    // The QSOs of a log (no placeholder), newest first: read from the view's index alone.
    QVector<qint64> IdsDelLog(const QString &log);
    // Rows by id, in the order given; an id with no row is left out.
    QVector<FilaQSO> QSOsPorIds(const QVector<qint64> &ids);
    // The columns the list can be sorted or filled by.
    enum class Columna {
        MyCall,
        Operador,
        Estacion,
        Banda,
        Frecuencia,
        Modo,
        RSE,
        RSR,
        Fecha,
        Hora,
        Obs,
        MiGrid,
        SuGrid,
        LbN,
        Nombre_Sat,
        Argento
    };
    // One column of every QSO of a log, by id (the sort of the list).
    QHash<qint64, QString> ColumnaDelLog(const QString &log, Columna columna);
    // The distinct non-empty values of one column among the QSOs of a log, in
    // case-insensitive order (the lists of own callsigns and operators).
    QStringList DistintosDelLog(const QString &log, Columna columna);
    // The QSOs of the log, newest first, optionally only those of one own callsign and/or
    // one operator (empty filter = any).
    QVector<qint64> BuscarQSOs(const QString &log, const QString &myCall, const QString &operador);
    // The export search: QSOs of the log (no placeholder) whose columns match LIKE
    // patterns with * and ? wildcards (empty = any), Obs matched anywhere ("*texto*"),
    // within the days from desde to hasta (a null date leaves that end open), optionally
    // only satellite QSOs; oldest first. Each found QSO comes with what the window's own
    // tests of a row read.
    struct FiltroExportacion
    {
        QString myCall, operador, estacion, modo, banda, obs;
        QDate desde, hasta;
        bool soloSatelite = false;
    };
    struct QSOEncontrado
    {
        qint64 id = 0;
        QString Estacion, LbN;
    };
    QVector<QSOEncontrado> ExportarQSOs(const QString &log, const FiltroExportacion &filtro);
    QVector<FilaQSO> TodosLosQSOs();
    // Every row of Tabla1 in the table's own order, handed over one at a time so that a
    // whole database never sits in memory (the ADIF backup). The walk stops early when
    // `cada` answers false.
    Resultado<> RecorrerQSOs(const std::function<bool(const FilaQSO &)> &cada);
    // The QSOs of one log, oldest first, with only what the province award reads (Argento,
    // Banda, Nombre_Sat, LbN, SuGrid), one at a time.
    Resultado<> RecorrerParaPremio(const QString &log,
                                   const std::function<bool(const FilaQSO &)> &cada);
    // A copy of the whole file as one consistent moment, written by the engine itself
    // (VACUUM INTO) while others may be writing: never a copy of the open file's bytes.
    // The destination must not exist.
    Resultado<> CopiarBase(const QString &destino);
    QVector<FilaQSO> FilasEspera();
    // The staged rows in their order, with their marks: "VA" or the id they duplicate.
    struct MarcaEspera
    {
        qint64 id = 0;
        QString Dupe;
    };
    QVector<MarcaEspera> MarcasEspera();

    // Contest logs.
    QStringList LogsConcurso();
    QVector<FilaConcurso> LogConcurso(const QString &log);   // insertion order
    QStringList SatelitesDeConcurso(const QString &log);     // distinct Nombre_Sat
    QVector<FilaConcurso> VistaConcurso(const QString &log); // Modo<>'', id descending
    QVector<FilaConcurso> LogConcursoOrdenado(const QString &log, bool ascendente);
    QVector<FilaConcurso> ConcursoPorModoBanda(const QString &log, const QString &modo,
                                               const QString &banda);
    QVector<FilaConcurso> ConcursoPorModoBandaEstacion(const QString &log, const QString &modo,
                                                       const QString &banda,
                                                       const QString &estacion);
    // The chooser's list, by name: each contest with the series of its founding row (its
    // first row) and its rows less that one, all from one grouped read.
    struct ConcursoListado
    {
        QString nombre;
        QString tipo;
        qint64 qsos = 0;
        bool operator==(const ConcursoListado &) const = default;
    };
    QVector<ConcursoListado> ConcursosConCantidad();
    // The newest row of a contest by id: its founding row while it has no QSO.
    std::optional<FilaConcurso> UltimaFilaConcurso(const QString &log);
    // The sent serial of the newest QSO of the contest in that mode and band.
    std::optional<QString> UltimaSerieConcurso(const QString &log, const QString &modo,
                                               const QString &banda);
    // Whether the contest holds a QSO with that station in that mode and band.
    bool ExisteQSOConcurso(const QString &log, const QString &estacion, const QString &modo,
                           const QString &banda);

private:
    // A statement of Tabla1 walked through the engine's own interface, the first ? bound to
    // the log; its columns (after the id, with conId: then it is a whole row, and its date
    // is read as everywhere) read into those fields of one row.
    Resultado<> Recorrer(const QByteArray &sql, const QString &log,
                         const std::vector<QString FilaQSO::*> &columnas, bool conId,
                         const std::function<bool(const FilaQSO &)> &cada);
    struct Privado;
    Privado *d;
};
