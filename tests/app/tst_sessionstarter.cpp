#include "bridgesimulator.h"
#include "inputdevice.h"
#include "profilekeys.h"
#include "profilemanager.h"
#include "serialportdirectory.h"
#include "sessionstarter.h"
#include "tavrixcontroller.h"
#include "virtualbackend.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace tavrix;
using namespace std::chrono_literals;

namespace {

constexpr int kThrottleSlot = SlotRx; // MOZA pedals: lRx throttle, lRy brake, not inverted

// A controller on a simulated bridge with a MOZA wheel and pedals, and fast retries.
struct StarterRig
{
    QTemporaryDir dir;
    ProfileManager profiles{dir.path()};
    VirtualBackend backend;
    sim::BridgeSimulator bridge;
    std::unique_ptr<TavrixController> controller;
    int wheel = -1;
    int pedals = -1;

    bool setUp()
    {
        if (!dir.isValid() || !bridge.start(dir.filePath(QStringLiteral("ttyBridge"))))
            return false;
        wheel = backend.addDevice({QStringLiteral("MOZA R9 Base"), {}, 2, 32, 1, true});
        pedals = backend.addDevice({QStringLiteral("MOZA SR-P Pedals"), {}, 3, 0, 0, false});
        backend.setAxis(pedals, SlotRx, 0);
        backend.setAxis(pedals, SlotRy, 0);
        profiles.loadProfiles();
        ControllerTimings timings;
        timings.idleInputPollInterval = 5ms;
        controller = std::make_unique<TavrixController>(
            &backend, &profiles, std::make_shared<PathSerialPortDirectory>(QStringList{bridge.clientPath()}),
            timings);
        return true;
    }

    SessionPlan plan(QList<RoleChoice> devices) const
    {
        SessionPlan p;
        p.transmitterPort = bridge.clientPath();
        p.devices = std::move(devices);
        p.start = true;
        return p;
    }
};

const QList<RoleChoice> kWheelByNameAndPedalsByIndex{
    {DeviceRole::WheelBase, {-1, QStringLiteral("MOZA R9 Base")}},
    {DeviceRole::Pedals, {1, {}}},
};

} // namespace

class TestSessionStarter : public QObject
{
    Q_OBJECT

private slots:
    void refusedStartIsRetriedUntilThePedalsAreReleased();
    void waitsForAMissingDeviceAndSaysSoOnce();
    void neverStartsAgainAfterAStop_data();
    void neverStartsAgainAfterAStop();
    void withoutAnyPortItFails();
    void vehicleProfileIsFoundOrMade_data();
    void vehicleProfileIsFoundOrMade();
};

void TestSessionStarter::refusedStartIsRetriedUntilThePedalsAreReleased()
{
    StarterRig rig;
    QVERIFY(rig.setUp());
    rig.backend.setAxis(rig.pedals, kThrottleSlot, 10000);
    rig.backend.setAxis(rig.pedals, kThrottleSlot, 60000); // pressed (and moved, so it counts)
    QSignalSpy errors(rig.controller.get(), &TavrixController::errorOccurred);
    SessionStarter starter(rig.controller.get(), rig.plan(kWheelByNameAndPedalsByIndex), 20ms);
    QVERIFY(starter.begin());
    QCOMPARE(starter.baudRate(), TransmitterLink::kDefaultBaudRate);

    // Several attempts, each refused by the controller's own check; nothing reaches the bridge.
    QTRY_VERIFY(errors.count() >= 3);
    QCOMPARE(errors.last().at(0).toString(),
             QStringLiteral("Release the throttle pedal before starting transmission."));
    QVERIFY(rig.controller->isSerialConnected());
    QVERIFY(rig.controller->devices()->isConnected(DeviceRole::WheelBase));
    QVERIFY(rig.controller->devices()->isConnected(DeviceRole::Pedals));
    QVERIFY(!rig.controller->isRunning());
    QVERIFY(!rig.bridge.commands().contains(QStringLiteral("START")));

    rig.backend.setAxis(rig.pedals, kThrottleSlot, 0);
    QTRY_VERIFY(rig.controller->isRunning());
    QTRY_COMPARE(rig.bridge.commands().count(QStringLiteral("START")), 1);
    QTRY_VERIFY(rig.bridge.channelFrameCount() > 3);
}

void TestSessionStarter::waitsForAMissingDeviceAndSaysSoOnce()
{
    StarterRig rig;
    QVERIFY(rig.setUp());
    SessionStarter starter(rig.controller.get(),
                           rig.plan({{DeviceRole::WheelBase, {-1, QStringLiteral("moza r10 base")}}}), 10ms);
    QSignalSpy progress(&starter, &SessionStarter::progress);
    QSignalSpy errors(rig.controller.get(), &TavrixController::errorOccurred);
    QVERIFY(starter.begin());
    QTRY_VERIFY(errors.count() >= 3); // "Wheel base not connected", again and again
    const QStringList waiting = [&progress] {
        QStringList lines;
        for (const QList<QVariant> &args : progress)
            if (args.at(0).toString().startsWith(QLatin1String("waiting for the wheel base")))
                lines.append(args.at(0).toString());
        return lines;
    }();
    QCOMPARE(waiting.size(), 1);
    QVERIFY(waiting.at(0).contains(QLatin1String("\"moza r10 base\"")));

    // Plugged in late, found by its name without regard to case, and started.
    rig.backend.addDevice({QStringLiteral("MOZA R10 Base"), {}, 2, 32, 1, true});
    QTRY_VERIFY(rig.controller->isRunning());
    QCOMPARE(rig.controller->devices()->device(DeviceRole::WheelBase)->deviceName(),
             QStringLiteral("MOZA R10 Base"));
}

void TestSessionStarter::neverStartsAgainAfterAStop_data()
{
    QTest::addColumn<bool>("wheelLost"); // else the user stops
    QTest::newRow("the wheel is lost and comes back") << true;
    QTest::newRow("the user stops") << false;
}

void TestSessionStarter::neverStartsAgainAfterAStop()
{
    QFETCH(bool, wheelLost);
    constexpr auto kRetry = 10ms;
    StarterRig rig;
    QVERIFY(rig.setUp());
    SessionStarter starter(rig.controller.get(), rig.plan(kWheelByNameAndPedalsByIndex), kRetry);
    QSignalSpy progress(&starter, &SessionStarter::progress);
    QVERIFY(starter.begin());
    QTRY_VERIFY(rig.controller->isRunning());

    if (wheelLost)
        rig.backend.setLost(rig.wheel, true);
    else
        rig.controller->stopTransmission();
    QTRY_VERIFY(!rig.controller->isRunning());
    QTRY_COMPARE(rig.bridge.commands().count(QStringLiteral("STOP")), 1);
    if (wheelLost) {
        rig.backend.setLost(rig.wheel, false);
        QTRY_VERIFY(rig.controller->devices()->isConnected(DeviceRole::WheelBase));
    }
    const auto saidSo = [&progress] {
        for (const QList<QVariant> &args : progress)
            if (args.at(0).toString().contains(QLatin1String("will not start again by itself")))
                return true;
        return false;
    };
    QVERIFY(saidSo());
    // A window for the retries that would start it: under load fewer of them fit, which
    // weakens the check but cannot make it fail wrongly.
    QTest::qWait(int(20 * kRetry.count()));
    QVERIFY(!rig.controller->isRunning());
    QCOMPARE(rig.bridge.commands().count(QStringLiteral("START")), 1);
}

void TestSessionStarter::withoutAnyPortItFails()
{
    StarterRig rig;
    QVERIFY(rig.setUp());
    SessionPlan plan; // no port given, none remembered in the fresh profile
    SessionStarter starter(rig.controller.get(), plan, 10ms);
    QSignalSpy failed(&starter, &SessionStarter::failed);
    QVERIFY(!starter.begin());
    QCOMPARE(failed.count(), 1);
    QVERIFY(failed.at(0).at(0).toString().contains(QLatin1String("--transmitter")));
    QVERIFY(failed.at(0).at(0).toString().contains(rig.bridge.clientPath())); // the ports it can see
}

void TestSessionStarter::vehicleProfileIsFoundOrMade_data()
{
    QTest::addColumn<QString>("otherProfileType"); // an extra profile besides "Default" (car); empty: none
    QTest::addColumn<VehicleType>("wanted");
    QTest::addColumn<QString>("expectedName");
    QTest::addColumn<int>("expectedCount");
    QTest::newRow("car wanted, car active")
        << QString() << VehicleType::Car << QStringLiteral("Default") << 1;
    QTest::newRow("heli wanted, none: made")
        << QString() << VehicleType::Helicopter << QStringLiteral("RC Helicopter") << 2;
    QTest::newRow("heli wanted, one exists: taken")
        << QString(vehicletype::kHelicopter) << VehicleType::Helicopter << QStringLiteral("Chopper") << 2;
    QTest::newRow("car wanted, only another car")
        << QString(vehicletype::kCar) << VehicleType::Car << QStringLiteral("Default") << 2;
}

void TestSessionStarter::vehicleProfileIsFoundOrMade()
{
    QFETCH(QString, otherProfileType);
    QFETCH(VehicleType, wanted);
    QFETCH(QString, expectedName);
    QFETCH(int, expectedCount);
    QTemporaryDir dir;
    ProfileManager profiles(dir.path());
    profiles.loadProfiles();
    const QString defaultId = profiles.activeProfileId();
    if (!otherProfileType.isEmpty()) {
        const QString id = profiles.createProfile(QStringLiteral("Chopper"));
        QVERIFY(profiles.setActiveProfile(id));
        QVERIFY(profiles.setVehicleType(otherProfileType));
        QVERIFY(profiles.setActiveProfile(defaultId));
    }
    QString error;
    QVERIFY2(activateVehicleProfile(profiles, wanted, &error), qPrintable(error));
    QCOMPARE(profiles.activeProfileName(), expectedName);
    QCOMPARE(profiles.vehicleType(), wanted == VehicleType::Helicopter ? QString(vehicletype::kHelicopter)
                                                                       : QString(vehicletype::kCar));
    QCOMPARE(profiles.profiles().size(), expectedCount);
}

QTEST_GUILESS_MAIN(TestSessionStarter)
#include "tst_sessionstarter.moc"
