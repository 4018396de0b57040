#include "ledstripsettings.h"

#include "buttonmappingengine.h"
#include "profilekeys.h"
#include "profilemanager.h"
#include "profileschema.h"

#include <QJsonArray>

#include <algorithm>
#include <array>
#include <utility>

namespace tavrix {

namespace {

namespace keys = profilekeys;

constexpr int kMaxComponent = 255;
constexpr int kMaxPercent = 100;

constexpr std::array<std::pair<LedStripSettings::Mode, QLatin1String>, 3> kModeNames{{
    {LedStripSettings::Mode::Global, QLatin1String("global")},
    {LedStripSettings::Mode::PerLed, QLatin1String("per_led")},
    {LedStripSettings::Mode::Range, QLatin1String("range")},
}};

int intAt(const QJsonObject &object, QLatin1String key)
{
    return object.value(key).toInt();
}

QJsonObject objectAt(const QJsonObject &object, QLatin1String key)
{
    return object.value(key).toObject();
}

} // namespace

LedColor LedColor::clamped(int r, int g, int b)
{
    return {std::clamp(r, 0, kMaxComponent), std::clamp(g, 0, kMaxComponent),
            std::clamp(b, 0, kMaxComponent)};
}

LedColor LedColor::fromJson(const QJsonObject &color)
{
    // A missing component reads as -1 and so as 0, never as a stray full value.
    return clamped(color.value(keys::kRed).toInt(-1), color.value(keys::kGreen).toInt(-1),
                   color.value(keys::kBlue).toInt(-1));
}

QJsonObject LedColor::toJson() const
{
    return {{keys::kRed, r}, {keys::kGreen, g}, {keys::kBlue, b}};
}

LedZone LedZone::clamped(int startPercent, int endPercent, LedColor color)
{
    return {std::clamp(startPercent, 0, kMaxPercent), std::clamp(endPercent, 0, kMaxPercent),
            LedColor::clamped(color.r, color.g, color.b)};
}

LedStripSettings::LedStripSettings()
    : LedStripSettings(fromJson({}))
{}

LedStripSettings LedStripSettings::fromJson(const QJsonObject &stored)
{
    // The key table completes the object, so its defaults are the only ones; the setters
    // then bring every value into the strip's range.
    const QJsonObject o =
        ProfileSchema::normaliseValue(stored, *ProfileSchema::profileField(keys::kLedSettings)).toObject();
    LedStripSettings s{Unset{}};
    s.setLedCount(intAt(o, keys::kLedCount));
    s.setBrightness(intAt(o, keys::kBrightness));
    s.setActivePercentage(intAt(o, keys::kActivePercentage));
    s.setPowerOn(o.value(keys::kPowerOn).toBool());
    s.setPowerButtonIndex(intAt(o, keys::kPowerButtonIndex));
    s.setMode(modeFromName(o.value(keys::kMode).toString()));
    s.setGlobalColor(LedColor::fromJson(objectAt(o, keys::kGlobalColor)));
    s.setSelectedLedIndex(intAt(o, keys::kSelectedLedIndex));
    for (const QJsonValue &entry : o.value(keys::kLedColors).toArray()) {
        const int index = intAt(entry.toObject(), keys::kIndex);
        if (index >= 0 && index < kMaxLeds)
            s.m_ledColors.insert(index, LedColor::fromJson(objectAt(entry.toObject(), keys::kColor)));
    }
    for (const QJsonValue &entry : o.value(keys::kRangeZones).toArray()) {
        const QJsonObject zone = entry.toObject();
        s.addZone({intAt(zone, keys::kStartPercent), intAt(zone, keys::kEndPercent),
                   LedColor::fromJson(objectAt(zone, keys::kColor))});
    }
    s.setSelectedZoneIndex(intAt(o, keys::kSelectedZoneIndex));
    return s;
}

QJsonObject LedStripSettings::toJson() const
{
    QJsonArray ledColors;
    for (auto it = m_ledColors.cbegin(); it != m_ledColors.cend(); ++it)
        ledColors.append(QJsonObject{{keys::kIndex, it.key()}, {keys::kColor, it.value().toJson()}});
    QJsonArray zones;
    for (const LedZone &zone : m_zones) {
        zones.append(QJsonObject{{keys::kStartPercent, zone.startPercent},
                                 {keys::kEndPercent, zone.endPercent},
                                 {keys::kColor, zone.color.toJson()}});
    }
    return {
        {keys::kMode, modeName(m_mode)},
        {keys::kLedCount, m_ledCount},
        {keys::kBrightness, m_brightness},
        {keys::kActivePercentage, m_activePercentage},
        {keys::kPowerOn, m_powerOn},
        {keys::kPowerButtonIndex, m_powerButtonIndex},
        {keys::kSelectedLedIndex, m_selectedLedIndex},
        {keys::kGlobalColor, m_globalColor.toJson()},
        {keys::kLedColors, ledColors},
        {keys::kSelectedZoneIndex, m_selectedZoneIndex},
        {keys::kRangeZones, zones},
    };
}

LedStripSettings LedStripSettings::ofActiveProfile(const ProfileManager &profiles)
{
    return fromJson(profiles.setting(keys::kLedSettings).toObject());
}

bool LedStripSettings::saveTo(ProfileManager &profiles) const
{
    return profiles.setSetting(keys::kLedSettings, toJson());
}

LedZone LedStripSettings::defaultZone()
{
    return fromJson({{keys::kRangeZones, QJsonArray{QJsonObject()}}}).zones().constFirst();
}

QString LedStripSettings::modeName(Mode mode)
{
    const auto *found = std::ranges::find(kModeNames, mode, &std::pair<Mode, QLatin1String>::first);
    return found->second;
}

LedStripSettings::Mode LedStripSettings::modeFromName(const QString &name)
{
    const auto *found = std::ranges::find(kModeNames, name, &std::pair<Mode, QLatin1String>::second);
    return found == kModeNames.end() ? Mode::Global : found->first;
}

void LedStripSettings::setLedCount(int count)
{
    m_ledCount = std::clamp(count, 1, kMaxLeds);
    setSelectedLedIndex(m_selectedLedIndex);
}

void LedStripSettings::setBrightness(int brightness)
{
    m_brightness = std::clamp(brightness, 0, kMaxBrightness);
}

void LedStripSettings::setActivePercentage(int percentage)
{
    m_activePercentage = std::clamp(percentage, 0, kMaxPercent);
}

void LedStripSettings::setPowerButtonIndex(int buttonIndex)
{
    m_powerButtonIndex = std::clamp(buttonIndex, -1, ButtonMappingEngine::kSourceCount - 1);
}

void LedStripSettings::setSelectedLedIndex(int index)
{
    m_selectedLedIndex = std::clamp(index, 0, m_ledCount - 1);
}

void LedStripSettings::setGlobalColor(LedColor color)
{
    m_globalColor = LedColor::clamped(color.r, color.g, color.b);
}

bool LedStripSettings::setLedColor(int index, LedColor color)
{
    if (index < 0 || index >= m_ledCount)
        return false;
    m_ledColors.insert(index, LedColor::clamped(color.r, color.g, color.b));
    return true;
}

int LedStripSettings::addZone(const LedZone &zone)
{
    if (m_zones.size() >= kMaxZones)
        return -1;
    m_zones.append(LedZone::clamped(zone.startPercent, zone.endPercent, zone.color));
    return int(m_zones.size()) - 1;
}

bool LedStripSettings::removeZone(int index)
{
    if (!isZone(index))
        return false;
    m_zones.removeAt(index);
    m_selectedZoneIndex = std::clamp(m_selectedZoneIndex, 0, std::max(0, int(m_zones.size()) - 1));
    return true;
}

bool LedStripSettings::setZone(int index, const LedZone &zone)
{
    if (!isZone(index))
        return false;
    m_zones[index] = LedZone::clamped(zone.startPercent, zone.endPercent, zone.color);
    return true;
}

bool LedStripSettings::setZoneColor(int index, LedColor color)
{
    return isZone(index) &&
           setZone(index, {m_zones.at(index).startPercent, m_zones.at(index).endPercent, color});
}

bool LedStripSettings::setSelectedZoneIndex(int index)
{
    if (!isZone(index))
        return false;
    m_selectedZoneIndex = index;
    return true;
}

} // namespace tavrix
