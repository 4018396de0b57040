#pragma once

#include "motionframes.h"

#include <QCoreApplication>
#include <QString>

// The test patterns this PC generates for the motion platforms, as set-point frames.
namespace tavrix {

// Platform kinds by their degrees of freedom.
inline constexpr int kTwoDof = 2;
inline constexpr int kThreeDof = 3;
inline constexpr int kFiveDof = 5;
inline constexpr int kDefaultPlatformKind = kFiveDof;

[[nodiscard]] constexpr bool isPlatformKind(int kind)
{
    return kind == kTwoDof || kind == kThreeDof || kind == kFiveDof;
}

// Actuators the platform has: 2DOF 2, 3DOF 4, 5DOF 6 (four lifting, then yaw, then surge).
[[nodiscard]] int actuatorCount(int platformKind);

enum MotionPattern
{
    kPatternSurge = 0,
    kPatternYaw = 1, // on 2DOF: the opposed rotation, "traction loss"
    kPatternPitch = 2,
    kPatternRoll = 3,
    kPatternHeave = 4,
};

// The name status texts give a pattern; on 2DOF pattern 1 is "traction loss (opposed)"
// where the caller asks for the platform's own name.
[[nodiscard]] QString patternName(int pattern);
[[nodiscard]] QString patternName(int pattern, int platformKind);

// A single pattern test as it runs, every value in its range.
struct PatternTest
{
    // Each tick of the test advances it by this much test time.
    static constexpr int kTickMs = 20;

    int pattern = kPatternPitch;
    int travelPct = 30;       // 1..100
    double frequencyHz = 1.0; // 0.10..3.00
    int durationMs = 5000;    // 1..30 s

    // The request brought into range: travel 1..100 %, frequency and length as a board
    // test takes them. The pattern is kept; one without coefficients holds centre.
    [[nodiscard]] static PatternTest fromRequest(int pattern, int travelPct, int freqCentiHz, int seconds);

    // The six set-points at `elapsedMs` into the test.
    [[nodiscard]] motionframes::SetPoints setPointsAt(int platformKind, int elapsedMs) const;
};

// How much each actuator (1..6) follows a pattern on a platform.
using PatternCoefficients = std::array<double, motionframes::kActuatorSlots>;
[[nodiscard]] PatternCoefficients patternCoefficients(int platformKind, int pattern);

} // namespace tavrix
