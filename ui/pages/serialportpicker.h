#pragma once

#include <QList>
#include <QWidget>

#include <optional>

class QComboBox;
class QLabel;
class QPushButton;

namespace tavrix {

// A serial device's port choice: the port list, an optional baud rate and connect /
// disconnect, with a hint while no port is listed. It only presents; the owner feeds it
// ports and the connection state and acts on its requests.
class SerialPortPicker : public QWidget
{
    Q_OBJECT
public:
    // hint: what to plug in when no port is listed.
    explicit SerialPortPicker(const QString &hint, QWidget *parent = nullptr);

    // The serial ports to offer; an empty list shows the hint.
    void setPorts(const QStringList &ports);
    QStringList ports() const { return m_portList; }
    void setConnected(bool connected, const QString &port = {});
    bool isConnected() const { return m_connected; }
    // Offers these rates with `selected` chosen (added when missing); without a call the
    // picker offers none and baudRate() is empty.
    void setBaudRates(const QList<qint32> &rates, qint32 selected);
    std::optional<qint32> baudRate() const;

    QComboBox *portBox() const { return m_ports; }
    QPushButton *connectButton() const { return m_connect; }
    QComboBox *baudBox() const { return m_baud; }

signals:
    void connectedChanged(bool connected);
    void connectRequested(const QString &port);
    void disconnectRequested();

private:
    void refresh();

    QComboBox *m_ports = nullptr;
    QPushButton *m_connect = nullptr;
    QComboBox *m_baud = nullptr;
    QLabel *m_hint = nullptr;
    QStringList m_portList;
    bool m_connected = false;
};

} // namespace tavrix
