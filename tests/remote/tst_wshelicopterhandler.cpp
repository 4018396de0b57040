#include "handlerrig.h"
#include "inputdevice.h"
#include "wshelicopterhandler.h"

#include <QJsonDocument>
#include <QTest>

using namespace tavrix;
using namespace tavrix::testing;
using namespace Qt::StringLiterals;

namespace {

using Rig = HandlerRig<WsHelicopterHandler>;
constexpr int kCollectiveSlot = 2; // the throttle device's axis in a new profile

QJsonObject object(const char *json)
{
    return QJsonDocument::fromJson(json).object();
}

} // namespace

class TestWsHelicopterHandler : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void requestValidation_data();
    void requestValidation();
    void armingRefusedWithTheCollectiveUp();
    void configChannelsOutOfRangeAreNotSent();
    void configSharingAChannelIsRefused_data();
    void configSharingAChannelIsRefused();
    void armedMotorKeepsAllButTheRates_data();
    void armedMotorKeepsAllButTheRates();

private:
    // Shared by the validation rows: a refusal must leave it as it was for the next row.
    std::unique_ptr<Rig> m_rig;
};

void TestWsHelicopterHandler::initTestCase()
{
    m_rig = std::make_unique<Rig>();
    QVERIFY(m_rig->setUp(u"rc_helicopter"_s));
}

void TestWsHelicopterHandler::requestValidation_data()
{
    QTest::addColumn<QString>("event");
    QTest::addColumn<QJsonObject>("data");
    QTest::addColumn<QString>("refusal");

    const QString connect = u"action_connect_helicopter_device"_s;
    const QString badIndex = u"Missing or invalid 'index'"_s;
    const QString capture = u"action_capture_helicopter_calibration"_s;
    QTest::newRow("role missing") << connect << object(R"({"index":0})") << u"Unknown role: "_s;
    QTest::newRow("role before index")
        << connect << object(R"({"role":"rotor"})") << u"Unknown role: rotor"_s;
    QTest::newRow("index missing") << connect << object(R"({"role":"pedals"})") << badIndex;
    QTest::newRow("index negative") << connect << object(R"({"role":"pedals","index":-1})") << badIndex;
    QTest::newRow("index past the list") << connect << object(R"({"role":"pedals","index":2})") << badIndex;
    QTest::newRow("disconnect unknown role") << u"action_disconnect_helicopter_device"_s
                                             << object(R"({"role":"wheel"})") << u"Unknown role: wheel"_s;
    QTest::newRow("function before point")
        << capture << object(R"({"function":"yaw","point":"middle"})") << u"Unknown function"_s;
    QTest::newRow("point unknown") << capture << object(R"({"function":"roll","point":"middle"})")
                                   << u"Unknown point: middle"_s;
    QTest::newRow("rate mode 3") << u"action_set_rate_mode"_s << object(R"({"mode":3})")
                                 << u"Invalid 'mode': must be 0, 1 or 2"_s;
    QTest::newRow("rate mode missing")
        << u"action_set_rate_mode"_s << QJsonObject() << u"Invalid 'mode': must be 0, 1 or 2"_s;
}

void TestWsHelicopterHandler::requestValidation()
{
    QFETCH(QString, event);
    QFETCH(QJsonObject, data);
    QFETCH(QString, refusal);
    Rig &rig = *m_rig;
    const QJsonObject profileBefore = rig.profiles.activeProfile();

    const QJsonObject reply = rig.ask(event, data);

    QCOMPARE(reply, (QJsonObject{{"event"_L1, event}, {"success"_L1, false}, {"message"_L1, refusal}}));
    QCOMPARE(rig.profiles.activeProfile(), profileBefore);
    QCOMPARE(rig.controller->heliRateMode(), 0);
    QVERIFY(!rig.controller->devices()->device(DeviceRole::HeliPedals)->isOpen());
}

void TestWsHelicopterHandler::armingRefusedWithTheCollectiveUp()
{
    Rig rig;
    QVERIFY(rig.setUp(u"rc_helicopter"_s));
    const InputDevice *lever = rig.controller->devices()->device(DeviceRole::HeliThrottle);
    rig.backend.setAxis(rig.secondDevice, kCollectiveSlot, rawForDeviceValue(0.8));
    QTRY_VERIFY(lever->axis(kCollectiveSlot) > 0.7f);

    const QJsonObject refused = rig.ask(u"action_set_heli_armed"_s, object(R"({"armed":true})"));
    QCOMPARE(refused["success"_L1].toBool(), false);
    QCOMPARE(refused["message"_L1].toString(), u"Lower the collective before arming the motor."_s);
    QCOMPARE(rig.ask(u"get_heli_armed"_s)["data"_L1]["armed"_L1].toBool(), false);

    rig.backend.setAxis(rig.secondDevice, kCollectiveSlot, rawForDeviceValue(-1.0));
    QTRY_VERIFY(lever->axis(kCollectiveSlot) < -0.9f);
    QVERIFY(rig.ask(u"action_set_heli_armed"_s, object(R"({"armed":true})"))["success"_L1].toBool());
    QTRY_COMPARE(rig.pushed(u"event_heli_armed"_s).value(0), object(R"({"armed":true})"));
}

void TestWsHelicopterHandler::configChannelsOutOfRangeAreNotSent()
{
    Rig rig;
    QVERIFY(rig.setUp(u"rc_helicopter"_s));
    const QJsonObject identityBefore = rig.profiles.deviceConnection(DeviceRole::HeliJoystick);

    const QJsonObject reply = rig.ask(u"set_helicopter_config"_s, object(R"({
        "channels": {"roll": 16, "pitch": 6},
        "dualRates": {"sportPct": 400},
        "inputs": {"joystick": {"productName": "Other Stick", "xAxis": 3}}})"));

    QVERIFY(reply["success"_L1].toBool());
    const QJsonObject config = rig.ask(u"get_helicopter_config"_s)["data"_L1].toObject();
    QCOMPARE(config["channels"_L1]["roll"_L1].toInt(), -1); // not CH16
    QCOMPARE(config["channels"_L1]["pitch"_L1].toInt(), 6);
    QCOMPARE(config["dualRates"_L1]["sportPct"_L1].toInt(), 100);
    QCOMPARE(config["inputs"_L1]["joystick"_L1]["xAxis"_L1].toInt(), 3);
    QCOMPARE(rig.profiles.deviceConnection(DeviceRole::HeliJoystick)[u"productName"_s],
             identityBefore[u"productName"_s]);
}

void TestWsHelicopterHandler::configSharingAChannelIsRefused_data()
{
    QTest::addColumn<QJsonObject>("data");
    QTest::addColumn<bool>("accepted");
    QTest::newRow("pitch on roll's channel") << object(R"({"channels": {"pitch": 0}})") << false;
    QTest::newRow("arm switch on the rudder's channel")
        << object(R"({"arm": {"enabled": true, "channel": 3}})") << false;
    QTest::newRow("motor on the collective's channel")
        << object(R"({"throttleCurve": {"enabled": true}, "motorChannel": 2})") << false;
    // Only what is sent competes for a channel: a switched-off arm switch writes nothing.
    QTest::newRow("arm switch off, on roll's channel") << object(R"({"arm": {"channel": 0}})") << true;
    QTest::newRow("collective not sent, rudder on its channel")
        << object(R"({"channels": {"throttle": -1, "rudder": 2}})") << true;
}

void TestWsHelicopterHandler::configSharingAChannelIsRefused()
{
    QFETCH(QJsonObject, data);
    QFETCH(bool, accepted);
    Rig rig;
    QVERIFY(rig.setUp(u"rc_helicopter"_s));
    const QJsonObject before = rig.profiles.activeProfile();

    const QJsonObject reply = rig.ask(u"set_helicopter_config"_s, data);

    QCOMPARE(reply["success"_L1].toBool(), accepted);
    QCOMPARE(rig.profiles.activeProfile() == before, !accepted);
    QCOMPARE(reply["message"_L1].toString().isEmpty(), accepted);
}

// While the motor is armed a changed channel, curve, calibration or arm value would move the
// helicopter: only the rates may change, as switching them in flight is normal. Disarmed,
// the same request goes through.
void TestWsHelicopterHandler::armedMotorKeepsAllButTheRates_data()
{
    QTest::addColumn<QString>("event");
    QTest::addColumn<QJsonObject>("data");
    QTest::addColumn<bool>("acceptedArmed");
    const QString set = u"set_helicopter_config"_s;
    QTest::newRow("rates") << set << object(R"({"dualRates": {"beginnerPct": 90, "activeMode": 2}})") << true;
    QTest::newRow("nothing changed") << set << QJsonObject() << true;
    QTest::newRow("channel") << set << object(R"({"channels": {"roll": 7}})") << false;
    QTest::newRow("pitch curve") << set << object(R"({"pitchCurve": {"points": [0.5, 0.5, 0.5, 0.75, 1]}})")
                                 << false;
    QTest::newRow("calibration") << set << object(R"({"calibration": {"throttle": {"max": 0.5}}})") << false;
    QTest::newRow("arm switch value") << set << object(R"({"arm": {"offUs": 1000}})") << false;
    QTest::newRow("arming at idle") << set << object(R"({"fly": {"armAtIdle": false}})") << false;
    QTest::newRow("rates with a channel")
        << set << object(R"({"dualRates": {"beginnerPct": 90}, "channels": {"roll": 7}})") << false;
    QTest::newRow("calibration point taken") << u"action_capture_helicopter_calibration"_s
                                             << object(R"({"function":"throttle","point":"max"})") << false;
}

void TestWsHelicopterHandler::armedMotorKeepsAllButTheRates()
{
    QFETCH(QString, event);
    QFETCH(QJsonObject, data);
    QFETCH(bool, acceptedArmed);
    Rig rig;
    QVERIFY(rig.setUp(u"rc_helicopter"_s));
    const InputDevice *lever = rig.controller->devices()->device(DeviceRole::HeliThrottle);
    rig.backend.setAxis(rig.secondDevice, kCollectiveSlot, rawForDeviceValue(-1.0));
    QTRY_VERIFY(lever->axis(kCollectiveSlot) < -0.9f);
    QVERIFY(rig.ask(u"action_set_heli_armed"_s, object(R"({"armed":true})"))["success"_L1].toBool());
    const QJsonObject before = rig.profiles.activeProfile();
    const HelicopterSettings appliedBefore = rig.controller->settings().helicopter;

    const QJsonObject armedReply = rig.ask(event, data);

    QCOMPARE(armedReply["success"_L1].toBool(), acceptedArmed);
    if (!acceptedArmed) {
        QCOMPARE(armedReply["message"_L1].toString(), u"Disarm the motor to change these settings."_s);
        QCOMPARE(rig.profiles.activeProfile(), before);
        QCOMPARE(rig.controller->settings().helicopter, appliedBefore);
        QVERIFY(rig.ask(u"action_set_heli_armed"_s, object(R"({"armed":false})"))["success"_L1].toBool());
        const QJsonObject disarmedReply = rig.ask(event, data);
        QVERIFY2(disarmedReply["success"_L1].toBool(), qPrintable(disarmedReply["message"_L1].toString()));
        QVERIFY(rig.profiles.activeProfile() != before);
    }
}

QTEST_GUILESS_MAIN(TestWsHelicopterHandler)
#include "tst_wshelicopterhandler.moc"
