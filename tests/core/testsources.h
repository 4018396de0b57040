#pragma once

#include "inputsource.h"

#include <array>
#include <set>

namespace tavrix::testing {

// An in-memory controller for the computations: buttons are pressed by unified index,
// axes set by slot. The unified-index rules themselves belong to InputDevice.
class TestController : public ButtonSource, public AxisSource
{
public:
    void press(int index) { m_pressed.insert(index); }
    void release(int index) { m_pressed.erase(index); }
    void releaseAll() { m_pressed.clear(); }
    void setAxis(int slot, float value) { m_axes.at(slot) = value; }
    void setConnected(bool connected) { m_connected = connected; }
    void removeAxis(int slot) { m_missing.insert(slot); }

    bool isPressed(int unifiedIndex) const override { return m_pressed.count(unifiedIndex) > 0; }
    bool isConnected() const override { return m_connected; }
    bool hasAxis(int slot) const override { return m_missing.count(slot) == 0; }
    float axis(int slot) const override { return m_axes.at(slot); }

private:
    std::set<int> m_pressed;
    std::set<int> m_missing;
    std::array<float, 8> m_axes{};
    bool m_connected = true;
};

} // namespace tavrix::testing
