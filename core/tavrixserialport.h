#pragma once

#include "serialportdirectory.h"

#include <QByteArray>
#include <QList>
#include <QObject>
#include <QSerialPort>
#include <QString>
#include <QTimer>

#include <chrono>

namespace tavrix {

// Owns the USB serial port of the transmitter's bridge: opens it (waiting out a
// device that is still enumerating), delivers every byte read, writes bytes and
// reports the port going away. Knows nothing of what the bytes mean.
class TavrixSerialPort : public QObject
{
    Q_OBJECT
public:
    struct Timings
    {
        // Reads are polled as well as signalled; some drivers are late to signal.
        std::chrono::milliseconds pollInterval{15};
        // A busy port is retried this often, this far apart (about 6 s in all).
        int openAttempts = 24;
        std::chrono::milliseconds openRetryDelay{250};
    };

    explicit TavrixSerialPort(QObject *parent = nullptr);
    explicit TavrixSerialPort(const Timings &timings, QObject *parent = nullptr);
    ~TavrixSerialPort() override;

    // Opens portName at baudRate, 8N1, no flow control. While the port answers
    // "busy" it is retried in a local event loop (the application keeps running).
    // Returns true once open; false (with errorOccurred, unless cancelled by
    // close()) otherwise, and at once while another open is in progress.
    bool open(const QString &portName, qint32 baudRate);
    // Closes the port (and cancels an open still waiting for a busy port). Bytes still
    // queued are written out first. Safe to call again from anything close() reports.
    void close();

    // Bytes written, or -1 when the port is not open (nothing is queued).
    qint64 write(const QByteArray &bytes);

    bool isOpen() const;
    // The kind of the failure errorOccurred reported last (a failed open included), for
    // owners whose answer depends on it: a busy port, a failing write, a lost device.
    [[nodiscard]] QSerialPort::SerialPortError lastError() const { return m_lastError; }
    // Bytes written but still waiting in the port's own buffer (the device is not
    // taking them as fast as they come).
    [[nodiscard]] qint64 bytesToWrite() const;
    bool isOpening() const { return m_opening; }
    // Empty while closed.
    QString portName() const { return m_portName; }

    // DTR and RTS right after an open: the bridge reads DTR as "host present" (Raised, the
    // default); a device that wires them to its reset and boot pins wants them Lowered.
    enum class ControlLines
    {
        Raised,
        Lowered
    };
    void setControlLines(ControlLines lines) { m_controlLines = lines; }

    // Every serial port the system reports.
    [[nodiscard]] static QList<SerialPortDescription> availablePorts();

signals:
    void connectedChanged(bool connected);
    void portNameChanged(const QString &portName);
    void dataReceived(const QByteArray &data);
    void errorOccurred(const QString &error);

public slots:
    void onReadyRead();
    void onErrorOccurred(QSerialPort::SerialPortError error);
    void pollRead();

private:
    bool tryOpenRepeatedly(const QString &portName, QSerialPort::SerialPortError &lastError,
                           QString &lastErrorText);
    void applyControlLines(const QString &portName);
    void readPending();
    void closeAfterLoss(const QString &errorText);
    enum class PendingBytes
    {
        Flush,
        Discard
    };
    void closePort(PendingBytes pending);

    Timings m_timings;
    QSerialPort *m_port = nullptr;
    QTimer *m_pollTimer = nullptr;
    QString m_portName;
    bool m_opening = false;
    bool m_openCancelled = false;
    bool m_settingControlLines = false;
    bool m_closing = false;
    QSerialPort::SerialPortError m_lastError = QSerialPort::NoError;
    ControlLines m_controlLines = ControlLines::Raised;
};

} // namespace tavrix
