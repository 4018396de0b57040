#pragma once

#include <QLatin1String>

// JSON keys that code outside the key table reads or writes by name. The table in
// profileschema.cpp uses these same constants, so a key is spelled in one place.
namespace tavrix::profilekeys {

// Profile, top level.
inline constexpr QLatin1String kId{"id"};
inline constexpr QLatin1String kName{"name"};
inline constexpr QLatin1String kVersion{"version"};
inline constexpr QLatin1String kVehicleType{"vehicleType"};
inline constexpr QLatin1String kCreatedAt{"createdAt"};
inline constexpr QLatin1String kModifiedAt{"modifiedAt"};
inline constexpr QLatin1String kAxisSettings{"axisSettings"};
inline constexpr QLatin1String kButtonMappings{"buttonMappings"};
inline constexpr QLatin1String kDeviceConnections{"deviceConnections"};
inline constexpr QLatin1String kLedSettings{"ledSettings"};
inline constexpr QLatin1String kAutoStartEnabled{"autoStartEnabled"};
inline constexpr QLatin1String kTelemetryDashboard{"telemetryDashboard"};
inline constexpr QLatin1String kTelemetrySensors{"telemetrySensors"};
inline constexpr QLatin1String kTelemetryDiscover{"telemetryDiscover"};
inline constexpr QLatin1String kHelicopterConfig{"helicopterConfig"};
inline constexpr QLatin1String kReceiverSettings{"receiverSettings"};
inline constexpr QLatin1String kReceiverCaps{"receiverCaps"};

// One entry of telemetrySensors.
inline constexpr QLatin1String kSensorKey{"key"};
inline constexpr QLatin1String kSensorLabel{"label"};

// Drive settings inside axisSettings.
inline constexpr QLatin1String kSteeringAxis{"Steering"};
inline constexpr QLatin1String kThrottleAxis{"Throttle"};
inline constexpr QLatin1String kBrakeAxis{"Brake"};
inline constexpr QLatin1String kClutchAxis{"Clutch"};
inline constexpr QLatin1String kEscMode{"escMode"};
inline constexpr QLatin1String kEscPresetId{"escPresetId"};
inline constexpr QLatin1String kEscNeutral{"escNeutral"};
inline constexpr QLatin1String kEscFullForward{"escFullForward"};
inline constexpr QLatin1String kEscFullReverse{"escFullReverse"};
inline constexpr QLatin1String kSteeringLeft{"steeringLeft"};
inline constexpr QLatin1String kSteeringCenter{"steeringCenter"};
inline constexpr QLatin1String kSteeringRight{"steeringRight"};
inline constexpr QLatin1String kSmoothDeceleration{"smoothDeceleration"};
inline constexpr QLatin1String kDecelRate{"decelRate"};
inline constexpr QLatin1String kPitLimiterEnabled{"pitLimiterEnabled"};
inline constexpr QLatin1String kPitLimiterValue{"pitLimiterValue"};
inline constexpr QLatin1String kGearThrottleLimitEnabled{"gearThrottleLimitEnabled"};
inline constexpr QLatin1String kGearThrottleLimitPercent{"gearThrottleLimitPercent"};
inline constexpr QLatin1String kReverseEnabled{"reverseEnabled"};
inline constexpr QLatin1String kReverseButtonIndex{"reverseButtonIndex"};
inline constexpr QLatin1String kReverseMaxPercent{"reverseMaxPercent"};
inline constexpr QLatin1String kSoftStartEnabled{"softStartEnabled"};
inline constexpr QLatin1String kSoftStartDurationSec{"softStartDurationSec"};
inline constexpr QLatin1String kSoftStartFloorPercent{"softStartFloorPercent"};
inline constexpr QLatin1String kStuckThrottleDetectionEnabled{"stuckThrottleDetectionEnabled"};
inline constexpr QLatin1String kThrottleSpikeRejectionEnabled{"throttleSpikeRejectionEnabled"};

// One of the four axis-settings objects ("Steering", ...; its name is kName). The
// input library's AxisSettings reads and writes the same names without this table.
inline constexpr QLatin1String kInverted{"inverted"};
inline constexpr QLatin1String kDeadzone{"deadzone"};
inline constexpr QLatin1String kMinOutput{"minOutput"};
inline constexpr QLatin1String kMaxOutput{"maxOutput"};
inline constexpr QLatin1String kCurve{"curve"};
inline constexpr QLatin1String kCurveExponent{"curveExponent"};
inline constexpr QLatin1String kExpo{"expo"};
inline constexpr QLatin1String kInputMin{"inputMin"};
inline constexpr QLatin1String kInputMax{"inputMax"};
inline constexpr QLatin1String kInputCenter{"inputCenter"};
inline constexpr QLatin1String kUseCalibration{"useCalibration"};

// One entry of buttonMappings (its name is kName).
inline constexpr QLatin1String kButtonIndex{"buttonIndex"};
inline constexpr QLatin1String kExtraButtons{"extraButtons"};
inline constexpr QLatin1String kChannel{"channel"};
inline constexpr QLatin1String kMode{"mode"};
inline constexpr QLatin1String kOutputValue{"outputValue"};
inline constexpr QLatin1String kRateUnitsPerSec{"rateUnitsPerSec"};
inline constexpr QLatin1String kMinValue{"minValue"};
inline constexpr QLatin1String kMaxValue{"maxValue"};
inline constexpr QLatin1String kStartValue{"startValue"};
inline constexpr QLatin1String kActivatesPitLimiter{"activatesPitLimiter"};

// ledSettings (its mode is kMode).
inline constexpr QLatin1String kLedCount{"ledCount"};
inline constexpr QLatin1String kBrightness{"brightness"};
inline constexpr QLatin1String kActivePercentage{"activePercentage"};
inline constexpr QLatin1String kPowerOn{"powerOn"};
inline constexpr QLatin1String kPowerButtonIndex{"powerButtonIndex"};
inline constexpr QLatin1String kSelectedLedIndex{"selectedLedIndex"};
inline constexpr QLatin1String kGlobalColor{"globalColor"};
inline constexpr QLatin1String kLedColors{"ledColors"};
inline constexpr QLatin1String kSelectedZoneIndex{"selectedZoneIndex"};
inline constexpr QLatin1String kRangeZones{"rangeZones"};
// One entry of ledColors and of rangeZones, and a colour.
inline constexpr QLatin1String kIndex{"index"};
inline constexpr QLatin1String kColor{"color"};
inline constexpr QLatin1String kStartPercent{"startPercent"};
inline constexpr QLatin1String kEndPercent{"endPercent"};
inline constexpr QLatin1String kRed{"r"};
inline constexpr QLatin1String kGreen{"g"};
inline constexpr QLatin1String kBlue{"b"};

// helicopterConfig. The input devices are under kInputs; calibration and channels
// are both keyed by the functions kRoll, kPitch, kThrottle and kRudder.
inline constexpr QLatin1String kXAxis{"xAxis"};
inline constexpr QLatin1String kYAxis{"yAxis"};
inline constexpr QLatin1String kAxis{"axis"};
inline constexpr QLatin1String kAxis2{"axis2"};
inline constexpr QLatin1String kDifferential{"differential"};
inline constexpr QLatin1String kCalibration{"calibration"};
inline constexpr QLatin1String kChannels{"channels"};
inline constexpr QLatin1String kRoll{"roll"};
inline constexpr QLatin1String kPitch{"pitch"};
inline constexpr QLatin1String kRudder{"rudder"};
inline constexpr QLatin1String kMin{"min"};
inline constexpr QLatin1String kCenter{"center"};
inline constexpr QLatin1String kMax{"max"};
inline constexpr QLatin1String kFly{"fly"};
inline constexpr QLatin1String kArmAtIdle{"armAtIdle"};
inline constexpr QLatin1String kSoftStart{"softStart"};
inline constexpr QLatin1String kSoftStartSec{"softStartSec"};
inline constexpr QLatin1String kArm{"arm"};
inline constexpr QLatin1String kEnabled{"enabled"};
inline constexpr QLatin1String kOnUs{"onUs"};
inline constexpr QLatin1String kOffUs{"offUs"};
inline constexpr QLatin1String kDualRates{"dualRates"};
inline constexpr QLatin1String kBeginnerPct{"beginnerPct"};
inline constexpr QLatin1String kSportPct{"sportPct"};
inline constexpr QLatin1String kThreeDPct{"threeDPct"};
inline constexpr QLatin1String kActiveMode{"activeMode"};
inline constexpr QLatin1String kPitchCurve{"pitchCurve"};
inline constexpr QLatin1String kThrottleCurve{"throttleCurve"};
inline constexpr QLatin1String kPoints{"points"};
inline constexpr QLatin1String kMotorChannel{"motorChannel"};
inline constexpr QLatin1String kAttitude{"attitude"};
inline constexpr QLatin1String kInvertPitch{"invertPitch"};
inline constexpr QLatin1String kInvertRoll{"invertRoll"};
inline constexpr QLatin1String kInvertYaw{"invertYaw"};

// receiverSettings: the receiver's own settings are named in receiver::kSettings.
inline constexpr QLatin1String kInitialized{"initialized"};

// receiverCaps.
inline constexpr QLatin1String kFirmware{"firmware"};
inline constexpr QLatin1String kGps{"gps"};
inline constexpr QLatin1String kImu{"imu"};

// deviceConnections and the helicopter's input devices.
inline constexpr QLatin1String kBridge{"bridge"};
// The car receiver's own USB console port, remembered like the bridge's.
inline constexpr QLatin1String kReceiver{"receiver"};
inline constexpr QLatin1String kPortName{"portName"};
inline constexpr QLatin1String kBaudRate{"baudRate"};
inline constexpr QLatin1String kWheelBase{"wheelBase"};
inline constexpr QLatin1String kPedals{"pedals"};
inline constexpr QLatin1String kShifter{"shifter"};
inline constexpr QLatin1String kInputs{"inputs"};
inline constexpr QLatin1String kJoystick{"joystick"};
inline constexpr QLatin1String kThrottle{"throttle"};
inline constexpr QLatin1String kProductName{"productName"};
inline constexpr QLatin1String kInstanceGuid{"instanceGuid"};
inline constexpr QLatin1String kDevicePath{"devicePath"};
inline constexpr QLatin1String kUniqId{"uniqId"};
inline constexpr QLatin1String kVendorId{"vendorId"};
inline constexpr QLatin1String kProductId{"productId"};
// A wheel base, pedals or shifter: which input selects which gear (a list under kButtonIndex).
inline constexpr QLatin1String kShifterMapping{"shifterMapping"};
// Set once the user has mapped the gears by hand.
inline constexpr QLatin1String kHasCustomShifterMapping{"hasCustomShifterMapping"};

// config.json.
inline constexpr QLatin1String kLastActiveProfileId{"lastActiveProfileId"};
inline constexpr QLatin1String kLastActiveByType{"lastActiveByType"};

// esc_presets.json.
inline constexpr QLatin1String kPresets{"presets"};
inline constexpr QLatin1String kNeutral{"neutral"};
inline constexpr QLatin1String kFullForward{"fullForward"};
inline constexpr QLatin1String kFullReverse{"fullReverse"};

} // namespace tavrix::profilekeys

namespace tavrix::vehicletype {
inline constexpr QLatin1String kCar{"rc_car"};
inline constexpr QLatin1String kHelicopter{"rc_helicopter"};
} // namespace tavrix::vehicletype
