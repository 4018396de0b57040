#include "wstelemetryhandler.h"

#include "tavrixcontroller.h"
#include "telemetrysensorbook.h"

#include <QJsonArray>
#include <QTimer>

namespace tavrix {

namespace {

const QLatin1String kId{"id"};
const QLatin1String kName{"name"};
const QLatin1String kPinned{"pinned"};
const QLatin1String kEnabled{"enabled"};

const QString kLinkStatisticsEvent = QStringLiteral("event_link_statistics");
const QString kGpsEvent = QStringLiteral("event_gps");
const QString kSensorsEvent = QStringLiteral("event_telemetry_sensors");
const QString kDashboardEvent = QStringLiteral("event_telemetry_dashboard");

QString unknownSensor(const QString &id)
{
    return QStringLiteral("Unknown sensor: ") + id;
}

} // namespace

WsTelemetryHandler::WsTelemetryHandler(TavrixController *controller, QObject *parent)
    : WsTableHandler(controller, QStringLiteral("Unhandled event in telemetry handler"), parent)
    , m_sensorsPush(new QTimer(this))
{
    addRequests<WsTelemetryHandler>({
        {"get_link_statistics", &WsTelemetryHandler::linkStatistics},
        {"get_gps", &WsTelemetryHandler::gps},
        {"get_telemetry_sensors", &WsTelemetryHandler::sensors},
        {"get_telemetry_dashboard", &WsTelemetryHandler::dashboard},
        {"set_telemetry_dashboard", &WsTelemetryHandler::setDashboard},
        {"set_telemetry_discovery", &WsTelemetryHandler::setDiscovery},
        {"action_telemetry_sensor_rename", &WsTelemetryHandler::renameSensor},
        {"action_telemetry_sensor_delete", &WsTelemetryHandler::deleteSensor},
        {"action_telemetry_sensors_clear", &WsTelemetryHandler::clearSensors},
    });

    // Telemetry arrives with the bridge's bytes, never from the transmit tick.
    const auto pushLink = [this] { push(kLinkStatisticsEvent, linkStatisticsData()); };
    connect(controller, &TavrixController::linkStatisticsUpdated, this, pushLink);
    connect(controller, &TavrixController::carLinkChanged, this, pushLink);
    connect(controller, &TavrixController::gpsUpdated, this, [this] { push(kGpsEvent, gpsData()); });

    m_sensorsPush->setSingleShot(true);
    m_sensorsPush->setInterval(kSensorsPushIntervalMs);
    connect(m_sensorsPush, &QTimer::timeout, this, [this] { push(kSensorsEvent, sensorsData()); });
    // Readings, new keys and staleness come from the controller; labels from the book.
    for (auto signal :
         {&TavrixController::telemetrySensorsUpdated, &TavrixController::telemetrySensorListChanged,
          &TavrixController::telemetryDashboardChanged})
        connect(controller, signal, this, &WsTelemetryHandler::scheduleSensorsPush);
    connect(book(), &TelemetrySensorBook::sensorsChanged, this, &WsTelemetryHandler::scheduleSensorsPush);
    connect(book(), &TelemetrySensorBook::dashboardChanged, this,
            [this] { push(kDashboardEvent, dashboardData()); });
}

QJsonObject WsTelemetryHandler::linkStatistics(const RemoteRequest &request)
{
    return request.answer(linkStatisticsData());
}

QJsonObject WsTelemetryHandler::gps(const RemoteRequest &request)
{
    return request.answer(gpsData());
}

QJsonObject WsTelemetryHandler::sensors(const RemoteRequest &request)
{
    return request.answer(sensorsData());
}

QJsonObject WsTelemetryHandler::dashboard(const RemoteRequest &request)
{
    return request.answer(dashboardData());
}

QJsonObject WsTelemetryHandler::setDashboard(const RemoteRequest &request)
{
    if (!request.data().value(kPinned).isArray())
        return request.failed(QStringLiteral("Missing 'pinned' array"));
    QStringList ids;
    for (const QJsonValue &id : request.array(kPinned))
        ids.append(id.toString());
    return request.outcome(book()->setPinned(ids),
                           QStringLiteral("Failed to save the dashboard (at most %1 sensors)")
                               .arg(TelemetrySensorBook::kMaxPinned));
}

QJsonObject WsTelemetryHandler::setDiscovery(const RemoteRequest &request)
{
    if (!request.data().value(kEnabled).isBool())
        return request.failed(QStringLiteral("Missing 'enabled' parameter"));
    return request.outcome(book()->setDiscoveryEnabled(request.flag(kEnabled)),
                           QStringLiteral("Failed to save sensor discovery"));
}

QJsonObject WsTelemetryHandler::renameSensor(const RemoteRequest &request)
{
    const QString id = request.text(kId);
    if (id.isEmpty() || !request.data().value(kName).isString())
        return request.failed(QStringLiteral("Missing 'id' or 'name' parameter"));
    if (!book()->hasSensor(id))
        return request.failed(unknownSensor(id));
    return request.outcome(book()->rename(id, request.text(kName)),
                           QStringLiteral("Failed to save the sensor name"));
}

QJsonObject WsTelemetryHandler::deleteSensor(const RemoteRequest &request)
{
    const QString id = request.text(kId);
    if (id.isEmpty())
        return request.failed(QStringLiteral("Missing 'id' parameter"));
    if (!book()->hasSensor(id))
        return request.failed(unknownSensor(id));
    return request.outcome(book()->remove(id), QStringLiteral("Failed to delete the sensor"));
}

QJsonObject WsTelemetryHandler::clearSensors(const RemoteRequest &request)
{
    return request.outcome(book()->clear(), QStringLiteral("Failed to clear the sensors"));
}

QJsonObject WsTelemetryHandler::linkStatisticsData() const
{
    const TelemetryMonitor *telemetry = controller()->telemetry();
    const LinkStatistics s = telemetry->linkStatistics();
    return {{QStringLiteral("hasLink"), telemetry->hasLinkStatistics()},
            {QStringLiteral("carLinked"), telemetry->isCarLinked()},
            {QStringLiteral("uplinkRssi1"), s.uplinkRssi1},
            {QStringLiteral("uplinkRssi2"), s.uplinkRssi2},
            {QStringLiteral("linkQuality"), s.linkQuality},
            {QStringLiteral("snr"), s.snr},
            {QStringLiteral("antenna"), s.antenna},
            {QStringLiteral("rfMode"), s.rfMode},
            {QStringLiteral("txPower"), s.txPower},
            {QStringLiteral("downlinkRssi"), s.downlinkRssi},
            {QStringLiteral("downlinkLinkQuality"), s.downlinkLinkQuality},
            {QStringLiteral("downlinkSnr"), s.downlinkSnr}};
}

QJsonObject WsTelemetryHandler::gpsData() const
{
    const TelemetryMonitor *telemetry = controller()->telemetry();
    const GpsFix fix = telemetry->gpsFix();
    const qint64 ageMs = telemetry->msSinceGps();
    // GPS frames come but carry no usable position: the receiver is still looking for satellites.
    const bool searching = ageMs >= 0 && !fix.valid;
    return {{QStringLiteral("hasFix"), fix.valid},
            {QStringLiteral("latitude"), fix.latitude},
            {QStringLiteral("longitude"), fix.longitude},
            {QStringLiteral("speedKmh"), fix.speedKmh},
            {QStringLiteral("headingDeg"), fix.headingDeg},
            {QStringLiteral("altitudeM"), fix.altitudeM},
            {QStringLiteral("satellites"), fix.satellites},
            {QStringLiteral("searchingSatellites"), searching},
            {QStringLiteral("ageMs"), ageMs}};
}

QJsonObject WsTelemetryHandler::sensorsData() const
{
    QJsonArray list;
    for (const TelemetrySensorBook::Sensor &sensor : book()->sensors()) {
        list.append(QJsonObject{{kId, sensor.id},
                                {QStringLiteral("label"), sensor.label},
                                {QStringLiteral("defaultLabel"), sensor.defaultLabel},
                                {QStringLiteral("value"), sensor.value},
                                {QStringLiteral("stale"), sensor.stale},
                                {kPinned, sensor.pinned}});
    }
    return {{QStringLiteral("sensors"), list}, {QStringLiteral("discover"), book()->isDiscoveryEnabled()}};
}

QJsonObject WsTelemetryHandler::dashboardData() const
{
    return {{kPinned, QJsonArray::fromStringList(book()->pinned())}};
}

TelemetrySensorBook *WsTelemetryHandler::book() const
{
    return controller()->telemetrySensors();
}

void WsTelemetryHandler::scheduleSensorsPush()
{
    if (!m_sensorsPush->isActive())
        m_sensorsPush->start();
}

} // namespace tavrix
