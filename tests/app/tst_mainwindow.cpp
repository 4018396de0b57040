#include "carpage.h"
#include "choicetile.h"
#include "devicechangenotifier.h"
#include "hubrig.h"
#include "infopage.h"
#include "inputdevice.h"
#include "logrouter.h"
#include "mainwindow.h"
#include "motionchooserpage.h"
#include "motionoutputdialog.h"
#include "motionpanelpage.h"
#include "motiontelemetrysender.h"
#include "notice.h"
#include "shellsettings.h"
#include "sidebar.h"
#include "sidebarbutton.h"
#include "themeswitcher.h"
#include "toast.h"
#include "vehiclespage.h"
#include "wheelffbdialog.h"
#include "wheelforcefeedback.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QSettings>
#include <QSignalSpy>
#include <QSlider>
#include <QSpinBox>
#include <QTest>

class TestMainWindow : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QCoreApplication::setOrganizationName(QStringLiteral("OrvaneLabs"));
        QCoreApplication::setApplicationName(QStringLiteral("OrvaneLabs HUB window test"));
    }

    void init() { QSettings().clear(); }

    void switchesPagesByKey_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("entry");
        // A page lights its own sidebar entry, a page below another lights its parent's.
        QTest::newRow("own entry") << QStringLiteral("info") << QStringLiteral("info");
        QTest::newRow("parent entry") << QStringLiteral("motion-panel") << QStringLiteral("motion-chooser");
    }

    void switchesPagesByKey()
    {
        QFETCH(QString, key);
        QFETCH(QString, entry);
        tavrix::testing::HubRig rig;
        MainWindow window(*rig.services, QStringLiteral("light"), *tavrix::LogRouter::instance());
        QSignalSpy changed(&window, &MainWindow::pageChanged);
        QVERIFY(window.showPage(key));
        QCOMPARE(window.currentPage(), key);
        QCOMPARE(changed.size(), 1);
        QCOMPARE(changed.first().first().toString(), key);
        QCOMPARE(window.sidebar()->activeEntry(), entry);
        QVERIFY(window.page(key)->isVisibleTo(&window));
        // An unknown key changes nothing.
        QVERIFY(!window.showPage(QStringLiteral("rc-airplane")));
        QCOMPARE(window.currentPage(), key);
        QCOMPARE(changed.size(), 1);
    }

    void sidebarAndPagesNavigate()
    {
        tavrix::testing::HubRig rig;
        QVERIFY(rig.showPage(QStringLiteral("dashboard")));
        MainWindow &window = *rig.window;
        window.sidebar()->entryButton(QStringLiteral("vehicles"))->click();
        QCOMPARE(window.currentPage(), QStringLiteral("vehicles"));

        auto *vehicles = qobject_cast<tavrix::VehiclesPage *>(window.page(QStringLiteral("vehicles")));
        QVERIFY(!vehicles->tile(QStringLiteral("rc-airplane"))->isEnabled());
        vehicles->tile(QStringLiteral("rc-heli"))->click();
        QCOMPARE(window.currentPage(), QStringLiteral("rc-heli"));

        auto *chooser =
            qobject_cast<tavrix::MotionChooserPage *>(window.page(QStringLiteral("motion-chooser")));
        chooser->tile(5)->click();
        QCOMPARE(window.currentPage(), QStringLiteral("motion-panel"));
        auto *panel = qobject_cast<tavrix::MotionPanelPage *>(window.page(QStringLiteral("motion-panel")));
        QCOMPARE(panel->platform(), 5);
        emit panel->backRequested();
        QCOMPARE(window.currentPage(), QStringLiteral("motion-chooser"));
    }

    void themeChoiceForNextTimeIsStoredAndTheQuestionWarnsWhileTransmitting()
    {
        tavrix::testing::HubRig rig;
        QVERIFY(rig.showPage(QStringLiteral("dashboard")));
        tavrix::ThemeSwitcher *switcher = rig.window->themeSwitcher();
        QSignalSpy restart(switcher, &tavrix::ThemeSwitcher::restartRequested);

        switcher->answer(tavrix::ThemeSwitcher::Answer::NextTime);
        QCOMPARE(QSettings().value(QStringLiteral("ui/theme")).toString(), QStringLiteral("dark"));
        QVERIFY(rig.window->toast()->isVisible());

        // Asking again offers the other theme than the stored choice.
        switcher->answer(tavrix::ThemeSwitcher::Answer::NextTime);
        QCOMPARE(QSettings().value(QStringLiteral("ui/theme")).toString(), QStringLiteral("light"));
        QCOMPARE(restart.size(), 0);
        QVERIFY(!rig.window->restartRequested());

        // The question warns only while transmission runs.
        std::unique_ptr<QMessageBox> box(switcher->createQuestion(rig.window.get()));
        QVERIFY(box->informativeText().isEmpty());
        QVERIFY(rig.startCarTransmission());
        box.reset(switcher->createQuestion(rig.window.get()));
        QCOMPARE(box->informativeText(), QStringLiteral("Transmission is running and will stop."));
    }

    void restartNowFromTheSidebarClosesTheWindowForARestart()
    {
        tavrix::testing::HubRig rig;
        MainWindow window(*rig.services, QStringLiteral("dark"), *tavrix::LogRouter::instance());
        hub::ShellSettings::setTheme(QStringLiteral("dark"));
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        window.sidebar()->themeButton()->click();
        QMessageBox *box = nullptr;
        QTRY_VERIFY((box = window.findChild<QMessageBox *>()) && box->isVisible());
        QAbstractButton *restart = nullptr;
        for (QAbstractButton *button : box->buttons()) {
            if (button->text() == QStringLiteral("Restart now"))
                restart = button;
        }
        QVERIFY(restart);
        restart->click();
        QVERIFY(window.restartRequested());
        QTRY_VERIFY(!window.isVisible());
        QCOMPARE(hub::ShellSettings::theme(), QStringLiteral("light"));
    }

    void reduceMotionIsStoredAndReachesTheSidebar()
    {
        tavrix::testing::HubRig rig;
        MainWindow window(*rig.services, QStringLiteral("light"), *tavrix::LogRouter::instance());
        auto *info = qobject_cast<tavrix::InfoPage *>(window.page(QStringLiteral("info")));
        info->reduceMotionBox()->setChecked(true);
        QCOMPARE(QSettings().value(QStringLiteral("ui/reduceMotion")).toBool(), true);
        // With reduced motion the sidebar jumps to its new width at once.
        window.sidebar()->setCollapsed(true);
        QCOMPARE(window.sidebar()->width(), hub::Sidebar::kCollapsedWidth);
    }

    // As in headless runs, a controller that went away is opened again by its saved identity
    // when it is plugged back in, but only while idle, and that never starts transmission.
    void lostControllersComeBackWhileIdleAndNothingRestarts()
    {
        using tavrix::DeviceRole;
        tavrix::testing::HubRig rig;
        QVERIFY(rig.startCarTransmission());
        tavrix::TavrixController *c = rig.controller();
        QCoreApplication::sendPostedEvents(); // the news of plugging them in
        QSignalSpy changes(rig.services->deviceChanges(), &tavrix::DeviceChangeNotifier::devicesChanged);

        // Pedals in use that go away stop transmission; plugged back in while idle, they are
        // opened again, and nothing starts.
        rig.backend->removeDevice(rig.secondDevice);
        QTRY_VERIFY(!c->isRunning());
        rig.backend->addDevice({QStringLiteral("Test Pedals"), QString(), 8, 8, 0, false});
        QTRY_VERIFY(c->devices()->isConnected(DeviceRole::Pedals));

        rig.backend->removeDevice(rig.firstDevice);
        QTRY_VERIFY(!c->devices()->isConnected(DeviceRole::WheelBase));
        rig.backend->addDevice({QStringLiteral("Test Wheel"), QString(), 8, 32, 1, true});
        QTRY_VERIFY(c->devices()->isConnected(DeviceRole::WheelBase));
        QCOMPARE(c->devices()->device(DeviceRole::WheelBase)->deviceName(), QStringLiteral("Test Wheel"));
        QCOMPARE(changes.size(), 4);
        QVERIFY(!c->isRunning());
    }

    // The car page's button opens the motion output dialog on the hub's own sender: the target
    // typed there is where the stream goes, and the button follows the output both ways.
    void motionOutputDialogFromTheCarPageSwitchesTheSender()
    {
        tavrix::testing::HubRig rig;
        auto *car = rig.showPage<tavrix::CarPage>(QStringLiteral("rc-car"));
        QVERIFY(car);
        tavrix::MotionTelemetrySender *sender = rig.services->motionOutput();
        car->motionOutputButton()->click();
        auto *dialog = rig.window->findChild<tavrix::MotionOutputDialog *>();
        QVERIFY(dialog && dialog->isVisible());

        dialog->hostEdit()->setText(QStringLiteral("127.0.0.1"));
        dialog->portBox()->setValue(30777);
        dialog->startButton()->click();
        QVERIFY(sender->isEnabled());
        QCOMPARE(sender->port(), quint16(30777));
        QVERIFY(dialog->startButton()->isChecked());

        sender->setEnabled(false); // e.g. from elsewhere: the dialog follows
        QVERIFY(!dialog->startButton()->isChecked());
        dialog->startButton()->click();
        QVERIFY(sender->isEnabled());
        dialog->startButton()->click();
        QVERIFY(!sender->isEnabled());
    }

    // The car page's force-feedback dialog acts on the wheel the car drives with: the check
    // names what it finds, the switch reaches the wheel's effects (and says so when it cannot),
    // and the controls land in the settings.
    void wheelFfbDialogFromTheCarPageDrivesTheWheel_data()
    {
        QTest::addColumn<int>("wheelIndex"); // -1: none connected
        QTest::addColumn<int>("verdict");
        QTest::addColumn<bool>("switchesOn");

        using Verdict = tavrix::ForceFeedbackCheck::Verdict;
        QTest::newRow("no wheel") << -1 << int(Verdict::NoWheel) << false;
        QTest::newRow("a wheel without force feedback") << 1 << int(Verdict::Incompatible) << false;
        QTest::newRow("a force-feedback wheel") << 0 << int(Verdict::Full) << true;
    }

    void wheelFfbDialogFromTheCarPageDrivesTheWheel()
    {
        QFETCH(int, wheelIndex);
        QFETCH(int, verdict);
        QFETCH(bool, switchesOn);

        tavrix::testing::HubRig rig;
        rig.plugCarControllers();
        if (wheelIndex >= 0)
            QVERIFY(rig.controller()->connectDevice(tavrix::DeviceRole::WheelBase, wheelIndex));
        auto *car = rig.showPage<tavrix::CarPage>(QStringLiteral("rc-car"));
        QVERIFY(car);
        car->forceFeedbackButton()->click();
        auto *dialog = rig.window->findChild<tavrix::WheelFfbDialog *>();
        QVERIFY(dialog && dialog->isVisible());
        QCOMPARE(dialog->verdictText(),
                 tavrix::ForceFeedbackCheck::verdictText(tavrix::ForceFeedbackCheck::Verdict(verdict)));

        tavrix::WheelForceFeedback *ffb = rig.controller()->forceFeedback();
        dialog->enableButton()->click();
        QCOMPARE(ffb->isEnabled(), switchesOn);
        QCOMPARE(dialog->enableButton()->isChecked(), switchesOn);
        QCOMPARE(dialog->notice()->isVisible(), !switchesOn);
        if (!switchesOn)
            return;
        QVERIFY(rig.backend->ffbState(rig.firstDevice).constantPlaying);
        dialog->strengthSlider()->setValue(80);
        QCOMPARE(ffb->settings().strength, 0.8f);
        dialog->enableButton()->click();
        QVERIFY(!ffb->isEnabled());
        QVERIFY(!rig.backend->ffbState(rig.firstDevice).constantPlaying);
        QVERIFY(!rig.backend->ffbState(rig.firstDevice).springPlaying);
        dialog->testLeftButton()->click();
        QVERIFY(rig.backend->ffbState(rig.firstDevice).constantForce < 0.0);
    }
};

QTEST_MAIN(TestMainWindow)
#include "tst_mainwindow.moc"
