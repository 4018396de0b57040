#pragma once

#include "bridgesimulator.h"
#include "profilemanager.h"
#include "serialportdirectory.h"
#include "tavrixcontroller.h"
#include "virtualbackend.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <cmath>
#include <memory>

namespace tavrix::testing {

// Raw 0..65535 that a device reads as exactly `value` after its 2% deadzone.
inline qint32 rawForDeviceValue(double value)
{
    const double magnitude = std::fabs(value);
    const double beforeDeadzone = magnitude == 0.0 ? 0.0 : std::copysign(0.02 + 0.98 * magnitude, value);
    return qint32(std::lround((beforeDeadzone + 1.0) / 2.0 * 65535.0));
}

// A pedal of the "Generic" preset (an inverted axis) pressed by `fraction` of its travel
// as the default axis settings read it (their 2% pedal deadzone included).
inline qint32 rawForGenericPedal(double fraction)
{
    const double beforePedalDeadzone = 0.02 + 0.98 * fraction; // 0..1
    const double logical = 2.0 * beforePedalDeadzone - 1.0;
    return rawForDeviceValue(-logical);
}

inline ControllerTimings shortTimings()
{
    ControllerTimings t;
    t.monitorInterval = std::chrono::milliseconds(40);
    t.carLinkTimeout = std::chrono::milliseconds(150);
    t.sensorStaleAfter = std::chrono::milliseconds(300);
    t.motionWait = std::chrono::milliseconds(250);
    t.idleInputPollInterval = std::chrono::milliseconds(10);
    t.autoStartCheckInterval = std::chrono::milliseconds(20);
    t.link.reconnectInterval = std::chrono::milliseconds(40);
    t.link.port.openRetryDelay = std::chrono::milliseconds(10);
    t.receiverPort.reconnect.interval = std::chrono::milliseconds(40);
    t.receiverPort.port.openRetryDelay = std::chrono::milliseconds(10);
    t.receiverCalibration.countdownTick = std::chrono::milliseconds(20);
    return t;
}

// The whole hub below the interface: a profile store in a temporary folder, virtual
// game controllers, the bridge simulator on a pty under a stable link path, and the
// controller connected to all of them.
struct ControllerRig
{
    static constexpr int kSteeringSlot = 0; // "Generic": lX
    static constexpr int kThrottleSlot = 5; // lZ, inverted
    static constexpr int kBrakeSlot = 3;    // lRz, inverted

    QTemporaryDir dir;
    ProfileManager profiles{dir.path()};
    VirtualBackend backend;
    sim::BridgeSimulator sim;
    std::unique_ptr<TavrixController> controller;
    int firstDevice = -1;
    int secondDevice = -1;

    explicit ControllerRig(const sim::BridgeSimulatorSettings &settings = quietBridge())
        : sim(settings)
    {}

    static sim::BridgeSimulatorSettings quietBridge()
    {
        sim::BridgeSimulatorSettings s;
        s.telemetry.statusLineIntervalMs = 0;
        return s;
    }

    QString linkPath() const { return dir.filePath(QStringLiteral("ttyBRIDGE")); }
    // Where a test plugs in a receiver (a PseudoTerminal): listed while it exists.
    QString receiverPath() const { return dir.filePath(QStringLiteral("ttyRECEIVER")); }

    // Car: a wheel base and pedals, both released. Helicopter: a joystick and a throttle.
    bool setUp(const QString &vehicleType = QStringLiteral("rc_car"),
               const ControllerTimings &t = shortTimings())
    {
        if (!dir.isValid())
            return false;
        profiles.loadProfiles();
        if (vehicleType != QLatin1String("rc_car") && !profiles.setVehicleType(vehicleType))
            return false;
        const bool car = vehicleType == QLatin1String("rc_car");
        // The wheel base has force feedback, so every fault can be checked for a force left playing.
        firstDevice = backend.addDevice(
            {car ? QStringLiteral("Test Wheel") : QStringLiteral("Test Stick"), QString(), 8, 32, 1, car});
        secondDevice =
            backend.addDevice({car ? QStringLiteral("Test Pedals") : QStringLiteral("Test Throttle"),
                               QString(), 8, 8, 0, false});
        if (car) {
            setPedals(0.0, 0.0);
            backend.setAxis(firstDevice, kThrottleSlot, rawForGenericPedal(0.0));
            backend.setAxis(firstDevice, kBrakeSlot, rawForGenericPedal(0.0));
        }
        if (!sim.start(linkPath()))
            return false;
        auto ports = std::make_shared<PathSerialPortDirectory>(QStringList{linkPath(), receiverPath()});
        controller = std::make_unique<TavrixController>(&backend, &profiles, ports, t);
        const DeviceRole first = car ? DeviceRole::WheelBase : DeviceRole::HeliJoystick;
        const DeviceRole second = car ? DeviceRole::Pedals : DeviceRole::HeliThrottle;
        return controller->connectDevice(first, 0) && controller->connectDevice(second, 1) &&
               controller->connectTransmitter(sim.clientPath());
    }

    void setPedals(double throttle, double brake)
    {
        backend.setAxis(secondDevice, kThrottleSlot, rawForGenericPedal(throttle));
        backend.setAxis(secondDevice, kBrakeSlot, rawForGenericPedal(brake));
    }

    void setSteering(double value) { backend.setAxis(firstDevice, kSteeringSlot, rawForDeviceValue(value)); }

    // Writes a marker line and waits until the bridge has it: whatever the controller
    // wrote before has then arrived too.
    bool flushToBridge()
    {
        static int serial = 0;
        const QString marker = QStringLiteral("MARK%1").arg(++serial);
        controller->serialWrite(marker.toLatin1() + '\n');
        return QTest::qWaitFor([&] { return sim.commands().contains(marker); }, 5000);
    }

    int commandCount(const QString &command) const { return int(sim.commands().count(command)); }
};

} // namespace tavrix::testing
