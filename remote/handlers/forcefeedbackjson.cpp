#include "forcefeedbackjson.h"

#include "wheelforcefeedback.h"

namespace tavrix {

using namespace Qt::StringLiterals;

QJsonObject ForceFeedbackJson::state(const WheelForceFeedback &ffb, ReceiverFfbState receiver)
{
    const ForceFeedbackSettings &settings = ffb.settings();
    return {
        {"capable"_L1, ffb.isWheelCapable()},
        {"enabled"_L1, ffb.isEnabled()},
        {"strength"_L1, double(settings.strength)},
        {"centering"_L1, double(settings.centering)},
        {"nativeCentering"_L1, settings.nativeCentering},
        {"autoEngage"_L1, settings.autoEngage},
        {"receiver"_L1, int(receiver)},
    };
}

QJsonObject ForceFeedbackJson::diagnosis(const ForceFeedbackCheck &check)
{
    return {
        {"enumerated"_L1, check.detected},
        {"ffbCapable"_L1, check.capable},
        {"exclusive"_L1, check.exclusive},
        {"hasFfbAxis"_L1, check.hasFfbAxis},
        {"constantForce"_L1, check.constantForce ? u"full"_s : u"partial"_s},
        {"errorCode"_L1, check.errorCodeText()},
        {"diag"_L1, check.diagnostic},
    };
}

} // namespace tavrix
