#pragma once

#include "inputbackend.h"

#include <QList>
#include <QString>

namespace tavrix {

// One game controller of an enumeration, in Qt types, as the device lists show it.
struct InputDeviceInfo
{
    QString instanceName;
    QString productName;
    DeviceGuid instanceGuid{};
    DeviceGuid productGuid{};
    quint32 axisCount = 0;
    quint32 buttonCount = 0;
    quint32 povCount = 0;
    bool hasForceFeedback = false;
    quint8 axisSlots = 0xFF; // bit n: the device has axis slot n

    [[nodiscard]] static InputDeviceInfo fromEntry(const DeviceListEntry &entry);
    // "%1 (%2 axes, %3 btn)" with " [FFB]" for force-feedback devices.
    [[nodiscard]] QString listLabel() const;
};

// The label of a device list entry, as the device pickers show it.
[[nodiscard]] QString deviceListLabel(const QString &name, quint32 axisCount, quint32 buttonCount,
                                      bool hasFfb);

} // namespace tavrix
