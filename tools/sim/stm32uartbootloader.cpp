#include "stm32uartbootloader.h"

#include "simulatedflash.h"

#include <QJsonArray>

#include <algorithm>

namespace tavrix::sim {

namespace {

// GET reports protocol 3.1, the USART protocol of the STM32G0 bootloaders.
constexpr uint8_t kProtocolVersion = 0x31;

constexpr uint8_t kOfferedCommands[] = {
    Stm32UartBootloader::Get,
    Stm32UartBootloader::GetVersion,
    Stm32UartBootloader::GetId,
    Stm32UartBootloader::ReadMemory,
    Stm32UartBootloader::Go,
    Stm32UartBootloader::WriteMemory,
    Stm32UartBootloader::ExtendedErase,
    Stm32UartBootloader::WriteProtect,
    Stm32UartBootloader::WriteUnprotect,
    Stm32UartBootloader::ReadoutProtect,
    Stm32UartBootloader::ReadoutUnprotect,
};

// The commands a read-protected chip still serves; every other one is refused at once.
constexpr uint8_t kServedWhileProtected[] = {
    Stm32UartBootloader::Get,
    Stm32UartBootloader::GetVersion,
    Stm32UartBootloader::GetId,
    Stm32UartBootloader::ReadoutUnprotect,
};

// Extended Erase: a page count of 0xFFFn is no count but a special erase.
constexpr uint16_t kFirstSpecialErase = 0xFFF0;
constexpr uint16_t kMassErase = 0xFFFF;
constexpr uint16_t kBank1Erase = 0xFFFE;
constexpr uint16_t kBank2Erase = 0xFFFD;

QString commandName(uint8_t command)
{
    switch (command) {
    case Stm32UartBootloader::Get:
        return QStringLiteral("GET");
    case Stm32UartBootloader::GetVersion:
        return QStringLiteral("GET_VERSION");
    case Stm32UartBootloader::GetId:
        return QStringLiteral("GET_ID");
    case Stm32UartBootloader::ReadMemory:
        return QStringLiteral("READ");
    case Stm32UartBootloader::Go:
        return QStringLiteral("GO");
    case Stm32UartBootloader::WriteMemory:
        return QStringLiteral("WRITE");
    case Stm32UartBootloader::ExtendedErase:
        return QStringLiteral("EXTENDED_ERASE");
    case Stm32UartBootloader::WriteProtect:
        return QStringLiteral("WRITE_PROTECT");
    case Stm32UartBootloader::WriteUnprotect:
        return QStringLiteral("WRITE_UNPROTECT");
    case Stm32UartBootloader::ReadoutProtect:
        return QStringLiteral("READOUT_PROTECT");
    case Stm32UartBootloader::ReadoutUnprotect:
        return QStringLiteral("READOUT_UNPROTECT");
    default:
        return QStringLiteral("0x%1").arg(command, 2, 16, QLatin1Char('0'));
    }
}

uint8_t xorOf(QByteArrayView bytes)
{
    uint8_t x = 0;
    for (const char b : bytes)
        x ^= uint8_t(b);
    return x;
}

uint32_t bigEndian32(QByteArrayView bytes)
{
    return uint32_t(uint8_t(bytes[0])) << 24 | uint32_t(uint8_t(bytes[1])) << 16 |
           uint32_t(uint8_t(bytes[2])) << 8 | uint32_t(uint8_t(bytes[3]));
}

uint16_t bigEndian16(QByteArrayView bytes)
{
    return uint16_t(uint8_t(bytes[0]) << 8 | uint8_t(bytes[1]));
}

QString hex32(uint32_t value)
{
    return QStringLiteral("0x%1").arg(value, 8, 16, QLatin1Char('0'));
}

} // namespace

Stm32UartBootloader::Stm32UartBootloader(SimulatedFlash *flash, QObject *parent)
    : QObject(parent)
    , m_flash(flash)
{}

QByteArray Stm32UartBootloader::offeredCommands()
{
    return QByteArray(reinterpret_cast<const char *>(kOfferedCommands), sizeof kOfferedCommands);
}

void Stm32UartBootloader::reset()
{
    m_phase = Phase::Unsynchronised;
    m_inbox.clear();
}

Stm32UartBootloader::Reply Stm32UartBootloader::receive(QByteArrayView bytes)
{
    Reply reply;
    if (m_phase == Phase::Halted)
        return reply;
    m_inbox.append(bytes);
    while (reply.next == Next::Stay && m_phase != Phase::Halted && step(reply)) {
    }
    if (reply.next != Next::Stay) {
        // The chip has left the bootloader: it hears nothing more until reset().
        m_inbox.clear();
        m_phase = Phase::Halted;
    }
    return reply;
}

bool Stm32UartBootloader::step(Reply &reply)
{
    switch (m_phase) {
    case Phase::Unsynchronised:
        return takeSync(reply);
    case Phase::Command:
        return takeCommand(reply);
    case Phase::Address:
        return takeAddress(reply);
    case Phase::ReadCount:
        return takeReadCount(reply);
    case Phase::WriteData:
        return takeWriteData(reply);
    case Phase::EraseList:
        return takeEraseList(reply);
    case Phase::WriteProtectList:
        return takeWriteProtectList(reply);
    case Phase::Halted:
        break;
    }
    return false;
}

bool Stm32UartBootloader::takeSync(Reply &reply)
{
    // The chip measures the baud rate on the 0x7F frame; anything before it goes unheard.
    const qsizetype at = m_inbox.indexOf(char(kSync));
    if (at < 0) {
        m_inbox.clear();
        return false;
    }
    m_inbox.remove(0, at + 1);
    reply.bytes += char(kAck);
    m_phase = Phase::Command;
    emit commandHandled(QStringLiteral("SYNC"), {{QStringLiteral("ack"), true}});
    return true;
}

bool Stm32UartBootloader::takeCommand(Reply &reply)
{
    if (m_inbox.size() < 2)
        return false;
    m_command = uint8_t(m_inbox[0]);
    const uint8_t complement = uint8_t(m_inbox[1]);
    m_inbox.remove(0, 2);
    if ((m_command ^ complement) != 0xFF) {
        // Also what a second 0x7F 0x7F gets once the chip is synchronised.
        finish(reply, false, {{QStringLiteral("complement"), int(complement)}});
        return true;
    }
    const bool served =
        !m_readoutProtection || std::find(std::begin(kServedWhileProtected), std::end(kServedWhileProtected),
                                          m_command) != std::end(kServedWhileProtected);
    if (!served) {
        finish(reply, false, {{QStringLiteral("refused"), QStringLiteral("read-out protection")}});
        return true;
    }
    startCommand(m_command, reply);
    return true;
}

void Stm32UartBootloader::startCommand(uint8_t command, Reply &reply)
{
    switch (command) {
    case Get:
        reply.bytes += char(kAck);
        reply.bytes += char(sizeof kOfferedCommands); // bytes that follow, less one: the version is extra
        reply.bytes += char(kProtocolVersion);
        reply.bytes += offeredCommands();
        finish(reply, true);
        return;
    case GetVersion:
        reply.bytes += char(kAck);
        reply.bytes += char(kProtocolVersion);
        reply.bytes += QByteArray(2, '\0'); // option bytes kept for older hosts
        finish(reply, true);
        return;
    case GetId:
        reply.bytes += char(kAck);
        reply.bytes += char(1); // two ID bytes follow
        reply.bytes += char(m_chipId >> 8);
        reply.bytes += char(m_chipId & 0xFF);
        finish(reply, true);
        return;
    case ReadMemory:
    case Go:
    case WriteMemory:
        reply.bytes += char(kAck);
        m_phase = Phase::Address;
        return;
    case ExtendedErase:
        reply.bytes += char(kAck);
        m_phase = Phase::EraseList;
        return;
    case WriteProtect:
        reply.bytes += char(kAck);
        m_phase = Phase::WriteProtectList;
        return;
    case WriteUnprotect:
    case ReadoutProtect:
    case ReadoutUnprotect:
        // Option-byte changes: ACK, the change, ACK, then the chip resets to apply them.
        reply.bytes += char(kAck);
        if (command == ReadoutUnprotect) {
            m_flash->eraseAll(); // lifting the protection wipes the flash first
            m_readoutProtection = false;
        } else if (command == ReadoutProtect) {
            m_readoutProtection = true;
        }
        finish(reply, true);
        reply.next = Next::Reset;
        return;
    default:
        finish(reply, false);
    }
}

bool Stm32UartBootloader::takeAddress(Reply &reply)
{
    if (m_inbox.size() < 5)
        return false;
    m_address = bigEndian32(m_inbox);
    const bool checksumOk = xorOf(QByteArrayView(m_inbox).first(5)) == 0;
    m_inbox.remove(0, 5);
    const QJsonObject details{{QStringLiteral("address"), hex32(m_address)}};
    if (!checksumOk || !m_flash->contains(m_address)) {
        finish(reply, false, details);
        return true;
    }
    if (m_command == Go) {
        // The application at the address takes over once the ACK is out.
        finish(reply, true, details);
        reply.next = Next::Jump;
        reply.jumpAddress = m_address;
        return true;
    }
    reply.bytes += char(kAck);
    m_phase = m_command == ReadMemory ? Phase::ReadCount : Phase::WriteData;
    return true;
}

bool Stm32UartBootloader::takeReadCount(Reply &reply)
{
    if (m_inbox.size() < 2)
        return false;
    const uint8_t count = uint8_t(m_inbox[0]);
    const bool checksumOk = (count ^ uint8_t(m_inbox[1])) == 0xFF;
    m_inbox.remove(0, 2);
    const uint32_t length = uint32_t(count) + 1;
    QJsonObject details{{QStringLiteral("address"), hex32(m_address)},
                        {QStringLiteral("length"), int(length)}};
    if (!checksumOk || !m_flash->contains(m_address, length)) {
        finish(reply, false, details);
        return true;
    }
    finish(reply, true, details);
    reply.bytes += m_flash->read(m_address, length);
    return true;
}

bool Stm32UartBootloader::takeWriteData(Reply &reply)
{
    if (m_inbox.isEmpty())
        return false;
    const qsizetype length = qsizetype(uint8_t(m_inbox[0])) + 1;
    if (m_inbox.size() < length + 2)
        return false;
    const bool checksumOk = xorOf(QByteArrayView(m_inbox).first(length + 2)) == 0;
    const QByteArray data = m_inbox.mid(1, length);
    m_inbox.remove(0, length + 2);
    const QJsonObject details{{QStringLiteral("address"), hex32(m_address)},
                              {QStringLiteral("length"), int(length)}};
    if (!checksumOk || !m_flash->contains(m_address, uint32_t(length))) {
        finish(reply, false, details);
        return true;
    }
    for (int page = m_flash->pageOf(m_address); page <= m_flash->pageOf(m_address + uint32_t(length) - 1);
         ++page) {
        emit aboutToProgram(page);
        if (m_phase == Phase::Halted)
            return false;
    }
    finish(reply, m_flash->program(m_address, data), details);
    return true;
}

bool Stm32UartBootloader::takeEraseList(Reply &reply)
{
    if (m_inbox.size() < 2)
        return false;
    const uint16_t count = bigEndian16(m_inbox);
    if (count >= kFirstSpecialErase) {
        if (m_inbox.size() < 3)
            return false;
        const bool checksumOk = xorOf(QByteArrayView(m_inbox).first(3)) == 0;
        m_inbox.remove(0, 3);
        const QJsonObject details{{QStringLiteral("special"), QStringLiteral("0x%1").arg(count, 4, 16)}};
        finish(reply, checksumOk && eraseSpecial(count), details);
        return true;
    }
    const qsizetype total = 2 + 2 * (qsizetype(count) + 1) + 1;
    if (m_inbox.size() < total)
        return false;
    const QByteArray list = m_inbox.left(total);
    m_inbox.remove(0, total);
    QList<int> pages;
    for (qsizetype at = 2; at + 1 < total; at += 2)
        pages.append(bigEndian16(QByteArrayView(list).sliced(at, 2)));
    const bool valid = xorOf(list) == 0 && std::all_of(pages.cbegin(), pages.cend(), [this](int page) {
                           return page < m_flash->pageCount();
                       });
    if (valid)
        for (const int page : pages)
            m_flash->erasePage(page);
    QJsonArray pageList;
    for (const int page : pages)
        pageList.append(page);
    finish(reply, valid, {{QStringLiteral("pages"), pageList}});
    return true;
}

bool Stm32UartBootloader::eraseSpecial(uint16_t code)
{
    // The G0B1's 512 KB are two banks of 128 pages, numbered on from bank 1 here.
    const int half = m_flash->pageCount() / 2;
    int first = 0;
    int end = 0;
    switch (code) {
    case kMassErase:
        end = m_flash->pageCount();
        break;
    case kBank1Erase:
        end = half;
        break;
    case kBank2Erase:
        first = half;
        end = m_flash->pageCount();
        break;
    default: // 0xFFF0..0xFFFC are reserved
        return false;
    }
    for (int page = first; page < end; ++page)
        m_flash->erasePage(page);
    return true;
}

bool Stm32UartBootloader::takeWriteProtectList(Reply &reply)
{
    if (m_inbox.isEmpty())
        return false;
    const qsizetype total = 1 + qsizetype(uint8_t(m_inbox[0])) + 1 + 1;
    if (m_inbox.size() < total)
        return false;
    const bool checksumOk = xorOf(QByteArrayView(m_inbox).first(total)) == 0;
    m_inbox.remove(0, total);
    // Write protection itself is not simulated: the chip acknowledges and resets.
    finish(reply, checksumOk);
    if (checksumOk)
        reply.next = Next::Reset;
    return true;
}

void Stm32UartBootloader::finish(Reply &reply, bool ok, QJsonObject details)
{
    reply.bytes += char(ok ? kAck : kNack);
    m_phase = Phase::Command;
    details.insert(QStringLiteral("ack"), ok);
    emit commandHandled(commandName(m_command), details);
}

} // namespace tavrix::sim
