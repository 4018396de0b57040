#include "drivecomputation.h"
#include "logcapture.h"
#include "testsources.h"

#include <QTest>

using namespace tavrix;

namespace {

// The throttle safety features off: what is left is the plain ESC mapping.
DriveSettings plainSettings()
{
    DriveSettings s;
    s.softStartEnabled = false;
    s.stuckThrottleDetectionEnabled = false;
    s.throttleSpikeRejectionEnabled = false;
    return s;
}

DriveInputs pedals(float throttle, float brake = 0.0f, int gear = 0)
{
    DriveInputs in;
    in.throttle = throttle;
    in.brake = brake;
    in.gear = gear;
    return in;
}

// A pedal position held for `times` ticks and what CH2 and the safety stop must be after it.
struct Step
{
    float throttle;
    float brake;
    int ch2;
    bool stop;
    int gear = 0;
    int times = 1;
};
using Steps = QList<Step>;

// End points, calibration and the raw and calibrated wheel position, and the CH1 they give.
struct SteeringCase
{
    int left, centre, right;
    SteeringCalibration calibration;
    float raw, calibrated;
    int ch1;
};

// Pedals, gear and what the pit limiter sees, and the CH2 they give.
struct PedalCase
{
    float throttle, brake;
    int gear;
    bool flag; // the feature under test switched on
    bool held; // the pit limiter's button mapping held
    int ch2;
};

} // namespace

Q_DECLARE_METATYPE(Step)
Q_DECLARE_METATYPE(SteeringCase)
Q_DECLARE_METATYPE(PedalCase)

class DriveComputationTest : public QObject
{
    Q_OBJECT

private:
    testing::TestController wheel;
    ChannelValues channels{};

    DriveTickResult tick(DriveComputation &drive, const DriveInputs &in)
    {
        return drive.tick(in, wheel, channels);
    }

    void runSteps(DriveComputation &drive, const Steps &steps)
    {
        for (int i = 0; i < steps.size(); ++i) {
            DriveTickResult result;
            for (int k = 0; k < steps[i].times; ++k)
                result = tick(drive, pedals(steps[i].throttle, steps[i].brake, steps[i].gear));
            QVERIFY2(channels[1] == steps[i].ch2,
                     qPrintable(QStringLiteral("step %1: CH2 %2").arg(i + 1).arg(channels[1])));
            QCOMPARE(result.safetyStopRequested, steps[i].stop);
        }
    }

private slots:
    void init()
    {
        wheel.releaseAll();
        channels.fill(-1);
    }

    void steering_data()
    {
        QTest::addColumn<SteeringCase>("c");
        const SteeringCalibration none;
        // Default end points use the calibrated steering: trunc((s + 1) x 1023.5).
        QTest::newRow("default centre is 1023") << SteeringCase{0, 1024, 2047, none, 0.9f, 0.0f, 1023};
        QTest::newRow("default full left") << SteeringCase{0, 1024, 2047, none, 0.0f, -1.0f, 0};
        QTest::newRow("default half left 511.75 truncates")
            << SteeringCase{0, 1024, 2047, none, 0.0f, -0.5f, 511};
        // Custom end points use the raw position.
        QTest::newRow("custom full left") << SteeringCase{200, 1000, 1800, none, -1.0f, 0.0f, 200};
        QTest::newRow("custom beyond right clamps") << SteeringCase{200, 1000, 1800, none, 1.0f, 0.0f, 1800};
        QTest::newRow("asymmetric left half") << SteeringCase{300, 1100, 1700, none, -0.5f, 0.0f, 700};
        QTest::newRow("asymmetric right half") << SteeringCase{300, 1100, 1700, none, 0.5f, 0.0f, 1400};

        SteeringCalibration cal{true, -0.8f, 0.1f, 0.6f, false};
        // below centre: -(0.1 + 0.3) / 0.9 = -0.444 -> 1000 - 355.6
        QTest::newRow("calibrated below centre") << SteeringCase{200, 1000, 1800, cal, -0.3f, 0.0f, 644};
        // above centre: (0.333 - 0.1) / 0.5 = 0.466 -> 1000 + 372.8
        QTest::newRow("calibrated above centre") << SteeringCase{200, 1000, 1800, cal, 0.333f, 0.0f, 1372};
        SteeringCalibration inverted = cal;
        inverted.inverted = true;
        QTest::newRow("calibrated and inverted")
            << SteeringCase{200, 1000, 1800, inverted, 0.333f, 0.0f, 627};
        SteeringCalibration noLeftSpan{true, 0.1f, 0.1f, 0.6f, false};
        QTest::newRow("no span below centre gives centre")
            << SteeringCase{200, 1000, 1800, noLeftSpan, -0.7f, 0.0f, 1000};
        SteeringCalibration unused{false, -0.8f, 0.1f, 0.6f, true};
        QTest::newRow("calibration off, inverted still applies")
            << SteeringCase{200, 1000, 1800, unused, 0.25f, 0.0f, 800};
    }
    void steering()
    {
        QFETCH(SteeringCase, c);
        DriveSettings s = plainSettings();
        s.steeringLeft = c.left;
        s.steeringCenter = c.centre;
        s.steeringRight = c.right;
        s.steeringCalibration = c.calibration;
        DriveComputation drive(s);
        DriveInputs in;
        in.steeringRaw = c.raw;
        in.steering = c.calibrated;
        tick(drive, in);
        QCOMPARE(channels[0], c.ch1);
        QCOMPARE(channels[2], 0); // CH3 is cleared for the button mappings
    }

    void escMapping_data()
    {
        QTest::addColumn<PedalCase>("c"); // flag: the custom ESC 1000 / 1900 / 100
        // forward: 992 + (t - D) / 0.975574 x 819, D = 50 / 2047; truncated
        QTest::newRow("just past dead zone") << PedalCase{0.03f, 0.0f, 0, false, false, 996};
        QTest::newRow("half throttle 1391.25") << PedalCase{0.5f, 0.0f, 0, false, false, 1391};
        QTest::newRow("full throttle is exactly full forward")
            << PedalCase{1.0f, 0.0f, 0, false, false, 1811};
        // firm brake: 992 + (b - 0.1) / 0.9 x (172 - 992)
        QTest::newRow("brake 0.1 is neutral whatever the throttle")
            << PedalCase{1.0f, 0.1f, 0, false, false, 992};
        QTest::newRow("firm brake 0.4 ignores throttle: 718.7")
            << PedalCase{1.0f, 0.4f, 0, false, false, 718};
        QTest::newRow("full brake is full reverse") << PedalCase{0.0f, 1.0f, 0, false, false, 172};
        // light brake: throttle x (1 - b / 0.1), then mapped
        QTest::newRow("light brake 0.025 scales throttle to 0.75")
            << PedalCase{1.0f, 0.025f, 0, false, false, 1601};
        QTest::newRow("light brake 0.03 on 0.8: 0.56") << PedalCase{0.8f, 0.03f, 0, false, false, 1441};
        QTest::newRow("light brake 0.0999 leaves nothing") << PedalCase{1.0f, 0.0999f, 0, false, false, 992};
        QTest::newRow("custom full forward") << PedalCase{1.0f, 0.0f, 0, true, false, 1900};
        QTest::newRow("custom half throttle 1438.7") << PedalCase{0.5f, 0.0f, 0, true, false, 1438};
        QTest::newRow("custom full brake") << PedalCase{0.0f, 1.0f, 0, true, false, 100};
    }
    void escMapping()
    {
        QFETCH(PedalCase, c);
        DriveSettings s = plainSettings();
        s.escNeutral = 1000;
        s.escFullForward = 1900;
        s.escFullReverse = 100;
        s.escMode = c.flag ? EscMode::Custom : EscMode::Standard;
        DriveComputation drive(s);
        tick(drive, pedals(c.throttle, c.brake));
        QCOMPARE(channels[1], c.ch2);
    }

    void escModeStoredValuesAndNames()
    {
        QCOMPARE(escModeFromName(QStringLiteral("custom")), EscMode::Custom);
        QCOMPARE(escModeFromName(QStringLiteral("Custom")), EscMode::Standard); // names are exact
        QCOMPARE(escModeFromStored(1), EscMode::Standard);                      // the retired mode 1
        QCOMPARE(escModeFromStored(2), EscMode::Custom);
        DriveSettings s;
        s.escNeutral = 1000;
        QCOMPARE(s.esc().neutral, 992); // custom values are ignored in the standard mode
    }

    void throttleScreening_data()
    {
        QTest::addColumn<bool>("stuckDetection");
        QTest::addColumn<bool>("spikeRejection");
        QTest::addColumn<Steps>("steps");
        // forward values: 0.05 -> 1013, 0.15 -> 1097, 0.5 -> 1391, 0.85 -> 1685, 0.95 -> 1769
        QTest::newRow("jump 0.05 to 0.85 is a spike")
            << true << true << Steps{{0.05f, 0, 1013, false}, {0.85f, 0, 992, true}};
        QTest::newRow("jump 0.15 to 0.95 passes")
            << true << true << Steps{{0.15f, 0, 1097, false}, {0.95f, 0, 1769, false}};
        QTest::newRow("spike zeroes the brake too")
            << true << true << Steps{{0.0f, 0, 992, false}, {0.85f, 0.5f, 992, true}};
        QTest::newRow("held spike is refused every tick")
            << true << true << Steps{{0.0f, 0, 992, false}, {0.9f, 0, 992, true}, {0.9f, 0, 992, true}};
        QTest::newRow("rejection off lets the jump through")
            << true << false << Steps{{0.05f, 0, 1013, false}, {0.85f, 0, 1685, false}};
        QTest::newRow("stuck pedal at start is ignored until released") << true << true
                                                                        << Steps{{0.95f, 0, 992, false},
                                                                                 {0.95f, 0, 992, false},
                                                                                 {0.5f, 0, 992, false},
                                                                                 {0.05f, 0, 1013, false},
                                                                                 {0.5f, 0, 1391, false}};
        QTest::newRow("stuck pedal released then stamped is a spike")
            << true << true << Steps{{0.95f, 0, 992, false}, {0.0f, 0, 992, false}, {0.95f, 0, 992, true}};
        QTest::newRow("without stuck detection a full pedal at start is a spike")
            << false << true << Steps{{0.95f, 0, 992, true}};
        QTest::newRow("only the first tick can lock")
            << true << true << Steps{{0.5f, 0, 1391, false}, {0.95f, 0, 1769, false}};
        QTest::newRow("both off: full pedal at start drives")
            << false << false << Steps{{0.95f, 0, 1769, false}};
    }
    void throttleScreening()
    {
        QFETCH(bool, stuckDetection);
        QFETCH(bool, spikeRejection);
        QFETCH(Steps, steps);
        DriveSettings s = plainSettings();
        s.stuckThrottleDetectionEnabled = stuckDetection;
        s.throttleSpikeRejectionEnabled = spikeRejection;
        DriveComputation drive(s);
        runSteps(drive, steps);
    }

    void resetRearmsScreening()
    {
        DriveSettings s = plainSettings();
        s.stuckThrottleDetectionEnabled = true;
        s.throttleSpikeRejectionEnabled = true;
        DriveComputation drive(s);
        tick(drive, pedals(0.5f));
        tick(drive, pedals(0.95f));
        QCOMPARE(channels[1], 1769);
        drive.reset(); // a new start with the pedal still down
        tick(drive, pedals(0.95f));
        QCOMPARE(channels[1], 992);
        QVERIFY(drive.isThrottleLocked());
    }

    void softStartCaps_data()
    {
        QTest::addColumn<int>("seconds");
        QTest::addColumn<int>("ticks");
        QTest::addColumn<float>("throttle");
        QTest::addColumn<int>("ch2");
        QTest::addColumn<bool>("stillActive");
        // 2 s, floor 20%: cap = min(7k / 2000, 1) x 0.8 + 0.2 after k ticks
        QTest::newRow("first tick: cap 0.2028") << 2 << 1 << 1.0f << 1141 << true;
        QTest::newRow("a throttle under the cap passes") << 2 << 1 << 0.1f << 1055 << true;
        QTest::newRow("1001 ms: cap 0.6004") << 2 << 143 << 1.0f << 1475 << true;
        QTest::newRow("1995 ms: cap 0.998") << 2 << 285 << 1.0f << 1809 << true;
        QTest::newRow("2002 ms: uncapped and over") << 2 << 286 << 1.0f << 1811 << false;
        QTest::newRow("0 s: no ramp at all") << 0 << 1 << 1.0f << 1811 << false;
    }
    void softStartCaps()
    {
        QFETCH(int, seconds);
        QFETCH(int, ticks);
        QFETCH(float, throttle);
        QFETCH(int, ch2);
        QFETCH(bool, stillActive);
        DriveSettings s = plainSettings();
        s.softStartEnabled = true;
        s.softStartDurationSec = seconds;
        s.softStartFloorPercent = 20;
        DriveComputation drive(s);
        for (int i = 0; i < ticks; ++i)
            tick(drive, pedals(throttle));
        QCOMPARE(channels[1], ch2);
        QCOMPARE(drive.isSoftStartActive(), stillActive);

        drive.reset(); // the ramp runs again after every start
        tick(drive, pedals(1.0f));
        QCOMPARE(channels[1], seconds > 0 ? 1141 : 1811);
    }

    void spikeIsJudgedBeforeTheSoftStartCap()
    {
        DriveSettings s = plainSettings();
        s.throttleSpikeRejectionEnabled = true;
        s.softStartEnabled = true; // cap about 0.1 on the first ticks
        DriveComputation drive(s);
        QVERIFY(!tick(drive, pedals(0.0f)).safetyStopRequested);
        QVERIFY(tick(drive, pedals(0.9f)).safetyStopRequested);
        QCOMPARE(channels[1], 992);
    }

    void reverseByButton()
    {
        DriveSettings s = plainSettings();
        s.reverseEnabled = true;
        s.reverseButtonIndex = 5;
        s.reverseMaxPercent = 50;
        DriveComputation drive(s);

        DriveTickResult r = tick(drive, pedals(0.5f));
        QCOMPARE(channels[1], 1391);
        QVERIFY(!r.reverseModeChanged);

        wheel.press(5);
        r = tick(drive, pedals(0.5f));
        // amount min(0.5, 0.48748) -> 992 - 0.48748 x 820 = 592.27
        QCOMPARE(channels[1], 592);
        QVERIFY(r.reverseModeChanged);
        QVERIFY(r.reverseActive);

        for (int i = 0; i < 50; ++i) {
            r = tick(drive, pedals(0.5f)); // held: no further toggling
            QVERIFY(!r.reverseModeChanged);
        }
        QCOMPARE(channels[1], 592);

        wheel.release(5);
        tick(drive, pedals(1.0f));
        QCOMPARE(channels[1], 582); // capped at 50%: 992 - 410
        tick(drive, pedals(1.0f, 0.05f));
        QCOMPARE(channels[1], 992); // any brake stops reversing
        tick(drive, pedals(0.5f, 0.0f, 3));
        QCOMPARE(channels[1], 592); // reversing ignores the gear

        wheel.press(5);
        r = tick(drive, pedals(1.0f));
        QVERIFY(r.reverseModeChanged);
        QVERIFY(!r.reverseActive);
        QCOMPARE(channels[1], 1811);
    }

    void reverseGear_data()
    {
        QTest::addColumn<PedalCase>("c"); // flag: reverse enabled; held: reverse reported
        QTest::newRow("reverse gear reverses") << PedalCase{1.0f, 0, -1, true, true, 172};
        QTest::newRow("reverse gear, 0.3 throttle: 760.4") << PedalCase{0.3f, 0, -1, true, true, 760};
        QTest::newRow("reverse gear, pedal in dead zone") << PedalCase{0.02f, 0, -1, true, true, 992};
        QTest::newRow("reverse disabled: reverse gear drives forward")
            << PedalCase{1.0f, 0, -1, false, true, 1811};
        QTest::newRow("forward gear") << PedalCase{1.0f, 0, 2, true, false, 1811};
    }
    void reverseGear()
    {
        QFETCH(PedalCase, c);
        DriveSettings s = plainSettings();
        s.reverseEnabled = c.flag;
        DriveComputation drive(s);
        const DriveTickResult r = tick(drive, pedals(c.throttle, c.brake, c.gear));
        QCOMPARE(channels[1], c.ch2);
        QCOMPARE(r.reverseActive, c.held);
    }

    void disablingReverseSwitchesReverseModeOff()
    {
        DriveSettings s = plainSettings();
        s.reverseEnabled = true;
        s.reverseButtonIndex = 5;
        DriveComputation drive(s);
        wheel.press(5);
        tick(drive, pedals(0.0f));
        QVERIFY(drive.isReverseModeActive());
        s.reverseEnabled = false;
        QVERIFY(drive.setSettings(s));
        QVERIFY(!drive.isReverseModeActive());
        QVERIFY(!drive.setSettings(s));
        wheel.release(5);
        tick(drive, pedals(0.0f));
        wheel.press(5);
        const DriveTickResult r = tick(drive, pedals(1.0f));
        QVERIFY(!r.reverseModeChanged);
        QCOMPARE(channels[1], 1811);
    }

    void gearLimit_data()
    {
        QTest::addColumn<PedalCase>("c"); // flag: the gear limit on
        // limits 10, 20, 40, 60, 80, 90, 100 %; cap = 992 + P / 100 x 819
        QTest::newRow("gear 3 at 40%: 1319.6") << PedalCase{1.0f, 0.0f, 3, true, false, 1319};
        QTest::newRow("gear 1 at 10%: 1073.9") << PedalCase{1.0f, 0.0f, 1, true, false, 1073};
        QTest::newRow("gear 2 caps 0.3 throttle at 1155.8") << PedalCase{0.3f, 0.0f, 2, true, false, 1155};
        QTest::newRow("gear 7 at 100%") << PedalCase{1.0f, 0.0f, 7, true, false, 1811};
        QTest::newRow("neutral gear gives neutral") << PedalCase{1.0f, 0.0f, 0, true, false, 992};
        QTest::newRow("neutral gear with brake is neutral too") << PedalCase{0.0f, 1.0f, 0, true, false, 992};
        QTest::newRow("reverse gear (reverse off) is not limited")
            << PedalCase{1.0f, 0.0f, -1, true, false, 1811};
        QTest::newRow("limit off") << PedalCase{1.0f, 0.0f, 3, false, false, 1811};
    }
    void gearLimit()
    {
        QFETCH(PedalCase, c);
        DriveSettings s = plainSettings();
        s.gearThrottleLimitEnabled = c.flag;
        s.gearThrottleLimitPercent = {10, 20, 40, 60, 80, 90, 100};
        DriveComputation drive(s);
        tick(drive, pedals(c.throttle, c.brake, c.gear));
        QCOMPARE(channels[1], c.ch2);
    }

    void pitLimiter_data()
    {
        QTest::addColumn<PedalCase>("c"); // flag: the pit limiter enabled
        QTest::newRow("enabled caps") << PedalCase{1.0f, 0.0f, 0, true, false, 1200};
        QTest::newRow("held mapping caps") << PedalCase{1.0f, 0.0f, 0, false, true, 1200};
        QTest::newRow("neither") << PedalCase{1.0f, 0.0f, 0, false, false, 1811};
        QTest::newRow("below the cap") << PedalCase{0.1f, 0.0f, 0, true, false, 1055};
        QTest::newRow("braking is untouched") << PedalCase{0.0f, 1.0f, 0, true, false, 172};
        QTest::newRow("reversing is untouched") << PedalCase{1.0f, 0.0f, -1, true, true, 172};
    }
    void pitLimiter()
    {
        QFETCH(PedalCase, c);
        DriveSettings s = plainSettings();
        s.pitLimiterEnabled = c.flag;
        s.reverseEnabled = true;
        DriveComputation drive(s);
        DriveInputs in = pedals(c.throttle, c.brake, c.gear);
        in.pitLimiterHeld = c.held;
        tick(drive, in);
        QCOMPARE(channels[1], c.ch2);
    }

    void decelerationStep_data()
    {
        QTest::addColumn<int>("rate");
        QTest::addColumn<float>("step");
        // 819 x 99 / ((R x 14 + 85) x 143)
        QTest::newRow("R 0") << 0 << 6.670588f;
        QTest::newRow("R 20") << 20 << 1.553425f;
    }
    void decelerationStep()
    {
        QFETCH(int, rate);
        QFETCH(float, step);
        DriveSettings s = plainSettings();
        s.decelRate = rate;
        QVERIFY(qAbs(DriveComputation(s).decelerationStep() - step) < 1e-4f);
    }

    void smoothDeceleration_data()
    {
        QTest::addColumn<Steps>("steps");
        // Rate 0 falls 6.6706 a tick; gear 7 is not limited.
        QTest::newRow("falls a step a tick, then snaps to neutral from 992 x 1.075")
            << Steps{{1.0f, 0, 1811, false, 7},      {0.0f, 0, 1804, false, 7}, {0.0f, 0, 1797, false, 7},
                     {0.0f, 0, 1063, false, 7, 110}, {0.0f, 0, 992, false, 7},  {0.0f, 0, 992, false, 7}};
        QTest::newRow("falls only to a lower target, takes a higher one at once")
            << Steps{{1.0f, 0, 1811, false, 7}, {0.9f, 0, 1804, false, 7}, {0.9f, 0, 1730, false, 7, 11},
                     {0.9f, 0, 1727, false, 7}, {0.9f, 0, 1727, false, 7}, {1.0f, 0, 1811, false, 7}};
        QTest::newRow("braking is never smoothed")
            << Steps{{1.0f, 0, 1811, false, 7}, {0.0f, 1.0f, 172, false, 7}, {1.0f, 0.05f, 1391, false, 7}};
        QTest::newRow("neutral gear with the pedal down falls like a release")
            << Steps{{1.0f, 0, 1811, false, 7}, {1.0f, 0, 1804, false, 0}};
        // The smoothed output would fall slowly; the lower gear's cap holds at once.
        QTest::newRow("a downshift caps at once")
            << Steps{{1.0f, 0, 1811, false, 7}, {1.0f, 0, 1319, false, 3}};
    }
    void smoothDeceleration()
    {
        QFETCH(Steps, steps);
        DriveSettings s = plainSettings();
        s.smoothDeceleration = true;
        s.decelRate = 0;
        s.gearThrottleLimitEnabled = true;
        s.gearThrottleLimitPercent = {10, 20, 40, 60, 80, 90, 100};
        DriveComputation drive(s);
        runSteps(drive, steps);
    }

    void debugLineOnlyEveryFiftiethTick()
    {
        DriveSettings s = plainSettings();
        s.smoothDeceleration = true;
        DriveComputation drive(s);
        testing::LogCapture log;
        for (int i = 0; i < 149; ++i)
            tick(drive, pedals(1.0f));
        QCOMPARE(log.count(), 2);
    }
};

QTEST_GUILESS_MAIN(DriveComputationTest)
#include "tst_drivecomputation.moc"
