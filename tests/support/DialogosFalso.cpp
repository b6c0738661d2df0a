// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/DialogosFalso.h"

namespace {

template<typename T> T Siguiente(QQueue<T> &cola, T porDefecto)
{
    return cola.isEmpty() ? porDefecto : cola.dequeue();
}

} // namespace

const char *NombreTipo(LlamadaDialogo::Tipo tipo)
{
    // In the order of the enum.
    static const char *const nombres[] = {
        "Exclamacion",     "Alto",    "Informacion",  "PreguntaSiNo",  "ExclamacionSiNo",
        "AceptarCancelar", "Entrada", "AbrirArchivo", "GuardarArchivo"};
    return nombres[int(tipo)];
}

void DialogosFalso::Registrar(Tipo tipo, const QString &texto, const QString &titulo)
{
    // A copy for the callback: it may open another message and grow the list.
    const LlamadaDialogo llamada{tipo, texto, titulo};
    llamadas.append(llamada);
    if (alLlegar)
        alLlegar(llamada);
}

void DialogosFalso::Exclamacion(const QString &texto, const QString &titulo)
{
    Registrar(Tipo::Exclamacion, texto, titulo);
}

void DialogosFalso::Alto(const QString &texto, const QString &titulo)
{
    Registrar(Tipo::Alto, texto, titulo);
}

void DialogosFalso::Informacion(const QString &texto, const QString &titulo)
{
    Registrar(Tipo::Informacion, texto, titulo);
}

bool DialogosFalso::PreguntaSiNo(const QString &texto, const QString &titulo)
{
    Registrar(Tipo::PreguntaSiNo, texto, titulo);
    return Siguiente(respuestasSiNo, false);
}

bool DialogosFalso::ExclamacionSiNo(const QString &texto, const QString &titulo)
{
    Registrar(Tipo::ExclamacionSiNo, texto, titulo);
    return Siguiente(respuestasSiNo, false);
}

bool DialogosFalso::AceptarCancelar(const QString &texto, const QString &titulo)
{
    Registrar(Tipo::AceptarCancelar, texto, titulo);
    return Siguiente(respuestasAceptar, false);
}

std::optional<QString> DialogosFalso::Entrada(const QString &texto, const QString &titulo,
                                              const QString &)
{
    Registrar(Tipo::Entrada, texto, titulo);
    return Siguiente(entradas, std::optional<QString>());
}

QString DialogosFalso::AbrirArchivo(const QString &titulo, const QString &, const QString &filtro)
{
    Registrar(Tipo::AbrirArchivo, filtro, titulo);
    return Siguiente(archivosAbrir, QString());
}

QString DialogosFalso::GuardarArchivo(const QString &titulo, const QString &, const QString &filtro)
{
    Registrar(Tipo::GuardarArchivo, filtro, titulo);
    return Siguiente(archivosGuardar, QString());
}

QStringList DialogosFalso::Textos() const
{
    QStringList textos;
    for (const auto &l : llamadas)
        textos << l.texto;
    return textos;
}

QStringList DialogosFalso::Textos(Tipo tipo) const
{
    QStringList textos;
    for (const auto &l : llamadas)
        if (l.tipo == tipo)
            textos << l.texto;
    return textos;
}

QString DialogosFalso::UltimoTexto() const
{
    return llamadas.isEmpty() ? QString() : llamadas.last().texto;
}
