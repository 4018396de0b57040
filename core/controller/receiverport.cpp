#include "receiverport.h"

#include <QLoggingCategory>

namespace tavrix {

Q_LOGGING_CATEGORY(lcReceiverPort, "orvane.receiver")

ReceiverPort::ReceiverPort(std::shared_ptr<const SerialPortDirectory> ports, const Timings &timings,
                           QObject *parent)
    : QObject(parent)
    , m_ports(ports ? std::move(ports) : std::make_shared<SystemSerialPortDirectory>())
    , m_port(new TavrixSerialPort(timings.port, this))
    , m_reconnector(new PortReconnector(m_ports, timings.reconnect, this))
{
    // The receiver is flashed through this same cable with DTR and RTS kept low, the lines
    // its boot loader listens to; the console keeps them low too, so opening it never
    // resets the receiver or wakes its boot loader.
    m_port->setControlLines(TavrixSerialPort::ControlLines::Lowered);
    connect(m_port, &TavrixSerialPort::connectedChanged, this, &ReceiverPort::onPortConnectedChanged);
    connect(m_port, &TavrixSerialPort::portNameChanged, this, &ReceiverPort::portNameChanged);
    connect(m_port, &TavrixSerialPort::dataReceived, this, &ReceiverPort::onPortDataReceived);
    connect(m_port, &TavrixSerialPort::errorOccurred, this, &ReceiverPort::onPortError);

    connect(m_reconnector, &PortReconnector::portReturned, this, [this](const QString &portName) {
        qCInfo(lcReceiverPort).noquote() << "Receiver dropped — reconnecting to" << portName;
        connectReceiver(portName, m_rememberedBaudRate);
    });
    // Unplugging the receiver's cable is the normal end of a bench session: the search
    // ends quietly, without an error for the user.
    connect(m_reconnector, &PortReconnector::gaveUp, this, [this] {
        qCInfo(lcReceiverPort).noquote() << "Receiver did not come back on" << m_rememberedPortName;
    });
}

ReceiverPort::~ReceiverPort()
{
    // The port closes as our child once this object is gone; that close is no loss.
    m_reconnector->stop();
    disconnect(m_port, nullptr, this, nullptr);
}

bool ReceiverPort::connectReceiver(const QString &portName, qint32 baudRate)
{
    m_lines.clear();
    m_userDisconnected = false;
    if (!m_port->open(portName, baudRate))
        return false;
    m_rememberedPortName = portName;
    m_rememberedBaudRate = baudRate;
    emit connectionRemembered(portName, baudRate);
    return true;
}

void ReceiverPort::disconnectReceiver()
{
    m_userDisconnected = true;
    m_reconnector->stop();
    m_port->close();
}

void ReceiverPort::setRememberedPort(const QString &portName, qint32 baudRate)
{
    m_rememberedPortName = portName;
    m_rememberedBaudRate = baudRate > 0 ? baudRate : kDefaultBaudRate;
}

bool ReceiverPort::writeLine(const QString &line)
{
    if (line.contains(QLatin1Char('\n')) || line.contains(QLatin1Char('\r')))
        return false;
    return m_port->write(line.toUtf8() + '\n') > 0;
}

void ReceiverPort::onPortConnectedChanged(bool connected)
{
    // Settled before listeners hear of it, so isReconnecting() already tells a drop
    // from a deliberate disconnect.
    if (connected) {
        m_reconnector->stop();
    } else if (!m_userDisconnected && !m_rememberedPortName.isEmpty() && !m_port->isOpening()) {
        if (m_reconnector->start(m_rememberedPortName))
            qCInfo(lcReceiverPort).noquote() << "Receiver connection lost — starting auto-reconnect";
    }
    emit connectedChanged(connected);
}

void ReceiverPort::onPortDataReceived(const QByteArray &chunk)
{
    const QStringList lines = m_lines.feed(chunk);
    for (const QString &line : lines)
        emit lineReceived(line);
}

void ReceiverPort::onPortError(const QString &error)
{
    if (isReconnecting()) {
        qCInfo(lcReceiverPort).noquote() << "Serial error during receiver reconnect (suppressed):" << error;
        return;
    }
    emit errorOccurred(error);
}

} // namespace tavrix
