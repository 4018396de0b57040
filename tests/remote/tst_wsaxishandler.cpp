#include "handlerrig.h"
#include "inputdevice.h"
#include "profilekeys.h"
#include "wheelforcefeedback.h"
#include "wsaxishandler.h"

#include <QFile>
#include <QJsonDocument>
#include <QSettings>
#include <QTest>

#include <functional>

using namespace tavrix;
using namespace tavrix::testing;
using namespace Qt::StringLiterals;

namespace {

using Rig = HandlerRig<WsAxisHandler>;
using ProfileChange = std::function<void(Rig &)>;
constexpr int kCh1 = 0;

QJsonObject object(const char *json)
{
    return QJsonDocument::fromJson(json).object();
}

// The active profile as its file on disk holds it.
QJsonObject profileOnDisk(const Rig &rig)
{
    QFile file(rig.profiles.profileDirectory() + u"/"_s + rig.profiles.activeProfileId() + u".json"_s);
    return file.open(QIODevice::ReadOnly) ? QJsonDocument::fromJson(file.readAll()).object() : QJsonObject();
}

int storedSteeringCenter(const Rig &rig)
{
    return profileOnDisk(rig)["axisSettings"_L1]["steeringCenter"_L1].toInt(-1);
}

} // namespace

Q_DECLARE_METATYPE(ProfileChange)

class TestWsAxisHandler : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void requestValidation_data();
    void requestValidation();
    void settingsAreClampedAndSaved_data();
    void settingsAreClampedAndSaved();
    void editKeepsTheSettingsItDoesNotName_data();
    void editKeepsTheSettingsItDoesNotName();
    void axisMappingWaitsForStop();
    void shifterPressIsAssignedAndPushed();
    void liveTrimMovesChannel1UntilReverted();
    void liveTrimOutlivesOnlyUnrelatedWrites_data();
    void liveTrimOutlivesOnlyUnrelatedWrites();
    void wheelFfbRequests_data();
    void wheelFfbRequests();
    void wheelFfbFollowsTheCarAndIsPushed();

private:
    // Shared by the validation rows: a refusal must leave it as it was for the next row.
    std::unique_ptr<Rig> m_rig;
};

void TestWsAxisHandler::initTestCase()
{
    // The force-feedback settings live in the hub's settings, apart from the profiles.
    QCoreApplication::setOrganizationName(u"OrvaneLabs"_s);
    QCoreApplication::setApplicationName(u"OrvaneLabs HUB axis handler test"_s);
    QSettings().clear();
    m_rig = std::make_unique<Rig>();
    QVERIFY(m_rig->setUp());
}

void TestWsAxisHandler::requestValidation_data()
{
    QTest::addColumn<QString>("event");
    QTest::addColumn<QJsonObject>("data");
    QTest::addColumn<QString>("refusal"); // empty: accepted

    const QString missingGear = u"Missing 'gearIndex' (0=neutral, 1=reverse, 2-8=gears 1-7)"_s;
    const QString invalidGear = u"Invalid gearIndex: must be 0-8"_s;
    const QString trim =
        u"Invalid steering trim: left must not exceed center and center must not exceed right"_s;
    QTest::newRow("gear missing") << u"start_shifter_detection"_s << QJsonObject() << missingGear;
    QTest::newRow("gear 9") << u"start_shifter_detection"_s << object(R"({"gearIndex":9})") << invalidGear;
    QTest::newRow("gear -1") << u"start_shifter_detection"_s << object(R"({"gearIndex":-1})") << invalidGear;
    QTest::newRow("gear as text") << u"start_shifter_detection"_s << object(R"({"gearIndex":"2"})")
                                  << invalidGear;
    QTest::newRow("gear 0") << u"start_shifter_detection"_s << object(R"({"gearIndex":0})") << QString();
    QTest::newRow("gear 8") << u"start_shifter_detection"_s << object(R"({"gearIndex":8})") << QString();
    QTest::newRow("device missing") << u"start_button_detection"_s << QJsonObject()
                                    << u"Missing 'deviceName' (e.g. 'wheelbase', 'pedals', 'shifter')"_s;
    QTest::newRow("device unknown") << u"start_button_detection"_s << object(R"({"deviceName":"joystick"})")
                                    << u"Invalid deviceName: must be 'wheelbase', 'pedals', or 'shifter'"_s;
    QTest::newRow("mapping not a list")
        << u"set_shifter_mapping"_s << object(R"({"buttonIndex":3})") << u"Missing 'buttonIndex' array"_s;
    QTest::newRow("live trim centre past right")
        << u"set_steering_trim_live"_s << object(R"({"steeringCenter":2047,"steeringRight":1500})") << trim;
    QTest::newRow("saved trim left past centre")
        << u"set_axis_settings"_s << object(R"({"steeringLeft":1500,"decelRate":5})") << trim;
    QTest::newRow("unknown ESC preset")
        << u"set_esc_mode"_s << object(R"({"mode":"custom","presetId":"nope"})")
        << u"ESC preset not found: nope"_s;
}

void TestWsAxisHandler::requestValidation()
{
    QFETCH(QString, event);
    QFETCH(QJsonObject, data);
    QFETCH(QString, refusal);
    Rig &rig = *m_rig;
    const QJsonObject profileBefore = rig.profiles.activeProfile();
    const SteeringEndpoints trimBefore = rig.controller->steeringTrim().inForce();

    const QJsonObject reply = rig.ask(event, data);

    QCOMPARE(reply["event"_L1].toString(), event);
    QCOMPARE(reply["success"_L1].toBool(), refusal.isEmpty());
    if (refusal.isEmpty()) {
        rig.ask(u"cancel_shifter_detection"_s);
        return;
    }
    QCOMPARE(reply["message"_L1].toString(), refusal);
    QCOMPARE(rig.profiles.activeProfile(), profileBefore);
    QCOMPARE(rig.controller->steeringTrim().inForce(), trimBefore);
    QVERIFY(!rig.controller->inputDetection()->isDetectingShifter());
    QVERIFY(!rig.controller->inputDetection()->isDetectingButton());
}

void TestWsAxisHandler::settingsAreClampedAndSaved_data()
{
    QTest::addColumn<QString>("event");
    QTest::addColumn<QJsonObject>("data");
    QTest::addColumn<QString>("axis"); // empty: a drive setting
    QTest::addColumn<QString>("key");
    QTest::addColumn<QJsonValue>("stored");

    const QString set = u"set_axis_settings"_s;
    QTest::newRow("pedal deadzone keeps travel")
        << set << object(R"({"axes":[{"name":"Throttle","deadzone":1}]})") << u"Throttle"_s << u"deadzone"_s
        << QJsonValue(0.95);
    QTest::newRow("curve by name") << set << object(R"({"axes":[{"name":"Brake","curve":"logarithmic"}]})")
                                   << u"Brake"_s << u"curve"_s << QJsonValue(2);
    QTest::newRow("log curve exponent off zero")
        << set << object(R"({"axes":[{"name":"Brake","curveExponent":0}]})") << u"Brake"_s
        << u"curveExponent"_s << QJsonValue(0.1);
    QTest::newRow("axis by place") << set << object(R"({"axes":[{"inverted":true}]})") << u"Steering"_s
                                   << u"inverted"_s << QJsonValue(true);
    QTest::newRow("deceleration rate")
        << set << object(R"({"decelRate":-20})") << QString() << u"decelRate"_s << QJsonValue(0);
    QTest::newRow("ESC mode by name")
        << set << object(R"({"escMode":"custom"})") << QString() << u"escMode"_s << QJsonValue(2);
    QTest::newRow("ESC value in channel")
        << u"set_esc_mode"_s << object(R"({"mode":"custom","neutral":5000})") << QString() << u"escNeutral"_s
        << QJsonValue(2047);
    QTest::newRow("ESC name case-sensitive")
        << u"set_esc_mode"_s << object(R"({"mode":"Custom"})") << QString() << u"escMode"_s << QJsonValue(0);
}

void TestWsAxisHandler::settingsAreClampedAndSaved()
{
    QFETCH(QString, event);
    QFETCH(QJsonObject, data);
    QFETCH(QString, axis);
    QFETCH(QString, key);
    QFETCH(QJsonValue, stored);

    QVERIFY(m_rig->ask(event, data)["success"_L1].toBool());
    QJsonObject section = profileOnDisk(*m_rig)["axisSettings"_L1].toObject();
    if (!axis.isEmpty())
        section = section[axis].toObject();
    QCOMPARE(section[key], stored);
}

void TestWsAxisHandler::editKeepsTheSettingsItDoesNotName_data()
{
    QTest::addColumn<QJsonObject>("edit");
    QTest::newRow("a drive setting") << object(R"({"decelRate":7})");
    QTest::newRow("one axis") << object(R"({"axes":[{"name":"Brake","deadzone":0.1}]})");
    QTest::newRow("the steering centre") << object(R"({"steeringCenter":1000})");
}

void TestWsAxisHandler::editKeepsTheSettingsItDoesNotName()
{
    QFETCH(QJsonObject, edit);
    Rig rig;
    QVERIFY(rig.setUp());
    const QJsonObject chosen = object(
        R"({"escNeutral":1000,"steeringLeft":100,"steeringRight":1900,"axes":[{"name":"Brake","inverted":true}]})");
    QVERIFY(rig.ask(u"set_axis_settings"_s, chosen)["success"_L1].toBool());
    QVERIFY(rig.ask(u"set_axis_settings"_s, edit)["success"_L1].toBool());
    const QJsonObject stored = profileOnDisk(rig)["axisSettings"_L1].toObject();
    QCOMPARE(stored["escNeutral"_L1].toInt(), 1000);
    QCOMPARE(stored["steeringLeft"_L1].toInt(), 100);
    QCOMPARE(stored["steeringRight"_L1].toInt(), 1900);
    QCOMPARE(stored["Brake"_L1]["inverted"_L1].toBool(), true);
}

void TestWsAxisHandler::axisMappingWaitsForStop()
{
    Rig &rig = *m_rig;
    const QJsonObject logitech = object(R"({"presetName":"Logitech"})");
    QVERIFY(rig.controller->startTransmission());
    QCOMPARE(rig.ask(u"set_pedals_axis_mapping"_s, logitech)["success"_L1].toBool(), false);
    QCOMPARE(rig.controller->devices()->device(DeviceRole::Pedals)->preset().name, u"Generic"_s);

    rig.controller->stopTransmission();
    QVERIFY(rig.ask(u"set_pedals_axis_mapping"_s, logitech)["success"_L1].toBool());
    QCOMPARE(rig.ask(u"get_pedals_axis_mapping"_s)["data"_L1]["presetName"_L1].toString(), u"Logitech"_s);
    QVERIFY(profileOnDisk(rig)["deviceConnections"_L1]["pedals"_L1]["hasCustomAxisMapping"_L1].toBool());
}

void TestWsAxisHandler::shifterPressIsAssignedAndPushed()
{
    Rig rig;
    QVERIFY(rig.setUp());
    const int shifter = rig.backend.addDevice({u"Test Shifter"_s, QString(), 0, 16, 0, false});
    QVERIFY(rig.controller->connectDevice(DeviceRole::Shifter, 2));
    // Button 5 selected neutral so far; a button held when detection starts is no answer.
    QVERIFY(rig.ask(u"set_shifter_mapping"_s, object(R"({"buttonIndex":[5]})"))["success"_L1].toBool());
    rig.backend.setButton(shifter, 3, true);
    const InputDevice *device = rig.controller->devices()->device(DeviceRole::Shifter);
    QTRY_VERIFY(device->button(3));

    QVERIFY(rig.ask(u"start_shifter_detection"_s, object(R"({"gearIndex":2})"))["success"_L1].toBool());
    QCOMPARE(rig.pushed(u"shifter_detection_started"_s).value(0),
             object(R"({"gearIndex":2,"gearName":"Gear 1"})"));
    rig.backend.setButton(shifter, 5, true);

    QTRY_COMPARE(rig.pushed(u"shifter_detection_result"_s).size(), 1);
    QCOMPARE(rig.pushed(u"shifter_detection_result"_s).constFirst(),
             object(R"({"gearIndex":2,"gearName":"Gear 1","buttonIndex":5,"success":true})"));
    const QJsonArray expected{-1, -1, 5, -1, -1, -1, -1, -1, -1};
    QCOMPARE(profileOnDisk(rig)["deviceConnections"_L1]["shifter"_L1]["shifterMapping"_L1]["buttonIndex"_L1]
                 .toArray(),
             expected);
    QCOMPARE(rig.pushed(u"shifter_mapping_changed"_s).constLast()["buttonIndex"_L1].toArray(), expected);
}

void TestWsAxisHandler::liveTrimMovesChannel1UntilReverted()
{
    Rig rig;
    QVERIFY(rig.setUp());
    QVERIFY(rig.controller->startTransmission());
    QTRY_COMPARE(rig.sim.lastChannels()[kCh1], 1023); // centred on the default end points

    const QJsonObject live =
        rig.ask(u"set_steering_trim_live"_s,
                object(R"({"steeringLeft":400,"steeringCenter":1300,"steeringRight":9000})"));
    QVERIFY(live["success"_L1].toBool());
    QCOMPARE(live["data"_L1]["steeringRight"_L1].toInt(), 2047); // clamped to the channel
    QTRY_COMPARE(rig.sim.lastChannels()[kCh1], 1300);
    rig.setSteering(1.0);
    QTRY_COMPARE(rig.sim.lastChannels()[kCh1], 2047);
    QCOMPARE(storedSteeringCenter(rig), 1024); // not saved

    const QJsonObject reverted = rig.ask(u"revert_steering_trim"_s);
    QCOMPARE(reverted["data"_L1]["steeringCenter"_L1].toInt(), 1024);
    rig.setSteering(0.0);
    QTRY_COMPARE(rig.sim.lastChannels()[kCh1], 1023);

    QVERIFY(
        rig.ask(u"set_steering_trim_live"_s, object(R"({"steeringCenter":1100})"))["success"_L1].toBool());
    QVERIFY(rig.ask(u"apply_steering_trim"_s)["success"_L1].toBool());
    QCOMPARE(storedSteeringCenter(rig), 1100);
    QCOMPARE(rig.ask(u"revert_steering_trim"_s)["data"_L1]["steeringCenter"_L1].toInt(), 1100);
    QTRY_COMPARE(rig.sim.lastChannels()[kCh1], 1100);
}

// Sensor discovery writes the profile in the first seconds of a drive: a trim being tried
// stays through that, and ends when the saved end points or the profile change.
void TestWsAxisHandler::liveTrimOutlivesOnlyUnrelatedWrites_data()
{
    QTest::addColumn<ProfileChange>("change");
    QTest::addColumn<int>("centreInForce");
    QTest::newRow("another setting written") << ProfileChange([](Rig &rig) {
        QVERIFY(rig.profiles.setSetting(profilekeys::kTelemetryDiscover, false));
    }) << 1300;
    QTest::newRow("the saved end points changed") << ProfileChange([](Rig &rig) {
        const QJsonObject reply = rig.ask(u"set_axis_settings"_s, object(R"({"steeringCenter":1200})"));
        QVERIFY2(reply["success"_L1].toBool(), QJsonDocument(reply).toJson().constData());
    }) << 1200;
    QTest::newRow("another profile") << ProfileChange([](Rig &rig) {
        QVERIFY(rig.profiles.setActiveProfile(rig.profiles.createProfile(u"Other"_s)));
    }) << 1024;
}

void TestWsAxisHandler::liveTrimOutlivesOnlyUnrelatedWrites()
{
    QFETCH(ProfileChange, change);
    QFETCH(int, centreInForce);
    Rig rig;
    QVERIFY(rig.setUp());
    QVERIFY(
        rig.ask(u"set_steering_trim_live"_s, object(R"({"steeringCenter":1300})"))["success"_L1].toBool());
    change(rig);
    QCOMPARE(rig.controller->steeringTrim().inForce().center, centreInForce);
}

void TestWsAxisHandler::wheelFfbRequests_data()
{
    QTest::addColumn<bool>("wheel"); // the FFB wheel base connected
    QTest::addColumn<QString>("event");
    QTest::addColumn<QJsonObject>("data");
    QTest::addColumn<QString>("refusal");   // empty: accepted
    QTest::addColumn<QJsonObject>("state"); // fields of "get_wheel_ffb" afterwards
    QTest::addColumn<double>("force");      // the constant force the wheel plays afterwards

    const QString noWheel = u"No FFB-capable wheel connected"_s;
    const QJsonObject untouched = object(R"({"enabled":false,"strength":0.5,"autoEngage":false})");
    QTest::newRow("switch on without a wheel")
        << false << u"set_wheel_ffb"_s << object(R"({"enabled":true,"strength":0.9,"autoEngage":true})")
        << noWheel << untouched << 0.0;
    QTest::newRow("test pulse without a wheel")
        << false << u"action_test_wheel_ffb"_s << object(R"({"level":0.5})") << noWheel << untouched << 0.0;
    QTest::newRow("switch on, strength clamped")
        << true << u"set_wheel_ffb"_s << object(R"({"enabled":true,"strength":3,"centering":-1})")
        << QString() << object(R"({"capable":true,"enabled":true,"strength":1,"centering":0})") << 0.0;
    QTest::newRow("settings only") << true << u"set_wheel_ffb"_s << object(R"({"autoEngage":true})")
                                   << QString() << object(R"({"enabled":false,"autoEngage":true})") << 0.0;
    QTest::newRow("test pulse clamped")
        << true << u"action_test_wheel_ffb"_s << object(R"({"level":-4})") << QString() << untouched << -1.0;
}

void TestWsAxisHandler::wheelFfbRequests()
{
    QFETCH(bool, wheel);
    QFETCH(QString, event);
    QFETCH(QJsonObject, data);
    QFETCH(QString, refusal);
    QFETCH(QJsonObject, state);
    QFETCH(double, force);
    QSettings().clear();
    Rig rig;
    QVERIFY(rig.setUp());
    if (!wheel)
        rig.controller->disconnectDevice(DeviceRole::WheelBase);

    const QJsonObject reply = rig.ask(event, data);
    QCOMPARE(reply["success"_L1].toBool(), refusal.isEmpty());
    QCOMPARE(reply["message"_L1].toString(), refusal);
    const QJsonObject now = rig.ask(u"get_wheel_ffb"_s)["data"_L1].toObject();
    for (auto it = state.constBegin(); it != state.constEnd(); ++it)
        QCOMPARE(now[it.key()], it.value());
    QCOMPARE(rig.backend.ffbState(rig.firstDevice).constantForce, force);
}

void TestWsAxisHandler::wheelFfbFollowsTheCarAndIsPushed()
{
    QSettings().clear();
    Rig rig;
    QVERIFY(rig.setUp());
    const QJsonObject check = rig.ask(u"check_wheel_ffb"_s)["data"_L1].toObject();
    QCOMPARE(check, object(R"({"enumerated":true,"ffbCapable":true,"exclusive":true,"hasFfbAxis":true,
                               "constantForce":"full","errorCode":"0x0","diag":""})"));

    QVERIFY(rig.ask(u"set_wheel_ffb"_s, object(R"({"enabled":true,"strength":1})"))["success"_L1].toBool());
    QVERIFY(rig.controller->startTransmission());
    // The bridge streams the car's motion: the receiver state follows and the wheel is pushed.
    QTRY_VERIFY(rig.pushed(u"event_wheel_ffb_level"_s).size() > 2);
    const QList<QJsonObject> receiver = rig.pushed(u"event_receiver_ffb"_s);
    QCOMPARE(receiver.value(0), object(R"({"state":1})"));
    QCOMPARE(receiver.value(1), object(R"({"state":2})"));
    QCOMPARE(rig.ask(u"get_wheel_ffb"_s)["data"_L1]["receiver"_L1].toInt(), 2);
    QTRY_VERIFY(rig.backend.ffbState(rig.firstDevice).constantForce != 0.0);

    rig.controller->stopTransmission();
    QCOMPARE(rig.ask(u"get_wheel_ffb"_s)["data"_L1]["enabled"_L1].toBool(), false);
}

QTEST_GUILESS_MAIN(TestWsAxisHandler)
#include "tst_wsaxishandler.moc"
