#pragma once

#include "receiverv4flashertimings.h"
#include "receiverv4image.h"

#include <QObject>
#include <QString>

#include <atomic>

class QThread;

namespace tavrix {

// Writes new firmware into the Orvane receiver V4 over a USB-UART cable on its J14 header:
// asks the running firmware (a text console) to restart into the STM32G0B1's bootloader,
// programs the image page by page with the vector table last, verifies every page and
// checks the version the started firmware reports. Also identifies a board on its own.
//
// Each run works on a worker thread with blocking serial waits, so the GUI thread is never
// held; every signal is delivered on the thread that owns the flasher. One run at a time;
// every run ends with finished().
class ReceiverV4Flasher : public QObject
{
    Q_OBJECT
public:
    using Image = ReceiverV4Image;

    explicit ReceiverV4Flasher(const ReceiverV4FlasherTimings &timings = {}, QObject *parent = nullptr);
    // Cancels a run in progress and waits for it to end.
    ~ReceiverV4Flasher() override;

    [[nodiscard]] bool isBusy() const { return m_thread != nullptr; }

public slots:
    // Reports the board (boardInfo) without changing anything. False while a run is in progress.
    bool readBoard(const QString &portName);
    // Writes image (as ReceiverV4ImageLoader returned it). False while a run is in progress
    // or when the image is not one the loader could have returned.
    bool update(const QString &portName, const tavrix::ReceiverV4Image &image);
    // Stops at the next step; the run ends with finished(false, ...). The board is left in
    // its bootloader, ready for another update.
    void cancel();

signals:
    void logMessage(const QString &text);
    // stage: "connect", "program" (done/total in pages) or "verify".
    void progress(const QString &stage, int done, int total);
    // True while the user must switch the board off and on; false when that wait is over.
    void powerCycleRequested(bool active);
    // version and hardware are empty for a board found in its bootloader.
    void boardInfo(const QString &version, const QString &hardware, bool inBootloader);
    void finished(bool ok, const QString &message);

private:
    template<typename Work> bool startRun(Work work);
    void onRunFinished(bool ok, const QString &message);

    ReceiverV4FlasherTimings m_timings;
    std::atomic_bool m_cancelled{false};
    QThread *m_thread = nullptr;
};

} // namespace tavrix
