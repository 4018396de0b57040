#pragma once

#include "helicoptersettings.h"

#include <optional>

namespace tavrix {

class DeviceRoleSet;

// The four flight functions whose axes are calibrated, in the order the settings list them.
enum class HeliFunction
{
    Roll,
    Pitch,
    Collective,
    Rudder
};

// The raw position (-1..+1) of the axis that feeds a flight function, read the way the
// computation reads it (two differential pedals as right minus left); nothing when the
// function has no connected device or no axis to read. Calibration points are taken from it.
[[nodiscard]] std::optional<float> heliRawAxis(const DeviceRoleSet &devices,
                                               const HelicopterSettings &settings, HeliFunction function);

} // namespace tavrix
