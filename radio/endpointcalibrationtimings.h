#pragma once

#include <chrono>

namespace tavrix {

// The wait of the receiver's end-point calibration, with the real value as default; tests
// shorten it instead of sleeping through it.
struct EndpointCalibrationTimings
{
    // One second of the hold countdown.
    std::chrono::milliseconds countdownTick{1000};
};

} // namespace tavrix
