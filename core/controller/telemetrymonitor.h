#pragma once

#include "controllertimings.h"
#include "controllertypes.h"
#include "crsftypes.h"
#include "telemetrycatalogue.h"

#include <QElapsedTimer>
#include <QObject>

#include <array>

class QTimer;

namespace tavrix {

// What the car's receiver reports while the hub transmits: whether the car is linked,
// the sensor catalogue and which of its readings went stale, GPS, attitude and battery,
// and the receiver's motion record with the force-feedback state that follows it.
// Fed with every decoded frame; keeps its own monitor and motion-wait timers.
class TelemetryMonitor : public QObject
{
    Q_OBJECT
public:
    // A 0x50 frame carries a vehicle record when it is at least this long and its second
    // byte is the marker; the record starts at the third byte.
    static constexpr int kWrappedRecordMinSize = 9;
    static constexpr uint8_t kWrappedRecordMarker = 0xCA;

    explicit TelemetryMonitor(const ControllerTimings &timings, QObject *parent = nullptr);

    // How a 0x08 frame is read (crsf::kReceiverGeneration*), from the active profile.
    void setReceiverGeneration(int generation) { m_receiverGeneration = generation; }
    [[nodiscard]] int receiverGeneration() const { return m_receiverGeneration; }

    // Transmission started: wait for the receiver's motion data.
    void transmissionStarted();
    // Transmission stopped: stop waiting; "receiving" is left as it is.
    void transmissionStopped();

    [[nodiscard]] bool isCarLinked() const { return m_carLinked; }
    // Whether any link statistics came since the hub started (the record is zero before).
    [[nodiscard]] bool hasLinkStatistics() const { return m_sinceLinkStatistics.isValid(); }
    [[nodiscard]] LinkStatistics linkStatistics() const { return m_linkStatistics; }
    [[nodiscard]] const TelemetryCatalogue &catalogue() const { return m_catalogue; }
    [[nodiscard]] int staleSensorCount() const { return m_staleCount; }
    // Never updated, or not for longer than the stale limit.
    [[nodiscard]] bool isStale(const TelemetrySensor &sensor, qint64 nowMs) const;
    [[nodiscard]] GpsFix gpsFix() const { return m_gps; }
    // Milliseconds since the last GPS frame, -1 before the first.
    [[nodiscard]] qint64 msSinceGps() const;
    // The last battery reading; `present` only when it carries the car's voltage.
    [[nodiscard]] BatterySensor battery() const { return m_battery; }
    [[nodiscard]] std::array<float, 3> attitudeDeg() const { return m_attitudeDeg; }
    [[nodiscard]] std::array<float, 3> carMotion() const { return m_motion; }
    // Milliseconds since the last motion record, -1 before the first.
    [[nodiscard]] qint64 msSinceMotion() const;
    [[nodiscard]] ReceiverFfbState receiverFfbState() const { return m_ffbState; }
    [[nodiscard]] bool isWaitingForMotion() const;

public slots:
    // Every frame the codec accepted.
    void handleFrame(uint8_t type, const QByteArray &payload);
    void handleLinkStatistics(const tavrix::LinkStatistics &stats);
    void handleBattery(const tavrix::BatterySensor &battery);
    // The periodic car-link and stale-sensor check.
    void checkLinkAndSensors();
    // Drops readings from the catalogue (the user deleted them); a sensor that reports
    // again comes back as new.
    void forgetSensor(const QString &key);
    void forgetAllSensors();

signals:
    void linkStatisticsUpdated(const tavrix::LinkStatistics &stats);
    void carLinkChanged(bool linked);
    void gpsUpdated(const tavrix::GpsFix &fix);
    void attitudeReceived(float pitchDeg, float rollDeg, float yawDeg);
    void telemetrySensorsUpdated();
    void telemetrySensorListChanged();
    void telemetryDashboardChanged();
    void receiverFfbStateChanged(tavrix::ReceiverFfbState state);
    void carMotionReceived(float lonG, float latG, float vertG);

private:
    void handleVehicleRecord(const QByteArray &payload);
    void updateCatalogue(uint8_t type, const QByteArray &payload);
    void setFfbState(ReceiverFfbState state);
    void countStaleSensors();
    void onMotionWaitExpired();

    ControllerTimings m_timings;
    QTimer *m_monitorTimer = nullptr;
    QTimer *m_motionWaitTimer = nullptr;
    QElapsedTimer m_sinceLinkStatistics;
    QElapsedTimer m_sinceMotion;
    QElapsedTimer m_sinceGps;
    QElapsedTimer m_clock;

    int m_receiverGeneration = 0;
    bool m_carLinked = false;
    LinkStatistics m_linkStatistics;
    TelemetryCatalogue m_catalogue;
    int m_staleCount = 0;
    GpsFix m_gps;
    BatterySensor m_battery;
    std::array<float, 3> m_attitudeDeg{};
    std::array<float, 3> m_motion{};
    ReceiverFfbState m_ffbState = ReceiverFfbState::Idle;
};

} // namespace tavrix
