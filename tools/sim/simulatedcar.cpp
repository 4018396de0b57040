#include "simulatedcar.h"

#include "crsfwire.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace tavrix::sim {

namespace {

constexpr double kMetresPerDegreeLatitude = 111320.0;
constexpr double kStandardGravity = 9.80665;

int16_t toInt16(double value)
{
    return int16_t(std::clamp(std::lround(value), -32768L, 32767L));
}

} // namespace

SimulatedCar::Position SimulatedCar::position(double seconds) const
{
    const double metresPerSecond = m_settings.speedKmh / 3.6;
    const double angle = metresPerSecond / m_settings.lapRadiusM * seconds; // counter-clockwise
    const double north = m_settings.lapRadiusM * std::sin(angle);
    const double east = m_settings.lapRadiusM * std::cos(angle);
    const double latitudeRad = m_settings.centreLatitudeDeg * std::numbers::pi / 180.0;

    Position p;
    p.latitudeDeg = m_settings.centreLatitudeDeg + north / kMetresPerDegreeLatitude;
    p.longitudeDeg =
        m_settings.centreLongitudeDeg + east / (kMetresPerDegreeLatitude * std::cos(latitudeRad));
    p.speedKmh = m_settings.speedKmh;
    // Moving counter-clockwise, the velocity points along (cos angle north, -sin angle east).
    const double headingRad = std::atan2(-std::sin(angle), std::cos(angle));
    p.headingDeg = std::fmod(headingRad * 180.0 / std::numbers::pi + 360.0, 360.0);
    p.altitudeM = m_settings.altitudeM + int(std::lround(2.0 * std::sin(angle)));
    return p;
}

SimulatedCar::Motion SimulatedCar::motion(double seconds) const
{
    const double metresPerSecond = m_settings.speedKmh / 3.6;
    const double cornering = metresPerSecond * metresPerSecond / m_settings.lapRadiusM / kStandardGravity;
    Motion m;
    m.longitudinalG = 0.30 * std::sin(1.3 * seconds);
    m.lateralG = cornering + 0.40 * std::sin(0.7 * seconds);
    m.verticalG = 0.05 * std::sin(9.0 * seconds);
    return m;
}

QByteArray SimulatedCar::linkStatisticsPayload(double seconds) const
{
    // RSSI goes out as its magnitude, as ExpressLRS modules send it.
    const int rssi = 55 + int(std::lround(6.0 * std::sin(0.3 * seconds)));
    const int quality = 100 - int(std::lround(std::fabs(2.0 * std::sin(0.11 * seconds))));
    QByteArray p;
    p.append(char(rssi));                    // uplink RSSI antenna 1
    p.append(char(rssi + 3));                // uplink RSSI antenna 2
    p.append(char(quality));                 // uplink link quality %
    p.append(char(int8_t(9)));               // uplink SNR dB
    p.append(char(int(seconds / 10.0) % 2)); // active antenna, diversity swaps now and then
    p.append(char(7));                       // RF mode index
    p.append(char(3));                       // TX power index
    p.append(char(rssi + 5));                // downlink RSSI
    p.append(char(100));                     // downlink link quality %
    p.append(char(int8_t(8)));               // downlink SNR dB
    return p;
}

QByteArray SimulatedCar::batteryPayload(double seconds) const
{
    const double usedMah = 1.5 * seconds;
    const double remaining = std::clamp(1.0 - usedMah / m_settings.batteryCapacityMah, 0.0, 1.0);
    const double volts = m_settings.batteryFullVolts - 1.2 * (1.0 - remaining);
    const double amps = 5.0 + 3.0 * std::sin(0.5 * seconds);
    QByteArray p;
    crsfwire::appendBigEndian16(p, uint16_t(std::lround(volts * 10.0)));
    crsfwire::appendBigEndian16(p, uint16_t(std::lround(amps * 10.0)));
    crsfwire::appendBigEndian24(p, uint32_t(std::lround(usedMah)));
    p.append(char(std::lround(remaining * 100.0)));
    return p;
}

QByteArray SimulatedCar::gpsPayload(double seconds) const
{
    const Position pos = position(seconds);
    QByteArray p;
    crsfwire::appendBigEndian32(p, uint32_t(int32_t(std::lround(pos.latitudeDeg * 1e7))));
    crsfwire::appendBigEndian32(p, uint32_t(int32_t(std::lround(pos.longitudeDeg * 1e7))));
    crsfwire::appendBigEndian16(p, uint16_t(std::lround(pos.speedKmh * 10.0)));
    crsfwire::appendBigEndian16(p, uint16_t(std::lround(pos.headingDeg * 100.0) % 36000));
    crsfwire::appendBigEndian16(p, uint16_t(pos.altitudeM + 1000));
    p.append(char(m_settings.satellites));
    return p;
}

QByteArray SimulatedCar::attitudePayload(double seconds) const
{
    const double pitchRad = 0.05 * std::sin(0.9 * seconds);
    const double rollRad = 0.08 * std::sin(0.7 * seconds);
    double yawRad = position(seconds).headingDeg * std::numbers::pi / 180.0;
    if (yawRad > std::numbers::pi)
        yawRad -= 2.0 * std::numbers::pi;
    QByteArray p;
    crsfwire::appendBigEndian16(p, uint16_t(toInt16(pitchRad * 10000.0)));
    crsfwire::appendBigEndian16(p, uint16_t(toInt16(rollRad * 10000.0)));
    crsfwire::appendBigEndian16(p, uint16_t(toInt16(yawRad * 10000.0)));
    return p;
}

QByteArray SimulatedCar::motionRecordPayload(double seconds) const
{
    const Motion m = motion(seconds);
    QByteArray p;
    p.append(char(0x01)); // record tag: motion
    crsfwire::appendBigEndian16(p, uint16_t(toInt16(m.longitudinalG * 1000.0)));
    crsfwire::appendBigEndian16(p, uint16_t(toInt16(m.lateralG * 1000.0)));
    crsfwire::appendBigEndian16(p, uint16_t(toInt16(m.verticalG * 1000.0)));
    return p;
}

QByteArray SimulatedCar::wrappedMotionPayload(double seconds) const
{
    QByteArray p;
    p.append(char(crsfwire::kAddressHandset));
    p.append(char(crsfwire::kWrapperInnerMarker));
    p.append(motionRecordPayload(seconds));
    return p;
}

} // namespace tavrix::sim
