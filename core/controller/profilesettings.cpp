#include "profilesettings.h"

#include "crsftypes.h"
#include "inputsource.h"
#include "profilekeys.h"

#include <QJsonArray>
#include <QJsonValue>
#include <QRegularExpression>

namespace tavrix {

namespace {

int32_t intOf(const QJsonObject &object, QLatin1String key, int32_t fallback)
{
    const QJsonValue value = object.value(key);
    return value.isDouble() ? int32_t(value.toDouble()) : fallback;
}

bool boolOf(const QJsonObject &object, QLatin1String key, bool fallback)
{
    const QJsonValue value = object.value(key);
    return value.isBool() ? value.toBool() : fallback;
}

float floatOf(const QJsonObject &object, QLatin1String key, float fallback)
{
    const QJsonValue value = object.value(key);
    return value.isDouble() ? float(value.toDouble()) : fallback;
}

QJsonObject objectOf(const QJsonObject &object, QLatin1String key)
{
    return object.value(key).toObject();
}

AxisCalibration calibrationFromJson(const QJsonObject &object)
{
    AxisCalibration calibration;
    calibration.min = floatOf(object, QLatin1String("min"), calibration.min);
    calibration.center = floatOf(object, QLatin1String("center"), calibration.center);
    calibration.max = floatOf(object, QLatin1String("max"), calibration.max);
    return calibration;
}

HelicopterCurve curveFromJson(const QJsonObject &object)
{
    HelicopterCurve curve;
    curve.enabled = boolOf(object, QLatin1String("enabled"), false);
    for (const QJsonValue &point : object.value(QLatin1String("points")).toArray()) {
        if (point.isDouble())
            curve.points.append(point.toDouble());
    }
    return curve;
}

ButtonBehaviour behaviourFromStored(int32_t mode)
{
    switch (mode) {
    case int32_t(ButtonBehaviour::HoldToRaise):
        return ButtonBehaviour::HoldToRaise;
    case int32_t(ButtonBehaviour::HoldToLower):
        return ButtonBehaviour::HoldToLower;
    case int32_t(ButtonBehaviour::Toggle):
        return ButtonBehaviour::Toggle;
    case int32_t(ButtonBehaviour::SwitchPosition):
        return ButtonBehaviour::SwitchPosition;
    default:
        return ButtonBehaviour::Momentary;
    }
}

} // namespace

int32_t ShifterMapping::gear(const ButtonSource &shifter) const
{
    if (shifter.isPressed(buttonIndex[kReverseSlot]))
        return -1;
    for (int slot = kFirstGearSlot; slot < kSlots; ++slot) {
        if (shifter.isPressed(buttonIndex[slot]))
            return slot - kFirstGearSlot + 1;
    }
    return 0;
}

VehicleType vehicleTypeFromName(const QString &vehicleType)
{
    return vehicleType == vehicletype::kHelicopter ? VehicleType::Helicopter : VehicleType::Car;
}

DriveSettings driveSettingsFromJson(const QJsonObject &axis)
{
    DriveSettings s;
    s.escMode = escModeFromStored(intOf(axis, profilekeys::kEscMode, 0));
    s.escNeutral = intOf(axis, profilekeys::kEscNeutral, s.escNeutral);
    s.escFullForward = intOf(axis, profilekeys::kEscFullForward, s.escFullForward);
    s.escFullReverse = intOf(axis, profilekeys::kEscFullReverse, s.escFullReverse);
    s.steeringLeft = intOf(axis, QLatin1String("steeringLeft"), s.steeringLeft);
    s.steeringCenter = intOf(axis, QLatin1String("steeringCenter"), s.steeringCenter);
    s.steeringRight = intOf(axis, QLatin1String("steeringRight"), s.steeringRight);

    const AxisSettings steering =
        AxisSettings::fromJson(objectOf(axis, QLatin1String("Steering")), QStringLiteral("Steering"));
    s.steeringCalibration.useCalibration = steering.useCalibration;
    s.steeringCalibration.inputMin = steering.inputMin;
    s.steeringCalibration.inputCenter = steering.inputCenter;
    s.steeringCalibration.inputMax = steering.inputMax;
    s.steeringCalibration.inverted = steering.inverted;

    s.smoothDeceleration = boolOf(axis, QLatin1String("smoothDeceleration"), s.smoothDeceleration);
    s.decelRate = intOf(axis, QLatin1String("decelRate"), s.decelRate);
    s.pitLimiterEnabled = boolOf(axis, QLatin1String("pitLimiterEnabled"), s.pitLimiterEnabled);
    s.pitLimiterValue = intOf(axis, QLatin1String("pitLimiterValue"), s.pitLimiterValue);
    s.gearThrottleLimitEnabled =
        boolOf(axis, QLatin1String("gearThrottleLimitEnabled"), s.gearThrottleLimitEnabled);
    const QJsonArray limits = axis.value(QLatin1String("gearThrottleLimitPercent")).toArray();
    for (int gear = 0; gear < DriveSettings::kGears && gear < limits.size(); ++gear) {
        if (limits.at(gear).isDouble())
            s.gearThrottleLimitPercent[gear] = int32_t(limits.at(gear).toDouble());
    }
    s.reverseEnabled = boolOf(axis, QLatin1String("reverseEnabled"), s.reverseEnabled);
    s.reverseButtonIndex = intOf(axis, QLatin1String("reverseButtonIndex"), s.reverseButtonIndex);
    s.reverseMaxPercent = intOf(axis, QLatin1String("reverseMaxPercent"), s.reverseMaxPercent);
    s.softStartEnabled = boolOf(axis, QLatin1String("softStartEnabled"), s.softStartEnabled);
    s.softStartDurationSec = intOf(axis, QLatin1String("softStartDurationSec"), s.softStartDurationSec);
    s.softStartFloorPercent = intOf(axis, QLatin1String("softStartFloorPercent"), s.softStartFloorPercent);
    s.stuckThrottleDetectionEnabled =
        boolOf(axis, QLatin1String("stuckThrottleDetectionEnabled"), s.stuckThrottleDetectionEnabled);
    s.throttleSpikeRejectionEnabled =
        boolOf(axis, QLatin1String("throttleSpikeRejectionEnabled"), s.throttleSpikeRejectionEnabled);
    return s;
}

DriveAxes driveAxesFromJson(const QJsonObject &axis)
{
    const auto read = [&axis](const QString &name) {
        return AxisSettings::fromJson(axis.value(name).toObject(), name);
    };
    return {read(QStringLiteral("Steering")), read(QStringLiteral("Throttle")), read(QStringLiteral("Brake")),
            read(QStringLiteral("Clutch"))};
}

ButtonMapping buttonMappingFromJson(const QJsonObject &o)
{
    ButtonMapping m;
    m.name = o.value(QLatin1String("name")).toString();
    m.buttonIndex = intOf(o, QLatin1String("buttonIndex"), m.buttonIndex);
    for (const QJsonValue &extra : o.value(QLatin1String("extraButtons")).toArray()) {
        if (extra.isDouble())
            m.extraButtons.append(int32_t(extra.toDouble()));
    }
    m.channel = intOf(o, QLatin1String("channel"), m.channel);
    m.mode = behaviourFromStored(intOf(o, QLatin1String("mode"), 0));
    m.outputValue = intOf(o, QLatin1String("outputValue"), m.outputValue);
    m.rateUnitsPerSec = intOf(o, QLatin1String("rateUnitsPerSec"), m.rateUnitsPerSec);
    m.minValue = intOf(o, QLatin1String("minValue"), m.minValue);
    m.maxValue = intOf(o, QLatin1String("maxValue"), m.maxValue);
    m.startValue = intOf(o, QLatin1String("startValue"), m.startValue);
    m.activatesPitLimiter = boolOf(o, QLatin1String("activatesPitLimiter"), m.activatesPitLimiter);
    return m;
}

ButtonMappingList buttonMappingsFromJson(const QJsonArray &array)
{
    ButtonMappingList list;
    for (const QJsonValue &entry : array) {
        if (entry.isObject())
            list.append(buttonMappingFromJson(entry.toObject()));
    }
    return list;
}

HelicopterSettings helicopterSettingsFromJson(const QJsonObject &config)
{
    HelicopterSettings h;
    const QJsonObject inputs = objectOf(config, profilekeys::kInputs);
    const QJsonObject joystick = objectOf(inputs, profilekeys::kJoystick);
    h.inputs.joystick.xAxis = intOf(joystick, QLatin1String("xAxis"), h.inputs.joystick.xAxis);
    h.inputs.joystick.yAxis = intOf(joystick, QLatin1String("yAxis"), h.inputs.joystick.yAxis);
    const QJsonObject throttle = objectOf(inputs, profilekeys::kThrottle);
    h.inputs.throttle.axis = intOf(throttle, QLatin1String("axis"), h.inputs.throttle.axis);
    const QJsonObject pedals = objectOf(inputs, profilekeys::kPedals);
    h.inputs.pedals.axis = intOf(pedals, QLatin1String("axis"), h.inputs.pedals.axis);
    h.inputs.pedals.axis2 = intOf(pedals, QLatin1String("axis2"), h.inputs.pedals.axis2);
    h.inputs.pedals.differential =
        boolOf(pedals, QLatin1String("differential"), h.inputs.pedals.differential);

    const QJsonObject calibration = objectOf(config, QLatin1String("calibration"));
    h.calibration.roll = calibrationFromJson(objectOf(calibration, QLatin1String("roll")));
    h.calibration.pitch = calibrationFromJson(objectOf(calibration, QLatin1String("pitch")));
    h.calibration.throttle = calibrationFromJson(objectOf(calibration, QLatin1String("throttle")));
    h.calibration.rudder = calibrationFromJson(objectOf(calibration, QLatin1String("rudder")));

    const QJsonObject channels = objectOf(config, QLatin1String("channels"));
    h.channels.roll = intOf(channels, QLatin1String("roll"), h.channels.roll);
    h.channels.pitch = intOf(channels, QLatin1String("pitch"), h.channels.pitch);
    h.channels.throttle = intOf(channels, QLatin1String("throttle"), h.channels.throttle);
    h.channels.rudder = intOf(channels, QLatin1String("rudder"), h.channels.rudder);

    const QJsonObject fly = objectOf(config, QLatin1String("fly"));
    h.fly.armAtIdle = boolOf(fly, QLatin1String("armAtIdle"), h.fly.armAtIdle);
    h.fly.softStart = boolOf(fly, QLatin1String("softStart"), h.fly.softStart);
    h.fly.softStartSec = intOf(fly, QLatin1String("softStartSec"), h.fly.softStartSec);

    const QJsonObject arm = objectOf(config, QLatin1String("arm"));
    h.arm.enabled = boolOf(arm, QLatin1String("enabled"), h.arm.enabled);
    h.arm.channel = intOf(arm, QLatin1String("channel"), h.arm.channel);
    h.arm.onUs = intOf(arm, QLatin1String("onUs"), h.arm.onUs);
    h.arm.offUs = intOf(arm, QLatin1String("offUs"), h.arm.offUs);

    const QJsonObject rates = objectOf(config, QLatin1String("dualRates"));
    h.dualRates.enabled = boolOf(rates, QLatin1String("enabled"), h.dualRates.enabled);
    h.dualRates.beginnerPct = intOf(rates, QLatin1String("beginnerPct"), h.dualRates.beginnerPct);
    h.dualRates.sportPct = intOf(rates, QLatin1String("sportPct"), h.dualRates.sportPct);
    h.dualRates.threeDPct = intOf(rates, QLatin1String("threeDPct"), h.dualRates.threeDPct);
    h.dualRates.activeMode = intOf(rates, QLatin1String("activeMode"), h.dualRates.activeMode);

    h.pitchCurve = curveFromJson(objectOf(config, QLatin1String("pitchCurve")));
    h.throttleCurve = curveFromJson(objectOf(config, QLatin1String("throttleCurve")));
    h.motorChannel = intOf(config, QLatin1String("motorChannel"), h.motorChannel);

    const QJsonObject attitude = objectOf(config, QLatin1String("attitude"));
    h.attitude.invertPitch = boolOf(attitude, QLatin1String("invertPitch"), false);
    h.attitude.invertRoll = boolOf(attitude, QLatin1String("invertRoll"), false);
    h.attitude.invertYaw = boolOf(attitude, QLatin1String("invertYaw"), false);
    return h;
}

LedSettings ledSettingsFromJson(const QJsonObject &o)
{
    LedSettings led;
    led.ledCount = intOf(o, QLatin1String("ledCount"), led.ledCount);
    led.brightness = intOf(o, QLatin1String("brightness"), led.brightness);
    led.activePercentage = intOf(o, QLatin1String("activePercentage"), led.activePercentage);
    led.powerOn = boolOf(o, QLatin1String("powerOn"), led.powerOn);
    led.powerButtonIndex = intOf(o, QLatin1String("powerButtonIndex"), led.powerButtonIndex);
    return led;
}

ShifterMapping shifterMappingFromJson(const QJsonObject &connection)
{
    ShifterMapping mapping;
    const QJsonArray indexes =
        objectOf(connection, QLatin1String("shifterMapping")).value(QLatin1String("buttonIndex")).toArray();
    for (int slot = 0; slot < ShifterMapping::kSlots && slot < indexes.size(); ++slot) {
        if (indexes.at(slot).isDouble())
            mapping.buttonIndex[slot] = int32_t(indexes.at(slot).toDouble());
    }
    return mapping;
}

int receiverGenerationFromFirmware(const QString &firmware)
{
    // "4.1.2", "v3.5", "V4": the first run of digits is the major version.
    static const QRegularExpression major(QStringLiteral("^\\s*[vV]?(\\d+)"));
    const QRegularExpressionMatch match = major.match(firmware);
    if (!match.hasMatch())
        return crsf::kReceiverGenerationUnknown;
    bool ok = false;
    const int version = match.captured(1).toInt(&ok);
    if (!ok)
        return crsf::kReceiverGenerationUnknown;
    return version >= 4 ? crsf::kReceiverGenerationNewer : crsf::kReceiverGenerationClassic;
}

QJsonObject ledSettingsWithPower(QJsonObject ledSettings, bool powerOn)
{
    ledSettings.insert(QLatin1String("powerOn"), powerOn);
    return ledSettings;
}

QJsonObject helicopterConfigWithRateMode(QJsonObject config, int32_t mode)
{
    QJsonObject rates = config.value(QLatin1String("dualRates")).toObject();
    rates.insert(QLatin1String("activeMode"), mode);
    config.insert(QLatin1String("dualRates"), rates);
    return config;
}

ProfileSettings ProfileSettings::fromProfile(const QJsonObject &profile)
{
    ProfileSettings s;
    s.vehicleType = vehicleTypeFromName(profile.value(profilekeys::kVehicleType).toString());
    const QJsonObject axis = objectOf(profile, profilekeys::kAxisSettings);
    s.drive = driveSettingsFromJson(axis);
    s.axes = driveAxesFromJson(axis);
    s.buttonMappings = buttonMappingsFromJson(profile.value(profilekeys::kButtonMappings).toArray());
    s.helicopter = helicopterSettingsFromJson(objectOf(profile, profilekeys::kHelicopterConfig));
    s.led = ledSettingsFromJson(objectOf(profile, profilekeys::kLedSettings));
    s.shifter = shifterMappingFromJson(
        objectOf(objectOf(profile, profilekeys::kDeviceConnections), profilekeys::kShifter));
    s.receiverGeneration = receiverGenerationFromFirmware(
        objectOf(profile, profilekeys::kReceiverCaps).value(QLatin1String("firmware")).toString());
    return s;
}

} // namespace tavrix
