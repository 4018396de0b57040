#pragma once

// Two independent readings of one HID descriptor, for checking that a controller
// lands on the same slots on Linux and on Windows:
//  - how the Linux kernel's HID input layer turns its usages into evdev codes
//    (hid-input.c, hidinput_configure_usage, as hid-generic binds it: one input
//    device per application collection, a duplicate code dropped);
//  - how DirectInput lays the same usages into DIJOYSTATE2 (X..Rz to lX..lRz,
//    sliders and dials to rglSlider[0..1], hats to POVs, buttons in order).

#include "hiddescriptor.h"

#include <array>
#include <vector>

namespace tavrix::hid {

// One element of one field: where a value lives in the report.
struct ElementRef
{
    int field = -1; // index into Descriptor::fields
    uint32_t element = 0;

    bool valid() const { return field >= 0; }
    friend bool operator==(const ElementRef &, const ElementRef &) = default;
};

struct KernelCode
{
    int type = 0; // EV_ABS or EV_KEY
    int code = 0;
    ElementRef source;
    int32_t minimum = 0; // the axis range the kernel announces (hats: -1..1)
    int32_t maximum = 0;
    bool hat = false; // ABS_HAT0X; ABS_HAT0Y comes with it
    int32_t hatMinimum = 0;
    int32_t hatMaximum = 0;
};

struct KernelInputDevice
{
    uint32_t application = 0;
    std::vector<KernelCode> codes;

    const KernelCode *find(int type, int code) const;
};

// The evdev devices the kernel creates for this descriptor, one per application.
[[nodiscard]] std::vector<KernelInputDevice> kernelMapping(const Descriptor &descriptor);

// The kernel's hat conversion: (x, y) each -1..1 for a raw hat value.
[[nodiscard]] std::array<int, 2> kernelHatAxes(int64_t value, int32_t hatMinimum, int32_t hatMaximum);

// DIJOYSTATE2 slots in the program's slot order (lX, lRx, lRy, lRz, lY, lZ, Slider0, Slider1).
struct DirectInputLayout
{
    std::array<ElementRef, 8> axisSlots;
    std::vector<ElementRef> buttons; // at most 128
    std::vector<ElementRef> povs;    // at most 4
};

[[nodiscard]] DirectInputLayout directInputMapping(const Descriptor &descriptor);

// DirectInput's POV value for a raw hat value: hundredths of a degree, or centred.
[[nodiscard]] uint32_t directInputPov(int64_t value, int32_t logicalMinimum, int32_t logicalMaximum);

} // namespace tavrix::hid
