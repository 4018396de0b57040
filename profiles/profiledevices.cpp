// The devices a profile remembers for each game-controller role.
#include "profilemanager.h"

#include "profilekeys.h"

namespace tavrix {

namespace {

namespace keys = profilekeys;

} // namespace

QJsonObject ProfileManager::deviceConnection(DeviceRole role) const
{
    const DeviceRoleInfo &where = deviceRoleInfo(role);
    QJsonObject container = setting(where.profileSection).toObject();
    if (!where.profileGroup.isEmpty())
        container = container.value(where.profileGroup).toObject();
    return container.value(where.profileKey).toObject();
}

bool ProfileManager::setDeviceConnection(DeviceRole role, const QJsonObject &connection)
{
    const DeviceRoleInfo &where = deviceRoleInfo(role);
    QJsonObject section = setting(where.profileSection).toObject();
    if (where.profileGroup.isEmpty()) {
        section.insert(where.profileKey, connection);
    } else {
        QJsonObject group = section.value(where.profileGroup).toObject();
        group.insert(where.profileKey, connection);
        section.insert(where.profileGroup, group);
    }
    return setSetting(where.profileSection, section);
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
