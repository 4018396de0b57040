#include "receiverendpointcalibration.h"

#include <QSignalSpy>
#include <QTest>

using namespace tavrix;
using namespace Qt::StringLiterals;

using Calibration = ReceiverEndpointCalibration;
using State = Calibration::State;
using Refusal = Calibration::Refusal;
using Results = QList<int>;

namespace {

Calibration::Timings quick()
{
    return {std::chrono::milliseconds(5)};
}

QString line(int channel, int crsf)
{
    return u"CH%1:%2us CRSF:%3"_s.arg(channel).arg(1500 + (crsf - 992) * 5 / 8).arg(crsf);
}

// A calibration on a connected receiver, driven by a small script so a table row reads as
// what the user did: "begin" starts the calibration; "start", "retry" and "skip" are step
// actions; "start=T/S" and "retry=T/S" measure while the receiver shows throttle T and
// steering S until the value is recorded; "cancel" and "unplug" end it.
struct Bench
{
    Calibration calibration{quick()};
    QSignalSpy progress{&calibration, &Calibration::progress};

    Bench() { calibration.setReceiverConnected(true); }

    void feed(int throttle, int steering)
    {
        calibration.onReceiverLine(line(2, throttle));
        calibration.onReceiverLine(line(1, steering));
    }

    [[nodiscard]] Calibration::Progress pushed(qsizetype index) const
    {
        return progress.at(index).at(0).value<Calibration::Progress>();
    }

    [[nodiscard]] State lastState() const { return pushed(progress.size() - 1).state; }

    // The newest push in that state from index on, if there is one.
    [[nodiscard]] std::optional<Calibration::Progress> lastIn(State state, qsizetype from = 0) const
    {
        for (qsizetype index = progress.size() - 1; index >= from; --index) {
            if (pushed(index).state == state)
                return pushed(index);
        }
        return std::nullopt;
    }

    bool hold(int throttle, int steering)
    {
        const qsizetype before = progress.size();
        return QTest::qWaitFor(
            [&] {
                feed(throttle, steering);
                return lastIn(State::StepSuccess, before).has_value();
            },
            10000);
    }

    // Refusals other than the last one are failures of the script itself.
    bool run(const QString &script)
    {
        for (const QString &token : script.split(u' ', Qt::SkipEmptyParts)) {
            const QStringList parts = token.split(u'=');
            const QString verb = parts.first();
            if (verb == u"begin"_s && calibration.start() != Refusal::None)
                return false;
            if (verb == u"cancel"_s)
                calibration.cancel();
            if (verb == u"unplug"_s)
                calibration.setReceiverConnected(false);
            const auto action = Calibration::actionNamed(verb);
            if (action && calibration.step(*action) != Refusal::None)
                return false;
            if (parts.size() == 2) {
                const QStringList values = parts.last().split(u'/');
                if (!hold(values.first().toInt(), values.last().toInt()))
                    return false;
            }
        }
        return true;
    }
};

Results resultsOf(const Calibration &calibration)
{
    return {calibration.results().begin(), calibration.results().end()};
}

} // namespace

Q_DECLARE_METATYPE(State)
Q_DECLARE_METATYPE(Refusal)

class TestReceiverEndpointCalibration : public QObject
{
    Q_OBJECT

private slots:
    void stability_data();
    void stability();
    void movementRestartsTheCountdownUntilTheValueIsRecorded();
    void stepOrder_data();
    void stepOrder();
    void refusals_data();
    void refusals();
};

// A throttle step reads CH2; the first judgement after the lines arrived.
void TestReceiverEndpointCalibration::stability_data()
{
    QTest::addColumn<QStringList>("lines");
    QTest::addColumn<State>("state");
    QTest::addColumn<int>("countdown");

    const auto repeated = [](int channel, int crsf, int count) {
        QStringList lines;
        for (int i = 0; i < count; ++i)
            lines << line(channel, crsf);
        return lines;
    };
    QTest::newRow("nine readings: too few to judge") << repeated(2, 992, 9) << State::Measuring << 5;
    QTest::newRow("ten readings, spread 100: held")
        << repeated(2, 900, 9) + QStringList{line(2, 1000)} << State::Stable << 4;
    QTest::newRow("ten readings, spread 101: moving")
        << repeated(2, 900, 9) + QStringList{line(2, 1001)} << State::Unstable << 5;
    QTest::newRow("movement before the last twenty is forgotten")
        << QStringList{line(2, 172), line(2, 1811)} + repeated(2, 992, 20) << State::Stable << 4;
    QTest::newRow("a jump among the last twenty")
        << repeated(2, 992, 5) + QStringList{line(2, 1400)} + repeated(2, 992, 19) << State::Unstable << 5;
    QTest::newRow("steering moving during a throttle step")
        << repeated(1, 172, 10) + repeated(2, 992, 10) + repeated(1, 1811, 10) << State::Stable << 4;
    QTest::newRow("steering lines are no throttle readings")
        << repeated(1, 992, 10) + repeated(2, 992, 9) << State::Measuring << 5;
    QTest::newRow("lines without both numbers are no readings")
        << repeated(2, 992, 8) + QStringList{u"CH2:1500 CRSF:992"_s, u"CH2:1500us CRSF:"_s,
                                             u"CH2:99999999999us CRSF:992"_s, u"CH2:1500us CRSF:992 "_s}
        << State::Measuring << 5;
    QTest::newRow("a reading inside other text counts")
        << repeated(2, 992, 9) + QStringList{u"[rx] CH2:1500us  CRSF:992 ok"_s} << State::Stable << 4;
}

void TestReceiverEndpointCalibration::stability()
{
    QFETCH(QStringList, lines);
    QFETCH(State, state);
    QFETCH(int, countdown);

    Bench bench;
    QVERIFY(bench.run(u"begin start"_s));
    const qsizetype before = bench.progress.size();
    for (const QString &text : lines)
        bench.calibration.onReceiverLine(text);
    QVERIFY(bench.progress.wait(10000));
    const Calibration::Progress judged = bench.pushed(before);
    QCOMPARE(judged.state, state);
    QCOMPARE(judged.countdown, countdown);
}

void TestReceiverEndpointCalibration::movementRestartsTheCountdownUntilTheValueIsRecorded()
{
    Bench bench;
    QVERIFY(bench.run(u"begin start"_s));
    // The throttle slips once, the moment the countdown reaches 3.
    bool slipped = false;
    QObject::connect(&bench.calibration, &Calibration::progress, &bench.calibration,
                     [&bench, &slipped](const Calibration::Progress &progress) {
                         if (!slipped && progress.state == State::Stable && progress.countdown == 3) {
                             slipped = true;
                             bench.feed(1500, 992);
                         }
                     });
    for (int i = 0; i < 10; ++i)
        bench.feed(1800, 992);
    QTRY_VERIFY_WITH_TIMEOUT(bench.lastIn(State::Unstable).has_value(), 10000);
    QVERIFY(!bench.lastIn(State::StepSuccess));
    QCOMPARE(bench.lastIn(State::Unstable)->countdown, Calibration::kHoldSeconds);

    // Held again at a slightly different point: recorded once the jump left the window,
    // with the value the receiver showed last.
    for (int i = 0; i < 19; ++i)
        bench.feed(1811, 992);
    QVERIFY(bench.hold(1811, 992));
    const Calibration::Progress recorded = *bench.lastIn(State::StepSuccess);
    QCOMPARE(recorded.step, Calibration::Step::ThrottleMax);
    QCOMPARE(recorded.recordedValue, 1811);
    QCOMPARE(recorded.countdown, 0);
    QCOMPARE(resultsOf(bench.calibration), (Results{1811, 0, 0, 0, 0, 0}));
    QCOMPARE(bench.calibration.step(), Calibration::Step::ThrottleNeutral);
    QVERIFY(!bench.calibration.isMeasuring());
}

void TestReceiverEndpointCalibration::stepOrder_data()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<QString>("step");
    QTest::addColumn<Results>("results");

    QTest::newRow("all six, each from its own channel")
        << u"begin start=1811/992 start=992/992 start=172/992 start=992/172 start=992/990 start=992/1811"_s
        << u"complete"_s << Results{1811, 992, 172, 172, 990, 1811};
    QTest::newRow("retry measures the value just recorded again")
        << u"begin start=1700/992 retry=1811/992 start=990/992"_s << u"throttle_reverse"_s
        << Results{1811, 990, 0, 0, 0, 0};
    QTest::newRow("retry with nothing recorded measures the current step")
        << u"begin skip retry=990/992"_s << u"throttle_reverse"_s << Results{0, 990, 0, 0, 0, 0};
    QTest::newRow("after a skip retry measures the current step")
        << u"begin start=1811/992 skip retry=172/992"_s << u"steering_left"_s
        << Results{1811, 0, 172, 0, 0, 0};
    QTest::newRow("skipping every step completes")
        << u"begin skip skip skip skip skip skip"_s << u"complete"_s << Results{0, 0, 0, 0, 0, 0};
    QTest::newRow("a new calibration forgets the last")
        << u"begin start=1811/992 begin"_s << u"throttle_max"_s << Results{0, 0, 0, 0, 0, 0};
    QTest::newRow("cancel keeps what was recorded")
        << u"begin start=1811/992 start cancel"_s << u"idle"_s << Results{1811, 0, 0, 0, 0, 0};
    QTest::newRow("the receiver unplugged mid-measurement cancels")
        << u"begin start=1811/992 start unplug"_s << u"idle"_s << Results{1811, 0, 0, 0, 0, 0};
}

void TestReceiverEndpointCalibration::stepOrder()
{
    QFETCH(QString, script);
    QFETCH(QString, step);
    QFETCH(Results, results);

    Bench bench;
    QVERIFY(bench.run(script));
    QCOMPARE(Calibration::stepName(bench.calibration.step()), step);
    QCOMPARE(resultsOf(bench.calibration), results);
    QVERIFY(!bench.calibration.isMeasuring());
    if (step == u"idle"_s)
        QCOMPARE(bench.lastState(), State::Cancelled);
}

void TestReceiverEndpointCalibration::refusals_data()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<QString>("action"); // "begin" or a step action
    QTest::addColumn<Refusal>("refusal");

    QTest::newRow("no receiver") << u"unplug"_s << u"begin"_s << Refusal::NoReceiver;
    QTest::newRow("step before a calibration") << QString() << u"start"_s << Refusal::NotCalibrating;
    QTest::newRow("start while measuring") << u"begin start"_s << u"start"_s << Refusal::AlreadyMeasuring;
    QTest::newRow("retry while measuring") << u"begin start"_s << u"retry"_s << Refusal::AlreadyMeasuring;
    QTest::newRow("skip while measuring") << u"begin start"_s << u"skip"_s << Refusal::AlreadyMeasuring;
    QTest::newRow("retry once complete")
        << u"begin skip skip skip skip skip skip"_s << u"retry"_s << Refusal::NotCalibrating;
    QTest::newRow("step after cancel") << u"begin start cancel"_s << u"start"_s << Refusal::NotCalibrating;
    QTest::newRow("step after the receiver left")
        << u"begin unplug"_s << u"skip"_s << Refusal::NotCalibrating;
}

void TestReceiverEndpointCalibration::refusals()
{
    QFETCH(QString, script);
    QFETCH(QString, action);
    QFETCH(Refusal, refusal);

    Bench bench;
    QVERIFY(bench.run(script));
    const Calibration::Step step = bench.calibration.step();
    const bool measuring = bench.calibration.isMeasuring();
    const qsizetype pushes = bench.progress.size();

    const Refusal got = action == u"begin"_s ? bench.calibration.start()
                                             : bench.calibration.step(*Calibration::actionNamed(action));
    QCOMPARE(got, refusal);
    QCOMPARE(bench.calibration.step(), step);
    QCOMPARE(bench.calibration.isMeasuring(), measuring);
    QCOMPARE(bench.progress.size(), pushes);
}

QTEST_GUILESS_MAIN(TestReceiverEndpointCalibration)
#include "tst_receiverendpointcalibration.moc"
