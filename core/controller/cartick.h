#pragma once

#include "crsfprotocol.h"
#include "drivecomputation.h"
#include "inputdevicesource.h"

namespace tavrix {

class ActiveProfileFollower;
class ButtonMappingEngine;
class DeviceRoleSet;

// What a car tick leaves for the controller to announce or do, besides the frame.
struct CarTickResult
{
    DriveTickResult drive;
    // The LED power button switched the strip (announce ledSettingsChanged).
    bool ledPowerSwitched = false;
};

// One 7 ms tick of a car: the wheel base, pedals and shifter read through the profile's
// axis settings, CH1 and CH2 from the drive computation, the button channels, and the LED
// strip's power switch on CH12. Owns the drive computation; everything else it reads.
class CarTick
{
public:
    // CH12 while the LED strip is on and off (unless a button mapping owns the channel).
    static constexpr int32_t kLedPowerOnValue = crsf::kChannelMax;
    static constexpr int32_t kLedPowerOffValue = crsf::kChannelMin;

    // None of these is owned; all outlive the tick.
    CarTick(const DeviceRoleSet &devices, ActiveProfileFollower &profile, ButtonMappingEngine &buttons);

    [[nodiscard]] DriveComputation &drive() { return m_drive; }
    [[nodiscard]] const DriveComputation &drive() const { return m_drive; }

    // Steering, throttle, brake and gear as the devices read now.
    [[nodiscard]] DriveInputs readControls() const;
    // At every start: the drive's per-run memory cleared; a power button held while
    // starting is not a press.
    void reset();
    CarTickResult tick(DriveInputs inputs, ChannelValues &channels);

private:
    bool switchLedPower();

    const DeviceRoleSet &m_devices;
    ActiveProfileFollower &m_profile;
    ButtonMappingEngine &m_buttons;
    InputDeviceSource m_wheel;
    DriveComputation m_drive;
    bool m_ledPowerButtonWasPressed = false;
};

} // namespace tavrix
