// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/keying/MotorCW.h"

#include "core/keying/LlaveCW.h"
#include "core/platform/BombaEventos.h"
#include "core/platform/Reloj.h"

#include <QHash>

namespace {

constexpr qint64 kNsPorMs = 1'000'000;

const QHash<QChar, QString> &TablaMorse()
{
    // "\" keys like "/", both parentheses alike, and the markers *@&%~>< are the
    // prosigns AS, KN, AR, SN, BK, three V run together, and VA.
    static const QHash<QChar, QString> tabla = [] {
        const std::pair<char, const char *> filas[] = {
            {'0', "-----0"},  {'1', ".----0"},   {'2', "..---0"},   {'3', "...--0"},
            {'4', "....-0"},  {'5', ".....0"},   {'6', "-....0"},   {'7', "--...0"},
            {'8', "---..0"},  {'9', "----.0"},   {'a', ".-0"},      {'b', "-...0"},
            {'c', "-.-.0"},   {'d', "-..0"},     {'e', ".0"},       {'f', "..-.0"},
            {'g', "--.0"},    {'h', "....0"},    {'i', "..0"},      {'j', ".---0"},
            {'k', "-.-0"},    {'l', ".-..0"},    {'m', "--0"},      {'n', "-.0"},
            {'o', "---0"},    {'p', ".--.0"},    {'q', "--.-0"},    {'r', ".-.0"},
            {'s', "...0"},    {'t', "-0"},       {'u', "..-0"},     {'v', "...-0"},
            {'w', ".--0"},    {'x', "-..-0"},    {'y', "-.--0"},    {'z', "--..0"},
            {',', "--..--0"}, {'.', ".-.-.-0"},  {'/', "-..-.0"},   {'\\', "-..-.0"},
            {'=', "-...-0"},  {'?', "..--..0"},  {':', "---...0"},  {'(', "-.--.-0"},
            {')', "-.--.-0"}, {'\'', ".-..-.0"}, {'*', ".-...0"},   {'@', "-.--.0"},
            {'&', ".-.-.0"},  {'%', "...-.0"},   {'~', "-...-.-0"}, {'>', "...-...-...-0"},
            {'<', "...-.-0"}};
        QHash<QChar, QString> t;
        for (const auto &[c, patron] : filas)
            t.insert(QChar::fromLatin1(c), QString::fromLatin1(patron));
        return t;
    }();
    return tabla;
}

} // namespace

QString PatronMorse(QChar caracter)
{
    return TablaMorse().value(caracter.toLower());
}

int TresCuartos(int unidad)
{
    const int triple = 3 * unidad;
    int cociente = triple / 4;
    const int resto = triple % 4;
    if (resto > 2 || (resto == 2 && cociente % 2 != 0))
        ++cociente;
    return cociente;
}

MotorCW::MotorCW(LlaveCW &llave, const Reloj &reloj, BombaEventos &bomba, QObject *parent)
    : QObject(parent)
    , llave_(llave)
    , reloj_(reloj)
    , bomba_(bomba)
{}

void MotorCW::enviarCW()
{
    eco_.clear();
    Q_EMIT EcoCambiado(eco_);
    // Called by a handler during a send (a macro pressed meanwhile): its text is in the
    // queue already, and the send under way takes it after what it has, keeping its
    // rhythm. The character on the line is never cut.
    if (enCurso_)
        return;
    enCurso_ = true;
    bomba_.PedirPuntualidad(true);
    plan_ = reloj_.MonotonicoNs();
    avisado_ = false;
    Q_EMIT EnvioEnCurso(true);
    TextoCW = TextoCW.toLower();

    while (!TextoCW.isEmpty()) {
        QString c = TextoCW.left(1);
        eco_ += c.toUpper();
        Q_EMIT EcoCambiado(eco_);
        // Whatever stands more than 500 characters behind this one is dropped.
        TextoCW = TextoCW.mid(1, 500);
        if (c != QLatin1String("\n")) {
            enviando_ = true;
            // A double quote takes no time at all; anything else is followed by u.
            if (c != QLatin1String("\"")) {
                dekod(c);
                esperaCW(Unidad());
            }
        }
        if (PararCW)
            break;
    }
    Terminar();
}

void MotorCW::Terminar()
{
    PararCW = false;
    enviando_ = false;
    enCurso_ = false;
    bomba_.PedirPuntualidad(false);
    TextoCW.clear();
    Q_EMIT EnvioEnCurso(false);
}

void MotorCW::dekod(QString &caracter)
{
    caracter = caracter.toLower();
    if (caracter == QLatin1String(" ")) {
        betuszunet();
        return;
    }
    if (caracter.size() != 1)
        return;
    // Anything not in the table (a carriage return, "+", "-", "ñ", "!") keys nothing.
    const QString patron = PatronMorse(caracter.at(0));
    if (!patron.isEmpty())
        cw(patron);
}

void MotorCW::cw(const QString &patron)
{
    // A speed change takes effect here, never inside a character.
    VelCWActual_ = VelCW;
    for (int i = 0; i < 20; ++i) {
        const QChar e = i < patron.size() ? patron.at(i) : QChar();
        if (e == u'-') {
            dah();
            elemszunet();
        } else if (e == u'.') {
            dit();
            elemszunet();
        } else if (e == u'0') {
            betuszunet();
            break;
        } else {
            elemszunet();
        }
    }
}

// The "Peso" box of the window changes no time: the weighting was tried and left at 1.
void MotorCW::dit()
{
    falloLinea_ = !llave_.kulcsLe();
    esperaCW(Unidad());
    falloLinea_ = !llave_.kulcsFel() || falloLinea_;
    AvisarFallo();
}

void MotorCW::dah()
{
    falloLinea_ = !llave_.kulcsLe();
    esperaCW(3 * Unidad());
    falloLinea_ = !llave_.kulcsFel() || falloLinea_;
    AvisarFallo();
}

void MotorCW::AvisarFallo()
{
    // Told with the key up, so that the lamp is not left lit under the message.
    if (!falloLinea_ || avisado_)
        return;
    avisado_ = true;
    Q_EMIT FalloLinea(llave_.MensajeLineaFallida());
}

void MotorCW::elemszunet()
{
    esperaCW(TresCuartos(Unidad()));
}

void MotorCW::betuszunet()
{
    esperaCW(0);
}

void MotorCW::esperaCW(int milisegundos)
{
    const qint64 ahora = reloj_.MonotonicoNs();
    if (ahora - plan_ > kAtrasoMaximoMs * kNsPorMs)
        plan_ = ahora;
    plan_ += qMax(0, milisegundos) * kNsPorMs;
    EsperarPlan();
}

void MotorCW::EsperarPlan()
{
    // At least one pass, so that even a wait of 0 lets the window breathe.
    do {
        const qint64 falta = plan_ - reloj_.MonotonicoNs();
        if (falta > kMargenGiroMs * kNsPorMs)
            bomba_.BombearEsperando(int(falta / kNsPorMs) - kMargenGiroMs);
        else
            bomba_.Bombear();
    } while (reloj_.MonotonicoNs() < plan_);
}
