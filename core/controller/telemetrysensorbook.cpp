#include "telemetrysensorbook.h"

#include "dashboardkeys.h"
#include "profilekeys.h"
#include "profilemanager.h"
#include "telemetrymonitor.h"

#include <QDateTime>
#include <QJsonArray>
#include <QJsonObject>
#include <QSet>

namespace tavrix {

namespace keys = profilekeys;

TelemetrySensorBook::TelemetrySensorBook(TelemetryMonitor *monitor, ProfileManager *profiles, QObject *parent)
    : QObject(parent)
    , m_monitor(monitor)
    , m_profiles(profiles)
{
    connect(m_monitor, &TelemetryMonitor::telemetrySensorListChanged, this,
            &TelemetrySensorBook::discoverNewSensors);
    // Every profile keeps its own labels and dashboard.
    connect(m_profiles, &ProfileManager::activeProfileChanged, this, [this] {
        emit sensorsChanged();
        emit dashboardChanged();
    });
}

QList<TelemetrySensorBook::Sensor> TelemetrySensorBook::sensors() const
{
    const TelemetryCatalogue &catalogue = m_monitor->catalogue();
    const QStringList pins = pinned();
    const qint64 now = QDateTime::currentMSecsSinceEpoch();
    const auto sensor = [&](const QString &id, const QString &label) {
        Sensor s{id, label.isEmpty() ? id : label, id, {}, true, pins.contains(id)};
        for (const TelemetrySensor &reading : catalogue) {
            if (reading.key == id) {
                s.value = reading.value;
                s.stale = m_monitor->isStale(reading, now);
            }
        }
        return s;
    };

    QList<Sensor> list;
    QSet<QString> listed;
    for (const Known &k : known()) {
        list.append(sensor(k.id, k.label));
        listed.insert(k.id);
    }
    // Discovery stores new sensors as they come; until it has, they are shown all the same.
    if (isDiscoveryEnabled()) {
        for (const TelemetrySensor &reading : catalogue) {
            if (!listed.contains(reading.key))
                list.append(sensor(reading.key, {}));
        }
    }
    return list;
}

QStringList TelemetrySensorBook::pinned() const
{
    QStringList ids;
    for (const QJsonValue &key : m_profiles->setting(keys::kTelemetryDashboard).toArray()) {
        if (!key.toString().isEmpty())
            ids.append(dashboardkeys::catalogueKey(key.toString()));
    }
    return ids;
}

bool TelemetrySensorBook::isDiscoveryEnabled() const
{
    return m_profiles->setting(keys::kTelemetryDiscover).toBool(true);
}

bool TelemetrySensorBook::hasSensor(const QString &id) const
{
    for (const Known &k : known()) {
        if (k.id == id)
            return true;
    }
    const TelemetryCatalogue &catalogue = m_monitor->catalogue();
    return std::any_of(catalogue.cbegin(), catalogue.cend(),
                       [&id](const TelemetrySensor &reading) { return reading.key == id; });
}

bool TelemetrySensorBook::setPinned(const QStringList &ids)
{
    QStringList unique;
    for (const QString &id : ids) {
        if (!id.isEmpty() && !unique.contains(id))
            unique.append(id);
    }
    if (unique.size() > kMaxPinned)
        return false;
    return storePinned(unique);
}

bool TelemetrySensorBook::setDiscoveryEnabled(bool enabled)
{
    if (!m_profiles->setSetting(keys::kTelemetryDiscover, enabled))
        return false;
    emit sensorsChanged();
    if (enabled)
        discoverNewSensors();
    return true;
}

bool TelemetrySensorBook::rename(const QString &id, const QString &label)
{
    if (!hasSensor(id))
        return false;
    const QString wanted = label.trimmed().left(kMaxLabelLength);
    QList<Known> list = known();
    auto it = std::find_if(list.begin(), list.end(), [&id](const Known &k) { return k.id == id; });
    if (it == list.end())
        it = list.insert(list.end(), Known{id, {}});
    it->label = wanted == id ? QString() : wanted;
    if (!storeKnown(list))
        return false;
    emit sensorsChanged();
    return true;
}

bool TelemetrySensorBook::remove(const QString &id)
{
    if (!hasSensor(id))
        return false;
    QList<Known> list = known();
    list.removeIf([&id](const Known &k) { return k.id == id; });
    QStringList pins = pinned();
    const bool wasPinned = pins.removeAll(id) > 0;
    if (!storeKnown(list) || (wasPinned && !storePinned(pins)))
        return false;
    m_monitor->forgetSensor(id);
    emit sensorsChanged();
    return true;
}

bool TelemetrySensorBook::clear()
{
    if (!storeKnown({}) || !storePinned({}))
        return false;
    m_monitor->forgetAllSensors();
    emit sensorsChanged();
    return true;
}

QList<TelemetrySensorBook::Known> TelemetrySensorBook::known() const
{
    QList<Known> list;
    for (const QJsonValue &entry : m_profiles->setting(keys::kTelemetrySensors).toArray()) {
        const QJsonObject o = entry.toObject();
        const QString id = o.value(keys::kSensorKey).toString();
        if (!id.isEmpty())
            list.append({id, o.value(keys::kSensorLabel).toString()});
    }
    return list;
}

bool TelemetrySensorBook::storeKnown(const QList<Known> &known)
{
    QJsonArray entries;
    for (const Known &k : known)
        entries.append(QJsonObject{{keys::kSensorKey, k.id}, {keys::kSensorLabel, k.label}});
    return m_profiles->setSetting(keys::kTelemetrySensors, entries);
}

bool TelemetrySensorBook::storePinned(const QStringList &ids)
{
    QJsonArray entries;
    for (const QString &id : ids)
        entries.append(dashboardkeys::profileKey(id));
    if (m_profiles->setting(keys::kTelemetryDashboard).toArray() == entries)
        return true;
    if (!m_profiles->setSetting(keys::kTelemetryDashboard, entries))
        return false;
    emit dashboardChanged();
    return true;
}

void TelemetrySensorBook::discoverNewSensors()
{
    if (!isDiscoveryEnabled())
        return;
    QList<Known> list = known();
    QSet<QString> listed;
    for (const Known &k : std::as_const(list))
        listed.insert(k.id);
    const qsizetype before = list.size();
    for (const TelemetrySensor &reading : m_monitor->catalogue()) {
        if (!listed.contains(reading.key))
            list.append({reading.key, {}});
    }
    // Only a key the car reports for the first time writes the profile, never a reading.
    if (list.size() != before && storeKnown(list))
        emit sensorsChanged();
}

} // namespace tavrix
