#include "profileedits.h"

#include "axissettingsjson.h"
#include "helicopterconfigjson.h"
#include "profilekeys.h"
#include "profilemanager.h"

#include <QCoreApplication>

namespace tavrix {

namespace {

QString notChanged()
{
    return QCoreApplication::translate("tavrix::ProfileEdits", "The profile was not changed");
}

} // namespace

QString storeRefusal(ProfileManager &profiles, const std::function<bool()> &change)
{
    QString refusal;
    QObject listener;
    QObject::connect(&profiles, &ProfileManager::errorOccurred, &listener,
                     [&refusal](const QString &message) { refusal = message; });
    if (change())
        return QString();
    return refusal.isEmpty() ? notChanged() : refusal;
}

QString editAxisSettings(ProfileManager &profiles, const QJsonObject &changes)
{
    const QJsonObject stored = profiles.setting(profilekeys::kAxisSettings).toObject();
    const std::optional<QJsonObject> edited = AxisSettingsJson::edited(stored, changes);
    // Only steering end points out of order are refused here, and these editors do not set them.
    if (!edited)
        return notChanged();
    return storeRefusal(profiles, [&] { return profiles.setSetting(profilekeys::kAxisSettings, *edited); });
}

QString editHelicopterConfig(ProfileManager &profiles, const QJsonObject &changes, bool armed)
{
    const HelicopterConfigJson::Edit edit = HelicopterConfigJson::edited(
        profiles.setting(profilekeys::kHelicopterConfig).toObject(), changes, armed);
    if (!edit.config)
        return edit.refusal;
    return storeRefusal(profiles,
                        [&] { return profiles.setSetting(profilekeys::kHelicopterConfig, *edit.config); });
}

} // namespace tavrix
