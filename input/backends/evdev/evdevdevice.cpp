#include "evdevdevice.h"

#include <libevdev/libevdev.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <linux/input.h>
#include <mutex>
#include <set>
#include <sys/ioctl.h>
#include <unistd.h>

namespace tavrix::evdev {

namespace {

std::string errorText(const char *what, int error)
{
    return std::string(what) + ": " + std::strerror(error);
}

DeviceCapabilities capabilitiesOf(const libevdev *dev)
{
    DeviceCapabilities caps;
    for (int type = 0; type < EV_CNT; ++type) {
        if (libevdev_has_event_type(dev, static_cast<unsigned>(type)))
            caps.events.set(static_cast<size_t>(type));
    }
    for (int code = 0; code < KEY_CNT; ++code) {
        if (libevdev_has_event_code(dev, EV_KEY, static_cast<unsigned>(code)))
            caps.keys.set(static_cast<size_t>(code));
    }
    for (int code = 0; code < ABS_CNT; ++code) {
        if (libevdev_has_event_code(dev, EV_ABS, static_cast<unsigned>(code)))
            caps.axes.set(static_cast<size_t>(code));
    }
    for (int code = 0; code < FF_CNT; ++code) {
        if (libevdev_has_event_code(dev, EV_FF, static_cast<unsigned>(code)))
            caps.effects.set(static_cast<size_t>(code));
    }
    for (int prop = 0; prop < INPUT_PROP_CNT; ++prop) {
        if (libevdev_has_property(dev, static_cast<unsigned>(prop)))
            caps.properties.set(static_cast<size_t>(prop));
    }
    return caps;
}

// Force-feedback levels of the seam (-1..+1, 0..1) in the kernel's units.
int16_t signedLevel(double level)
{
    return static_cast<int16_t>(std::clamp(level, -1.0, 1.0) * 0x7fff);
}

uint16_t unsignedLevel(double level)
{
    return static_cast<uint16_t>(std::clamp(level, 0.0, 1.0) * 0xffff);
}

// A constant force along the wheel's axis: with direction 0x4000 the kernel's
// drivers apply level × sin(90°), so a positive level pushes the way a positive
// DirectInput magnitude on the X axis does.
constexpr uint16_t kWheelAxisDirection = 0x4000;

// The nodes this process holds grabbed, so a grab refused because of our own is told apart
// from one held by another program.
std::mutex g_grabbedMutex;
std::multiset<std::string> g_grabbed;

bool grabbedHere(const std::string &path)
{
    const std::lock_guard lock(g_grabbedMutex);
    return g_grabbed.count(path) > 0;
}

} // namespace

void EvdevDevice::setExclusive(bool exclusive)
{
    if (exclusive == m_exclusive)
        return;
    m_exclusive = exclusive;
    const std::lock_guard lock(g_grabbedMutex);
    if (exclusive)
        g_grabbed.insert(m_path);
    else
        g_grabbed.erase(g_grabbed.find(m_path));
}

std::string EvdevDevice::heldElsewhereProblem(const std::string &devicePath, const std::string &name)
{
    return "Another program holds " + name + " (" + devicePath +
           ") exclusively, so its inputs do not reach the HUB. Close that program (a game or a "
           "remapping tool) and pick the device again.";
}

std::unique_ptr<EvdevDevice> EvdevDevice::open(const std::string &devicePath, const DeviceIdentity &identity,
                                               const DeviceListEntry &entry, std::string *error)
{
    auto fail = [&](std::string message) -> std::unique_ptr<EvdevDevice> {
        if (error)
            *error = std::move(message);
        return nullptr;
    };

    std::unique_ptr<EvdevDevice> device(new EvdevDevice);
    device->m_path = devicePath;
    device->m_info = entry;
    device->m_fd = ::open(devicePath.c_str(), O_RDWR | O_NONBLOCK | O_CLOEXEC);
    device->m_writable = device->m_fd >= 0;
    if (device->m_fd < 0 && (errno == EACCES || errno == EROFS || errno == EPERM))
        device->m_fd = ::open(devicePath.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (device->m_fd < 0)
        return fail(errorText(("Cannot open " + devicePath).c_str(), errno));

    const int rc = libevdev_new_from_fd(device->m_fd, &device->m_dev);
    if (rc < 0)
        return fail(errorText((devicePath + " is not an input device").c_str(), -rc));

    device->m_caps = capabilitiesOf(device->m_dev);
    device->m_layout = layoutDevice(device->m_caps, findSlotOverride(identity));
    for (int code = 0; code < ABS_CNT; ++code) {
        if (device->m_caps.axes.test(static_cast<size_t>(code))) {
            device->m_minimum[static_cast<size_t>(code)] = libevdev_get_abs_minimum(device->m_dev, code);
            device->m_maximum[static_cast<size_t>(code)] = libevdev_get_abs_maximum(device->m_dev, code);
        }
    }

    // The counts come from the opened device, as DirectInput takes them from
    // GetCapabilities after acquiring.
    device->m_info.axisCount = device->m_layout.axisCount;
    device->m_info.axisSlots = device->m_layout.axisSlotMask();
    device->m_info.buttonCount = static_cast<uint32_t>(device->m_layout.buttonCodes.size());
    device->m_info.povCount = static_cast<uint32_t>(std::count_if(
        device->m_layout.povHat.begin(), device->m_layout.povHat.end(), [](int h) { return h >= 0; }));
    device->m_info.hasForceFeedback = device->m_layout.hasForceFeedback;

    // Like DirectInput's exclusive level for force-feedback devices: effects from
    // another program must not fight ours, and nobody else reads the wheel meanwhile.
    // Any other device is only probed: a grab taken and given back at once. A device another
    // program has grabbed (a game, a remapping tool) sends that program every event and us
    // none, so it is opened shared and says why it does not move; a wheel is taken over once
    // that program lets go (reacquireExclusive). A grab we hold ourselves (the pedals role on
    // the wheel base that is also the wheel role) is no problem: that device is read shared.
    const int grab = libevdev_grab(device->m_dev, LIBEVDEV_GRAB);
    if (grab == -EBUSY && !grabbedHere(devicePath))
        device->m_sharingProblem = heldElsewhereProblem(devicePath, identity.name);
    if (grab == 0 && !device->m_layout.hasForceFeedback)
        libevdev_grab(device->m_dev, LIBEVDEV_UNGRAB);
    else
        device->setExclusive(grab == 0);
    return device;
}

EvdevDevice::~EvdevDevice()
{
    if (m_fd >= 0) {
        stopEffects();
        eraseEffect(m_constant);
        eraseEffect(m_spring);
    }
    if (m_dev) {
        if (m_exclusive && !m_lost)
            libevdev_grab(m_dev, LIBEVDEV_UNGRAB);
        setExclusive(false);
        libevdev_free(m_dev);
    }
    if (m_fd >= 0)
        ::close(m_fd);
}

bool EvdevDevice::drainEvents()
{
    input_event event{};
    for (;;) {
        int rc = libevdev_next_event(m_dev, LIBEVDEV_READ_FLAG_NORMAL, &event);
        // After SYN_DROPPED libevdev replays the device's current state; take it all.
        while (rc == LIBEVDEV_READ_STATUS_SYNC)
            rc = libevdev_next_event(m_dev, LIBEVDEV_READ_FLAG_SYNC, &event);
        if (rc == LIBEVDEV_READ_STATUS_SUCCESS)
            continue;
        if (rc == -EAGAIN)
            return true;
        if (rc == -EINTR)
            continue;
        return false; // -ENODEV when the device is unplugged; anything else is as fatal
    }
}

PollResult EvdevDevice::poll(RawInputState &state)
{
    if (m_lost || !drainEvents()) {
        m_lost = true;
        return PollResult::Lost;
    }

    for (int slot = 0; slot < AxisSlotCount; ++slot) {
        const int code = m_layout.slotCode[static_cast<size_t>(slot)];
        if (code < 0)
            continue;
        state.axes[static_cast<size_t>(slot)] =
            scaleAxis(libevdev_get_event_value(m_dev, EV_ABS, code), m_minimum[static_cast<size_t>(code)],
                      m_maximum[static_cast<size_t>(code)]);
    }
    for (size_t index = 0; index < m_layout.buttonCodes.size(); ++index)
        state.buttons[index] =
            libevdev_get_event_value(m_dev, EV_KEY, m_layout.buttonCodes[index]) ? 0x80 : 0x00;
    for (int pov = 0; pov < kRawPovCount; ++pov) {
        const int hat = m_layout.povHat[static_cast<size_t>(pov)];
        if (hat < 0)
            continue;
        const int xCode = ABS_HAT0X + 2 * hat;
        const int yCode = xCode + 1;
        const int x =
            hatDirection(libevdev_get_event_value(m_dev, EV_ABS, xCode), m_minimum[xCode], m_maximum[xCode]);
        const int y =
            hatDirection(libevdev_get_event_value(m_dev, EV_ABS, yCode), m_minimum[yCode], m_maximum[yCode]);
        state.povs[static_cast<size_t>(pov)] = povFromHat(x, y);
    }
    return PollResult::Ok;
}

bool EvdevDevice::writeEvent(int type, int code, int value)
{
    input_event event{};
    event.type = static_cast<uint16_t>(type);
    event.code = static_cast<uint16_t>(code);
    event.value = value;
    if (::write(m_fd, &event, sizeof(event)) != static_cast<ssize_t>(sizeof(event))) {
        setEffectError("Writing a force-feedback event failed", errno);
        return false;
    }
    return true;
}

void EvdevDevice::setEffectError(std::string what, int error)
{
    m_effectError = std::move(what);
    if (error != 0)
        m_effectError += std::string(": ") + std::strerror(error);
    m_effectErrno = error;
}

bool EvdevDevice::canPlay(int effectType)
{
    if (m_lost) {
        setEffectError("The device is gone", ENODEV);
        return false;
    }
    if (!m_caps.events.test(EV_FF) || !m_caps.effects.test(static_cast<size_t>(effectType))) {
        setEffectError("The device has no such force-feedback effect", EOPNOTSUPP);
        return false;
    }
    if (!m_writable) {
        setEffectError("No write permission on " + m_path + ": force feedback needs the udev rule", EACCES);
        return false;
    }
    return true;
}

bool EvdevDevice::upload(ff_effect &effect, Effect &slot)
{
    effect.id = static_cast<int16_t>(slot.id);
    if (::ioctl(m_fd, EVIOCSFF, &effect) < 0) {
        setEffectError("Uploading the effect (EVIOCSFF) failed", errno);
        return false;
    }
    slot.id = effect.id;
    return true;
}

bool EvdevDevice::start(Effect &effect)
{
    if (effect.playing)
        return true; // an update of a playing effect takes effect at once
    effect.playing = writeEvent(EV_FF, effect.id, 1);
    return effect.playing;
}

void EvdevDevice::eraseEffect(Effect &effect)
{
    if (effect.id >= 0 && !m_lost)
        ::ioctl(m_fd, EVIOCRMFF, effect.id);
    effect = Effect{};
}

bool EvdevDevice::setAutocenter(double strength)
{
    if (!canPlay(FF_AUTOCENTER))
        return false;
    return writeEvent(EV_FF, FF_AUTOCENTER, unsignedLevel(strength));
}

bool EvdevDevice::setGain(double gain)
{
    if (!canPlay(FF_GAIN))
        return false;
    return writeEvent(EV_FF, FF_GAIN, unsignedLevel(gain));
}

bool EvdevDevice::uploadConstantForce(double level)
{
    if (!canPlay(FF_CONSTANT))
        return false;
    ff_effect effect{};
    effect.type = FF_CONSTANT;
    effect.direction = kWheelAxisDirection;
    effect.replay.length = 0; // until stopped
    effect.u.constant.level = signedLevel(level);
    return upload(effect, m_constant);
}

bool EvdevDevice::playConstantForce(double level)
{
    return uploadConstantForce(level) && start(m_constant);
}

// The strength scales the spring's coefficients. The kernel has no per-effect gain, and
// FF_GAIN is the whole device's: it would weaken the constant force along with the spring.
bool EvdevDevice::playSpring(double strength)
{
    if (!canPlay(FF_SPRING))
        return false;
    ff_effect effect{};
    effect.type = FF_SPRING;
    effect.direction = kWheelAxisDirection;
    effect.replay.length = 0;
    ff_condition_effect &axis = effect.u.condition[0];
    axis.right_saturation = 0xffff;
    axis.left_saturation = 0xffff;
    axis.right_coeff = signedLevel(std::clamp(strength, 0.0, 1.0));
    axis.left_coeff = axis.right_coeff;
    axis.deadband = 0;
    axis.center = 0;
    return upload(effect, m_spring) && start(m_spring);
}

// An uploaded effect is stopped whether or not we think it plays: a start whose write
// failed half-way must not leave a force on the wheel.
void EvdevDevice::stop(Effect &effect)
{
    if (effect.id >= 0 && !m_lost)
        writeEvent(EV_FF, effect.id, 0);
    effect.playing = false;
}

void EvdevDevice::stopConstantForce()
{
    stop(m_constant);
}

void EvdevDevice::stopSpring()
{
    stop(m_spring);
}

void EvdevDevice::stopEffects()
{
    stop(m_constant);
    stop(m_spring);
}

// The kernel refuses a second EVIOCGRAB even from the holder, so let go first. Refused,
// the device stays open without the grab and is read like any shared device. Only a wheel
// with force feedback is ever grabbed, as on open.
void EvdevDevice::reacquireExclusive()
{
    if (m_lost || !m_dev || !m_layout.hasForceFeedback)
        return;
    if (m_exclusive)
        libevdev_grab(m_dev, LIBEVDEV_UNGRAB);
    setExclusive(false);
    setExclusive(libevdev_grab(m_dev, LIBEVDEV_GRAB) == 0);
    if (m_exclusive)
        m_sharingProblem.clear();
}

// Linux has no per-axis actuators: a wheel that takes a constant force turns its steering
// axis, which makes one actuator axis.
ForceFeedbackProbe EvdevDevice::probeForceFeedback()
{
    ForceFeedbackProbe probe;
    const bool steersWithForce = m_layout.hasForceFeedback && m_layout.slotCode[SlotX] >= 0;
    probe.actuatorAxes = steersWithForce ? 1 : 0;
    probe.constantForce = m_constant.id >= 0 || (steersWithForce && uploadConstantForce(0.0));
    if (probe.constantForce) {
        probe.diagnostic = "constant force is effect " + std::to_string(m_constant.id);
    } else {
        if (!steersWithForce)
            setEffectError("No steering axis that takes a constant force", EOPNOTSUPP);
        probe.errorCode = static_cast<uint32_t>(m_effectErrno);
        probe.diagnostic = m_effectError;
    }
    return probe;
}

} // namespace tavrix::evdev
