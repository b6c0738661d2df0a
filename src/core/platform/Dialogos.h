// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Message boxes, the input box and the file dialogs, as the windows ask for them.
// Windows never open a QMessageBox or QFileDialog themselves: a test hands in a fake
// that records every message and answers every question from a script.

#include <QString>
#include <optional>

class Dialogos
{
public:
    virtual ~Dialogos() = default;

    // Something the operator can mend (the exclamation box).
    virtual void Exclamacion(const QString &texto, const QString &titulo = {}) = 0;
    // Something refused (the stop box).
    virtual void Alto(const QString &texto, const QString &titulo = {}) = 0;
    virtual void Informacion(const QString &texto, const QString &titulo = {}) = 0;
    // Yes and No, with No as default: for what destroys data. True on Yes.
    virtual bool PreguntaSiNo(const QString &texto, const QString &titulo = {}) = 0;
    // Yes and No on the exclamation box, No as default: a question about something done
    // ("Guardado! Desea verlo?"). True on Yes.
    virtual bool ExclamacionSiNo(const QString &texto, const QString &titulo = {}) = 0;
    // OK and Cancel. True on OK.
    virtual bool AceptarCancelar(const QString &texto, const QString &titulo = {}) = 0;
    // The input box: the text typed, or nothing when cancelled.
    virtual std::optional<QString> Entrada(const QString &texto, const QString &titulo = {},
                                           const QString &porDefecto = {}) = 0;
    // File dialogs: the chosen path, or empty text when cancelled. Saving never asks about
    // an existing file: the caller asks in its own words.
    virtual QString AbrirArchivo(const QString &titulo, const QString &carpeta,
                                 const QString &filtro) = 0;
    virtual QString GuardarArchivo(const QString &titulo, const QString &carpeta,
                                   const QString &filtro) = 0;
};

// Title of every message box of the program.
inline QString TituloPrograma()
{
    return QStringLiteral("Carancho Radiolog");
}
