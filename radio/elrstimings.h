#pragma once

#include <chrono>

namespace tavrix {

// The module answers parameter requests only a few seconds after the bridge entered
// configuration mode; whoever enters it waits this long before the walk.
inline constexpr std::chrono::milliseconds kElrsModuleSettleTime{6000};

// The waits of the ELRS parameter client, with the real values as defaults; tests
// shorten them instead of sleeping through them.
struct ElrsTimings
{
    // A frame request (ping or parameter read) unanswered for this long is sent again.
    std::chrono::milliseconds requestTimeout{200};
    // Resends of one request before discovery gives up.
    int maxRetries = 10;
    // The bridge's text walk ends in failure after this long without a FIELD line.
    std::chrono::milliseconds walkTimeout{90000};
    // A write by field id goes out three times, this far apart, since the module
    // answers writes with nothing and a single frame can be lost on the radio side.
    std::chrono::milliseconds writeRepeatInterval{60};
};

} // namespace tavrix
