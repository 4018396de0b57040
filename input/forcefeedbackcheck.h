#pragma once

#include <QCoreApplication>
#include <QString>

#include <cstdint>

namespace tavrix {

// What the force-feedback check found on the steering wheel, in the order the user reads it:
// each line is a condition the next one needs, so the first "no" names what to fix.
struct ForceFeedbackCheck
{
    Q_DECLARE_TR_FUNCTIONS(ForceFeedbackCheck)

public:
    enum class Verdict
    {
        Full,
        PartialHeldElsewhere,
        PartialLimited,
        Incompatible,
        NoWheel,
    };

    bool detected = false;
    bool capable = false;
    bool exclusive = false;
    bool hasFfbAxis = false;
    bool constantForce = false;
    // Why the constant-force effect could not be made: the platform's error code (an HRESULT
    // on Windows, an errno on Linux) and the attempts that led to it.
    uint32_t errorCode = 0;
    QString diagnostic;

    [[nodiscard]] Verdict verdict() const
    {
        if (!detected)
            return Verdict::NoWheel;
        if (!capable)
            return Verdict::Incompatible;
        if (exclusive && hasFfbAxis && constantForce)
            return Verdict::Full;
        // Exclusive access refused means another program holds the wheel: that is the one
        // thing the user can fix, so it is named before anything else.
        return exclusive ? Verdict::PartialLimited : Verdict::PartialHeldElsewhere;
    }

    [[nodiscard]] static QString verdictText(Verdict verdict)
    {
        switch (verdict) {
        case Verdict::Full:
            return tr("FULL — ready for force feedback");
        case Verdict::PartialHeldElsewhere:
            return tr("PARTIAL — close other sim software (it holds the wheel)");
        case Verdict::PartialLimited:
            return tr("PARTIAL — limited support");
        case Verdict::Incompatible:
            return tr("INCOMPATIBLE — no force feedback");
        case Verdict::NoWheel:
            break;
        }
        return tr("No wheelbase connected");
    }

    // "0x80004005": the error code as the check shows it.
    [[nodiscard]] QString errorCodeText() const { return QStringLiteral("0x%1").arg(errorCode, 0, 16); }
};

} // namespace tavrix
