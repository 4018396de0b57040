// What the hub's services do as they go, for the parts outside the transmission: a motion
// platform, in the middle of a test or not, is released before the hub lets go of its port.

#include "hubrig.h"
#include "motionsimulator.h"
#include "motionsystemcontroller.h"

#include <QTest>

using namespace tavrix;
using namespace tavrix::testing;

class TestHubServices : public QObject
{
    Q_OBJECT

private slots:
    void shutdownReleasesAConnectedPlatform_data()
    {
        QTest::addColumn<char>("test");
        QTest::newRow("pattern from this PC") << '6';
        QTest::newRow("board test") << 'T';
        // Holding still with its motors on: nobody would watch it once the hub is gone.
        QTest::newRow("idle after the first heartbeat") << 'Q';
    }

    void shutdownReleasesAConnectedPlatform()
    {
        QFETCH(char, test);
        sim::MotionSimulatorSettings boardSettings;
        boardSettings.heartbeatIntervalMs = 50;
        sim::MotionSimulator board(boardSettings);
        QVERIFY2(board.start(), qPrintable(board.errorString()));
        auto rig = std::make_unique<HubRig>();
        MotionSystemController *motion = rig->services->motionSystem();
        QVERIFY(motion->connectPort(board.clientPath()));
        QTRY_COMPARE_WITH_TIMEOUT(motion->controllerState(), QStringLiteral("ready"), 20000);
        if (test == '6')
            QVERIFY(motion->startPatternTest(3, 40, 100, 30));
        else if (test == 'T')
            QVERIFY(motion->startBoardTest(-1, 40, 100, 30));
        QTRY_VERIFY_WITH_TIMEOUT(!board.commands().isEmpty() && board.commands().last().code == test, 20000);

        rig.reset();
        QTRY_COMPARE_WITH_TIMEOUT(board.commands().last().code, 'R', 20000);
        QTRY_COMPARE_WITH_TIMEOUT(board.state(), QStringLiteral("released"), 20000);
    }
};

QTEST_GUILESS_MAIN(TestHubServices)
#include "tst_hubservices.moc"
