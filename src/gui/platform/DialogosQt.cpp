// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/platform/DialogosQt.h"

#include <QApplication>
#include <QFileDialog>
#include <QInputDialog>
#include <QMessageBox>

namespace {

QString Titulo(const QString &titulo)
{
    return titulo.isEmpty() ? TituloPrograma() : titulo;
}

// Messages are written with CRLF line ends, as the files are; a label wants plain LF.
QString TextoVisible(const QString &texto)
{
    QString t = texto;
    t.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    t.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    return t;
}

QMessageBox::StandardButton Caja(QMessageBox::Icon icono, const QString &texto,
                                 const QString &titulo, QMessageBox::StandardButtons botones,
                                 QMessageBox::StandardButton porDefecto)
{
    QMessageBox caja(icono, Titulo(titulo), TextoVisible(texto), botones,
                     QApplication::activeWindow());
    // A callsign or a remark with a '<' must never be taken for markup.
    caja.setTextFormat(Qt::PlainText);
    caja.setDefaultButton(porDefecto);
    return static_cast<QMessageBox::StandardButton>(caja.exec());
}

// A filter as the program's dialogs have always written it, pairs of description and
// patterns behind "|" ("ADIF| *.adi; *.adi", "ADIF (*.adi)|*.adi"), in Qt's form:
// "ADIF (*.adi)", pairs joined by ";;".
QString FiltroQt(const QString &filtro)
{
    if (!filtro.contains(QLatin1Char('|')))
        return filtro;
    const QStringList partes = filtro.split(QLatin1Char('|'));
    QStringList filtros;
    for (qsizetype i = 0; i + 1 < partes.size(); i += 2) {
        // "ADIF (*.adi)|*.adi" already says its patterns in the description.
        if (partes.at(i).contains(QLatin1Char('('))) {
            filtros << partes.at(i).trimmed();
            continue;
        }
        QStringList patrones = QString(partes.at(i + 1))
                                   .replace(QLatin1Char(';'), QLatin1Char(' '))
                                   .split(QLatin1Char(' '), Qt::SkipEmptyParts);
        patrones.removeDuplicates();
        filtros << partes.at(i).trimmed() + QStringLiteral(" (") + patrones.join(QLatin1Char(' ')) +
                       QLatin1Char(')');
    }
    return filtros.join(QStringLiteral(";;"));
}

} // namespace

void DialogosQt::Exclamacion(const QString &texto, const QString &titulo)
{
    Caja(QMessageBox::Warning, texto, titulo, QMessageBox::Ok, QMessageBox::Ok);
}

void DialogosQt::Alto(const QString &texto, const QString &titulo)
{
    Caja(QMessageBox::Critical, texto, titulo, QMessageBox::Ok, QMessageBox::Ok);
}

void DialogosQt::Informacion(const QString &texto, const QString &titulo)
{
    Caja(QMessageBox::Information, texto, titulo, QMessageBox::Ok, QMessageBox::Ok);
}

bool DialogosQt::PreguntaSiNo(const QString &texto, const QString &titulo)
{
    // No is the default: a hurried Enter must not destroy anything.
    return Caja(QMessageBox::Question, texto, titulo, QMessageBox::Yes | QMessageBox::No,
                QMessageBox::No) == QMessageBox::Yes;
}

bool DialogosQt::ExclamacionSiNo(const QString &texto, const QString &titulo)
{
    return Caja(QMessageBox::Warning, texto, titulo, QMessageBox::Yes | QMessageBox::No,
                QMessageBox::No) == QMessageBox::Yes;
}

bool DialogosQt::AceptarCancelar(const QString &texto, const QString &titulo)
{
    return Caja(QMessageBox::Question, texto, titulo, QMessageBox::Ok | QMessageBox::Cancel,
                QMessageBox::Ok) == QMessageBox::Ok;
}

std::optional<QString> DialogosQt::Entrada(const QString &texto, const QString &titulo,
                                           const QString &porDefecto)
{
    QInputDialog caja(QApplication::activeWindow());
    caja.setWindowTitle(Titulo(titulo));
    caja.setLabelText(TextoVisible(texto));
    caja.setInputMode(QInputDialog::TextInput);
    caja.setTextValue(porDefecto);
    if (caja.exec() != QDialog::Accepted)
        return std::nullopt;
    return caja.textValue();
}

QString DialogosQt::AbrirArchivo(const QString &titulo, const QString &carpeta,
                                 const QString &filtro)
{
    return QFileDialog::getOpenFileName(QApplication::activeWindow(), Titulo(titulo), carpeta,
                                        FiltroQt(filtro));
}

QString DialogosQt::GuardarArchivo(const QString &titulo, const QString &carpeta,
                                   const QString &filtro)
{
    return QFileDialog::getSaveFileName(QApplication::activeWindow(), Titulo(titulo), carpeta,
                                        FiltroQt(filtro), nullptr,
                                        QFileDialog::DontConfirmOverwrite);
}
