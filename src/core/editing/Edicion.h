// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The edit window's own rules: its checks on leaving a field, the order of the checks of
// "Guardar", how a row's frequency and national-log state are shown, and how the values
// go back to the store. Its words differ from those of the main window on purpose: the
// two windows have always had separate tests.

#include <QString>
#include <QStringList>
#include <optional>

// ---- Checks on leaving a field (empty text: accepted) ------------------------------
QString MensajeFechaEdicion(); // "Error Fecha!", "Formato: DD/MM/AAAA"
QString MensajeHoraEdicion();  // "Error Hora!", "Formato: HH:MM"
// Length 10, '/' third and sixth, a real calendar date.
QString RevisarFechaEdicion(const QString &texto);
// Length 5 with ':' third, then hours at most 23, then minutes at most 59.
QString RevisarHoraEdicion(const QString &texto);
// A grid is left empty or with all six characters: four are refused here.
QString RevisarGrillaEdicion(const QString &texto);

// ---- Loading ----------------------------------------------------------------------
// "Edición de QSO #" and the id: the caption of the edit window.
QString TituloEdicion(qint64 id);

// The frequency "7.150" (or "7,150") as the two fields show it: the whole MHz before the
// first point, and up to four characters after it.
struct FrecuenciaPartida
{
    QString mhz;
    QString khz;
};
FrecuenciaPartida PartirFrecuencia(const QString &frecuencia);

// The "Libro Nacional" frame: "Subido:" and "Confirmado:" of a row's LbN state.
struct EstadoLbNVisible
{
    QString subido;
    QString confirmado;
};
EstadoLbNVisible EstadoLbNEdicion(const QString &lbn);

// The mode list: F5 offers "SSB", "FM", "CW", "Sat" and the row's own mode when missing;
// a double click on a row offers the window's own list, without "Sat".
QStringList ModosParaEdicion(const QString &modoFila, bool conSat);

// ---- Saving -----------------------------------------------------------------------
// The fields that "Guardar" looks at before it writes anything.
struct CamposGuardado
{
    QString modo;         // Combo2
    QString satelite;     // Text12
    QString miSenal;      // Text1
    QString corresponsal; // Text2
    QString operador;     // Text3
    QString rse;          // Text6
    QString rsr;          // Text7
};

enum class CampoEdicion { Corresponsal, Rse, Rsr, Satelite };

struct FalloGuardado
{
    QString mensaje;
    bool alto = false;                               // a stop box; otherwise an exclamation box
    CampoEdicion campo = CampoEdicion::Corresponsal; // where the focus goes
};

// The checks of "Guardar" in their order; the first failure stops the save.
std::optional<FalloGuardado> RevisarGuardado(const CamposGuardado &campos);

// The date of the field as the store takes it, "dd/mm/yyyy"; hyphens are read as slashes
// and one-digit days or months are accepted. nullopt when it is no date.
std::optional<QString> FechaParaGuardarEdicion(const QString &texto);
// The time of the field ("hh:mm") as the store takes it, "hh:mm:ss"; nullopt when it is
// no time.
std::optional<QString> HoraParaGuardarEdicion(const QString &texto);

// The question before a delete.
QString PreguntaEliminar(qint64 id);
