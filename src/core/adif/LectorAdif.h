// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The ADIF reader of the import. It is a search for tags in one line, not a parser of
// ADIF: a record must stand on one line, and a tag is found wherever it stands in it,
// inside another field's value too. Lines end at CR LF or at a lone CR; a lone LF is part
// of the line, which is why a file with LF line ends is first copied with CR LF ones.
//
// Everything works on the file's bytes: a file that is valid UTF-8 is read as UTF-8, any
// other as Windows-1252.

#include "core/platform/Resultado.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QDateTime>
#include <QString>
#include <array>
#include <vector>

// The lines of the bytes, without their ends: CR LF or CR end a line, LF alone does not.
// A last line without an end counts; an end at the very end starts no other line.
std::vector<QByteArrayView> LineasAdif(QByteArrayView datos);

bool EsUtf8(QByteArrayView datos);

// The value of a tag such as "<CALL:" in a line, or nothing. The first occurrence of the
// tag in the line, in any case, decides: the length is the number that follows it (a type
// letter behind it does no harm), the value starts behind the first ">" within the next
// 1000 characters. In UTF-8 the length may count bytes or characters: bytes when they end
// on a character that is followed by "<", a blank or the line's end, else characters.
QByteArrayView ValorTag(QByteArrayView linea, QByteArrayView tag, bool utf8);
QString LeerTag(QByteArrayView linea, QByteArrayView tag, bool utf8);
QString TextoAdif(QByteArrayView bytes, bool utf8);

// True when the line holds the tag, in any case.
bool TieneTag(QByteArrayView linea, QByteArrayView tag);

// The tags the import reads from a record, each found as LeerTag finds it, in one pass.
enum class Campo {
    GridSquare,
    MyGridSquare,
    QslRcvd,
    StationCallsign,
    Call,
    QsoDate,
    TimeOn,
    Band,
    Freq,
    RstSent,
    RstRcvd,
    Operator,
    Mode,
    PropMode,
    Comment,
    SatName,
    Cantidad
};
struct CamposAdif
{
    std::array<QByteArrayView, size_t(Campo::Cantidad)> valor;
    QByteArrayView operator[](Campo c) const { return valor[size_t(c)]; }
};
CamposAdif LeerCampos(QByteArrayView linea, bool utf8);

// A line of QSO for the import: it holds "<CALL:" and "<EOR>" in any case, and a ">".
bool EsLineaQSO(QByteArrayView linea);

// The program named in a "<PROGRAMID:" line, read as the import always has: the length is
// the number behind the line's first 11 characters (the tag is taken to open the line) and
// the text starts behind the line's first ">".
QString ProgramaDeLinea(const QString &linea);

// The file to read, and its bytes. A file of exactly one line uses LF alone: each LF
// becomes CR LF, the result is written beside it as path + "_" + hhmmss (the hour given),
// and that copy is what is read. Should the copy not be written, its bytes are read all
// the same. Any other file is read as it stands.
struct ArchivoAdif
{
    QString ruta;
    QByteArray datos;
};
Resultado<ArchivoAdif> NormalizarSaltos(const QString &ruta, const QTime &hora);

// Records spread over lines joined one to a line, up to each "<EOR>", written to
// path + "_". False when it could not be written.
bool RehacerAdif(const QString &ruta, QByteArrayView datos);

// The largest file the import reads: ten thousand records of some kilobytes are far less.
inline constexpr qint64 kMayorArchivoAdif = 256LL * 1024 * 1024;
