#include "buttonmappingengine.h"
#include "testsources.h"

#include <QTest>

using namespace tavrix;

namespace {

ButtonMapping mapping(int button, int channel, ButtonBehaviour mode, int outputValue, int startValue)
{
    ButtonMapping m;
    m.buttonIndex = button;
    m.channel = channel;
    m.mode = mode;
    m.outputValue = outputValue;
    m.startValue = startValue;
    return m;
}

ButtonMapping holdMapping(int button, int channel, ButtonBehaviour mode, int rate, int minValue, int maxValue,
                          int startValue)
{
    ButtonMapping m = mapping(button, channel, mode, 2047, startValue);
    m.rateUnitsPerSec = rate;
    m.minValue = minValue;
    m.maxValue = maxValue;
    return m;
}

constexpr int kCh4 = 3;
constexpr int kCh5 = 4;

// The buttons held for `times` ticks and the channel's value after them.
struct Step
{
    QList<int> pressed;
    int expected;
    int times = 1;
};
using Steps = QList<Step>;

} // namespace

Q_DECLARE_METATYPE(Step)

// One engine, one controller, one channel array: a car run in miniature.
class ButtonMappingEngineTest : public QObject
{
    Q_OBJECT

private:
    ButtonMappingEngine engine;
    testing::TestController wheel;
    ChannelValues channels{};

    void start(const ButtonMappingList &mappings)
    {
        engine = ButtonMappingEngine{};
        wheel.releaseAll();
        channels.fill(0);
        engine.reset(mappings);
    }
private slots:
    void withoutMappingsChannelsStayZero()
    {
        const ButtonMappingList none;
        start(none);
        wheel.press(0);
        wheel.press(130);
        for (int i = 0; i < 500; ++i)
            engine.apply(none, channels, wheel);
        QCOMPARE(channels, ChannelValues{});
    }

    void onlyChannelsInRangeAreWritten()
    {
        const ButtonMappingList mappings{mapping(1, 1, ButtonBehaviour::Momentary, 2000, 100),
                                         mapping(1, 12, ButtonBehaviour::Momentary, 2000, 100),
                                         mapping(1, 11, ButtonBehaviour::Momentary, 2000, 100)};
        start(mappings);
        wheel.press(1);
        engine.apply(mappings, channels, wheel);
        QCOMPARE(channels[1], 0);     // CH2 belongs to the drive computation
        QCOMPARE(channels[12], 0);    // CH13 is outside the car's CH3..CH12
        QCOMPARE(channels[11], 2000); // CH12 is the last one driven
        engine.apply(mappings, channels, wheel, ButtonMappingEngine::kFirstHelicopterChannel,
                     ButtonMappingEngine::kLastHelicopterChannel);
        QCOMPARE(channels[12], 2000); // the helicopter drives CH5..CH16
        QCOMPARE(channels[1], 0);
    }

    void sequences_data()
    {
        QTest::addColumn<ButtonMappingList>("mappings");
        QTest::addColumn<Steps>("steps");

        ButtonMapping first = mapping(1, kCh4, ButtonBehaviour::Momentary, 1000, 100);
        first.extraButtons = {-1, 129}; // a negative further source is skipped
        QTest::newRow("momentary: last pressed in list order wins, released gives the first start value")
            << ButtonMappingList{first, mapping(2, kCh4, ButtonBehaviour::Momentary, 2000, 200)}
            << Steps{{{}, 100}, {{1}, 1000}, {{1, 2}, 2000}, {{129}, 1000}, {{129, 2}, 2000}, {{}, 100}};
        // Both rising in one tick: the later mapping in list order stores last; holding is no new edge.
        QTest::newRow("switch positions form a multi-position switch")
            << ButtonMappingList{mapping(1, kCh4, ButtonBehaviour::SwitchPosition, 172, 992),
                                 mapping(2, kCh4, ButtonBehaviour::SwitchPosition, 1811, 500)}
            << Steps{{{}, 992},      {{1}, 172},  {{}, 172},  {{2}, 1811}, {{}, 1811},
                     {{1, 2}, 1811}, {{1}, 1811}, {{}, 1811}, {{1}, 172}};
        const ButtonMapping toggle = mapping(7, kCh4, ButtonBehaviour::Toggle, 1811, 172);
        QTest::newRow("toggle held for many ticks flips once")
            << ButtonMappingList{toggle}
            << Steps{{{}, 172}, {{7}, 1811, 300}, {{}, 1811, 10}, {{7}, 172}, {{7}, 172}};
        ButtonMapping twoSources = toggle;
        twoSources.extraButtons = {8};
        QTest::newRow("toggle flips on every rising source, twice for two together")
            << ButtonMappingList{twoSources} << Steps{{{7}, 1811}, {{7, 8}, 172}, {{}, 172}, {{7, 8}, 172}};
        // 3.5 units per 7 ms tick: 819 units need 234 ticks = 1.638 s.
        QTest::newRow("hold to raise reaches its maximum after 1.64 s")
            << ButtonMappingList{holdMapping(5, kCh4, ButtonBehaviour::HoldToRaise, 500, 172, 1811, 992)}
            << Steps{{{}, 992}, {{5}, 1807, 233}, {{5}, 1811}, {{5}, 1811, 100}, {{}, 1811}};
        // Lowering 100 units/s from 1000: 0.7 per tick, truncated, not rounded.
        const ButtonMappingList lower{holdMapping(5, kCh4, ButtonBehaviour::HoldToLower, 100, 0, 2047, 1000)};
        QTest::newRow("hold, 2 ticks: 998.6") << lower << Steps{{{5}, 998, 2}, {{}, 998, 20}};
        QTest::newRow("hold, 15 ticks: 989.5") << lower << Steps{{{5}, 989, 15}, {{}, 989, 20}};
        // Raise and lower at the same rate cancel; 1500 - 2000 x 7 / 1000 after.
        QTest::newRow("hold range spans all hold mappings of a channel")
            << ButtonMappingList{holdMapping(1, kCh4, ButtonBehaviour::HoldToRaise, 2000, 500, 1500, 1000),
                                 holdMapping(2, kCh4, ButtonBehaviour::HoldToLower, 2000, 200, 1200, 1900)}
            << Steps{{{}, 1000}, {{2}, 200, 200}, {{1}, 1500, 200}, {{1, 2}, 1500}, {{2}, 1486}};

        ButtonMapping noSource = mapping(-1, kCh4, ButtonBehaviour::Momentary, 2047, 100);
        noSource.extraButtons = {5};
        QTest::newRow("a mapping without a primary source is off")
            << ButtonMappingList{noSource} << Steps{{{}, 0}, {{5}, 0}};

        // Whatever is held, a switch beats a toggle, a toggle a hold, a hold a momentary.
        const ButtonMapping sw = mapping(1, kCh4, ButtonBehaviour::SwitchPosition, 1500, 1400);
        const ButtonMapping toggleTwo = mapping(2, kCh4, ButtonBehaviour::Toggle, 1700, 1600);
        const ButtonMapping hold = holdMapping(3, kCh4, ButtonBehaviour::HoldToRaise, 1000, 0, 2047, 300);
        const ButtonMapping momentary = mapping(4, kCh4, ButtonBehaviour::Momentary, 900, 800);
        const QList<int> all{1, 2, 3, 4};
        QTest::newRow("priority: switch")
            << ButtonMappingList{momentary, hold, toggleTwo, sw} << Steps{{{}, 1400}, {all, 1500}};
        QTest::newRow("priority: toggle")
            << ButtonMappingList{momentary, hold, toggleTwo} << Steps{{{}, 1600}, {all, 1700}};
        QTest::newRow("priority: toggle over momentary")
            << ButtonMappingList{momentary, toggleTwo} << Steps{{{}, 1600}, {all, 1700}};
        // 300 + 1000 x 7 / 1000
        QTest::newRow("priority: hold") << ButtonMappingList{momentary, hold} << Steps{{{}, 300}, {all, 307}};
        QTest::newRow("priority: momentary alone")
            << ButtonMappingList{momentary} << Steps{{{}, 800}, {all, 900}};
    }
    void sequences()
    {
        QFETCH(ButtonMappingList, mappings);
        QFETCH(Steps, steps);
        start(mappings);
        for (int i = 0; i < steps.size(); ++i) {
            wheel.releaseAll();
            for (int index : steps[i].pressed)
                wheel.press(index);
            for (int k = 0; k < steps[i].times; ++k)
                engine.apply(mappings, channels, wheel);
            QVERIFY2(channels[kCh4] == steps[i].expected,
                     qPrintable(QStringLiteral("step %1: %2").arg(i + 1).arg(channels[kCh4])));
        }
    }

    void sourceEdgeIsTakenByFirstEdgeDrivenMapping()
    {
        // Edges are remembered per source as they are evaluated: a button that is the
        // source of toggles on two channels reaches the lower channel only.
        const ButtonMappingList mappings{mapping(7, kCh4, ButtonBehaviour::Toggle, 1811, 172),
                                         mapping(7, kCh5, ButtonBehaviour::Toggle, 1811, 172)};
        start(mappings);
        wheel.press(7);
        engine.apply(mappings, channels, wheel);
        QCOMPARE(channels[kCh4], 1811);
        QCOMPARE(channels[kCh5], 172);
    }

    void resetClearsMemoryAndReseedsHoldChannels()
    {
        const ButtonMappingList mappings{
            mapping(1, kCh4, ButtonBehaviour::Toggle, 1811, 172),
            mapping(2, kCh5, ButtonBehaviour::SwitchPosition, 1811, 400),
            holdMapping(3, 5, ButtonBehaviour::HoldToRaise, 1000, 0, 2047, 700),
            holdMapping(4, 5, ButtonBehaviour::HoldToLower, 1000, 0, 2047, 100),
        };
        start(mappings);
        QCOMPARE(engine.holdValue(5), 700.0);
        wheel.press(1);
        wheel.press(2);
        wheel.press(3);
        for (int i = 0; i < 10; ++i)
            engine.apply(mappings, channels, wheel);
        QCOMPARE(channels[kCh4], 1811);
        QCOMPARE(channels[kCh5], 1811);
        QCOMPARE(channels[5], 770);

        engine.reset(mappings); // a stop of transmission
        QCOMPARE(engine.holdValue(5), 700.0);
        wheel.releaseAll();
        engine.apply(mappings, channels, wheel);
        QCOMPARE(channels[kCh4], 172);
        QCOMPARE(channels[kCh5], 400);
        QCOMPARE(channels[5], 700);

        // Buttons still held across the reset rise again on the next run.
        wheel.press(1);
        engine.reset(mappings);
        engine.apply(mappings, channels, wheel);
        QCOMPARE(channels[kCh4], 1811);
    }

    void pitLimiterActive_data()
    {
        QTest::addColumn<bool>("flag");
        QTest::addColumn<int>("primary");
        QTest::addColumn<QList<int>>("pressed");
        QTest::addColumn<bool>("expected");
        QTest::newRow("flagged, primary held") << true << 9 << QList<int>{9} << true;
        QTest::newRow("flagged, further source held") << true << 9 << QList<int>{145} << true;
        QTest::newRow("flagged, invalid primary") << true << -1 << QList<int>{145} << false;
        QTest::newRow("not flagged, held") << false << 9 << QList<int>{9} << false;
    }
    void pitLimiterActive()
    {
        QFETCH(bool, flag);
        QFETCH(int, primary);
        QFETCH(QList<int>, pressed);
        QFETCH(bool, expected);
        ButtonMapping m = mapping(primary, 15, ButtonBehaviour::Momentary, 2047, 0);
        m.extraButtons = {145};
        m.activatesPitLimiter = flag;
        const ButtonMappingList mappings{mapping(3, kCh4, ButtonBehaviour::Momentary, 2047, 0), m};
        wheel.releaseAll();
        for (int index : pressed)
            wheel.press(index);
        QCOMPARE(ButtonMappingEngine::isPitLimiterActive(mappings, wheel), expected);
    }

    void ledPowerChannelOwnership_data()
    {
        QTest::addColumn<ButtonMappingList>("mappings");
        QTest::addColumn<bool>("owned");
        QTest::newRow("mapping on CH12")
            << ButtonMappingList{mapping(2, 11, ButtonBehaviour::Toggle, 2047, 0)} << true;
        QTest::newRow("CH12 mapping without a source")
            << ButtonMappingList{mapping(-1, 11, ButtonBehaviour::Toggle, 2047, 0)} << false;
        QTest::newRow("mapping on CH11")
            << ButtonMappingList{mapping(2, 10, ButtonBehaviour::Toggle, 2047, 0)} << false;
    }
    void ledPowerChannelOwnership()
    {
        QFETCH(ButtonMappingList, mappings);
        QFETCH(bool, owned);
        QCOMPARE(ButtonMappingEngine::ownsChannel(mappings, ButtonMappingEngine::kLedPowerChannel), owned);
    }
};

QTEST_GUILESS_MAIN(ButtonMappingEngineTest)
#include "tst_buttonmappingengine.moc"
