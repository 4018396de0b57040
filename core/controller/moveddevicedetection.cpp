#include "moveddevicedetection.h"

#include "deviceroleset.h"
#include "inputdevice.h"

#include <QTimer>

#include <cmath>

namespace tavrix {

MovedDeviceDetection::MovedDeviceDetection(InputBackend *backend, const DeviceRoleSet *roles, QObject *parent)
    : QObject(parent)
    , m_backend(backend)
    , m_roles(roles)
    , m_timer(new QTimer(this))
{
    qRegisterMetaType<tavrix::MovedControl>();
    m_timer->setInterval(kPollInterval);
    connect(m_timer, &QTimer::timeout, this, &MovedDeviceDetection::poll);
}

MovedDeviceDetection::~MovedDeviceDetection()
{
    stop();
}

bool MovedDeviceDetection::isRunning() const
{
    return m_timer->isActive();
}

bool MovedDeviceDetection::start()
{
    stop();
    const QList<InputDeviceInfo> attached = m_roles->availableDevices();
    for (int index = 0; index < attached.size(); ++index) {
        Watched watched;
        watched.deviceIndex = index;
        for (const DeviceRoleInfo &info : deviceRoles()) {
            InputDevice *inRole = m_roles->device(info.role);
            if (inRole->isOpen() && inRole->instanceGuid() == attached.at(index).instanceGuid)
                watched.device = inRole;
        }
        if (!watched.device) {
            auto *own = new InputDevice(m_backend, this);
            if (!own->open(index)) {
                delete own;
                continue;
            }
            own->poll();
            watched.device = own;
            watched.owned = true;
        }
        rememberRest(watched);
        m_watched.append(watched);
    }
    if (m_watched.isEmpty())
        return false;
    m_timer->start();
    return true;
}

void MovedDeviceDetection::stop()
{
    m_timer->stop();
    for (const Watched &watched : std::as_const(m_watched)) {
        if (watched.owned)
            delete watched.device;
    }
    m_watched.clear();
}

void MovedDeviceDetection::poll()
{
    for (Watched &watched : m_watched) {
        // The roles' devices are polled by the controller; polling them here too would
        // steal their button edges.
        if (watched.owned)
            watched.device->poll();
        MovedControl control;
        if (findMovement(watched, control)) {
            stop();
            emit found(control);
            return;
        }
    }
}

void MovedDeviceDetection::rememberRest(Watched &watched)
{
    // Where the controller is when the detection starts is where it rests: a pedal at one end,
    // a wheel at its centre. Only travel away from there counts.
    for (int slot = 0; slot < AxisSlotCount; ++slot)
        watched.restingAxes[std::size_t(slot)] = watched.device->axis(slot);
    for (int button = 0; button < InputDevice::kButtonCount; ++button)
        watched.restingButtons[std::size_t(button)] = watched.device->button(button);
}

bool MovedDeviceDetection::findMovement(const Watched &watched, MovedControl &control)
{
    const InputDevice *device = watched.device;
    control.deviceIndex = watched.deviceIndex;
    control.deviceName = device->deviceName();
    for (int slot = 0; slot < AxisSlotCount; ++slot) {
        if (device->hasAxis(slot) &&
            std::fabs(device->axis(slot) - watched.restingAxes.at(std::size_t(slot))) > kMovedBy) {
            control.axisSlot = slot;
            return true;
        }
    }
    for (int button = 0; button < int(device->buttonCount()) && button < InputDevice::kButtonCount;
         ++button) {
        if (device->button(button) && !watched.restingButtons.at(std::size_t(button))) {
            control.button = button;
            return true;
        }
    }
    return false;
}

} // namespace tavrix
