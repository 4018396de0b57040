#pragma once

#include <chrono>

namespace tavrix {

// The waits of the receiver configuration, with the real values as defaults; tests
// shorten them instead of sleeping through them.
struct ReceiverConfigTimings
{
    using ms = std::chrono::milliseconds;
    // One console line per tick: the receiver's console reads a line at a time and drops
    // what arrives while it is still answering the previous one.
    ms commandInterval{120};
    // A settings query over USB unanswered this long marks a receiver without settings commands.
    ms settingsReplyTimeout{3000};
    // Each mounting-detection step waits this long for its answer.
    ms mountingStepTimeout{6000};
    // The receiver calibrates the gyro for about two seconds; its result is looked at after this.
    ms usbGyroCalCheck{2500};
    // A calibration over the radio still running after this is stopped: the car moved.
    ms elrsGyroCalLimit{15000};
    // How often a calibration over the radio asks the receiver how far it is.
    ms elrsGyroCalPoll{500};
    // Over the radio the settings are read again this often ...
    ms elrsRefreshInterval{8000};
    // ... while the car's telemetry has been silent this long: telemetry that went quiet
    // may mean the receiver's settings changed, and reading them shows what it runs now.
    ms elrsTelemetrySilence{3000};
};

} // namespace tavrix
