#include "portpickerbinder.h"

#include "serialportpicker.h"
#include "tavrixcontroller.h"
#include "transmitterlink.h"

namespace tavrix {

PortPickerBinder::PortPickerBinder(SerialPortPicker *picker, TavrixController *controller, Device device,
                                   QObject *parent)
    : QObject(parent)
    , m_picker(picker)
    , m_controller(controller)
    , m_device(std::move(device))
{
    // The device's own change signals bring the picker up to date; the owner connects them.
    connect(picker, &SerialPortPicker::connectRequested, this, [this](const QString &port) {
        m_device.connectTo(port, m_picker->baudRate().value_or(m_device.baudRate()));
    });
    connect(picker, &SerialPortPicker::disconnectRequested, this, [this] { m_device.disconnect(); });
    refreshPorts();
}

void PortPickerBinder::refreshPorts()
{
    QStringList names;
    for (const SerialPortDescription &port : m_controller->transmitterLink()->availablePorts())
        names.append(port.portName);
    const bool connected = m_device.isConnected();
    const QString open = m_device.portName();
    if (connected && !open.isEmpty() && !names.contains(open))
        names.prepend(open);
    if (names != m_picker->ports())
        m_picker->setPorts(names);
    m_picker->setConnected(connected, open);
}

} // namespace tavrix
