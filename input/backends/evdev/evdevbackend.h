#pragma once

// The Linux game-controller backend: lists joystick-class evdev devices from sysfs
// (no udev daemon needed), explains the ones it may not open, and opens them
// through libevdev. Plain C++ so that it also runs in the bare kernel test VM.

#include "inputbackend.h"

#include <memory>
#include <string>

namespace tavrix {

class EvdevHotplugMonitor;

class EvdevBackend final : public InputBackend
{
public:
    // Where the kernel lists input devices and where their nodes live; tests and
    // the VM point these elsewhere, everything else takes the defaults.
    struct Paths
    {
        std::string sysfsInput = "/sys/class/input";
        std::string devInput = "/dev/input";
    };

    EvdevBackend();
    explicit EvdevBackend(Paths paths);
    ~EvdevBackend() override;

    Enumeration enumerate() override;
    std::unique_ptr<BackendDevice> open(int index, std::string *error = nullptr) override;
    // News from the folder of event nodes (see EvdevHotplugMonitor).
    int changeDescriptor() const override;
    bool takeChanges() override;

    // The message given for a controller whose node exists but may not be read.
    static std::string permissionProblem(const std::string &devicePath, const std::string &name);

private:
    Paths m_paths;
    std::unique_ptr<EvdevHotplugMonitor> m_hotplug;
};

} // namespace tavrix
