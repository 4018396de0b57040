#pragma once

#include <QByteArray>

namespace tavrix::sim {

// A car driving slow laps around a fixed point, as seen through its receiver's
// telemetry. Every reading is a pure function of the time since the car was
// switched on, so runs are repeatable and payloads can be checked by value.
class SimulatedCar
{
public:
    struct Position
    {
        double latitudeDeg = 0.0;
        double longitudeDeg = 0.0;
        double speedKmh = 0.0;
        double headingDeg = 0.0; // 0..360, clockwise from north
        int altitudeM = 0;
    };
    struct Motion
    {
        double longitudinalG = 0.0;
        double lateralG = 0.0;
        double verticalG = 0.0;
    };

    struct Settings
    {
        double centreLatitudeDeg = 47.3769;
        double centreLongitudeDeg = 8.5417;
        double lapRadiusM = 60.0;
        double speedKmh = 18.0;
        int altitudeM = 410;
        int satellites = 12;
        double batteryFullVolts = 8.4; // 2S pack
        int batteryCapacityMah = 5000;
    };

    SimulatedCar() = default;
    explicit SimulatedCar(const Settings &settings)
        : m_settings(settings)
    {}

    [[nodiscard]] Position position(double seconds) const;
    [[nodiscard]] Motion motion(double seconds) const;

    // CRSF telemetry payloads (without frame header and CRC).
    [[nodiscard]] QByteArray linkStatisticsPayload(double seconds) const; // 0x14, 10 bytes
    [[nodiscard]] QByteArray batteryPayload(double seconds) const;        // 0x08, 8 bytes
    [[nodiscard]] QByteArray gpsPayload(double seconds) const;            // 0x02, 15 bytes
    [[nodiscard]] QByteArray attitudePayload(double seconds) const;       // 0x1E, 6 bytes
    [[nodiscard]] QByteArray motionRecordPayload(double seconds) const;   // 0x23, 7 bytes
    // The same record the way the maker's receiver may wrap it in a 0x50 frame:
    // destination, 0xCA, then the 0x23 payload.
    [[nodiscard]] QByteArray wrappedMotionPayload(double seconds) const;

private:
    Settings m_settings;
};

} // namespace tavrix::sim
