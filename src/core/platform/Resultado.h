// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The one way an operation of the core says that it failed: a result holds either its
// value (nothing, for Resultado<>) or the Spanish message that the window shows the
// operator as it stands. A failure never throws and never ends the program.
//
//   Resultado<qint64> r = almacen.AgregarQSO(q, log);
//   if (!r)
//       dialogos.Alto(r.Mensaje());
//
// An operation returns its value for success and `Fallo{mensaje}` for failure.

#include <QString>
#include <optional>
#include <utility>

// A failure on its way to a Resultado of any type.
struct Fallo
{
    QString mensaje;
};

template<typename T = void> class [[nodiscard]] Resultado
{
public:
    Resultado(T valor)
        : valor_(std::move(valor))
    {}
    Resultado(Fallo fallo)
        : mensaje_(std::move(fallo.mensaje))
    {}

    bool Exito() const { return valor_.has_value(); }
    explicit operator bool() const { return Exito(); }
    // Empty on success.
    const QString &Mensaje() const { return mensaje_; }

    // Only on success.
    const T &Valor() const { return *valor_; }
    T &Valor() { return *valor_; }
    const T &operator*() const { return *valor_; }
    const T *operator->() const { return &*valor_; }
    // The value, or the given one after a failure.
    T ValorO(T otro) const { return valor_ ? *valor_ : std::move(otro); }

private:
    std::optional<T> valor_;
    QString mensaje_;
};

template<> class [[nodiscard]] Resultado<void>
{
public:
    Resultado() = default; // success
    Resultado(Fallo fallo)
        : fallo_(true)
        , mensaje_(std::move(fallo.mensaje))
    {}

    bool Exito() const { return !fallo_; }
    explicit operator bool() const { return Exito(); }
    const QString &Mensaje() const { return mensaje_; }

private:
    bool fallo_ = false;
    QString mensaje_;
};
