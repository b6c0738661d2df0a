// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/platform/LineaSerieQt.h"

#include <QRegularExpression>
#include <QSerialPortInfo>

QString DispositivoDePuerto(const QString &puerto)
{
    static const QRegularExpression com(QStringLiteral("^COM([0-9]+)$"),
                                        QRegularExpression::CaseInsensitiveOption);
    const auto m = com.match(puerto.trimmed());
    if (m.hasMatch()) {
        bool ok = false;
        const int numero = m.captured(1).toInt(&ok);
        if (ok && numero >= 1)
            return QStringLiteral("/dev/ttyS%1").arg(numero - 1);
    }
    return puerto;
}

QStringList PuertosDelSistema()
{
    QStringList puertos;
    const auto lista = QSerialPortInfo::availablePorts();
    for (const QSerialPortInfo &info : lista)
        puertos << info.systemLocation();
    puertos.sort();
    puertos.removeDuplicates();
    return puertos;
}

LineaSerieQt::LineaSerieQt()
{
    // An unplugged USB adapter ends the line; the next Abrir may find it again.
    QObject::connect(&puerto_, &QSerialPort::errorOccurred, &puerto_,
                     [this](QSerialPort::SerialPortError error) {
                         if (error == QSerialPort::ResourceError && puerto_.isOpen())
                             puerto_.close();
                     });
}

LineaSerieQt::~LineaSerieQt()
{
    Cerrar();
}

namespace {

// The driver's reason, in the operator's words.
QString MotivoEnCastellano(QSerialPort::SerialPortError error)
{
    switch (error) {
    case QSerialPort::DeviceNotFoundError:
        return QStringLiteral("el puerto no existe en esta computadora");
    case QSerialPort::PermissionError:
        return QStringLiteral("el puerto está ocupado por otro programa o no hay permiso para "
                              "usarlo");
    case QSerialPort::OpenError:
        return QStringLiteral("el puerto ya está abierto");
    default:
        return QStringLiteral("el sistema no permitió abrirlo");
    }
}

} // namespace

bool LineaSerieQt::Abrir(const QString &puerto)
{
    Cerrar();
    nombre_ = puerto;
    motivo_.clear();
    const QString dispositivo = DispositivoDePuerto(puerto.trimmed());
    if (dispositivo.isEmpty()) {
        motivo_ = MotivoEnCastellano(QSerialPort::DeviceNotFoundError);
        return false;
    }
    puerto_.setPortName(dispositivo);
    // With hardware flow control the driver would move RTS itself.
    puerto_.setFlowControl(QSerialPort::NoFlowControl);
    if (!puerto_.open(QIODevice::ReadWrite)) {
        motivo_ = MotivoEnCastellano(puerto_.error());
        return false;
    }
    // Opening a tty raises both lines; the transmitter must not key until asked.
    puerto_.setDataTerminalReady(false);
    puerto_.setRequestToSend(false);
    return true;
}

void LineaSerieQt::Cerrar()
{
    if (!puerto_.isOpen())
        return;
    puerto_.setDataTerminalReady(false);
    puerto_.setRequestToSend(false);
    puerto_.close();
}

bool LineaSerieQt::Abierta() const
{
    return puerto_.isOpen();
}

QString LineaSerieQt::MotivoDelFallo() const
{
    return motivo_;
}

QString LineaSerieQt::Puerto() const
{
    return nombre_;
}

void LineaSerieQt::PonerDTR(bool encendido)
{
    if (puerto_.isOpen())
        puerto_.setDataTerminalReady(encendido);
}

void LineaSerieQt::PonerRTS(bool encendido)
{
    if (puerto_.isOpen())
        puerto_.setRequestToSend(encendido);
}
