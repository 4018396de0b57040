#pragma once

// Reads the input devices the kernel lists under /sys/class/input without opening
// their device nodes: names, ids, the bound HID driver and the capability bitmaps
// are world-readable there, so game controllers can be told apart (and a missing
// permission explained) with no udev daemon and no access to the nodes.

#include "evdevmapping.h"

#include <string>
#include <vector>

namespace tavrix::evdev {

struct SysfsInputDevice
{
    int eventNumber = -1;   // N of eventN
    std::string devicePath; // the node, e.g. /dev/input/event5
    DeviceIdentity identity;
    DeviceCapabilities capabilities;
};

// Every eventN under sysfsInput that has a device folder, in ascending N.
[[nodiscard]] std::vector<SysfsInputDevice> scanSysfsInputDevices(const std::string &sysfsInput,
                                                                  const std::string &devInput);

} // namespace tavrix::evdev
