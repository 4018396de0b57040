#include "ledconfigpush.h"
#include "receiverledstrip.h"

#include <QSignalSpy>
#include <QTest>
#include <QTimer>

using namespace tavrix;
using namespace Qt::StringLiterals;

namespace {

using Strip = sim::ReceiverLedStrip;
using State = LedConfigPush::State;

// The receiver's strip behind its console: each command line reaches it and its answer
// comes back on a later turn of the event loop, as over a serial port; a silent receiver
// takes the lines and never answers.
struct Receiver
{
    Strip strip;
    bool silent = false;
    QStringList lines;
    QObject context;

    explicit Receiver(LedConfigPush &push)
    {
        QObject::connect(&push, &LedConfigPush::lineOut, &context, [this, &push](const QString &line) {
            lines.append(line);
            if (silent)
                return;
            const QString reply = strip.handle(line);
            QTimer::singleShot(0, &context, [&push, reply] { push.onReceiverLine(reply); });
        });
    }
};

LedStripSettings globalWhite()
{
    LedStripSettings s;
    s.setMode(LedStripSettings::Mode::Global);
    s.setLedCount(12);
    s.setBrightness(200);
    s.setGlobalColor({10, 20, 30});
    return s;
}

LedStripSettings perLed()
{
    LedStripSettings s;
    s.setMode(LedStripSettings::Mode::PerLed);
    s.setLedCount(3);
    s.setBrightness(7);
    s.setGlobalColor({1, 1, 1});
    s.setLedColor(1, {200, 0, 100});
    return s;
}

LedStripSettings twoZones()
{
    LedStripSettings s;
    s.setMode(LedStripSettings::Mode::Range);
    s.setPowerOn(false);
    s.addZone({5, 45, {255, 0, 0}});
    s.addZone({50, 100, {0, 0, 255}});
    return s;
}

QList<Strip::Color> colorsOf(const LedStripSettings &s)
{
    QList<Strip::Color> colors;
    if (s.mode() == LedStripSettings::Mode::Global)
        colors.append({s.globalColor().r, s.globalColor().g, s.globalColor().b});
    for (int led = 0; s.mode() == LedStripSettings::Mode::PerLed && led < s.ledCount(); ++led)
        colors.append({s.ledColor(led).r, s.ledColor(led).g, s.ledColor(led).b});
    for (const LedZone &zone : s.zones())
        colors.append({zone.color.r, zone.color.g, zone.color.b});
    return colors;
}

const QList<State> kHead{State::Waiting, State::SendingLedCount, State::SendingBrightness, State::SendingMode,
                         State::SendingPayloadCount};

// A receiver that answers never waits this long, so only silence can time a push out
// within the tests' waits.
LedConfigPush::Timings replyWait(bool silent)
{
    return {silent ? std::chrono::milliseconds(200) : std::chrono::milliseconds(60000)};
}

constexpr int kWaitMs = 20000;

} // namespace

class TestLedConfigPush : public QObject
{
    Q_OBJECT

private slots:
    void everyModeReachesTheStrip_data();
    void everyModeReachesTheStrip();
    void pushFails_data();
    void pushFails();
    void startRefusals_data();
    void startRefusals();
};

void TestLedConfigPush::everyModeReachesTheStrip_data()
{
    QTest::addColumn<LedStripSettings>("settings");
    QTest::addColumn<Strip::Mode>("mode");
    QTest::addColumn<QList<State>>("states");

    const QList<State> zone{State::SendingColor, State::SendingRangeStart, State::SendingRangeEnd};
    QTest::newRow("global: one colour")
        << globalWhite() << Strip::Mode::Global << kHead + QList<State>{State::SendingColor, State::Complete};
    QTest::newRow("per LED: one colour per LED")
        << perLed() << Strip::Mode::PerLed
        << kHead +
               QList<State>{State::SendingColor, State::SendingColor, State::SendingColor, State::Complete};
    QTest::newRow("range: colour, start and end per zone")
        << twoZones() << Strip::Mode::Range << kHead + zone + zone + QList<State>{State::Complete};
}

void TestLedConfigPush::everyModeReachesTheStrip()
{
    QFETCH(LedStripSettings, settings);
    QFETCH(Strip::Mode, mode);
    QFETCH(QList<State>, states);

    LedConfigPush push(replyWait(false));
    Receiver receiver(push);
    QList<State> seen;
    QList<int> items;
    connect(&push, &LedConfigPush::lineOut, this, [&] {
        seen.append(push.state());
        items.append(push.itemIndex());
    });
    QSignalSpy finished(&push, &LedConfigPush::finished);
    push.setPortOpen(true);

    QCOMPARE(push.start(settings), LedConfigPush::StartResult::Started);
    QVERIFY(finished.wait(kWaitMs));
    QCOMPARE(finished.first().at(0).toBool(), true);
    seen.append(push.state());
    QCOMPARE(seen, states);
    QVERIFY(!push.isRunning());

    const Strip &strip = receiver.strip;
    QCOMPARE(strip.isEnabled(), settings.powerOn());
    QCOMPARE(strip.ledCount(), settings.ledCount());
    QCOMPARE(strip.brightness(), settings.brightness());
    QCOMPARE(strip.mode(), mode);
    QCOMPARE(strip.colors(), colorsOf(settings));
    for (int zone = 0; zone < settings.zones().size(); ++zone) {
        QCOMPARE(strip.ranges().at(zone).startPercent, settings.zones().at(zone).startPercent);
        QCOMPARE(strip.ranges().at(zone).endPercent, settings.zones().at(zone).endPercent);
        // Each of a zone's three commands names that zone as the item being sent.
        QCOMPARE(items.mid(kHead.size() + 3 * zone, 3), QList<int>(3, zone));
    }
}

void TestLedConfigPush::pushFails_data()
{
    QTest::addColumn<QString>("refusedKey");
    QTest::addColumn<bool>("silent");
    QTest::addColumn<bool>("unplugAtColour");
    QTest::addColumn<qsizetype>("linesSent");

    QTest::newRow("the strip refuses the colour") << u"COLOR"_s << false << false << kHead.size() + 1;
    QTest::newRow("the strip refuses the first command") << u"ENABLE"_s << false << false << qsizetype(1);
    QTest::newRow("a silent receiver") << QString() << true << false << qsizetype(1);
    QTest::newRow("the console closes") << QString() << false << true << kHead.size() + 1;
}

void TestLedConfigPush::pushFails()
{
    QFETCH(QString, refusedKey);
    QFETCH(bool, silent);
    QFETCH(bool, unplugAtColour);
    QFETCH(qsizetype, linesSent);

    LedConfigPush push(replyWait(silent));
    Receiver receiver(push);
    receiver.silent = silent;
    receiver.strip.setRefusedKeys({refusedKey});
    if (unplugAtColour) {
        connect(&push, &LedConfigPush::stateChanged, this, [&push](State state) {
            if (state == State::SendingColor)
                QTimer::singleShot(0, &push, [&push] { push.setPortOpen(false); });
        });
    }
    QSignalSpy finished(&push, &LedConfigPush::finished);
    push.setPortOpen(true);

    QCOMPARE(push.start(twoZones()), LedConfigPush::StartResult::Started);
    QVERIFY(finished.wait(kWaitMs));
    QCOMPARE(finished.first().at(0).toBool(), false);
    QVERIFY(!finished.first().at(1).toString().isEmpty());
    // Nothing goes out after the failure, not even once the late answers arrive.
    QTest::qWait(0);
    QCOMPARE(receiver.lines.size(), linesSent);
    QVERIFY(!push.isRunning());
    QCOMPARE(push.state(), State::Idle);
    QCOMPARE(finished.size(), 1);
}

void TestLedConfigPush::startRefusals_data()
{
    QTest::addColumn<bool>("portOpen");
    QTest::addColumn<bool>("running");
    QTest::addColumn<LedStripSettings>("settings");
    QTest::addColumn<LedConfigPush::StartResult>("result");

    LedStripSettings noZones;
    noZones.setMode(LedStripSettings::Mode::Range);
    QTest::newRow("console closed") << false << false << globalWhite()
                                    << LedConfigPush::StartResult::NotConnected;
    QTest::newRow("a push running") << true << true << globalWhite()
                                    << LedConfigPush::StartResult::AlreadyRunning;
    QTest::newRow("range without zones")
        << true << false << noZones << LedConfigPush::StartResult::NothingToSend;
}

void TestLedConfigPush::startRefusals()
{
    QFETCH(bool, portOpen);
    QFETCH(bool, running);
    QFETCH(LedStripSettings, settings);
    QFETCH(LedConfigPush::StartResult, result);

    LedConfigPush push(replyWait(false));
    Receiver receiver(push);
    receiver.silent = true;
    push.setPortOpen(portOpen);
    if (running)
        QCOMPARE(push.start(perLed()), LedConfigPush::StartResult::Started);
    const qsizetype sent = receiver.lines.size();
    QSignalSpy started(&push, &LedConfigPush::started);

    QCOMPARE(push.start(settings), result);
    QCOMPARE(receiver.lines.size(), sent);
    QCOMPARE(started.size(), 0);
    QCOMPARE(push.isRunning(), running);
}

QTEST_GUILESS_MAIN(TestLedConfigPush)
#include "tst_ledconfigpush.moc"
