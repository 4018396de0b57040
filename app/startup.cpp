#include "startup.h"

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

bool startNewInstance()
{
    return QProcess::startDetached(QCoreApplication::applicationFilePath(),
                                   QCoreApplication::arguments().mid(1));
}

} // namespace tavrix
