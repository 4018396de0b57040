#include "savedaxismapping.h"

#include "inputdevice.h"

namespace tavrix {

namespace {
const QString kProductName = QStringLiteral("productName");
const QString kInstanceGuid = QStringLiteral("instanceGuid");
const QString kHasCustom = QStringLiteral("hasCustomAxisMapping");
const QString kAxisMapping = QStringLiteral("axisMapping");
} // namespace

AxisMappingRecord AxisMappingRecord::fromConnection(const QJsonObject &connection)
{
    AxisMappingRecord record;
    record.productName = connection.value(kProductName).toString();
    record.instanceGuid = connection.value(kInstanceGuid).toString();
    record.hasCustomAxisMapping = connection.value(kHasCustom).toBool(false);
    record.axisMapping = AxisPreset::fromJson(connection.value(kAxisMapping).toObject());
    return record;
}

void AxisMappingRecord::writeTo(QJsonObject &connection) const
{
    connection.insert(kProductName, productName);
    connection.insert(kInstanceGuid, instanceGuid);
    connection.insert(kHasCustom, hasCustomAxisMapping);
    connection.insert(kAxisMapping, axisMapping.toJson());
}

SavedMappingOutcome resolveSavedMapping(const AxisMappingRecord &saved, const QString &productName,
                                        const QString &instanceGuid, const AxisPreset &detected)
{
    SavedMappingOutcome outcome;
    outcome.usedSavedMapping = saved.hasCustomAxisMapping && saved.productName == productName;
    outcome.preset = outcome.usedSavedMapping ? saved.axisMapping : detected;
    outcome.record.productName = productName;
    outcome.record.instanceGuid = instanceGuid;
    outcome.record.hasCustomAxisMapping = outcome.usedSavedMapping;
    outcome.record.axisMapping = outcome.preset;
    return outcome;
}

AxisMappingRecord applySavedMapping(InputDevice &device, const AxisMappingRecord &saved)
{
    const SavedMappingOutcome outcome =
        resolveSavedMapping(saved, device.productName(), device.instanceGuidString(), device.preset());
    if (outcome.usedSavedMapping)
        device.applyPreset(outcome.preset);
    return outcome.record;
}

} // namespace tavrix
