#pragma once

#include <QString>

namespace hub {

// The safety notice asked before a first start, one per vehicle: having read what stops a car
// is no warning about a rotor.
enum class SafetyNotice
{
    Car,
    Helicopter,
};

// The shell's keys in the application settings store (organisation "OrvaneLabs",
// application "OrvaneLabs HUB") and typed access to them.
class ShellSettings
{
public:
    static QString themeKey() { return QStringLiteral("ui/theme"); }
    static QString reduceMotionKey() { return QStringLiteral("ui/reduceMotion"); }
    static QString carDevicesOpenKey() { return QStringLiteral("ui/carDevicesOpen"); }
    static QString carConfigureOpenKey() { return QStringLiteral("ui/carConfigureOpen"); }
    static QString setupGuideDismissedKey() { return QStringLiteral("ui/setupGuideDismissed"); }
    static QString safetyNoticeAcceptedKey(SafetyNotice notice)
    {
        return notice == SafetyNotice::Helicopter ? QStringLiteral("ui/heliSafetyNoticeAccepted")
                                                  : QStringLiteral("ui/safetyNoticeAccepted");
    }

    static QString lightTheme() { return QStringLiteral("light"); }
    static QString darkTheme() { return QStringLiteral("dark"); }

    // "light" or "dark"; anything else stored reads as light.
    static QString theme();
    static void setTheme(const QString &theme);
    static QString normalizedTheme(const QString &theme);

    static bool reduceMotion();
    static void setReduceMotion(bool reduce);

    // The setup guide was closed once: the window no longer offers it by itself.
    static bool setupGuideDismissed();
    static void setSetupGuideDismissed();
    // The vehicle's safety notice was accepted once: its starts from the window no longer ask it.
    static bool safetyNoticeAccepted(SafetyNotice notice);
    static void setSafetyNoticeAccepted(SafetyNotice notice);
};

} // namespace hub
