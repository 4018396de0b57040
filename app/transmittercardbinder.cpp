#include "transmittercardbinder.h"

#include "tavrixcontroller.h"
#include "transmittercard.h"

namespace tavrix {

TransmitterCardBinder::TransmitterCardBinder(TransmitterCard *card, TavrixController *controller,
                                             QObject *parent)
    : QObject(parent)
    , m_card(card)
    , m_controller(controller)
{
    connect(card, &TransmitterCard::connectRequested, controller, [card, controller](const QString &port) {
        controller->connectTransmitter(port, card->baudRate().value_or(TransmitterLink::kDefaultBaudRate));
    });
    connect(card, &TransmitterCard::disconnectRequested, controller,
            &TavrixController::disconnectTransmitter);
    connect(controller, &TavrixController::serialConnectedChanged, this,
            &TransmitterCardBinder::refreshPorts);
    connect(controller, &TavrixController::serialPortNameChanged, this, &TransmitterCardBinder::refreshPorts);
    refreshPorts();
}

void TransmitterCardBinder::refreshPorts()
{
    QStringList names;
    for (const SerialPortDescription &port : m_controller->transmitterLink()->availablePorts())
        names.append(port.portName);
    const QString open = m_controller->serialPortName();
    if (m_controller->isSerialConnected() && !open.isEmpty() && !names.contains(open))
        names.prepend(open);
    if (names != m_card->ports())
        m_card->setPorts(names);
    showLinkState();
}

void TransmitterCardBinder::showLinkState()
{
    m_card->setConnected(m_controller->isSerialConnected(), m_controller->serialPortName());
}

} // namespace tavrix
