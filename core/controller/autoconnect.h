#pragma once

#include "serialportdirectory.h"

#include <QList>
#include <QString>

namespace tavrix {

class TavrixController;

// The one-tap connection the remote app offers: the transmitter on the port it used last
// and the devices saved for the active vehicle.
namespace autoconnect {

// The remembered port while it is listed; with nothing remembered, the only port listed.
// Empty otherwise: a remembered port that is absent means the transmitter is unplugged,
// and whatever else is listed then is some other device, not one to stream frames to.
// The receiver's console port (receiverPort) never counts as listed: channel frames must
// not go to the car's receiver.
[[nodiscard]] QString transmitterPort(const QString &remembered, QList<SerialPortDescription> listed,
                                      const QString &receiverPort = {});

// Connects the transmitter (unless it is) and reopens the saved devices of the active
// vehicle. Devices are left as they are while transmitting: opening pedals mid-run would
// hand the throttle to another device under the driver's feet.
void run(TavrixController &controller);

} // namespace autoconnect
} // namespace tavrix
