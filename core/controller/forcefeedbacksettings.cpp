#include "forcefeedbacksettings.h"

#include <QSettings>

#include <algorithm>

namespace tavrix {

namespace {

using namespace Qt::StringLiterals;

const auto kStrength = "forceFeedback/strength"_L1;
const auto kCentering = "forceFeedback/centering"_L1;
const auto kNativeCentering = "forceFeedback/nativeCentering"_L1;
const auto kAutoEngage = "forceFeedback/autoEngage"_L1;

float fraction(const QSettings &store, QLatin1String key, float fallback)
{
    return std::clamp(store.value(key, fallback).toFloat(), 0.0f, 1.0f);
}

} // namespace

ForceFeedbackSettings ForceFeedbackSettings::load()
{
    const QSettings store;
    const ForceFeedbackSettings defaults;
    ForceFeedbackSettings settings;
    settings.strength = fraction(store, kStrength, defaults.strength);
    settings.centering = fraction(store, kCentering, defaults.centering);
    settings.nativeCentering = store.value(kNativeCentering, defaults.nativeCentering).toBool();
    settings.autoEngage = store.value(kAutoEngage, defaults.autoEngage).toBool();
    return settings;
}

void ForceFeedbackSettings::save() const
{
    QSettings store;
    store.setValue(kStrength, strength);
    store.setValue(kCentering, centering);
    store.setValue(kNativeCentering, nativeCentering);
    store.setValue(kAutoEngage, autoEngage);
}

} // namespace tavrix
