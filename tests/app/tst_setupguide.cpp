// The setup guide and the safety notice in a real main window, on virtual game controllers
// and the bridge simulator on a pty: what each step saves, what leaving early keeps, and
// that no start reaches the car before the notice was accepted.
#include "carpage.h"
#include "choicetile.h"
#include "devicepickercard.h"
#include "helipage.h"
#include "hubrig.h"
#include "infopage.h"
#include "inputdevice.h"
#include "safetynoticedialog.h"
#include "sessionstarter.h"
#include "setupguide.h"
#include "shellsettings.h"
#include "startup.h"
#include "transmittercard.h"

#include <QPushButton>
#include <QSettings>

using namespace tavrix;
using namespace tavrix::testing;
using namespace Qt::StringLiterals;

namespace {

using Step = SetupGuide::Step;

// Opens the guide the way the About page does.
SetupGuide *openGuide(HubRig &rig)
{
    auto *info = rig.showPage<InfoPage>(u"info"_s);
    if (!info)
        return nullptr;
    emit info->setupGuideRequested();
    return rig.window->findChild<SetupGuide *>();
}

void next(SetupGuide *guide)
{
    QVERIFY(guide->nextButton()->isEnabled());
    guide->nextButton()->click();
}

// The stored profile as a second store reads it from the files.
struct Stored
{
    explicit Stored(HubRig &rig)
        : profiles(rig.dir.path())
    {
        profiles.loadProfiles();
        profiles.setActiveProfile(rig.services->profiles()->activeProfileId());
    }
    ProfileManager profiles;
};

} // namespace

Q_DECLARE_METATYPE(SetupGuide::Step)

class TestSetupGuide : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        QCoreApplication::setOrganizationName(u"OrvaneLabs"_s);
        QCoreApplication::setApplicationName(u"OrvaneLabs HUB guide test"_s);
    }

    void init() { QSettings().clear(); }

    // A helicopter walk left at each step: the steps before it are in the files, the rest not.
    void leavingKeepsTheStepsTaken_data()
    {
        QTest::addColumn<Step>("leaveAt");
        QTest::newRow("at the transmitter") << Step::Transmitter;
        QTest::newRow("at the devices") << Step::Devices;
        QTest::newRow("at the first start") << Step::FirstStart;
    }
    void leavingKeepsTheStepsTaken()
    {
        QFETCH(Step, leaveAt);
        HubRig rig;
        QVERIFY(rig.startBridge());
        rig.plugHeliControllers();
        SetupGuide *guide = openGuide(rig);
        QVERIFY(guide);

        guide->vehicleTile(true)->click();
        QVERIFY(rig.controller()->isHelicopter());
        next(guide);
        if (leaveAt > Step::Transmitter) {
            guide->transmitterCard()->connectButton()->click();
            QTRY_VERIFY(rig.controller()->isSerialConnected());
            next(guide);
        }
        if (leaveAt > Step::Devices) {
            guide->detectButton(u"joystick"_s)->click();
            rig.backend->setAxis(rig.firstDevice, ControllerRig::kSteeringSlot, rawForDeviceValue(0.7));
            QTRY_VERIFY(rig.controller()->devices()->isConnected(DeviceRole::HeliJoystick));
            next(guide);
        }
        // A helicopter has no pedal check: Next goes from the devices to the first start.
        QCOMPARE(guide->currentStep(), leaveAt);
        guide->reject();

        Stored stored(rig);
        QCOMPARE(stored.profiles.vehicleType(), u"rc_helicopter"_s);
        QCOMPARE(stored.profiles.transmitterPortName(),
                 leaveAt > Step::Transmitter ? rig.linkPath() : QString());
        QCOMPARE(stored.profiles.deviceIdentity(DeviceRole::HeliJoystick).productName,
                 leaveAt > Step::Devices ? u"Test Stick"_s : QString());
        // Leaving never assigns what the user did not pick.
        QVERIFY(stored.profiles.deviceIdentity(DeviceRole::HeliThrottle).isEmpty());
        QVERIFY(hub::ShellSettings::setupGuideDismissed());
    }

    // The whole car walk: devices found by moving them (the one not moved stays unassigned),
    // the pedal check, and a start on the stand that the guide's closing stops again.
    void carWalkFindsDevicesByMovingThemAndStartsOnTheStand()
    {
        HubRig rig;
        QVERIFY(rig.startBridge());
        rig.plugCarControllers();
        SetupGuide *guide = openGuide(rig);
        QVERIFY(guide);
        TavrixController *c = rig.controller();

        guide->vehicleTile(false)->click();
        next(guide);
        QVERIFY(!guide->nextButton()->isEnabled());
        guide->transmitterCard()->connectButton()->click();
        QTRY_VERIFY(c->isSerialConnected());
        next(guide);

        // The wheel is found by turning it while the pedals rest, the pedals by pressing one
        // while the wheel (now open in its role) stays put.
        guide->detectButton(u"wheel"_s)->click();
        rig.backend->setAxis(rig.firstDevice, ControllerRig::kSteeringSlot, rawForDeviceValue(-0.6));
        QTRY_VERIFY(c->devices()->isConnected(DeviceRole::WheelBase));
        QCOMPARE(c->devices()->device(DeviceRole::WheelBase)->deviceName(), u"Test Wheel"_s);
        QVERIFY(guide->detectedText(u"wheel"_s)
                    .contains(InputDevice::axisSlotName(ControllerRig::kSteeringSlot)));
        guide->detectButton(u"pedals"_s)->click();
        rig.setPedals(0.6, 0.0);
        QTRY_VERIFY(c->devices()->isConnected(DeviceRole::Pedals));
        QCOMPARE(c->devices()->device(DeviceRole::Pedals)->deviceName(), u"Test Pedals"_s);
        QVERIFY(!c->devices()->isConnected(DeviceRole::Shifter));
        next(guide);

        QCOMPARE(guide->currentStep(), Step::Pedals);
        QVERIFY(!guide->nextButton()->isEnabled());
        for (const double pressed : {1.0, 0.0}) {
            rig.setPedals(pressed, pressed);
            QTRY_VERIFY(qAbs(c->throttle() - pressed) < 0.01 && qAbs(c->brake() - pressed) < 0.01);
        }
        QTRY_VERIFY(guide->nextButton()->isEnabled());
        next(guide);

        QCOMPARE(guide->currentStep(), Step::FirstStart);
        guide->startButton()->click();
        QVERIFY(c->isRunning());
        QTRY_VERIFY(rig.sim.commands().contains(u"START"_s));
        // Started from the car's notice: the helicopter's is still to be read.
        QVERIFY(hub::ShellSettings::safetyNoticeAccepted(hub::SafetyNotice::Car));
        QVERIFY(!hub::ShellSettings::safetyNoticeAccepted(hub::SafetyNotice::Helicopter));
        next(guide); // Finish
        QVERIFY(!c->isRunning());
        QTRY_VERIFY(rig.sim.commands().contains(u"STOP"_s));

        Stored stored(rig);
        QCOMPARE(stored.profiles.vehicleType(), u"rc_car"_s);
        QCOMPARE(stored.profiles.transmitterPortName(), rig.linkPath());
        QCOMPARE(stored.profiles.deviceIdentity(DeviceRole::WheelBase).productName, u"Test Wheel"_s);
        QCOMPARE(stored.profiles.deviceIdentity(DeviceRole::Pedals).productName, u"Test Pedals"_s);
    }

    // Each vehicle page asks its own notice: the other vehicle's, accepted before, does not count.
    void pageStartsOnlyAfterItsNoticeIsAccepted_data()
    {
        QTest::addColumn<bool>("helicopter");
        QTest::newRow("car") << false;
        QTest::newRow("helicopter") << true;
    }
    void pageStartsOnlyAfterItsNoticeIsAccepted()
    {
        QFETCH(bool, helicopter);
        const hub::SafetyNotice own = helicopter ? hub::SafetyNotice::Helicopter : hub::SafetyNotice::Car;
        hub::ShellSettings::setSafetyNoticeAccepted(helicopter ? hub::SafetyNotice::Car
                                                               : hub::SafetyNotice::Helicopter);
        HubRig rig;
        QVERIFY(rig.startBridge());
        TavrixController *c = rig.controller();
        QVERIFY(c->connectTransmitter(rig.linkPath()));
        VehiclePage *page = nullptr;
        if (helicopter) {
            rig.plugHeliControllers();
            QString error;
            QVERIFY2(activateVehicleProfile(*rig.services->profiles(), VehicleType::Helicopter, &error),
                     qPrintable(error));
            QVERIFY(c->connectDevice(DeviceRole::HeliJoystick, 0));
            QVERIFY(c->connectDevice(DeviceRole::HeliThrottle, 1));
            page = rig.showPage<HeliPage>(u"rc-heli"_s);
        } else {
            rig.plugCarControllers();
            QVERIFY(c->connectDevice(DeviceRole::WheelBase, 0));
            QVERIFY(c->connectDevice(DeviceRole::Pedals, 1));
            page = rig.showPage<CarPage>(u"rc-car"_s);
        }
        QVERIFY(page);
        const auto notice = [&rig] { return rig.window->findChild<SafetyNoticeDialog *>(); };

        page->startButton()->click();
        QVERIFY(notice());
        QCOMPARE(notice()->notice(), own);
        QVERIFY(!c->isRunning());
        notice()->cancelButton()->click();
        QTRY_VERIFY(!notice());
        QVERIFY(!c->isRunning());
        QVERIFY(!rig.sim.commands().contains(u"START"_s));

        page->startButton()->click();
        QVERIFY(notice());
        notice()->understoodButton()->click();
        QVERIFY(c->isRunning());
        QTRY_VERIFY(!notice());
        page->startButton()->click(); // stop
        QVERIFY(!c->isRunning());

        // Accepted once: the next start asks nothing.
        page->startButton()->click();
        QVERIFY(c->isRunning());
        QVERIFY(!notice());
    }

    void guideIsOfferedOnlyWhileNoProfileKnowsATransmitter_data()
    {
        QTest::addColumn<bool>("portInActive");
        QTest::addColumn<bool>("portInOther");
        QTest::addColumn<bool>("dismissed");
        QTest::addColumn<bool>("offered");
        QTest::newRow("fresh") << false << false << false << true;
        QTest::newRow("active profile has one") << true << false << false << false;
        QTest::newRow("another profile has one") << false << true << false << false;
        QTest::newRow("closed before") << false << false << true << false;
    }
    void guideIsOfferedOnlyWhileNoProfileKnowsATransmitter()
    {
        QFETCH(bool, portInActive);
        QFETCH(bool, portInOther);
        QFETCH(bool, dismissed);
        QFETCH(bool, offered);
        QTemporaryDir dir;
        ProfileManager profiles(dir.path());
        profiles.loadProfiles();
        const QString first = profiles.activeProfileId();
        const QString other = profiles.createProfile(u"Other"_s);
        QVERIFY(!other.isEmpty());
        if (portInOther) {
            QVERIFY(profiles.setActiveProfile(other));
            QVERIFY(profiles.setTransmitterPort(u"/dev/ttyACM0"_s, 115200));
        }
        QVERIFY(profiles.setActiveProfile(first));
        if (portInActive)
            QVERIFY(profiles.setTransmitterPort(u"/dev/ttyACM0"_s, 115200));
        if (dismissed)
            hub::ShellSettings::setSetupGuideDismissed();
        QCOMPARE(offersSetupGuide(profiles), offered);
    }
};

QTEST_MAIN(TestSetupGuide)
#include "tst_setupguide.moc"
