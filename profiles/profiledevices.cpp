// The devices a profile remembers for each game-controller role.
#include "profilemanager.h"

#include "profilekeys.h"

namespace tavrix {

namespace {

namespace keys = profilekeys;

// Where a role's connection record sits: section, optional group inside it, and key.
struct RoleLocation
{
    QLatin1String section;
    QLatin1String group;
    QLatin1String key;
};

RoleLocation locationOf(DeviceRole role)
{
    switch (role) {
    case DeviceRole::WheelBase:
        return {keys::kDeviceConnections, {}, keys::kWheelBase};
    case DeviceRole::Pedals:
        return {keys::kDeviceConnections, {}, keys::kPedals};
    case DeviceRole::Shifter:
        return {keys::kDeviceConnections, {}, keys::kShifter};
    case DeviceRole::HeliJoystick:
        return {keys::kHelicopterConfig, keys::kInputs, keys::kJoystick};
    case DeviceRole::HeliThrottle:
        return {keys::kHelicopterConfig, keys::kInputs, keys::kThrottle};
    case DeviceRole::HeliPedals:
        return {keys::kHelicopterConfig, keys::kInputs, keys::kPedals};
    }
    return {keys::kDeviceConnections, {}, keys::kWheelBase};
}

} // namespace

QJsonObject ProfileManager::deviceConnection(DeviceRole role) const
{
    const RoleLocation where = locationOf(role);
    QJsonObject container = setting(where.section).toObject();
    if (!where.group.isEmpty())
        container = container.value(where.group).toObject();
    return container.value(where.key).toObject();
}

bool ProfileManager::setDeviceConnection(DeviceRole role, const QJsonObject &connection)
{
    const RoleLocation where = locationOf(role);
    QJsonObject section = setting(where.section).toObject();
    if (where.group.isEmpty()) {
        section.insert(where.key, connection);
    } else {
        QJsonObject group = section.value(where.group).toObject();
        group.insert(where.key, connection);
        section.insert(where.group, group);
    }
    return setSetting(where.section, section);
}

DeviceIdentity ProfileManager::deviceIdentity(DeviceRole role) const
{
    const QJsonObject record = deviceConnection(role);
    DeviceIdentity identity;
    identity.productName = record.value(keys::kProductName).toString();
    identity.instanceGuid = record.value(keys::kInstanceGuid).toString();
    identity.devicePath = record.value(keys::kDevicePath).toString();
    identity.uniqId = record.value(keys::kUniqId).toString();
    identity.vendorId = record.value(keys::kVendorId).toInt();
    identity.productId = record.value(keys::kProductId).toInt();
    return identity;
}

bool ProfileManager::setDeviceIdentity(DeviceRole role, const DeviceIdentity &identity)
{
    QJsonObject record = deviceConnection(role);
    record.insert(keys::kProductName, identity.productName);
    record.insert(keys::kInstanceGuid, identity.instanceGuid);
    record.insert(keys::kDevicePath, identity.devicePath);
    record.insert(keys::kUniqId, identity.uniqId);
    record.insert(keys::kVendorId, identity.vendorId);
    record.insert(keys::kProductId, identity.productId);
    return setDeviceConnection(role, record);
}

} // namespace tavrix
