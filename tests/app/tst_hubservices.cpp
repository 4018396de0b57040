// What the hub's services do as they go, for the parts outside the transmission: a motion
// platform in the middle of a test is released before the hub lets go of its port.

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
    void shutdownDuringAMotionTestReleasesThePlatform_data()
    {
        QTest::addColumn<bool>("patternTest");
        QTest::newRow("pattern from this PC") << true;
        QTest::newRow("board test") << false;
    }

    void shutdownDuringAMotionTestReleasesThePlatform()
    {
        QFETCH(bool, patternTest);
        sim::MotionSimulatorSettings boardSettings;
        boardSettings.heartbeatIntervalMs = 50;
        sim::MotionSimulator board(boardSettings);
        QVERIFY2(board.start(), qPrintable(board.errorString()));
        auto rig = std::make_unique<HubRig>();
        MotionSystemController *motion = rig->services->motionSystem();
        QVERIFY(motion->connectPort(board.clientPath()));
        QTRY_COMPARE_WITH_TIMEOUT(motion->controllerState(), QStringLiteral("ready"), 20000);
        QVERIFY(patternTest ? motion->startPatternTest(3, 40, 100, 30)
                            : motion->startBoardTest(-1, 40, 100, 30));
        const char code = patternTest ? '6' : 'T';
        QTRY_VERIFY_WITH_TIMEOUT(!board.commands().isEmpty() && board.commands().last().code == code, 20000);

        rig.reset();
        QTRY_COMPARE_WITH_TIMEOUT(board.commands().last().code, 'R', 20000);
        QTRY_COMPARE_WITH_TIMEOUT(board.state(), QStringLiteral("released"), 20000);
    }
};

QTEST_GUILESS_MAIN(TestHubServices)
#include "tst_hubservices.moc"
