#pragma once

namespace tavrix {

// A captured minimum, centre and maximum of one device axis (device units -1..+1),
// and the rescaling that turns a raw position into a calibrated one.
struct AxisCalibration
{
    float min = -1.0f;
    float center = 0.0f;
    float max = 1.0f;

    // Spans this small are treated as "not calibrated on this side": the result is 0
    // rather than a division that would amplify noise into full deflection.
    static constexpr float kMinSpan = 0.0001f;

    // Two-sided axis: -1 at min, 0 at centre, +1 at max. Each half is scaled
    // separately, so an off-centre stick still reaches both ends. Not clamped.
    [[nodiscard]] float bipolar(float x) const;

    // One-sided axis (collective lever): 0 at min, 1 at max, clamped to 0..1. A lever
    // whose captured min is above its max (most throttle levers read -1 when pushed
    // forward) comes out the right way round.
    [[nodiscard]] float oneSided(float x) const;

    friend bool operator==(const AxisCalibration &, const AxisCalibration &) = default;
};

} // namespace tavrix
