#include "pseudoterminal.h"

#include <QFile>
#include <QSocketNotifier>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <pty.h>
#include <termios.h>
#include <unistd.h>

namespace tavrix {

PseudoTerminal::PseudoTerminal(QObject *parent)
    : QObject(parent)
{}

PseudoTerminal::~PseudoTerminal()
{
    closeFds();
    if (!m_linkPath.isEmpty())
        QFile::remove(m_linkPath);
}

bool PseudoTerminal::open(const QString &linkPath)
{
    closeFds();
    m_error.clear();
    m_linkPath = linkPath;

    // Raw from the first byte: a fresh pty echoes and buffers whole lines, which
    // would bounce our bytes back and hold binary frames until a newline arrives.
    termios raw{};
    cfmakeraw(&raw);
    cfsetispeed(&raw, B115200);
    cfsetospeed(&raw, B115200);
    char name[256] = {};
    if (::openpty(&m_masterFd, &m_slaveFd, name, &raw, nullptr) != 0) {
        m_error = QString::fromLocal8Bit(std::strerror(errno));
        m_masterFd = m_slaveFd = -1;
        return false;
    }
    ::fcntl(m_masterFd, F_SETFL, ::fcntl(m_masterFd, F_GETFL) | O_NONBLOCK);
    ::fcntl(m_masterFd, F_SETFD, FD_CLOEXEC);
    ::fcntl(m_slaveFd, F_SETFD, FD_CLOEXEC);
    m_slavePath = QString::fromLocal8Bit(name);

    if (!m_linkPath.isEmpty()) {
        // Replace the link atomically so a client polling the path never sees a gap
        // longer than the unplug itself.
        const QString tmp = m_linkPath + QStringLiteral(".new");
        QFile::remove(tmp);
        if (::symlink(name, QFile::encodeName(tmp).constData()) != 0 ||
            ::rename(QFile::encodeName(tmp).constData(), QFile::encodeName(m_linkPath).constData()) != 0) {
            m_error = QStringLiteral("cannot create link %1: %2")
                          .arg(m_linkPath, QString::fromLocal8Bit(std::strerror(errno)));
            closeFds();
            return false;
        }
    }

    m_readNotifier = new QSocketNotifier(m_masterFd, QSocketNotifier::Read, this);
    m_readNotifier->setEnabled(!m_readingPaused);
    connect(m_readNotifier, &QSocketNotifier::activated, this, &PseudoTerminal::onReadable);
    m_writeNotifier = new QSocketNotifier(m_masterFd, QSocketNotifier::Write, this);
    m_writeNotifier->setEnabled(false);
    connect(m_writeNotifier, &QSocketNotifier::activated, this, &PseudoTerminal::onWritable);
    return true;
}

bool PseudoTerminal::write(const QByteArray &bytes)
{
    if (m_masterFd < 0)
        return false;
    m_pendingWrite.append(bytes);
    flushPending();
    return true;
}

QByteArray PseudoTerminal::readAll()
{
    QByteArray out;
    out.swap(m_readBuffer);
    return out;
}

void PseudoTerminal::setReadingPaused(bool paused)
{
    m_readingPaused = paused;
    if (!m_readNotifier)
        return;
    m_readNotifier->setEnabled(!paused);
    if (!paused)
        onReadable();
}

void PseudoTerminal::hangUp()
{
    if (m_masterFd < 0)
        return;
    closeFds();
    if (!m_linkPath.isEmpty())
        QFile::remove(m_linkPath);
    emit hungUp();
}

void PseudoTerminal::onReadable()
{
    char chunk[4096];
    bool got = false;
    for (;;) {
        const ssize_t n = ::read(m_masterFd, chunk, sizeof chunk);
        if (n > 0) {
            m_readBuffer.append(chunk, n);
            got = true;
            continue;
        }
        if (n < 0 && errno == EINTR)
            continue;
        // EAGAIN: drained. EIO cannot happen while we hold the slave open ourselves.
        break;
    }
    if (got)
        emit readyRead();
}

void PseudoTerminal::onWritable()
{
    flushPending();
}

void PseudoTerminal::flushPending()
{
    while (!m_pendingWrite.isEmpty()) {
        const ssize_t n = ::write(m_masterFd, m_pendingWrite.constData(), size_t(m_pendingWrite.size()));
        if (n > 0) {
            m_pendingWrite.remove(0, n);
            continue;
        }
        if (n < 0 && errno == EINTR)
            continue;
        break;
    }
    if (m_writeNotifier)
        m_writeNotifier->setEnabled(!m_pendingWrite.isEmpty());
}

void PseudoTerminal::closeFds()
{
    delete m_readNotifier;
    m_readNotifier = nullptr;
    delete m_writeNotifier;
    m_writeNotifier = nullptr;
    if (m_masterFd >= 0)
        ::close(m_masterFd);
    if (m_slaveFd >= 0)
        ::close(m_slaveFd);
    m_masterFd = m_slaveFd = -1;
    m_pendingWrite.clear();
}

} // namespace tavrix
