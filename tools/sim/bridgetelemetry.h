#pragma once

#include "simulatedcar.h"

#include <QElapsedTimer>
#include <QObject>

class QTimer;

namespace tavrix::sim {

// How often the car's receiver reports, in the units a test or a demo thinks in.
struct TelemetryRates
{
    int linkStatisticsIntervalMs = 100; // ExpressLRS sends link statistics about ten times a second
    int batteryIntervalMs = 1000;
    int gpsIntervalMs = 200;
    int attitudeIntervalMs = 100;
    double motionHz = 50.0;          // the receiver's 0x23 motion record; 0 turns it off
    bool wrapMotion = false;         // send the motion record inside a 0x50 wrapper
    int statusLineIntervalMs = 5000; // an occasional text line from the bridge; 0 turns it off
    uint8_t frameAddress = 0xEA;     // telemetry goes to the handset
};

// Produces the car's telemetry frames on timers while it is active. It knows
// nothing of the serial line: the bridge decides when telemetry flows and writes
// what this emits.
class BridgeTelemetry : public QObject
{
    Q_OBJECT
public:
    explicit BridgeTelemetry(const TelemetryRates &rates, const SimulatedCar &car = SimulatedCar(),
                             QObject *parent = nullptr);

    void setActive(bool active);
    [[nodiscard]] bool isActive() const { return m_active; }

    // Seconds the car has been driving (its clock only runs while telemetry flows).
    [[nodiscard]] double carSeconds() const;

signals:
    void frameReady(const QByteArray &frame);
    void statusLineReady(const QString &line);

private:
    QTimer *addStream(int intervalMs, void (BridgeTelemetry::*send)());
    void sendLinkStatistics();
    void sendBattery();
    void sendGps();
    void sendAttitude();
    void sendMotion();
    void sendStatusLine();
    void emitFrame(uint8_t type, const QByteArray &payload);

    TelemetryRates m_rates;
    SimulatedCar m_car;
    QList<QTimer *> m_streams;
    QElapsedTimer m_clock;
    double m_secondsBefore = 0.0; // driving time accumulated before the current active spell
    bool m_active = false;
};

} // namespace tavrix::sim
