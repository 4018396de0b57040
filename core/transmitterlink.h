#pragma once

#include "portreconnector.h"
#include "serialportdirectory.h"
#include "tavrixserialport.h"
#include "transmitterlinesplitter.h"

#include <QByteArray>
#include <QElapsedTimer>
#include <QObject>
#include <QString>
#include <QTimer>

#include <chrono>
#include <memory>

namespace tavrix {

// The transmission controller's side of the transmitter link: connects and
// disconnects the bridge's port, splits what it sends into raw telemetry and
// text lines, keeps the link alive while nothing else is written, and
// reconnects on its own after the transmitter drops off the USB bus.
class TransmitterLink : public QObject
{
    Q_OBJECT
public:
    struct Timings
    {
        std::chrono::milliseconds keepaliveCheckInterval{1000};
        // An empty line goes out once nothing was written for this long.
        std::chrono::milliseconds keepaliveIdle{2000};
        std::chrono::milliseconds reconnectInterval{1500};
        // Ticks 1..attempts-1 try to reconnect; the last tick gives up.
        int reconnectAttempts = 20;
        TavrixSerialPort::Timings port;
    };

    static constexpr qint32 kDefaultBaudRate = 115200;
    // Channel frames allowed to wait in the port's buffer while the bridge is not reading.
    static constexpr int kMaxQueuedFrames = 2;

    // ports: where reconnect looks for the remembered port; the operating
    // system's port list when null.
    explicit TransmitterLink(std::shared_ptr<const SerialPortDirectory> ports = nullptr,
                             QObject *parent = nullptr);
    TransmitterLink(std::shared_ptr<const SerialPortDirectory> ports, const Timings &timings,
                    QObject *parent = nullptr);
    ~TransmitterLink() override;

    // A connect on the user's (or the remote app's) behalf. Forgets an earlier
    // deliberate disconnect; on success remembers the port and rate for reconnects
    // and announces them with connectionRemembered().
    bool connectTransmitter(const QString &portName, qint32 baudRate = kDefaultBaudRate);
    // A deliberate disconnect: closes the port and never reconnects on its own.
    void disconnectTransmitter();

    // Writes raw bytes to the bridge (frames, commands, parameter traffic).
    // Returns the count written, or -1 when the port is closed.
    qint64 serialWrite(const QByteArray &bytes);
    // Writes one channel frame, unless the bridge has fallen behind: while the port's
    // buffer already holds kMaxQueuedFrames frames' worth of bytes the frame is dropped,
    // so a bridge that resumes reading gets the controls as they are now, not a backlog
    // of driving commands seconds old. True when the frame was written whole.
    bool writeChannelFrame(const QByteArray &frame);

    bool isConnected() const { return m_port->isOpen(); }
    QString portName() const { return m_port->portName(); }
    bool isReconnecting() const { return m_reconnector->isActive(); }

    // The port and rate a reconnect (or the next start) uses; the owner restores
    // them from its saved settings at start-up.
    void setRememberedPort(const QString &portName, qint32 baudRate);
    QString rememberedPortName() const { return m_rememberedPortName; }
    qint32 rememberedBaudRate() const { return m_rememberedBaudRate; }

    // Stops auto-reconnect regardless of how the port is lost, e.g. while the
    // owner is being torn down. Independent of the deliberate-disconnect flag.
    void setAutoReconnectSuppressed(bool suppressed);
    bool isAutoReconnectSuppressed() const { return m_autoReconnectSuppressed; }

    // The ports a user may choose from (the same list reconnect consults).
    [[nodiscard]] QList<SerialPortDescription> availablePorts() const { return m_ports->ports(); }

signals:
    void serialConnectedChanged(bool connected);
    void serialPortNameChanged(const QString &portName);
    // Every raw chunk as read, before any line of it is reported; the owner feeds
    // its CRSF parser from here.
    void telemetryReceived(const QByteArray &data);
    void transmitterLineReceived(const QString &line);
    void errorOccurred(const QString &error);
    // A connect succeeded: store these with the settings.
    void connectionRemembered(const QString &portName, qint32 baudRate);

private:
    void onPortConnectedChanged(bool connected);
    void onPortDataReceived(const QByteArray &chunk);
    void onPortError(const QString &error);
    void onKeepaliveTimer();
    void onPortReturned(const QString &portName);
    void startReconnect();
    void stopReconnect();

    Timings m_timings;
    std::shared_ptr<const SerialPortDirectory> m_ports;
    TavrixSerialPort *m_port = nullptr;
    TransmitterLineSplitter m_lineSplitter;
    QElapsedTimer m_sinceLastWrite;
    QTimer *m_keepaliveTimer = nullptr;
    PortReconnector *m_reconnector = nullptr;
    QString m_rememberedPortName;
    qint32 m_rememberedBaudRate = kDefaultBaudRate;
    bool m_userDisconnected = false;
    bool m_autoReconnectSuppressed = false;
    // Frames dropped since the bridge stopped taking them (0 while it keeps up).
    quint64 m_droppedFrames = 0;
};

} // namespace tavrix
