#include "consolemodes.h"

#include "bridgesimulator.h"

#include "consoletee.h"
#include "demorig.h"
#include "devicereport.h"
#include "elrssession.h"
#include "headlessrunner.h"
#include "hubservices.h"
#include "inputbackendfactory.h"
#include "logfileattachment.h"
#include "logrouter.h"
#include "serialportdirectory.h"
#include "startup.h"
#include "tavrixcontroller.h"
#include "unixsignalwatcher.h"

#include <QCoreApplication>
#include <QLoggingCategory>
#include <QTextStream>

#include <csignal>
#include <memory>

namespace tavrix {

namespace {

int listDevices()
{
    QTextStream out(stdout);
    QTextStream err(stderr);
    QString error;
    const std::unique_ptr<InputBackend> backend = createInputBackend(&error);
    if (!error.isEmpty()) {
        err << "orvanehub: " << error << '\n';
        return kBadUsageExitCode;
    }
    writeDeviceReport(out, *backend);
    return 0;
}

// The system's ports plus those named on the command line, which may be pseudo-terminals
// (the simulator) that the system's list never shows, so reconnects find them again.
std::shared_ptr<const SerialPortDirectory> portsWith(QStringList portNames)
{
    auto system = std::make_shared<SystemSerialPortDirectory>();
    portNames.removeAll(QString());
    if (portNames.isEmpty())
        return system;
    return std::make_shared<CompositeSerialPortDirectory>(QList<std::shared_ptr<const SerialPortDirectory>>{
        system, std::make_shared<PathSerialPortDirectory>(portNames)});
}

} // namespace

QStringList argumentsOf(int argc, char **argv)
{
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    return arguments;
}

int runInformationMode(int &argc, char **argv, const CommandLineParse &parsed)
{
    if (!parsed.isValid()) {
        QTextStream(stderr) << "orvanehub: " << parsed.error << "\nTry 'orvanehub --help' for the options.\n";
        return kBadUsageExitCode;
    }
    switch (parsed.options.action) {
    case CommandLineOptions::Action::Help:
        QTextStream(stdout) << commandLineHelp();
        return 0;
    case CommandLineOptions::Action::Version:
        QTextStream(stdout) << "orvanehub " << ORVANE_VERSION << '\n';
        return 0;
    case CommandLineOptions::Action::ListDevices: {
        // A replay plays on timers, which need an application object.
        QCoreApplication app(argc, argv);
        return listDevices();
    }
    case CommandLineOptions::Action::Window:
    case CommandLineOptions::Action::Headless:
    case CommandLineOptions::Action::ElrsList:
    case CommandLineOptions::Action::FlashV4:
    case CommandLineOptions::Action::ReadBoard:
    case CommandLineOptions::Action::CheckImage:
        break;
    }
    return kBadUsageExitCode;
}

int runElrsList(int &argc, char **argv, const CommandLineOptions &options)
{
    QCoreApplication app(argc, argv);
    applyCoreIdentity();
    QLoggingCategory::setFilterRules(QStringLiteral("*.debug=false\n*.info=false"));
    QTextStream out(stdout);
    QTextStream err(stderr);

    HubServices::Options serviceOptions;
    serviceOptions.ports = portsWith({options.transmitterPort});
    HubServices services(std::move(serviceOptions));
    TavrixController *controller = services.controller();
    if (!controller->connectTransmitter(options.transmitterPort,
                                        options.baudRate.value_or(TransmitterLink::kDefaultBaudRate))) {
        err << "orvanehub: cannot open the transmitter on " << options.transmitterPort << '\n';
        return kCannotRunExitCode;
    }
    ElrsSession session(controller, options.elrsSettings, out, err);
    QObject::connect(&session, &ElrsSession::finished, &app, &QCoreApplication::exit, Qt::QueuedConnection);
    session.begin();
    return app.exec();
}

int runHeadless(int &argc, char **argv, const CommandLineOptions &options)
{
    QCoreApplication app(argc, argv);
    applyCoreIdentity();
    // Time-stamped lines on stderr for what the services log; the per-tick debug lines stay
    // off unless QT_LOGGING_RULES asks for them.
    qSetMessagePattern(QStringLiteral("%{time HH:mm:ss.zzz} %{if-warning}warning: %{endif}"
                                      "%{if-critical}error: %{endif}%{message}"));
    QLoggingCategory::setFilterRules(QStringLiteral("*.debug=false"));

    // Everything the run prints also goes to its log file, in the order it happened.
    LogRouter::installMessageHandler();
    LogRouter &router = *LogRouter::instance();
    const LogFileAttachment logFile(options.logFile, router);
    ConsoleTee outTee(stdout, QtInfoMsg, router);
    ConsoleTee errTee(stderr, QtWarningMsg, router);
    QTextStream out(&outTee);
    QTextStream err(&errTee);

    std::unique_ptr<DemoRig> demo;
    HubServices::Options serviceOptions;
    SessionPlan plan = SessionPlan::fromOptions(options);
    if (options.demo) {
        demo = std::make_unique<DemoRig>();
        QString error;
        if (demo->prepare(&error))
            serviceOptions = demo->takeServiceOptions(&error);
        if (!error.isEmpty()) {
            err << "orvanehub: " << error << '\n';
            return kCannotRunExitCode;
        }
        plan = demo->plan();
        // A real (or simulated) receiver may sit beside the simulated bridge.
        plan.receiverPort = options.receiverPort;
        plan.motionPort = options.motionPort;
        plan.motionPlatform = options.motionPlatform;
        plan.recordingsFolder = options.recordingsFolder;
        if (!options.receiverPort.isEmpty() || !options.motionPort.isEmpty())
            serviceOptions.ports = std::make_shared<CompositeSerialPortDirectory>(
                QList<std::shared_ptr<const SerialPortDirectory>>{
                    serviceOptions.ports, std::make_shared<PathSerialPortDirectory>(
                                              QStringList{options.receiverPort, options.motionPort})});
        out << "demo: simulated bridge on " << demo->bridgePort() << ", profiles in " << demo->dataDirectory()
            << '\n';
        // What the simulated bridge is told (not its keepalives), so a run can be checked from outside.
        QObject::connect(demo->bridge(), &sim::BridgeSimulator::commandReceived, &app,
                         [&out](const QString &command) {
                             if (!command.isEmpty())
                                 out << "demo bridge: " << command << '\n' << Qt::flush;
                         });
    } else {
        serviceOptions.ports = portsWith({options.transmitterPort, options.receiverPort, options.motionPort});
    }

    serviceOptions.remotePort = options.remotePort;
    serviceOptions.remoteAddress = options.remoteAddress;
    serviceOptions.motionOutputHost = options.motionOutputHost;
    serviceOptions.motionOutputPort = options.motionOutputPort;
    serviceOptions.updateUrl = options.updateUrl;
    serviceOptions.webPanelPort = options.webPanelPort;
    HubServices services(std::move(serviceOptions));
    if (options.vehicle) {
        QString error;
        if (!activateVehicleProfile(*services.profiles(), *options.vehicle, &error)) {
            err << "orvanehub: " << error << '\n';
            return kCannotRunExitCode;
        }
    }

    HeadlessRunner runner(services, plan, out, err);
    QObject::connect(&runner, &HeadlessRunner::finished, &app, &QCoreApplication::exit, Qt::QueuedConnection);
    UnixSignalWatcher signalWatcher({SIGINT, SIGTERM});
    if (!signalWatcher.isActive())
        err << "orvanehub: cannot watch SIGINT/SIGTERM; stopping will not send STOP or Release\n";
    QObject::connect(&signalWatcher, &UnixSignalWatcher::signalReceived, &runner, [&runner](int number) {
        runner.stop(number == SIGINT ? QStringLiteral("SIGINT") : QStringLiteral("SIGTERM"));
    });
    if (!runner.begin())
        return kCannotRunExitCode;
    return app.exec();
}

} // namespace tavrix
