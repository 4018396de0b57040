#include "helicopterconfigjson.h"

#include "helicoptersettings.h"
#include "profilekeys.h"
#include "profilesettings.h"

#include <QJsonArray>

#include <algorithm>
#include <array>

namespace tavrix {

namespace {

namespace keys = profilekeys;
using namespace Qt::StringLiterals;

using Limits = HelicopterSettings;
constexpr double kUnassigned = Limits::kUnassigned;
constexpr double kLastAxisSlot = Limits::kLastAxisSlot;
constexpr double kLastChannel = Limits::kLastChannel;
constexpr double kPercentMax = Limits::kPercentMax;

// A number somewhere in the config and its range. A channel index outside its range is
// a channel not sent, never the nearest channel: clamping 16 to 15 would drive CH16.
struct Bound
{
    // Outer key first; a path shorter than three ends in empty keys.
    std::array<QLatin1String, 3> path;
    double min;
    double max;
    bool outsideIsUnassigned = false;
};

const std::array<Bound, 30> kBounds{{
    {{keys::kInputs, keys::kJoystick, keys::kXAxis}, kUnassigned, kLastAxisSlot, true},
    {{keys::kInputs, keys::kJoystick, keys::kYAxis}, kUnassigned, kLastAxisSlot, true},
    {{keys::kInputs, keys::kThrottle, keys::kAxis}, kUnassigned, kLastAxisSlot, true},
    {{keys::kInputs, keys::kPedals, keys::kAxis}, kUnassigned, kLastAxisSlot, true},
    {{keys::kInputs, keys::kPedals, keys::kAxis2}, kUnassigned, kLastAxisSlot, true},
    {{keys::kCalibration, keys::kRoll, keys::kMin}, -1.0, 1.0},
    {{keys::kCalibration, keys::kRoll, keys::kCenter}, -1.0, 1.0},
    {{keys::kCalibration, keys::kRoll, keys::kMax}, -1.0, 1.0},
    {{keys::kCalibration, keys::kPitch, keys::kMin}, -1.0, 1.0},
    {{keys::kCalibration, keys::kPitch, keys::kCenter}, -1.0, 1.0},
    {{keys::kCalibration, keys::kPitch, keys::kMax}, -1.0, 1.0},
    {{keys::kCalibration, keys::kThrottle, keys::kMin}, -1.0, 1.0},
    {{keys::kCalibration, keys::kThrottle, keys::kCenter}, -1.0, 1.0},
    {{keys::kCalibration, keys::kThrottle, keys::kMax}, -1.0, 1.0},
    {{keys::kCalibration, keys::kRudder, keys::kMin}, -1.0, 1.0},
    {{keys::kCalibration, keys::kRudder, keys::kCenter}, -1.0, 1.0},
    {{keys::kCalibration, keys::kRudder, keys::kMax}, -1.0, 1.0},
    {{keys::kChannels, keys::kRoll}, kUnassigned, kLastChannel, true},
    {{keys::kChannels, keys::kPitch}, kUnassigned, kLastChannel, true},
    {{keys::kChannels, keys::kThrottle}, kUnassigned, kLastChannel, true},
    {{keys::kChannels, keys::kRudder}, kUnassigned, kLastChannel, true},
    {{keys::kArm, keys::kChannel}, kUnassigned, kLastChannel, true},
    {{keys::kMotorChannel}, kUnassigned, kLastChannel, true},
    {{keys::kArm, keys::kOnUs}, Limits::kArmMicrosMin, Limits::kArmMicrosMax},
    {{keys::kArm, keys::kOffUs}, Limits::kArmMicrosMin, Limits::kArmMicrosMax},
    {{keys::kFly, keys::kSoftStartSec}, 0.0, Limits::kSoftStartSecMax},
    {{keys::kDualRates, keys::kActiveMode}, 0.0, Limits::kLastRateMode},
    {{keys::kDualRates, keys::kBeginnerPct}, 0.0, kPercentMax},
    {{keys::kDualRates, keys::kSportPct}, 0.0, kPercentMax},
    {{keys::kDualRates, keys::kThreeDPct}, 0.0, kPercentMax},
}};
const std::array<QLatin1String, 3> kDevices{keys::kJoystick, keys::kThrottle, keys::kPedals};
const std::array<QLatin1String, 6> kIdentity{keys::kProductName, keys::kInstanceGuid, keys::kDevicePath,
                                             keys::kUniqId,      keys::kVendorId,     keys::kProductId};

QJsonObject mergeKnown(QJsonObject stored, const QJsonObject &request)
{
    for (auto it = request.begin(); it != request.end(); ++it) {
        const QJsonValue kept = stored.value(it.key());
        if (kept.isObject() && it->isObject())
            stored.insert(it.key(), mergeKnown(kept.toObject(), it->toObject()));
        else if (!kept.isUndefined() && kept.type() == it->type())
            stored.insert(it.key(), *it);
    }
    return stored;
}

QJsonObject bounded(QJsonObject object, const QLatin1String *key, const QLatin1String *end,
                    const Bound &bound)
{
    if (key + 1 != end) {
        object.insert(*key, bounded(object.value(*key).toObject(), key + 1, end, bound));
        return object;
    }
    const double value = object.value(*key).toDouble();
    const bool outside = value < bound.min || value > bound.max;
    if (bound.outsideIsUnassigned)
        object.insert(*key, outside ? int(kUnassigned) : int(value));
    else
        object.insert(*key, std::clamp(value, bound.min, bound.max));
    return object;
}

QJsonObject withBound(const QJsonObject &config, const Bound &bound)
{
    const auto end = std::find(bound.path.begin(), bound.path.end(), QLatin1String());
    return bounded(config, bound.path.begin(), end, bound);
}

QJsonObject withCurveBounded(QJsonObject config, QLatin1String curveKey)
{
    QJsonObject curve = config.value(curveKey).toObject();
    const QJsonArray points = curve.value(keys::kPoints).toArray();
    QJsonArray kept;
    for (int i = 0; i < points.size() && i < Limits::kMaxCurvePoints; ++i)
        kept.append(std::clamp(points.at(i).toDouble(), 0.0, 1.0));
    curve.insert(keys::kPoints, kept);
    config.insert(curveKey, curve);
    return config;
}

} // namespace

QJsonObject HelicopterConfigJson::merged(const QJsonObject &stored, const QJsonObject &request)
{
    QJsonObject config = mergeKnown(stored, request);

    QJsonObject inputs = config.value(keys::kInputs).toObject();
    const QJsonObject storedInputs = stored.value(keys::kInputs).toObject();
    for (QLatin1String device : kDevices) {
        QJsonObject entry = inputs.value(device).toObject();
        const QJsonObject saved = storedInputs.value(device).toObject();
        for (QLatin1String key : kIdentity)
            entry.insert(key, saved.value(key));
        inputs.insert(device, entry);
    }
    config.insert(keys::kInputs, inputs);

    for (const Bound &bound : kBounds)
        config = withBound(config, bound);
    config = withCurveBounded(config, keys::kPitchCurve);
    return withCurveBounded(config, keys::kThrottleCurve);
}

HelicopterConfigJson::Edit HelicopterConfigJson::edited(const QJsonObject &stored, const QJsonObject &request,
                                                        bool armed)
{
    const QJsonObject config = merged(stored, request);
    if (armed) {
        // Against the stored object as a merge reads it, so that a hand-written value out
        // of range does not count as the edit's change.
        const QString locked = helicopterSettingsFromJson(merged(stored, {}))
                                   .armedEditRefusal(helicopterSettingsFromJson(config));
        if (!locked.isEmpty())
            return {std::nullopt, locked};
    }
    // A file that already shares a channel (written by hand) can still be mended one edit
    // at a time; only an edit that makes two functions meet is refused.
    const QString refusal = helicopterSettingsFromJson(config).sharedChannelRefusal();
    if (!refusal.isEmpty() && helicopterSettingsFromJson(stored).sharedChannelRefusal().isEmpty())
        return {std::nullopt, refusal};
    return {config, QString()};
}

} // namespace tavrix
