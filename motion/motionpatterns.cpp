#include "motionpatterns.h"

#include <QtGlobal>

#include <cmath>
#include <numbers>

namespace tavrix {

namespace {

// Pattern by pattern, actuators 1..6: the four lifting actuators, then yaw, then surge. The 3DOF platform
// shares this table; it has no fifth and sixth actuator, and their set-points go out unused.
constexpr PatternCoefficients kLiftingPlatform[] = {
    {0, 0, 0, 0, 0, 1},   // surge
    {0, 0, 0, 0, 1, 0},   // yaw
    {-1, -1, 1, 1, 0, 0}, // pitch
    {1, -1, 1, -1, 0, 0}, // roll
    {1, 1, 1, 1, 0, 0},   // heave
};

// The 2DOF platform has two actuators: surge moves both alike, the opposed rotation moves
// them against each other; anything else holds centre.
constexpr PatternCoefficients kTwoDofSurge = {1, 1, 0, 0, 0, 0};
constexpr PatternCoefficients kTwoDofOpposed = {1, -1, 0, 0, 0, 0};

constexpr int kTravelMinPct = 1;
constexpr int kTravelMaxPct = 100;

} // namespace

int actuatorCount(int platformKind)
{
    switch (platformKind) {
    case kTwoDof:
        return 2;
    case kThreeDof:
        return 4;
    default:
        return 6;
    }
}

QString patternName(int pattern)
{
    switch (pattern) {
    case kPatternSurge:
        return QCoreApplication::translate("tavrix::MotionSystemController", "Surge");
    case kPatternYaw:
        return QCoreApplication::translate("tavrix::MotionSystemController", "Yaw");
    case kPatternPitch:
        return QCoreApplication::translate("tavrix::MotionSystemController", "Pitch");
    case kPatternRoll:
        return QCoreApplication::translate("tavrix::MotionSystemController", "Roll");
    case kPatternHeave:
        return QCoreApplication::translate("tavrix::MotionSystemController", "Heave");
    default:
        return QCoreApplication::translate("tavrix::MotionSystemController", "Pattern %1").arg(pattern);
    }
}

QString patternName(int pattern, int platformKind)
{
    if (platformKind == kTwoDof && pattern == kPatternYaw)
        return QCoreApplication::translate("tavrix::MotionSystemController", "traction loss (opposed)");
    return patternName(pattern);
}

PatternCoefficients patternCoefficients(int platformKind, int pattern)
{
    if (platformKind == kTwoDof) {
        if (pattern == kPatternSurge)
            return kTwoDofSurge;
        if (pattern == kPatternYaw)
            return kTwoDofOpposed;
        return {};
    }
    if (pattern < 0 || pattern >= int(std::size(kLiftingPlatform)))
        return {};
    return kLiftingPlatform[pattern];
}

PatternTest PatternTest::fromRequest(int pattern, int travelPct, int freqCentiHz, int seconds)
{
    PatternTest test;
    test.pattern = pattern;
    test.travelPct = qBound(kTravelMinPct, travelPct, kTravelMaxPct);
    test.frequencyHz = motionframes::testFrequencyCentiHz(freqCentiHz) / 100.0;
    test.durationMs = motionframes::testSeconds(seconds) * 1000;
    return test;
}

motionframes::SetPoints PatternTest::setPointsAt(int platformKind, int elapsedMs) const
{
    const double s = std::sin(2.0 * std::numbers::pi * frequencyHz * elapsedMs / 1000.0);
    const double amplitude =
        qBound(kTravelMinPct, travelPct, kTravelMaxPct) / 100.0 * motionframes::kSetPointCentre;
    const PatternCoefficients coefficients = patternCoefficients(platformKind, pattern);
    motionframes::SetPoints points{};
    for (size_t k = 0; k < points.size(); ++k) {
        // Truncated toward zero, then kept inside the set-point range.
        const int point = int(coefficients[k] * amplitude * s + double(motionframes::kSetPointCentre));
        points[k] = qBound(0, point, motionframes::kSetPointMax);
    }
    return points;
}

} // namespace tavrix
