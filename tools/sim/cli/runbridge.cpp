#include "bridgelog.h"
#include "bridgesimulator.h"
#include "simcli.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDateTime>
#include <QTextStream>

#include <optional>

namespace tavrix::sim::cli {

namespace {

using ReceiverModel = tavrix::sim::SimulatedParameterDevice::ReceiverModel;

constexpr Choice<ReceiverModel> kReceiverChoices[] = {
    {"orv4", ReceiverModel::OrvaneV4},
    {"orv1", ReceiverModel::OrvaneV1},
    {"foreign", ReceiverModel::Foreign},
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

} // namespace

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
    if (!openLog(log, parser, logOption))
        return 1;
    if (parser.isSet(logOption)) {
        log.attach(&bridge);
    }
    if (!startDevice(bridge, parser.value(linkOption)))
        return 1;
    bridge.setGarbling(parser.isSet(garbleOption));

    printPaths(bridge);
    QTextStream out(stdout);
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

} // namespace tavrix::sim::cli
