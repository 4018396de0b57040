#pragma once

#include <cstdint>

#include <optional>

namespace tavrix {

// The car's motion as its receiver reports it, in G.
struct CarMotion
{
    float lonG = 0.0f;
    float latG = 0.0f;
    float vertG = 0.0f;
};

// What the steering wheel may receive on this tick: null while force feedback is off or
// the wheel cannot take it.
struct WheelDrive
{
    float strength = 1.0f; // 0..1
};

// What one force tick leaves for its owner to do.
struct ForceFeedbackTick
{
    float force = 0.0f;               // -1..+1, before the strength
    std::optional<float> levelReport; // tell the listeners this level
    std::optional<float> wheelForce;  // send this constant force to the wheel
    bool wentIdle = false;            // nothing left to feel: stop ticking until motion comes
};

// Turns the car's motion into the constant force on the steering wheel, once per 20 ms
// tick: lateral G pulls the wheel, longitudinal G weighs on the steering, and vertical
// jolts become a vibration. Holds no timer and no device: the owner feeds it motion and
// the time on its own clock (milliseconds) and acts on what each tick returns. Plain C++,
// so the input test VM drives a kernel force-feedback wheel with it too.
class ForceFeedbackComputation
{
public:
    // The filters below assume exactly this period.
    static constexpr int kTickMs = 20;
    // Motion older than this no longer counts as the car's.
    static constexpr std::int64_t kFreshForMs = 300;
    // An unchanged force is sent again every this many ticks, in case the wheel dropped it.
    static constexpr std::uint32_t kResendEveryTicks = 25;

    struct Statistics
    {
        double framesPerSecond = 0.0;
        double lostPercent = 0.0;
    };

    void addMotion(const CarMotion &motion, std::int64_t nowMs);
    // Motion records the receiver says it could not deliver.
    void addLostFrames(int count) { m_lostFrames += count; }
    // With a quality requirement, a trickle of motion (under a minimum count in the current
    // statistics second) does not count as fresh.
    void setQualityRequired(bool required) { m_qualityRequired = required; }

    // steering: the wheel's position -1..+1. wheel: null when nothing goes to the wheel.
    ForceFeedbackTick tick(std::int64_t nowMs, float steering, std::optional<WheelDrive> wheel);

    // The wheel now plays this force (after an enable, a stop or a test pulse): the next
    // tick compares against it.
    void setWheelForce(float force) { m_lastSent = force; }
    [[nodiscard]] float lastReportedLevel() const { return m_lastReported; }
    [[nodiscard]] Statistics statistics() const { return m_statistics; }

    // The force a wheel of that strength receives for the force F.
    [[nodiscard]] static float shapedWheelForce(float force, float strength);

private:
    struct Filters
    {
        float lateral = 0.0f;
        float longitudinal = 0.0f;
        float verticalFast = 0.0f;
        float verticalSlow = 0.0f;
    };

    void updateStatistics(std::int64_t nowMs);
    [[nodiscard]] bool isFresh(std::int64_t nowMs) const;
    void filter(bool fresh);
    [[nodiscard]] float bump() const;
    [[nodiscard]] bool isIdle(bool fresh, float force) const;
    void goIdle();
    [[nodiscard]] std::optional<float> wheelForce(float force, const WheelDrive &wheel);

    CarMotion m_motion;
    bool m_hasMotion = false;
    std::int64_t m_lastMotionMs = 0;
    bool m_qualityRequired = false;

    int m_frames = 0;
    int m_lostFrames = 0;
    std::optional<std::int64_t> m_statisticsSinceMs;
    Statistics m_statistics;

    Filters m_filters;
    std::uint32_t m_tick = 0;
    float m_lastReported = 0.0f;
    float m_lastSent = 0.0f;
};

} // namespace tavrix
