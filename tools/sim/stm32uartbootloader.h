#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QObject>

#include <cstdint>

namespace tavrix::sim {

class SimulatedFlash;

// The STM32 system-memory bootloader as its USART protocol (ST AN3155) shows it to a
// host: bytes in, bytes out, no port. It waits for the 0x7F sync byte, then takes
// commands as a byte and its complement, addresses as four big-endian bytes and their
// XOR, and answers ACK (0x79) or NACK (0x1F) at each step the way the note describes.
// It offers the command set of an STM32G0 (protocol 3.1): the Extended Erase (0x44),
// never the older Erase (0x43), which it refuses like any unknown command. With read-out
// protection on only GET, GET_VERSION, GET_ID and READOUT_UNPROTECT are served.
// Parity is not looked at: a pseudo-terminal cannot carry it.
class Stm32UartBootloader : public QObject
{
    Q_OBJECT
public:
    static constexpr uint8_t kSync = 0x7F;
    static constexpr uint8_t kAck = 0x79;
    static constexpr uint8_t kNack = 0x1F;

    enum Command : uint8_t
    {
        Get = 0x00,
        GetVersion = 0x01,
        GetId = 0x02,
        ReadMemory = 0x11,
        Go = 0x21,
        WriteMemory = 0x31,
        Erase = 0x43,
        ExtendedErase = 0x44,
        WriteProtect = 0x63,
        WriteUnprotect = 0x73,
        ReadoutProtect = 0x82,
        ReadoutUnprotect = 0x92,
    };

    // What the chip does once the reply is out: stay in the bootloader, jump to the
    // application (GO) or reset itself (after an option-byte change).
    enum class Next
    {
        Stay,
        Jump,
        Reset
    };

    struct Reply
    {
        QByteArray bytes;
        Next next = Next::Stay;
        uint32_t jumpAddress = 0;
    };

    explicit Stm32UartBootloader(SimulatedFlash *flash, QObject *parent = nullptr);

    void setChipId(uint16_t id) { m_chipId = id; }
    [[nodiscard]] uint16_t chipId() const { return m_chipId; }
    void setReadoutProtection(bool on) { m_readoutProtection = on; }
    [[nodiscard]] bool readoutProtection() const { return m_readoutProtection; }

    // A fresh start of the bootloader: unsynchronised, nothing half received.
    void reset();
    [[nodiscard]] bool isSynchronised() const { return m_phase != Phase::Unsynchronised; }
    // The chip stops dead (power lost mid-command): nothing more is answered until reset().
    void halt() { m_phase = Phase::Halted; }
    [[nodiscard]] bool isHalted() const { return m_phase == Phase::Halted; }

    // Takes bytes from the host and returns what the chip sends back. After a jump or a
    // reset the chip is no longer listening: later bytes are dropped until reset().
    Reply receive(QByteArrayView bytes);

    // The command codes GET lists, in its order.
    [[nodiscard]] static QByteArray offeredCommands();

signals:
    // One record per finished command (and per sync), for the simulator's log.
    void commandHandled(const QString &name, const QJsonObject &details);
    // Emitted before bytes are programmed into a page; a slot may halt() the chip.
    void aboutToProgram(int page);

private:
    enum class Phase
    {
        Unsynchronised,
        Command,
        Address,
        ReadCount,
        WriteData,
        EraseList,
        WriteProtectList,
        Halted
    };

    // Each returns false when it needs more bytes than have arrived.
    bool step(Reply &reply);
    bool takeSync(Reply &reply);
    bool takeCommand(Reply &reply);
    bool takeAddress(Reply &reply);
    bool takeReadCount(Reply &reply);
    bool takeWriteData(Reply &reply);
    bool takeEraseList(Reply &reply);
    bool takeWriteProtectList(Reply &reply);

    void startCommand(uint8_t command, Reply &reply);
    bool eraseSpecial(uint16_t code);
    // Ends the command in progress with ACK or NACK and logs it.
    void finish(Reply &reply, bool ok, QJsonObject details = {});

    SimulatedFlash *m_flash;
    uint16_t m_chipId = 0x467;
    bool m_readoutProtection = false;
    Phase m_phase = Phase::Unsynchronised;
    uint8_t m_command = 0;
    uint32_t m_address = 0;
    QByteArray m_inbox;
};

} // namespace tavrix::sim
