#pragma once

#include <QObject>

namespace tavrix {

class TavrixController;
class TransmitterCard;

// Keeps a transmitter card in step with the controller's serial link and turns the card's
// connect and disconnect requests into controller calls.
class TransmitterCardBinder : public QObject
{
    Q_OBJECT
public:
    TransmitterCardBinder(TransmitterCard *card, TavrixController *controller, QObject *parent = nullptr);

public slots:
    // Lists the serial ports again; the connected port stays listed while it is open.
    void refreshPorts();

private:
    void showLinkState();

    TransmitterCard *m_card;
    TavrixController *m_controller;
};

} // namespace tavrix
