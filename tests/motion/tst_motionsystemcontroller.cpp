// The motion controller against the board simulator on a pseudo-terminal: each was written
// from the board's protocol on its own, so they have to agree on every frame and line.

#include "motionsimulator.h"
#include "motionsystemcontroller.h"

#include <QSettings>
#include <QSignalSpy>
#include <QTest>

using namespace tavrix;
using Board = sim::MotionSimulator;

namespace {

constexpr int kWaitMs = 20000;

sim::MotionSimulatorSettings quickBoard(int actuators = 6)
{
    sim::MotionSimulatorSettings settings;
    settings.actuators = actuators;
    settings.heartbeatIntervalMs = 50;
    settings.motionStepMs = 5;
    settings.homingMs = 50;
    settings.testSecondMs = 2;
    return settings;
}

MotionSystemController::Timings quickTimings()
{
    MotionSystemController::Timings timings;
    timings.testTick = std::chrono::milliseconds(1);
    timings.stepGap = std::chrono::milliseconds(5);
    timings.testSecond = std::chrono::milliseconds(20);
    return timings;
}

QList<int> codes(const QList<Board::Command> &commands)
{
    QList<int> result;
    for (const Board::Command &command : commands)
        result.append(command.code);
    return result;
}

// The board and the controller on one line.
struct MotionRig
{
    Board board;
    MotionSystemController controller;

    explicit MotionRig(const sim::MotionSimulatorSettings &boardSettings = quickBoard(),
                       const MotionSystemController::Timings &timings = quickTimings())
        : board(boardSettings)
        , controller(nullptr, timings)
    {}

    bool connect() { return board.start() && controller.connectPort(board.clientPath()); }

    bool connectReady()
    {
        return connect() &&
               QTest::qWaitFor([this] { return controller.controllerState() == QLatin1String("ready"); },
                               kWaitMs);
    }

    bool waitForCommand(char code, qsizetype from = 0)
    {
        return QTest::qWaitFor([&] { return codes(board.commands().mid(from)).contains(code); }, kWaitMs);
    }

    // True when the board got nothing since `from` but the settings sent now as a marker.
    bool nothingSentSince(qsizetype from)
    {
        controller.applySettings(controller.settings());
        if (!waitForCommand('C', from))
            return false;
        return board.commands().at(from).code == 'C';
    }

    // A few heartbeats pass, time enough for any stray frame to arrive.
    bool letHeartbeatsPass()
    {
        QSignalSpy beats(&controller, &MotionSystemController::heartbeat);
        return QTest::qWaitFor([&] { return beats.size() >= 4; }, kWaitMs);
    }
};

enum class Setup
{
    NotConnected,
    NoHeartbeat,
    Failed,
    Running,
    RunningThenFailed
};

enum class Start
{
    Pattern,
    Board,
    FullSystem
};

bool start(MotionSystemController &controller, Start kind)
{
    switch (kind) {
    case Start::Pattern:
        return controller.startPatternTest(2, 30, 100, 5);
    case Start::Board:
        return controller.startBoardTest(0, 50, 100, 5);
    case Start::FullSystem:
        return controller.startFullSystemTest(1);
    }
    return false;
}

} // namespace

Q_DECLARE_METATYPE(Setup)
Q_DECLARE_METATYPE(Start)

class TestMotionSystemController : public QObject
{
    Q_OBJECT

private slots:
    // Every test starts from the defaults, as on a PC the hub never ran on.
    void init() { QSettings(QStringLiteral("OrvaneLabs"), QStringLiteral("MotionSystem")).clear(); }

    // The fragment tells which refusal came; the first guard that applies wins.
    void refusedStartsSendNothing_data()
    {
        QTest::addColumn<Setup>("setup");
        QTest::addColumn<Start>("kind");
        QTest::addColumn<QString>("refusal");
        QTest::addColumn<QString>("notInRefusal");
        const auto s = [](const char *text) { return QString::fromUtf8(text); };

        QTest::newRow("pattern, not connected")
            << Setup::NotConnected << Start::Pattern << s("Not connected") << s("");
        QTest::newRow("full system, not connected")
            << Setup::NotConnected << Start::FullSystem << s("Not connected") << s("");
        QTest::newRow("pattern before a heartbeat")
            << Setup::NoHeartbeat << Start::Pattern << s("heartbeat") << s("");
        QTest::newRow("board test before a heartbeat")
            << Setup::NoHeartbeat << Start::Board << s("\"\" state") << s("heartbeat");
        QTest::newRow("pattern on a failed board")
            << Setup::Failed << Start::Pattern << s("Auto Home") << s("");
        QTest::newRow("board test on a failed board")
            << Setup::Failed << Start::Board << s("\"FAIL\"") << s("Auto Home");
        QTest::newRow("full system on a failed board")
            << Setup::Failed << Start::FullSystem << s("\"FAIL\"") << s("Auto Home");
        QTest::newRow("full system while a board test runs")
            << Setup::Running << Start::FullSystem << s("already running") << s("");
        QTest::newRow("a running test before the failed board")
            << Setup::RunningThenFailed << Start::Pattern << s("already running") << s("");
    }

    void refusedStartsSendNothing()
    {
        QFETCH(Setup, setup);
        QFETCH(Start, kind);
        QFETCH(QString, refusal);
        QFETCH(QString, notInRefusal);

        sim::MotionSimulatorSettings boardSettings = quickBoard();
        boardSettings.testSecondMs = 1000; // a board test outlasts the checks
        MotionRig rig(boardSettings);
        if (setup == Setup::NoHeartbeat) {
            rig.board.setSilent(true);
            QVERIFY(rig.connect());
        } else if (setup != Setup::NotConnected) {
            QVERIFY(rig.connectReady());
        }
        if (setup == Setup::Running || setup == Setup::RunningThenFailed)
            QVERIFY(rig.controller.startBoardTest(-1, 20, 50, 30));
        if (setup == Setup::Failed || setup == Setup::RunningThenFailed) {
            rig.board.fail();
            QTRY_COMPARE_WITH_TIMEOUT(rig.controller.controllerState(), QStringLiteral("FAIL"), kWaitMs);
        }
        const bool wasRunning = rig.controller.isTestRunning();
        const qsizetype sentBefore = rig.board.commands().size();

        QSignalSpy errors(&rig.controller, &MotionSystemController::errorOccurred);
        QSignalSpy started(&rig.controller, &MotionSystemController::testStarted);
        QVERIFY(!start(rig.controller, kind));
        QCOMPARE(errors.size(), 1);
        const QString message = errors.at(0).at(0).toString();
        QVERIFY2(message.contains(refusal), qPrintable(message));
        QVERIFY2(notInRefusal.isEmpty() || !message.contains(notInRefusal), qPrintable(message));
        QCOMPARE(started.size(), 0);
        QCOMPARE(rig.controller.isTestRunning(), wasRunning);
        if (setup != Setup::NotConnected)
            QVERIFY(rig.nothingSentSince(sentBefore));
    }

    void firstHeartbeatSendsTheSettingsAndTheEchoIsKept()
    {
        MotionRig rig;
        QSignalSpy echoed(&rig.controller, &MotionSystemController::settingsEchoed);
        QSignalSpy positions(&rig.controller, &MotionSystemController::axisPositionsUpdated);
        QVERIFY(rig.connectReady());
        QTRY_VERIFY_WITH_TIMEOUT(!echoed.isEmpty(), kWaitMs);
        QCOMPARE(codes(rig.board.commands()).mid(0, 2), (QList<int>{'C', 'Q'}));
        QTRY_VERIFY_WITH_TIMEOUT(!positions.isEmpty(), kWaitMs);
        QCOMPARE((positions.last().at(0).value<QMap<int, int>>().size()), 6);
        QCOMPARE(rig.controller.axisPositions().value(6), 75);

        // Out of range on the way in, clamped on the wire, stored for the next run.
        rig.controller.applySettings({5, 500, 60, 0, 146});
        const std::array<int, 5> clamped{10, 140, 60, 10, 145};
        QTRY_COMPARE_WITH_TIMEOUT(rig.board.config(), clamped, kWaitMs);
        const MotionSystemController nextRun;
        QCOMPARE(nextRun.settings(), (MotionSystemSettings{10, 140, 60, 10, 145}));

        // What the board echoes becomes the settings, also for the next run.
        rig.board.injectLine(QStringLiteral("#CFG i=40 t=90 s=50 a=60 p=70"));
        QVERIFY(echoed.wait(kWaitMs));
        const MotionSystemSettings echo{40, 90, 50, 60, 70};
        QCOMPARE(echoed.last().at(0).value<MotionSystemSettings>(), echo);
        QCOMPARE(rig.controller.settings(), echo);
        QCOMPARE(MotionSystemController().settings(), echo);
    }

    void patternTestStaysWithinItsClamps_data()
    {
        QTest::addColumn<int>("travelPct");
        QTest::addColumn<int>("seconds");
        QTest::addColumn<int>("maxDeviation"); // from centre
        QTest::addColumn<int>("reportedTravel");
        // 1 s at one frame per 20 ms: 49 frames of the pattern, then the centre.
        QTest::newRow("travel 30 %") << 30 << 1 << 9830 << 30;
        QTest::newRow("travel 0 runs at 1 %") << 0 << 1 << 327 << 1;
        QTest::newRow("0 s runs 1 s") << 30 << 0 << 9830 << 30;
    }

    void patternTestStaysWithinItsClamps()
    {
        QFETCH(int, travelPct);
        QFETCH(int, seconds);
        QFETCH(int, maxDeviation);
        QFETCH(int, reportedTravel);
        MotionRig rig;
        QVERIFY(rig.connectReady());
        QSignalSpy started(&rig.controller, &MotionSystemController::testStarted);
        QSignalSpy finished(&rig.controller, &MotionSystemController::testFinished);
        const qsizetype from = rig.board.commands().size();
        QVERIFY(rig.controller.startPatternTest(2, travelPct, 100, seconds));
        QCOMPARE(started.size(), 1);
        QCOMPARE(started.at(0).at(1).toInt(), reportedTravel);
        QVERIFY(finished.wait(kWaitMs));
        QVERIFY(!rig.controller.isTestRunning());
        QVERIFY(rig.letHeartbeatsPass());

        const QList<Board::Command> frames = Board::withCode(rig.board.commands().mid(from), '6');
        QCOMPARE(frames.size(), 50);
        int largest = 0;
        for (const Board::Command &frame : frames) {
            const QList<int> &v = frame.values;
            // Pitch: the front pair against the rear pair, yaw and surge at rest.
            QCOMPARE(v.at(0), v.at(1));
            QCOMPARE(v.at(2), v.at(3));
            QVERIFY(qAbs(v.at(0) + v.at(2) - 2 * 32767) <= 1);
            QCOMPARE(v.at(4), 32767);
            QCOMPARE(v.at(5), 32767);
            largest = qMax(largest, qAbs(v.at(0) - 32767));
        }
        QVERIFY2(largest <= maxDeviation + 1 && largest > maxDeviation * 9 / 10,
                 qPrintable(QString::number(largest)));
        QCOMPARE(frames.last().values, (QList<int>(6, 32767)));
        QCOMPARE(rig.board.commands().last().code, '6'); // nothing after the centre
    }

    void releaseStopsAnyTestAndIsTheLastWord_data()
    {
        QTest::addColumn<Start>("kind");
        QTest::newRow("pattern") << Start::Pattern;
        QTest::newRow("board test") << Start::Board;
        QTest::newRow("full system") << Start::FullSystem;
    }

    void releaseStopsAnyTestAndIsTheLastWord()
    {
        QFETCH(Start, kind);
        sim::MotionSimulatorSettings boardSettings = quickBoard();
        boardSettings.testSecondMs = 1000;
        MotionRig rig(boardSettings);
        QVERIFY(rig.connectReady());
        const qsizetype from = rig.board.commands().size();
        QVERIFY(start(rig.controller, kind));
        QVERIFY(rig.waitForCommand(kind == Start::Pattern ? '6' : 'T', from));

        QSignalSpy finished(&rig.controller, &MotionSystemController::testFinished);
        rig.controller.release();
        rig.controller.onTestTick(); // a tick already on its way sends nothing either
        QCOMPARE(finished.size(), 1);
        QVERIFY(!rig.controller.isTestRunning());
        QTRY_COMPARE_WITH_TIMEOUT(rig.controller.controllerState(), QStringLiteral("released"), kWaitMs);
        QVERIFY(rig.letHeartbeatsPass());
        QCOMPARE(rig.board.commands().last().code, 'R');
        QCOMPARE(finished.size(), 1);
    }

    void anUnpluggedBoardEndsTheTest()
    {
        MotionRig rig;
        QVERIFY(rig.connectReady());
        QVERIFY(rig.controller.startPatternTest(4, 30, 100, 30));
        QVERIFY(rig.waitForCommand('6'));
        QSignalSpy finished(&rig.controller, &MotionSystemController::testFinished);
        QSignalSpy connected(&rig.controller, &MotionSystemController::connectedChanged);
        QSignalSpy errors(&rig.controller, &MotionSystemController::errorOccurred);
        rig.board.hangUp();
        QVERIFY(errors.wait(kWaitMs));
        QCOMPARE(finished.size(), 1);
        QCOMPARE(connected.size(), 1);
        QVERIFY(!connected.at(0).at(0).toBool());
        QVERIFY(!rig.controller.isTestRunning());
        QVERIFY(rig.controller.controllerState().isEmpty());
    }

    void aSilentBoardIsReported_data()
    {
        QTest::addColumn<bool>("silentFromStart");
        QTest::newRow("no first heartbeat") << true;
        QTest::newRow("heartbeats stop") << false;
    }

    void aSilentBoardIsReported()
    {
        QFETCH(bool, silentFromStart);
        MotionSystemController::Timings timings = quickTimings();
        timings.firstHeartbeat = std::chrono::milliseconds(300);
        timings.heartbeatWatchdog = std::chrono::milliseconds(300);
        MotionRig rig(quickBoard(), timings);
        QSignalSpy errors(&rig.controller, &MotionSystemController::errorOccurred);
        rig.board.setSilent(silentFromStart);
        QVERIFY(silentFromStart ? rig.connect() : rig.connectReady());
        QCOMPARE(errors.size(), 0);
        rig.board.setSilent(true);
        QVERIFY(errors.wait(kWaitMs));
        QVERIFY(rig.controller.isConnected()); // the port stays open for the user to decide
        QCOMPARE(rig.controller.controllerState(), silentFromStart ? QString() : QStringLiteral("ready"));
    }

    // 2DOF: six board steps, then the opposed pattern from this PC, cycle after cycle.
    void fullSystemTestStepsAdvance()
    {
        MotionRig rig(quickBoard(2));
        QVERIFY(rig.controller.setPlatformKind(kTwoDof));
        QVERIFY(rig.connectReady());
        QSignalSpy started(&rig.controller, &MotionSystemController::testStarted);
        QSignalSpy finished(&rig.controller, &MotionSystemController::testFinished);
        const qsizetype from = rig.board.commands().size();
        QVERIFY(rig.controller.startFullSystemTest(2));
        QVERIFY(finished.wait(kWaitMs));
        QCOMPARE(started.size(), 1);
        QVERIFY(!rig.controller.isTestRunning());
        QVERIFY(rig.letHeartbeatsPass());
        QCOMPARE(finished.size(), 1);

        const QList<Board::Command> sent = rig.board.commands().mid(from);
        const QList<Board::Command> boardSteps = Board::withCode(sent, 'T');
        QVERIFY(boardSteps.size() >= 6);
        const QList<QList<int>> firstCycle{{0, 80, 50, 8},  {1, 80, 50, 8},    {0, 30, 200, 5},
                                           {1, 30, 200, 5}, {255, 60, 100, 8}, {255, 25, 250, 5}};
        for (qsizetype i = 0; i < firstCycle.size(); ++i)
            QCOMPARE(boardSteps.at(i).values, firstCycle.at(i));
        // The pattern steps come after the board steps, the two actuators opposed.
        const QList<Board::Command> frames = Board::withCode(sent, '6');
        QVERIFY(!frames.isEmpty());
        QVERIFY(codes(sent).indexOf('6') > codes(sent).indexOf('T'));
        for (const Board::Command &frame : frames) {
            QVERIFY(qAbs(frame.values.at(0) + frame.values.at(1) - 2 * 32767) <= 1);
            QCOMPARE(frame.values.mid(2), (QList<int>(4, 32767)));
        }
    }
};

QTEST_GUILESS_MAIN(TestMotionSystemController)
#include "tst_motionsystemcontroller.moc"
