#include "axismappingdialog.h"
#include "axismappingdialogbinder.h"
#include "axispreset.h"
#include "axissettingsdialog.h"
#include "axissettingsdialogbinder.h"
#include "carpage.h"
#include "deviceroleset.h"
#include "dialogregistry.h"
#include "dialogwiring.h"
#include "drivesettingsdialog.h"
#include "drivesettingsdialogbinder.h"
#include "hubservices.h"
#include "inputdevice.h"
#include "pedalverification.h"
#include "pedalverifydialog.h"
#include "pedalverifydialogbinder.h"
#include "tavrixcontroller.h"

namespace tavrix {

namespace {

const QString kAxisDialog = QStringLiteral("axis");
const QString kDriveDialog = QStringLiteral("drive");
const QString kPedalVerifyDialog = QStringLiteral("pedal-verify");

// Lets the axis dialog open a device's custom mapping, as a dialog of its own above it.
void offerCustomAxisMapping(AxisSettingsDialog *axis, TavrixController *controller)
{
    QObject::connect(axis, &AxisSettingsDialog::customMappingRequested, axis,
                     [axis, controller](AxisSettingsDialog::MappedDevice mapped) {
                         const DeviceRole role = mapped == AxisSettingsDialog::MappedDevice::WheelBase
                                                     ? DeviceRole::WheelBase
                                                     : DeviceRole::Pedals;
                         if (!controller->devices()->isConnected(role))
                             return;
                         auto *dialog =
                             new AxisMappingDialog(controller->devices()->device(role)->deviceName(),
                                                   AxisMappingDialogBinder::axisSlots(), axis);
                         dialog->setAttribute(Qt::WA_DeleteOnClose);
                         new AxisMappingDialogBinder(dialog, controller, role);
                         dialog->open();
                     });
}

} // namespace

void wireConfigurationDialogs(const DialogWiring &wiring)
{
    TavrixController *controller = wiring.services.controller();
    const auto openPedalVerify = wiring.opener(kPedalVerifyDialog);
    wiring.dialogs.add(kAxisDialog, [controller, openPedalVerify](QWidget *parent) {
        auto *dialog = new AxisSettingsDialog(AxisSettingsDialogBinder::limits(), presetNames(), parent);
        new AxisSettingsDialogBinder(dialog, controller);
        offerCustomAxisMapping(dialog, controller);
        QObject::connect(dialog, &AxisSettingsDialog::pedalVerifyRequested, dialog, openPedalVerify);
        return dialog;
    });
    wiring.dialogs.add(kDriveDialog, [controller](QWidget *parent) {
        auto *dialog = new DriveSettingsDialog(DriveSettingsDialogBinder::limits(), parent);
        new DriveSettingsDialogBinder(dialog, controller);
        offerEscPresets(dialog, controller->profileManager());
        return dialog;
    });
    wiring.dialogs.add(kPedalVerifyDialog, [controller](QWidget *parent) {
        auto *dialog = new PedalVerifyDialog(PedalVerification::kReleasedLimit,
                                             PedalVerification::kFullyPressed, parent);
        new PedalVerifyDialogBinder(dialog, controller);
        return dialog;
    });
    QObject::connect(wiring.car, &CarPage::axisSettingsRequested, wiring.context, wiring.opener(kAxisDialog));
    QObject::connect(wiring.car, &CarPage::driveSettingsRequested, wiring.context,
                     wiring.opener(kDriveDialog));
}

} // namespace tavrix
