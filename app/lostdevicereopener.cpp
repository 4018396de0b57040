#include "lostdevicereopener.h"

#include "deviceroleset.h"
#include "inputdevice.h"
#include "tavrixcontroller.h"

namespace tavrix {

LostDeviceReopener::LostDeviceReopener(TavrixController *controller, QObject *parent)
    : QObject(parent)
    , m_controller(controller)
{
    connect(m_controller, &TavrixController::runningChanged, this, [this](bool running) {
        if (!running)
            reopen();
    });
}

void LostDeviceReopener::reopen()
{
    if (m_controller->isRunning())
        return;
    QList<InputDeviceInfo> attached;
    bool enumerated = false;
    for (const DeviceRole role : DeviceRoleSet::rolesFor(m_controller->vehicleType())) {
        // Held but not answering: the device went away. A closed role is the user's choice.
        const InputDevice *device = m_controller->devices()->device(role);
        if (!device->isOpen() || device->isConnected())
            continue;
        if (!enumerated) {
            attached = m_controller->devices()->availableDevices();
            enumerated = true;
        }
        const int index = findSavedDevice(m_controller->profileManager()->deviceIdentity(role), attached);
        if (index >= 0)
            m_controller->connectDevice(role, index);
    }
}

} // namespace tavrix
