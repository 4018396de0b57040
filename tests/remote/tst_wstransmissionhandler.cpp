#include "handlerrig.h"
#include "wstransmissionhandler.h"

#include <QJsonArray>
#include <QTest>

using namespace tavrix;
using namespace tavrix::testing;

namespace {

using Rig = HandlerRig<WsTransmissionHandler>;
constexpr int kCh3 = 2; // always 0 from the drive while no button mapping takes it

#define SET_UP_RIG(rig, ...) QVERIFY2((rig).setUp(__VA_ARGS__), "the handler rig could not be set up")

QJsonObject channel(int index, int value)
{
    return {{QStringLiteral("index"), index}, {QStringLiteral("value"), value}};
}

} // namespace

class TestWsTransmissionHandler : public QObject
{
    Q_OBJECT

private slots:
    void setChannelValidation_data();
    void setChannelValidation();
    void startRefusals_data();
    void startRefusals();
    void overrideRidesOnFramesUntilStop();
    void autoStartStartsOnceWhenReady();
};

void TestWsTransmissionHandler::setChannelValidation_data()
{
    QTest::addColumn<QJsonObject>("data");
    QTest::addColumn<bool>("running");
    QTest::addColumn<QString>("refusal"); // empty: accepted

    const QString badIndex = QStringLiteral("Invalid channel index. Must be 0-15.");
    const QString badValue = QStringLiteral("Invalid channel value. Must be 0-2047.");
    QTest::newRow("index -1") << channel(-1, 100) << true << badIndex;
    QTest::newRow("index 16") << channel(16, 100) << true << badIndex;
    QTest::newRow("index missing") << QJsonObject{{QStringLiteral("value"), 100}} << true << badIndex;
    QTest::newRow("index checked first") << channel(16, 5000) << true << badIndex;
    QTest::newRow("value -1") << channel(3, -1) << true << badValue;
    QTest::newRow("value 2048") << channel(3, 2048) << true << badValue;
    QTest::newRow("value 0") << channel(3, 0) << true << QString();
    QTest::newRow("value 2047") << channel(15, 2047) << true << QString();
    QTest::newRow("idle") << channel(3, 100) << false << QStringLiteral("Transmission is not running");
}

void TestWsTransmissionHandler::setChannelValidation()
{
    QFETCH(QJsonObject, data);
    QFETCH(bool, running);
    QFETCH(QString, refusal);
    Rig rig;
    SET_UP_RIG(rig);
    if (running)
        QVERIFY(rig.controller->startTransmission());

    const QJsonObject reply = rig.ask(QStringLiteral("set_channel"), data);
    QCOMPARE(reply.value(QStringLiteral("event")).toString(), QStringLiteral("set_channel"));
    QCOMPARE(reply.value(QStringLiteral("success")).toBool(), refusal.isEmpty());
    QCOMPARE(reply.value(QStringLiteral("message")).toString(), refusal);
}

void TestWsTransmissionHandler::startRefusals_data()
{
    QTest::addColumn<QString>("vehicle");
    QTest::addColumn<bool>("transmitter");
    QTest::addColumn<bool>("alreadyRunning");
    QTest::addColumn<double>("throttle");
    QTest::addColumn<QString>("refusal");

    const QString car = QStringLiteral("rc_car");
    QTest::newRow("running") << car << true << true << 0.0 << QStringLiteral("Already running");
    QTest::newRow("car without transmitter")
        << car << false << false << 0.0
        << QStringLiteral("Not ready to transmit. Ensure serial port and wheel base are connected.");
    QTest::newRow("helicopter without transmitter")
        << QStringLiteral("rc_helicopter") << false << false << 0.0
        << QStringLiteral("Not ready to transmit. Ensure serial port and joystick are connected.");
    // Ready, but the controller's own check refuses: the app hears its reason.
    QTest::newRow("throttle held") << car << true << false << 0.5
                                   << QStringLiteral(
                                          "Release the throttle pedal before starting transmission.");
}

void TestWsTransmissionHandler::startRefusals()
{
    QFETCH(QString, vehicle);
    QFETCH(bool, transmitter);
    QFETCH(bool, alreadyRunning);
    QFETCH(double, throttle);
    QFETCH(QString, refusal);
    Rig rig;
    SET_UP_RIG(rig, vehicle);
    if (!transmitter)
        rig.controller->disconnectTransmitter();
    if (alreadyRunning)
        QVERIFY(rig.controller->startTransmission());
    rig.setPedals(throttle, 0.0);

    const QJsonObject reply = rig.ask(QStringLiteral("action_start"));
    QCOMPARE(reply.value(QStringLiteral("success")).toBool(), false);
    QCOMPARE(reply.value(QStringLiteral("message")).toString(), refusal);
    QCOMPARE(rig.controller->isRunning(), alreadyRunning);
}

void TestWsTransmissionHandler::overrideRidesOnFramesUntilStop()
{
    Rig rig;
    SET_UP_RIG(rig);
    QVERIFY(rig.ask(QStringLiteral("action_start")).value(QStringLiteral("success")).toBool());
    QTRY_COMPARE(rig.sim.mode(), sim::BridgeSimulator::Mode::Transmitting);

    QVERIFY(rig.ask(QStringLiteral("set_channel"), channel(kCh3, 1700))
                .value(QStringLiteral("success"))
                .toBool());
    QTRY_COMPARE(rig.sim.lastChannels()[kCh3], 1700);
    const QJsonArray channels = rig.ask(QStringLiteral("get_channels"))
                                    .value(QStringLiteral("data"))[QStringLiteral("channels")]
                                    .toArray();
    QCOMPARE(channels.at(kCh3).toInt(), 1700);
    QTRY_VERIFY(!rig.pushed(QStringLiteral("event_frame_sent")).isEmpty());

    // The stop's neutral frame is the last one the car gets, and it carries no override.
    QVERIFY(rig.ask(QStringLiteral("action_stop")).value(QStringLiteral("success")).toBool());
    QVERIFY(rig.flushToBridge());
    QCOMPARE(rig.sim.lastChannels()[kCh3], 0);
    QTRY_COMPARE(rig.pushed(QStringLiteral("event_running_changed")).size(), 2);

    // Nor does the next run inherit it.
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

    const QJsonObject reply = rig.ask(QStringLiteral("set_auto_start"), {{QStringLiteral("enabled"), true}});
    QCOMPARE(reply.value(QStringLiteral("data"))[QStringLiteral("enabled")].toBool(), true);
    QCOMPARE(rig.pushed(QStringLiteral("event_auto_start_changed")).size(), 1);
    ProfileManager stored(rig.dir.path());
    stored.loadProfiles();
    QVERIFY(stored.autoStartEnabled());

    // Not ready yet: nothing starts until the transmitter is back.
    QVERIFY(!running.wait(200));
    QVERIFY(rig.controller->connectTransmitter(rig.sim.clientPath()));
    QTRY_VERIFY(rig.controller->isRunning());

    // Fired once: after the stop the hub stays ready, but nothing starts by itself.
    rig.ask(QStringLiteral("action_stop"));
    running.clear();
    QVERIFY(!running.wait(300));

    // Armed again while a run started by hand: that run's stop disarms it.
    QVERIFY(rig.ask(QStringLiteral("action_start")).value(QStringLiteral("success")).toBool());
    rig.ask(QStringLiteral("set_auto_start"), {{QStringLiteral("enabled"), false}});
    rig.ask(QStringLiteral("set_auto_start"), {{QStringLiteral("enabled"), true}});
    rig.ask(QStringLiteral("action_stop"));
    running.clear();
    QVERIFY(!running.wait(300));
    QVERIFY(rig.flushToBridge());
    QCOMPARE(rig.commandCount(QStringLiteral("START")), 2);
}

QTEST_GUILESS_MAIN(TestWsTransmissionHandler)
#include "tst_wstransmissionhandler.moc"
