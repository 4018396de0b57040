#pragma once

#include <QMap>
#include <QObject>
#include <QString>

namespace tavrix {

class ProfileManager;
class ReceiverConfigManager;

// Keeps the receiver settings the user chose in the active car profile, so a car gets its
// own settings back whichever receiver is plugged in next: a chosen value is written to the
// profile's receiverSettings (marked initialized), and a car profile that becomes active
// hands its initialized settings to the receiver configuration as the desired values. What
// the receiver says about itself (firmware, GPS, IMU) is kept in the profile's receiverCaps.
//
// It writes only when a value really changed, from the event loop, never from the
// transmit tick: the receiver's own reports change no desired value and cause no write.
class ReceiverSettingsKeeper : public QObject
{
    Q_OBJECT
public:
    // Neither is owned; both must outlive the keeper. Loads the active profile at once.
    ReceiverSettingsKeeper(ReceiverConfigManager *receiver, ProfileManager *profiles,
                           QObject *parent = nullptr);

private:
    [[nodiscard]] bool isCarProfile() const;
    void loadActiveProfile();
    void storeDesiredSettings();
    void storeCaps();

    ReceiverConfigManager *m_receiver;
    ProfileManager *m_profiles;
    // The desired values as last loaded or stored: only a difference is the user's change.
    QMap<QString, int> m_known;
    bool m_loading = false;
};

} // namespace tavrix
