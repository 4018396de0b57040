#pragma once

#include <QObject>
#include <QString>

#include <functional>

namespace tavrix {

class SerialPortPicker;
class TavrixController;

// Keeps a serial port picker in step with one of the controller's serial devices (the
// transmitter, the car's receiver) and turns the picker's requests into calls on it. The
// ports listed are the controller's port directory, plus the device's own port while open.
class PortPickerBinder : public QObject
{
    Q_OBJECT
public:
    struct Device
    {
        std::function<bool()> isConnected;
        std::function<QString()> portName;
        std::function<void(const QString &port, qint32 baudRate)> connectTo;
        std::function<void()> disconnect;
        // The rate a picker without a baud rate choice connects at: the device's remembered
        // one, so connecting from such a picker keeps a rate chosen elsewhere.
        std::function<qint32()> baudRate;
    };

    PortPickerBinder(SerialPortPicker *picker, TavrixController *controller, Device device,
                     QObject *parent = nullptr);

public slots:
    // Lists the serial ports again and shows whether the device is connected.
    void refreshPorts();

private:
    SerialPortPicker *m_picker;
    TavrixController *m_controller;
    Device m_device;
};

} // namespace tavrix
