#pragma once

#include "portreconnector.h"
#include "receiverlinesplitter.h"
#include "serialportdirectory.h"
#include "tavrixserialport.h"

#include <QObject>
#include <QString>

#include <memory>

namespace tavrix {

// The car receiver's own USB serial console, plugged in while the car is on the bench:
// opens and closes its port, cuts what the receiver prints into text lines, sends it
// command lines, and brings the port back after the cable dropped out, the way the
// transmitter link does. It has nothing to do with transmission: losing or finding the
// receiver never starts or stops it.
class ReceiverPort : public QObject
{
    Q_OBJECT
public:
    struct Timings
    {
        TavrixSerialPort::Timings port;
        PortReconnector::Timings reconnect;
    };

    static constexpr qint32 kDefaultBaudRate = 115200;

    // ports: where a reconnect looks for the lost port.
    ReceiverPort(std::shared_ptr<const SerialPortDirectory> ports, const Timings &timings,
                 QObject *parent = nullptr);
    ~ReceiverPort() override;

    // A connect on the user's (or the remote app's) behalf; on success remembers the
    // port and rate (connectionRemembered) for reconnects and the next start.
    bool connectReceiver(const QString &portName, qint32 baudRate = kDefaultBaudRate);
    // A deliberate disconnect: closes the port and never reconnects on its own.
    void disconnectReceiver();

    [[nodiscard]] bool isConnected() const { return m_port->isOpen(); }
    [[nodiscard]] QString portName() const { return m_port->portName(); }
    [[nodiscard]] bool isReconnecting() const { return m_reconnector->isActive(); }

    // Restored by the owner from its saved settings at start-up.
    void setRememberedPort(const QString &portName, qint32 baudRate);
    [[nodiscard]] QString rememberedPortName() const { return m_rememberedPortName; }
    [[nodiscard]] qint32 rememberedBaudRate() const { return m_rememberedBaudRate; }

public slots:
    // Sends one console line, ended by a line feed. False while the port is closed, and for
    // text holding a line break: one call is one command, so a check made on the line (such
    // as refusing the boot loader's command) cannot be slipped past on a second line.
    bool writeLine(const QString &line);

signals:
    void connectedChanged(bool connected);
    void portNameChanged(const QString &portName);
    // One line the receiver printed, without its line ending; empty lines are skipped.
    void lineReceived(const QString &line);
    void errorOccurred(const QString &error);
    void connectionRemembered(const QString &portName, qint32 baudRate);

private:
    void onPortConnectedChanged(bool connected);
    void onPortDataReceived(const QByteArray &chunk);
    void onPortError(const QString &error);

    std::shared_ptr<const SerialPortDirectory> m_ports;
    TavrixSerialPort *m_port = nullptr;
    PortReconnector *m_reconnector = nullptr;
    ReceiverLineSplitter m_lines;
    QString m_rememberedPortName;
    qint32 m_rememberedBaudRate = kDefaultBaudRate;
    bool m_userDisconnected = false;
};

} // namespace tavrix
