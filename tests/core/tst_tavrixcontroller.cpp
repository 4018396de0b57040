#include "controllerrig.h"

#include "inputdevice.h"
#include "logcapture.h"
#include "receiverconfigmanager.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSignalSpy>
#include <QTest>

#include <optional>

using namespace tavrix;
using namespace tavrix::testing;

namespace {

constexpr int kCh1 = 0;
constexpr int kCh2 = 1;
constexpr int kCh3 = 2;
constexpr int kCh12 = 11;
constexpr int kNeutral = 992;

#define SET_UP_RIG(rig, ...) QVERIFY2((rig).setUp(__VA_ARGS__), "the controller rig could not be set up")

QList<ReceiverFfbState> ffbStates(const QSignalSpy &spy)
{
    QList<ReceiverFfbState> states;
    for (const QList<QVariant> &args : spy)
        states.append(args.at(0).value<ReceiverFfbState>());
    return states;
}

// A key of a profile as its file on disk holds it.
QJsonObject storedKey(const ProfileManager &profiles, const QString &id, const QString &key)
{
    QFile file(profiles.profileDirectory() + QLatin1Char('/') + id + QStringLiteral(".json"));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QJsonDocument::fromJson(file.readAll()).object().value(key).toObject();
}

using Settings = QMap<QString, int>;

} // namespace

class TestTavrixController : public QObject
{
    Q_OBJECT

private slots:
    void framesCarryWheelAndPedals();
    void startRefused_data();
    void startRefused();
    void configAndTransmissionExcludeEachOther();
    void unpluggedWheelStopsOnce();
    void overrideRidesOnNoStopFrame();
    void ledPowerButtonFlipsChannel12BeforeItIsStored();
    void telemetryReachesTheController();
    void motionWaitEndsInNoMotionData();
    void helicopterStartsAndRefusesArmingAboveIdle();
    void profileSwitchWaitsForStop();
    void receiverSettingsFollowTheCarProfile_data();
    void receiverSettingsFollowTheCarProfile();
    void receiverReportsAreKeptAsItsCapsOnly();
};

void TestTavrixController::framesCarryWheelAndPedals()
{
    ControllerRig rig;
    SET_UP_RIG(rig);
    QVERIFY(rig.controller->startTransmission());
    QTRY_COMPARE(rig.sim.mode(), sim::BridgeSimulator::Mode::Transmitting);

    // Half right: (0.5 + 1) x 1023.5, truncated.
    rig.setSteering(0.5);
    rig.setPedals(0.5, 0.0);
    QTRY_VERIFY(std::abs(rig.sim.lastChannels()[kCh1] - 1535) <= 1);
    // The soft start holds a fresh run to about a tenth of the throttle: forward, but gently.
    QTRY_VERIFY(rig.sim.lastChannels()[kCh2] > kNeutral);
    QVERIFY2(rig.sim.lastChannels()[kCh2] < kNeutral + (1811 - kNeutral) / 5,
             qPrintable(QString::number(rig.sim.lastChannels()[kCh2])));
    QCOMPARE(rig.sim.lastChannels()[kCh3], 0);
    QCOMPARE(rig.sim.lastChannels()[kCh12], 2047); // LED power on by default

    rig.setSteering(-1.0);
    rig.setPedals(0.0, 0.8);
    QTRY_COMPARE(rig.sim.lastChannels()[kCh1], 0);
    QTRY_VERIFY(rig.sim.lastChannels()[kCh2] < kNeutral);
    QCOMPARE(rig.controller->channels()[kCh1], 0);
    QVERIFY(rig.controller->brake() > 0.75f);

    rig.controller->stopTransmission();
    QVERIFY(rig.flushToBridge());
    // Every counted frame arrived, then the stop's neutral frame.
    QCOMPARE(quint64(rig.controller->frameCount()) + 1, rig.sim.channelFrameCount());
}

void TestTavrixController::startRefused_data()
{
    QTest::addColumn<double>("throttle");
    QTest::addColumn<double>("brake");
    QTest::addColumn<QString>("gone"); // what goes away just before the start
    QTest::addColumn<QString>("message");

    QTest::newRow("throttle at 6%") << 0.06 << 0.0 << QString()
                                    << "Release the throttle pedal before starting transmission.";
    QTest::newRow("brake at 6%") << 0.0 << 0.06 << QString()
                                 << "Release the brake pedal before starting transmission.";
    QTest::newRow("both at 50%") << 0.5 << 0.5 << QString()
                                 << "Release the throttle and brake pedals before starting transmission.";
    QTest::newRow("throttle at 4% is released") << 0.04 << 0.0 << QString() << QString();
    // Found by the start's own poll: the refusal is the one report.
    QTest::newRow("wheel lost just now") << 0.0 << 0.0 << "lost"
                                         << "Wheel base not connected";
    QTest::newRow("wheel closed") << 0.0 << 0.0 << "closed"
                                  << "Wheel base not connected";
    QTest::newRow("bridge closed") << 0.0 << 0.0 << "bridge"
                                   << "RP2040 Bridge not connected";
}

void TestTavrixController::startRefused()
{
    QFETCH(double, throttle);
    QFETCH(double, brake);
    QFETCH(QString, gone);
    QFETCH(QString, message);

    ControllerRig rig;
    SET_UP_RIG(rig);
    QSignalSpy errors(rig.controller.get(), &TavrixController::errorOccurred);
    rig.setPedals(throttle, brake);
    if (gone == QLatin1String("lost"))
        rig.backend.setLost(rig.firstDevice, true);
    else if (gone == QLatin1String("closed"))
        rig.controller->disconnectDevice(DeviceRole::WheelBase);
    else if (gone == QLatin1String("bridge"))
        rig.controller->disconnectTransmitter();

    const bool started = rig.controller->startTransmission();
    QCOMPARE(started, message.isEmpty());
    QCOMPARE(errors.size(), started ? 0 : 1);
    if (!started)
        QCOMPARE(errors.first().at(0).toString(), message);
    rig.controller->stopTransmission(); // after a refusal there is nothing to stop: nothing is written
    if (rig.controller->isSerialConnected()) {
        QVERIFY(rig.flushToBridge());
        QCOMPARE(rig.commandCount(QStringLiteral("START")), started ? 1 : 0);
        if (!started)
            QCOMPARE(rig.sim.commands().size(), 1); // the marker alone
    }
    if (!started)
        QCOMPARE(rig.sim.channelFrameCount(), quint64(0));
}

void TestTavrixController::configAndTransmissionExcludeEachOther()
{
    ControllerRig rig;
    SET_UP_RIG(rig);
    QSignalSpy errors(rig.controller.get(), &TavrixController::errorOccurred);

    QVERIFY(rig.controller->enterConfigMode());
    QTRY_COMPARE(rig.sim.mode(), sim::BridgeSimulator::Mode::Configuring);
    QVERIFY(!rig.controller->startTransmission());
    QCOMPARE(errors.size(), 1);
    rig.controller->exitConfigMode();
    QVERIFY(!rig.controller->isConfigMode());

    QVERIFY(rig.controller->startTransmission());
    QVERIFY(!rig.controller->enterConfigMode());
    QCOMPARE(errors.size(), 2);
    QVERIFY(!rig.controller->isConfigMode());
    QVERIFY(rig.flushToBridge());
    QCOMPARE(rig.sim.commands().filter(QStringLiteral("CFGMODE")),
             QStringList({QStringLiteral("CFGMODE ON"), QStringLiteral("CFGMODE OFF")}));
    QCOMPARE(rig.commandCount(QStringLiteral("START")), 1);
}

void TestTavrixController::unpluggedWheelStopsOnce()
{
    ControllerRig rig;
    SET_UP_RIG(rig);
    QSignalSpy errors(rig.controller.get(), &TavrixController::errorOccurred);
    QSignalSpy wheel(rig.controller.get(), &TavrixController::wheelBaseConnectedChanged);
    QVERIFY(rig.controller->startTransmission());
    QTRY_VERIFY(rig.controller->frameCount() > 5);

    rig.backend.setLost(rig.firstDevice, true);
    QTRY_VERIFY(!rig.controller->isRunning());
    // Let the idle polls see the lost wheel a good number of times (each poll of the
    // pedals, still there, marks one round).
    QSignalSpy idlePolls(rig.controller->devices()->device(DeviceRole::Pedals), &InputDevice::stateChanged);
    while (idlePolls.size() < 10)
        QVERIFY(idlePolls.wait(2000));
    QVERIFY(rig.flushToBridge());

    // What the stop sends is tst_controllerfaults' concern; here, that it happens once.
    QCOMPARE(errors.size(), 1);
    QCOMPARE(rig.commandCount(QStringLiteral("STOP")), 1);
    QCOMPARE(wheel.size(), 1);
    QVERIFY(!rig.controller->devices()->isConnected(DeviceRole::WheelBase));
}

void TestTavrixController::overrideRidesOnNoStopFrame()
{
    ControllerRig rig;
    SET_UP_RIG(rig);
    QVERIFY(rig.controller->startTransmission());
    QVERIFY(rig.controller->setChannelOverride(kCh3, 1700));
    QTRY_COMPARE(rig.sim.lastChannels()[kCh3], 1700);
    QList<int> ch3;
    connect(&rig.sim, &sim::BridgeSimulator::channelFrameReceived, this,
            [&ch3](const sim::ChannelArray &channels) { ch3.append(channels[kCh3]); });

    // A throttle spike: the zeroed frame of the tick that found it, then the stop's neutral frame.
    rig.setPedals(1.0, 0.0);
    QTRY_VERIFY(!rig.controller->isRunning());
    QVERIFY(rig.flushToBridge());
    QVERIFY(ch3.size() >= 2);
    QCOMPARE(ch3.mid(ch3.size() - 2), (QList<int>{0, 0}));
    // Gone for the next run too.
    QVERIFY(!rig.controller->setChannelOverride(kCh3, 1700));
}

void TestTavrixController::ledPowerButtonFlipsChannel12BeforeItIsStored()
{
    ControllerRig rig;
    SET_UP_RIG(rig);
    QJsonObject led = rig.profiles.setting(QStringLiteral("ledSettings")).toObject();
    led.insert(QStringLiteral("powerButtonIndex"), 5);
    QVERIFY(rig.profiles.setSetting(QStringLiteral("ledSettings"), led));
    QSignalSpy ledChanged(rig.controller.get(), &TavrixController::ledSettingsChanged);
    QVERIFY(rig.controller->startTransmission());
    QTRY_COMPARE(rig.sim.lastChannels()[kCh12], 2047);

    // Writing the profile takes longer than a tick: the frame that switches CH12 goes out
    // first, and the store is written once the tick has returned.
    std::optional<int> ch12WhenSaved;
    connect(&rig.profiles, &ProfileManager::profileModified, this,
            [&] { ch12WhenSaved = rig.controller->channels()[kCh12]; });
    rig.backend.setButton(rig.firstDevice, 5, true);
    QTRY_COMPARE(rig.sim.lastChannels()[kCh12], 0);
    QTRY_COMPARE(ch12WhenSaved, std::optional<int>(0));
    QCOMPARE(rig.profiles.setting(QStringLiteral("ledSettings")).toObject().value(QStringLiteral("powerOn")),
             QJsonValue(false));
    QCOMPARE(ledChanged.size(), 1);

    // Holding the button is one press; releasing and pressing again is the next.
    rig.backend.setButton(rig.firstDevice, 5, false);
    QTRY_VERIFY(!rig.controller->devices()->device(DeviceRole::WheelBase)->button(5));
    QCOMPARE(ledChanged.size(), 1);
    rig.backend.setButton(rig.firstDevice, 5, true);
    QTRY_COMPARE(rig.sim.lastChannels()[kCh12], 2047);
    QCOMPARE(ledChanged.size(), 2);
}

void TestTavrixController::telemetryReachesTheController()
{
    ControllerRig rig;
    SET_UP_RIG(rig);
    TavrixController &c = *rig.controller;
    QSignalSpy stats(&c, &TavrixController::linkStatisticsUpdated);
    QSignalSpy link(&c, &TavrixController::carLinkChanged);
    QSignalSpy motion(&c, &TavrixController::carMotionReceived);
    QSignalSpy gps(&c, &TavrixController::gpsUpdated);
    QSignalSpy ffb(&c, &TavrixController::receiverFfbStateChanged);
    QSignalSpy dashboard(&c, &TavrixController::telemetryDashboardChanged);

    QVERIFY(c.startTransmission());
    QTRY_VERIFY(!stats.isEmpty());
    QTRY_VERIFY(!motion.isEmpty());
    QTRY_VERIFY(!gps.isEmpty());
    QCOMPARE(link.first().at(0).toBool(), true);
    QCOMPARE(ffbStates(ffb), QList<ReceiverFfbState>(
                                 {ReceiverFfbState::WaitingForMotion, ReceiverFfbState::ReceivingMotion}));

    QStringList keys;
    for (const TelemetrySensor &sensor : c.telemetry()->catalogue()) {
        keys.append(sensor.key);
        QVERIFY(sensor.updatedMs > 0);
    }
    for (const char *key : {"1RSS", "RQly", "GPS", "GLon"})
        QVERIFY2(keys.contains(QLatin1String(key)), key);

    // Stopped, the car falls silent: unlinked after the timeout, its sensors go stale.
    c.stopTransmission();
    QCOMPARE(c.telemetry()->receiverFfbState(), ReceiverFfbState::ReceivingMotion); // "receiving" stays
    QTRY_COMPARE(link.last().at(0).toBool(), false);
    QTRY_COMPARE(c.telemetry()->staleSensorCount(), int(c.telemetry()->catalogue().size()));
    QVERIFY(!dashboard.isEmpty());
}

void TestTavrixController::motionWaitEndsInNoMotionData()
{
    sim::BridgeSimulatorSettings settings = ControllerRig::quietBridge();
    settings.telemetry.motionHz = 0.0;
    ControllerRig rig(settings);
    SET_UP_RIG(rig);
    QSignalSpy ffb(rig.controller.get(), &TavrixController::receiverFfbStateChanged);

    QVERIFY(rig.controller->startTransmission());
    QTRY_COMPARE(rig.controller->telemetry()->receiverFfbState(), ReceiverFfbState::NoMotionData);
    QCOMPARE(ffbStates(ffb),
             QList<ReceiverFfbState>({ReceiverFfbState::WaitingForMotion, ReceiverFfbState::NoMotionData}));

    // Stopping leaves "no motion data"; the next start waits again.
    rig.controller->stopTransmission();
    QCOMPARE(rig.controller->telemetry()->receiverFfbState(), ReceiverFfbState::NoMotionData);
    QVERIFY(rig.controller->startTransmission());
    QCOMPARE(rig.controller->telemetry()->receiverFfbState(), ReceiverFfbState::WaitingForMotion);
    rig.controller->stopTransmission();
    QCOMPARE(rig.controller->telemetry()->receiverFfbState(), ReceiverFfbState::Idle);
}

void TestTavrixController::helicopterStartsAndRefusesArmingAboveIdle()
{
    ControllerRig rig;
    SET_UP_RIG(rig, QStringLiteral("rc_helicopter"));
    TavrixController &c = *rig.controller;
    QVERIFY(c.isHelicopter());
    QSignalSpy errors(&c, &TavrixController::errorOccurred);
    QSignalSpy armed(&c, &TavrixController::heliArmedChanged);

    // Collective at 15% of the lever (one-sided -1..+1), stick centred.
    constexpr int kCollectiveSlot = 2;
    rig.backend.setAxis(rig.secondDevice, kCollectiveSlot, rawForDeviceValue(-0.7));
    QVERIFY(c.startTransmission());
    QTRY_VERIFY(rig.sim.channelFrameCount() > 5);
    // A centred stick reads centre on both axes before it ever moved.
    QTRY_COMPARE(rig.sim.lastChannels()[kCh1], kNeutral);
    QCOMPARE(rig.sim.lastChannels()[kCh2], kNeutral);

    c.setHeliArmed(true);
    QCOMPARE(errors.size(), 1);
    QCOMPARE(errors.first().at(0).toString(),
             QStringLiteral("Lower the collective before arming the motor."));
    QVERIFY(!c.isHeliArmed());
    QVERIFY(armed.isEmpty());

    rig.backend.setAxis(rig.secondDevice, kCollectiveSlot, rawForDeviceValue(-0.9));
    QTRY_VERIFY(c.devices()->device(DeviceRole::HeliThrottle)->axis(kCollectiveSlot) < -0.85f);
    c.setHeliArmed(true);
    QVERIFY(c.isHeliArmed());
    QCOMPARE(armed.size(), 1);

    // A lost lever disarms, saying so in one line, and the collective goes to the bottom.
    LogCapture log;
    rig.backend.setLost(rig.secondDevice, true);
    QTRY_COMPARE(armed.size(), 2);
    QTRY_COMPARE(rig.sim.lastChannels()[kCh3], 172);
    QVERIFY(c.isRunning());
    QCOMPARE(log.count(QStringLiteral("Test Throttle")), 1);

    c.setHeliArmed(true);
    c.stopTransmission();
    QCOMPARE(armed.size(), 4); // armed again, then disarmed by the stop

    // Without the joystick the helicopter does not start.
    c.disconnectDevice(DeviceRole::HeliJoystick);
    QVERIFY(!c.startTransmission());
    QCOMPARE(errors.last().at(0).toString(), QStringLiteral("Joystick not connected"));
}

void TestTavrixController::profileSwitchWaitsForStop()
{
    ControllerRig rig;
    SET_UP_RIG(rig);
    const QString heli = rig.profiles.createProfile(QStringLiteral("Heli"));
    QVERIFY(!heli.isEmpty());
    QSignalSpy errors(rig.controller.get(), &TavrixController::errorOccurred);
    QSignalSpy changed(rig.controller.get(), &TavrixController::profileChanged);
    QVERIFY(rig.controller->startTransmission());

    QVERIFY(rig.profiles.setActiveProfile(heli));
    QVERIFY(rig.profiles.setVehicleType(QStringLiteral("rc_helicopter")));
    QCOMPARE(errors.size(), 1);
    QVERIFY(!rig.controller->isHelicopter());
    QVERIFY(rig.controller->isRunning());
    QTRY_VERIFY(rig.sim.channelFrameCount() > 3);

    rig.controller->stopTransmission();
    QVERIFY(rig.controller->isHelicopter());
    QCOMPARE(changed.size(), 1);
    QCOMPARE(changed.first().at(0).toString(), heli);
    QVERIFY(!rig.controller->devices()->isConnected(DeviceRole::WheelBase));
}

void TestTavrixController::receiverSettingsFollowTheCarProfile_data()
{
    QTest::addColumn<QString>("vehicleType");
    QTest::addColumn<QJsonObject>("stored");
    QTest::addColumn<Settings>("loaded");
    const QJsonObject chosen{{QStringLiteral("initialized"), true},
                             {QStringLiteral("gpsRateHz"), 10},
                             {QStringLiteral("motionTelem"), false}};
    QJsonObject defaults = chosen;
    defaults.insert(QStringLiteral("initialized"), false);
    QJsonObject untaken = chosen;
    untaken.insert(QStringLiteral("gpsRateHz"), 3);
    QTest::newRow("chosen for this car")
        << QStringLiteral("rc_car") << chosen
        << Settings{{QStringLiteral("GPS_RATE"), 10}, {QStringLiteral("MOTION"), 0}};
    QTest::newRow("never chosen") << QStringLiteral("rc_car") << defaults << Settings{};
    QTest::newRow("a helicopter") << QStringLiteral("rc_helicopter") << chosen << Settings{};
    QTest::newRow("a rate the receiver does not take")
        << QStringLiteral("rc_car") << untaken << Settings{{QStringLiteral("MOTION"), 0}};
}

void TestTavrixController::receiverSettingsFollowTheCarProfile()
{
    QFETCH(QString, vehicleType);
    QFETCH(QJsonObject, stored);
    QFETCH(Settings, loaded);
    ControllerRig rig;
    SET_UP_RIG(rig);
    ReceiverConfigManager *receiver = rig.controller->receiverConfig();
    const QString first = rig.profiles.activeProfileId();

    // The user's choice reaches the profile's file, marked as chosen.
    QVERIFY(receiver->setDesiredSetting(QStringLiteral("GPS_RATE"), 5));
    const QJsonObject written = storedKey(rig.profiles, first, QStringLiteral("receiverSettings"));
    QCOMPARE(written.value(QStringLiteral("gpsRateHz")).toInt(), 5);
    QVERIFY(written.value(QStringLiteral("initialized")).toBool());

    const QString other = rig.profiles.createProfile(QStringLiteral("Other"));
    QVERIFY(rig.profiles.setActiveProfile(other));
    QVERIFY(rig.profiles.setVehicleType(vehicleType));
    QVERIFY(rig.profiles.setSetting(QStringLiteral("receiverSettings"), stored));
    QVERIFY(rig.profiles.setActiveProfile(first));
    QCOMPARE(receiver->desiredSettings().value(QStringLiteral("GPS_RATE")), 5);

    // Loading a profile is no choice of the user's: nothing is written back.
    Settings expected = receiver->desiredSettings();
    expected.insert(loaded);
    QSignalSpy modified(&rig.profiles, &ProfileManager::profileModified);
    QVERIFY(rig.profiles.setActiveProfile(other));
    QCOMPARE(receiver->desiredSettings(), expected);
    QCOMPARE(modified.size(), 0);
}

void TestTavrixController::receiverReportsAreKeptAsItsCapsOnly()
{
    ControllerRig rig;
    SET_UP_RIG(rig);
    ReceiverConfigManager *receiver = rig.controller->receiverConfig();
    const QString id = rig.profiles.activeProfileId();
    receiver->onReceiverLine(QStringLiteral("Orvane:4.3.0"));
    receiver->onReceiverLine(QStringLiteral("TELEM: OSD:1 GPS_ON:1 GPS_RATE:5 IMU:1 MOTION:0"));
    const QJsonObject caps = storedKey(rig.profiles, id, QStringLiteral("receiverCaps"));
    QCOMPARE(caps.value(QStringLiteral("firmware")).toString(), QStringLiteral("4.3.0"));
    QVERIFY(caps.value(QStringLiteral("gps")).toBool());
    QVERIFY(caps.value(QStringLiteral("imu")).toBool());
    // What the receiver reports is not what the user chose for the car.
    QVERIFY(!storedKey(rig.profiles, id, QStringLiteral("receiverSettings"))
                 .value(QStringLiteral("initialized"))
                 .toBool());
}

QTEST_MAIN(TestTavrixController)
#include "tst_tavrixcontroller.moc"
