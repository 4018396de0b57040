#include "devicepickerbinder.h"

#include "devicepickercard.h"
#include "inputdevice.h"
#include "tavrixcontroller.h"

namespace tavrix {

namespace {

// Where the device open in a role sits in this enumeration: the same instance first,
// else the position it was opened at; -1 when nothing is open.
int positionOf(const InputDevice *device, const QList<InputDeviceInfo> &devices)
{
    if (!device->isOpen())
        return -1;
    for (int i = 0; i < devices.size(); ++i) {
        if (devices.at(i).instanceGuid == device->instanceGuid())
            return i;
    }
    return device->deviceIndex() < devices.size() ? device->deviceIndex() : -1;
}

} // namespace

DevicePickerBinder::DevicePickerBinder(DevicePickerCard *card, TavrixController *controller,
                                       QList<RoleKey> roles, QObject *parent)
    : QObject(parent)
    , m_card(card)
    , m_controller(controller)
    , m_roles(std::move(roles))
{
    connect(card, &DevicePickerCard::deviceChosen, this, &DevicePickerBinder::choose);
    for (auto signal :
         {&TavrixController::wheelBaseConnectedChanged, &TavrixController::pedalsConnectedChanged,
          &TavrixController::shifterConnectedChanged, &TavrixController::heliJoystickConnectedChanged,
          &TavrixController::heliThrottleConnectedChanged, &TavrixController::heliPedalsConnectedChanged})
        connect(controller, signal, this, &DevicePickerBinder::refresh);
    connect(controller, &TavrixController::profileChanged, this, &DevicePickerBinder::refresh);
    refresh();
}

void DevicePickerBinder::refresh()
{
    const QList<InputDeviceInfo> devices = m_controller->availableDevices();
    QStringList labels;
    for (const InputDeviceInfo &info : devices)
        labels.append(info.listLabel());
    m_card->setDevices(labels);
    for (const RoleKey &entry : std::as_const(m_roles))
        m_card->setCurrentDevice(entry.key, positionOf(m_controller->device(entry.role), devices));
}

void DevicePickerBinder::choose(const QString &key, int deviceIndex)
{
    for (const RoleKey &entry : std::as_const(m_roles)) {
        if (entry.key != key)
            continue;
        // A refused or failed open reports itself through the controller's errorOccurred.
        if (deviceIndex < 0)
            m_controller->disconnectDevice(entry.role);
        else
            m_controller->connectDevice(entry.role, deviceIndex);
    }
    refresh();
}

} // namespace tavrix
