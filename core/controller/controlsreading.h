#pragma once

#include "drivecomputation.h"

namespace tavrix {

class DeviceRoleSet;
struct ProfileSettings;

// The car's controls as the remote app shows them, read now from the role's devices
// through the active profile's settings: what a tick reads, plus the clutch and whether
// the pit limiter caps the throttle.
struct ControlsReading
{
    DriveInputs drive;
    // 0..1, from the same device as throttle and brake.
    float clutch = 0.0f;
    bool pitLimiterActive = false;

    [[nodiscard]] static ControlsReading read(const DeviceRoleSet &devices, const ProfileSettings &settings);
};

} // namespace tavrix
