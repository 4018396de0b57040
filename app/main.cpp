// OrvaneLabs HUB: start-up in a fixed order (identity, theme, log routing, translation,
// window, screenshot mode), then the event loop.
#include "logrouter.h"
#include "mainwindow.h"
#include "screenshotmode.h"
#include "shellsettings.h"
#include "startup.h"
#include "theme.h"

// --- mode dispatch: the modes without a window never make a QApplication ---
#include "commandlineoptions.h"
#include "consolemodes.h"
#include "demorig.h"
#include "hubservices.h"
#include "sessionstarter.h"

#include <QApplication>
#include <QLocale>
#include <QTranslator>

#include <memory>

int main(int argc, char *argv[])
{
    // --- mode dispatch ---
    const tavrix::CommandLineParse parsed = tavrix::parseCommandLine(tavrix::argumentsOf(argc, argv));
    if (!parsed.isValid() || parsed.options.action != tavrix::CommandLineOptions::Action::Window) {
        if (parsed.isValid() && parsed.options.action == tavrix::CommandLineOptions::Action::Headless)
            return tavrix::runHeadless(argc, argv, parsed.options);
        return tavrix::runInformationMode(argc, argv, parsed);
    }
    // --- end of mode dispatch ---

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
        // --- services, and the demo rig with --demo ---
        std::unique_ptr<tavrix::DemoRig> demo;
        tavrix::HubServices::Options serviceOptions;
        if (parsed.options.demo) {
            demo = std::make_unique<tavrix::DemoRig>();
            QString error;
            if (demo->prepare(&error))
                serviceOptions = demo->takeServiceOptions(&error);
            if (!error.isEmpty()) {
                qCritical("hub: demo: %s", qUtf8Printable(error));
                return 1;
            }
        }
        tavrix::HubServices services(std::move(serviceOptions));
        std::unique_ptr<tavrix::SessionStarter> demoStarter;
        if (demo) {
            demoStarter = std::make_unique<tavrix::SessionStarter>(services.controller(), demo->plan());
            demoStarter->begin();
        }
        // --- end of services ---

        MainWindow window(theme, tavrix::LogRouter::instance());
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
