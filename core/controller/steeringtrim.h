#pragma once

#include "drivesettings.h"

#include <QJsonObject>
#include <QString>
#include <QtGlobal>

#include <cstdint>
#include <optional>

namespace tavrix {

class DriveComputation;
class ProfileManager;

// The three steering end points (CH1 values at full left, centre and full right).
struct SteeringEndpoints
{
    int32_t left = 0;
    int32_t center = 0;
    int32_t right = 0;

    [[nodiscard]] static SteeringEndpoints of(const DriveSettings &settings);
    // Each end point clamped to the channel range; nothing when they are out of order
    // (left above centre or centre above right) or leave no travel (left equals right).
    // Reversing the steering is the Steering axis' inversion, not swapped end points.
    [[nodiscard]] static std::optional<SteeringEndpoints> checked(double left, double center, double right);

    // Why checked() gave nothing: in English as the remote app gets it, and translated
    // for the window by outOfOrderMessage().
    static constexpr const char *kOutOfOrder = QT_TRANSLATE_NOOP(
        "tavrix::SteeringEndpoints",
        "Invalid steering trim: left must not exceed center and center must not exceed right");
    [[nodiscard]] static QString outOfOrderMessage();

    friend bool operator==(const SteeringEndpoints &, const SteeringEndpoints &) = default;
};

// Steering trim tried out on the running drive computation before it is saved: the car
// answers at once. A reading of the profile that brings other saved end points, or another
// profile, puts the saved ones back, so an unsaved trim never outlives the profile it was
// tried on; a reading for anything else (sensor discovery writes the profile in the first
// seconds of a drive) keeps the trim being tried. The remote app and the drive dialog both
// trim through it.
class SteeringTrim
{
public:
    // drive and profiles are not owned and must outlive the trim.
    SteeringTrim(DriveComputation &drive, ProfileManager &profiles);

    // The end points the computation uses now: the live ones, or else the saved ones.
    [[nodiscard]] SteeringEndpoints inForce() const;
    // The end points saved in the active profile.
    [[nodiscard]] SteeringEndpoints saved() const;
    void applyLive(const SteeringEndpoints &endpoints);
    // Writes end points that checked() gave into the active profile's axis settings and
    // keeps them in force. False when the store refused; it said why through errorOccurred.
    bool save(const SteeringEndpoints &endpoints);
    // Puts the saved end points back in force and returns them.
    SteeringEndpoints revert();
    // For settings read from the profile and about to be put in force: keeps the trim being
    // tried when they were read from the same profile with the same saved end points.
    void carryOver(DriveSettings &next);

private:
    void putInForce(const SteeringEndpoints &endpoints);

    // The trim being tried, and the profile and saved end points it was tried over.
    struct Trial
    {
        SteeringEndpoints endpoints;
        SteeringEndpoints savedUnder;
        QString profileId;
    };

    DriveComputation &m_drive;
    ProfileManager &m_profiles;
    std::optional<Trial> m_trial;
};

} // namespace tavrix
