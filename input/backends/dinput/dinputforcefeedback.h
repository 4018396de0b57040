#pragma once

// The DirectInput backend's force feedback: how the constant force and the centering spring
// are made, played and stopped, and how exclusive access is taken and given back. It speaks
// to the device only through EffectDevice, a handful of calls with the Windows types left
// out, so the same logic runs against the real IDirectInputDevice8 on Windows and against a
// recording stand-in in the Linux tests.

#include "inputbackend.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace tavrix::dinput {

// An HRESULT: negative means failure.
using Result = int32_t;
inline constexpr Result kOk = 0;
inline constexpr Result kGenericFailure = static_cast<Result>(0x80004005u); // E_FAIL
[[nodiscard]] constexpr bool failed(Result result)
{
    return result < 0;
}

// DirectInput's full scale for magnitudes, coefficients and gains (DI_FFNOMINALMAX).
inline constexpr int32_t kNominalMax = 10000;
// Where the X axis sits in the joystick data format the backend reads with (DIJOFS_X).
inline constexpr uint32_t kXAxisOffset = 0;

enum class Cooperation
{
    ExclusiveBackground, // DISCL_EXCLUSIVE | DISCL_BACKGROUND
    ExclusiveForeground, // DISCL_EXCLUSIVE | DISCL_FOREGROUND
    SharedBackground,    // DISCL_NONEXCLUSIVE | DISCL_BACKGROUND
};

// An axis that carries a force-feedback actuator: its data-format offset and its object id.
struct ActuatorAxis
{
    uint32_t offset = 0;
    uint32_t id = 0;
};

// The objects an effect acts on, named by data-format offset or by object id.
struct EffectAxes
{
    bool byId = false;
    std::vector<uint32_t> objects;
};

// The DirectInput calls the force-feedback logic makes on one device.
class EffectDevice
{
public:
    virtual ~EffectDevice() = default;

    virtual void unacquire() = 0;
    virtual Result setCooperation(Cooperation level) = 0;
    virtual Result acquire() = 0;
    // DIPROP_AUTOCENTER for the whole device.
    virtual Result setAutocenter(bool on) = 0;
    // DISFFC_RESET.
    virtual Result resetForceFeedback() = 0;
    // The first two axes flagged DIDOI_FFACTUATOR, in enumeration order.
    virtual std::vector<ActuatorAxis> actuatorAxes() = 0;

    // GUID_ConstantForce on those axes: Cartesian, endless, full gain, no trigger, no
    // envelope, no start delay, magnitude 0. Keeps the effect only when it succeeds.
    virtual Result createConstantForce(const EffectAxes &axes) = 0;
    // SetParameters(DIEP_TYPESPECIFICPARAMS | DIEP_START) with that magnitude.
    virtual Result startConstantForce(int32_t magnitude) = 0;
    virtual void stopConstantForce() = 0;

    // GUID_Spring on one axis by offset: centre 0, both coefficients and saturations at full
    // scale, no dead band; endless, full gain, no trigger.
    virtual Result createSpring(uint32_t axisOffset) = 0;
    // SetParameters(DIEP_GAIN).
    virtual Result setSpringGain(uint32_t gain) = 0;
    virtual Result startSpring() = 0;
    virtual void stopSpring() = 0;
};

class ForceFeedback
{
public:
    using Log = std::function<void(const std::string &)>;

    // The device must outlive this. `exclusive` is how the device was acquired when opened.
    ForceFeedback(EffectDevice &device, bool exclusive, Log log = {});

    [[nodiscard]] bool isExclusive() const { return m_exclusive; }

    // Level -1..+1 as magnitude ±10000; makes the effect on first use.
    bool playConstantForce(double level);
    // Strength 0..1 as the spring's gain; makes the spring on first use and starts it once.
    bool playSpring(double strength);
    bool setAutocenter(bool on);
    void stopConstantForce();
    void stopSpring();
    void stopEffects();
    void reacquireExclusive();
    // For the compatibility check: the actuator axes and the constant-force effect, made now
    // if it does not exist yet.
    ForceFeedbackProbe probe();

    // The outcome of the last attempt to make the constant force: its HRESULT and what was tried.
    [[nodiscard]] Result lastResult() const { return m_lastResult; }
    [[nodiscard]] const std::string &diagnostic() const { return m_diagnostic; }
    // Why the last effect operation failed, empty when nothing did.
    [[nodiscard]] const std::string &lastError() const { return m_error; }

private:
    bool createConstantForce();
    bool tryConstantForce(const char *mode, const std::vector<ActuatorAxis> &axes,
                          std::vector<std::string> &parts);
    bool createSpring();
    void fail(const std::string &what, Result result);

    EffectDevice &m_device;
    bool m_exclusive;
    Log m_log;
    bool m_hasConstant = false;
    bool m_constantPlaying = false;
    bool m_hasSpring = false;
    bool m_springPlaying = false;
    Result m_lastResult = kGenericFailure;
    std::string m_diagnostic;
    std::string m_error;
};

// "80004005": an HRESULT as the diagnostics print it.
[[nodiscard]] std::string hexResult(Result result);

} // namespace tavrix::dinput
