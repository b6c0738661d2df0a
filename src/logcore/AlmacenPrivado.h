#pragma once
// The inside of the store, shared by its .cpp files: the connection, the prepared
// statements, the page last read, and the conversions done at the edge of the file.

#include "logcore/Almacen.h"

#include <QSet>
#include <QSqlQuery>
#include <QString>
#include <QVariant>
#include <functional>
#include <unordered_map>

namespace almacen {

// Columns of each table in their binding order, for SELECT and INSERT lists.
inline constexpr const char *kColumnasTabla1 =
    "id, Modo, Banda, MyCall, Estacion, Fecha, Hora, RSE, RSR, Obs, Operador, \"Nombre Log\", "
    "Frecuencia, MiGrid, SuGrid, LbN, Nombre_Sat, Argento";
inline constexpr const char *kColumnasTabla2 =
    "id, Modo, Banda, MyCall, Estacion, Fecha, Hora, RSE, RSR, Obs, Operador, \"Nombre Log\", "
    "Frecuencia, LbN, Nombre_Sat, Argento";

// Fecha of Tabla1 and Tabla3 is kept as ISO "yyyy-mm-dd" so that it sorts by the calendar.
// A value that is not a real "dd/mm/yyyy" date is kept as it came, behind a "!" that no
// ISO date starts with; so every text comes back exactly as it went in, and such values
// sort before every real date (they are the oldest in the view).
QString FechaParaGuardar(const QString &fecha);
QString FechaLeida(const QString &guardada);

// Blanks (spaces only) cut from both ends, as the char(255) columns are compared.
QString SinBlancos(const QString &texto);

// A * or ? wildcard becomes % or _; a literal %, _ or \ is escaped with \.
QString PatronLike(const QString &texto);

// An empty text bound as '' and never as NULL: "LbN=''" and "Modo<>''" must see it.
inline QVariant Texto(const QString &s)
{
    return s.isNull() ? QVariant(QStringLiteral("")) : QVariant(s);
}

// Pieces of the schema that a bulk load drops and makes again.
extern const char *const kIndiceEstacion; // CREATE INDEX of Tabla1_Estacion
const QString &DisparadorAlta();          // CREATE TRIGGER of Tabla1_Alta

// The position of a row in the view's order, as stored (Fecha in its stored form).
struct Clave
{
    QString fecha;
    QString hora;
    qint64 id = 0;
};

} // namespace almacen

struct Almacen::Privado
{
    QString conexion; // connection name, unique per instance
    QString archivo;
    QSqlDatabase db;
    QString error;
    // Statements prepared once and reused, with the values bound last: Qt keeps them
    // between runs, and binding costs more than comparing, so only changes are bound.
    struct Preparada
    {
        QSqlQuery q;
        QVariantList valores;
    };
    std::unordered_map<QString, Preparada> consultas;

    // The page read last, so that the next or previous page seeks from its edge.
    struct Pagina
    {
        bool valida = false;
        QString log;
        qint64 fila = 0;
        int tamano = 0;
        int filas = 0;
        almacen::Clave primera, ultima;
        qint64 version = 0;
    } pagina;

    // The transaction opened by IniciarTransaccion, and its bulk mode. Past a number of adds
    // to Tabla1, once they are as many as the rows the file held before, the callsign index
    // and the insert trigger of the counts are dropped inside the transaction: a million
    // callsigns in no order cost far more to insert one by one into the index than to sort
    // once. Before the COMMIT the index is made again, the counts of the logs added to are
    // taken anew and the trigger comes back, so the file is never seen without them.
    struct Carga
    {
        bool abierta = false; // between IniciarTransaccion and its end
        bool masiva = false;  // index and insert trigger dropped
        bool vedada = false;  // the transaction read what bulk mode leaves behind
        qint64 altas = 0;     // rows added to Tabla1 in the transaction
        qint64 revision = 0;  // altas at which bulk mode is considered again
        QSet<QString> logs;   // logs added to while masiva
        QString ultimoLog;    // the last of them, to skip the set for runs of one log
    } carga;
    int umbralMasivo = 50000;

    bool Abierta() const { return db.isValid() && db.isOpen(); }
    // Prepares the statement on first use (forward only), binds the values in order and
    // runs it. nullptr on failure, with the engine's text in error. The caller reads its
    // rows and finishes it, so that no read stays open.
    QSqlQuery *Preparar(const QString &sql, const QVariantList &valores);
    // A statement with no values and no rows (schema, pragmas, savepoints).
    bool Directa(const QString &sql);
    // A write; it forgets the page read last.
    bool Escribir(const QString &sql, const QVariantList &valores);
    qint64 Insertar(const QString &sql, const QVariantList &valores);
    // An add to Tabla1 (log is the row's "Nombre Log"): it counts for the bulk mode.
    qint64 InsertarEnTabla1(const QString &sql, const QVariantList &valores, const QString &log);
    // Bulk mode on, when the transaction has added enough; and off again within it: the
    // index made, the counts of the logs added to taken anew, the trigger back.
    void QuizaCargaMasiva();
    bool TerminarCargaMasiva();
    // Before a read of the counts or of the callsign index, and before a change or delete
    // in Tabla1: bulk mode ends, so that the read is right and the triggers count the
    // change as ever, and a transaction that does these between its adds is no bulk load.
    void FinDeCargaMasiva();

    // Several statements that stand or fall together, nested in the caller's transaction.
    bool EnBloque(const std::function<bool()> &trabajo);

    // The schema: tables, late columns, the count table, its triggers and the indexes.
    bool CrearEsquema();
    bool ColumnasTardias();
    bool ExisteTabla(const QString &tabla);
    QStringList Columnas(const QString &tabla);

    // Rows of a SELECT of kColumnasTabla1 (plus Dupe when conDupe).
    QVector<FilaQSO> LeerFilas(QSqlQuery &q, bool conDupe = false,
                               QVector<almacen::Clave> *claves = nullptr);
    QVector<FilaConcurso> LeerConcurso(QSqlQuery &q);
    QVector<FilaQSO> Filas(const QString &sql, const QVariantList &valores);
    QVector<FilaConcurso> FilasConcurso(const QString &sql, const QVariantList &valores);
    QStringList Textos(const QString &sql, const QVariantList &valores);
};
