#pragma once

#include "crsftestcodec.h"

#include <QObject>
#include <QSerialPort>

// The host's end of a simulated serial peer in tests: a real QSerialPort on the pty,
// its output split by the tests' own parser.
class BridgeClient : public QObject
{
    Q_OBJECT
public:
    explicit BridgeClient(QObject *parent = nullptr)
        : QObject(parent)
    {
        connect(&port, &QSerialPort::readyRead, this, [this] {
            const QByteArray bytes = port.readAll();
            raw += bytes;
            parser.feed(bytes);
            emit received();
        });
        // A pty whose far end is gone reports read errors in a storm: treat it as the unplug it is.
        connect(&port, &QSerialPort::errorOccurred, this, [this](QSerialPort::SerialPortError e) {
            if (e == QSerialPort::ReadError || e == QSerialPort::ResourceError) {
                port.close();
                emit lost();
            }
        });
    }

    bool open(const QString &path)
    {
        port.setPortName(path);
        port.setBaudRate(115200);
        return port.open(QIODevice::ReadWrite);
    }

    void send(const QByteArray &bytes)
    {
        port.write(bytes);
        port.flush();
    }

    // Waits until a line containing `text` has arrived (after `from` lines).
    bool waitForLine(const QString &text, int timeoutMs = 2000, qsizetype from = 0);

    QSerialPort port;
    crsftest::HostStreamParser parser;
    // Everything received, as it came.
    QByteArray raw;

signals:
    void received();
    void lost();
};
