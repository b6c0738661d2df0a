// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// Message boxes for tests: every call is recorded, and questions, inputs and file
// dialogs are answered from queues the test fills beforehand. An empty queue gives the
// cautious answer: No, Cancelar, nothing typed, no file.

#include "core/platform/Dialogos.h"

#include <QByteArray>
#include <QQueue>
#include <QStringList>
#include <QVector>
#include <functional>

struct LlamadaDialogo
{
    enum class Tipo {
        Exclamacion,
        Alto,
        Informacion,
        PreguntaSiNo,
        ExclamacionSiNo,
        AceptarCancelar,
        Entrada,
        AbrirArchivo,
        GuardarArchivo
    };
    Tipo tipo;
    QString texto;  // the message; the filter of a file dialog
    QString titulo; // as passed: empty when the caller left the program's title
};

class DialogosFalso : public Dialogos
{
public:
    using Tipo = LlamadaDialogo::Tipo;

    void Exclamacion(const QString &texto, const QString &titulo = {}) override;
    void Alto(const QString &texto, const QString &titulo = {}) override;
    void Informacion(const QString &texto, const QString &titulo = {}) override;
    bool PreguntaSiNo(const QString &texto, const QString &titulo = {}) override;
    bool ExclamacionSiNo(const QString &texto, const QString &titulo = {}) override;
    bool AceptarCancelar(const QString &texto, const QString &titulo = {}) override;
    std::optional<QString> Entrada(const QString &texto, const QString &titulo = {},
                                   const QString &porDefecto = {}) override;
    QString AbrirArchivo(const QString &titulo, const QString &carpeta,
                         const QString &filtro) override;
    QString GuardarArchivo(const QString &titulo, const QString &carpeta,
                           const QString &filtro) override;

    // ---- What happened ----
    QVector<LlamadaDialogo> llamadas;
    QStringList Textos() const;          // every text, in order
    QStringList Textos(Tipo tipo) const; // those of one kind
    int Cantidad(Tipo tipo) const { return int(Textos(tipo).size()); }
    QString UltimoTexto() const; // empty when nothing was shown
    void Limpiar() { llamadas.clear(); }

    // ---- The script ----
    QQueue<bool> respuestasSiNo;             // true = Sí, for both kinds of Yes and No
    QQueue<bool> respuestasAceptar;          // true = Aceptar
    QQueue<std::optional<QString>> entradas; // nullopt = Cancelar
    QQueue<QString> archivosAbrir;           // empty = Cancelar
    QQueue<QString> archivosGuardar;

    // Called when a call arrives, after it is recorded and before it is answered: a window
    // test can look at the window at that moment, or queue the answer then.
    std::function<void(const LlamadaDialogo &)> alLlegar;

private:
    void Registrar(Tipo tipo, const QString &texto, const QString &titulo);
};

const char *NombreTipo(LlamadaDialogo::Tipo tipo);
// So that a failed QCOMPARE of two kinds prints their names.
inline char *toString(LlamadaDialogo::Tipo tipo)
{
    return qstrdup(NombreTipo(tipo));
}
