#include "drivesettings.h"

#include <QCoreApplication>

namespace tavrix {

EscMode escModeFromStored(int32_t stored)
{
    return stored == int32_t(EscMode::Custom) ? EscMode::Custom : EscMode::Standard;
}

QString escModeName(EscMode mode)
{
    return mode == EscMode::Custom ? QStringLiteral("custom") : QStringLiteral("standard");
}

EscMode escModeFromName(const QString &name)
{
    return name == QLatin1String("custom") ? EscMode::Custom : EscMode::Standard;
}

QString escModeDisplayName(EscMode mode)
{
    return mode == EscMode::Custom
               ? QCoreApplication::translate("tavrix::DriveSettings", "Custom")
               : QCoreApplication::translate("tavrix::DriveSettings",
                                             "Traxxas/Tamiya/Arma Standard (172-992-1811)");
}

EscValues DriveSettings::esc() const
{
    if (usesCustomEsc())
        return {escNeutral, escFullForward, escFullReverse};
    return {};
}

} // namespace tavrix
