#pragma once

#include <QJsonObject>
#include <QString>

namespace tavrix {

enum class AxisCurve : int
{
    Linear = 0,
    Power = 1,
    Logarithmic = 2
};

// Shapes x in 0..1: 0 linear, 1 power x^exponent, 2 logarithmic ln((e^k - 1)x + 1)/k with k = exponent;
// any other curve number is linear. k = 0 divides by zero and yields NaN: callers keep k away from 0.
[[nodiscard]] float applyAxisCurve(int curve, float exponent, float x);

// Calibration, deadzone, curve and output range of one driving input, as the profile stores it
// ("Steering", "Throttle", "Brake", "Clutch").
struct AxisSettings
{
    // What a profile may hold. Past 0.95 of deadzone a control has no travel left to rescale
    // (at 1 it divides by zero); the logarithmic curve divides by its exponent; an expo above 1
    // would turn the middle of the wheel's travel the other way.
    static constexpr double kDeadzoneMax = 0.95;
    static constexpr double kExponentMin = 0.1;
    static constexpr double kExponentMax = 10.0;
    static constexpr double kExpoMax = 1.0;

    QString name;
    bool inverted = false;
    float deadzone = 0.0f;
    float minOutput = 0.0f;
    float maxOutput = 1.0f;
    int curve = int(AxisCurve::Linear);
    float curveExponent = 2.0f;
    float expo = 0.0f; // steering only
    float inputMin = -1.0f;
    float inputMax = 1.0f;
    float inputCenter = 0.0f;
    bool useCalibration = false;

    // Steering: v in -1..+1 to -1..+1. Calibrates around inputCenter, then deadzone, curve, expo and the
    // output range (which moves the centre too: minOutput 0.2 puts the rest position at 0.2).
    [[nodiscard]] float applyBipolar(float v) const;
    // Pedals: v in -1..+1 (released = -1) to 0..1, with at least a 2% deadzone against rest noise.
    // With calibration, inputMin/inputMax act as the output floor and ceiling, not as an input rescale.
    [[nodiscard]] float applyUnipolar(float v) const;
    [[nodiscard]] float apply(float v, bool bipolar) const
    {
        return bipolar ? applyBipolar(v) : applyUnipolar(v);
    }

    [[nodiscard]] QJsonObject toJson() const;
    // Missing or mistyped keys keep their defaults; the name comes from the key the object is stored under.
    [[nodiscard]] static AxisSettings fromJson(const QJsonObject &object, const QString &name);

    friend bool operator==(const AxisSettings &, const AxisSettings &) = default;
};

} // namespace tavrix
