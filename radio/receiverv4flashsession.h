#pragma once

#include "blockingseriallink.h"
#include "receiverv4flashertimings.h"
#include "receiverv4image.h"
#include "stm32bootloaderclient.h"

#include <QElapsedTimer>
#include <QObject>
#include <QString>

#include <atomic>
#include <functional>
#include <optional>

namespace tavrix {

// One run of the receiver V4 flasher, start to end, on the worker thread it was started
// on: the firmware's text console, the bootloader, the page programming and the check of
// the started firmware, step after step with blocking waits. It reports through signals
// only (the flasher relays them to its own thread) and ends every run with finished().
class ReceiverV4FlashSession : public QObject
{
    Q_OBJECT
public:
    ReceiverV4FlashSession(const ReceiverV4FlasherTimings &timings, const std::atomic_bool &cancelled,
                           QObject *parent = nullptr);

    void readBoard(const QString &portName);
    void update(const QString &portName, const ReceiverV4Image &image);

signals:
    void logMessage(const QString &text);
    void progress(const QString &stage, int done, int total);
    void powerCycleRequested(bool active);
    void boardInfo(const QString &version, const QString &hardware, bool inBootloader);
    void finished(bool ok, const QString &message);

private:
    struct Outcome
    {
        bool ok = false;
        QString message;
    };
    struct FirmwareReply
    {
        QString version;
        QString hardware;
    };
    enum class Reach
    {
        Bootloader,
        Lost, // the port went away: the board reset or was unplugged
        Failed,
    };
    enum class PageWrite
    {
        Written,
        Refused, // the page needs erasing and writing again
        Fatal,
    };

    Outcome runReadBoard(const QString &portName);
    Outcome runUpdate(const QString &portName, const ReceiverV4Image &image);
    Outcome failure() const { return Outcome{false, m_failure}; }

    bool openPort(const QString &portName);
    bool reachBootloader();
    Reach tryReachBootloader();
    Reach waitForPowerCycle();
    bool syncInBootloaderParity(std::chrono::milliseconds limit);
    std::optional<FirmwareReply> askFirmware(const QByteArray &query, bool wantHardware,
                                             std::chrono::milliseconds total,
                                             std::chrono::milliseconds repeatEvery);
    bool identifyChip();
    bool logIdentity(uint16_t &chipId);

    bool program(const ReceiverV4Image &image);
    bool programPage(int page, const QByteArray &bytes);
    PageWrite writePage(int page, const QByteArray &bytes);
    bool readBack(int page, const QByteArray &bytes, bool &matches);
    Outcome startAndCheck(const ReceiverV4Image &image);

    // Runs a bootloader step up to kStepAttempts times, resynchronising in between.
    bool retried(const std::function<bool()> &step);
    bool resync();
    bool fail(const QString &message);
    bool failCancelled();
    void log(const QString &text);
    [[nodiscard]] QString elapsedSeconds() const;
    void logWiringHint();

    const ReceiverV4FlasherTimings m_timings;
    const std::atomic_bool &m_cancelled;
    BlockingSerialLink m_link;
    Stm32BootloaderClient m_client;
    QString m_portName;
    QElapsedTimer m_started;
    QString m_failure;
    int m_retries = 0;
};

} // namespace tavrix
