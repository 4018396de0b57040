#include "buttonmappingsdialog.h"
#include "buttonmappingsdialogbinder.h"
#include "carpage.h"
#include "dialogregistry.h"
#include "dialogwiring.h"
#include "drivesettingsdialog.h"
#include "escpresetsdialog.h"
#include "escpresetsdialogbinder.h"
#include "helipage.h"
#include "hubservices.h"
#include "profilemanager.h"

namespace tavrix {

namespace {

const QString kButtonsDialog = QStringLiteral("buttons");

} // namespace

void wireButtonDialogs(const DialogWiring &wiring)
{
    TavrixController *controller = wiring.services.controller();
    wiring.dialogs.add(kButtonsDialog, [controller](QWidget *parent) {
        auto *dialog = new ButtonMappingsDialog(ButtonMappingsDialogBinder::limits(), parent);
        new ButtonMappingsDialogBinder(dialog, controller);
        return dialog;
    });
    QObject::connect(wiring.car, &CarPage::buttonsRequested, wiring.context, wiring.opener(kButtonsDialog));
    QObject::connect(wiring.heli, &HeliPage::buttonsRequested, wiring.context, wiring.opener(kButtonsDialog));
}

void offerEscPresets(DriveSettingsDialog *drive, ProfileManager *profiles)
{
    QObject::connect(drive, &DriveSettingsDialog::escPresetsRequested, drive, [drive, profiles] {
        auto *dialog = new EscPresetsDialog(EscPresetStore::kMaxNameLength, drive);
        dialog->setAttribute(Qt::WA_DeleteOnClose);
        new EscPresetsDialogBinder(dialog, profiles);
        dialog->open();
    });
}

} // namespace tavrix
