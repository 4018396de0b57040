#include "elrsparametermanager.h"
#include "handlerrig.h"
#include "wstransmissionhandler.h"

#include <QJsonArray>
#include <QTest>

using namespace tavrix;
using namespace tavrix::testing;
using namespace Qt::StringLiterals;

namespace {

using Rig = HandlerRig<WsTransmissionHandler>;
constexpr int kCh3 = 2; // 0 from the drive while no button mapping takes it

#define SET_UP_RIG(rig, ...) QVERIFY2((rig).setUp(__VA_ARGS__), "the handler rig could not be set up")

QJsonObject channel(int index, int value)
{
    return {{u"index"_s, index}, {u"value"_s, value}};
}

bool succeeded(const QJsonObject &reply)
{
    return reply.value(u"success"_s).toBool();
}

} // namespace

class TestWsTransmissionHandler : public QObject
{
    Q_OBJECT

private slots:
    void refusals_data();
    void refusals();
    void overrideRidesOnFramesUntilStop();
    void autoStartStartsOnceWhenReady();
    void autoStartStoredOnIsArmedAtLaunch();
    void elrsParameterChangesThroughTheApp();
};

void TestWsTransmissionHandler::refusals_data()
{
    QTest::addColumn<QString>("vehicle");
    QTest::addColumn<bool>("transmitter");
    QTest::addColumn<bool>("running");
    QTest::addColumn<QString>("request");
    QTest::addColumn<QJsonObject>("data");
    QTest::addColumn<QString>("refusal"); // empty: accepted

    const QString car = u"rc_car"_s;
    const QString set = u"set_channel"_s;
    const QString start = u"action_start"_s;
    const QString badIndex = u"Invalid channel index. Must be 0-15."_s;
    const QString badValue = u"Invalid channel value. Must be 0-2047."_s;
    QTest::newRow("index -1") << car << true << true << set << channel(-1, 100) << badIndex;
    QTest::newRow("index 16") << car << true << true << set << channel(16, 100) << badIndex;
    QTest::newRow("index missing") << car << true << true << set << QJsonObject{{u"value"_s, 100}}
                                   << badIndex;
    QTest::newRow("index checked first") << car << true << true << set << channel(16, 5000) << badIndex;
    QTest::newRow("value -1") << car << true << true << set << channel(3, -1) << badValue;
    QTest::newRow("value 2048") << car << true << true << set << channel(3, 2048) << badValue;
    QTest::newRow("value 0") << car << true << true << set << channel(3, 0) << QString();
    QTest::newRow("value 2047") << car << true << true << set << channel(15, 2047) << QString();
    QTest::newRow("channel while idle")
        << car << true << false << set << channel(3, 100) << u"Transmission is not running"_s;
    QTest::newRow("start while running")
        << car << true << true << start << QJsonObject() << u"Already running"_s;
    QTest::newRow("car not ready")
        << car << false << false << start << QJsonObject()
        << u"Not ready to transmit. Ensure serial port and wheel base are connected."_s;
    const QString setElrs = u"set_elrs_param"_s;
    QTest::newRow("elrs: config mode checked first")
        << car << true << false << setElrs << QJsonObject{{u"valueIndex"_s, -1}} << u"Not in config mode."_s;
    QTest::newRow("elrs: config mode refused while running")
        << car << true << true << u"action_elrs_start_config"_s << QJsonObject()
        << u"Could not enter config mode. Stop transmission and ensure the bridge is connected."_s;
    QTest::newRow("helicopter not ready")
        << u"rc_helicopter"_s << false << false << start << QJsonObject()
        << u"Not ready to transmit. Ensure serial port and joystick are connected."_s;
}

void TestWsTransmissionHandler::refusals()
{
    QFETCH(QString, vehicle);
    QFETCH(bool, transmitter);
    QFETCH(bool, running);
    QFETCH(QString, request);
    QFETCH(QJsonObject, data);
    QFETCH(QString, refusal);
    Rig rig;
    SET_UP_RIG(rig, vehicle);
    if (!transmitter)
        rig.controller->disconnectTransmitter();
    if (running)
        QVERIFY(rig.controller->startTransmission());

    const QJsonObject reply = rig.ask(request, data);
    QCOMPARE(reply.value(u"event"_s).toString(), request);
    QCOMPARE(succeeded(reply), refusal.isEmpty());
    QCOMPARE(reply.value(u"message"_s).toString(), refusal);
    QCOMPARE(rig.controller->isRunning(), running);
}

void TestWsTransmissionHandler::overrideRidesOnFramesUntilStop()
{
    Rig rig;
    SET_UP_RIG(rig);
    QVERIFY(succeeded(rig.ask(u"action_start"_s)));
    QVERIFY(!succeeded(rig.ask(u"set_channel"_s, channel(kCh3, 2048))));
    QCOMPARE(rig.ask(u"get_channels"_s)[u"data"_s][u"channels"_s][kCh3].toInt(), 0);

    QVERIFY(succeeded(rig.ask(u"set_channel"_s, channel(kCh3, 1700))));
    QTRY_COMPARE(rig.sim.lastChannels()[kCh3], 1700);
    QCOMPARE(rig.ask(u"get_channels"_s)[u"data"_s][u"channels"_s][kCh3].toInt(), 1700);
    QTRY_VERIFY(!rig.pushed(u"event_frame_sent"_s).isEmpty());

    // The stop's neutral frame, the last one the car gets, carries no override...
    rig.ask(u"action_stop"_s);
    QVERIFY(rig.flushToBridge());
    QCOMPARE(rig.sim.lastChannels()[kCh3], 0);
    QTRY_COMPARE(rig.pushed(u"event_running_changed"_s).size(), 2);
    // ...and the next run does not inherit it.
    QVERIFY(rig.controller->startTransmission());
    const quint64 before = rig.sim.channelFrameCount();
    QTRY_VERIFY(rig.sim.channelFrameCount() > before + 3);
    QCOMPARE(rig.sim.lastChannels()[kCh3], 0);
}

void TestWsTransmissionHandler::autoStartStartsOnceWhenReady()
{
    Rig rig;
    SET_UP_RIG(rig);
    rig.controller->disconnectTransmitter();
    QSignalSpy running(rig.controller.get(), &TavrixController::runningChanged);
    const QJsonObject on{{u"enabled"_s, true}};

    QCOMPARE(rig.ask(u"set_auto_start"_s, on)[u"data"_s][u"enabled"_s], true);
    QCOMPARE(rig.pushed(u"event_auto_start_changed"_s).size(), 1);
    ProfileManager stored(rig.dir.path());
    stored.loadProfiles();
    QVERIFY(stored.autoStartEnabled());

    // Not ready yet: nothing starts until the transmitter is back.
    QVERIFY(!running.wait(200));
    QVERIFY(rig.controller->connectTransmitter(rig.sim.clientPath()));
    QTRY_VERIFY(rig.controller->isRunning());
    // Fired once: after the stop the hub stays ready, but nothing starts by itself.
    rig.ask(u"action_stop"_s);
    running.clear();
    QVERIFY(!running.wait(300));

    // Armed again during a run started by hand: that run's stop disarms it.
    QVERIFY(succeeded(rig.ask(u"action_start"_s)));
    rig.ask(u"set_auto_start"_s, {{u"enabled"_s, false}});
    rig.ask(u"set_auto_start"_s, on);
    rig.ask(u"action_stop"_s);
    running.clear();
    QVERIFY(!running.wait(300));
    QVERIFY(rig.flushToBridge());
    QCOMPARE(rig.commandCount(u"START"_s), 2);
}

void TestWsTransmissionHandler::autoStartStoredOnIsArmedAtLaunch()
{
    Rig rig;
    rig.profiles.loadProfiles();
    QVERIFY(rig.profiles.setAutoStartEnabled(true));
    SET_UP_RIG(rig);
    QTRY_VERIFY(rig.controller->isRunning());
}

void TestWsTransmissionHandler::elrsParameterChangesThroughTheApp()
{
    Rig rig;
    SET_UP_RIG(rig);
    QVERIFY(succeeded(rig.ask(u"action_elrs_start_config"_s)));
    QVERIFY(rig.ask(u"get_elrs_state"_s)[u"data"_s][u"configMode"_s].toBool());
    const auto refusal = [&rig](const QJsonObject &data) {
        return rig.ask(u"set_elrs_param"_s, data).value(u"message"_s).toString();
    };
    QCOMPARE(refusal({{u"name"_s, u"Packet Rate"_s}}), u"Missing or invalid valueIndex."_s);
    QCOMPARE(refusal({{u"valueIndex"_s, 1}}), u"Missing param id/name."_s);

    // The walk starts by itself a few seconds into configuration mode.
    QTRY_VERIFY_WITH_TIMEOUT(!rig.pushed(u"event_elrs_params"_s).isEmpty(), 30000);
    const auto packetRate = [&rig] {
        for (const QJsonValue &param : rig.ask(u"get_elrs_params"_s)[u"data"_s][u"params"_s].toArray()) {
            if (param[u"name"_s] == u"Packet Rate"_s)
                return param.toObject();
        }
        return QJsonObject();
    };
    QCOMPARE(packetRate()[u"kind"_s].toString(), u"enum"_s);
    QCOMPARE(packetRate()[u"currentValue"_s].toInt(), 3);
    QVERIFY(rig.ask(u"get_elrs_state"_s)[u"data"_s][u"ready"_s].toBool());

    // The name wins over an id that names another field.
    QVERIFY(succeeded(
        rig.ask(u"set_elrs_param"_s, {{u"name"_s, u"Packet Rate"_s}, {u"id"_s, 2}, {u"valueIndex"_s, 5}})));
    const qsizetype walks = rig.pushed(u"event_elrs_params"_s).size();
    rig.controller->elrsParameters()->startDiscovery();
    QTRY_VERIFY_WITH_TIMEOUT(rig.pushed(u"event_elrs_params"_s).size() > walks, 30000);
    QCOMPARE(packetRate()[u"currentValue"_s].toInt(), 5);

    QVERIFY(succeeded(rig.ask(u"action_elrs_stop_config"_s)));
    QCOMPARE(refusal({{u"name"_s, u"Packet Rate"_s}, {u"valueIndex"_s, 1}}), u"Not in config mode."_s);
}

QTEST_GUILESS_MAIN(TestWsTransmissionHandler)
#include "tst_wstransmissionhandler.moc"
