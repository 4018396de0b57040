#pragma once

#include "serialportdirectory.h"

#include <QtGlobal>

#include <array>

namespace tavrix {

// The Orvane devices that reach the PC as a USB serial port, by the ids they enumerate with.
// The one list: port recognition asks it, and the build writes the packaged udev rules
// (desktop users' access to these ports) from it.
struct OrvaneUsbDevice
{
    enum class Kind
    {
        Transmitter,
        MotionController,
    };

    Kind kind;
    // For the udev rules' comments.
    const char *name;
    quint16 vendorId;
    // 0: every product of the vendor (the firmware's product id is not fixed).
    quint16 productId;

    [[nodiscard]] constexpr bool matches(const SerialPortDescription &port) const
    {
        return port.vendorId == vendorId && (productId == 0 || port.productId == productId);
    }
};

// The car's receiver is missing on purpose: its console comes through a USB-UART cable of
// no fixed make, so no id singles it out.
inline constexpr std::array kOrvaneUsbDevices{
    // The RP2040 bridge enumerates with the Raspberry Pi vendor id.
    OrvaneUsbDevice{OrvaneUsbDevice::Kind::Transmitter, "Orvane Transmitter (RP2040 bridge)", 0x2e8a, 0},
    // The board's USB is an ST-LINK virtual COM port of STMicroelectronics.
    OrvaneUsbDevice{OrvaneUsbDevice::Kind::MotionController, "Orvane Motion Controller (ST-LINK VCP)", 0x0483,
                    0},
};

[[nodiscard]] constexpr const OrvaneUsbDevice &orvaneUsbDevice(OrvaneUsbDevice::Kind kind)
{
    for (const OrvaneUsbDevice &device : kOrvaneUsbDevices) {
        if (device.kind == kind)
            return device;
    }
    return kOrvaneUsbDevices.front();
}

} // namespace tavrix
