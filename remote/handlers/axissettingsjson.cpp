#include "axissettingsjson.h"

#include "axissettings.h"
#include "crsfchannels.h"
#include "drivesettings.h"
#include "inputdevice.h"
#include "profilekeys.h"
#include "steeringtrim.h"

#include <QJsonArray>

#include <algorithm>
#include <array>

namespace tavrix {

namespace {

namespace keys = profilekeys;
using namespace Qt::StringLiterals;

enum class Kind
{
    Bool,
    Int,
    Number,
    Text
};

// One field the app may set, and the range a value is clamped to on the way in.
struct Field
{
    QLatin1String key;
    Kind kind;
    double min = 0.0;
    double max = 0.0;
};

constexpr double kChannelMin = crsf::kChannelMin;
constexpr double kChannelMax = crsf::kChannelMax;
constexpr double kPercentMax = 100.0;
constexpr double kDeadzoneMax = AxisSettings::kDeadzoneMax;
constexpr double kExponentMin = AxisSettings::kExponentMin;
constexpr double kExponentMax = AxisSettings::kExponentMax;
// The deceleration step divides by 14 R + 85: keep R where the fall takes 0.9 to 11 s.
constexpr double kDecelRateMax = 100.0;
// A ramp longer than two minutes would feel like a broken throttle.
constexpr double kSoftStartSecondsMax = 120.0;
constexpr int kCurveCount = 3;

const std::array<Field, 9> kAxisFields{{
    {keys::kInverted, Kind::Bool},
    {keys::kDeadzone, Kind::Number, 0.0, kDeadzoneMax},
    {keys::kMinOutput, Kind::Number, 0.0, 1.0},
    {keys::kMaxOutput, Kind::Number, 0.0, 1.0},
    {keys::kCurveExponent, Kind::Number, kExponentMin, kExponentMax},
    {keys::kUseCalibration, Kind::Bool},
    {keys::kInputMin, Kind::Number, -1.0, 1.0},
    {keys::kInputMax, Kind::Number, -1.0, 1.0},
    {keys::kInputCenter, Kind::Number, -1.0, 1.0},
}};

// Only the desktop edits these: the remote app's axis objects leave them out.
const std::array<Field, 1> kDesktopAxisFields{{
    {keys::kExpo, Kind::Number, 0.0, AxisSettings::kExpoMax},
}};

const std::array<Field, 15> kDriveFields{{
    {keys::kEscPresetId, Kind::Text},
    {keys::kEscNeutral, Kind::Int, kChannelMin, kChannelMax},
    {keys::kEscFullForward, Kind::Int, kChannelMin, kChannelMax},
    {keys::kEscFullReverse, Kind::Int, kChannelMin, kChannelMax},
    {keys::kSteeringLeft, Kind::Int, kChannelMin, kChannelMax},
    {keys::kSteeringCenter, Kind::Int, kChannelMin, kChannelMax},
    {keys::kSteeringRight, Kind::Int, kChannelMin, kChannelMax},
    {keys::kSmoothDeceleration, Kind::Bool},
    {keys::kDecelRate, Kind::Int, 0.0, kDecelRateMax},
    {keys::kPitLimiterEnabled, Kind::Bool},
    {keys::kPitLimiterValue, Kind::Int, kChannelMin, kChannelMax},
    {keys::kGearThrottleLimitEnabled, Kind::Bool},
    {keys::kReverseEnabled, Kind::Bool},
    {keys::kReverseButtonIndex, Kind::Int, -1.0, double(InputDevice::kUnifiedIndexEnd - 1)},
    {keys::kReverseMaxPercent, Kind::Int, 0.0, kPercentMax},
}};

// Only the desktop edits these: the remote app's message leaves them out.
const std::array<Field, 5> kDesktopDriveFields{{
    {keys::kSoftStartEnabled, Kind::Bool},
    {keys::kSoftStartDurationSec, Kind::Int, 0.0, kSoftStartSecondsMax},
    {keys::kSoftStartFloorPercent, Kind::Int, 0.0, kPercentMax},
    {keys::kStuckThrottleDetectionEnabled, Kind::Bool},
    {keys::kThrottleSpikeRejectionEnabled, Kind::Bool},
}};

const std::array<QLatin1String, 4> kAxisNames{keys::kSteeringAxis, keys::kThrottleAxis, keys::kBrakeAxis,
                                              keys::kClutchAxis};
// By curve number (AxisCurve).
const std::array<QLatin1String, 3> kCurveNames{"linear"_L1, "exponential"_L1, "logarithmic"_L1};
const auto kAxes = "axes"_L1;
const auto kEscModeName = keys::kEscMode;

// A value of the field's kind, clamped; undefined when the request's is missing or unusable
// (not null, which would be stored and read back as the default, wiping out the field).
QJsonValue accepted(const Field &field, const QJsonValue &value)
{
    const QJsonValue none(QJsonValue::Undefined);
    switch (field.kind) {
    case Kind::Bool:
        return value.isBool() ? value : none;
    case Kind::Text:
        return value.isString() ? value : none;
    case Kind::Int:
    case Kind::Number:
        if (!value.isDouble())
            return none;
        const double clamped = std::clamp(value.toDouble(), field.min, field.max);
        return field.kind == Kind::Int ? QJsonValue(int(clamped)) : QJsonValue(clamped);
    }
    return none;
}

template<std::size_t N>
void takeFields(const std::array<Field, N> &fields, QJsonObject &stored, const QJsonObject &request)
{
    for (const Field &field : fields) {
        const QJsonValue value = accepted(field, request.value(field.key));
        if (!value.isUndefined())
            stored.insert(field.key, value);
    }
}

QJsonObject axisToRemote(const QJsonObject &axis)
{
    QJsonObject remote{{keys::kName, axis.value(keys::kName)}};
    for (const Field &field : kAxisFields)
        remote.insert(field.key, axis.value(field.key));
    const int curve = axis.value(keys::kCurve).toInt();
    remote.insert(keys::kCurve,
                  curve >= 0 && curve < int(kCurveNames.size()) ? kCurveNames[curve] : kCurveNames[0]);
    return remote;
}

QJsonObject axisFromRemote(QJsonObject axis, const QJsonObject &request)
{
    takeFields(kAxisFields, axis, request);
    const auto curve =
        std::find(kCurveNames.begin(), kCurveNames.end(), request.value(keys::kCurve).toString());
    if (curve != kCurveNames.end())
        axis.insert(keys::kCurve, int(curve - kCurveNames.begin()));
    return axis;
}

// The axis an element of the request's list is for: by its name, else by its place.
int axisIndexOf(const QJsonObject &element, int position)
{
    const auto named = std::find(kAxisNames.begin(), kAxisNames.end(), element.value(keys::kName).toString());
    return named != kAxisNames.end() ? int(named - kAxisNames.begin()) : position;
}

} // namespace

QJsonObject AxisSettingsJson::toRemote(const QJsonObject &stored)
{
    QJsonArray axes;
    for (QLatin1String name : kAxisNames)
        axes.append(axisToRemote(stored.value(name).toObject()));
    QJsonObject remote{{kAxes, axes}};
    for (const Field &field : kDriveFields)
        remote.insert(field.key, stored.value(field.key));
    remote.insert(kEscModeName, escModeName(escModeFromStored(stored.value(keys::kEscMode).toInt())));
    remote.insert(keys::kGearThrottleLimitPercent, stored.value(keys::kGearThrottleLimitPercent));
    return remote;
}

std::optional<QJsonObject> AxisSettingsJson::merged(QJsonObject stored, const QJsonObject &request)
{
    const QJsonArray axes = request.value(kAxes).toArray();
    for (int i = 0; i < axes.size() && i < int(kAxisNames.size()); ++i) {
        const QJsonObject element = axes.at(i).toObject();
        const int index = axisIndexOf(element, i);
        const QLatin1String name = kAxisNames[std::size_t(index)];
        stored.insert(name, axisFromRemote(stored.value(name).toObject(), element));
    }
    if (request.value(kEscModeName).isString())
        stored.insert(keys::kEscMode, int(escModeFromName(request.value(kEscModeName).toString())));
    return mergedDrive(std::move(stored), request);
}

std::optional<QJsonObject> AxisSettingsJson::edited(QJsonObject stored, const QJsonObject &changes)
{
    for (QLatin1String name : kAxisNames) {
        if (!changes.value(name).isObject())
            continue;
        const QJsonObject change = changes.value(name).toObject();
        QJsonObject axis = stored.value(name).toObject();
        takeFields(kAxisFields, axis, change);
        takeFields(kDesktopAxisFields, axis, change);
        const QJsonValue curve = change.value(keys::kCurve);
        if (curve.isDouble() && curve.toInt() >= 0 && curve.toInt() < kCurveCount)
            axis.insert(keys::kCurve, curve.toInt());
        stored.insert(name, axis);
    }
    takeFields(kDesktopDriveFields, stored, changes);
    if (changes.value(keys::kEscMode).isDouble())
        stored.insert(keys::kEscMode, int(escModeFromStored(changes.value(keys::kEscMode).toInt())));
    return mergedDrive(std::move(stored), changes);
}

AxisSettingsJson::Range AxisSettingsJson::range(QLatin1String key)
{
    const auto find = [key](const auto &fields) -> const Field * {
        const auto it =
            std::find_if(fields.begin(), fields.end(), [key](const Field &f) { return f.key == key; });
        return it == fields.end() ? nullptr : &*it;
    };
    const Field *field = find(kAxisFields);
    if (!field)
        field = find(kDesktopAxisFields);
    if (!field)
        field = find(kDriveFields);
    if (!field)
        field = find(kDesktopDriveFields);
    if (key == keys::kGearThrottleLimitPercent)
        return {0.0, kPercentMax};
    if (!field || field->kind == Kind::Bool || field->kind == Kind::Text)
        return {};
    return {field->min, field->max};
}

std::optional<QJsonObject> AxisSettingsJson::mergedDrive(QJsonObject stored, const QJsonObject &request)
{
    takeFields(kDriveFields, stored, request);

    const QJsonArray limits = request.value(keys::kGearThrottleLimitPercent).toArray();
    if (!limits.isEmpty()) {
        QJsonArray kept = stored.value(keys::kGearThrottleLimitPercent).toArray();
        const Field percent{keys::kGearThrottleLimitPercent, Kind::Int, 0.0, kPercentMax};
        for (int gear = 0; gear < kept.size() && gear < limits.size(); ++gear) {
            const QJsonValue value = accepted(percent, limits.at(gear));
            if (!value.isUndefined())
                kept.replace(gear, value);
        }
        stored.insert(keys::kGearThrottleLimitPercent, kept);
    }

    const bool steeringChanged = request.contains(keys::kSteeringLeft) ||
                                 request.contains(keys::kSteeringCenter) ||
                                 request.contains(keys::kSteeringRight);
    if (steeringChanged && !SteeringEndpoints::checked(stored.value(keys::kSteeringLeft).toDouble(),
                                                       stored.value(keys::kSteeringCenter).toDouble(),
                                                       stored.value(keys::kSteeringRight).toDouble()))
        return std::nullopt;
    return stored;
}

} // namespace tavrix
