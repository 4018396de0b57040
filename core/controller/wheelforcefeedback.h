#pragma once

#include "forcefeedbackcheck.h"
#include "forcefeedbackcomputation.h"
#include "forcefeedbacksettings.h"

#include <QElapsedTimer>
#include <QObject>

#include <functional>

class QTimer;

namespace tavrix {

class DeviceRoleSet;
class InputDevice;

// The car's motion felt on the wheel base: runs the force computation on its 20 ms tick
// while motion arrives (and until the force has died away), switches force feedback on
// and off on the wheel, keeps its settings and plays the test pulses.
//
// Switching off stops the constant force and the spring and gives the wheel its own
// centering back. That happens whenever the hub lets go of the wheel: a stop of
// transmission, the wheel closed, lost or replaced, and (called by the owner) shutdown.
class WheelForceFeedback : public QObject
{
    Q_OBJECT
public:
    // How long a test pulse pushes the wheel.
    static constexpr int kTestPulseMs = 300;

    // devices is not owned and must outlive this; steering reads the wheel's position -1..+1
    // through the axis settings. Settings come from the hub's settings.
    WheelForceFeedback(DeviceRoleSet *devices, std::function<float()> steering, QObject *parent = nullptr);

    // An open, connected wheel base with force feedback.
    [[nodiscard]] bool isWheelCapable() const;
    [[nodiscard]] bool isEnabled() const { return m_enabled; }
    [[nodiscard]] bool isTicking() const;
    [[nodiscard]] const ForceFeedbackSettings &settings() const { return m_settings; }
    [[nodiscard]] const ForceFeedbackComputation &computation() const { return m_computation; }

    // Needs a capable wheel that takes a constant force of 0; the wheel's own centering then
    // gives way to the spring (or to nothing, with centering 0).
    bool enable();
    // From any state; safe to call again.
    void disable();
    // Each is clamped to 0..1, stored, and applied at once while switched on.
    void setStrength(float strength);
    void setCentering(float centering);
    void setNativeCentering(bool on);
    void setAutoEngage(bool on);
    // A short push of the wheel at that level (-1..+1, negative to the left); false
    // without a capable wheel.
    bool playTestPulse(float level);
    [[nodiscard]] ForceFeedbackCheck runCheck();

public slots:
    void onCarMotion(float lonG, float latG, float vertG);
    // Transmission started or stopped.
    void onTransmissionChanged(bool running);

signals:
    void levelChanged(float level);
    // Switched on or off, or a setting changed.
    void stateChanged();

private:
    [[nodiscard]] InputDevice *wheel() const;
    void onTick();
    void endTestPulse();
    void store();

    DeviceRoleSet *m_devices;
    std::function<float()> m_steering;
    QTimer *m_tickTimer;
    QTimer *m_pulseTimer;
    QElapsedTimer m_clock;
    ForceFeedbackComputation m_computation;
    ForceFeedbackSettings m_settings;
    bool m_enabled = false;
};

} // namespace tavrix
