#pragma once

// What the Linux kernel and DirectInput make of each descriptor in tests/data/devices,
// stored beside it as <name>.layout, so that a controller can be checked to land on the
// same slots on Linux and on Windows:
//  - the evdev codes of the controller's input device as the kernel's HID input layer
//    gives them (hid-input.c as hid-generic binds it), each with the report element it
//    reads: "abs|hat|key <code> <field>:<element> [<logical minimum> <logical maximum>]";
//  - DirectInput's DIJOYSTATE2 slots for the same elements: "directinput-axes" in the
//    program's slot order (lX, lRx, lRy, lRz, lY, lZ, Slider0, Slider1; "-" for none),
//    "directinput-buttons" and "directinput-povs" in order.
// scripts/ci-input-vm checks the kernel half against a real kernel; a new descriptor needs
// its layout written from the same two rules.

#include "hiddescriptor.h"

#include <array>
#include <cstdint>
#include <linux/input.h>
#include <string>
#include <vector>

namespace tavrix::hid {

// One element of one field of the parsed descriptor: where a value lives in the report.
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
    int32_t minimum = 0; // the element's logical range
    int32_t maximum = 0;
    bool hat = false; // ABS_HAT0X; ABS_HAT0Y comes with it
};

struct DeviceLayouts
{
    std::vector<KernelCode> kernel;
    std::array<ElementRef, 8> directInputAxes;
    std::vector<ElementRef> directInputButtons; // at most 128
    std::vector<ElementRef> directInputPovs;    // at most 4

    const KernelCode *find(int type, int code) const;

    // The capability bitmaps the kernel announces for these codes (evdev::DeviceCapabilities).
    template<class Capabilities> Capabilities kernelCapabilities() const
    {
        Capabilities caps;
        for (const KernelCode &code : kernel) {
            caps.events.set(static_cast<size_t>(code.type));
            if (code.type == EV_KEY)
                caps.keys.set(static_cast<size_t>(code.code));
            else
                caps.axes.set(static_cast<size_t>(code.code));
            if (code.hat)
                caps.axes.set(static_cast<size_t>(code.code + 1));
        }
        return caps;
    }
};

// One descriptor file of tests/data/devices with everything stored about it.
struct StoredDevice
{
    std::vector<uint8_t> bytes;
    Descriptor descriptor;
    DeviceLayouts layouts;
    uint16_t vendor = 0; // from the file name, "<...>-<vendor>-<product>.hex"
    uint16_t product = 0;
};

// Reads "x.hex", parses it and reads its "x.layout"; false and a reason in *error when
// anything of that fails.
[[nodiscard]] bool loadStoredDevice(const std::string &hexPath, StoredDevice &device, std::string *error);

// DirectInput's POV value for a raw hat value: hundredths of a degree, or centred.
[[nodiscard]] uint32_t directInputPov(int64_t value, int32_t logicalMinimum, int32_t logicalMaximum);

} // namespace tavrix::hid
