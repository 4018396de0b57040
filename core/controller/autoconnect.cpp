#include "autoconnect.h"

#include "receiverport.h"
#include "tavrixcontroller.h"
#include "transmitterlink.h"

namespace tavrix::autoconnect {

QString transmitterPort(const QString &remembered, QList<SerialPortDescription> listed,
                        const QString &receiverPort)
{
    if (!receiverPort.isEmpty())
        listed.removeIf([&](const SerialPortDescription &port) { return port.portName == receiverPort; });
    if (!remembered.isEmpty()) {
        const bool present =
            std::any_of(listed.begin(), listed.end(),
                        [&](const SerialPortDescription &port) { return port.portName == remembered; });
        return present ? remembered : QString();
    }
    return listed.size() == 1 ? listed.first().portName : QString();
}

void run(TavrixController &controller)
{
    const TransmitterLink *link = controller.transmitterLink();
    if (!controller.isSerialConnected()) {
        const QString port = transmitterPort(link->rememberedPortName(), controller.portDirectory().ports(),
                                             controller.receiverPort()->rememberedPortName());
        if (!port.isEmpty())
            controller.connectTransmitter(port, link->rememberedBaudRate());
    }
    if (!controller.isRunning())
        controller.reconnectSavedDevices();
}

} // namespace tavrix::autoconnect
