#pragma once

#include "crsfchannels.h"
#include "crsftypes.h"

#include <array>
#include <optional>

namespace tavrix {

// Channel values the remote app pins by hand ("set_channel"), laid over the computed
// channels in every frame sent while they last.
//
// Safety: an override is a value nobody's hands hold, so it lives only as long as the
// run it was set in. Every stop clears them, fault or not (a start after a fault must
// not inherit a pinned throttle), and they are never laid over the neutral frame a stop
// sends. Values are clamped to the channel range where they are applied, so nothing
// stored here can reach the car out of range.
class ChannelOverrides
{
public:
    // False (and nothing stored) for a channel outside CH1..CH16.
    bool set(int channel, int value);
    void clear() { m_values.fill(std::nullopt); }

    // The computed channels with every override laid over them, clamped.
    [[nodiscard]] ChannelValues appliedTo(ChannelValues channels) const;

private:
    std::array<std::optional<int32_t>, crsf::kChannelCount> m_values{};
};

} // namespace tavrix
