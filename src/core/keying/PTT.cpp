// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/keying/PTT.h"

#include "core/platform/LineaSerie.h"

LineaPTT LineaDePin(int pinPTT)
{
    return pinPTT == 1 ? LineaPTT::RTS : LineaPTT::DTR;
}

void PonerPTT(LineaSerie &puerto, int pinPTT, bool encendido)
{
    if (LineaDePin(pinPTT) == LineaPTT::RTS)
        puerto.PonerRTS(encendido);
    else
        puerto.PonerDTR(encendido);
}

InterruptorPTT::InterruptorPTT(LineaSerie &puerto, QObject *parent)
    : QObject(parent)
    , puerto_(puerto)
{}

void InterruptorPTT::PTTOn(int pinPTT)
{
    PonerPTT(puerto_, pinPTT, true);
    encendido_ = true;
    Q_EMIT Lampara(true);
}

void InterruptorPTT::PTTOff(int pinPTT)
{
    PonerPTT(puerto_, pinPTT, false);
    encendido_ = false;
    Q_EMIT Lampara(false);
}

ColoresTx ColoresLamparaTx(bool encendida)
{
    return {encendida ? 255 : 64, 16777215};
}

QString PuertoNinguno()
{
    return QStringLiteral("NINGUNO");
}

bool EsSinPuerto(const QString &puerto)
{
    return puerto.isEmpty() || puerto == PuertoNinguno();
}

void AbrirPuertoPTT(LineaSerie &linea, const QString &puerto)
{
    if (linea.Abierta())
        linea.Cerrar();
    if (EsSinPuerto(puerto))
        return;
    if (linea.Abrir(puerto)) {
        linea.PonerRTS(false);
        linea.PonerDTR(false);
    }
}

void SeguirPuertoPTT(LineaSerie &linea, const QString &puerto)
{
    const bool yaEsta =
        EsSinPuerto(puerto) ? !linea.Abierta() : linea.Abierta() && linea.Puerto() == puerto;
    if (!yaEsta)
        AbrirPuertoPTT(linea, puerto);
}
