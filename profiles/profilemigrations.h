#pragma once

#include <QJsonObject>
#include <QStringList>

#include <vector>

namespace tavrix {

// One rewrite that brings a profile written by an older version to the current meaning.
// It runs on a profile that already has every key (see ProfileSchema::normalise) and
// returns whether it changed anything.
struct ProfileMigration
{
    QString description;
    bool (*apply)(QJsonObject &profile);
};

// The ordered list of migrations applied to every profile when it is read. Each one is
// idempotent, so a profile already in the current shape passes through unchanged.
class ProfileMigrations
{
public:
    [[nodiscard]] static const std::vector<ProfileMigration> &all();
    // Applies every migration in order; returns the descriptions of those that changed something.
    static QStringList apply(QJsonObject &profile);
};

} // namespace tavrix
