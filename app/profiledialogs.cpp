#include "carpage.h"
#include "dashboardpage.h"
#include "dashboardsettingsdialog.h"
#include "dashboardsettingsdialogbinder.h"
#include "dialogregistry.h"
#include "dialogwiring.h"
#include "helipage.h"
#include "hubservices.h"
#include "profilesdialog.h"
#include "profilesdialogbinder.h"
#include "tavrixcontroller.h"
#include "telemetrysensorbook.h"

namespace tavrix {

namespace {

const QString kProfilesDialog = QStringLiteral("profiles");
const QString kDashboardSettingsDialog = QStringLiteral("dash-settings");

} // namespace

void wireProfileDialogs(const DialogWiring &wiring)
{
    TavrixController *controller = wiring.services.controller();
    wiring.dialogs.add(kProfilesDialog, [controller](QWidget *parent) {
        auto *dialog = new ProfilesDialog(parent);
        new ProfilesDialogBinder(dialog, controller->profileManager());
        return dialog;
    });
    for (VehiclePage *page : std::initializer_list<VehiclePage *>{wiring.car, wiring.heli})
        QObject::connect(page, &VehiclePage::profilesRequested, wiring.context,
                         wiring.opener(kProfilesDialog));

    wiring.dialogs.add(kDashboardSettingsDialog, [controller](QWidget *parent) {
        auto *dialog = new DashboardSettingsDialog(TelemetrySensorBook::kMaxLabelLength, parent);
        new DashboardSettingsDialogBinder(dialog, controller->telemetrySensors(),
                                          controller->profileManager());
        return dialog;
    });
    QObject::connect(wiring.dashboard, &DashboardPage::telemetrySettingsRequested, wiring.context,
                     wiring.opener(kDashboardSettingsDialog));
}

} // namespace tavrix
