// orvane-sim: simulated peers of the hub on pseudo-terminals, for demos and manual checks.
#include "bridgelog.h"
#include "bridgesimulator.h"
#include "motionsimulator.h"
#include "receiversimulator.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDateTime>
#include <QSocketNotifier>
#include <QTextStream>

#include <csignal>
#include <functional>
#include <optional>
#include <sys/socket.h>
#include <unistd.h>

namespace {

// Signals arrive on a socket so they are handled in the event loop, not in the
// signal handler (where almost nothing is safe to call).
int g_signalSocket[2] = {-1, -1};

void forwardSignal(int signal)
{
    const char byte = char(signal);
    [[maybe_unused]] const ssize_t n = ::write(g_signalSocket[0], &byte, 1);
}

bool installSignalForwarding()
{
    if (::socketpair(AF_UNIX, SOCK_STREAM, 0, g_signalSocket) != 0)
        return false;
    struct sigaction action = {};
    action.sa_handler = forwardSignal;
    sigemptyset(&action.sa_mask);
    action.sa_flags = SA_RESTART;
    for (const int s : {SIGINT, SIGTERM, SIGUSR1, SIGUSR2})
        if (::sigaction(s, &action, nullptr) != 0)
            return false;
    return true;
}

// Runs the event loop until SIGINT or SIGTERM; SIGUSR1 and SIGUSR2 unplug and replug.
int runUntilStopped(QCoreApplication &app, const std::function<void()> &unplug,
                    const std::function<void()> &replug)
{
    QSocketNotifier notifier(g_signalSocket[1], QSocketNotifier::Read);
    QObject::connect(&notifier, &QSocketNotifier::activated, &app, [&] {
        char signal = 0;
        if (::read(g_signalSocket[1], &signal, 1) != 1)
            return;
        switch (signal) {
        case SIGUSR1:
            unplug();
            break;
        case SIGUSR2:
            replug();
            break;
        default:
            app.quit();
        }
    });
    return app.exec();
}

using ReceiverModel = tavrix::sim::SimulatedParameterDevice::ReceiverModel;

// A value chosen on the command line by name.
template<typename T> struct Choice
{
    const char *name;
    T value;
};

template<typename T, size_t N> std::optional<T> choose(const Choice<T> (&choices)[N], const QString &name)
{
    for (const Choice<T> &choice : choices)
        if (name == QLatin1String(choice.name))
            return choice.value;
    return std::nullopt;
}

template<typename T, size_t N> QString choiceNames(const Choice<T> (&choices)[N])
{
    QStringList names;
    for (const Choice<T> &choice : choices)
        names.append(QLatin1String(choice.name));
    return names.join(QStringLiteral(", "));
}

constexpr Choice<ReceiverModel> kReceiverChoices[] = {
    {"orv4", ReceiverModel::OrvaneV4},
    {"orv1", ReceiverModel::OrvaneV1},
    {"foreign", ReceiverModel::Foreign},
};

using MountingError = tavrix::sim::ReceiverSimulatorSettings::MountingError;
constexpr Choice<MountingError> kMountingErrorChoices[] = {
    {"not-flat", MountingError::NotFlat},     {"no-tilt", MountingError::NoTilt},
    {"flat-first", MountingError::FlatFirst}, {"no-imu", MountingError::ImuNotRunning},
    {"other", MountingError::Other},          {"silent", MountingError::NoAnswer},
};

using GyroCalibration = tavrix::sim::ReceiverSimulatorSettings::GyroCalibration;
constexpr Choice<GyroCalibration> kGyroErrorChoices[] = {
    {"moved", GyroCalibration::CarMoved},
    {"silent", GyroCalibration::NoAnswer},
};

// Field ids given as repeated options; false when one is not a number from 1 to 255.
bool parseFieldIds(const QStringList &values, QSet<uint8_t> &ids)
{
    for (const QString &value : values) {
        bool ok = false;
        const int id = value.toInt(&ok);
        if (!ok || id < 1 || id > 255)
            return false;
        ids.insert(uint8_t(id));
    }
    return true;
}

int runBridge(QCoreApplication &app, const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Plays the Orvane Transmitter's USB bridge on a pseudo-terminal.\n"
                       "SIGUSR1 unplugs it, SIGUSR2 plugs it back in; SIGINT or SIGTERM ends the run."));
    parser.addHelpOption();
    parser.addPositionalArgument(QStringLiteral("bridge"), QStringLiteral("The simulated device."));
    const QCommandLineOption logOption(
        QStringLiteral("log"), QStringLiteral("Write what the bridge receives as JSON lines to <file>."),
        QStringLiteral("file"));
    const QCommandLineOption linkOption(QStringLiteral("link"),
                                        QStringLiteral("Also serve the port as a symlink at <path>."),
                                        QStringLiteral("path"));
    const QCommandLineOption motionOption(
        QStringLiteral("motion-hz"), QStringLiteral("Rate of the car's motion record (default 50, 0 = off)."),
        QStringLiteral("hz"));
    const QCommandLineOption wrapOption(QStringLiteral("wrap-motion"),
                                        QStringLiteral("Send the motion record inside 0x50 wrapper frames."));
    const QCommandLineOption linkStatsOption(QStringLiteral("link-stats-ms"),
                                             QStringLiteral("Link statistics interval (default 100)."),
                                             QStringLiteral("ms"));
    const QCommandLineOption carOffOption(QStringLiteral("car-off"),
                                          QStringLiteral("Start with the car switched off (no radio link)."));
    const QCommandLineOption garbleOption(QStringLiteral("garble"),
                                          QStringLiteral("Put random bytes before everything sent."));
    const QCommandLineOption receiverOption(
        QStringLiteral("receiver"),
        QStringLiteral("Who answers as the car's receiver: orv4 (default), orv1 or foreign."),
        QStringLiteral("model"));
    const QCommandLineOption walkReadFailureOption(
        QStringLiteral("walk-read-failure"),
        QStringLiteral("The parameter walk reports module field <id> as unreadable (repeatable)."),
        QStringLiteral("id"));
    const QCommandLineOption walkRepeatHeaderOption(
        QStringLiteral("walk-repeat-header"),
        QStringLiteral("The parameter walk sends the header of module field <id> twice (repeatable)."),
        QStringLiteral("id"));
    parser.addOptions({logOption, linkOption, motionOption, wrapOption, linkStatsOption, carOffOption,
                       garbleOption, receiverOption, walkReadFailureOption, walkRepeatHeaderOption});
    parser.process(arguments);

    QTextStream err(stderr);
    tavrix::sim::BridgeSimulatorSettings settings;
    if (parser.isSet(motionOption)) {
        bool ok = false;
        settings.telemetry.motionHz = parser.value(motionOption).toDouble(&ok);
        if (!ok || settings.telemetry.motionHz < 0.0 || settings.telemetry.motionHz > 1000.0) {
            err << "orvane-sim: --motion-hz must be a number from 0 to 1000\n";
            return 2;
        }
    }
    if (parser.isSet(linkStatsOption)) {
        bool ok = false;
        settings.telemetry.linkStatisticsIntervalMs = parser.value(linkStatsOption).toInt(&ok);
        if (!ok || settings.telemetry.linkStatisticsIntervalMs < 0) {
            err << "orvane-sim: --link-stats-ms must be a whole number of milliseconds\n";
            return 2;
        }
    }
    if (parser.isSet(receiverOption)) {
        const std::optional<ReceiverModel> model = choose(kReceiverChoices, parser.value(receiverOption));
        if (!model) {
            err << "orvane-sim: --receiver must be one of " << choiceNames(kReceiverChoices) << '\n';
            return 2;
        }
        settings.receiver = *model;
    }
    if (!parseFieldIds(parser.values(walkReadFailureOption), settings.walkReadFailures) ||
        !parseFieldIds(parser.values(walkRepeatHeaderOption), settings.walkRepeatedHeaders)) {
        err << "orvane-sim: a walk field id must be a number from 1 to 255\n";
        return 2;
    }
    settings.telemetry.wrapMotion = parser.isSet(wrapOption);
    settings.linkUp = !parser.isSet(carOffOption);

    tavrix::sim::BridgeSimulator bridge(settings);
    tavrix::sim::BridgeLog log;
    if (parser.isSet(logOption)) {
        if (!log.open(parser.value(logOption))) {
            err << "orvane-sim: cannot write " << parser.value(logOption) << ": " << log.errorString()
                << '\n';
            return 1;
        }
        log.attach(&bridge);
    }
    if (!bridge.start(parser.value(linkOption))) {
        err << "orvane-sim: cannot create the pseudo-terminal: " << bridge.errorString() << '\n';
        return 1;
    }
    bridge.setGarbling(parser.isSet(garbleOption));

    QTextStream out(stdout);
    out << "pty: " << bridge.slavePath() << '\n';
    if (!bridge.linkPath().isEmpty())
        out << "link: " << bridge.linkPath() << '\n';
    out.flush();

    QObject::connect(&bridge, &tavrix::sim::BridgeSimulator::pluggedIn, &app, [&] {
        out << "pty: " << bridge.slavePath() << '\n';
        out.flush();
    });

    return runUntilStopped(
        app,
        [&] {
            err << "orvane-sim: unplugged\n";
            err.flush();
            bridge.hangUp();
        },
        [&] {
            if (!bridge.plugIn()) {
                err << "orvane-sim: replug failed: " << bridge.errorString() << '\n';
                err.flush();
            }
        });
}

int runReceiver(QCoreApplication &app, const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Plays the Orvane receiver's USB console on a pseudo-terminal.\n"
                       "SIGUSR1 unplugs it, SIGUSR2 plugs it back in; SIGINT or SIGTERM ends the run."));
    parser.addHelpOption();
    parser.addPositionalArgument(QStringLiteral("receiver"), QStringLiteral("The simulated device."));
    const QCommandLineOption logOption(
        QStringLiteral("log"),
        QStringLiteral("Write the commands the receiver gets as JSON lines to <file>."),
        QStringLiteral("file"));
    const QCommandLineOption linkOption(QStringLiteral("link"),
                                        QStringLiteral("Also serve the port as a symlink at <path>."),
                                        QStringLiteral("path"));
    const QCommandLineOption oldFirmwareOption(
        QStringLiteral("old-firmware"),
        QStringLiteral("Play an older receiver that ignores settings commands."));
    const QCommandLineOption mountingErrorOption(
        QStringLiteral("mounting-error"),
        QStringLiteral("Fail the mounting detection: %1.").arg(choiceNames(kMountingErrorChoices)),
        QStringLiteral("kind"));
    const QCommandLineOption gyroErrorOption(
        QStringLiteral("gyro-cal-error"),
        QStringLiteral("Fail the gyro calibration: %1.").arg(choiceNames(kGyroErrorChoices)),
        QStringLiteral("kind"));
    const QCommandLineOption telemetryOption(
        QStringLiteral("telem-ms"),
        QStringLiteral("Period of the TELEM line (default 1000, 0 = only asked)."), QStringLiteral("ms"));
    parser.addOptions(
        {logOption, linkOption, oldFirmwareOption, mountingErrorOption, gyroErrorOption, telemetryOption});
    parser.process(arguments);

    QTextStream err(stderr);
    tavrix::sim::ReceiverSimulatorSettings settings;
    settings.oldFirmware = parser.isSet(oldFirmwareOption);
    if (parser.isSet(mountingErrorOption)) {
        const auto error = choose(kMountingErrorChoices, parser.value(mountingErrorOption));
        if (!error) {
            err << "orvane-sim: --mounting-error must be one of " << choiceNames(kMountingErrorChoices)
                << '\n';
            return 2;
        }
        settings.mountingError = *error;
    }
    if (parser.isSet(gyroErrorOption)) {
        const auto outcome = choose(kGyroErrorChoices, parser.value(gyroErrorOption));
        if (!outcome) {
            err << "orvane-sim: --gyro-cal-error must be one of " << choiceNames(kGyroErrorChoices) << '\n';
            return 2;
        }
        settings.gyroCalibration = *outcome;
    }
    if (parser.isSet(telemetryOption)) {
        bool ok = false;
        settings.telemetryIntervalMs = parser.value(telemetryOption).toInt(&ok);
        if (!ok || settings.telemetryIntervalMs < 0) {
            err << "orvane-sim: --telem-ms must be a whole number of milliseconds\n";
            return 2;
        }
    }

    tavrix::sim::ReceiverSimulator receiver(settings);
    tavrix::sim::BridgeLog log;
    if (parser.isSet(logOption)) {
        if (!log.open(parser.value(logOption))) {
            err << "orvane-sim: cannot write " << parser.value(logOption) << ": " << log.errorString()
                << '\n';
            return 1;
        }
        QObject::connect(&receiver, &tavrix::sim::ReceiverSimulator::commandReceived, &log,
                         &tavrix::sim::BridgeLog::logCommand);
    }
    if (!receiver.start(parser.value(linkOption))) {
        err << "orvane-sim: cannot create the pseudo-terminal: " << receiver.errorString() << '\n';
        return 1;
    }

    QTextStream out(stdout);
    const auto printPaths = [&] {
        out << "pty: " << receiver.slavePath() << '\n';
        if (!receiver.linkPath().isEmpty())
            out << "link: " << receiver.linkPath() << '\n';
        out.flush();
    };
    printPaths();
    return runUntilStopped(
        app,
        [&] {
            err << "orvane-sim: unplugged\n";
            err.flush();
            log.logEvent(QStringLiteral("unplugged"), QDateTime::currentMSecsSinceEpoch());
            receiver.hangUp();
        },
        [&] {
            if (!receiver.plugIn()) {
                err << "orvane-sim: replug failed: " << receiver.errorString() << '\n';
                err.flush();
                return;
            }
            log.logEvent(QStringLiteral("plugged-in"), QDateTime::currentMSecsSinceEpoch());
            printPaths();
        });
}

constexpr Choice<int> kPlatformChoices[] = {
    {"2dof", 2},
    {"3dof", 4},
    {"5dof", 6},
};

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
    if (parser.isSet(logOption)) {
        if (!log.open(parser.value(logOption))) {
            err << "orvane-sim: cannot write " << parser.value(logOption) << ": " << log.errorString()
                << '\n';
            return 1;
        }
        QObject::connect(&board, &tavrix::sim::MotionSimulator::commandReceived, &log,
                         &tavrix::sim::BridgeLog::logCommand);
        QObject::connect(&board, &tavrix::sim::MotionSimulator::garbageReceived, &log,
                         &tavrix::sim::BridgeLog::logGarbage);
    }
    if (!board.start(parser.value(linkOption))) {
        err << "orvane-sim: cannot create the pseudo-terminal: " << board.errorString() << '\n';
        return 1;
    }
    if (parser.isSet(failOption))
        board.fail();
    board.setSilent(parser.isSet(silentOption));

    QTextStream out(stdout);
    const auto printPaths = [&] {
        out << "pty: " << board.slavePath() << '\n';
        if (!board.linkPath().isEmpty())
            out << "link: " << board.linkPath() << '\n';
        out.flush();
    };
    printPaths();
    return runUntilStopped(
        app,
        [&] {
            err << "orvane-sim: unplugged\n";
            err.flush();
            log.logEvent(QStringLiteral("unplugged"), QDateTime::currentMSecsSinceEpoch());
            board.hangUp();
        },
        [&] {
            if (!board.plugIn()) {
                err << "orvane-sim: replug failed: " << board.errorString() << '\n';
                err.flush();
                return;
            }
            log.logEvent(QStringLiteral("plugged-in"), QDateTime::currentMSecsSinceEpoch());
            printPaths();
        });
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("orvane-sim"));
    if (!installSignalForwarding()) {
        QTextStream(stderr) << "orvane-sim: cannot install signal handlers\n";
        return 1;
    }
    const QStringList arguments = QCoreApplication::arguments();
    const QString device = arguments.value(1);
    if (device == QLatin1String("bridge"))
        return runBridge(app, arguments);
    if (device == QLatin1String("receiver"))
        return runReceiver(app, arguments);
    if (device == QLatin1String("motion"))
        return runMotion(app, arguments);
    QTextStream(stderr)
        << "usage: orvane-sim bridge|motion|receiver [options]   (orvane-sim bridge --help for the "
           "options)\n";
    return 2;
}
