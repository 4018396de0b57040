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

} // namespace

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
    int32_t tick(const ButtonMappingList &mappings, int channel)
    {
        engine.apply(mappings, channels, wheel);
        return channels[channel];
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

    void invalidPrimarySourceDisablesMapping()
    {
        ButtonMapping m = mapping(-1, kCh4, ButtonBehaviour::Momentary, 2047, 100);
        m.extraButtons = {5};
        const ButtonMappingList mappings{m};
        start(mappings);
        channels[kCh4] = 555;
        wheel.press(5);
        QCOMPARE(tick(mappings, kCh4), 555);
        QVERIFY(!ButtonMappingEngine::ownsChannel(mappings, kCh4));
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

    void momentary_data()
    {
        QTest::addColumn<QList<int>>("pressed");
        QTest::addColumn<int>("expected");
        QTest::newRow("released: first mapping's start value") << QList<int>{} << 100;
        QTest::newRow("first pressed") << QList<int>{1} << 1000;
        QTest::newRow("both: last in list order wins") << QList<int>{1, 2} << 2000;
        QTest::newRow("further source of the first") << QList<int>{129} << 1000;
        QTest::newRow("further source of the first and second") << QList<int>{129, 2} << 2000;
    }
    void momentary()
    {
        QFETCH(QList<int>, pressed);
        QFETCH(int, expected);
        ButtonMapping first = mapping(1, kCh4, ButtonBehaviour::Momentary, 1000, 100);
        first.extraButtons = {-1, 129}; // a negative further source is skipped
        const ButtonMappingList mappings{first, mapping(2, kCh4, ButtonBehaviour::Momentary, 2000, 200)};
        start(mappings);
        for (int index : pressed)
            wheel.press(index);
        QCOMPARE(tick(mappings, kCh4), expected);
        wheel.releaseAll();
        QCOMPARE(tick(mappings, kCh4), 100);
    }

    void switchPositionsFormMultiPositionSwitch()
    {
        const ButtonMappingList mappings{mapping(1, kCh5, ButtonBehaviour::SwitchPosition, 172, 992),
                                         mapping(2, kCh5, ButtonBehaviour::SwitchPosition, 1811, 500)};
        start(mappings);
        QCOMPARE(tick(mappings, kCh5), 992); // first switch mapping's start value
        wheel.press(1);
        QCOMPARE(tick(mappings, kCh5), 172);
        wheel.release(1);
        QCOMPARE(tick(mappings, kCh5), 172); // stays after release
        wheel.press(2);
        QCOMPARE(tick(mappings, kCh5), 1811);
        wheel.release(2);
        QCOMPARE(tick(mappings, kCh5), 1811);
        wheel.press(2);
        wheel.press(1); // both rise in one tick: the later mapping in list order stores last
        QCOMPARE(tick(mappings, kCh5), 1811);
        wheel.release(2);
        QCOMPARE(tick(mappings, kCh5), 1811); // holding button 1 is not a new edge
        wheel.release(1);
        tick(mappings, kCh5);
        wheel.press(1);
        QCOMPARE(tick(mappings, kCh5), 172);
    }

    void toggleHeldForManyTicksFlipsOnce()
    {
        const ButtonMappingList mappings{mapping(7, kCh4, ButtonBehaviour::Toggle, 1811, 172)};
        start(mappings);
        QCOMPARE(tick(mappings, kCh4), 172);
        wheel.press(7);
        for (int i = 0; i < 300; ++i)
            QCOMPARE(tick(mappings, kCh4), 1811);
        wheel.release(7);
        for (int i = 0; i < 10; ++i)
            QCOMPARE(tick(mappings, kCh4), 1811);
        wheel.press(7);
        QCOMPARE(tick(mappings, kCh4), 172);
        QCOMPARE(tick(mappings, kCh4), 172);
    }

    void toggleFlipsOnEveryRisingSource()
    {
        ButtonMapping toggle = mapping(7, kCh4, ButtonBehaviour::Toggle, 1811, 172);
        toggle.extraButtons = {8};
        const ButtonMappingList mappings{toggle};
        start(mappings);
        wheel.press(7);
        QCOMPARE(tick(mappings, kCh4), 1811);
        wheel.press(8); // another source rises while the first is held
        QCOMPARE(tick(mappings, kCh4), 172);
        wheel.releaseAll();
        tick(mappings, kCh4);
        wheel.press(7);
        wheel.press(8); // two sources rising together flip twice
        QCOMPARE(tick(mappings, kCh4), 172);
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

    void priority_data()
    {
        QTest::addColumn<ButtonMappingList>("mappings");
        QTest::addColumn<int>("released");
        QTest::addColumn<int>("allPressed");
        const ButtonMapping sw = mapping(1, kCh4, ButtonBehaviour::SwitchPosition, 1500, 1400);
        const ButtonMapping toggle = mapping(2, kCh4, ButtonBehaviour::Toggle, 1700, 1600);
        const ButtonMapping hold = holdMapping(3, kCh4, ButtonBehaviour::HoldToRaise, 1000, 0, 2047, 300);
        const ButtonMapping momentary = mapping(4, kCh4, ButtonBehaviour::Momentary, 900, 800);
        // hold: 300 + 1000 x 7 / 1000 = 307
        QTest::newRow("switch over toggle, hold, momentary")
            << ButtonMappingList{momentary, hold, toggle, sw} << 1400 << 1500;
        QTest::newRow("toggle over hold and momentary")
            << ButtonMappingList{momentary, hold, toggle} << 1600 << 1700;
        QTest::newRow("toggle over momentary") << ButtonMappingList{momentary, toggle} << 1600 << 1700;
        QTest::newRow("hold over momentary") << ButtonMappingList{momentary, hold} << 300 << 307;
        QTest::newRow("momentary alone") << ButtonMappingList{momentary} << 800 << 900;
    }
    void priority()
    {
        QFETCH(ButtonMappingList, mappings);
        QFETCH(int, released);
        QFETCH(int, allPressed);
        start(mappings);
        QCOMPARE(tick(mappings, kCh4), released);
        for (int button = 1; button <= 4; ++button)
            wheel.press(button);
        QCOMPARE(tick(mappings, kCh4), allPressed);
    }

    void holdToRaiseReachesMaxAfterAboutOnePointSixFourSeconds()
    {
        const ButtonMappingList mappings{
            holdMapping(5, kCh4, ButtonBehaviour::HoldToRaise, 500, 172, 1811, 992)};
        start(mappings);
        QCOMPARE(tick(mappings, kCh4), 992);
        wheel.press(5);
        // 3.5 units per 7 ms tick: 819 units need 234 ticks = 1.638 s.
        for (int i = 1; i <= 233; ++i)
            tick(mappings, kCh4);
        QCOMPARE(channels[kCh4], 1807); // 992 + 233 x 3.5 = 1807.5, truncated
        QCOMPARE(tick(mappings, kCh4), 1811);
        for (int i = 0; i < 100; ++i)
            QCOMPARE(tick(mappings, kCh4), 1811);
        wheel.release(5);
        QCOMPARE(tick(mappings, kCh4), 1811);
    }

    void holdValueTruncatesAndStaysWhereReleased_data()
    {
        QTest::addColumn<int>("ticks");
        QTest::addColumn<int>("expected");
        // Lowering 100 units/s from 1000: 0.7 per tick.
        QTest::newRow("2 ticks: 998.6 truncates, not rounds") << 2 << 998;
        QTest::newRow("15 ticks: 989.5") << 15 << 989;
    }
    void holdValueTruncatesAndStaysWhereReleased()
    {
        QFETCH(int, ticks);
        QFETCH(int, expected);
        const ButtonMappingList mappings{
            holdMapping(5, kCh4, ButtonBehaviour::HoldToLower, 100, 0, 2047, 1000)};
        start(mappings);
        wheel.press(5);
        for (int i = 0; i < ticks; ++i)
            tick(mappings, kCh4);
        QCOMPARE(channels[kCh4], expected);
        wheel.release(5);
        for (int i = 0; i < 20; ++i)
            QCOMPARE(tick(mappings, kCh4), expected);
    }

    void holdRangeSpansAllHoldMappings()
    {
        const ButtonMappingList mappings{
            holdMapping(1, kCh4, ButtonBehaviour::HoldToRaise, 2000, 500, 1500, 1000),
            holdMapping(2, kCh4, ButtonBehaviour::HoldToLower, 2000, 200, 1200, 1900)};
        start(mappings);
        QCOMPARE(tick(mappings, kCh4), 1000); // first hold mapping's start value
        wheel.press(2);
        for (int i = 0; i < 200; ++i)
            tick(mappings, kCh4);
        QCOMPARE(channels[kCh4], 200); // below the raise mapping's own minimum
        wheel.release(2);
        wheel.press(1);
        for (int i = 0; i < 200; ++i)
            tick(mappings, kCh4);
        QCOMPARE(channels[kCh4], 1500); // above the lower mapping's own maximum
        wheel.press(2);                 // raise and lower at the same rate cancel
        QCOMPARE(tick(mappings, kCh4), 1500);
        wheel.release(1);
        QCOMPARE(tick(mappings, kCh4), 1486); // 1500 - 2000 x 7 / 1000
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
