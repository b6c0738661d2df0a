// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/keying/LlaveCW.h"

#include "core/keying/AjustesCW.h"
#include "core/platform/LineaSerie.h"

LlaveCW::LlaveCW(LineaSerie &linea, QObject *parent)
    : QObject(parent)
    , linea_(linea)
{}

LlaveCW::~LlaveCW()
{
    Soltar();
}

void LlaveCW::Soltar()
{
    if (!linea_.Abierta())
        return;
    linea_.PonerDTR(false);
    linea_.PonerRTS(false);
    linea_.Cerrar();
}

void LlaveCW::CerrarYNombrar(const QString &puerto)
{
    Soltar();
    puerto_ = puerto;
    if (abajo_) {
        abajo_ = false;
        Q_EMIT Lampara(false);
    }
}

Resultado<> LlaveCW::ElegirPuerto(const QString &puerto)
{
    CerrarYNombrar(puerto);
    if (SoloLampara())
        return {};
    if (!linea_.Abrir(puerto)) {
        QString motivo = linea_.MotivoDelFallo();
        if (motivo.isEmpty())
            motivo = QStringLiteral("el sistema no permitió abrirlo");
        return Fallo{QStringLiteral("No se pudo abrir el puerto %1 del manipulador: %2.")
                         .arg(puerto, motivo)};
    }
    linea_.PonerDTR(false);
    linea_.PonerRTS(false);
    return {};
}

void LlaveCW::NombrarPuerto(const QString &puerto)
{
    if (puerto != puerto_)
        CerrarYNombrar(puerto);
}

bool LlaveCW::SoloLampara() const
{
    return puerto_.compare(PuertoNingunoCW(), Qt::CaseInsensitive) == 0;
}

void LlaveCW::PonerLinea(bool dtr)
{
    if (dtr == dtr_)
        return;
    const bool abajo = abajo_;
    if (abajo)
        kulcsFel();
    dtr_ = dtr;
    if (abajo)
        kulcsLe();
}

bool LlaveCW::kulcsLe()
{
    abajo_ = true;
    if (SoloLampara()) {
        Q_EMIT Lampara(true);
        return true;
    }
    return lineaCW(dtr_ ? QStringLiteral("DTR") : QStringLiteral("RTS"), true);
}

bool LlaveCW::kulcsFel()
{
    abajo_ = false;
    if (SoloLampara()) {
        Q_EMIT Lampara(false);
        return true;
    }
    return lineaCW(dtr_ ? QStringLiteral("DTR") : QStringLiteral("RTS"), false);
}

bool LlaveCW::lineaCW(const QString &nombre, bool activa)
{
    const bool abierta = linea_.Abierta();
    if (nombre == QLatin1String("DTR"))
        linea_.PonerDTR(activa);
    else if (nombre == QLatin1String("RTS"))
        linea_.PonerRTS(activa);
    Q_EMIT Lampara(activa);
    return abierta;
}

QString LlaveCW::MensajeLineaFallida() const
{
    return QStringLiteral("No se pudo manejar la línea %1 del puerto %2: el puerto no está "
                          "abierto (se abre al elegirlo en la lista de puertos). El envío "
                          "sigue solo con la lámpara.")
        .arg(dtr_ ? QStringLiteral("DTR") : QStringLiteral("RTS"), puerto_);
}

TeclaManual::Accion TeclaManual::Presion(bool autoRepetida)
{
    if (autoRepetida || abajo_)
        return Accion::Nada;
    abajo_ = true;
    return Accion::Bajar;
}

TeclaManual::Accion TeclaManual::Suelta(bool autoRepetida)
{
    if (autoRepetida || !abajo_)
        return Accion::Nada;
    abajo_ = false;
    return Accion::Subir;
}

TeclaManual::Accion TeclaManual::FocoPerdido()
{
    return Suelta(false);
}
