// The custom axis mapping dialog bound to the real controller and the profile store in a
// temporary folder, with a virtual wheel and pedals: a device no preset fits is mapped on the desk.
#include "axismappingchange.h"
#include "axismappingdialog.h"
#include "axismappingdialogbinder.h"
#include "axissettingsdialog.h"
#include "axissettingsdialogbinder.h"
#include "carpage.h"
#include "hubrig.h"
#include "inputdevice.h"
#include "notice.h"
#include "profiletestfiles.h"
#include "savedaxismapping.h"

#include <QCheckBox>
#include <QPushButton>
#include <QSignalSpy>

#include <functional>

using namespace tavrix;
using namespace tavrix::testing;
using namespace Qt::StringLiterals;

namespace {

constexpr int kSpareSlot = 6; // an axis the rig's devices leave unmapped
constexpr int kSameSlot = -2; // the input keeps its axis

using MappingEdit = std::function<void(AxisMappingDialog &, HubRig &)>;

} // namespace

Q_DECLARE_METATYPE(MappingEdit)

class TestAxisMappingDialog : public QObject
{
    Q_OBJECT

private slots:
    // Each edit reaches the open device at once and the profile as that product's mapping;
    // the axis dialog then names it "Custom", or the preset it happens to match.
    void editMapsTheDeviceAndIsSavedForTheProduct_data()
    {
        QTest::addColumn<MappingEdit>("edit");
        QTest::addColumn<int>("role");
        QTest::addColumn<int>("input");
        QTest::addColumn<int>("slot");
        QTest::addColumn<bool>("flipped"); // reads the other way round from before
        const int pedals = int(DeviceRole::Pedals);
        QTest::newRow("throttle from the list") << MappingEdit([](AxisMappingDialog &d, HubRig &) {
            pick(d.axisBox(LogicalThrottle), d.axisBox(LogicalThrottle)->findData(kSpareSlot));
        }) << pedals << int(LogicalThrottle) << kSpareSlot
                                                << false;
        QTest::newRow("clutch on no axis")
            << MappingEdit([](AxisMappingDialog &d, HubRig &) { pick(d.axisBox(LogicalClutch), 0); })
            << pedals << int(LogicalClutch) << kUnmappedSlot << false;
        QTest::newRow("brake detected by moving it") << MappingEdit([](AxisMappingDialog &d, HubRig &rig) {
            d.detectButton(LogicalBrake)->click();
            QCOMPARE(d.detecting(), int(LogicalBrake));
            rig.backend->setAxis(rig.secondDevice, kSpareSlot, rawForDeviceValue(0.5));
            QTRY_COMPARE_WITH_TIMEOUT(d.detecting(), -1, 10000);
        }) << pedals << int(LogicalBrake) << kSpareSlot
                                                     << false;
        QTest::newRow("steering inverted")
            << MappingEdit([](AxisMappingDialog &d, HubRig &) { d.invertedBox(LogicalSteering)->click(); })
            << int(DeviceRole::WheelBase) << int(LogicalSteering) << kSameSlot << true;
    }

    void editMapsTheDeviceAndIsSavedForTheProduct()
    {
        QFETCH(MappingEdit, edit);
        QFETCH(int, role);
        QFETCH(int, input);
        QFETCH(int, slot);
        QFETCH(bool, flipped);
        HubRig rig;
        rig.plugCarControllers();
        TavrixController *controller = rig.controller();
        QVERIFY(controller->connectDevice(DeviceRole::WheelBase, rig.firstDevice));
        QVERIFY(controller->connectDevice(DeviceRole::Pedals, rig.secondDevice));
        const DeviceRole mappedRole = DeviceRole(role);
        InputDevice *device = controller->devices()->device(mappedRole);
        // Touched once before, so that the detection takes where it rests from here.
        const int backendDevice = mappedRole == DeviceRole::Pedals ? rig.secondDevice : rig.firstDevice;
        rig.backend->setAxis(backendDevice, kSpareSlot, rawForDeviceValue(-0.5));
        QTRY_VERIFY_WITH_TIMEOUT(device->isAxisActive(kSpareSlot), 10000);
        AxisPreset expected = device->preset();
        if (slot != kSameSlot)
            expected.axisSlots[std::size_t(input)] = slot;
        if (flipped)
            expected.inverted[std::size_t(input)] = !expected.inverted[std::size_t(input)];
        expected.name.clear();
        const int mappedSlot = expected.slot(LogicalInput(input));
        const bool inverted = expected.isInverted(LogicalInput(input));
        AxisSettingsDialog axis(AxisSettingsDialogBinder::limits(), presetNames());
        new AxisSettingsDialogBinder(&axis, controller);
        AxisMappingDialog dialog(device->deviceName(), AxisMappingDialogBinder::axisSlots());
        new AxisMappingDialogBinder(&dialog, controller, mappedRole);
        dialog.show();

        edit(dialog, rig);

        QCOMPARE(device->preset(), expected);
        const AxisMappingRecord saved =
            AxisMappingRecord::fromConnection(rig.services->profiles()->deviceConnection(mappedRole));
        QVERIFY(saved.hasCustomAxisMapping);
        QCOMPARE(saved.axisMapping, expected);
        QVERIFY(dialog.notice()->isHidden());
        const auto shown = role == int(DeviceRole::WheelBase) ? AxisSettingsDialog::MappedDevice::WheelBase
                                                              : AxisSettingsDialog::MappedDevice::Pedals;
        QCOMPARE(axis.presetBox(shown)->currentText(),
                 matchingPresetName(expected).isEmpty() ? u"Custom"_s : matchingPresetName(expected));
        if (mappedSlot != kUnmappedSlot) {
            // The input now reads that axis, the way round the mapping says.
            rig.backend->setAxis(backendDevice, mappedSlot, rawForDeviceValue(0.3));
            QTRY_VERIFY_WITH_TIMEOUT(qAbs(device->axis(mappedSlot) - 0.3f) < 0.01f, 10000);
            QCOMPARE(device->logicalValue(input),
                     inverted ? -device->axis(mappedSlot) : device->axis(mappedSlot));
        } else {
            QCOMPARE(device->logicalValue(input), 0.0f);
        }
    }

    // The axes dialog opens the mapping of a connected device, and offers none for a device
    // not connected.
    void axesDialogOpensTheMappingOfItsDevice()
    {
        HubRig rig;
        rig.plugCarControllers();
        QVERIFY(rig.controller()->connectDevice(DeviceRole::WheelBase, rig.firstDevice));
        auto *car = rig.showPage<CarPage>(u"rc-car"_s);
        QVERIFY(car);
        car->configureButtons().at(0)->click();
        auto *axes = rig.window->findChild<AxisSettingsDialog *>();
        QVERIFY(axes);
        QVERIFY(!axes->customButton(AxisSettingsDialog::MappedDevice::Pedals)->isEnabled());

        axes->customButton(AxisSettingsDialog::MappedDevice::WheelBase)->click();

        auto *mapping = axes->findChild<AxisMappingDialog *>();
        QVERIFY(mapping);
        QVERIFY(mapping->isVisible());
        const InputDevice *wheel = rig.controller()->devices()->device(DeviceRole::WheelBase);
        QVERIFY(mapping->windowTitle().contains(wheel->deviceName()));
        QCOMPARE(mapping->values().axes[LogicalSteering], wheel->preset().slot(LogicalSteering));
    }

    // A mapping the profile could not keep is not left in force on the device either: it
    // would be lost on the next start while the car drove on it now.
    void refusedWriteShowsTheStoresMessageAndKeepsTheMapping()
    {
        HubRig rig;
        rig.plugCarControllers();
        TavrixController *controller = rig.controller();
        QVERIFY(controller->connectDevice(DeviceRole::Pedals, rig.secondDevice));
        InputDevice *pedals = controller->devices()->device(DeviceRole::Pedals);
        const AxisPreset before = pedals->preset();
        const QByteArray file = rig.activeProfileBytes();
        AxisMappingDialog dialog(pedals->deviceName(), AxisMappingDialogBinder::axisSlots());
        new AxisMappingDialogBinder(&dialog, controller, DeviceRole::Pedals);
        QSignalSpy refusals(rig.services->profiles(), &ProfileManager::errorOccurred);
        {
            // A profile file is several kilobytes: no write of one fits.
            FileSizeLimit full(256);
            QVERIFY(full.isActive());
            dialog.invertedBox(LogicalBrake)->click();
        }
        QCOMPARE(refusals.size(), 1);
        QCOMPARE(dialog.notice()->text(), refusals.at(0).at(0).toString());
        QCOMPARE(pedals->preset(), before);
        QCOMPARE(rig.activeProfileBytes(), file);
        QCOMPARE(dialog.invertedBox(LogicalBrake)->isChecked(), before.isInverted(LogicalBrake));
    }

    // While the car transmits, a mapping could hand the throttle to another axis under it:
    // the dialog offers nothing, and an edit on its way changes nothing.
    void nothingIsMappedWhileTransmitting()
    {
        HubRig rig;
        QVERIFY(rig.startCarTransmission());
        TavrixController *controller = rig.controller();
        InputDevice *pedals = controller->devices()->device(DeviceRole::Pedals);
        const AxisPreset before = pedals->preset();
        AxisMappingDialog dialog(pedals->deviceName(), AxisMappingDialogBinder::axisSlots());
        new AxisMappingDialogBinder(&dialog, controller, DeviceRole::Pedals);
        QVERIFY(!dialog.axisBox(LogicalThrottle)->isEnabled());
        QVERIFY(!dialog.detectButton(LogicalThrottle)->isEnabled());

        AxisMappingDialog::Values values = dialog.values();
        values.axes[LogicalThrottle] = kSpareSlot;
        emit dialog.edited(values);
        emit dialog.detectRequested(LogicalBrake);

        QCOMPARE(pedals->preset(), before);
        QCOMPARE(dialog.detecting(), -1);
        QVERIFY(
            !AxisMappingRecord::fromConnection(rig.services->profiles()->deviceConnection(DeviceRole::Pedals))
                 .hasCustomAxisMapping);

        controller->stopTransmission();
        QVERIFY(dialog.axisBox(LogicalThrottle)->isEnabled());
    }
};

QTEST_MAIN(TestAxisMappingDialog)
#include "tst_axismappingdialog.moc"
