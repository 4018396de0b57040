#pragma once

#include "buttonpresswatcher.h"

#include <QObject>

#include <array>
#include <optional>

class QTimer;

namespace tavrix {

class InputDevice;

// Waits for one axis of a game controller to move well away from where it rested when the
// watch began, and names its slot: a lever is chosen by moving it. A move of a quarter of the travel
// is deliberate; noise, a stick brushed while reaching for another, or a lever resting off
// centre is not. Reads what the controller's polling leaves in the device, on a timer of
// its own on the event loop, never from inside the transmit tick.
class AxisMotionWatcher : public QObject
{
    Q_OBJECT

public:
    static constexpr int kSlots = 8;
    // Away from rest, on the -1..+1 scale: a quarter of the travel.
    static constexpr float kDeliberateMove = 0.5f;

    explicit AxisMotionWatcher(const ButtonPressWatcher::Timings &timings = {}, QObject *parent = nullptr);

    [[nodiscard]] bool isWatching() const { return m_device != nullptr; }
    // Starts (or restarts) watching that device, which is not owned and must outlive the watch.
    void watch(const InputDevice *device);
    // Ends the watch quietly.
    void cancel();

signals:
    // The slot that moved farthest, once one moved far enough.
    void moved(int slot);
    void timedOut();

private:
    void look();

    QTimer *m_poll;
    QTimer *m_deadline;
    const InputDevice *m_device = nullptr;
    // Where each slot rested; nothing for a slot not yet touched (which reads -1 until it
    // first moves), whose rest is taken from its first reading once touched, so the jump
    // from -1 to where it really is never counts as a move.
    std::array<std::optional<float>, kSlots> m_rest{};
};

} // namespace tavrix
