#include "shellsettings.h"

#include <QSettings>

namespace hub {

QString ShellSettings::theme()
{
    return normalizedTheme(QSettings().value(themeKey()).toString());
}

void ShellSettings::setTheme(const QString &theme)
{
    QSettings().setValue(themeKey(), normalizedTheme(theme));
}

QString ShellSettings::normalizedTheme(const QString &theme)
{
    return theme.trimmed().compare(darkTheme(), Qt::CaseInsensitive) == 0 ? darkTheme() : lightTheme();
}

bool ShellSettings::reduceMotion()
{
    return QSettings().value(reduceMotionKey(), false).toBool();
}

void ShellSettings::setReduceMotion(bool reduce)
{
    QSettings().setValue(reduceMotionKey(), reduce);
}

bool ShellSettings::setupGuideDismissed()
{
    return QSettings().value(setupGuideDismissedKey(), false).toBool();
}

void ShellSettings::setSetupGuideDismissed()
{
    QSettings().setValue(setupGuideDismissedKey(), true);
}

bool ShellSettings::safetyNoticeAccepted(SafetyNotice notice)
{
    return QSettings().value(safetyNoticeAcceptedKey(notice), false).toBool();
}

void ShellSettings::setSafetyNoticeAccepted(SafetyNotice notice)
{
    QSettings().setValue(safetyNoticeAcceptedKey(notice), true);
}

} // namespace hub
