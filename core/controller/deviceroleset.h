#pragma once

#include "controllertypes.h"
#include "inputdeviceinfo.h"
#include "profilemanager.h"

#include <QList>
#include <QObject>

#include <array>

namespace tavrix {

class InputBackend;
class InputDevice;

// The entry of an enumeration that is the saved device: the same instance GUID (and,
// when both are known, the same product name), else the first entry of exactly the
// saved product name, as the saved-mapping rule matches devices. -1 when none fits.
[[nodiscard]] int findSavedDevice(const DeviceIdentity &saved, const QList<InputDeviceInfo> &devices);

// One InputDevice per game-controller role (wheel base, pedals, shifter; joystick,
// throttle and rudder pedals of the helicopter). Opens them by enumeration index or by
// the identity saved in the active profile, writes the identity (and, for the wheel base
// and the pedals, the axis mapping in force) back into the profile, polls them and
// reports each role's connection changing and its device going away.
class DeviceRoleSet : public QObject
{
    Q_OBJECT
public:
    static constexpr int kRoleCount = kDeviceRoleCount;

    DeviceRoleSet(InputBackend *backend, ProfileManager *profiles, QObject *parent = nullptr);
    ~DeviceRoleSet() override;

    [[nodiscard]] static QList<DeviceRole> rolesFor(VehicleType vehicle);

    // Never null; closed while nothing is open in that role.
    [[nodiscard]] InputDevice *device(DeviceRole role) const;
    [[nodiscard]] bool isConnected(DeviceRole role) const;
    [[nodiscard]] QList<InputDeviceInfo> availableDevices() const;
    // What keeps devices of these roles from working, each as a person can act on it: game
    // controllers that may not be opened (permissions), why the last open in a role failed,
    // and an open device another program holds.
    [[nodiscard]] QStringList problems(const QList<DeviceRole> &roles) const;

    // Opens the device at that position in the role; emits errorOccurred with the role's
    // "Failed to open ..." message when it cannot.
    bool open(DeviceRole role, int enumerationIndex);
    // Opens the device saved in the profile for the role; false without a message when
    // none is saved or it is not attached.
    bool openSaved(DeviceRole role);
    void close(DeviceRole role);
    void closeAll();
    // Axis slots of the role's device that rest at centre: they read as touched from the
    // moment a device opens in that role (and at once, when one is open).
    void setCentredAxes(DeviceRole role, const QList<int> &centredSlots);

    // Polls every open device once.
    void pollAll();

signals:
    void connectedChanged(tavrix::DeviceRole role, bool connected);
    // The role's open device is about to be closed on purpose: the last moment to talk to it.
    void aboutToClose(tavrix::DeviceRole role);
    // A connected device stopped answering (once per loss, not once per failing poll).
    void deviceLost(tavrix::DeviceRole role);
    void errorOccurred(const QString &error);

private:
    [[nodiscard]] static int slot(DeviceRole role) { return int(role); }
    // Why the last open in each role failed; cleared by a successful open or a close.
    std::array<QString, kRoleCount> m_openFailures;
    void rememberInProfile(DeviceRole role);
    void updateConnected(DeviceRole role);
    void activateCentredAxes(DeviceRole role);

    InputBackend *m_backend;
    ProfileManager *m_profiles;
    std::array<InputDevice *, kRoleCount> m_devices{};
    std::array<bool, kRoleCount> m_connected{};
    std::array<QList<int>, kRoleCount> m_centredAxes{};
};

} // namespace tavrix
