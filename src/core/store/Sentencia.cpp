// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/store/Sentencia.h"

#include "core/rules/Numeros.h"
#include "core/store/AlmacenPrivado.h"

#include <QSqlDatabase>
#include <QSqlDriver>
#include <QVariant>
#include <cmath>
#include <limits>
#include <sqlite3.h>

namespace almacen {

void PrepararMotor()
{
    static const bool hecho = [] {
        return sqlite3_config(SQLITE_CONFIG_MEMSTATUS, 0) == SQLITE_OK;
    }();
    static_cast<void>(hecho);
}

sqlite3 *MotorDe(const QSqlDatabase &db)
{
    if (!db.isValid() || !db.isOpen())
        return nullptr;
    const QVariant h = db.driver()->handle();
    if (!h.isValid() || qstrcmp(h.typeName(), "sqlite3*") != 0)
        return nullptr;
    return *static_cast<sqlite3 *const *>(h.constData());
}

namespace {

QString TextoDe(sqlite3_value *valor)
{
    const auto *texto = reinterpret_cast<const char *>(sqlite3_value_text(valor));
    return texto ? QString::fromUtf8(texto, sqlite3_value_bytes(valor)) : QString();
}

void ResultadoTexto(sqlite3_context *contexto, const QString &texto)
{
    const QByteArray utf8 = texto.toUtf8();
    sqlite3_result_text(contexto, utf8.constData(), int(utf8.size()), SQLITE_TRANSIENT);
}

// A staged date as a date of the log: read as the store reads a date, its "-" made "/",
// and kept as the store keeps a date.
void FechaDeEspera(sqlite3_context *contexto, int, sqlite3_value **valores)
{
    QString fecha = FechaLeida(TextoDe(valores[0]));
    ResultadoTexto(contexto, FechaParaGuardar(fecha.replace(QLatin1Char('-'), QLatin1Char('/'))));
}

// The number a text starts with, whole: an empty text or one with no number is 0.
void NumeroEntero(sqlite3_context *contexto, int, sqlite3_value **valores)
{
    const double numero = NumeroInicial(TextoDe(valores[0]));
    constexpr double tope = double(std::numeric_limits<qint64>::max());
    sqlite3_result_int64(contexto, std::abs(numero) < tope ? qint64(numero)
                                   : numero < 0            ? std::numeric_limits<qint64>::min()
                                                           : std::numeric_limits<qint64>::max());
}

} // namespace

bool RegistrarFunciones(sqlite3 *base)
{
    constexpr int forma = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_DIRECTONLY;
    return base &&
           sqlite3_create_function_v2(base, "FechaDeEspera", 1, forma, nullptr, FechaDeEspera,
                                      nullptr, nullptr, nullptr) == SQLITE_OK &&
           sqlite3_create_function_v2(base, "NumeroEntero", 1, forma, nullptr, NumeroEntero,
                                      nullptr, nullptr, nullptr) == SQLITE_OK;
}

Sentencia::~Sentencia()
{
    sqlite3_finalize(consulta_);
}

Sentencia::Sentencia(Sentencia &&otra) noexcept
    : base_(otra.base_)
    , consulta_(std::exchange(otra.consulta_, nullptr))
    , fallo_(otra.fallo_)
{}

Sentencia &Sentencia::operator=(Sentencia &&otra) noexcept
{
    if (this != &otra) {
        sqlite3_finalize(consulta_);
        base_ = otra.base_;
        consulta_ = std::exchange(otra.consulta_, nullptr);
        fallo_ = otra.fallo_;
    }
    return *this;
}

bool Sentencia::Preparar(sqlite3 *base, const char *sql)
{
    sqlite3_finalize(consulta_);
    consulta_ = nullptr;
    base_ = base;
    fallo_ = !base || sqlite3_prepare_v2(base, sql, -1, &consulta_, nullptr) != SQLITE_OK;
    if (fallo_) {
        sqlite3_finalize(consulta_);
        consulta_ = nullptr;
    }
    return !fallo_;
}

void Sentencia::Texto(int n, const QString &texto)
{
    // The engine copies the text: the caller's may go before the statement runs.
    static const char16_t vacio[] = u"";
    sqlite3_bind_text16(consulta_, n,
                        texto.isNull() ? static_cast<const void *>(vacio) : texto.utf16(),
                        int(texto.size() * sizeof(char16_t)), SQLITE_TRANSIENT);
}

void Sentencia::Entero(int n, qint64 valor)
{
    sqlite3_bind_int64(consulta_, n, valor);
}

bool Sentencia::Fila()
{
    const int paso = sqlite3_step(consulta_);
    fallo_ = paso != SQLITE_ROW && paso != SQLITE_DONE;
    return paso == SQLITE_ROW;
}

bool Sentencia::Ejecutar()
{
    while (Fila()) {
    }
    // The reset says the step's fault again, and leaves the statement ready.
    sqlite3_reset(consulta_);
    return !fallo_;
}

void Sentencia::Reiniciar()
{
    sqlite3_reset(consulta_);
}

QString Sentencia::Error() const
{
    return base_ ? QString::fromUtf8(sqlite3_errmsg(base_))
                 : QStringLiteral("La base de datos no está abierta.");
}

int Sentencia::Cambios() const
{
    return sqlite3_changes(base_);
}

qint64 Sentencia::UltimoId() const
{
    return sqlite3_last_insert_rowid(base_);
}

qint64 Sentencia::EnteroEn(int columna) const
{
    return sqlite3_column_int64(consulta_, columna);
}

void Sentencia::TextoEn(QString &destino, int columna) const
{
    // Plain ASCII is widened in place, anything else decoded from UTF-8.
    const auto *texto = sqlite3_column_text(consulta_, columna);
    const int largo = sqlite3_column_bytes(consulta_, columna);
    for (int i = 0; i < largo; ++i) {
        if (texto[i] >= 0x80) {
            destino = QString::fromUtf8(reinterpret_cast<const char *>(texto), largo);
            return;
        }
    }
    destino.resize(largo);
    QChar *p = destino.data();
    for (int i = 0; i < largo; ++i)
        p[i] = QLatin1Char(char(texto[i]));
}

QString Sentencia::TextoEn(int columna) const
{
    QString texto;
    TextoEn(texto, columna);
    return texto;
}

} // namespace almacen
