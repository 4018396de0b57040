#pragma once

#include "dashboardsettingsdialog.h"

#include <QObject>

namespace tavrix {

class ProfileManager;
class TelemetrySensorBook;

// Binds one dashboard settings dialog to the active profile's dashboard list, sensor labels
// and discovery for as long as the dialog lives. Every reading the telemetry catalogue can
// bring is offered; a choice, a label or the discovery switch goes through the sensor book,
// the same entry point the mobile app uses, so the dashboard follows at once; the store's
// refusal is shown and the dialog shows what was kept.
class DashboardSettingsDialogBinder : public QObject
{
    Q_OBJECT
public:
    // Parented to the dialog; the book and the store must outlive it.
    DashboardSettingsDialogBinder(DashboardSettingsDialog *dialog, TelemetrySensorBook *sensors,
                                  ProfileManager *profiles);

private:
    // Only when the stored list is not what the dialog shows, so an unticked reading stays
    // where the user left it.
    void showStored();
    void showTiles();
    void choose(const QStringList &keys);
    void rename(const QString &key, const QString &label);
    void setDiscovery(bool enabled);

    DashboardSettingsDialog *m_dialog;
    TelemetrySensorBook *m_sensors;
    ProfileManager *m_profiles;
};

} // namespace tavrix
