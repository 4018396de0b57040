#pragma once

#include "buttonmapping.h"
#include "crsftypes.h"

#include <array>
#include <optional>

namespace tavrix {

class DriveComputation;
class HelicopterComputation;
struct ProfileSettings;

// Where each channel rests with nobody at the controls, taken from what gives the channel its
// meaning: the steering centre and ESC neutral of the drive, the centred cyclic and the bottom
// of the collective, the released or OFF value of a button mapping, the LED strip switched off.
// Nothing for a channel that no computation or mapping drives. The channel bars fill from here.
using ChannelNeutrals = std::array<std::optional<int32_t>, std::tuple_size_v<ChannelValues>>;

// The channels of the vehicle these settings drive.
[[nodiscard]] ChannelNeutrals channelNeutrals(const ProfileSettings &settings);
[[nodiscard]] ChannelNeutrals carChannelNeutrals(const DriveComputation &drive,
                                                 const ButtonMappingList &mappings);
[[nodiscard]] ChannelNeutrals helicopterChannelNeutrals(const HelicopterComputation &helicopter,
                                                        const ButtonMappingList &mappings);

} // namespace tavrix
