#include "devicepickerbinder.h"

#include "devicepickercard.h"
#include "inputdevice.h"
#include "profilemanager.h"
#include "tavrixcontroller.h"

namespace tavrix {

namespace {

// Where a controller sits in this enumeration, found by its instance: positions shift when
// another controller is unplugged, so a remembered position may name a different one; -1 when
// it is not attached any more.
int positionOf(const DeviceGuid &instance, const QList<InputDeviceInfo> &devices)
{
    for (int i = 0; i < devices.size(); ++i) {
        if (devices.at(i).instanceGuid == instance)
            return i;
    }
    return -1;
}

} // namespace

QList<DevicePickerBinder::RoleKey> DevicePickerBinder::rolesOf(VehicleType vehicle)
{
    QList<RoleKey> roles;
    for (const DeviceRole role : DeviceRoleSet::rolesFor(vehicle))
        roles.append({QString(deviceRoleInfo(role).option), role});
    return roles;
}

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
    m_shown = m_controller->devices()->availableDevices();
    QStringList labels;
    for (const InputDeviceInfo &info : std::as_const(m_shown))
        labels.append(info.listLabel());
    m_card->setDevices(labels);
    for (const RoleKey &entry : std::as_const(m_roles)) {
        const InputDevice *device = m_controller->devices()->device(entry.role);
        m_card->setCurrentDevice(entry.key,
                                 device->isOpen() ? positionOf(device->instanceGuid(), m_shown) : -1);
    }
    QList<DeviceRole> roles;
    for (const RoleKey &entry : std::as_const(m_roles))
        roles.append(entry.role);
    m_card->setProblems(m_controller->devices()->problems(roles));
}

void DevicePickerBinder::choose(const QString &key, int deviceIndex)
{
    for (const RoleKey &entry : std::as_const(m_roles)) {
        if (entry.key != key)
            continue;
        // A refused or failed open reports itself through the controller's errorOccurred.
        // "None" is a choice: the profile forgets the device too, so it does not come back on
        // the next start or profile switch.
        if (deviceIndex < 0) {
            m_controller->disconnectDevice(entry.role);
            m_controller->profileManager()->setDeviceIdentity(entry.role, {});
            continue;
        }
        // The list may be older than the last plug or unplug: open the controller that was
        // picked where it sits now, and nothing when it has gone (the refresh shows that).
        if (deviceIndex >= m_shown.size())
            continue;
        const int position =
            positionOf(m_shown.at(deviceIndex).instanceGuid, m_controller->devices()->availableDevices());
        if (position >= 0)
            m_controller->connectDevice(entry.role, position);
    }
    refresh();
}

} // namespace tavrix
