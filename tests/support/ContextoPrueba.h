// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// A fresh Contexto over a temporary folder, with fake services and the store opened.
// With a base address, servicios.ini points every web service at it (a loopback
// ServidorHttpPrueba, say); with clienteWebReal the context speaks to it through the real
// ClienteWebQt instead of the fake, and falsos.web is null.
//
//   ContextoPrueba prueba;
//   Form1 ventana(prueba.ctx());
//   QCOMPARE(prueba.falsos.dialogos->UltimoTexto(), "…");
//
//   ServidorHttpPrueba servidor;
//   ContextoPrueba prueba(servidor.Base(), true); // requests go over a real connection

#include "core/context/Contexto.h"
#include "support/ServiciosFalsos.h"

#include <QByteArray>
#include <QTemporaryDir>
#include <memory>

class ContextoPrueba
{
public:
    explicit ContextoPrueba(const QString &baseWeb = {}, bool clienteWebReal = false);
    ~ContextoPrueba();

    Contexto &ctx() { return *contexto_; }
    Contexto *operator->() { return contexto_.get(); }
    QString Carpeta() const { return carpeta_.path(); }
    QString Archivo(const QString &nombre) const;
    // Writes a file of the program folder whole, bytes as given (CRLF and Windows-1252
    // are the test's to choose). False when it could not be written.
    bool Escribir(const QString &nombre, const QByteArray &contenido) const;
    QByteArray Leer(const QString &nombre) const; // empty when missing

    ServiciosFalsos falsos;

private:
    QTemporaryDir carpeta_;
    std::unique_ptr<Contexto> contexto_;
};
