#include "profilesettings.h"

#include "crsftypes.h"
#include "inputsource.h"
#include "ledstripsettings.h"
#include "profilekeys.h"
#include "profileschema.h"

#include <QJsonArray>
#include <QJsonValue>
#include <QRegularExpression>

#include <algorithm>

namespace tavrix {

namespace {

namespace keys = profilekeys;

// The readers below take objects the profile key table has completed: every key is
// there with a value of its kind, so none of them needs a default of its own.

int32_t intAt(const QJsonObject &object, QLatin1String key)
{
    return object.value(key).toInt();
}

bool boolAt(const QJsonObject &object, QLatin1String key)
{
    return object.value(key).toBool();
}

float floatAt(const QJsonObject &object, QLatin1String key)
{
    return float(object.value(key).toDouble());
}

QJsonObject objectAt(const QJsonObject &object, QLatin1String key)
{
    return object.value(key).toObject();
}

// A top-level section of a profile as the key table completes it.
QJsonObject completedSection(const QJsonObject &section, QLatin1String key)
{
    return ProfileSchema::normaliseValue(section, *ProfileSchema::profileField(key)).toObject();
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

AxisSettings readAxis(const QJsonObject &axisSettings, QLatin1String name)
{
    return AxisSettings::fromJson(objectAt(axisSettings, name), name);
}

DriveSettings readDrive(const QJsonObject &axis)
{
    DriveSettings s;
    s.escMode = escModeFromStored(intAt(axis, keys::kEscMode));
    s.escNeutral = intAt(axis, keys::kEscNeutral);
    s.escFullForward = intAt(axis, keys::kEscFullForward);
    s.escFullReverse = intAt(axis, keys::kEscFullReverse);
    s.steeringLeft = intAt(axis, keys::kSteeringLeft);
    s.steeringCenter = intAt(axis, keys::kSteeringCenter);
    s.steeringRight = intAt(axis, keys::kSteeringRight);

    const AxisSettings steering = readAxis(axis, keys::kSteeringAxis);
    s.steeringCalibration.useCalibration = steering.useCalibration;
    s.steeringCalibration.inputMin = steering.inputMin;
    s.steeringCalibration.inputCenter = steering.inputCenter;
    s.steeringCalibration.inputMax = steering.inputMax;
    s.steeringCalibration.inverted = steering.inverted;

    s.smoothDeceleration = boolAt(axis, keys::kSmoothDeceleration);
    s.decelRate = intAt(axis, keys::kDecelRate);
    s.pitLimiterEnabled = boolAt(axis, keys::kPitLimiterEnabled);
    s.pitLimiterValue = intAt(axis, keys::kPitLimiterValue);
    s.gearThrottleLimitEnabled = boolAt(axis, keys::kGearThrottleLimitEnabled);
    const QJsonArray limits = axis.value(keys::kGearThrottleLimitPercent).toArray();
    for (int gear = 0; gear < DriveSettings::kGears && gear < limits.size(); ++gear)
        s.gearThrottleLimitPercent[gear] = limits.at(gear).toInt();
    s.reverseEnabled = boolAt(axis, keys::kReverseEnabled);
    s.reverseButtonIndex = intAt(axis, keys::kReverseButtonIndex);
    s.reverseMaxPercent = intAt(axis, keys::kReverseMaxPercent);
    s.softStartEnabled = boolAt(axis, keys::kSoftStartEnabled);
    s.softStartDurationSec = intAt(axis, keys::kSoftStartDurationSec);
    s.softStartFloorPercent = intAt(axis, keys::kSoftStartFloorPercent);
    s.stuckThrottleDetectionEnabled = boolAt(axis, keys::kStuckThrottleDetectionEnabled);
    s.throttleSpikeRejectionEnabled = boolAt(axis, keys::kThrottleSpikeRejectionEnabled);
    return s;
}

DriveAxes readDriveAxes(const QJsonObject &axis)
{
    return {readAxis(axis, keys::kSteeringAxis), readAxis(axis, keys::kThrottleAxis),
            readAxis(axis, keys::kBrakeAxis), readAxis(axis, keys::kClutchAxis)};
}

ButtonMapping readButtonMapping(const QJsonObject &o)
{
    ButtonMapping m;
    m.name = o.value(keys::kName).toString();
    m.buttonIndex = intAt(o, keys::kButtonIndex);
    for (const QJsonValue &extra : o.value(keys::kExtraButtons).toArray())
        m.extraButtons.append(extra.toInt());
    m.channel = intAt(o, keys::kChannel);
    m.mode = behaviourFromStored(intAt(o, keys::kMode));
    m.outputValue = intAt(o, keys::kOutputValue);
    m.rateUnitsPerSec = intAt(o, keys::kRateUnitsPerSec);
    m.minValue = intAt(o, keys::kMinValue);
    m.maxValue = intAt(o, keys::kMaxValue);
    m.startValue = intAt(o, keys::kStartValue);
    m.activatesPitLimiter = boolAt(o, keys::kActivatesPitLimiter);
    return m;
}

AxisCalibration readCalibration(const QJsonObject &object)
{
    return {floatAt(object, keys::kMin), floatAt(object, keys::kCenter), floatAt(object, keys::kMax)};
}

HelicopterCurve readCurve(const QJsonObject &object)
{
    HelicopterCurve curve;
    curve.enabled = boolAt(object, keys::kEnabled);
    curve.points.clear();
    for (const QJsonValue &point : object.value(keys::kPoints).toArray())
        curve.points.append(point.toDouble());
    return curve;
}

HelicopterSettings readHelicopter(const QJsonObject &config)
{
    HelicopterSettings h;
    const QJsonObject inputs = objectAt(config, keys::kInputs);
    const QJsonObject joystick = objectAt(inputs, keys::kJoystick);
    h.inputs.joystick.xAxis = intAt(joystick, keys::kXAxis);
    h.inputs.joystick.yAxis = intAt(joystick, keys::kYAxis);
    h.inputs.throttle.axis = intAt(objectAt(inputs, keys::kThrottle), keys::kAxis);
    const QJsonObject pedals = objectAt(inputs, keys::kPedals);
    h.inputs.pedals.axis = intAt(pedals, keys::kAxis);
    h.inputs.pedals.axis2 = intAt(pedals, keys::kAxis2);
    h.inputs.pedals.differential = boolAt(pedals, keys::kDifferential);

    const QJsonObject calibration = objectAt(config, keys::kCalibration);
    h.calibration.roll = readCalibration(objectAt(calibration, keys::kRoll));
    h.calibration.pitch = readCalibration(objectAt(calibration, keys::kPitch));
    h.calibration.throttle = readCalibration(objectAt(calibration, keys::kThrottle));
    h.calibration.rudder = readCalibration(objectAt(calibration, keys::kRudder));

    const QJsonObject channels = objectAt(config, keys::kChannels);
    h.channels.roll = intAt(channels, keys::kRoll);
    h.channels.pitch = intAt(channels, keys::kPitch);
    h.channels.throttle = intAt(channels, keys::kThrottle);
    h.channels.rudder = intAt(channels, keys::kRudder);

    const QJsonObject fly = objectAt(config, keys::kFly);
    h.fly.armAtIdle = boolAt(fly, keys::kArmAtIdle);
    h.fly.softStart = boolAt(fly, keys::kSoftStart);
    h.fly.softStartSec = intAt(fly, keys::kSoftStartSec);

    const QJsonObject arm = objectAt(config, keys::kArm);
    h.arm.enabled = boolAt(arm, keys::kEnabled);
    h.arm.channel = intAt(arm, keys::kChannel);
    h.arm.onUs = intAt(arm, keys::kOnUs);
    h.arm.offUs = intAt(arm, keys::kOffUs);

    const QJsonObject rates = objectAt(config, keys::kDualRates);
    h.dualRates.enabled = boolAt(rates, keys::kEnabled);
    h.dualRates.beginnerPct = intAt(rates, keys::kBeginnerPct);
    h.dualRates.sportPct = intAt(rates, keys::kSportPct);
    h.dualRates.threeDPct = intAt(rates, keys::kThreeDPct);
    h.dualRates.activeMode = intAt(rates, keys::kActiveMode);

    h.pitchCurve = readCurve(objectAt(config, keys::kPitchCurve));
    h.throttleCurve = readCurve(objectAt(config, keys::kThrottleCurve));
    h.motorChannel = intAt(config, keys::kMotorChannel);

    const QJsonObject attitude = objectAt(config, keys::kAttitude);
    h.attitude.invertPitch = boolAt(attitude, keys::kInvertPitch);
    h.attitude.invertRoll = boolAt(attitude, keys::kInvertRoll);
    h.attitude.invertYaw = boolAt(attitude, keys::kInvertYaw);
    return h;
}

// Read through the LED editor's own value, so the loop sees the same clamped numbers.
LedSettings readLed(const QJsonObject &o)
{
    const LedStripSettings strip = LedStripSettings::fromJson(o);
    LedSettings led;
    led.ledCount = strip.ledCount();
    led.brightness = strip.brightness();
    led.activePercentage = strip.activePercentage();
    led.powerOn = strip.powerOn();
    led.powerButtonIndex = strip.powerButtonIndex();
    return led;
}

ShifterMapping readShifterMapping(const QJsonObject &connection)
{
    ShifterMapping mapping;
    const QJsonArray indexes =
        objectAt(connection, keys::kShifterMapping).value(keys::kButtonIndex).toArray();
    for (int slot = 0; slot < ShifterMapping::kSlots && slot < indexes.size(); ++slot)
        mapping.buttonIndex[slot] = indexes.at(slot).toInt();
    return mapping;
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

bool ShifterMapping::hasForwardGear() const
{
    return std::any_of(buttonIndex.begin() + kFirstGearSlot, buttonIndex.end(),
                       [](int32_t input) { return input >= 0; });
}

VehicleType vehicleTypeFromName(const QString &vehicleType)
{
    return vehicleType == vehicletype::kHelicopter ? VehicleType::Helicopter : VehicleType::Car;
}

HelicopterSettings helicopterSettingsFromJson(const QJsonObject &helicopterConfig)
{
    return readHelicopter(completedSection(helicopterConfig, keys::kHelicopterConfig));
}

namespace {

QJsonObject calibrationJson(const AxisCalibration &c)
{
    return {{keys::kMin, double(c.min)}, {keys::kCenter, double(c.center)}, {keys::kMax, double(c.max)}};
}

QJsonObject curveJson(const HelicopterCurve &curve)
{
    QJsonArray points;
    for (double point : curve.points)
        points.append(point);
    return {{keys::kEnabled, curve.enabled}, {keys::kPoints, points}};
}

} // namespace

QJsonObject helicopterConfigToJson(const HelicopterSettings &h)
{
    const HelicopterSettings::Inputs &in = h.inputs;
    const QJsonObject inputs{
        {keys::kJoystick, QJsonObject{{keys::kXAxis, in.joystick.xAxis}, {keys::kYAxis, in.joystick.yAxis}}},
        {keys::kThrottle, QJsonObject{{keys::kAxis, in.throttle.axis}}},
        {keys::kPedals, QJsonObject{{keys::kAxis, in.pedals.axis},
                                    {keys::kAxis2, in.pedals.axis2},
                                    {keys::kDifferential, in.pedals.differential}}},
    };
    const QJsonObject calibration{
        {keys::kRoll, calibrationJson(h.calibration.roll)},
        {keys::kPitch, calibrationJson(h.calibration.pitch)},
        {keys::kThrottle, calibrationJson(h.calibration.throttle)},
        {keys::kRudder, calibrationJson(h.calibration.rudder)},
    };
    return {
        {keys::kInputs, inputs},
        {keys::kCalibration, calibration},
        {keys::kChannels, QJsonObject{{keys::kRoll, h.channels.roll},
                                      {keys::kPitch, h.channels.pitch},
                                      {keys::kThrottle, h.channels.throttle},
                                      {keys::kRudder, h.channels.rudder}}},
        {keys::kFly, QJsonObject{{keys::kArmAtIdle, h.fly.armAtIdle},
                                 {keys::kSoftStart, h.fly.softStart},
                                 {keys::kSoftStartSec, h.fly.softStartSec}}},
        {keys::kArm, QJsonObject{{keys::kEnabled, h.arm.enabled},
                                 {keys::kChannel, h.arm.channel},
                                 {keys::kOnUs, h.arm.onUs},
                                 {keys::kOffUs, h.arm.offUs}}},
        {keys::kDualRates, QJsonObject{{keys::kEnabled, h.dualRates.enabled},
                                       {keys::kBeginnerPct, h.dualRates.beginnerPct},
                                       {keys::kSportPct, h.dualRates.sportPct},
                                       {keys::kThreeDPct, h.dualRates.threeDPct},
                                       {keys::kActiveMode, h.dualRates.activeMode}}},
        {keys::kPitchCurve, curveJson(h.pitchCurve)},
        {keys::kThrottleCurve, curveJson(h.throttleCurve)},
        {keys::kMotorChannel, h.motorChannel},
        {keys::kAttitude, QJsonObject{{keys::kInvertPitch, h.attitude.invertPitch},
                                      {keys::kInvertRoll, h.attitude.invertRoll},
                                      {keys::kInvertYaw, h.attitude.invertYaw}}},
    };
}

LedSettings ledSettingsFromJson(const QJsonObject &ledSettings)
{
    return readLed(ledSettings);
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
    ledSettings.insert(keys::kPowerOn, powerOn);
    return ledSettings;
}

QJsonObject helicopterConfigWithRateMode(QJsonObject config, int32_t mode)
{
    QJsonObject rates = objectAt(config, keys::kDualRates);
    rates.insert(keys::kActiveMode, mode);
    config.insert(keys::kDualRates, rates);
    return config;
}

ProfileSettings ProfileSettings::fromProfile(const QJsonObject &stored)
{
    // The store hands over completed profiles already. Completing again costs little
    // outside the tick, and anything else, such as the empty object of a store that has
    // not loaded yet, then reads as a default profile rather than as zeros.
    const QJsonObject profile = ProfileSchema::normalise(stored, ProfileSchema::profileFields());
    ProfileSettings s;
    s.vehicleType = vehicleTypeFromName(profile.value(keys::kVehicleType).toString());
    const QJsonObject axis = objectAt(profile, keys::kAxisSettings);
    s.drive = readDrive(axis);
    s.axes = readDriveAxes(axis);
    s.buttonMappings = buttonMappingsFromJson(profile.value(keys::kButtonMappings).toArray());
    s.helicopter = readHelicopter(objectAt(profile, keys::kHelicopterConfig));
    s.led = readLed(objectAt(profile, keys::kLedSettings));
    s.shifter = readShifterMapping(objectAt(objectAt(profile, keys::kDeviceConnections), keys::kShifter));
    s.receiverGeneration = receiverGenerationFromFirmware(
        objectAt(profile, keys::kReceiverCaps).value(keys::kFirmware).toString());
    return s;
}

ButtonMappingList buttonMappingsFromJson(const QJsonArray &mappings)
{
    // Completed by the key table first, so a mapping sent without some keys reads them as
    // a profile file without them does.
    const QJsonArray completed =
        ProfileSchema::normaliseValue(mappings, *ProfileSchema::profileField(keys::kButtonMappings))
            .toArray();
    ButtonMappingList list;
    for (const QJsonValue &entry : completed)
        list.append(readButtonMapping(entry.toObject()));
    return list;
}

QJsonArray buttonMappingsToJson(const ButtonMappingList &mappings)
{
    QJsonArray array;
    for (const ButtonMapping &m : mappings) {
        QJsonArray extra;
        for (int32_t source : m.extraButtons)
            extra.append(source);
        array.append(QJsonObject{{keys::kName, m.name},
                                 {keys::kButtonIndex, m.buttonIndex},
                                 {keys::kExtraButtons, extra},
                                 {keys::kChannel, m.channel},
                                 {keys::kMode, int(m.mode)},
                                 {keys::kOutputValue, m.outputValue},
                                 {keys::kRateUnitsPerSec, m.rateUnitsPerSec},
                                 {keys::kMinValue, m.minValue},
                                 {keys::kMaxValue, m.maxValue},
                                 {keys::kStartValue, m.startValue},
                                 {keys::kActivatesPitLimiter, m.activatesPitLimiter}});
    }
    return array;
}

} // namespace tavrix
