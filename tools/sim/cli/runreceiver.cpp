#include "bridgelog.h"
#include "receiversimulator.h"
#include "simcli.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDateTime>
#include <QTextStream>

#include <optional>

namespace tavrix::sim::cli {

namespace {

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

} // namespace

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
    if (!openLog(log, parser, logOption))
        return 1;
    if (parser.isSet(logOption)) {
        QObject::connect(&receiver, &tavrix::sim::ReceiverSimulator::commandReceived, &log,
                         &tavrix::sim::BridgeLog::logCommand);
    }
    if (!startDevice(receiver, parser.value(linkOption)))
        return 1;

    return runPluggable(app, receiver, log);
}

} // namespace tavrix::sim::cli
