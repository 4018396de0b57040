#pragma once

#include "deviceroles.h"

#include <QLatin1String>
#include <QString>

#include <array>
#include <optional>

namespace tavrix {

// The car's input roles as the remote app names them, in the order it lists them.
struct RemoteDeviceRole
{
    DeviceRole role;
    QLatin1String name;
    // The refusal of a request that needs the role's device open.
    QLatin1String notConnected;
};

inline constexpr std::array<RemoteDeviceRole, 3> kRemoteCarRoles{{
    {DeviceRole::WheelBase, QLatin1String("wheelbase"), QLatin1String("Wheel base is not connected")},
    {DeviceRole::Pedals, QLatin1String("pedals"), QLatin1String("Pedals are not connected")},
    {DeviceRole::Shifter, QLatin1String("shifter"), QLatin1String("Shifter is not connected")},
}};

// The role the app's name stands for; none for any other name.
[[nodiscard]] inline std::optional<DeviceRole> remoteCarRole(const QString &name)
{
    for (const RemoteDeviceRole &entry : kRemoteCarRoles) {
        if (entry.name == name)
            return entry.role;
    }
    return std::nullopt;
}

// The app's entry of a car role; null for the helicopter's roles.
[[nodiscard]] inline const RemoteDeviceRole *remoteCarRoleEntry(DeviceRole role)
{
    for (const RemoteDeviceRole &entry : kRemoteCarRoles) {
        if (entry.role == role)
            return &entry;
    }
    return nullptr;
}

// The app's name of a car role; empty for the helicopter's roles.
[[nodiscard]] inline QLatin1String remoteCarRoleName(DeviceRole role)
{
    const RemoteDeviceRole *entry = remoteCarRoleEntry(role);
    return entry ? entry->name : QLatin1String();
}

} // namespace tavrix
