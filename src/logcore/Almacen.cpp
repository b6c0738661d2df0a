#include "logcore/Almacen.h"
// Stub: every operation answers nothing until the store lands.
struct Almacen::Privado {};
Almacen::Almacen() : d(new Privado) {}
Almacen::~Almacen() { delete d; }
QString Almacen::Abrir(const QString &archivo) { return {}; }
void Almacen::Cerrar() {  }
bool Almacen::Abierto() const { return {}; }
QString Almacen::Archivo() const { return {}; }
qint64 Almacen::AgregarQSO(const RegistroQSO &qso, const QString &logenUso) { return {}; }
qint64 Almacen::AgregarQSOImportado(const RegistroQSO &qso, const QString &logenUso) { return {}; }
qint64 Almacen::AgregarQSOConcurso(const FilaConcurso &fila) { return {}; }
qint64 Almacen::AgregarQSOEspera(const RegistroQSO &qso, const QString &dupe,
                            const QString &logenUso) { return {}; }
qint64 Almacen::AgregarLogVacio(const QString &log) { return {}; }
bool Almacen::ActualizarQSO(qint64 id, const RegistroQSO &qso) { return {}; }
bool Almacen::MarcarLbN(qint64 id, int estado) { return {}; }
bool Almacen::ActualizarQSOConcurso(qint64 id, const FilaConcurso &fila) { return {}; }
bool Almacen::BorrarQSO(qint64 id) { return {}; }
bool Almacen::BorrarQSOConcurso(qint64 id) { return {}; }
bool Almacen::BorrarLog(const QString &log) { return {}; }
bool Almacen::BorrarLogConcurso(const QString &log) { return {}; }
bool Almacen::VaciarEspera() { return {}; }
bool Almacen::VaciarTodo() { return {}; }
void Almacen::ActualizarEsquema() {  }
bool Almacen::ExisteLogConcurso(const QString &log) { return {}; }
QStringList Almacen::Logs() { return {}; }
QVector<QPair<QString, qint64>> Almacen::LogsConCantidad() { return {}; }
qint64 Almacen::CantidadQSOs(const QString &log) { return {}; }
QVector<FilaQSO> Almacen::PaginaLog(const QString &log, qint64 filaInicial, int tamano) { return {}; }
std::optional<FilaQSO> Almacen::UltimoQSO(const QString &log) { return {}; }
std::optional<FilaQSO> Almacen::QSOPorId(const QString &log, qint64 id) { return {}; }
QVector<FilaQSO> Almacen::HistorialDe(const QString &log, const QString &inicioSenal) { return {}; }
QVector<FilaQSO> Almacen::LogCompletoDescendente(const QString &log) { return {}; }
QVector<FilaQSO> Almacen::LogCompletoAscendente(const QString &log) { return {}; }
QVector<FilaQSO> Almacen::PendientesLbN(const QString &log) { return {}; }
QVector<FilaQSO> Almacen::Candidatos(const QString &log, const QString &modo, const QString &banda,
                                const QString &myCall, const QString &estacion) { return {}; }
QVector<FilaQSO> Almacen::BuscarQSOs(const QString &log, const QString &myCall,
                                const QString &operador) { return {}; }
QVector<FilaQSO> Almacen::ExportarQSOs(const QString &log, const Almacen::FiltroExportacion &filtro) { return {}; }
QVector<FilaQSO> Almacen::TodosLosQSOs() { return {}; }
QVector<FilaQSO> Almacen::FilasEspera() { return {}; }
QStringList Almacen::LogsConcurso() { return {}; }
QVector<FilaConcurso> Almacen::LogConcurso(const QString &log) { return {}; }
QStringList Almacen::SatelitesDeConcurso(const QString &log) { return {}; }
QVector<FilaConcurso> Almacen::VistaConcurso(const QString &log) { return {}; }
QVector<FilaConcurso> Almacen::LogConcursoOrdenado(const QString &log, bool ascendente) { return {}; }
QVector<FilaConcurso> Almacen::ConcursoPorModoBanda(const QString &log, const QString &modo,
                                               const QString &banda) { return {}; }
QVector<FilaConcurso> Almacen::ConcursoPorModoBandaEstacion(const QString &log,
                                                       const QString &modo,
                                                       const QString &banda,
                                                       const QString &estacion) { return {}; }
QString Almacen::UltimoError() const { return {}; }
