#pragma once

namespace tavrix {

// What the channel computations ask of a game controller's buttons, hats and
// centred axes. The device resolves a unified input index (0..127 buttons,
// 128..143 hat directions with their inclusive diagonals, 144..159 axis halves of
// centred axes, anything else never pressed); the computations only ask, so core
// needs nothing from the input layer.
class ButtonSource
{
public:
    virtual ~ButtonSource() = default;
    [[nodiscard]] virtual bool isPressed(int unifiedIndex) const = 0;
};

// What the helicopter computation asks of a game controller's axes: whether the
// device is there, whether it has an axis slot 0..7 at all, and the normalised value
// (-1..+1) of one.
class AxisSource
{
public:
    virtual ~AxisSource() = default;
    [[nodiscard]] virtual bool isConnected() const = 0;
    [[nodiscard]] virtual bool hasAxis(int /*slot*/) const { return true; }
    [[nodiscard]] virtual float axis(int slot) const = 0;
};

} // namespace tavrix
