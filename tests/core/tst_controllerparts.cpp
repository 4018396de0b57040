#include "activeprofilefollower.h"
#include "autoconnect.h"
#include "channelneutrals.h"
#include "crsftypes.h"
#include "deviceroleset.h"
#include "drivecomputation.h"
#include "drivecontrols.h"
#include "helicoptercomputation.h"
#include "inputdetection.h"
#include "profilekeys.h"
#include "profilemanager.h"
#include "profileschema.h"
#include "profilesettings.h"
#include "telemetrymonitor.h"
#include "testsources.h"
#include "virtualbackend.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using namespace tavrix;
using namespace Qt::StringLiterals;

class TestControllerParts : public QObject
{
    Q_OBJECT

private slots:
    void defaultProfileReadsAsTypedDefaults();
    void storedValuesAreRead();
    void malformedValuesKeepDefaults();
    void receiverGeneration_data();
    void receiverGeneration();
    void shifterGear_data();
    void shifterGear();
    void findSavedDevice_data();
    void findSavedDevice();
    void autoConnectPort_data();
    void autoConnectPort();
    void staleCountChangesRaiseDashboardOnce();
    void wrappedMotionRecord_data();
    void wrappedMotionRecord();
    void followerWaitsForStopToSwitch_data();
    void followerWaitsForStopToSwitch();
    void detectionTimesOutUnsuccessfully();
    void channelNeutralsFollowWhatDrivesEachChannel_data();
    void channelNeutralsFollowWhatDrivesEachChannel();
};

void TestControllerParts::defaultProfileReadsAsTypedDefaults()
{
    // The computations start from the settings structs' initial values until a profile is
    // read; a fresh profile, and a button mapping added without fields, must read as those.
    QJsonObject profile = ProfileSchema::defaultProfile(QStringLiteral("id"), QStringLiteral("Default"),
                                                        ProfileSchema::currentTimestamp());
    profile.insert(profilekeys::kButtonMappings, QJsonArray{QJsonObject{}});
    const ProfileSettings read = ProfileSettings::fromProfile(ProfileSchema::readProfile(profile));
    const ProfileSettings typed;
    QCOMPARE(read.vehicleType, typed.vehicleType);
    QVERIFY(read.drive == typed.drive);
    QVERIFY(read.axes == typed.axes);
    QCOMPARE(read.buttonMappings.size(), 1);
    QVERIFY(read.buttonMappings.first() == ButtonMapping{});
    QVERIFY(read.led == typed.led);
    QVERIFY(read.shifter == typed.shifter);
    QCOMPARE(read.receiverGeneration, typed.receiverGeneration);
    QVERIFY(read.helicopter == typed.helicopter);
}

void TestControllerParts::storedValuesAreRead()
{
    QJsonObject profile = QJsonDocument::fromJson(R"({
        "vehicleType": "rc_helicopter",
        "axisSettings": {"escMode": 2, "escNeutral": 1500, "gearThrottleLimitPercent": [10, 20, 30, 40, 50, 60, 70],
                         "Steering": {"useCalibration": true, "inputCenter": 0.1}},
        "buttonMappings": [{"buttonIndex": 4, "extraButtons": [130, -1], "channel": 6, "mode": 3,
                            "activatesPitLimiter": true}, "not a mapping"],
        "receiverCaps": {"firmware": "4.2.0"}
    })")
                              .object();
    profile.insert(profilekeys::kHelicopterConfig, helicopterConfigWithRateMode({}, 2));

    const ProfileSettings s = ProfileSettings::fromProfile(profile);
    QCOMPARE(s.vehicleType, VehicleType::Helicopter);
    QVERIFY(s.drive.usesCustomEsc());
    QCOMPARE(s.drive.esc().neutral, 1500);
    QCOMPARE(s.drive.gearThrottleLimitPercent[6], 70);
    QVERIFY(s.drive.steeringCalibration.useCalibration);
    QCOMPARE(s.drive.steeringCalibration.inputCenter, 0.1f);
    QCOMPARE(s.axes.steering.inputCenter, 0.1f);
    QCOMPARE(s.buttonMappings.size(), 1);
    const ButtonMapping &m = s.buttonMappings.first();
    QCOMPARE(m.buttonIndex, 4);
    QCOMPARE(m.extraButtons, QList<int32_t>({130, -1}));
    QCOMPARE(m.channel, 6);
    QCOMPARE(m.mode, ButtonBehaviour::Toggle);
    QVERIFY(m.activatesPitLimiter);
    QCOMPARE(m.outputValue, 2047);
    QCOMPARE(s.helicopter.dualRates.activeMode, 2);
    QCOMPARE(s.receiverGeneration, crsf::kReceiverGenerationNewer);

    const QJsonObject led = ledSettingsWithPower(QJsonObject{{QStringLiteral("ledCount"), 8}}, false);
    QCOMPARE(ledSettingsFromJson(led).powerOn, false);
    QCOMPARE(led.value(QStringLiteral("ledCount")).toInt(), 8); // the rest kept
}

void TestControllerParts::malformedValuesKeepDefaults()
{
    const QJsonObject profile{
        {QStringLiteral("vehicleType"), 7},
        {QStringLiteral("axisSettings"),
         QJsonObject{{QStringLiteral("softStartEnabled"), QStringLiteral("yes")},
                     {QStringLiteral("decelRate"), QJsonArray{}},
                     {QStringLiteral("gearThrottleLimitPercent"), QJsonArray{50, QStringLiteral("x")}}}},
        {QStringLiteral("ledSettings"), QJsonArray{}},
        {QStringLiteral("buttonMappings"), QJsonArray{QJsonObject{{QStringLiteral("mode"), 99}}}},
    };
    const ProfileSettings s = ProfileSettings::fromProfile(profile);
    const DriveSettings drive;
    QCOMPARE(s.vehicleType, VehicleType::Car);
    QVERIFY(s.drive.softStartEnabled);
    QCOMPARE(s.drive.decelRate, drive.decelRate);
    QCOMPARE(s.drive.gearThrottleLimitPercent[0], 50);
    QCOMPARE(s.drive.gearThrottleLimitPercent[1], drive.gearThrottleLimitPercent[1]);
    QVERIFY(s.led == LedSettings{});
    QCOMPARE(s.buttonMappings.size(), 1);
    QCOMPARE(s.buttonMappings.first().mode, ButtonBehaviour::Momentary);
}

void TestControllerParts::receiverGeneration_data()
{
    QTest::addColumn<QString>("firmware");
    QTest::addColumn<int>("generation");
    QTest::newRow("empty") << QString() << crsf::kReceiverGenerationUnknown;
    QTest::newRow("no version") << QStringLiteral("unknown") << crsf::kReceiverGenerationUnknown;
    QTest::newRow("3.5.1") << QStringLiteral("3.5.1") << crsf::kReceiverGenerationClassic;
    QTest::newRow("v3") << QStringLiteral("v3") << crsf::kReceiverGenerationClassic;
    QTest::newRow("4.0.0") << QStringLiteral("4.0.0") << crsf::kReceiverGenerationNewer;
    QTest::newRow("V12.1") << QStringLiteral("V12.1") << crsf::kReceiverGenerationNewer;
}

void TestControllerParts::receiverGeneration()
{
    QFETCH(QString, firmware);
    QFETCH(int, generation);
    QCOMPARE(receiverGenerationFromFirmware(firmware), generation);
}

void TestControllerParts::shifterGear_data()
{
    QTest::addColumn<QList<int>>("pressed");
    QTest::addColumn<int>("gear");
    // Mapping: neutral 0, reverse 1, gears 1..7 on buttons 10..16.
    QTest::newRow("nothing") << QList<int>{} << 0;
    QTest::newRow("neutral button") << QList<int>{0} << 0;
    QTest::newRow("reverse") << QList<int>{1} << -1;
    QTest::newRow("first") << QList<int>{10} << 1;
    QTest::newRow("seventh") << QList<int>{16} << 7;
    QTest::newRow("reverse wins over a gear") << QList<int>{12, 1} << -1;
}

void TestControllerParts::shifterGear()
{
    QFETCH(QList<int>, pressed);
    QFETCH(int, gear);
    ShifterMapping mapping;
    mapping.buttonIndex = {0, 1, 10, 11, 12, 13, 14, 15, 16};
    testing::TestController shifter;
    for (int index : pressed)
        shifter.press(index);
    QCOMPARE(mapping.gear(shifter), gear);
}

void TestControllerParts::findSavedDevice_data()
{
    QTest::addColumn<QString>("productName");
    QTest::addColumn<QString>("guid");
    QTest::addColumn<int>("index");
    const QString guidB = QStringLiteral("{00000000-0000-0000-0000-00000000000B}");
    QTest::newRow("guid and product") << QStringLiteral("Wheel") << guidB << 1;
    QTest::newRow("guid in lower case") << QStringLiteral("Wheel") << guidB.toLower() << 1;
    QTest::newRow("guid gone, product stays")
        << QStringLiteral("Wheel") << QStringLiteral("{00000000-0000-0000-0000-0000000000FF}") << 0;
    QTest::newRow("product differs in case") << QStringLiteral("wheel") << QString() << -1;
    QTest::newRow("nothing saved") << QString() << QString() << -1;
    QTest::newRow("guid of another product") << QStringLiteral("Pedals") << guidB << 2;
}

void TestControllerParts::findSavedDevice()
{
    QFETCH(QString, productName);
    QFETCH(QString, guid);
    QFETCH(int, index);
    QList<InputDeviceInfo> devices(3);
    devices[0].productName = QStringLiteral("Wheel");
    devices[0].instanceGuid[15] = 0x0A;
    devices[1].productName = QStringLiteral("Wheel");
    devices[1].instanceGuid[15] = 0x0B;
    devices[2].productName = QStringLiteral("Pedals");
    devices[2].instanceGuid[15] = 0x0C;
    DeviceIdentity saved;
    saved.productName = productName;
    saved.instanceGuid = guid;
    QCOMPARE(tavrix::findSavedDevice(saved, devices), index);
}

void TestControllerParts::autoConnectPort_data()
{
    QTest::addColumn<QString>("remembered");
    QTest::addColumn<QStringList>("listed");
    QTest::addColumn<QString>("receiver");
    QTest::addColumn<QString>("chosen");
    const QString a = QStringLiteral("/dev/ttyACM0");
    const QString b = QStringLiteral("/dev/ttyACM1");
    QTest::newRow("remembered among others") << b << QStringList{a, b} << QString() << b;
    // Whatever else is plugged in is not the transmitter.
    QTest::newRow("remembered but absent") << b << QStringList{a} << QString() << QString();
    QTest::newRow("nothing remembered, one port") << QString() << QStringList{a} << QString() << a;
    QTest::newRow("nothing remembered, two ports")
        << QString() << QStringList{a, b} << QString() << QString();
    // Channel frames never go to the car receiver's console.
    QTest::newRow("nothing remembered, the other port is the receiver's")
        << QString() << QStringList{a, b} << b << a;
    QTest::newRow("nothing remembered, only the receiver's port")
        << QString() << QStringList{a} << a << QString();
    QTest::newRow("remembered port now the receiver's") << b << QStringList{a, b} << b << QString();
}

void TestControllerParts::autoConnectPort()
{
    QFETCH(QString, remembered);
    QFETCH(QStringList, listed);
    QFETCH(QString, receiver);
    QFETCH(QString, chosen);
    QList<SerialPortDescription> ports;
    for (const QString &name : listed)
        ports.append({name, {}, {}, 0, 0});
    QCOMPARE(autoconnect::transmitterPort(remembered, ports, receiver), chosen);
}

void TestControllerParts::staleCountChangesRaiseDashboardOnce()
{
    ControllerTimings t;
    t.monitorInterval = std::chrono::hours(1); // checks run by hand
    t.sensorStaleAfter = std::chrono::milliseconds(50);
    TelemetryMonitor monitor(t);
    QSignalSpy dashboard(&monitor, &TelemetryMonitor::telemetryDashboardChanged);
    QSignalSpy list(&monitor, &TelemetryMonitor::telemetrySensorListChanged);

    monitor.handleFrame(crsf::kTypeAttitude, QByteArray::fromHex("0000"
                                                                 "0000"
                                                                 "0000"));
    QCOMPARE(list.size(), 1);
    QCOMPARE(monitor.catalogue().size(), 3);
    monitor.checkLinkAndSensors();
    QCOMPARE(monitor.staleSensorCount(), 0);
    QVERIFY(dashboard.isEmpty());

    QTRY_VERIFY((monitor.checkLinkAndSensors(), monitor.staleSensorCount() == 3));
    QCOMPARE(dashboard.size(), 1);
    monitor.checkLinkAndSensors();
    QCOMPARE(dashboard.size(), 1);

    monitor.handleFrame(crsf::kTypeAttitude, QByteArray::fromHex("0001"
                                                                 "0000"
                                                                 "0000"));
    QCOMPARE(list.size(), 1); // same keys
    monitor.checkLinkAndSensors();
    QCOMPARE(monitor.staleSensorCount(), 0);
    QCOMPARE(dashboard.size(), 2);
}

void TestControllerParts::wrappedMotionRecord_data()
{
    QTest::addColumn<QByteArray>("payload");
    QTest::addColumn<bool>("isMotion");

    // destination, 0xCA, then the 7-byte record: tag, three big-endian values in milli-g.
    const QByteArray record = QByteArray::fromHex("01"
                                                  "01f4"
                                                  "ff38"
                                                  "03e8");
    QTest::newRow("nine bytes unwrap") << (QByteArray::fromHex("eaca") + record) << true;
    QTest::newRow("eight bytes are no wrapper") << (QByteArray::fromHex("eaca") + record.left(6)) << false;
    QTest::newRow("wrong marker") << (QByteArray::fromHex("eacb") + record) << false;
}

void TestControllerParts::wrappedMotionRecord()
{
    QFETCH(QByteArray, payload);
    QFETCH(bool, isMotion);

    TelemetryMonitor monitor{ControllerTimings{}};
    QSignalSpy motion(&monitor, &TelemetryMonitor::carMotionReceived);
    monitor.handleFrame(crsf::kTypeWrappedRecord, payload);
    QCOMPARE(motion.size(), isMotion ? 1 : 0);
    QCOMPARE(monitor.receiverFfbState(),
             isMotion ? ReceiverFfbState::ReceivingMotion : ReceiverFfbState::Idle);
    if (isMotion) {
        QCOMPARE(motion.first().at(0).toFloat(), 0.5f);
        QCOMPARE(motion.first().at(1).toFloat(), -0.2f);
        QCOMPARE(motion.first().at(2).toFloat(), 1.0f);
    }
}

void TestControllerParts::followerWaitsForStopToSwitch_data()
{
    QTest::addColumn<QString>("change");
    QTest::addColumn<bool>("transmitting");
    QTest::addColumn<VehicleType>("vehicleAfter");

    QTest::newRow("vehicle edited while idle") << u"vehicle"_s << false << VehicleType::Helicopter;
    QTest::newRow("vehicle edited while transmitting") << u"vehicle"_s << true << VehicleType::Helicopter;
    // Same vehicle, but the other profile may name other devices.
    QTest::newRow("other car profile while idle") << u"other"_s << false << VehicleType::Car;
    QTest::newRow("other car profile while transmitting") << u"other"_s << true << VehicleType::Car;
    // Not switches at all: nothing is reopened and nothing waits.
    QTest::newRow("renamed while transmitting") << u"rename"_s << true << VehicleType::Car;
    QTest::newRow("chosen again while idle") << u"again"_s << false << VehicleType::Car;
}

void TestControllerParts::followerWaitsForStopToSwitch()
{
    QFETCH(QString, change);
    QFETCH(bool, transmitting);
    QFETCH(VehicleType, vehicleAfter);

    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    ProfileManager profiles(dir.path());
    profiles.loadProfiles();
    const QString other = profiles.createProfile(QStringLiteral("Other"));
    QVERIFY(!other.isEmpty());
    ActiveProfileFollower follower(&profiles);
    follower.reload();
    QCOMPARE(follower.vehicleType(), VehicleType::Car);

    QSignalSpy reopen(&follower, &ActiveProfileFollower::savedDevicesChanged);
    QSignalSpy changed(&follower, &ActiveProfileFollower::profileChanged);
    QSignalSpy errors(&follower, &ActiveProfileFollower::errorOccurred);
    follower.setTransmitting(transmitting);
    const bool otherProfile = change == u"other"_s;
    const bool switches = otherProfile || change == u"vehicle"_s;
    if (otherProfile)
        QVERIFY(profiles.setActiveProfile(other));
    else if (change == u"vehicle"_s)
        QVERIFY(profiles.setVehicleType(QStringLiteral("rc_helicopter")));
    else if (change == u"rename"_s)
        QVERIFY(profiles.renameProfile(profiles.activeProfileId(), QStringLiteral("Renamed")));
    else
        QVERIFY(profiles.setActiveProfile(profiles.activeProfileId()));

    if (transmitting) {
        QCOMPARE(reopen.size(), 0);
        QCOMPARE(follower.vehicleType(), VehicleType::Car);
        QCOMPARE(errors.size(), otherProfile ? 1 : 0);
        follower.setTransmitting(false);
        follower.applyDeferredSwitch();
    }
    QCOMPARE(follower.vehicleType(), vehicleAfter);
    QCOMPARE(reopen.size(), switches ? 1 : 0);
    QCOMPARE(changed.size(), switches && (otherProfile || transmitting) ? 1 : 0);
    QCOMPARE(errors.size(), otherProfile && transmitting ? 1 : 0);
    if (!changed.isEmpty())
        QCOMPARE(changed.first().at(0).toString(), profiles.activeProfileId());

    // Nothing waits any more.
    follower.applyDeferredSwitch();
    QCOMPARE(reopen.size(), switches ? 1 : 0);
}

void TestControllerParts::detectionTimesOutUnsuccessfully()
{
    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    ProfileManager profiles(dir.path());
    profiles.loadProfiles();
    VirtualBackend backend;
    DeviceRoleSet devices(&backend, &profiles);
    InputDetection detection(&devices, &profiles,
                             {std::chrono::milliseconds(5), std::chrono::milliseconds(60)});
    const QJsonObject before = profiles.activeProfile();
    QSignalSpy shifter(&detection, &InputDetection::shifterDetectionResult);
    QSignalSpy button(&detection, &InputDetection::buttonDetectionResult);

    // Nothing is pressed (no device is even open): both give up, and nothing is learnt.
    QVERIFY(detection.startShifterDetection(8));
    detection.startButtonDetection(DeviceRole::WheelBase);
    QTRY_COMPARE(shifter.size() + button.size(), 2);
    QCOMPARE(shifter.first(), (QList<QVariant>{8, -1, false}));
    QCOMPARE(button.first(), (QList<QVariant>{-1, false}));
    QVERIFY(!detection.isDetectingShifter() && !detection.isDetectingButton());
    QCOMPARE(profiles.activeProfile(), before);
}

void TestControllerParts::channelNeutralsFollowWhatDrivesEachChannel_data()
{
    QTest::addColumn<bool>("helicopter");
    QTest::addColumn<int>("mappedChannel"); // -1: no button mapping
    QTest::addColumn<int>("mode");
    QTest::addColumn<int>("startValue");
    QTest::addColumn<int>("channel");
    QTest::addColumn<int>("expected"); // -1: nothing drives it
    const int none = -1;
    const int toggle = int(ButtonBehaviour::Toggle);
    const int hold = int(ButtonBehaviour::HoldToRaise);
    const int momentary = int(ButtonBehaviour::Momentary);
    const int position = int(ButtonBehaviour::SwitchPosition);
    // The full 11-bit span, truncated: 1023.
    QTest::newRow("car steering centre") << false << none << 0 << 0 << 0 << 1023;
    QTest::newRow("car ESC neutral") << false << none << 0 << 0 << 1 << 992;
    QTest::newRow("car CH3 without a mapping") << false << none << 0 << 0 << 2 << none;
    QTest::newRow("car toggle rests OFF") << false << 4 << toggle << 172 << 4 << 172;
    QTest::newRow("car hold rests at its start") << false << 5 << hold << 992 << 5 << 992;
    QTest::newRow("car LED strip switched off") << false << none << 0 << 0 << 11 << 0;
    QTest::newRow("car mapping owns the LED channel") << false << 11 << momentary << 300 << 11 << 300;
    QTest::newRow("heli cyclic centred") << true << none << 0 << 0 << 0 << 992;
    QTest::newRow("heli collective at the bottom") << true << none << 0 << 0 << 2 << 172;
    QTest::newRow("heli switch rests at its start") << true << 5 << position << 1500 << 5 << 1500;
    QTest::newRow("heli CH7 without a mapping") << true << none << 0 << 0 << 6 << none;
}

void TestControllerParts::channelNeutralsFollowWhatDrivesEachChannel()
{
    QFETCH(bool, helicopter);
    QFETCH(int, mappedChannel);
    QFETCH(int, mode);
    QFETCH(int, startValue);
    QFETCH(int, channel);
    QFETCH(int, expected);
    ButtonMappingList mappings;
    if (mappedChannel >= 0) {
        ButtonMapping mapping;
        mapping.buttonIndex = 3;
        mapping.channel = mappedChannel;
        mapping.mode = ButtonBehaviour(mode);
        mapping.startValue = startValue;
        mappings.append(mapping);
    }
    const ChannelNeutrals neutrals = helicopter ? helicopterChannelNeutrals(HelicopterComputation(), mappings)
                                                : carChannelNeutrals(DriveComputation(), mappings);
    QCOMPARE(neutrals[channel].value_or(-1), expected);
}

QTEST_MAIN(TestControllerParts)
#include "tst_controllerparts.moc"
