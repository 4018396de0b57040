#include "dashboardsettingsdialogbinder.h"

#include "profileedits.h"
#include "telemetrycatalogue.h"
#include "telemetrysensorbook.h"

namespace tavrix {

DashboardSettingsDialogBinder::DashboardSettingsDialogBinder(DashboardSettingsDialog *dialog,
                                                             TelemetrySensorBook *sensors,
                                                             ProfileManager *profiles)
    : QObject(dialog)
    , m_dialog(dialog)
    , m_sensors(sensors)
    , m_profiles(profiles)
{
    connect(dialog, &DashboardSettingsDialog::chosen, this, &DashboardSettingsDialogBinder::choose);
    connect(sensors, &TelemetrySensorBook::dashboardChanged, this,
            &DashboardSettingsDialogBinder::showStored);
    showTiles();
}

void DashboardSettingsDialogBinder::showStored()
{
    if (m_sensors->pinned() != m_dialog->chosenKeys())
        showTiles();
}

void DashboardSettingsDialogBinder::showTiles()
{
    // The chosen readings first, in the profile's order, then the rest in the catalogue's.
    QList<DashboardSettingsDialog::Tile> tiles;
    const QStringList pinned = m_sensors->pinned();
    for (const QString &key : pinned)
        tiles.append({key, true});
    for (const QString &key : telemetrycatalogue::allKeys()) {
        if (!pinned.contains(key))
            tiles.append({key, false});
    }
    m_dialog->showTiles(tiles);
}

void DashboardSettingsDialogBinder::choose(const QStringList &keys)
{
    const QString refusal = storeRefusal(*m_profiles, [&] { return m_sensors->setPinned(keys); });
    m_dialog->showError(refusal);
    if (!refusal.isEmpty())
        showTiles();
}

} // namespace tavrix
