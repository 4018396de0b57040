#pragma once

#include <QByteArray>
#include <QCoreApplication>
#include <QString>

#include <chrono>
#include <memory>

class QSerialPort;

namespace tavrix {

// A serial port for code that waits for its answers on a worker thread (the receiver V4
// flasher): blocking reads with a time limit, writes that must be taken by the driver
// within a limit, and the parity switch the STM32 bootloader needs. Create, use and
// destroy it on one thread; it never runs an event loop.
//
// Pseudo-terminals (the board simulator, a socat bridge) cannot carry parity: there the
// switch is left out (logged once) and the line goes on without parity, which the peer
// expects. A real port that refuses the switch is an error. The decision is taken from the
// device the port is (its kernel device class), so no caller or test can switch it off.
class BlockingSerialLink
{
    Q_DECLARE_TR_FUNCTIONS(BlockingSerialLink)
public:
    using ms = std::chrono::milliseconds;
    enum class Parity
    {
        None,
        Even
    };

    explicit BlockingSerialLink(ms writeTimeout);
    ~BlockingSerialLink();

    // 115200 baud, 8 data bits, no parity, 1 stop bit, no flow control, DTR and RTS low.
    bool open(const QString &portName);
    void close();
    [[nodiscard]] bool isOpen() const;
    [[nodiscard]] QString errorString() const { return m_error; }
    // True once the device went away (unplugged, reset): only a reopen helps.
    [[nodiscard]] bool isGone() const { return m_gone; }

    // False when a real port refuses the switch.
    bool setParity(Parity parity);
    // False (errorString() set) when the bytes were not taken in time.
    bool write(const QByteArray &bytes);
    // Up to count bytes: returns as soon as count arrived, or what came within wait.
    QByteArray read(qsizetype count, ms wait);
    // Whatever arrives within wait, returning early on the first bytes.
    QByteArray readSome(ms wait);
    void discardInput();

private:
    void takeAvailable();
    bool waitForBytes(ms wait);
    [[nodiscard]] bool isPseudoTerminal() const;

    std::unique_ptr<QSerialPort> m_port;
    ms m_writeTimeout;
    QByteArray m_inbox;
    QString m_error;
    bool m_gone = false;
    bool m_pseudoTerminal = false;
    Parity m_parity = Parity::None;
};

} // namespace tavrix
