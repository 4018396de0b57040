#include "helicoptersettings.h"

#include <algorithm>
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

} // namespace tavrix
