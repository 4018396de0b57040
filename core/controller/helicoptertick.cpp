#include "helicoptertick.h"

#include "activeprofilefollower.h"
#include "deviceroleset.h"

namespace tavrix {

HelicopterTick::HelicopterTick(const DeviceRoleSet &devices, const ActiveProfileFollower &profile,
                               ButtonMappingEngine &buttons)
    : m_profile(profile)
    , m_buttons(buttons)
    , m_joystick(devices.device(DeviceRole::HeliJoystick))
    , m_throttle(devices.device(DeviceRole::HeliThrottle))
    , m_pedals(devices.device(DeviceRole::HeliPedals))
{}

HelicopterInputs HelicopterTick::inputs() const
{
    return {&m_joystick, &m_throttle, &m_pedals, &m_joystick};
}

void HelicopterTick::tick(ChannelValues &channels)
{
    m_computation.tick(inputs(), m_buttons, m_profile.settings().buttonMappings, channels);
}

} // namespace tavrix
