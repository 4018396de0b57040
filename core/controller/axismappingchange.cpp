#include "axismappingchange.h"

#include "inputdevice.h"
#include "profilemanager.h"
#include "savedaxismapping.h"

namespace tavrix {

namespace {

bool sameAssignment(AxisPreset a, const AxisPreset &b)
{
    a.name = b.name;
    return a == b;
}

} // namespace

bool applyAxisMapping(InputDevice &device, ProfileManager &profiles, DeviceRole role,
                      const AxisPreset &mapping)
{
    QJsonObject connection = profiles.deviceConnection(role);
    AxisMappingRecord record = AxisMappingRecord::fromConnection(connection);
    record.productName = device.productName();
    record.instanceGuid = device.instanceGuidString();
    record.hasCustomAxisMapping = true;
    record.axisMapping = mapping;
    record.writeTo(connection);
    // In force before the store tells its followers, so that what they read back from the
    // device is the new mapping; taken back if the profile could not be written.
    const AxisPreset before = device.preset();
    device.applyPreset(mapping);
    if (profiles.setDeviceConnection(role, connection))
        return true;
    device.applyPreset(before);
    return false;
}

QString matchingPresetName(const AxisPreset &mapping)
{
    // "Generic" and "Logitech" share one assignment: the name the mapping carries decides.
    if (presetNames().contains(mapping.name) && sameAssignment(presetByName(mapping.name), mapping))
        return mapping.name;
    for (const QString &name : presetNames()) {
        if (sameAssignment(presetByName(name), mapping))
            return name;
    }
    return QString();
}

} // namespace tavrix
