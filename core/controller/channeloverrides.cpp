#include "channeloverrides.h"

#include <algorithm>

namespace tavrix {

bool ChannelOverrides::set(int channel, int value)
{
    if (channel < 0 || channel >= crsf::kChannelCount)
        return false;
    m_values[std::size_t(channel)] = value;
    return true;
}

ChannelValues ChannelOverrides::appliedTo(ChannelValues channels) const
{
    for (std::size_t i = 0; i < channels.size(); ++i) {
        if (m_values[i])
            channels[i] = std::clamp(*m_values[i], crsf::kChannelMin, crsf::kChannelMax);
    }
    return channels;
}

} // namespace tavrix
