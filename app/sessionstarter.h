#pragma once

#include "commandlineoptions.h"

#include <QHash>
#include <QObject>
#include <QString>
#include <QTimer>

#include <chrono>
#include <optional>

namespace tavrix {

class ProfileManager;
class TavrixController;

// What a run without user clicks should bring up: the transmitter, the devices per role and,
// when asked, transmission.
struct SessionPlan
{
    // Empty: the port remembered in the active profile.
    QString transmitterPort;
    // Unset: 115200 for a port given here, else the rate remembered with the profile's port.
    std::optional<qint32> baudRate;
    // The receiver's console port; empty: the receiver is left alone.
    QString receiverPort;
    // Roles not listed keep the devices saved in the profile.
    QList<RoleChoice> devices;
    bool start = false;
    // The motion platform's board, connected once at the start (not by SessionStarter, which
    // only brings up the transmission side); empty: left alone.
    QString motionPort;
    std::optional<int> motionPlatform;
    // Where the run records the drive (the runner's business, not the starter's); empty: not recorded.
    QString recordingsFolder;

    [[nodiscard]] static SessionPlan fromOptions(const CommandLineOptions &options);
};

// Makes a profile of that vehicle type the active one: the active profile when it already
// is of that type, else the one last active for the type, else the first of the type, else a
// new one ("RC Car" / "RC Helicopter", made unique). False with the reason when the store
// refuses. The user's other profiles are left as they are.
bool activateVehicleProfile(ProfileManager &profiles, VehicleType vehicle, QString *error);

// Brings a plan about: connects the transmitter, opens the devices of each role (by index or
// name, or as saved in the profile) and, when asked, starts transmission once both are there.
// Whatever is missing is tried again every retryInterval: a transmitter plugged in late, a
// wheel that comes back, pedals that must first be released. A start is only ever asked of
// the controller, so every start check still applies; refusals come out of the controller's
// errorOccurred as usual.
//
// The plan starts transmission once. After any stop (the user's, a safety stop, a lost
// device or transmitter) the starter keeps the transmitter and devices connected but never
// starts again: a car that stopped because something went wrong must not drive off again
// without a person deciding it.
class SessionStarter : public QObject
{
    Q_OBJECT
public:
    static constexpr std::chrono::milliseconds kDefaultRetryInterval{500};

    SessionStarter(TavrixController *controller, SessionPlan plan,
                   std::chrono::milliseconds retryInterval = kDefaultRetryInterval,
                   QObject *parent = nullptr);

    [[nodiscard]] const SessionPlan &plan() const { return m_plan; }
    // The port and rate the transmitter is (or will be) connected with.
    [[nodiscard]] QString transmitterPort() const { return m_port; }
    [[nodiscard]] qint32 baudRate() const { return m_baudRate; }

    // Makes the first attempt at once. False (with failed() emitted) when there is no port to
    // connect to at all: none given and none remembered.
    bool begin();
    // Whether begin() has a transmitter port to go on: given in the plan or remembered.
    [[nodiscard]] bool knowsTransmitterPort() const;
    // No more attempts (the process is about to stop transmission and quit).
    void halt();

signals:
    // What the starter is waiting for, once per change ("waiting for the wheel base ...").
    void progress(const QString &message);
    void failed(const QString &message);

private:
    void attempt();
    void connectTransmitter();
    void connectReceiver();
    void openDevices();
    // The enumeration index the choice stands for now, or -1 with *why set.
    [[nodiscard]] int resolve(const DeviceChoice &choice, QString *why) const;
    void report(const QString &key, const QString &message);
    void onRunningChanged(bool running);

    TavrixController *m_controller;
    SessionPlan m_plan;
    QString m_port;
    qint32 m_baudRate = 0;
    QTimer m_retryTimer;
    // The plan's one start has happened; nothing here starts transmission again.
    bool m_startDone = false;
    // The plan's receiver was connected once; from then on its own reconnect or the user decides.
    bool m_receiverDone = false;
    // The last thing said per subject, so waiting is reported once, not every retry.
    QHash<QString, QString> m_reported;
};

} // namespace tavrix
