// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The Cabrillo 3.0 file of a contest: one "QSO:" line per QSO in fixed columns, the
// header the operator fills in, and datos.cbr, the five lines of personal data the header
// remembers between exports.

#include "core/platform/Resultado.h"
#include "core/store/RegistroQSO.h"

#include <QString>
#include <QStringList>
#include <QVector>
#include <optional>

// The frequency a band goes out with; a band the table does not know goes out as it stands.
QString FrecuenciaCabrillo(const QString &banda);

// One line, without its line end. A value wider than its column is written whole and
// shifts the rest of the line: padding only ever adds.
QString LineaCabrillo(const FilaConcurso &fila);

// The lines of a contest's rows, oldest first, each closed by CRLF; founding rows are
// skipped. A row of another own callsign stops the export: the lines before it stay in
// texto, and otraSenal says so.
struct QSOsCabrillo
{
    QString texto;
    int cantidad = 0;
    bool otraSenal = false;
};
QSOsCabrillo ArmarQSOsCabrillo(const QVector<FilaConcurso> &filas, const QString &senalPropia);
inline QString FinCabrillo()
{
    return QStringLiteral("END-OF-LOG:");
}
QString MensajeOtraSenal();
QString MensajeSinQSOs();
QString TituloEncabezado(const QString &concurso, int cantidad);

struct EncabezadoCabrillo
{
    QString callsign, contest, categoriaOperador, potencia, bandas, modo, operadores;
    QString nombre, domicilio1, domicilio2, domicilio3, correo;
};
// The fourteen lines, each closed by CRLF. OPERATORS: goes out even when empty.
QString TextoEncabezado(const EncabezadoCabrillo &e, const QString &version);
// "Falta su Señal Distintiva!" or "Falta su Nombre!", and the field that lacks it (0 the
// callsign, 1 the name); nothing when both are there.
std::optional<std::pair<int, QString>> FaltaEnEncabezado(const EncabezadoCabrillo &e);

// datos.cbr: name, three address lines and e-mail. Read: the lines it holds, at most five
// (none when missing). Written whole.
QString ArchivoDatosCbr(const QString &carpeta);
QStringList LeerDatosCbr(const QString &carpeta);
Resultado<> GuardarDatosCbr(const QString &carpeta, const QStringList &datos);

// The file as the operator sees it, every line closed by CRLF, in Windows-1252.
Resultado<> GuardarCabrillo(const QString &archivo, const QString &texto);
QString PreguntaSobregrabar(const QString &archivo);
QString MensajeGuardado(const QString &archivo);
