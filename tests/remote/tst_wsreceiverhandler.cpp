#include "handlerrig.h"
#include "receiverconfigmanager.h"
#include "receiverport.h"
#include "receiversimulator.h"
#include "wsreceiverhandler.h"

#include <QTest>

using namespace tavrix;
using namespace tavrix::testing;
using namespace Qt::StringLiterals;

namespace {

using Rig = HandlerRig<WsReceiverHandler>;

// The handler rig with the receiver simulator plugged into the controller's receiver port.
struct ReceiverRig : Rig
{
    std::unique_ptr<sim::ReceiverSimulator> receiver;

    bool plugIn()
    {
        sim::ReceiverSimulatorSettings settings;
        settings.gyroCalibrationMs = 50; // the hub looks for the result well after this
        receiver = std::make_unique<sim::ReceiverSimulator>(settings);
        return receiver->start(receiverPath()) &&
               controller->receiverPort()->connectReceiver(receiverPath()) &&
               QTest::qWaitFor([this] { return config()[u"synced"_s].toBool(); }, 20000);
    }

    QJsonObject config() { return ask(u"get_receiver_config"_s)[u"data"_s].toObject(); }

    QJsonObject lastPush() const
    {
        const QList<QJsonObject> all = pushed(u"event_receiver_config"_s);
        return all.isEmpty() ? QJsonObject() : all.last();
    }
};

QJsonObject settings(const QJsonObject &values)
{
    return {{u"settings"_s, values}};
}

} // namespace

class TestWsReceiverHandler : public QObject
{
    Q_OBJECT

private slots:
    void refusals_data();
    void refusals();
    void changesArePushedOncePerTurn();
    void settingsAndSensorStepsReachTheReceiver();
};

void TestWsReceiverHandler::refusals_data()
{
    QTest::addColumn<bool>("plugged");
    QTest::addColumn<QString>("before"); // a request that must succeed first
    QTest::addColumn<QString>("request");
    QTest::addColumn<QJsonObject>("data");
    QTest::addColumn<QString>("message");

    const QString set = u"set_receiver_config"_s;
    const QString gpsRate = u"gpsRateHz must be 0, 1, 2, 4, 5 or 10"_s;
    const QString motionRate = u"motionRateHz must be 5, 10, 20 or 25"_s;
    const QString mounting = u"action_receiver_detect_mounting"_s;
    const QString gyro = u"action_receiver_calibrate_gyro"_s;
    const QString command = u"action_receiver_command"_s;
    const QString sensors = u"Connect the receiver (USB, or ELRS with firmware 4.4.3+) first"_s;

    QTest::newRow("gps rate 3") << false << QString() << set << settings({{u"gpsRateHz"_s, 3}}) << gpsRate;
    QTest::newRow("both rates wrong: gps first")
        << false << QString() << set << settings({{u"motionRateHz"_s, 7}, {u"gpsRateHz"_s, 3}}) << gpsRate;
    QTest::newRow("motion rate as text after a valid gps switch")
        << false << QString() << set << settings({{u"gpsEnabled"_s, false}, {u"motionRateHz"_s, u"10"_s}})
        << motionRate;
    QTest::newRow("motion rate 2.5") << true << QString() << set << settings({{u"motionRateHz"_s, 2.5}})
                                     << motionRate;
    QTest::newRow("step missing, unplugged")
        << false << QString() << mounting << QJsonObject() << u"step must be 0 or 1"_s;
    QTest::newRow("step 2") << true << QString() << mounting << QJsonObject{{u"step"_s, 2}}
                            << u"step must be 0 or 1"_s;
    QTest::newRow("mounting unplugged")
        << false << QString() << mounting << QJsonObject{{u"step"_s, 0}} << sensors;
    QTest::newRow("gyro unplugged") << false << QString() << gyro << QJsonObject() << sensors;
    QTest::newRow("gyro during mounting")
        << true << mounting << gyro << QJsonObject() << u"A step is already running"_s;
    QTest::newRow("mounting during gyro")
        << true << gyro << mounting << QJsonObject{{u"step"_s, 1}} << u"A step is already running"_s;
    QTest::newRow("sync unplugged") << false << QString() << u"action_receiver_sync"_s << QJsonObject()
                                    << u"Connect the receiver (USB or ELRS) first"_s;
    QTest::newRow("command unplugged")
        << false << QString() << command << QJsonObject{{u"command"_s, u"VER"_s}}
        << u"Receiver not connected"_s;
    QTest::newRow("boot loader") << true << QString() << command << QJsonObject{{u"command"_s, u" dfu "_s}}
                                 << u"Command refused"_s;
}

void TestWsReceiverHandler::refusals()
{
    QFETCH(bool, plugged);
    QFETCH(QString, before);
    QFETCH(QString, request);
    QFETCH(QJsonObject, data);
    QFETCH(QString, message);

    ReceiverRig rig;
    QVERIFY2(rig.setUp(), "the handler rig could not be set up");
    if (plugged)
        QVERIFY2(rig.plugIn(), "the receiver did not sync");
    if (!before.isEmpty())
        QVERIFY(rig.ask(before, {{u"step"_s, 0}})[u"success"_s].toBool());
    const ReceiverConfigManager *config = rig.controller->receiverConfig();
    const auto desired = config->desiredSettings();
    const QStringList queued = config->pendingCommands();

    const QJsonObject reply = rig.ask(request, data);
    QCOMPARE(reply[u"event"_s].toString(), request);
    QCOMPARE(reply[u"success"_s], QJsonValue(false));
    QCOMPARE(reply[u"message"_s].toString(), message);
    // A refusal keeps no value and sends the receiver nothing.
    QCOMPARE(config->desiredSettings(), desired);
    QCOMPARE(config->pendingCommands(), queued);
}

void TestWsReceiverHandler::changesArePushedOncePerTurn()
{
    ReceiverRig rig;
    QVERIFY2(rig.setUp(), "the handler rig could not be set up");
    // Unplugged, the values are kept for later: two changes, two signals, one push.
    const QJsonObject reply =
        rig.ask(u"set_receiver_config"_s, settings({{u"osdEnabled"_s, false}, {u"motionRateHz"_s, 20}}));
    QVERIFY(reply[u"success"_s].toBool());
    QVERIFY(rig.pushed(u"event_receiver_config"_s).isEmpty()); // never from inside the request
    QTRY_COMPARE_WITH_TIMEOUT(rig.pushed(u"event_receiver_config"_s).size(), 1, 10000);
    QCoreApplication::processEvents();
    QCOMPARE(rig.pushed(u"event_receiver_config"_s).size(), 1);
    const QJsonObject kept = rig.lastPush()[u"settings"_s].toObject();
    QCOMPARE(kept[u"osdEnabled"_s], QJsonValue(false));
    QCOMPARE(kept[u"motionRateHz"_s], QJsonValue(20));
}

void TestWsReceiverHandler::settingsAndSensorStepsReachTheReceiver()
{
    ReceiverRig rig;
    QVERIFY2(rig.setUp(), "the handler rig could not be set up");
    QVERIFY2(rig.plugIn(), "the receiver did not sync");

    QVERIFY(rig.ask(u"set_receiver_config"_s,
                    settings({{u"gpsRateHz"_s, 5}, {u"motionTelem"_s, true}}))[u"success"_s]
                .toBool());
    QTRY_COMPARE_WITH_TIMEOUT(rig.receiver->setting(u"GPS_RATE"_s), 5, 20000);
    QTRY_COMPARE_WITH_TIMEOUT(rig.receiver->setting(u"MOTION"_s), 1, 20000);
    QTRY_VERIFY_WITH_TIMEOUT(rig.config()[u"synced"_s].toBool(), 20000);
    const QJsonObject shown = rig.config()[u"settings"_s].toObject();
    QCOMPARE(shown[u"gpsRateHz"_s], QJsonValue(5));
    QCOMPARE(shown[u"motionTelem"_s], QJsonValue(true));

    // The steps, followed through what the app is pushed.
    const auto step = [&rig](int n) {
        return rig.ask(u"action_receiver_detect_mounting"_s, {{u"step"_s, n}})[u"success"_s].toBool();
    };
    QVERIFY(step(0));
    QTRY_COMPARE_WITH_TIMEOUT(rig.lastPush()[u"mounting"_s].toString(), u"need_nose_up"_s, 20000);
    QCOMPARE(rig.lastPush()[u"mountingText"_s].toString(),
             u"Level read. Now lift the FRONT of the car about 30° and hold it."_s);
    QVERIFY(step(1));
    QTRY_COMPARE_WITH_TIMEOUT(rig.lastPush()[u"imuAxes"_s].toString(), rig.receiver->mountingAxes(), 20000);
    QCOMPARE(rig.lastPush()[u"mounting"_s].toString(), u"done"_s);

    QVERIFY(rig.ask(u"action_receiver_calibrate_gyro"_s)[u"success"_s].toBool());
    QTRY_COMPARE_WITH_TIMEOUT(rig.lastPush()[u"gyroCal"_s].toString(), u"done"_s, 20000);
    QCOMPARE(rig.lastPush()[u"gyroCalText"_s].toString(), u"Gyro calibrated, yaw reset to 0"_s);
    QVERIFY(rig.lastPush()[u"canCalibrateGyro"_s].toBool());

    QVERIFY(
        rig.ask(u"action_receiver_command"_s, {{u"command"_s, u"GET_IMU_AXES"_s}})[u"success"_s].toBool());
    QTRY_VERIFY_WITH_TIMEOUT(rig.receiver->commands().endsWith(u"GET_IMU_AXES"_s), 20000);
}

QTEST_GUILESS_MAIN(TestWsReceiverHandler)
#include "tst_wsreceiverhandler.moc"
