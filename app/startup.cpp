#include "startup.h"

#include "profilekeys.h"
#include "profilemanager.h"
#include "shellsettings.h"

#include <QApplication>
#include <QIcon>
#include <QLocale>
#include <QProcess>
#include <QTranslator>

namespace tavrix {

namespace {

// Texts Qt's own widgets show in this window: the dialogs' standard Close button and the
// context menus of the text fields, spin boxes and logs. Qt looks them up in every
// installed translator under its own contexts, and the hub ships no Qt translations, so
// listing them here carries them into the hub's translation files.
[[maybe_unused]] constexpr const char *kQtWidgetTexts[] = {
    QT_TRANSLATE_NOOP("QPlatformTheme", "Close"),
    QT_TRANSLATE_NOOP("QLineEdit", "&Undo"),
    QT_TRANSLATE_NOOP("QLineEdit", "&Redo"),
    QT_TRANSLATE_NOOP("QLineEdit", "Cu&t"),
    QT_TRANSLATE_NOOP("QLineEdit", "&Copy"),
    QT_TRANSLATE_NOOP("QLineEdit", "&Paste"),
    QT_TRANSLATE_NOOP("QLineEdit", "Delete"),
    QT_TRANSLATE_NOOP("QLineEdit", "Select All"),
    QT_TRANSLATE_NOOP("QWidgetTextControl", "&Undo"),
    QT_TRANSLATE_NOOP("QWidgetTextControl", "&Redo"),
    QT_TRANSLATE_NOOP("QWidgetTextControl", "Cu&t"),
    QT_TRANSLATE_NOOP("QWidgetTextControl", "&Copy"),
    QT_TRANSLATE_NOOP("QWidgetTextControl", "&Paste"),
    QT_TRANSLATE_NOOP("QWidgetTextControl", "Delete"),
    QT_TRANSLATE_NOOP("QWidgetTextControl", "Select All"),
    QT_TRANSLATE_NOOP("QAbstractSpinBox", "&Select All"),
    QT_TRANSLATE_NOOP("QAbstractSpinBox", "&Step up"),
    QT_TRANSLATE_NOOP("QAbstractSpinBox", "Step &down"),
    QT_TRANSLATE_NOOP("QShortcut", "Ctrl"),
    QT_TRANSLATE_NOOP("QShortcut", "Shift"),
};

} // namespace

void applyCoreIdentity()
{
    QCoreApplication::setOrganizationName(QStringLiteral("OrvaneLabs"));
    QCoreApplication::setApplicationName(QStringLiteral("OrvaneLabs HUB"));
    QCoreApplication::setApplicationVersion(QStringLiteral(ORVANE_VERSION));
}

void applyIdentity(QApplication &app)
{
    applyCoreIdentity();
    app.setWindowIcon(QIcon(QStringLiteral(":/images/orvanelabs-logo.png")));
    // Wayland compositors find the installed desktop entry, and with it the icon, by this name.
    QGuiApplication::setDesktopFileName(QStringLiteral(ORVANE_APP_ID));
}

QString installTranslation(QApplication &app, QTranslator &translator, const QStringList &uiLanguages,
                           const QString &directory)
{
    for (const QString &language : uiLanguages) {
        const QString name = QLocale(language).name();
        if (translator.load(QStringLiteral("sim-to-rc_") + name, directory)) {
            app.installTranslator(&translator);
            return name;
        }
    }
    qInfo("hub: no translation for %s, using English", qUtf8Printable(uiLanguages.join(QLatin1Char(','))));
    return {};
}

bool offersSetupGuide(const ProfileManager &profiles)
{
    if (hub::ShellSettings::setupGuideDismissed())
        return false;
    for (const ProfileSummary &summary : profiles.profiles()) {
        const QJsonObject bridge = profiles.profile(summary.id)
                                       .value(profilekeys::kDeviceConnections)
                                       .toObject()
                                       .value(profilekeys::kBridge)
                                       .toObject();
        if (!bridge.value(profilekeys::kPortName).toString().isEmpty())
            return false;
    }
    return true;
}

bool startNewInstance()
{
    return QProcess::startDetached(QCoreApplication::applicationFilePath(),
                                   QCoreApplication::arguments().mid(1));
}

} // namespace tavrix
