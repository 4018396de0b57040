#pragma once

#include "card.h"

class QComboBox;
class QLabel;
class QPushButton;

namespace hub {
class StatusPill;
}

namespace tavrix {

// The transmitter's USB port: the port list, connect/disconnect and the link state.
// It only presents; the owner feeds it ports and state and acts on its requests.
class TransmitterCard : public hub::Card
{
    Q_OBJECT
public:
    explicit TransmitterCard(QWidget *parent = nullptr);

    // The serial ports to offer; an empty list shows that no transmitter is plugged in.
    void setPorts(const QStringList &ports);
    QStringList ports() const { return m_portList; }
    void setConnected(bool connected, const QString &port = {});
    bool isConnected() const { return m_connected; }

    QComboBox *portBox() const { return m_ports; }
    QPushButton *connectButton() const { return m_connect; }
    hub::StatusPill *statusPill() const { return m_pill; }

signals:
    void connectRequested(const QString &port);
    void disconnectRequested();

private:
    void refresh();

    hub::StatusPill *m_pill = nullptr;
    QComboBox *m_ports = nullptr;
    QPushButton *m_connect = nullptr;
    QLabel *m_hint = nullptr;
    QStringList m_portList;
    bool m_connected = false;
};

} // namespace tavrix
