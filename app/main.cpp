// OrvaneLabs HUB: picks the mode from the command line; the windowed mode starts up in a
// fixed order (identity, theme, log routing, translation, window, screenshot mode), then
// runs the event loop. The modes without a window never make a QApplication.
#include "commandlineoptions.h"
#include "consolemodes.h"
#include "demorig.h"
#include "hubservices.h"
#include "logfileattachment.h"
#include "logrouter.h"
#include "mainwindow.h"
#include "motionsystemcontroller.h"
#include "screenshotmode.h"
#include "sessionstarter.h"
#include "shellsettings.h"
#include "startup.h"
#include "theme.h"
#include "unixsignalwatcher.h"

#include <QApplication>
#include <QLocale>
#include <QTranslator>

#include <csignal>
#include <memory>
#include <optional>

namespace {

// The motion board named on the command line, else the demo's simulated one, if either.
void connectMotionBoard(tavrix::MotionSystemController *motion, const tavrix::CommandLineOptions &options,
                        const tavrix::DemoRig *demo)
{
    const QString port = !options.motionPort.isEmpty() ? options.motionPort
                         : demo                        ? demo->motionPort()
                                                       : QString();
    if (port.isEmpty())
        return;
    if (options.motionPlatform && !motion->setPlatformKind(*options.motionPlatform))
        qWarning("hub: motion platform %dDOF refused", *options.motionPlatform);
    motion->connectPort(port);
}

int runWindow(int &argc, char **argv, const tavrix::CommandLineOptions &options)
{
    QApplication app(argc, argv);
    tavrix::applyIdentity(app);

    const QString theme = hub::ShellSettings::theme();
    hub::applyTheme(app, theme);

    tavrix::LogRouter::installMessageHandler();
    const tavrix::LogFileAttachment logFile(options.logFile, *tavrix::LogRouter::instance());

    QTranslator translator;
    tavrix::installTranslation(app, translator, QLocale::system().uiLanguages());

    // SIGINT/SIGTERM close the window like the user would, so transmission stops
    // ("STOP\n" goes out), the motion platform is released ("R") and the demo's private
    // folder is removed.
    tavrix::UnixSignalWatcher signalWatcher({SIGINT, SIGTERM});
    QObject::connect(&signalWatcher, &tavrix::UnixSignalWatcher::signalReceived, &app,
                     &QCoreApplication::quit);

    int exitCode = 0;
    bool restart = false;
    {
        // With --demo the services run against the simulated bridge and virtual controllers.
        std::unique_ptr<tavrix::DemoRig> demo;
        tavrix::HubServices::Options serviceOptions;
        if (options.demo) {
            // A board named with --motion takes the place of the simulated one.
            demo = std::make_unique<tavrix::DemoRig>(tavrix::DemoRig::Receiver::Simulated,
                                                     options.motionPort.isEmpty()
                                                         ? tavrix::DemoRig::MotionBoard::Simulated
                                                         : tavrix::DemoRig::MotionBoard::None);
            QString error;
            if (demo->prepare(&error))
                serviceOptions = demo->takeServiceOptions(&error);
            if (!error.isEmpty()) {
                qCritical("hub: demo: %s", qUtf8Printable(error));
                return 1;
            }
        }
        // The window comes first: its native handle goes to the game-controller backend
        // (DirectInput ties devices to it). The services, made next, still outlive it.
        std::optional<tavrix::HubServices> services;
        MainWindow window(theme, *tavrix::LogRouter::instance());
        serviceOptions.nativeWindow = quintptr(window.winId());
        serviceOptions.remotePort = options.remotePort;
        serviceOptions.remoteAddress = options.remoteAddress;
        serviceOptions.motionOutputHost = options.motionOutputHost;
        serviceOptions.motionOutputPort = options.motionOutputPort;
        serviceOptions.updateUrl = options.updateUrl;
        serviceOptions.webPanelPort = options.webPanelPort;
        services.emplace(std::move(serviceOptions));
        std::unique_ptr<tavrix::SessionStarter> demoStarter;
        if (demo) {
            demoStarter = std::make_unique<tavrix::SessionStarter>(services->controller(), demo->plan());
            demoStarter->begin();
        }

        window.present(*services);
        window.show();
        // After present(), so the motion page hears the connection and the first heartbeat.
        connectMotionBoard(services->motionSystem(), options, demo.get());

        if (const auto snapshotOptions = tavrix::ScreenshotMode::fromEnvironment()) {
            auto *snapshots = new tavrix::ScreenshotMode(&window, theme, *snapshotOptions, &window);
            QObject::connect(snapshots, &tavrix::ScreenshotMode::finished, &app, &QCoreApplication::quit);
            snapshots->start();
        } else if (!demo && tavrix::offersSetupGuide(*services->profiles())) {
            // A hub that has never been set up: the guide instead of an empty window. Not over the
            // screenshots, which show the pages as they are, nor over the demo, which brings its
            // own transmitter and controllers.
            window.openDialog(QStringLiteral("onboarding"));
        }

        exitCode = app.exec();
        restart = window.restartRequested();
    }
    // The window's services (ports, sockets) are closed by now, so the new process finds them free.
    if (restart && !tavrix::startNewInstance())
        qWarning("hub: could not restart; start the HUB again to see the new colours");
    return exitCode;
}

} // namespace

int main(int argc, char *argv[])
{
    const tavrix::CommandLineParse parsed = tavrix::parseCommandLine(tavrix::argumentsOf(argc, argv));
    if (!parsed.isValid())
        return tavrix::runInformationMode(argc, argv, parsed);
    switch (parsed.options.action) {
    case tavrix::CommandLineOptions::Action::Window:
        return runWindow(argc, argv, parsed.options);
    case tavrix::CommandLineOptions::Action::Headless:
        return tavrix::runHeadless(argc, argv, parsed.options);
    case tavrix::CommandLineOptions::Action::ElrsList:
        return tavrix::runElrsList(argc, argv, parsed.options);
    case tavrix::CommandLineOptions::Action::FlashV4:
        return tavrix::runFlashV4(argc, argv, parsed.options);
    case tavrix::CommandLineOptions::Action::ReadBoard:
        return tavrix::runReadBoard(argc, argv, parsed.options);
    case tavrix::CommandLineOptions::Action::CheckImage:
        return tavrix::runCheckImage(parsed.options);
    default:
        return tavrix::runInformationMode(argc, argv, parsed);
    }
}
