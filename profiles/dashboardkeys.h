#pragma once

#include <QLatin1String>
#include <QString>

// Sensor keys in a profile's dashboard list. The car's motion readings are stored as
// "LatG"/"LonG"/"VrtG", while the telemetry catalogue (and profiles written by older
// versions) name them "GLat"/"GLon"/"GVrt". The migration rewrites the old spelling and the
// dashboard looks readings up by the catalogue's, both from this one table.
namespace tavrix::dashboardkeys {

struct MotionKey
{
    QLatin1String catalogueKey;
    QLatin1String profileKey;
};

inline constexpr MotionKey kMotionKeys[] = {
    {QLatin1String("GLat"), QLatin1String("LatG")},
    {QLatin1String("GLon"), QLatin1String("LonG")},
    {QLatin1String("GVrt"), QLatin1String("VrtG")},
};

// The telemetry catalogue's key for a key stored in a dashboard list.
[[nodiscard]] inline QString catalogueKey(const QString &dashboardKey)
{
    for (const MotionKey &motion : kMotionKeys) {
        if (dashboardKey == motion.profileKey)
            return motion.catalogueKey;
    }
    return dashboardKey;
}

// The key a dashboard list stores for a catalogue key (or a key of the old spelling).
[[nodiscard]] inline QString profileKey(const QString &catalogueKey)
{
    for (const MotionKey &motion : kMotionKeys) {
        if (catalogueKey == motion.catalogueKey)
            return motion.profileKey;
    }
    return catalogueKey;
}

} // namespace tavrix::dashboardkeys
