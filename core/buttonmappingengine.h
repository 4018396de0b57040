#pragma once

#include "buttonmapping.h"
#include "crsftypes.h"

#include <array>
#include <cstdint>
#include <optional>

namespace tavrix {

class ButtonSource;

// Turns the button mappings of a profile into auxiliary channel values, one tick at a
// time. Keeps only the memory the behaviours need between ticks (edges, toggle
// states, switch positions, hold values) in fixed arrays: nothing is allocated.
//
// Per channel, one behaviour decides: switch position, else toggle, else hold, else
// momentary; mappings of the other behaviours on that channel are ignored.
class ButtonMappingEngine
{
public:
    static constexpr int kTickMs = 7;
    // The channels the car's mappings drive (CH3..CH12) and the helicopter's (CH5..CH16).
    static constexpr int kFirstCarChannel = 2;
    static constexpr int kLastCarChannel = 11;
    static constexpr int kFirstHelicopterChannel = 4;
    static constexpr int kLastHelicopterChannel = 15;

    // A span of channels, first..last inclusive.
    struct ChannelRange
    {
        int first;
        int last;
        [[nodiscard]] constexpr bool contains(int channel) const
        {
            return channel >= first && channel <= last;
        }
    };
    static constexpr ChannelRange kCarChannels{kFirstCarChannel, kLastCarChannel};
    static constexpr ChannelRange kHelicopterChannels{kFirstHelicopterChannel, kLastHelicopterChannel};
    // CH12 carries the LED strip power unless a mapping owns it.
    static constexpr int kLedPowerChannel = 11;
    // Unified input indexes that can ever be pressed: buttons, hat directions, axis halves.
    static constexpr int kSourceCount = 160;

    // Clears every memory (edges, toggles, switch positions, hold values) and seeds each
    // channel that has a hold mapping with its first hold mapping's start value. Called
    // at every start and stop of transmission.
    void reset(const ButtonMappingList &mappings);

    // Evaluates the mappings for channels first..last (inclusive) and writes them into
    // channels; a channel without a valid mapping keeps its value. tickMs is the time
    // a hold mapping has been held since the last call.
    void apply(const ButtonMappingList &mappings, ChannelValues &channels, const ButtonSource &source,
               int firstChannel = kFirstCarChannel, int lastChannel = kLastCarChannel, int tickMs = kTickMs);

    // True while any pit-limiter mapping with a valid primary source has a source pressed.
    [[nodiscard]] static bool isPitLimiterActive(const ButtonMappingList &mappings,
                                                 const ButtonSource &source);

    // True when a mapping with a valid primary source targets the channel. The
    // controller leaves CH12 to the LED power switch only when this is false for it.
    [[nodiscard]] static bool ownsChannel(const ButtonMappingList &mappings, int channel);

    // The value the channel rests at before any press: the released, OFF or starting value
    // of the behaviour that decides the channel. Nothing when no valid mapping drives it.
    [[nodiscard]] static std::optional<int32_t> restValue(const ButtonMappingList &mappings, int channel);

    // The hold value kept for a channel (for display); 0 when it has none.
    [[nodiscard]] double holdValue(int channel) const;

private:
    [[nodiscard]] static bool isPressed(const ButtonMapping &mapping, const ButtonSource &source);
    // Rising edge of one source since its previous evaluation; records the new state.
    bool takeRisingEdge(int32_t unifiedIndex, const ButtonSource &source);
    // Number of rising edges among a mapping's sources this tick.
    int countRisingEdges(const ButtonMapping &mapping, const ButtonSource &source);

    int32_t evaluateSwitch(const ButtonMappingList &mappings, int channel, const ButtonSource &source);
    int32_t evaluateToggle(const ButtonMappingList &mappings, int channel, const ButtonSource &source);
    int32_t evaluateHold(const ButtonMappingList &mappings, int channel, const ButtonSource &source,
                         int tickMs);
    static int32_t evaluateMomentary(const ButtonMappingList &mappings, int channel,
                                     const ButtonSource &source);

    static constexpr int kChannels = 16;
    std::array<bool, kSourceCount> m_previousPressed{};
    std::array<bool, kChannels> m_toggleOn{};
    std::array<bool, kChannels> m_hasSwitchPosition{};
    std::array<int32_t, kChannels> m_switchPosition{};
    std::array<bool, kChannels> m_hasHoldValue{};
    std::array<double, kChannels> m_holdValue{};
};

} // namespace tavrix
