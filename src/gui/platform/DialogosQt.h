// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The message boxes, input box and file dialogs of the desktop. Button texts come from
// Qt's own translations (main.cpp loads qtbase_es), so they read "Sí", "No", "Aceptar",
// "Cancelar" like every other Spanish program on the desktop.

#include "core/platform/Dialogos.h"

class DialogosQt : public Dialogos
{
public:
    void Exclamacion(const QString &texto, const QString &titulo = {}) override;
    void Alto(const QString &texto, const QString &titulo = {}) override;
    void Informacion(const QString &texto, const QString &titulo = {}) override;
    bool PreguntaSiNo(const QString &texto, const QString &titulo = {}) override;
    bool ExclamacionSiNo(const QString &texto, const QString &titulo = {}) override;
    bool AceptarCancelar(const QString &texto, const QString &titulo = {}) override;
    std::optional<QString> Entrada(const QString &texto, const QString &titulo = {},
                                   const QString &porDefecto = {}) override;
    // The filter in Qt's form: "Archivos ADIF (*.adi *.adif);;Todos (*)".
    QString AbrirArchivo(const QString &titulo, const QString &carpeta,
                         const QString &filtro) override;
    QString GuardarArchivo(const QString &titulo, const QString &carpeta,
                           const QString &filtro) override;
};
