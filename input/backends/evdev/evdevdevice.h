#pragma once

// One opened evdev game controller: reads its state through libevdev into the
// raw layout, takes it exclusively (EVIOCGRAB) when it has force feedback, and
// plays a constant force and a spring through EVIOCSFF and EV_FF events.

#include "evdevmapping.h"
#include "inputbackend.h"

#include <array>
#include <memory>
#include <string>

struct libevdev;
struct ff_effect;

namespace tavrix::evdev {

class EvdevDevice final : public BackendDevice
{
public:
    // Opens the node (read-write when allowed, for force feedback) and prepares the
    // layout; nullptr with a message in *error when the node cannot be used.
    // The refusal for a device another program has grabbed.
    static std::string heldElsewhereProblem(const std::string &devicePath, const std::string &name);
    static std::unique_ptr<EvdevDevice> open(const std::string &devicePath, const DeviceIdentity &identity,
                                             const DeviceListEntry &entry, std::string *error);
    ~EvdevDevice() override;

    EvdevDevice(const EvdevDevice &) = delete;
    EvdevDevice &operator=(const EvdevDevice &) = delete;

    const DeviceListEntry &info() const override { return m_info; }
    PollResult poll(RawInputState &state) override;
    bool isExclusive() const override { return m_exclusive; }
    std::string sharingProblem() const override { return m_sharingProblem; }

    bool setAutocenter(double strength) override;
    bool setGain(double gain) override;
    bool playConstantForce(double level) override;
    bool playSpring(double strength) override;
    void stopConstantForce() override;
    void stopSpring() override;
    void stopEffects() override;
    void reacquireExclusive() override;
    ForceFeedbackProbe probeForceFeedback() override;
    std::string lastEffectError() const override { return m_effectError; }

    const DeviceLayout &layout() const { return m_layout; }
    const std::string &devicePath() const { return m_path; }

private:
    // Keeps the process-wide record of grabbed nodes in step with m_exclusive.
    void setExclusive(bool exclusive);
    struct Effect
    {
        int id = -1;
        bool playing = false;
    };

    EvdevDevice() = default;
    bool drainEvents();
    bool writeEvent(int type, int code, int value);
    void setEffectError(std::string what, int error);
    bool canPlay(int effectType);
    bool upload(::ff_effect &effect, Effect &slot);
    bool uploadConstantForce(double level);
    bool start(Effect &effect);
    void stop(Effect &effect);
    void eraseEffect(Effect &effect);

    int m_fd = -1;
    bool m_writable = false;
    libevdev *m_dev = nullptr;
    std::string m_path;
    DeviceListEntry m_info;
    DeviceCapabilities m_caps;
    DeviceLayout m_layout;
    std::array<int32_t, ABS_CNT> m_minimum{};
    std::array<int32_t, ABS_CNT> m_maximum{};
    bool m_exclusive = false;
    std::string m_sharingProblem;
    bool m_lost = false;
    Effect m_constant;
    Effect m_spring;
    std::string m_effectError;
    int m_effectErrno = 0;
};

} // namespace tavrix::evdev
