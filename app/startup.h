#pragma once

#include <QString>
#include <QStringList>

class QApplication;
class QTranslator;

namespace tavrix {

class ProfileManager;

// The application's identity: organisation "OrvaneLabs", application "OrvaneLabs HUB",
// the version and the window icon. The settings store is keyed by the first two.
void applyIdentity(QApplication &app);
// The same without the icon, for the modes that run without a window (same settings and data).
void applyCoreIdentity();

// Tries "sim-to-rc_" + the locale name of each language in order, in directory, and
// installs the first translation that loads. Returns its locale name, or an empty string
// (logged) when none loads and the interface stays in English.
QString installTranslation(QApplication &app, QTranslator &translator, const QStringList &uiLanguages,
                           const QString &directory = QStringLiteral(":/i18n"));

// Whether the window opens the setup guide by itself: no profile knows a transmitter port
// yet (nobody has set one up) and the guide has not been closed before.
[[nodiscard]] bool offersSetupGuide(const ProfileManager &profiles);

// Starts this program again with the same arguments, for changes that need a new process.
bool startNewInstance();

} // namespace tavrix
