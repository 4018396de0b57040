#include "axissettings.h"

#include <algorithm>
#include <cmath>

namespace tavrix {

namespace {

// Pedals always get this much deadzone, whatever the profile says: the rest position of
// cheap pedals wanders by about that much.
constexpr float kMinimumPedalDeadzone = 0.02f;
// Calibration spans at or below this are degenerate and read as 0.
constexpr float kMinimumCalibrationSpan = 0.0001f;

float calibrateBipolar(const AxisSettings &s, float v)
{
    const float c = s.inputCenter;
    if (v < c) {
        const float span = c - s.inputMin;
        return span <= kMinimumCalibrationSpan ? 0.0f : -((c - v) / span);
    }
    const float span = s.inputMax - c;
    return span <= kMinimumCalibrationSpan ? 0.0f : (v - c) / span;
}

float toUnitRange(float x)
{
    return std::clamp((x + 1.0f) / 2.0f, 0.0f, 1.0f);
}

} // namespace

float applyAxisCurve(int curve, float exponent, float x)
{
    switch (AxisCurve(curve)) {
    case AxisCurve::Power:
        return std::pow(x, exponent);
    case AxisCurve::Logarithmic:
        return std::log((std::exp(exponent) - 1.0f) * x + 1.0f) / exponent;
    case AxisCurve::Linear:
        break;
    }
    return x;
}

float AxisSettings::applyBipolar(float v) const
{
    const float calibrated = useCalibration ? calibrateBipolar(*this, v) : v;
    const float sign = (inverted ? -calibrated : calibrated) > 0.0f ? 1.0f : -1.0f;
    const float magnitude = std::fabs(calibrated);
    if (deadzone > magnitude)
        return 0.0f;
    float y = sign * applyAxisCurve(curve, curveExponent, (magnitude - deadzone) / (1.0f - deadzone));
    if (expo > 0.0001f)
        y = expo * y * y * y + (1.0f - expo) * y;
    return std::clamp((maxOutput - minOutput) * y + (maxOutput + minOutput) - 1.0f, -1.0f, 1.0f);
}

float AxisSettings::applyUnipolar(float v) const
{
    if (inverted)
        v = -v;
    const float d = std::max(kMinimumPedalDeadzone, deadzone);
    const float p = toUnitRange(v);
    if (p < d)
        return 0.0f;
    const float r = applyAxisCurve(curve, curveExponent, (p - d) / (1.0f - d));
    float out;
    if (useCalibration) {
        const float lo = toUnitRange(inverted ? -inputMin : inputMin);
        const float hi = toUnitRange(inverted ? -inputMax : inputMax);
        out = lo + (hi - lo) * r;
    } else {
        out = minOutput + (maxOutput - minOutput) * r;
    }
    return std::clamp(out, 0.0f, 1.0f);
}

QJsonObject AxisSettings::toJson() const
{
    return QJsonObject{
        {QStringLiteral("name"), name},
        {QStringLiteral("inverted"), inverted},
        {QStringLiteral("deadzone"), double(deadzone)},
        {QStringLiteral("minOutput"), double(minOutput)},
        {QStringLiteral("maxOutput"), double(maxOutput)},
        {QStringLiteral("curve"), curve},
        {QStringLiteral("curveExponent"), double(curveExponent)},
        {QStringLiteral("expo"), double(expo)},
        {QStringLiteral("inputMin"), double(inputMin)},
        {QStringLiteral("inputMax"), double(inputMax)},
        {QStringLiteral("inputCenter"), double(inputCenter)},
        {QStringLiteral("useCalibration"), useCalibration},
    };
}

AxisSettings AxisSettings::fromJson(const QJsonObject &object, const QString &name)
{
    // A profile comes from a file that may have been edited by hand or imported: every number
    // is kept to what the computation can take, since these values end up in channels.
    AxisSettings s;
    s.name = name;
    auto readFloat = [&object](const char *key, float &field, double min, double max) {
        const QJsonValue value = object.value(QLatin1StringView(key));
        if (value.isDouble())
            field = float(std::clamp(value.toDouble(), min, max));
    };
    auto readBool = [&object](const char *key, bool &field) {
        const QJsonValue value = object.value(QLatin1StringView(key));
        if (value.isBool())
            field = value.toBool();
    };
    readBool("inverted", s.inverted);
    readFloat("deadzone", s.deadzone, 0.0, kDeadzoneMax);
    readFloat("minOutput", s.minOutput, 0.0, 1.0);
    readFloat("maxOutput", s.maxOutput, 0.0, 1.0);
    const QJsonValue curve = object.value(QStringLiteral("curve"));
    if (curve.isDouble())
        s.curve = std::clamp(curve.toInt(s.curve), int(AxisCurve::Linear), int(AxisCurve::Logarithmic));
    readFloat("curveExponent", s.curveExponent, kExponentMin, kExponentMax);
    readFloat("expo", s.expo, 0.0, kExpoMax);
    readFloat("inputMin", s.inputMin, -1.0, 1.0);
    readFloat("inputMax", s.inputMax, -1.0, 1.0);
    readFloat("inputCenter", s.inputCenter, -1.0, 1.0);
    readBool("useCalibration", s.useCalibration);
    return s;
}

} // namespace tavrix
