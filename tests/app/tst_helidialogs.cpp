// The helicopter dialogs and the button mappings, opened from the heli page of a real main window,
// against the real controller transmitting to the bridge simulator with a virtual joystick and throttle.
#include "buttonmappingsdialog.h"
#include "heliarmingdialog.h"
#include "heliconfigdialog.h"
#include "helicurvesdialog.h"
#include "heliflydialog.h"
#include "helipage.h"
#include "helisettingsbinder.h"
#include "helisettingsdialog.h"
#include "hubrig.h"
#include "inputdevice.h"
#include "notice.h"
#include "profilekeys.h"

#include <QCheckBox>
#include <QDoubleSpinBox>
#include <QJsonArray>
#include <QJsonObject>
#include <QPushButton>
#include <QSpinBox>
#include <QTableWidget>
#include <QToolButton>

#include <functional>

using namespace tavrix;
using namespace tavrix::testing;
using namespace Qt::StringLiterals;

namespace {

namespace keys = profilekeys;

// The heli page's Configure buttons, in their order.
enum Button
{
    Controls,
    Rates,
    Curves,
    Arming,
    Buttons
};
constexpr int kRollSlot = 0;       // the joystick's x axis in a new profile
constexpr int kCollectiveSlot = 2; // the throttle device's axis

using Edit = std::function<void(QWidget *dialog)>;

// Picks an entry the way a mouse pick in the open list does: one activation, for that entry
// only (walking there by keyboard would pass the channels of other functions).
void choose(QComboBox *box, int index)
{
    box->setCurrentIndex(index);
    emit box->activated(index);
}

template<class Dialog> Edit on(std::function<void(Dialog *)> edit)
{
    return [edit](QWidget *dialog) { edit(qobject_cast<Dialog *>(dialog)); };
}

// A helicopter profile transmitting, the stick full right and the collective lever at the
// bottom, with the page in front.
struct FlyingRig : HubRig
{
    HeliPage *page = nullptr;

    bool start()
    {
        plugHeliControllers();
        backend->setAxis(firstDevice, kRollSlot, rawForDeviceValue(1.0));
        backend->setAxis(secondDevice, kCollectiveSlot, rawForDeviceValue(-1.0));
        TavrixController *c = controller();
        page = showPage<HeliPage>(u"rc-heli"_s);
        return page && services->profiles()->setVehicleType(vehicletype::kHelicopter) && c->isHelicopter() &&
               startBridge() && c->connectDevice(DeviceRole::HeliJoystick, firstDevice) &&
               c->connectDevice(DeviceRole::HeliThrottle, secondDevice) &&
               c->connectTransmitter(linkPath()) && c->startTransmission();
    }

    // The dialog a Configure button opened (one at a time here).
    HeliSettingsDialog *open(Button button)
    {
        page->configureButtons().at(button)->click();
        return window->findChild<HeliSettingsDialog *>();
    }
    int channel(int index) const { return controller()->channels().at(std::size_t(index)); }
};

} // namespace

Q_DECLARE_METATYPE(Edit)

class TestHeliDialogs : public QObject
{
    Q_OBJECT

private slots:
    void editReachesTheFileAndTheChannels_data()
    {
        QTest::addColumn<int>("button");
        QTest::addColumn<Edit>("edit");
        QTest::addColumn<QString>("storedPath");
        QTest::addColumn<double>("stored");
        QTest::addColumn<int>("channel");
        QTest::addColumn<int>("value");
        // A channel the edit leaves, and the rest value it must go to (not freeze at the last sent).
        QTest::addColumn<int>("vacated");
        QTest::addColumn<int>("rest");

        // Full right at the beginner rate's 60 %: 0.6 x 819.5 + 992.
        QTest::newRow("roll moves to CH7") << int(Controls) << on<HeliConfigDialog>([](HeliConfigDialog *d) {
            choose(d->channelBox(HeliConfigDialog::Roll), 7);
        }) << u"channels/roll"_s << 6.0 << 6
                                           << 1484 << 0 << 992;
        QTest::newRow("beginner rate at full travel")
            << int(Rates) << on<HeliFlyDialog>([](HeliFlyDialog *d) { d->ratePercentBox(0)->setValue(100); })
            << u"dualRates/beginnerPct"_s << 100.0 << 0 << 1811 << -1 << 0;
        // The lever at the bottom now gives half collective: 0.5 x 1639 + 172, rounded up.
        QTest::newRow("pitch curve lifts the bottom")
            << int(Curves) << on<HeliCurvesDialog>([](HeliCurvesDialog *d) {
                   d->pointBox(HeliCurvesDialog::PitchCurve, 0)->setValue(50);
                   d->enabledBox(HeliCurvesDialog::PitchCurve)->click();
               })
            << u"pitchCurve/points/0"_s << 0.5 << 2 << 992 << -1 << 0;
        // 1000 us: (1000 - 880) x 8 / 5.
        QTest::newRow("arm switch sends its safe value")
            << int(Arming) << on<HeliArmingDialog>([](HeliArmingDialog *d) {
                   d->safeMicrosBox()->setValue(1000);
                   d->armSwitchBox()->click();
               })
            << u"arm/offUs"_s << 1000.0 << 4 << 192 << -1 << 0;
    }

    void editReachesTheFileAndTheChannels()
    {
        QFETCH(int, button);
        QFETCH(Edit, edit);
        QFETCH(QString, storedPath);
        QFETCH(double, stored);
        QFETCH(int, channel);
        QFETCH(int, value);
        QFETCH(int, vacated);
        QFETCH(int, rest);
        FlyingRig rig;
        QVERIFY(rig.start());
        // The stick has reached roll's channel: full right at the beginner rate.
        QTRY_COMPARE_WITH_TIMEOUT(rig.channel(0), 1484, 10000);
        QVERIFY(rig.channel(channel) != value);
        HeliSettingsDialog *dialog = rig.open(Button(button));
        QVERIFY(dialog);

        edit(dialog);

        QCOMPARE(rig.storedValue(keys::kHelicopterConfig, storedPath), stored);
        QTRY_COMPARE_WITH_TIMEOUT(rig.channel(channel), value, 10000);
        if (vacated >= 0)
            QCOMPARE(rig.channel(vacated), rest);
        QVERIFY(dialog->notice()->text().isEmpty());
        QVERIFY(rig.controller()->isRunning());
    }

    void sharedChannelIsRefusedAndChangesNothing_data()
    {
        QTest::addColumn<int>("button");
        QTest::addColumn<Edit>("edit");
        QTest::addColumn<QString>("storedPath");

        QTest::newRow("pitch onto roll's CH1")
            << int(Controls) << on<HeliConfigDialog>([](HeliConfigDialog *d) {
                   choose(d->channelBox(HeliConfigDialog::Pitch), 1);
               })
            << u"channels/pitch"_s;
        QTest::newRow("motor onto the collective's CH3")
            << int(Curves) << on<HeliCurvesDialog>([](HeliCurvesDialog *d) {
                   d->enabledBox(HeliCurvesDialog::ThrottleCurve)->click();
                   choose(d->motorChannelBox(), 3);
               })
            << u"motorChannel"_s;
        QTest::newRow("arm switch onto the rudder's CH4")
            << int(Arming) << on<HeliArmingDialog>([](HeliArmingDialog *d) {
                   d->armSwitchBox()->click();
                   choose(d->armChannelBox(), 4);
               })
            << u"arm/channel"_s;
    }

    void sharedChannelIsRefusedAndChangesNothing()
    {
        QFETCH(int, button);
        QFETCH(Edit, edit);
        QFETCH(QString, storedPath);
        FlyingRig rig;
        QVERIFY(rig.start());
        HeliSettingsDialog *dialog = rig.open(Button(button));
        QVERIFY(dialog);
        const double before = rig.storedValue(keys::kHelicopterConfig, storedPath);
        const HelicopterSettings applied = rig.controller()->settings().helicopter;
        QSignalSpy modified(rig.services->profiles(), &ProfileManager::profileModified);

        edit(dialog);

        const hub::Notice *notice = dialog->notice();
        QVERIFY(notice->isVisible() && !notice->text().isEmpty());
        QCOMPARE(rig.storedValue(keys::kHelicopterConfig, storedPath), before);
        // The steps before the refused one (switching the curve or the arm switch on) were taken.
        QVERIFY(modified.size() <= 1);
        QCOMPARE(rig.controller()->settings().helicopter.channels, applied.channels);
        QCOMPARE(rig.controller()->settings().helicopter.motorChannel, applied.motorChannel);
        QCOMPARE(rig.controller()->settings().helicopter.arm.channel, applied.arm.channel);
    }

    // Armed, only the rates stay editable: a changed channel, calibration, curve or arm value in
    // flight would move the helicopter. Disarmed, the same edit goes through.
    void armedMotorLocksAllButTheRates_data()
    {
        QTest::addColumn<int>("button");
        QTest::addColumn<bool>("locked");
        QTest::addColumn<Edit>("edit");
        QTest::addColumn<QString>("storedPath");
        QTest::addColumn<double>("edited");
        QTest::newRow("controls") << int(Controls) << true << on<HeliConfigDialog>([](HeliConfigDialog *d) {
            choose(d->channelBox(HeliConfigDialog::Roll), 7);
        }) << u"channels/roll"_s << 6.0;
        QTest::newRow("rates") << int(Rates) << false << on<HeliFlyDialog>([](HeliFlyDialog *d) {
            d->ratePercentBox(0)->setValue(90);
        }) << u"dualRates/beginnerPct"_s
                               << 90.0;
        QTest::newRow("curves") << int(Curves) << true << on<HeliCurvesDialog>([](HeliCurvesDialog *d) {
            d->pointBox(HeliCurvesDialog::PitchCurve, 0)->setValue(50);
        }) << u"pitchCurve/points/0"_s
                                << 0.5;
        QTest::newRow("arming") << int(Arming) << true << on<HeliArmingDialog>([](HeliArmingDialog *d) {
            d->safeMicrosBox()->setValue(1000);
        }) << u"arm/offUs"_s << 1000.0;
    }

    void armedMotorLocksAllButTheRates()
    {
        QFETCH(int, button);
        QFETCH(bool, locked);
        QFETCH(Edit, edit);
        QFETCH(QString, storedPath);
        QFETCH(double, edited);
        FlyingRig rig;
        QVERIFY(rig.start());
        TavrixController *c = rig.controller();
        c->setHeliArmed(true);
        QVERIFY(c->isHeliArmed());
        HeliSettingsDialog *dialog = rig.open(Button(button));
        QVERIFY(dialog);
        QCOMPARE(dialog->isLocked(), locked);
        const double before = rig.storedValue(keys::kHelicopterConfig, storedPath);
        QVERIFY(before != edited);

        // As if the edit had been on its way when the motor was armed.
        edit(dialog);
        QCOMPARE(rig.storedValue(keys::kHelicopterConfig, storedPath), locked ? before : edited);
        if (!locked)
            return;

        c->setHeliArmed(false);
        QVERIFY(!dialog->isLocked());
        edit(dialog);
        QCOMPARE(rig.storedValue(keys::kHelicopterConfig, storedPath), edited);
    }

    // A curve of finer points than the editor's whole percents (written by the app or by hand)
    // stays as it is through an edit of something else in the same dialog.
    void curveNotTouchedInTheEditorKeepsItsOwnPoints()
    {
        FlyingRig rig;
        QVERIFY(rig.start());
        QJsonObject config = rig.services->profiles()->setting(keys::kHelicopterConfig).toObject();
        const QJsonArray finePoints{0.0, 0.105, 0.2, 0.333, 0.45, 0.5, 0.62, 0.8, 1.0};
        config[keys::kPitchCurve] = QJsonObject{{keys::kEnabled, true}, {keys::kPoints, finePoints}};
        QVERIFY(rig.services->profiles()->setSetting(keys::kHelicopterConfig, config));
        auto *dialog = qobject_cast<HeliCurvesDialog *>(rig.open(Curves));
        QVERIFY(dialog);

        dialog->enabledBox(HeliCurvesDialog::ThrottleCurve)->click();
        QCOMPARE(rig.storedValue(keys::kHelicopterConfig, u"throttleCurve/enabled"_s), 1.0);
        for (qsizetype i = 0; i < finePoints.size(); ++i)
            QCOMPARE(rig.storedValue(keys::kHelicopterConfig, u"pitchCurve/points/%1"_s.arg(i)),
                     finePoints.at(i).toDouble());

        // A point changed in the editor does take the editor's points, all nine of them.
        QCOMPARE(dialog->pointCountBox(HeliCurvesDialog::PitchCurve)->value(), int(finePoints.size()));
        dialog->pointBox(HeliCurvesDialog::PitchCurve, 0)->setValue(10);
        QCOMPARE(rig.storedValue(keys::kHelicopterConfig, u"pitchCurve/points/0"_s), 0.1);
        QCOMPARE(rig.storedValue(keys::kHelicopterConfig, u"pitchCurve/points/3"_s), 0.33);
        QCOMPARE(rig.controller()->settings().helicopter.pitchCurve.points.size(), finePoints.size());
    }

    // Another number of points resamples the curve as it is, and the next tick flies it: a
    // nine-point curve from a five-point V keeps the V.
    void pointCountResamplesTheCurve_data()
    {
        QTest::addColumn<int>("count");
        QTest::addColumn<QList<double>>("resampled");
        QTest::newRow("nine") << 9 << QList<double>{1.0, 0.75, 0.5, 0.25, 0.0, 0.25, 0.5, 0.75, 1.0};
        QTest::newRow("three") << 3 << QList<double>{1.0, 0.0, 1.0};
        QTest::newRow("two") << 2 << QList<double>{1.0, 1.0};
    }

    void pointCountResamplesTheCurve()
    {
        QFETCH(int, count);
        QFETCH(QList<double>, resampled);
        FlyingRig rig;
        QVERIFY(rig.start());
        QJsonObject config = rig.services->profiles()->setting(keys::kHelicopterConfig).toObject();
        const QJsonArray vShape{1.0, 0.5, 0.0, 0.5, 1.0};
        config[keys::kPitchCurve] = QJsonObject{{keys::kEnabled, true}, {keys::kPoints, vShape}};
        QVERIFY(rig.services->profiles()->setSetting(keys::kHelicopterConfig, config));
        auto *dialog = qobject_cast<HeliCurvesDialog *>(rig.open(Curves));
        QVERIFY(dialog);

        dialog->pointCountBox(HeliCurvesDialog::PitchCurve)->setValue(count);

        QList<double> stored;
        for (int i = 0; i < count; ++i)
            stored.append(rig.storedValue(keys::kHelicopterConfig, u"pitchCurve/points/%1"_s.arg(i)));
        QCOMPARE(stored, resampled);
        QCOMPARE(rig.controller()->settings().helicopter.pitchCurve.points, resampled);
        QVERIFY(dialog->pointBox(HeliCurvesDialog::PitchCurve, count - 1));
        QVERIFY(!dialog->pointBox(HeliCurvesDialog::PitchCurve, count));
    }

    // The joystick's buttons drive CH5..CH16: the one pressed in the dialog becomes a mapping that
    // the next helicopter tick sends on the channel chosen for it.
    void mappingAddedByPressingTheStickDrivesItsChannel_data()
    {
        QTest::addColumn<int>("entry"); // of the channel list; -1 keeps the channel it was added on
        QTest::addColumn<int>("channel");
        QTest::addColumn<bool>("armSwitch"); // on, on CH5
        QTest::newRow("as added, CH5") << -1 << 4 << false;
        QTest::newRow("moved to CH16") << 11 << 15 << false;
        // The arm switch would win CH5: the mapping starts on the next free channel.
        QTest::newRow("as added past the arm switch, CH6") << -1 << 5 << true;
    }

    void mappingAddedByPressingTheStickDrivesItsChannel()
    {
        QFETCH(int, entry);
        QFETCH(int, channel);
        QFETCH(bool, armSwitch);
        constexpr int kButton = 7;
        FlyingRig rig;
        QVERIFY(rig.start());
        if (armSwitch) {
            QJsonObject config = rig.services->profiles()->setting(keys::kHelicopterConfig).toObject();
            QJsonObject arm = config.value(keys::kArm).toObject();
            arm[keys::kEnabled] = true;
            arm[keys::kChannel] = 4;
            config[keys::kArm] = arm;
            QVERIFY(rig.services->profiles()->setSetting(keys::kHelicopterConfig, config));
            QVERIFY(rig.controller()->settings().helicopter.sendsOnChannel(4));
        }
        QPushButton *buttons = rig.page->configureButtons().value(Buttons);
        QVERIFY(buttons);
        buttons->click();
        auto *dialog = rig.window->findChild<ButtonMappingsDialog *>();
        QVERIFY(dialog);
        QComboBox *channels = dialog->editor()->channelBox();
        QCOMPARE(channels->count(), 12);
        QCOMPARE(channels->itemData(0).toInt(), 4);
        const InputDevice *stick = rig.controller()->devices()->device(DeviceRole::HeliJoystick);
        const auto press = [&](bool down) {
            rig.backend->setButton(rig.firstDevice, kButton, down);
            QTRY_COMPARE_WITH_TIMEOUT(stick->isPressed(kButton), down, 10000);
        };

        dialog->addButton()->click();
        press(true);
        QTRY_VERIFY_WITH_TIMEOUT(!dialog->isWaitingForPress(), 15000);
        press(false);
        QCOMPARE(dialog->table()->rowCount(), 1);
        if (entry >= 0)
            choose(channels, entry);

        QVERIFY(dialog->notice()->text().isEmpty());
        const QJsonObject saved = QJsonDocument::fromJson(rig.activeProfileBytes())
                                      .object()
                                      .value(keys::kButtonMappings)[0]
                                      .toObject();
        QCOMPARE(saved.value(keys::kButtonIndex).toInt(), kButton);
        QCOMPARE(saved.value(keys::kChannel).toInt(), channel);
        press(true);
        QTRY_COMPARE_WITH_TIMEOUT(rig.sim.lastChannels()[channel], 2047, 10000);
        press(false);
        QTRY_COMPARE_WITH_TIMEOUT(rig.sim.lastChannels()[channel], 0, 10000);
        QVERIFY(rig.controller()->isRunning());
    }

    // A calibration point is the axis's position when "Set" is pressed: the stick held part
    // way right for roll's maximum, the lever part way up for the collective's minimum.
    void calibrationPointIsTakenFromTheAxis_data()
    {
        QTest::addColumn<int>("function");
        QTest::addColumn<int>("point");
        QTest::addColumn<QString>("storedPath");
        QTest::addColumn<bool>("read"); // false: no device to read, nothing stored
        QTest::newRow("roll maximum") << int(HeliConfigDialog::Roll) << int(HeliConfigDialog::Maximum)
                                      << u"calibration/roll/max"_s << true;
        QTest::newRow("collective minimum")
            << int(HeliConfigDialog::Collective) << int(HeliConfigDialog::Minimum)
            << u"calibration/throttle/min"_s << true;
        QTest::newRow("rudder without pedals")
            << int(HeliConfigDialog::Rudder) << int(HeliConfigDialog::Centre)
            << u"calibration/rudder/center"_s << false;
    }

    void calibrationPointIsTakenFromTheAxis()
    {
        QFETCH(int, function);
        QFETCH(int, point);
        QFETCH(QString, storedPath);
        QFETCH(bool, read);
        FlyingRig rig;
        QVERIFY(rig.start());
        const bool roll = function == HeliConfigDialog::Roll;
        const InputDevice *device =
            rig.controller()->devices()->device(roll ? DeviceRole::HeliJoystick : DeviceRole::HeliThrottle);
        const int slot = roll ? kRollSlot : kCollectiveSlot;
        constexpr double kHeld = 0.7; // not a default calibration point
        rig.backend->setAxis(roll ? rig.firstDevice : rig.secondDevice, slot, rawForDeviceValue(kHeld));
        QTRY_VERIFY(qAbs(device->axis(slot) - kHeld) < 0.01);
        auto *dialog = qobject_cast<HeliConfigDialog *>(rig.open(Controls));
        QVERIFY(dialog);
        const auto f = HeliConfigDialog::Function(function);
        const auto p = HeliConfigDialog::Point(point);
        const double before = rig.storedValue(keys::kHelicopterConfig, storedPath);

        dialog->captureButton(f, p)->click();

        const double expected = read ? double(device->axis(slot)) : before;
        QCOMPARE(rig.storedValue(keys::kHelicopterConfig, storedPath), expected);
        QVERIFY(qAbs(dialog->calibrationBox(f, p)->value() - expected) < 0.001);
        QCOMPARE(dialog->notice()->text().isEmpty(), read);
    }

    void axisIsFoundByMovingIt()
    {
        FlyingRig rig;
        QVERIFY(rig.start());
        auto *dialog = qobject_cast<HeliConfigDialog *>(rig.open(Controls));
        QVERIFY(dialog);
        constexpr int kSpareSlot = 5;
        const InputDevice *stick = rig.controller()->devices()->device(DeviceRole::HeliJoystick);
        rig.backend->setAxis(rig.firstDevice, kSpareSlot, rawForDeviceValue(-0.5));
        QTRY_VERIFY(stick->isAxisActive(kSpareSlot));

        // The stick held full right since the start is where roll rests, not a move.
        dialog->detectButton(HeliConfigDialog::Pitch)->click();
        // A twist grip brushed for the first time leaves its untouched -1 reading: not a move either.
        rig.backend->setAxis(rig.firstDevice, kSpareSlot + 1, rawForDeviceValue(0.2));
        rig.backend->setAxis(rig.firstDevice, kSpareSlot, rawForDeviceValue(0.5));

        QTRY_COMPARE_WITH_TIMEOUT(rig.controller()->settings().helicopter.inputs.joystick.yAxis, kSpareSlot,
                                  10000);
        QCOMPARE(rig.storedValue(keys::kHelicopterConfig, u"inputs/joystick/yAxis"_s), double(kSpareSlot));
        QCOMPARE(rig.controller()->settings().helicopter.inputs.joystick.xAxis, kRollSlot);
        QVERIFY(dialog->notice()->text().isEmpty());
    }
};

QTEST_MAIN(TestHeliDialogs)
#include "tst_helidialogs.moc"
