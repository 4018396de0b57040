#include "bridgelog.h"
#include "simcli.h"
#include "v4boardsimulator.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDateTime>
#include <QSaveFile>
#include <QTextStream>

#include <optional>

namespace tavrix::sim::cli {

int runV4(QCoreApplication &app, const QStringList &arguments)
{
    using tavrix::sim::V4BoardSimulator;
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Plays the Orvane receiver V4 (STM32G0B1) on its USB-UART cable: the firmware's text "
                       "console and the STM32 UART bootloader.\n"
                       "SIGUSR1 power-cycles the board; SIGINT or SIGTERM ends the run."));
    parser.addHelpOption();
    parser.addPositionalArgument(QStringLiteral("v4"), QStringLiteral("The simulated device."));
    const QCommandLineOption logOption(
        QStringLiteral("log"), QStringLiteral("Write what the board receives as JSON lines to <file>."),
        QStringLiteral("file"));
    const QCommandLineOption linkOption(QStringLiteral("link"),
                                        QStringLiteral("Also serve the port as a symlink at <path>."),
                                        QStringLiteral("path"));
    const QCommandLineOption versionOption(
        QStringLiteral("version"), QStringLiteral("The firmware version on the chip (default 4.3.0)."),
        QStringLiteral("version"));
    const QCommandLineOption powerCycleOption(
        QStringLiteral("needs-power-cycle"),
        QStringLiteral("DFU does nothing until the board is power-cycled (SIGUSR1)."));
    const QCommandLineOption rdpOption(QStringLiteral("rdp"), QStringLiteral("Read-out protection is on."));
    const QCommandLineOption corruptOption(
        QStringLiteral("corrupt-page"),
        QStringLiteral("The first programming of page <n> stores a wrong byte."), QStringLiteral("n"));
    const QCommandLineOption silentOption(
        QStringLiteral("silent-after-pages"),
        QStringLiteral("Fall silent when programming reaches a page beyond the first <n>."),
        QStringLiteral("n"));
    const QCommandLineOption chipIdOption(QStringLiteral("chip-id"),
                                          QStringLiteral("The chip ID GET_ID reports (default 0x467)."),
                                          QStringLiteral("id"));
    const QCommandLineOption dumpOption(
        QStringLiteral("flash-dump"),
        QStringLiteral("When the run ends, write the whole flash (512 KB from 0x08000000) to <file>."),
        QStringLiteral("file"));
    parser.addOptions({logOption, linkOption, versionOption, powerCycleOption, rdpOption, corruptOption,
                       silentOption, chipIdOption, dumpOption});
    parser.process(arguments);

    QTextStream err(stderr);
    tavrix::sim::V4BoardSimulatorSettings settings;
    if (parser.isSet(versionOption))
        settings.firmwareVersion = parser.value(versionOption);
    if (V4BoardSimulator::imageVersion("Orvane:" + settings.firmwareVersion.toLatin1()) !=
        settings.firmwareVersion) {
        err << "orvane-sim: --version must start with a digit and hold only letters, digits, '.' and '-'\n";
        return 2;
    }
    settings.needsPowerCycle = parser.isSet(powerCycleOption);
    settings.readoutProtection = parser.isSet(rdpOption);
    const struct
    {
        const QCommandLineOption &option;
        int &value;
        int minimum;
        int maximum;
        const char *message;
    } numbers[] = {
        {corruptOption, settings.corruptPage, 0, V4BoardSimulator::kPageCount - 1,
         "--corrupt-page must be a page number from 0 to 255"},
        {silentOption, settings.silentAfterPages, 0, V4BoardSimulator::kPageCount,
         "--silent-after-pages must be a number of pages from 0 to 256"},
    };
    for (const auto &number : numbers) {
        if (!parser.isSet(number.option))
            continue;
        const std::optional<int> value = wholeNumber(parser, number.option, number.minimum, number.maximum);
        if (!value) {
            err << "orvane-sim: " << number.message << '\n';
            return 2;
        }
        number.value = *value;
    }
    if (parser.isSet(chipIdOption)) {
        const std::optional<int> id = wholeNumber(parser, chipIdOption, 0, 0xFFFF);
        if (!id) {
            err << "orvane-sim: --chip-id must be a number from 0 to 0xFFFF\n";
            return 2;
        }
        settings.chipId = uint16_t(*id);
    }

    V4BoardSimulator board(settings);
    tavrix::sim::BridgeLog log;
    if (!openLog(log, parser, logOption))
        return 1;
    if (parser.isSet(logOption)) {
        QObject::connect(&board, &V4BoardSimulator::commandReceived, &log,
                         &tavrix::sim::BridgeLog::logCommand);
        QObject::connect(&board, &V4BoardSimulator::bootloaderCommandReceived, &log,
                         &tavrix::sim::BridgeLog::logBootloaderCommand);
        QObject::connect(
            &board, &V4BoardSimulator::stateChanged, &log, [&log](V4BoardSimulator::State state) {
                static const char *const names[] = {"firmware", "bootloader", "silent"};
                log.logEvent(QLatin1String(names[int(state)]), QDateTime::currentMSecsSinceEpoch());
            });
    }
    if (!startDevice(board, parser.value(linkOption)))
        return 1;

    printPaths(board);
    const int status = runUntilStopped(
        app,
        [&] {
            log.logEvent(QStringLiteral("power-cycle"), QDateTime::currentMSecsSinceEpoch());
            board.powerCycle();
        },
        [] {});
    if (parser.isSet(dumpOption)) {
        QSaveFile dump(parser.value(dumpOption));
        if (!dump.open(QIODevice::WriteOnly) ||
            dump.write(board.flash().contents()) != board.flash().size() || !dump.commit()) {
            err << "orvane-sim: cannot write the flash to " << dump.fileName() << '\n';
            return 1;
        }
    }
    return status;
}

} // namespace tavrix::sim::cli
