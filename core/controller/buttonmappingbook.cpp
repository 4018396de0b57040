#include "buttonmappingbook.h"

#include "profilekeys.h"
#include "profilemanager.h"
#include "profilesettings.h"

#include <QJsonArray>

#include <algorithm>

namespace tavrix {

ButtonMappingBook::ButtonMappingBook(ProfileManager *profiles, QObject *parent)
    : QObject(parent)
    , m_profiles(profiles)
{}

ButtonMapping ButtonMappingBook::clamped(ButtonMapping m)
{
    m.name = m.name.left(kMaxNameLength);
    m.extraButtons = m.extraButtons.first(std::min<qsizetype>(m.extraButtons.size(), kMaxExtraButtons));
    for (int32_t *value : {&m.outputValue, &m.minValue, &m.maxValue, &m.startValue})
        *value = std::clamp(*value, kValueMin, kValueMax);
    m.rateUnitsPerSec = std::clamp(m.rateUnitsPerSec, 0, kRateMax);
    return m;
}

ButtonMappingList ButtonMappingBook::mappings() const
{
    return buttonMappingsFromJson(m_profiles->setting(profilekeys::kButtonMappings).toArray());
}

VehicleType ButtonMappingBook::vehicle() const
{
    return vehicleTypeFromName(m_profiles->vehicleType());
}

ButtonMappingEngine::ChannelRange ButtonMappingBook::channels() const
{
    return channelsOf(vehicle());
}

bool ButtonMappingBook::add(const ButtonMapping &mapping)
{
    if (refuseChannel(mapping))
        return false;
    ButtonMappingList next = mappings();
    if (next.size() >= kMaxMappings)
        return refuse(tr("Too many button mappings (max %1)").arg(kMaxMappings));
    next.append(mapping);
    return store(next);
}

bool ButtonMappingBook::replace(int index, const ButtonMapping &mapping)
{
    ButtonMappingList next = mappings();
    if (refuseIndex(index, next.size()) || refuseChannel(mapping))
        return false;
    next[index] = mapping;
    return store(next);
}

bool ButtonMappingBook::remove(int index)
{
    ButtonMappingList next = mappings();
    if (refuseIndex(index, next.size()))
        return false;
    next.removeAt(index);
    return store(next);
}

bool ButtonMappingBook::setAll(const ButtonMappingList &mappings)
{
    if (mappings.size() > kMaxMappings)
        return refuse(tr("Too many button mappings (max %1)").arg(kMaxMappings));
    return store(mappings);
}

bool ButtonMappingBook::clear()
{
    return store({});
}

bool ButtonMappingBook::refuseChannel(const ButtonMapping &mapping)
{
    const ButtonMappingEngine::ChannelRange range = channels();
    if (range.contains(mapping.channel))
        return false;
    // The channels below the range carry what the vehicle's own computation sends. The mobile
    // app recognises the car's refusal by its text, so that text stays as it is.
    const QString rule = vehicle() == VehicleType::Helicopter
                             ? tr("Channel must be %1-%2 (0-%3 carry the flight controls)")
                             : tr("Channel must be %1-%2 (0-%3 reserved for steering/throttle)");
    refuse(rule.arg(range.first).arg(range.last).arg(range.first - 1));
    return true;
}

bool ButtonMappingBook::refuseIndex(int index, qsizetype count)
{
    if (index >= 0 && index < count)
        return false;
    refuse(tr("Index %1 out of range (count: %2)").arg(index).arg(count));
    return true;
}

bool ButtonMappingBook::store(const ButtonMappingList &mappings)
{
    ButtonMappingList stored;
    for (const ButtonMapping &mapping : mappings)
        stored.append(clamped(mapping));
    return m_profiles->setSetting(profilekeys::kButtonMappings, buttonMappingsToJson(stored));
}

bool ButtonMappingBook::refuse(const QString &message)
{
    emit errorOccurred(message);
    return false;
}

} // namespace tavrix
