#pragma once

#include <QMetaType>

#include <array>

namespace tavrix {

// The motion platform's settings as the controller board holds them. Every value that
// leaves this struct for the board or the settings store has passed clamped().
struct MotionSystemSettings
{
    int intensity = 100; // overall motion intensity, percent
    int travelMm = 140;  // maximum travel
    int speedPct = 100;
    int accelPct = 100; // "smoothness"
    int parkMm = 75;    // where the actuators rest

    friend bool operator==(const MotionSystemSettings &, const MotionSystemSettings &) = default;

    // Each field brought into its range.
    [[nodiscard]] MotionSystemSettings clamped() const;
};

// One settings field: its store key, the letter the board's "#CFG" echo gives it, and its
// range. The table's order is the order of the "C" command and of the echo.
struct MotionSettingField
{
    const char *key;
    char echoLetter;
    int minimum;
    int maximum;
    int MotionSystemSettings::*member;
};

inline constexpr std::array<MotionSettingField, 5> kMotionSettingFields{{
    {"intensity", 'i', 10, 100, &MotionSystemSettings::intensity},
    {"travelMm", 't', 20, 140, &MotionSystemSettings::travelMm},
    {"speedPct", 's', 10, 100, &MotionSystemSettings::speedPct},
    {"accelPct", 'a', 10, 100, &MotionSystemSettings::accelPct},
    {"parkMm", 'p', 5, 145, &MotionSystemSettings::parkMm},
}};

} // namespace tavrix

Q_DECLARE_METATYPE(tavrix::MotionSystemSettings)
