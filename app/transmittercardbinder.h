#pragma once

#include "portpickerbinder.h"

namespace tavrix {

class TavrixController;
class TransmitterCard;

// Keeps a transmitter card in step with the controller's serial link and turns the card's
// connect and disconnect requests into controller calls.
class TransmitterCardBinder : public PortPickerBinder
{
    Q_OBJECT
public:
    TransmitterCardBinder(TransmitterCard *card, TavrixController *controller, QObject *parent = nullptr);
};

} // namespace tavrix
