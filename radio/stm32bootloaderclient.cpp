#include "stm32bootloaderclient.h"

#include "blockingseriallink.h"

#include <QDeadlineTimer>
#include <QThread>
#include <QtEndian>

namespace tavrix {

namespace {

constexpr char kSync = char(0x7F);
constexpr char kAck = char(0x79);
constexpr char kNack = char(0x1F);

enum Command : uint8_t
{
    kGet = 0x00,
    kGetId = 0x02,
    kReadMemory = 0x11,
    kGo = 0x21,
    kWriteMemory = 0x31,
    kExtendedErase = 0x44,
};

// A byte followed by its complement: how commands and READ's count are sent.
QByteArray withComplement(uint8_t byte)
{
    QByteArray bytes;
    bytes += char(byte);
    bytes += char(~byte);
    return bytes;
}

char xorOf(const QByteArray &bytes)
{
    char x = 0;
    for (const char b : bytes)
        x ^= b;
    return x;
}

using ms = std::chrono::milliseconds;

} // namespace

Stm32BootloaderClient::Stm32BootloaderClient(BlockingSerialLink &link,
                                             const ReceiverV4FlasherTimings &timings,
                                             const std::atomic_bool &cancelled)
    : m_link(link)
    , m_timings(timings)
    , m_cancelled(cancelled)
{}

bool Stm32BootloaderClient::synchronise(std::chrono::milliseconds limit)
{
    const QDeadlineTimer deadline(limit);
    do {
        if (m_cancelled)
            return fail(tr("cancelled"));
        if (!m_link.write(QByteArray(1, kSync)))
            return fail(m_link.errorString());
        // A bootloader that is already synchronised takes one 0x7F as half a command and
        // stays quiet; the next attempt's 0x7F completes the pair and draws a NACK. The pause
        // between attempts keeps listening: an answer that comes late still counts, where
        // discarding it would let every attempt miss the answer to the one before.
        if (awaitSyncAnswer(m_timings.syncReplyWait) ||
            awaitSyncAnswer(
                qMin(m_timings.syncAttemptPause, ms(qMax<qint64>(0, deadline.remainingTime()))))) {
            QThread::msleep(m_timings.syncSettle.count());
            m_link.discardInput();
            if (get(m_info))
                return true;
        }
        if (m_link.isGone())
            return fail(m_link.errorString());
    } while (!deadline.hasExpired());
    return fail(tr("no reply from the bootloader"));
}

bool Stm32BootloaderClient::awaitSyncAnswer(std::chrono::milliseconds wait)
{
    const QDeadlineTimer deadline(wait);
    do {
        const QByteArray bytes = m_link.readSome(ms(qMax<qint64>(0, deadline.remainingTime())));
        if (bytes.contains(kAck) || bytes.contains(kNack))
            return true;
    } while (!deadline.hasExpired() && !m_link.isGone());
    return false;
}

bool Stm32BootloaderClient::get(Info &info)
{
    if (!sendCommand(kGet))
        return false;
    const QByteArray length = m_link.read(1, m_timings.ackTimeout);
    if (length.isEmpty())
        return fail(tr("GET: no length"));
    // The length counts the bytes that follow less one: the version byte comes first.
    const qsizetype count = qsizetype(uint8_t(length[0])) + 1;
    const QByteArray reply = m_link.read(count, m_timings.ackTimeout);
    if (reply.size() < count)
        return fail(tr("GET: short reply"));
    if (!waitForAck(m_timings.ackTimeout))
        return false;
    info.protocolVersion = uint8_t(reply[0]);
    info.commands = reply.mid(1);
    return true;
}

bool Stm32BootloaderClient::getId(uint16_t &chipId)
{
    if (!sendCommand(kGetId))
        return false;
    const QByteArray length = m_link.read(1, m_timings.ackTimeout);
    if (length.isEmpty())
        return fail(tr("GET_ID: no length"));
    const qsizetype count = qsizetype(uint8_t(length[0])) + 1;
    const QByteArray id = m_link.read(count, m_timings.ackTimeout);
    if (id.size() < count)
        return fail(tr("GET_ID: short reply"));
    if (!waitForAck(m_timings.ackTimeout))
        return false;
    chipId = 0;
    for (const char b : id)
        chipId = uint16_t(chipId << 8 | uint8_t(b));
    return true;
}

bool Stm32BootloaderClient::readMemory(uint32_t address, int count, QByteArray &data)
{
    Q_ASSERT(count >= 1 && count <= kMaxTransfer);
    if (!sendCommand(kReadMemory) || !sendAddress(address))
        return false;
    if (!send(withComplement(uint8_t(count - 1))) || !waitForAck(m_timings.ackTimeout))
        return false;
    data = m_link.read(count, m_timings.readDataTimeout);
    if (data.size() < count)
        return fail(tr("READ: short data"));
    return true;
}

bool Stm32BootloaderClient::writeMemory(uint32_t address, const QByteArray &data)
{
    Q_ASSERT(!data.isEmpty() && data.size() <= kMaxTransfer);
    if (!sendCommand(kWriteMemory) || !sendAddress(address))
        return false;
    return sendWithChecksum(char(data.size() - 1) + data, m_timings.ackTimeout);
}

bool Stm32BootloaderClient::erasePage(int page)
{
    if (!sendCommand(kExtendedErase))
        return false;
    // One page: the count less one, then the page number, both as two big-endian bytes.
    QByteArray list(4, '\0');
    qToBigEndian<uint16_t>(0, list.data());
    qToBigEndian<uint16_t>(uint16_t(page), list.data() + 2);
    return sendWithChecksum(list, m_timings.eraseAckTimeout);
}

bool Stm32BootloaderClient::go(uint32_t address)
{
    return sendCommand(kGo) && sendAddress(address);
}

bool Stm32BootloaderClient::sendCommand(uint8_t command)
{
    m_commandRefused = false;
    if (!send(withComplement(command)))
        return false;
    const bool acknowledged = waitForAck(m_timings.ackTimeout);
    m_commandRefused = !acknowledged && m_nacked;
    return acknowledged;
}

bool Stm32BootloaderClient::sendAddress(uint32_t address)
{
    QByteArray bytes(4, '\0');
    qToBigEndian(address, bytes.data());
    return sendWithChecksum(bytes, m_timings.ackTimeout);
}

bool Stm32BootloaderClient::sendWithChecksum(QByteArray bytes, std::chrono::milliseconds ackTimeout)
{
    bytes += xorOf(bytes);
    return send(bytes) && waitForAck(ackTimeout);
}

bool Stm32BootloaderClient::send(const QByteArray &bytes)
{
    return m_link.write(bytes) || fail(m_link.errorString());
}

bool Stm32BootloaderClient::waitForAck(std::chrono::milliseconds timeout)
{
    const QByteArray answer = m_link.read(1, timeout);
    m_nacked = !answer.isEmpty() && answer[0] == kNack;
    if (answer.isEmpty())
        return fail(tr("no reply from the bootloader"));
    if (answer[0] == kAck)
        return true;
    if (answer[0] == kNack)
        return fail(tr("bootloader NACK"));
    return fail(tr("unexpected byte 0x%1")
                    .arg(QStringLiteral("%1").arg(uint8_t(answer[0]), 2, 16, QLatin1Char('0')).toUpper()));
}

bool Stm32BootloaderClient::fail(const QString &error)
{
    m_error = error;
    return false;
}

} // namespace tavrix
