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

// Drive settings inside axisSettings.
inline constexpr QLatin1String kEscMode{"escMode"};
inline constexpr QLatin1String kEscPresetId{"escPresetId"};
inline constexpr QLatin1String kEscNeutral{"escNeutral"};
inline constexpr QLatin1String kEscFullForward{"escFullForward"};
inline constexpr QLatin1String kEscFullReverse{"escFullReverse"};

// deviceConnections and the helicopter's input devices.
inline constexpr QLatin1String kBridge{"bridge"};
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
