#pragma once

#include "dirtrallypacket.h"

#include <QHostAddress>
#include <QObject>
#include <QString>

#include <array>
#include <chrono>
#include <functional>

class QTimer;
class QUdpSocket;

namespace tavrix {

// Streams the car's live motion (accelerations, attitude, heading, yaw rate and the driver's
// controls) as DiRT Rally telemetry datagrams, so motion software made for games (SimHub,
// FlyPT Mover, SimTools) moves a rig with the real car. Keeps a smoothed motion state that
// comes to rest when the car's telemetry stops; other parts read it while they hold the
// sender. GUI thread only; the setters are cheap, all sending happens on its own 16 ms tick.
class MotionTelemetrySender : public QObject
{
    Q_OBJECT
public:
    // Monotonic milliseconds; tests step it instead of waiting.
    using Clock = std::function<qint64()>;
    using DriveStateProvider = std::function<MotionDriveState()>;

    static constexpr std::chrono::milliseconds kTickInterval{16};
    // Inputs older than these are treated as gone, and the outputs come to rest.
    static constexpr qint64 kAccelerationFreshMs = 300;
    static constexpr qint64 kAttitudeFreshMs = 1000;

    struct Snapshot
    {
        float longitudinalG = 0.0f;
        float lateralG = 0.0f;
        float verticalG = 0.0f;
        float heaveVelocity = 0.0f;
        float pitchDeg = 0.0f;
        float rollDeg = 0.0f;
        float yawDeg = 0.0f;
        bool accelerationFresh = false;
        bool attitudeFresh = false;
    };

    // Reads the saved settings; starts streaming at once when the output was left on.
    explicit MotionTelemetrySender(QObject *parent = nullptr);
    MotionTelemetrySender(Clock clock, QObject *parent = nullptr);
    ~MotionTelemetrySender() override;

    [[nodiscard]] bool isEnabled() const { return m_enabled; }
    [[nodiscard]] QString host() const { return m_host; }
    [[nodiscard]] quint16 port() const { return m_port; }
    // Datagrams written since the output was last switched on.
    [[nodiscard]] quint64 packetsSent() const { return m_packetsSent; }
    [[nodiscard]] Snapshot snapshot() const;
    // -1 when no acceleration ever arrived.
    [[nodiscard]] qint64 ageOfAccelerationMs() const;
    [[nodiscard]] bool isTicking() const;

    // Called on every tick for the controls the datagram carries; without one they stay 0.
    void setDriveStateProvider(DriveStateProvider provider) { m_driveState = std::move(provider); }

public slots:
    void setEnabled(bool enabled);
    // An unparsable host sends to this machine (127.0.0.1). Both are saved.
    void setTarget(const QString &host, quint16 port);
    // Switches the output on towards that target for this run only: the saved settings stay
    // as they were (a command-line override).
    void streamForThisRun(const QString &host, quint16 port);

    // The car's three acceleration values in g (longitudinal, lateral, vertical).
    void setAcceleration(float longitudinalG, float lateralG, float verticalG);
    void setAttitude(float pitchDeg, float rollDeg, float headingDeg);
    // Radians per second. Used only while no heading arrives; the car's telemetry today
    // carries its heading in the attitude frame and no yaw rate, so nothing in the hub
    // calls this yet: it is here for a receiver that reports one.
    void setYawRate(float radiansPerSecond);

    // Someone reads snapshot() and needs the smoothing to run even with the output off.
    void acquire();
    void releaseHolder();

    // One step of smoothing and, when on, one datagram; the timer calls it every 16 ms.
    void tick();

signals:
    void enabledChanged(bool enabled);

private:
    void applyEnabled(bool enabled);
    void applyTarget(const QString &host, quint16 port);
    void saveSettings() const;
    void updateTimer();
    void forgetStaleInputs(qint64 now);
    void smooth(float dtSeconds);
    void send(qint64 now);

    Clock m_clock;
    QTimer *m_timer;
    QUdpSocket *m_socket;

    bool m_enabled = false;
    QString m_host;
    QHostAddress m_address;
    quint16 m_port = 0;
    int m_holders = 0;
    quint64 m_packetsSent = 0;
    qint64 m_startedAtMs = 0;
    qint64 m_lastTickMs = 0;

    // Inputs.
    std::array<float, 3> m_acceleration{};
    float m_yawRateInput = 0.0f;
    bool m_hasAcceleration = false;
    qint64 m_accelerationAtMs = 0;
    float m_pitchTarget = 0.0f;
    float m_rollTarget = 0.0f;
    // Radians, unwrapped: it follows the heading across +-180 degrees without a jump.
    float m_headingTarget = 0.0f;
    float m_lastHeadingDeg = 0.0f;
    bool m_hasAttitude = false;
    bool m_hasHeading = false;
    qint64 m_attitudeAtMs = 0;

    MotionState m_state;
    float m_yawRate = 0.0f;
    DriveStateProvider m_driveState;
};

} // namespace tavrix
