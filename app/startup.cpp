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
