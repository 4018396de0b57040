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
};

inline constexpr std::array<RemoteDeviceRole, 3> kRemoteCarRoles{{
    {DeviceRole::WheelBase, QLatin1String("wheelbase")},
    {DeviceRole::Pedals, QLatin1String("pedals")},
    {DeviceRole::Shifter, QLatin1String("shifter")},
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

// The app's name of a car role; empty for the helicopter's roles.
[[nodiscard]] inline QLatin1String remoteCarRoleName(DeviceRole role)
{
    for (const RemoteDeviceRole &entry : kRemoteCarRoles) {
        if (entry.role == role)
            return entry.name;
    }
    return {};
}

} // namespace tavrix
