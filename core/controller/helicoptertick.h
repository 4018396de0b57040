#pragma once

#include "crsfprotocol.h"
#include "helicoptercomputation.h"
#include "inputdevicesource.h"

namespace tavrix {

class ActiveProfileFollower;
class ButtonMappingEngine;
class DeviceRoleSet;

// One 7 ms tick of a helicopter: the joystick, throttle and rudder pedals of the role set
// read through the helicopter computation into the flight, button and arm channels. Owns
// the computation (and with it the arm state); everything else it reads.
class HelicopterTick
{
public:
    // None of these is owned; all outlive the tick.
    HelicopterTick(const DeviceRoleSet &devices, const ActiveProfileFollower &profile,
                   ButtonMappingEngine &buttons);

    [[nodiscard]] HelicopterComputation &computation() { return m_computation; }
    [[nodiscard]] const HelicopterComputation &computation() const { return m_computation; }
    // The devices as the computation reads them (the joystick also gives the buttons).
    [[nodiscard]] HelicopterInputs inputs() const;

    void tick(ChannelValues &channels);

private:
    const ActiveProfileFollower &m_profile;
    ButtonMappingEngine &m_buttons;
    InputDeviceSource m_joystick;
    InputDeviceSource m_throttle;
    InputDeviceSource m_pedals;
    HelicopterComputation m_computation;
};

} // namespace tavrix
