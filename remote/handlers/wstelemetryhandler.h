#pragma once

#include "wstablehandler.h"

class QTimer;

namespace tavrix {

class TelemetrySensorBook;

// The car's telemetry for the mobile app: link statistics, GPS, the sensor list with the
// user's labels, pins and discovery, and the pushes that keep the app's views current.
class WsTelemetryHandler : public WsTableHandler
{
    Q_OBJECT

public:
    // The sensor list changes with every telemetry frame (tens a second): the app gets it
    // at most this often.
    static constexpr int kSensorsPushIntervalMs = 200;

    WsTelemetryHandler(TavrixController *controller, QObject *parent);

private:
    QJsonObject linkStatistics(const RemoteRequest &request);
    QJsonObject gps(const RemoteRequest &request);
    QJsonObject sensors(const RemoteRequest &request);
    QJsonObject dashboard(const RemoteRequest &request);
    QJsonObject setDashboard(const RemoteRequest &request);
    QJsonObject setDiscovery(const RemoteRequest &request);
    QJsonObject renameSensor(const RemoteRequest &request);
    QJsonObject deleteSensor(const RemoteRequest &request);
    QJsonObject clearSensors(const RemoteRequest &request);

    // The objects a query answers and its push carries, written once for both.
    [[nodiscard]] QJsonObject linkStatisticsData() const;
    [[nodiscard]] QJsonObject gpsData() const;
    [[nodiscard]] QJsonObject sensorsData() const;
    [[nodiscard]] QJsonObject dashboardData() const;
    [[nodiscard]] TelemetrySensorBook *book() const;
    void scheduleSensorsPush();

    QTimer *m_sensorsPush;
};

} // namespace tavrix
