#include "bridgelog.h"
#include "motionsimulator.h"
#include "simcli.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDateTime>
#include <QTextStream>

#include <optional>

namespace tavrix::sim::cli {

namespace {

constexpr Choice<int> kPlatformChoices[] = {
    {"2dof", 2},
    {"3dof", 4},
    {"5dof", 6},
};

} // namespace

int runMotion(QCoreApplication &app, const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Plays the Orvane Motion Controller board on a pseudo-terminal.\n"
                       "SIGUSR1 unplugs it, SIGUSR2 plugs it back in; SIGINT or SIGTERM ends the run."));
    parser.addHelpOption();
    parser.addPositionalArgument(QStringLiteral("motion"), QStringLiteral("The simulated device."));
    const QCommandLineOption logOption(
        QStringLiteral("log"), QStringLiteral("Write the commands the board gets as JSON lines to <file>."),
        QStringLiteral("file"));
    const QCommandLineOption linkOption(QStringLiteral("link"),
                                        QStringLiteral("Also serve the port as a symlink at <path>."),
                                        QStringLiteral("path"));
    const QCommandLineOption platformOption(
        QStringLiteral("platform"),
        QStringLiteral("The platform the board drives: %1 (default 5dof).")
            .arg(choiceNames(kPlatformChoices)),
        QStringLiteral("kind"));
    const QCommandLineOption failOption(QStringLiteral("fail"),
                                        QStringLiteral("Start in the FAIL state (left by Auto home)."));
    const QCommandLineOption silentOption(QStringLiteral("silent"),
                                          QStringLiteral("Send nothing at all, like a wedged link."));
    parser.addOptions({logOption, linkOption, platformOption, failOption, silentOption});
    parser.process(arguments);

    QTextStream err(stderr);
    tavrix::sim::MotionSimulatorSettings settings;
    if (parser.isSet(platformOption)) {
        const std::optional<int> actuators = choose(kPlatformChoices, parser.value(platformOption));
        if (!actuators) {
            err << "orvane-sim: --platform must be one of " << choiceNames(kPlatformChoices) << '\n';
            return 2;
        }
        settings.actuators = *actuators;
    }

    tavrix::sim::MotionSimulator board(settings);
    tavrix::sim::BridgeLog log;
    if (!openLog(log, parser, logOption))
        return 1;
    if (parser.isSet(logOption)) {
        QObject::connect(&board, &tavrix::sim::MotionSimulator::commandReceived, &log,
                         &tavrix::sim::BridgeLog::logCommand);
        QObject::connect(&board, &tavrix::sim::MotionSimulator::garbageReceived, &log,
                         &tavrix::sim::BridgeLog::logGarbage);
    }
    if (!startDevice(board, parser.value(linkOption)))
        return 1;
    if (parser.isSet(failOption))
        board.fail();
    board.setSilent(parser.isSet(silentOption));

    return runPluggable(app, board, log);
}

} // namespace tavrix::sim::cli
