#include "drivecontrols.h"

#include "inputdevice.h"
#include "inputdevicesource.h"
#include "profilesettings.h"

#include <QCoreApplication>
#include <QStringList>

namespace tavrix {

namespace {
bool connected(const InputDevice *device)
{
    return device && device->isOpen() && device->isConnected();
}
} // namespace

DriveInputs DriveControls::read(const InputDevice *wheelBase, const InputDevice *pedals,
                                const InputDevice *shifter, const ProfileSettings &settings)
{
    DriveInputs inputs;
    if (connected(wheelBase)) {
        inputs.steeringRaw = wheelBase->steering();
        inputs.steering = settings.axes.steering.applyBipolar(inputs.steeringRaw);
    }
    // Assigned pedals that went away read released: the wheel base's own pedal inputs
    // stand in only when no pedals device is assigned.
    const InputDevice *pedalSource = DriveControls::pedalSource(wheelBase, pedals);
    if (connected(pedalSource)) {
        inputs.throttle = settings.axes.throttle.applyUnipolar(pedalSource->throttle());
        inputs.brake = settings.axes.brake.applyUnipolar(pedalSource->brake());
    }
    if (connected(shifter))
        inputs.gear = settings.shifter.gear(InputDeviceSource(shifter));
    return inputs;
}

const InputDevice *DriveControls::pedalSource(const InputDevice *wheelBase, const InputDevice *pedals)
{
    return (pedals && pedals->isOpen()) ? pedals : wheelBase;
}

QString DriveControls::pedalsHeldMessage(float throttle, float brake, float limit)
{
    QStringList held;
    if (throttle > limit)
        held.append(QCoreApplication::translate("tavrix::TavrixController", "throttle"));
    if (brake > limit)
        held.append(QCoreApplication::translate("tavrix::TavrixController", "brake"));
    if (held.size() == 2) {
        return QCoreApplication::translate("tavrix::TavrixController",
                                           "Release the %1 and %2 pedals before starting transmission.")
            .arg(held.at(0), held.at(1));
    }
    if (held.size() == 1) {
        return QCoreApplication::translate("tavrix::TavrixController",
                                           "Release the %1 pedal before starting transmission.")
            .arg(held.at(0));
    }
    return QString();
}

} // namespace tavrix
