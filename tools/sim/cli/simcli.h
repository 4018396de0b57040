#pragma once

// The command-line front end of orvane-sim: one run function per simulated device, and
// what they share (signal handling, choosing a value by name, numeric options).
#include "bridgelog.h"

#include <QDateTime>
#include <QString>
#include <QStringList>
#include <QTextStream>

#include <cstddef>
#include <functional>
#include <optional>

class QCommandLineOption;
class QCommandLineParser;
class QCoreApplication;

namespace tavrix::sim::cli {

// Routes SIGINT, SIGTERM, SIGUSR1 and SIGUSR2 into the event loop; false when it cannot.
bool installSignalForwarding();

// Runs the event loop until SIGINT or SIGTERM; SIGUSR1 and SIGUSR2 call the device's
// own actions (unplug and replug for most devices).
int runUntilStopped(QCoreApplication &app, const std::function<void()> &unplug,
                    const std::function<void()> &replug);

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

// A whole number option (decimal, or hexadecimal with 0x) no smaller than `minimum`.
std::optional<int> wholeNumber(const QCommandLineParser &parser, const QCommandLineOption &option,
                               int minimum, int maximum);

// Opens the JSON-lines log named by `option`, if given; false, with the reason on stderr,
// when it cannot be written.
bool openLog(BridgeLog &log, const QCommandLineParser &parser, const QCommandLineOption &option);

// Starts the device's pseudo-terminal (and its link path, if any); false with the reason on stderr.
template<class Device> bool startDevice(Device &device, const QString &linkPath)
{
    if (device.start(linkPath))
        return true;
    QTextStream(stderr) << "orvane-sim: cannot create the pseudo-terminal: " << device.errorString() << '\n';
    return false;
}

// "pty: PATH" and "link: PATH" on stdout, which scripts wait for.
template<class Device> void printPaths(const Device &device)
{
    QTextStream out(stdout);
    out << "pty: " << device.slavePath() << '\n';
    if (!device.linkPath().isEmpty())
        out << "link: " << device.linkPath() << '\n';
    out.flush();
}

// Prints where the device listens and runs until SIGINT or SIGTERM; SIGUSR1 unplugs it and
// SIGUSR2 plugs it back in (its paths printed again), both noted in the log.
template<class Device> int runPluggable(QCoreApplication &app, Device &device, BridgeLog &log)
{
    printPaths(device);
    QTextStream err(stderr);
    return runUntilStopped(
        app,
        [&] {
            err << "orvane-sim: unplugged\n";
            err.flush();
            log.logEvent(QStringLiteral("unplugged"), QDateTime::currentMSecsSinceEpoch());
            device.hangUp();
        },
        [&] {
            if (!device.plugIn()) {
                err << "orvane-sim: replug failed: " << device.errorString() << '\n';
                err.flush();
                return;
            }
            log.logEvent(QStringLiteral("plugged-in"), QDateTime::currentMSecsSinceEpoch());
            printPaths(device);
        });
}

int runBridge(QCoreApplication &app, const QStringList &arguments);
int runReceiver(QCoreApplication &app, const QStringList &arguments);
int runV4(QCoreApplication &app, const QStringList &arguments);
int runMotion(QCoreApplication &app, const QStringList &arguments);

} // namespace tavrix::sim::cli
