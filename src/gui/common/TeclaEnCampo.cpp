// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/common/TeclaEnCampo.h"

#include <QFocusEvent>

#include <QKeyEvent>
#include <QLineEdit>

bool FiltrarTeclaEnCampo(QLineEdit *campo, QKeyEvent *tecla, FiltroTecla filtro, bool dejarPregunta)
{
    const QString texto = tecla->text();
    if (texto.size() != 1 || (tecla->modifiers() & (Qt::ControlModifier | Qt::AltModifier)))
        return false;
    const QChar c = texto.at(0);
    if (c.unicode() < 32 || c.unicode() == 127) // Enter, Tab, Backspace, Delete: the editor's
        return false;
    if (c == u'?' && !dejarPregunta)
        return true;
    const auto paso = FiltrarTecla(filtro, c);
    if (!paso)
        return true;
    if (*paso != c) {
        campo->insert(QString(*paso));
        return true;
    }
    return false;
}

bool DejaElCampo(const QEvent *perdida, const QWidget *ventana)
{
    const auto razon = static_cast<const QFocusEvent *>(perdida)->reason();
    return razon != Qt::ActiveWindowFocusReason && razon != Qt::PopupFocusReason &&
           razon != Qt::MenuBarFocusReason && ventana->isVisible();
}
