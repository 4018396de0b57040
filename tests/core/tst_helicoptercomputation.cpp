#include "buttonmappingengine.h"
#include "helicoptercomputation.h"
#include "testsources.h"

#include <QTest>

using namespace tavrix;
using namespace Qt::StringLiterals;

namespace {

constexpr int kRollSlot = 0;
constexpr int kPitchSlot = 1;
constexpr int kCollectiveSlot = 2;
constexpr int kRudderSlot = 3;

// Raw lever position for a collective fraction with the default calibration (-1..+1).
float leverFor(float collective)
{
    return collective * 2.0f - 1.0f;
}

} // namespace

class HelicopterComputationTest : public QObject
{
    Q_OBJECT

private:
    testing::TestController joystick;
    testing::TestController throttle;
    testing::TestController pedals;
    ButtonMappingEngine buttons;
    ButtonMappingList mappings;
    ChannelValues channels{};

    HelicopterInputs inputs() const { return {&joystick, &throttle, &pedals, &joystick}; }
    void tick(HelicopterComputation &heli, int times = 1)
    {
        for (int i = 0; i < times; ++i)
            heli.tick(inputs(), buttons, mappings, channels);
    }

private slots:
    void init()
    {
        joystick = {};
        throttle = {};
        pedals = {};
        buttons = {};
        mappings.clear();
        channels.fill(0);
        throttle.setAxis(kCollectiveSlot, -1.0f); // lever down
    }

    void conversions_data()
    {
        QTest::addColumn<int>("channel");
        QTest::addColumn<int>("expected");
        using H = HelicopterComputation;
        QTest::newRow("stick +1: 1811.5 rounds to 1812, clamped") << H::bipolarToChannel(1.0f) << 1811;
        QTest::newRow("stick 0: centre") << H::bipolarToChannel(0.0f) << 992;
        QTest::newRow("stick -1: 172.5 rounds away from zero") << H::bipolarToChannel(-1.0f) << 173;
        QTest::newRow("stick beyond +1") << H::bipolarToChannel(2.0f) << 1811;
        QTest::newRow("collective bottom") << H::collectiveToChannel(0.0f) << 172;
        QTest::newRow("collective top") << H::collectiveToChannel(1.0f) << 1811;
        QTest::newRow("collective below bottom") << H::collectiveToChannel(-0.5f) << 172;
        // 988, 1000 and 2012 us are read through the arm channel test.
        QTest::newRow("880 us") << H::microsecondsToChannel(880) << 0;
        QTest::newRow("above range") << H::microsecondsToChannel(2200) << 2047;
    }
    void conversions()
    {
        QFETCH(int, channel);
        QFETCH(int, expected);
        QCOMPARE(channel, expected);
    }

    void defaultChannels()
    {
        HelicopterComputation heli;
        joystick.setAxis(kRollSlot, 0.5f);
        joystick.setAxis(kPitchSlot, -0.5f);
        pedals.setAxis(kRudderSlot, 0.25f);
        throttle.setAxis(kCollectiveSlot, leverFor(0.25f));
        HelicopterSettings s;
        s.dualRates.enabled = false;
        heli.setSettings(s);
        tick(heli);
        QCOMPARE(channels[0], 1402);
        QCOMPARE(channels[1], 582);
        QCOMPARE(channels[2], 582);
        QCOMPARE(channels[3], 1197);
        QCOMPARE(channels[4], 0); // arm switch off by default
        QCOMPARE(channels[5], 0); // no throttle curve by default
    }

    void ratesScaleAllButCollective_data()
    {
        QTest::addColumn<bool>("enabled");
        QTest::addColumn<int>("mode");
        QTest::addColumn<int>("sportPct");
        QTest::addColumn<int>("roll");
        QTest::newRow("beginner 60%: 0.3 -> 1237.85") << true << 0 << 80 << 1238;
        QTest::newRow("sport 80%: 0.4 -> 1319.8") << true << 1 << 80 << 1320;
        QTest::newRow("3D 100%") << true << 2 << 80 << 1402;
        QTest::newRow("percentage clamped to 100") << true << 1 << 150 << 1402;
        QTest::newRow("negative percentage clamped to 0") << true << 1 << -20 << 992;
        QTest::newRow("rates off") << false << 0 << 80 << 1402;
    }
    void ratesScaleAllButCollective()
    {
        QFETCH(bool, enabled);
        QFETCH(int, mode);
        QFETCH(int, sportPct);
        QFETCH(int, roll);
        HelicopterSettings s;
        s.dualRates.enabled = enabled;
        s.dualRates.activeMode = mode;
        s.dualRates.sportPct = sportPct;
        HelicopterComputation heli(s);
        joystick.setAxis(kRollSlot, 0.5f);
        throttle.setAxis(kCollectiveSlot, leverFor(0.5f));
        tick(heli);
        QCOMPARE(channels[0], roll);
        QCOMPARE(channels[2], 992); // the collective keeps its full travel
    }

    void spikeProtection_data()
    {
        QTest::addColumn<QList<float>>("rollSequence");
        QTest::addColumn<QList<int>>("expected");
        QTest::newRow("one-tick glitch is ignored")
            << QList<float>{1.0f, 0.0f, 0.0f} << QList<int>{992, 992, 992};
        QTest::newRow("real jump is taken on the fifth tick")
            << QList<float>{1.0f, 1.0f, 1.0f, 1.0f, 1.0f, 1.0f} << QList<int>{992, 992, 992, 992, 1811, 1811};
        QTest::newRow("a change of exactly 0.6 passes") << QList<float>{0.6f} << QList<int>{1484};
        QTest::newRow("0.65 is held back")
            << QList<float>{0.65f, 0.65f, 0.65f, 0.65f, 0.65f} << QList<int>{992, 992, 992, 992, 1525};
        QTest::newRow("steps of 0.5 pass")
            << QList<float>{0.5f, 1.0f, 0.5f, -0.0f, -0.5f} << QList<int>{1402, 1811, 1402, 992, 582};
        QTest::newRow("four glitches in a row are all ignored")
            << QList<float>{-1.0f, -1.0f, -1.0f, -1.0f, 0.0f} << QList<int>{992, 992, 992, 992, 992};
    }
    void spikeProtection()
    {
        QFETCH(QList<float>, rollSequence);
        QFETCH(QList<int>, expected);
        HelicopterSettings s;
        s.dualRates.enabled = false;
        HelicopterComputation heli(s);
        joystick.setAxis(kPitchSlot, 0.5f); // pitch moves normally meanwhile
        for (int i = 0; i < rollSequence.size(); ++i) {
            joystick.setAxis(kRollSlot, rollSequence[i]);
            tick(heli);
            QVERIFY2(channels[0] == expected[i],
                     qPrintable(QStringLiteral("tick %1: %2").arg(i + 1).arg(channels[0])));
            QCOMPARE(channels[1], 1402);
        }
    }

    void spikeMemoryClearsAtStart()
    {
        HelicopterSettings s;
        s.dualRates.enabled = false;
        HelicopterComputation heli(s);
        joystick.setAxis(kRollSlot, 0.5f);
        tick(heli);
        joystick.setAxis(kRollSlot, 1.0f);
        tick(heli);
        QCOMPARE(channels[0], 1811);
        heli.reset();
        tick(heli); // 1.0 against a fresh 0: a jump again
        QCOMPARE(channels[0], 992);
    }

    void softStart_data()
    {
        QTest::addColumn<int>("seconds");
        QTest::addColumn<int>("ticks");
        QTest::addColumn<int>("collective");
        QTest::addColumn<bool>("active");
        // collective 0.5 x elapsed / max(duration, 1 s); elapsed = 7 ms x (ticks - 1)
        QTest::newRow("0 s, first tick: ramp 0") << 0 << 1 << 172 << true;
        QTest::newRow("0 s, 994 ms: 986.6") << 0 << 143 << 987 << true;
        QTest::newRow("0 s, 1001 ms: full") << 0 << 144 << 992 << false;
        QTest::newRow("1 s, 1001 ms: full") << 1 << 144 << 992 << false;
        QTest::newRow("3 s, 1001 ms: 445.4") << 3 << 144 << 445 << true;
        QTest::newRow("3 s, 3003 ms: full") << 3 << 430 << 992 << false;
    }
    void softStart()
    {
        QFETCH(int, seconds);
        QFETCH(int, ticks);
        QFETCH(int, collective);
        QFETCH(bool, active);
        HelicopterSettings s;
        s.fly.softStart = true;
        s.fly.softStartSec = seconds;
        HelicopterComputation heli(s);
        throttle.setAxis(kCollectiveSlot, leverFor(0.5f));
        joystick.setAxis(kRollSlot, 0.5f);
        tick(heli, ticks);
        QCOMPARE(channels[2], collective);
        QCOMPARE(heli.isSoftStartActive(), active);
        QCOMPARE(channels[0], 1238); // only the collective ramps
    }

    void differentialRudder_data()
    {
        QTest::addColumn<bool>("differential");
        QTest::addColumn<int>("secondAxis");
        QTest::addColumn<float>("left");
        QTest::addColumn<float>("right");
        QTest::addColumn<int>("rudder");
        // (p + 1) / 2 per pedal; rudder = right - left
        QTest::newRow("right half pressed") << true << 4 << -1.0f << 0.0f << 1402;
        QTest::newRow("left half pressed") << true << 4 << 0.0f << -1.0f << 582;
        QTest::newRow("both half pressed") << true << 4 << 0.0f << 0.0f << 992;
        QTest::newRow("both released") << true << 4 << -1.0f << -1.0f << 992;
        QTest::newRow("no second pedal: one axis as it is") << true << -1 << 0.5f << -1.0f << 1402;
        QTest::newRow("single axis") << false << 4 << 0.5f << -1.0f << 1402;
    }
    void differentialRudder()
    {
        QFETCH(bool, differential);
        QFETCH(int, secondAxis);
        QFETCH(float, left);
        QFETCH(float, right);
        QFETCH(int, rudder);
        HelicopterSettings s;
        s.dualRates.enabled = false;
        s.inputs.pedals.differential = differential;
        s.inputs.pedals.axis2 = secondAxis;
        HelicopterComputation heli(s);
        pedals.setAxis(kRudderSlot, left);
        pedals.setAxis(4, right);
        tick(heli);
        QCOMPARE(channels[3], rudder);
    }

    // A control with nothing behind it rests, after calibration: stick and rudder centred,
    // the collective and the motor at the bottom, not what calibration and curves make of 0.
    void absentControlsRest_data()
    {
        QTest::addColumn<QString>("absent"); // what is not there: a device, a slot or an assignment
        QTest::addColumn<bool>("differential");
        QTest::addColumn<bool>("curves");
        QTest::addColumn<int>("channel");
        QTest::addColumn<int>("value");
        QTest::newRow("lost throttle") << u"throttle device"_s << false << false << 2 << 172;
        QTest::newRow("lost throttle, curves on") << u"throttle device"_s << false << true << 2 << 172;
        QTest::newRow("lost throttle, motor") << u"throttle device"_s << false << true << 5 << 172;
        QTest::newRow("unassigned throttle") << u"throttle axis"_s << false << false << 2 << 172;
        QTest::newRow("lever lacks its slot") << u"collective slot"_s << false << false << 2 << 172;
        QTest::newRow("unassigned pitch") << u"pitch axis"_s << false << false << 1 << 992;
        QTest::newRow("stick lacks the pitch slot") << u"pitch slot"_s << false << false << 1 << 992;
        QTest::newRow("lost rudder axis") << u"pedals device"_s << false << false << 3 << 992;
        QTest::newRow("lost pedal pair") << u"pedals device"_s << true << false << 3 << 992;
        QTest::newRow("pedals lack the second slot") << u"pedal2 slot"_s << true << false << 3 << 992;
    }
    void absentControlsRest()
    {
        QFETCH(QString, absent);
        QFETCH(bool, differential);
        QFETCH(bool, curves);
        QFETCH(int, channel);
        QFETCH(int, value);
        HelicopterSettings s;
        s.dualRates.enabled = false;
        // Captured centres off the raw 0, so reading "nothing" as 0 would deflect.
        s.calibration.pitch = {-1.0f, 0.2f, 1.0f};
        s.calibration.rudder = {-1.0f, 0.2f, 1.0f};
        s.inputs.throttle.axis = absent == u"throttle axis"_s ? -1 : 2;
        s.inputs.joystick.yAxis = absent == u"pitch axis"_s ? -1 : 1;
        s.inputs.pedals.differential = differential;
        s.inputs.pedals.axis2 = 4;
        s.pitchCurve = {curves, {0.3, 1.0}};
        s.throttleCurve = {curves, {0.3, 1.0}};
        HelicopterComputation heli(s);
        joystick.setAxis(kPitchSlot, 0.1f);
        pedals.setAxis(kRudderSlot, 0.1f);
        pedals.setAxis(4, 0.1f);
        throttle.setAxis(kCollectiveSlot, 0.0f);
        throttle.setConnected(absent != u"throttle device"_s);
        pedals.setConnected(absent != u"pedals device"_s);
        if (absent == u"collective slot"_s)
            throttle.removeAxis(kCollectiveSlot);
        if (absent == u"pitch slot"_s)
            joystick.removeAxis(kPitchSlot);
        if (absent == u"pedal2 slot"_s)
            pedals.removeAxis(4);
        tick(heli, HelicopterComputation::kSpikeHoldTicks + 1); // past the spike protection
        QCOMPARE(channels[channel], value);
    }

    void calibration()
    {
        HelicopterSettings s;
        s.dualRates.enabled = false;
        s.calibration.roll = {-0.8f, 0.1f, 0.6f};
        s.calibration.throttle = {0.9f, 0.0f, -0.9f}; // lever reads -0.9 at the top
        HelicopterComputation heli(s);
        joystick.setAxis(kRollSlot, -0.35f);      // -(0.45 / 0.9) = -0.5
        throttle.setAxis(kCollectiveSlot, 0.45f); // (0.45 - 0.9) / -1.8 = 0.25
        tick(heli);
        QCOMPARE(channels[0], 582);
        QCOMPARE(channels[2], 582);
    }

    void curveInterpolation_data()
    {
        QTest::addColumn<QList<double>>("points");
        QTest::addColumn<float>("stick");
        QTest::addColumn<float>("expected");
        const QList<double> three{0.0, 0.8, 1.0};
        QTest::newRow("on a point") << three << 0.5f << 0.8f;
        QTest::newRow("between first two") << three << 0.25f << 0.4f;
        QTest::newRow("stick beyond high") << three << 1.5f << 1.0f;
        const QList<double> five{0.0, 0.1, 0.5, 0.9, 1.0};
        QTest::newRow("five points, third segment") << five << 0.6f << 0.66f;
        QTest::newRow("falling curve") << QList<double>{1.0, 0.0} << 0.25f << 0.75f;
        QTest::newRow("output clamped") << QList<double>{0.0, 2.0} << 0.75f << 1.0f;
        QTest::newRow("no points: unchanged") << QList<double>{} << 0.3f << 0.3f;
        QTest::newRow("one point: unchanged") << QList<double>{0.5} << 0.3f << 0.3f;
    }
    void curveInterpolation()
    {
        QFETCH(QList<double>, points);
        QFETCH(float, stick);
        QFETCH(float, expected);
        const HelicopterCurve curve{true, points};
        QVERIFY2(qAbs(curve.apply(stick) - expected) < 1e-5f,
                 qPrintable(QString::number(curve.apply(stick))));
    }

    void collectiveCurveAndMotorChannel()
    {
        HelicopterSettings s;
        s.pitchCurve = {true, {0.0, 0.8, 1.0}};
        s.throttleCurve = {true, {0.2, 1.0}};
        HelicopterComputation heli(s);
        throttle.setAxis(kCollectiveSlot, leverFor(0.5f));
        tick(heli);
        QCOMPARE(channels[5], 1155); // 0.6 x 1639 + 172 = 1155.4 on the motor channel
        // The curved collective jumps by 0.8 from rest: screened as a spike until the fifth tick.
        QCOMPARE(channels[2], 172);
        tick(heli, 4);
        QCOMPARE(channels[2], 1483); // 0.8 x 1639 + 172 = 1483.2

        s.pitchCurve.enabled = false;
        s.throttleCurve.enabled = false;
        heli.setSettings(s);
        heli.reset();
        channels[5] = 77;
        tick(heli);
        QCOMPARE(channels[2], 992);
        QCOMPARE(channels[5], 77); // left alone without a throttle curve
    }

    void channelIndexesOutsideRangeAreNotSent()
    {
        HelicopterSettings s;
        s.channels.roll = 16;
        s.channels.rudder = -1;
        s.channels.pitch = 9;
        HelicopterComputation heli(s);
        channels.fill(55);
        tick(heli);
        QCOMPARE(channels[0], 55);
        QCOMPARE(channels[3], 55);
        QCOMPARE(channels[9], 992);
    }

    void buttonMappingsDriveUpperChannelsButFlightValuesWin()
    {
        HelicopterSettings s;
        s.arm.enabled = true;
        HelicopterComputation heli(s);
        ButtonMapping onArmChannel;
        onArmChannel.buttonIndex = 3;
        onArmChannel.channel = 4;
        onArmChannel.outputValue = 1500;
        ButtonMapping onCh16 = onArmChannel;
        onCh16.channel = 15;
        ButtonMapping onCh3 = onArmChannel;
        onCh3.channel = 2;
        onCh3.startValue = 1234;
        mappings = {onArmChannel, onCh16, onCh3};
        joystick.press(3);
        throttle.setAxis(kCollectiveSlot, leverFor(0.5f));
        tick(heli);
        QCOMPARE(channels[15], 1500);
        QCOMPARE(channels[4], 173); // the arm channel is written after the mappings
        QCOMPARE(channels[2], 992); // CH3 is not a button channel of the helicopter
    }

    void armChannelFollowsArmState()
    {
        HelicopterSettings s;
        s.arm.enabled = true;
        HelicopterComputation heli(s);
        tick(heli);
        QCOMPARE(channels[4], 173);
        QCOMPARE(heli.requestArmed(true, inputs()), HelicopterComputation::ArmChange::Changed);
        tick(heli);
        QCOMPARE(channels[4], 1811);
        s.arm.onUs = 1000;
        heli.setSettings(s);
        tick(heli);
        QCOMPARE(channels[4], 192);
        QVERIFY(heli.disarm());
        QVERIFY(!heli.disarm());
        tick(heli);
        QCOMPARE(channels[4], 173);
    }

    void arming_data()
    {
        QTest::addColumn<bool>("armAtIdle");
        QTest::addColumn<bool>("throttleConnected");
        QTest::addColumn<int>("collectiveAxis");
        QTest::addColumn<float>("collective");
        QTest::addColumn<bool>("refused");
        QTest::newRow("15% collective is refused") << true << true << 2 << 0.15f << true;
        QTest::newRow("5% collective arms") << true << true << 2 << 0.05f << false;
        QTest::newRow("exactly 10% arms") << true << true << 2 << 0.1f << false;
        QTest::newRow("armAtIdle off") << false << true << 2 << 0.5f << false;
        QTest::newRow("throttle not connected") << true << false << 2 << 0.5f << false;
        QTest::newRow("collective unassigned") << true << true << -1 << 0.5f << false;
    }
    void arming()
    {
        QFETCH(bool, armAtIdle);
        QFETCH(bool, throttleConnected);
        QFETCH(int, collectiveAxis);
        QFETCH(float, collective);
        QFETCH(bool, refused);
        HelicopterSettings s;
        s.fly.armAtIdle = armAtIdle;
        s.inputs.throttle.axis = collectiveAxis;
        s.calibration.throttle = {0.0f, 0.5f, 1.0f}; // the lever reads the collective fraction directly
        HelicopterComputation heli(s);
        throttle.setConnected(throttleConnected);
        throttle.setAxis(kCollectiveSlot, collective);
        const auto change = heli.requestArmed(true, inputs());
        QCOMPARE(change, refused ? HelicopterComputation::ArmChange::Refused
                                 : HelicopterComputation::ArmChange::Changed);
        QCOMPARE(heli.isArmed(), !refused);
        QCOMPARE(heli.requestArmed(!refused, inputs()), HelicopterComputation::ArmChange::Unchanged);
        // Disarming is never refused, wherever the lever is.
        throttle.setAxis(kCollectiveSlot, 1.0f);
        QCOMPARE(heli.requestArmed(false, inputs()), refused ? HelicopterComputation::ArmChange::Unchanged
                                                             : HelicopterComputation::ArmChange::Changed);
        QVERIFY(!heli.isArmed());
    }
};

QTEST_GUILESS_MAIN(HelicopterComputationTest)
#include "tst_helicoptercomputation.moc"
