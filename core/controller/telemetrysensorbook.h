#pragma once

#include <QList>
#include <QObject>
#include <QString>
#include <QStringList>

namespace tavrix {

class ProfileManager;
class TelemetryMonitor;

// The user's telemetry choices, kept in the active profile, seen together with the live
// sensor catalogue: which sensors are known and under what label, which are pinned to the
// dashboard, and whether sensors the car reports for the first time are added by
// themselves (discovery). With discovery off, only the known sensors are listed.
class TelemetrySensorBook : public QObject
{
    Q_OBJECT

public:
    // Beyond these the request is refused or cut: the lists live in the profile and are
    // read by every view, so nothing from outside may grow them without bound.
    static constexpr int kMaxPinned = 64;
    static constexpr int kMaxLabelLength = 64;

    struct Sensor
    {
        QString id; // the catalogue key, such as "1RSS"
        QString label;
        QString defaultLabel;
        QString value; // empty until the car reports it
        bool stale = true;
        bool pinned = false;
    };

    // Neither collaborator is owned; both must outlive the book.
    TelemetrySensorBook(TelemetryMonitor *monitor, ProfileManager *profiles, QObject *parent = nullptr);

    [[nodiscard]] QList<Sensor> sensors() const;
    // Catalogue keys, in the dashboard's order.
    [[nodiscard]] QStringList pinned() const;
    [[nodiscard]] bool isDiscoveryEnabled() const;
    // Known or reporting now.
    [[nodiscard]] bool hasSensor(const QString &id) const;

    // Each returns false when refused (unknown sensor, too many pins) or not stored;
    // nothing changes then.
    bool setPinned(const QStringList &ids);
    bool setDiscoveryEnabled(bool enabled);
    // An empty label, or the default one, gives the sensor its default label back.
    bool rename(const QString &id, const QString &label);
    // Forgets the sensor: its label, its pin and its reading.
    bool remove(const QString &id);
    bool clear();

signals:
    // The listed sensors or their labels changed (not their readings).
    void sensorsChanged();
    void dashboardChanged();

private:
    struct Known
    {
        QString id;
        QString label;
    };
    [[nodiscard]] QList<Known> known() const;
    bool storeKnown(const QList<Known> &known);
    bool storePinned(const QStringList &ids);
    void discoverNewSensors();

    TelemetryMonitor *m_monitor;
    ProfileManager *m_profiles;
};

} // namespace tavrix
