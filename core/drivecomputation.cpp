#include "drivecomputation.h"

#include "axiscalibration.h"
#include "inputsource.h"

#include <QCoreApplication>
#include <QLoggingCategory>

#include <algorithm>
#include <cmath>

Q_LOGGING_CATEGORY(lcDrive, "orvane.drive")

namespace tavrix {

namespace {

// Channel values are integers; every conversion truncates toward zero.
int32_t toChannel(float value)
{
    return static_cast<int32_t>(value);
}

QString boolText(bool value)
{
    return value ? QStringLiteral("true") : QStringLiteral("false");
}

} // namespace

DriveComputation::DriveComputation(const DriveSettings &settings)
    : m_settings(settings)
{
    reset();
}

bool DriveComputation::setSettings(const DriveSettings &settings)
{
    m_settings = settings;
    if (!m_settings.reverseEnabled && m_run.reverseMode) {
        m_run.reverseMode = false;
        return true;
    }
    return false;
}

void DriveComputation::reset()
{
    m_run = RunMemory{};
    m_run.output = float(m_settings.esc().neutral);
    m_run.stuckArmed = m_settings.stuckThrottleDetectionEnabled;
    m_run.softStartActive = m_settings.softStartEnabled;
    m_last = LastTick{};
    m_last.neutral = m_run.output;
}

int32_t DriveComputation::steeringChannel(float steeringRaw, float steering) const
{
    if (m_settings.hasDefaultSteeringEndpoints()) {
        // Centre gives 1023, one below the custom centre default of 1024. Existing
        // cars are trimmed against this value, so it is kept.
        const float s = std::clamp(steering, -1.0f, 1.0f);
        return toChannel((s + 1.0f) * (float(crsf::kChannelMax) / 2.0f));
    }

    const SteeringCalibration &cal = m_settings.steeringCalibration;
    float s = steeringRaw;
    if (cal.useCalibration)
        s = AxisCalibration{cal.inputMin, cal.inputCenter, cal.inputMax}.bipolar(s);
    if (cal.inverted)
        s = -s;
    s = std::clamp(s, -1.0f, 1.0f);

    const float left = float(m_settings.steeringLeft);
    const float centre = float(m_settings.steeringCenter);
    const float right = float(m_settings.steeringRight);
    if (s < 0.0f)
        return toChannel(centre - (left - centre) * s);
    return toChannel(centre + (right - centre) * s);
}

void DriveComputation::writeNeutral(ChannelValues &channels) const
{
    // With custom end points the centre is the one the user trimmed, whatever the
    // steering calibration would make of a centred raw value.
    channels[0] = m_settings.hasDefaultSteeringEndpoints()
                      ? steeringChannel(0.0f, 0.0f)
                      : std::clamp(m_settings.steeringCenter, crsf::kChannelMin, crsf::kChannelMax);
    channels[1] = std::clamp(m_settings.esc().neutral, crsf::kChannelMin, crsf::kChannelMax);
}

float DriveComputation::decelerationStep() const
{
    const EscValues esc = m_settings.esc();
    const float span = float(std::abs(esc.fullForward - esc.neutral));
    return span * 99.0f / ((float(m_settings.decelRate) * 14.0f + 85.0f) * 143.0f);
}

DriveTickResult DriveComputation::tick(const DriveInputs &inputs, const ButtonSource &wheelButtons,
                                       ChannelValues &channels)
{
    DriveTickResult result;
    ++m_run.ticks;
    const EscValues esc = m_settings.esc();

    channels[0] = steeringChannel(inputs.steeringRaw, inputs.steering);

    float throttle = inputs.throttle;
    float brake = inputs.brake;
    screenThrottle(throttle, brake, result);
    applySoftStart(throttle);
    readReverseButton(inputs, wheelButtons, result);

    m_last = LastTick{};
    m_last.gear = inputs.gear;
    m_last.neutral = float(esc.neutral);
    m_last.hasThrottle = throttle > kDeadZone;
    m_last.hasBrake = brake > kDeadZone;

    float output = 0.0f;
    const bool reverse = m_settings.reverseEnabled && (m_run.reverseMode || inputs.gear == -1);
    if (reverse) {
        // Reversing is neither gear-limited nor smoothed nor capped.
        output = reverseOutput(throttle, brake, esc);
        m_last.target = output;
        m_last.decelTarget = output;
    } else {
        const float target = std::trunc(forwardTarget(throttle, brake, esc));
        float decelTarget = target;
        bool neutralGear = false;
        const bool gearLimited = m_settings.gearThrottleLimitEnabled && isForwardGear(inputs.gear);
        const float gearPercent = gearLimited ? gearLimitPercent(inputs.gear) : 100.0f;
        if (m_settings.gearThrottleLimitEnabled && inputs.gear == 0) {
            neutralGear = true;
            decelTarget = float(esc.neutral);
        } else if (gearLimited) {
            decelTarget =
                std::min(decelTarget,
                         float(esc.neutral) + gearPercent / 100.0f * float(esc.fullForward - esc.neutral));
        }
        m_last.target = target;
        m_last.decelTarget = decelTarget;

        output = smooth(decelTarget, m_last.hasThrottle, m_last.hasBrake, neutralGear, esc);

        if (pitLimiterCaps(m_settings, inputs.pitLimiterHeld))
            output = std::min(output, float(m_settings.pitLimiterValue));
        if (gearLimited) {
            // The second pass truncates the negated fraction, so it rounds toward
            // neutral exactly as the first pass's cap does once CH2 is truncated.
            const float cap =
                float(esc.neutral) - std::trunc(gearPercent / -100.0f * float(esc.fullForward - esc.neutral));
            output = std::min(output, cap);
        }
    }

    // The remembered output is what went out (after the caps), so smoothing after a
    // cap or after reversing starts from the value the ESC actually saw.
    m_run.output = output;
    m_run.hasOutput = true;
    channels[1] = toChannel(output);
    channels[2] = 0;

    if (m_run.ticks % kDebugLogEvery == 0)
        qCDebug(lcDrive).noquote() << debugLine();
    return result;
}

void DriveComputation::screenThrottle(float &throttle, float &brake, DriveTickResult &result)
{
    // A pedal that reads full on the very first tick is more likely stuck or wrongly
    // calibrated than pressed on purpose: ignore it until it has been released.
    if (m_run.stuckArmed) {
        if (throttle < 0.1f) {
            m_run.stuckArmed = false;
        } else {
            if (m_run.stuckTicks == 0 && throttle > 0.9f)
                m_run.stuckLocked = true;
            if (++m_run.stuckTicks >= 3)
                m_run.stuckArmed = false;
        }
    }
    if (m_run.stuckLocked) {
        if (throttle < 0.1f)
            m_run.stuckLocked = false;
        else
            throttle = 0.0f;
    }

    // No foot goes from rest to above 80% within 7 ms: such a jump is a glitch.
    if (m_settings.throttleSpikeRejectionEnabled && m_run.previousThrottle < 0.1f && throttle > 0.8f) {
        throttle = 0.0f;
        brake = 0.0f;
        result.safetyStopRequested = true;
    }
    m_run.previousThrottle = throttle;
}

void DriveComputation::applySoftStart(float &throttle)
{
    if (!m_run.softStartActive)
        return;
    m_run.softStartElapsedMs += kTickMs;
    const float durationMs = float(m_settings.softStartDurationSec) * 1000.0f;
    if (durationMs <= 0.0f) {
        m_run.softStartActive = false;
        return;
    }
    const float floor = std::clamp(float(m_settings.softStartFloorPercent) / 100.0f, 0.0f, 1.0f);
    const float cap = std::min(float(m_run.softStartElapsedMs) / durationMs, 1.0f) * (1.0f - floor) + floor;
    throttle = std::min(throttle, cap);
    if (float(m_run.softStartElapsedMs) >= durationMs)
        m_run.softStartActive = false;
}

void DriveComputation::readReverseButton(const DriveInputs &inputs, const ButtonSource &wheelButtons,
                                         DriveTickResult &result)
{
    const int32_t button = m_settings.reverseButtonIndex;
    const bool pressed = button >= 0 && wheelButtons.isPressed(button);
    const bool rising = pressed && !m_run.reverseButtonWasPressed;
    m_run.reverseButtonWasPressed = pressed;

    if (m_settings.reverseEnabled && button >= 0 && rising) {
        m_run.reverseMode = !m_run.reverseMode;
        result.reverseModeChanged = true;
    } else if (!m_settings.reverseEnabled && m_run.reverseMode) {
        m_run.reverseMode = false;
        result.reverseModeChanged = true;
    }
    result.reverseActive = m_run.reverseMode || inputs.gear == -1;
}

float DriveComputation::reverseOutput(float throttle, float brake, const EscValues &esc) const
{
    if (brake > kDeadZone || throttle <= kDeadZone)
        return float(esc.neutral);
    const float amount =
        std::min(float(m_settings.reverseMaxPercent) / 100.0f, (throttle - kDeadZone) / kSpanPastDeadZone);
    return float(esc.neutral) + amount * float(esc.fullReverse - esc.neutral);
}

float DriveComputation::forwardTarget(float throttle, float brake, const EscValues &esc) const
{
    const float neutral = float(esc.neutral);
    if (brake >= kFirmBrake)
        return neutral + (brake - kFirmBrake) / 0.9f * float(esc.fullReverse - neutral);
    if (brake > kDeadZone)
        throttle *= 1.0f - brake / kFirmBrake;
    if (throttle > kDeadZone)
        return neutral + (throttle - kDeadZone) / kSpanPastDeadZone * float(esc.fullForward - neutral);
    return neutral;
}

float DriveComputation::smooth(float target, bool hasThrottle, bool hasBrake, bool neutralGear,
                               const EscValues &esc) const
{
    if (!m_settings.smoothDeceleration || hasBrake)
        return target;

    const float step = decelerationStep();
    const float neutral = float(esc.neutral);
    if (hasThrottle && !neutralGear) {
        if (!m_run.hasOutput || target >= m_run.output)
            return target;
        return std::max(m_run.output - step, target);
    }
    if (m_run.hasOutput && m_run.output > neutral) {
        if (m_run.output <= neutral * kSnapToNeutralFactor)
            return neutral;
        return std::max(m_run.output - step, neutral);
    }
    return target;
}

bool DriveComputation::isForwardGear(int32_t gear)
{
    return gear >= 1 && gear <= DriveSettings::kGears;
}

float DriveComputation::gearLimitPercent(int32_t gear) const
{
    return float(m_settings.gearThrottleLimitPercent[gear - 1]);
}

QString DriveComputation::debugLine() const
{
    return QStringLiteral("SmoothDecel: hasThrottle=%1 hasBrake=%2 gear=%3 currentOut=%4 target=%5 "
                          "decelTarget=%6 neutral=%7 smoothDecel=%8")
        .arg(boolText(m_last.hasThrottle), boolText(m_last.hasBrake), QString::number(m_last.gear),
             QString::number(m_run.output), QString::number(m_last.target),
             QString::number(m_last.decelTarget), QString::number(m_last.neutral),
             boolText(m_settings.smoothDeceleration));
}

QString DriveComputation::spikeStopReason()
{
    return QCoreApplication::translate("tavrix::DriveComputation", "impossible throttle spike detected");
}

} // namespace tavrix
