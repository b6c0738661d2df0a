// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The inside of the store, shared by its .cpp files: the connection, the prepared
// statements, the page last read, and the conversions done at the edge of the file.

#include "core/store/Almacen.h"
#include "core/store/Sentencia.h"
#include "core/store/Volcador.h"

#include <QSqlQuery>
#include <QString>
#include <QVariant>
#include <QVector>
#include <functional>
#include <memory>
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

// The successor of a text in the order of a NOCASE column: every text that starts with
// the given one (any case of its ASCII letters) sorts at or after it and before this.
// Empty when there is none (the text ends with the last code point).
QString Siguiente(const QString &texto);

// An empty text bound as '' and never as NULL: "LbN=''" and "Modo<>''" must see it.
inline QVariant Texto(const QString &s)
{
    return s.isNull() ? QVariant(QStringLiteral("")) : QVariant(s);
}

// Pieces of the schema that a bulk load drops and makes again.
extern const char *const kIndiceVista;    // CREATE INDEX of Tabla1_Vista
extern const char *const kIndiceEstacion; // CREATE INDEX of Tabla1_Estacion
const QString &DisparadorAlta();          // CREATE TRIGGER of Tabla1_Alta
// Adds to CuentaLogs what the insert trigger would have added for the rows of Tabla1 whose
// id is above the one bound: the counting rule of the triggers, applied to many rows at once.
const QString &SumarCuentasDesde();

// The text a value holds, or nullptr when it holds something else: read in place, with
// no copy, where every row of a load passes.
inline const QString *TextoEn(const QVariant &v)
{
    return v.metaType() == QMetaType::fromType<QString>()
               ? static_cast<const QString *>(v.constData())
               : nullptr;
}

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
    QString error; // the engine's words about the last statement that failed
    // Statements prepared once and reused, with the values bound last: Qt keeps them
    // between runs, and binding costs more than comparing, so only changes are bound.
    struct Preparada
    {
        QSqlQuery q;
        QVariantList valores;
    };
    std::unordered_map<QString, Preparada> consultas;
    std::pair<const QString, Preparada> *ultima = nullptr; // the one run last
    // Statements of the engine's own interface, for the rows of a large job, prepared once
    // by the address of their text. They go before the connection closes.
    std::unordered_map<const char *, almacen::Sentencia> sentencias;
    std::unique_ptr<almacen::Volcador> volcador;

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
    // to Tabla1, once they are as many as the rows the file held before, the two indexes of
    // Tabla1 and the insert trigger of the counts are dropped inside the transaction: a
    // million rows cost far more to insert one by one into the indexes (the callsigns come
    // in no order) than to sort once. Before the COMMIT the indexes are made again, the rows
    // added meanwhile are counted into CuentaLogs by one grouped statement and the trigger
    // comes back, so that the file is never seen without them.
    struct Carga
    {
        bool abierta = false; // between IniciarTransaccion and its end
        bool masiva = false;  // indexes and insert trigger dropped
        bool vedada = false;  // the transaction read or changed rows between its adds
        qint64 altas = 0;     // rows added to Tabla1 in the transaction
        qint64 revision = 0;  // altas at which bulk mode is considered again
        // The greatest id of Tabla1 when bulk mode began: ids only grow (AUTOINCREMENT), so
        // the rows the trigger did not count are those above it.
        qint64 desdeId = 0;
    } carga;
    int umbralMasivo = 50000;

    bool Abierta() const { return db.isValid() && db.isOpen(); }
    // What could not be done, then the engine's words: the message a window shows.
    Fallo FalloCon(const QString &que) const;
    QString Ruta() const; // the file as the operator knows it
    // Prepares the statement on first use (forward only), binds the values in order and
    // runs it. nullptr on failure, with the engine's text in error. The caller reads its
    // rows and finishes it, so that no read stays open.
    QSqlQuery *Preparar(const QString &sql, const QVariantList &valores);
    // The statement of the engine's own interface for that text, prepared on first use and
    // ready to run; nullptr when it cannot be, with the engine's words in error. It is kept
    // by the text's address: a literal, or a text that lives as long as the program.
    almacen::Sentencia *Motor(const char *sql);
    // That statement run to its end, its values bound by ligar: the statement, which tells
    // the rows changed and the id added, or nullptr with the engine's words in error.
    almacen::Sentencia *Correr(const char *sql,
                               const std::function<void(almacen::Sentencia &)> &ligar);
    // A statement with no values and no rows (schema, pragmas, savepoints).
    bool Directa(const QString &sql);
    // A write; it forgets the page read last.
    bool Escribir(const QString &sql, const QVariantList &valores);
    qint64 Insertar(const QString &sql, const QVariantList &valores);
    // An add to Tabla1, which counts for the bulk mode.
    qint64 InsertarEnTabla1(const QString &sql, const QVariantList &valores);
    // Bulk mode on, when the transaction has added enough; and off again within it: the
    // indexes made, the counts added, the trigger back.
    void QuizaCargaMasiva();
    bool TerminarCargaMasiva();
    // Before a read of Tabla1 other than by id, and before a change or delete in it: bulk
    // mode ends, so that the read finds the counts right and its index in place and the
    // triggers count the change as ever; a transaction that does these between its adds
    // is no bulk load, and does not become one again.
    void FinDeCargaMasiva();

    // Several statements that stand or fall together, nested in the caller's transaction.
    bool EnBloque(const std::function<bool()> &trabajo);

    // The schema. The version the file says it has (-1 when it cannot be read), the
    // columns of a table, and the columns added to it where missing.
    int VersionDelArchivo();
    QStringList Columnas(const QString &tabla);
    bool AgregarFaltantes(const QString &tabla, const QVector<QPair<QString, QString>> &columnas);

    // Rows of a SELECT of kColumnasTabla1 (plus Dupe when conDupe).
    QVector<FilaQSO> LeerFilas(QSqlQuery &q, bool conDupe = false,
                               QVector<almacen::Clave> *claves = nullptr);
    QVector<FilaConcurso> LeerConcurso(QSqlQuery &q);
    QVector<FilaQSO> Filas(const QString &sql, const QVariantList &valores);
    QVector<FilaConcurso> FilasConcurso(const QString &sql, const QVariantList &valores);
    QStringList Textos(const QString &sql, const QVariantList &valores);
};
