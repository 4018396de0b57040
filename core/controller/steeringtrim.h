#pragma once

#include "drivesettings.h"

#include <QJsonObject>

#include <cstdint>
#include <optional>

namespace tavrix {

class DriveComputation;

// The three steering end points (CH1 values at full left, centre and full right).
struct SteeringEndpoints
{
    int32_t left = 0;
    int32_t center = 0;
    int32_t right = 0;

    [[nodiscard]] static SteeringEndpoints of(const DriveSettings &settings);
    // Each end point clamped to the channel range; nothing when they are out of order
    // (left above centre or centre above right) or leave no travel (left equals right).
    // Reversing the steering is the Steering axis' inversion, not swapped end points.
    [[nodiscard]] static std::optional<SteeringEndpoints> checked(double left, double center, double right);

    friend bool operator==(const SteeringEndpoints &, const SteeringEndpoints &) = default;
};

// Steering trim tried out on the running drive computation before it is saved: the car
// answers at once, and the next reading of the profile (a save, a reload, a profile
// switch) puts the saved end points back, so an unsaved trim never outlives the session
// it was tried in.
class SteeringTrim
{
public:
    // drive is not owned and must outlive the trim.
    explicit SteeringTrim(DriveComputation &drive);

    // The end points the computation uses now: the live ones, or else the saved ones.
    [[nodiscard]] SteeringEndpoints inForce() const;
    void applyLive(const SteeringEndpoints &endpoints);

private:
    DriveComputation &m_drive;
};

} // namespace tavrix
