#include "forcefeedbackcomputation.h"

#include <algorithm>
#include <cmath>

namespace tavrix {

namespace {

constexpr double kTickSeconds = ForceFeedbackComputation::kTickMs / 1000.0;
constexpr std::int64_t kStatisticsPeriodMs = 1000;
constexpr int kQualityMinFrames = 20;

// Time constants (seconds) of the filters: quick while the car reports, slow when it stops
// so a lost stream lets the wheel go gently instead of dropping it.
constexpr double kTauFresh = 0.06;
constexpr double kTauVerticalFresh = 0.03;
constexpr double kTauStale = 0.25;
// The slow vertical filter is the jolt-free reference the fast one is compared against.
const float kVerticalSlowGain = float(1.0 - std::exp(-0.04));

// Longitudinal G weighs on the steering (braking makes it heavier); lateral G pulls the wheel.
constexpr float kLongitudinalLimit = 1.5f;
constexpr float kSteeringWeight = 0.35f;
constexpr float kLateralWeight = 0.6f;

// Vertical jolts above the threshold become a kick on every other tick: a vibration at half
// the tick rate rather than a steady pull.
constexpr float kBumpThreshold = 0.05f;
constexpr float kBumpGain = 0.8f;
constexpr float kBumpLimit = 0.35f;

constexpr float kIdleForce = 0.002f;
constexpr float kIdleMotion = 0.005f;
constexpr float kReportStep = 0.002f;
constexpr float kSendStep = 0.003f;

// Wheels stick below a few percent of force: a small force is lifted by up to this much,
// fully from kLiftFullAt on, so the driver feels it at all.
constexpr float kLift = 0.08f;
constexpr float kLiftFullAt = 0.02f;

float smoothingGain(double tau)
{
    return float(1.0 - std::exp(-kTickSeconds / tau));
}

void follow(float &state, float target, float gain)
{
    state += (target - state) * gain;
}

} // namespace

void ForceFeedbackComputation::addMotion(const CarMotion &motion, std::int64_t nowMs)
{
    m_motion = motion;
    m_hasMotion = true;
    m_lastMotionMs = nowMs;
    ++m_frames;
    if (!m_statisticsSinceMs)
        m_statisticsSinceMs = nowMs;
}

ForceFeedbackTick ForceFeedbackComputation::tick(std::int64_t nowMs, float steering,
                                                 std::optional<WheelDrive> wheel)
{
    ++m_tick;
    updateStatistics(nowMs);
    const bool fresh = isFresh(nowMs);
    filter(fresh);

    const float steer = std::clamp(steering, -1.0f, 1.0f);
    const float base = std::clamp(m_filters.longitudinal, -kLongitudinalLimit, kLongitudinalLimit) * steer *
                           kSteeringWeight -
                       m_filters.lateral * kLateralWeight;
    ForceFeedbackTick result;
    result.force = std::clamp(base + bump(), -1.0f, 1.0f);
    if (isIdle(fresh, result.force)) {
        result.force = 0.0f;
        result.wentIdle = true;
        goIdle();
    }

    const bool zeroAfterForce = result.force == 0.0f && m_lastReported != 0.0f;
    if (std::fabs(result.force - m_lastReported) > kReportStep || zeroAfterForce) {
        m_lastReported = result.force;
        result.levelReport = result.force;
    }
    if (wheel)
        result.wheelForce = wheelForce(result.force, *wheel);
    return result;
}

void ForceFeedbackComputation::updateStatistics(std::int64_t nowMs)
{
    if (!m_statisticsSinceMs)
        return;
    const std::int64_t elapsed = nowMs - *m_statisticsSinceMs;
    if (elapsed < kStatisticsPeriodMs)
        return;
    const int total = m_frames + m_lostFrames;
    m_statistics.framesPerSecond = m_frames * 1000.0 / double(elapsed);
    m_statistics.lostPercent = total > 0 ? m_lostFrames * 100.0 / total : 0.0;
    m_frames = 0;
    m_lostFrames = 0;
    m_statisticsSinceMs = nowMs;
}

bool ForceFeedbackComputation::isFresh(std::int64_t nowMs) const
{
    return m_hasMotion && nowMs - m_lastMotionMs <= kFreshForMs &&
           (!m_qualityRequired || m_frames >= kQualityMinFrames);
}

void ForceFeedbackComputation::filter(bool fresh)
{
    const float gain = smoothingGain(fresh ? kTauFresh : kTauStale);
    const float verticalGain = smoothingGain(fresh ? kTauVerticalFresh : kTauStale);
    follow(m_filters.lateral, fresh ? m_motion.latG : 0.0f, gain);
    follow(m_filters.longitudinal, fresh ? m_motion.lonG : 0.0f, gain);
    follow(m_filters.verticalFast, fresh ? m_motion.vertG : 0.0f, verticalGain);
    follow(m_filters.verticalSlow, m_filters.verticalFast, kVerticalSlowGain);
}

float ForceFeedbackComputation::bump() const
{
    if (m_tick % 2 != 0)
        return 0.0f;
    const float jolt = std::fabs(m_filters.verticalFast - m_filters.verticalSlow) - kBumpThreshold;
    return -std::min(kBumpLimit, kBumpGain * std::max(0.0f, jolt));
}

bool ForceFeedbackComputation::isIdle(bool fresh, float force) const
{
    const float motion =
        std::fabs(m_filters.longitudinal) + std::fabs(m_filters.lateral) + std::fabs(m_filters.verticalFast);
    return !fresh && std::fabs(force) < kIdleForce && motion < kIdleMotion;
}

void ForceFeedbackComputation::goIdle()
{
    m_filters = {};
    m_frames = 0;
    m_lostFrames = 0;
    m_statisticsSinceMs.reset();
}

float ForceFeedbackComputation::shapedWheelForce(float force, float strength)
{
    const float magnitude = std::fabs(force) * std::clamp(strength, 0.0f, 1.0f);
    if (magnitude <= 0.0f)
        return 0.0f;
    const float lifted = std::min(1.0f, magnitude / kLiftFullAt) * kLift + magnitude * (1.0f - kLift);
    return std::copysign(std::min(1.0f, lifted), force);
}

std::optional<float> ForceFeedbackComputation::wheelForce(float force, const WheelDrive &wheel)
{
    const float shaped = shapedWheelForce(force, wheel.strength);
    const bool changed = std::fabs(shaped - m_lastSent) > kSendStep;
    const bool released = shaped == 0.0f && m_lastSent != 0.0f;
    if (!changed && !released && m_tick % kResendEveryTicks != 0)
        return std::nullopt;
    m_lastSent = shaped;
    return shaped;
}

} // namespace tavrix
