#include "profilemigrations.h"

#include "dashboardkeys.h"
#include "profilekeys.h"

#include <QJsonArray>

using namespace Qt::StringLiterals;

namespace tavrix {

namespace {

namespace keys = profilekeys;

// ESC mode 1 was merged into the standard mode 0; 2 (custom) keeps its number.
bool mergeEscModeOne(QJsonObject &profile)
{
    QJsonObject axis = profile.value(keys::kAxisSettings).toObject();
    if (axis.value(keys::kEscMode).toInt(-1) != 1)
        return false;
    axis.insert(keys::kEscMode, 0);
    profile.insert(keys::kAxisSettings, axis);
    return true;
}

// Dashboard sensor keys of the old form; duplicates that the renaming creates are dropped.
bool renameDashboardKeys(QJsonObject &profile)
{
    const QJsonArray stored = profile.value(keys::kTelemetryDashboard).toArray();
    QJsonArray current;
    QStringList seen;
    bool changed = false;
    for (const QJsonValue &entry : stored) {
        const QString key = dashboardkeys::profileKey(entry.toString());
        changed = changed || key != entry.toString();
        if (seen.contains(key)) {
            changed = true;
            continue;
        }
        seen.append(key);
        current.append(key);
    }
    if (changed)
        profile.insert(keys::kTelemetryDashboard, current);
    return changed;
}

} // namespace

const std::vector<ProfileMigration> &ProfileMigrations::all()
{
    // A missing vehicleType reading as "rc_car" needs no entry here: it is that key's default.
    static const std::vector<ProfileMigration> kMigrations = {
        {u"ESC mode 1 read as mode 0"_s, &mergeEscModeOne},
        {u"dashboard keys GLat/GLon/GVrt renamed to LatG/LonG/VrtG"_s, &renameDashboardKeys},
    };
    return kMigrations;
}

QStringList ProfileMigrations::apply(QJsonObject &profile)
{
    QStringList applied;
    for (const ProfileMigration &migration : all()) {
        if (migration.apply(profile))
            applied.append(migration.description);
    }
    return applied;
}

} // namespace tavrix
