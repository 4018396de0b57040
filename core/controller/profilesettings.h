#pragma once

#include "axissettings.h"
#include "buttonmapping.h"
#include "controllertypes.h"
#include "drivesettings.h"
#include "helicoptersettings.h"
#include "profilekeys.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QString>

#include <array>
#include <cstdint>

namespace tavrix {

class ButtonSource;

// The LED strip settings the transmit loop needs (`ledSettings`); the rest of the
// object belongs to the LED editor and is written back untouched. The initial values
// are a default profile's, like those of the settings structs in core.
struct LedSettings
{
    int32_t ledCount = 8;
    int32_t brightness = 99;
    int32_t activePercentage = 100;
    bool powerOn = true;
    // Unified input index of the wheel button that flips the power; -1 for none.
    int32_t powerButtonIndex = -1;

    friend bool operator==(const LedSettings &, const LedSettings &) = default;
};

// The four driving inputs' axis settings (`axisSettings` "Steering", "Throttle", "Brake", "Clutch").
struct DriveAxes
{
    AxisSettings steering{.name = profilekeys::kSteeringAxis};
    AxisSettings throttle{.name = profilekeys::kThrottleAxis};
    AxisSettings brake{.name = profilekeys::kBrakeAxis};
    AxisSettings clutch{.name = profilekeys::kClutchAxis};

    friend bool operator==(const DriveAxes &, const DriveAxes &) = default;
};

// Which shifter input selects which gear (`shifterMapping.buttonIndex`): slot 0
// neutral, 1 reverse, 2..8 gears 1 to 7; -1 for an unassigned slot.
struct ShifterMapping
{
    static constexpr int kSlots = 9;
    static constexpr int kReverseSlot = 1;
    static constexpr int kFirstGearSlot = 2;
    std::array<int32_t, kSlots> buttonIndex{-1, -1, -1, -1, -1, -1, -1, -1, -1};

    // The engaged gear: -1 reverse, 1..7 forward, 0 when no gear input is pressed.
    [[nodiscard]] int32_t gear(const ButtonSource &shifter) const;
    // Whether any of gears 1 to 7 has an input; without one the shifter never reports a
    // forward gear, so per-gear limits hold the throttle at neutral.
    [[nodiscard]] bool hasForwardGear() const;
    // The slot that selects a gear as gear() reports it.
    [[nodiscard]] static constexpr int slotOfGear(int32_t gear)
    {
        return gear < 0 ? kReverseSlot : gear == 0 ? 0 : int(gear) + kFirstGearSlot - 1;
    }

    friend bool operator==(const ShifterMapping &, const ShifterMapping &) = default;
};

// Everything the controller reads from the active profile, in the computations' own types.
struct ProfileSettings
{
    VehicleType vehicleType = VehicleType::Car;
    DriveSettings drive;
    DriveAxes axes;
    ButtonMappingList buttonMappings;
    HelicopterSettings helicopter;
    LedSettings led;
    ShifterMapping shifter;
    // What the telemetry catalogue needs to read a 0x08 frame (crsf::kReceiverGeneration*).
    int receiverGeneration = 0;

    // Read through the profile key table: a missing or mistyped key reads as its default there.
    [[nodiscard]] static ProfileSettings fromProfile(const QJsonObject &profile);
};

[[nodiscard]] VehicleType vehicleTypeFromName(const QString &vehicleType);
// One section of the active profile (`helicopterConfig`, `ledSettings`), read like fromProfile().
[[nodiscard]] HelicopterSettings helicopterSettingsFromJson(const QJsonObject &helicopterConfig);
[[nodiscard]] LedSettings ledSettingsFromJson(const QJsonObject &ledSettings);
// `buttonMappings` both ways; a mapping missing keys reads them as the profile file does.
[[nodiscard]] ButtonMappingList buttonMappingsFromJson(const QJsonArray &mappings);
[[nodiscard]] QJsonArray buttonMappingsToJson(const ButtonMappingList &mappings);
// The helicopter settings back in their stored shape, every key helicopterSettingsFromJson()
// reads, for an editor to merge into the profile. The devices' identities are not settings
// and are left out.
[[nodiscard]] QJsonObject helicopterConfigToJson(const HelicopterSettings &settings);
// From `receiverCaps.firmware`: major version 4 or later is the newer generation, an
// older version the classic one, no readable version unknown (0).
[[nodiscard]] int receiverGenerationFromFirmware(const QString &firmware);

// The stored objects with one value changed, every other key kept as it was.
[[nodiscard]] QJsonObject ledSettingsWithPower(QJsonObject ledSettings, bool powerOn);
[[nodiscard]] QJsonObject helicopterConfigWithRateMode(QJsonObject helicopterConfig, int32_t mode);

} // namespace tavrix
