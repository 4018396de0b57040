#pragma once

#include <chrono>

namespace tavrix::testing {

// Tests shorten the product's long waits by this factor where a class lets them,
// so a 30 s give-up runs in well under a second while keeping the same ratios.
inline constexpr int kTimeScale = 50;

template<typename Rep, typename Period>
constexpr std::chrono::milliseconds scaled(std::chrono::duration<Rep, Period> real)
{
    return std::chrono::duration_cast<std::chrono::milliseconds>(real) / kTimeScale;
}

} // namespace tavrix::testing
