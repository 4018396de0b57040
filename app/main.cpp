// OrvaneLabs HUB: start-up in a fixed order (identity, theme, log routing, translation,
// window, screenshot mode), then the event loop.
#include "hubservices.h"
#include "logrouter.h"
#include "mainwindow.h"
#include "screenshotmode.h"
#include "shellsettings.h"
#include "startup.h"
#include "theme.h"

#include <QApplication>
#include <QLocale>
#include <QTranslator>

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    tavrix::applyIdentity(app);

    const QString theme = hub::ShellSettings::theme();
    hub::applyTheme(app, theme);

    tavrix::LogRouter::installMessageHandler();

    QTranslator translator;
    tavrix::installTranslation(app, translator, QLocale::system().uiLanguages());

    int exitCode = 0;
    bool restart = false;
    {
        tavrix::HubServices services{tavrix::HubServices::Options{}};
        MainWindow window(services, theme, *tavrix::LogRouter::instance());
        window.show();

        if (const auto options = tavrix::ScreenshotMode::fromEnvironment()) {
            auto *snapshots = new tavrix::ScreenshotMode(&window, theme, *options, &window);
            QObject::connect(snapshots, &tavrix::ScreenshotMode::finished, &app, &QCoreApplication::quit);
            snapshots->start();
        }

        exitCode = app.exec();
        restart = window.restartRequested();
    }
    // The window's services (ports, sockets) are closed by now, so the new process finds them free.
    if (restart && !tavrix::startNewInstance())
        qWarning("hub: could not restart; start the HUB again to see the new colours");
    return exitCode;
}
