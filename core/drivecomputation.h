#pragma once

#include "crsftypes.h"
#include "drivesettings.h"

#include <QString>

#include <cstdint>

namespace tavrix {

class ButtonSource;

// What one car tick reads from the wheel, pedals and shifter.
struct DriveInputs
{
    // Steering slot value before the axis settings (-1..+1): used with custom end points.
    float steeringRaw = 0.0f;
    // Steering through the Steering axis settings (-1..+1): used with the default end points.
    float steering = 0.0f;
    // Calibrated pedals, 0..1.
    float throttle = 0.0f;
    float brake = 0.0f;
    // Shifter: 0 neutral, 1..7 forward gears, -1 reverse gear.
    int32_t gear = 0;
    // A pit-limiter button mapping is held (ButtonMappingEngine::isPitLimiterActive).
    bool pitLimiterHeld = false;
};

// What the controller must do after a car tick.
struct DriveTickResult
{
    // The throttle jumped impossibly fast: this tick already went out zeroed; queue a
    // safety stop with DriveComputation::spikeStopReason().
    bool safetyStopRequested = false;
    // Emit reverseModeChanged(reverseActive).
    bool reverseModeChanged = false;
    // Reverse mode on, or the shifter in reverse gear.
    bool reverseActive = false;
};

// CH1 (steering) and CH2 (ESC) of an RC car, one 7 ms tick at a time. The throttle goes
// through, in this order: stuck-throttle detection, the spike rule, soft start,
// reverse, forward brake and mapping, per-gear limit, smooth deceleration and the caps
// (pit limiter, per-gear limit again). All per-run memory is in plain fields; the
// tick allocates nothing (except the debug line written every 50th tick).
class DriveComputation
{
public:
    static constexpr int kTickMs = 7;
    static constexpr int kDebugLogEvery = 50;
    // Pedal dead zone: 50 counts of the 11-bit span.
    static constexpr float kDeadZone = 50.0f / float(crsf::kChannelMax);
    // 1 - kDeadZone, as the rescaling past the dead zone uses it.
    static constexpr float kSpanPastDeadZone = 0.975574f;
    static constexpr float kFirmBrake = 0.1f;
    static constexpr float kSnapToNeutralFactor = 1.075f;

    explicit DriveComputation(const DriveSettings &settings = {});

    // Takes new settings. Returns true when this switched reverse mode off (reverse
    // was disabled while it was on): the controller emits reverseModeChanged(false).
    bool setSettings(const DriveSettings &settings);
    [[nodiscard]] const DriveSettings &settings() const { return m_settings; }

    // Clears the per-run memory; called at every start of transmission. Arms the
    // stuck-throttle detection and the soft start when they are enabled.
    void reset();

    // One tick: writes CH1, CH2, and CH3 = 0 (CH3 onward belongs to the button mappings).
    // wheelButtons answers for the reverse button.
    DriveTickResult tick(const DriveInputs &inputs, const ButtonSource &wheelButtons,
                         ChannelValues &channels);

    // The frame a stop leaves behind: CH1 at the steering centre, CH2 at ESC neutral.
    // The other channels are not the drive's and stay as they are.
    void writeNeutral(ChannelValues &channels) const;

    [[nodiscard]] int32_t steeringChannel(float steeringRaw, float steering) const;
    // Channel units the smoothed output falls per tick.
    [[nodiscard]] float decelerationStep() const;
    [[nodiscard]] bool isReverseModeActive() const { return m_run.reverseMode; }
    [[nodiscard]] bool isSoftStartActive() const { return m_run.softStartActive; }
    [[nodiscard]] bool isThrottleLocked() const { return m_run.stuckLocked; }
    [[nodiscard]] float rememberedOutput() const { return m_run.output; }
    // The smooth-deceleration state of the last tick as the periodic debug line shows it.
    [[nodiscard]] QString debugLine() const;

    [[nodiscard]] static QString spikeStopReason();
    // The pit limiter caps the throttle while it is switched on in the settings or its button is held.
    [[nodiscard]] static bool pitLimiterCaps(const DriveSettings &settings, bool buttonHeld)
    {
        return settings.pitLimiterEnabled || buttonHeld;
    }

private:
    // Throttle and brake after the stuck-throttle detection and the spike rule.
    void screenThrottle(float &throttle, float &brake, DriveTickResult &result);
    void applySoftStart(float &throttle);
    void readReverseButton(const DriveInputs &inputs, const ButtonSource &wheelButtons,
                           DriveTickResult &result);
    [[nodiscard]] float reverseOutput(float throttle, float brake, const EscValues &esc) const;
    [[nodiscard]] float forwardTarget(float throttle, float brake, const EscValues &esc) const;
    [[nodiscard]] float smooth(float target, bool hasThrottle, bool hasBrake, bool neutralGear,
                               const EscValues &esc) const;
    [[nodiscard]] static bool isForwardGear(int32_t gear);
    // The limit of a forward gear 1..7, in percent of the forward span.
    [[nodiscard]] float gearLimitPercent(int32_t gear) const;

    struct RunMemory
    {
        float output = float(crsf::kServoCenter);
        bool hasOutput = false;
        float previousThrottle = 0.0f;
        bool stuckArmed = false;
        bool stuckLocked = false;
        int stuckTicks = 0;
        bool softStartActive = false;
        int softStartElapsedMs = 0;
        bool reverseMode = false;
        bool reverseButtonWasPressed = false;
        uint32_t ticks = 0;
    };
    // What the debug line reports about the last tick.
    struct LastTick
    {
        bool hasThrottle = false;
        bool hasBrake = false;
        int32_t gear = 0;
        float target = 0.0f;
        float decelTarget = 0.0f;
        float neutral = float(crsf::kServoCenter);
    };

    DriveSettings m_settings;
    RunMemory m_run;
    LastTick m_last;
};

} // namespace tavrix
