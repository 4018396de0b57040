#include "controllerrig.h"
#include "crsftypes.h"
#include "receiverelrslink.h"

#include <QSignalSpy>
#include <QTest>

using namespace tavrix;
using namespace tavrix::testing;
using State = ReceiverElrsLink::State;
using std::chrono::milliseconds;

namespace {

#define SET_UP_RIG(rig, ...) QVERIFY2((rig).setUp(__VA_ARGS__), "the controller rig could not be set up")

// Reads are generous so a late answer under load is never resent; searches wait long
// enough that a refused receiver is still being searched for when the test looks.
ControllerTimings linkTimings()
{
    ControllerTimings t = shortTimings();
    t.receiverLink.searchBackoff.fill(milliseconds(3000));
    t.receiverLink.readTimeout = milliseconds(4000);
    t.receiverLink.watchdogInterval = milliseconds(50);
    t.receiverLink.silenceLimit = milliseconds(1500);
    return t;
}

using ReceiverModel = sim::SimulatedParameterDevice::ReceiverModel;

sim::BridgeSimulatorSettings bridgeWithReceiver(ReceiverModel model)
{
    sim::BridgeSimulatorSettings s = ControllerRig::quietBridge();
    s.receiver = model;
    return s;
}

ReceiverElrsLink *link(const ControllerRig &rig)
{
    return rig.controller->receiverLink();
}

// The field byte of every frame of `type` the bridge received.
QList<int> fieldsAtBridge(const QSignalSpy &frames, uint8_t type)
{
    QList<int> fields;
    for (const QList<QVariant> &args : frames) {
        const QByteArray frame = args.at(0).toByteArray();
        if (frame.size() > 2 && uint8_t(frame[2]) == type)
            fields.append(frame.size() > 6 ? uint8_t(frame[5]) : -1);
    }
    return fields;
}

bool startAndReachReady(ControllerRig &rig)
{
    return rig.controller->startTransmission() &&
           QTest::qWaitFor([&rig] { return link(rig)->state() == State::Ready; }, 30000);
}

} // namespace

class TestReceiverElrsLink : public QObject
{
    Q_OBJECT

private slots:
    void identityDecidesWhetherTheReceiverIsRead_data();
    void identityDecidesWhetherTheReceiverIsRead();
    void searchBackoff_data();
    void searchBackoff();
    void unansweredSearchPausesThenSearchesAgain();
    void noSearchInConfigurationMode();
    void silentCarLosesTheReceiver();
    void unansweredReadsGiveUp_data();
    void unansweredReadsGiveUp();
    void directWriteReportsWhatTheReceiverKept_data();
    void directWriteReportsWhatTheReceiverKept();
};

void TestReceiverElrsLink::identityDecidesWhetherTheReceiverIsRead_data()
{
    QTest::addColumn<ReceiverModel>("model");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QList<int>>("readOrder"); // empty: refused

    QTest::newRow("V4 receiver: every field, fixed order")
        << ReceiverModel::OrvaneV4 << "Orvane RX V4" << QList<int>{14, 1, 3, 4, 7, 8, 9, 10, 12, 5};
    // The earlier receiver counts its fields from 1: nothing above its count is asked for.
    QTest::newRow("earlier receiver: fields within its count")
        << ReceiverModel::OrvaneV1 << "Orvane RX V1" << QList<int>{1, 3, 4, 7, 8, 9, 10, 5};
    QTest::newRow("foreign receiver") << ReceiverModel::Foreign << QString() << QList<int>{};
}

void TestReceiverElrsLink::identityDecidesWhetherTheReceiverIsRead()
{
    QFETCH(ReceiverModel, model);
    QFETCH(QString, name);
    QFETCH(QList<int>, readOrder);

    ControllerRig rig(bridgeWithReceiver(model));
    SET_UP_RIG(rig, QStringLiteral("rc_car"), linkTimings());
    QSignalSpy frames(&rig.sim, &sim::BridgeSimulator::frameReceived);

    if (readOrder.isEmpty()) {
        QSignalSpy crsf(rig.controller.get(), &TavrixController::crsfFrameReceived);
        QVERIFY(rig.controller->startTransmission());
        QTRY_VERIFY_WITH_TIMEOUT(
            std::any_of(crsf.cbegin(), crsf.cend(),
                        [](const QList<QVariant> &a) { return a.at(0).toUInt() == crsf::kTypeDeviceInfo; }),
            20000);
        QCOMPARE(link(rig)->state(), State::Searching);
        QVERIFY(fieldsAtBridge(frames, crsf::kTypeParameterRead).isEmpty());
        return;
    }
    QVERIFY(startAndReachReady(rig));
    QCOMPARE(link(rig)->receiverName(), name);
    QCOMPARE(link(rig)->firmwareVersion(), QStringLiteral("4.3.1"));
    QCOMPARE(fieldsAtBridge(frames, crsf::kTypeParameterRead), readOrder);
    QCOMPARE(link(rig)->parameters().size(), readOrder.size());
    QCOMPARE(
        link(rig)->parameters().value(link(rig)->fieldId(QStringLiteral("Motion Rate")).value_or(0)).value,
        50);
}

void TestReceiverElrsLink::searchBackoff_data()
{
    QTest::addColumn<int>("attempt");
    QTest::addColumn<int>("waitMs");

    const QList<int> expected{1500, 3000, 5000, 8000, 0, 3000};
    for (int attempt = 1; attempt <= expected.size(); ++attempt)
        QTest::addRow("attempt %d", attempt) << attempt << expected.at(attempt - 1);
}

void TestReceiverElrsLink::searchBackoff()
{
    QFETCH(int, attempt);
    QFETCH(int, waitMs);
    QCOMPARE(ReceiverElrsLink::searchBackoff({}, attempt), milliseconds(waitMs));
}

void TestReceiverElrsLink::unansweredSearchPausesThenSearchesAgain()
{
    sim::BridgeSimulatorSettings bridge = ControllerRig::quietBridge();
    bridge.linkUp = false;
    ControllerRig rig(bridge);
    ControllerTimings t = linkTimings();
    t.receiverLink.searchBackoff.fill(milliseconds(30));
    t.receiverLink.reSearchDelay = milliseconds(400);
    SET_UP_RIG(rig, QStringLiteral("rc_car"), t);
    QSignalSpy frames(&rig.sim, &sim::BridgeSimulator::frameReceived);
    QSignalSpy idle(link(rig), &ReceiverElrsLink::idle);

    QVERIFY(rig.controller->startTransmission());
    QVERIFY(idle.wait(20000));
    QVERIFY(rig.flushToBridge());
    QCOMPARE(fieldsAtBridge(frames, crsf::kTypeDevicePing).size(), ReceiverElrsLink::kMaxSearchAttempts);

    // The car comes on during the pause: the next search finds it.
    rig.sim.setLinkUp(true);
    QTRY_COMPARE_WITH_TIMEOUT(link(rig)->state(), State::Ready, 30000);
}

void TestReceiverElrsLink::noSearchInConfigurationMode()
{
    ControllerRig rig;
    SET_UP_RIG(rig, QStringLiteral("rc_car"), linkTimings());
    QVERIFY(rig.controller->enterConfigMode());
    link(rig)->startSearch();
    link(rig)->setTransmitterRunning(true);
    QCOMPARE(link(rig)->state(), State::Idle);
}

void TestReceiverElrsLink::silentCarLosesTheReceiver()
{
    ControllerRig rig;
    SET_UP_RIG(rig, QStringLiteral("rc_car"), linkTimings());
    QVERIFY(startAndReachReady(rig));
    QSignalSpy idle(link(rig), &ReceiverElrsLink::idle);

    rig.sim.setLinkUp(false);
    QVERIFY(idle.wait(20000));
    QVERIFY(link(rig)->parameters().isEmpty());
}

void TestReceiverElrsLink::unansweredReadsGiveUp_data()
{
    QTest::addColumn<bool>("directWrite");

    QTest::newRow("reading all fields loses the receiver") << false;
    QTest::newRow("a direct write reports failure, the link stays") << true;
}

// The bridge stops answering (the car's radio went quiet for parameter frames): each read
// is tried a fixed number of times, then the link gives up in the way the caller can act on.
void TestReceiverElrsLink::unansweredReadsGiveUp()
{
    QFETCH(bool, directWrite);

    ControllerRig rig;
    ControllerTimings t = linkTimings();
    t.receiverLink.readTimeout = milliseconds(300);
    t.receiverLink.silenceLimit = milliseconds(600000); // only the reads may end the link here
    SET_UP_RIG(rig, QStringLiteral("rc_car"), t);
    QVERIFY(startAndReachReady(rig));
    QVERIFY(rig.flushToBridge());
    const uint8_t rate = link(rig)->fieldId(QStringLiteral("Motion Rate")).value_or(0);
    QSignalSpy frames(&rig.sim, &sim::BridgeSimulator::frameReceived);
    QSignalSpy done(link(rig), &ReceiverElrsLink::directWriteDone);
    QSignalSpy idle(link(rig), &ReceiverElrsLink::idle);
    rig.sim.setStalled(true);

    if (directWrite) {
        QVERIFY(link(rig)->writeParameter(rate, 80));
        QVERIFY(done.wait(20000));
        QCOMPARE(done.at(0).at(1).toBool(), false);
        QCOMPARE(done.at(0).at(2).toInt(), -1);
        QCOMPARE(link(rig)->state(), State::Ready);
        QVERIFY(idle.isEmpty());
    } else {
        QVERIFY(link(rig)->readAll());
        QVERIFY(idle.wait(20000));
        QVERIFY(link(rig)->parameters().isEmpty());
    }
    QVERIFY(rig.flushToBridge());
    const int field = directWrite ? rate : ReceiverElrsLink::kReadOrder.front();
    QCOMPARE(fieldsAtBridge(frames, crsf::kTypeParameterRead),
             QList<int>(t.receiverLink.readAttempts, field));
}

void TestReceiverElrsLink::directWriteReportsWhatTheReceiverKept_data()
{
    QTest::addColumn<int>("value");
    QTest::addColumn<bool>("ok");
    QTest::addColumn<int>("kept");

    QTest::newRow("in range") << 80 << true << 80;
    QTest::newRow("above the receiver's maximum") << 200 << false << 50;
}

void TestReceiverElrsLink::directWriteReportsWhatTheReceiverKept()
{
    QFETCH(int, value);
    QFETCH(bool, ok);
    QFETCH(int, kept);

    ControllerRig rig;
    SET_UP_RIG(rig, QStringLiteral("rc_car"), linkTimings());
    QVERIFY(startAndReachReady(rig));
    const uint8_t rate = link(rig)->fieldId(QStringLiteral("Motion Rate")).value_or(0);
    QSignalSpy done(link(rig), &ReceiverElrsLink::directWriteDone);

    QVERIFY(link(rig)->writeParameter(rate, uint8_t(value)));
    QVERIFY(done.wait(20000));
    QCOMPARE(done.at(0).at(0).value<uint8_t>(), rate);
    QCOMPARE(done.at(0).at(1).toBool(), ok);
    QCOMPARE(done.at(0).at(2).toInt(), kept);
    QCOMPARE(link(rig)->parameters().value(rate).value, kept);
}

QTEST_GUILESS_MAIN(TestReceiverElrsLink)
#include "tst_receiverelrslink.moc"
