#include "telemetrymonitor.h"

#include "crsfprotocol.h"

#include <QDateTime>
#include <QSet>
#include <QTimer>

#include <algorithm>

namespace tavrix {

namespace {

constexpr int kAttitudePayloadSize = 6;
constexpr int kGpsPayloadSize = 15;
constexpr double kRadiansToDegrees = 57.29577951308232;

float attitudeDegrees(const QByteArray &payload, qsizetype offset)
{
    const auto raw = static_cast<int16_t>(CrsfProtocol::readBigEndian16(payload, offset));
    return float(raw / 10000.0 * kRadiansToDegrees);
}

} // namespace

TelemetryMonitor::TelemetryMonitor(const ControllerTimings &timings, QObject *parent)
    : QObject(parent)
    , m_timings(timings)
    , m_monitorTimer(new QTimer(this))
    , m_motionWaitTimer(new QTimer(this))
{
    m_monitorTimer->setInterval(m_timings.monitorInterval);
    connect(m_monitorTimer, &QTimer::timeout, this, &TelemetryMonitor::checkLinkAndSensors);
    m_monitorTimer->start();

    m_motionWaitTimer->setSingleShot(true);
    m_motionWaitTimer->setInterval(m_timings.motionWait);
    connect(m_motionWaitTimer, &QTimer::timeout, this, &TelemetryMonitor::onMotionWaitExpired);
}

void TelemetryMonitor::transmissionStarted()
{
    if (m_ffbState != ReceiverFfbState::WaitingForMotion)
        setFfbState(ReceiverFfbState::WaitingForMotion);
    m_motionWaitTimer->start();
}

void TelemetryMonitor::transmissionStopped()
{
    m_motionWaitTimer->stop();
    // A receiver that was already sending motion is left "receiving": it still is.
    if (m_ffbState == ReceiverFfbState::WaitingForMotion)
        setFfbState(ReceiverFfbState::Idle);
}

qint64 TelemetryMonitor::msSinceMotion() const
{
    return m_sinceMotion.isValid() ? m_sinceMotion.elapsed() : -1;
}

qint64 TelemetryMonitor::msSinceGps() const
{
    return m_sinceGps.isValid() ? m_sinceGps.elapsed() : -1;
}

bool TelemetryMonitor::isStale(const TelemetrySensor &sensor, qint64 nowMs) const
{
    return sensor.updatedMs == 0 || nowMs - sensor.updatedMs > m_timings.sensorStaleAfter.count();
}

bool TelemetryMonitor::isWaitingForMotion() const
{
    return m_motionWaitTimer->isActive();
}

void TelemetryMonitor::handleFrame(uint8_t type, const QByteArray &payload)
{
    if (type == crsf::kTypeWrappedRecord && payload.size() >= kWrappedRecordMinSize &&
        uint8_t(payload.at(1)) == kWrappedRecordMarker) {
        handleFrame(crsf::kTypeVehicleRecord, payload.mid(2));
        return;
    }

    // Taken before the catalogue changes, so whoever telemetrySensorsUpdated wakes reads
    // this frame's battery rather than the one before it. The codec's battery signal,
    // which follows the frame, then only repeats the same reading.
    if (type == crsf::kTypeBattery)
        handleBattery(CrsfProtocol::decodeBattery(payload));
    updateCatalogue(type, payload);

    switch (type) {
    case crsf::kTypeGps:
        if (payload.size() >= kGpsPayloadSize) {
            m_gps = CrsfProtocol::decodeGps(payload);
            m_sinceGps.start();
            emit gpsUpdated(m_gps);
        }
        break;
    case crsf::kTypeAttitude:
        if (payload.size() >= kAttitudePayloadSize) {
            m_attitudeDeg = {attitudeDegrees(payload, 0), attitudeDegrees(payload, 2),
                             attitudeDegrees(payload, 4)};
            emit attitudeReceived(m_attitudeDeg[0], m_attitudeDeg[1], m_attitudeDeg[2]);
        }
        break;
    case crsf::kTypeVehicleRecord:
        handleVehicleRecord(payload);
        break;
    default:
        break;
    }
}

void TelemetryMonitor::handleLinkStatistics(const LinkStatistics &stats)
{
    m_linkStatistics = stats;
    m_sinceLinkStatistics.start();
    if (!m_carLinked) {
        m_carLinked = true;
        emit carLinkChanged(true);
    }
    emit linkStatisticsUpdated(stats);
}

void TelemetryMonitor::handleBattery(const BatterySensor &battery)
{
    m_battery = battery;
    // The newer receiver carries an acceleration in the voltage field. An unknown receiver's
    // frame counts when it is a whole battery frame: the lateral dynamics some receivers
    // send with this type are shorter, and the decoder marks those absent.
    if (m_receiverGeneration >= crsf::kReceiverGenerationNewer)
        m_battery.present = false;
}

void TelemetryMonitor::checkLinkAndSensors()
{
    if (m_carLinked && (!m_sinceLinkStatistics.isValid() ||
                        m_sinceLinkStatistics.elapsed() > m_timings.carLinkTimeout.count())) {
        m_carLinked = false;
        emit carLinkChanged(false);
    }

    countStaleSensors();
}

void TelemetryMonitor::forgetSensor(const QString &key)
{
    const auto removed =
        m_catalogue.removeIf([&key](const TelemetrySensor &sensor) { return sensor.key == key; });
    if (removed == 0)
        return;
    emit telemetrySensorListChanged();
    countStaleSensors();
}

void TelemetryMonitor::forgetAllSensors()
{
    if (m_catalogue.isEmpty())
        return;
    m_catalogue.clear();
    emit telemetrySensorListChanged();
    countStaleSensors();
}

void TelemetryMonitor::countStaleSensors()
{
    const qint64 now = QDateTime::currentMSecsSinceEpoch();
    const auto stale = std::count_if(m_catalogue.cbegin(), m_catalogue.cend(),
                                     [&](const TelemetrySensor &sensor) { return isStale(sensor, now); });
    if (int(stale) != m_staleCount) {
        m_staleCount = int(stale);
        emit telemetryDashboardChanged();
    }
}

void TelemetryMonitor::handleVehicleRecord(const QByteArray &payload)
{
    const VehicleRecord record = CrsfProtocol::decodeVehicleRecord(payload);
    if (!record.valid)
        return;
    m_motion = {record.values[0], record.values[1], record.values[2]};
    m_sinceMotion.start();
    m_motionWaitTimer->stop();
    if (m_ffbState != ReceiverFfbState::ReceivingMotion)
        setFfbState(ReceiverFfbState::ReceivingMotion);
    emit carMotionReceived(m_motion[0], m_motion[1], m_motion[2]);
}

void TelemetryMonitor::updateCatalogue(uint8_t type, const QByteArray &payload)
{
    // The readings this frame carries, found by reading it into an empty catalogue;
    // the merge itself is the catalogue's.
    const TelemetryCatalogue fresh = telemetrycatalogue::update({}, type, payload, m_receiverGeneration);
    if (fresh.isEmpty())
        return;
    const qsizetype sizeBefore = m_catalogue.size();
    m_catalogue = telemetrycatalogue::update(std::move(m_catalogue), type, payload, m_receiverGeneration);

    QSet<QString> updated;
    for (const TelemetrySensor &sensor : fresh)
        updated.insert(sensor.key);
    const qint64 now = QDateTime::currentMSecsSinceEpoch();
    for (TelemetrySensor &sensor : m_catalogue) {
        if (updated.contains(sensor.key))
            sensor.updatedMs = now;
    }
    if (m_catalogue.size() != sizeBefore)
        emit telemetrySensorListChanged();
    emit telemetrySensorsUpdated();
}

void TelemetryMonitor::setFfbState(ReceiverFfbState state)
{
    m_ffbState = state;
    emit receiverFfbStateChanged(state);
}

void TelemetryMonitor::onMotionWaitExpired()
{
    if (m_ffbState == ReceiverFfbState::WaitingForMotion)
        setFfbState(ReceiverFfbState::NoMotionData);
}

} // namespace tavrix
