#pragma once

#include "receiverv4flashertimings.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QString>

#include <atomic>
#include <cstdint>

namespace tavrix {

class BlockingSerialLink;

// The host side of the STM32 system bootloader's UART protocol (ST AN3155): commands as a
// byte and its complement, big-endian addresses with their XOR, ACK/NACK after every step.
// Blocking: it runs on the flasher's worker thread and waits on the link for each answer.
// Every call returns false with error() set to the reason on failure.
class Stm32BootloaderClient
{
    Q_DECLARE_TR_FUNCTIONS(Stm32BootloaderClient)
public:
    // What GET reports: the protocol version (major and minor nibbles) and the command codes.
    struct Info
    {
        uint8_t protocolVersion = 0;
        QByteArray commands;
    };

    static constexpr int kMaxTransfer = 256; // bytes per READ or WRITE

    Stm32BootloaderClient(BlockingSerialLink &link, const ReceiverV4FlasherTimings &timings,
                          const std::atomic_bool &cancelled);

    // Sends 0x7F until the bootloader answers (ACK, or NACK from one already synchronised),
    // then confirms with GET. Attempts repeat until the limit or a cancel.
    bool synchronise(std::chrono::milliseconds limit);
    bool get(Info &info);
    bool getId(uint16_t &chipId);
    bool readMemory(uint32_t address, int count, QByteArray &data);
    bool writeMemory(uint32_t address, const QByteArray &data);
    // Extended erase of one page: the STM32G0 bootloader has no other erase.
    bool erasePage(int page);
    bool go(uint32_t address);

    [[nodiscard]] QString error() const { return m_error; }
    // True when the last failure was a NACK to the command byte itself: the command is not
    // served (a read-protected chip refuses READ this way).
    [[nodiscard]] bool commandRefused() const { return m_commandRefused; }
    // The GET of the last synchronisation.
    [[nodiscard]] const Info &info() const { return m_info; }

private:
    // True when an ACK or NACK arrives within wait (other bytes are dropped).
    bool awaitSyncAnswer(std::chrono::milliseconds wait);
    bool sendCommand(uint8_t command);
    bool sendAddress(uint32_t address);
    bool sendWithChecksum(QByteArray bytes, std::chrono::milliseconds ackTimeout);
    bool send(const QByteArray &bytes);
    bool waitForAck(std::chrono::milliseconds timeout);
    bool fail(const QString &error);

    BlockingSerialLink &m_link;
    const ReceiverV4FlasherTimings &m_timings;
    const std::atomic_bool &m_cancelled;
    QString m_error;
    bool m_commandRefused = false;
    bool m_nacked = false; // the last answer awaited was a NACK
    Info m_info;
};

} // namespace tavrix
