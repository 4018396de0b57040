#include "deviceroles.h"

#include "profilekeys.h"

#include <QCoreApplication>

namespace tavrix {

namespace {

namespace keys = profilekeys;

constexpr std::array<DeviceRoleInfo, kDeviceRoleCount> kRoles{{
    {DeviceRole::WheelBase,
     false,
     keys::kDeviceConnections,
     {},
     keys::kWheelBase,
     QLatin1String("wheel"),
     QLatin1String("wheel base")},
    {DeviceRole::Pedals,
     false,
     keys::kDeviceConnections,
     {},
     keys::kPedals,
     QLatin1String("pedals"),
     QLatin1String("pedals")},
    {DeviceRole::Shifter,
     false,
     keys::kDeviceConnections,
     {},
     keys::kShifter,
     QLatin1String("shifter"),
     QLatin1String("shifter")},
    {DeviceRole::HeliJoystick, true, keys::kHelicopterConfig, keys::kInputs, keys::kJoystick,
     QLatin1String("joystick"), QLatin1String("joystick")},
    {DeviceRole::HeliThrottle, true, keys::kHelicopterConfig, keys::kInputs, keys::kThrottle,
     QLatin1String("throttle"), QLatin1String("throttle")},
    {DeviceRole::HeliPedals, true, keys::kHelicopterConfig, keys::kInputs, keys::kPedals,
     QLatin1String("rudder"), QLatin1String("rudder pedals")},
}};

constexpr bool inRoleOrder()
{
    for (std::size_t i = 0; i < kRoles.size(); ++i) {
        if (kRoles[i].role != DeviceRole(i))
            return false;
    }
    return true;
}
static_assert(inRoleOrder(), "deviceRoleInfo() indexes the table by role");

// The messages, by role; the rudder pedals are "pedals" to the user like the car's.
struct RoleMessages
{
    const char *disconnected;
    const char *openFailed;
    const char *notConnected;
};

constexpr std::array<RoleMessages, kDeviceRoleCount> kMessages{{
    {QT_TRANSLATE_NOOP("tavrix::DeviceRoles", "Wheel base disconnected"),
     QT_TRANSLATE_NOOP("tavrix::DeviceRoles", "Failed to open wheel base device"),
     QT_TRANSLATE_NOOP("tavrix::DeviceRoles", "Wheel base not connected")},
    {QT_TRANSLATE_NOOP("tavrix::DeviceRoles", "Pedals disconnected"),
     QT_TRANSLATE_NOOP("tavrix::DeviceRoles", "Failed to open pedals device"),
     QT_TRANSLATE_NOOP("tavrix::DeviceRoles", "Pedals not connected")},
    {QT_TRANSLATE_NOOP("tavrix::DeviceRoles", "Shifter disconnected"),
     QT_TRANSLATE_NOOP("tavrix::DeviceRoles", "Failed to open shifter device"),
     QT_TRANSLATE_NOOP("tavrix::DeviceRoles", "Shifter not connected")},
    {QT_TRANSLATE_NOOP("tavrix::DeviceRoles", "Joystick disconnected"),
     QT_TRANSLATE_NOOP("tavrix::DeviceRoles", "Failed to open joystick device"),
     QT_TRANSLATE_NOOP("tavrix::DeviceRoles", "Joystick not connected")},
    {QT_TRANSLATE_NOOP("tavrix::DeviceRoles", "Throttle disconnected"),
     QT_TRANSLATE_NOOP("tavrix::DeviceRoles", "Failed to open throttle device"),
     QT_TRANSLATE_NOOP("tavrix::DeviceRoles", "Throttle not connected")},
    {QT_TRANSLATE_NOOP("tavrix::DeviceRoles", "Pedals disconnected"),
     QT_TRANSLATE_NOOP("tavrix::DeviceRoles", "Failed to open pedals device"),
     QT_TRANSLATE_NOOP("tavrix::DeviceRoles", "Pedals not connected")},
}};

QString translated(const char *text)
{
    return QCoreApplication::translate("tavrix::DeviceRoles", text);
}

const RoleMessages &messagesOf(DeviceRole role)
{
    return kMessages[std::size_t(role)];
}

} // namespace

const std::array<DeviceRoleInfo, kDeviceRoleCount> &deviceRoles()
{
    return kRoles;
}

const DeviceRoleInfo &deviceRoleInfo(DeviceRole role)
{
    return kRoles[std::size_t(role)];
}

QList<DeviceRole> deviceRolesFor(bool helicopter)
{
    QList<DeviceRole> roles;
    for (const DeviceRoleInfo &info : kRoles) {
        if (info.helicopter == helicopter)
            roles.append(info.role);
    }
    return roles;
}

QString deviceDisconnectedMessage(DeviceRole role)
{
    return translated(messagesOf(role).disconnected);
}

QString deviceOpenFailedMessage(DeviceRole role)
{
    return translated(messagesOf(role).openFailed);
}

QString deviceNotConnectedMessage(DeviceRole role)
{
    return translated(messagesOf(role).notConnected);
}

} // namespace tavrix
