#pragma once

#include <QLatin1String>
#include <QList>
#include <QString>

#include <array>

namespace tavrix {

// The game-controller roles a profile remembers a device for.
enum class DeviceRole
{
    WheelBase,
    Pedals,
    Shifter,
    HeliJoystick,
    HeliThrottle,
    HeliPedals,
};

inline constexpr int kDeviceRoleCount = 6;

// Everything the hub knows about a role, kept in one table: which vehicle uses it, where a
// profile keeps its device, what the command line and the logs call it, and its messages.
struct DeviceRoleInfo
{
    DeviceRole role;
    bool helicopter;
    // Where a profile keeps the role's device: a top-level section, an optional group
    // inside it, and the key.
    QLatin1String profileSection;
    QLatin1String profileGroup;
    QLatin1String profileKey;
    // The command-line option that names its device ("wheel" for --wheel); the pages key
    // their device pickers by it too.
    QLatin1String option;
    // How logs and the console call it ("wheel base").
    QLatin1String name;
};

// Every role, in DeviceRole order.
[[nodiscard]] const std::array<DeviceRoleInfo, kDeviceRoleCount> &deviceRoles();
[[nodiscard]] const DeviceRoleInfo &deviceRoleInfo(DeviceRole role);
// The roles of the car (wheel base, pedals, shifter) or of the helicopter, in that order.
[[nodiscard]] QList<DeviceRole> deviceRolesFor(bool helicopter);

// The user-facing messages of a role, translated: "Wheel base disconnected",
// "Failed to open wheel base device", "Wheel base not connected" and their siblings.
[[nodiscard]] QString deviceDisconnectedMessage(DeviceRole role);
[[nodiscard]] QString deviceOpenFailedMessage(DeviceRole role);
[[nodiscard]] QString deviceNotConnectedMessage(DeviceRole role);

} // namespace tavrix
