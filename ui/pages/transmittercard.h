#pragma once

#include "card.h"
#include "serialportpicker.h"

class QPushButton;

namespace hub {
class StatusPill;
}

namespace tavrix {

// The transmitter's USB port: the port list, connect/disconnect and the link state, with a
// way to the transmitter's settings and, where offered, a choice of baud rate. It only
// presents; the owner feeds its picker ports and state and acts on the picker's requests.
class TransmitterCard : public hub::Card
{
    Q_OBJECT
public:
    explicit TransmitterCard(QWidget *parent = nullptr);

    SerialPortPicker *picker() const { return m_picker; }
    QStringList ports() const { return m_picker->ports(); }
    bool isConnected() const { return m_picker->isConnected(); }
    void setBaudRates(const QList<qint32> &rates, qint32 selected)
    {
        m_picker->setBaudRates(rates, selected);
    }
    void setSettingsButtonVisible(bool visible);

    QComboBox *portBox() const { return m_picker->portBox(); }
    QPushButton *connectButton() const { return m_picker->connectButton(); }
    QComboBox *baudBox() const { return m_picker->baudBox(); }
    QPushButton *settingsButton() const { return m_settings; }
    hub::StatusPill *statusPill() const { return m_pill; }

signals:
    void settingsRequested();

private:
    void showConnected(bool connected);

    hub::StatusPill *m_pill = nullptr;
    SerialPortPicker *m_picker = nullptr;
    QPushButton *m_settings = nullptr;
};

} // namespace tavrix
