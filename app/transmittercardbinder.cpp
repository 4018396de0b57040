#include "transmittercardbinder.h"

#include "tavrixcontroller.h"
#include "transmittercard.h"

namespace tavrix {

TransmitterCardBinder::TransmitterCardBinder(TransmitterCard *card, TavrixController *controller,
                                             QObject *parent)
    : PortPickerBinder(card->picker(), controller,
                       {[controller] { return controller->isSerialConnected(); },
                        [controller] { return controller->serialPortName(); },
                        [controller](const QString &port, qint32 baudRate) {
                            controller->connectTransmitter(port, baudRate);
                        },
                        [controller] { controller->disconnectTransmitter(); },
                        [controller] { return controller->transmitterLink()->rememberedBaudRate(); }},
                       parent)
{
    connect(controller, &TavrixController::serialConnectedChanged, this,
            &TransmitterCardBinder::refreshPorts);
    connect(controller, &TavrixController::serialPortNameChanged, this, &TransmitterCardBinder::refreshPorts);
}

} // namespace tavrix
