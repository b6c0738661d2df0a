// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A statement run through SQLite's own interface on the connection Qt opened, for the paths
// where every row of a large job passes: Qt's reader and binder take each value through a
// variant and a copy, which costs more than the engine's work on the row.

#include <QString>
#include <QtGlobal>

struct sqlite3;
struct sqlite3_stmt;
class QSqlDatabase;

namespace almacen {

// The engine set up for this program, before its first connection: without the count of its
// memory in use, kept under a lock that every allocation of every statement takes. Later
// calls, and a call after the engine has started, do nothing.
void PrepararMotor();

// The engine's handle under a Qt connection, or nullptr when it is not open.
sqlite3 *MotorDe(const QSqlDatabase &db);

// The functions of this program that the import's statements call, so that a conversion
// done in SQL is the very one the program does elsewhere. Registered on every connection.
bool RegistrarFunciones(sqlite3 *base);

class Sentencia
{
public:
    Sentencia() = default;
    ~Sentencia();
    Sentencia(Sentencia &&otra) noexcept;
    Sentencia &operator=(Sentencia &&otra) noexcept;
    Sentencia(const Sentencia &) = delete;
    Sentencia &operator=(const Sentencia &) = delete;

    // False with the engine's words in Error() when the text is not a statement.
    bool Preparar(sqlite3 *base, const char *sql);
    bool Preparada() const { return consulta_ != nullptr; }

    // Values from 1 on. A null text is bound as '' and never as NULL, as everywhere in
    // the store: "LbN=''" and "Modo<>''" must see it.
    void Texto(int n, const QString &texto);
    void Entero(int n, qint64 valor);

    // One step: true with a row to read, false at the end or on a fault (see Fallo()).
    bool Fila();
    // Runs it to the end and makes it ready to run again: false on a fault.
    bool Ejecutar();
    // Ready to run again, the values kept.
    void Reiniciar();
    bool Fallo() const { return fallo_; }
    QString Error() const;

    // The rows the last run added, changed or deleted (those of its triggers apart).
    int Cambios() const;
    // The id of the row the connection added last.
    qint64 UltimoId() const;
    qint64 EnteroEn(int columna) const;
    // A text column into a text that keeps its room; NULL reads as empty.
    void TextoEn(QString &destino, int columna) const;
    QString TextoEn(int columna) const;

private:
    sqlite3 *base_ = nullptr;
    sqlite3_stmt *consulta_ = nullptr;
    bool fallo_ = false;
};

} // namespace almacen
