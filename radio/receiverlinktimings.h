#pragma once

#include <array>
#include <chrono>

namespace tavrix {

// The waits of the receiver link over the radio, with the real values as defaults;
// tests shorten them instead of sleeping through them.
struct ReceiverLinkTimings
{
    using ms = std::chrono::milliseconds;
    // Wait after each device ping, by attempt; the last entry ends the search at once,
    // since four long waits already gave the receiver time to boot.
    std::array<ms, 5> searchBackoff{ms(1500), ms(3000), ms(5000), ms(8000), ms(0)};
    // Wait for an attempt beyond the table.
    ms backoffBeyondTable{3000};
    // Pause before searching again after a search that found nobody.
    ms reSearchDelay{60000};
    // One parameter read (or write read-back) unanswered this long is sent again.
    ms readTimeout{1500};
    int readAttempts = 4;
    // How often the silence watchdog looks, and how much silence loses the receiver.
    ms watchdogInterval{1000};
    ms silenceLimit{5000};
};

} // namespace tavrix
