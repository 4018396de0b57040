#pragma once

#include "buttonmapping.h"
#include "crsftypes.h"
#include "helicoptersettings.h"

#include <QCoreApplication>
#include <QString>

#include <cstdint>
#include <optional>

namespace tavrix {

class AxisSource;
class ButtonSource;
class ButtonMappingEngine;

// The devices of one helicopter tick. A missing or disconnected device leaves its
// controls at rest (stick and rudder centred, collective at the bottom), as does an
// axis that is unassigned or that the device lacks; without joystick buttons the
// button mappings are not applied.
struct HelicopterInputs
{
    const AxisSource *joystick = nullptr;
    const AxisSource *throttle = nullptr;
    const AxisSource *pedals = nullptr;
    const ButtonSource *joystickButtons = nullptr;
};

// The flight values of the last tick, before conversion to channel values.
struct HelicopterOutput
{
    float roll = 0.0f;
    float pitch = 0.0f;
    float collective = 0.0f;
    float rudder = 0.0f;
};

// Flight channels of an RC helicopter, one 7 ms tick at a time: axes read and
// calibrated, collective curve, per-axis spike protection, soft start of the
// collective, button mappings on CH5..CH16, rates, and the ExpressLRS conversions.
// Also holds the arm state and its rule. Allocates nothing on the tick.
class HelicopterComputation
{
    Q_DECLARE_TR_FUNCTIONS(HelicopterComputation)
public:
    static constexpr int kTickMs = 7;
    // A change larger than this between two ticks is a glitch until it persists.
    static constexpr float kSpikeThreshold = 0.6f;
    static constexpr int kSpikeHoldTicks = 4;
    // Above this calibrated collective, arming is refused when armAtIdle is set.
    static constexpr float kArmIdleLimit = 0.1f;

    enum class ArmChange
    {
        Unchanged,
        Changed,
        Refused
    };

    explicit HelicopterComputation(const HelicopterSettings &settings = {});

    void setSettings(const HelicopterSettings &settings) { m_settings = settings; }
    [[nodiscard]] const HelicopterSettings &settings() const { return m_settings; }
    // Returns true when the mode changed (the controller emits heliRateModeChanged).
    bool setRateMode(int32_t mode);

    // Clears the spike memory and arms the soft start when enabled; called at every
    // start of transmission. The arm state is left alone: stopping disarms.
    void reset();

    // One tick: writes the flight channels, the button channels CH5..CH16 and the arm
    // channel. Where a flight or arm channel index coincides with a button channel,
    // the flight value wins, as it is written last.
    void tick(const HelicopterInputs &inputs, ButtonMappingEngine &buttons, const ButtonMappingList &mappings,
              ChannelValues &channels);

    // The frame a stop leaves behind: roll, pitch and rudder centred, collective and motor
    // at the bottom, the arm channel safe. Button channels stay as they are.
    void writeNeutral(ChannelValues &channels) const;

    // Arming rule: arming is refused (Refused; show armRefusedMessage()) while armAtIdle
    // is set, the throttle device is connected, the collective axis is assigned (and the
    // device has it) and its calibrated value is above 10%. Changed means: emit heliArmedChanged(armed).
    ArmChange requestArmed(bool armed, const HelicopterInputs &inputs);
    // Disarms; true when it was armed (emit heliArmedChanged(false)).
    bool disarm();
    [[nodiscard]] bool isArmed() const { return m_armed; }
    [[nodiscard]] bool isSoftStartActive() const { return m_softStartActive; }
    [[nodiscard]] const HelicopterOutput &lastOutput() const { return m_output; }

    [[nodiscard]] static QString armRefusedMessage();

    // ExpressLRS conversions, nearest integer with halves away from zero.
    // -1..+1 to 172..1811 around 992; +1 gives 1811 (1811.5 clamped) but -1 gives 173
    // (172.5 rounds away from zero): the one-count difference is kept on purpose.
    [[nodiscard]] static int32_t bipolarToChannel(float value);
    // 0..1 to 172..1811.
    [[nodiscard]] static int32_t collectiveToChannel(float value);
    // Microseconds to a channel value (1000 us gives 192, 2000 us gives 1792), 0..2047.
    [[nodiscard]] static int32_t microsecondsToChannel(int32_t microseconds);

private:
    struct SpikeGuard
    {
        float accepted = 0.0f;
        int heldTicks = 0;
    };
    static float screen(SpikeGuard &guard, float value);
    // The calibrated collective lever (0..1); nothing when there is no lever to read.
    [[nodiscard]] std::optional<float> collectiveStick(const HelicopterInputs &inputs) const;
    // The rudder before calibration; nothing when a rudder axis is not there.
    [[nodiscard]] std::optional<float> rawRudder(const HelicopterInputs &inputs) const;
    // Advances the soft start by one tick and returns the collective's factor.
    float softStartRamp();

    HelicopterSettings m_settings;
    SpikeGuard m_roll;
    SpikeGuard m_pitch;
    SpikeGuard m_collective;
    SpikeGuard m_rudder;
    SpikeGuard m_motor;
    bool m_softStartActive = false;
    int m_softStartElapsedMs = 0;
    bool m_armed = false;
    HelicopterOutput m_output;
};

} // namespace tavrix
