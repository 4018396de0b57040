#include "carpage.h"
#include "dialogregistry.h"
#include "dialogwiring.h"
#include "helipage.h"
#include "hubservices.h"
#include "leddialog.h"
#include "leddialogbinder.h"
#include "motionoutputbinder.h"
#include "motionoutputdialog.h"
#include "radiocalibrationbinder.h"
#include "radiocalibrationdialog.h"
#include "receivercard.h"
#include "tavrixcontroller.h"
#include "transmissiondialog.h"
#include "transmissiondialogbinder.h"
#include "transmittercard.h"
#include "wheelffbdialog.h"
#include "wheelffbdialogbinder.h"

namespace tavrix {

namespace {

const QString kTransmissionDialog = QStringLiteral("transmission");
const QString kMotionOutputDialog = QStringLiteral("motion-output");
const QString kWheelFfbDialog = QStringLiteral("ffb");
const QString kLedDialog = QStringLiteral("led");
const QString kRadioCalibrationDialog = QStringLiteral("radio-cal");

} // namespace

void wireVehicleDialogs(const DialogWiring &wiring)
{
    TavrixController *controller = wiring.services.controller();
    wiring.dialogs.add(kTransmissionDialog, [controller](QWidget *parent) {
        auto *dialog = new TransmissionDialog(parent);
        new TransmissionDialogBinder(dialog, controller, dialog);
        return dialog;
    });
    for (VehiclePage *page : std::initializer_list<VehiclePage *>{wiring.car, wiring.heli})
        QObject::connect(page->transmitterCard(), &TransmitterCard::settingsRequested, wiring.context,
                         wiring.opener(kTransmissionDialog));

    auto *motionOutput = new MotionOutputBinder(wiring.services.motionOutput(), wiring.context);
    wiring.dialogs.add(kMotionOutputDialog, [motionOutput](QWidget *parent) {
        auto *dialog = new MotionOutputDialog(parent);
        motionOutput->bindDialog(dialog);
        return dialog;
    });
    QObject::connect(wiring.car, &CarPage::motionOutputRequested, wiring.context,
                     wiring.opener(kMotionOutputDialog));

    wiring.dialogs.add(kWheelFfbDialog, [controller](QWidget *parent) {
        auto *dialog = new WheelFfbDialog(parent);
        new WheelFfbDialogBinder(dialog, controller);
        return dialog;
    });
    QObject::connect(wiring.car, &CarPage::forceFeedbackRequested, wiring.context,
                     wiring.opener(kWheelFfbDialog));

    wiring.dialogs.add(kLedDialog, [controller](QWidget *parent) {
        auto *dialog = new LedDialog(LedDialogBinder::limits(), parent);
        new LedDialogBinder(dialog, controller);
        return dialog;
    });
    wiring.dialogs.add(kRadioCalibrationDialog, [controller](QWidget *parent) {
        auto *dialog = new RadioCalibrationDialog(parent);
        new RadioCalibrationBinder(dialog, controller);
        return dialog;
    });
    ReceiverCard *receiver = wiring.car->receiverCard();
    QObject::connect(receiver, &ReceiverCard::ledRequested, wiring.context, wiring.opener(kLedDialog));
    QObject::connect(receiver, &ReceiverCard::calibrationRequested, wiring.context,
                     wiring.opener(kRadioCalibrationDialog));
}

} // namespace tavrix
