// The drive dialog's Steering tab, opened from the car page of a real main window while the
// controller transmits to the bridge simulator on a pty: an end point edited there steers
// the car at once and reaches the profile file only through "Save trim"; Revert and closing
// the dialog put the saved end points back; end points out of order are refused.
// Its Gears tab with a virtual shifter: a gear detected or cleared there reaches the file and
// the gear the controller reads; the Limits tab warns while per-gear limits have no gear.
#include "buttonmappingeditor.h"
#include "carpage.h"
#include "drivesettingsdialog.h"
#include "drivesettingsdialogbinder.h"
#include "hubrig.h"
#include "notice.h"
#include "profilekeys.h"
#include "shiftergearsview.h"
#include "steeringtrim.h"

#include <QCheckBox>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
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

// The drive dialog bound the way the window binds it, with a 16-button shifter plugged in
// and, when asked, opened in its role.
struct GearsRig
{
    HubRig hub;
    int shifter = hub.backend->addDevice({u"Test Shifter"_s, QString(), 0, 16, 0, false});
    DriveSettingsDialog dialog{DriveSettingsDialogBinder::limits()};

    explicit GearsRig(bool connected = true)
    {
        if (connected)
            hub.controller()->connectDevice(DeviceRole::Shifter, 0); // the only device plugged in
        new DriveSettingsDialogBinder(&dialog, hub.controller());
    }
    [[nodiscard]] ShifterGearsView *view() const { return dialog.gearsView(); }
    [[nodiscard]] QList<int> storedMapping() const
    {
        const QJsonDocument profile = QJsonDocument::fromJson(hub.activeProfileBytes());
        QList<int> inputs;
        for (const QJsonValue input :
             profile["deviceConnections"_L1]["shifter"_L1]["shifterMapping"_L1]["buttonIndex"_L1].toArray())
            inputs.append(input.toInt());
        return inputs;
    }
    bool map(const QList<int> &inputs)
    {
        ShifterMapping mapping;
        std::copy(inputs.begin(), inputs.end(), mapping.buttonIndex.begin());
        return hub.controller()->inputDetection()->setShifterMapping(mapping);
    }
};

using GearStep = std::function<void(GearsRig &)>;

// Neutral free, reverse on button 7, 1st on button 3, 3rd on button 10.
const QList<int> kMapped{-1, 6, 2, -1, 9, -1, -1, -1, -1};

} // namespace

Q_DECLARE_METATYPE(Step)
Q_DECLARE_METATYPE(Box)
Q_DECLARE_METATYPE(GearStep)

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

    void gearEditReachesTheFileAndTheNextTick_data()
    {
        QTest::addColumn<int>("slot");
        QTest::addColumn<GearStep>("edit");
        QTest::addColumn<QList<int>>("stored");
        QTest::addColumn<int>("held"); // the input held afterwards
        QTest::addColumn<int>("gear"); // and the gear read with it
        const auto detect = [](int slot, int input) {
            return GearStep([=](GearsRig &r) {
                QSignalSpy result(r.hub.controller()->inputDetection(),
                                  &InputDetection::shifterDetectionResult);
                r.view()->detectButton(slot)->click();
                r.hub.backend->setButton(r.shifter, input, true);
                QVERIFY(result.wait(kTimeout));
            });
        };
        QTest::newRow("reverse detected")
            << 1 << detect(1, 4) << QList<int>{-1, 4, 2, -1, 9, -1, -1, -1, -1} << 4 << -1;
        QTest::newRow("5th detected on the input 3rd had")
            << 6 << detect(6, 9) << QList<int>{-1, 6, 2, -1, -1, -1, 9, -1, -1} << 9 << 5;
        QTest::newRow("3rd cleared") << 4 << GearStep([](GearsRig &r) { r.view()->clearButton(4)->click(); })
                                     << QList<int>{-1, 6, 2, -1, -1, -1, -1, -1, -1} << 9 << 0;
    }

    void gearEditReachesTheFileAndTheNextTick()
    {
        QFETCH(int, slot);
        QFETCH(GearStep, edit);
        QFETCH(QList<int>, stored);
        QFETCH(int, held);
        QFETCH(int, gear);
        GearsRig rig;
        QVERIFY(rig.map(kMapped));

        edit(rig);

        QCOMPARE(rig.storedMapping(), stored);
        QCOMPARE(rig.view()->inputLabel(slot)->text(), ButtonMappingEditor::sourceName(stored.at(slot)));
        rig.hub.backend->setButton(rig.shifter, held, true);
        QTRY_COMPARE_WITH_TIMEOUT(rig.hub.controller()->gear(), gear, kTimeout);
        QTRY_COMPARE_WITH_TIMEOUT(rig.view()->engagedLabel()->text(),
                                  ShifterGearsView::slotName(ShifterMapping::slotOfGear(gear)), kTimeout);
    }

    void detectionWithoutShifterSaysWhy()
    {
        GearsRig rig(false);

        rig.view()->detectButton(2)->click();

        QVERIFY(!rig.hub.controller()->inputDetection()->isDetectingShifter());
        QCOMPARE(rig.view()->statusLabel(2)->text(), deviceNotConnectedMessage(DeviceRole::Shifter));
    }

    void gearLimitsWarnWithoutForwardGear_data()
    {
        QTest::addColumn<QList<int>>("mapping");
        QTest::addColumn<bool>("limits");
        QTest::addColumn<bool>("warned");
        QTest::newRow("nothing mapped") << QList<int>() << true << true;
        QTest::newRow("neutral and reverse only") << QList<int>{5, 6} << true << true;
        QTest::newRow("7th mapped") << QList<int>{-1, -1, -1, -1, -1, -1, -1, -1, 3} << true << false;
        QTest::newRow("limits off") << QList<int>() << false << false;
    }

    void gearLimitsWarnWithoutForwardGear()
    {
        QFETCH(QList<int>, mapping);
        QFETCH(bool, limits);
        QFETCH(bool, warned);
        GearsRig rig;
        rig.dialog.gearLimitBox()->setChecked(limits);
        QVERIFY(rig.map(mapping));
        // Hidden on its own, not only with the Limits tab in the background.
        QCOMPARE(!rig.dialog.gearLimitWarning()->isHidden(), warned);
    }
};

QTEST_MAIN(TestDriveSettingsDialog)
#include "tst_drivesettingsdialog.moc"
