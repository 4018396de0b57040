#pragma once

#include "inputdevice.h"
#include "inputsource.h"

namespace tavrix {

// Lets the channel computations read an InputDevice through the narrow interfaces they
// ask for. A closed or lost device presses nothing and reads 0 on every axis.
class InputDeviceSource final : public ButtonSource, public AxisSource
{
public:
    explicit InputDeviceSource(const InputDevice *device = nullptr)
        : m_device(device)
    {}

    [[nodiscard]] bool isPressed(int unifiedIndex) const override
    {
        return isConnected() && m_device->isPressed(unifiedIndex);
    }
    [[nodiscard]] bool isConnected() const override
    {
        return m_device && m_device->isOpen() && m_device->isConnected();
    }
    [[nodiscard]] bool hasAxis(int slot) const override { return isConnected() && m_device->hasAxis(slot); }
    [[nodiscard]] float axis(int slot) const override { return isConnected() ? m_device->axis(slot) : 0.0f; }

private:
    const InputDevice *m_device;
};

} // namespace tavrix
