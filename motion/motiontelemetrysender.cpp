#include "motiontelemetrysender.h"

#include <QElapsedTimer>
#include <QLoggingCategory>
#include <QSettings>
#include <QTimer>
#include <QUdpSocket>

#include <algorithm>
#include <cmath>
#include <numbers>

Q_LOGGING_CATEGORY(lcMotionOutput, "orvane.motion.output")

namespace tavrix {

namespace {

// The settings, their keys and defaults, in one place.
const QString kGroup = QStringLiteral("motionTelemetry");
const QString kEnabledKey = QStringLiteral("enabled");
const QString kHostKey = QStringLiteral("host");
const QString kPortKey = QStringLiteral("port");
const QString kDefaultHost = QStringLiteral("127.0.0.1");
// Where DiRT Rally sends by default, so motion software finds us without being told.
constexpr quint16 kDefaultPort = 20777;

// Per-tick smoothing, deliberately independent of the step: a slow tick moves as far as a
// fast one, so a busy machine makes the rig lag, never lurch.
constexpr float kAccelerationSmoothing = 0.25f;
constexpr float kAttitudeSmoothing = 0.08f;
// The heave integrator leaks this much per tick so a biased vertical reading never runs away.
constexpr float kHeaveRetention = 0.97f;
constexpr float kStandardGravity = 9.80665f;
constexpr float kDegreesToRadians = 0.017453292f;
constexpr float kRadiansToDegrees = 57.29578f;
constexpr float kPi = std::numbers::pi_v<float>;
// A stalled event loop must not integrate seconds of yaw rate or heave into one datagram.
constexpr qint64 kLongestStepMs = 100;
// Bounds on what the car may claim, so a corrupt frame cannot reach a rig as an extreme.
constexpr float kMaxYawRate = 20.0f; // rad/s, several turns a second
constexpr float kMaxPitchDeg = 90.0f;
constexpr float kMaxRollDeg = 180.0f;

bool allFinite(std::initializer_list<float> values)
{
    return std::all_of(values.begin(), values.end(), [](float v) { return std::isfinite(v); });
}

float clampedG(float g)
{
    return std::clamp(g, -dirtrally::kMaxG, dirtrally::kMaxG);
}

MotionTelemetrySender::Clock monotonicClock()
{
    QElapsedTimer timer;
    timer.start();
    return [timer] { return timer.elapsed(); };
}

} // namespace

MotionTelemetrySender::MotionTelemetrySender(QObject *parent)
    : MotionTelemetrySender(monotonicClock(), parent)
{}

MotionTelemetrySender::MotionTelemetrySender(Clock clock, QObject *parent)
    : QObject(parent)
    , m_clock(std::move(clock))
    , m_timer(new QTimer(this))
    , m_socket(new QUdpSocket(this))
{
    m_timer->setTimerType(Qt::PreciseTimer);
    m_timer->setInterval(kTickInterval);
    connect(m_timer, &QTimer::timeout, this, &MotionTelemetrySender::tick);
    m_lastTickMs = m_clock();

    QSettings settings;
    settings.beginGroup(kGroup);
    applyTarget(settings.value(kHostKey, kDefaultHost).toString(),
                quint16(settings.value(kPortKey, kDefaultPort).toUInt()));
    applyEnabled(settings.value(kEnabledKey, false).toBool());
}

MotionTelemetrySender::~MotionTelemetrySender() = default;

void MotionTelemetrySender::setEnabled(bool enabled)
{
    if (enabled == m_enabled)
        return;
    applyEnabled(enabled);
    saveSettings();
}

void MotionTelemetrySender::setTarget(const QString &host, quint16 port)
{
    applyTarget(host, port);
    saveSettings();
}

void MotionTelemetrySender::streamForThisRun(const QString &host, quint16 port)
{
    applyTarget(host, port);
    applyEnabled(true);
}

void MotionTelemetrySender::applyEnabled(bool enabled)
{
    if (enabled == m_enabled)
        return;
    m_enabled = enabled;
    if (enabled) {
        m_startedAtMs = m_clock();
        m_packetsSent = 0;
        qCInfo(lcMotionOutput).noquote() << "[Motion] output on, to" << m_host << m_port;
    } else {
        qCInfo(lcMotionOutput).noquote() << "[Motion] output off";
    }
    updateTimer();
    emit enabledChanged(enabled);
}

void MotionTelemetrySender::applyTarget(const QString &host, quint16 port)
{
    m_host = host.trimmed();
    m_port = port;
    // Names are not looked up: a lookup could stall the tick, and motion software runs on
    // this machine or at a fixed address.
    if (!m_address.setAddress(m_host))
        m_address = QHostAddress(QHostAddress::LocalHost);
}

void MotionTelemetrySender::saveSettings() const
{
    QSettings settings;
    settings.beginGroup(kGroup);
    settings.setValue(kEnabledKey, m_enabled);
    settings.setValue(kHostKey, m_host);
    settings.setValue(kPortKey, m_port);
}

void MotionTelemetrySender::acquire()
{
    ++m_holders;
    updateTimer();
}

void MotionTelemetrySender::releaseHolder()
{
    m_holders = std::max(0, m_holders - 1);
    updateTimer();
}

bool MotionTelemetrySender::isTicking() const
{
    return m_timer->isActive();
}

void MotionTelemetrySender::updateTimer()
{
    const bool wanted = m_enabled || m_holders > 0;
    if (wanted && !m_timer->isActive()) {
        m_lastTickMs = m_clock();
        m_timer->start();
    } else if (!wanted) {
        m_timer->stop();
    }
}

void MotionTelemetrySender::setAcceleration(float longitudinalG, float lateralG, float verticalG)
{
    // A reading that is not a number is dropped: the last good one ages out instead.
    if (!allFinite({longitudinalG, lateralG, verticalG}))
        return;
    m_acceleration = {clampedG(longitudinalG), clampedG(lateralG), clampedG(verticalG)};
    m_hasAcceleration = true;
    m_accelerationAtMs = m_clock();
}

void MotionTelemetrySender::setAttitude(float pitchDeg, float rollDeg, float headingDeg)
{
    if (!allFinite({pitchDeg, rollDeg, headingDeg}))
        return;
    m_pitchTarget = std::clamp(pitchDeg, -kMaxPitchDeg, kMaxPitchDeg) * kDegreesToRadians;
    m_rollTarget = std::clamp(rollDeg, -kMaxRollDeg, kMaxRollDeg) * kDegreesToRadians;
    const float heading = std::remainder(headingDeg, 360.0f);
    if (m_hasHeading) {
        // 179 -> -179 is a turn of +2 degrees, not -358.
        m_headingTarget += std::remainder(heading - m_lastHeadingDeg, 360.0f) * kDegreesToRadians;
    } else {
        m_headingTarget = m_state.yaw;
        m_hasHeading = true;
    }
    m_lastHeadingDeg = heading;
    m_hasAttitude = true;
    m_attitudeAtMs = m_clock();
}

void MotionTelemetrySender::setYawRate(float radiansPerSecond)
{
    if (std::isfinite(radiansPerSecond))
        m_yawRateInput = std::clamp(radiansPerSecond, -kMaxYawRate, kMaxYawRate);
}

MotionTelemetrySender::Snapshot MotionTelemetrySender::snapshot() const
{
    const qint64 now = m_clock();
    Snapshot s;
    s.longitudinalG = m_state.longitudinalG;
    s.lateralG = m_state.lateralG;
    s.verticalG = m_state.verticalG;
    s.heaveVelocity = m_state.heaveVelocity;
    s.pitchDeg = m_state.pitch * kRadiansToDegrees;
    s.rollDeg = m_state.roll * kRadiansToDegrees;
    s.yawDeg = m_state.yaw * kRadiansToDegrees;
    s.accelerationFresh = m_hasAcceleration && now - m_accelerationAtMs <= kAccelerationFreshMs;
    s.attitudeFresh = m_hasAttitude && now - m_attitudeAtMs <= kAttitudeFreshMs;
    return s;
}

qint64 MotionTelemetrySender::ageOfAccelerationMs() const
{
    return m_hasAcceleration ? m_clock() - m_accelerationAtMs : -1;
}

void MotionTelemetrySender::tick()
{
    const qint64 now = m_clock();
    const qint64 stepMs = std::clamp(now - m_lastTickMs, qint64(0), kLongestStepMs);
    m_lastTickMs = now;
    forgetStaleInputs(now);
    smooth(float(stepMs) / 1000.0f);
    if (m_enabled)
        send(now);
}

void MotionTelemetrySender::forgetStaleInputs(qint64 now)
{
    if (!m_hasAcceleration || now - m_accelerationAtMs > kAccelerationFreshMs) {
        m_acceleration = {};
        m_yawRateInput = 0.0f;
    }
    if (!m_hasAttitude || now - m_attitudeAtMs > kAttitudeFreshMs) {
        m_pitchTarget = 0.0f;
        m_rollTarget = 0.0f;
        m_hasAttitude = false;
        m_hasHeading = false;
    }
}

void MotionTelemetrySender::smooth(float dtSeconds)
{
    const auto approach = [](float &value, float target, float factor) {
        value += (target - value) * factor;
    };
    approach(m_state.longitudinalG, m_acceleration[0], kAccelerationSmoothing);
    approach(m_state.lateralG, m_acceleration[1], kAccelerationSmoothing);
    approach(m_state.verticalG, m_acceleration[2], kAccelerationSmoothing);
    approach(m_state.pitch, m_pitchTarget, kAttitudeSmoothing);
    approach(m_state.roll, m_rollTarget, kAttitudeSmoothing);

    if (m_hasHeading) {
        approach(m_state.yaw, m_headingTarget, kAttitudeSmoothing);
    } else {
        approach(m_yawRate, m_yawRateInput, kAccelerationSmoothing);
        m_state.yaw += m_yawRate * dtSeconds;
    }
    // Keep yaw in -pi..pi; the target moves with it so the smoothing never swings the long way.
    if (m_state.yaw > kPi) {
        m_state.yaw -= 2.0f * kPi;
        m_headingTarget -= 2.0f * kPi;
    } else if (m_state.yaw < -kPi) {
        m_state.yaw += 2.0f * kPi;
        m_headingTarget += 2.0f * kPi;
    }

    m_state.heaveVelocity =
        m_state.verticalG * kStandardGravity * dtSeconds + m_state.heaveVelocity * kHeaveRetention;
}

void MotionTelemetrySender::send(qint64 now)
{
    std::optional<MotionDriveState> drive;
    if (m_driveState)
        drive = m_driveState();
    const QByteArray packet = dirtrally::buildPacket(double(now - m_startedAtMs) / 1000.0, m_state, drive);
    // A lost datagram is simply not counted: the next tick sends a fresh one anyway.
    if (m_socket->writeDatagram(packet, m_address, m_port) > 0)
        ++m_packetsSent;
}

} // namespace tavrix
