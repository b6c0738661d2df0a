// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/store/Almacen.h"
#include "core/rules/Numeros.h"
#include "core/store/AlmacenPrivado.h"

#include <QDate>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSqlError>
#include <atomic>

using namespace almacen;

const char *const almacen::kIndiceVista =
    "CREATE INDEX IF NOT EXISTS Tabla1_Vista ON Tabla1 (\"Nombre Log\", Fecha, Hora, id, Modo)";
const char *const almacen::kIndiceEstacion =
    "CREATE INDEX IF NOT EXISTS Tabla1_Estacion ON Tabla1 (\"Nombre Log\", Estacion, Modo, Banda, "
    "MyCall)";

namespace {

const QString kTexto = QStringLiteral(" TEXT COLLATE NOCASE");
const QString kChar255 = QStringLiteral(" CHAR(255) COLLATE NOCASE");

// The columns every file has had, in their binding order after id.
const QStringList kColumnasPrimeras = {
    QStringLiteral("Modo"),     QStringLiteral("Banda"),      QStringLiteral("MyCall"),
    QStringLiteral("Estacion"), QStringLiteral("Fecha"),      QStringLiteral("Hora"),
    QStringLiteral("RSE"),      QStringLiteral("RSR"),        QStringLiteral("Obs"),
    QStringLiteral("Operador"), QStringLiteral("Nombre Log"), QStringLiteral("Frecuencia")};
const QStringList kGrillas = {QStringLiteral("MiGrid"), QStringLiteral("SuGrid")};
// The three columns that older files lack, added at the end in this order.
const QStringList kTardias = {QStringLiteral("LbN"), QStringLiteral("Nombre_Sat"),
                              QStringLiteral("Argento")};

QString Citado(const QString &columna)
{
    return columna.contains(QLatin1Char(' ')) ? QLatin1Char('"') + columna + QLatin1Char('"')
                                              : columna;
}

// The late columns with their type, as added to an existing table; Tabla3 has Dupe too.
QVector<QPair<QString, QString>> Tardias(bool dupe)
{
    QVector<QPair<QString, QString>> columnas;
    for (const QString &c : kTardias)
        columnas.append({c, kChar255});
    if (dupe)
        columnas.append({QStringLiteral("Dupe"), QStringLiteral(" CHAR(10) COLLATE NOCASE")});
    return columnas;
}

QString CrearTabla(const QString &tabla, bool grillas, bool tardias, bool dupe)
{
    QStringList partes = {QStringLiteral("id INTEGER PRIMARY KEY AUTOINCREMENT")};
    for (const QString &c : kColumnasPrimeras)
        partes << Citado(c) + kTexto;
    if (grillas)
        for (const QString &c : kGrillas)
            partes << c + kTexto;
    if (tardias)
        for (const auto &[columna, tipo] : Tardias(dupe))
            partes << columna + tipo;
    return QStringLiteral("CREATE TABLE IF NOT EXISTS %1 (%2)").arg(tabla, partes.join(u", "));
}

// The count of rows, of QSOs and of QSOs without a date or time of every log, kept by
// triggers so that nobody counts Tabla1 again, whoever writes the file. No step of the
// triggers can fail (no NOT NULL to check, conflicts ignored), so an insert into Tabla1
// needs no statement journal: that halves the cost of a bulk load.
const char *const kCrearCuentas =
    "CREATE TABLE IF NOT EXISTS CuentaLogs (\"Nombre Log\" TEXT COLLATE NOCASE PRIMARY KEY, "
    "Filas INTEGER, QSOs INTEGER, SinFecha INTEGER) WITHOUT ROWID";

QString EsQSO(const char *fila)
{
    return QStringLiteral("IFNULL(%1.Modo<>'',0)").arg(QLatin1String(fila));
}

QString SinFecha(const char *fila)
{
    return QStringLiteral("(IFNULL(%1.Modo<>'',0) AND (%1.Fecha IS NULL OR %1.Hora IS NULL))")
        .arg(QLatin1String(fila));
}

QString SumarFila()
{
    return QStringLiteral(
               "INSERT OR IGNORE INTO CuentaLogs (\"Nombre Log\", Filas, QSOs, SinFecha) "
               "SELECT NEW.\"Nombre Log\", 0, 0, 0 WHERE NEW.\"Nombre Log\" IS NOT NULL; "
               "UPDATE CuentaLogs SET Filas=Filas+1, QSOs=QSOs+%1, SinFecha=SinFecha+%2 "
               "WHERE \"Nombre Log\"=NEW.\"Nombre Log\";")
        .arg(EsQSO("NEW"), SinFecha("NEW"));
}

QString RestarFila()
{
    return QStringLiteral("UPDATE CuentaLogs SET Filas=Filas-1, QSOs=QSOs-%1, SinFecha=SinFecha-%2 "
                          "WHERE \"Nombre Log\"=OLD.\"Nombre Log\"; "
                          "DELETE FROM CuentaLogs WHERE \"Nombre Log\"=OLD.\"Nombre Log\" AND "
                          "Filas<=0;")
        .arg(EsQSO("OLD"), SinFecha("OLD"));
}

const QStringList &Disparadores()
{
    static const QStringList sql = {
        QStringLiteral("CREATE TRIGGER IF NOT EXISTS Tabla1_Alta AFTER INSERT ON Tabla1 BEGIN %1 "
                       "END")
            .arg(SumarFila()),
        QStringLiteral("CREATE TRIGGER IF NOT EXISTS Tabla1_Baja AFTER DELETE ON Tabla1 BEGIN %1 "
                       "END")
            .arg(RestarFila()),
        QStringLiteral("CREATE TRIGGER IF NOT EXISTS Tabla1_Cambio AFTER UPDATE OF \"Nombre Log\", "
                       "Modo, Fecha, Hora ON Tabla1 BEGIN %1 %2 END")
            .arg(RestarFila(), SumarFila()),
    };
    return sql;
}

// The counts of the rows of Tabla1 that `donde` keeps, one row per log, by the very rule of
// the triggers. A log is named as its first row names it (the bare column takes the row of
// MIN(id)), as the insert trigger names it when that row comes.
QString CuentasDeFilas(const char *donde)
{
    return QStringLiteral(
               "INSERT INTO CuentaLogs (\"Nombre Log\", Filas, QSOs, SinFecha) "
               "SELECT nombre, filas, qsos, sinFecha FROM (SELECT \"Nombre Log\" AS nombre, "
               "MIN(id), COUNT(*) AS filas, SUM(%1) AS qsos, SUM(%2) AS sinFecha FROM Tabla1 "
               "WHERE \"Nombre Log\" IS NOT NULL AND %3 GROUP BY \"Nombre Log\") WHERE true")
        .arg(EsQSO("Tabla1"), SinFecha("Tabla1"), QLatin1String(donde));
}

// The view's order with id last (ties of date and time stay in a fixed order), then Modo
// so that skipping rows for an offset needs no visit to the table. The second serves both
// the callsign history (a range on its first two columns) and the duplicate key (equality
// on all five): one index fewer to keep up on every insert.
const char *const kIndices[] = {
    almacen::kIndiceVista,
    almacen::kIndiceEstacion,
    "CREATE INDEX IF NOT EXISTS Tabla2_Log ON Tabla2 (\"Nombre Log\", Modo, Banda, Estacion)",
};

bool EsFecha(int anio, int mes, int dia)
{
    return anio >= 0 && mes >= 0 && dia >= 0 && QDate::isValid(anio, mes, dia);
}

// "dd/mm/yyyy" with ASCII digits and a real calendar date.
bool EsFechaDMY(QStringView f)
{
    return f.size() == 10 && f[2] == u'/' && f[5] == u'/' &&
           EsFecha(Digitos(f, 6, 4), Digitos(f, 3, 2), Digitos(f, 0, 2));
}

bool EsFechaISO(QStringView f)
{
    return f.size() == 10 && f[4] == u'-' && f[7] == u'-' &&
           EsFecha(Digitos(f, 0, 4), Digitos(f, 5, 2), Digitos(f, 8, 2));
}

// The ten characters of one date form put in the order of the other: the groups of
// digits are taken from desde and written one after another with the separator.
QString Reordenada(QStringView f, std::initializer_list<std::pair<int, int>> grupos, char16_t sep)
{
    QString r(10, Qt::Uninitialized);
    QChar *p = r.data();
    for (const auto &[desde, n] : grupos) {
        if (p != r.data())
            *p++ = QChar(sep);
        for (int i = desde; i < desde + n; ++i)
            *p++ = f[i];
    }
    return r;
}

std::atomic<int> g_instancias{0};

} // namespace

const QString &almacen::DisparadorAlta()
{
    return Disparadores().first();
}

const QString &almacen::SumarCuentasDesde()
{
    static const QString sql =
        CuentasDeFilas("id > ?") +
        QStringLiteral(" ON CONFLICT (\"Nombre Log\") DO UPDATE SET Filas=Filas+excluded.Filas, "
                       "QSOs=QSOs+excluded.QSOs, SinFecha=SinFecha+excluded.SinFecha");
    return sql;
}

// ---- Conversions at the edge ---------------------------------------------------------------

QString almacen::FechaParaGuardar(const QString &fecha)
{
    if (fecha.isEmpty())
        return fecha;
    // A load brings the same date for many QSOs one after another: the last one is kept.
    thread_local QString ultima, guardada;
    if (fecha == ultima)
        return guardada;
    guardada = EsFechaDMY(fecha) ? Reordenada(fecha, {{6, 4}, {3, 2}, {0, 2}}, u'-')
                                 : QLatin1Char('!') + fecha;
    ultima = fecha;
    return guardada;
}

QString almacen::FechaLeida(const QString &guardada)
{
    if (EsFechaISO(guardada))
        return Reordenada(guardada, {{8, 2}, {5, 2}, {0, 4}}, u'/');
    if (guardada.startsWith(QLatin1Char('!')))
        return guardada.mid(1);
    return guardada;
}

QString almacen::SinBlancos(const QString &texto)
{
    qsizetype inicio = 0, fin = texto.size();
    while (inicio < fin && texto.at(inicio) == QLatin1Char(' '))
        ++inicio;
    while (fin > inicio && texto.at(fin - 1) == QLatin1Char(' '))
        --fin;
    return texto.mid(inicio, fin - inicio);
}

QString almacen::PatronLike(const QString &texto)
{
    QString patron;
    patron.reserve(texto.size() + 4);
    for (QChar c : texto) {
        if (c == QLatin1Char('*'))
            patron += QLatin1Char('%');
        else if (c == QLatin1Char('?'))
            patron += QLatin1Char('_');
        else if (c == QLatin1Char('%') || c == QLatin1Char('_') || c == QLatin1Char('\\'))
            patron += QLatin1Char('\\') + QString(c);
        else
            patron += c;
    }
    return patron;
}

// ---- The connection ----------------------------------------------------------------------

QSqlQuery *Almacen::Privado::Preparar(const QString &sql, const QVariantList &valores)
{
    if (!Abierta()) {
        error = QStringLiteral("La base de datos no está abierta.");
        return nullptr;
    }
    // The same statement again, as the adds of a load run it: when its text is the very one
    // kept as the key (the same characters, which the key keeps alive), hashing it again
    // is spared.
    if (!ultima || sql.constData() != ultima->first.constData() ||
        sql.size() != ultima->first.size()) {
        auto it = consultas.find(sql);
        if (it == consultas.end()) {
            QSqlQuery q(db);
            q.setForwardOnly(true);
            if (!q.prepare(sql)) {
                error = q.lastError().text();
                return nullptr;
            }
            it = consultas.emplace(sql, Preparada{std::move(q), {}}).first;
        }
        ultima = &*it;
    }
    QSqlQuery &q = ultima->second.q;
    QVariantList &ligados = ultima->second.valores;
    ligados.resize(valores.size());
    for (int i = 0; i < valores.size(); ++i) {
        const QVariant &v = valores.at(i);
        const QVariant &antes = ligados.at(i);
        if (antes.isValid() && antes.metaType() == v.metaType()) {
            // Texts, nearly all of them, compared as texts: the general comparison of
            // two values costs several times more.
            const QString *texto = TextoEn(v);
            if (texto ? *texto == *TextoEn(antes) : antes == v)
                continue;
        }
        q.bindValue(i, v);
        ligados[i] = v;
    }
    if (!q.exec()) {
        error = q.lastError().text();
        q.finish();
        return nullptr;
    }
    error.clear();
    return &q;
}

Sentencia *Almacen::Privado::Motor(const char *sql)
{
    auto it = sentencias.find(sql);
    if (it == sentencias.end()) {
        Sentencia nueva;
        if (!nueva.Preparar(MotorDe(db), sql)) {
            error = nueva.Error();
            return nullptr;
        }
        it = sentencias.emplace(sql, std::move(nueva)).first;
    }
    it->second.Reiniciar();
    return &it->second;
}

bool Almacen::Privado::Directa(const QString &sql)
{
    if (!Abierta()) {
        error = QStringLiteral("La base de datos no está abierta.");
        return false;
    }
    QSqlQuery q(db);
    if (!q.exec(sql)) {
        error = q.lastError().text();
        return false;
    }
    error.clear();
    return true;
}

bool Almacen::Privado::Escribir(const QString &sql, const QVariantList &valores)
{
    pagina.valida = false;
    QSqlQuery *q = Preparar(sql, valores);
    if (!q)
        return false;
    q->finish();
    return true;
}

qint64 Almacen::Privado::Insertar(const QString &sql, const QVariantList &valores)
{
    pagina.valida = false;
    QSqlQuery *q = Preparar(sql, valores);
    if (!q)
        return 0;
    const qint64 id = q->lastInsertId().toLongLong();
    q->finish();
    return id;
}

// Several statements as one: a savepoint nests inside a transaction of the caller.
bool Almacen::Privado::EnBloque(const std::function<bool()> &trabajo)
{
    pagina.valida = false;
    // Prepared once: a block may stand around every row of a load.
    const auto correr = [this](const char *sql) { return Correr(sql, {}) != nullptr; };
    if (!correr("SAVEPOINT almacen"))
        return false;
    if (trabajo())
        return correr("RELEASE almacen");
    const QString causa = error;
    correr("ROLLBACK TO almacen");
    correr("RELEASE almacen");
    error = causa;
    return false;
}

Sentencia *Almacen::Privado::Correr(const char *sql, const std::function<void(Sentencia &)> &ligar)
{
    Sentencia *s = Motor(sql);
    if (!s)
        return nullptr;
    if (ligar)
        ligar(*s);
    if (s->Ejecutar())
        return s;
    error = s->Error();
    return nullptr;
}

QStringList Almacen::Privado::Columnas(const QString &tabla)
{
    QStringList columnas;
    QSqlQuery q(db);
    q.prepare(QStringLiteral("SELECT name FROM pragma_table_info(?)"));
    q.addBindValue(tabla);
    if (q.exec())
        while (q.next())
            columnas << q.value(0).toString();
    return columnas;
}

bool Almacen::Privado::AgregarFaltantes(const QString &tabla,
                                        const QVector<QPair<QString, QString>> &columnas)
{
    const QStringList hay = Columnas(tabla);
    for (const auto &[columna, tipo] : columnas)
        if (!hay.contains(columna, Qt::CaseInsensitive) &&
            !Directa(QStringLiteral("ALTER TABLE %1 ADD COLUMN %2%3").arg(tabla, columna, tipo)))
            return false;
    return true;
}

int Almacen::Privado::VersionDelArchivo()
{
    QSqlQuery q(db);
    if (!q.exec(QStringLiteral("PRAGMA user_version")) || !q.next()) {
        error = q.lastError().text();
        return -1;
    }
    return q.value(0).toInt();
}

Fallo Almacen::Privado::FalloCon(const QString &que) const
{
    return Fallo{error.isEmpty() ? que : que + QStringLiteral("\r\n\r\n") + error};
}

QString Almacen::Privado::Ruta() const
{
    return QDir::toNativeSeparators(QFileInfo(archivo).absoluteFilePath());
}

// ---- Opening and closing --------------------------------------------------------------------

Almacen::Almacen()
    : d(new Privado)
{
    d->conexion = QStringLiteral("almacen-%1").arg(++g_instancias);
    PrepararMotor();
}

Almacen::~Almacen()
{
    Cerrar();
    delete d;
}

Resultado<> Almacen::Abrir(const QString &archivo)
{
    Cerrar();
    if (archivo.isEmpty())
        return Fallo{QStringLiteral("No se indicó el archivo de la base de datos.")};
    const QFileInfo info(archivo);
    const QString ruta = QDir::toNativeSeparators(info.absoluteFilePath());
    const QString carpeta = QDir::toNativeSeparators(info.absolutePath());
    const Fallo noEsBase{
        QStringLiteral("El archivo %1 no es una base de datos de Carancho Radiolog.").arg(ruta)};

    if (!QFileInfo(info.absolutePath()).isDir())
        return Fallo{QStringLiteral("No existe la carpeta %1.").arg(carpeta)};
    // Everything up to the first write only reads: a file that is not ours stays as it was.
    if (info.exists()) {
        if (info.isDir())
            return noEsBase;
        QFile f(archivo);
        if (!f.open(QIODevice::ReadOnly))
            return Fallo{QStringLiteral("No se puede leer el archivo %1.").arg(ruta)};
        const QByteArray cabecera = f.read(16);
        if (!cabecera.isEmpty() && cabecera != QByteArray("SQLite format 3\0", 16))
            return noEsBase;
        if (!info.isWritable())
            return Fallo{QStringLiteral("No se puede escribir en el archivo %1.").arg(ruta)};
    }
    // The journal lives beside the file, so the folder must take new files.
    if (!QFileInfo(info.absolutePath()).isWritable())
        return Fallo{QStringLiteral("No se puede escribir en la carpeta %1.").arg(carpeta)};

    d->db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), d->conexion);
    d->db.setDatabaseName(archivo);
    if (!d->db.open()) {
        const QString causa = d->db.lastError().text();
        Cerrar();
        return Fallo{
            QStringLiteral("No se puede abrir la base de datos %1.\r\n\r\n%2").arg(ruta, causa)};
    }
    auto rechazar = [this](Fallo fallo) {
        Cerrar();
        return fallo;
    };

    QStringList tablas;
    {
        QSqlQuery q(d->db);
        if (!q.exec(QStringLiteral("SELECT name FROM sqlite_master WHERE type='table' AND name "
                                   "NOT LIKE 'sqlite\\_%' ESCAPE '\\'"))) {
            // SQLITE_CORRUPT and SQLITE_NOTADB: not a database at all. Anything else
            // (a lock held too long, say) is told as it is.
            const QString codigo = q.lastError().nativeErrorCode();
            return rechazar(
                codigo == u"11" || codigo == u"26"
                    ? noEsBase
                    : Fallo{QStringLiteral("No se puede abrir la base de datos %1.\r\n\r\n%2")
                                .arg(ruta, q.lastError().text())});
        }
        while (q.next())
            tablas << q.value(0).toString();
    }
    // A layout this program does not know: whatever it writes could spoil it for the
    // version that made it.
    const int version = d->VersionDelArchivo();
    if (version < 0)
        return rechazar(Fallo{QStringLiteral("No se puede abrir la base de datos %1.\r\n\r\n%2")
                                  .arg(ruta, d->error)});
    if (version > kVersionEsquema)
        return rechazar(Fallo{QStringLiteral("La base de datos %1 es de una versión más nueva de "
                                             "Carancho Radiolog. Instale la versión más reciente "
                                             "del programa para abrirla.")
                                  .arg(ruta)});
    if (!tablas.isEmpty()) {
        // Ours when Tabla1 holds the columns every version had, in their order.
        const QStringList columnas = d->Columnas(QStringLiteral("Tabla1"));
        const QStringList esperadas =
            QStringList{QStringLiteral("id")} + kColumnasPrimeras + kGrillas;
        bool nuestra = columnas.size() >= esperadas.size();
        for (int i = 0; nuestra && i < esperadas.size(); ++i)
            nuestra = columnas.at(i).compare(esperadas.at(i), Qt::CaseInsensitive) == 0;
        if (!nuestra)
            return rechazar(noEsBase);
    }

    // A QSO shown in the view has reached the disk.
    if (!d->Directa(QStringLiteral("PRAGMA journal_mode=WAL")) ||
        !d->Directa(QStringLiteral("PRAGMA synchronous=FULL")) ||
        !d->Directa(QStringLiteral("PRAGMA cache_size=-32768")) ||
        !d->Directa(QStringLiteral("PRAGMA temp_store=MEMORY")) ||
        !RegistrarFunciones(MotorDe(d->db)))
        return rechazar(Fallo{QStringLiteral("No se puede preparar la base de datos %1.\r\n\r\n%2")
                                  .arg(ruta, d->error)});
    d->volcador = std::make_unique<Volcador>(MotorDe(d->db));
    d->archivo = archivo;
    if (Resultado<> esquema = ActualizarEsquema(); !esquema)
        return rechazar(Fallo{esquema.Mensaje()});
    d->error.clear();
    return {};
}

void Almacen::Cerrar()
{
    d->ultima = nullptr;
    d->consultas.clear();
    d->sentencias.clear();
    d->volcador.reset();
    d->pagina = {};
    d->carga = {};
    d->archivo.clear();
    if (d->db.isValid()) {
        d->db.close();
        d->db = QSqlDatabase();
        QSqlDatabase::removeDatabase(d->conexion);
    }
}

bool Almacen::Abierto() const
{
    return d->Abierta();
}

QString Almacen::Archivo() const
{
    return d->archivo;
}

// ---- The layout, step by step --------------------------------------------------------------

Resultado<> Almacen::ActualizarEsquema()
{
    // Each step brings the file from the version before it to its own. A file of version 0
    // may come from any earlier program, with or without what the steps add, so each step
    // makes only what is missing, or makes again what it cannot trust.
    struct Paso
    {
        const char *que; // for the message, should it fail
        bool (*hacer)(Privado &);
    };
    static const Paso pasos[] = {
        {"las tablas Tabla1 y Tabla2",
         [](Privado &p) {
             return p.Directa(CrearTabla(QStringLiteral("Tabla1"), true, false, false)) &&
                    p.Directa(CrearTabla(QStringLiteral("Tabla2"), false, false, false));
         }},
        {"las columnas LbN, Nombre_Sat y Argento",
         [](Privado &p) {
             return p.AgregarFaltantes(QStringLiteral("Tabla1"), Tardias(false)) &&
                    p.AgregarFaltantes(QStringLiteral("Tabla2"), Tardias(false));
         }},
        {"la tabla de importación Tabla3",
         [](Privado &p) {
             return p.Directa(CrearTabla(QStringLiteral("Tabla3"), true, true, true)) &&
                    p.AgregarFaltantes(QStringLiteral("Tabla3"), Tardias(true));
         }},
        // Counts found in the file may be stale (the rows changed while nothing kept them),
        // so they are counted again.
        {"la cuenta de QSOs de cada log",
         [](Privado &p) {
             for (const char *viejo :
                  {"DROP TRIGGER IF EXISTS Tabla1_Alta", "DROP TRIGGER IF EXISTS Tabla1_Baja",
                   "DROP TRIGGER IF EXISTS Tabla1_Cambio", "DROP TABLE IF EXISTS CuentaLogs"})
                 if (!p.Directa(QLatin1String(viejo)))
                     return false;
             if (!p.Directa(QLatin1String(kCrearCuentas)) || !p.Directa(CuentasDeFilas("1")))
                 return false;
             for (const QString &sql : Disparadores())
                 if (!p.Directa(sql))
                     return false;
             return true;
         }},
        {"los índices",
         [](Privado &p) {
             for (const char *sql : kIndices)
                 if (!p.Directa(QLatin1String(sql)))
                     return false;
             return true;
         }},
    };
    static_assert(sizeof(pasos) / sizeof(pasos[0]) == kVersionEsquema);

    if (!d->Abierta())
        return Fallo{QStringLiteral("La base de datos no está abierta.")};
    d->FinDeCargaMasiva();
    const int version = d->VersionDelArchivo();
    if (version < 0)
        return d->FalloCon(
            QStringLiteral("No se puede leer la versión de la base de datos %1.").arg(d->Ruta()));
    for (int n = version; n < kVersionEsquema; ++n) {
        const bool hecho = d->EnBloque([&] {
            // The number goes in the same transaction as the step: both stay, or neither.
            return pasos[n].hacer(*d) &&
                   d->Directa(QStringLiteral("PRAGMA user_version=%1").arg(n + 1));
        });
        if (!hecho)
            return d->FalloCon(
                QStringLiteral("No se puede actualizar la base de datos %1 (paso %2: %3).")
                    .arg(d->Ruta())
                    .arg(n + 1)
                    .arg(QString::fromUtf8(pasos[n].que)));
    }
    return {};
}
