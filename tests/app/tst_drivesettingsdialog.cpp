// The drive dialog's Steering tab, opened from the car page of a real main window while the
// controller transmits to the bridge simulator on a pty: an end point edited there steers
// the car at once and reaches the profile file only through "Save trim"; Revert and closing
// the dialog put the saved end points back; end points out of order are refused.
#include "carpage.h"
#include "drivesettingsdialog.h"
#include "hubrig.h"
#include "notice.h"
#include "profilekeys.h"
#include "steeringtrim.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QPointer>
#include <QPushButton>
#include <QSpinBox>

#include <functional>

using namespace tavrix;
using namespace tavrix::testing;
using namespace Qt::StringLiterals;

namespace {

constexpr int kCh1 = 0;
constexpr int kTimeout = 10000;
// CH1 with the wheel centred on the default end points (0, 1024, 2047).
constexpr int kCentredCh1 = 1023;
constexpr int kSavedCenter = 1024;

using Step = std::function<void(DriveSettingsDialog &)>;
using Box = std::function<QSpinBox *(DriveSettingsDialog &)>;

// A transmitting car and its drive dialog, opened the way the user opens it.
struct TrimRig
{
    HubRig hub;
    QPointer<DriveSettingsDialog> dialog; // the window deletes it once closed

    bool open()
    {
        // Sensor discovery stays on: the profile it writes while the car starts reporting must
        // not end the trim being tried.
        auto *car = hub.startCarTransmission() ? hub.showPage<CarPage>(u"rc-car"_s) : nullptr;
        if (!car)
            return false;
        car->configureButtons().at(1)->click();
        dialog = hub.window->findChild<DriveSettingsDialog *>();
        return dialog && dialog->isVisible();
    }

    [[nodiscard]] int ch1() const { return hub.sim.lastChannels()[kCh1]; }
    [[nodiscard]] int storedCenter() const
    {
        return int(hub.storedValue(profilekeys::kAxisSettings, u"steeringCenter"_s));
    }
    void steer(double position)
    {
        hub.backend->setAxis(hub.firstDevice, ControllerRig::kSteeringSlot, rawForDeviceValue(position));
    }
    // A few more frames reach the car, so CH1 is what the settings now in force send.
    bool awaitFrames() const
    {
        const quint64 seen = hub.sim.channelFrameCount();
        return QTest::qWaitFor([&] { return hub.sim.channelFrameCount() > seen + 3; }, kTimeout);
    }
};

} // namespace

Q_DECLARE_METATYPE(Step)
Q_DECLARE_METATYPE(Box)

class TestDriveSettingsDialog : public QObject
{
    Q_OBJECT

private slots:
    void centreIsTriedLiveUntilSavedOrPutBack_data()
    {
        QTest::addColumn<Step>("finish");
        QTest::addColumn<int>("storedCenter"); // in the file afterwards
        QTest::addColumn<int>("ch1");          // and on the car, the wheel centred
        const Step save = [](DriveSettingsDialog &d) { d.saveTrimButton()->click(); };
        QTest::newRow("saved") << save << 1200 << 1200;
        QTest::newRow("reverted") << Step([](DriveSettingsDialog &d) { d.revertTrimButton()->click(); })
                                  << kSavedCenter << kCentredCh1;
        QTest::newRow("dialog closed unsaved")
            << Step([](DriveSettingsDialog &d) { d.close(); }) << kSavedCenter << kCentredCh1;
        QTest::newRow("dialog closed after saving") << Step([=](DriveSettingsDialog &d) {
            save(d);
            d.close();
        }) << 1200 << 1200;
    }

    void centreIsTriedLiveUntilSavedOrPutBack()
    {
        QFETCH(Step, finish);
        QFETCH(int, storedCenter);
        QFETCH(int, ch1);
        TrimRig rig;
        QVERIFY(rig.open());
        QTRY_COMPARE_WITH_TIMEOUT(rig.ch1(), kCentredCh1, kTimeout);

        rig.dialog->steeringCenterBox()->setValue(1200);
        QTRY_COMPARE_WITH_TIMEOUT(rig.ch1(), 1200, kTimeout);
        QCOMPARE(rig.storedCenter(), kSavedCenter); // tried on the car, not saved

        finish(*rig.dialog);
        QCOMPARE(rig.storedCenter(), storedCenter);
        QVERIFY(rig.awaitFrames());
        QTRY_COMPARE_WITH_TIMEOUT(rig.ch1(), ch1, kTimeout);
        QCOMPARE(rig.hub.controller()->steeringTrim().inForce().center, storedCenter);
    }

    void outOfOrderEndPointIsRefused_data()
    {
        QTest::addColumn<double>("wheel"); // held where CH1 is the edited end point
        QTest::addColumn<Box>("box");
        QTest::addColumn<int>("value");
        QTest::addColumn<int>("ch1"); // the saved end point, which stays
        QTest::newRow("left past centre")
            << -1.0 << Box([](DriveSettingsDialog &d) { return d.steeringLeftBox(); }) << 1500 << 0;
        QTest::newRow("right below centre")
            << 1.0 << Box([](DriveSettingsDialog &d) { return d.steeringRightBox(); }) << 900 << 2047;
    }

    void outOfOrderEndPointIsRefused()
    {
        QFETCH(double, wheel);
        QFETCH(Box, box);
        QFETCH(int, value);
        QFETCH(int, ch1);
        TrimRig rig;
        QVERIFY(rig.open());
        rig.steer(wheel);
        QTRY_COMPARE_WITH_TIMEOUT(rig.ch1(), ch1, kTimeout);
        // The axis settings as the file holds them (discovery may write its sensors meanwhile).
        const auto stored = [&rig] {
            return QJsonDocument::fromJson(rig.hub.activeProfileBytes())
                .object()
                .value(profilekeys::kAxisSettings);
        };
        const QJsonValue before = stored();

        box(*rig.dialog)->setValue(value);

        QCOMPARE(rig.dialog->notice()->text(), SteeringEndpoints::outOfOrderMessage());
        QVERIFY(rig.dialog->notice()->isVisible());
        QVERIFY(rig.awaitFrames());
        QCOMPARE(rig.ch1(), ch1);
        QCOMPARE(stored(), before);
        // The box shows the end point in force again.
        QCOMPARE(box(*rig.dialog)->value(), ch1);
    }

    void tabShowsEndPointsSavedElsewhere()
    {
        TrimRig rig;
        QVERIFY(rig.open());
        const SteeringEndpoints elsewhere{100, 1100, 1900};

        // As the remote app's "apply_steering_trim" saves them.
        QVERIFY(rig.hub.controller()->steeringTrim().save(elsewhere));

        QCOMPARE(rig.dialog->steeringLeftBox()->value(), elsewhere.left);
        QCOMPARE(rig.dialog->steeringCenterBox()->value(), elsewhere.center);
        QCOMPARE(rig.dialog->steeringRightBox()->value(), elsewhere.right);
        QVERIFY(!rig.dialog->saveTrimButton()->isEnabled());
    }
};

QTEST_MAIN(TestDriveSettingsDialog)
#include "tst_drivesettingsdialog.moc"
