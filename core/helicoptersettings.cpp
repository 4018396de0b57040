#include "helicoptersettings.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace tavrix {

float HelicopterCurve::apply(float stick) const
{
    const qsizetype count = points.size();
    if (count < 2)
        return stick;
    const float position = std::clamp(stick, 0.0f, 1.0f) * float(count - 1);
    const qsizetype below = std::min(qsizetype(position), count - 2);
    const float fraction = position - float(below);
    const float low = float(points[below]);
    const float high = float(points[below + 1]);
    return std::clamp(low + (high - low) * fraction, 0.0f, 1.0f);
}

QList<double> HelicopterCurve::resampled(int count) const
{
    QList<double> samples;
    for (int point = 0; point < count; ++point)
        samples.append(double(apply(float(point) / float(std::max(count - 1, 1)))));
    return samples;
}

QList<double> HelicopterCurve::straightLine()
{
    return {0.0, 0.25, 0.5, 0.75, 1.0};
}

int32_t HelicopterSettings::DualRates::activePercent() const
{
    switch (activeMode) {
    case 1:
        return sportPct;
    case 2:
        return threeDPct;
    default:
        return beginnerPct;
    }
}

QList<int> HelicopterSettings::joystickCentredSlots() const
{
    return {inputs.joystick.xAxis, inputs.joystick.yAxis};
}

QList<int> HelicopterSettings::pedalsCentredSlots() const
{
    if (inputs.pedals.differential)
        return {};
    return {inputs.pedals.axis};
}

std::array<HelicopterSettings::SentFunction, 6> HelicopterSettings::sentFunctions() const
{
    return {{
        {tr("Roll"), channels.roll},
        {tr("Pitch"), channels.pitch},
        {tr("Collective"), channels.throttle},
        {tr("Rudder"), channels.rudder},
        {tr("Arm switch"), arm.enabled ? arm.channel : kUnassigned},
        {tr("Motor"), throttleCurve.enabled ? motorChannel : kUnassigned},
    }};
}

bool HelicopterSettings::sendsOnChannel(int32_t channel) const
{
    const auto functions = sentFunctions();
    return channel >= 0 && std::any_of(functions.begin(), functions.end(),
                                       [channel](const SentFunction &f) { return f.channel == channel; });
}

QString HelicopterSettings::armedEditRefusal(const HelicopterSettings &edited) const
{
    HelicopterSettings ratesTaken = *this;
    ratesTaken.dualRates = edited.dualRates;
    return ratesTaken == edited ? QString() : disarmFirstText();
}

QString HelicopterSettings::disarmFirstText()
{
    return tr("Disarm the motor to change these settings.");
}

QString HelicopterSettings::sharedChannelRefusal() const
{
    const auto functions = sentFunctions();
    for (std::size_t i = 0; i < functions.size(); ++i) {
        for (std::size_t j = i + 1; j < functions.size(); ++j) {
            const int32_t channel = functions[i].channel;
            if (channel >= 0 && channel <= kLastChannel && channel == functions[j].channel)
                return tr("%1 and %2 would both drive CH%3. Give each its own channel.")
                    .arg(functions[i].name, functions[j].name)
                    .arg(channel + 1);
        }
    }
    return QString();
}

} // namespace tavrix
