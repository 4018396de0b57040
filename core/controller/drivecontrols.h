#pragma once

#include "drivecomputation.h"

#include <QString>

namespace tavrix {

class InputDevice;
struct ProfileSettings;

// The car's controls as one tick reads them: steering from the wheel base, throttle
// and brake from the pedals device when one is assigned (else from the wheel base), the
// gear from the shifter, each through the profile's axis settings.
struct DriveControls
{
    // Null or disconnected devices read as released / centred / neutral.
    [[nodiscard]] static DriveInputs read(const InputDevice *wheelBase, const InputDevice *pedals,
                                          const InputDevice *shifter, const ProfileSettings &settings);

    // The start refusal for pedals held above the limit, naming the throttle before the
    // brake; empty when both are released.
    // Where throttle, brake and clutch are read: assigned pedals, even gone ones (they then read
    // released), else the wheel base's own pedal inputs.
    [[nodiscard]] static const InputDevice *pedalSource(const InputDevice *wheelBase,
                                                        const InputDevice *pedals);

    [[nodiscard]] static QString pedalsHeldMessage(float throttle, float brake, float limit);
};

} // namespace tavrix
