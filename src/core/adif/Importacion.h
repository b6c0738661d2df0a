// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The import of an ADIF file into the log in use, in three stages, each with a result the
// operator sees before the next: measuring (what the file holds), processing (each record
// checked, tested for being a duplicate and staged in Tabla3) and loading (Tabla3 into
// Tabla1). Nothing reaches the log before the loading. Each stage writes in one
// transaction, and a stop asked for between rows keeps what was written before it.

#include "core/adif/LectorAdif.h"
#include "core/platform/Resultado.h"
#include "core/store/RegistroQSO.h"

#include <QString>
#include <QStringList>
#include <QTime>
#include <functional>
#include <optional>
#include <vector>

class Almacen;

// More lines than this, and the file is refused.
inline constexpr int kMaximoLineasAdif = 10000;
// Staged rows loaded between two looks at the window: a stop asked during the load keeps the
// blocks loaded before it. A block takes about a millisecond; a row at a time, the load
// would take a third longer.
inline constexpr int kFilasPorBloque = 100;

// The faults counted by the processing; a record with one is dropped (band and frequency
// both missing excepted: that one is counted and the record kept).
struct ErroresImportacion
{
    int fecha = 0;
    int hora = 0;
    int reporte = 0;
    int bandaFrec = 0;
    int adif = 0;
};
// The lines "> n error(es) …" for each count above 0, in their order.
QStringList LineasDeErrores(const ErroresImportacion &errores);

// One record made into a QSO of the log, or nothing when a fault drops it (counted).
// deLbN: the file comes from the national service, whose QSL_RCVD is the upload state.
// senalManual, when not empty, is the own callsign of every QSO.
std::optional<RegistroQSO> QSODeLinea(QByteArrayView linea, bool utf8, bool deLbN,
                                      const QString &senalManual, ErroresImportacion &errores);

// The question of the loading when the file holds duplicates.
QString PreguntaDuplicados(int qsos, int duplicados);

class Importacion
{
public:
    // What the window does between rows. Each may be left unset.
    struct Enlace
    {
        std::function<void()> bombear;               // the event pump, at every line
        std::function<bool()> seguir;                // false: stop the stage here
        std::function<void(const QString &)> estado; // "Midiendo ...", "Cargando ..."…
        std::function<void(int valor, int maximo)> progreso;
    };
    explicit Importacion(Almacen &almacen);
    Enlace enlace;

    // The start of every import: Tabla3 emptied, nothing kept of the file before.
    Resultado<> Empezar();

    struct Medida
    {
        enum class Fin { Lista, Fallo, MasDeDiezMil, SinQSOs };
        Fin fin = Fin::Lista;
        QString mensaje; // for every end but Lista
        QString programa;
        int lineas = 0;
        int qsos = 0;
        QStringList estaciones; // STATION_CALLSIGN values, in order of first appearance
    };
    // ruta is the file chosen, nombre its name for the messages, hora the time that names
    // a copy with CR LF line ends.
    Medida Medir(const QString &ruta, const QString &nombre, const QTime &hora);

    struct Procesado
    {
        int nuevos = 0;
        int duplicados = 0;
        ErroresImportacion errores;
        bool detenido = false;
        QString fallo; // the store's message; nothing of the stage is kept then
    };
    Procesado Procesar(const QString &senalManual, const QString &log);

    struct Carga
    {
        int cargados = 0;
        bool detenido = false;
        QString fallo; // the store's message; nothing of the stage is kept then
    };
    // Tabla3 into the log: new QSOs added, duplicates written over the QSO they duplicate
    // when reemplazar is set, and left alone otherwise.
    Carga Cargar(bool reemplazar, const QString &log);

    int QSOs() const { return int(lineasQSO_.size()); }

private:
    void Bombear();
    bool Seguir();
    void Estado(const QString &texto);
    void Progreso(int valor, int maximo);

    Almacen &almacen_;
    ArchivoAdif archivo_;
    bool utf8_ = false;
    QString programa_;
    std::vector<QByteArrayView> lineasQSO_; // into archivo_.datos
};
