// The fault paths that could move a car: every stop leaves a neutral frame as the last one
// on the wire, a lost transmitter or pedals device stops, and nothing starts again by itself.
// The same stops let go of the wheel: no force left playing on the driver's hands.

#include "controllerrig.h"
#include "logcapture.h"
#include "pseudoterminal.h"
#include "receiverport.h"
#include "wheelforcefeedback.h"

#include <QRandomGenerator>
#include <QSettings>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

#include <algorithm>
#include <optional>

using namespace tavrix;
using namespace tavrix::testing;

namespace {

constexpr int kCh1 = 0;

enum class Fault
{
    UserStop,
    WheelLost,
    PedalsLost,
    ThrottleSpike,
    UserDisconnects,
    UserConnectsAgain,
    ControllerDestroyed, // the window closing, SIGINT or SIGTERM in headless mode
};

// What reached the bridge, in arrival order: channel frames and (non-empty) text commands.
struct Wire
{
    struct Item
    {
        QString command; // empty for a channel frame
        sim::ChannelArray channels{};
    };
    QList<Item> items;

    Wire(sim::BridgeSimulator &sim, QObject *context)
    {
        QObject::connect(&sim, &sim::BridgeSimulator::channelFrameReceived, context,
                         [this](const sim::ChannelArray &channels, qint64) {
                             items.append({{}, channels});
                         });
        QObject::connect(&sim, &sim::BridgeSimulator::commandReceived, context,
                         [this](const QString &command, qint64) {
                             if (!command.isEmpty())
                                 items.append({command, {}});
                         });
    }

    // The channel frame `offset` items from the first `command` (-1: right before it).
    [[nodiscard]] std::optional<sim::ChannelArray> frameNear(const QString &command, int offset) const
    {
        const qsizetype at = indexOf(command) + offset;
        if (indexOf(command) < 0 || at < 0 || at >= items.size() || !items.at(at).command.isEmpty())
            return std::nullopt;
        return items.at(at).channels;
    }
    [[nodiscard]] qsizetype framesAfter(const QString &command) const
    {
        return std::count_if(items.cbegin() + indexOf(command) + 1, items.cend(),
                             [](const Item &item) { return item.command.isEmpty(); });
    }
    [[nodiscard]] qsizetype indexOf(const QString &command) const
    {
        const auto found = std::find_if(items.cbegin(), items.cend(),
                                        [&](const Item &item) { return item.command == command; });
        return found == items.cend() ? -1 : found - items.cbegin();
    }
    [[nodiscard]] int count(const QString &command) const
    {
        int n = 0;
        for (const Item &item : items)
            n += item.command == command ? 1 : 0;
        return n;
    }
};

} // namespace

Q_DECLARE_METATYPE(Fault)

class TestControllerFaults : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase()
    {
        QCoreApplication::setOrganizationName(QStringLiteral("OrvaneLabs"));
        QCoreApplication::setApplicationName(QStringLiteral("OrvaneLabs HUB fault test"));
    }
    // The force-feedback settings live in the hub's settings: each test starts from the defaults.
    void init() { QSettings().clear(); }
    void everyStopEndsWithANeutralFrame_data();
    void everyStopEndsWithANeutralFrame();
    void forceFeedbackLastsOneRunAndLetsGoOfAClosedWheel();
    void unpluggingTheBridgeWhileTransmittingAlwaysStops();
    void stalledBridgeGetsNoBacklogAndUnsentFramesAreNotCounted();
    void receiverComingAndGoingLeavesTransmissionAlone();
};

void TestControllerFaults::everyStopEndsWithANeutralFrame_data()
{
    QTest::addColumn<QString>("vehicle");
    QTest::addColumn<Fault>("fault");
    QTest::addColumn<QString>("message");
    // The vehicle's own channels in the neutral frame, from CH1 on.
    QTest::addColumn<QList<int>>("primaries");

    const QList<int> car{1023, 992}; // steering centre, ESC neutral
    const QString safety =
        QStringLiteral("Transmission stopped for safety: impossible throttle spike detected. "
                       "Verify the pedals and press Start Transmission again.");
    const QString carType = QStringLiteral("rc_car");
    QTest::newRow("user stop") << carType << Fault::UserStop << QString() << car;
    QTest::newRow("wheel base lost") << carType << Fault::WheelLost
                                     << QStringLiteral("Wheel base disconnected") << car;
    // Pedals in use that go away must not hand the throttle to the wheel base's inverted
    // pedal inputs, which read fully pressed.
    QTest::newRow("pedals lost") << carType << Fault::PedalsLost << QStringLiteral("Pedals disconnected")
                                 << car;
    QTest::newRow("throttle spike") << carType << Fault::ThrottleSpike << safety << car;
    QTest::newRow("user disconnects") << carType << Fault::UserDisconnects << QString() << car;
    QTest::newRow("user connects again") << carType << Fault::UserConnectsAgain << QString() << car;
    QTest::newRow("controller destroyed") << carType << Fault::ControllerDestroyed << QString() << car;
    // Roll, pitch, collective at the bottom, rudder, and the arm switch (armed before) safe.
    const QList<int> helicopter{992, 992, 172, 992, 173};
    QTest::newRow("helicopter: user stop")
        << QStringLiteral("rc_helicopter") << Fault::UserStop << QString() << helicopter;
    QTest::newRow("helicopter: controller destroyed")
        << QStringLiteral("rc_helicopter") << Fault::ControllerDestroyed << QString() << helicopter;
}

void TestControllerFaults::everyStopEndsWithANeutralFrame()
{
    QFETCH(QString, vehicle);
    QFETCH(Fault, fault);
    QFETCH(QString, message);
    QFETCH(QList<int>, primaries);

    ControllerRig rig;
    QVERIFY2(rig.setUp(vehicle), "the controller rig could not be set up");
    const bool helicopter = vehicle == QLatin1String("rc_helicopter");
    if (helicopter) {
        QJsonObject config = rig.profiles.setting(QStringLiteral("helicopterConfig")).toObject();
        QJsonObject arm = config.value(QStringLiteral("arm")).toObject();
        arm.insert(QStringLiteral("enabled"), true);
        config.insert(QStringLiteral("arm"), arm);
        QVERIFY(rig.profiles.setSetting(QStringLiteral("helicopterConfig"), config));
    }
    Wire wire(rig.sim, this);
    QSignalSpy errors(rig.controller.get(), &TavrixController::errorOccurred);
    QVERIFY(rig.controller->startTransmission());
    if (helicopter) {
        rig.controller->setHeliArmed(true);
        QTRY_COMPARE(rig.sim.lastChannels()[4], 1811);
    } else {
        // The car's motion drives the wheel, its spring holds it centred.
        QVERIFY(rig.controller->forceFeedback()->enable());
        QTRY_VERIFY(rig.backend.ffbState(rig.firstDevice).constantSends > 2);
        QVERIFY(rig.backend.ffbState(rig.firstDevice).springPlaying);
    }
    // A frame that is anything but neutral: steering (roll, at the beginner's rate) to the right.
    rig.setSteering(0.6);
    QTRY_VERIFY(rig.sim.lastChannels()[kCh1] > 1100);

    switch (fault) {
    case Fault::UserStop:
        rig.controller->stopTransmission();
        break;
    case Fault::WheelLost:
        rig.backend.setLost(rig.firstDevice, true);
        break;
    case Fault::PedalsLost:
        rig.backend.setLost(rig.secondDevice, true);
        break;
    case Fault::ThrottleSpike:
        rig.setPedals(1.0, 0.0); // released to full in one tick: no foot does that
        break;
    case Fault::UserDisconnects:
        rig.controller->disconnectTransmitter();
        break;
    case Fault::UserConnectsAgain:
        QVERIFY(rig.controller->connectTransmitter(rig.sim.clientPath()));
        break;
    case Fault::ControllerDestroyed:
        rig.controller.reset();
        break;
    }
    QTRY_COMPARE(wire.count(QStringLiteral("STOP")), 1);
    if (rig.controller) {
        QVERIFY(!rig.controller->isRunning());
        if (rig.controller->isSerialConnected())
            QVERIFY(rig.flushToBridge()); // anything sent after the STOP has arrived by now
    }

    const std::optional<sim::ChannelArray> neutral = wire.frameNear(QStringLiteral("STOP"), -1);
    const std::optional<sim::ChannelArray> driving = wire.frameNear(QStringLiteral("STOP"), -2);
    QVERIFY2(neutral && driving, "two channel frames must come right before the STOP");
    for (int ch = 0; ch < primaries.size(); ++ch)
        QCOMPARE((*neutral)[ch], primaries.at(ch));
    // Button channels (the LED strip's CH12 among them) stay as they were.
    for (int ch = int(primaries.size()); ch < 16; ++ch)
        QCOMPARE((*neutral)[ch], (*driving)[ch]);
    QCOMPARE(wire.framesAfter(QStringLiteral("STOP")), 0);
    // The pedals rest throughout: even the tick that finds a spike sends CH2 at neutral.
    for (const Wire::Item &item : std::as_const(wire.items))
        QVERIFY(!item.command.isEmpty() || item.channels[1] == 992);
    QCOMPARE(wire.count(QStringLiteral("START")), 1);
    const VirtualFfbState wheel = rig.backend.ffbState(rig.firstDevice);
    QVERIFY(!wheel.constantPlaying && !wheel.springPlaying);
    // A lost wheel cannot be told to centre itself; any other gets its own centering back.
    if (!helicopter && fault != Fault::WheelLost)
        QCOMPARE(wheel.autocenter, 1.0);
    QCOMPARE(errors.size(), message.isEmpty() ? 0 : 1);
    if (!message.isEmpty())
        QCOMPARE(errors.first().at(0).toString(), message);
}

void TestControllerFaults::forceFeedbackLastsOneRunAndLetsGoOfAClosedWheel()
{
    ControllerRig rig;
    QVERIFY2(rig.setUp(), "the controller rig could not be set up");
    WheelForceFeedback &ffb = *rig.controller->forceFeedback();
    QSignalSpy levels(rig.controller.get(), &TavrixController::ffbLevelReceived);
    ffb.setAutoEngage(true);
    ffb.setCentering(0.4f);

    QVERIFY(rig.controller->startTransmission());
    QVERIFY(ffb.isEnabled());
    QTRY_VERIFY(levels.size() > 2 && rig.backend.ffbState(rig.firstDevice).constantSends > 2);
    VirtualFfbState wheel = rig.backend.ffbState(rig.firstDevice);
    QCOMPARE(wheel.autocenter, 0.0); // the spring replaces the wheel's own centering
    QVERIFY(wheel.springPlaying);
    QCOMPARE(wheel.spring, 0.4f);

    rig.controller->stopTransmission();
    QVERIFY(!ffb.isEnabled());
    wheel = rig.backend.ffbState(rig.firstDevice);
    QVERIFY(!wheel.constantPlaying && !wheel.springPlaying);
    QCOMPARE(wheel.autocenter, 1.0);
    // With the motion gone the force fades out and the tick stops by itself.
    QTRY_VERIFY_WITH_TIMEOUT(!ffb.isTicking(), 10000);
    QCOMPARE(levels.constLast().at(0).toFloat(), 0.0f);

    // Switched on by hand, then the wheel closed: it is told to centre itself before it goes.
    QVERIFY(ffb.enable());
    QCOMPARE(rig.backend.ffbState(rig.firstDevice).autocenter, 0.0);
    rig.controller->disconnectDevice(DeviceRole::WheelBase);
    QVERIFY(!ffb.isEnabled());
    QCOMPARE(rig.backend.ffbState(rig.firstDevice).autocenter, 1.0);
    QVERIFY(!ffb.enable());
}

void TestControllerFaults::unpluggingTheBridgeWhileTransmittingAlwaysStops()
{
    ControllerRig rig;
    QVERIFY2(rig.setUp(), "the controller rig could not be set up");
    Wire wire(rig.sim, this);
    QSignalSpy errors(rig.controller.get(), &TavrixController::errorOccurred);
    // Seeded: a failing round can be repeated.
    QRandomGenerator random(20261122);
    constexpr int kRounds = 200;
    for (int round = 1; round <= kRounds; ++round) {
        QVERIFY(rig.controller->startTransmission());
        const quint32 frames = random.bounded(6u);
        QTRY_VERIFY(rig.controller->frameCount() >= frames);
        // Sometimes the bridge has stopped reading first, so bytes are still queued in the
        // port when the line goes.
        rig.sim.setReadingPaused(random.bounded(2) == 1);
        bool hungUp = false;
        QTimer::singleShot(int(random.bounded(10u)), &rig.sim, [&] {
            rig.sim.hangUp();
            hungUp = true;
        });
        QTRY_VERIFY(hungUp);
        QTRY_VERIFY2(!rig.controller->isSerialConnected(), qPrintable(QString::number(round)));
        QVERIFY2(!rig.controller->isRunning(), qPrintable(QString::number(round)));
        QCOMPARE(errors.size(), round);

        rig.sim.setReadingPaused(false);
        QVERIFY(rig.sim.plugIn());
        // The link comes back by itself; transmission does not.
        QTRY_VERIFY(rig.controller->isSerialConnected());
        QVERIFY(!rig.controller->isRunning());
    }
    QVERIFY(rig.flushToBridge());
    QVERIFY(wire.count(QStringLiteral("START")) <= kRounds); // only the deliberate ones (some never arrive)

    // The link that came back is the remembered one, and a deliberate start drives on it.
    QCOMPARE(rig.profiles.transmitterPortName(), rig.linkPath());
    const quint64 framesBefore = rig.sim.channelFrameCount();
    QVERIFY(rig.controller->startTransmission());
    QTRY_VERIFY(rig.sim.channelFrameCount() > framesBefore);
}

void TestControllerFaults::stalledBridgeGetsNoBacklogAndUnsentFramesAreNotCounted()
{
    ControllerRig rig;
    QVERIFY2(rig.setUp(), "the controller rig could not be set up");
    Wire wire(rig.sim, this);
    LogCapture log;
    QSignalSpy sent(rig.controller.get(), &TavrixController::frameSent);
    QSignalSpy ticks(rig.controller.get(), &TavrixController::inputChanged);

    // A bridge that stopped reading, with its line full: the kernel holds what it can
    // (about 20 KiB on a pty), the rest waits in the port's own buffer.
    rig.sim.setReadingPaused(true);
    QCOMPARE(rig.controller->serialWrite(QByteArray(64 * 1024, '\0')), qint64(64 * 1024));
    QVERIFY(rig.controller->startTransmission());
    rig.setSteering(0.3);
    QTRY_VERIFY(!ticks.isEmpty()); // ticks ran and saw the wheel turn...
    rig.setSteering(0.6);
    QTRY_VERIFY(rig.controller->steering() > 0.5);
    QCOMPARE(log.count(QStringLiteral("not taking channel frames")), 1);
    QVERIFY(sent.isEmpty()); // ...but no frame could go out, and none was counted
    QCOMPARE(rig.controller->frameCount(), 0u);

    rig.sim.setReadingPaused(false);
    QTRY_VERIFY(rig.controller->frameCount() > 0);
    // The first frame after START already carries the wheel as it is now, not as it was
    // when the bridge stalled.
    QTRY_VERIFY(wire.frameNear(QStringLiteral("START"), 1).has_value());
    QVERIFY(wire.frameNear(QStringLiteral("START"), 1)->at(kCh1) > 1500);
}

void TestControllerFaults::receiverComingAndGoingLeavesTransmissionAlone()
{
    ControllerRig rig;
    QVERIFY2(rig.setUp(), "the controller rig could not be set up");
    PseudoTerminal receiver;
    QVERIFY(receiver.open(rig.receiverPath()));
    ReceiverPort *port = rig.controller->receiverPort();
    QVERIFY(port->connectReceiver(rig.receiverPath()));
    QCOMPARE(rig.profiles.receiverPortName(), rig.receiverPath());
    QVERIFY(rig.controller->startTransmission());
    QSignalSpy connected(rig.controller.get(), &TavrixController::receiverConnectedChanged);
    QSignalSpy lines(rig.controller.get(), &TavrixController::receiverDataReceived);
    QSignalSpy errors(rig.controller.get(), &TavrixController::errorOccurred);
    QSignalSpy running(rig.controller.get(), &TavrixController::runningChanged);

    // Unplugged and plugged back: the console comes back on the same port by itself.
    receiver.hangUp();
    QVERIFY(connected.wait(2000));
    QVERIFY(receiver.plugIn());
    QVERIFY(connected.wait(2000));
    QCOMPARE(connected.at(1).at(0).toBool(), true);
    QCOMPARE(port->portName(), rig.receiverPath());

    // The line that came back works both ways.
    QVERIFY(receiver.write("Orvane: 4.4.3\r\n"));
    QVERIFY(lines.wait(2000));
    QCOMPARE(lines.at(0).at(0).toString(), QStringLiteral("Orvane: 4.4.3"));
    QByteArray sent;
    connect(&receiver, &PseudoTerminal::readyRead, this, [&] { sent += receiver.readAll(); });
    // A line break cannot smuggle a second command past the checks made on the line.
    QVERIFY(!port->writeLine(QStringLiteral("OSD 1\nDFU")));
    QVERIFY(!port->writeLine(QStringLiteral("DFU\rOSD 1")));
    QVERIFY(port->writeLine(QStringLiteral("HELP")));
    // The configuration manager asks its own questions on the same line meanwhile.
    QTRY_VERIFY(sent.contains("\nHELP\n") || sent.startsWith("HELP\n"));
    QVERIFY(!sent.contains("DFU") && !sent.contains("OSD 1"));

    // Put away on purpose, it stays away though its port is still there.
    port->disconnectReceiver();
    QCOMPARE(connected.size(), 3);
    QVERIFY(!connected.wait(300));

    // Transmission never heard of any of it.
    QVERIFY(rig.controller->isRunning());
    QCOMPARE(running.size(), 0);
    QCOMPARE(errors.size(), 0);
    const quint32 frames = rig.controller->frameCount();
    QTRY_VERIFY(rig.controller->frameCount() > frames);
}

QTEST_GUILESS_MAIN(TestControllerFaults)
#include "tst_controllerfaults.moc"
