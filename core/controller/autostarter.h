#pragma once

#include <QObject>
#include <QTimer>

#include <chrono>

namespace tavrix {

class TavrixController;

// Starts transmission by itself once the hub is ready (transmitter connected, the
// vehicle's driving devices there) while the profile's auto-start setting is on. It
// starts through the controller's normal start, so every check a hand start passes
// (released pedals, no configuration mode) applies unchanged.
//
// Safety: it fires at most once per arming. It is armed when the setting is switched on
// and at launch when the setting is stored on; any stop disarms it, a fault's included,
// so a fault is never followed by a start nobody asked for. After a stop only the user
// starts again, or switches the setting off and on. A refused start spends the arming
// too: retrying would repeat the refusal every check until someone lets go of a pedal
// and then drive off without anyone pressing anything.
//
// Readiness is polled on its own timer, never from inside the transmit tick.
class AutoStarter : public QObject
{
    Q_OBJECT

public:
    // The controller is the parent and outlives this object.
    AutoStarter(TavrixController *controller, std::chrono::milliseconds checkInterval);

    [[nodiscard]] bool isArmed() const { return m_armed; }

private:
    void onAutoStartCheck();
    void setArmed(bool armed);

    TavrixController *m_controller;
    QTimer m_checkTimer;
    bool m_armed = false;
};

} // namespace tavrix
