#include "inputdetection.h"

#include "deviceroleset.h"
#include "profilekeys.h"
#include "profilemanager.h"

#include <QJsonArray>

namespace tavrix {

namespace keys = profilekeys;

ShifterMapping shifterMappingWith(ShifterMapping mapping, int gearSlot, int inputIndex)
{
    for (int32_t &slot : mapping.buttonIndex) {
        if (slot == inputIndex)
            slot = -1;
    }
    mapping.buttonIndex[std::size_t(gearSlot)] = inputIndex;
    return mapping;
}

InputDetection::InputDetection(const DeviceRoleSet *devices, ProfileManager *profiles,
                               const ButtonPressWatcher::Timings &timings, QObject *parent)
    : QObject(parent)
    , m_devices(devices)
    , m_profiles(profiles)
    , m_shifterWatch(new ButtonPressWatcher(timings, this))
    , m_buttonWatch(new ButtonPressWatcher(timings, this))
{
    connect(m_shifterWatch, &ButtonPressWatcher::pressed, this, &InputDetection::onShifterPressed);
    connect(m_shifterWatch, &ButtonPressWatcher::timedOut, this,
            [this] { emit shifterDetectionResult(m_gearSlot, -1, false); });
    connect(m_buttonWatch, &ButtonPressWatcher::pressed, this,
            [this](int inputIndex) { emit buttonDetectionResult(inputIndex, true); });
    connect(m_buttonWatch, &ButtonPressWatcher::timedOut, this,
            [this] { emit buttonDetectionResult(-1, false); });
}

bool InputDetection::startShifterDetection(int gearSlot)
{
    if (gearSlot < 0 || gearSlot >= ShifterMapping::kSlots)
        return false;
    m_gearSlot = gearSlot;
    m_shifterWatch->watch(m_devices->device(DeviceRole::Shifter));
    emit shifterDetectionStarted(gearSlot);
    return true;
}

QString InputDetection::shifterDetectionRefusal() const
{
    return m_devices->isConnected(DeviceRole::Shifter) ? QString()
                                                       : deviceNotConnectedMessage(DeviceRole::Shifter);
}

void InputDetection::cancelShifterDetection()
{
    if (!m_shifterWatch->isWatching())
        return;
    m_shifterWatch->cancel();
    emit shifterDetectionResult(m_gearSlot, -1, false);
}

void InputDetection::startButtonDetection(DeviceRole role)
{
    m_buttonWatch->watch(m_devices->device(role));
    emit buttonDetectionStarted(role);
}

void InputDetection::stopButtonDetection()
{
    if (!m_buttonWatch->isWatching())
        return;
    m_buttonWatch->cancel();
    emit buttonDetectionResult(-1, false);
}

ShifterMapping InputDetection::shifterMapping() const
{
    const QJsonArray stored = m_profiles->deviceConnection(DeviceRole::Shifter)
                                  .value(keys::kShifterMapping)
                                  .toObject()
                                  .value(keys::kButtonIndex)
                                  .toArray();
    ShifterMapping mapping;
    for (int slot = 0; slot < ShifterMapping::kSlots && slot < stored.size(); ++slot)
        mapping.buttonIndex[std::size_t(slot)] = stored.at(slot).toInt(-1);
    return mapping;
}

bool InputDetection::setShifterMapping(const ShifterMapping &mapping)
{
    QJsonArray indexes;
    for (int32_t input : mapping.buttonIndex)
        indexes.append(input);
    QJsonObject connection = m_profiles->deviceConnection(DeviceRole::Shifter);
    connection.insert(keys::kShifterMapping, QJsonObject{{keys::kButtonIndex, indexes}});
    connection.insert(keys::kHasCustomShifterMapping, true);
    if (!m_profiles->setDeviceConnection(DeviceRole::Shifter, connection))
        return false;
    emit shifterMappingChanged();
    return true;
}

void InputDetection::onShifterPressed(int inputIndex)
{
    const bool saved = setShifterMapping(shifterMappingWith(shifterMapping(), m_gearSlot, inputIndex));
    emit shifterDetectionResult(m_gearSlot, saved ? inputIndex : -1, saved);
}

} // namespace tavrix
