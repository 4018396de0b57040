#include "inputdeviceinfo.h"

namespace tavrix {

InputDeviceInfo InputDeviceInfo::fromEntry(const DeviceListEntry &entry)
{
    InputDeviceInfo info;
    info.instanceName = QString::fromStdString(entry.instanceName);
    info.productName = QString::fromStdString(entry.productName);
    info.instanceGuid = entry.instanceGuid;
    info.productGuid = entry.productGuid;
    info.axisCount = entry.axisCount;
    info.buttonCount = entry.buttonCount;
    info.povCount = entry.povCount;
    info.hasForceFeedback = entry.hasForceFeedback;
    info.axisSlots = entry.axisSlots;
    return info;
}

QString InputDeviceInfo::listLabel() const
{
    return deviceListLabel(instanceName, axisCount, buttonCount, hasForceFeedback);
}

QString deviceListLabel(const QString &name, quint32 axisCount, quint32 buttonCount, bool hasFfb)
{
    QString label = QStringLiteral("%1 (%2 axes, %3 btn)")
                        .arg(name, QString::number(axisCount), QString::number(buttonCount));
    if (hasFfb)
        label += QStringLiteral(" [FFB]");
    return label;
}

} // namespace tavrix
