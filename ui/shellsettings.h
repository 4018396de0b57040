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

    static QString lightTheme() { return QStringLiteral("light"); }
    static QString darkTheme() { return QStringLiteral("dark"); }

    // "light" or "dark"; anything else stored reads as light.
    static QString theme();
    static void setTheme(const QString &theme);
    static QString normalizedTheme(const QString &theme);

    static bool reduceMotion();
    static void setReduceMotion(bool reduce);
};

} // namespace hub
