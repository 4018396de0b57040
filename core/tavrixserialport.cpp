#include "tavrixserialport.h"

#include "serialhangup.h"

#include <QEventLoop>
#include <QLoggingCategory>
#include <QPointer>
#include <QSerialPortInfo>

namespace tavrix {

Q_LOGGING_CATEGORY(lcSerialPort, "orvane.serial")

TavrixSerialPort::TavrixSerialPort(QObject *parent)
    : TavrixSerialPort(Timings{}, parent)
{}

TavrixSerialPort::TavrixSerialPort(const Timings &timings, QObject *parent)
    : QObject(parent)
    , m_timings(timings)
    , m_port(new QSerialPort(this))
    , m_pollTimer(new QTimer(this))
{
    m_pollTimer->setInterval(m_timings.pollInterval);
    connect(m_pollTimer, &QTimer::timeout, this, &TavrixSerialPort::pollRead);
    connect(m_port, &QSerialPort::readyRead, this, &TavrixSerialPort::onReadyRead);
    connect(m_port, &QSerialPort::errorOccurred, this, &TavrixSerialPort::onErrorOccurred);
}

TavrixSerialPort::~TavrixSerialPort()
{
    close();
}

bool TavrixSerialPort::open(const QString &portName, qint32 baudRate)
{
    if (m_opening)
        return false;
    // Raised before closing a previous port so that listeners of the resulting
    // connectedChanged(false) can tell a port switch from a loss.
    m_opening = true;
    close();
    m_openCancelled = false;

    m_port->setPortName(portName);
    m_port->setBaudRate(baudRate, QSerialPort::AllDirections);
    m_port->setDataBits(QSerialPort::Data8);
    m_port->setParity(QSerialPort::NoParity);
    m_port->setStopBits(QSerialPort::OneStop);
    m_port->setFlowControl(QSerialPort::NoFlowControl);

    const QPointer<TavrixSerialPort> self(this);
    QSerialPort::SerialPortError lastError = QSerialPort::NoError;
    QString lastErrorText;
    const bool opened = tryOpenRepeatedly(portName, lastError, lastErrorText);
    if (!self)
        return false; // destroyed while waiting for a busy port
    m_opening = false;

    if (!opened) {
        if (m_openCancelled)
            return false;
        m_lastError = lastError;
        if (lastError == QSerialPort::PermissionError) {
            emit errorOccurred(tr("%1: %2 stayed busy — it may be in use by another application, or the "
                                  "transmitter is still starting up. Wait a few seconds and try again.")
                                   .arg(lastErrorText, portName));
        } else {
            emit errorOccurred(lastErrorText);
        }
        return false;
    }

    applyControlLines(portName);
    m_portName = portName;
    m_pollTimer->start();
    emit portNameChanged(m_portName);
    emit connectedChanged(true);
    return true;
}

bool TavrixSerialPort::tryOpenRepeatedly(const QString &portName, QSerialPort::SerialPortError &lastError,
                                         QString &lastErrorText)
{
    const QPointer<TavrixSerialPort> self(this);
    const int attempts = qMax(1, m_timings.openAttempts);
    for (int attempt = 1; attempt <= attempts; ++attempt) {
        if (m_port->open(QIODevice::ReadWrite)) {
            if (attempt > 1)
                qCInfo(lcSerialPort).noquote()
                    << "Serial open" << portName << "succeeded on attempt" << attempt;
            return true;
        }
        lastError = m_port->error();
        lastErrorText = m_port->errorString();
        // Only "held by someone" is worth waiting for: a device still enumerating
        // or another program releasing it. Anything else will not heal by itself.
        if (lastError != QSerialPort::PermissionError)
            return false;
        qCInfo(lcSerialPort).noquote()
            << "Serial open" << portName << "attempt" << attempt << "failed:" << lastErrorText;
        m_port->clearError();
        if (attempt == attempts)
            break;

        // A local loop rather than a blocking sleep: the user interface and every
        // timer of the application keep running during the wait.
        QEventLoop wait;
        QTimer::singleShot(m_timings.openRetryDelay, &wait, &QEventLoop::quit);
        wait.exec();
        if (!self || m_openCancelled)
            return false;
    }
    return false;
}

void TavrixSerialPort::applyControlLines(const QString &portName)
{
    // Pseudo-terminals refuse modem-control lines; that refusal is harmless and must not
    // reach the user.
    const bool raised = m_controlLines == ControlLines::Raised;
    m_settingControlLines = true;
    const bool dtr = m_port->setDataTerminalReady(raised);
    const bool rts = m_port->setRequestToSend(raised);
    m_settingControlLines = false;
    if (!dtr || !rts) {
        qCInfo(lcSerialPort).noquote()
            << "Serial" << portName
            << "refused DTR/RTS (harmless, e.g. a pseudo-terminal):" << m_port->errorString();
        m_port->clearError();
    }
}

void TavrixSerialPort::close()
{
    // QSerialPort drops whatever still sits in its write buffer on close; the last
    // bytes are often the neutral frame and "STOP\n", which must reach the bridge.
    closePort(PendingBytes::Flush);
}

void TavrixSerialPort::closePort(PendingBytes pending)
{
    if (m_opening)
        m_openCancelled = true;
    m_pollTimer->stop();
    // A flush that fails reports an error, and listeners of connectedChanged may
    // close again: either would come back here while the port is still open.
    if (m_closing || !m_port->isOpen())
        return;
    m_closing = true;
    if (pending == PendingBytes::Flush)
        m_port->flush();
    m_port->close();
    m_closing = false;
    m_portName.clear();
    emit portNameChanged(m_portName);
    emit connectedChanged(false);
}

qint64 TavrixSerialPort::write(const QByteArray &bytes)
{
    if (!m_port->isOpen())
        return -1;
    return m_port->write(bytes);
}

bool TavrixSerialPort::isOpen() const
{
    return m_port->isOpen();
}

qint64 TavrixSerialPort::bytesToWrite() const
{
    return m_port->isOpen() ? m_port->bytesToWrite() : 0;
}

QList<SerialPortDescription> TavrixSerialPort::availablePorts()
{
    QList<SerialPortDescription> list;
    const QList<QSerialPortInfo> infos = QSerialPortInfo::availablePorts();
    list.reserve(infos.size());
    for (const QSerialPortInfo &info : infos) {
        list.append(
            SerialPortDescription{info.portName(), info.description(), info.manufacturer(),
                                  info.hasVendorIdentifier() ? info.vendorIdentifier() : quint16(0),
                                  info.hasProductIdentifier() ? info.productIdentifier() : quint16(0)});
    }
    return list;
}

void TavrixSerialPort::onReadyRead()
{
    readPending();
}

void TavrixSerialPort::pollRead()
{
    if (m_port->isOpen() && m_port->bytesAvailable() > 0)
        readPending();
}

void TavrixSerialPort::readPending()
{
    if (!m_port->isOpen())
        return;
    const QByteArray data = m_port->readAll();
    if (!data.isEmpty())
        emit dataReceived(data);
}

void TavrixSerialPort::onErrorOccurred(QSerialPort::SerialPortError error)
{
    if (error == QSerialPort::NoError || m_opening || m_settingControlLines || m_closing)
        return;

    m_lastError = error;
    if (error == QSerialPort::ResourceError) {
        closeAfterLoss(m_port->errorString());
        return;
    }
    // A hung-up line reports a read error on every turn of the event loop for as
    // long as it stays open: treat it as the unplug it is, close and report once.
    if (error == QSerialPort::ReadError && isSerialLineHungUp(*m_port)) {
        closeAfterLoss(tr("Device disappeared from the system"));
        return;
    }

    const QString text = m_port->errorString();
    qCWarning(lcSerialPort).noquote() << "Serial error on" << m_portName << ":" << text;
    emit errorOccurred(text);
    if (m_port->isOpen()) {
        readPending();
        m_port->clearError();
    }
}

void TavrixSerialPort::closeAfterLoss(const QString &errorText)
{
    qCWarning(lcSerialPort).noquote() << "Serial port" << m_portName << "lost:" << errorText;
    // Nothing queued can reach a device that is gone; flushing would only fail again.
    closePort(PendingBytes::Discard);
    emit errorOccurred(errorText);
}

} // namespace tavrix
