// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// What goes to the national log service, QSO by QSO: the rows of the log picked and put in
// the service's forms, for the runs of the menu and for the upload from the search window.

#include "core/nationallog/ProtocoloLbN.h"
#include "core/store/RegistroQSO.h"

#include <QStringList>
#include <QVector>

// One QSO to send, with the id of its row.
struct EnvioLbN
{
    qint64 id = 0;
    QSOLbN qso;
    QString qslMsg; // the search window's upload only
};

// The runs of the menu: "Subir y Chequear Confirmaciones", "Sólo Subir", "Libro Nacional".
enum class TipoCorrida { SubirYChequear, SoloSubir, LibroNacional };

struct PreparacionCorrida
{
    QVector<EnvioLbN> envios; // in the order of the rows, the limit already applied
    int aEnviar = 0;          // before the limit
    int delLog = 0, confirmados = 0, moviles = 0, noArgentinos = 0;
    QStringList senalesPropias; // distinct, in order of appearance
    bool limitada = false;
};

// "Subir y Chequear Confirmaciones" sends the oldest thousand at most.
constexpr int kLimiteSubirYChequear = 1000;

// The rows of the log (oldest first; for "Sólo Subir" those not uploaded) sifted in this
// order: no correspondent, confirmed, a maritime or aeronautical mobile, no province stored.
PreparacionCorrida PrepararCorrida(const QVector<FilaQSO> &filas, TipoCorrida tipo);
// The message that ends the run before any request, or empty text when there is work.
QString MensajeSinEnvios(const PreparacionCorrida &p, const QString &log);
// The Yes/No question before the run.
QString PreguntaCorrida(const PreparacionCorrida &p, const QString &log);

// The band of an old row that stored a dotted frequency ("14.200.0") in place of a band;
// empty text when it has none of the known forms.
QString BandaDeFrecuenciaVieja(const QString &banda);
// The band of the whole megahertz, by the search window's own table; empty when none.
QString BandaDeMhzBusqueda(int mhz);

// The rows of the search window, in their order: the band by the frequency (a row with
// none keeps the band of the row before), "DVoice" as "DV", a satellite as "Sat", and the
// remarks as the QSL message when asked.
QVector<EnvioLbN> EnviosDeBusqueda(const QVector<FilaQSO> &filas, bool usarComentarioComoQslmsg);
