#include "bridgetelemetry.h"

#include "crsfwire.h"

#include <QTimer>

#include <cmath>

namespace tavrix::sim {

BridgeTelemetry::BridgeTelemetry(const TelemetryRates &rates, const SimulatedCar &car, QObject *parent)
    : QObject(parent)
    , m_rates(rates)
    , m_car(car)
{
    addStream(m_rates.linkStatisticsIntervalMs, &BridgeTelemetry::sendLinkStatistics);
    addStream(m_rates.batteryIntervalMs, &BridgeTelemetry::sendBattery);
    addStream(m_rates.gpsIntervalMs, &BridgeTelemetry::sendGps);
    addStream(m_rates.attitudeIntervalMs, &BridgeTelemetry::sendAttitude);
    if (m_rates.motionHz > 0.0)
        addStream(int(std::lround(1000.0 / m_rates.motionHz)), &BridgeTelemetry::sendMotion);
    addStream(m_rates.statusLineIntervalMs, &BridgeTelemetry::sendStatusLine);
}

QTimer *BridgeTelemetry::addStream(int intervalMs, void (BridgeTelemetry::*send)())
{
    if (intervalMs <= 0)
        return nullptr;
    auto *timer = new QTimer(this);
    timer->setInterval(intervalMs);
    // Fast streams need the precise timer or a 20 ms period drifts to 30 ms.
    timer->setTimerType(intervalMs < 50 ? Qt::PreciseTimer : Qt::CoarseTimer);
    connect(timer, &QTimer::timeout, this, send);
    m_streams.append(timer);
    return timer;
}

void BridgeTelemetry::setActive(bool active)
{
    if (active == m_active)
        return;
    m_active = active;
    if (active) {
        m_clock.start();
        for (QTimer *t : std::as_const(m_streams))
            t->start();
    } else {
        m_secondsBefore += m_clock.elapsed() / 1000.0;
        m_clock.invalidate();
        for (QTimer *t : std::as_const(m_streams))
            t->stop();
    }
}

double BridgeTelemetry::carSeconds() const
{
    return m_secondsBefore + (m_clock.isValid() ? m_clock.elapsed() / 1000.0 : 0.0);
}

void BridgeTelemetry::sendLinkStatistics()
{
    emitFrame(crsfwire::kTypeLinkStatistics, m_car.linkStatisticsPayload(carSeconds()));
}

void BridgeTelemetry::sendBattery()
{
    emitFrame(crsfwire::kTypeBattery, m_car.batteryPayload(carSeconds()));
}

void BridgeTelemetry::sendGps()
{
    emitFrame(crsfwire::kTypeGps, m_car.gpsPayload(carSeconds()));
}

void BridgeTelemetry::sendAttitude()
{
    emitFrame(crsfwire::kTypeAttitude, m_car.attitudePayload(carSeconds()));
}

void BridgeTelemetry::sendMotion()
{
    if (m_rates.wrapMotion)
        emitFrame(crsfwire::kTypeWrapper, m_car.wrappedMotionPayload(carSeconds()));
    else
        emitFrame(crsfwire::kTypeVehicleRecord, m_car.motionRecordPayload(carSeconds()));
}

void BridgeTelemetry::sendStatusLine()
{
    const QByteArray link = m_car.linkStatisticsPayload(carSeconds());
    emit statusLineReady(
        QStringLiteral("TLM: RSSI -%1 dBm LQ %2%").arg(int(uint8_t(link[0]))).arg(int(uint8_t(link[2]))));
}

void BridgeTelemetry::emitFrame(uint8_t type, const QByteArray &payload)
{
    emit frameReady(crsfwire::buildFrame(type, payload, m_rates.frameAddress));
}

} // namespace tavrix::sim
