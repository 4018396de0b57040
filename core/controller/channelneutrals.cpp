#include "channelneutrals.h"

#include "buttonmappingengine.h"
#include "cartick.h"
#include "drivecomputation.h"
#include "helicoptercomputation.h"
#include "profilesettings.h"

namespace tavrix {

namespace {

// Below every value a computation writes (they clamp to 0..2047): what is still this after
// writeNeutral() is a channel the computation leaves alone.
constexpr int32_t kNotWritten = -1;

ChannelValues unwritten()
{
    ChannelValues channels;
    channels.fill(kNotWritten);
    return channels;
}

void takeWritten(const ChannelValues &written, ChannelNeutrals &neutrals)
{
    for (size_t i = 0; i < written.size(); ++i) {
        if (written[i] != kNotWritten)
            neutrals[i] = written[i];
    }
}

void takeMappings(const ButtonMappingList &mappings, int first, int last, ChannelNeutrals &neutrals)
{
    for (int channel = first; channel <= last; ++channel) {
        if (const std::optional<int32_t> rest = ButtonMappingEngine::restValue(mappings, channel))
            neutrals[channel] = *rest;
    }
}

} // namespace

ChannelNeutrals channelNeutrals(const ProfileSettings &settings)
{
    if (settings.vehicleType == VehicleType::Helicopter)
        return helicopterChannelNeutrals(HelicopterComputation(settings.helicopter), settings.buttonMappings);
    return carChannelNeutrals(DriveComputation(settings.drive), settings.buttonMappings);
}

ChannelNeutrals carChannelNeutrals(const DriveComputation &drive, const ButtonMappingList &mappings)
{
    // In the tick's order: the drive, then the button channels, then the LED switch.
    ChannelNeutrals neutrals;
    ChannelValues written = unwritten();
    drive.writeNeutral(written);
    takeWritten(written, neutrals);
    takeMappings(mappings, ButtonMappingEngine::kFirstCarChannel, ButtonMappingEngine::kLastCarChannel,
                 neutrals);
    if (!ButtonMappingEngine::ownsChannel(mappings, ButtonMappingEngine::kLedPowerChannel))
        neutrals[ButtonMappingEngine::kLedPowerChannel] = CarTick::kLedPowerOffValue;
    return neutrals;
}

ChannelNeutrals helicopterChannelNeutrals(const HelicopterComputation &helicopter,
                                          const ButtonMappingList &mappings)
{
    // The flight and arm channels are written after the buttons, so they win a shared channel.
    ChannelNeutrals neutrals;
    takeMappings(mappings, ButtonMappingEngine::kFirstHelicopterChannel,
                 ButtonMappingEngine::kLastHelicopterChannel, neutrals);
    ChannelValues written = unwritten();
    helicopter.writeNeutral(written);
    takeWritten(written, neutrals);
    return neutrals;
}

} // namespace tavrix
