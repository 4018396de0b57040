#pragma once

#include "card.h"

#include <QList>

#include <optional>

class QComboBox;
class QLabel;
class QPushButton;

namespace hub {
class StatusPill;
}

namespace tavrix {

// The transmitter's USB port: the port list, connect/disconnect and the link state, with a
// way to the transmitter's settings and, where offered, a choice of baud rate. It only
// presents; the owner feeds it ports and state and acts on its requests.
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
    // Offers these rates with `selected` chosen (added when missing); without a call the
    // card offers none and baudRate() is empty.
    void setBaudRates(const QList<qint32> &rates, qint32 selected);
    std::optional<qint32> baudRate() const;
    void setSettingsButtonVisible(bool visible);

    QComboBox *portBox() const { return m_ports; }
    QPushButton *connectButton() const { return m_connect; }
    QComboBox *baudBox() const { return m_baud; }
    QPushButton *settingsButton() const { return m_settings; }
    hub::StatusPill *statusPill() const { return m_pill; }

signals:
    void connectRequested(const QString &port);
    void disconnectRequested();
    void settingsRequested();

private:
    void refresh();

    hub::StatusPill *m_pill = nullptr;
    QComboBox *m_ports = nullptr;
    QPushButton *m_connect = nullptr;
    QComboBox *m_baud = nullptr;
    QPushButton *m_settings = nullptr;
    QLabel *m_hint = nullptr;
    QStringList m_portList;
    bool m_connected = false;
};

} // namespace tavrix
