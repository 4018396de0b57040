#include "dialogregistry.h"
#include "dialogwiring.h"
#include "firmwaredialog.h"
#include "firmwaredialogbinder.h"
#include "hubservices.h"
#include "infopage.h"
#include "receiverconfigmanager.h"
#include "receiverport.h"
#include "serialportdirectory.h"
#include "servicefirmwarebinder.h"
#include "tavrixcontroller.h"

#include <QAction>

namespace tavrix {

namespace {

const QString kReceiverFirmwareDialog = QStringLiteral("fw-receiver");
const QString kReceiverV4FirmwareDialog = QStringLiteral("fw-receiver-v4");
const QString kSocFirmwareDialog = QStringLiteral("fw-soc-v2");

std::function<QStringList()> portNames(TavrixController *controller)
{
    return [controller] {
        QStringList names;
        for (const SerialPortDescription &port : controller->portDirectory().ports())
            names.append(port.portName);
        return names;
    };
}

// The receiver's latest release from the update server, written over its cable by the same
// flasher as a file would be. The receiver's console, when open on that cable, gives it up first.
ServiceFirmwareBinder::Target receiverTarget(TavrixController *controller)
{
    ServiceFirmwareBinder::Target target;
    target.device = FirmwareDevice::Receiver;
    target.name = ServiceFirmwareBinder::tr("Orvane receiver");
    target.notes = ServiceFirmwareBinder::tr(
        "Checks the update server for the receiver's latest firmware and writes it over the USB-UART "
        "cable on the receiver's J14 header. A receiver console open on that port is closed first.");
    target.runningVersion = [controller] { return controller->receiverConfig()->caps().firmware; };
    target.ports = portNames(controller);
    target.prepareUpdate = [controller](const QString &port) {
        // The car must not be driven while its receiver restarts into the bootloader.
        if (controller->isRunning())
            return ServiceFirmwareBinder::tr("Stop transmission before updating firmware.");
        ReceiverPort *console = controller->receiverPort();
        if (console->isConnected() && console->portName() == port)
            console->disconnectReceiver();
        return QString();
    };
    return target;
}

// The transmitter's companion processor: the service says honestly that it cannot reach it.
ServiceFirmwareBinder::Target socTarget()
{
    ServiceFirmwareBinder::Target target;
    target.device = FirmwareDevice::Soc;
    target.name = ServiceFirmwareBinder::tr("Transmitter SoC (companion processor)");
    return target;
}

} // namespace

void wireFirmwareDialogs(const DialogWiring &wiring)
{
    TavrixController *controller = wiring.services.controller();
    FirmwareUpdateService *updates = wiring.services.firmwareUpdates();
    wiring.dialogs.add(kReceiverFirmwareDialog, [controller, updates](QWidget *parent) {
        auto *dialog = new FirmwareDialog(FirmwareDialog::Row::Port | FirmwareDialog::Row::Check, parent);
        new ServiceFirmwareBinder(dialog, updates, receiverTarget(controller), dialog);
        return dialog;
    });
    wiring.dialogs.add(kReceiverV4FirmwareDialog, [controller](QWidget *parent) {
        auto *dialog = new FirmwareDialog(FirmwareDialog::Row::FirmwareFile | FirmwareDialog::Row::Port |
                                              FirmwareDialog::Row::ReadBoard,
                                          parent);
        new ReceiverV4FirmwareBinder(dialog, portNames(controller), dialog);
        return dialog;
    });
    wiring.dialogs.add(kSocFirmwareDialog, [updates](QWidget *parent) {
        auto *dialog = new FirmwareDialog(FirmwareDialog::Row::Check, parent);
        new ServiceFirmwareBinder(dialog, updates, socTarget(), dialog);
        return dialog;
    });

    const struct
    {
        const char *text;
        const QString &key;
    } choices[] = {
        {QT_TRANSLATE_NOOP("tavrix::ServiceFirmwareBinder", "Receiver (from the update server)"),
         kReceiverFirmwareDialog},
        {QT_TRANSLATE_NOOP("tavrix::ServiceFirmwareBinder", "Receiver V4 (from a firmware file)"),
         kReceiverV4FirmwareDialog},
        {QT_TRANSLATE_NOOP("tavrix::ServiceFirmwareBinder", "Transmitter SoC"), kSocFirmwareDialog},
    };
    for (const auto &choice : choices) {
        QAction *action = wiring.info->addFirmwareUpdate(ServiceFirmwareBinder::tr(choice.text));
        QObject::connect(action, &QAction::triggered, wiring.context, wiring.opener(choice.key));
    }
}

} // namespace tavrix
