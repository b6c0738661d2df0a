// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The ADIF files this program writes, in their three kinds: the export of the search
// window (ExportBusqueda), the backup of every log (ExportRespaldo) and the export of a
// contest log (ExportConcurso). Each file starts with the same five header lines and
// holds one record per line, with nothing between its fields and CRLF line ends.
//
// The text is UTF-8, as today's loggers and the online services read it, and every
// length counts bytes: <NAME:6>Muñoz. A log in plain ASCII comes out byte for byte as it
// would in any single-byte code page.

#include "core/platform/Resultado.h"

#include <QByteArray>
#include <QDateTime>
#include <QSaveFile>
#include <QString>

struct FilaQSO;
struct FilaConcurso;

// <PROGRAMID:17>, <PROGRAMVERSION:n>, <ADIF_VER:4>3.04, <CREATED_TIMESTAMP:15> with the
// local moment as "yyyymmdd hhmmss", and <EOH>, each ended by CRLF.
QByteArray CabeceraAdif(const QString &versionPrograma, const QDateTime &creado);
// The last line of the search export and of the backup; a contest file has none.
inline QByteArray FinAdif()
{
    return QByteArrayLiteral("<EOF>\r\n");
}

// One record of the search export, from a row as the list shows it: "DVoice" written as
// DIGITALVOICE; with comentarioComoQslmsg the remark goes out as QSLMSG too.
void AgregarRegistroBusqueda(QByteArray &salida, const FilaQSO &fila, bool comentarioComoQslmsg);
// One record of the backup, with the QSL state of the national service and the log's
// name. Nothing for a row without an own callsign (a log's placeholder).
void AgregarRegistroRespaldo(QByteArray &salida, const FilaQSO &fila);

// The records of one contest log, one after another: date and time before the mode, no
// band, reports from the mode and the frequency from the band. A band that is not of a
// contest keeps the frequency of the record before it.
class RegistrosConcurso
{
public:
    void Agregar(QByteArray &salida, const FilaConcurso &fila);

private:
    QString frecuencia_;
};

// A file written through a temporary one and put in place whole by Terminar: a folder
// that cannot be written or a full disk leaves whatever the file held before. The caller
// appends to `texto`; Escribir hands it to the disk once it is a good piece.
class SalidaAdif
{
public:
    explicit SalidaAdif(const QString &archivo);
    QByteArray texto;
    void Escribir();
    // Writes the rest and puts the file in place; the message names the file otherwise.
    Resultado<> Terminar();

private:
    void Volcar();
    QSaveFile archivo_;
    bool fallo_ = false;
};
