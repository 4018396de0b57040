#include "activeprofilefollower.h"

#include "profilemanager.h"

#include <QDebug>
#include <QJsonObject>
#include <QTimer>

namespace tavrix {

ActiveProfileFollower::ActiveProfileFollower(ProfileManager *profiles, QObject *parent)
    : QObject(parent)
    , m_profiles(profiles)
{
    connect(m_profiles, &ProfileManager::activeProfileChanged, this,
            &ActiveProfileFollower::onActiveProfileChanged);
    connect(m_profiles, &ProfileManager::profileModified, this, &ActiveProfileFollower::onProfileModified);
}

ActiveProfileFollower::~ActiveProfileFollower()
{
    saveLedPower();
}

void ActiveProfileFollower::reload()
{
    m_followedId = m_profiles->activeProfileId();
    ProfileSettings next = ProfileSettings::fromProfile(m_profiles->activeProfile());
    // A switch of the LED power not written yet is newer than what the store holds.
    if (m_unsavedLedPower && m_unsavedLedProfileId == m_profiles->activeProfileId())
        next.led.powerOn = *m_unsavedLedPower;
    const bool ledChanged = next.led.powerOn != m_settings.led.powerOn ||
                            next.led.powerButtonIndex != m_settings.led.powerButtonIndex;
    const bool vehicleChanged = next.vehicleType != m_vehicle;
    m_settings = std::move(next);
    emit settingsReloaded(ledChanged);
    if (vehicleChanged) {
        // Changing what is driven mid-run would swap devices under the tick.
        if (m_transmitting)
            m_switchPending = true;
        else
            switchVehicle();
    }
}

void ActiveProfileFollower::setTransmitting(bool transmitting)
{
    m_transmitting = transmitting;
}

void ActiveProfileFollower::applyDeferredSwitch()
{
    if (!m_switchPending)
        return;
    switchToActiveProfile();
    emit profileChanged(m_profiles->activeProfileId());
}

bool ActiveProfileFollower::setLedPower(bool on)
{
    if (m_settings.led.powerOn == on)
        return false;
    m_settings.led.powerOn = on;
    if (!m_unsavedLedPower)
        QTimer::singleShot(0, this, &ActiveProfileFollower::saveLedPower);
    m_unsavedLedPower = on;
    m_unsavedLedProfileId = m_profiles->activeProfileId();
    return true;
}

void ActiveProfileFollower::saveLedPower()
{
    if (!m_unsavedLedPower)
        return;
    const bool on = *m_unsavedLedPower;
    m_unsavedLedPower.reset();
    // The switch belonged to the profile that was active when the button was pressed.
    if (m_unsavedLedProfileId != m_profiles->activeProfileId())
        return;
    m_profiles->setSetting(
        QStringLiteral("ledSettings"),
        ledSettingsWithPower(m_profiles->setting(QStringLiteral("ledSettings")).toObject(), on));
}

void ActiveProfileFollower::rememberHeliRateMode(int mode)
{
    m_settings.helicopter.dualRates.activeMode = mode;
    m_profiles->setSetting(QStringLiteral("helicopterConfig"),
                           helicopterConfigWithRateMode(
                               m_profiles->setting(QStringLiteral("helicopterConfig")).toObject(), mode));
}

void ActiveProfileFollower::switchVehicle()
{
    m_vehicle = m_settings.vehicleType;
    qInfo().noquote() << QStringLiteral("TavrixController: now driving a %1")
                             .arg(m_vehicle == VehicleType::Helicopter ? QStringLiteral("helicopter")
                                                                       : QStringLiteral("car"));
    emit savedDevicesChanged();
}

void ActiveProfileFollower::switchToActiveProfile()
{
    m_switchPending = false;
    const VehicleType previous = m_vehicle;
    reload();
    // Another profile of the same vehicle may name other devices.
    if (m_vehicle == previous)
        emit savedDevicesChanged();
}

void ActiveProfileFollower::onActiveProfileChanged(const QString &profileId)
{
    // The store also says this when the active profile is renamed, chosen again or read
    // again. None of these is a switch: the devices stay open and nothing waits for a stop,
    // only the settings are read afresh. Choosing the followed profile again while a switch
    // waits calls that switch off.
    if (profileId == m_followedId) {
        m_switchPending = false;
        reload();
        return;
    }
    if (m_switchPending && profileId == m_waitingId)
        return; // the same switch, already announced
    if (m_transmitting) {
        // The store has switched already; the controller follows once stopped.
        m_switchPending = true;
        m_waitingId = profileId;
        emit errorOccurred(tr("The new profile takes effect when transmission stops"));
        return;
    }
    switchToActiveProfile();
    emit profileChanged(profileId);
}

void ActiveProfileFollower::onProfileModified(const QString &profileId)
{
    // After a switch deferred by a run, the new profile is read whole once stopped.
    if (profileId == m_profiles->activeProfileId() && !m_switchPending)
        reload();
}

} // namespace tavrix
