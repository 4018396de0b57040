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
    connect(dialog, &DashboardSettingsDialog::renamed, this, &DashboardSettingsDialogBinder::rename);
    connect(dialog, &DashboardSettingsDialog::discoveryToggled, this,
            &DashboardSettingsDialogBinder::setDiscovery);
    connect(sensors, &TelemetrySensorBook::dashboardChanged, this,
            &DashboardSettingsDialogBinder::showStored);
    connect(sensors, &TelemetrySensorBook::sensorsChanged, this, &DashboardSettingsDialogBinder::showTiles);
    dialog->showDiscovery(sensors->isDiscoveryEnabled());
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
    QHash<QString, QString> labels;
    for (const TelemetrySensorBook::Sensor &sensor : m_sensors->sensors())
        labels.insert(sensor.id, sensor.label);
    const auto tile = [&labels](const QString &key, bool shown) {
        return DashboardSettingsDialog::Tile{key, labels.value(key), shown, labels.contains(key)};
    };
    QList<DashboardSettingsDialog::Tile> tiles;
    const QStringList pinned = m_sensors->pinned();
    for (const QString &key : pinned)
        tiles.append(tile(key, true));
    for (const QString &key : telemetrycatalogue::allKeys()) {
        if (!pinned.contains(key))
            tiles.append(tile(key, false));
    }
    m_dialog->showTiles(tiles);
}

void DashboardSettingsDialogBinder::rename(const QString &key, const QString &label)
{
    const QString refusal = storeRefusal(*m_profiles, [&] { return m_sensors->rename(key, label); });
    m_dialog->showError(refusal);
    if (!refusal.isEmpty())
        showTiles();
}

void DashboardSettingsDialogBinder::setDiscovery(bool enabled)
{
    const QString refusal =
        storeRefusal(*m_profiles, [&] { return m_sensors->setDiscoveryEnabled(enabled); });
    m_dialog->showError(refusal);
    m_dialog->showDiscovery(m_sensors->isDiscoveryEnabled());
}

void DashboardSettingsDialogBinder::choose(const QStringList &keys)
{
    const QString refusal = storeRefusal(*m_profiles, [&] { return m_sensors->setPinned(keys); });
    m_dialog->showError(refusal);
    if (!refusal.isEmpty())
        showTiles();
}

} // namespace tavrix
