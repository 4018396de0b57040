#include "dialogregistry.h"
#include "dialogwiring.h"
#include "firmwaredialog.h"
#include "firmwaredialogbinder.h"
#include "hubservices.h"
#include "infopage.h"
#include "serialportdirectory.h"
#include "tavrixcontroller.h"

namespace tavrix {

namespace {

const QString kReceiverV4FirmwareDialog = QStringLiteral("fw-receiver-v4");

} // namespace

void wireFirmwareDialogs(const DialogWiring &wiring)
{
    TavrixController *controller = wiring.services.controller();
    wiring.dialogs.add(kReceiverV4FirmwareDialog, [controller](QWidget *parent) {
        auto *dialog =
            new FirmwareDialog(FirmwareDialog::Row::FirmwareFile | FirmwareDialog::Row::Port, parent);
        new ReceiverV4FirmwareBinder(
            dialog,
            [controller] {
                QStringList names;
                for (const SerialPortDescription &port : controller->portDirectory().ports())
                    names.append(port.portName);
                return names;
            },
            dialog);
        return dialog;
    });
    QObject::connect(wiring.info, &InfoPage::firmwareUpdatesRequested, wiring.context,
                     wiring.opener(kReceiverV4FirmwareDialog));
}

} // namespace tavrix
