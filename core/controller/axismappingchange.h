#pragma once

#include "axispreset.h"
#include "deviceroles.h"

namespace tavrix {

class InputDevice;
class ProfileManager;

// Puts a mapping chosen by hand (a named preset or a custom one) in force on the open
// device of the wheel base or pedals role and remembers it in the active profile as that
// product's own mapping, so it is used again whenever the same product is opened.
// False when the profile could not be written; the device then keeps the mapping it had.
bool applyAxisMapping(InputDevice &device, ProfileManager &profiles, DeviceRole role,
                      const AxisPreset &mapping);

// The preset whose assignment the mapping carries (the mapping's own name when two
// presets share it), or an empty string for a mapping of no preset.
[[nodiscard]] QString matchingPresetName(const AxisPreset &mapping);

} // namespace tavrix
