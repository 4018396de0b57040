#pragma once

#include <QJsonObject>
#include <QMap>
#include <QString>

namespace tavrix {

// The store's own state, kept in "config.json": which profile was active last, overall
// and for each vehicle type.
struct ProfileConfig
{
    QString lastActiveProfileId;
    QMap<QString, QString> lastActiveByType; // vehicle type -> profile identifier

    [[nodiscard]] static ProfileConfig fromJson(const QJsonObject &object);
    [[nodiscard]] QJsonObject toJson() const;
};

} // namespace tavrix
