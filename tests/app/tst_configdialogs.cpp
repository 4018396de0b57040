// The axis, drive, pedal-verification, buttons and ESC preset dialogs bound to the real
// controller and the profile store in a temporary folder, with virtual wheel and pedals.
#include "axispreset.h"
#include "axissettingsdialog.h"
#include "axissettingsdialogbinder.h"
#include "buttonmappingbook.h"
#include "buttonmappingsdialog.h"
#include "buttonmappingsdialogbinder.h"
#include "carpage.h"
#include "drivesettingsdialog.h"
#include "drivesettingsdialogbinder.h"
#include "escpresetsdialog.h"
#include "escpresetsdialogbinder.h"
#include "hubrig.h"
#include "inputdevice.h"
#include "notice.h"
#include "pedalverifydialog.h"
#include "pedalverifydialogbinder.h"
#include "profileedits.h"
#include "profiletestfiles.h"
#include "savedaxismapping.h"

#include <QCheckBox>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QSpinBox>
#include <QTableWidget>

#include <functional>

using namespace tavrix;
using namespace tavrix::testing;
using namespace Qt::StringLiterals;

namespace {

// Both dialogs of one profile, bound the way the window binds them.
struct Dialogs
{
    explicit Dialogs(TavrixController *controller)
        : axis(AxisSettingsDialogBinder::limits(), presetNames())
        , drive(DriveSettingsDialogBinder::limits())
    {
        new AxisSettingsDialogBinder(&axis, controller);
        new DriveSettingsDialogBinder(&drive, controller);
    }
    AxisSettingsDialog axis;
    DriveSettingsDialog drive;
};

using Edit = std::function<void(Dialogs &)>;
using Applied = std::function<double(const ProfileSettings &)>;

// The buttons dialog and the ESC presets dialog of one profile, bound the way the window binds them.
struct ButtonDialogs
{
    explicit ButtonDialogs(TavrixController *controller)
        : buttons(ButtonMappingsDialogBinder::limits())
        , presets(EscPresetStore::kMaxNameLength)
    {
        new ButtonMappingsDialogBinder(&buttons, controller);
        new EscPresetsDialogBinder(&presets, controller->profileManager());
    }
    ButtonMappingsDialog buttons;
    EscPresetsDialog presets;
};

using MappingEdit = std::function<void(ButtonMappingEditor &)>;
using ButtonsEdit = std::function<void(ButtonDialogs &)>;
using WindowStep = std::function<void(MainWindow &)>;

QByteArray fileBytes(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QJsonObject savedObject(const QByteArray &bytes, QLatin1String list, int index)
{
    return QJsonDocument::fromJson(bytes).object().value(list).toArray().at(index).toObject();
}

} // namespace

Q_DECLARE_METATYPE(Edit)
Q_DECLARE_METATYPE(Applied)
Q_DECLARE_METATYPE(MappingEdit)
Q_DECLARE_METATYPE(ButtonsEdit)
Q_DECLARE_METATYPE(WindowStep)

class TestConfigDialogs : public QObject
{
    Q_OBJECT

private slots:
    void editReachesTheFileAndTheController_data()
    {
        QTest::addColumn<Edit>("edit");
        QTest::addColumn<QString>("storedPath");
        QTest::addColumn<double>("expected");
        QTest::addColumn<Applied>("applied");

        QTest::newRow("spike protection off")
            << Edit([](Dialogs &d) { d.drive.spikeRejectionBox()->click(); })
            << u"throttleSpikeRejectionEnabled"_s << 0.0 << Applied([](const ProfileSettings &s) {
                   return double(s.drive.throttleSpikeRejectionEnabled);
               });
        QTest::newRow("stuck-throttle protection off")
            << Edit([](Dialogs &d) { d.drive.stuckThrottleBox()->click(); })
            << u"stuckThrottleDetectionEnabled"_s << 0.0 << Applied([](const ProfileSettings &s) {
                   return double(s.drive.stuckThrottleDetectionEnabled);
               });
        QTest::newRow("custom ESC mode")
            << Edit([](Dialogs &d) { pick(d.drive.escModeBox(), 1); }) << u"escMode"_s << 2.0
            << Applied([](const ProfileSettings &s) { return double(int(s.drive.escMode)); });
        QTest::newRow("soft start ramp")
            << Edit([](Dialogs &d) { d.drive.softStartSecondsBox()->setValue(12); })
            << u"softStartDurationSec"_s << 12.0
            << Applied([](const ProfileSettings &s) { return double(s.drive.softStartDurationSec); });
        QTest::newRow("third gear limit")
            << Edit([](Dialogs &d) { d.drive.gearLimitPercentBox(2)->setValue(40); })
            << u"gearThrottleLimitPercent/2"_s << 40.0
            << Applied([](const ProfileSettings &s) { return double(s.drive.gearThrottleLimitPercent[2]); });
        QTest::newRow("pit limiter cap")
            << Edit([](Dialogs &d) { d.drive.pitLimiterValueBox()->setValue(1500); }) << u"pitLimiterValue"_s
            << 1500.0 << Applied([](const ProfileSettings &s) { return double(s.drive.pitLimiterValue); });
        QTest::newRow("steering inverted")
            << Edit([](Dialogs &d) { d.axis.editor(0)->invertedBox()->click(); }) << u"Steering/inverted"_s
            << 1.0 << Applied([](const ProfileSettings &s) { return double(s.axes.steering.inverted); });
        QTest::newRow("steering expo")
            << Edit([](Dialogs &d) { d.axis.editor(0)->expoBox()->setValue(0.4); }) << u"Steering/expo"_s
            << 0.4 << Applied([](const ProfileSettings &s) { return double(s.axes.steering.expo); });
        QTest::newRow("throttle deadzone")
            << Edit([](Dialogs &d) { d.axis.editor(1)->deadzoneBox()->setValue(0.25); })
            << u"Throttle/deadzone"_s << 0.25
            << Applied([](const ProfileSettings &s) { return double(s.axes.throttle.deadzone); });
        QTest::newRow("brake logarithmic curve")
            << Edit([](Dialogs &d) { d.axis.editor(2)->curveBox()->setCurrentIndex(2); }) << u"Brake/curve"_s
            << 2.0 << Applied([](const ProfileSettings &s) { return double(s.axes.brake.curve); });
        // Only the pedal's own settings change: the steering keeps its default output range.
        QTest::newRow("clutch output ceiling")
            << Edit([](Dialogs &d) { d.axis.editor(3)->maxOutputBox()->setValue(0.6); })
            << u"Clutch/maxOutput"_s << 0.6
            << Applied([](const ProfileSettings &s) { return double(s.axes.clutch.maxOutput); });
    }

    void editReachesTheFileAndTheController()
    {
        QFETCH(Edit, edit);
        QFETCH(QString, storedPath);
        QFETCH(double, expected);
        QFETCH(Applied, applied);
        HubRig rig;
        Dialogs dialogs(rig.controller());
        const ProfileSettings before = rig.controller()->settings();

        edit(dialogs);

        // Stored the way the transmit loop computes: in single precision.
        QCOMPARE(float(rig.storedValue(keys::kAxisSettings, storedPath)), float(expected));
        QCOMPARE(float(applied(rig.controller()->settings())), float(expected));
        QVERIFY(!dialogs.axis.notice()->isVisible() && dialogs.drive.notice()->text().isEmpty());
        // Nothing else moved: the edit was the one setting.
        QCOMPARE(rig.controller()->settings().axes.steering.maxOutput, before.axes.steering.maxOutput);
    }

    void calibrationPointTakesTheControlsPosition_data()
    {
        QTest::addColumn<int>("input");
        QTest::addColumn<double>("position"); // steering -1..+1, a pedal's travel 0..1
        QTest::addColumn<int>("point");
        QTest::addColumn<QString>("storedPath");
        QTest::addColumn<Applied>("applied");
        using Point = AxisEditor::CalibrationPoint;
        QTest::newRow("steering minimum")
            << 0 << -0.813 << int(Point::Minimum) << u"Steering/inputMin"_s
            << Applied([](const ProfileSettings &s) { return double(s.axes.steering.inputMin); });
        QTest::newRow("steering centre") << 0 << 0.107 << int(Point::Center) << u"Steering/inputCenter"_s
                                         << Applied([](const ProfileSettings &s) {
                                                return double(s.drive.steeringCalibration.inputCenter);
                                            });
        QTest::newRow("throttle ceiling")
            << 1 << 0.913 << int(Point::Maximum) << u"Throttle/inputMax"_s
            << Applied([](const ProfileSettings &s) { return double(s.axes.throttle.inputMax); });
        QTest::newRow("brake floor") << 2 << 0.217 << int(Point::Minimum) << u"Brake/inputMin"_s
                                     << Applied([](const ProfileSettings &s) {
                                            return double(s.axes.brake.inputMin);
                                        });
    }

    void calibrationPointTakesTheControlsPosition()
    {
        QFETCH(int, input);
        QFETCH(double, position);
        QFETCH(int, point);
        QFETCH(QString, storedPath);
        QFETCH(Applied, applied);
        HubRig rig;
        rig.plugCarControllers();
        TavrixController *controller = rig.controller();
        QVERIFY(controller->connectDevice(DeviceRole::WheelBase, rig.firstDevice));
        QVERIFY(controller->connectDevice(DeviceRole::Pedals, rig.secondDevice));
        Dialogs dialogs(controller);
        const InputDevice *source =
            controller->devices()->device(input == 0 ? DeviceRole::WheelBase : DeviceRole::Pedals);
        // The device reports a pedal -1 released to +1 pressed, its own 2% deadzone included.
        const double expected = input == 0 ? position : 2.0 * (0.02 + 0.98 * position) - 1.0;
        if (input == 0)
            rig.backend->setAxis(rig.firstDevice, ControllerRig::kSteeringSlot, rawForDeviceValue(position));
        else
            rig.setPedals(input == 1 ? position : 0.0, input == 2 ? position : 0.0);
        QTRY_VERIFY(qAbs(source->logicalValue(input) - expected) < 0.01);

        dialogs.axis.editor(input)->captureButton(AxisEditor::CalibrationPoint(point))->click();

        const float taken = source->logicalValue(input);
        QCOMPARE(float(rig.storedValue(keys::kAxisSettings, storedPath)), taken);
        QCOMPARE(float(applied(controller->settings())), taken);
        QCOMPARE(dialogs.axis.editor(input)->calibrationBox()->isChecked(), true);

        // A later edit of another setting keeps the point as taken, finer than its box shows it.
        dialogs.axis.editor(input)->invertedBox()->click();
        QCOMPARE(float(rig.storedValue(keys::kAxisSettings, storedPath)), taken);
    }

    void presetChoiceMapsTheDeviceAndIsSavedForTheProduct_data()
    {
        QTest::addColumn<Edit>("edit");
        QTest::addColumn<int>("device");
        QTest::addColumn<QString>("preset");
        QTest::addColumn<bool>("combined");
        using Device = AxisSettingsDialog::MappedDevice;
        const auto choose = [](Device device, const QString &name) {
            return Edit([device, name](Dialogs &d) {
                QComboBox *box = d.axis.presetBox(device);
                pick(box, box->findText(name));
            });
        };
        QTest::newRow("wheel base preset") << choose(Device::WheelBase, presets::thrustmaster)
                                           << int(Device::WheelBase) << presets::thrustmaster << false;
        QTest::newRow("combined preset") << choose(Device::Pedals, presets::logitechPs) << int(Device::Pedals)
                                         << presets::logitechPs << true;
        QTest::newRow("combined over the detected preset")
            << Edit([](Dialogs &d) { d.axis.combinedBox(Device::Pedals)->click(); }) << int(Device::Pedals)
            << presets::generic << true;
    }

    void presetChoiceMapsTheDeviceAndIsSavedForTheProduct()
    {
        QFETCH(Edit, edit);
        QFETCH(int, device);
        QFETCH(QString, preset);
        QFETCH(bool, combined);
        HubRig rig;
        rig.plugCarControllers();
        TavrixController *controller = rig.controller();
        QVERIFY(controller->connectDevice(DeviceRole::WheelBase, rig.firstDevice));
        QVERIFY(controller->connectDevice(DeviceRole::Pedals, rig.secondDevice));
        Dialogs dialogs(controller);
        dialogs.axis.show();
        const DeviceRole role = device == 0 ? DeviceRole::WheelBase : DeviceRole::Pedals;
        AxisPreset expected = presetByName(preset);
        expected.combinedPedals = combined;

        edit(dialogs);

        QCOMPARE(controller->devices()->device(role)->preset(), expected);
        const AxisMappingRecord saved =
            AxisMappingRecord::fromConnection(rig.services->profiles()->deviceConnection(role));
        QVERIFY(saved.hasCustomAxisMapping);
        QCOMPARE(saved.axisMapping, expected);
    }

    void configureTopicsOpenTheirDialogs_data()
    {
        QTest::addColumn<int>("topic");
        QTest::addColumn<WindowStep>("then");
        QTest::addColumn<QString>("dialogClass");
        const WindowStep nothing = [](MainWindow &) {};
        QTest::newRow("axes") << 0 << nothing << u"tavrix::AxisSettingsDialog"_s;
        QTest::newRow("drive") << 1 << nothing << u"tavrix::DriveSettingsDialog"_s;
        QTest::newRow("buttons") << 2 << nothing << u"tavrix::ButtonMappingsDialog"_s;
        QTest::newRow("pedals from the axes") << 0 << WindowStep([](MainWindow &w) {
            w.findChild<AxisSettingsDialog *>()->verifyPedalsButton()->click();
        }) << u"tavrix::PedalVerifyDialog"_s;
        QTest::newRow("ESC presets from the drive") << 1 << WindowStep([](MainWindow &w) {
            w.findChild<DriveSettingsDialog *>()->managePresetsButton()->click();
        }) << u"tavrix::EscPresetsDialog"_s;
    }

    void configureTopicsOpenTheirDialogs()
    {
        QFETCH(int, topic);
        QFETCH(WindowStep, then);
        QFETCH(QString, dialogClass);
        HubRig rig;
        auto *car = rig.showPage<CarPage>(u"rc-car"_s);
        QVERIFY(car);
        car->configureButtons().at(topic)->click();
        then(*rig.window);
        const QList<QDialog *> open = rig.window->findChildren<QDialog *>();
        QVERIFY(std::any_of(open.begin(), open.end(), [&](QDialog *dialog) {
            return dialog->isVisible() && QLatin1String(dialog->metaObject()->className()) == dialogClass;
        }));
    }

    void mappingAddedByPressingDrivesItsChannel_data()
    {
        QTest::addColumn<MappingEdit>("edit");
        QTest::addColumn<int>("mode");     // as stored
        QTest::addColumn<int>("held");     // CH4 while the button is down
        QTest::addColumn<int>("released"); // and after it is let go
        using B = ButtonMappingEditor::Behaviour;
        const auto behaviour = [](ButtonMappingEditor &e, B b) {
            pick(e.behaviourBox(), e.behaviourBox()->findData(int(b)));
        };
        QTest::newRow("momentary, as added") << MappingEdit([](ButtonMappingEditor &) {}) << 0 << 2047 << 0;
        QTest::newRow("toggle stays on")
            << MappingEdit([=](ButtonMappingEditor &e) { behaviour(e, B::Toggle); }) << 3 << 2047 << 2047;
        QTest::newRow("switch position") << MappingEdit([=](ButtonMappingEditor &e) {
            behaviour(e, B::SwitchPosition);
            e.pressedValueBox()->setValue(1500);
        }) << 4 << 1500 << 1500;
        QTest::newRow("hold to raise up to its highest") << MappingEdit([=](ButtonMappingEditor &e) {
            behaviour(e, B::HoldToRaise);
            e.maximumBox()->setValue(1800);
            e.rateBox()->setValue(e.rateBox()->maximum());
        }) << 1 << 1800 << 1800;
    }

    void mappingAddedByPressingDrivesItsChannel()
    {
        QFETCH(MappingEdit, edit);
        QFETCH(int, mode);
        QFETCH(int, held);
        QFETCH(int, released);
        constexpr int kButton = 5;
        constexpr int kChannel = 3; // a new mapping's, CH4
        HubRig rig;
        QVERIFY(rig.startCarTransmission());
        TavrixController *controller = rig.controller();
        const InputDevice *wheel = controller->devices()->device(DeviceRole::WheelBase);
        ButtonDialogs dialogs(controller);
        const auto press = [&](bool down) {
            rig.backend->setButton(rig.firstDevice, kButton, down);
            QTRY_COMPARE_WITH_TIMEOUT(wheel->isPressed(kButton), down, 10000);
        };

        dialogs.buttons.addButton()->click();
        QVERIFY(dialogs.buttons.isWaitingForPress());
        press(true);
        QTRY_VERIFY_WITH_TIMEOUT(!dialogs.buttons.isWaitingForPress(), 10000);
        press(false);
        QCOMPARE(dialogs.buttons.table()->rowCount(), 1);
        // Only the channels the car's mappings drive are offered: CH3..CH12.
        QComboBox *channels = dialogs.buttons.editor()->channelBox();
        QCOMPARE(channels->count(), 10);
        QCOMPARE(channels->itemData(0).toInt(), 2);
        edit(*dialogs.buttons.editor());

        const QJsonObject saved = savedObject(rig.activeProfileBytes(), keys::kButtonMappings, 0);
        QCOMPARE(saved.value(keys::kButtonIndex).toInt(), kButton);
        QCOMPARE(saved.value(keys::kChannel).toInt(), kChannel);
        QCOMPARE(saved.value(keys::kMode).toInt(), mode);
        press(true);
        QTRY_COMPARE_WITH_TIMEOUT(rig.sim.lastChannels()[kChannel], held, 10000);
        press(false);
        // Two frames computed with the button released, then the car has the last word.
        const quint32 frame = controller->frameCount();
        QTRY_VERIFY_WITH_TIMEOUT(controller->frameCount() > frame + 2, 10000);
        QTRY_COMPARE_WITH_TIMEOUT(rig.sim.lastChannels()[kChannel], released, 10000);
        QVERIFY(controller->isRunning());
    }

    // A further control drives the mapping as its first one does, and once removed no longer.
    void furtherControlDrivesTheMappingUntilRemoved()
    {
        constexpr int kFirst = 5;
        constexpr int kFurther = 7;
        constexpr int kChannel = 3; // a new mapping's, CH4
        HubRig rig;
        QVERIFY(rig.startCarTransmission());
        TavrixController *controller = rig.controller();
        const InputDevice *wheel = controller->devices()->device(DeviceRole::WheelBase);
        ButtonDialogs dialogs(controller);
        ButtonMappingEditor *editor = dialogs.buttons.editor();
        const auto press = [&](int button, bool down) {
            rig.backend->setButton(rig.firstDevice, button, down);
            QTRY_COMPARE_WITH_TIMEOUT(wheel->isPressed(button), down, 10000);
        };
        const auto pressToPick = [&](int button) {
            QVERIFY(dialogs.buttons.isWaitingForPress());
            press(button, true);
            QTRY_VERIFY_WITH_TIMEOUT(!dialogs.buttons.isWaitingForPress(), 10000);
            press(button, false);
        };
        const auto savedExtras = [&] {
            return savedObject(rig.activeProfileBytes(), keys::kButtonMappings, 0).value(keys::kExtraButtons);
        };
        dialogs.buttons.addButton()->click();
        pressToPick(kFirst);
        QVERIFY(!editor->removeExtraButton()->isEnabled());

        editor->addExtraButton()->click();
        pressToPick(kFurther);
        QCOMPARE(savedExtras(), QJsonValue(QJsonArray{kFurther}));
        QVERIFY(
            dialogs.buttons.table()->item(0, 0)->text().contains(ButtonMappingEditor::sourceName(kFurther)));
        // The first control pressed again as a further one adds nothing.
        editor->addExtraButton()->click();
        pressToPick(kFirst);
        QCOMPARE(savedExtras(), QJsonValue(QJsonArray{kFurther}));
        press(kFurther, true);
        QTRY_COMPARE_WITH_TIMEOUT(rig.sim.lastChannels()[kChannel], 2047, 10000);
        press(kFurther, false);
        QTRY_COMPARE_WITH_TIMEOUT(rig.sim.lastChannels()[kChannel], 0, 10000);

        const QList<QAction *> removable = editor->removeExtraButton()->menu()->actions();
        QCOMPARE(removable.size(), 1);
        removable.first()->trigger();
        QTRY_COMPARE(savedExtras(), QJsonValue(QJsonArray{}));
        press(kFurther, true);
        // Frames received well after the removed control went down leave the channel released.
        const quint64 received = rig.sim.channelFrameCount();
        QTRY_VERIFY_WITH_TIMEOUT(rig.sim.channelFrameCount() > received + 5, 10000);
        QCOMPARE(rig.sim.lastChannels()[kChannel], 0);
        QCOMPARE(
            savedObject(rig.activeProfileBytes(), keys::kButtonMappings, 0).value(keys::kButtonIndex).toInt(),
            kFirst);
    }

    void refusalShowsTheMessageAndChangesNothing_data()
    {
        QTest::addColumn<ButtonsEdit>("edit");
        QTest::addColumn<QString>("message");
        QTest::newRow("preset renamed to blanks") << ButtonsEdit([](ButtonDialogs &d) {
            d.presets.list()->setCurrentRow(0);
            d.presets.nameEdit()->setText(u"   "_s);
            d.presets.renameButton()->click();
        }) << u"ESC preset name cannot be empty"_s;
    }

    void refusalShowsTheMessageAndChangesNothing()
    {
        QFETCH(ButtonsEdit, edit);
        QFETCH(QString, message);
        HubRig rig;
        ProfileManager *profiles = rig.services->profiles();
        ButtonMapping horn;
        horn.buttonIndex = 2;
        QVERIFY(ButtonMappingBook(profiles).add(horn));
        QVERIFY(!profiles->escPresets()->createPreset(u"Hobby"_s, 992, 1811, 172).isEmpty());
        ButtonDialogs dialogs(rig.controller());
        const QByteArray profileFile = rig.activeProfileBytes();
        const QByteArray presetFile = fileBytes(profiles->escPresets()->filePath());

        edit(dialogs);

        QCOMPARE(dialogs.presets.notice()->text(), message);
        QCOMPARE(rig.activeProfileBytes(), profileFile);
        QCOMPARE(fileBytes(profiles->escPresets()->filePath()), presetFile);
        // The dialogs show what the stores kept, and so does the controller.
        QCOMPARE(dialogs.buttons.editor()->values().channel, horn.channel);
        QCOMPARE(dialogs.presets.list()->item(0)->text().startsWith(u"Hobby"_s), true);
        QCOMPARE(rig.controller()->settings().buttonMappings,
                 ButtonMappingList{ButtonMappingBook::clamped(horn)});
    }

    void escPresetsTakeTheCurrentValuesIntoTheStore()
    {
        HubRig rig;
        ProfileManager *profiles = rig.services->profiles();
        QCOMPARE(editAxisSettings(*profiles, {{keys::kEscNeutral, 1000},
                                              {keys::kEscFullForward, 1900},
                                              {keys::kEscFullReverse, 100}}),
                 QString());
        ButtonDialogs dialogs(rig.controller());
        const auto saved = [&] {
            return savedObject(fileBytes(profiles->escPresets()->filePath()), keys::kPresets, 0);
        };

        dialogs.presets.nameEdit()->setText(u"Hobby"_s);
        dialogs.presets.createButton()->click();
        QCOMPARE(profiles->escPresets()->presets().size(), 1);
        const EscPreset created = profiles->escPresets()->presets().first();
        QCOMPARE(dialogs.presets.selectedId(), created.id);
        QCOMPARE(EscPreset::fromJson(saved()), (EscPreset{created.id, u"Hobby"_s, 1000, 1900, 100}));

        dialogs.presets.nameEdit()->setText(u"Race"_s);
        dialogs.presets.renameButton()->click();
        QCOMPARE(editAxisSettings(*profiles, {{keys::kEscNeutral, 1010},
                                              {keys::kEscFullForward, 1900},
                                              {keys::kEscFullReverse, 100}}),
                 QString());
        dialogs.presets.updateButton()->click();
        QCOMPARE(EscPreset::fromJson(saved()), (EscPreset{created.id, u"Race"_s, 1010, 1900, 100}));
        QVERIFY(dialogs.presets.notice()->isHidden());
    }

    // The drive dialog names the preset the car runs on only while its values are the preset's.
    void escPresetShownOnlyWhileItsValuesHold()
    {
        HubRig rig;
        ProfileManager *profiles = rig.services->profiles();
        const QString id = profiles->escPresets()->createPreset(u"Hobby"_s, 1000, 1900, 100);
        QVERIFY(!id.isEmpty());
        Dialogs dialogs(rig.controller());
        QComboBox *presets = dialogs.drive.escPresetBox();
        pick(presets, presets->findData(id));
        QCOMPARE(rig.storedValue(keys::kAxisSettings, u"escNeutral"_s), 1000.0);
        QCOMPARE(presets->currentData().toString(), id);

        dialogs.drive.escNeutralBox()->setValue(1010);
        QCOMPARE(rig.storedValue(keys::kAxisSettings, u"escNeutral"_s), 1010.0);
        QCOMPARE(presets->currentData().toString(), QString());
    }

    void refusedEditShowsTheStoresMessageAndKeepsTheFile_data()
    {
        QTest::addColumn<bool>("axisDialog");
        QTest::newRow("drive") << false;
        QTest::newRow("axis") << true;
    }

    void refusedEditShowsTheStoresMessageAndKeepsTheFile()
    {
        QFETCH(bool, axisDialog);
        HubRig rig;
        ProfileManager *profiles = rig.services->profiles();
        Dialogs dialogs(rig.controller());
        QCheckBox *box =
            axisDialog ? dialogs.axis.editor(0)->invertedBox() : dialogs.drive.spikeRejectionBox();
        hub::Notice *notice = axisDialog ? dialogs.axis.notice() : dialogs.drive.notice();
        const bool shown = box->isChecked();
        const QByteArray file = rig.activeProfileBytes();
        QVERIFY(!file.isEmpty());
        QSignalSpy refusals(profiles, &ProfileManager::errorOccurred);
        {
            // A profile file is several kilobytes: no write of one fits.
            FileSizeLimit full(256);
            QVERIFY(full.isActive());
            box->click();
        }
        QCOMPARE(refusals.size(), 1);
        QCOMPARE(notice->text(), refusals.at(0).at(0).toString());
        QCOMPARE(rig.activeProfileBytes(), file);
        // The dialog shows what the store kept, and so does the controller.
        QCOMPARE(box->isChecked(), shown);
        QCOMPARE(rig.controller()->settings().drive.throttleSpikeRejectionEnabled, true);
        QCOMPARE(rig.controller()->settings().axes.steering.inverted, false);
    }

    void pedalsPassOnlyAfterEachWentFullAndBack_data()
    {
        QTest::addColumn<QList<QPointF>>("positions"); // (throttle, brake) in turn
        QTest::addColumn<bool>("passed");
        QTest::newRow("one after the other") << QList<QPointF>{{1, 0}, {0, 0}, {0, 1}, {0, 0}} << true;
        QTest::newRow("both at once") << QList<QPointF>{{1, 1}, {0, 0}} << true;
        QTest::newRow("brake never released") << QList<QPointF>{{1, 0}, {0, 0}, {0, 1}, {0, 0.3}} << false;
        QTest::newRow("throttle rests above the start limit")
            << QList<QPointF>{{0, 1}, {0, 0}, {1, 0}, {0.1, 0}} << false;
        QTest::newRow("brake only to 90%") << QList<QPointF>{{1, 0}, {0, 0}, {0, 0.9}, {0, 0}} << false;
        QTest::newRow("released before pressed counts for nothing")
            << QList<QPointF>{{0, 0}, {0, 1}, {0, 0}} << false;
    }

    void pedalsPassOnlyAfterEachWentFullAndBack()
    {
        QFETCH(QList<QPointF>, positions);
        QFETCH(bool, passed);
        HubRig rig;
        rig.plugCarControllers();
        TavrixController *controller = rig.controller();
        QVERIFY(controller->connectDevice(DeviceRole::WheelBase, rig.firstDevice));
        QVERIFY(controller->connectDevice(DeviceRole::Pedals, rig.secondDevice));
        PedalVerifyDialog dialog(PedalVerification::kReleasedLimit, PedalVerification::kFullyPressed);
        auto *binder = new PedalVerifyDialogBinder(&dialog, controller);

        for (const QPointF &pedals : positions) {
            rig.setPedals(pedals.x(), pedals.y());
            QTRY_VERIFY(qAbs(controller->throttle() - pedals.x()) < 0.01 &&
                        qAbs(controller->brake() - pedals.y()) < 0.01);
        }
        QCOMPARE(binder->passed(), passed);
        QTRY_COMPARE(dialog.showsPassed(), passed);
    }
};

QTEST_MAIN(TestConfigDialogs)
#include "tst_configdialogs.moc"
