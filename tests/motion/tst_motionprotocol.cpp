// The motion controller board's wire: the command frames with their clamps, the lines the
// board sends, and the test programmes computed on this PC (pattern set-points, the Full
// System test's order and its time limit).

#include "fullsystemtestplan.h"
#include "motionframes.h"
#include "motionlineparser.h"
#include "motionpatterns.h"
#include "motionsystemcontroller.h"
#include "serialportdirectory.h"

#include <QTest>

using namespace tavrix;
using Kind = MotionLine::Kind;
using StepKind = FullSystemStep::Kind;
using Positions = QMap<int, int>;

Q_DECLARE_METATYPE(Kind)

namespace {

QByteArray orNothing(const std::optional<QByteArray> &frame)
{
    return frame.value_or(QByteArray());
}

QList<int> asList(const MotionSystemSettings &s)
{
    return {s.intensity, s.travelMm, s.speedPct, s.accelPct, s.parkMm};
}

} // namespace

class TestMotionProtocol : public QObject
{
    Q_OBJECT

private slots:
    // Expected bytes as hex between "P" (50) and "!!" (2121); empty: no frame at all.
    void framesCarryClampedValues_data()
    {
        QTest::addColumn<QByteArray>("frame");
        QTest::addColumn<QByteArray>("payloadHex");
        namespace f = motionframes;
        const auto row = [](const char *name) -> QTestData & { return QTest::newRow(name); };

        row("settings") << f::settings({50, 100, 60, 70, 80}) << QByteArray("4300320064003c00460050");
        row("settings below their ranges")
            << f::settings({0, 19, -5, 9, 4}) << QByteArray("43000a0014000a000a0005");
        row("settings above their ranges")
            << f::settings({101, 141, 1000, 70000, 146}) << QByteArray("430064008c006400640091");
        row("query") << f::querySettings() << QByteArray("51");
        row("home") << f::home() << QByteArray("48");
        row("calibration toggle") << f::toggleCalibration() << QByteArray("5a");
        row("release") << f::release() << QByteArray("52");
        row("position") << orNothing(f::actuatorPosition(5, 120)) << QByteArray("4d050078");
        row("position past the stroke") << orNothing(f::actuatorPosition(0, 151)) << QByteArray("4d000096");
        row("position below zero") << orNothing(f::actuatorPosition(2, -1)) << QByteArray("4d020000");
        row("seventh actuator") << orNothing(f::actuatorPosition(6, 50)) << QByteArray();
        row("negative actuator") << orNothing(f::actuatorPosition(-1, 50)) << QByteArray();
        row("board test") << orNothing(f::boardTest(1, 80, 50, 8)) << QByteArray("540150003208");
        row("board test of all, lowest values")
            << orNothing(f::boardTest(-3, 4, 9, 0)) << QByteArray("54ff05000a01");
        row("board test, highest values")
            << orNothing(f::boardTest(5, 101, 301, 31)) << QByteArray("540564012c1e");
        row("board test of a seventh actuator") << orNothing(f::boardTest(6, 50, 100, 5)) << QByteArray();
        row("set-points") << f::setPoints({32767, 0, 65535, -1, 65536, 258})
                          << QByteArray("367fff0000ffff0000ffff0102");
    }

    void framesCarryClampedValues()
    {
        QFETCH(QByteArray, frame);
        QFETCH(QByteArray, payloadHex);
        if (payloadHex.isEmpty()) {
            QVERIFY(frame.isEmpty());
            return;
        }
        QCOMPARE(frame.toHex(), QByteArray("50") + payloadHex + QByteArray("2121"));
    }

    void linesAreCutAndRead_data()
    {
        QTest::addColumn<QList<QByteArray>>("chunks");
        QTest::addColumn<int>("lineCount");
        QTest::addColumn<Kind>("kind");         // of the last line
        QTest::addColumn<QString>("stateWord"); // null: none
        QTest::addColumn<Positions>("positions");
        QTest::addColumn<bool>("testDone");
        QTest::addColumn<QList<int>>("settings"); // empty: none
        using B = QList<QByteArray>;
        using P = Positions;
        const QString none;
        const QString ready = QStringLiteral("ready");

        QTest::newRow("heartbeat") << B{"[ready] ax1=12mm ax2=-3mm\r\n"} << 1 << Kind::Heartbeat << ready
                                   << P{{1, 12}, {2, -3}} << false << QList<int>{};
        QTest::newRow("later token wins") << B{"[FAIL] ax1=1mm ax1=2mm\n"} << 1 << Kind::Heartbeat
                                          << QStringLiteral("FAIL") << P{{1, 2}} << false << QList<int>{};
        QTest::newRow("no closing bracket")
            << B{"[ready ax1=5mm\n"} << 1 << Kind::Heartbeat << none << P{{1, 5}} << false << QList<int>{};
        QTest::newRow("empty brackets")
            << B{"[] ax2=7mm\n"} << 1 << Kind::Heartbeat << none << P{{2, 7}} << false << QList<int>{};
        QTest::newRow("split over reads, blank lines skipped")
            << B{"  \r\n[rea", "dy] ax3=", "9mm\r", "\n\n \t\n"} << 1 << Kind::Heartbeat << ready << P{{3, 9}}
            << false << QList<int>{};
        QTest::newRow("test done") << B{"#TST done#\n"} << 1 << Kind::TestReport << none << P{} << true
                                   << QList<int>{};
        QTest::newRow("test started")
            << B{"#TST start a=1\n"} << 1 << Kind::TestReport << none << P{} << false << QList<int>{};
        QTest::newRow("settings echo") << B{"#CFG i=50 t=100  s=60 a=70 p=80\n"} << 1 << Kind::ConfigEcho
                                       << none << P{} << false << QList<int>{50, 100, 60, 70, 80};
        QTest::newRow("settings echo out of range")
            << B{"#CFG i=5 t=200 s=100 a=100 p=0\n"} << 1 << Kind::ConfigEcho << none << P{} << false
            << QList<int>{10, 140, 100, 100, 5};
        QTest::newRow("settings echo missing a field")
            << B{"#CFG i=50 t=100 s=60 a=70\n"} << 1 << Kind::ConfigEcho << none << P{} << false
            << QList<int>{};
        QTest::newRow("garbage") << B{"\xff\xfe junk ax1=3mm\n"} << 1 << Kind::Other << none << P{} << false
                                 << QList<int>{};
        QTest::newRow("5000 bytes without a line feed are dropped")
            << B{QByteArray(2500, 'x'), QByteArray(2500, 'x'), "[ready]\n"} << 1 << Kind::Heartbeat << ready
            << P{} << false << QList<int>{};
        QTest::newRow("4000 bytes without a line feed are kept")
            << B{QByteArray(4000, 'x'), "#TST done\n"} << 1 << Kind::TestReport << none << P{} << true
            << QList<int>{};
    }

    void linesAreCutAndRead()
    {
        QFETCH(QList<QByteArray>, chunks);
        QFETCH(int, lineCount);
        QFETCH(Kind, kind);
        QFETCH(QString, stateWord);
        QFETCH(Positions, positions);
        QFETCH(bool, testDone);
        QFETCH(QList<int>, settings);

        MotionLineSplitter splitter;
        QStringList lines;
        for (const QByteArray &chunk : chunks)
            lines += splitter.feed(chunk);
        QCOMPARE(lines.size(), lineCount);
        const MotionLine line = parseMotionLine(lines.last());
        QCOMPARE(line.kind, kind);
        QCOMPARE(line.stateWord.has_value(), !stateWord.isNull());
        QCOMPARE(line.stateWord.value_or(QString()), stateWord);
        QCOMPARE(line.positionsMm, positions);
        QCOMPARE(line.testDone, testDone);
        QCOMPARE(line.settings ? asList(*line.settings) : QList<int>{}, settings);
    }

    // The pattern at a quarter period of 1 Hz, where the sine peaks.
    void patternSetPointsFollowThePlatform_data()
    {
        QTest::addColumn<int>("platform");
        QTest::addColumn<int>("pattern");
        QTest::addColumn<int>("travelPct");
        QTest::addColumn<QList<int>>("setPoints");
        const int c = motionframes::kSetPointCentre;
        const int up = 42597;   // 32767 + 30 % of 32767, truncated
        const int down = 22936; // 32767 - 30 % of 32767, truncated

        QTest::newRow("5DOF pitch") << kFiveDof << 2 << 30 << QList<int>{down, down, up, up, c, c};
        QTest::newRow("5DOF roll") << kFiveDof << 3 << 30 << QList<int>{up, down, up, down, c, c};
        QTest::newRow("5DOF surge") << kFiveDof << 0 << 30 << QList<int>{c, c, c, c, c, up};
        QTest::newRow("3DOF shares the 5DOF table") << kThreeDof << 1 << 30 << QList<int>{c, c, c, c, up, c};
        QTest::newRow("2DOF surge") << kTwoDof << 0 << 30 << QList<int>{up, up, c, c, c, c};
        QTest::newRow("2DOF opposed") << kTwoDof << 1 << 30 << QList<int>{up, down, c, c, c, c};
        QTest::newRow("2DOF holds centre otherwise") << kTwoDof << 2 << 30 << QList<int>{c, c, c, c, c, c};
        QTest::newRow("unknown pattern holds centre") << kFiveDof << 9 << 30 << QList<int>{c, c, c, c, c, c};
        QTest::newRow("travel 0 runs at 1 %")
            << kFiveDof << 4 << 0 << QList<int>{33094, 33094, 33094, 33094, c, c};
        QTest::newRow("full travel") << kFiveDof << 2 << 250 << QList<int>{0, 0, 65534, 65534, c, c};
    }

    void patternSetPointsFollowThePlatform()
    {
        QFETCH(int, platform);
        QFETCH(int, pattern);
        QFETCH(int, travelPct);
        QFETCH(QList<int>, setPoints);
        const PatternTest test = PatternTest::fromRequest(pattern, travelPct, 100, 5);
        const motionframes::SetPoints points = test.setPointsAt(platform, 250);
        QCOMPARE(QList<int>(points.begin(), points.end()), setPoints);
    }

    void patternRequestIsClamped_data()
    {
        QTest::addColumn<int>("freqCentiHz");
        QTest::addColumn<int>("seconds");
        QTest::addColumn<double>("frequencyHz");
        QTest::addColumn<int>("durationMs");
        QTest::newRow("as asked") << 150 << 10 << 1.5 << 10000;
        QTest::newRow("frequency 5 runs at 0.10 Hz, 0 s at 1 s") << 5 << 0 << 0.1 << 1000;
        QTest::newRow("frequency 400 runs at 3 Hz, 45 s at 30 s") << 400 << 45 << 3.0 << 30000;
    }

    void patternRequestIsClamped()
    {
        QFETCH(int, freqCentiHz);
        QFETCH(int, seconds);
        QFETCH(double, frequencyHz);
        QFETCH(int, durationMs);
        const PatternTest test = PatternTest::fromRequest(1, 30, freqCentiHz, seconds);
        QCOMPARE(test.frequencyHz, frequencyHz);
        QCOMPARE(test.durationMs, durationMs);
    }

    // Steps are taken back to back, each lasting its seconds; the plan must stop at the
    // chosen time, the last step cut to what is left.
    void fullSystemTestKeepsToItsTime_data()
    {
        QTest::addColumn<int>("platform");
        QTest::addColumn<int>("minutes");
        QTest::addColumn<QList<int>>("seconds");
        QTest::addColumn<QString>("kinds"); // B board, else the pattern this PC runs
        QTest::newRow("5DOF, 1 minute")
            << kFiveDof << 1 << QList<int>{8, 8, 8, 8, 8, 8, 5, 5, 2} << QStringLiteral("BBBBBBBBB");
        QTest::newRow("2DOF, 1 minute, the cycle repeats")
            << kTwoDof << 1 << QList<int>{8, 8, 5, 5, 8, 5, 8, 5, 8} << QStringLiteral("BBBBBB11B");
        QTest::newRow("5DOF, 2 minutes")
            << kFiveDof << 2 << QList<int>{8, 8, 8, 8, 8, 8, 5, 5, 5, 5, 5, 5, 8, 5, 8, 8, 8, 5}
            << QStringLiteral("BBBBBBBBBBBBBB23BB");
        QTest::newRow("0 minutes run 1")
            << kTwoDof << 0 << QList<int>{8, 8, 5, 5, 8, 5, 8, 5, 8} << QStringLiteral("BBBBBB11B");
    }

    void fullSystemTestKeepsToItsTime()
    {
        QFETCH(int, platform);
        QFETCH(int, minutes);
        QFETCH(QList<int>, seconds);
        QFETCH(QString, kinds);
        FullSystemTestPlan plan;
        plan.start(platform, minutes);
        QList<int> ran;
        QString ranKinds;
        qint64 elapsedMs = 0;
        while (const auto next = plan.next(elapsedMs)) {
            ran.append(next->step.seconds);
            ranKinds.append(next->step.kind == StepKind::BoardTest ? QLatin1Char('B')
                                                                   : QChar(u'0' + next->step.pattern));
            elapsedMs += next->step.seconds * 1000;
            QVERIFY(ran.size() < 100);
        }
        QCOMPARE(ran, seconds);
        QCOMPARE(ranKinds, kinds);
    }

    // The board shows up as an ST-LINK virtual COM port; the list names it for what it is.
    void portListNamesTheBoard_data()
    {
        QTest::addColumn<QString>("description");
        QTest::addColumn<int>("vendorId");
        QTest::addColumn<bool>("board");
        QTest::newRow("STMicroelectronics vendor") << QStringLiteral("USB Serial") << 0x0483 << true;
        QTest::newRow("ST-LINK by name, any case") << QStringLiteral("stlink virtual COM") << 0 << true;
        QTest::newRow("STM32 by name") << QStringLiteral("STM32 Virtual ComPort") << 0 << true;
        QTest::newRow("another adapter") << QStringLiteral("CP2102 USB to UART") << 0x10c4 << false;
        QTest::newRow("no description") << QString() << 0 << false;
    }

    void portListNamesTheBoard()
    {
        QFETCH(QString, description);
        QFETCH(int, vendorId);
        QFETCH(bool, board);
        const QString port = QStringLiteral("ttyACM0");
        const QString label = MotionSystemController::portLabel(
            SerialPortDescription{port, description, {}, quint16(vendorId), 0});
        const QString shown = board ? MotionSystemController::tr("Orvane Motion Controller") : description;
        QCOMPARE(label, shown.isEmpty() ? port : port + QLatin1Char(' ') + shown);
    }

    void lastStepIsNeverShorterThanOneSecond()
    {
        FullSystemTestPlan plan;
        plan.start(kFiveDof, 45);
        QCOMPARE(plan.totalMs(), qint64(30) * 60000);
        const auto last = plan.next(plan.totalMs() - 500);
        QVERIFY(last);
        QCOMPARE(last->step.seconds, 1);
        QVERIFY(!plan.next(plan.totalMs()));
    }
};

QTEST_GUILESS_MAIN(TestMotionProtocol)
#include "tst_motionprotocol.moc"
