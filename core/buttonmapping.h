#pragma once

#include "crsfchannels.h"

#include <QList>
#include <QString>

#include <cstdint>

namespace tavrix {

// How a button mapping drives its channel (profile key `mode`).
enum class ButtonBehaviour : int32_t
{
    Momentary = 0,
    HoldToRaise = 1,
    HoldToLower = 2,
    Toggle = 3,
    SwitchPosition = 4,
};

// One entry of a profile's `buttonMappings`: which inputs drive which channel, and how.
// Field names and defaults are those of the profile file.
struct ButtonMapping
{
    QString name;
    // Unified input index of the primary source; a negative one disables the mapping,
    // whatever its further sources say.
    int32_t buttonIndex = -1;
    // Further sources; negative entries are skipped.
    QList<int32_t> extraButtons;
    // Channel index, CH1 = 0.
    int32_t channel = 3;
    ButtonBehaviour mode = ButtonBehaviour::Momentary;
    // Momentary pressed value, toggle ON value, switch position value.
    int32_t outputValue = crsf::kChannelMax;
    // Hold behaviours: channel units per second while held.
    int32_t rateUnitsPerSec = 1024;
    int32_t minValue = 0;
    int32_t maxValue = crsf::kChannelMax;
    // Momentary released value, toggle OFF value, start of hold and switch behaviours.
    int32_t startValue = 0;
    // "Activate Pit Limiter when pressed".
    bool activatesPitLimiter = false;

    [[nodiscard]] bool isValid() const { return buttonIndex >= 0; }
    [[nodiscard]] bool isHold() const
    {
        return mode == ButtonBehaviour::HoldToRaise || mode == ButtonBehaviour::HoldToLower;
    }

    friend bool operator==(const ButtonMapping &, const ButtonMapping &) = default;
};

using ButtonMappingList = QList<ButtonMapping>;

} // namespace tavrix
