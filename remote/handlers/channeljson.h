#pragma once

#include "crsftypes.h"

#include <QJsonArray>

namespace tavrix {

// CH1..CH16 as the app reads them: an array of 16 integers.
[[nodiscard]] inline QJsonArray channelArray(const ChannelValues &channels)
{
    QJsonArray array;
    for (int32_t value : channels)
        array.append(int(value));
    return array;
}

} // namespace tavrix
