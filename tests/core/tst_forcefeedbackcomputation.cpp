#include "forcefeedbackcomputation.h"

#include <QTest>

#include <cmath>

using namespace tavrix;

namespace {

// The computation on its 20 ms tick, with the clock advanced by hand.
struct ForceRun
{
    ForceFeedbackComputation computation;
    qint64 nowMs = 0;
    int tickNumber = 0;

    // One tick; the motion (when given) arrived just before it.
    ForceFeedbackTick tick(const std::optional<CarMotion> &motion, float strength = 1.0f,
                           float steering = 0.0f)
    {
        if (motion)
            computation.addMotion(*motion, nowMs);
        nowMs += ForceFeedbackComputation::kTickMs;
        ++tickNumber;
        return computation.tick(nowMs, steering, WheelDrive{strength});
    }
};

bool near(float a, float b, float tolerance = 1e-4f)
{
    return std::fabs(a - b) <= tolerance;
}

} // namespace

Q_DECLARE_METATYPE(CarMotion)

class TestForceFeedbackComputation : public QObject
{
    Q_OBJECT

private slots:
    void smallForcesAreLiftedAndScaled_data();
    void smallForcesAreLiftedAndScaled();
    void steadyForceIsResentOnlyEvery25thTick_data();
    void steadyForceIsResentOnlyEvery25thTick();
    void staleMotionFadesThenGoesIdle();
    void bumpsKickOnEvenTicksOnly();
};

void TestForceFeedbackComputation::smallForcesAreLiftedAndScaled_data()
{
    QTest::addColumn<float>("force");
    QTest::addColumn<float>("strength");
    QTest::addColumn<float>("sent");

    QTest::newRow("0.01 at full strength") << 0.01f << 1.0f << 0.0492f;
    QTest::newRow("lift keeps the sign") << -0.01f << 1.0f << -0.0492f;
    QTest::newRow("full lift from 0.02 on") << 0.5f << 0.5f << 0.08f + 0.25f * 0.92f;
    QTest::newRow("full force") << -1.0f << 1.0f << -1.0f;
    QTest::newRow("strength 0") << 0.8f << 0.0f << 0.0f;
    QTest::newRow("strength above 1 is full") << 0.5f << 3.0f << 0.08f + 0.5f * 0.92f;
}

void TestForceFeedbackComputation::smallForcesAreLiftedAndScaled()
{
    QFETCH(float, force);
    QFETCH(float, strength);
    QFETCH(float, sent);
    QVERIFY2(near(ForceFeedbackComputation::shapedWheelForce(force, strength), sent),
             qPrintable(QString::number(ForceFeedbackComputation::shapedWheelForce(force, strength))));
}

void TestForceFeedbackComputation::steadyForceIsResentOnlyEvery25thTick_data()
{
    QTest::addColumn<CarMotion>("motion");
    QTest::addColumn<float>("strength");
    QTest::addColumn<float>("settled"); // what the wheel holds once the filters settled

    // Lateral G pulls the wheel the other way: -3 G saturates at +1.
    QTest::newRow("full force") << CarMotion{0.0f, -3.0f, 0.0f} << 1.0f << 1.0f;
    QTest::newRow("half strength") << CarMotion{0.0f, -1.0f, 0.0f} << 0.5f << 0.08f + 0.3f * 0.92f;
    QTest::newRow("strength 0 whatever the car does") << CarMotion{1.5f, 3.0f, 2.0f} << 0.0f << 0.0f;
}

void TestForceFeedbackComputation::steadyForceIsResentOnlyEvery25thTick()
{
    QFETCH(CarMotion, motion);
    QFETCH(float, strength);
    QFETCH(float, settled);

    ForceRun run;
    for (int i = 0; i < 160; ++i) {
        const ForceFeedbackTick tick = run.tick(motion, strength, 0.5f);
        if (tick.wheelForce)
            QVERIFY2(std::fabs(*tick.wheelForce) <= std::fabs(settled) + 1e-4f,
                     "never beyond the settled force");
        if (run.tickNumber < 60)
            continue;
        // Settled: the same force again every 25th tick, nothing in between, and no level
        // report for a level that did not move.
        QCOMPARE(tick.wheelForce.has_value(), run.tickNumber % 25 == 0);
        if (tick.wheelForce)
            QVERIFY(near(*tick.wheelForce, settled, 0.004f));
        QVERIFY(!tick.levelReport);
    }
}

void TestForceFeedbackComputation::staleMotionFadesThenGoesIdle()
{
    ForceRun run;
    const CarMotion cornering{0.0f, -1.0f, 0.0f}; // F = 0.6
    for (int i = 0; i < 50; ++i)
        run.tick(cornering);

    // The last record still counts for 300 ms, then the force decays (over about a
    // second and a half) instead of dropping.
    for (int i = 0; i < 14; ++i)
        QVERIFY(near(run.tick(std::nullopt).force, 0.6f, 0.001f));
    float previous = 1.0f;
    ForceFeedbackTick tick;
    int decayTicks = 0;
    for (; decayTicks < 150 && !tick.wentIdle; ++decayTicks) {
        tick = run.tick(std::nullopt);
        QVERIFY2(tick.wentIdle || (tick.force > 0.0f && tick.force < previous), "a steady decay");
        previous = tick.force;
    }
    QVERIFY2(tick.wentIdle, "no motion and no force left: the ticking stops");
    QVERIFY(decayTicks > 50);
    QCOMPARE(tick.levelReport, std::optional<float>(0.0f));
    QCOMPARE(tick.wheelForce, std::optional<float>(0.0f));

    // Motion coming back starts from rest, not from the faded state.
    QVERIFY(near(run.tick(cornering).force, 0.6f * (1.0f - std::exp(-0.02f / 0.06f))));
}

void TestForceFeedbackComputation::bumpsKickOnEvenTicksOnly()
{
    ForceRun run;
    for (int i = 0; i < 20; ++i)
        run.tick(CarMotion{});
    float strongestKick = 0.0f;
    for (int i = 0; i < 30; ++i) {
        const ForceFeedbackTick tick = run.tick(CarMotion{0.0f, 0.0f, 1.0f}); // the car lands
        if (run.tickNumber % 2 != 0) {
            QCOMPARE(tick.force, 0.0f);
            continue;
        }
        QVERIFY(tick.force <= 0.0f);
        strongestKick = std::min(strongestKick, tick.force);
    }
    QCOMPARE(strongestKick, -0.35f);
}

QTEST_GUILESS_MAIN(TestForceFeedbackComputation)
#include "tst_forcefeedbackcomputation.moc"
