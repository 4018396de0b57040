#include "profileschema.h"

#include "crsfchannels.h"
#include "profilekeys.h"
#include "profilemigrations.h"

#include <QDateTime>
#include <QJsonArray>
#include <QJsonDocument>
#include <QUuid>

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace tavrix {

namespace {

namespace keys = profilekeys;
using Kind = SchemaField::Kind;

// --- builders for the key table ---

SchemaField scalar(QLatin1String key, Kind kind, QJsonValue defaultValue)
{
    SchemaField field;
    field.key = key;
    field.kind = kind;
    field.defaultValue = std::move(defaultValue);
    return field;
}

SchemaField boolean(QLatin1String key, bool defaultValue)
{
    return scalar(key, Kind::Bool, defaultValue);
}

SchemaField integer(QLatin1String key, int defaultValue)
{
    return scalar(key, Kind::Int, defaultValue);
}

SchemaField number(QLatin1String key, double defaultValue)
{
    return scalar(key, Kind::Number, defaultValue);
}

SchemaField text(QLatin1String key, QLatin1String defaultValue = {})
{
    return scalar(key, Kind::String, QString(defaultValue));
}

SchemaField fixedInteger(QLatin1String key, int value)
{
    SchemaField field = integer(key, value);
    field.fixed = true;
    return field;
}

SchemaField object(QLatin1String key, Schema fields, QJsonObject base = {})
{
    SchemaField field;
    field.key = key;
    field.kind = Kind::Object;
    field.defaultValue = base;
    field.fields = std::move(fields);
    return field;
}

// An element description for list(): only its kind, default and fields matter.
SchemaField element(Kind kind, QJsonValue defaultValue = {})
{
    return scalar({}, kind, std::move(defaultValue));
}

SchemaField element(Schema fields)
{
    return object({}, std::move(fields));
}

SchemaField list(QLatin1String key, SchemaField elementField, QJsonArray defaults = {}, int fixedLength = -1)
{
    SchemaField field;
    field.key = key;
    field.kind = Kind::Array;
    field.defaultValue = defaults;
    field.element = std::make_shared<const SchemaField>(std::move(elementField));
    field.fixedLength = fixedLength;
    return field;
}

QJsonArray repeated(const QJsonValue &value, int count)
{
    QJsonArray array;
    for (int i = 0; i < count; ++i)
        array.append(value);
    return array;
}

// --- shared pieces of the table ---

Schema colourFields()
{
    return {integer(keys::kRed, 0), integer(keys::kGreen, 0), integer(keys::kBlue, 0)};
}

SchemaField colour(QLatin1String key, int r, int g, int b)
{
    return object(key, colourFields(), QJsonObject{{keys::kRed, r}, {keys::kGreen, g}, {keys::kBlue, b}});
}

// The per-input axis settings; the name always comes from the key the object is stored under.
SchemaField axisSettings(QLatin1String inputName)
{
    SchemaField name = text(keys::kName, inputName);
    name.fixed = true;
    return object(inputName, {
                                 name,
                                 boolean(keys::kInverted, false),
                                 number(keys::kDeadzone, 0.0),
                                 number(keys::kMinOutput, 0.0),
                                 number(keys::kMaxOutput, 1.0),
                                 integer(keys::kCurve, 0),
                                 number(keys::kCurveExponent, 2.0),
                                 number(keys::kExpo, 0.0),
                                 number(keys::kInputMin, -1.0),
                                 number(keys::kInputMax, 1.0),
                                 number(keys::kInputCenter, 0.0),
                                 boolean(keys::kUseCalibration, false),
                             });
}

// How a game controller is recognised again on the next run.
Schema deviceIdentityFields()
{
    return {
        text(keys::kProductName), text(keys::kInstanceGuid),   text(keys::kDevicePath),
        text(keys::kUniqId),      integer(keys::kVendorId, 0), integer(keys::kProductId, 0),
    };
}

SchemaField deviceConnection(QLatin1String role)
{
    Schema fields = deviceIdentityFields();
    // The unmapped default is the blank axis preset: slots 0..3, nothing inverted, not combined.
    fields.push_back(boolean("hasCustomAxisMapping"_L1, false));
    fields.push_back(
        object("axisMapping"_L1, {
                                     list("map"_L1, element(Kind::Int, 0), {0, 1, 2, 3}, 4),
                                     list("inverted"_L1, element(Kind::Bool, false), repeated(false, 4), 4),
                                     text("presetName"_L1),
                                     boolean("combinedPedals"_L1, false),
                                     number("combinedPedalsCenter"_L1, 0.0),
                                 }));
    fields.push_back(boolean(keys::kHasCustomShifterMapping, false));
    // One input per gear slot: 0 neutral, 1 reverse, 2..8 gears 1..7.
    fields.push_back(object(keys::kShifterMapping,
                            {
                                list(keys::kButtonIndex, element(Kind::Int, -1), repeated(-1, 9), 9),
                            }));
    return object(role, std::move(fields));
}

// A helicopter input device: its identity plus the axes it feeds.
SchemaField helicopterDevice(QLatin1String role, Schema axes)
{
    Schema fields = deviceIdentityFields();
    for (SchemaField &axis : axes)
        fields.push_back(std::move(axis));
    return object(role, std::move(fields));
}

SchemaField calibrationPoints(QLatin1String function)
{
    return object(function, {number(keys::kMin, -1.0), number(keys::kCenter, 0.0), number(keys::kMax, 1.0)});
}

SchemaField curve(QLatin1String key)
{
    // Five points from stick low to stick high; the default is the straight line.
    return object(key, {
                           boolean(keys::kEnabled, false),
                           list(keys::kPoints, element(Kind::Number, 0.0), {0.0, 0.25, 0.5, 0.75, 1.0}),
                       });
}

Schema buildProfileFields()
{
    Schema drive = {
        axisSettings(keys::kSteeringAxis),
        axisSettings(keys::kThrottleAxis),
        axisSettings(keys::kBrakeAxis),
        axisSettings(keys::kClutchAxis),
        integer(keys::kEscMode, 0),
        text(keys::kEscPresetId),
        // A standard ESC: the servo span.
        integer(keys::kEscNeutral, crsf::kServoCenter),
        integer(keys::kEscFullForward, crsf::kServoMax),
        integer(keys::kEscFullReverse, crsf::kServoMin),
        // No end points of its own: steering sweeps the whole channel.
        integer(keys::kSteeringLeft, crsf::kChannelMin),
        integer(keys::kSteeringCenter, crsf::kChannelMid),
        integer(keys::kSteeringRight, crsf::kChannelMax),
        boolean(keys::kSmoothDeceleration, false),
        integer(keys::kDecelRate, 20),
        boolean(keys::kPitLimiterEnabled, false),
        integer(keys::kPitLimiterValue, 1200),
        boolean(keys::kGearThrottleLimitEnabled, false),
        list(keys::kGearThrottleLimitPercent, element(Kind::Int, 100), repeated(100, 7), 7),
        boolean(keys::kReverseEnabled, false),
        integer(keys::kReverseButtonIndex, -1),
        integer(keys::kReverseMaxPercent, 100),
        boolean(keys::kSoftStartEnabled, true),
        integer(keys::kSoftStartDurationSec, 30),
        integer(keys::kSoftStartFloorPercent, 10),
        boolean(keys::kStuckThrottleDetectionEnabled, true),
        boolean(keys::kThrottleSpikeRejectionEnabled, true),
    };

    SchemaField buttonMapping = element({
        text(keys::kName),
        integer(keys::kButtonIndex, -1),
        list(keys::kExtraButtons, element(Kind::Int, -1)),
        integer(keys::kChannel, 3),
        integer(keys::kMode, 0),
        integer(keys::kOutputValue, crsf::kChannelMax),
        integer(keys::kRateUnitsPerSec, 1024),
        integer(keys::kMinValue, crsf::kChannelMin),
        integer(keys::kMaxValue, crsf::kChannelMax),
        integer(keys::kStartValue, crsf::kChannelMin),
        boolean(keys::kActivatesPitLimiter, false),
    });

    Schema devices = {
        object(keys::kBridge,
               {text(keys::kPortName), integer(keys::kBaudRate, ProfileSchema::kDefaultBaudRate)}),
        object(keys::kReceiver,
               {text(keys::kPortName), integer(keys::kBaudRate, ProfileSchema::kDefaultBaudRate)}),
        deviceConnection(keys::kWheelBase),
        deviceConnection(keys::kPedals),
        deviceConnection(keys::kShifter),
    };

    Schema led = {
        integer(keys::kLedCount, 8),
        integer(keys::kBrightness, 99),
        integer(keys::kActivePercentage, 100),
        boolean(keys::kPowerOn, true),
        integer(keys::kPowerButtonIndex, -1),
        // "per_led", "range"; anything else shows the global colour.
        text(keys::kMode, "global"_L1),
        integer(keys::kSelectedLedIndex, 0),
        colour(keys::kGlobalColor, 255, 255, 255),
        list(keys::kLedColors, element({integer(keys::kIndex, 0), colour(keys::kColor, 255, 255, 255)})),
        integer(keys::kSelectedZoneIndex, 0),
        list(keys::kRangeZones, element({integer(keys::kStartPercent, 0), integer(keys::kEndPercent, 100),
                                         colour(keys::kColor, 255, 255, 255)})),
    };

    Schema helicopter = {
        object(keys::kInputs,
               {
                   helicopterDevice(keys::kJoystick, {integer(keys::kXAxis, 0), integer(keys::kYAxis, 1)}),
                   helicopterDevice(keys::kThrottle, {integer(keys::kAxis, 2)}),
                   helicopterDevice(keys::kPedals, {integer(keys::kAxis, 3), integer(keys::kAxis2, -1),
                                                    boolean(keys::kDifferential, false)}),
               }),
        object(keys::kCalibration, {calibrationPoints(keys::kRoll), calibrationPoints(keys::kPitch),
                                    calibrationPoints(keys::kThrottle), calibrationPoints(keys::kRudder)}),
        object(keys::kChannels, {integer(keys::kRoll, 0), integer(keys::kPitch, 1),
                                 integer(keys::kThrottle, 2), integer(keys::kRudder, 3)}),
        object(keys::kFly, {boolean(keys::kArmAtIdle, true), boolean(keys::kSoftStart, false),
                            integer(keys::kSoftStartSec, 3)}),
        object(keys::kArm, {boolean(keys::kEnabled, false), integer(keys::kChannel, 4),
                            integer(keys::kOnUs, 2012), integer(keys::kOffUs, 988)}),
        object(keys::kDualRates,
               {boolean(keys::kEnabled, true), integer(keys::kBeginnerPct, 60), integer(keys::kSportPct, 80),
                integer(keys::kThreeDPct, 100), integer(keys::kActiveMode, 0)}),
        curve(keys::kPitchCurve),
        curve(keys::kThrottleCurve),
        integer(keys::kMotorChannel, 5),
        object(keys::kAttitude, {boolean(keys::kInvertPitch, false), boolean(keys::kInvertRoll, false),
                                 boolean(keys::kInvertYaw, false)}),
    };

    Schema receiverSettings = {
        boolean(keys::kInitialized, false), boolean("gpsEnabled"_L1, true),
        integer("gpsRateHz"_L1, 0),         boolean("gpsTelem"_L1, true),
        boolean("imuTelem"_L1, true),       boolean("motionTelem"_L1, true),
        integer("motionRateHz"_L1, 20),     boolean("osdEnabled"_L1, false),
        boolean("motionSensors"_L1, false),
    };

    Schema receiverCaps = {
        boolean(keys::kImu, false),
        boolean(keys::kGps, false),
        text(keys::kFirmware),
        integer("osdOnBoard"_L1, -1),
    };

    return {
        text(keys::kId),
        text(keys::kName),
        fixedInteger(keys::kVersion, ProfileSchema::kProfileVersion),
        text(keys::kVehicleType, vehicletype::kCar),
        text(keys::kCreatedAt),
        text(keys::kModifiedAt),
        object(keys::kAxisSettings, std::move(drive)),
        list(keys::kButtonMappings, std::move(buttonMapping)),
        object(keys::kDeviceConnections, std::move(devices)),
        object(keys::kLedSettings, std::move(led)),
        boolean(keys::kAutoStartEnabled, false),
        list(keys::kTelemetryDashboard, element(Kind::String, QString())),
        list(keys::kTelemetrySensors, element({text(keys::kSensorKey), text(keys::kSensorLabel)})),
        boolean(keys::kTelemetryDiscover, true),
        object(keys::kHelicopterConfig, std::move(helicopter)),
        object(keys::kReceiverSettings, std::move(receiverSettings)),
        object(keys::kReceiverCaps, std::move(receiverCaps)),
    };
}

// --- reading one value ---

std::optional<QJsonValue> readScalar(const QJsonValue &stored, Kind kind)
{
    switch (kind) {
    case Kind::Bool:
        if (stored.isBool())
            return stored;
        if (stored.isDouble())
            return QJsonValue(stored.toDouble() != 0.0);
        return std::nullopt;
    case Kind::Int: {
        if (!stored.isDouble())
            return std::nullopt;
        const double value = std::trunc(stored.toDouble());
        if (!std::isfinite(value) || value < std::numeric_limits<int>::min() ||
            value > std::numeric_limits<int>::max())
            return std::nullopt;
        return QJsonValue(static_cast<int>(value));
    }
    case Kind::Number:
        if (stored.isDouble() && std::isfinite(stored.toDouble()))
            return stored;
        return std::nullopt;
    case Kind::String:
        if (stored.isString())
            return stored;
        return std::nullopt;
    case Kind::Object:
    case Kind::Array:
        break;
    }
    return std::nullopt;
}

// One array element; nullopt when it cannot be read as its kind.
std::optional<QJsonValue> readElement(const QJsonValue &stored, const SchemaField &element)
{
    if (element.kind == Kind::Object) {
        if (!stored.isObject())
            return std::nullopt;
        return ProfileSchema::normalise(stored.toObject(), element.fields);
    }
    if (element.kind == Kind::Array)
        return ProfileSchema::normaliseValue(stored, element);
    return readScalar(stored, element.kind);
}

QJsonArray readArray(const QJsonValue &stored, const SchemaField &field)
{
    const QJsonArray defaults = field.defaultValue.toArray();
    const QJsonArray source = stored.isArray() ? stored.toArray() : defaults;
    QJsonArray result;
    if (field.fixedLength < 0) {
        for (const QJsonValue &entry : source) {
            if (auto value = readElement(entry, *field.element))
                result.append(*value);
        }
        return result;
    }
    for (int i = 0; i < field.fixedLength; ++i) {
        const QJsonValue fallback = i < defaults.size() ? defaults.at(i) : field.element->defaultValue;
        const auto value = i < source.size() ? readElement(source.at(i), *field.element) : std::nullopt;
        result.append(value ? *value : fallback);
    }
    return result;
}

} // namespace

const Schema &ProfileSchema::profileFields()
{
    static const Schema kFields = buildProfileFields();
    return kFields;
}

const Schema &ProfileSchema::escPresetFields()
{
    static const Schema kFields = {
        text(keys::kId),
        text(keys::kName),
        integer(keys::kNeutral, crsf::kServoCenter),
        integer(keys::kFullForward, crsf::kServoMax),
        integer(keys::kFullReverse, crsf::kServoMin),
    };
    return kFields;
}

QJsonObject ProfileSchema::normalise(const QJsonObject &stored, const Schema &fields)
{
    QJsonObject result = stored;
    for (const SchemaField &field : fields)
        result.insert(field.key, normaliseValue(stored.value(field.key), field));
    return result;
}

QJsonValue ProfileSchema::normaliseValue(const QJsonValue &stored, const SchemaField &field)
{
    if (field.fixed)
        return field.defaultValue;
    switch (field.kind) {
    case Kind::Object:
        return normalise(stored.isObject() ? stored.toObject() : field.defaultValue.toObject(), field.fields);
    case Kind::Array:
        return readArray(stored, field);
    default:
        return readScalar(stored, field.kind).value_or(field.defaultValue);
    }
}

QJsonObject ProfileSchema::readProfile(const QJsonObject &stored, QStringList *appliedMigrations)
{
    QJsonObject profile = normalise(stored, profileFields());
    const QStringList applied = ProfileMigrations::apply(profile);
    if (appliedMigrations)
        *appliedMigrations = applied;
    return profile;
}

QJsonObject ProfileSchema::defaultProfile(const QString &id, const QString &name, const QString &timestamp)
{
    return normalise(QJsonObject{{keys::kId, id},
                                 {keys::kName, name},
                                 {keys::kCreatedAt, timestamp},
                                 {keys::kModifiedAt, timestamp}},
                     profileFields());
}

const SchemaField *ProfileSchema::profileField(const QString &key)
{
    for (const SchemaField &field : profileFields()) {
        if (field.key == key)
            return &field;
    }
    return nullptr;
}

bool ProfileSchema::isEditableSetting(const QString &key)
{
    static const QLatin1String kKeptByStore[] = {keys::kId, keys::kName, keys::kVersion, keys::kCreatedAt,
                                                 keys::kModifiedAt};
    for (QLatin1String kept : kKeptByStore) {
        if (key == kept)
            return false;
    }
    return profileField(key) != nullptr;
}

QByteArray ProfileSchema::toFileBytes(const QJsonObject &object)
{
    return QJsonDocument(object).toJson(QJsonDocument::Indented);
}

QString ProfileSchema::newIdentifier()
{
    return QUuid::createUuid().toString(QUuid::WithoutBraces);
}

QString ProfileSchema::currentTimestamp()
{
    return QDateTime::currentDateTimeUtc().toString(Qt::ISODate);
}

} // namespace tavrix
