#include "evdevbackend.h"

#include "evdevdevice.h"
#include "evdevhotplugmonitor.h"
#include "evdevmapping.h"
#include "evdevsysfs.h"

#include <algorithm>
#include <cerrno>
#include <unistd.h>

namespace tavrix {

namespace {

struct Candidate
{
    evdev::SysfsInputDevice device;
    DeviceListEntry entry;
};

DeviceListEntry entryFor(const evdev::SysfsInputDevice &device)
{
    const evdev::DeviceLayout layout =
        evdev::layoutDevice(device.capabilities, evdev::findSlotOverride(device.identity));
    DeviceListEntry entry;
    entry.instanceName = device.identity.name;
    entry.productName = device.identity.name;
    entry.instanceGuid = evdev::instanceGuid(device.identity);
    entry.productGuid = evdev::productGuid(device.identity.vendor, device.identity.product);
    entry.axisCount = layout.axisCount;
    entry.axisSlots = layout.axisSlotMask();
    entry.buttonCount = static_cast<uint32_t>(layout.buttonCodes.size());
    entry.povCount = static_cast<uint32_t>(
        std::count_if(layout.povHat.begin(), layout.povHat.end(), [](int h) { return h >= 0; }));
    entry.hasForceFeedback = layout.hasForceFeedback;
    return entry;
}

// Joystick-class devices in event-number order, split into usable ones and ones
// whose node may not be read.
void scan(const EvdevBackend::Paths &paths, std::vector<Candidate> &usable,
          std::vector<DeviceProblem> &problems)
{
    for (evdev::SysfsInputDevice &device : evdev::scanSysfsInputDevices(paths.sysfsInput, paths.devInput)) {
        if (!evdev::isJoystickClass(device.capabilities))
            continue;
        if (::access(device.devicePath.c_str(), R_OK) != 0) {
            if (errno == EACCES || errno == EPERM)
                problems.push_back({device.devicePath, EvdevBackend::permissionProblem(
                                                           device.devicePath, device.identity.name)});
            continue; // a node that is not there (yet) is simply not listed
        }
        DeviceListEntry entry = entryFor(device);
        usable.push_back({std::move(device), std::move(entry)});
    }
}

} // namespace

EvdevBackend::EvdevBackend()
    : EvdevBackend(Paths{})
{}

EvdevBackend::EvdevBackend(Paths paths)
    : m_paths(std::move(paths))
    , m_hotplug(std::make_unique<EvdevHotplugMonitor>(m_paths.devInput))
{}

EvdevBackend::~EvdevBackend() = default;

int EvdevBackend::changeDescriptor() const
{
    return m_hotplug->fd();
}

bool EvdevBackend::takeChanges()
{
    return m_hotplug->takeChanges();
}

std::string EvdevBackend::permissionProblem(const std::string &devicePath, const std::string &name)
{
    return "No permission to read " + devicePath + " (" + name +
           "). Install the HUB's Debian package, whose udev rules (60-orvanehub.rules) give the person at "
           "the desktop its game controllers, or copy build/packaging/60-orvanehub.rules from a build to "
           "/etc/udev/rules.d/; then run \"sudo udevadm control --reload && sudo udevadm trigger\" and "
           "replug "
           "the device (or add your user to the \"input\" group and log in again).";
}

Enumeration EvdevBackend::enumerate()
{
    std::vector<Candidate> usable;
    Enumeration result;
    scan(m_paths, usable, result.problems);
    for (Candidate &candidate : usable)
        result.devices.push_back(std::move(candidate.entry));
    return result;
}

std::unique_ptr<BackendDevice> EvdevBackend::open(int index, std::string *error)
{
    std::vector<Candidate> usable;
    std::vector<DeviceProblem> problems;
    scan(m_paths, usable, problems);
    if (index < 0 || index >= static_cast<int>(usable.size())) {
        if (error)
            *error = "No game controller at position " + std::to_string(index);
        return nullptr;
    }
    const Candidate &candidate = usable[static_cast<size_t>(index)];
    return evdev::EvdevDevice::open(candidate.device.devicePath, candidate.device.identity, candidate.entry,
                                    error);
}

} // namespace tavrix
