#include "heliaxisreading.h"

#include "deviceroleset.h"
#include "inputdevice.h"

#include <algorithm>

namespace tavrix {

std::optional<float> heliRawAxis(const DeviceRoleSet &devices, const HelicopterSettings &settings,
                                 HeliFunction function)
{
    const auto read = [&](DeviceRole role, int32_t slot) -> std::optional<float> {
        const InputDevice *device = devices.device(role);
        if (!devices.isConnected(role) || slot < 0 || !device->hasAxis(slot))
            return std::nullopt;
        return device->axis(slot);
    };
    const HelicopterSettings::Inputs &in = settings.inputs;
    switch (function) {
    case HeliFunction::Roll:
        return read(DeviceRole::HeliJoystick, in.joystick.xAxis);
    case HeliFunction::Pitch:
        return read(DeviceRole::HeliJoystick, in.joystick.yAxis);
    case HeliFunction::Collective:
        return read(DeviceRole::HeliThrottle, in.throttle.axis);
    case HeliFunction::Rudder:
        break;
    }
    const std::optional<float> left = read(DeviceRole::HeliPedals, in.pedals.axis);
    if (!in.pedals.differential || !left)
        return left;
    const std::optional<float> right = read(DeviceRole::HeliPedals, in.pedals.axis2);
    if (!right)
        return std::nullopt;
    // As the computation reads two pedals: right minus left, each released at 0.
    return std::clamp((*right + 1.0f) / 2.0f - (*left + 1.0f) / 2.0f, -1.0f, 1.0f);
}

} // namespace tavrix
