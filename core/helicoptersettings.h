#pragma once

#include "axiscalibration.h"

#include <QCoreApplication>
#include <QList>
#include <QString>

#include <array>
#include <cstdint>

namespace tavrix {

// A response curve over a one-sided control (0..1). The points are outputs (0..1) at
// evenly spaced stick positions from stick low (first point) to stick high (last
// point); between two points the output is interpolated linearly. With fewer than
// two points there is no shape to follow and the curve passes its input through.
struct HelicopterCurve
{
    // The fewest points that give a shape.
    static constexpr int kMinPoints = 2;

    bool enabled = false;
    QList<double> points = straightLine();

    [[nodiscard]] float apply(float stick) const;
    // The curve as `count` evenly spaced points (count >= kMinPoints), each what apply()
    // gives there: a curve of another number of points that keeps its shape where it can.
    [[nodiscard]] QList<double> resampled(int count) const;
    // Five points on the straight line, as a new profile stores them.
    [[nodiscard]] static QList<double> straightLine();

    friend bool operator==(const HelicopterCurve &, const HelicopterCurve &) = default;
};

// The helicopter settings of a profile (`helicopterConfig`), nested and named as in the
// profile file. A computation built without a profile starts from these values, so they
// are a default profile's: the profile key table decides them and the controller tests keep
// the two equal. Axis indexes are slots 0..7 of the device (-1 for
// unassigned); channel indexes are 0..15 (CH1 = 0), anything else is not sent.
struct HelicopterSettings
{
    // What the settings can hold; every editor (the remote app's, the window's dialogs)
    // keeps its values inside these.
    static constexpr int32_t kUnassigned = -1;
    static constexpr int32_t kLastAxisSlot = 7;
    static constexpr int32_t kLastChannel = 15;
    static constexpr int32_t kPercentMax = 100;
    static constexpr int32_t kLastRateMode = 2;
    static constexpr int32_t kSoftStartSecMax = 60;
    // An arm value outside this span would be clamped on the way to its channel (0..2047).
    static constexpr int32_t kArmMicrosMin = 880;
    static constexpr int32_t kArmMicrosMax = 2159;
    // More points than any curve editor offers; the list is stored in every profile.
    static constexpr int kMaxCurvePoints = 16;

    struct Joystick
    {
        int32_t xAxis = 0; // roll
        int32_t yAxis = 1; // pitch

        friend bool operator==(const Joystick &, const Joystick &) = default;
    };
    struct Throttle
    {
        int32_t axis = 2; // collective

        friend bool operator==(const Throttle &, const Throttle &) = default;
    };
    struct Pedals
    {
        // One rudder axis; with `differential`, `axis` is the left pedal and `axis2` the right.
        int32_t axis = 3;
        int32_t axis2 = -1;
        bool differential = false;

        friend bool operator==(const Pedals &, const Pedals &) = default;
    };
    struct Inputs
    {
        Joystick joystick;
        Throttle throttle;
        Pedals pedals;

        friend bool operator==(const Inputs &, const Inputs &) = default;
    };
    struct Calibration
    {
        AxisCalibration roll;
        AxisCalibration pitch;
        AxisCalibration throttle; // the collective, used one-sided (min and max)
        AxisCalibration rudder;

        friend bool operator==(const Calibration &, const Calibration &) = default;
    };
    struct Channels
    {
        int32_t roll = 0;
        int32_t pitch = 1;
        int32_t throttle = 2; // the collective
        int32_t rudder = 3;

        friend bool operator==(const Channels &, const Channels &) = default;
    };
    struct Fly
    {
        bool armAtIdle = true;
        bool softStart = false;
        int32_t softStartSec = 3;

        friend bool operator==(const Fly &, const Fly &) = default;
    };
    // The arm switch; values in microseconds as the flight controller documents them.
    struct Arm
    {
        bool enabled = false;
        int32_t channel = 4;
        int32_t onUs = 2012;
        int32_t offUs = 988;

        friend bool operator==(const Arm &, const Arm &) = default;
    };
    struct DualRates
    {
        bool enabled = true;
        int32_t beginnerPct = 60;
        int32_t sportPct = 80;
        int32_t threeDPct = 100;
        int32_t activeMode = 0; // 0 beginner, 1 sport, 2 3D

        // The active mode's percentage; an unknown mode takes the gentlest rate.
        [[nodiscard]] int32_t activePercent() const;

        friend bool operator==(const DualRates &, const DualRates &) = default;
    };
    struct Attitude
    {
        bool invertPitch = false;
        bool invertRoll = false;
        bool invertYaw = false;

        friend bool operator==(const Attitude &, const Attitude &) = default;
    };

    Inputs inputs;
    Calibration calibration;
    Channels channels;
    Fly fly;
    Arm arm;
    DualRates dualRates;
    // pitchCurve shapes the collective channel; throttleCurve, when enabled, drives the
    // motor channel from the same collective stick.
    HelicopterCurve pitchCurve;
    HelicopterCurve throttleCurve;
    int32_t motorChannel = 5;
    // Used to show the helicopter's reported attitude; not part of the channel computation.
    Attitude attitude;

    // The assigned slots of the joystick (roll, pitch) and of the rudder pedals (a single
    // rudder axis) that rest at centre. They count as touched from the moment their device
    // opens: an untouched axis reads -1 like a released pedal, which here would be full
    // deflection until the stick first moved. Differential pedals do rest released and are
    // left out; so is the collective lever, which reads bottom until it moves.
    [[nodiscard]] QList<int> joystickCentredSlots() const;
    [[nodiscard]] QList<int> pedalsCentredSlots() const;

    // Why these settings cannot be flown: two functions that are sent (roll, pitch,
    // collective, rudder, the arm switch when on, the motor when its curve is on) would
    // write the same channel, and the last one written would silently win. Empty when
    // every sent function has a channel of its own.
    [[nodiscard]] QString sharedChannelRefusal() const;
    // Whether one of those sent functions writes this channel (0-based).
    [[nodiscard]] bool sendsOnChannel(int32_t channel) const;

    // Why these settings may not become `edited` while the motor is armed: a channel,
    // curve, calibration or arm switch changing under a spinning rotor moves the
    // helicopter. Only the rates may change in flight, as switching them there is normal.
    // Empty when the edit touches nothing else.
    [[nodiscard]] QString armedEditRefusal(const HelicopterSettings &edited) const;
    [[nodiscard]] static QString disarmFirstText();

    friend bool operator==(const HelicopterSettings &, const HelicopterSettings &) = default;

    Q_DECLARE_TR_FUNCTIONS(HelicopterSettings)

private:
    struct SentFunction
    {
        QString name;
        int32_t channel;
    };
    [[nodiscard]] std::array<SentFunction, 6> sentFunctions() const;
};

} // namespace tavrix
