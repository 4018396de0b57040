#pragma once

#include <QMetaType>

namespace tavrix {

// Which channel computation the active profile selects: "rc_helicopter" flies, anything else drives.
enum class VehicleType
{
    Car,
    Helicopter,
};

// Whether the car's receiver is sending the motion data that force feedback and the
// motion output live on.
enum class ReceiverFfbState : int
{
    Idle = 0,             // not transmitting
    WaitingForMotion = 1, // transmitting, no motion record yet
    ReceivingMotion = 2,
    NoMotionData = 3, // none came within the wait after the start
};

} // namespace tavrix

Q_DECLARE_METATYPE(tavrix::VehicleType)
Q_DECLARE_METATYPE(tavrix::ReceiverFfbState)
