#pragma once

#include "inputbackend.h"

#include <QList>
#include <QObject>
#include <QString>

#include <array>
#include <chrono>

class QTimer;

namespace tavrix {

class DeviceRoleSet;
class InputDevice;

// The control the user moved or pressed, and the game controller it belongs to.
struct MovedControl
{
    // Position in the enumeration the detection started with.
    int deviceIndex = -1;
    QString deviceName;
    int axisSlot = -1; // -1 when it was a button
    int button = -1;   // -1 when it was an axis
};

// Finds which attached game controller the user means by having them move it: every
// controller is watched until one of its axes travels far from where it rested, or one of
// its buttons goes down. A controller already open in a role is read through that role
// (a second handle on a grabbed device would see nothing); the others are opened here and
// released as soon as the detection ends, so the role that takes the device can have it.
class MovedDeviceDetection : public QObject
{
    Q_OBJECT
public:
    // How far an axis must travel from its resting reading, on the -1..+1 scale: a quarter of
    // the travel, well beyond the noise of a pedal under a resting foot. An axis resting at
    // centre reads -1 until it leaves the centre by a tenth (the device layer's activation),
    // so there the first clear turn counts.
    static constexpr float kMovedBy = 0.5f;
    static constexpr std::chrono::milliseconds kPollInterval{20};

    // Neither is owned; both must outlive the detection.
    MovedDeviceDetection(InputBackend *backend, const DeviceRoleSet *roles, QObject *parent = nullptr);
    ~MovedDeviceDetection() override;

    // Starts watching every attached controller (again, when running); false with none attached.
    bool start();
    void stop();
    [[nodiscard]] bool isRunning() const;

signals:
    // Once per start; the detection has stopped and released its devices by then.
    void found(const tavrix::MovedControl &control);

private:
    struct Watched
    {
        int deviceIndex = -1;
        InputDevice *device = nullptr;
        bool owned = false;
        std::array<float, AxisSlotCount> restingAxes{};
        std::array<bool, kRawButtonCount> restingButtons{};
    };

    void poll();
    static void rememberRest(Watched &watched);
    [[nodiscard]] static bool findMovement(const Watched &watched, MovedControl &control);

    InputBackend *m_backend;
    const DeviceRoleSet *m_roles;
    QTimer *m_timer;
    QList<Watched> m_watched;
};

} // namespace tavrix

Q_DECLARE_METATYPE(tavrix::MovedControl)
