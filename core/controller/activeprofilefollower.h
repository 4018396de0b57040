#pragma once

#include "controllertypes.h"
#include "profilesettings.h"

#include <QObject>
#include <QString>

#include <optional>

namespace tavrix {

class ProfileManager;

// Keeps the controller's copy of the active profile's settings in step with the store:
// rereads them when the active profile is edited or another one becomes active, and
// writes back the two values the hub itself changes (LED power, rate mode).
//
// A change of vehicle, or a switch to another profile, swaps the input devices, so it
// waits while transmitting and is followed once the controller has stopped. The
// follower only reports what changed; the controller applies it to its parts.
class ActiveProfileFollower : public QObject
{
    Q_OBJECT

public:
    // profiles is not owned and must outlive the follower. Nothing is read until reload().
    explicit ActiveProfileFollower(ProfileManager *profiles, QObject *parent = nullptr);
    // Writes an LED power switch still waiting for the event loop.
    ~ActiveProfileFollower() override;

    [[nodiscard]] const ProfileSettings &settings() const { return m_settings; }
    // Changes only while not transmitting.
    [[nodiscard]] VehicleType vehicleType() const { return m_vehicle; }

    // Reads the active profile's settings again; a new vehicle waits while transmitting.
    void reload();
    void setTransmitting(bool transmitting);
    // After transmission stopped: follows a profile switch or vehicle change that had to wait.
    void applyDeferredSwitch();
    // Forgets a waiting switch (the controller is going away).
    void discardDeferredSwitch() { m_switchPending = false; }

    // Switches the LED strip power at once and stores it in the profile from the event
    // loop, not from the caller's turn: the power button is read on the transmit tick,
    // and writing a profile file takes longer than a tick. False when it already was so.
    bool setLedPower(bool on);
    // Stores the helicopter's dual-rate mode in the profile.
    void rememberHeliRateMode(int mode);

signals:
    // The settings were read again; the LED power or its button may have changed.
    void settingsReloaded(bool ledSettingsChanged);
    // The vehicle or the profile changed: every device is to be closed and the roles of
    // the vehicle opened again from the identities saved in the profile.
    void savedDevicesChanged();
    void profileChanged(const QString &profileId);
    void errorOccurred(const QString &message);

private:
    void onActiveProfileChanged(const QString &profileId);
    void onProfileModified(const QString &profileId);
    void switchToActiveProfile();
    void switchVehicle();
    void saveLedPower();

    ProfileManager *m_profiles;
    // The profile whose settings are held (the store's active one, unless a switch waits).
    QString m_followedId;
    // The profile a waiting switch goes to, when it is a switch of profile.
    QString m_waitingId;
    ProfileSettings m_settings;
    VehicleType m_vehicle = VehicleType::Car;
    bool m_transmitting = false;
    bool m_switchPending = false;
    // The LED power switched but not yet written, and the profile it belongs to.
    std::optional<bool> m_unsavedLedPower;
    QString m_unsavedLedProfileId;
};

} // namespace tavrix
