#pragma once

#include "elrstimings.h"
#include "endpointcalibrationtimings.h"
#include "ledconfigpush.h"
#include "receiverconfigtimings.h"
#include "receiverlinktimings.h"
#include "receiverport.h"
#include "transmitterlink.h"

#include <chrono>

namespace tavrix {

// Every interval the transmission controller runs on, with the real values as
// defaults. Tests shorten the long waits instead of sleeping through them.
struct ControllerTimings
{
    // One channel frame per tick, on a precise timer.
    std::chrono::milliseconds transmitInterval{7};
    // Car link and stale-sensor checks.
    std::chrono::milliseconds monitorInterval{500};
    // The car counts as unlinked once no link statistics came for this long.
    std::chrono::milliseconds carLinkTimeout{1500};
    // A telemetry sensor not updated for this long is stale.
    std::chrono::milliseconds sensorStaleAfter{2000};
    // Waiting for the receiver's first motion record after a start.
    std::chrono::milliseconds motionWait{5000};
    // Input polling while not transmitting, so the interface sees the controls move and
    // the start checks read fresh pedal positions. The tick polls while transmitting.
    std::chrono::milliseconds idleInputPollInterval{20};
    // How often an armed auto-start looks whether the hub is ready.
    std::chrono::milliseconds autoStartCheckInterval{2000};
    // Keepalive, reconnect and port timings of the transmitter link.
    TransmitterLink::Timings link;
    // Port and reconnect timings of the receiver's USB console.
    ReceiverPort::Timings receiverPort;
    // Request, walk and write-repeat waits of the ELRS parameter client.
    ElrsTimings elrs;
    // Search, read and silence waits of the receiver link over the radio.
    ReceiverLinkTimings receiverLink;
    // Command pace and reply waits of the receiver's settings, mounting and gyro calibration.
    ReceiverConfigTimings receiverConfig;
    // The LED push's wait for each of the receiver's answers.
    LedConfigPush::Timings ledPush;
    // The hold countdown of the receiver's end-point calibration.
    EndpointCalibrationTimings receiverCalibration;
};

} // namespace tavrix
