#include "blockingseriallink.h"

#include "serialhangup.h"

#include <QDeadlineTimer>
#include <QLoggingCategory>
#include <QSerialPort>

#ifdef Q_OS_LINUX
#include <sys/stat.h>
#include <sys/sysmacros.h>
#endif

namespace tavrix {

Q_LOGGING_CATEGORY(lcFlasherPort, "orvane.flasher.port")

namespace {

constexpr qint32 kBaudRate = 115200;

#ifdef Q_OS_LINUX
// Unix98 pseudo-terminal slaves carry these major device numbers.
constexpr unsigned kFirstPtySlaveMajor = 136;
constexpr unsigned kLastPtySlaveMajor = 143;
#endif

int millisecondsLeft(const QDeadlineTimer &deadline)
{
    return int(qMax<qint64>(0, deadline.remainingTime()));
}

} // namespace

BlockingSerialLink::BlockingSerialLink(ms writeTimeout)
    : m_writeTimeout(writeTimeout)
{}

BlockingSerialLink::~BlockingSerialLink()
{
    close();
}

bool BlockingSerialLink::open(const QString &portName)
{
    close();
    m_port = std::make_unique<QSerialPort>();
    m_port->setPortName(portName);
    m_port->setBaudRate(kBaudRate);
    m_port->setDataBits(QSerialPort::Data8);
    m_port->setParity(QSerialPort::NoParity);
    m_port->setStopBits(QSerialPort::OneStop);
    m_port->setFlowControl(QSerialPort::NoFlowControl);
    if (!m_port->open(QIODevice::ReadWrite)) {
        m_error = m_port->errorString();
        m_port.reset();
        return false;
    }
    m_gone = false;
    m_error.clear();
    m_parity = Parity::None;
    // A pseudo-terminal refuses parity, and a refused switch leaves its line settings half
    // changed: it is not even tried there. Its peer (the board simulator, a bridge to a
    // remote port) expects the bytes without parity.
    m_pseudoTerminal = isPseudoTerminal();
    if (m_pseudoTerminal)
        qCInfo(lcFlasherPort).noquote()
            << portName << "is a pseudo-terminal: the bootloader's even parity is left out";
    // The cable's DTR and RTS may reach the board's reset and boot pins: both stay low. A
    // pseudo-terminal has no modem lines and refuses, which changes nothing.
    if (!m_port->setDataTerminalReady(false) || !m_port->setRequestToSend(false)) {
        qCInfo(lcFlasherPort).noquote() << portName << "refused DTR/RTS:" << m_port->errorString();
        m_port->clearError();
    }
    return true;
}

void BlockingSerialLink::close()
{
    if (m_port && m_port->isOpen())
        m_port->close();
    m_port.reset();
    m_inbox.clear();
}

bool BlockingSerialLink::isOpen() const
{
    return m_port && m_port->isOpen();
}

bool BlockingSerialLink::setParity(Parity parity)
{
    if (!isOpen())
        return false;
    if (m_parity == parity || m_pseudoTerminal) {
        m_parity = parity;
        return true;
    }
    if (!m_port->setParity(parity == Parity::Even ? QSerialPort::EvenParity : QSerialPort::NoParity)) {
        m_error = tr("can't switch the parity of %1: %2").arg(m_port->portName(), m_port->errorString());
        m_port->clearError();
        return false;
    }
    m_parity = parity;
    return true;
}

bool BlockingSerialLink::write(const QByteArray &bytes)
{
    if (!isOpen() || m_gone) {
        m_error = tr("the serial port is closed");
        return false;
    }
    const QDeadlineTimer deadline(m_writeTimeout);
    if (m_port->write(bytes) != bytes.size()) {
        m_error = tr("serial write timeout");
        return false;
    }
    while (m_port->bytesToWrite() > 0) {
        if (deadline.hasExpired() || !m_port->waitForBytesWritten(millisecondsLeft(deadline))) {
            m_port->clearError();
            m_error = tr("serial write timeout");
            return false;
        }
    }
    return true;
}

QByteArray BlockingSerialLink::read(qsizetype count, ms wait)
{
    const QDeadlineTimer deadline(wait);
    takeAvailable();
    while (m_inbox.size() < count && !deadline.hasExpired() && waitForBytes(ms(millisecondsLeft(deadline)))) {
    }
    const QByteArray bytes = m_inbox.left(count);
    m_inbox.remove(0, bytes.size());
    return bytes;
}

QByteArray BlockingSerialLink::readSome(ms wait)
{
    takeAvailable();
    if (m_inbox.isEmpty())
        waitForBytes(wait);
    const QByteArray bytes = m_inbox;
    m_inbox.clear();
    return bytes;
}

void BlockingSerialLink::discardInput()
{
    takeAvailable();
    m_inbox.clear();
}

void BlockingSerialLink::takeAvailable()
{
    if (isOpen() && m_port->bytesAvailable() > 0)
        m_inbox += m_port->readAll();
}

bool BlockingSerialLink::waitForBytes(ms wait)
{
    if (!isOpen() || m_gone)
        return false;
    if (m_port->waitForReadyRead(int(wait.count()))) {
        takeAvailable();
        return true;
    }
    const QSerialPort::SerialPortError error = m_port->error();
    // A hung-up line keeps failing reads; a resource error is an unplugged device.
    if (error == QSerialPort::ResourceError ||
        (error == QSerialPort::ReadError && isSerialLineHungUp(*m_port))) {
        m_gone = true;
        m_error = m_port->errorString();
        qCWarning(lcFlasherPort).noquote() << m_port->portName() << "went away:" << m_error;
    }
    m_port->clearError();
    return false;
}

bool BlockingSerialLink::isPseudoTerminal() const
{
#ifdef Q_OS_LINUX
    struct stat status
    {};
    if (!isOpen() || ::fstat(int(m_port->handle()), &status) != 0 || !S_ISCHR(status.st_mode))
        return false;
    const unsigned major = ::major(status.st_rdev);
    return major >= kFirstPtySlaveMajor && major <= kLastPtySlaveMajor;
#else
    return false;
#endif
}

} // namespace tavrix
