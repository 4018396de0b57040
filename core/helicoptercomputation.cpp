#include "helicoptercomputation.h"

#include "buttonmappingengine.h"
#include "inputsource.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace tavrix {

namespace {

constexpr int kAxisSlots = 8;

bool isAssigned(int32_t slot)
{
    return slot >= 0 && slot < kAxisSlots;
}

// The raw value of an assigned slot of a connected device that has it; nothing otherwise.
// An unassigned slot, a slot the device lacks and a device that is gone all leave their
// control at rest, after calibration: a captured centre or minimum that is off the raw
// 0 must not turn "nothing there" into a deflection or half collective.
std::optional<float> readAxis(const AxisSource *device, int32_t slot)
{
    if (!device || !device->isConnected() || !isAssigned(slot) || !device->hasAxis(slot))
        return std::nullopt;
    return device->axis(slot);
}

void writeChannel(ChannelValues &channels, int32_t index, int32_t value)
{
    if (index >= 0 && index < int32_t(channels.size()))
        channels[index] = std::clamp(value, crsf::kChannelMin, crsf::kChannelMax);
}

// Centred when the axis is not there.
float calibratedBipolar(const AxisCalibration &calibration, std::optional<float> raw)
{
    return raw ? std::clamp(calibration.bipolar(*raw), -1.0f, 1.0f) : 0.0f;
}

} // namespace

HelicopterComputation::HelicopterComputation(const HelicopterSettings &settings)
    : m_settings(settings)
{
    reset();
}

bool HelicopterComputation::setRateMode(int32_t mode)
{
    if (m_settings.dualRates.activeMode == mode)
        return false;
    m_settings.dualRates.activeMode = mode;
    return true;
}

void HelicopterComputation::reset()
{
    m_roll = {};
    m_pitch = {};
    m_collective = {};
    m_rudder = {};
    m_motor = {};
    m_softStartActive = m_settings.fly.softStart;
    m_softStartElapsedMs = 0;
    m_output = {};
}

void HelicopterComputation::tick(const HelicopterInputs &inputs, ButtonMappingEngine &buttons,
                                 const ButtonMappingList &mappings, ChannelValues &channels)
{
    const HelicopterSettings::Calibration &calibration = m_settings.calibration;
    const HelicopterSettings::Joystick &joystick = m_settings.inputs.joystick;

    float roll = calibratedBipolar(calibration.roll, readAxis(inputs.joystick, joystick.xAxis));
    float pitch = calibratedBipolar(calibration.pitch, readAxis(inputs.joystick, joystick.yAxis));
    float rudder = calibratedBipolar(calibration.rudder, rawRudder(inputs));
    // Without a collective lever the collective and the motor sit at the bottom, whatever
    // the curves would make of a lever there.
    const std::optional<float> stick = collectiveStick(inputs);
    float collective = 0.0f;
    if (stick)
        collective = m_settings.pitchCurve.enabled ? m_settings.pitchCurve.apply(*stick) : *stick;

    roll = screen(m_roll, roll);
    pitch = screen(m_pitch, pitch);
    collective = screen(m_collective, collective);
    rudder = screen(m_rudder, rudder);
    const bool driveMotor = m_settings.throttleCurve.enabled;
    // The motor value is screened and ramped like the collective it is derived from.
    float motor = driveMotor ? screen(m_motor, stick ? m_settings.throttleCurve.apply(*stick) : 0.0f) : 0.0f;

    const float ramp = softStartRamp();
    collective *= ramp;
    motor *= ramp;

    if (inputs.joystickButtons)
        buttons.apply(mappings, channels, *inputs.joystickButtons,
                      ButtonMappingEngine::kFirstHelicopterChannel,
                      ButtonMappingEngine::kLastHelicopterChannel, kTickMs);

    if (m_settings.dualRates.enabled) {
        // The collective is never rate-limited: a lower rate must not cost lift.
        const float rate = float(std::clamp(m_settings.dualRates.activePercent(), 0, 100)) / 100.0f;
        roll *= rate;
        pitch *= rate;
        rudder *= rate;
    }
    m_output = {roll, pitch, collective, rudder};

    const HelicopterSettings::Channels &targets = m_settings.channels;
    writeChannel(channels, targets.roll, bipolarToChannel(roll));
    writeChannel(channels, targets.pitch, bipolarToChannel(pitch));
    writeChannel(channels, targets.rudder, bipolarToChannel(rudder));
    writeChannel(channels, targets.throttle, collectiveToChannel(collective));
    if (driveMotor)
        writeChannel(channels, m_settings.motorChannel, collectiveToChannel(motor));
    if (m_settings.arm.enabled)
        writeChannel(channels, m_settings.arm.channel,
                     microsecondsToChannel(m_armed ? m_settings.arm.onUs : m_settings.arm.offUs));
}

void HelicopterComputation::writeNeutral(ChannelValues &channels) const
{
    const HelicopterSettings::Channels &targets = m_settings.channels;
    writeChannel(channels, targets.roll, bipolarToChannel(0.0f));
    writeChannel(channels, targets.pitch, bipolarToChannel(0.0f));
    writeChannel(channels, targets.rudder, bipolarToChannel(0.0f));
    writeChannel(channels, targets.throttle, collectiveToChannel(0.0f));
    if (m_settings.throttleCurve.enabled)
        writeChannel(channels, m_settings.motorChannel, collectiveToChannel(0.0f));
    if (m_settings.arm.enabled)
        writeChannel(channels, m_settings.arm.channel, microsecondsToChannel(m_settings.arm.offUs));
}

HelicopterComputation::ArmChange HelicopterComputation::requestArmed(bool armed,
                                                                     const HelicopterInputs &inputs)
{
    if (armed == m_armed)
        return ArmChange::Unchanged;
    // Only a lever that is there can be judged; without one the collective reads bottom.
    const std::optional<float> stick = armed ? collectiveStick(inputs) : std::nullopt;
    if (m_settings.fly.armAtIdle && stick && *stick > kArmIdleLimit)
        return ArmChange::Refused;
    m_armed = armed;
    return ArmChange::Changed;
}

bool HelicopterComputation::disarm()
{
    return requestArmed(false, {}) == ArmChange::Changed;
}

QString HelicopterComputation::armRefusedMessage()
{
    return tr("Lower the collective before arming the motor.");
}

int32_t HelicopterComputation::bipolarToChannel(float value)
{
    const float v = std::clamp(value, -1.0f, 1.0f);
    constexpr float kHalfSpan = float(crsf::kServoMax - crsf::kServoMin) / 2.0f;
    return std::clamp(int32_t(std::lround(v * kHalfSpan + float(crsf::kServoCenter))), crsf::kServoMin,
                      crsf::kServoMax);
}

int32_t HelicopterComputation::collectiveToChannel(float value)
{
    const float v = std::clamp(value, 0.0f, 1.0f);
    return int32_t(std::lround(v * float(crsf::kServoMax - crsf::kServoMin) + float(crsf::kServoMin)));
}

int32_t HelicopterComputation::microsecondsToChannel(int32_t microseconds)
{
    const double value = double(microseconds - 880) * 8.0 / 5.0;
    return std::clamp(int32_t(std::lround(value)), crsf::kChannelMin, crsf::kChannelMax);
}

float HelicopterComputation::screen(SpikeGuard &guard, float value)
{
    // One glitching sample is held back for up to four ticks (28 ms); a jump that is
    // still there on the fifth tick is real and is taken.
    if (std::fabs(value - guard.accepted) > kSpikeThreshold && guard.heldTicks < kSpikeHoldTicks) {
        ++guard.heldTicks;
        return guard.accepted;
    }
    guard.accepted = value;
    guard.heldTicks = 0;
    return value;
}

std::optional<float> HelicopterComputation::collectiveStick(const HelicopterInputs &inputs) const
{
    const std::optional<float> raw = readAxis(inputs.throttle, m_settings.inputs.throttle.axis);
    if (!raw)
        return std::nullopt;
    return m_settings.calibration.throttle.oneSided(*raw);
}

std::optional<float> HelicopterComputation::rawRudder(const HelicopterInputs &inputs) const
{
    const HelicopterSettings::Pedals &pedals = m_settings.inputs.pedals;
    if (pedals.differential && isAssigned(pedals.axis) && isAssigned(pedals.axis2)) {
        const std::optional<float> leftRaw = readAxis(inputs.pedals, pedals.axis);
        const std::optional<float> rightRaw = readAxis(inputs.pedals, pedals.axis2);
        if (!leftRaw || !rightRaw)
            return std::nullopt;
        // Each pedal rests at -1 (released) and reads +1 fully pressed.
        const float left = (*leftRaw + 1.0f) / 2.0f;
        const float right = (*rightRaw + 1.0f) / 2.0f;
        return std::clamp(right - left, -1.0f, 1.0f);
    }
    return readAxis(inputs.pedals, pedals.axis);
}

float HelicopterComputation::softStartRamp()
{
    if (!m_softStartActive)
        return 1.0f;
    // Durations below one second (0 included) still ramp over one second.
    const float durationMs = std::max(float(m_settings.fly.softStartSec) * 1000.0f, 1000.0f);
    const float ramp = std::clamp(float(m_softStartElapsedMs) / durationMs, 0.0f, 1.0f);
    m_softStartElapsedMs += kTickMs;
    if (ramp >= 1.0f)
        m_softStartActive = false;
    return ramp;
}

} // namespace tavrix
