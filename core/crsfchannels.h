#pragma once

#include <cstdint>

// The values one RC channel takes on the CRSF link. A frame packs 11 bits per channel,
// 0..2047, but ExpressLRS receivers map only 172..1811 onto servo travel (988..2012 us),
// with 992 at the centre: what drives a servo or an ESC stays inside that span.
namespace tavrix::crsf {

inline constexpr int32_t kChannelMin = 0;
inline constexpr int32_t kChannelMax = 2047;
inline constexpr int32_t kChannelMid = 1024;

inline constexpr int32_t kServoMin = 172;
inline constexpr int32_t kServoCenter = 992;
inline constexpr int32_t kServoMax = 1811;

} // namespace tavrix::crsf
