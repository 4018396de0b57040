#include "hubrig.h"
#include "inputdevice.h"
#include "profilekeys.h"
#include "pseudoterminal.h"
#include "receiverport.h"
#include "sessionstarter.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using namespace tavrix;
using namespace tavrix::testing;
using namespace std::chrono_literals;

namespace {

// The services of a headless run with the bridge on its pty and a wheel and pedals plugged
// in, released; the plan names the bridge and starts.
struct StarterRig : HubRig
{
    bool setUp()
    {
        plugCarControllers();
        return startBridge();
    }

    SessionPlan plan(QList<RoleChoice> devices) const
    {
        SessionPlan p;
        p.transmitterPort = linkPath();
        p.devices = std::move(devices);
        p.start = true;
        return p;
    }
};

const QList<RoleChoice> kWheelByNameAndPedalsByIndex{
    {DeviceRole::WheelBase, {-1, QStringLiteral("Test Wheel")}},
    {DeviceRole::Pedals, {1, {}}},
};

} // namespace

class TestSessionStarter : public QObject
{
    Q_OBJECT

private slots:
    void refusedStartIsRetriedUntilThePedalsAreReleased()
    {
        StarterRig rig;
        QVERIFY(rig.setUp());
        rig.setPedals(0.8, 0.0);
        QSignalSpy errors(rig.controller(), &TavrixController::errorOccurred);
        SessionStarter starter(rig.controller(), rig.plan(kWheelByNameAndPedalsByIndex), 20ms);
        QVERIFY(starter.begin());
        QCOMPARE(starter.baudRate(), TransmitterLink::kDefaultBaudRate);

        // Several attempts, each refused by the controller's own check; nothing reaches the bridge.
        QTRY_VERIFY(errors.count() >= 3);
        QCOMPARE(errors.last().at(0).toString(),
                 QStringLiteral("Release the throttle pedal before starting transmission."));
        QVERIFY(rig.controller()->isSerialConnected());
        QVERIFY(rig.controller()->devices()->isConnected(DeviceRole::WheelBase));
        QVERIFY(rig.controller()->devices()->isConnected(DeviceRole::Pedals));
        QVERIFY(!rig.controller()->isRunning());
        QVERIFY(!rig.sim.commands().contains(QStringLiteral("START")));

        rig.setPedals(0.0, 0.0);
        QTRY_VERIFY(rig.controller()->isRunning());
        QTRY_COMPARE(rig.sim.commands().count(QStringLiteral("START")), 1);
        QTRY_VERIFY(rig.sim.channelFrameCount() > 3);
    }

    void waitsForAMissingDeviceAndSaysSoOnce()
    {
        StarterRig rig;
        QVERIFY(rig.setUp());
        SessionStarter starter(rig.controller(),
                               rig.plan({{DeviceRole::WheelBase, {-1, QStringLiteral("late wheel")}}}), 10ms);
        QSignalSpy progress(&starter, &SessionStarter::progress);
        QSignalSpy errors(rig.controller(), &TavrixController::errorOccurred);
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
        QVERIFY(waiting.at(0).contains(QLatin1String("\"late wheel\"")));

        // Plugged in late, found by its name without regard to case, and started.
        const int late = rig.backend->addDevice({QStringLiteral("Late Wheel"), {}, 8, 32, 1, true});
        for (int slot : {ControllerRig::kThrottleSlot, ControllerRig::kBrakeSlot})
            rig.backend->setAxis(late, slot, rawForGenericPedal(0.0)); // its own pedal axes released
        QTRY_VERIFY(rig.controller()->isRunning());
        QCOMPARE(rig.controller()->devices()->device(DeviceRole::WheelBase)->deviceName(),
                 QStringLiteral("Late Wheel"));
    }

    void neverStartsAgainAfterAStop_data()
    {
        QTest::addColumn<bool>("wheelLost"); // else the user stops
        QTest::newRow("the wheel is lost and comes back") << true;
        QTest::newRow("the user stops") << false;
    }

    void neverStartsAgainAfterAStop()
    {
        QFETCH(bool, wheelLost);
        constexpr auto kRetry = 10ms;
        StarterRig rig;
        QVERIFY(rig.setUp());
        SessionStarter starter(rig.controller(), rig.plan(kWheelByNameAndPedalsByIndex), kRetry);
        QSignalSpy progress(&starter, &SessionStarter::progress);
        QVERIFY(starter.begin());
        QTRY_VERIFY(rig.controller()->isRunning());

        if (wheelLost)
            rig.backend->setLost(rig.firstDevice, true);
        else
            rig.controller()->stopTransmission();
        QTRY_VERIFY(!rig.controller()->isRunning());
        QTRY_COMPARE(rig.sim.commands().count(QStringLiteral("STOP")), 1);
        if (wheelLost) {
            rig.backend->setLost(rig.firstDevice, false);
            QTRY_VERIFY(rig.controller()->devices()->isConnected(DeviceRole::WheelBase));
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
        QVERIFY(!rig.controller()->isRunning());
        QCOMPARE(rig.sim.commands().count(QStringLiteral("START")), 1);
    }

    void receiverPluggedLateIsConnectedOnceAndLeftAloneAfter()
    {
        StarterRig rig;
        QVERIFY(rig.setUp());
        SessionPlan plan = rig.plan(kWheelByNameAndPedalsByIndex);
        plan.receiverPort = rig.dir.filePath(QStringLiteral("ttyRECEIVER"));
        SessionStarter starter(rig.controller(), plan, 10ms);
        QSignalSpy errors(rig.controller(), &TavrixController::errorOccurred);
        QVERIFY(starter.begin());

        // A receiver that is not there yet holds nothing up.
        QTRY_VERIFY(rig.controller()->isRunning());
        QTRY_VERIFY(errors.count() >= 2);
        PseudoTerminal receiver;
        QVERIFY(receiver.open(plan.receiverPort));
        ReceiverPort *port = rig.controller()->receiverPort();
        QTRY_VERIFY(port->isConnected());

        // Put away on purpose (the app's disconnect): the plan does not bring it back.
        QSignalSpy connected(port, &ReceiverPort::connectedChanged);
        port->disconnectReceiver();
        QVERIFY(!connected.wait(200));
        QVERIFY(rig.controller()->isRunning());
    }

    void withoutAnyPortItFails()
    {
        StarterRig rig;
        QVERIFY(rig.setUp());
        SessionPlan plan; // no port given, none remembered in the fresh profile
        SessionStarter starter(rig.controller(), plan, 10ms);
        QSignalSpy failed(&starter, &SessionStarter::failed);
        QVERIFY(!starter.begin());
        QCOMPARE(failed.count(), 1);
        QVERIFY(failed.at(0).at(0).toString().contains(QLatin1String("--transmitter")));
        QVERIFY(failed.at(0).at(0).toString().contains(rig.linkPath())); // the ports it can see
    }

    void vehicleProfileIsFoundOrMade_data()
    {
        QTest::addColumn<QString>(
            "otherProfileType"); // an extra profile besides "Default" (car); empty: none
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

    void vehicleProfileIsFoundOrMade()
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
};

QTEST_GUILESS_MAIN(TestSessionStarter)
#include "tst_sessionstarter.moc"
