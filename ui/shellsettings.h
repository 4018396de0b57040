#pragma once

#include <QString>

namespace hub {

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
    static QString safetyNoticeAcceptedKey() { return QStringLiteral("ui/safetyNoticeAccepted"); }

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
    // The safety notice was accepted once: starts from the window no longer ask it.
    static bool safetyNoticeAccepted();
    static void setSafetyNoticeAccepted();
};

} // namespace hub
