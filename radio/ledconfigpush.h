#pragma once

#include "ledstripsettings.h"

#include <QList>
#include <QObject>
#include <QString>

#include <chrono>

class QTimer;

namespace tavrix {

struct LedPushTimings
{
    // The receiver answers a command within milliseconds; this covers a busy console.
    std::chrono::milliseconds replyTimeout{2000};
};

// Sends the LED strip settings to the receiver over its USB console, one "LED_<KEY>=<value>"
// command at a time: each waits for the receiver's "LED_OK <KEY>=<value>" before the next
// goes out, so a receiver that reads one line at a time never drops one. A refusal
// ("LED_ERR <KEY> (...)"), a reply that does not come, or the console closing ends the
// push as failed; the strip then keeps what it had applied so far.
class LedConfigPush : public QObject
{
    Q_OBJECT
public:
    enum class State
    {
        Idle,
        Waiting, // switching the strip's output on or off, before the numbered steps
        SendingLedCount,
        SendingBrightness,
        SendingMode,
        SendingPayloadCount,
        SendingColor,
        SendingRangeStart,
        SendingRangeEnd,
        Complete,
    };
    Q_ENUM(State)

    enum class StartResult
    {
        Started,
        AlreadyRunning,
        NotConnected,
        // Nothing to send: a range push without zones.
        NothingToSend,
    };

    using Timings = LedPushTimings;

    explicit LedConfigPush(const Timings &timings = {}, QObject *parent = nullptr);

    [[nodiscard]] State state() const { return m_state; }
    [[nodiscard]] bool isRunning() const { return m_running; }
    // The LED or zone whose command is out, -1 while the step is not about one.
    [[nodiscard]] int itemIndex() const;
    [[nodiscard]] bool isPortOpen() const { return m_portOpen; }
    // "idle", "sending_color", ...
    [[nodiscard]] static QString stateName(State state);

    StartResult start(const LedStripSettings &settings);

public slots:
    // The console's state; closing it fails a running push.
    void setPortOpen(bool open);
    void onReceiverLine(const QString &line);

signals:
    // One command line for the console, without its line end.
    void lineOut(const QString &line);
    void stateChanged(tavrix::LedConfigPush::State state);
    void started();
    // The push's end, with a user-facing message.
    void finished(bool success, const QString &message);

private:
    struct Step
    {
        State state;
        QString key;   // "COUNT", "COLOR", ...
        QString value; // as sent, and as the receiver echoes it back
        int item = -1;
    };

    [[nodiscard]] static QList<Step> stepsFor(const LedStripSettings &settings);
    void sendNext();
    void fail(const QString &message);
    void setState(State state);

    Timings m_timings;
    QTimer *m_replyTimer = nullptr;
    QList<Step> m_steps;
    // The step waiting for its reply.
    qsizetype m_current = 0;
    State m_state = State::Idle;
    bool m_running = false;
    bool m_portOpen = false;
};

} // namespace tavrix
