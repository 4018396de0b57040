#pragma once

#include "simulatedflash.h"

#include <QJsonObject>
#include <QObject>
#include <QSet>
#include <QString>

namespace tavrix {
class PseudoTerminal;
}

namespace tavrix::sim {

class Stm32UartBootloader;

struct V4BoardSimulatorSettings
{
    // The version of the firmware on the chip at start (written into its image).
    QString firmwareVersion = QStringLiteral("4.3.0");
    // What a started image answers to VER when it carries no "Orvane:<version>" text.
    QString untaggedImageVersion = QStringLiteral("0.0.0");
    uint16_t chipId = 0x467;
    bool readoutProtection = false;
    // DFU is ignored by the running firmware; the bootloader comes up only at the next
    // power-up (powerCycle()).
    bool needsPowerCycle = false;
    // The first programming of this page stores one wrong byte; -1: none.
    int corruptPage = -1;
    // Once this many distinct pages were programmed, the next new page makes the board
    // fall silent (no more replies, to anything) until a power cycle; once per run. -1: never.
    int silentAfterPages = -1;
};

// The Orvane receiver V4 on its USB-UART cable: an STM32G0B1 (512 KB flash in 2 KB pages
// at 0x08000000) that either runs its firmware, a text console answering VER, HW and DFU,
// or sits in its system bootloader (Stm32UartBootloader). What runs after a start is
// decided as on the chip: a requested DFU or an empty flash gives the bootloader, an image
// with a sane vector table gives the firmware, anything else a dead, silent board.
// The firmware's version is the first "Orvane:<version>" text in the flash image.
class V4BoardSimulator : public QObject
{
    Q_OBJECT
public:
    static constexpr uint32_t kFlashBase = 0x08000000;
    static constexpr int kPageSize = 2048;
    static constexpr int kPageCount = 256;

    enum class State
    {
        Firmware,
        Bootloader,
        Silent
    };
    Q_ENUM(State)

    explicit V4BoardSimulator(const V4BoardSimulatorSettings &settings = {}, QObject *parent = nullptr);
    ~V4BoardSimulator() override;

    // Creates the pty (and the symlink at linkPath when given). False with errorString() on failure.
    bool start(const QString &linkPath = QString());
    [[nodiscard]] QString slavePath() const;
    [[nodiscard]] QString linkPath() const;
    [[nodiscard]] QString clientPath() const;
    [[nodiscard]] QString errorString() const;

    [[nodiscard]] State state() const { return m_state; }
    // The version VER reports while the firmware runs.
    [[nodiscard]] QString firmwareVersion() const { return m_runningVersion; }
    [[nodiscard]] const SimulatedFlash &flash() const { return m_flash; }

    // Power off and on: whatever was half received is lost, then the chip starts again.
    void powerCycle();
    // The firmware's DFU: restart into the bootloader.
    void restartIntoBootloader();

    // A minimal firmware image: a vector table and the version text.
    [[nodiscard]] static QByteArray firmwareImage(const QString &version);
    // The version a firmware image announces; empty when it carries none.
    [[nodiscard]] static QString imageVersion(const QByteArray &image);

signals:
    void stateChanged(tavrix::sim::V4BoardSimulator::State state);
    // A text command line received by the firmware, with its receive time (ms since the epoch).
    void commandReceived(const QString &command, qint64 receivedMs);
    // A bootloader command as it ended (or the sync), with its details.
    void bootloaderCommandReceived(const QString &name, const QJsonObject &details, qint64 receivedMs);

private:
    void onReadyRead();
    void handleConsoleBytes(const QByteArray &bytes);
    void handleConsoleLine(const QString &line);
    void handleBootloaderBytes(const QByteArray &bytes);
    void onAboutToProgram(int page);
    // Starts what the chip runs after a reset.
    void boot(bool bootloaderRequested);
    void startApplication(uint32_t vectorTable);
    void setState(State state);
    void sendLine(const QString &line);

    V4BoardSimulatorSettings m_settings;
    SimulatedFlash m_flash;
    PseudoTerminal *m_pty = nullptr;
    Stm32UartBootloader *m_bootloader = nullptr;
    State m_state = State::Firmware;
    QString m_runningVersion;
    QByteArray m_consoleInbox;
    bool m_dfuPending = false;
    QSet<int> m_programmedPages;
    bool m_silenceSpent = false;
};

} // namespace tavrix::sim
