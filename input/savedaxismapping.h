#pragma once

#include "axispreset.h"

#include <QJsonObject>
#include <QString>

namespace tavrix {

class InputDevice;

// The axis-mapping part of a device connection saved in a profile (wheel base, pedals).
struct AxisMappingRecord
{
    QString productName;
    QString instanceGuid; // braced GUID text
    bool hasCustomAxisMapping = false;
    AxisPreset axisMapping;

    // Reads `productName`, `instanceGuid`, `hasCustomAxisMapping` and `axisMapping` of a device connection.
    [[nodiscard]] static AxisMappingRecord fromConnection(const QJsonObject &connection);
    // Writes those keys into the connection, leaving its other keys (device path, shifter mapping) alone.
    void writeTo(QJsonObject &connection) const;

    friend bool operator==(const AxisMappingRecord &, const AxisMappingRecord &) = default;
};

struct SavedMappingOutcome
{
    AxisPreset preset;        // the mapping to put in force
    AxisMappingRecord record; // the connection record rewritten from the device
    bool usedSavedMapping = false;
};

// A hand-made mapping is reused only for the very product it was made for (exact, case-sensitive
// product name); any other device gets its detected preset and the custom flag is dropped.
[[nodiscard]] SavedMappingOutcome resolveSavedMapping(const AxisMappingRecord &saved,
                                                      const QString &productName, const QString &instanceGuid,
                                                      const AxisPreset &detected);

// Applies the rule to a freshly opened device (whose detected preset is in force) and returns the
// record to save back into the profile.
AxisMappingRecord applySavedMapping(InputDevice &device, const AxisMappingRecord &saved);

} // namespace tavrix
