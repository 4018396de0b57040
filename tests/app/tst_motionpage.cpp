// The motion pages bound to the hub's real motion controller, with the board simulator on a
// pty as the only serial port the hub can see.
#include "choicetile.h"
#include "hubrig.h"
#include "motionactuatorscard.h"
#include "motionchooserpage.h"
#include "motionconnectioncard.h"
#include "motionpanelpage.h"
#include "motionsimulator.h"
#include "motionsystemcontroller.h"
#include "statuspill.h"

#include <QCheckBox>
#include <QComboBox>
#include <QPushButton>
#include <QScrollArea>
#include <QSlider>
#include <QStandardPaths>

using namespace tavrix;
using namespace tavrix::testing;
using Board = sim::MotionSimulator;

namespace {

constexpr int kWaitMs = 20000;

// The main window on the hub's services with the board plugged in, the motion page in front.
struct MotionPageRig
{
    HubRig hub;
    Board board{quickBoard()};
    MotionPanelPage *page = nullptr;

    static sim::MotionSimulatorSettings quickBoard()
    {
        sim::MotionSimulatorSettings settings;
        settings.heartbeatIntervalMs = 50;
        settings.homingMs = 50;
        return settings;
    }

    bool open()
    {
        const QString link = hub.dir.filePath(QStringLiteral("ttyMOTION"));
        if (!board.start(link))
            return false;
        hub.ports->setPaths({link});
        page = hub.showPage<MotionPanelPage>(QStringLiteral("motion-panel"));
        return page != nullptr;
    }

    // Connected through the page's picker, and the board ready for tests.
    bool connectReady()
    {
        page->connectionCard()->picker()->connectButton()->click();
        return QTest::qWaitFor([this] { return page->testCard()->patternButton()->isEnabled(); }, kWaitMs);
    }

    MotionSystemController *motion() const { return hub.services->motionSystem(); }
};

} // namespace

class TestMotionPage : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QCoreApplication::setOrganizationName(QStringLiteral("OrvaneLabs"));
        QCoreApplication::setApplicationName(QStringLiteral("OrvaneLabs HUB motion page test"));
        QStandardPaths::setTestModeEnabled(true);
    }

    void releaseStopsEveryTestAndIsTheLastWordTheBoardHears_data()
    {
        QTest::addColumn<QString>("test");
        QTest::addColumn<char>("firstCommand");
        QTest::newRow("pattern from this PC") << QStringLiteral("pattern") << '6';
        QTest::newRow("board test") << QStringLiteral("board") << 'T';
        QTest::newRow("Full System test") << QStringLiteral("full") << 'T';
    }

    void releaseStopsEveryTestAndIsTheLastWordTheBoardHears()
    {
        QFETCH(QString, test);
        QFETCH(char, firstCommand);
        MotionPageRig rig;
        QVERIFY2(rig.open(), qPrintable(rig.board.errorString()));
        QVERIFY(rig.connectReady());
        // Wherever the page is scrolled to, Release is on screen.
        QPushButton *release = rig.page->releaseButton();
        QVERIFY(release->isVisible() && release->isEnabled());
        QVERIFY(!rig.page->scrollArea()->isAncestorOf(release));

        MotionTestCard *tests = rig.page->testCard();
        QPushButton *start = test == QLatin1String("pattern") ? tests->patternButton()
                             : test == QLatin1String("board") ? tests->boardButton()
                                                              : tests->fullSystemButton();
        start->click();
        QTRY_VERIFY_WITH_TIMEOUT(!Board::withCode(rig.board.commands(), firstCommand).isEmpty(), kWaitMs);
        QVERIFY(rig.motion()->isTestRunning());
        QVERIFY(!tests->patternButton()->isEnabled());

        release->click();
        QVERIFY(!rig.motion()->isTestRunning());
        // The board's next heartbeats say "released" on the page; by then anything sent after
        // the Release would have reached the board too.
        QTRY_COMPARE_WITH_TIMEOUT(rig.page->connectionCard()->statePill()->text(), QStringLiteral("released"),
                                  kWaitMs);
        QCOMPARE(rig.board.commands().last().code, 'R');
        QCOMPARE(Board::withCode(rig.board.commands(), 'R').size(), 1);
        if (test == QLatin1String("full"))
            QVERIFY(!tests->fullSystemStatus().isEmpty());
    }

    // A dragged slider sends its first position at once and its last one in the end, and
    // nothing like one frame per pixel in between.
    void freeModeSliderMovesAreThinnedButEndWhereTheSliderStops()
    {
        MotionPageRig rig;
        QVERIFY(rig.open());
        QVERIFY(rig.connectReady());
        MotionActuatorsCard *actuators = rig.page->actuatorsCard();
        QCOMPARE(actuators->actuatorCount(), 6);
        actuators->freeModeSwitch()->setChecked(true);
        QSlider *slider = actuators->slider(1);
        QVERIFY(slider->isEnabled());
        for (int mm = 20; mm <= 80; ++mm)
            slider->setValue(mm);
        const auto moves = [&rig] { return Board::withCode(rig.board.commands(), 'M'); };
        QTRY_VERIFY_WITH_TIMEOUT(!moves().isEmpty() && moves().last().values == (QList<int>{1, 80}), kWaitMs);
        QCOMPARE(moves().size(), 2);
        QCOMPARE(moves().first().values, (QList<int>{1, 20}));
    }

    void platformChoiceIsRefusedWhileATestRuns_data()
    {
        QTest::addColumn<bool>("testRunning");
        QTest::addColumn<int>("chosen");
        QTest::addColumn<bool>("accepted");
        // What the page offers the platform it shows: actuators, and the patterns that move it.
        QTest::addColumn<int>("actuators");
        QTest::addColumn<int>("patterns");
        QTest::newRow("idle: 2DOF") << false << 2 << true << 2 << 2;
        QTest::newRow("idle: 3DOF (no yaw or surge actuator)") << false << 3 << true << 4 << 3;
        QTest::newRow("during a board test: another platform") << true << 2 << false << 6 << 5;
        QTest::newRow("during a board test: the same platform") << true << 5 << true << 6 << 5;
    }

    void platformChoiceIsRefusedWhileATestRuns()
    {
        QFETCH(bool, testRunning);
        QFETCH(int, chosen);
        QFETCH(bool, accepted);
        QFETCH(int, actuators);
        QFETCH(int, patterns);
        MotionPageRig rig;
        QVERIFY(rig.motion()->setPlatformKind(5));
        QVERIFY(rig.open());
        if (testRunning) {
            QVERIFY(rig.connectReady());
            rig.page->testCard()->boardButton()->click();
            QVERIFY(rig.motion()->isTestRunning());
        }
        auto *chooser = rig.hub.showPage<MotionChooserPage>(QStringLiteral("motion-chooser"));
        QVERIFY(chooser);
        chooser->tile(chosen)->click();

        const int expected = accepted ? chosen : 5;
        QCOMPARE(rig.motion()->platformKind(), expected);
        QCOMPARE(rig.hub.window->currentPage(),
                 accepted ? QStringLiteral("motion-panel") : QStringLiteral("motion-chooser"));
        QCOMPARE(chooser->refusal().isEmpty(), accepted);
        QCOMPARE(rig.page->platform(), expected);
        QCOMPARE(rig.page->actuatorsCard()->actuatorCount(), actuators);
        QCOMPARE(rig.page->testCard()->patternBox()->count(), patterns);
        QCOMPARE(rig.page->testCard()->actuatorBox()->count(), actuators + 1);
        rig.page->releaseButton()->click();
    }
};

QTEST_MAIN(TestMotionPage)
#include "tst_motionpage.moc"
