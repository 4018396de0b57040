#pragma once

#include <QObject>

#include <array>
#include <chrono>

class QTimer;

namespace tavrix {

class InputDevice;

// Waits for the next press of a button or hat direction on one game controller and
// names it. Only a press counts (released, then down): a button already held when the
// watch begins has to be let go first, so a shifter left in gear is not taken for the
// answer. Reads the state the controller's polling leaves in the device on a timer of
// its own, on the event loop, never from inside the transmit tick.
class ButtonPressWatcher : public QObject
{
    Q_OBJECT

public:
    // Buttons 0..127 and hat directions 128..143; centred axis halves are left out, as
    // a wheel turned while the user reaches for a button would win the race.
    static constexpr int kWatchedInputs = 144;

    struct Timings
    {
        std::chrono::milliseconds poll{20};
        // The user gets this long to press something.
        std::chrono::milliseconds timeout{10000};
    };

    explicit ButtonPressWatcher(const Timings &timings, QObject *parent = nullptr);

    [[nodiscard]] bool isWatching() const;
    // Starts (or restarts) watching that device, which is not owned and must outlive the watch.
    void watch(const InputDevice *device);
    // Ends the watch quietly.
    void cancel();

signals:
    // The lowest input index that went down since the last look.
    void pressed(int inputIndex);
    void timedOut();

private:
    void look();
    void expire();

    Timings m_timings;
    QTimer *m_poll;
    QTimer *m_deadline;
    const InputDevice *m_device = nullptr;
    std::array<bool, kWatchedInputs> m_wasPressed{};
};

} // namespace tavrix
