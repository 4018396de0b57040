#include "transmitterlink.h"

#include <QLoggingCategory>

namespace tavrix {

Q_LOGGING_CATEGORY(lcTransmitterLink, "orvane.link")

TransmitterLink::TransmitterLink(std::shared_ptr<const SerialPortDirectory> ports, QObject *parent)
    : TransmitterLink(std::move(ports), Timings{}, parent)
{}

TransmitterLink::TransmitterLink(std::shared_ptr<const SerialPortDirectory> ports, const Timings &timings,
                                 QObject *parent)
    : QObject(parent)
    , m_timings(timings)
    , m_ports(ports ? std::move(ports) : std::make_shared<SystemSerialPortDirectory>())
    , m_port(new TavrixSerialPort(timings.port, this))
    , m_keepaliveTimer(new QTimer(this))
    , m_reconnector(
          new PortReconnector(m_ports, {timings.reconnectInterval, timings.reconnectAttempts}, this))
{
    connect(m_port, &TavrixSerialPort::connectedChanged, this, &TransmitterLink::onPortConnectedChanged);
    connect(m_port, &TavrixSerialPort::portNameChanged, this, &TransmitterLink::serialPortNameChanged);
    connect(m_port, &TavrixSerialPort::dataReceived, this, &TransmitterLink::onPortDataReceived);
    connect(m_port, &TavrixSerialPort::errorOccurred, this, &TransmitterLink::onPortError);

    m_keepaliveTimer->setInterval(m_timings.keepaliveCheckInterval);
    connect(m_keepaliveTimer, &QTimer::timeout, this, &TransmitterLink::onKeepaliveTimer);
    m_keepaliveTimer->start();

    connect(m_reconnector, &PortReconnector::portReturned, this, &TransmitterLink::onPortReturned);
    connect(m_reconnector, &PortReconnector::gaveUp, this, [this] {
        emit errorOccurred(
            tr("Lost connection to the Orvane Transmitter and could not reconnect. Check the USB "
               "cable and press Connect."));
    });
}

TransmitterLink::~TransmitterLink()
{
    // The port closes as our child once this object is gone; nothing that close
    // reports may start a reconnect or reach listeners of a half-destroyed link.
    m_autoReconnectSuppressed = true;
    m_reconnector->stop();
    disconnect(m_port, nullptr, this, nullptr);
}

bool TransmitterLink::connectTransmitter(const QString &portName, qint32 baudRate)
{
    m_lineSplitter.clear();
    m_droppedFrames = 0;
    m_userDisconnected = false;
    if (!m_port->open(portName, baudRate))
        return false;
    m_rememberedPortName = portName;
    m_rememberedBaudRate = baudRate;
    emit connectionRemembered(portName, baudRate);
    return true;
}

void TransmitterLink::disconnectTransmitter()
{
    m_userDisconnected = true;
    // A reconnect already under way would otherwise bring the port back.
    stopReconnect();
    m_port->close();
}

qint64 TransmitterLink::serialWrite(const QByteArray &bytes)
{
    m_sinceLastWrite.restart();
    return m_port->write(bytes);
}

bool TransmitterLink::writeChannelFrame(const QByteArray &frame)
{
    if (!m_port->isOpen())
        return false;
    if (m_port->bytesToWrite() >= kMaxQueuedFrames * frame.size()) {
        // Said once per stall, not once per tick.
        if (m_droppedFrames++ == 0)
            qCWarning(lcTransmitterLink).noquote()
                << "The bridge is not taking channel frames; dropping them until it does";
        return false;
    }
    if (m_droppedFrames > 0) {
        qCInfo(lcTransmitterLink).noquote()
            << "The bridge takes channel frames again;" << m_droppedFrames << "were dropped";
        m_droppedFrames = 0;
    }
    return serialWrite(frame) == frame.size();
}

void TransmitterLink::setRememberedPort(const QString &portName, qint32 baudRate)
{
    m_rememberedPortName = portName;
    m_rememberedBaudRate = baudRate > 0 ? baudRate : kDefaultBaudRate;
}

void TransmitterLink::setAutoReconnectSuppressed(bool suppressed)
{
    m_autoReconnectSuppressed = suppressed;
    if (suppressed)
        stopReconnect();
}

void TransmitterLink::onPortConnectedChanged(bool connected)
{
    // Reconnect state is settled before listeners hear of the change, so that
    // isReconnecting() already tells a drop from a deliberate disconnect.
    if (connected) {
        stopReconnect();
    } else if (!m_userDisconnected && !m_autoReconnectSuppressed && !m_rememberedPortName.isEmpty() &&
               !m_port->isOpening()) {
        // (While opening, the old port was closed on the way to a new one.)
        startReconnect();
    }
    emit serialConnectedChanged(connected);
}

void TransmitterLink::onPortDataReceived(const QByteArray &chunk)
{
    // Raw chunk first: frames are parsed before the lines of the same chunk.
    emit telemetryReceived(chunk);
    const QStringList lines = m_lineSplitter.feed(chunk);
    for (const QString &line : lines)
        emit transmitterLineReceived(line);
}

void TransmitterLink::onPortError(const QString &error)
{
    if (isReconnecting()) {
        qCInfo(lcTransmitterLink).noquote()
            << "Serial error during transmitter reconnect (suppressed):" << error;
        return;
    }
    emit errorOccurred(error);
}

void TransmitterLink::onKeepaliveTimer()
{
    if (!m_port->isOpen())
        return;
    if (!m_sinceLastWrite.isValid() || m_sinceLastWrite.elapsed() >= m_timings.keepaliveIdle.count()) {
        serialWrite(QByteArrayLiteral("\n"));
    }
}

void TransmitterLink::startReconnect()
{
    if (m_reconnector->start(m_rememberedPortName))
        qCInfo(lcTransmitterLink).noquote() << "Transmitter connection lost — starting auto-reconnect";
}

void TransmitterLink::stopReconnect()
{
    m_reconnector->stop();
}

void TransmitterLink::onPortReturned(const QString &portName)
{
    qCInfo(lcTransmitterLink).noquote() << "Transmitter dropped — reconnecting to" << portName;
    connectTransmitter(portName, m_rememberedBaudRate);
}

} // namespace tavrix
