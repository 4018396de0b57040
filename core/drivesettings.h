#pragma once

#include "crsfchannels.h"

#include <QString>

#include <array>
#include <cstdint>

namespace tavrix {

// The three channel values an ESC is driven with; a standard ESC takes the servo span.
struct EscValues
{
    int32_t neutral = crsf::kServoCenter;
    int32_t fullForward = crsf::kServoMax;
    int32_t fullReverse = crsf::kServoMin;
};

// ESC mode as stored in a profile (`escMode`). Mode 1 was merged into the standard
// mode long ago; it still appears in old profiles and is read as Standard.
enum class EscMode : int32_t
{
    Standard = 0,
    Custom = 2,
};

// A stored escMode as it is to be used: 2 is Custom, anything else (1 included) Standard.
[[nodiscard]] EscMode escModeFromStored(int32_t stored);
// The name remote clients use: "standard" or "custom".
[[nodiscard]] QString escModeName(EscMode mode);
// Remote name to mode: exactly "custom" (case-sensitive) selects Custom, any other name Standard.
[[nodiscard]] EscMode escModeFromName(const QString &name);
// The name shown to the user.
[[nodiscard]] QString escModeDisplayName(EscMode mode);

// Steering axis calibration as far as the custom steering end points use it (the
// Steering axis settings' `useCalibration`, `inputMin`, `inputCenter`, `inputMax`, `inverted`).
struct SteeringCalibration
{
    bool useCalibration = false;
    float inputMin = -1.0f;
    float inputCenter = 0.0f;
    float inputMax = 1.0f;
    bool inverted = false;

    friend bool operator==(const SteeringCalibration &, const SteeringCalibration &) = default;
};

// The drive settings of a profile (`axisSettings` keys). A computation built without a
// profile starts from these values, so they are a default profile's: soft start and both
// throttle guards on. The profile key table decides them; the controller tests keep the two equal.
struct DriveSettings
{
    static constexpr int kGears = 7;

    EscMode escMode = EscMode::Standard;
    int32_t escNeutral = crsf::kServoCenter;
    int32_t escFullForward = crsf::kServoMax;
    int32_t escFullReverse = crsf::kServoMin;

    // The whole channel, left to right: steering that has not been given end points.
    int32_t steeringLeft = crsf::kChannelMin;
    int32_t steeringCenter = crsf::kChannelMid;
    int32_t steeringRight = crsf::kChannelMax;
    SteeringCalibration steeringCalibration;

    bool smoothDeceleration = false;
    int32_t decelRate = 20;

    bool pitLimiterEnabled = false;
    int32_t pitLimiterValue = 1200;

    bool gearThrottleLimitEnabled = false;
    std::array<int32_t, kGears> gearThrottleLimitPercent{100, 100, 100, 100, 100, 100, 100};

    bool reverseEnabled = false;
    int32_t reverseButtonIndex = -1;
    int32_t reverseMaxPercent = 100;

    bool softStartEnabled = true;
    int32_t softStartDurationSec = 30;
    int32_t softStartFloorPercent = 10;

    bool stuckThrottleDetectionEnabled = true;
    bool throttleSpikeRejectionEnabled = true;

    // The custom ESC values are used only in the custom mode; otherwise the servo span.
    [[nodiscard]] bool usesCustomEsc() const { return escMode == EscMode::Custom; }
    [[nodiscard]] EscValues esc() const;
    [[nodiscard]] bool hasDefaultSteeringEndpoints() const
    {
        return steeringLeft == crsf::kChannelMin && steeringCenter == crsf::kChannelMid &&
               steeringRight == crsf::kChannelMax;
    }

    friend bool operator==(const DriveSettings &, const DriveSettings &) = default;
};

} // namespace tavrix
