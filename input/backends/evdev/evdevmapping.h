#pragma once

// Pure conversions between what the Linux input layer reports and the raw state
// layout every backend fills: axis codes to slots, ranges to 0..65535, hat pairs to
// POV angles, key codes to button indexes, and the identities of a device.
// No I/O here, so every rule can be checked against recorded devices.

#include "inputbackend.h"

#include <linux/input.h>

#include <bitset>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tavrix::evdev {

// What a device can report, read from the device (ioctls) or from sysfs.
struct DeviceCapabilities
{
    std::bitset<EV_CNT> events;
    std::bitset<KEY_CNT> keys;
    std::bitset<ABS_CNT> axes;
    std::bitset<FF_CNT> effects;
    std::bitset<INPUT_PROP_CNT> properties;
};

// A device's identity as the kernel reports it (struct input_id plus names).
struct DeviceIdentity
{
    uint16_t bus = 0;
    uint16_t vendor = 0;
    uint16_t product = 0;
    uint16_t version = 0;
    std::string name;
    std::string physicalPath;
    std::string driver; // the HID driver bound to the device ("hid-generic", "logitech", ...), may be empty
};

// Game controllers only: keyboards, mice, touchpads, tablets and accelerometers are
// left out, the way udev's input_id tells them apart, so enumeration needs no udev daemon.
[[nodiscard]] bool isJoystickClass(const DeviceCapabilities &caps);

// A deliberate exception for a device whose Linux driver lays its axes out
// differently from what Windows shows for the same wheel: these codes go to these
// slots before the general rule places the rest.
struct SlotOverride
{
    uint16_t vendor = 0;
    uint16_t product = 0;
    std::string_view driver; // applies only while this HID driver is bound
    std::string_view reason;
    struct Move
    {
        int code = -1;
        int slot = -1;
    };
    std::vector<Move> moves;
};

[[nodiscard]] const SlotOverride *findSlotOverride(const DeviceIdentity &identity);
[[nodiscard]] const std::vector<SlotOverride> &slotOverrides();

// Which evdev code feeds which part of the raw state.
struct DeviceLayout
{
    std::array<int, AxisSlotCount> slotCode; // ABS code per slot, -1 = none
    std::array<int, kRawPovCount> povHat;    // hat number 0..3 per POV, -1 = none
    std::vector<int> buttonCodes;            // key code per button index
    uint32_t axisCount = 0;                  // absolute axes other than hats
    bool hasForceFeedback = false;

    // Bit n set when slot n is fed by an axis.
    [[nodiscard]] uint8_t axisSlotMask() const;

    DeviceLayout()
    {
        slotCode.fill(-1);
        povHat.fill(-1);
    }
};

// The general rule (ABS_X..ABS_RZ to their slots, the other absolute axes such as
// throttle, rudder, wheel, gas and brake to Slider0/Slider1 in code order), with an
// optional override applied first.
[[nodiscard]] DeviceLayout layoutDevice(const DeviceCapabilities &caps,
                                        const SlotOverride *override = nullptr);

// Whether a key code is one of the game-controller buttons (joystick, gamepad, trigger-happy).
[[nodiscard]] bool isControllerButton(int code);

// Scales a value from the axis's own range to 0..65535, rounding to nearest and
// clamping values outside the range; a degenerate range reads as centred.
[[nodiscard]] int32_t scaleAxis(int32_t value, int32_t minimum, int32_t maximum);

// -1, 0 or +1 for a hat axis value relative to the middle of its range.
[[nodiscard]] int hatDirection(int32_t value, int32_t minimum, int32_t maximum);

// A hat position as a POV angle in hundredths of a degree clockwise from up,
// or kRawPovCentred when both directions are 0.
[[nodiscard]] uint32_t povFromHat(int x, int y);

// DirectInput's product GUID for a HID device: {PPPPVVVV-0000-0000-0000-504944564944},
// bytes in the in-memory layout of a Windows GUID.
[[nodiscard]] DeviceGuid productGuid(uint16_t vendor, uint16_t product);

// Stable across runs and re-plugs into the same port: derived from the bus, ids,
// version and physical path, so two identical wheels on different ports differ.
[[nodiscard]] DeviceGuid instanceGuid(const DeviceIdentity &identity);

// Parses a sysfs capability bitmap ("30000 0 3f": words of the kernel's long size,
// most significant first) into bit positions below bitCount.
[[nodiscard]] std::vector<int> parseSysfsBitmap(std::string_view text, int bitCount, int wordBits = 64);

} // namespace tavrix::evdev
