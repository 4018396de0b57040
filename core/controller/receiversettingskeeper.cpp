#include "receiversettingskeeper.h"

#include "profilekeys.h"
#include "profilemanager.h"
#include "receiverconfigmanager.h"
#include "receiverline.h"

#include <QJsonObject>
#include <QScopedValueRollback>

namespace tavrix {

namespace keys = profilekeys;

ReceiverSettingsKeeper::ReceiverSettingsKeeper(ReceiverConfigManager *receiver, ProfileManager *profiles,
                                               QObject *parent)
    : QObject(parent)
    , m_receiver(receiver)
    , m_profiles(profiles)
{
    connect(profiles, &ProfileManager::activeProfileChanged, this,
            &ReceiverSettingsKeeper::loadActiveProfile);
    connect(receiver, &ReceiverConfigManager::settingsChanged, this,
            &ReceiverSettingsKeeper::storeDesiredSettings);
    connect(receiver, &ReceiverConfigManager::capsChanged, this, &ReceiverSettingsKeeper::storeCaps);
    loadActiveProfile();
}

bool ReceiverSettingsKeeper::isCarProfile() const
{
    return m_profiles->isLoaded() && m_profiles->vehicleType() == vehicletype::kCar;
}

// A profile that never had its settings chosen leaves the receiver's desired values as
// they are: its defaults are not a choice anyone made for this car.
void ReceiverSettingsKeeper::loadActiveProfile()
{
    const QJsonObject stored = m_profiles->setting(keys::kReceiverSettings).toObject();
    if (isCarProfile() && stored.value(keys::kInitialized).toBool()) {
        // Each value loaded is announced as a change; none of them is the user's.
        const QScopedValueRollback loading(m_loading, true);
        for (const receiver::SettingKey &setting : receiver::kSettings) {
            // A value the receiver does not take (an edited file) is skipped, not sent.
            if (const auto value = receiver::valueFromJson(setting, stored.value(setting.name)))
                m_receiver->setDesiredSetting(setting.key, *value);
        }
    }
    m_known = m_receiver->desiredSettings();
}

void ReceiverSettingsKeeper::storeDesiredSettings()
{
    const QMap<QString, int> &desired = m_receiver->desiredSettings();
    if (m_loading || desired == m_known || !isCarProfile())
        return;
    m_known = desired;
    QJsonObject settings = m_profiles->setting(keys::kReceiverSettings).toObject();
    settings.insert(keys::kInitialized, true);
    for (const receiver::SettingKey &setting : receiver::kSettings) {
        const auto value = desired.constFind(setting.key);
        if (value != desired.cend())
            settings.insert(setting.name, receiver::valueToJson(setting, *value));
    }
    m_profiles->setSetting(keys::kReceiverSettings, settings); // the store skips writing what it has
}

// Only what the receiver actually reported is kept: no firmware line, no firmware stored;
// GPS and IMU are known once it answered the settings query.
void ReceiverSettingsKeeper::storeCaps()
{
    const ReceiverConfigManager::Caps &caps = m_receiver->caps();
    if (!isCarProfile())
        return;
    QJsonObject updated = m_profiles->setting(keys::kReceiverCaps).toObject();
    if (!caps.firmware.isEmpty())
        updated.insert(keys::kFirmware, caps.firmware);
    if (caps.settings) {
        updated.insert(keys::kGps, caps.gps);
        updated.insert(keys::kImu, caps.imu);
    }
    m_profiles->setSetting(keys::kReceiverCaps, updated);
}

} // namespace tavrix
