#include "controlsreading.h"

#include "buttonmappingengine.h"
#include "deviceroleset.h"
#include "drivecontrols.h"
#include "inputdevicesource.h"
#include "profilesettings.h"

namespace tavrix {

ControlsReading ControlsReading::read(const DeviceRoleSet &devices, const ProfileSettings &settings)
{
    const InputDevice *wheelBase = devices.device(DeviceRole::WheelBase);
    const InputDevice *pedals = devices.device(DeviceRole::Pedals);

    ControlsReading reading;
    reading.drive = DriveControls::read(wheelBase, pedals, devices.device(DeviceRole::Shifter), settings);
    reading.drive.pitLimiterHeld =
        ButtonMappingEngine::isPitLimiterActive(settings.buttonMappings, InputDeviceSource(wheelBase));
    reading.pitLimiterActive = DriveComputation::pitLimiterCaps(settings.drive, reading.drive.pitLimiterHeld);
    const InputDevice *pedalSource = DriveControls::pedalSource(wheelBase, pedals);
    if (InputDeviceSource(pedalSource).isConnected())
        reading.clutch = settings.axes.clutch.applyUnipolar(pedalSource->clutch());
    return reading;
}

} // namespace tavrix
