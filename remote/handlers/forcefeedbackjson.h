#pragma once

#include "controllertypes.h"

#include <QJsonObject>

namespace tavrix {

class WheelForceFeedback;
struct ForceFeedbackCheck;

// The wheel's force feedback as the app reads it (the answer of "get_wheel_ffb" and of a
// change) and the compatibility check's diagnosis.
struct ForceFeedbackJson
{
    [[nodiscard]] static QJsonObject state(const WheelForceFeedback &ffb, ReceiverFfbState receiver);
    [[nodiscard]] static QJsonObject diagnosis(const ForceFeedbackCheck &check);
};

} // namespace tavrix
