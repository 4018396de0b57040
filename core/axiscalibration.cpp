#include "axiscalibration.h"

#include <algorithm>
#include <cmath>

namespace tavrix {

float AxisCalibration::bipolar(float x) const
{
    if (x < center) {
        const float span = center - min;
        return span <= kMinSpan ? 0.0f : -(center - x) / span;
    }
    const float span = max - center;
    return span <= kMinSpan ? 0.0f : (x - center) / span;
}

float AxisCalibration::oneSided(float x) const
{
    const float span = max - min;
    if (std::fabs(span) <= kMinSpan)
        return 0.0f;
    return std::clamp((x - min) / span, 0.0f, 1.0f);
}

} // namespace tavrix
