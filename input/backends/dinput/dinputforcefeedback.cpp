#include "dinputforcefeedback.h"

#include <algorithm>
#include <cstdio>

namespace tavrix::dinput {

namespace {

struct NamedCooperation
{
    const char *name;
    Cooperation level;
};

// Effects exist only on an exclusively acquired device. The background mode keeps working
// while another window has the focus, so it comes first; some drivers grant only the
// foreground one.
constexpr NamedCooperation kExclusiveModes[] = {
    {"bg", Cooperation::ExclusiveBackground},
    {"fg", Cooperation::ExclusiveForeground},
};

struct NamedAxes
{
    const char *name;
    EffectAxes axes;
};

// Drivers disagree on how the steering axis must be named; these are the ways that have
// worked on some wheel, most common first. Both axes only when the wheel has two actuators.
std::vector<NamedAxes> axisConfigurations(const std::vector<ActuatorAxis> &found)
{
    std::vector<NamedAxes> configurations = {
        {"X/offset", {false, {kXAxisOffset}}},
        {"enum0/offset", {false, {found[0].offset}}},
        {"enum0/id", {true, {found[0].id}}},
    };
    if (found.size() > 1) {
        configurations.push_back({"enum2/offset", {false, {found[0].offset, found[1].offset}}});
        configurations.push_back({"enum2/id", {true, {found[0].id, found[1].id}}});
    }
    return configurations;
}

std::string joined(const std::vector<std::string> &parts)
{
    std::string text;
    for (const std::string &part : parts)
        text += (text.empty() ? "" : "  ") + part;
    return text;
}

} // namespace

std::string hexResult(Result result)
{
    char text[16];
    std::snprintf(text, sizeof(text), "%08lX", static_cast<unsigned long>(static_cast<uint32_t>(result)));
    return text;
}

ForceFeedback::ForceFeedback(EffectDevice &device, bool exclusive, Log log)
    : m_device(device)
    , m_exclusive(exclusive)
    , m_log(std::move(log))
{}

bool ForceFeedback::playConstantForce(double level)
{
    if (!m_hasConstant && !createConstantForce()) {
        m_error = "[err 0x" + hexResult(m_lastResult) + "] " + m_diagnostic;
        return false;
    }
    const auto magnitude = static_cast<int32_t>(std::clamp(level, -1.0, 1.0) * kNominalMax);
    const Result result = m_device.startConstantForce(magnitude);
    m_constantPlaying = !failed(result);
    if (failed(result))
        fail("SetParameters", result);
    return m_constantPlaying;
}

bool ForceFeedback::playSpring(double strength)
{
    if (!m_hasSpring && !createSpring())
        return false;
    const auto gain = static_cast<uint32_t>(std::clamp(strength, 0.0, 1.0) * kNominalMax);
    Result result = m_device.setSpringGain(gain);
    if (!failed(result) && !m_springPlaying)
        result = m_device.startSpring();
    m_springPlaying = !failed(result);
    if (failed(result))
        fail("spring", result);
    return m_springPlaying;
}

bool ForceFeedback::setAutocenter(bool on)
{
    return !failed(m_device.setAutocenter(on));
}

// An effect is stopped whenever it exists, playing or not: a start whose answer was lost
// must not leave a force on the wheel.
void ForceFeedback::stopConstantForce()
{
    if (m_hasConstant)
        m_device.stopConstantForce();
    m_constantPlaying = false;
}

void ForceFeedback::stopSpring()
{
    if (m_hasSpring)
        m_device.stopSpring();
    m_springPlaying = false;
}

void ForceFeedback::stopEffects()
{
    stopConstantForce();
    stopSpring();
}

void ForceFeedback::reacquireExclusive()
{
    m_device.unacquire();
    m_exclusive =
        !failed(m_device.setCooperation(Cooperation::ExclusiveBackground)) && !failed(m_device.acquire());
    if (!m_exclusive) {
        // Someone else holds the wheel: keep reading it at least.
        m_device.setCooperation(Cooperation::SharedBackground);
        m_device.acquire();
    }
}

ForceFeedbackProbe ForceFeedback::probe()
{
    ForceFeedbackProbe probe;
    probe.actuatorAxes = static_cast<int>(m_device.actuatorAxes().size());
    probe.constantForce = m_hasConstant || createConstantForce();
    probe.errorCode = static_cast<uint32_t>(m_lastResult);
    probe.diagnostic = m_diagnostic;
    return probe;
}

bool ForceFeedback::createConstantForce()
{
    Result last = kGenericFailure;
    std::vector<std::string> parts;
    for (const NamedCooperation &mode : kExclusiveModes) {
        m_device.unacquire();
        if (failed(last = m_device.setCooperation(mode.level)) || failed(last = m_device.acquire()))
            continue;
        m_exclusive = true;
        // The wheel's own centering would fight the forces we send.
        m_device.setAutocenter(false);
        m_device.resetForceFeedback();
        const std::vector<ActuatorAxis> axes = m_device.actuatorAxes();
        if (axes.empty()) {
            parts.push_back(std::string(mode.name) + ":noaxis");
            continue;
        }
        parts.push_back(std::string(mode.name) + " axes=" + std::to_string(axes.size()) + " ofs=[" +
                        std::to_string(axes[0].offset) + "," +
                        (axes.size() > 1 ? std::to_string(axes[1].offset) : std::string("-")) + "]");
        for (const NamedAxes &configuration : axisConfigurations(axes)) {
            last = m_device.createConstantForce(configuration.axes);
            if (!failed(last)) {
                parts.push_back(std::string("OK via ") + mode.name + "/" + configuration.name);
                m_hasConstant = true;
                break;
            }
            parts.push_back(std::string(configuration.name) + "=0x" + hexResult(last));
        }
        if (m_hasConstant)
            break;
    }
    if (!m_hasConstant) {
        // Without the effect exclusive access buys nothing and only locks other programs out.
        m_exclusive = false;
        m_device.unacquire();
        m_device.setCooperation(Cooperation::SharedBackground);
        m_device.acquire();
    }
    m_lastResult = last;
    m_diagnostic = joined(parts);
    if (m_log)
        m_log("[FFB] " + m_diagnostic);
    return m_hasConstant;
}

bool ForceFeedback::createSpring()
{
    m_device.setAutocenter(false);
    const std::vector<ActuatorAxis> axes = m_device.actuatorAxes();
    if (axes.empty()) {
        m_error = "spring:noaxis";
        return false;
    }
    const Result result = m_device.createSpring(axes[0].offset);
    m_hasSpring = !failed(result);
    if (!m_hasSpring)
        fail("spring", result);
    return m_hasSpring;
}

void ForceFeedback::fail(const std::string &what, Result result)
{
    m_error = what + "=0x" + hexResult(result);
}

} // namespace tavrix::dinput
