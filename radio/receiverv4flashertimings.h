#pragma once

#include <chrono>

namespace tavrix {

// The waits of the receiver V4 flasher, with the real values as defaults; tests shorten
// them instead of sleeping through them.
struct ReceiverV4FlasherTimings
{
    using ms = std::chrono::milliseconds;
    // The bootloader answers every step with ACK or NACK within this.
    ms ackTimeout{1000};
    // Erasing a page keeps the chip busy before it acknowledges.
    ms eraseAckTimeout{5000};
    // The bytes of a READ follow its last ACK within this.
    ms readDataTimeout{500};
    // A serial write not taken by the driver within this has failed.
    ms writeTimeout{2000};
    // One synchronisation attempt: 0x7F, then this long for the ACK or NACK ...
    ms syncReplyWait{10};
    // ... then this pause for stray bytes before confirming with GET ...
    ms syncSettle{20};
    // ... and this between attempts, so a board that is off is not flooded.
    ms syncAttemptPause{40};
    // The running firmware answers VER and HW within this.
    ms firmwareReplyTimeout{1000};
    // After DFU the chip restarts into its bootloader within this.
    ms bootloaderAfterDfu{3000};
    // A board that stays silent to its firmware console is tried as a bootloader this long.
    ms bootloaderProbe{1000};
    // The user switches the board off and on within this.
    ms powerCycleWait{60000};
    // A bootloader that does not resynchronise within this is gone.
    ms resyncLimit{2000};
    // A port that vanished while connecting (the board reset, the cable was replugged) is
    // reopened within this.
    ms reopenLimit{5000};
    // The new firmware answers VER within this after GO (VER is repeated meanwhile).
    ms startedFirmwareReply{5000};
};

} // namespace tavrix
