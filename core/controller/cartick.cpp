#include "cartick.h"

#include "activeprofilefollower.h"
#include "buttonmappingengine.h"
#include "deviceroleset.h"
#include "drivecontrols.h"

namespace tavrix {

CarTick::CarTick(const DeviceRoleSet &devices, ActiveProfileFollower &profile, ButtonMappingEngine &buttons)
    : m_devices(devices)
    , m_profile(profile)
    , m_buttons(buttons)
    , m_wheel(devices.device(DeviceRole::WheelBase))
{}

DriveInputs CarTick::readControls() const
{
    return DriveControls::read(m_devices.device(DeviceRole::WheelBase), m_devices.device(DeviceRole::Pedals),
                               m_devices.device(DeviceRole::Shifter), m_profile.settings());
}

void CarTick::reset()
{
    m_drive.reset();
    m_ledPowerButtonWasPressed = m_wheel.isPressed(m_profile.settings().led.powerButtonIndex);
}

CarTickResult CarTick::tick(DriveInputs inputs, ChannelValues &channels)
{
    const ProfileSettings &settings = m_profile.settings();
    inputs.pitLimiterHeld = ButtonMappingEngine::isPitLimiterActive(settings.buttonMappings, m_wheel);

    CarTickResult result;
    result.drive = m_drive.tick(inputs, m_wheel, channels);
    m_buttons.apply(settings.buttonMappings, channels, m_wheel);
    result.ledPowerSwitched = switchLedPower();
    // CH12 is the strip's power switch unless a button mapping has taken the channel.
    if (!ButtonMappingEngine::ownsChannel(settings.buttonMappings, ButtonMappingEngine::kLedPowerChannel)) {
        channels[ButtonMappingEngine::kLedPowerChannel] =
            m_profile.settings().led.powerOn ? kLedPowerOnValue : kLedPowerOffValue;
    }
    return result;
}

bool CarTick::switchLedPower()
{
    // Each press (released to pressed) flips the strip; holding the button is one press.
    const bool pressed = m_wheel.isPressed(m_profile.settings().led.powerButtonIndex);
    const bool flip = pressed && !m_ledPowerButtonWasPressed;
    m_ledPowerButtonWasPressed = pressed;
    return flip && m_profile.setLedPower(!m_profile.settings().led.powerOn);
}

} // namespace tavrix
